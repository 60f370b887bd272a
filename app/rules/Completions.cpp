#include "app/rules/Completions.h"

#include "app/rules/FileReferences.h"
#include "html/CharacterReferences.h"
#include "html/HtmlAttributes.h"
#include "html/OpenElements.h"

#include <QUrl>

namespace {

/** What is being written at the end of a text. */
struct BeingWritten
{
    HtmlSpan TagName;
    bool IsEndTag = false;
    QStringList Attributes; ///< whose names are written
    HtmlSpan Attribute;     ///< the last
    qsizetype ValueStart = -1;
    char16_t Quote = 0;
    HtmlPart Last;
    HtmlState State;
};

BeingWritten Read(QStringView text, const HtmlState& state)
{
    BeingWritten read;
    HtmlScanner scanner(text, state);
    HtmlPart part;
    while (scanner.Next(part)) {
        switch (part.kind) {
        case HtmlPartKind::TagOpen:
        case HtmlPartKind::EndTagOpen:
            read = {};
            read.IsEndTag = part.kind == HtmlPartKind::EndTagOpen;
            break;
        case HtmlPartKind::TagName:
            read.TagName = part.place;
            break;
        case HtmlPartKind::AttributeName:
            read.Attributes << part.place.In(text).toString().toLower();
            read.Attribute = part.place;
            read.ValueStart = -1;
            read.Quote = 0;
            break;
        case HtmlPartKind::Equals:
        case HtmlPartKind::OpeningQuote:
            read.ValueStart = part.place.End();
            read.Quote = part.kind == HtmlPartKind::Equals ? u'\0' : text[part.place.offset].unicode();
            break;
        case HtmlPartKind::AttributeValue:
            read.ValueStart = part.place.offset;
            break;
        default:
            break;
        }
        read.Last = part;
    }
    read.State = scanner.State();
    return read;
}

QStringList BeginningWith(QStringView begun, const QStringList& texts)
{
    QStringList fitting;
    for (const QString& text : texts) {
        if (text.startsWith(begun, Qt::CaseInsensitive)) {
            fitting << text;
        }
    }
    return fitting;
}

QStringList ElementNames()
{
    QStringList names;
    for (const HtmlElement& element : HtmlElements()) {
        names << QString::fromLatin1(element.name.data(), static_cast<qsizetype>(element.name.size()));
    }
    return names;
}

/** The elements that are open at `caret`, from the innermost, as their end tags have to be written. */
QStringList OpenNames(QStringView page, const HtmlState& state, qsizetype caret)
{
    const QStringView text = page.first(caret);
    const bool isClosed = page.sliced(caret).startsWith(u'>');
    HtmlTokens tokens(text, state);
    OpenElements elements(text);
    for (HtmlToken token; tokens.Next(token);) {
        elements.Take(token, tokens.State());
    }
    QStringList names;
    for (auto one = elements.Open().rbegin(); one != elements.Open().rend(); ++one) {
        names << (isClosed ? one->name.In(text).toString() : one->name.In(text) + u'>');
    }
    names.removeDuplicates();
    return names;
}

/** The files of an attribute's value that has been begun, as they have to be written there. */
QStringList FilesFor(QStringView begun, const CompletionSources& sources)
{
    const qsizetype folderLength = begun.lastIndexOf(u'/') + 1;
    const QString folder = begun.first(folderLength).toString();
    const bool isBeside = folder.isEmpty() || !FileOfAddress(folder).isEmpty();
    if (!sources.Files || !isBeside) {
        return {};
    }
    QStringList addresses;
    const QStringList names = sources.Files(QUrl::fromPercentEncoding(folder.toUtf8()));
    for (const QString& name : names) {
        addresses << folder + QString::fromLatin1(QUrl::toPercentEncoding(name, "/"));
    }
    return addresses;
}

QStringList
ValuesFor(QStringView text, const BeingWritten& there, QStringView begun, const CompletionSources& sources)
{
    const QStringView element = there.TagName.In(text);
    const QStringView attribute = there.Attribute.In(text);
    if (IsName(attribute, QLatin1String("usemap"))) {
        QStringList maps;
        const QStringList names = sources.Maps ? sources.Maps() : QStringList();
        for (const QString& name : names) {
            maps << u'#' + EscapedFor(there.Quote == 0 ? u'"' : there.Quote, name);
        }
        return maps;
    }
    return IsAddress(element, attribute) ? FilesFor(begun, sources) : ValuesOf(element, attribute);
}

QStringList AttributesFor(QStringView element, const QStringList& written)
{
    QStringList texts;
    const QStringList names = AttributesOf(element);
    for (const QString& name : names) {
        if (!written.contains(name)) {
            texts << (IsWithoutValue(name) ? name : name + u"=\"|\"");
        }
    }
    return texts;
}

bool IsInTag(HtmlMode mode)
{
    return mode == HtmlMode::InTag || mode == HtmlMode::AfterAttributeName || mode == HtmlMode::TagName;
}

Completions ValueAt(QStringView text, const BeingWritten& there, const CompletionSources& sources)
{
    const qsizetype start = there.State.mode == HtmlMode::BeforeValue ? text.size() : there.ValueStart;
    const HtmlSpan begun{ start, text.size() - start };
    QStringList texts = BeginningWith(begun.In(text), ValuesFor(text, there, begun.In(text), sources));
    if (there.Quote == 0) {
        for (QString& one : texts) {
            one = u'"' + one + u'"';
        }
    }
    return { begun, texts };
}

} // namespace

Completions
CompletionsAt(QStringView text, const HtmlState& state, qsizetype caret, const CompletionSources& sources)
{
    const QStringView before = text.first(caret);
    const BeingWritten there = Read(before, state);
    const HtmlMode mode = there.State.mode;
    const bool isAtName = there.Last.kind == HtmlPartKind::TagName && there.Last.place.End() == caret;
    if (mode == HtmlMode::Data && before.endsWith(u"</")) {
        return { { caret, 0 }, OpenNames(text, state, caret) };
    }
    if (mode == HtmlMode::Data && before.endsWith(u'<')) {
        return { { caret, 0 }, ElementNames() };
    }
    if (isAtName) {
        const QStringList names = there.IsEndTag ? OpenNames(text, state, caret) : ElementNames();
        return { there.TagName, BeginningWith(there.TagName.In(text), names) };
    }
    const bool isValue = mode == HtmlMode::DoubleQuotedValue || mode == HtmlMode::SingleQuotedValue ||
                         mode == HtmlMode::BeforeValue ||
                         (there.Last.kind == HtmlPartKind::AttributeValue &&
                          there.Last.place.End() == caret && there.Quote == 0);
    if (isValue) {
        return ValueAt(before, there, sources);
    }
    if (!IsInTag(mode) || there.IsEndTag || before.isEmpty()) {
        return {};
    }
    const bool isBegun = there.Last.kind == HtmlPartKind::AttributeName && there.Last.place.End() == caret;
    const HtmlSpan begun = isBegun ? there.Attribute : HtmlSpan{ caret, 0 };
    if (!isBegun && !IsHtmlSpace(before.back().unicode())) {
        return {};
    }
    const QStringList written =
        isBegun ? there.Attributes.mid(0, there.Attributes.size() - 1) : there.Attributes;
    return { begun, BeginningWith(begun.In(text), AttributesFor(there.TagName.In(text), written)) };
}

QString EndTagBehind(QStringView text, const HtmlState& state, qsizetype caret)
{
    const QString closed = text.first(caret) + u'>';
    HtmlTokens tokens(closed, state);
    OpenElements elements(closed);
    HtmlToken token;
    auto effect = OpenElements::Effect::None;
    while (tokens.Next(token)) {
        effect = elements.Take(token, tokens.State());
    }
    const bool isEnded = token.isClosed && token.whole.End() == closed.size();
    if (effect != OpenElements::Effect::Opens || !isEnded || tokens.State().mode == HtmlMode::PlainText) {
        return {};
    }
    const QString endTag = u"</" + token.name.In(closed) + u'>';
    const bool isThere = text.sliced(caret).startsWith(endTag, Qt::CaseInsensitive);
    return isThere ? QString() : endTag;
}
