#include "app/rules/LineIndent.h"

#include <algorithm>

namespace {

/** More blanks than these are no step, but line something up. */
constexpr qsizetype mostBlanks = 8;

qsizetype BlanksBefore(QStringView line)
{
    const auto text = std::find_if(line.begin(), line.end(), [](QChar one) { return one != u' '; });
    return text - line.begin();
}

} // namespace

QString IndentOf(QStringView line)
{
    if (line.startsWith(u'\t')) {
        return QStringLiteral("\t");
    }
    const qsizetype blanks = BlanksBefore(line);
    const bool isBlank = blanks == line.size();
    return isBlank || blanks > mostBlanks ? QString() : QString(blanks, u' ');
}

QString UsualIndent()
{
    return QStringLiteral("\t");
}

qsizetype OutdentLength(QStringView line, QStringView indent)
{
    if (line.startsWith(u'\t')) {
        return 1;
    }
    const qsizetype step = indent.startsWith(u' ') ? indent.size() : mostBlanks;
    return std::min(BlanksBefore(line), step);
}
