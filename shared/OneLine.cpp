#include "shared/OneLine.h"

#include <algorithm>
#include <array>

namespace {

constexpr std::array<char16_t, 7> lineEnds = { u'\n', u'\v', u'\f', u'\r', 0x0085, 0x2028, 0x2029 };

bool IsLineEnd(QChar character)
{
    return std::ranges::find(lineEnds, character.unicode()) != lineEnds.end();
}

} // namespace

bool HasLineEnd(QStringView text)
{
    return std::ranges::any_of(text, IsLineEnd);
}

QString OneLine(QStringView text)
{
    while (!text.isEmpty() && IsLineEnd(text.back())) {
        text.chop(1);
    }
    QString line;
    line.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n' && i > 0 && text[i - 1] == u'\r') {
            continue;
        }
        line += IsLineEnd(text[i]) ? QChar(u' ') : text[i];
    }
    return line;
}
