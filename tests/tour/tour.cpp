// Plays the program's main job with its real windows, driven by mouse and key events: from a picture through
// a rectangle, a circle and a polygon with their links to a page that holds the map and is saved.
//
// cartolen-tour FOLDER PICTURE leaves the page and a screenshot of every step in FOLDER.

#include "app/Startup.h"
#include "shared/AnsiCodePage.h"
#include "tests/support/DialogRobot.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPixmap>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QToolBar>
#include <cstdio>
#include <stdexcept>

namespace {

constexpr int patience = 15000;

constexpr int rectangleButton = 5;
constexpr int circleButton = 6;
constexpr int lineButton = 7;
constexpr int openImageButton = 3;
constexpr int insertButton = 16;

void Check(bool holds, const QString& what)
{
    if (!holds) {
        throw std::runtime_error(what.toStdString());
    }
}

void Say(const QString& text)
{
    std::printf("%s\n", qPrintable(text));
    std::fflush(stdout);
}

class Tour
{
public:
    Tour(const QString& folder, const QString& picture)
        : folder_(folder)
        , picture_(QFileInfo(picture).absoluteFilePath())
        , startup_(imgMap_)
    {
    }

    void Play()
    {
        PrepareFolder();
        StartProgram();
        WritePageFrame();
        OpenPicture();
        DrawRectangle();
        DrawCircle();
        DrawPolygon();
        InsertMap();
        SavePage();
        CheckPage();
    }

private:
    void PrepareFolder()
    {
        Check(QFile::exists(picture_), u"there is no picture " + picture_);
        Check(
            folder_.mkpath(QStringLiteral("Data")) && folder_.mkpath(QStringLiteral("Temp")),
            u"cannot make the folder " + folder_.path());
        for (const QString& old : folder_.entryList({ QStringLiteral("*.png"), QStringLiteral("*.htm") })) {
            folder_.remove(old);
        }
        imgMap_.ProgramFolder = folder_.absolutePath();
    }

    void StartProgram()
    {
        startup_.Begin();
        QWidget* const splash = WaitForWindow(QStringLiteral("frmSplash"));
        Shoot(*splash, QStringLiteral("splash"));
        main_ = WaitForWindow(QStringLiteral("frmIMmain"));
        source_ = Find<QPlainTextEdit>(*main_, QStringLiteral("MapsText1"));
        main_->activateWindow();
        Check(QTest::qWaitForWindowActive(main_), QStringLiteral("the main window does not become active"));
        source_->setFocus();
    }

    void WritePageFrame()
    {
        for (const char* const line :
             { "<html>", "<head><title>Harbour</title></head>", "<body>", "", "</body>" }) {
            QTest::keyClicks(source_, QString::fromLatin1(line));
            QTest::keyClick(source_, Qt::Key_Return);
        }
        QTest::keyClicks(source_, QStringLiteral("</html>"));
        QTest::keyClick(source_, Qt::Key_Up);
        QTest::keyClick(source_, Qt::Key_Up);
        QTest::keyClick(source_, Qt::Key_Home);
        Shoot(*main_, QStringLiteral("page"));
    }

    void OpenPicture()
    {
        QTest::keyClick(source_, Qt::Key_I, Qt::ControlModifier);
        editor_ = WaitForWindow(QStringLiteral("frmImageMap"));
        Shoot(*editor_, QStringLiteral("editor"));
        robot_.ChooseFile(picture_);
        ClickToolbar(openImageButton);
        FinishDialogs();
        surface_ = Find<QWidget>(*editor_, QStringLiteral("PictureDisplay"));
        const QImage expected = QImageReader(picture_).read();
        Check(
            surface_->width() > 0 &&
                surface_->width() * surface_->height() == expected.width() * expected.height(),
            QStringLiteral("the picture is not shown"));
        const QSize view = surface_->parentWidget()->size();
        visible_ = surface_->size().boundedTo(view);
        Shoot(*editor_, QStringLiteral("picture"));
    }

    void DrawRectangle()
    {
        ClickToolbar(rectangleButton);
        const QPoint from = At(8, 15);
        const QPoint to = At(32, 80);
        LinkNextFigure(QStringLiteral("rectangle"), QStringLiteral("house.htm"), QStringLiteral("_top"));
        Press(Qt::LeftButton, from);
        Drag(from, to);
        Release(Qt::LeftButton, to);
        FinishDialogs();
        areas_ += QStringLiteral(
                      "<AREA SHAPE=RECT COORDS=\"%1, %2, %3, %4\" HREF=\"house.htm\" TARGET=\"_top\">\r\n")
                      .arg(from.x())
                      .arg(from.y())
                      .arg(to.x())
                      .arg(to.y());
    }

    void DrawCircle()
    {
        ClickToolbar(circleButton);
        const QPoint centre = At(50, 40);
        const QPoint rim = centre + QPoint(At(12, 0).x(), 3);
        LinkNextFigure(QStringLiteral("circle"), QStringLiteral("sun.htm"), QString());
        Press(Qt::LeftButton, centre);
        Drag(centre, rim);
        Release(Qt::LeftButton, rim);
        FinishDialogs();
        // The radius is the horizontal distance where the rim lies further right than down, else the
        // vertical.
        const int radius = rim.y() < rim.x() ? rim.x() - centre.x() : rim.y() - centre.y();
        areas_ += QStringLiteral("<AREA SHAPE=CIRCLE COORDS=\"%1, %2, %3\" HREF=\"sun.htm\">\r\n")
                      .arg(centre.x())
                      .arg(centre.y())
                      .arg(radius);
    }

    void DrawPolygon()
    {
        ClickToolbar(lineButton);
        const QList<QPoint> corners = { At(70, 85), At(80, 25), At(90, 85), At(80, 92) };
        LinkNextFigure(QStringLiteral("polygon"), QStringLiteral("boat.htm"), QString());
        Press(Qt::LeftButton, corners[0]);
        Release(Qt::LeftButton, corners[0]);
        for (qsizetype i = 1; i < corners.size(); ++i) {
            Drag(corners[i - 1], corners[i]);
            const Qt::MouseButton button = i + 1 == corners.size() ? Qt::RightButton : Qt::LeftButton;
            Press(button, corners[i]);
            Release(button, corners[i]);
        }
        FinishDialogs();
        QStringList numbers;
        for (const QPoint corner : corners) {
            numbers << QString::number(corner.x()) << QString::number(corner.y());
        }
        areas_ += u"<AREA SHAPE=POLYGON COORDS=\"" + numbers.join(QStringLiteral(", ")) +
                  u"\" HREF=\"boat.htm\">\r\n";
        Shoot(*editor_, QStringLiteral("areas"));
    }

    void InsertMap()
    {
        ClickToolbar(insertButton);
        Check(
            source_->document()->toRawText().contains(u"USEMAP"),
            QStringLiteral("Insert has put no map into the page"));
        Shoot(*main_, QStringLiteral("map"));
    }

    void SavePage()
    {
        robot_.ChooseFile(PagePath());
        main_->activateWindow();
        Check(QTest::qWaitForWindowActive(main_), QStringLiteral("the main window does not become active"));
        QTest::keyClick(source_, Qt::Key_S, Qt::ControlModifier);
        FinishDialogs();
        Check(
            Find<QLabel>(*main_, QStringLiteral("StatusBar1_Panel3"))->text() ==
                QDir::toNativeSeparators(PagePath()),
            QStringLiteral("the page was not saved"));
        Shoot(*main_, QStringLiteral("saved"));
    }

    void CheckPage() const
    {
        QFile file(PagePath());
        Check(file.open(QIODevice::ReadOnly), u"there is no page " + PagePath());
        const QString picture = QDir::toNativeSeparators(picture_);
        const QString map =
            QStringLiteral("<!-- This Image Map was created by Cartolen -->\r\n"
                           "<!-- https://cartolen.example/ -->\r\n"
                           "<IMG SRC=\"%1\" USEMAP=\"#MyImageMap\" WIDTH=%2 HEIGHT=%3 BORDER=0>\r\n"
                           "<MAP NAME=\"MyImageMap\">\r\n")
                .arg(picture)
                .arg(surface_->width())
                .arg(surface_->height()) +
            areas_ + u"</MAP>\r\n<!-- End Image Map-->";
        const QString page = u"<html>\r\n<head><title>Harbour</title></head>\r\n<body>\r\n" + map +
                             u"\r\n</body>\r\n</html>\r\n";
        Check(
            file.readAll() == AnsiCodePage::Encode(page), QStringLiteral("the page is not as it should be"));
        Say(u"Page: " + PagePath());
    }

    /** Answers the link dialog of the next figure with the keyboard. */
    void LinkNextFigure(const QString& shape, const QString& link, const QString& target)
    {
        robot_.Act([this, shape, link, target](QDialog& dialog) {
            QTest::keyClicks(Find<QComboBox>(dialog, QStringLiteral("cmbLink"))->lineEdit(), link);
            QTest::keyClicks(Find<QComboBox>(dialog, QStringLiteral("cmbTarget"))->lineEdit(), target);
            Shoot(dialog, u"link-" + shape);
            QTest::mouseClick(Find<QPushButton>(dialog, QStringLiteral("SSCmdOK")), Qt::LeftButton);
        });
    }

    void FinishDialogs()
    {
        robot_.WaitUntilDone();
        Check(robot_.Problems().isEmpty(), robot_.Problems());
    }

    void ClickToolbar(int position)
    {
        auto* const toolbar = Find<QToolBar>(*editor_, QStringLiteral("Toolbar1"));
        QWidget* const button = toolbar->widgetForAction(toolbar->actions().at(position - 1));
        Check(button->isEnabled(), QStringLiteral("toolbar button %1 is disabled").arg(position));
        QTest::mouseClick(button, Qt::LeftButton);
    }

    // The mouse is sent to the window, which finds the widget and keeps the grab, as the system does.
    void Press(Qt::MouseButton button, QPoint place)
    {
        QTest::mousePress(editor_->windowHandle(), button, {}, InWindow(place));
    }

    void Release(Qt::MouseButton button, QPoint place)
    {
        QTest::mouseRelease(editor_->windowHandle(), button, {}, InWindow(place));
    }

    void Drag(QPoint from, QPoint to)
    {
        constexpr int steps = 8;
        for (int i = 1; i <= steps; ++i) {
            QTest::mouseMove(editor_->windowHandle(), InWindow(from + (to - from) * i / steps));
        }
    }

    [[nodiscard]] QPoint InWindow(QPoint place) const { return surface_->mapTo(editor_, place); }

    /** A place in the visible part of the picture, in hundredths of its width and height. */
    [[nodiscard]] QPoint At(int x, int y) const
    {
        return { visible_.width() * x / 100, visible_.height() * y / 100 };
    }

    template<class Widget> static Widget* Find(const QWidget& window, const QString& name)
    {
        auto* const found = window.findChild<Widget*>(name);
        Check(found != nullptr, u"there is no " + name);
        return found;
    }

    static QWidget* WaitForWindow(const QString& name)
    {
        QWidget* found = nullptr;
        (void)QTest::qWaitFor(
            [&found, &name] {
                for (QWidget* const window : QApplication::topLevelWidgets()) {
                    if (window->objectName() == name && window->isVisible()) {
                        found = window;
                    }
                }
                return found != nullptr;
            },
            patience);
        Check(found != nullptr, u"there is no window " + name);
        return found;
    }

    void Shoot(QWidget& window, const QString& step)
    {
        QCoreApplication::processEvents();
        const QString path = folder_.absoluteFilePath(
            QStringLiteral("%1-%2.png").arg(++shots_, 2, 10, QLatin1Char('0')).arg(step));
        Check(window.grab().save(path), u"cannot save " + path);
        Say(u"Screenshot: " + path);
    }

    [[nodiscard]] QString PagePath() const { return folder_.absoluteFilePath(QStringLiteral("harbour.htm")); }

    QDir folder_;
    QString picture_;
    ImgMap imgMap_;
    Startup startup_;
    DialogRobot robot_;
    QWidget* main_ = nullptr;
    QPlainTextEdit* source_ = nullptr;
    QWidget* editor_ = nullptr;
    QWidget* surface_ = nullptr;
    QSize visible_;
    QString areas_;
    int shots_ = 0;
};

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 3) {
        Say(QStringLiteral("usage: cartolen-tour FOLDER PICTURE"));
        return 2;
    }
    try {
        Tour(arguments[1], arguments[2]).Play();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "The tour failed: %s\n", error.what());
        return 1;
    }
    Say(QStringLiteral("The tour reached its end."));
    return 0;
}
