#include "app/rules/CommentMarks.h"

#include <array>

namespace {

struct MarkTexts
{
    QStringView Opening;
    QStringView Closing;
};

constexpr std::array markTexts = { MarkTexts{ u"<!--", u"-->" }, MarkTexts{ u"/*", u"*/" } };

/** What stands for the second of two hyphens, and for the ampersand of a text that is one of these two. */
constexpr QStringView hyphenEscape = u"&#45;";
constexpr QStringView ampersandEscape = u"&#38;";

const MarkTexts& TextsOf(CommentMarks marks)
{
    return markTexts[static_cast<std::size_t>(marks)];
}

/** Two hyphens end a comment, or are not allowed within. */
QList<TextReplacement> EscapesOfMarkup(QStringView text)
{
    QList<TextReplacement> escapes;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QStringView rest = text.sliced(i);
        if (rest.startsWith(u'-') && i > 0 && text[i - 1] == u'-') {
            escapes << TextReplacement{ { i, 1 }, hyphenEscape.toString() };
        } else if (rest.startsWith(hyphenEscape) || rest.startsWith(ampersandEscape)) {
            escapes << TextReplacement{ { i, 1 }, ampersandEscape.toString() };
        }
    }
    return escapes;
}

QList<TextReplacement> UnescapesOfMarkup(QStringView text)
{
    QList<TextReplacement> unescapes;
    for (qsizetype i = text.indexOf(u'&'); i >= 0; i = text.indexOf(u'&', i + 1)) {
        const QStringView rest = text.sliced(i);
        if (rest.startsWith(hyphenEscape)) {
            unescapes << TextReplacement{ { i, hyphenEscape.size() }, QStringLiteral("-") };
        } else if (rest.startsWith(ampersandEscape)) {
            unescapes << TextReplacement{ { i, ampersandEscape.size() }, QStringLiteral("&") };
        }
    }
    return unescapes;
}

/** The places of the slashes that end a comment, or would but for the backslashes before. */
QList<qsizetype> EndsInStyle(QStringView text, qsizetype leastBackslashes)
{
    QList<qsizetype> ends;
    for (qsizetype i = text.indexOf(u'*'); i >= 0; i = text.indexOf(u'*', i + 1)) {
        qsizetype slash = i + 1;
        while (slash < text.size() && text[slash] == u'\\') {
            ++slash;
        }
        if (slash < text.size() && text[slash] == u'/' && slash - i - 1 >= leastBackslashes) {
            ends << slash;
        }
    }
    return ends;
}

QList<TextReplacement> Escapes(QStringView text, CommentMarks marks)
{
    if (marks == CommentMarks::Markup) {
        return EscapesOfMarkup(text);
    }
    QList<TextReplacement> escapes;
    const QList<qsizetype> ends = EndsInStyle(text, 0);
    for (const qsizetype slash : ends) {
        escapes << TextReplacement{ { slash, 0 }, QStringLiteral("\\") };
    }
    return escapes;
}

QList<TextReplacement> Unescapes(QStringView text, CommentMarks marks)
{
    if (marks == CommentMarks::Markup) {
        return UnescapesOfMarkup(text);
    }
    QList<TextReplacement> unescapes;
    const QList<qsizetype> ends = EndsInStyle(text, 1);
    for (const qsizetype slash : ends) {
        unescapes << TextReplacement{ { slash - 1, 1 }, QString() };
    }
    return unescapes;
}

QString Applied(QStringView text, const QList<TextReplacement>& replacements)
{
    QString result;
    qsizetype copied = 0;
    for (const TextReplacement& one : replacements) {
        result += text.sliced(copied, one.Place.Start - copied) + one.Text;
        copied = one.Place.Start + one.Place.Length;
    }
    return result + text.sliced(copied);
}

/** `replacements` of a part that begins at `start` of the page. */
QList<TextReplacement> MovedTo(qsizetype start, QList<TextReplacement> replacements)
{
    for (TextReplacement& one : replacements) {
        one.Place.Start += start;
    }
    return replacements;
}

} // namespace

QList<TextReplacement> PutBetweenMarks(QStringView page, const TextSpan& place, CommentMarks marks)
{
    const MarkTexts& texts = TextsOf(marks);
    const QString before = texts.Opening + u" ";
    const QString after = u" " + texts.Closing;
    if (place.Length == 0) {
        return { { place, before + after } };
    }
    QList<TextReplacement> all = { { { place.Start, 0 }, before } };
    all += MovedTo(place.Start, Escapes(page.sliced(place.Start, place.Length), marks));
    all << TextReplacement{ { place.Start + place.Length, 0 }, after };
    return all;
}

QList<TextReplacement> TakeOffMarks(QStringView page, const TextSpan& place, CommentMarks marks)
{
    const MarkTexts& texts = TextsOf(marks);
    qsizetype start = place.Start + texts.Opening.size();
    qsizetype end = place.Start + place.Length - texts.Closing.size();
    start += start < end && page[start] == u' ' ? 1 : 0;
    end -= start < end && page[end - 1] == u' ' ? 1 : 0;
    const QStringView inside = page.sliced(start, end - start);
    QList<TextReplacement> unescapes = Unescapes(inside, marks);
    const QString was = Applied(inside, unescapes);
    if (Applied(was, Escapes(was, marks)) != inside) {
        unescapes.clear();
    }
    QList<TextReplacement> all = { { { place.Start, start - place.Start }, QString() } };
    all += MovedTo(start, unescapes);
    all << TextReplacement{ { end, place.Start + place.Length - end }, QString() };
    return all;
}
