#include "imagemap/NewMapProblem.h"

#include "mapback/NewMapPlace.h"

#include <algorithm>
#include <array>

namespace {

struct NewMapRefusalRow
{
    NewMapRefusal refusal;
    QStringView text;
};

constexpr std::array<NewMapRefusalRow, 2> newMapRefusals = { {
    { NewMapRefusal::InLink, u"The picture is in a link or a button, where it can have no map. Take it out "
                             u"of that in the page, then update it !" },
    { NewMapRefusal::OnServer, u"The picture's tag says ismap: the server answers the clicks. Take that away "
                               u"in the page, then update it !" },
} };
static_assert(std::is_sorted(
    newMapRefusals.begin(), newMapRefusals.end(),
    [](const NewMapRefusalRow& one, const NewMapRefusalRow& other) { return one.refusal < other.refusal; }));

constexpr QStringView noAreasText = u"Draw an area first: a map without areas is not put into the page !";
constexpr QStringView otherModeText =
    u"A picture of the page can only get a map without a script, and the mode that is chosen needs one.\n"
    u"Insert writes such a map, with its own picture !";

} // namespace

QString ProblemOfPicture(QStringView page, const ReturnedMap& map)
{
    const auto refusal = map.IsInPage() ? std::nullopt : FindNewMapPlace(page, map.picture).refusal;
    return refusal ? newMapRefusals[static_cast<std::size_t>(*refusal)].text.toString() : QString();
}

QString ProblemOfNewMap(QStringView page, const ReturnedMap& picture, const EditedMap& map)
{
    if (map.source.Areas.isEmpty()) {
        return noAreasText.toString();
    }
    return HasMapElement(map.mode) ? ProblemOfPicture(page, picture) : otherModeText.toString();
}
