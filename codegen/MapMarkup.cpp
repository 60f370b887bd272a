#include "codegen/MapMarkup.h"

#include "codegen/MapScripts.h"
#include "shared/ImgMap.h"
#include "shared/Paths.h"

#include <QStringBuilder>
#include <algorithm>
#include <array>

namespace {

/** What stands in an AREA line behind its link and target, with its leading blank; may be empty. */
using HandlerPiece = QString (*)(const MapArea& area, qsizetype number);

struct ShapeWord
{
    AreaShape shape;
    QStringView word;
};

constexpr std::array<ShapeWord, areaShapeNames.size()> shapeWords = { {
    { AreaShape::Rectangle, u"RECT" },
    { AreaShape::Circle, u"CIRCLE" },
    { AreaShape::Polygon, u"POLYGON" },
    { AreaShape::Default, u"DEFAULT" },
} };
static_assert(std::equal(
    shapeWords.begin(), shapeWords.end(), areaShapeNames.begin(),
    [](const ShapeWord& word, const AreaShapeName& name) { return word.shape == name.shape; }));

constexpr QStringView lineEnd = u"\r\n";

QString Lines(QStringView text)
{
    return text.toString().replace(u'\n', QLatin1String("\r\n"));
}

QString OptionalPiece(QStringView name, const QString& value)
{
    return value.isEmpty() ? QString() : QString(name % value);
}

QString ImageLine(const MapSource& source)
{
    const QString alt = source.AltText.isEmpty() ? QString() : QString(u" ALT=\"" % source.AltText % u'"');
    return u"<IMG SRC=\"" % source.PictureReference % u"\" USEMAP=\"#" % source.MapName % u"\" WIDTH=" %
           source.Width % u" HEIGHT=" % source.Height % alt % u" BORDER=" %
           (source.Border.isEmpty() ? QStringLiteral("0") : source.Border) %
           OptionalPiece(u" HSPACE=", source.HorizontalSpace) %
           OptionalPiece(u" VSPACE=", source.VerticalSpace) % OptionalPiece(u" ALIGN=", source.Align) % u'>' %
           lineEnd;
}

QString AreaLine(const MapArea& area, const QString& handlers)
{
    const QString target = area.Target.isEmpty() ? QString() : QString(u" TARGET=\"" % area.Target % u'"');
    const QString coords =
        area.Shape == AreaShape::Default ? QString() : QString(u" COORDS=\"" % CoordinatesText(area) % u'"');
    return u"<AREA SHAPE=" % ShapeWordOf(area.Shape) % coords % u" HREF=\"" % area.Link % u'"' % target %
           handlers % u'>' % lineEnd;
}

/** The part every mode shares: the picture, the map and its areas, up to the end comment. */
QString MapBlock(const MapSource& source, HandlerPiece handlers)
{
    QString text = ImageLine(source) % u"<MAP NAME=\"" % source.MapName % u"\">" % lineEnd;
    qsizetype number = 0;
    for (const MapArea& area : source.Areas) {
        text += AreaLine(area, handlers(area, ++number));
    }
    return text % u"</MAP>" % lineEnd % mapEndMark;
}

QString StatusBarHandlers(const MapArea& area, qsizetype)
{
    if (area.Message.isEmpty()) {
        return {};
    }
    return u" onMouseOver=\"window.status='" % area.Message %
           u"';return true\" onMouseOut=\"window.status='';return true\" ALT=\"" % area.Message % u'"';
}

QString SwitchingImagesHandlers(const MapArea&, qsizetype number)
{
    return u" onMouseOver=\"on('image" % QString::number(number) % u"');\"  onmouseout=\"off('origimage')\"";
}

QString TextAreaHandlers(const MapArea&, qsizetype number)
{
    return u" onMouseOver=\"writeTip(" % QString::number(number + 1) %
           u");return true\"  onmouseout=\"writeTip(1)\"";
}

QString ToolTipHandlers(const MapArea& area, qsizetype)
{
    return u" onMouseOver=\"showtip(this,event,'" % area.Message % u"')\" onmouseout=\"hidetip()\"";
}

QString ScriptPicture(const MapSource& source, QString path)
{
    return source.FileNamesOnly ? FileNameOnly(path) : PathToFileUrl(path);
}

} // namespace

QString OpeningOfMap()
{
    return u"<!-- This Image Map was created by Cartolen -->\r\n<!-- " % homePage % u" -->" % lineEnd;
}

QStringView ShapeWordOf(AreaShape shape)
{
    return shapeWords[static_cast<std::size_t>(shape)].word;
}

QString GenerateStandardMap(const MapSource& source)
{
    return OpeningOfMap() + MapBlock(source, StatusBarHandlers);
}

QString GenerateSwitchingImagesMap(const MapSource& source)
{
    const QString defaultPicture = ScriptPicture(source, source.ModeDefault);
    QString text = OpeningOfMap() % Lines(MapScripts::switchingImagesHead) % u"origimage.src = \"" %
                   defaultPicture % u"\";" % lineEnd;
    qsizetype number = 0;
    for (const MapArea& area : source.Areas) {
        const QString name = u"image" % QString::number(++number) % u"on";
        text += name % u" = new Image();" % lineEnd % name % u".src = \"" %
                ScriptPicture(source, area.Message) % u"\";" % lineEnd;
    }
    return text % Lines(MapScripts::switchingImagesFunctions) % MapBlock(source, SwitchingImagesHandlers) %
           lineEnd % lineEnd % u"<P>" % lineEnd % u"<!-- Default Image -->" % lineEnd % u"<IMG SRC=\"" %
           defaultPicture % u"\" name=\"altimg\">" % lineEnd % u"<!-- End Default Image -->" % lineEnd;
}

QString GenerateTextAreaMap(const MapSource& source)
{
    QString text = OpeningOfMap() % Lines(MapScripts::textAreaHead) % u"  TAreaTips[1] = \"" %
                   source.ModeDefault % u"\";" % lineEnd;
    qsizetype number = 1;
    for (const MapArea& area : source.Areas) {
        text += u"  TAreaTips[" % QString::number(++number) % u"] = \"" % area.Message % u"\";" % lineEnd;
    }
    return text % Lines(MapScripts::textAreaFunctions) % MapBlock(source, TextAreaHandlers) % lineEnd %
           lineEnd % u"<P>" % lineEnd % u"<!-- Textarea: -->" % lineEnd %
           u"<FORM NAME=\"TAreaTipsForm\"><TEXTAREA NAME=\"Tips\" ROWS=5 COLS=55 value=\"\" wrap=virtual "
           u"scroll=0 scrollbars=0>" %
           source.ModeDefault % u"</TEXTAREA>" % lineEnd % u"</FORM>" % lineEnd % u"<!-- End Textarea -->";
}

QString GenerateToolTipMap(const MapSource& source)
{
    return OpeningOfMap() % Lines(MapScripts::toolTips) % MapBlock(source, ToolTipHandlers) % lineEnd %
           lineEnd;
}

QString GenerateMapFor(JSMode mode, const MapSource& source)
{
    static constexpr std::array generators = { GenerateStandardMap, GenerateStandardMap,
                                               GenerateSwitchingImagesMap, GenerateTextAreaMap,
                                               GenerateToolTipMap };
    static_assert(generators.size() == jsModeTexts.size());
    return generators[static_cast<std::size_t>(mode)](source);
}
