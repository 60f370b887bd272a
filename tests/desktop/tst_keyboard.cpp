#include "tests/desktop/EveryWindow.h"
#include "tests/support/DialogRobot.h"

#include <QContextMenuEvent>
#include <QFileInfo>
#include <QMenu>
#include <QScrollBar>
#include <QTextEdit>
#include <QToolBar>
#include <QWindow>

namespace {

/** Presses a key as the system tells it: to the window that has the keys, which finds out for whom it is. */
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
    QCoreApplication::processEvents();
}

/** Opens a menu by its underlined letter, and chooses an entry by that of its own. */
void Choose(Qt::Key menu, Qt::Key entry)
{
    Press(menu, Qt::AltModifier);
    QTRY_VERIFY(QApplication::activePopupWidget() != nullptr);
    Press(entry);
    QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
}

void Type(const char* text)
{
    for (const char* letter = text; *letter != '\0'; ++letter) {
        QTest::keyClick(QGuiApplication::focusWindow(), *letter);
    }
}

/** Takes the user back to `window`. There is no window manager that would do it after a dialog. */
bool ReturnTo(QWidget* window)
{
    window->activateWindow();
    return QTest::qWaitForWindowActive(window);
}

QString FocusName()
{
    const QWidget* const focused = QApplication::focusWidget();
    return focused == nullptr                ? QStringLiteral("(nothing)")
           : focused->objectName().isEmpty() ? QString::fromLatin1(focused->metaObject()->className())
                                             : focused->objectName();
}

/** Presses Tab until `name` has the keys; whether that comes about. */
bool TabTo(const char* name)
{
    constexpr int most = 30;
    for (int i = 0; i < most && FocusName() != QLatin1String(name); ++i) {
        Press(Qt::Key_Tab);
    }
    return FocusName() == QLatin1String(name);
}

/** What Tab visits from where the keys go first, once around. */
QString TabChain()
{
    constexpr int most = 40;
    QStringList names;
    for (int i = 0; i < most && !names.contains(FocusName()); ++i) {
        names << FocusName();
        Press(Qt::Key_Tab);
    }
    return names.join(u' ');
}

} // namespace

/** The program used with the keyboard alone, but for drawing on the picture. */
class tst_keyboard : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tabFollowsTheEye_data();
    void tabFollowsTheEye();
    void escapeClosesDialogs_data();
    void escapeClosesDialogs();
    void everyToolbarButtonIsInAMenu_data();
    void everyToolbarButtonIsInAMenu();
    void menuKeyOpensTheContextMenu_data();
    void menuKeyOpensTheContextMenu();
    void pictureIsScrolledByKeys();
    void wholeMapIsMadeByKeys();
};

void tst_keyboard::tabFollowsTheEye_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QString>("chain");
    const auto row = [](const char* window, const char* chain) {
        QTest::newRow(window) << QByteArray(window) << QString::fromLatin1(chain);
    };
    row("link-0", "cmbLink cmbTarget SSCmdOK SSCmdClose");
    row("link-1", "cmbLink cmbTarget txtStatusBarMessage SSCmdOK SSCmdClose");
    row("link-2", "cmbLink cmbTarget txtDefaultImage Command1 txtSwitchImage Command2 SSCmdOK SSCmdClose");
    row("link-3", "cmbLink cmbTarget txtDefaultTAreaMessage txtSwitchingTAreaMessage SSCmdOK SSCmdClose");
    row("link-4", "cmbLink cmbTarget txtToolTipMessage SSCmdOK SSCmdClose");
    row("script-options", "optJSOpt_0 cmdOK cmdHelp");
    // The field comes first, where the eye is; then on and around.
    row("preferences", "txtIndentValue cmdOK cmdClose optNoWordWrap");
    row("map-change", "cmdOK cmdCancel txtBefore txtAfter");
    row("page-maps", "lstMaps cmdOpen cmdClose");
    row("editor", "qt_tabwidget_tabbar txtName ListView1");
    row("attributes", "qt_tabwidget_tabbar txtAltDescript txtImgWidth txtImgHeight txtBorder txtHorSp "
                      "txtVertSp cmbAlign cmbMarkup");
    row("area", "qt_tabwidget_tabbar cmbAreaShape txtAreaCoords cmbAreaLink cmbAreaTarget txtAreaText");
}

void tst_keyboard::tabFollowsTheEye()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QString, chain);
    EveryWindow every;
    (void)every.Show(window);
    QCOMPARE(TabChain(), chain);
}

void tst_keyboard::escapeClosesDialogs_data()
{
    QTest::addColumn<QByteArray>("window");
    for (const char* const name : { "link-0", "link-3", "script-options", "preferences", "font",
                                    "help-contents", "question", "page-maps", "map-change" }) {
        QTest::newRow(name) << QByteArray(name);
    }
}

void tst_keyboard::escapeClosesDialogs()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    const QWidget* const shown = every.Show(window);
    Press(Qt::Key_Escape);
    QTRY_VERIFY(!shown->isVisible());
}

void tst_keyboard::everyToolbarButtonIsInAMenu_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QStringList>("entries");
    QTest::newRow("main") << QByteArray("main")
                          << QStringLiteral(
                                 "mnuFNew mnuFOpen mnuFSave mnuFPrint mnuECut mnuECopy mnuEPaste mnuEUndo "
                                 "mnuICustomHTML mnuIimagemaps mnuTPreview mnuHContents mnuFExit")
                                 .split(u' ');
    QTest::newRow("editor") << QByteArray("editor")
                            << QStringLiteral(
                                   "mnuNew mnuOpenImage mnuFigNum_5 mnuFigNum_6 mnuFigNum_7 mnuCursor "
                                   "mnuFigureColors mnuLink mnuDeleteLast mnuInsert mnuExit")
                                   .split(u' ');
}

void tst_keyboard::everyToolbarButtonIsInAMenu()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QStringList, entries);
    EveryWindow every;
    const QWidget* const shown = every.Show(window);
    int buttons = 0;
    for (const QAction* const action : Find<QToolBar>(shown, "Toolbar1")->actions()) {
        buttons += action->isSeparator() ? 0 : 1;
    }
    QCOMPARE(buttons, int(entries.size()));
    for (const QString& entry : entries) {
        QVERIFY2(Find<QAction>(shown, qPrintable(entry))->text().contains(u'&'), qPrintable(entry));
    }
}

void tst_keyboard::menuKeyOpensTheContextMenu_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("source") << QByteArray("main") << QByteArray("MapsText1");
    QTest::newRow("field") << QByteArray("links") << QByteArray("txtCTags");
    QTest::newRow("help") << QByteArray("help-contents") << QByteArray("PageView1");
}

void tst_keyboard::menuKeyOpensTheContextMenu()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, control);
    EveryWindow every;
    QWidget* const shown = every.Show(window);
    auto* const part = Find<QWidget>(shown, control.constData());
    part->setFocus();
    // What every system but the offscreen one makes of the key.
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(), QPoint());
    QCoreApplication::sendEvent(shown->windowHandle(), &event);
    QTRY_VERIFY(qobject_cast<QMenu*>(QApplication::activePopupWidget()) != nullptr);
    Press(Qt::Key_Escape);
    QTRY_VERIFY(QApplication::activePopupWidget() == nullptr);
    QVERIFY(ReturnTo(shown));
    QVERIFY(part->hasFocus());
}

void tst_keyboard::pictureIsScrolledByKeys()
{
    EveryWindow every;
    DialogRobot robot;
    QWidget* const editor = every.Show("editor");
    robot.ChooseFile(QFileInfo(QStringLiteral(CARTOLEN_PICTURE)).absoluteFilePath());
    Choose(Qt::Key_F, Qt::Key_O);
    robot.WaitUntilDone();
    QVERIFY(ReturnTo(editor));
    QCOMPARE(robot.Problems(), QString());
    const auto* const picture = Find<QWidget>(editor, "PictureDisplay");
    QVERIFY(TabTo("VScroll1"));
    Press(Qt::Key_Down);
    QVERIFY(picture->y() < 0);
    QVERIFY(TabTo("HScroll1"));
    Press(Qt::Key_Right);
    QVERIFY(picture->x() < 0);
    Press(Qt::Key_Left);
    QCOMPARE(picture->x(), 0);
}

void tst_keyboard::wholeMapIsMadeByKeys()
{
    EveryWindow every;
    DialogRobot robot;
    auto* const main = every.Show("main");
    auto* const source = Find<SourceEditor>(main, "MapsText1");

    // A page's frame.
    source->setFocus();
    Press(Qt::Key_N, Qt::ControlModifier);
    Choose(Qt::Key_I, Qt::Key_H);
    QVERIFY(source->Text().startsWith(u"<HTML>"));

    // The editor, a picture, a tool.
    Choose(Qt::Key_I, Qt::Key_I);
    auto* const editor = Find<frmImageMap>(main, "frmImageMap");
    QVERIFY(ReturnTo(editor));
    robot.ChooseFile(QFileInfo(QStringLiteral(CARTOLEN_PICTURE)).absoluteFilePath());
    Choose(Qt::Key_F, Qt::Key_O);
    robot.WaitUntilDone();
    QVERIFY(ReturnTo(editor));

    // Another mode, by the arrow keys.
    robot.Act([](QDialog&) {
        Press(Qt::Key_Down);
        Press(Qt::Key_Return);
    });
    Choose(Qt::Key_J, Qt::Key_O);
    robot.WaitUntilDone();
    QVERIFY(ReturnTo(editor));

    // The figure itself is for the mouse; its link is not.
    Choose(Qt::Key_T, Qt::Key_R);
    QVERIFY(Find<QAction>(editor, "mnuFigNum_5")->isChecked());
    robot.Act([](QDialog&) {
        Type("house.htm");
        QVERIFY(TabTo("txtStatusBarMessage"));
        Type("The house");
        Press(Qt::Key_Return);
    });
    const auto* const picture = Find<QWidget>(editor, "PictureDisplay");
    const auto at = [picture, editor](int x, int y) { return picture->mapTo(editor, QPoint(x, y)); };
    QTest::mousePress(editor->windowHandle(), Qt::LeftButton, {}, at(20, 30));
    QTest::mouseMove(editor->windowHandle(), at(60, 70));
    QTest::mouseMove(editor->windowHandle(), at(120, 110));
    QTest::mouseRelease(editor->windowHandle(), Qt::LeftButton, {}, at(120, 110));
    robot.WaitUntilDone();
    QVERIFY(ReturnTo(editor));

    // The row is chosen and its link is written anew.
    const QAbstractItemModel* const areas = Find<QTreeView>(editor, "ListView1")->model();
    QCOMPARE(areas->rowCount(), 1);
    QVERIFY(TabTo("ListView1"));
    Press(Qt::Key_Down);
    robot.Act([](QDialog& dialog) {
        QCOMPARE(FocusName(), QStringLiteral("cmbLink"));
        Press(Qt::Key_A, Qt::ControlModifier);
        Type("barn.htm");
        QVERIFY(!Find<QPushButton>(&dialog, "SSCmdOK")->isEnabled());
        Press(Qt::Key_Return);
    });
    Press(Qt::Key_Return);
    robot.WaitUntilDone();
    QVERIFY(ReturnTo(editor));
    QCOMPARE(areas->index(0, 1).data().toString(), QStringLiteral("barn.htm"));

    // The map's name, an attribute on the other tab, and the box beside the toolbar.
    QVERIFY(TabTo("txtName"));
    Press(Qt::Key_A, Qt::ControlModifier);
    Type("Farm");
    QVERIFY(TabTo("qt_tabwidget_tabbar"));
    Press(Qt::Key_Right);
    QVERIFY(TabTo("txtAltDescript"));
    Type("A farm");
    QVERIFY(TabTo("Check1"));
    Press(Qt::Key_Space);
    Choose(Qt::Key_F, Qt::Key_I);
    robot.Act([](QDialog&) { Press(Qt::Key_Y, Qt::AltModifier); });
    Choose(Qt::Key_F, Qt::Key_X);
    robot.WaitUntilDone();

    QVERIFY(ReturnTo(main));
    const QString text = source->Text();
    QVERIFY2(text.contains(u"USEMAP=\"#Farm\""), qPrintable(text));
    QVERIFY(text.contains(u"ALT=\"A farm\""));
    QVERIFY(text.contains(u"COORDS=\"20, 30, 120, 110\" HREF=\"barn.htm\""));
    QVERIFY(text.contains(u"The house"));
    QCOMPARE(robot.Problems(), QString());
}

QTEST_MAIN(tst_keyboard)
#include "tst_keyboard.moc"
