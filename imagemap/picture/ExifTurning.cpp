#include "imagemap/picture/ExifTurning.h"

#include <QTransform>
#include <QtEndian>
#include <array>
#include <optional>

namespace {

/** Reads the numbers of a block in the byte order that it says at its start. */
class ExifNumbers
{
public:
    explicit ExifNumbers(const QByteArray& exif)
        : exif_(exif)
        , isLittleEndian_(exif.startsWith("II"))
    {
    }

    /** Nothing beyond the block's end. */
    template<class Number> [[nodiscard]] std::optional<Number> At(qsizetype place) const
    {
        if (place < 0 || place > exif_.size() - qsizetype(sizeof(Number))) {
            return std::nullopt;
        }
        const char* const first = exif_.constData() + place;
        return isLittleEndian_ ? qFromLittleEndian<Number>(first) : qFromBigEndian<Number>(first);
    }

private:
    const QByteArray& exif_;
    bool isLittleEndian_;
};

constexpr int directoryAt = 4;
constexpr int countLength = 2;
constexpr int entryLength = 12;
constexpr int formAt = 2;
constexpr int valueAt = 8;
constexpr quint16 orientationTag = 0x0112;
constexpr quint16 wordForm = 3;

/** Done one after the other. */
struct Turning
{
    bool isMirroredAcross;
    bool isMirroredDown;
    int degrees; ///< clockwise
};

/** In the order of their numbers, from 1 on. */
constexpr std::array<Turning, 8> turnings = { { { false, false, 0 },
                                                { true, false, 0 },
                                                { true, true, 0 },
                                                { false, true, 0 },
                                                { true, false, 270 },
                                                { false, false, 90 },
                                                { true, false, 90 },
                                                { false, false, 270 } } };

} // namespace

int ExifOrientation(const QByteArray& exif)
{
    constexpr int upright = 1;
    if (!exif.startsWith(QByteArray("II*\0", 4)) && !exif.startsWith(QByteArray("MM\0*", 4))) {
        return upright;
    }
    const ExifNumbers numbers(exif);
    const qsizetype directory = numbers.At<quint32>(directoryAt).value_or(0);
    const int count = numbers.At<quint16>(directory).value_or(0);
    for (int i = 0; i < count; ++i) {
        const qsizetype entry = directory + countLength + qsizetype(i) * entryLength;
        const std::optional<quint16> tag = numbers.At<quint16>(entry);
        if (!tag) {
            break;
        }
        if (tag == orientationTag && numbers.At<quint16>(entry + formAt) == wordForm) {
            const int orientation = numbers.At<quint16>(entry + valueAt).value_or(upright);
            return orientation >= upright && orientation <= int(turnings.size()) ? orientation : upright;
        }
    }
    return upright;
}

QImage TurnedUpright(const QImage& picture, int orientation)
{
    const Turning& turning = turnings.at(static_cast<std::size_t>(orientation - 1));
    const QImage mirrored = turning.isMirroredAcross || turning.isMirroredDown
                                ? picture.mirrored(turning.isMirroredAcross, turning.isMirroredDown)
                                : picture;
    return turning.degrees == 0 ? mirrored : mirrored.transformed(QTransform().rotate(turning.degrees));
}
