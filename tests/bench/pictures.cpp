// Costs of drawing on a picture: at 1, 24 and 100 megapixels, with no figures and with as many as there can
// be.

#include "imagemap/PictureSurface.h"
#include "imagemap/frmImageMap.h"
#include "imagemap/picture/PictureFile.h"
#include "tests/bench/Bench.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/FakePage.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingHelp.h"

#include <QApplication>
#include <QDialog>
#include <QImage>
#include <QImageReader>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <random>

namespace {

struct Size
{
    QSize pixels;
    const char* name;
};
constexpr Size sizes[] = { { { 1000, 1000 }, "1 MP" },
                           { { 6000, 4000 }, "24 MP" },
                           { { 12500, 8000 }, "100 MP" } };
constexpr int mostFigures = 500;
/** Larger pictures take too long where instructions are counted. */
constexpr int mostCountedWidth = 6000;
/** As much of a picture as an editor shows at once. */
constexpr QSize shownPart(800, 600);

class NoDocument : public FakePage
{
public:
    int InsertAtCaret(const QString&) override { return 1; }
};

/** A picture with as much detail as a photograph, so that its decoding is no special case. */
QImage MakePicture(QSize size)
{
    constexpr int grain = 15;
    QImage picture(size, QImage::Format_RGB32);
    std::minstd_rand random;
    for (int y = 0; y < size.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            const int noise = int(random() & grain);
            line[x] = qRgb(x / 16 % 240 + noise, y / 16 % 240 + noise, (x + y) / 32 % 240 + noise);
        }
    }
    return picture;
}

/** An image map editor with a picture and, in the store, some figures. */
class Editor
{
public:
    Editor(QSize size, int figures)
        : window_(new frmImageMap(folder_.imgMap, folder_.map, document_, help_, nullptr))
    {
        const QString path = folder_.Path(QStringLiteral("picture.jpg"));
        MakePicture(size).save(path, "jpg", 90);
        ForgetPeak();
        window_->Form_Load();
        window_->show();
        DialogRobot robot;
        robot.ChooseFile(path);
        window_->OpenImage();
        surface_ = window_->findChild<PictureSurface*>();
        AddFigures(figures, size);
        window_->SelectTool<DrawingTool::Rectangle>();
        QCoreApplication::processEvents();
    }
    ~Editor()
    {
        folder_.map.Ledger().FigureCount = 0;
        window_->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Q_DISABLE_COPY_MOVE(Editor)

    /** CPU seconds from letting go of the mouse until the figure is drawn and stored. */
    double Commit()
    {
        Press();
        Send(QEvent::MouseMove, { 200, 150 });
        const double seconds = SecondsOnce([this] { Send(QEvent::MouseButtonRelease, { 200, 150 }); });
        // The link dialog comes up, and closing it takes the figure back.
        if (!QTest::qWaitFor([this] { return window_->findChild<QDialog*>() != nullptr; })) {
            qFatal("the link dialog does not open");
        }
        window_->findChild<QDialog*>()->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCoreApplication::processEvents();
        return seconds;
    }

    /** CPU seconds for taking the last figure back; it is there again afterwards. */
    double DeleteLast()
    {
        FigureStore& store = folder_.map.Ledger();
        const int count = store.FigureCount;
        const double seconds = SecondsOnce([this] { window_->DeleteLastFigure(); });
        store.FigureCount = count;
        return seconds;
    }

    /** Starts a rectangle; from then on every move is a step of the rubber band. */
    void Press() { Send(QEvent::MouseButtonPress, { 40, 40 }); }

    void RubberSteps(int count)
    {
        for (int i = 0; i < count; ++i) {
            Send(QEvent::MouseMove, { 200 + i % 50, 150 + i % 40 });
            QCoreApplication::processEvents();
        }
    }

    /** Shows all figures again, as after one of them was taken off. */
    void Repaint()
    {
        Q_EMIT folder_.map.FiguresRemoved();
        surface_->repaint();
    }
    void Clear()
    {
        surface_->ShowFigures({});
        surface_->repaint();
    }
    void EndDrawing() { folder_.map.Drawing().GiveUp(); }

private:
    void Send(QEvent::Type type, QPoint place)
    {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, surface_->mapToGlobal(place), button, Qt::LeftButton, {});
        QCoreApplication::sendEvent(surface_, &event);
    }

    void AddFigures(int count, QSize size);

    ProgramFolder folder_;
    NoDocument document_;
    RecordingHelp help_;
    frmImageMap* window_;
    PictureSurface* surface_ = nullptr;
};

/** The `i`-th figure of a picture well filled with them; the same ones in every run. */
FigureRecord FigureAt(int i, QSize size)
{
    const int x = i * 37 % (size.width() - 200);
    const int y = i * 53 % (size.height() - 200);
    FigureRecord figure;
    figure.Kind = qint16(kindRectangle + i % 3);
    figure.X1 = qint16(x);
    figure.Y1 = qint16(y);
    figure.X2 = qint16(x + 60 + i % 90);
    figure.Y2 = qint16(y + 60 + i % 70);
    figure.Radius = qint16(60 + i % 70);
    return figure;
}

void Editor::AddFigures(int count, QSize size)
{
    FigureStore& store = folder_.map.Ledger();
    for (int i = 0; i < count; ++i) {
        store.Figures[i] = FigureAt(i, size);
    }
    store.FigureCount = count;
    Q_EMIT folder_.map.FiguresRemoved();
}

/** What a painter takes for the same figures, without a program around it. */
void PaintBare(QImage& drawing, int count)
{
    QPainter painter(&drawing);
    for (int i = 0; i < count; ++i) {
        const FigureRecord figure = FigureAt(i, drawing.size());
        if (figure.Kind == kindRectangle) {
            painter.drawRect(figure.X1, figure.Y1, figure.X2 - figure.X1, figure.Y2 - figure.Y1);
        } else if (figure.Kind == kindCircle) {
            painter.drawEllipse(QPoint(figure.X1, figure.Y1), figure.Radius, figure.Radius);
        } else {
            painter.drawLine(figure.X1, figure.Y1, figure.X2, figure.Y2);
        }
    }
}

void BenchOpening()
{
    const ProgramFolder folder;
    const QString path = folder.Path(QStringLiteral("picture.jpg"));
    MakePicture(sizes[1].pixels).save(path, "jpg", 90);
    PictureSurface surface;
    surface.show();
    QCoreApplication::processEvents();
    const Cost opened = CostOf([&surface, &path] {
        surface.SetPicture(LoadPicture(path));
        surface.resize(shownPart);
        surface.repaint();
    });
    const Cost decoded = CostOf([&path] { (void)QImageReader(path).read(); });
    PrintRow(QStringLiteral("open a JPEG of 24 MP; decode it"), opened, decoded, 1.3);
}

/** Rows of the costs that may not grow with picture or figures; `bare` has one megapixel and no figures. */
void BenchDrawing(const Size& size, int figures, Editor& bare)
{
    constexpr int steps = 100;
    const QString where =
        QStringLiteral(" at %1 with %2 figures").arg(QString::fromLatin1(size.name)).arg(figures);
    Editor editor(size.pixels, figures);
    const Cost bareCommit = CostOfTimed([&bare] { return bare.Commit(); });
    bare.Press();
    const Cost bareStep = CostOf([&bare] { bare.RubberSteps(steps); }, steps);
    bare.EndDrawing();
    editor.Press();
    PrintRow(
        QStringLiteral("rubber-band step") + where + QStringLiteral("; at 1 MP with none"),
        CostOf([&editor] { editor.RubberSteps(steps); }, steps), bareStep, 2);
    editor.EndDrawing();

    QImage drawing = MakePicture(size.pixels);
    PrintRow(
        QStringLiteral("commit a figure") + where + QStringLiteral("; at 1 MP with none"),
        CostOfTimed([&editor] { return editor.Commit(); }), bareCommit, 3);
    if (figures > 0) {
        const Cost painted = CostOf([&drawing, figures] {
            QImage copy = drawing;
            PaintBare(copy, figures);
        });
        PrintRow(
            QStringLiteral("paint all again") + where + QStringLiteral("; painter calls on a copy"),
            CostOf([&editor] { editor.Repaint(); }), painted, 3);
        PrintRow(
            QStringLiteral("delete the last") + where + QStringLiteral("; painter calls on a copy"),
            CostOfTimed([&editor] { return editor.DeleteLast(); }), painted, 3);
    }
    const Cost copied = CostOf([&drawing] { (void)drawing.copy(); });
    PrintRow(
        QStringLiteral("clear the drawing") + where + QStringLiteral("; copy the picture"),
        CostOf([&editor] { editor.Clear(); }), copied, 1);
}

} // namespace

void BenchPictures()
{
    BenchOpening();
    Editor bare(sizes[0].pixels, 0);
    for (const Size& size : sizes) {
        if (IsCounting() && size.pixels.width() > mostCountedWidth) {
            continue;
        }
        BenchDrawing(size, 0, bare);
        BenchDrawing(size, mostFigures - 1, bare);
    }
}
