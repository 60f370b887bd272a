#pragma once

#include "outline/ColourDifference.h"

#include <QImage>

/** Pixels of a picture that are like a colour, line by line. */
class LikeColours
{
public:
    /** `picture` has 32 bits a pixel and outlives this. */
    LikeColours(const QImage& picture, double tolerance)
        : picture_(picture)
        , tolerance_(static_cast<float>(tolerance))
        , added_(picture.hasAlphaChannel() ? 0 : wholeColour)
        , isPremultiplied_(picture.format() == QImage::Format_ARGB32_Premultiplied)
    {
    }

    void SetFrom(QRgb colour)
    {
        distances_.SetFrom(colour);
        hasLast_ = false;
    }
    void SetTolerance(double tolerance)
    {
        tolerance_ = static_cast<float>(tolerance);
        hasLast_ = false;
    }
    void SetRow(int y) { row_ = reinterpret_cast<const QRgb*>(picture_.constScanLine(y)); }

    /** The colour of a pixel, opaque where the picture has no transparency. */
    [[nodiscard]] QRgb ColourAt(int x) const
    {
        return isPremultiplied_ ? qUnpremultiply(row_[x]) : row_[x] | added_;
    }

    [[nodiscard]] bool IsLike(int x)
    {
        // Neighbours have the same colour more often than not.
        if (row_[x] != last_ || !hasLast_) {
            last_ = row_[x];
            hasLast_ = true;
            isLike_ = distances_.To(ColourAt(x)) <= tolerance_;
        }
        return isLike_;
    }

    /**
     * How far one comes from `x` with steps of 1 or -1, and no further than `end`, over pixels without the
     * marks `taken` that have just the like colour asked for last.
     */
    [[nodiscard]] int SameTo(int x, int step, int end, const quint8* marks, quint8 taken) const
    {
        if (!hasLast_ || !isLike_) {
            return x;
        }
        const QRgb* const row = row_;
        const QRgb same = last_;
        while (x != end && row[x + step] == same && (marks[x + step] & taken) == 0) {
            x += step;
        }
        return x;
    }

private:
    static constexpr QRgb wholeColour = 0xff000000U;

    const QImage& picture_;
    ColourDistances distances_;
    float tolerance_;
    QRgb added_;
    bool isPremultiplied_;
    const QRgb* row_ = nullptr;
    QRgb last_ = 0;
    bool hasLast_ = false;
    bool isLike_ = false;
};
