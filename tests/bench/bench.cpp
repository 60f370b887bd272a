// Prints how the program's costs compare with their baselines, measured in the same run. Not a test: the
// machine's mood must not fail a build. Run it offscreen: QT_QPA_PLATFORM=offscreen cartolen-bench

#include "app/SourceEditor.h"
#include "imagemap/PictureSurface.h"
#include "imagemap/frmImageMap.h"
#include "shared/DocumentSink.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingHelp.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <functional>

namespace {

constexpr int rounds = 15;
constexpr double megabyte = 1024.0 * 1024.0;
constexpr QSize smallPicture(1000, 1000);
constexpr QSize largePicture(6000, 4000);

class NoDocument : public DocumentSink
{
public:
    void InsertAtCaret(const QString&) override {}
};

/** Median seconds of one call of `work`, which does `count` steps a call. */
double SecondsOf(const std::function<void()>& work, int count = 1)
{
    work();
    QList<double> seconds;
    for (int i = 0; i < rounds; ++i) {
        QElapsedTimer timer;
        timer.start();
        work();
        seconds << double(timer.nsecsElapsed()) / 1e9 / count;
    }
    std::sort(seconds.begin(), seconds.end());
    return seconds[seconds.size() / 2];
}

void PrintRow(const char* what, double value, double baseline, double target)
{
    std::printf(
        "%-64s %10.3f ms %10.3f ms %7.2fx  (at most %.1fx)\n", what, value * 1e3, baseline * 1e3,
        value / baseline, target);
}

double PeakMegabytes()
{
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly)) {
        return 0;
    }
    const QByteArray text = status.readAll();
    const qsizetype start = text.indexOf("VmHWM:") + 6;
    return text.mid(start, text.indexOf("kB", start) - start).trimmed().toDouble() / 1024.0;
}

void ForgetPeak()
{
    QFile file(QStringLiteral("/proc/self/clear_refs"));
    if (file.open(QIODevice::WriteOnly)) {
        file.write("5");
    }
}

/** A picture with enough detail that neither its decoding nor its copying is a special case. */
QImage MakePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* const line = reinterpret_cast<QRgb*>(picture.scanLine(y));
        for (int x = 0; x < size.width(); ++x) {
            line[x] = qRgb(x / 16 % 256, y / 16 % 256, (x + y) / 32 % 256);
        }
    }
    return picture;
}

/** An image map editor with a picture and, in the store, some figures. */
class Editor
{
public:
    Editor(QSize size, int figures)
        : window_(new frmImageMap(folder_.imgMap, document_, help_, nullptr))
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
        window_->SelectRectangle();
        QCoreApplication::processEvents();
    }
    ~Editor()
    {
        folder_.imgMap.Store.FigureCount = 0;
        window_->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    Q_DISABLE_COPY_MOVE(Editor)

    /** Starts a rectangle; from then on every move is a step of the rubber band. */
    void Press() { Send(QEvent::MouseButtonPress, { 40, 40 }); }

    void RubberSteps(int count)
    {
        for (int i = 0; i < count; ++i) {
            Send(QEvent::MouseMove, { 200 + i % 50, 150 + i % 40 });
            QCoreApplication::processEvents();
        }
    }

    void Repaint() { window_->RepaintFigures(); }
    void Clear() { surface_->ClearDrawing(); }

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
    FigureStore& store = folder_.imgMap.Store;
    for (int i = 0; i < count; ++i) {
        store.Figures[std::size_t(i)] = FigureAt(i, size);
    }
    store.FigureCount = count;
    window_->RepaintFigures();
}

void BenchMemory()
{
    const Editor editor(largePicture, 500);
    const double decoded = largePicture.width() * largePicture.height() * 4 / megabyte;
    std::printf(
        "%-64s %10.0f MB %10.0f MB %7.2fx  (at most %.0f MB)\n",
        "peak memory with 24 megapixels open; its pixels", PeakMegabytes(), decoded,
        PeakMegabytes() / decoded, 2.5 * decoded + 60);
}

void BenchRubberBand()
{
    constexpr int steps = 200;
    Editor large(largePicture, 499);
    large.Press();
    const double withFigures = SecondsOf([&large] { large.RubberSteps(steps); }, steps);
    Editor small(smallPicture, 0);
    small.Press();
    const double bare = SecondsOf([&small] { small.RubberSteps(steps); }, steps);
    PrintRow("rubber-band step, 24 megapixels and 499 figures; 1 and none", withFigures, bare, 2);
}

void BenchRedraw(QSize size, const char* what)
{
    constexpr int count = 500;
    Editor editor(size, count);
    const double repaint = SecondsOf([&editor] { editor.Repaint(); });
    const QImage picture = MakePicture(size);
    const double bare = SecondsOf([&picture, size] {
        QImage drawing = picture;
        QPainter painter(&drawing);
        for (int i = 0; i < count; ++i) {
            const FigureRecord figure = FigureAt(i, size);
            if (figure.Kind == kindRectangle) {
                painter.drawRect(figure.X1, figure.Y1, figure.X2 - figure.X1, figure.Y2 - figure.Y1);
            } else if (figure.Kind == kindCircle) {
                painter.drawEllipse(QPoint(figure.X1, figure.Y1), figure.Radius, figure.Radius);
            } else {
                painter.drawLine(figure.X1, figure.Y1, figure.X2, figure.Y2);
            }
        }
    });
    PrintRow(what, repaint, bare, 3);
}

void BenchClear()
{
    Editor editor(largePicture, 500);
    const double clear = SecondsOf([&editor] { editor.Clear(); });
    const QImage picture = MakePicture(largePicture);
    const double copy = SecondsOf([&picture] { (void)picture.copy(); });
    PrintRow("clear the drawing of 24 megapixels; copy the picture", clear, copy, 1);
}

/** Seconds a key costs on a line of its own in the middle of `text`, from the event to the painted editor. */
double SecondsOfKey(const QString& text)
{
    constexpr int keys = 100;
    SourceEditor editor;
    editor.resize(700, 500);
    editor.LoadText(text);
    editor.show();
    editor.Select(editor.TextLength() / 2, 0);
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClick(&editor, Qt::Key_Return);
    QCoreApplication::processEvents();
    return SecondsOf(
        [&editor] {
            for (int i = 0; i < keys; ++i) {
                QTest::keyClick(&editor, Qt::Key_X);
                if (i % 40 == 0) {
                    QTest::keyClick(&editor, Qt::Key_Return);
                }
                QCoreApplication::processEvents();
            }
        },
        keys);
}

void BenchTyping()
{
    const QString line = QStringLiteral("<p>Some text that a page is made of, long enough.</p>\r\n");
    const double large = SecondsOfKey(line.repeated(int(50 * megabyte) / int(line.size())));
    PrintRow("a key in a document of 50 MB; in an empty one", large, SecondsOfKey(QString()), 2);
}

/** A document open in an editor, with the caret in its middle; remembers what was put in last. */
class OpenDocument : public DocumentSink
{
public:
    explicit OpenDocument(const QString& text)
    {
        source_.resize(700, 500);
        source_.LoadText(text);
        source_.show();
        source_.Select(source_.TextLength() / 2, 0);
        QCoreApplication::processEvents();
    }

    void InsertAtCaret(const QString& text) override
    {
        inserted = text;
        source_.ReplaceSelection(text);
        QCoreApplication::processEvents();
    }

    QString inserted;

private:
    SourceEditor source_;
};

/** Puts `count` linked areas into the list of an editor. */
void AppendAreas(frmImageMap& editor, int count)
{
    for (int i = 0; i < count; ++i) {
        editor.AppendArea({ .Text = QStringLiteral(" No: %1 Rectangle").arg(i + 1),
                            .Link = QStringLiteral("area%1.htm").arg(i),
                            .Target = QStringLiteral("_blank"),
                            .Coordinates = QStringLiteral("%1, %2, 400, 300").arg(i % 300).arg(i % 200),
                            .Message = QStringLiteral("What there is to see in area %1").arg(i),
                            .SmallIcon = 1 });
    }
}

void BenchInsert()
{
    constexpr int areas = 500;
    const QString line = QStringLiteral("<p>Some text that a page is made of, long enough.</p>\r\n");
    const QString text = line.repeated(int(10 * megabyte) / int(line.size()));
    ProgramFolder folder;
    folder.imgMap.Mode = JSTextArea;
    OpenDocument page(text);
    RecordingHelp help;
    auto* const editor = new frmImageMap(folder.imgMap, page, help, nullptr);
    editor->Form_Load();
    AppendAreas(*editor, areas);
    const double generated = SecondsOf([editor] { editor->GenerateMap(); });
    OpenDocument otherPage(text);
    const double finished =
        SecondsOf([&page, &otherPage] { otherPage.InsertAtCaret(QString(page.inserted)); });
    PrintRow("generate and insert 500 areas in 10 MB; insert the finished text", generated, finished, 3);
    delete editor;
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    std::printf("%-64s %13s %13s\n", "what; baseline", "measured", "baseline");
    BenchMemory();
    BenchRubberBand();
    BenchRedraw(smallPicture, "paint 500 figures again on 1 megapixel; bare painter calls");
    BenchRedraw(largePicture, "paint 500 figures again on 24 megapixels; bare painter calls");
    BenchClear();
    BenchTyping();
    BenchInsert();
    return 0;
}
