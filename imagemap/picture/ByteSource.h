#pragma once

#include <QtGlobal>
#include <vector>

class QIODevice;

/** A file read once from front to back through a small window. Behind its end there are only noughts. */
class ByteSource
{
public:
    /** Reads on from where `device` stands. */
    explicit ByteSource(QIODevice& device)
        : device_(device)
        , window_(windowSize)
    {
    }

    /** Whether more was asked for than the file has. */
    [[nodiscard]] bool HasEnded() const { return ended_; }

    /** The offset of the next byte from where the reading began. */
    [[nodiscard]] qint64 Position() const { return windowStart_ + next_; }

    uchar Byte();
    int LittleEndianWord(); ///< 16 bits, the low byte first
    int BigEndianWord();    ///< 16 bits, the high byte first
    void Skip(qint64 count);
    void SkipUntil(uchar wanted); ///< leaves the next byte to be read a `wanted` one

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
