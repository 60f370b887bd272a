#pragma once

#include "tests/support/WidgetDriving.h"

#include "imagemap/frmImageMap.h"
#include "tests/app/MainWindowFixture.h"

#include <QRadioButton>
#include <QTreeView>
#include <functional>

using Act = std::function<void(MainWindowFixture&)>;

inline frmImageMap* Editor()
{
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (auto* const editor = qobject_cast<frmImageMap*>(window)) {
            return editor;
        }
    }
    return nullptr;
}

inline void ClickEditorButton(int position)
{
    auto* const toolbar = Find<QToolBar>(Editor(), "Toolbar1");
    Click(toolbar->widgetForAction(toolbar->actions().at(position - 1)));
}

/** Opens the image map editor with a picture; nothing of it is drawn on. */
inline void OpenEditor(MainWindowFixture& test)
{
    test.Press(Qt::Key_I, Qt::ControlModifier);
    if (Editor() == nullptr || !QTest::qWaitForWindowActive(Editor())) {
        qFatal("the image map editor does not open");
    }
    test.robot.ChooseFile(QStringLiteral(CARTOLEN_PICTURE));
    ClickEditorButton(3);
}

inline void DrawRectangle()
{
    ClickEditorButton(5);
    auto* const surface = Find<QWidget>(Editor(), "PictureDisplay");
    QTest::mousePress(surface, Qt::LeftButton, {}, { 10, 10 });
    QTest::mouseMove(surface, { 30, 30 });
    QTest::mouseMove(surface, { 60, 50 });
    QTest::mouseRelease(surface, Qt::LeftButton, {}, { 60, 50 });
}

/** Draws a rectangle and gives it a link. */
inline void MakeArea(MainWindowFixture& test)
{
    OpenEditor(test);
    test.robot.Act([](QDialog& dialog) {
        TypeIn(&dialog, "cmbLink", "area.htm");
        ClickIn(&dialog, "SSCmdOK");
    });
    DrawRectangle();
    test.robot.WaitUntilDone();
}

inline void RemoveLinksFolder(MainWindowFixture& test)
{
    QDir(test.folder.Path(QStringLiteral("Data"))).removeRecursively();
}

inline void SelectArea()
{
    auto* const list = Find<QTreeView>(Editor(), "ListView1");
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {}, list->visualRect(list->model()->index(0, 0)).center());
}

inline void OpenScriptOptions()
{
    auto* const entry = Editor()->findChild<QAction*>(QStringLiteral("mnuJSOptions"));
    entry->trigger();
}

/** One dialog, and how a user comes to it. */
struct Situation
{
    const char* name;
    Act prepare; ///< what is done before
    Act open;    ///< opens the dialog
    /** What is clicked in the dialogs on the way to the one that is open in the end. */
    QList<std::function<void(QDialog&)>> onTheWay = {};
    bool isFollowed = false; ///< by another dialog, when it is closed
};

inline void Nothing(MainWindowFixture&) {}

/** Dialogs of the main window, while no text would be lost. */
inline QList<Situation> MainWindowDialogs()
{
    return {
        { "Open", Nothing, [](auto& test) { test.Press(Qt::Key_O, Qt::ControlModifier); } },
        { "Save As", Nothing, [](auto& test) { test.ClickMenu("mnuFile", "mnuFSaveAs"); } },
        { "message", Nothing, [](auto& test) { test.Press(Qt::Key_D, Qt::ControlModifier); } },
        { "font", Nothing, [](auto& test) { test.ClickMenu("mnuEdit", "mnuEFont"); } },
        { "About", [](auto& test) { test.desktop.HasAboutBox = false; },
          [](auto& test) { test.ClickMenu("mnuHelp", "mnuHAbout"); } },
        { "missing help", Nothing, [](auto& test) { test.Press(Qt::Key_F1); } },
    };
}

/** Dialogs of the image map editor, while there is no area, or the one that the dialog is about. */
inline QList<Situation> EditorSituations()
{
    const auto draw = [](MainWindowFixture&) { DrawRectangle(); };
    const auto clickOk = [](QDialog& dialog) { ClickIn(&dialog, "SSCmdOK"); };
    const auto browse = [](QDialog& dialog) { ClickIn(&dialog, "Command1"); };
    return {
        { "picture", OpenEditor, [](auto&) { ClickEditorButton(3); } },
        { "colour", OpenEditor, [](auto&) { ClickEditorButton(11); } },
        { "link of a new area", OpenEditor, draw },
        { "hint of the link dialog", OpenEditor, draw, { clickOk } },
        { "image for a new area",
          [](auto& test) {
              test.folder.map.Script().SetMode(JSSwitchImages);
              OpenEditor(test);
          },
          draw,
          { browse } },
        { "damaged links of a new area",
          [](auto& test) {
              OpenEditor(test);
              RemoveLinksFolder(test);
          },
          draw,
          {},
          true },
        { "script options", OpenEditor, [](auto&) { OpenScriptOptions(); } },
    };
}

/** Dialogs of the image map editor, while there is an area. */
inline QList<Situation> AreaDialogs()
{
    return {
        { "whether to delete the map", MakeArea, [](auto&) { ClickEditorButton(18); } },
        { "whether to switch the script",
          MakeArea,
          [](auto&) { OpenScriptOptions(); },
          { [](QDialog& dialog) {
              QTest::mouseClick(Find<QRadioButton>(&dialog, "optJSOpt_2"), Qt::LeftButton, {}, QPoint(8, 8));
          } } },
        { "link of an old area",
          [](auto& test) {
              MakeArea(test);
              SelectArea();
          },
          [](auto&) { ClickEditorButton(12); } },
        { "damaged links of an old area",
          [](auto& test) {
              MakeArea(test);
              SelectArea();
              RemoveLinksFolder(test);
          },
          [](auto&) { ClickEditorButton(12); } },
    };
}

/** What Qt does when the desktop tells the program to end. */
inline void QuitProgram(MainWindowFixture&)
{
    QEvent quit(QEvent::Quit);
    QCoreApplication::sendEvent(qApp, &quit);
}

inline void CloseMainWindow(MainWindowFixture& test)
{
    test.window.close();
}

inline void AddRows(const QList<Situation>& situations)
{
    QTest::addColumn<Situation>("situation");
    QTest::addColumn<Act>("end");
    for (const Situation& situation : situations) {
        QTest::addRow("%s, quitting", situation.name) << situation << Act(QuitProgram);
        QTest::addRow("%s, closing", situation.name) << situation << Act(CloseMainWindow);
    }
}

Q_DECLARE_METATYPE(Situation)
