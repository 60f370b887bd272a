// Costs of changing areas and of looking closer: 500 areas of 100 corners each, 24 and 100 megapixels.

#include "imagemap/PicturePane.h"
#include "imagemap/ZoomedPicture.h"
#include "imagemap/frmImageMap.h"
#include "imagemap/model/AreaGeometry.h"
#include "tests/bench/Bench.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/FakePage.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingHelp.h"

#include <QApplication>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <cmath>
#include <malloc.h>
#include <numbers>

namespace {

constexpr int manyAreas = 500;
constexpr int manyCorners = 100;
constexpr QSize smallPicture(1000, 800);
/** Pictures of that width take too long where instructions are counted. */
constexpr int mostCounted = 6000;

/** What may be taken for one picture of a movement, for a step of zooming and for one of shifting. */
const Cost frameTime = { .seconds = 1 / 60.0 };
const Cost zoomTime = { .seconds = 0.050 };
const Cost panTime = { .seconds = 0.016 };
constexpr double zoomMegabytes = 32;

MapArea StarAt(int number)
{
    MapArea star;
    star.Shape = AreaShape::Polygon;
    star.Link = QStringLiteral("page%1.htm").arg(number);
    const QPointF middle(60 + number * 37 % 880, 60 + number * 53 % 680);
    for (int i = 0; i < manyCorners; ++i) {
        const double radius = i % 2 == 0 ? 50 : 30;
        const double angle = 2 * std::numbers::pi * i / manyCorners;
        star.Coordinates << int(std::lround(middle.x() + radius * std::cos(angle)))
                         << int(std::lround(middle.y() + radius * std::sin(angle)));
    }
    return star;
}

MapAreas Stars()
{
    MapAreas stars;
    for (int i = 0; i < manyAreas; ++i) {
        stars << StarAt(i);
    }
    return stars;
}

QPolygon PolygonOf(const MapArea& area)
{
    QPolygon polygon;
    for (qsizetype i = 0; i + 1 < area.Coordinates.size(); i += 2) {
        polygon << QPoint(area.Coordinates[i], area.Coordinates[i + 1]);
    }
    return polygon;
}

/** An image map editor with a grey picture. */
class AreaEditor
{
public:
    explicit AreaEditor(QSize size)
        : window_(new frmImageMap(folder_.imgMap, folder_.map, page_, help_, nullptr))
    {
        {
            QImage picture(size, QImage::Format_RGB32);
            picture.fill(Qt::gray);
            picture.save(folder_.Path(QStringLiteral("picture.jpg")), "jpg", 50);
        }
        window_->Form_Load();
        window_->show();
        DialogRobot robot;
        robot.ChooseFile(folder_.Path(QStringLiteral("picture.jpg")));
        window_->OpenImage();
        pane_ = window_->findChild<PicturePane*>();
        QCoreApplication::processEvents();
    }
    ~AreaEditor()
    {
        folder_.map.Clear();
        window_->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Q_DISABLE_COPY_MOVE(AreaEditor)

    [[nodiscard]] PicturePane& Pane() { return *pane_; }

    /** Makes the window large enough for the whole picture to be seen. */
    void SeeAll()
    {
        const auto* const view = pane_->findChild<QWidget*>(QStringLiteral("PicNosac"));
        window_->resize(window_->size() + pane_->Surface().size() - view->size());
        QCoreApplication::processEvents();
        window_->resize(window_->size() + pane_->Surface().size() - view->size());
        QCoreApplication::processEvents();
        if (pane_->Surface().visibleRegion().boundingRect().size() != pane_->Surface().size()) {
            qFatal("some of the picture is out of sight");
        }
    }

    void HoldAllStars()
    {
        folder_.map.ChangeAreas(Stars(), QStringLiteral("made"));
        window_->findChild<QAction*>(QStringLiteral("mnuASelectAll"))->trigger();
        QCoreApplication::processEvents();
        HoldStars();
    }
    void HoldStars()
    {
        start_ = BoundsOf(folder_.map.Areas().constFirst()).center();
        Send(QEvent::MouseButtonPress, start_);
    }

    /** One movement of the mouse that holds them, and what is painted of it. */
    void MoveStars()
    {
        ++step_;
        Send(QEvent::MouseMove, start_ + QPoint(step_ % 9 - 4, step_ % 7 - 3));
        QCoreApplication::processEvents();
    }
    void LetGo() { Send(QEvent::MouseButtonRelease, start_); }

    void ShowAreas() { window_->findChild<QAction*>(QStringLiteral("mnuVAreas"))->trigger(); }
    void Repaint() { pane_->Surface().repaint(); }

    void ZoomTo(double zoom)
    {
        pane_->SetZoom(zoom);
        QCoreApplication::processEvents();
    }

    /** Shifts the picture by some pixels. */
    void Pan()
    {
        ++step_;
        auto* const across = pane_->findChild<QScrollBar*>(QStringLiteral("HScroll1"));
        auto* const down = pane_->findChild<QScrollBar*>(QStringLiteral("VScroll1"));
        across->setValue(across->maximum() / 2 + step_ * 7 % 100);
        down->setValue(down->maximum() / 2 + step_ * 11 % 100);
        QCoreApplication::processEvents();
    }

private:
    void Send(QEvent::Type type, QPoint place)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        PictureSurface& surface = pane_->Surface();
        QMouseEvent event(type, place, surface.mapToGlobal(QPointF(place)), button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&surface, &event);
    }

    ProgramFolder folder_;
    FakePage page_;
    RecordingHelp help_;
    frmImageMap* window_;
    PicturePane* pane_ = nullptr;
    QPoint start_;
    int step_ = 0;
};

void BenchHitTest()
{
    constexpr int places = 1000;
    const MapAreas stars = Stars();
    QList<QPolygon> polygons;
    for (const MapArea& star : stars) {
        polygons << PolygonOf(star);
    }
    // Where nothing is, every area has to be asked.
    const auto place = [](int i) { return QPoint(i * 7 % 40, i * 11 % 40 + 760); };
    qsizetype hits = 0;
    const Cost ours = CostOf(
        [&] {
            for (int i = 0; i < places; ++i) {
                hits += AreasAt(stars, place(i)).size();
            }
        },
        places);
    const Cost bare = CostOf(
        [&] {
            for (int i = 0; i < places; ++i) {
                for (const QPolygon& polygon : polygons) {
                    hits += polygon.containsPoint(place(i), Qt::OddEvenFill) ? 1 : 0;
                }
            }
        },
        places);
    PrintRow(QStringLiteral("hit test in 500 areas of 100 corners; QPolygon"), ours, bare, 1);
    if (hits == -1) {
        qFatal("never");
    }
}

void BenchMoving()
{
    constexpr int steps = 20;
    AreaEditor editor(smallPicture);
    editor.SeeAll();
    editor.HoldAllStars();
    const auto move = [&editor] {
        for (int i = 0; i < steps; ++i) {
            editor.MoveStars();
        }
    };
    const Cost moved = CostOf(move, steps);
    editor.LetGo();
    const MapAreas stars = Stars();
    QImage canvas(smallPicture, QImage::Format_RGB32);
    const Cost painted = CostOf([&] {
        QPainter painter(&canvas);
        painter.setBrush(QColor(0, 0, 255, 40));
        for (const MapArea& star : stars) {
            painter.drawPolygon(PolygonOf(star));
        }
    });
    PrintRow(
        QStringLiteral("move 500 areas of 100 corners by a step; a 60th of a second"), moved, frameTime, 1);
    PrintRow(QStringLiteral("move 500 areas of 100 corners by a step; paint polygons"), moved, painted, 3);
    editor.ShowAreas();
    editor.HoldStars();
    PrintRow(
        QStringLiteral("move them while all areas are shown; a 60th of a second"), CostOf(move, steps),
        frameTime, 1);
    editor.LetGo();
    PrintRow(
        QStringLiteral("repaint 500 areas shown whole; paint polygons"),
        CostOf([&editor] { editor.Repaint(); }), painted, 3);
}

/** Most memory while `work` is done, in megabytes. */
double PeakOf(const std::function<void()>& work)
{
    ForgetPeak();
    work();
    return PeakMegabytes();
}

void BenchZooming(QSize size, const QString& name)
{
    constexpr int steps = 12;
    AreaEditor editor(size);
    const auto pan = [&editor] {
        for (int i = 0; i < steps; ++i) {
            editor.Pan();
        }
    };
    const Cost zoomed = CostOf(
        [&editor] {
            // Through all there are, and back to where it began.
            for (int i = 0; i < steps; ++i) {
                editor.ZoomTo(zoomSteps[std::size_t(i) % zoomSteps.size()] / 100.0);
            }
        },
        steps);
    PrintRow(QStringLiteral("zoom step at ") + name + QStringLiteral("; 50 ms"), zoomed, zoomTime, 1);
    for (const double zoom : { 0.25, 1.0, 8.0, greatestZoom }) {
        editor.ZoomTo(zoom);
        PrintRow(
            QStringLiteral("pan step at ") + name + QStringLiteral(" and %1 %; 16 ms").arg(zoom * 100),
            CostOf(pan, steps), panTime, 1);
    }
    editor.ZoomTo(1);
    const double plain = PeakOf(pan);
    const double closest = PeakOf([&] {
        editor.ZoomTo(greatestZoom);
        pan();
    });
    PrintMemoryRow(
        QStringLiteral("memory at 3,200 % of ") + name + QStringLiteral("; at 100 % and 32 MB"), closest,
        plain + zoomMegabytes);
}

double AllocatedMegabytes()
{
    const struct mallinfo2 info = mallinfo2();
    return double(info.uordblks + info.hblkhd) / megabyte;
}

/** What 1,000 steps of undo take, beside the areas of 1,000 maps. */
void BenchHistory()
{
    constexpr int steps = 1000;
    const double before = AllocatedMegabytes();
    MapDocument map;
    MapAreas stars = Stars();
    map.ChangeAreas(stars, QStringLiteral("made"));
    map.History().Forget();
    const double empty = AllocatedMegabytes();
    for (int i = 0; i < steps; ++i) {
        stars[i % manyAreas] = Moved(stars[i % manyAreas], { 1, 0 });
        map.ChangeAreas(stars, QStringLiteral("Move of an Area"));
    }
    const double kept = AllocatedMegabytes() - empty;
    PrintMemoryRow(
        QStringLiteral("1,000 steps of undo with 500 areas; 1,000 times the map"), kept,
        steps * (empty - before));
}

} // namespace

void BenchAreas()
{
    BenchHitTest();
    BenchMoving();
    BenchZooming({ mostCounted, 4000 }, QStringLiteral("24 MP"));
    if (!IsCounting()) {
        BenchZooming({ 12500, 8000 }, QStringLiteral("100 MP"));
        BenchHistory();
    }
}
