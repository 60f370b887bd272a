#include "tests/support/ProgramDriver.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QImageReader>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QTabWidget>
#include <QTest>
#include <QToolBar>
#include <cstdio>
#include <utility>

namespace {

constexpr int patience = 15000;

constexpr int openImageButton = 3;
constexpr int insertButton = 16;
constexpr int exitButton = 18;

QWidget* WaitForWindow(const QString& name)
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

/** Clicks an entry of a window's menu. */
void ClickMenu(const QWidget& window, const QString& menuName, const QString& entryName)
{
    auto* const bar = FindPart<QMenuBar>(window, QStringLiteral("MenuBar1"));
    auto* const menu = FindPart<QMenu>(window, menuName);
    QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
    Check(QTest::qWaitFor([menu] { return menu->isVisible(); }), u"there opens no " + menuName);
    QTest::mouseClick(
        menu, Qt::LeftButton, {}, menu->actionGeometry(FindPart<QAction>(window, entryName)).center());
}

/** Clicks a button on its mark, wherever its text ends. */
void ClickMark(QAbstractButton* button)
{
    constexpr int inMark = 8;
    QTest::mouseClick(button, Qt::LeftButton, {}, { inMark, button->height() / 2 });
}

/** Types `text`; a letter beyond ASCII comes as from a keyboard that has it. */
void TypeText(QWidget* field, const QString& text)
{
    for (const QChar character : text) {
        if (character.unicode() < 0x80) {
            QTest::keyClick(field, character.toLatin1());
            continue;
        }
        for (const QEvent::Type type : { QEvent::KeyPress, QEvent::KeyRelease }) {
            QKeyEvent event(type, Qt::Key_unknown, {}, character);
            QCoreApplication::sendEvent(field, &event);
        }
    }
}

} // namespace

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

namespace {

QtMessageHandler previousHandler = nullptr;

/** Passes on what Qt says, but for the offscreen platform's remarks on what a platform without a screen
 * lacks. */
void PassOn(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (!message.startsWith(u"This plugin does not support ")) {
        previousHandler(type, context, message);
    }
}

} // namespace

ProgramDriver::ProgramDriver(const QString& folder, StepSeen stepSeen)
    : folder_(QDir(folder).absolutePath())
    , stepSeen_(std::move(stepSeen))
    , startup_(imgMap_, map_, desktop_)
{
    previousHandler = qInstallMessageHandler(PassOn);
    Check(
        folder_.mkpath(QStringLiteral("Data")) && folder_.mkpath(QStringLiteral("Temp")),
        u"cannot make the folder " + folder_.path());
    imgMap_.ProgramFolder = folder_.absolutePath();
    imgMap_.HelpFolder = imgMap_.ProgramFolder;
}

void ProgramDriver::Seen(QWidget& window, const QString& step)
{
    if (stepSeen_) {
        QCoreApplication::processEvents();
        stepSeen_(window, step);
    }
}

void ProgramDriver::StartProgram()
{
    startup_.Begin();
    Seen(*WaitForWindow(QStringLiteral("frmSplash")), QStringLiteral("splash"));
    main_ = WaitForWindow(QStringLiteral("frmIMmain"));
    source_ = FindPart<QPlainTextEdit>(*main_, QStringLiteral("MapsText1"));
    GoToSource();
}

void ProgramDriver::GoToSource()
{
    main_->activateWindow();
    Check(QTest::qWaitForWindowActive(main_), QStringLiteral("the main window does not become active"));
    source_->setFocus();
}

void ProgramDriver::WritePageFrame(const QString& head)
{
    GoToSource();
    for (const QString& line : { QStringLiteral("<html>"), QString(u"<head>" + head + u"</head>"),
                                 QStringLiteral("<body>"), QString(), QStringLiteral("</body>") }) {
        QTest::keyClicks(source_, line);
        QTest::keyClick(source_, Qt::Key_Return);
    }
    QTest::keyClicks(source_, QStringLiteral("</html>"));
    QTest::keyClick(source_, Qt::Key_Up);
    QTest::keyClick(source_, Qt::Key_Up);
    QTest::keyClick(source_, Qt::Key_Home);
    Seen(*main_, QStringLiteral("page"));
}

void ProgramDriver::NewPage()
{
    GoToSource();
    QTest::keyClick(source_, Qt::Key_N, Qt::ControlModifier);
    FinishDialogs();
    Check(source_->document()->isEmpty(), QStringLiteral("the new page is not empty"));
}

void ProgramDriver::SavePage(const QString& path)
{
    robot_.ChooseFile(path);
    GoToSource();
    QTest::keyClick(source_, Qt::Key_S, Qt::ControlModifier);
    FinishDialogs();
    Check(
        FindPart<QLabel>(*main_, QStringLiteral("StatusBar1_Panel3"))->text() ==
            QDir::toNativeSeparators(path),
        QStringLiteral("the page was not saved"));
    Seen(*main_, QStringLiteral("saved"));
}

void ProgramDriver::SaveAgain()
{
    GoToSource();
    QTest::keyClick(source_, Qt::Key_S, Qt::ControlModifier);
    FinishDialogs();
}

QString ProgramDriver::Preview()
{
    desktop_.Requests.clear();
    GoToSource();
    QTest::keyClick(source_, Qt::Key_D, Qt::ControlModifier);
    FinishDialogs();
    Check(desktop_.Requests.size() == 1, QStringLiteral("the page was not previewed"));
    return desktop_.Requests.constFirst().Target;
}

void ProgramDriver::OpenEditor()
{
    GoToSource();
    QTest::keyClick(source_, Qt::Key_I, Qt::ControlModifier);
    editor_ = WaitForWindow(QStringLiteral("frmImageMap"));
    Seen(*editor_, QStringLiteral("editor"));
}

void ProgramDriver::OpenPicture(const QString& picture)
{
    robot_.ChooseFile(picture);
    ClickToolbar(openImageButton);
    FinishDialogs();
    surface_ = FindPart<QWidget>(*editor_, QStringLiteral("PictureDisplay"));
    const QImage expected = QImageReader(picture).read();
    Check(
        surface_->width() > 0 &&
            surface_->width() * surface_->height() == expected.width() * expected.height(),
        QStringLiteral("the picture is not shown"));
    // What fonts and styles take of the window differs by some pixels; figures must not follow that.
    constexpr int step = 20;
    const QSize seen = surface_->size().boundedTo(surface_->parentWidget()->size());
    visible_ = { seen.width() / step * step, seen.height() / step * step };
    Seen(*editor_, QStringLiteral("picture"));
}

void ProgramDriver::ChooseMode(JSMode mode)
{
    robot_.Act([this, mode](QDialog& dialog) {
        const QString option = QStringLiteral("optJSOpt_%1").arg(int(mode));
        if (map_.Ledger().FigureCount > 0) {
            robot_.AnswerBox(QMessageBox::Yes);
        }
        ClickMark(FindPart<QRadioButton>(dialog, option));
        Check(
            QTest::qWaitFor([this, &dialog] {
                return map_.Ledger().FigureCount == 0 && QApplication::activeModalWidget() == &dialog;
            }),
            QStringLiteral("the map was not deleted"));
        Seen(dialog, QStringLiteral("mode"));
        QTest::mouseClick(FindPart<QPushButton>(dialog, QStringLiteral("cmdOK")), Qt::LeftButton);
    });
    ClickMenu(*editor_, QStringLiteral("mnuJS"), QStringLiteral("mnuJSOptions"));
    FinishDialogs();
    Check(map_.Script().Mode() == mode, QStringLiteral("the mode was not taken"));
}

void ProgramDriver::NameFilesOnly(bool fileNamesOnly)
{
    auto* const check = FindPart<QCheckBox>(*editor_, QStringLiteral("Check1"));
    if (check->isChecked() != fileNamesOnly) {
        ClickMark(check);
    }
    Check(check->isChecked() == fileNamesOnly, QStringLiteral("the check box does not follow the mouse"));
}

void ProgramDriver::ChooseForm(MarkupForm form)
{
    auto* const tabs = FindPart<QTabWidget>(*editor_, QStringLiteral("SSTab1"));
    auto* const field = FindPart<QComboBox>(*editor_, QStringLiteral("cmbMarkup"));
    const int before = tabs->currentIndex();
    tabs->setCurrentIndex(1);
    field->setFocus();
    QTest::keyClick(field, Qt::Key_Home);
    for (int i = 0; i < int(form); ++i) {
        QTest::keyClick(field, Qt::Key_Down);
    }
    Check(field->currentIndex() == int(form), QStringLiteral("the form of the map does not follow the keys"));
    Seen(*editor_, QStringLiteral("form"));
    tabs->setCurrentIndex(before);
}

void ProgramDriver::InsertMap()
{
    ClickToolbar(insertButton);
    const QString page = source_->document()->toRawText();
    Check(
        page.contains(u"usemap=", Qt::CaseInsensitive) || page.contains(u"class=\"imap\""),
        QStringLiteral("Insert has put no map into the page"));
    Seen(*main_, QStringLiteral("map"));
}

void ProgramDriver::CloseEditor()
{
    const QPointer<QWidget> closing(editor_);
    if (map_.Ledger().FigureCount > 0) {
        robot_.AnswerBox(QMessageBox::Yes);
    }
    ClickToolbar(exitButton);
    FinishDialogs();
    Check(
        QTest::qWaitFor([&closing] { return closing == nullptr; }),
        QStringLiteral("the editor does not close"));
    editor_ = nullptr;
    surface_ = nullptr;
}

QPoint ProgramDriver::At(int x, int y) const
{
    return { visible_.width() * x / 100, visible_.height() * y / 100 };
}

QSize ProgramDriver::PictureSize() const
{
    return surface_->size();
}

/** Answers the link dialog of the next figure with the keyboard. */
void ProgramDriver::LinkNextFigure(const QString& shape, const FieldTexts& link, const char* button)
{
    robot_.Act([this, shape, link, name = QString::fromLatin1(button)](QDialog& dialog) {
        for (const FieldText& text : link) {
            FillIn(dialog, text);
        }
        Seen(dialog, u"link-" + shape);
        QTest::mouseClick(FindPart<QPushButton>(dialog, name), Qt::LeftButton);
    });
}

void ProgramDriver::FillIn(const QDialog& dialog, const FieldText& text)
{
    auto* const part = FindPart<QWidget>(dialog, QString::fromLatin1(text.field));
    if (qobject_cast<QAbstractButton*>(part) != nullptr) {
        robot_.ChooseFile(text.text);
        QTest::mouseClick(part, Qt::LeftButton);
        return;
    }
    const auto* const list = qobject_cast<QComboBox*>(part);
    TypeText(list != nullptr ? list->lineEdit() : part, text.text);
}

void ProgramDriver::FinishDialogs()
{
    robot_.WaitUntilDone();
    Check(robot_.Problems().isEmpty(), robot_.Problems());
    robot_.Forget();
}

void ProgramDriver::ClickToolbar(int position)
{
    auto* const toolbar = FindPart<QToolBar>(*editor_, QStringLiteral("Toolbar1"));
    QWidget* const button = toolbar->widgetForAction(toolbar->actions().at(position - 1));
    Check(button->isEnabled(), QStringLiteral("toolbar button %1 is disabled").arg(position));
    QTest::mouseClick(button, Qt::LeftButton);
}
