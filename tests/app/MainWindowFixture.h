#pragma once

#include "app/DocumentCommands.h"
#include "app/EditCommands.h"
#include "app/OutsideCommands.h"
#include "app/SourceEditor.h"
#include "app/frmIMmain.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingDesktop.h"

#include <QAction>
#include <QApplication>
#include <QFile>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>

inline constexpr const char* newDocument = "New Document";

inline QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("(no such file)");
}

inline bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

/** Every byte once, in ascending order, but CR and LF, which stand together at the end. */
inline QByteArray EveryByte()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        if (byte != '\r' && byte != '\n') {
            bytes.append(static_cast<char>(byte));
        }
    }
    return bytes + "\r\n";
}

/** The main window, loaded and shown in a fresh program folder, and somebody who answers its dialogs. */
class MainWindowFixture
{
public:
    /** Shows the window and waits until it takes keys. */
    [[nodiscard]] bool Start()
    {
        const QSize design = window.size();
        window.Form_Load();
        // The offscreen platform's screen may be smaller.
        window.resize(design);
        window.show();
        return QTest::qWaitForWindowActive(&window);
    }

    template<class Widget> Widget* Find(const char* name)
    {
        Widget* const found = window.findChild<Widget*>(QString::fromLatin1(name));
        if (found == nullptr) {
            qFatal("the window has no %s", name);
        }
        return found;
    }

    SourceEditor* Editor() { return Find<SourceEditor>("MapsText1"); }
    QString DocumentName() { return Find<QLabel>("StatusBar1_Panel3")->text(); }
    QToolBar* Toolbar() { return Find<QToolBar>("Toolbar1"); }

    /** Takes the user back to the document. There is no window manager that would do it after a dialog. */
    void GoToEditor()
    {
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) {
            qFatal("the main window does not take keys");
        }
        Editor()->setFocus();
    }

    /** Presses a key where the user writes. */
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        GoToEditor();
        QTest::keyClick(Editor(), key, modifiers);
    }

    void Type(const char* text)
    {
        GoToEditor();
        QTest::keyClicks(Editor(), QString::fromLatin1(text));
    }

    /** Clicks at a position of the toolbar, counted from 1, separators included. */
    void ClickToolbar(int position)
    {
        QWidget* const button = Toolbar()->widgetForAction(Toolbar()->actions().at(position - 1));
        QTest::mouseClick(button, Qt::LeftButton);
    }

    /** Opens a menu of the menu bar and clicks an entry of it. */
    void ClickMenu(const char* menuName, const char* entryName)
    {
        auto* const bar = Find<QMenuBar>("MenuBar1");
        auto* const menu = Find<QMenu>(menuName);
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->actionGeometry(menu->menuAction()).center());
        if (!QTest::qWaitFor([menu] { return menu->isVisible(); })) {
            qFatal("the menu %s does not open", menuName);
        }
        QTest::mouseClick(menu, Qt::LeftButton, {}, menu->actionGeometry(Find<QAction>(entryName)).center());
    }

    /** Opens `path` by the command; the document must be unchanged. */
    void Open(const QString& path)
    {
        robot.ChooseFile(path);
        Press(Qt::Key_O, Qt::ControlModifier);
    }

    ProgramFolder folder;
    DialogRobot robot;
    RecordingDesktop desktop;
    frmIMmain window{ folder.imgMap, folder.map, desktop };
};

/** Runs the program's event loop from `act` on; whether the program then ends by itself. */
template<class Act> bool EndsProgram(Act act)
{
    constexpr int gaveUp = 99;
    QTimer::singleShot(0, qApp, act);
    QTimer patience;
    QObject::connect(&patience, &QTimer::timeout, qApp, [] { QCoreApplication::exit(gaveUp); });
    patience.start(std::chrono::seconds(10));
    return QCoreApplication::exec() == 0;
}
