#include "app/rules/TextSearch.h"

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

/** `lines` as an expression can look at them: halves of pairs, which bytes are held as, would end the search.
 */
QString WithoutHalves(const QString& lines)
{
    if (lines.isValidUtf16()) {
        return lines;
    }
    QString whole = lines;
    for (qsizetype i = 0; i < whole.size(); ++i) {
        const bool isPair =
            whole[i].isHighSurrogate() && i + 1 < whole.size() && whole[i + 1].isLowSurrogate();
        if (isPair) {
            ++i;
        } else if (whole[i].isSurrogate()) {
            whole[i] = QChar::ReplacementCharacter;
        }
    }
    return whole;
}

/** Whether nothing was found behind `last` because that would have taken too long. */
bool IsGivenUp(const QRegularExpression& expression, const QString& lines, const TextSpan& last)
{
    const qsizetype from = last.Start + std::max<qsizetype>(last.Length, 1);
    return from <= lines.size() && !expression.match(lines, from).isValid();
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
    const QString searched = WithoutHalves(lines);
    const qsizetype end = within.Start + within.Length;
    TextSpan last{ within.Start - 1, 0 };
    QRegularExpressionMatchIterator matches = expression.globalMatch(searched, within.Start);
    while (matches.hasNext()) {
        const QRegularExpressionMatch match = matches.next();
        last = { match.capturedStart(), match.capturedLength() };
        if (match.capturedEnd() > end || !Take(result, lines, terms, last)) {
            return result;
        }
    }
    // A search that ends at its limit looks like one that has come to the end.
    if (IsGivenUp(expression, searched, last)) {
        return { {}, false, QStringLiteral("It would take too long to find this.") };
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

MatchReplacement::MatchReplacement(const QString& lines, const SearchTerms& terms, const QString& by)
    : lines_(lines)
    , by_(by)
{
    if (terms.IsRegex && by.contains(u'\\')) {
        searched_ = WithoutHalves(lines);
        expression_ = Expression(terms);
    }
}

QString MatchReplacement::Of(const TextSpan& match) const
{
    if (expression_.pattern().isEmpty()) {
        return by_;
    }
    const QRegularExpressionMatch groups = expression_.match(
        searched_, match.Start, QRegularExpression::NormalMatch,
        QRegularExpression::AnchorAtOffsetMatchOption |
            QRegularExpression::DontCheckSubjectStringMatchOption);
    QString text;
    for (qsizetype i = 0; i < by_.size(); ++i) {
        if (by_[i] != u'\\' || i + 1 == by_.size()) {
            text += by_[i];
            continue;
        }
        const QChar escaped = by_[++i];
        const int group = escaped >= u'0' && escaped <= u'9' ? escaped.digitValue() : -1;
        if (group == 0) {
            text += QStringView(lines_).sliced(match.Start, match.Length);
        } else if (group > 0) {
            text += QStringView(lines_).mid(
                std::max<qsizetype>(groups.capturedStart(group), 0), groups.capturedLength(group));
        } else {
            text += escaped == u'n' ? QChar(u'\n') : escaped == u't' ? QChar(u'\t') : escaped;
        }
    }
    return text;
}

void CountLineEndsAsTwo(const QString& lines, QList<TextReplacement>& replacements)
{
    const auto endsIn = [&lines](qsizetype from, qsizetype to) {
        return qsizetype(std::count(lines.cbegin() + from, lines.cbegin() + to, u'\n'));
    };
    qsizetype counted = 0;
    qsizetype lineEnds = 0;
    for (TextReplacement& one : replacements) {
        const qsizetype end = one.Place.Start + one.Place.Length;
        lineEnds += endsIn(counted, one.Place.Start);
        const qsizetype within = endsIn(one.Place.Start, end);
        one.Place = { one.Place.Start + lineEnds, one.Place.Length + within };
        lineEnds += within;
        counted = end;
    }
}
