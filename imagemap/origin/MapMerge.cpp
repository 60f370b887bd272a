#include "imagemap/origin/MapMerge.h"

#include "imagemap/origin/AreaLikeness.h"
#include "mapback/AreaMatching.h"

#include <QHash>
#include <array>

namespace {

/** A field of a map that is merged by itself. */
struct MergedField
{
    QString MapSource::*member;
    QStringView name; ///< as it is called on screen
};

constexpr std::array<MergedField, 9> mergedFields = { {
    { &MapSource::MapName, u"name" },
    { &MapSource::Width, u"width" },
    { &MapSource::Height, u"height" },
    { &MapSource::AltText, u"description" },
    { &MapSource::Align, u"alignment" },
    { &MapSource::Border, u"border" },
    { &MapSource::HorizontalSpace, u"horizontal spacing" },
    { &MapSource::VerticalSpace, u"vertical spacing" },
    { &MapSource::ModeDefault, u"default message" },
} };

/** What becomes of a value; `isLost` where both changed it to something else. */
template<class Value>
Value MergedValue(const Value& was, const Value& mine, const Value& theirs, bool& isLost)
{
    if (mine == was) {
        return theirs;
    }
    isLost = isLost || (theirs != was && theirs != mine);
    return mine;
}

QString ValueOf(const QList<AreaAttribute>& attributes, const QString& name)
{
    for (const AreaAttribute& attribute : attributes) {
        if (attribute.Name == name) {
            return attribute.Value;
        }
    }
    return {};
}

/** The attributes of `theirs` with those that `mine` has otherwise than `was`. */
QList<AreaAttribute> MergedAttributes(
    const QList<AreaAttribute>& was, const QList<AreaAttribute>& mine, const QList<AreaAttribute>& theirs,
    bool& isLost)
{
    if (mine == was) {
        return theirs;
    }
    QList<AreaAttribute> merged;
    for (const AreaAttribute& attribute : theirs) {
        const QString old = ValueOf(was, attribute.Name);
        AreaAttribute one = attribute;
        one.Value = MergedValue(old, ValueOf(mine, attribute.Name), attribute.Value, isLost);
        if (!one.Value.isNull()) {
            merged << one;
        }
    }
    for (const AreaAttribute& attribute : mine) {
        const bool isNew = ValueOf(was, attribute.Name) != attribute.Value;
        if (isNew && ValueOf(merged, attribute.Name).isNull()) {
            merged << attribute;
        }
    }
    return merged;
}

MapArea MergedArea(const MapArea& was, const MapArea& mine, const MapArea& theirs, bool& isLost)
{
    MapArea merged = theirs;
    if (mine.Shape != was.Shape || mine.Coordinates != was.Coordinates) {
        const bool isSame = theirs.Shape == mine.Shape && theirs.Coordinates == mine.Coordinates;
        const bool isOld = theirs.Shape == was.Shape && theirs.Coordinates == was.Coordinates;
        isLost = isLost || (!isSame && !isOld);
        merged.Shape = mine.Shape;
        merged.Coordinates = mine.Coordinates;
    }
    for (QString MapArea::*const member :
         { &MapArea::Link, &MapArea::Target, &MapArea::Message, &MapArea::Text }) {
        merged.*member = MergedValue(was.*member, mine.*member, theirs.*member, isLost);
    }
    merged.Attributes = MergedAttributes(was.Attributes, mine.Attributes, theirs.Attributes, isLost);
    return merged;
}

/** Whether two areas say the same, whatever else their tags hold. */
bool SaysTheSame(const MapArea& one, const MapArea& other)
{
    return one.Shape == other.Shape && one.Coordinates == other.Coordinates && one.Link == other.Link &&
           one.Target == other.Target && one.Message == other.Message && one.Text == other.Text;
}

/** The areas of two changed maps, put together one by one. */
class AreaMerge
{
public:
    AreaMerge(const MapAreas& was, const MapAreas& mine, const MapAreas& theirs)
        : was_(was)
        , mine_(mine)
        , theirs_(theirs)
        , wasOfMine_(MatchedSources(was, mine))
        , theirsOfWas_(std::size_t(was.size()), -1)
        , isOfWas_(std::size_t(theirs.size()), false)
    {
        MatchTheRest();
        const std::vector<qsizetype> wasOfTheirs = MatchAreas(was, theirs);
        for (std::size_t i = 0; i < wasOfTheirs.size(); ++i) {
            if (wasOfTheirs[i] >= 0) {
                theirsOfWas_[std::size_t(wasOfTheirs[i])] = qsizetype(i);
                isOfWas_[i] = true;
            }
        }
    }

    MapAreas Merged(QStringList& losses)
    {
        TakeNewOnes(0);
        for (qsizetype i = 0; i < mine_.size(); ++i) {
            TakeMine(i, losses);
        }
        TellDeleted(losses);
        return merged_;
    }

private:
    /** What was drawn before the map was put into the page knows nothing of it. */
    void MatchTheRest()
    {
        MapAreas rest;
        QList<qsizetype> numbers;
        for (qsizetype i = 0; i < was_.size(); ++i) {
            if (was_[i].Source < 0) {
                rest << was_[i];
                numbers << i;
            }
        }
        if (rest.isEmpty()) {
            return;
        }
        const std::vector<qsizetype> matches = MatchAreas(rest, mine_);
        for (std::size_t i = 0; i < matches.size(); ++i) {
            if (wasOfMine_[qsizetype(i)] < 0 && matches[i] >= 0) {
                wasOfMine_[qsizetype(i)] = numbers[matches[i]];
            }
        }
    }

    void Append(MapArea area, qsizetype theirs)
    {
        area.Source = theirs >= 0 ? theirs_[theirs].Source : -1;
        merged_ << area;
        if (theirs >= 0) {
            TakeNewOnes(theirs + 1);
        }
    }

    /** Takes the areas from `theirs` on, up to the next one that was there before. */
    void TakeNewOnes(qsizetype theirs)
    {
        for (qsizetype i = theirs; i < theirs_.size() && !isOfWas_[std::size_t(i)]; ++i) {
            merged_ << theirs_[i];
        }
    }

    void TakeMine(qsizetype number, QStringList& losses)
    {
        const qsizetype was = wasOfMine_[number];
        if (was < 0) {
            Append(mine_[number], -1);
            return;
        }
        isKept_.insert(was, true);
        const qsizetype theirs = theirsOfWas_[std::size_t(was)];
        const bool isChanged = WithoutSource(mine_[number]) != WithoutSource(was_[was]);
        if (theirs >= 0) {
            bool isLost = false;
            Append(MergedArea(was_[was], mine_[number], theirs_[theirs], isLost), theirs);
            if (isLost) {
                losses << QStringLiteral("Area %1 was changed in the page too; the editor's counts")
                              .arg(number + 1);
            }
        } else if (isChanged) {
            Append(mine_[number], -1);
            losses << QStringLiteral("Area %1, which was changed, is gone from the page; it is put in again")
                          .arg(number + 1);
        }
    }

    /** An area that the editor deleted goes, also with what was changed in it by hand. */
    void TellDeleted(QStringList& losses)
    {
        for (qsizetype was = 0; was < was_.size(); ++was) {
            const qsizetype theirs = theirsOfWas_[std::size_t(was)];
            if (isKept_.contains(was) || theirs < 0) {
                continue;
            }
            if (!SaysTheSame(theirs_[theirs], was_[was])) {
                losses << QStringLiteral("An area that was changed in the page was deleted in the editor");
            }
            for (qsizetype i = theirs + 1; i < theirs_.size() && !isOfWas_[std::size_t(i)]; ++i) {
                merged_ << theirs_[i];
            }
        }
    }

    const MapAreas& was_;
    const MapAreas& mine_;
    const MapAreas& theirs_;
    QList<qsizetype> wasOfMine_;
    std::vector<qsizetype> theirsOfWas_;
    std::vector<bool> isOfWas_; ///< of `theirs`
    QHash<qsizetype, bool> isKept_;
    MapAreas merged_;
};

} // namespace

MergedMap Merge(const EditedMap& was, const EditedMap& mine, const EditedMap& theirs)
{
    MergedMap merged{ theirs, {} };
    const auto mergeField = [&merged](QStringView name, auto& field, const auto& old, const auto& own) {
        bool isLost = false;
        field = MergedValue(old, own, field, isLost);
        if (isLost) {
            merged.losses
                << QStringLiteral("The map's %1 was changed in the page too; the editor's counts").arg(name);
        }
    };
    for (const MergedField& field : mergedFields) {
        mergeField(
            field.name, merged.map.source.*field.member, was.source.*field.member, mine.source.*field.member);
    }
    mergeField(u"JavaScript mode", merged.map.mode, was.mode, mine.mode);
    // Of two states, whatever both changed it to is the same.
    if (mine.source.FileNamesOnly != was.source.FileNamesOnly) {
        merged.map.source.FileNamesOnly = mine.source.FileNamesOnly;
    }
    merged.map.source.Areas =
        AreaMerge(was.source.Areas, mine.source.Areas, theirs.source.Areas).Merged(merged.losses);
    return merged;
}
