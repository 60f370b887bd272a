#include "imagemap/picture/GifCheck.h"

#include "imagemap/picture/ByteSource.h"
#include "imagemap/picture/PictureLimits.h"

#include <QRect>
#include <QSize>
#include <algorithm>
#include <array>

namespace {

/**
 * A GIF's code takes 12 bits once the longest runs are known, and no run outgrows the table of 4096: that
 * makes 2731 pixels a byte, rounded up.
 */
constexpr qint64 gifPixelsPerByte = 4096;

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
    const qint64 end = FindFrameEnd(PixelsOf(frame.size()), depth);
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

std::optional<PictureOutline> CheckGif(ByteSource& source)
{
    return GifWalk(source).Walk();
}
