#pragma once

#include "html/HtmlPart.h"

#include <QFlags>
#include <QHash>
#include <QString>
#include <vector>

/** What is odd about a map, an area or a picture: what whoever wrote it may not know. */
enum class MapOddity : quint32 {
    NoName = 1U << 0U,        ///< neither `name` nor `id`
    OtherId = 1U << 1U,       ///< `name` and `id` differ
    DuplicateName = 1U << 2U, ///< another map is found by the name, so this one never is
    HashInName = 1U << 3U,    ///< the name begins with "#", so that a picture has to say two
    NoPicture = 1U << 4U,     ///< no picture uses it
    NoAreas = 1U << 5U,
    InMap = 1U << 6U,            ///< it stands in another map, which has its areas too
    EndTagIgnored = 1U << 7U,    ///< browsers pass over its end tag, since something is open in it
    NoEndTag = 1U << 8U,         ///< something else ends it
    HoldsTemplate = 1U << 9U,    ///< code in its own tag
    UnknownShape = 1U << 10U,    ///< a word that means none; it is a rectangle
    FewCoordinates = 1U << 11U,  ///< too few for anybody to click at it
    ManyCoordinates = 1U << 12U, ///< more than the shape takes
    NoNumber = 1U << 13U,        ///< what is no number, or more than one, among the coordinates
    NoAddress = 1U << 14U,       ///< it leads nowhere
    TagErrors = 1U << 15U,       ///< parse errors in the tag
    CutByTemplate = 1U << 16U,   ///< a ">" of code ends the tag early
    NoMap = 1U << 17U            ///< of a picture: what it names is no map of the page
};
Q_DECLARE_FLAGS(MapOddities, MapOddity)
Q_DECLARE_OPERATORS_FOR_FLAGS(MapOddities)

/** A `map` element. Its areas are all inside it, at any depth: those of a map in a map belong to both. */
struct PageMap
{
    HtmlSpan whole;  ///< from its start tag to where browsers take it to end
    HtmlSpan tag;    ///< its start tag
    HtmlSpan endTag; ///< empty, at the end of `whole`, if it has none
    QString name;    ///< the null string if it has none
    QString id;
    qsizetype firstArea = 0;
    qsizetype areaCount = 0;
    qsizetype pictureCount = 0; ///< how many pictures use it
    MapOddities oddities;       ///< of the map itself
};

/** An `img` with `usemap`. */
struct PagePicture
{
    HtmlSpan tag;
    QString usemap;     ///< as browsers see it
    qsizetype map = -1; ///< the map that it finds; -1 if it finds none
};

/**
 * The maps of a page, its areas and the pictures with `usemap`, each in the order of the page. What stands in
 * comments, scripts, texts and templates is none of them, nor what is in SVG or MathML. What areas and
 * pictures say is read from their tags when it is asked for (PageTag).
 */
struct PageMaps
{
    std::vector<PageMap> maps;
    std::vector<HtmlSpan> areas; ///< their tags, those outside of maps too
    std::vector<PagePicture> pictures;
    std::vector<HtmlSpan> plainPictures; ///< the tags of those without `usemap`
    HtmlSpan baseTag;                    ///< the first `base` with an address; empty if there is none
    QString base;                        ///< that address
    /** Where something begins that is like what this program writes: its comment, or its shapes. */
    std::vector<qsizetype> ownStarts;

    /** The map that `usemap` finds, by `name` or `id`, as browsers look for it; -1 if there is none. */
    [[nodiscard]] qsizetype Find(QStringView usemap) const;

    QHash<QString, qsizetype> mapsByName; ///< the first of each name
};

/** Reads a page in one pass. */
[[nodiscard]] PageMaps ReadPageMaps(QStringView page);

/** What is odd about the area whose tag is there. */
[[nodiscard]] MapOddities OdditiesOfArea(QStringView page, const HtmlSpan& tag);

/** What is odd about a picture. */
[[nodiscard]] MapOddities OdditiesOf(QStringView page, const PagePicture& picture);

/** What is odd about a map and about its areas. */
[[nodiscard]] MapOddities OdditiesOf(QStringView page, const PageMaps& maps, const PageMap& map);
