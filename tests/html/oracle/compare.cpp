// Compares how this program and parse5 read pages. A file, as expect.js writes it, holds for
// each page its name, its text and parse5's tokens. Where the tree that parse5 builds tells it to read on
// otherwise than the tags alone say, which only wrongly nested pages do, the comparison of that page ends;
// how many these are is said and limited.

#include "html/CharacterReferences.h"
#include "html/HtmlTokens.h"
#include "tests/html/PartChecks.h"

#include <QDataStream>
#include <QFile>
#include <QTextStream>

namespace {

enum class Kind : quint8 { Text, StartTag, EndTag, Comment, Doctype };

/** How a text goes on: the first states of parse5's tokenizer, in its order. */
enum class Mode : quint8 { Data, Rcdata, RawText, Script, PlainText };

struct Attribute
{
    QString name;
    QString value;
    HtmlSpan whole;

    bool operator==(const Attribute&) const = default;
};

/** A token as parse5 tells of it. */
struct Token
{
    Kind kind = Kind::Text;
    HtmlSpan place;
    QString data = {}; ///< of a text or a comment
    QString name = {};
    bool isSelfClosing = false;
    bool hasOnePlace = true; ///< false for a text that has other tokens than texts inside
    Mode mode = Mode::Data;
    bool isForeign = false;
    QList<Attribute> attributes = {};
    qsizetype duplicates = 0;
    QList<qint32> errors = {}; ///< where the parse errors are
};

HtmlSpan ReadPlace(QDataStream& stream)
{
    qint32 start = 0;
    qint32 end = 0;
    stream >> start >> end;
    return { start, end - start };
}

void ReadTag(QDataStream& stream, Token& token)
{
    qint32 count = 0;
    qint32 duplicates = 0;
    stream >> token.name >> token.isSelfClosing >> token.mode >> token.isForeign >> count;
    for (qint32 index = 0; index < count; ++index) {
        Attribute attribute;
        stream >> attribute.name >> attribute.value;
        attribute.whole = ReadPlace(stream);
        token.attributes += attribute;
    }
    stream >> duplicates >> count;
    token.duplicates = duplicates;
    for (qint32 index = 0; index < count; ++index) {
        qint32 error = 0;
        stream >> error;
        token.errors += error;
    }
}

Token ReadToken(QDataStream& stream)
{
    Token token;
    stream >> token.kind;
    token.place = ReadPlace(stream);
    stream >> token.data;
    if (token.kind == Kind::StartTag || token.kind == Kind::EndTag) {
        ReadTag(stream, token);
    }
    return token;
}

QList<Token> ReadTokens(QDataStream& stream)
{
    qint32 count = 0;
    stream >> count;
    QList<Token> tokens;
    for (qint32 index = 0; index < count; ++index) {
        tokens += ReadToken(stream);
    }
    return tokens;
}

/** A text in which nothing stands for something else, as browsers see it. */
QString PlainText(QStringView text)
{
    QString plain = text.toString();
    plain.replace(QLatin1String("\r\n"), QLatin1String("\n")).replace(u'\r', u'\n');
    return plain.replace(QChar(u'\0'), QChar(QChar::ReplacementCharacter));
}

/** What browsers keep of a comment that the page ends in: a beginning of "--!>" is none of it. */
QString CutComment(QString data)
{
    for (const auto& ending : { QLatin1String("--!"), QLatin1String("--"), QLatin1String("-") }) {
        if (data.endsWith(ending)) {
            data.chop(ending.size());
            break;
        }
    }
    return data;
}

Mode ModeOf(const HtmlState& state)
{
    switch (state.mode) {
    case HtmlMode::RawText:
        return ContentOf(state.tag) == HtmlContent::Reading ? Mode::Rcdata : Mode::RawText;
    case HtmlMode::Script:
        return Mode::Script;
    case HtmlMode::PlainText:
        return Mode::PlainText;
    default:
        return Mode::Data;
    }
}

/** The tokens of this program in the form of parse5's. */
class OwnTokens
{
public:
    explicit OwnTokens(QStringView text)
        : text_(text)
    {
        HtmlTokens tokens(text);
        for (HtmlToken token; tokens.Next(token);) {
            Take(token, tokens.State());
        }
    }

    [[nodiscard]] const QList<Token>& Found() const { return found_; }

private:
    void Take(const HtmlToken& token, const HtmlState& state)
    {
        const bool isText = token.kind == HtmlToken::Kind::Text || token.kind == HtmlToken::Kind::CData;
        const bool isNameless = token.kind == HtmlToken::Kind::EndTag && token.name.length == 0;
        if (isText) {
            TakeText(token);
        } else if (token.kind == HtmlToken::Kind::Comment) {
            TakeComment(token);
        } else if (token.kind == HtmlToken::Kind::Doctype) {
            found_ += { .kind = Kind::Doctype, .place = token.whole };
        } else if (token.isClosed && !isNameless) {
            TakeTag(token, state);
        }
        // "</>" is no token, but to parse5 it belongs to the texts beside it.
        isBehindNameless_ = isNameless;
        if (isNameless && !found_.isEmpty()) {
            found_.last().hasOnePlace = found_.last().kind != Kind::Text;
        }
    }

    void TakeText(const HtmlToken& token)
    {
        const QStringView inside = token.inside.In(text_);
        const bool isCData = token.kind == HtmlToken::Kind::CData;
        const QString data =
            !isCData && HoldsReferences(token.content) ? DecodedText(inside) : PlainText(inside);
        if (found_.isEmpty() || found_.last().kind != Kind::Text) {
            if (!data.isEmpty()) {
                found_ +=
                    { .place = token.whole, .data = data, .hasOnePlace = !isCData && !isBehindNameless_ };
            }
            return;
        }
        found_.last().data += data;
        found_.last().hasOnePlace = false;
    }

    void TakeComment(const HtmlToken& token)
    {
        const bool isCut = !token.isClosed && token.whole.In(text_).startsWith(u"<!--");
        const QString data = PlainText(token.inside.In(text_));
        found_ += { .kind = Kind::Comment, .place = token.whole, .data = isCut ? CutComment(data) : data };
    }

    void TakeTag(const HtmlToken& token, const HtmlState& state)
    {
        Token tag = { .kind = token.kind == HtmlToken::Kind::StartTag ? Kind::StartTag : Kind::EndTag,
                      .place = token.whole,
                      .name = NameOf(token.name.In(text_)),
                      .isSelfClosing = token.slash >= 0,
                      .mode = ModeOf(state),
                      .isForeign = state.foreign.IsForeign() };
        for (const HtmlAttribute& attribute : token.attributes) {
            tag.duplicates += attribute.isDuplicate ? 1 : 0;
            if (!attribute.isDuplicate) {
                // To parse5, a "=" that no value follows is none of the attribute.
                const bool isUnfinished =
                    attribute.equals >= 0 && attribute.quote == 0 && attribute.value.length == 0;
                tag.attributes += { NameOf(attribute.name.In(text_)), DecodedValue(attribute.value.In(text_)),
                                    isUnfinished ? attribute.name : attribute.whole };
            }
        }
        found_ += tag;
    }

    QStringView text_;
    QList<Token> found_;
    bool isBehindNameless_ = false;
};

bool IsSame(const Token& own, const Token& expected, qsizetype pageLength)
{
    // Where something that the page ends in ends is a matter of taste.
    const bool isSamePlace = own.place == expected.place || !own.hasOnePlace ||
                             (own.place.offset == expected.place.offset && own.place.End() == pageLength);
    return own.kind == expected.kind && isSamePlace && own.data == expected.data &&
           own.name == expected.name && own.isSelfClosing == expected.isSelfClosing &&
           own.attributes == expected.attributes && own.duplicates == expected.duplicates;
}

/** Whether the parts of a tag that have errors are those in which parse5 has found some. */
bool HasSameErrors(const std::vector<HtmlPart>& parts, const Token& tag)
{
    QList<HtmlSpan> places;
    auto part = std::ranges::lower_bound(
        parts, tag.place.offset, {}, [](const HtmlPart& one) { return one.place.offset; });
    for (; part != parts.end() && part->place.End() <= tag.place.End(); ++part) {
        if (part->isError) {
            places += part->place;
        }
    }
    const auto contains = [](const HtmlSpan& place, qint32 error) {
        return error >= place.offset && error < place.End();
    };
    const bool allKnown = std::ranges::all_of(tag.errors, [&](qint32 error) {
        return std::ranges::any_of(places, [&](const HtmlSpan& place) { return contains(place, error); });
    });
    return allKnown && std::ranges::all_of(places, [&](const HtmlSpan& place) {
               return std::ranges::any_of(tag.errors, [&](qint32 error) { return contains(place, error); });
           });
}

QString Shown(const Token& token)
{
    QString shown;
    QTextStream stream(&shown);
    stream << "kind " << int(token.kind) << " at " << token.place.offset << ", " << token.place.length << ": "
           << token.name << " \"" << token.data << "\", self-closing " << token.isSelfClosing
           << ", duplicates " << token.duplicates;
    for (const Attribute& attribute : token.attributes) {
        stream << "\n    " << attribute.name << " = \"" << attribute.value << "\" at "
               << attribute.whole.offset << ", " << attribute.whole.length;
    }
    for (const qint32 error : token.errors) {
        stream << "\n    error at " << error;
    }
    return shown;
}

enum class Outcome { Same, OverruledByTree, Different };

/** Compares one page and says the first difference. */
Outcome Compare(const QString& name, const QString& text, const QList<Token>& expected)
{
    const auto fail = [&name, &text](const QString& what) {
        QTextStream(stdout) << name << ": " << what << "\n---\n" << text << "\n---\n";
        return Outcome::Different;
    };
    const std::vector<HtmlPart> parts = PartsOf(text);
    if (!CoverAllButBlanks(parts, text)) {
        return fail(QStringLiteral("parts overlap or leave something out"));
    }
    if (!IsSameByPiece(text, parts, LinesOf(text)) || !IsSameByPiece(text, parts, PiecesOf(text))) {
        return fail(QStringLiteral("reading it in pieces finds other parts"));
    }
    const OwnTokens tokens(text);
    const QList<Token>& own = tokens.Found();
    for (qsizetype index = 0; index < std::min(own.size(), expected.size()); ++index) {
        if (!IsSame(own[index], expected[index], text.size())) {
            return fail(Shown(own[index]) + u"\n  but for parse5\n" + Shown(expected[index]));
        }
        const bool isTag = own[index].kind == Kind::StartTag || own[index].kind == Kind::EndTag;
        if (isTag && !HasSameErrors(parts, expected[index])) {
            return fail(u"other errors are in it than in " + Shown(expected[index]));
        }
        if (own[index].mode != expected[index].mode || own[index].isForeign != expected[index].isForeign) {
            return Outcome::OverruledByTree;
        }
    }
    return own.size() == expected.size() ? Outcome::Same : fail(QStringLiteral("other number of tokens"));
}

} // namespace

int main(int argc, char* argv[])
{
    // Of made pages; in one that somebody wrote, the tree may overrule nothing.
    constexpr double mostOverruled = 0.05;
    // A pipe may give less than is asked for while its writer is busy, which a stream takes for the end.
    QFile input(argc == 2 ? QFile::decodeName(argv[1]) : QString());
    if (!input.open(QIODevice::ReadOnly)) {
        return EXIT_FAILURE;
    }
    QDataStream stream(&input);
    int pages = 0;
    int overruled = 0;
    int different = 0;
    qint32 announced = 0;
    stream >> announced;
    while (pages < announced && stream.status() == QDataStream::Ok) {
        QString name;
        QString text;
        stream >> name >> text;
        const Outcome outcome = Compare(name, text, ReadTokens(stream));
        const bool isMade = name.startsWith(QLatin1String("made "));
        if (outcome == Outcome::OverruledByTree && !isMade) {
            QTextStream(stdout) << name << ": the tree overrules the tags\n";
        }
        different +=
            outcome == Outcome::Different || (outcome == Outcome::OverruledByTree && !isMade) ? 1 : 0;
        overruled += outcome == Outcome::OverruledByTree ? 1 : 0;
        ++pages;
    }
    QTextStream(stdout) << pages << " pages, " << different << " read otherwise than by parse5; in "
                        << overruled << " the tree overrules the tags\n";
    const bool isSound = stream.status() == QDataStream::Ok && pages > 0;
    return isSound && different == 0 && overruled <= mostOverruled * pages ? EXIT_SUCCESS : EXIT_FAILURE;
}
