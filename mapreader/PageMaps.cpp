#include "mapreader/PageMaps.h"

#include "mapreader/MapNesting.h"
#include "mapreader/PageShapes.h"
#include "mapreader/PageTag.h"

#include <algorithm>

namespace {

/** What this program's own maps begin with: in HTML 4, and with shapes over a picture. */
constexpr QStringView ownComment = u" This Image Map was created by Cartolen ";
constexpr QStringView ownShapes = u"<span class=\"imap";

constexpr QLatin1String nameAttribute("name");
constexpr QLatin1String idAttribute("id");

/** Reads a page once, from its beginning to its end. */
class PageMapsReader
{
public:
    explicit PageMapsReader(QStringView page)
        : page_(page)
        , nesting_(page)
    {
    }

    PageMaps Read()
    {
        // Most tags are none that matter; of the others, the attributes are read again.
        HtmlTokens tokens(page_, {}, HtmlTags::Names);
        for (HtmlToken token; tokens.Next(token);) {
            nesting_.Take(token, tokens.State());
            TakeOwnStart(token);
            const bool hasEnded = EndMaps(token);
            if (nesting_.IsInPage()) {
                TakeElement(token);
            } else if (!hasEnded && token.kind == HtmlToken::Kind::EndTag) {
                TakeEndTag(token);
            }
        }
        while (!open_.empty()) {
            End(open_.size() - 1, { page_.size(), 0 });
        }
        JoinPictures();
        return std::move(read_);
    }

private:
    void TakeElement(const HtmlToken& token);
    void TakeOwnStart(const HtmlToken& token);
    void TakeMap(const HtmlToken& token);
    void TakeEndTag(const HtmlToken& token);
    bool EndMaps(const HtmlToken& token);
    void End(std::size_t level, const HtmlSpan& endTag);
    void JoinPictures();

    [[nodiscard]] bool IsMap(const HtmlToken& token) const
    {
        return IsName(token.name.In(page_), QLatin1String("map"));
    }

    QStringView page_;
    MapNesting nesting_;
    PageMaps read_;
    std::vector<qsizetype> open_; ///< as it was behind the token before
};

void PageMapsReader::TakeElement(const HtmlToken& token)
{
    const NestingTraits traits = nesting_.Traits();
    if (traits & NestingTrait::Area) {
        read_.areas.push_back(token.whole);
    } else if (traits & NestingTrait::Map) {
        TakeMap(token);
    } else if (traits & NestingTrait::Picture) {
        const QString usemap = PageTag(page_, token.whole).Value(QLatin1String("usemap"));
        if (!usemap.isNull()) {
            read_.pictures.push_back({ token.whole, usemap });
        } else {
            read_.plainPictures.push_back(token.whole);
        }
    } else if (read_.baseTag.length == 0 && (traits & NestingTrait::Base)) {
        read_.base = PageTag(page_, token.whole).Value(QLatin1String("href"));
        read_.baseTag = read_.base.isNull() ? HtmlSpan() : token.whole;
    }
}

void PageMapsReader::TakeOwnStart(const HtmlToken& token)
{
    const bool isStart = token.kind == HtmlToken::Kind::Comment
                             ? token.inside.In(page_) == ownComment
                             : token.kind == HtmlToken::Kind::StartTag && nesting_.IsInPage() &&
                                   token.whole.In(page_).startsWith(ownShapes);
    if (isStart) {
        read_.ownStarts.push_back(token.whole.offset);
    }
}

void PageMapsReader::TakeMap(const HtmlToken& token)
{
    const auto index = qsizetype(read_.maps.size());
    const PageTag tag(page_, token.whole);
    PageMap map{ .whole = token.whole,
                 .tag = token.whole,
                 .endTag = {},
                 .name = tag.Value(nameAttribute),
                 .id = tag.Value(idAttribute),
                 .firstArea = qsizetype(read_.areas.size()),
                 .areaCount = 0,
                 .pictureCount = 0,
                 .oddities = {} };
    map.oddities.setFlag(MapOddity::InMap, !open_.empty());
    for (const QString& name : { map.name, map.id }) {
        if (!name.isEmpty() && read_.mapsByName.value(name, index) == index) {
            read_.mapsByName.insert(name, index);
        }
    }
    read_.maps.push_back(std::move(map));
    open_.push_back(index);
}

/** Takes an end tag that has ended no map. */
void PageMapsReader::TakeEndTag(const HtmlToken& token)
{
    if (!open_.empty() && token.isClosed && IsMap(token)) {
        read_.maps[std::size_t(open_.back())].oddities |= MapOddity::EndTagIgnored;
    }
}

/** Ends the maps that the token has ended; whether there were any. */
bool PageMapsReader::EndMaps(const HtmlToken& token)
{
    const std::vector<qsizetype>& open = nesting_.Open();
    const bool hasBegun = nesting_.IsInPage() && IsMap(token);
    const std::size_t kept = open.size() - (hasBegun ? 1 : 0);
    if (open_.size() == kept) {
        return false;
    }
    const bool isEndTag = token.kind == HtmlToken::Kind::EndTag && IsMap(token);
    const HtmlSpan endTag = isEndTag ? token.whole : HtmlSpan{ token.whole.offset, 0 };
    // One that is ended can stand before others that go on.
    std::size_t other = kept;
    for (std::size_t i = open_.size(); open_.size() > kept; --i) {
        if (other > 0 && open_[i - 1] == open[other - 1]) {
            --other;
        } else {
            End(i - 1, endTag);
        }
    }
    return true;
}

void PageMapsReader::End(std::size_t level, const HtmlSpan& endTag)
{
    PageMap& map = read_.maps[std::size_t(open_[level])];
    open_.erase(open_.begin() + std::ptrdiff_t(level));
    map.endTag = endTag;
    map.whole.length = endTag.End() - map.whole.offset;
    map.areaCount = qsizetype(read_.areas.size()) - map.firstArea;
    map.oddities.setFlag(MapOddity::NoEndTag, endTag.length == 0);
}

/** Finds out which picture uses which map, and what is odd about the maps then. */
void PageMapsReader::JoinPictures()
{
    for (PagePicture& picture : read_.pictures) {
        picture.map = read_.Find(picture.usemap);
        if (picture.map >= 0) {
            ++read_.maps[std::size_t(picture.map)].pictureCount;
        }
    }
    qsizetype index = 0;
    for (PageMap& map : read_.maps) {
        const QString& name = map.name.isEmpty() ? map.id : map.name;
        map.oddities.setFlag(MapOddity::NoName, name.isEmpty());
        map.oddities.setFlag(
            MapOddity::OtherId, !map.name.isEmpty() && !map.id.isEmpty() && map.name != map.id);
        map.oddities.setFlag(MapOddity::DuplicateName, read_.mapsByName.value(name, index) != index);
        map.oddities.setFlag(MapOddity::HashInName, name.startsWith(u'#'));
        map.oddities.setFlag(MapOddity::NoPicture, map.pictureCount == 0);
        map.oddities.setFlag(MapOddity::NoAreas, map.areaCount == 0);
        map.oddities.setFlag(
            MapOddity::HoldsTemplate, TemplateCodeIn(map.tag.In(page_)) != TemplateCode::None);
        ++index;
    }
}

MapOddities OdditiesOfGeometry(const PageTag& tag)
{
    const QString word = tag.Value(QLatin1String("shape"));
    const ShapeInEffect shape = ShapeOfWord(word);
    const QString list = tag.Value(QLatin1String("coords"));
    const std::vector<PageCoordinate> coordinates = CoordinatesIn(list);
    const auto count = qsizetype(coordinates.size());
    const bool isFew = count < FewestCoordinates(shape.shape);
    MapOddities oddities;
    oddities.setFlag(MapOddity::UnknownShape, !shape.isKnown);
    oddities.setFlag(MapOddity::FewCoordinates, isFew);
    oddities.setFlag(MapOddity::ManyCoordinates, !isFew && !FitsShape(shape.shape, count));
    oddities.setFlag(MapOddity::NoNumber, !std::ranges::all_of(coordinates, &PageCoordinate::isPlain));
    return oddities;
}

} // namespace

qsizetype PageMaps::Find(QStringView usemap) const
{
    const qsizetype hash = usemap.indexOf(u'#');
    return hash < 0 ? -1 : mapsByName.value(usemap.sliced(hash + 1).toString(), -1);
}

PageMaps ReadPageMaps(QStringView page)
{
    return PageMapsReader(page).Read();
}

MapOddities OdditiesOfArea(QStringView page, const HtmlSpan& place)
{
    const PageTag tag(page, place);
    const TemplateCode code = tag.Template();
    const bool hasErrors =
        tag.Token().hasError || std::ranges::any_of(tag.Attributes(), [](const HtmlAttribute& attribute) {
            return attribute.hasError || attribute.isDuplicate;
        });
    MapOddities oddities = OdditiesOfGeometry(tag);
    oddities.setFlag(MapOddity::NoAddress, tag.Value(QLatin1String("href")).isEmpty());
    oddities.setFlag(MapOddity::TagErrors, hasErrors);
    oddities.setFlag(MapOddity::HoldsTemplate, code != TemplateCode::None);
    oddities.setFlag(MapOddity::CutByTemplate, code == TemplateCode::Cut);
    return oddities;
}

MapOddities OdditiesOf(QStringView page, const PagePicture& picture)
{
    MapOddities oddities;
    oddities.setFlag(MapOddity::NoMap, picture.map < 0);
    const TemplateCode code = PageTag(page, picture.tag).Template();
    oddities.setFlag(MapOddity::HoldsTemplate, code != TemplateCode::None);
    oddities.setFlag(MapOddity::CutByTemplate, code == TemplateCode::Cut);
    return oddities;
}

MapOddities OdditiesOf(QStringView page, const PageMaps& maps, const PageMap& map)
{
    MapOddities oddities = map.oddities;
    for (qsizetype i = map.firstArea; i < map.firstArea + map.areaCount; ++i) {
        oddities |= OdditiesOfArea(page, maps.areas[std::size_t(i)]);
    }
    return oddities;
}
