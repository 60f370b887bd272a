#pragma once

#include "outline/PixelMask.h"
#include "outline/StopSign.h"

#include <QRect>
#include <algorithm>
#include <array>
#include <vector>

/** Pixels that hang together by their sides. */
struct Region
{
    QRect box;         ///< the smallest that holds it; null for a region without pixels
    qint64 pixels = 0; ///< how many they are
    QPoint first;      ///< the leftmost of its topmost row

    [[nodiscard]] bool IsEmpty() const { return pixels == 0; }
};

/**
 * Marks pixels that hang together, line by line. `Belongs` is asked for rows by `SetRow(mask row, y)`, and
 * tells by `operator()(x)` whether a pixel of that row belongs to the region and is not marked yet; `Mark(x,
 * end)` marks a run of it. Time and memory are linear in the region. What is stopped has left out the runs
 * that ForLeft() names, and what is behind them.
 */
template<class Belongs> class RegionFill
{
public:
    /** All of it outlives this. */
    RegionFill(PixelMask& mask, const QRect& within, Belongs& belongs, const StopSign& stop)
        : mask_(mask)
        , within_(within & mask.Box())
        , belongs_(belongs)
        , stop_(stop)
    {
    }

    /** Adds to `region` what hangs together with the pixel `seed`, if that belongs itself. */
    void AddTo(Region& region, QPoint seed)
    {
        if (!within_.contains(seed)) {
            return;
        }
        SetRow(seed.y());
        if (!belongs_(seed.x())) {
            return;
        }
        const Run run = TakeRun(region, seed.x(), seed.y());
        Push({ seed.y() + 1, run.from, run.to, 1 });
        Push({ seed.y() - 1, run.from, run.to, -1 });
        while (!waiting_.empty() && !stop_.IsUpFor(stepsOfRun + waiting_.back().to - waiting_.back().from)) {
            const Waiting next = waiting_.back();
            waiting_.pop_back();
            TakeRow(region, next);
        }
    }

    /** Calls `use(y, from, to)` for runs that a stopped fill has not looked at. */
    template<class Use> void ForLeft(Use use) const
    {
        for (const Waiting& run : waiting_) {
            use(run.y, run.from, run.to);
        }
    }

private:
    static constexpr int stepsOfRun = 8;

    struct Run
    {
        int from; ///< its first pixel
        int to;   ///< its last one
    };
    /** A run beside one that was taken. */
    struct Waiting
    {
        int y;
        int from;
        int to;
        int down; ///< the way from the run that was taken: 1 or -1
    };

    void SetRow(int y) { belongs_.SetRow(mask_.Row(y), y); }

    void Push(const Waiting& waiting)
    {
        if (waiting.y >= within_.top() && waiting.y <= within_.bottom()) {
            waiting_.push_back(waiting);
        }
    }

    /** The last pixel that belongs, going from `x`, which does, no further than `end`. */
    int EndOfRun(int x, int step, int end)
    {
        x = belongs_.SameTo(x, step, end);
        while (x != end && belongs_(x + step)) {
            x = belongs_.SameTo(x + step, step, end);
        }
        return x;
    }

    Run TakeRun(Region& region, int x, int y)
    {
        const int from = EndOfRun(x, -1, within_.left());
        const int to = EndOfRun(x, 1, within_.right());
        belongs_.Mark(from, to + 1);
        if (region.IsEmpty() || y < region.first.y() || (y == region.first.y() && from < region.first.x())) {
            region.first = QPoint(from, y);
        }
        region.pixels += to - from + 1;
        region.box |= QRect(from, y, to - from + 1, 1);
        return { from, to };
    }

    void TakeRow(Region& region, const Waiting& waiting)
    {
        SetRow(waiting.y);
        for (int x = waiting.from; x <= waiting.to; ++x) {
            if (!belongs_(x)) {
                continue;
            }
            const Run run = TakeRun(region, x, waiting.y);
            Push({ waiting.y + waiting.down, run.from, run.to, waiting.down });
            // What reaches beyond the run that was taken has neighbours on its side too.
            if (run.from < waiting.from) {
                Push({ waiting.y - waiting.down, run.from, waiting.from - 1, -waiting.down });
            }
            if (run.to > waiting.to) {
                Push({ waiting.y - waiting.down, waiting.to + 1, run.to, -waiting.down });
            }
            x = run.to;
        }
    }

    PixelMask& mask_;
    QRect within_;
    Belongs& belongs_;
    const StopSign& stop_;
    std::vector<Waiting> waiting_;
};

/** Pixels told by their marks alone; taking them changes these. */
class MarkedPixels
{
public:
    /**
     * `belongs` tells by a pixel's marks whether it belongs. Taking adds and then removes marks, in such a
     * way that the pixel does not belong any longer.
     */
    template<class Predicate>
    MarkedPixels(Predicate belongs, quint8 added, quint8 removed = 0)
        : added_(added)
        , kept_(static_cast<quint8>(~removed))
    {
        for (std::size_t marks = 0; marks < belongs_.size(); ++marks) {
            belongs_[marks] = belongs(static_cast<quint8>(marks));
        }
    }

    void SetRow(quint8* row, int /*y*/) { row_ = row; }
    [[nodiscard]] bool operator()(int x) const { return belongs_[row_[x]]; }
    [[nodiscard]] int SameTo(int x, int step, int end) const
    {
        const quint8 same = row_[x];
        while (x != end && row_[x + step] == same) {
            x += step;
        }
        return x;
    }
    void Mark(int from, int end)
    {
        std::for_each(row_ + from, row_ + end, [this](quint8& pixel) {
            pixel = static_cast<quint8>((pixel | added_) & kept_);
        });
    }

private:
    std::array<bool, 256> belongs_{};
    quint8 added_;
    quint8 kept_;
    quint8* row_ = nullptr;
};
