#include "imagemap/AreaHeader.h"

#include "imagemap/AreaListModel.h"

#include <algorithm>
#include <numeric>

AreaHeader::AreaHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setDefaultAlignment(Qt::Alignment::fromInt(Qt::AlignLeft | Qt::AlignVCenter | int(Qt::TextWordWrap)));
    setStretchLastSection(false);
}

void AreaHeader::FitInto(int width)
{
    constexpr int linesAtMost = 3;
    const int before = lines_;
    lines_ = 1;
    while (lines_ < linesAtMost && NeededWidth() > width) {
        ++lines_;
    }
    if (lines_ != before) {
        // What the sections need is remembered, and with it the header's height.
        headerDataChanged(Qt::Horizontal, 0, count() - 1);
        updateGeometry();
        Q_EMIT geometriesChanged();
    }
}

int AreaHeader::NeededWidth() const
{
    int needed = 0;
    for (int column = 0; column < count(); ++column) {
        needed += sectionSizeFromContents(column).width();
    }
    return needed;
}

QSize AreaHeader::sectionSizeFromContents(int column) const
{
    const QString caption = CaptionOf(column);
    const QFontMetrics metrics = fontMetrics();
    const QSize inOneLine = metrics.size(Qt::TextSingleLine, caption);
    const auto sizeIn = [&](int width) {
        return metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, caption).size();
    };
    const auto isTooNarrow = [&](int width) {
        const QSize size = sizeIn(width);
        return size.height() > lines_ * metrics.lineSpacing() || size.width() > width;
    };
    // The narrowest room in which it takes no line more.
    int width = inOneLine.width() / lines_;
    for (int most = inOneLine.width(); width < most;) {
        const int middle = std::midpoint(width, most);
        isTooNarrow(middle) ? width = middle + 1 : most = middle;
    }
    const QSize frame = FramedSize(caption) - inOneLine;
    return frame + QSize(width, std::max(sizeIn(width).height(), inOneLine.height()));
}

void AreaHeader::initStyleOptionForIndex(QStyleOptionHeader* option, int column) const
{
    QHeaderView::initStyleOptionForIndex(option, column);
    option->text = CaptionOf(column);
}

QString AreaHeader::CaptionOf(int column) const
{
    constexpr qsizetype longest = AreaListModel::longestCaption;
    const QString whole = model()->headerData(column, Qt::Horizontal).toString();
    return whole.size() > longest ? whole.first(longest) + u'\u2026' : whole;
}

QSize AreaHeader::FramedSize(const QString& caption) const
{
    QStyleOptionHeader option;
    initStyleOption(&option);
    option.text = caption;
    // Some styles write the captions of selected columns so.
    QFont widest = font();
    widest.setBold(true);
    option.fontMetrics = QFontMetrics(widest);
    return style()->sizeFromContents(QStyle::CT_HeaderSection, &option, QSize(), this);
}
