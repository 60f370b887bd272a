#include "imagemap/picture/PictureCheck.h"

#include <QByteArray>
#include <QIODevice>
#include <algorithm>
#include <array>
#include <bitset>
#include <cstring>
#include <map>
#include <span>
#include <vector>

namespace {

constexpr qint64 bytesPerMegabyte = qint64(1) << 20;
constexpr qint64 bytesPerPixel = 4;
constexpr qint64 pixelsAtMost = pictureMegabytesAtMost * bytesPerMegabyte / bytesPerPixel;

/** Qt's own limit of 128 MB: a claim up to here is taken on trust, since it costs little when it is a lie. */
constexpr qint64 pixelsTaken = 32 * bytesPerMegabyte;

/**
 * The emptiest block of 8 by 8 grey pixels takes one bit for its mean in a progressive JPEG, where the other
 * 63 coefficients of thousands of blocks vanish in one run: 64 pixels a bit.
 */
constexpr qint64 jpegPixelsPerByte = 512;

/**
 * A GIF's code takes 12 bits once the longest runs are known, and no run outgrows the table of 4096: that
 * makes 2731 pixels a byte, rounded up.
 */
constexpr qint64 gifPixelsPerByte = 4096;

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

/** A file read once from front to back through a small window. Behind its end there are only noughts. */
class ByteSource
{
public:
    explicit ByteSource(QIODevice& device)
        : device_(device)
        , window_(windowSize)
    {
    }

    [[nodiscard]] bool HasEnded() const { return ended_; }
    [[nodiscard]] qint64 Position() const { return windowStart_ + next_; }

    uchar Byte();
    int LittleEndianWord();
    int BigEndianWord();
    void Skip(qint64 count);
    void SkipUntil(uchar wanted);

private:
    static constexpr qint64 windowSize = qint64(1) << 16;

    bool Refill();

    QIODevice& device_;
    std::vector<char> window_;
    qint64 windowStart_ = 0;
    qint64 filled_ = 0;
    qint64 next_ = 0;
    bool ended_ = false;
};

bool ByteSource::Refill()
{
    windowStart_ += filled_;
    next_ = 0;
    filled_ = std::max<qint64>(0, device_.read(window_.data(), windowSize));
    ended_ = filled_ == 0;
    return !ended_;
}

uchar ByteSource::Byte()
{
    if (next_ == filled_ && (ended_ || !Refill())) {
        return 0;
    }
    return static_cast<uchar>(window_[static_cast<size_t>(next_++)]);
}

int ByteSource::LittleEndianWord()
{
    const int low = Byte();
    return low | Byte() << 8;
}

int ByteSource::BigEndianWord()
{
    const int high = Byte();
    return high << 8 | Byte();
}

void ByteSource::Skip(qint64 count)
{
    while (count > 0 && (next_ < filled_ || (!ended_ && Refill()))) {
        const qint64 step = std::min(count, filled_ - next_);
        next_ += step;
        count -= step;
    }
}

/** Leaves the next byte to be read a `wanted` one. */
void ByteSource::SkipUntil(uchar wanted)
{
    while (next_ < filled_ || (!ended_ && Refill())) {
        const char* from = window_.data() + next_;
        const void* found = std::memchr(from, wanted, static_cast<size_t>(filled_ - next_));
        if (found) {
            next_ += static_cast<const char*>(found) - from;
            return;
        }
        next_ = filled_;
    }
}

qint64 Area(QSize size)
{
    return qint64(size.width()) * size.height();
}

/** Whether a picture of this size may be in so many bytes of compressed data. */
bool IsCredible(QSize size, qint64 dataBytes, qint64 pixelsPerByte)
{
    const qint64 pixels = Area(size);
    return !size.isEmpty() && pixels <= pixelsAtMost &&
           (pixels <= pixelsTaken || dataBytes >= pixels / pixelsPerByte);
}

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
    return !isSecond && components_ > 0 && !size_.isEmpty() && Area(size_) <= pixelsAtMost;
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
    return Area(size_) * (bytesPerPixel + coefficientBytes) <= scannedMegabytesAtMost * bytesPerMegabyte;
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

/**
 * Counts the pixels a GIF's codes stand for without unfolding them. A few bytes can stand for thousands of
 * pixels, so this is what tells, at little cost, whether a frame is there in full and where it is full.
 */
class LzwPixelCount
{
public:
    explicit LzwPixelCount(int depth)
        : clearCode_(1 << depth)
        , firstCodeSize_(depth + 1)
        , nextCode_(clearCode_ + 2)
        , codeSize_(depth + 1)
    {
    }

    [[nodiscard]] qint64 Pixels() const { return pixels_; }

    void Feed(uchar byte);

private:
    static constexpr int codeSizeAtMost = 12;
    static constexpr int tableSize = 1 << codeSizeAtMost;

    void Take(int code);
    [[nodiscard]] int RunLength(int code) const;
    void Learn(int runLength);

    int clearCode_;
    int firstCodeSize_;
    int nextCode_;
    int codeSize_;
    int bits_ = 0;
    int bitCount_ = 0;
    int previousRun_ = 0;
    qint64 pixels_ = 0;
    bool ended_ = false;
    std::array<quint16, tableSize> runs_{};
};

void LzwPixelCount::Feed(uchar byte)
{
    if (ended_) {
        return;
    }
    bits_ |= byte << bitCount_;
    bitCount_ += 8;
    while (!ended_ && bitCount_ >= codeSize_) {
        const int code = bits_ & ((1 << codeSize_) - 1);
        bits_ >>= codeSize_;
        bitCount_ -= codeSize_;
        Take(code);
    }
}

void LzwPixelCount::Take(int code)
{
    if (code == clearCode_) {
        nextCode_ = clearCode_ + 2;
        codeSize_ = firstCodeSize_;
        previousRun_ = 0;
        return;
    }
    const int run = RunLength(code);
    if (run == 0) {
        ended_ = true;
        return;
    }
    pixels_ += run;
    if (previousRun_ > 0) {
        Learn(previousRun_ + 1);
    }
    previousRun_ = run;
}

/** How many pixels `code` stands for; none for the code that ends the data and for one that means nothing. */
int LzwPixelCount::RunLength(int code) const
{
    if (code < clearCode_) {
        return 1;
    }
    if (code < clearCode_ + 2 || previousRun_ == 0 || code > nextCode_) {
        return 0;
    }
    return code == nextCode_ ? previousRun_ + 1 : runs_[static_cast<size_t>(code)];
}

void LzwPixelCount::Learn(int runLength)
{
    if (nextCode_ == tableSize) {
        return;
    }
    runs_[static_cast<size_t>(nextCode_++)] = static_cast<quint16>(runLength);
    if (nextCode_ == 1 << codeSize_ && codeSize_ < codeSizeAtMost) {
        ++codeSize_;
    }
}

/** Follows a GIF from block to block up to the end of its first frame. */
class GifWalk
{
public:
    explicit GifWalk(ByteSource& source)
        : source_(source)
    {
    }

    std::optional<PictureOutline> Walk();

private:
    static constexpr uchar extensionBlock = 0x21;
    static constexpr uchar frameBlock = 0x2C;
    static constexpr int depthAtLeast = 2;
    static constexpr int depthAtMost = 8;

    void SkipColours(uchar flags);
    void SkipSubBlocks();
    std::optional<PictureOutline> ReadFrame();
    qint64 FindFrameEnd(qint64 pixels, int depth);

    ByteSource& source_;
    QSize canvas_;
    qint64 dataBytes_ = 0;
};

std::optional<PictureOutline> GifWalk::Walk()
{
    const int width = source_.LittleEndianWord();
    const int height = source_.LittleEndianWord();
    canvas_ = QSize(width, height);
    const uchar flags = source_.Byte();
    source_.Skip(2);
    SkipColours(flags);
    uchar block = source_.Byte();
    while (block == extensionBlock) {
        source_.Skip(1);
        SkipSubBlocks();
        block = source_.Byte();
    }
    return block == frameBlock ? ReadFrame() : std::nullopt;
}

/** Passes over a table of colours when `flags` say that one follows. */
void GifWalk::SkipColours(uchar flags)
{
    if (flags & 0x80) {
        source_.Skip(3 << ((flags & 7) + 1));
    }
}

void GifWalk::SkipSubBlocks()
{
    while (const uchar length = source_.Byte()) {
        source_.Skip(length);
    }
}

std::optional<PictureOutline> GifWalk::ReadFrame()
{
    const int left = source_.LittleEndianWord();
    const int top = source_.LittleEndianWord();
    const int width = source_.LittleEndianWord();
    const int height = source_.LittleEndianWord();
    const QRect frame(left, top, width, height);
    const QSize whole = canvas_.expandedTo(QSize(left + width, top + height));
    SkipColours(source_.Byte());
    const int depth = source_.Byte();
    if (source_.HasEnded() || frame.isEmpty() || depth < depthAtLeast || depth > depthAtMost ||
        std::max(whole.width(), whole.height()) > 0xFFFF) {
        return {};
    }
    const qint64 end = FindFrameEnd(Area(frame.size()), depth);
    if (end == 0 || !IsCredible(whole, dataBytes_, gifPixelsPerByte)) {
        return {};
    }
    return PictureOutline{ .kind = PictureKind::Gif, .size = whole, .firstFrame = frame, .dataEnd = end };
}

/** The end of the sub-block that fills the frame; nought when none does or the last sub-block is missing. */
qint64 GifWalk::FindFrameEnd(qint64 pixels, int depth)
{
    LzwPixelCount count(depth);
    qint64 end = 0;
    while (const uchar length = source_.Byte()) {
        if (end > 0) {
            source_.Skip(length);
            continue;
        }
        for (int index = 0; index < length; ++index) {
            count.Feed(source_.Byte());
        }
        dataBytes_ += length;
        if (count.Pixels() >= pixels) {
            end = source_.Position();
        }
    }
    return source_.HasEnded() ? 0 : end;
}

} // namespace

std::optional<PictureOutline> CheckPicture(QIODevice& device)
{
    const QByteArray start = device.peek(6);
    ByteSource source(device);
    if (start.startsWith("\xFF\xD8\xFF")) {
        source.Skip(2);
        return JpegWalk(source).Walk();
    }
    if (start == "GIF87a" || start == "GIF89a") {
        source.Skip(start.size());
        return GifWalk(source).Walk();
    }
    return {};
}
