#include "imagemap/picture/JpegCheck.h"

#include "imagemap/picture/ByteSource.h"
#include "imagemap/picture/PictureLimits.h"

#include <QPoint>
#include <QSize>
#include <algorithm>
#include <array>
#include <bitset>
#include <map>
#include <span>

namespace {

/**
 * The emptiest block of 8 by 8 grey pixels takes one bit for its mean in a progressive JPEG, where the other
 * 63 coefficients of thousands of blocks vanish in one run: 64 pixels a bit.
 */
constexpr qint64 jpegPixelsPerByte = 512;

/**
 * A JPEG in several scans is decoded by way of all its coefficients, two bytes each, beside the pixels. This
 * has room for 160 megapixels in colour at full resolution.
 */
constexpr qint64 scannedMegabytesAtMost = 1536;

/** Each scan visits every block again: a 100-megapixel picture gets forty, encoders make a dozen. */
constexpr qint64 pixelVisitsAtMost = 4'000'000'000;

/** Decoders keep a record of each comment; a photograph has a few dozen segments, so this is never met. */
constexpr int jpegSegmentsAtMost = 10'000;

/** Decoders keep comments and profiles in memory; the longest in use hold a depth map of a few megabytes. */
constexpr qint64 jpegMetadataAtMost = 64 * bytesPerMegabyte;

/** What the scans of a JPEG have told of its coefficients, which can come in parts and in several steps. */
class ScannedCoefficients
{
public:
    /** The scan of `components`, for the coefficients `first` to `last`, leaves so many bits to be told. */
    void Add(std::span<const uchar> components, int first, int last, int bitsLeft);

    /** Whether every coefficient of `count` components was told to its last bit. */
    [[nodiscard]] bool AreComplete(int count) const;

private:
    static constexpr int coefficients = 64;

    std::map<uchar, std::bitset<coefficients>> told_; ///< by component
};

void ScannedCoefficients::Add(std::span<const uchar> components, int first, int last, int bitsLeft)
{
    for (const uchar component : components) {
        std::bitset<coefficients>& told = told_[component];
        for (int i = first; bitsLeft == 0 && i <= std::min(last, coefficients - 1); ++i) {
            told.set(static_cast<size_t>(i));
        }
    }
}

bool ScannedCoefficients::AreComplete(int count) const
{
    return static_cast<int>(told_.size()) == count &&
           std::all_of(
               told_.begin(), told_.end(), [](const auto& component) { return component.second.all(); });
}

/** Follows a JPEG from marker to marker. */
class JpegWalk
{
public:
    explicit JpegWalk(ByteSource& source)
        : source_(source)
    {
    }

    std::optional<PictureOutline> Walk();

private:
    /** The markers that matter here. */
    enum Marker : uchar {
        temporary = 0x01,
        firstFrame = 0xC0,
        huffmanTables = 0xC4,
        extension = 0xC8,
        arithmeticTables = 0xCC,
        lastFrame = 0xCF,
        firstRestart = 0xD0,
        lastRestart = 0xD7,
        startOfImage = 0xD8,
        endOfImage = 0xD9,
        startOfScan = 0xDA,
        firstApplication = 0xE0,
        lastApplication = 0xEF,
        comment = 0xFE
    };

    static bool IsFrame(uchar marker);
    static bool IsMetadata(uchar marker);

    uchar NextMarker();
    bool ReadSegment(uchar marker);
    bool ReadFrame(uchar marker);
    bool ReadScan();
    bool FitsInMemory() const;
    std::optional<PictureOutline> Outline() const;

    ByteSource& source_;
    QSize size_;
    int components_ = 0;
    ScannedCoefficients told_;
    bool inSeveralScans_ = false;
    qint64 scans_ = 0;
    qint64 scanBytes_ = 0;
    qint64 metadataBytes_ = 0;
};

bool JpegWalk::IsFrame(uchar marker)
{
    return marker >= firstFrame && marker <= lastFrame && marker != huffmanTables && marker != extension &&
           marker != arithmeticTables;
}

bool JpegWalk::IsMetadata(uchar marker)
{
    return (marker >= firstApplication && marker <= lastApplication) || marker == comment;
}

std::optional<PictureOutline> JpegWalk::Walk()
{
    for (int segments = 0; segments < jpegSegmentsAtMost; ++segments) {
        const uchar marker = NextMarker();
        if (marker == endOfImage) {
            return Outline();
        }
        if (marker == 0 && told_.AreComplete(components_)) {
            std::optional<PictureOutline> outline = Outline();
            if (outline) {
                outline->lacksEndMark = true;
            }
            return outline;
        }
        if (!ReadSegment(marker)) {
            return {};
        }
    }
    return {};
}

/**
 * Passes over a scan's data, and over stray bytes as decoders do, to the next marker that matters; nought at
 * the end of the file. In a scan, FF 00 stands for a byte of data and the restart markers have no segment.
 */
uchar JpegWalk::NextMarker()
{
    const qint64 from = source_.Position();
    uchar marker = 0;
    while (!source_.HasEnded() &&
           (marker == 0 || marker == temporary || (marker >= firstRestart && marker <= lastRestart))) {
        source_.SkipUntil(0xFF);
        do {
            marker = source_.Byte();
        } while (marker == 0xFF);
    }
    if (scans_ > 0) {
        scanBytes_ += source_.Position() - from;
    }
    return source_.HasEnded() ? uchar(0) : marker;
}

/** Goes by the length that stands before a segment, so that nothing inside it is taken for a marker. */
bool JpegWalk::ReadSegment(uchar marker)
{
    if (marker == 0 || marker == startOfImage) {
        return false;
    }
    const qint64 start = source_.Position();
    const int length = source_.BigEndianWord();
    const bool taken = IsFrame(marker) ? ReadFrame(marker) : marker != startOfScan || ReadScan();
    if (IsMetadata(marker)) {
        metadataBytes_ += length;
    }
    const qint64 left = start + length - source_.Position();
    source_.Skip(left);
    return taken && left >= 0 && metadataBytes_ <= jpegMetadataAtMost && !source_.HasEnded();
}

bool JpegWalk::ReadFrame(uchar marker)
{
    const bool isSecond = components_ > 0;
    source_.Skip(1);
    const int height = source_.BigEndianWord();
    const int width = source_.BigEndianWord();
    size_ = QSize(width, height);
    components_ = source_.Byte();
    // The bit of value 2 tells the progressive ones of the four ways of coding from the sequential ones.
    inSeveralScans_ = marker & 2;
    return !isSecond && components_ > 0 && !size_.isEmpty() && PixelsOf(size_) <= pixelsAtMost;
}

bool JpegWalk::ReadScan()
{
    constexpr int componentsAtMost = 4;
    ++scans_;
    const int count = source_.Byte();
    if (count < components_) {
        inSeveralScans_ = true;
    }
    std::array<uchar, componentsAtMost> scanned{};
    const auto taken = static_cast<size_t>(std::min(count, componentsAtMost));
    for (size_t i = 0; i < taken; ++i) {
        scanned[i] = source_.Byte();
        source_.Skip(1);
    }
    const int first = source_.Byte();
    const int last = source_.Byte();
    const int bitsLeft = source_.Byte() & 0xF;
    told_.Add(std::span(scanned).first(taken), first, last, bitsLeft);
    // A narrow picture is decoded in blocks of up to 32 pixels a side, whatever it keeps of them.
    const auto padded = [](int extent) { return (qint64(extent) + 31) / 32 * 32; };
    const qint64 visits = scans_ * padded(size_.width()) * padded(size_.height());
    return components_ > 0 && visits <= pixelVisitsAtMost && FitsInMemory();
}

bool JpegWalk::FitsInMemory() const
{
    const qint64 coefficientBytes = inSeveralScans_ ? 2 * components_ : 0;
    return PixelsOf(size_) * (bytesPerPixel + coefficientBytes) <= scannedMegabytesAtMost * bytesPerMegabyte;
}

std::optional<PictureOutline> JpegWalk::Outline() const
{
    if (scans_ == 0 || !IsCredible(size_, scanBytes_, jpegPixelsPerByte)) {
        return {};
    }
    return PictureOutline{ .kind = PictureKind::Jpeg,
                           .size = size_,
                           .firstFrame = QRect(QPoint(), size_),
                           .dataEnd = source_.Position() };
}

} // namespace

std::optional<PictureOutline> CheckJpeg(ByteSource& source)
{
    return JpegWalk(source).Walk();
}
