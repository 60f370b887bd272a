#include "app/WrappingLayout.h"

#include <algorithm>

WrappingLayout::WrappingLayout() = default;

WrappingLayout::~WrappingLayout() = default;

void WrappingLayout::addItem(QLayoutItem* item)
{
    items_.emplace_back(item);
    invalidate();
}

int WrappingLayout::count() const
{
    return static_cast<int>(items_.size());
}

QLayoutItem* WrappingLayout::itemAt(int index) const
{
    return index >= 0 && index < count() ? items_[static_cast<std::size_t>(index)].get() : nullptr;
}

QLayoutItem* WrappingLayout::takeAt(int index)
{
    if (itemAt(index) == nullptr) {
        return nullptr;
    }
    const auto item = items_.begin() + index;
    QLayoutItem* const taken = item->release();
    items_.erase(item);
    invalidate();
    return taken;
}

/** Calls `put` for each item with its left edge, the top and the height of its row; the height of all. */
template<class Put> int WrappingLayout::PutRows(int width, Put put) const
{
    int top = 0;
    for (auto first = items_.begin(); first != items_.end();) {
        auto end = first;
        int right = 0;
        int height = 0;
        for (; end != items_.end(); ++end) {
            const QSize size = (*end)->sizeHint();
            const int left = end == first ? 0 : right + spacing();
            if (end != first && left + size.width() > width) {
                break;
            }
            right = left + size.width();
            height = std::max(height, size.height());
        }
        int left = 0;
        for (; first != end; ++first) {
            put(**first, left, top, height);
            left += (*first)->sizeHint().width() + spacing();
        }
        top += height + spacing();
    }
    return std::max(top - spacing(), 0);
}

int WrappingLayout::heightForWidth(int width) const
{
    return PutRows(width, [](QLayoutItem&, int, int, int) {});
}

QSize WrappingLayout::sizeHint() const
{
    QSize size(-spacing(), 0);
    for (const auto& item : items_) {
        const QSize one = item->sizeHint();
        size = { size.width() + spacing() + one.width(), std::max(size.height(), one.height()) };
    }
    return size.expandedTo({ 0, 0 });
}

QSize WrappingLayout::minimumSize() const
{
    QSize size;
    for (const auto& item : items_) {
        size = size.expandedTo(item->minimumSize());
    }
    return size;
}

void WrappingLayout::setGeometry(const QRect& place)
{
    QLayout::setGeometry(place);
    PutRows(place.width(), [&place](QLayoutItem& item, int left, int top, int height) {
        const QSize size = item.sizeHint().boundedTo({ place.width(), height });
        item.setGeometry({ place.topLeft() + QPoint(left, top + (height - size.height()) / 2), size });
    });
}
