#pragma once

#include "outline/AreaCandidate.h"
#include "outline/PictureRegions.h"
#include "outline/RegionShape.h"

#include <QFutureWatcher>
#include <QObject>
#include <memory>

/** A way to find regions in a picture. */
struct RegionWay
{
    PictureRegions (*find)(const QImage& picture, const RegionSearch& search);
    int passes;        ///< how often it passes each row
    bool hasTolerance; ///< or else it takes no notice of colours
};

inline constexpr RegionWay likeColours{ &RegionsOf, 2, true };
inline constexpr RegionWay opaqueIslands{ &OpaqueIslandsOf, 1, false };

/** Which regions are looked for, and how closely areas shall follow them. */
struct RegionWish
{
    QRect within;                      ///< a part of the picture; null for all of it
    double tolerance = 8;              ///< of 100; see RegionWay
    qint64 leastPixels = 200;          ///< smaller ones are left out
    double precision = usualPrecision; ///< how far an area may leave its region, in pixels

    /** Whether the regions are the same, only shaped otherwise. */
    [[nodiscard]] bool HasRegionsOf(const RegionWish& other) const;

    bool operator==(const RegionWish&) const = default;
};

/** Where regions are looked for. */
struct RegionGround
{
    QImage picture;
    RegionWay way;
    QRect selected = {}; ///< the part that can be chosen alone; null for none
};

/** What came of a search. */
struct RegionsFound
{
    std::shared_ptr<const PictureRegions> regions;
    AreaCandidates candidates; ///< one for each region, in their order
};

/** Looks for regions of a picture in another thread: no picture is so large that a window would wait for it.
 */
class RegionFinding final : public QObject
{
    Q_OBJECT

public:
    RegionFinding(const QImage& picture, const RegionWay& way, QObject* parent);
    ~RegionFinding() override;

    /** Begins to look, and gives up what was being looked for. */
    void Find(const RegionWish& wish);

    /** Nothing is looked for any longer, and nothing told. */
    void GiveUp();

Q_SIGNALS:
    /** The present search has done `percent` of its work. */
    void Progressed(int percent);

    /** The present search has ended; `areSame` when the regions are those told of last. */
    void Found(const AreaCandidates& candidates, bool areSame);

private:
    void Watcher_Finished();

    QImage picture_;
    RegionWay way_;
    RegionWish wish_;                               ///< of the present search
    RegionWish wishBefore_;                         ///< of the one that ended last
    std::shared_ptr<const PictureRegions> regions_; ///< that it found
    QFutureWatcher<RegionsFound> watcher_;
};
