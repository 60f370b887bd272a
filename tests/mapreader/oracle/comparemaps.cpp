// Compares which maps this program and parse5 find in pages. A file, as expectmaps.js writes it, holds for
// each page its name, its text and what parse5 has found. What an element says has to be the same wherever
// both find it. Which elements there are, and which are in which map, may differ in made pages: parse5's tree
// moves or drops elements that are nested wrongly, and a map is then taken for what it is in the source; how
// many these are is said and limited.

#include "mapreader/PageMaps.h"
#include "mapreader/PageShapes.h"
#include "mapreader/PageTag.h"

#include <QDataStream>
#include <QFile>
#include <QMap>
#include <QTextStream>

namespace {

using Attributes = QList<QPair<QString, QString>>;

struct Area
{
    HtmlSpan tag;
    Attributes attributes;
    quint8 shape = 0;
    QList<double> coordinates = {};

    bool operator==(const Area&) const = default;
};

struct Picture
{
    HtmlSpan tag;
    Attributes attributes;

    bool operator==(const Picture&) const = default;
};

struct Map
{
    HtmlSpan tag;
    Attributes attributes;

    bool operator==(const Map&) const = default;
};

/** What there is in a page, by where it begins. */
struct Found
{
    QMap<qsizetype, Map> maps;
    QMap<qsizetype, Area> areas;
    QMap<qsizetype, Picture> pictures;
    QMap<qsizetype, QList<qsizetype>> areasOfMaps;
    QMap<qsizetype, qsizetype> mapsOfPictures;
    qsizetype base = -1;
    QString baseAddress;
};

HtmlSpan ReadPlace(QDataStream& stream)
{
    qint32 start = 0;
    qint32 end = 0;
    stream >> start >> end;
    return { start, end - start };
}

template<class Read> void ReadEach(QDataStream& stream, Read read)
{
    qint32 count = 0;
    stream >> count;
    for (qint32 index = 0; index < count && stream.status() == QDataStream::Ok; ++index) {
        read();
    }
}

Attributes ReadAttributes(QDataStream& stream)
{
    Attributes attributes;
    ReadEach(stream, [&] {
        QString name;
        QString value;
        stream >> name >> value;
        attributes += { name, value };
    });
    return attributes;
}

void ReadMap(QDataStream& stream, Found& found)
{
    const HtmlSpan tag = ReadPlace(stream);
    found.maps[tag.offset] = { tag, ReadAttributes(stream) };
    QList<qsizetype>& areas = found.areasOfMaps[tag.offset];
    ReadEach(stream, [&] {
        qint32 area = 0;
        stream >> area;
        areas += area;
    });
}

void ReadArea(QDataStream& stream, Found& found)
{
    Area area = { .tag = ReadPlace(stream), .attributes = ReadAttributes(stream) };
    stream >> area.shape;
    ReadEach(stream, [&] {
        QString number;
        stream >> number;
        area.coordinates += number.toDouble();
    });
    found.areas[area.tag.offset] = area;
}

void ReadPicture(QDataStream& stream, Found& found)
{
    const HtmlSpan tag = ReadPlace(stream);
    found.pictures[tag.offset] = { tag, ReadAttributes(stream) };
    qint32 map = 0;
    stream >> map;
    found.mapsOfPictures[tag.offset] = map;
}

Found ReadFound(QDataStream& stream)
{
    Found found;
    ReadEach(stream, [&] { ReadMap(stream, found); });
    ReadEach(stream, [&] { ReadArea(stream, found); });
    ReadEach(stream, [&] { ReadPicture(stream, found); });
    qint32 base = 0;
    stream >> base >> found.baseAddress;
    found.base = base;
    return found;
}

Attributes AttributesOf(const PageTag& tag)
{
    Attributes attributes;
    for (const HtmlAttribute& attribute : tag.Attributes()) {
        if (!attribute.isDuplicate) {
            attributes += { NameOf(attribute.name.In(tag.Page())), tag.ValueOf(attribute) };
        }
    }
    return attributes;
}

Area AreaOf(const PageTag& tag)
{
    Area area = { .tag = tag.Token().whole, .attributes = AttributesOf(tag) };
    area.shape = quint8(ShapeOfWord(tag.Value(QLatin1String("shape"))).shape);
    const QString list = tag.Value(QLatin1String("coords"));
    for (const PageCoordinate& coordinate : CoordinatesIn(list)) {
        area.coordinates += coordinate.number;
    }
    return area;
}

Found OwnFound(const QString& page)
{
    const PageMaps read = ReadPageMaps(page);
    Found found;
    for (const HtmlSpan& area : read.areas) {
        found.areas[area.offset] = AreaOf(PageTag(page, area));
    }
    for (const PageMap& map : read.maps) {
        found.maps[map.tag.offset] = { map.tag, AttributesOf(PageTag(page, map.tag)) };
        QList<qsizetype>& areas = found.areasOfMaps[map.tag.offset];
        for (qsizetype i = map.firstArea; i < map.firstArea + map.areaCount; ++i) {
            areas += read.areas[std::size_t(i)].offset;
        }
    }
    for (const PagePicture& picture : read.pictures) {
        found.pictures[picture.tag.offset] = { picture.tag, AttributesOf(PageTag(page, picture.tag)) };
        found.mapsOfPictures[picture.tag.offset] =
            picture.map < 0 ? -1 : read.maps[std::size_t(picture.map)].tag.offset;
    }
    found.base = read.baseTag.length > 0 ? read.baseTag.offset : -1;
    found.baseAddress = read.base;
    return found;
}

/** Whether what both have found says the same; `first` becomes the first that does not. */
template<class Element>
bool SayTheSame(
    const QMap<qsizetype, Element>& own, const QMap<qsizetype, Element>& expected, qsizetype& first)
{
    for (auto one = own.cbegin(); one != own.cend(); ++one) {
        const auto other = expected.constFind(one.key());
        if (other != expected.cend() && *other != *one) {
            first = one.key();
            return false;
        }
    }
    return true;
}

enum class Outcome { Same, OtherTree, Different };

Outcome Compare(const QString& name, const QString& page, const Found& expected)
{
    const Found own = OwnFound(page);
    qsizetype first = 0;
    if (!SayTheSame(own.maps, expected.maps, first) || !SayTheSame(own.areas, expected.areas, first) ||
        !SayTheSame(own.pictures, expected.pictures, first)) {
        QTextStream(stdout) << name << ": what is at " << first << " says something else\n---\n"
                            << page << "\n---\n";
        return Outcome::Different;
    }
    const bool isSameTree =
        own.maps.keys() == expected.maps.keys() && own.areas.keys() == expected.areas.keys() &&
        own.pictures.keys() == expected.pictures.keys() && own.areasOfMaps == expected.areasOfMaps &&
        own.mapsOfPictures == expected.mapsOfPictures && own.base == expected.base &&
        own.baseAddress == expected.baseAddress;
    return isSameTree ? Outcome::Same : Outcome::OtherTree;
}

} // namespace

int main(int argc, char* argv[])
{
    // Of made pages; in those that somebody wrote the maps have to be those of the tree.
    constexpr double mostOthers = 0.005;
    QFile input(argc >= 2 ? QFile::decodeName(argv[1]) : QString());
    if (!input.open(QIODevice::ReadOnly)) {
        return EXIT_FAILURE;
    }
    const bool showsAll = argc > 2;
    QDataStream stream(&input);
    int pages = 0;
    int others = 0;
    int different = 0;
    qint32 announced = 0;
    stream >> announced;
    while (pages < announced && stream.status() == QDataStream::Ok) {
        QString name;
        QString text;
        stream >> name >> text;
        const Outcome outcome = Compare(name, text, ReadFound(stream));
        const bool isMade = name.startsWith(QLatin1String("made "));
        if (outcome == Outcome::OtherTree && (showsAll || !isMade)) {
            QTextStream(stdout) << name << ": the tree has its maps otherwise\n---\n" << text << "\n---\n";
        }
        different += outcome == Outcome::Different || (outcome == Outcome::OtherTree && !isMade) ? 1 : 0;
        others += outcome == Outcome::OtherTree ? 1 : 0;
        ++pages;
    }
    QTextStream(stdout) << pages << " pages, " << different << " with other maps than parse5's; in " << others
                        << " the tree has them otherwise\n";
    const bool isSound = stream.status() == QDataStream::Ok && pages > 0;
    return isSound && different == 0 && others <= mostOthers * pages ? EXIT_SUCCESS : EXIT_FAILURE;
}
