#pragma once

#include <QRect>
#include <QSize>
#include <cstdlib>
#include <memory>

/** What a pixel of a mask is marked as; marks do not exclude each other. */
enum PixelMark : quint8 {
    MarkNew = 1,      ///< belongs to the region that is being grown
    MarkEdge = 2,     ///< was asked whether it belongs to that, and does not
    MarkChosen = 4,   ///< belongs to the regions joined before
    MarkPiece = 8,    ///< belongs to the piece whose contour is asked for
    MarkSeen = 16,    ///< was in such a piece before
    MarkOutside = 32, ///< lies around the piece, or was in a hole of it before
    MarkHole = 64,    ///< belongs to the hole of it whose contour is asked for
};

/** A byte a pixel of a picture, for any marks. What is never marked hardly takes memory or time. */
class PixelMask
{
public:
    explicit PixelMask(QSize size);

    [[nodiscard]] QSize Size() const { return size_; }
    [[nodiscard]] QRect Box() const { return { QPoint(), size_ }; }

    [[nodiscard]] quint8* Row(int y) { return bytes_.get() + qsizetype(y) * size_.width(); }
    [[nodiscard]] const quint8* Row(int y) const { return bytes_.get() + qsizetype(y) * size_.width(); }

    /** Whether the pixel is in the picture and has one of the `marks`. */
    [[nodiscard]] bool Has(QPoint pixel, quint8 marks) const
    {
        return Box().contains(pixel) && (Row(pixel.y())[pixel.x()] & marks) != 0;
    }

    /** Takes the `marks` off all pixels of `box`. */
    void Clear(const QRect& box, quint8 marks);

private:
    struct Freeing
    {
        void operator()(quint8* bytes) const { std::free(bytes); }
    };

    QSize size_;
    std::unique_ptr<quint8[], Freeing> bytes_;
};
