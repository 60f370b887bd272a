// Maps as a picture under the shapes of an SVG, each of them a link: they scale with the page.

#include "codegen/PaintingOrder.h"
#include "codegen/TodayPieces.h"

#include <QStringBuilder>
#include <algorithm>
#include <array>

namespace {

/** What `mode` adds to the markup around the shapes. */
struct SvgMode
{
    bool hasTitles = false;         ///< a message is a tip of the browser's own
    QStringView messagesClass = {}; ///< of the element with the messages; empty if there is none
    bool arePictures = false;       ///< messages are pictures
    bool areTips = false;           ///< messages are shown beside the mouse
};

constexpr std::array<SvgMode, jsModeTexts.size()> svgModes = { {
    {},
    { .hasTitles = true },
    { .messagesClass = u"imap-out", .arePictures = true },
    { .messagesClass = u"imap-out" },
    { .messagesClass = u"imap-out imap-tips", .areTips = true },
} };

QString Numbered(QStringView name, int value)
{
    return u' ' % name % u"=\"" % QString::number(value) % u'"';
}

QString RectangleMarkup(const QList<int>& numbers, QSize)
{
    const int left = std::min(numbers[0], numbers[2]);
    const int top = std::min(numbers[1], numbers[3]);
    return u"<rect" % Numbered(u"x", left) % Numbered(u"y", top) %
           Numbered(u"width", std::max(numbers[0], numbers[2]) - left) %
           Numbered(u"height", std::max(numbers[1], numbers[3]) - top) % u"/>";
}

QString CircleMarkup(const QList<int>& numbers, QSize)
{
    return u"<circle" % Numbered(u"cx", numbers[0]) % Numbered(u"cy", numbers[1]) %
           Numbered(u"r", std::abs(numbers[2])) % u"/>";
}

QString PolygonMarkup(const QList<int>& numbers, QSize)
{
    QString points;
    for (qsizetype i = 0; i + 1 < numbers.size(); i += 2) {
        points += (i == 0 ? QString() : QStringLiteral(" ")) % QString::number(numbers[i]) % u',' %
                  QString::number(numbers[i + 1]);
    }
    return u"<polygon points=\"" % points % u"\"/>";
}

/** The whole picture. */
QString WholePictureMarkup(const QList<int>&, QSize picture)
{
    return RectangleMarkup({ 0, 0, picture.width(), picture.height() }, picture);
}

struct ShapeMarkup
{
    AreaShape shape;
    qsizetype leastNumbers;
    QString (*write)(const QList<int>& numbers, QSize picture);
};

constexpr std::array<ShapeMarkup, areaShapeNames.size()> shapeMarkups = { {
    { AreaShape::Rectangle, 4, RectangleMarkup },
    { AreaShape::Circle, 3, CircleMarkup },
    { AreaShape::Polygon, 0, PolygonMarkup },
    { AreaShape::Default, 0, WholePictureMarkup },
} };
static_assert(std::equal(
    shapeMarkups.begin(), shapeMarkups.end(), areaShapeNames.begin(),
    [](const ShapeMarkup& row, const AreaShapeName& name) { return row.shape == name.shape; }));

QString ShapeOf(const TodayArea& area, QSize picture)
{
    const ShapeMarkup& row = shapeMarkups[static_cast<std::size_t>(area.Shape)];
    return area.Coordinates.size() < row.leastNumbers ? QString() : row.write(area.Coordinates, picture);
}

/** The area with a window's name as SVG has it, which is one of XML. */
TodayArea WithXmlTarget(TodayArea area)
{
    for (QChar& character : area.Target) {
        const bool isPlain = character.unicode() < 0x80 && character.isLetterOrNumber();
        character = isPlain || QStringView(u"-_.").contains(character) ? character : QChar(u'-');
    }
    const bool beginsWithMark =
        !area.Target.isEmpty() && !area.Target[0].isLetter() && area.Target[0] != u'_';
    area.Target.prepend(beginsWithMark ? QStringLiteral("w") : QString());
    return area;
}

QString MessageId(const TodayMap& map, qsizetype index)
{
    return map.Name % u'-' % QString::number(index + 1);
}

/** The area's message as the browser's own tip, which is the first thing in its element. */
QString TipOf(const TodayMap& map, const TodayArea& area, const SvgMode& mode)
{
    return mode.hasTitles && !area.Message.isEmpty()
               ? QString(
                     u"<title>" % EscapedHtml(LinesOfMessage(area.Message).join(u'\n'), map.Charset) %
                     u"</title>")
               : QString();
}

/** One area: a link, else a place that has something to say, else a shape that covers what is below it. */
QString AreaMarkup(const TodayMap& map, qsizetype index, const SvgMode& mode)
{
    const TodayArea& area = map.Areas[index];
    const bool isDescribed = !mode.messagesClass.isEmpty() && !area.Message.isEmpty();
    const QString spoken =
        Attribute(u"aria-label", area.Label, map.Charset) %
        (isDescribed ? Attribute(u"aria-describedby", MessageId(map, index), map.Charset) : QString());
    const QString content = TipOf(map, area, mode) % ShapeOf(area, map.Own);
    if (!area.Address.isEmpty()) {
        return u"<a" % LinkAttributes(WithXmlTarget(area), map.Charset) % spoken % u'>' % content % u"</a>\n";
    }
    if (!area.Message.isEmpty()) {
        return u"<g role=\"img\" tabindex=\"0\"" % spoken % u'>' % content % u"</g>\n";
    }
    return content % u'\n';
}

QString AreasMarkup(const TodayMap& map, const SvgMode& mode)
{
    MapAreas shapes;
    for (const TodayArea& area : map.Areas) {
        shapes << MapArea{
            .Shape = area.Shape, .Coordinates = area.Coordinates, .Link = {}, .Target = {}, .Message = {}
        };
    }
    QString text;
    QList<qsizetype> order = PaintingOrder(shapes);
    // What is left to the whole picture lies below all others.
    std::stable_partition(order.begin(), order.end(), [&shapes](qsizetype index) {
        return shapes[index].Shape == AreaShape::Default;
    });
    for (const qsizetype index : order) {
        text += AreaMarkup(map, index, mode);
    }
    return text;
}

QString ViewBox(QSize size)
{
    return u" viewBox=\"0 0 " % QString::number(size.width()) % u' ' % QString::number(size.height()) % u'"';
}

/**
 * The shapes over the picture. In a picture that is shown distorted, they are distorted with it. Sides that
 * cross make the same holes as in an `area`.
 */
QString ShapesMarkup(const TodayMap& map, const SvgMode& mode)
{
    const bool isDistorted =
        qint64(map.Own.width()) * map.Shown.height() != qint64(map.Own.height()) * map.Shown.width();
    const QString start = u"<svg" % SizeAttributes(map.Shown) % ViewBox(isDistorted ? map.Shown : map.Own) %
                          u" fill=\"transparent\" fill-rule=\"evenodd\">\n";
    const QString areas = AreasMarkup(map, mode);
    return isDistorted ? QString(
                             start % u"<svg" % SizeAttributes(map.Shown) % ViewBox(map.Own) %
                             u" preserveAspectRatio=\"none\">\n" % areas % u"</svg>\n</svg>")
                       : QString(start % areas % u"</svg>");
}

/** The picture and its shapes, which may stand in a paragraph. */
QString SpanMarkup(const TodayMap& map, const SvgMode& mode, const QString& alignClass)
{
    const QString space = alignClass.isEmpty() ? QString() : QStringLiteral(" ");
    return u"<span class=\"imap" % space % alignClass % u"\" id=\"" % map.Name % u"\">\n" % PictureTag(map) %
           u'\n' % ShapesMarkup(map, mode) % u"</span>";
}

QString TextWithBreaks(const QString& message, PageCharset charset)
{
    QStringList lines = LinesOfMessage(message);
    for (QString& line : lines) {
        line = EscapedHtml(line, charset);
    }
    return lines.join(u"<br>");
}

QString DefaultMarkup(const TodayMap& map, const SvgMode& mode)
{
    if (map.Default.isEmpty()) {
        return {};
    }
    constexpr QStringView start = u" class=\"on\" data-start>";
    return mode.arePictures ? QString(
                                  u"<img" % Attribute(u"src", map.Default, map.Charset) %
                                  SizeAttributes(map.DefaultSize) % u" alt=\"\"" % start % u'\n')
                            : QString(u"<p" % start % TextWithBreaks(map.Default, map.Charset) % u"</p>\n");
}

QString MessageMarkup(const TodayMap& map, qsizetype index, const SvgMode& mode)
{
    const TodayArea& area = map.Areas[index];
    if (area.Message.isEmpty()) {
        return {};
    }
    const QString id = Attribute(u"id", MessageId(map, index), map.Charset);
    if (mode.arePictures) {
        return u"<img" % id % Attribute(u"src", area.Message, map.Charset) %
               SizeAttributes(area.MessageSize) % u" alt=\"" % EscapedHtml(area.MessageAlt, map.Charset) %
               u"\">\n";
    }
    return u"<p" % id % (mode.areTips ? QStringLiteral(" role=\"tooltip\"") : QString()) % u'>' %
           TextWithBreaks(area.Message, map.Charset) % u"</p>\n";
}

/** All messages in the order of the list, so that they can be read one after the other. */
QString MessagesMarkup(const TodayMap& map, const SvgMode& mode)
{
    QString text = DefaultMarkup(map, mode);
    for (qsizetype i = 0; i < map.Areas.size(); ++i) {
        text += MessageMarkup(map, i, mode);
    }
    return text.isEmpty() ? QString()
                          : QString(u"\n<div class=\"" % mode.messagesClass % u"\">\n" % text % u"</div>");
}

} // namespace

QString GenerateTodayMap(JSMode mode, const TodayMap& map)
{
    const SvgMode& svgMode = svgModes[static_cast<std::size_t>(mode)];
    if (map.Areas.isEmpty()) {
        return PictureAlone(map);
    }
    if (svgMode.messagesClass.isEmpty()) {
        return u"<p>" % SpanMarkup(map, svgMode, map.AlignClass) % u"</p>\n";
    }
    const QString space = map.AlignClass.isEmpty() ? QString() : QStringLiteral(" ");
    return u"<figure class=\"imap-fig" % space % map.AlignClass % u"\">" % SpanMarkup(map, svgMode, {}) %
           MessagesMarkup(map, svgMode) % u"</figure>\n";
}
