// The drawing protocol under any order of mouse and menu events, and what the store and the picture are then.

#include "FuzzTarget.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/RecordingView.h"

#include <bitset>
#include <cmath>
#include <limits>
#include <memory>

namespace {

constexpr int middleButton = 4;

/** Positions that a mouse does not report: outside the picture, beyond 16 bits, no numbers. */
constexpr std::array<float, 16> oddPositions = { -1.0F,
                                                 -0.5F,
                                                 0.5F,
                                                 1.5F,
                                                 32766.5F,
                                                 32767.0F,
                                                 32767.5F,
                                                 32768.0F,
                                                 -32768.0F,
                                                 -32768.5F,
                                                 -32769.0F,
                                                 65535.0F,
                                                 1e10F,
                                                 -1e38F,
                                                 std::numeric_limits<float>::infinity(),
                                                 std::numeric_limits<float>::quiet_NaN() };
constexpr std::array<QSize, 8> pictureSizes = { QSize(400, 300),     QSize(0, 0),         QSize(1, 1),
                                                QSize(2, 9000),      QSize(32767, 32767), QSize(32768, 5),
                                                QSize(65500, 65500), QSize(100, 40000) };

/** What the link dialog does with a new area. */
enum class LinkAnswer { Accept, Close, None };
constexpr int linkAnswers = 3;

/** Where a figure's record must be painted by the time the drawing is at rest; nothing if it cannot be. */
std::optional<PaintedFigure> Painted(const FigureRecord& record, QSize picture)
{
    const auto clamp = [](int position, int size) {
        return static_cast<qint16>(position > size ? size : std::max(position, 0));
    };
    PaintedFigure figure = { record.Kind, record.X1, record.Y1, 0, 0, 0 };
    figure.x2 = clamp(record.X2, picture.width());
    figure.y2 = clamp(record.Y2, picture.height());
    if (record.Kind == kindCircle) {
        const int radius = std::abs(figure.y2) < std::abs(figure.x2) ? std::abs(figure.x2 - figure.x1)
                                                                     : std::abs(figure.y2 - figure.y1);
        if (radius > std::numeric_limits<qint16>::max()) {
            return std::nullopt;
        }
        figure.radius = static_cast<qint16>(radius);
    }
    return figure;
}

/** The editor without its windows, driven by the bytes of an input. */
class Editor
{
public:
    void Run(FuzzInput input);

private:
    void Step(FuzzInput& input);
    void Mouse(FuzzInput& input, int event);
    void DrawMany(FuzzInput& input);
    void OpenPicture(QSize size);
    void Reopen();
    void DiscardMap();
    void AnswerLink();
    void AcceptLink();

    void CheckStore() const;
    void CheckPolygons() const;
    void CheckScratch() const;
    void CheckPicture() const;
    static void CheckArea(const MapArea& area);

    static float Position(FuzzInput& input);

    /** What lives as long as one window of the editor. */
    struct Window
    {
        explicit Window(MapDocument& map)
            : display(map, view, view)
            , protocol(map, view, view, display)
        {
        }

        RecordingView view;
        FigureDisplay display;
        DrawingProtocol protocol;
    };

    [[nodiscard]] RecordingView& View() const { return window_->view; }
    [[nodiscard]] DrawingProtocol& Protocol() const { return window_->protocol; }

    MapDocument map_;
    FigureStore& store_ = map_.Ledger();
    std::unique_ptr<Window> window_ = std::make_unique<Window>(map_);
    LinkAnswer linkAnswer_ = LinkAnswer::Accept;
    bool isLinkPending_ = false;
    int drawingsLeft_ = 2 * FigureStore::capacity; ///< keeps a single input from taking seconds
    std::bitset<FigureStore::capacity> everEnds_;  ///< the sides that were the last of a polygon at some time
};

float Editor::Position(FuzzInput& input)
{
    // Mostly positions in and around the picture, halves among them.
    constexpr int oddOnes = 16;
    constexpr int plainOnes = 256 - oddOnes;
    const int byte = input.Byte();
    return byte < plainOnes ? float(byte) * 1.75F - 5.0F
                            : oddPositions[static_cast<std::size_t>(byte - plainOnes)];
}

void Editor::Run(FuzzInput input)
{
    View().onLink = [this] { isLinkPending_ = true; };
    while (!input.IsEmpty()) {
        Step(input);
        // The editor opens the dialog when the mouse event is through.
        AnswerLink();
        CheckStore();
        CheckPolygons();
        CheckScratch();
        CheckPicture();
        View().labelOrder.clear();
    }
}

void Editor::Step(FuzzInput& input)
{
    constexpr int mouseEvents = 10;
    const int event = input.Below(20);
    switch (event) {
    default:
        Mouse(input, event);
        break;
    case mouseEvents:
        Protocol().SelectTool(static_cast<DrawingTool>(kindRectangle + input.Below(3)));
        break;
    case mouseEvents + 1:
        Protocol().SelectTool(DrawingTool::Cursor);
        break;
    case mouseEvents + 2:
        map_.DeleteLastFigure();
        break;
    case mouseEvents + 3:
        map_.Clear();
        break;
    case mouseEvents + 4:
        linkAnswer_ = static_cast<LinkAnswer>(input.Below(linkAnswers));
        break;
    case mouseEvents + 5:
        OpenPicture(pictureSizes[static_cast<std::size_t>(input.Below(int(pictureSizes.size())))]);
        break;
    case mouseEvents + 6:
        DrawMany(input);
        break;
    case mouseEvents + 7:
        map_.Script().SetMode(static_cast<JSMode>(input.Below(int(jsModeTexts.size()))));
        break;
    case mouseEvents + 8:
        Reopen();
        break;
    case mouseEvents + 9:
        window_->display.RedrawFigures();
        break;
    }
}

void Editor::Mouse(FuzzInput& input, int event)
{
    constexpr std::array<int, 3> buttons = { leftButton, rightButton, middleButton };
    const float x = Position(input);
    const float y = Position(input);
    const int button = buttons[static_cast<std::size_t>(event / 3) % buttons.size()];
    const bool moves = event == 0 || event % 3 == 2;
    if (moves) {
        Protocol().MouseMove(x, y);
    }
    if (event % 3 != 0) {
        Protocol().MouseDown(button, x, y);
    }
    // The mouse is not heeded while the dialog opens.
    if (event != 0 && event % 3 != 1 && !isLinkPending_) {
        Protocol().MouseUp(button, x, y);
    }
}

/** Draws figures, or sides, one after the other; 500 of them fill the store. */
void Editor::DrawMany(FuzzInput& input)
{
    const int count = std::min(input.Byte() * 2, drawingsLeft_);
    drawingsLeft_ -= count;
    for (int index = 0; index < count; ++index) {
        const auto at = static_cast<float>(index % 250);
        Protocol().MouseDown(leftButton, at, 1);
        AnswerLink();
        Protocol().MouseMove(at + 7, at / 2);
        Protocol().MouseUp(leftButton, at + 7, at / 2);
        AnswerLink();
    }
}

void Editor::OpenPicture(QSize size)
{
    DiscardMap();
    map_.Drawing().GiveUp();
    View().picture = size;
}

/** Closes the editor's window and opens another over the same map. */
void Editor::Reopen()
{
    DiscardMap();
    map_.Drawing().GiveUp();
    window_ = std::make_unique<Window>(map_);
    View().onLink = [this] { isLinkPending_ = true; };
    map_.BeginEditing();
    Protocol().SelectTool(DrawingTool::Cursor);
}

void Editor::DiscardMap()
{
    if (store_.FigureCount > 0) {
        map_.Clear();
    }
}

void Editor::AnswerLink()
{
    if (!isLinkPending_) {
        return;
    }
    isLinkPending_ = false;
    if (linkAnswer_ == LinkAnswer::Accept) {
        AcceptLink();
    } else if (linkAnswer_ == LinkAnswer::Close) {
        map_.DiscardNewArea();
    }
}

void Editor::AcceptLink()
{
    LinkEntry entry;
    entry.Fields.fill(QStringLiteral("page.html"));
    const int end = store_.PolygonLineCount - 1;
    const bool isPolygon = store_.CurrentKind == kindLine;
    if (isPolygon && end >= 0) {
        everEnds_.set(static_cast<std::size_t>(end));
    }
    const qsizetype before = map_.Areas().size();
    map_.LinkNewArea(entry);
    if (map_.Areas().size() > before) {
        CheckArea(map_.Areas().constLast());
    }
    if (isPolygon) {
        Demand(store_.CurrentPolygonLineCount == 0, "a linked polygon is no longer the current one");
    }
}

void Editor::CheckArea(const MapArea& area)
{
    const qsizetype numbers = area.Coordinates.size();
    const bool isRight = area.Shape == AreaShape::Rectangle ? numbers == 4
                         : area.Shape == AreaShape::Circle  ? numbers == 3
                                                            : numbers >= 4 && numbers % 2 == 0;
    Demand(isRight, "an area has as many coordinates as its shape takes");
}

void Editor::CheckStore() const
{
    Demand(store_.FigureCount >= 0 && store_.FigureCount <= FigureStore::capacity, "the figures have room");
    Demand(
        store_.PolygonLineCount >= 0 && store_.PolygonLineCount <= store_.FigureCount,
        "every side is a figure");
    int others = 0;
    for (int i = 0; i < store_.FigureCount; ++i) {
        const qint16 kind = store_.Figures[i].Kind;
        Demand(kind >= kindRectangle && kind <= kindLine, "a figure is of a known kind");
        others += kind == kindLine ? 0 : 1;
    }
    Demand(others <= store_.FigureCount - store_.PolygonLineCount, "a rectangle or circle is no side");
}

void Editor::CheckPolygons() const
{
    for (int i = 0; i < store_.PolygonLineCount; ++i) {
        const bool wasEverEnd = everEnds_[static_cast<std::size_t>(i)];
        Demand(store_.PolygonLines[i].Kind == kindLine, "a side is a line");
        Demand(store_.PolygonLines[i].Link.isEmpty() || wasEverEnd, "only a polygon's last side is marked");
    }
    // The first slot keeps its mark when the store is emptied.
    for (int i = std::max(store_.PolygonLineCount, 1); i < store_.PolygonLines.size(); ++i) {
        Demand(store_.PolygonLines[i].Link.isEmpty(), "a freed side has lost its mark");
    }
    Demand(store_.CurrentPolygonLineCount >= 0, "the current polygon has sides or none");
    const int current = std::min(store_.CurrentPolygonLineCount, FigureStore::capacity);
    for (int i = 0; i < current; ++i) {
        Demand(store_.CurrentPolygon[i].Kind == kindLine, "a side of the current polygon is a line");
    }
}

void Editor::CheckScratch() const
{
    Demand(store_.DrawState >= drawIdle && store_.DrawState <= drawMoving, "the drawing state is known");
    Demand(store_.CurrentRadius >= 0, "a radius is not negative");
    const bool isDrawing = store_.DrawState != drawIdle;
    Demand(!isDrawing || store_.FigureCount < FigureStore::capacity, "what is begun has room");
    Demand(isDrawing || !View().rubber, "nothing follows the mouse while nothing is drawn");
    Demand(!isDrawing || View().areCommandsEnabled, "what is begun can be given up");
    Demand(store_.FigureCount == 0 || View().areCommandsEnabled, "what is drawn can be deleted");
    Demand(store_.FigureCount > 0 || isDrawing || !View().areCommandsEnabled, "nothing cannot be deleted");
    const QString figures = View().Figures();
    Demand(
        figures.isEmpty() || figures == QString::number(store_.FigureCount), "the figures shown are counted");
}

void Editor::CheckPicture() const
{
    qsizetype next = 0;
    for (int i = 0; i < store_.FigureCount; ++i) {
        const std::optional<PaintedFigure> figure = Painted(store_.Figures[i], View().picture);
        if (figure) {
            Demand(next < View().painted.size() && View().painted[next] == *figure, "each figure is painted");
            ++next;
        }
    }
    Demand(next == View().painted.size(), "nothing else is painted");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const auto editor = std::make_unique<Editor>();
    editor->Run(FuzzInput(BytesOf(data, size)));
    return 0;
}
