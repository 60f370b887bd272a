#include "outline/ContourThinning.h"

#include "outline/CornerChoice.h"

#include <QRect>
#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <queue>
#include <utility>

namespace {

constexpr int fewestCorners = 3;
constexpr double never = std::numeric_limits<double>::infinity();

/** Positive where `c` lies to the right of the way from `a` to `b`, as the picture is seen. */
qint64 TurnOf(QPoint a, QPoint b, QPoint c)
{
    return qint64(b.x() - a.x()) * (c.y() - a.y()) - qint64(b.y() - a.y()) * (c.x() - a.x());
}

double SquareDistance(QPoint place, QPoint a, QPoint b)
{
    const double acrossX = b.x() - a.x();
    const double acrossY = b.y() - a.y();
    const double x = place.x() - a.x();
    const double y = place.y() - a.y();
    const double along = x * acrossX + y * acrossY;
    const double length = acrossX * acrossX + acrossY * acrossY;
    if (along <= 0 || length <= 0) {
        return x * x + y * y;
    }
    if (along >= length) {
        return (x - acrossX) * (x - acrossX) + (y - acrossY) * (y - acrossY);
    }
    const double off = x * acrossY - y * acrossX;
    return off * off / length;
}

QRect BoxOf(const Contour& contour)
{
    QRect box(contour.front(), QSize(1, 1));
    for (const QPoint corner : contour) {
        box |= QRect(corner, QSize(1, 1));
    }
    return box;
}

/** Corners by their places, about one in each cell of a grid. */
class CornerGrid
{
public:
    CornerGrid(const Contour& contour, const StopSign& stop)
        : contour_(contour)
        , box_(BoxOf(contour))
        , next_(contour.size(), none)
    {
        const double room = double(box_.width()) * box_.height() / double(contour.size());
        cell_ = std::max(static_cast<int>(std::ceil(std::sqrt(room))), 1);
        columns_ = box_.width() / cell_ + 1;
        first_.assign(std::size_t(columns_) * std::size_t(box_.height() / cell_ + 1), none);
        for (int i = 0; i < static_cast<int>(contour.size()) && !stop.IsUpFor(1); ++i) {
            int& first = first_[CellOf(contour[std::size_t(i)])];
            next_[std::size_t(i)] = std::exchange(first, i);
        }
    }

    void Remove(int corner)
    {
        int* link = &first_[CellOf(contour_[std::size_t(corner)])];
        while (*link != corner) {
            link = &next_[std::size_t(*link)];
        }
        *link = next_[std::size_t(corner)];
    }

    /** Whether there is no other corner in the triangle of three or on its rim. */
    [[nodiscard]] bool IsFree(int a, int b, int c) const
    {
        const QRect box = BoxOf({ At(a), At(b), At(c) });
        const int left = (box.left() - box_.left()) / cell_;
        const int right = (box.right() - box_.left()) / cell_;
        for (int row = (box.top() - box_.top()) / cell_; row <= (box.bottom() - box_.top()) / cell_; ++row) {
            for (int column = left; column <= right; ++column) {
                int i = first_[std::size_t(row) * std::size_t(columns_) + std::size_t(column)];
                for (; i != none; i = next_[std::size_t(i)]) {
                    if (i != a && i != b && i != c && IsInTriangle(At(i), At(a), At(b), At(c))) {
                        return false;
                    }
                }
            }
        }
        return true;
    }

private:
    static constexpr int none = -1;

    static bool IsInTriangle(QPoint place, QPoint a, QPoint b, QPoint c)
    {
        const qint64 first = TurnOf(a, b, place);
        const qint64 second = TurnOf(b, c, place);
        const qint64 third = TurnOf(c, a, place);
        const bool isOutside =
            (first < 0 || second < 0 || third < 0) && (first > 0 || second > 0 || third > 0);
        // Of three corners in a row, what lies beyond their ends is not between them.
        return !isOutside && BoxOf({ a, b, c }).contains(place);
    }

    [[nodiscard]] QPoint At(int corner) const { return contour_[std::size_t(corner)]; }
    [[nodiscard]] std::size_t CellOf(QPoint place) const
    {
        const QPoint cell = (place - box_.topLeft());
        return std::size_t(cell.y() / cell_) * std::size_t(columns_) + std::size_t(cell.x() / cell_);
    }

    const Contour& contour_;
    QRect box_;
    int cell_ = 1;
    int columns_ = 1;
    std::vector<int> first_;
    std::vector<int> next_;
};

/**
 * Takes corners off one by one, always one that changes the line least. A corner may go when nothing of the
 * line lies in the triangle that it makes with its neighbours, so a line that does not touch itself never
 * will.
 */
class Thinning
{
public:
    Thinning(const Contour& contour, const StopSign& stop)
        : contour_(contour)
        , stop_(stop)
        , grid_(contour, stop)
        , count_(static_cast<int>(contour.size()))
        , left_(count_)
        , before_(contour.size())
        , after_(contour.size())
        , asked_(contour.size(), 0)
        , isGone_(contour.size(), false)
    {
        for (int i = 0; i < count_; ++i) {
            before_[std::size_t(i)] = (i + count_ - 1) % count_;
            after_[std::size_t(i)] = (i + 1) % count_;
        }
    }

    /**
     * Takes off corners that `isSpared` does not name and that leave the line within `precision`, as long as
     * there are more than `most`.
     */
    void Run(double precision, int most, const std::vector<bool>& isSpared)
    {
        isSpared_ = &isSpared;
        squareLimit_ = precision * precision;
        bool hasProgress = true;
        while (hasProgress && left_ > most) {
            const int before = left_;
            AskAll();
            while (!waiting_.empty() && left_ > most && !stop_.IsUpFor(1)) {
                const Candidate candidate = waiting_.top();
                waiting_.pop();
                if (IsCurrent(candidate) &&
                    grid_.IsFree(Before(candidate.corner), candidate.corner, After(candidate.corner))) {
                    TakeOff(candidate.corner);
                }
            }
            waiting_ = {};
            hasProgress = left_ < before && !stop_.IsUp();
        }
    }

    /** Names all corners beside the sides that leave the line further than `precision`; false when there are
     * none. */
    [[nodiscard]] bool FindFarSides(double precision, std::vector<bool>& isBeside) const
    {
        bool isFar = false;
        ForSides([this, precision, &isBeside, &isFar](int from, int to) {
            if (Deviation(from, to) <= precision * precision) {
                return;
            }
            isFar = true;
            for (int i = from; i != to; i = (i + 1) % count_) {
                isBeside[std::size_t(i)] = true;
            }
            isBeside[std::size_t(to)] = true;
        });
        return isFar;
    }

    [[nodiscard]] ThinContour Result() const
    {
        ThinContour thin;
        for (int i = 0; i < count_; ++i) {
            if (!isGone_[std::size_t(i)]) {
                thin.corners.push_back(contour_[std::size_t(i)]);
            }
        }
        double square = 0;
        ForSides([this, &square](int from, int to) { square = std::max(square, Deviation(from, to)); });
        thin.deviation = std::sqrt(square);
        return thin;
    }

private:
    struct Candidate
    {
        int rank;   ///< the distance at which the line would be left, in steps
        int length; ///< how many corners of the contour its two sides stand for
        int corner;
        int turn; ///< which of the times that it was asked for

        bool operator<(const Candidate& other) const
        {
            // Of those that differ little, short sides first: to measure long ones takes long.
            return rank != other.rank ? rank > other.rank
                                      : std::pair(length, corner) > std::pair(other.length, other.corner);
        }
    };
    static constexpr double ranksPerPixel = 8;

    [[nodiscard]] int Before(int corner) const { return before_[std::size_t(corner)]; }
    [[nodiscard]] int After(int corner) const { return after_[std::size_t(corner)]; }
    [[nodiscard]] QPoint At(int corner) const { return contour_[std::size_t(corner)]; }

    [[nodiscard]] bool IsCurrent(const Candidate& candidate) const
    {
        return !isGone_[std::size_t(candidate.corner)] &&
               asked_[std::size_t(candidate.corner)] == candidate.turn;
    }

    template<class Use> void ForSides(Use use) const
    {
        for (int i = 0; i < count_; ++i) {
            if (!isGone_[std::size_t(i)]) {
                use(i, After(i));
            }
        }
    }

    /** The square of the distance of what lies between two corners from the side that they make; never more
     * than a little beyond the limit. */
    [[nodiscard]] double Deviation(int from, int to, double limit = never) const
    {
        double square = 0;
        for (int i = (from + 1) % count_; i != to && square <= limit && !stop_.IsUpFor(1);
             i = (i + 1) % count_) {
            square = std::max(square, SquareDistance(At(i), At(from), At(to)));
        }
        return square;
    }

    void AskAll()
    {
        for (int i = 0; i < count_ && !stop_.IsUpFor(1); ++i) {
            if (!isGone_[std::size_t(i)]) {
                Ask(i);
            }
        }
    }

    void Ask(int corner)
    {
        const int turn = ++asked_[std::size_t(corner)];
        if ((*isSpared_)[std::size_t(corner)]) {
            return;
        }
        const int from = Before(corner);
        const int to = After(corner);
        const double square = Deviation(from, to, squareLimit_);
        if (square <= squareLimit_) {
            const int rank = static_cast<int>(std::sqrt(square) * ranksPerPixel);
            waiting_.push({ rank, (to - from + count_) % count_, corner, turn });
        }
    }

    void TakeOff(int corner)
    {
        const int from = Before(corner);
        const int to = After(corner);
        after_[std::size_t(from)] = to;
        before_[std::size_t(to)] = from;
        isGone_[std::size_t(corner)] = true;
        grid_.Remove(corner);
        --left_;
        if (left_ > fewestCorners) {
            Ask(from);
            Ask(to);
        }
    }

    const Contour& contour_;
    const StopSign& stop_;
    CornerGrid grid_;
    int count_;
    int left_;
    std::vector<int> before_;
    std::vector<int> after_;
    std::vector<int> asked_;
    std::vector<bool> isGone_;
    std::priority_queue<Candidate> waiting_;
    const std::vector<bool>* isSpared_ = nullptr;
    double squareLimit_ = 0;
};

std::vector<bool> Either(std::vector<bool> one, const std::vector<bool>& other)
{
    std::transform(one.begin(), one.end(), other.begin(), one.begin(), [](bool a, bool b) { return a || b; });
    return one;
}

bool AreAtMostHalf(const std::vector<bool>& chosen)
{
    return 2 * std::size_t(std::count(chosen.begin(), chosen.end(), true)) <= chosen.size();
}

/** The corners of a good polygon. */
std::vector<bool> ChosenCorners(const Contour& contour, double precision, const StopSign& stop)
{
    constexpr double usualCost = 0.5;
    constexpr double costForFewest = 1000;
    std::vector<bool> chosen = BestCorners(contour, precision, usualCost, stop);
    if (AreAtMostHalf(chosen)) {
        return chosen;
    }
    // Steps nearly as large as the precision are followed too closely. But a form like an L, of so few
    // corners that most are needed, is better met than spared one.
    const std::vector<bool> fewest = BestCorners(contour, precision, costForFewest, stop);
    return AreAtMostHalf(fewest) ? fewest : chosen;
}

} // namespace

ThinContour Thinned(const Contour& contour, double precision, int most, const StopSign& stop)
{
    if (contour.size() <= fewestCorners) {
        return { contour, 0 };
    }
    // The best corners may not be had where the line comes close to itself; there one is taken off after the
    // other.
    constexpr int tries = 3;
    const std::vector<bool> none(contour.size(), false);
    std::vector<bool> isSpared = ChosenCorners(contour, precision, stop);
    std::vector<bool> isTight(contour.size(), false);
    std::optional<Thinning> thinning;
    bool isFar = true;
    for (int i = 0; i < tries && isFar && !stop.IsUp(); ++i) {
        thinning.emplace(contour, stop);
        thinning->Run(never, fewestCorners, Either(isSpared, isTight));
        thinning->Run(precision, fewestCorners, isSpared);
        isFar = thinning->FindFarSides(precision, isTight);
    }
    if (isFar) {
        thinning.emplace(contour, stop);
        thinning->Run(precision, fewestCorners, none);
    }
    thinning->Run(never, std::max(most, fewestCorners), none);
    const ThinContour thin = thinning->Result();
    return stop.IsUp() ? ThinContour() : thin;
}
