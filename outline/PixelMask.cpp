#include "outline/PixelMask.h"

#include <QtGlobal>
#include <algorithm>

PixelMask::PixelMask(QSize size)
    : size_(size.expandedTo(QSize(0, 0)))
    // The system hands such memory out page by page, as it is written to.
    , bytes_(static_cast<quint8*>(
          std::calloc(std::max(std::size_t(size_.width()) * std::size_t(size_.height()), std::size_t(1)), 1)))
{
    Q_CHECK_PTR(bytes_.get());
}

void PixelMask::Clear(const QRect& box, quint8 marks)
{
    const QRect inside = box & Box();
    const auto kept = static_cast<quint8>(~marks);
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        quint8* const row = Row(y);
        std::for_each(row + inside.left(), row + inside.right() + 1, [kept](quint8& pixel) {
            pixel = static_cast<quint8>(pixel & kept);
        });
    }
}
