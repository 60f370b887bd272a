#include "app/rules/TextDifference.h"

#include <QList>
#include <QStringList>
#include <algorithm>

namespace {

constexpr QStringView lineEnd = u"\r\n";

/** Takes away what both begin and end with. */
template<class Sequence> qsizetype CutWhatIsAlike(Sequence& a, Sequence& b)
{
    const qsizetype shorter = std::min(a.size(), b.size());
    qsizetype first = 0;
    while (first < shorter && a[first] == b[first]) {
        ++first;
    }
    qsizetype last = 0;
    while (last < shorter - first && a[a.size() - 1 - last] == b[b.size() - 1 - last]) {
        ++last;
    }
    a = a.sliced(first, a.size() - first - last);
    b = b.sliced(first, b.size() - first - last);
    return first;
}

/**
 * The fewest lines that come or go from `a` to `b`; -1 when that are more than `most`. For each number of
 * them it is told how far one gets in `a`, by how many lines further one is in `b` (Myers' algorithm).
 */
qsizetype EditDistance(const QList<QStringView>& a, const QList<QStringView>& b, qsizetype most)
{
    QList<qsizetype> reached(2 * most + 3, 0);
    const auto at = [&reached, most](qsizetype diagonal) -> qsizetype& {
        return reached[diagonal + most + 1];
    };
    for (qsizetype distance = 0; distance <= most; ++distance) {
        for (qsizetype diagonal = -distance; diagonal <= distance; diagonal += 2) {
            const bool isAdded =
                diagonal == -distance || (diagonal != distance && at(diagonal - 1) < at(diagonal + 1));
            qsizetype x = isAdded ? at(diagonal + 1) : at(diagonal - 1) + 1;
            while (x < a.size() && x - diagonal < b.size() && a[x] == b[x - diagonal]) {
                ++x;
            }
            at(diagonal) = x;
            if (x >= a.size() && x - diagonal >= b.size()) {
                return distance;
            }
        }
    }
    return -1;
}

QString CountOfLines(qsizetype count, const char* what)
{
    const QString number = count == 1 ? QStringLiteral("1 line ") : QStringLiteral("%1 lines ").arg(count);
    return number + QLatin1String(what);
}

} // namespace

std::optional<LineDifference> CompareLines(QStringView before, QStringView now, qsizetype most)
{
    QList<QStringView> a = before.split(lineEnd);
    QList<QStringView> b = now.split(lineEnd);
    CutWhatIsAlike(a, b);
    const qsizetype distance = EditDistance(a, b, most);
    if (distance < 0) {
        return std::nullopt;
    }
    const qsizetype growth = b.size() - a.size();
    const qsizetype added = (distance + growth) / 2;
    const qsizetype removed = distance - added;
    const qsizetype changed = std::min(added, removed);
    return LineDifference{ .Changed = changed, .Added = added - changed, .Removed = removed - changed };
}

QString Describe(const std::optional<LineDifference>& difference)
{
    if (!difference) {
        return QStringLiteral("very many lines changed");
    }
    QStringList parts;
    if (difference->Changed > 0) {
        parts << CountOfLines(difference->Changed, "changed");
    }
    if (difference->Added > 0) {
        parts << CountOfLines(difference->Added, "added");
    }
    if (difference->Removed > 0) {
        parts << CountOfLines(difference->Removed, "removed");
    }
    return parts.isEmpty() ? QStringLiteral("nothing that is seen in the text")
                           : parts.join(QStringLiteral(", "));
}

std::optional<TextReplacement> ReplacementFor(const QString& before, const QString& now)
{
    QStringView a = before;
    QStringView b = now;
    qsizetype start = CutWhatIsAlike(a, b);
    if (a.isEmpty() && b.isEmpty()) {
        return std::nullopt;
    }
    qsizetype end = start + a.size();
    qsizetype endNow = start + b.size();
    // A line end stays in one piece.
    if (start > 0 && before[start - 1] == u'\r') {
        --start;
    }
    if (end < before.size() && before[end] == u'\n') {
        ++end;
        ++endNow;
    }
    return TextReplacement{ { start, end - start }, now.sliced(start, endNow - start) };
}
