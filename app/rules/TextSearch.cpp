#include "app/rules/TextSearch.h"

#include <QRegularExpression>
#include <QStringMatcher>
#include <algorithm>

namespace {

/** So many steps an expression may take at a place before it is given up; any that ends takes far less. */
constexpr int mostSteps = 100'000;

constexpr char16_t caseBit = u'a' ^ u'A';

bool IsAscii(QStringView text)
{
    return std::ranges::all_of(text, [](QChar c) { return c.unicode() < 0x80; });
}

constexpr char16_t Small(char16_t character)
{
    return character >= u'A' && character <= u'Z' ? char16_t(character | caseBit) : character;
}

/** Finds a text of ASCII in capital and small letters: many times as fast as a search that knows all others.
 */
class AsciiSearch
{
public:
    explicit AsciiSearch(const QString& what)
        : what_(what)
    {
        for (QChar& character : what_) {
            character = Small(character.unicode());
        }
    }

    [[nodiscard]] qsizetype IndexIn(const QString& lines, qsizetype from) const
    {
        const auto* const text = lines.utf16();
        const char16_t first = what_.front().unicode();
        const qsizetype last = lines.size() - what_.size();
        for (qsizetype i = from; i <= last; ++i) {
            if (Small(text[i]) == first && IsAt(text + i)) {
                return i;
            }
        }
        return -1;
    }

private:
    [[nodiscard]] bool IsAt(const ushort* text) const
    {
        return std::equal(
            what_.cbegin(), what_.cend(), text, [](QChar one, ushort other) { return one == Small(other); });
    }

    QString what_;
};

bool IsWordCharacter(QChar character)
{
    return character.isLetterOrNumber() || character == u'_';
}

/** Whether nothing beside `match` belongs to the same word. */
bool IsWholeWord(const QString& lines, const TextSpan& match)
{
    const qsizetype end = match.Start + match.Length;
    const bool joinsBefore = match.Start > 0 && match.Length > 0 && IsWordCharacter(lines[match.Start]) &&
                             IsWordCharacter(lines[match.Start - 1]);
    const bool joinsBehind = end < lines.size() && match.Length > 0 && IsWordCharacter(lines[end - 1]) &&
                             IsWordCharacter(lines[end]);
    return !joinsBefore && !joinsBehind;
}

QRegularExpression Expression(const SearchTerms& terms)
{
    QRegularExpression::PatternOptions options =
        QRegularExpression::MultilineOption | QRegularExpression::UseUnicodePropertiesOption;
    if (!terms.IsCaseSensitive) {
        options |= QRegularExpression::CaseInsensitiveOption;
    }
    return QRegularExpression(QStringLiteral("(*LIMIT_MATCH=%1)").arg(mostSteps) + terms.What, options);
}

/** Takes a match into `result`; false when there is no room for more. */
bool Take(SearchResult& result, const QString& lines, const SearchTerms& terms, const TextSpan& match)
{
    if (terms.AreWholeWords && !IsWholeWord(lines, match)) {
        return true;
    }
    if (result.Matches.size() == SearchResult::most) {
        result.AreMore = true;
        return false;
    }
    result.Matches << match;
    return true;
}

template<class Index>
SearchResult FindText(const QString& lines, const SearchTerms& terms, const TextSpan& within, Index index)
{
    SearchResult result;
    const qsizetype length = terms.What.size();
    const qsizetype end = within.Start + within.Length;
    for (qsizetype at = index(within.Start); at >= 0 && at + length <= end; at = index(at + length)) {
        if (!Take(result, lines, terms, { at, length })) {
            break;
        }
    }
    return result;
}

SearchResult FindExpression(const QString& lines, const SearchTerms& terms, const TextSpan& within)
{
    SearchResult result;
    const QRegularExpression expression = Expression(terms);
    if (!expression.isValid()) {
        result.Trouble = expression.errorString();
        return result;
    }
    const qsizetype end = within.Start + within.Length;
    QRegularExpressionMatchIterator matches = expression.globalMatch(lines, within.Start);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        if (match.capturedEnd() > end ||
            !Take(result, lines, terms, { match.capturedStart(), match.capturedLength() })) {
            break;
        }
    }
    // What ends a search at its limit is told by the last match alone, which is none.
    const qsizetype from = result.Matches.isEmpty() ? within.Start : result.Matches.constLast().Start;
    if (result.Matches.isEmpty() && !expression.match(lines, from).isValid()) {
        result.Trouble = QStringLiteral("It would take too long to find this.");
    }
    return result;
}

} // namespace

SearchResult FindAll(const QString& lines, const SearchTerms& terms, const TextSpan& within)
{
    if (terms.What.isEmpty()) {
        return {};
    }
    if (terms.IsRegex) {
        return FindExpression(lines, terms, within);
    }
    if (!terms.IsCaseSensitive && IsAscii(terms.What)) {
        const AsciiSearch search(terms.What);
        return FindText(lines, terms, within, [&](qsizetype from) { return search.IndexIn(lines, from); });
    }
    const QStringMatcher matcher(terms.What, terms.IsCaseSensitive ? Qt::CaseSensitive : Qt::CaseInsensitive);
    return FindText(lines, terms, within, [&](qsizetype from) { return matcher.indexIn(lines, from); });
}

QString
ReplacementFor(const QString& lines, const TextSpan& match, const SearchTerms& terms, const QString& by)
{
    if (!terms.IsRegex || !by.contains(u'\\')) {
        return by;
    }
    const QRegularExpressionMatch groups = Expression(terms).match(
        lines, match.Start, QRegularExpression::NormalMatch, QRegularExpression::AnchorAtOffsetMatchOption);
    QString text;
    for (qsizetype i = 0; i < by.size(); ++i) {
        if (by[i] != u'\\' || i + 1 == by.size()) {
            text += by[i];
            continue;
        }
        const QChar escaped = by[++i];
        if (escaped >= u'0' && escaped <= u'9') {
            text += groups.captured(escaped.digitValue());
        } else {
            text += escaped == u'n' ? QChar(u'\n') : escaped == u't' ? QChar(u'\t') : escaped;
        }
    }
    return text;
}
