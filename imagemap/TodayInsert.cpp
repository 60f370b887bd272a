#include "imagemap/TodayInsert.h"

#include "html/DeclaredEncoding.h"
#include "imagemap/drawing/DrawingHints.h"
#include "shared/AnsiCodePage.h"

#include <QDir>
#include <QFileInfo>
#include <QImageReader>
#include <array>

namespace {

/** As much of a page as browsers look through for its encoding. */
constexpr qsizetype declarationRoom = 1024;

struct RefusalRow
{
    InsertRefusal refusal;
    QStringView text;
};

constexpr std::array<RefusalRow, 5> refusalRows = { {
    { InsertRefusal::InTag, u"The caret of the page is inside a tag. Put it where a paragraph may begin !" },
    { InsertRefusal::InComment,
      u"The caret of the page is inside a comment. Put it where a paragraph may begin !" },
    { InsertRefusal::InScript,
      u"The caret of the page is inside a script or a style. Put it where a paragraph may begin !" },
    { InsertRefusal::InText, u"The caret of the page is inside an element that holds no markup. Put it where "
                             u"a paragraph may begin !" },
    { InsertRefusal::InLink,
      u"The caret of the page is inside a link. Put it where a paragraph may begin !" },
} };
static_assert(std::is_sorted(
    refusalRows.begin(), refusalRows.end(),
    [](const RefusalRow& one, const RefusalRow& other) { return one.refusal < other.refusal; }));

/** The characters that browsers read in the page as they are written; all others it gets as references. */
PageCharset CharsetOf(QStringView page, std::optional<TextEncoding> chosen)
{
    if (chosen == TextEncoding::Utf8WithMark) {
        return PageCharset::Unicode; // a mark is believed before anything else
    }
    const QByteArray start = AnsiCodePage::Encode(page.left(declarationRoom));
    const QLatin1String declared = EncodingOfMarkup(start);
    if (chosen == TextEncoding::Utf8) {
        return declared == utf8Name ? PageCharset::Unicode : PageCharset::Ascii;
    }
    return declared == windows1252Name ? PageCharset::Windows1252 : PageCharset::Ascii;
}

QSize SizeOfPicture(const QString& path, const QString& pagePath)
{
    const QString absolute = QFileInfo(pagePath).dir().absoluteFilePath(QDir::fromNativeSeparators(path));
    return QFileInfo(absolute).isFile() ? QImageReader(absolute).size() : QSize();
}

/** "picture, areas 2, 5": what has no text of its own for those who do not see it. */
QString PlacesWithoutText(const TodayNotes& notes)
{
    constexpr qsizetype mostNamed = 5;
    QStringList numbers;
    for (const int number : notes.areasWithoutText.mid(0, mostNamed)) {
        numbers << QString::number(number);
    }
    if (notes.areasWithoutText.size() > mostNamed) {
        numbers << QStringLiteral("...");
    }
    const QString areas =
        numbers.isEmpty()
            ? QString()
            : (notes.areasWithoutText.size() == 1 ? QStringLiteral("area ") : QStringLiteral("areas ")) +
                  numbers.join(QStringLiteral(", "));
    const QString picture = notes.lacksAltText ? QStringLiteral("picture") : QString();
    return picture + (picture.isEmpty() || areas.isEmpty() ? QString() : QStringLiteral(", ")) + areas;
}

/** Which of the needed blocks are new in a page without a head; older ones are replaced where they are. */
NeededBlocks PutInFront(const InsertPlace& place, NeededBlocks needed)
{
    const auto isNew = [&place](bool isNeeded, const ConstantBlock& block) {
        return isNeeded && !place.hasHead && !block.IsCurrent() && !block.Older();
    };
    return { .style = isNew(needed.style, place.style), .script = isNew(needed.script, place.script) };
}

QString HintOnFront(NeededBlocks blocks)
{
    if (!blocks.style && !blocks.script) {
        return {};
    }
    const QString what = !blocks.script  ? QStringLiteral("Style is")
                         : !blocks.style ? QStringLiteral("Script is")
                                         : QStringLiteral("Style and script are");
    return QStringLiteral(". %1 in line 1, for want of a head").arg(what);
}

/** Whether visitors see nothing today of what the script of the mode shows. */
constexpr bool ShowsNothingToday(JSMode mode)
{
    return mode == JSStatusBar || mode == JSToolTips;
}

} // namespace

TodayPage ContextOf(const PageDocument& page, QStringView text, QStringView rest, const MapPicture& picture)
{
    const QString pagePath = page.FileName();
    return { .Text = rest,
             .Path = pagePath,
             .Charset = CharsetOf(text, page.ChosenEncoding()),
             .PicturePath = picture.path,
             .PictureSize = picture.size,
             .SizeOf = [pagePath](const QString& path) { return SizeOfPicture(path, pagePath); } };
}

TodayPage ContextOf(const PageDocument& page, const MapPicture& picture)
{
    return ContextOf(page, page.TextIn({ 0, declarationRoom }), {}, picture);
}

TodayInsert PrepareTodayInsert(
    const PageDocument& page, MarkupForm form, JSMode mode, const MapSource& source,
    const MapPicture& picture)
{
    const QString text = page.Text();
    const TextSpan selection = page.Selection();
    const InsertPlace place = FindInsertPlace(text, { selection.Start, selection.Length });
    if (place.refusal) {
        return { .refusal = place.refusal, .insertion = {}, .place = {}, .notes = {}, .inFront = {} };
    }
    QString rest = text;
    rest.remove(place.map.offset, place.map.length);
    const TodayPage context = ContextOf(page, text, rest, picture);
    const TodayMap map = MakeTodayMap(mode, source, context);
    const QString markup =
        form == MarkupForm::Today ? GenerateTodayMap(mode, map) : GenerateTodayMapElement(mode, map);
    const NeededBlocks needed = BlocksFor(form, mode, map);
    return { .refusal = {},
             .insertion = InsertMap(text, place, markup, needed, QStringLiteral("\r\n")),
             .place = { place.map.offset, place.map.length },
             .notes = NotesOn(mode, source),
             .inFront = PutInFront(place, needed) };
}

bool LacksFolder(const PageDocument& page, const MapSource& source)
{
    return page.FileName().isEmpty() && !source.FileNamesOnly;
}

QString RefusalText(InsertRefusal refusal)
{
    return refusalRows[static_cast<std::size_t>(refusal)].text.toString();
}

QString TodayHint(const TodayInsert& insert)
{
    QString hint = InsertedHint(insert.insertion.line);
    const QString withoutText = PlacesWithoutText(insert.notes);
    if (!withoutText.isEmpty()) {
        hint += QStringLiteral(". No text for screen readers: ") + withoutText;
    }
    hint += HintOnFront(insert.inFront);
    if (insert.notes.hasOddSize) {
        hint += QStringLiteral(". Size is the picture's own");
    }
    if (insert.notes.leftOutSpacing) {
        hint += QStringLiteral(". Border and spacing are left out");
    }
    return hint;
}

QString Html4Hint(int line, JSMode mode)
{
    const QString hint = InsertedHint(line);
    return ShowsNothingToday(mode)
               ? hint +
                     QStringLiteral(". Today's browsers show no message of it; Options has a form that does")
               : hint;
}
