#include "imagemap/picture/ByteSource.h"

#include <QIODevice>
#include <algorithm>
#include <cstring>

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
