#include "app/PageMapsModel.h"

#include "mapback/ReturnedMap.h"
#include "mapreader/PageTag.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace {

struct OddityText
{
    MapOddity oddity;
    QStringView text;
};

constexpr std::array<OddityText, 18> oddityTexts = { {
    { MapOddity::NoName, u"no name" },
    { MapOddity::OtherId, u"name and id differ" },
    { MapOddity::DuplicateName, u"another map has the name" },
    { MapOddity::HashInName, u"# in the name" },
    { MapOddity::NoPicture, u"no picture uses it" },
    { MapOddity::NoAreas, u"no areas" },
    { MapOddity::InMap, u"inside another map" },
    { MapOddity::EndTagIgnored, u"its end tag does not count" },
    { MapOddity::NoEndTag, u"no end tag" },
    { MapOddity::HoldsTemplate, u"code of a template" },
    { MapOddity::UnknownShape, u"unknown shape" },
    { MapOddity::FewCoordinates, u"too few coordinates" },
    { MapOddity::ManyCoordinates, u"too many coordinates" },
    { MapOddity::NoNumber, u"coordinates that are no numbers" },
    { MapOddity::NoAddress, u"an area without a link" },
    { MapOddity::TagErrors, u"errors in a tag" },
    { MapOddity::CutByTemplate, u"code of a template ends a tag" },
    { MapOddity::NoMap, u"there is no map of that name" },
} };
static_assert(
    [] {
        for (std::size_t i = 0; i < oddityTexts.size(); ++i) {
            if (quint32(oddityTexts[i].oddity) != 1U << i) {
                return false;
            }
        }
        return true;
    }(),
    "the rows stand in the order of the oddities");

constexpr std::array<QStringView, pageMapColumnCount> pageMapHeaders = {
    u"Name", u"Picture", u"Areas", u"Line", u"What is odd",
};

} // namespace

QString TextOf(MapOddities oddities)
{
    QStringList texts;
    for (const OddityText& row : oddityTexts) {
        if (oddities.testFlag(row.oddity)) {
            texts << row.text.toString();
        }
    }
    return texts.join(QStringLiteral(", "));
}

PageMapsModel::PageMapsModel(QString page, PageMaps maps, std::vector<MapPlace> places, QObject* parent)
    : QAbstractTableModel(parent)
    , page_(std::move(page))
    , maps_(std::move(maps))
    , places_(std::move(places))
    , pictureOfMap_(maps_.maps.size(), -1)
    , lineStarts_{ 0 }
{
    for (std::size_t i = maps_.pictures.size(); i-- > 0;) {
        const PagePicture& picture = maps_.pictures[i];
        if (picture.map >= 0) {
            pictureOfMap_[std::size_t(picture.map)] = qsizetype(i);
        } else {
            pictures_.push_back(picture.tag);
        }
    }
    // A picture under shapes has its map.
    for (const HtmlSpan& picture : maps_.plainPictures) {
        const auto behind = std::upper_bound(
            places_.begin(), places_.end(), picture.offset,
            [](qsizetype offset, const MapPlace& place) { return offset < place.whole.offset; });
        const bool isInShapes =
            behind != places_.begin() && (behind - 1)->map < 0 && picture.offset < (behind - 1)->whole.End();
        if (!isInShapes) {
            pictures_.push_back(picture);
        }
    }
    std::sort(pictures_.begin(), pictures_.end(), [](const HtmlSpan& one, const HtmlSpan& other) {
        return one.offset < other.offset;
    });
    for (qsizetype end = page_.indexOf(u'\n'); end >= 0; end = page_.indexOf(u'\n', end + 1)) {
        lineStarts_.push_back(end + 1);
    }
}

std::optional<int> PageMapsModel::RowAt(const TextSpan& selection) const
{
    if (const qsizetype atCaret = MapAt(places_, maps_, selection.Start); atCaret >= 0) {
        return int(atCaret);
    }
    // A caret in front of the tag is not in it.
    const qsizetype inside = selection.Start + (selection.Length > 0 ? 1 : 0);
    const auto picture = std::find_if(pictures_.begin(), pictures_.end(), [inside](const HtmlSpan& tag) {
        return inside > tag.offset && inside < tag.End();
    });
    if (picture != pictures_.end()) {
        return int(places_.size()) + int(picture - pictures_.begin());
    }
    return places_.size() == 1 ? std::optional(0) : std::nullopt;
}

const MapPlace* PageMapsModel::MapOf(int row) const
{
    return row >= 0 && std::size_t(row) < places_.size() ? &places_[std::size_t(row)] : nullptr;
}

std::optional<HtmlSpan> PageMapsModel::PictureOf(int row) const
{
    const auto number = row - int(places_.size());
    return number >= 0 && std::size_t(number) < pictures_.size()
               ? std::optional(pictures_[std::size_t(number)])
               : std::nullopt;
}

int PageMapsModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : int(places_.size() + pictures_.size());
}

int PageMapsModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : pageMapColumnCount;
}

/** The line on which a row's tag begins, from 1. */
int PageMapsModel::LineOf(int row) const
{
    const MapPlace* const map = MapOf(row);
    const qsizetype offset = map != nullptr ? map->whole.offset : PictureOf(row)->offset;
    return int(std::upper_bound(lineStarts_.begin(), lineStarts_.end(), offset) - lineStarts_.begin());
}

QString PageMapsModel::TextOfMap(const MapPlace& place, PageMapColumn column) const
{
    const PageMap& map = maps_.maps[std::size_t(place.map)];
    const qsizetype picture = pictureOfMap_[std::size_t(place.map)];
    switch (column) {
    case PageMapColumn::Name:
        return map.name.isEmpty() ? map.id : map.name;
    case PageMapColumn::Picture:
        return picture < 0
                   ? QString()
                   : PageTag(page_, maps_.pictures[std::size_t(picture)].tag).Value(QLatin1String("src"));
    case PageMapColumn::Areas:
        return QString::number(map.areaCount);
    case PageMapColumn::Oddities:
        return TextOf(OdditiesOf(page_, maps_, map));
    case PageMapColumn::Line:
        break;
    }
    return {};
}

QString PageMapsModel::TextOfShapes(const MapPlace& place, PageMapColumn column) const
{
    const std::optional<ReturnedMap> map = ReadMap(page_, maps_, place);
    if (!map) {
        return column == PageMapColumn::Oddities ? QStringLiteral("changed by hand, so it cannot be read")
                                                 : QString();
    }
    switch (column) {
    case PageMapColumn::Name:
        return map->source.MapName;
    case PageMapColumn::Picture:
        return map->source.PictureReference;
    case PageMapColumn::Areas:
        return QString::number(map->source.Areas.size());
    case PageMapColumn::Oddities:
    case PageMapColumn::Line:
        break;
    }
    return {};
}

QString PageMapsModel::TextOfPicture(int picture, PageMapColumn column) const
{
    const PageTag tag(page_, pictures_[std::size_t(picture)]);
    switch (column) {
    case PageMapColumn::Name:
        return tag.Value(QLatin1String("usemap"));
    case PageMapColumn::Picture:
        return tag.Value(QLatin1String("src"));
    case PageMapColumn::Oddities:
        return tag.Find(QLatin1String("usemap")) != nullptr ? TextOf(MapOddity::NoMap)
                                                            : QStringLiteral("no map");
    case PageMapColumn::Areas:
    case PageMapColumn::Line:
        break;
    }
    return {};
}

QVariant PageMapsModel::data(const QModelIndex& index, int role) const
{
    const auto column = static_cast<PageMapColumn>(index.column());
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole)) {
        return {};
    }
    if (column == PageMapColumn::Line) {
        return QString::number(LineOf(index.row()));
    }
    const MapPlace* const place = MapOf(index.row());
    if (place == nullptr) {
        return TextOfPicture(index.row() - int(places_.size()), column);
    }
    return place->map < 0 ? TextOfShapes(*place, column) : TextOfMap(*place, column);
}

QVariant PageMapsModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    return orientation == Qt::Horizontal && role == Qt::DisplayRole
               ? pageMapHeaders[std::size_t(section)].toString()
               : QVariant();
}
