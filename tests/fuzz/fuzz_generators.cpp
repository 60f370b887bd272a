// Maps of any texts. The texts go into the page as they stand, so that hostile ones may well break it. What
// holds is that the page of any texts is the page of harmless ones with the texts put in, and that this is a
// sound page.

#include "FuzzTarget.h"
#include "codegen/MapMarkup.h"
#include "shared/Paths.h"

#include <QHash>
#include <array>

namespace {

/** The first character that stands for a text in the page of harmless ones. */
constexpr char16_t firstStandIn = 0xE000;
constexpr int standInsAtMost = 0x1900;
constexpr int areasAtMost = 1000;

/** Stands single characters in for texts and puts the texts back. */
class StandIns
{
public:
    /** What stands in for `text`; an empty one stays, since it leaves its attribute out. */
    QString For(const QString& text)
    {
        if (text.isEmpty()) {
            return text;
        }
        Demand(texts_.size() < standInsAtMost, "there are enough stand-ins");
        texts_ << text;
        return QChar(static_cast<char16_t>(firstStandIn + texts_.size() - 1));
    }

    [[nodiscard]] QString WithTexts(const QString& page) const
    {
        QString result;
        for (const QChar character : page) {
            const qsizetype index = character.unicode() - firstStandIn;
            if (index >= 0 && index < texts_.size()) {
                result += texts_[index];
            } else {
                result += character;
            }
        }
        return result;
    }

private:
    QStringList texts_;
};

/** Latin-1, or UTF-16 behind a byte that is in no text. */
QString TextOf(QByteArrayView field)
{
    if (!field.startsWith('\x01')) {
        return QString::fromLatin1(field);
    }
    QString text;
    for (qsizetype i = 1; i + 1 < field.size(); i += 2) {
        text += QChar(static_cast<uchar>(field[i]), static_cast<uchar>(field[i + 1]));
    }
    return text;
}

QList<int> ReadCoordinates(FuzzInput& input)
{
    QList<int> coordinates;
    for (const QString& number : TextOf(input.Field()).split(u',')) {
        coordinates << number.trimmed().toInt();
    }
    return coordinates;
}

MapArea ReadArea(FuzzInput& input)
{
    MapArea area;
    area.Shape = static_cast<AreaShape>(input.Below(int(areaShapeNames.size())));
    area.Link = TextOf(input.Field());
    area.Target = TextOf(input.Field());
    area.Coordinates = ReadCoordinates(input);
    area.Message = TextOf(input.Field());
    return area;
}

MapSource ReadSource(FuzzInput& input)
{
    MapSource source;
    source.FileNamesOnly = input.Below(2) == 1;
    const int copies = input.Byte();
    for (QString* const text :
         { &source.MapName, &source.Width, &source.Height, &source.AltText, &source.Align, &source.Border,
           &source.HorizontalSpace, &source.VerticalSpace, &source.PictureReference, &source.ModeDefault }) {
        *text = TextOf(input.Field());
    }
    while (!input.IsEmpty() && source.Areas.size() < areasAtMost) {
        source.Areas << ReadArea(input);
    }
    for (int i = 0; i < copies && !source.Areas.isEmpty() && source.Areas.size() < areasAtMost; ++i) {
        source.Areas << source.Areas[i % source.Areas.size()];
    }
    return source;
}

/** Pictures of the script are named in one of two ways; every other text comes as it is. */
QString ScriptPicture(const MapSource& source, QString path)
{
    return source.FileNamesOnly ? FileNameOnly(path) : PathToFileUrl(path);
}

/** `source` with something harmless in place of every text. */
MapSource Harmless(const MapSource& source, JSMode mode, StandIns& standIns)
{
    const auto scriptText = [&source, mode](const QString& text) {
        return mode == JSSwitchImages ? ScriptPicture(source, text) : text;
    };
    MapSource harmless = source;
    for (QString* const text : { &harmless.MapName, &harmless.Width, &harmless.Height, &harmless.AltText,
                                 &harmless.Align, &harmless.Border, &harmless.HorizontalSpace,
                                 &harmless.VerticalSpace, &harmless.PictureReference }) {
        *text = standIns.For(*text);
    }
    harmless.ModeDefault = standIns.For(scriptText(source.ModeDefault));
    for (MapArea& area : harmless.Areas) {
        area.Link = standIns.For(area.Link);
        area.Target = standIns.For(area.Target);
        area.Message = standIns.For(scriptText(area.Message));
    }
    return harmless;
}

void CheckLineEnds(const QString& page)
{
    const qsizetype ends = page.count(QStringLiteral("\r\n"));
    Demand(page.count(u'\r') == ends && page.count(u'\n') == ends, "lines end in CR LF");
}

/** The piece of `page` between `start` and `end`, each of which is there once. */
QString Between(const QString& page, const QString& start, const QString& end)
{
    Demand(page.count(start) == 1 && page.count(end) == 1, "a block has one start and one end");
    const qsizetype first = page.indexOf(start) + start.size();
    const qsizetype last = page.indexOf(end);
    Demand(first <= last, "a block starts before it ends");
    return page.mid(first, last - first);
}

/** Every bracket of a script closes the one that was opened last. */
void CheckBrackets(const QString& script)
{
    static const QHash<QChar, QChar> openings = { { u')', u'(' }, { u']', u'[' }, { u'}', u'{' } };
    QString open;
    for (const QChar character : script) {
        if (QStringView(u"([{").contains(character)) {
            open += character;
        } else if (openings.contains(character)) {
            Demand(open.endsWith(openings[character]), "a bracket closes what it opened");
            open.chop(1);
        }
    }
    Demand(open.isEmpty(), "every bracket is closed");
}

void CheckScript(const QString& page, JSMode mode, qsizetype areas)
{
    if (mode == JSDisabled || mode == JSStatusBar) {
        Demand(!page.contains(QStringLiteral("<script")), "a plain map has no script");
        return;
    }
    const QString script =
        Between(page, QStringLiteral("<script language=\"JavaScript\">"), QStringLiteral("</script>"));
    CheckBrackets(script);
    Demand(script.count(u'"') % 2 == 0 && script.count(u'\'') % 2 == 0, "every string is closed");
    Demand(script.count(QStringLiteral("<!--")) == 1, "a script is hidden once");
    const QString perArea = mode == JSSwitchImages ? QStringLiteral("on.src = \"") : QStringLiteral("Tips[");
    const qsizetype others = mode == JSSwitchImages ? 0 : mode == JSTextArea ? 2 : -areas;
    Demand(script.count(perArea) == areas + others, "a script has one text an area");
}

void CheckStructure(const QString& page, JSMode mode, qsizetype areas)
{
    CheckLineEnds(page);
    CheckScript(page, mode, areas);
    const qsizetype pictures = mode == JSSwitchImages ? 2 : 1;
    Demand(page.count(QStringLiteral("<IMG ")) == pictures, "a map has one picture, and one that changes");
    Demand(page.count(QStringLiteral(" USEMAP=\"#")) == 1, "one picture uses the map");
    Demand(page.count(QStringLiteral("<!--")) == page.count(QStringLiteral("-->")), "comments are closed");
    const QString map = Between(page, QStringLiteral("<MAP NAME=\""), QStringLiteral("</MAP>"));
    Demand(page.count(QStringLiteral("<AREA SHAPE=")) == areas, "a row makes one area");
    Demand(map.count(QStringLiteral("<AREA SHAPE=")) == areas, "areas are in the map");
    Demand(map.count(QStringLiteral("\r\n")) == areas + 1, "an area takes one line");
    Demand(map.count(u'"') % 2 == 1, "every attribute is closed");
    Demand(
        page.endsWith(QStringLiteral("-->")) || page.endsWith(QStringLiteral("\r\n")), "a page has an end");
}

void CheckPaths(const QString& path)
{
    QString url = path;
    PathToFileUrl(url);
    Demand(!url.contains(u'\\'), "an address has no backslash");
    const QString name = FileNameOnly(path);
    Demand(path.endsWith(name) && !name.contains(u'\\'), "a name has no folders");
    Demand(!path.startsWith(u'/') || !name.contains(u'/'), "a name has no folders of a whole path");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(BytesOf(data, size));
    const auto mode = static_cast<JSMode>(input.Below(int(jsModeTexts.size())));
    const MapSource source = ReadSource(input);
    CheckPaths(source.ModeDefault);

    StandIns standIns;
    const QString page = GenerateMapFor(mode, Harmless(source, mode, standIns));
    CheckStructure(page, mode, source.Areas.size());
    Demand(standIns.WithTexts(page) == GenerateMapFor(mode, source), "texts go into the page as they stand");
    return 0;
}
