#pragma once

#include <QHeaderView>
#include <QTreeView>
#include <algorithm>
#include <span>

/** Gives the first columns of `list` room for so many digits each, and no less than their headings need. */
inline void GiveRoomForDigits(const QTreeView* list, std::span<const int> digits)
{
    const int digit = list->fontMetrics().horizontalAdvance(u'0');
    for (int column = 0; const int count : digits) {
        list->header()->resizeSection(
            column, std::max(list->header()->sectionSizeHint(column), count * digit));
        ++column;
    }
}
