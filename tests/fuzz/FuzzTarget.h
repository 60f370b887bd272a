#pragma once

#include <QByteArrayView>
#include <QString>
#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>

/** What the fuzzer, or the replay in its place, calls once for every input. */
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);

inline QByteArrayView BytesOf(const std::uint8_t* data, std::size_t size)
{
    return QByteArrayView(data, static_cast<qsizetype>(size));
}

/** Ends the program, which the fuzzer takes for a finding, unless `holds`. */
inline void Demand(bool holds, const char* promise)
{
    if (!holds) {
        std::fprintf(stderr, "Not kept: %s\n", promise);
        std::abort();
    }
}

/** An input taken to pieces from its front. Behind its end there are only noughts. */
class FuzzInput
{
public:
    explicit FuzzInput(QByteArrayView bytes)
        : bytes_(bytes)
    {
    }

    [[nodiscard]] bool IsEmpty() const { return bytes_.isEmpty(); }

    int Byte()
    {
        const QByteArrayView first = Bytes(1);
        return first.isEmpty() ? 0 : static_cast<uchar>(first.front());
    }
    int Below(int limit) { return Byte() % limit; }
    QByteArrayView Bytes(qsizetype count)
    {
        const qsizetype taken = std::min(count, bytes_.size());
        const QByteArrayView piece = bytes_.first(taken);
        bytes_ = bytes_.sliced(taken);
        return piece;
    }
    QByteArrayView Rest() { return Bytes(bytes_.size()); }

    /** The bytes before the next nought, which is passed over. */
    QByteArrayView Field()
    {
        const qsizetype end = bytes_.indexOf('\0');
        const QByteArrayView field = Bytes(end < 0 ? bytes_.size() : end);
        Bytes(1);
        return field;
    }

private:
    QByteArrayView bytes_;
};
