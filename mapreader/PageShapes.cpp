#include "mapreader/PageShapes.h"

#include "html/HtmlNames.h"

#include <QByteArray>
#include <algorithm>
#include <array>
#include <charconv>

namespace {

struct ShapeWord
{
    QLatin1String word;
    PageShape shape;
};

constexpr std::array<ShapeWord, 7> shapeWords = { {
    { QLatin1String("circ"), PageShape::Circle },
    { QLatin1String("circle"), PageShape::Circle },
    { QLatin1String("default"), PageShape::Default },
    { QLatin1String("poly"), PageShape::Polygon },
    { QLatin1String("polygon"), PageShape::Polygon },
    { QLatin1String("rect"), PageShape::Rectangle },
    { QLatin1String("rectangle"), PageShape::Rectangle },
} };

bool IsDigitCharacter(QChar character)
{
    return character >= u'0' && character <= u'9';
}

bool IsSeparator(QChar character)
{
    return character == u',' || character == u';' || IsHtmlSpace(character.unicode());
}

/** Whether what is written may be a number from there on; all in front of it is passed over. */
bool MayBeginNumber(QChar character)
{
    return IsDigitCharacter(character) || character == u'.' || character == u'-';
}

bool IsOfNumber(QChar character)
{
    return MayBeginNumber(character) || character == u'+' || character == u'e' || character == u'E';
}

struct ReadNumber
{
    double number = 0;
    qsizetype length = 0; ///< nought if it is none
};

/** The number that `written` begins with. */
ReadNumber NumberAtStart(QStringView written)
{
    const QStringView unsignedPart = written.sliced(written.startsWith(u'-') ? 1 : 0);
    const bool isFraction = unsignedPart.startsWith(u'.');
    const QStringView first = unsignedPart.sliced(isFraction ? 1 : 0);
    // The library would take "inf" for a number too.
    if (first.isEmpty() || !IsDigitCharacter(first.front())) {
        return {};
    }
    const auto* const end = std::ranges::find_if_not(written, IsOfNumber);
    const QByteArray digits = written.first(end - written.begin()).toLatin1();
    ReadNumber read;
    const auto [behind, error] =
        std::from_chars(digits.constData(), digits.constData() + digits.size(), read.number);
    if (error != std::errc()) {
        return {};
    }
    read.length = behind - digits.constData();
    // Nought has no sign.
    read.number = read.number == 0 ? 0 : read.number;
    return read;
}

} // namespace

ShapeInEffect ShapeOfWord(QStringView word)
{
    if (word.isNull()) {
        return {};
    }
    const auto* const found =
        std::ranges::find_if(shapeWords, [word](const ShapeWord& known) { return IsName(word, known.word); });
    return found == shapeWords.end() ? ShapeInEffect{ PageShape::Rectangle, false }
                                     : ShapeInEffect{ found->shape, true };
}

std::vector<PageCoordinate> CoordinatesIn(QStringView list)
{
    std::vector<PageCoordinate> coordinates;
    const auto* at = std::ranges::find_if_not(list, IsSeparator);
    while (at != list.end()) {
        const auto* const end = std::find_if(at, list.end(), IsSeparator);
        const auto* const number = std::find_if(at, end, MayBeginNumber);
        const ReadNumber read = NumberAtStart(list.sliced(number - list.begin(), end - number));
        coordinates.push_back({ .number = read.number,
                                .offset = at - list.begin(),
                                .length = end - at,
                                .isPlain = number == at && read.length == end - at });
        at = std::find_if_not(end, list.end(), IsSeparator);
    }
    return coordinates;
}

qsizetype FewestCoordinates(PageShape shape)
{
    constexpr std::array<qsizetype, 4> fewest = { 4, 3, 6, 0 };
    static_assert(fewest.size() == std::size_t(PageShape::Default) + 1);
    return fewest[std::size_t(shape)];
}

bool FitsShape(PageShape shape, qsizetype count)
{
    const qsizetype fewest = FewestCoordinates(shape);
    return shape == PageShape::Polygon ? count >= fewest && count % 2 == 0 : count == fewest;
}
