#include "mapback/AreaMatching.h"

#include <QHash>
#include <vector>

namespace {

/** Finds the pairs, the surest first. */
class AreaMatcher
{
public:
    AreaMatcher(const MapAreas& inPage, const MapAreas& inEditor)
        : inPage_(inPage)
        , inEditor_(inEditor)
        , matches_(inEditor.size(), -1)
        , isTaken_(std::size_t(inPage.size()), false)
    {
    }

    void MatchSources()
    {
        QHash<int, qsizetype> bySource;
        for (qsizetype i = 0; i < inPage_.size(); ++i) {
            if (inPage_[i].Source >= 0 && !bySource.contains(inPage_[i].Source)) {
                bySource.insert(inPage_[i].Source, i);
            }
        }
        // Of an area and its copies, the one that is as it was is it.
        for (const bool needsEqual : { true, false }) {
            for (qsizetype i = 0; i < inEditor_.size(); ++i) {
                const qsizetype found = bySource.value(inEditor_[i].Source, -1);
                const bool fits = found >= 0 && (!needsEqual || inPage_[found] == inEditor_[i]);
                if (matches_[i] < 0 && fits) {
                    Match(i, found);
                }
            }
        }
    }

    template<class SaysTheSame> void MatchOthers(SaysTheSame saysTheSame)
    {
        // What is compared with each other is mostly little.
        constexpr qsizetype mostPairs = 1'000'000;
        const qsizetype pairs = CountUnmatched() * CountFree();
        for (qsizetype i = 0; i < inEditor_.size() && pairs > 0 && pairs <= mostPairs; ++i) {
            for (qsizetype j = 0; j < inPage_.size() && matches_[i] < 0; ++j) {
                if (!isTaken_[std::size_t(j)] && saysTheSame(inPage_[j], inEditor_[i])) {
                    Match(i, j);
                }
            }
        }
    }

    void MatchNeighbours()
    {
        qsizetype next = 0;
        for (qsizetype i = 0; i < inEditor_.size(); ++i) {
            const bool isFree = next < inPage_.size() && !isTaken_[std::size_t(next)];
            if (matches_[i] < 0 && isFree) {
                Match(i, next);
            }
            next = matches_[i] < 0 ? next : matches_[i] + 1;
        }
    }

    [[nodiscard]] const QList<qsizetype>& Matches() const { return matches_; }

private:
    void Match(qsizetype inEditor, qsizetype inPage)
    {
        if (!isTaken_[std::size_t(inPage)]) {
            matches_[inEditor] = inPage;
            isTaken_[std::size_t(inPage)] = true;
        }
    }

    [[nodiscard]] qsizetype CountUnmatched() const { return matches_.count(-1); }
    [[nodiscard]] qsizetype CountFree() const { return std::count(isTaken_.begin(), isTaken_.end(), false); }

    const MapAreas& inPage_;
    const MapAreas& inEditor_;
    QList<qsizetype> matches_;
    std::vector<bool> isTaken_;
};

} // namespace

QList<qsizetype> MatchedSources(const MapAreas& inPage, const MapAreas& inEditor)
{
    AreaMatcher matcher(inPage, inEditor);
    matcher.MatchSources();
    return matcher.Matches();
}

QList<qsizetype> MatchedAreas(
    const MapAreas& inPage, const MapAreas& inEditor,
    const std::function<bool(const MapArea& inPage, const MapArea& inEditor)>& saysTheSame)
{
    AreaMatcher matcher(inPage, inEditor);
    matcher.MatchSources();
    matcher.MatchOthers(saysTheSame);
    matcher.MatchNeighbours();
    return matcher.Matches();
}
