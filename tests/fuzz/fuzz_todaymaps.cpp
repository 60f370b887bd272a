// A map for today's browsers is put into any page, and any texts into a map: neither breaks the other.

#include "FuzzTarget.h"
#include "codegen/InsertPlace.h"

#include <QRegularExpression>
#include <QStringDecoder>

namespace {

constexpr QLatin1String mark("<!--the map-->");

QString Applied(QString page, const QList<TextReplacement>& changes)
{
    qsizetype end = page.size();
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        Demand(change->Place.Start >= 0 && change->Place.Length >= 0, "a change has a place");
        Demand(change->Place.Start + change->Place.Length <= end, "changes follow each other");
        page.replace(change->Place.Start, change->Place.Length, change->Text);
        end = change->Place.Start;
    }
    return page;
}

bool HasMark(QStringView page)
{
    HtmlTokens tokens(page);
    for (HtmlToken token; tokens.Next(token);) {
        if (token.kind == HtmlToken::Kind::Comment && token.whole.In(page) == mark) {
            return true;
        }
    }
    return false;
}

void TryPage(const QString& page, qsizetype caret)
{
    const InsertPlace place = FindInsertPlace(page, { caret, 0 });
    if (place.refusal) {
        return;
    }
    const NeededBlocks all{ true, true };
    const QString changed = Applied(page, InsertMap(page, place, mark, all, QStringLiteral("\n")).changes);
    if (!page.contains(mark)) {
        Demand(HasMark(changed), "a map is markup where it is put");
    }
    const InsertPlace next = FindInsertPlace(changed, { 0, 0 });
    Demand(next.style.IsCurrent() && next.script.IsCurrent(), "style and script are found again");
}

/** The tags of a map, and whether anything in it is an error. */
QStringList TagsOf(const QString& markup)
{
    QStringList tags;
    HtmlTokens tokens(markup);
    for (HtmlToken token; tokens.Next(token);) {
        Demand(token.isClosed || token.kind == HtmlToken::Kind::Text, "every tag ends");
        Demand(!token.hasError, "no tag has an error");
        for (const HtmlAttribute& attribute : token.attributes) {
            Demand(!attribute.hasError && !attribute.isDuplicate, "no attribute has an error");
        }
        const bool isBreak = token.name.In(markup) == u"br";
        if (token.kind != HtmlToken::Kind::Text && !isBreak) {
            tags << token.whole.In(markup).first(1) + token.name.In(markup);
        }
    }
    return tags;
}

QString MapOf(JSMode mode, MarkupForm form, const QString& text)
{
    MapSource source{ .MapName = text,
                      .Width = text,
                      .Height = text,
                      .AltText = text,
                      .Align = text,
                      .Border = text,
                      .HorizontalSpace = {},
                      .VerticalSpace = {},
                      .PictureReference = QStringLiteral("a.png"),
                      .FileNamesOnly = false,
                      .ModeDefault = u'd' + text,
                      .Areas = {} };
    for (const AreaShape shape : { AreaShape::Rectangle, AreaShape::Circle, AreaShape::Polygon }) {
        source.Areas << MapArea{ .Shape = shape,
                                 .Coordinates = { 1, 2, 30, 40, 5, 6 },
                                 .Link = u'l' + text,
                                 .Target = text,
                                 .Message = u'm' + text,
                                 .Text = text };
    }
    const TodayPage page{ .Text = {},
                          .Path = {},
                          .Charset = PageCharset::Unicode,
                          .PicturePath = {},
                          .PictureSize = { 100, 100 },
                          .SizeOf = {} };
    const TodayMap map = MakeTodayMap(mode, source, page);
    return form == MarkupForm::Today ? GenerateTodayMap(mode, map) : GenerateTodayMapElement(mode, map);
}

void TryTexts(const QString& text)
{
    for (const JSModeTexts& row : jsModeTexts) {
        for (const MarkupForm form : { MarkupForm::Today, MarkupForm::TodayMapElement }) {
            // A size is the one text that changes the shapes' markup; letters are none.
            const QString letters = QString(text).remove(QRegularExpression(QStringLiteral("[0-9]")));
            Demand(
                TagsOf(MapOf(row.mode, form, letters)) == TagsOf(MapOf(row.mode, form, QStringLiteral("x"))),
                "any texts make the tags that harmless ones make");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, std::size_t size)
{
    if (size < 2) {
        return 0;
    }
    constexpr int bitsAByte = 8;
    const QString text = QStringDecoder(QStringDecoder::Utf8)(QByteArrayView(data + 2, qsizetype(size) - 2));
    const qsizetype number = (data[0] << bitsAByte) + data[1];
    TryPage(text, text.isEmpty() ? 0 : number % (text.size() + 1));
    constexpr qsizetype mostText = 200;
    TryTexts(text.left(mostText));
    return 0;
}
