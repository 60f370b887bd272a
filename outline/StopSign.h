#pragma once

#include <QtGlobal>
#include <functional>
#include <utility>

/**
 * Tells work that may take long to break off, since nobody wants its result any longer; what it returns then
 * is worth nothing. It is asked by one thread only. Asking costs nothing: the question is put once for so
 * many steps.
 */
class StopSign
{
public:
    /** Never stops anything. */
    StopSign() = default;

    /** `isGivenUp` is asked no further once it has said so. */
    explicit StopSign(std::function<bool()> isGivenUp)
        : isGivenUp_(std::move(isGivenUp))
    {
    }

    /** Whether to break off before so many more steps, each of which takes as long as to look at a pixel. */
    [[nodiscard]] bool IsUpFor(qint64 steps) const
    {
        left_ -= steps;
        return left_ < 0 ? IsUpNow() : isUp_;
    }

    /** The same, but puts the question at once. */
    [[nodiscard]] bool IsUpNow() const
    {
        left_ = stepsBetween;
        isUp_ = isUp_ || (isGivenUp_ && isGivenUp_());
        return isUp_;
    }

    /** Whether it has stopped what asked it. */
    [[nodiscard]] bool IsUp() const { return isUp_; }

    /** Some tenths of a millisecond. */
    static constexpr qint64 stepsBetween = 1 << 16;

private:
    std::function<bool()> isGivenUp_;
    mutable qint64 left_ = stepsBetween;
    mutable bool isUp_ = false;
};
