#include "mapback/Html4Reading.h"

#include "codegen/MapScripts.h"
#include "mapback/LineReplacements.h"
#include "shared/Paths.h"

#include <QStringBuilder>
#include <algorithm>
#include <array>

namespace {

/** Takes a line to pieces from its beginning. */
class LinePieces
{
public:
    explicit LinePieces(QStringView line)
        : rest_(line)
    {
    }

    /** Passes over what the line must go on with. */
    bool Take(QStringView literal)
    {
        const bool isThere = rest_.startsWith(literal);
        rest_ = isThere ? rest_.sliced(literal.size()) : rest_;
        return isThere;
    }

    /** What stands before `literal`, over which it passes as well; nothing if that does not come. */
    std::optional<QString> TakeUpTo(QStringView literal)
    {
        const qsizetype found = rest_.indexOf(literal);
        if (found < 0) {
            return std::nullopt;
        }
        const QString taken = rest_.first(found).toString();
        rest_ = rest_.sliced(found + literal.size());
        return taken;
    }

    /** What stands before the first of `literals` that comes. */
    QString TakeUpToAny(std::initializer_list<QStringView> literals)
    {
        qsizetype end = rest_.size();
        for (const QStringView literal : literals) {
            const qsizetype found = rest_.indexOf(literal);
            end = found < 0 ? end : std::min(end, found);
        }
        const QString taken = rest_.first(end).toString();
        rest_ = rest_.sliced(end);
        return taken;
    }

    [[nodiscard]] QStringView Rest() const { return rest_; }

private:
    QStringView rest_;
};

/** What a line says between a beginning and an end of its own; nothing if it has others. */
std::optional<QString> Between(QStringView line, QStringView start, QStringView end)
{
    const bool isIt =
        line.size() >= start.size() + end.size() && line.startsWith(start) && line.endsWith(end);
    return isIt ? std::optional(line.sliced(start.size()).chopped(end.size()).toString()) : std::nullopt;
}

/** Takes the handlers off the end of what stands behind an area's address, and gives its message. */
using HandlerReader = std::optional<QString> (*)(QStringView& behind, qsizetype number);

std::optional<QString> CutAt(QStringView& behind, qsizetype start, const QString& message)
{
    behind = behind.first(start);
    return message;
}

std::optional<QString> ReadStatusBar(QStringView& behind, qsizetype)
{
    constexpr QStringView over = u" onMouseOver=\"window.status='";
    constexpr QStringView between = u"';return true\" onMouseOut=\"window.status='';return true\" ALT=\"";
    const qsizetype middle = behind.lastIndexOf(between);
    if (middle < 0 || !behind.endsWith(u'"')) {
        return QString();
    }
    const QStringView message = behind.sliced(middle + between.size()).chopped(1);
    const qsizetype start = middle - message.size() - over.size();
    const bool isTwice = start >= 0 && behind.sliced(start).startsWith(over) &&
                         behind.sliced(start + over.size()).startsWith(message);
    return isTwice ? CutAt(behind, start, message.toString()) : QString();
}

/** Handlers that say nothing but the area's number. */
std::optional<QString> ReadNumbered(QStringView& behind, const QString& handlers)
{
    return behind.endsWith(handlers) ? CutAt(behind, behind.size() - handlers.size(), {}) : std::nullopt;
}

std::optional<QString> ReadSwitchingImages(QStringView& behind, qsizetype number)
{
    return ReadNumbered(
        behind,
        u" onMouseOver=\"on('image" % QString::number(number) % u"');\"  onmouseout=\"off('origimage')\"");
}

std::optional<QString> ReadTextArea(QStringView& behind, qsizetype number)
{
    return ReadNumbered(
        behind, u" onMouseOver=\"writeTip(" % QString::number(number + 1) %
                    u");return true\"  onmouseout=\"writeTip(1)\"");
}

std::optional<QString> ReadToolTip(QStringView& behind, qsizetype)
{
    constexpr QStringView over = u" onMouseOver=\"showtip(this,event,'";
    constexpr QStringView end = u"')\" onmouseout=\"hidetip()\"";
    const qsizetype start = behind.indexOf(over);
    if (start < 0 || !behind.endsWith(end) || start + over.size() + end.size() > behind.size()) {
        return std::nullopt;
    }
    return CutAt(behind, start, behind.sliced(start + over.size()).chopped(end.size()).toString());
}

/** How the script of a mode is read; the lines with the messages are those of the script. */
struct ModeReading
{
    JSMode mode;
    const QStringView* head; ///< nullptr if there is no script
    HandlerReader handlers;
    QStringView defaultStart; ///< of the line with the mode's default
    QStringView messageStart; ///< of that of an area, with its number in the place of "%"
    int firstNumber;
};

constexpr QStringView scriptTextEnd = u"\";";

constexpr std::array<ModeReading, 4> modeReadings = { {
    { JSSwitchImages, &MapScripts::switchingImagesHead, ReadSwitchingImages, u"origimage.src = \"",
      u"image%on.src = \"", 1 },
    { JSTextArea, &MapScripts::textAreaHead, ReadTextArea, u"  TAreaTips[1] = \"", u"  TAreaTips[%] = \"",
      2 },
    { JSToolTips, &MapScripts::toolTips, ReadToolTip, {}, {}, 0 },
    { JSStatusBar, nullptr, ReadStatusBar, {}, {}, 0 },
} };

/** Reads the lines of one map. */
class Html4Reader
{
public:
    Html4Reader(const QList<QStringView>& lines, const ModeReading& reading)
        : lines_(lines)
        , reading_(reading)
    {
    }

    std::optional<MapSource> Read()
    {
        const bool isRead = ReadPictureAndName() && ReadAreas() && ReadScript();
        return isRead ? std::optional(source_) : std::nullopt;
    }

private:
    bool ReadPictureAndName();
    bool ReadPicture(QStringView line);
    bool ReadAreas();
    bool ReadArea(QStringView line);
    static bool ReadShape(LinePieces& pieces, MapArea& area);
    bool ReadScript();

    const QList<QStringView>& lines_;
    const ModeReading& reading_;
    MapSource source_;
    qsizetype firstArea_ = 0;
};

bool Html4Reader::ReadPictureAndName()
{
    for (qsizetype i = 1; i < lines_.size(); ++i) {
        const auto name = Between(lines_[i], u"<MAP NAME=\"", u"\">");
        if (name && lines_[i - 1].startsWith(u"<IMG SRC=\"")) {
            source_.MapName = *name;
            firstArea_ = i + 1;
            return ReadPicture(lines_[i - 1]);
        }
    }
    return false;
}

bool Html4Reader::ReadPicture(QStringView line)
{
    constexpr QStringView border = u" BORDER=";
    constexpr QStringView across = u" HSPACE=";
    constexpr QStringView down = u" VSPACE=";
    constexpr QStringView align = u" ALIGN=";
    if (!line.endsWith(u'>')) {
        return false;
    }
    LinePieces pieces(line.chopped(1));
    (void)pieces.Take(u"<IMG SRC=\"");
    const auto picture = pieces.TakeUpTo(QString(u"\" USEMAP=\"#" % source_.MapName % u"\" WIDTH="));
    const auto width = picture ? pieces.TakeUpTo(u" HEIGHT=") : std::nullopt;
    if (!width) {
        return false;
    }
    source_.PictureReference = *picture;
    source_.Width = *width;
    source_.Height = pieces.TakeUpToAny({ u" ALT=\"", border });
    if (pieces.Take(u" ALT=\"")) {
        const auto alt = pieces.TakeUpTo(QString(u'"' % border));
        source_.AltText = alt.value_or(QString());
    } else {
        (void)pieces.Take(border);
    }
    source_.Border = pieces.TakeUpToAny({ across, down, align });
    source_.HorizontalSpace = pieces.Take(across) ? pieces.TakeUpToAny({ down, align }) : QString();
    source_.VerticalSpace = pieces.Take(down) ? pieces.TakeUpToAny({ align }) : QString();
    source_.Align = pieces.Take(align) ? pieces.Rest().toString() : QString();
    return true;
}

bool Html4Reader::ReadAreas()
{
    qsizetype line = firstArea_;
    while (line < lines_.size() && lines_[line] != u"</MAP>") {
        if (!ReadArea(lines_[line++])) {
            return false;
        }
    }
    return line < lines_.size();
}

bool Html4Reader::ReadShape(LinePieces& pieces, MapArea& area)
{
    if (!pieces.Take(u"<AREA SHAPE=")) {
        return false;
    }
    for (const AreaShapeName& shape : areaShapeNames) {
        if (pieces.Take(ShapeWordOf(shape.shape))) {
            area.Shape = shape.shape;
            break;
        }
    }
    if (area.Shape != AreaShape::Default) {
        const auto coords = pieces.Take(u" COORDS=\"") ? pieces.TakeUpTo(u"\"") : std::nullopt;
        if (!coords) {
            return false;
        }
        for (const QString& number : coords->split(QStringLiteral(", "), Qt::SkipEmptyParts)) {
            bool isNumber = false;
            area.Coordinates << number.toInt(&isNumber);
            if (!isNumber) {
                return false;
            }
        }
    }
    return pieces.Take(u" HREF=\"");
}

bool Html4Reader::ReadArea(QStringView line)
{
    constexpr QStringView targetStart = u"\" TARGET=\"";
    MapArea area;
    LinePieces pieces(line);
    if (!line.endsWith(u'>') || !ReadShape(pieces, area)) {
        return false;
    }
    QStringView behind = pieces.Rest().chopped(1);
    const auto message = reading_.handlers(behind, source_.Areas.size() + 1);
    if (!message || !behind.endsWith(u'"')) {
        return false;
    }
    area.Message = *message;
    const qsizetype target = behind.lastIndexOf(targetStart);
    area.Link = (target < 0 ? behind.chopped(1) : behind.first(target)).toString();
    area.Target = target < 0 ? QString() : behind.sliced(target + targetStart.size()).chopped(1).toString();
    area.Source = int(source_.Areas.size());
    source_.Areas << area;
    return true;
}

/** Reads the mode's default and the messages from the lines of the script, where they stand in order. */
bool Html4Reader::ReadScript()
{
    if (reading_.defaultStart.isEmpty()) {
        return true;
    }
    qsizetype line = 0;
    const auto next = [&](const QString& start) -> std::optional<QString> {
        while (line < firstArea_) {
            if (const auto text = Between(lines_[line++], start, scriptTextEnd)) {
                return text;
            }
        }
        return std::nullopt;
    };
    const auto modeDefault = next(reading_.defaultStart.toString());
    if (!modeDefault) {
        return false;
    }
    source_.ModeDefault = *modeDefault;
    int number = reading_.firstNumber;
    for (MapArea& area : source_.Areas) {
        const auto message = next(reading_.messageStart.toString().replace(u'%', QString::number(number++)));
        if (!message) {
            return false;
        }
        area.Message = *message;
    }
    return true;
}

QList<QStringView> SplitLines(QStringView text)
{
    QList<QStringView> lines;
    qsizetype start = 0;
    for (qsizetype at = 0; at <= text.size(); ++at) {
        const bool isEnd = at == text.size() || text[at] == u'\n' || text[at] == u'\r';
        if (isEnd) {
            lines << text.sliced(start, at - start);
            at += text.sliced(at).startsWith(u"\r\n") ? 1 : 0;
            start = at + 1;
        }
    }
    return lines;
}

bool HasNoFolder(const QString& reference)
{
    return !reference.contains(u'/') && FileNameOnly(reference) == reference;
}

/** Whether all pictures are named without their folders. */
bool AreFileNames(const MapSource& source, JSMode mode)
{
    const bool isPlain = !source.PictureReference.isEmpty() && HasNoFolder(source.PictureReference);
    const bool arePlain =
        mode != JSSwitchImages || (HasNoFolder(source.ModeDefault) &&
                                   std::ranges::all_of(source.Areas, HasNoFolder, &MapArea::Message));
    return isPlain && arePlain;
}

/** What the generator writes, with line ends as they are compared and none at the end. */
QString GeneratedLines(JSMode mode, const MapSource& source)
{
    QString text = GenerateMapFor(mode, source).remove(u'\r');
    while (text.endsWith(u'\n')) {
        text.chop(1);
    }
    return text;
}

} // namespace

std::optional<Html4Output> ReadHtml4Output(QStringView page, qsizetype start)
{
    const QString opening = OpeningOfMap().remove(u'\r');
    const QStringView room = page.sliced(start, std::min(page.size() - start, longestOutput));
    const auto openingLength = LengthOfSame(room, 0, opening);
    const qsizetype end = room.indexOf(mapEndMark);
    if (!openingLength || end < *openingLength) {
        return std::nullopt;
    }
    const auto hasHead = [&](const ModeReading& one) {
        return one.head == nullptr || LengthOfSame(room, *openingLength, *one.head);
    };
    const ModeReading& reading = *std::ranges::find_if(modeReadings, hasHead);
    const QList<QStringView> lines = SplitLines(room.first(end).sliced(*openingLength));
    std::optional<MapSource> source = Html4Reader(lines, reading).Read();
    if (!source) {
        return std::nullopt;
    }
    const bool isSilent = std::ranges::all_of(source->Areas, &QString::isEmpty, &MapArea::Message);
    const JSMode mode = reading.mode == JSStatusBar && isSilent ? JSDisabled : reading.mode;
    source->FileNamesOnly = AreFileNames(*source, mode);
    const auto length = LengthOfSame(page, start, GeneratedLines(mode, *source));
    if (!length) {
        return std::nullopt;
    }
    return Html4Output{ .mode = mode, .source = *source, .place = { start, *length } };
}
