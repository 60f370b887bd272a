#include "tests/support/WidgetDriving.h"

#include "app/frmMapOptions.h"
#include "imagemap/frmImageMap.h"
#include "tests/app/MainWindowFixture.h"
#include "widgets/CommandTable.h"

#include <QClipboard>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>
#include <memory>

/** Which keys are the program's and which a text field's own, by what is in use. */
class tst_commandkeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void commandKeysWorkFromEveryControl_data();
    void commandKeysWorkFromEveryControl();
    void exitKeyEndsTheProgramFromEveryControl_data() { Controls(); }
    void exitKeyEndsTheProgramFromEveryControl();
    void newDocumentKeyWorksFromEveryControl_data() { Controls(); }
    void newDocumentKeyWorksFromEveryControl();
    void editingKeysEditTheUrlField();
    void editingKeysInTheUrlFieldLeaveTheEditorAlone();
    void keysOfCommandsDoNotMoveInTheUrlField();
    void editingKeysInTheListsWorkOnTheEditor_data();
    void editingKeysInTheListsWorkOnTheEditor();
    void editorsOtherClipboardKeysRunTheCommands();
    void keysOfOtherWindowsAreNotThisOnes();

private:
    static void Controls();
    QWidget* GoToRowsControl();

    SourceEditor* Editor() { return test_->Editor(); }
    QLineEdit* UrlField() { return test_->Find<QLineEdit>("txtCTags"); }

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_commandkeys::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
    QGuiApplication::clipboard()->setText(QStringLiteral("older"));
}

void tst_commandkeys::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

void tst_commandkeys::Controls()
{
    QTest::addColumn<QByteArray>("control");
    for (const char* const name : { "MapsText1", "txtCTags", "TreeView1", "ListView1" }) {
        QTest::newRow(name) << QByteArray(name);
    }
}

/** Puts the focus on the row's control, which is shown. */
QWidget* tst_commandkeys::GoToRowsControl()
{
    QFETCH(const QByteArray, control);
    auto* const widget = test_->Find<QWidget>(control.constData());
    const bool isOnLinks = control == "txtCTags" || control == "ListView1";
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(isOnLinks ? 1 : 0);
    widget->setFocus();
    return widget;
}

void tst_commandkeys::commandKeysWorkFromEveryControl_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<QByteArray>("window");
    for (const char* const name : { "MapsText1", "txtCTags", "TreeView1", "ListView1" }) {
        QTest::addRow("%s Ctrl+P", name) << QByteArray(name) << Qt::Key_P << QByteArray("frmMapOptions");
        QTest::addRow("%s Ctrl+I", name) << QByteArray(name) << Qt::Key_I << QByteArray("frmImageMap");
    }
}

void tst_commandkeys::commandKeysWorkFromEveryControl()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const QByteArray, window);
    QTest::keyClick(GoToRowsControl(), key, Qt::ControlModifier);
    const auto* const opened = test_->window.findChild<QWidget*>(QString::fromLatin1(window));
    QVERIFY(opened != nullptr && opened->isVisible());
}

void tst_commandkeys::exitKeyEndsTheProgramFromEveryControl()
{
    QVERIFY(EndsProgram([this] { QTest::keyClick(GoToRowsControl(), Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(!test_->window.isVisible());
}

void tst_commandkeys::newDocumentKeyWorksFromEveryControl()
{
    Editor()->LoadText(QStringLiteral("old"));
    QTest::keyClick(GoToRowsControl(), Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QString());
}

void tst_commandkeys::editingKeysEditTheUrlField()
{
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    UrlField()->setFocus();
    QTest::keyClicks(UrlField(), QStringLiteral("abc"));
    QTest::keyClick(UrlField(), Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(UrlField(), Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("abc"));
    QTest::keyClick(UrlField(), Qt::Key_End);
    QTest::keyClick(UrlField(), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(UrlField()->text(), QStringLiteral("abcabc"));
    QTest::keyClick(UrlField(), Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(UrlField()->text(), QStringLiteral("abc"));
    QTest::keyClick(UrlField(), Qt::Key_Home);
    QTest::keyClick(UrlField(), Qt::Key_Delete);
    QCOMPARE(UrlField()->text(), QStringLiteral("bc"));
    QTest::keyClick(UrlField(), Qt::Key_End, Qt::ShiftModifier);
    QTest::keyClick(UrlField(), Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(UrlField()->text(), QString());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("bc"));
}

void tst_commandkeys::editingKeysInTheUrlFieldLeaveTheEditorAlone()
{
    test_->Type("xyz");
    Editor()->Select(0, 2);
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    UrlField()->setFocus();
    for (const Qt::Key key : { Qt::Key_C, Qt::Key_X, Qt::Key_V, Qt::Key_Z, Qt::Key_A }) {
        QTest::keyClick(UrlField(), key, Qt::ControlModifier);
    }
    QTest::keyClick(UrlField(), Qt::Key_Delete);
    QTest::keyClick(UrlField(), Qt::Key_Backspace);
    QCOMPARE(Editor()->Text(), QStringLiteral("xyz"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("xy"));
}

void tst_commandkeys::keysOfCommandsDoNotMoveInTheUrlField()
{
    // On some systems Ctrl+E goes to the end of a field; Ctrl+Right moves in it on all of them.
    test_->Find<QAction>("mnuTPref")->setShortcut(QKeySequence(Qt::ControlModifier | Qt::Key_Right));
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    UrlField()->setText(QStringLiteral("abc def"));
    UrlField()->setFocus();
    UrlField()->home(false);
    QTest::keyClick(UrlField(), Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(UrlField()->cursorPosition(), 0);
    QVERIFY(test_->window.findChild<frmMapOptions*>() != nullptr);
}

void tst_commandkeys::editingKeysInTheListsWorkOnTheEditor_data()
{
    QTest::addColumn<QByteArray>("control");
    QTest::newRow("TreeView1") << QByteArray("TreeView1");
    QTest::newRow("ListView1") << QByteArray("ListView1");
}

void tst_commandkeys::editingKeysInTheListsWorkOnTheEditor()
{
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(1, 1);
    auto* const links = test_->Find<QListWidget>("ListView1");
    links->addItem(QStringLiteral("link"));
    links->setCurrentRow(0);
    auto* const tree = test_->Find<QTreeWidget>("TreeView1");
    tree->setCurrentItem(tree->topLevelItem(0));
    QWidget* const list = GoToRowsControl();
    QTest::keyClick(list, Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("b"));
    QTest::keyClick(list, Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("ac"));
    QTest::keyClick(list, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("abc"));
}

void tst_commandkeys::editorsOtherClipboardKeysRunTheCommands()
{
    Editor()->LoadText(QStringLiteral("abc"));
    Editor()->Select(1, 1);
    test_->Press(Qt::Key_Insert, Qt::ControlModifier);
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("b"));
    test_->Press(Qt::Key_Delete, Qt::ShiftModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("ac"));
    test_->Press(Qt::Key_Insert, Qt::ShiftModifier);
    test_->Press(Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("abbc"));
}

void tst_commandkeys::keysOfOtherWindowsAreNotThisOnes()
{
    // The image map editor belongs to the main window, as this one does.
    QMainWindow other(&test_->window);
    QAction* const theirs =
        other.menuBar()->addMenu(QStringLiteral("Menu"))->addAction(QStringLiteral("Entry"));
    theirs->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Right));
    const QKeyEvent key(QEvent::KeyPress, Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(EntryOfKey(&test_->window, key), nullptr);
    QCOMPARE(EntryOfKey(&other, key), theirs);
    const QKeyEvent save(QEvent::KeyPress, Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(EntryOfKey(&test_->window, save), test_->Find<QAction>("mnuFSave"));
    const QKeyEvent inSubmenu(QEvent::KeyPress, Qt::Key_U, Qt::ControlModifier);
    test_->Find<QAction>("mnuEUpperCase")->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_U));
    QCOMPARE(EntryOfKey(&test_->window, inSubmenu), test_->Find<QAction>("mnuEUpperCase"));
}

QTEST_MAIN(tst_commandkeys)
#include "tst_commandkeys.moc"
