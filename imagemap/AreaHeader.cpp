#include "imagemap/AreaHeader.h"

#include <QAbstractItemModel>
#include <algorithm>

AreaHeader::AreaHeader(QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent)
{
    setDefaultAlignment(Qt::Alignment::fromInt(Qt::AlignLeft | Qt::AlignVCenter | int(Qt::TextWordWrap)));
    setSectionsClickable(false);
    setStretchLastSection(false);
}

QSize AreaHeader::sectionSizeFromContents(int column) const
{
    constexpr int widestLine = 16; // in digits
    const QSize plain = QHeaderView::sectionSizeFromContents(column);
    const QString caption = model()->headerData(column, Qt::Horizontal).toString();
    const QFontMetrics metrics = fontMetrics();
    const int whole = metrics.size(Qt::TextSingleLine, caption).width();
    if (whole <= widestLine * metrics.horizontalAdvance(u'0')) {
        return plain;
    }
    // The narrowest room in which it takes no third line.
    const auto heightIn = [&](int width) {
        return metrics.boundingRect(QRect(0, 0, width, 0), Qt::TextWordWrap, caption).height();
    };
    int width = whole / 2;
    while (width < whole && heightIn(width) > 2 * metrics.lineSpacing()) {
        ++width;
    }
    return { plain.width() - whole + width,
             std::max(plain.height(), plain.height() + heightIn(width) - metrics.height()) };
}
