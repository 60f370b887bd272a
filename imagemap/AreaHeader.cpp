#include "imagemap/AreaHeader.h"

#include <QAbstractItemModel>
#include <algorithm>

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
    const QString caption = model()->headerData(column, Qt::Horizontal).toString();
    const QFontMetrics metrics = fontMetrics();
    const QSize whole = metrics.size(Qt::TextSingleLine, caption);
    const auto sizeIn = [&](int width) {
        return metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, caption).size();
    };
    // The narrowest room in which it takes no line more.
    int width = whole.width() / lines_;
    while (width < whole.width() &&
           (sizeIn(width).height() > lines_ * metrics.lineSpacing() || sizeIn(width).width() > width)) {
        ++width;
    }
    const QSize frame = QHeaderView::sectionSizeFromContents(column) - whole;
    return frame + QSize(width, std::max(sizeIn(width).height(), whole.height()));
}
