// Whatever is looked for in whatever text: what is found is there, in order, and all of it.

#include "FuzzTarget.h"
#include "app/rules/TextSearch.h"

namespace {

/** Latin letters, with some of what else a text holds: a line end, a pair, a half of one. */
QString TextOf(QByteArrayView bytes)
{
    QString text = QString::fromLatin1(bytes);
    text.replace(u'\x80', u'\n');
    text.replace(u'\x81', QStringLiteral("\U0001F30D"));
    text.replace(u'\x82', QChar(0xDC82));
    return text;
}

/** What is found without an expression, without case and anywhere, the plain way. */
QList<TextSpan> PlacesOf(const QString& what, const QString& lines, const TextSpan& within)
{
    QList<TextSpan> places;
    const QStringView part = QStringView(lines).sliced(within.Start, within.Length);
    for (qsizetype at = part.indexOf(what); at >= 0; at = part.indexOf(what, at + what.size())) {
        places << TextSpan{ within.Start + at, what.size() };
    }
    return places;
}

void TryResult(
    const SearchResult& result, const QString& lines, const SearchTerms& terms, const TextSpan& within)
{
    const MatchReplacement same(lines, terms, terms.IsRegex ? QStringLiteral("\\0") : terms.What);
    qsizetype end = within.Start;
    for (const TextSpan& match : result.Matches) {
        Demand(match.Start >= end && match.Length >= 0, "matches follow each other");
        end = match.Start + match.Length;
        const QStringView found = QStringView(lines).sliced(match.Start, match.Length);
        Demand(
            same.Of(match).compare(found, Qt::CaseInsensitive) == 0,
            "a match put in its own place changes nothing");
    }
    Demand(end <= within.Start + within.Length, "matches are in the part that is searched");
    Demand(result.Trouble.isEmpty() || result.Matches.isEmpty(), "where there is trouble nothing is found");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(BytesOf(data, size));
    const int how = input.Byte();
    const int from = input.Byte();
    const int cutOff = input.Byte();
    const SearchTerms terms{ .What = TextOf(input.Field()),
                             .IsCaseSensitive = (how & 1) != 0,
                             .AreWholeWords = (how & 2) != 0,
                             .IsRegex = (how & 4) != 0 };
    const QString by = TextOf(input.Field());
    const QString lines = TextOf(input.Rest());
    const qsizetype start = std::min<qsizetype>(from, lines.size());
    const TextSpan within{ start, std::max<qsizetype>(lines.size() - start - cutOff, 0) };

    const SearchResult result = FindAll(lines, terms, within);
    TryResult(result, lines, terms, within);
    if (!result.Matches.isEmpty()) {
        (void)MatchReplacement(lines, terms, by).Of(result.Matches.constLast());
    }
    if (!terms.What.isEmpty() && !terms.IsRegex && !terms.AreWholeWords && terms.IsCaseSensitive) {
        Demand(result.Matches == PlacesOf(terms.What, lines, within), "every place is found");
    }
    return 0;
}
