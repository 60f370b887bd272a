#include "mapback/TodayMarkup.h"

#include "html/CharacterReferences.h"
#include "html/HtmlTokens.h"

#include <algorithm>
#include <array>

namespace {

using Kind = HtmlToken::Kind;

/** Reads the markup of a map from its first tag to its last. Whether all is as it is written is seen later.
 */
class TodayReader
{
public:
    TodayReader(QStringView page, qsizetype start)
        : text_(page.sliced(start))
        , tokens_(text_)
    {
    }

    /** False if the first tags are none of a map's. */
    bool Read();

    [[nodiscard]] TodayPieces& Pieces() { return pieces_; }

private:
    using Taker = void (TodayReader::*)();

    /** What begins with a start tag. */
    struct Element
    {
        QLatin1String name;
        Taker take;
    };
    static const std::array<Element, 13> elements;

    void TakeStart();
    bool TakeEnd();
    void TakeText();

    void TakeFigure();
    void TakeSpan();
    void TakeImage();
    void TakePicture();
    void TakeShapes();
    void TakeLink();
    void TakePlace();
    void TakeRectangle();
    void TakeCircle();
    void TakePolygon();
    void TakeTitle();
    void TakeMessages();
    void TakeParagraph();
    void TakeBreak();
    void TakeAreaElement();

    void BeginArea();
    void SetShape(AreaShape shape, const QList<int>& numbers);
    void SetMessage(int number, const QString& message);
    [[nodiscard]] int NumberOfId(const QString& id) const;
    [[nodiscard]] bool IsName(QLatin1String name) const { return ::IsName(token_.name.In(text_), name); }
    [[nodiscard]] QString Value(QLatin1String name) const;
    [[nodiscard]] int Number(QLatin1String name) const { return Value(name).toInt(); }
    [[nodiscard]] QSize SizeOfTag() const
    {
        return { Number(QLatin1String("width")), Number(QLatin1String("height")) };
    }

    QStringView text_;
    HtmlTokens tokens_;
    HtmlToken token_;
    TodayPieces pieces_;
    int shapesDepth_ = 0;
    bool isInArea_ = false;
    bool isInTitle_ = false;
    QString* message_ = nullptr; ///< what texts are added to
    QString title_;
};

const std::array<TodayReader::Element, 13> TodayReader::elements = { {
    { QLatin1String("figure"), &TodayReader::TakeFigure },
    { QLatin1String("span"), &TodayReader::TakeSpan },
    { QLatin1String("img"), &TodayReader::TakeImage },
    { QLatin1String("svg"), &TodayReader::TakeShapes },
    { QLatin1String("a"), &TodayReader::TakeLink },
    { QLatin1String("g"), &TodayReader::TakePlace },
    { QLatin1String("rect"), &TodayReader::TakeRectangle },
    { QLatin1String("circle"), &TodayReader::TakeCircle },
    { QLatin1String("polygon"), &TodayReader::TakePolygon },
    { QLatin1String("title"), &TodayReader::TakeTitle },
    { QLatin1String("div"), &TodayReader::TakeMessages },
    { QLatin1String("br"), &TodayReader::TakeBreak },
    { QLatin1String("area"), &TodayReader::TakeAreaElement },
} };

QString TodayReader::Value(QLatin1String name) const
{
    const HtmlAttribute* const attribute = token_.Find(text_, name);
    return attribute == nullptr ? QString() : DecodedValue(attribute->value.In(text_));
}

bool TodayReader::Read()
{
    const bool isBegun = tokens_.Next(token_) && token_.kind == Kind::StartTag && token_.whole.offset == 0;
    if (!isBegun || (!IsName(QLatin1String("p")) && !IsName(QLatin1String("figure")))) {
        return false;
    }
    TakeStart();
    bool isFirst = true;
    while (tokens_.Next(token_)) {
        const bool isStart = token_.kind == Kind::StartTag;
        // A paragraph of another kind may be as long as a page.
        if (isFirst && !(isStart && (IsName(QLatin1String("span")) || IsName(QLatin1String("img"))))) {
            return false;
        }
        isFirst = false;
        if (isStart) {
            TakeStart();
        } else if (token_.kind == Kind::Text) {
            TakeText();
        } else if (token_.kind != Kind::EndTag || TakeEnd()) {
            return token_.kind == Kind::EndTag;
        }
    }
    return false;
}

void TodayReader::TakeStart()
{
    const auto* const found =
        std::ranges::find_if(elements, [this](const Element& element) { return IsName(element.name); });
    if (found != elements.end()) {
        (this->*found->take)();
    } else if (IsName(QLatin1String("p")) && pieces_.hasMessages) {
        TakeParagraph();
    }
}

/** Whether the map ends with it. */
bool TodayReader::TakeEnd()
{
    if (IsName(QLatin1String("svg"))) {
        --shapesDepth_;
    } else if (IsName(QLatin1String("a")) || IsName(QLatin1String("g"))) {
        isInArea_ = false;
    } else if (IsName(QLatin1String("title")) && isInTitle_) {
        isInTitle_ = false;
        pieces_.hasTitles = true;
        if (!pieces_.painted.empty()) {
            pieces_.painted.back().area.Message = title_.split(u'\n').join(QStringLiteral("<br>"));
        }
    } else if (IsName(QLatin1String("p"))) {
        message_ = nullptr;
        return !pieces_.hasMessages && !pieces_.isElement;
    }
    return IsName(QLatin1String("figure")) || IsName(QLatin1String("map"));
}

void TodayReader::TakeText()
{
    const QStringView text = token_.inside.In(text_);
    if (isInTitle_) {
        title_ += DecodedText(text);
    } else if (message_ != nullptr) {
        *message_ += DecodedText(text);
    } else if (shapesDepth_ > 0 && !isInArea_) {
        // An area of which there is nothing to write leaves an empty line.
        const qsizetype lines = DecodedText(text).count(u'\n');
        pieces_.painted.resize(pieces_.painted.size() + std::size_t(std::max(lines - 1, qsizetype(0))));
    }
}

void TodayReader::TakeFigure()
{
    pieces_.isFigure = true;
    pieces_.map.AlignClass = Value(QLatin1String("class")).section(u' ', 1);
}

void TodayReader::TakeSpan()
{
    pieces_.map.Name = Value(QLatin1String("id"));
    if (!pieces_.isFigure) {
        pieces_.map.AlignClass = Value(QLatin1String("class")).section(u' ', 1);
    }
}

void TodayReader::TakeImage()
{
    if (!pieces_.hasMessages) {
        TakePicture();
        return;
    }
    pieces_.arePictures = true;
    const QString source = Value(QLatin1String("src"));
    if (token_.Find(text_, QLatin1String("data-start")) != nullptr) {
        pieces_.map.Default = source;
        pieces_.map.DefaultSize = SizeOfTag();
        return;
    }
    const int number = NumberOfId(Value(QLatin1String("id")));
    for (PaintedArea& one : pieces_.painted) {
        if (number > 0 && one.number == number) {
            one.area.Message = source;
            one.area.MessageSize = SizeOfTag();
            one.area.MessageAlt = Value(QLatin1String("alt"));
        }
    }
}

void TodayReader::TakePicture()
{
    TodayMap& map = pieces_.map;
    map.Picture = Value(QLatin1String("src"));
    map.Shown = SizeOfTag();
    map.AltText = Value(QLatin1String("alt"));
    const QString usemap = Value(QLatin1String("usemap"));
    if (!usemap.isEmpty()) {
        pieces_.isElement = true;
        map.Name = usemap.mid(1);
        map.AlignClass = Value(QLatin1String("class"));
        map.Own = map.Shown;
    }
}

void TodayReader::TakeShapes()
{
    constexpr qsizetype numbersOfBox = 4;
    const QStringList box = Value(QLatin1String("viewbox")).split(u' ');
    if (box.size() == numbersOfBox) {
        const QSize size(box[2].toInt(), box[3].toInt());
        // What a distorted picture shows has shapes of its own, in the picture's own pixels.
        pieces_.map.Shown = shapesDepth_ > 0 ? pieces_.map.Own : pieces_.map.Shown;
        pieces_.map.Own = size;
    }
    ++shapesDepth_;
}

void TodayReader::BeginArea()
{
    PaintedArea& area = pieces_.painted.emplace_back();
    area.area.Address = Value(QLatin1String("href"));
    area.area.Target = Value(QLatin1String("target"));
    area.area.Label = Value(QLatin1String("aria-label"));
    area.number = NumberOfId(Value(QLatin1String("aria-describedby")));
    isInArea_ = true;
}

void TodayReader::TakeLink()
{
    if (shapesDepth_ > 0) {
        BeginArea();
    }
}

void TodayReader::TakePlace()
{
    TakeLink();
}

void TodayReader::SetShape(AreaShape shape, const QList<int>& numbers)
{
    if (shapesDepth_ == 0) {
        return;
    }
    if (!isInArea_) {
        pieces_.painted.emplace_back();
    }
    pieces_.painted.back().area.Shape = shape;
    pieces_.painted.back().area.Coordinates = numbers;
}

void TodayReader::TakeRectangle()
{
    const int x = Number(QLatin1String("x"));
    const int y = Number(QLatin1String("y"));
    SetShape(AreaShape::Rectangle, { x, y, x + SizeOfTag().width(), y + SizeOfTag().height() });
}

void TodayReader::TakeCircle()
{
    SetShape(
        AreaShape::Circle,
        { Number(QLatin1String("cx")), Number(QLatin1String("cy")), Number(QLatin1String("r")) });
}

QList<int> NumbersOf(QString list)
{
    QList<int> numbers;
    for (const QString& number : list.replace(u' ', u',').split(u',', Qt::SkipEmptyParts)) {
        numbers << number.toInt();
    }
    return numbers;
}

void TodayReader::TakePolygon()
{
    SetShape(AreaShape::Polygon, NumbersOf(Value(QLatin1String("points"))));
}

void TodayReader::TakeTitle()
{
    isInTitle_ = true;
    title_.clear();
}

void TodayReader::TakeMessages()
{
    pieces_.hasMessages = true;
    pieces_.areTips = Value(QLatin1String("class")).contains(QLatin1String("imap-tips"));
}

void TodayReader::TakeParagraph()
{
    const int number = NumberOfId(Value(QLatin1String("id")));
    if (token_.Find(text_, QLatin1String("data-start")) != nullptr) {
        message_ = &pieces_.map.Default;
        return;
    }
    const auto found = std::ranges::find(pieces_.painted, number, &PaintedArea::number);
    message_ = number > 0 && found != pieces_.painted.end() ? &found->area.Message : nullptr;
}

void TodayReader::TakeBreak()
{
    if (message_ != nullptr) {
        *message_ += QLatin1String("<br>");
    }
}

void TodayReader::TakeAreaElement()
{
    struct AreaWord
    {
        QLatin1String word;
        AreaShape shape;
    };
    constexpr std::array<AreaWord, 3> words = { { { QLatin1String("rect"), AreaShape::Rectangle },
                                                  { QLatin1String("circle"), AreaShape::Circle },
                                                  { QLatin1String("poly"), AreaShape::Polygon } } };
    PaintedArea& one = pieces_.painted.emplace_back();
    one.area.Address = Value(QLatin1String("href"));
    one.area.Target = Value(QLatin1String("target"));
    one.area.Label = Value(QLatin1String("alt"));
    one.area.Message = Value(QLatin1String("title")).split(u'\n').join(QStringLiteral("<br>"));
    pieces_.hasTitles = pieces_.hasTitles || !one.area.Message.isEmpty();
    const QString word = Value(QLatin1String("shape"));
    const auto* const row = std::ranges::find(words, word, &AreaWord::word);
    one.area.Shape = row == words.end() ? AreaShape::Rectangle : row->shape;
    one.area.Coordinates = NumbersOf(Value(QLatin1String("coords")));
}

/** The number in the id of a message; nought if it is none of this map's. */
int TodayReader::NumberOfId(const QString& id) const
{
    const QString start = pieces_.map.Name + u'-';
    return id.startsWith(start) ? id.mid(start.size()).toInt() : 0;
}

} // namespace

std::optional<TodayPieces> ReadTodayMarkup(QStringView page, qsizetype start)
{
    TodayReader reader(page, start);
    return reader.Read() ? std::optional(reader.Pieces()) : std::nullopt;
}
