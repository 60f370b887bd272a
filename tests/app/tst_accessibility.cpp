#include "tests/support/WidgetDriving.h"

#include "app/frmMapOptions.h"
#include "tests/app/MainWindowFixture.h"

#include <QAccessible>
#include <QTabBar>
#include <QTabWidget>
#include <QTreeWidget>
#include <memory>

/** What a screen reader and a user without a mouse find in the main window and the preferences. */
class tst_accessibility : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void controlsHaveNamesAndRoles_data();
    void controlsHaveNamesAndRoles();
    void everyControlThatTakesKeysIsNamed();
    void toolbarButtonsHaveNames();
    void menuEntriesHaveNames();
    void nodesOfTheTreeHaveNames();
    void buttonsCanBePressedByAScreenReader();
    void preferencesHaveNamesAndRoles_data();
    void preferencesHaveNamesAndRoles();

    void tabReachesEveryControl_data();
    void tabReachesEveryControl();
    void shiftTabLeavesTheEditor();

private:
    frmMapOptions* OpenPreferences();
    void CheckNameAndRole(QWidget* control);

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_accessibility::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
}

void tst_accessibility::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

frmMapOptions* tst_accessibility::OpenPreferences()
{
    test_->Press(Qt::Key_P, Qt::ControlModifier);
    return test_->window.findChild<frmMapOptions*>();
}

void tst_accessibility::CheckNameAndRole(QWidget* control)
{
    QFETCH(const QString, name);
    QFETCH(const int, role);
    QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(control);
    QVERIFY(face != nullptr && face->isValid());
    QCOMPARE(face->text(QAccessible::Name), name);
    QCOMPARE(int(face->role()), role);
    QVERIFY(!face->state().disabled);
}

void tst_accessibility::controlsHaveNamesAndRoles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("role");
    QTest::newRow("MapsText1") << "HTML source" << int(QAccessible::EditableText);
    QTest::newRow("TreeView1") << "HTML tags" << int(QAccessible::Tree);
    QTest::newRow("txtCTags") << "URL" << int(QAccessible::EditableText);
    QTest::newRow("ListView1") << "Saved links" << int(QAccessible::List);
    QTest::newRow("btnAdd") << "Add" << int(QAccessible::Button);
    QTest::newRow("btnDelete") << "Delete" << int(QAccessible::Button);
    QTest::newRow("btnSave") << "Save" << int(QAccessible::Button);
    QTest::newRow("Toolbar1") << "Toolbar" << int(QAccessible::ToolBar);
}

void tst_accessibility::controlsHaveNamesAndRoles()
{
    CheckNameAndRole(test_->Find<QWidget>(QTest::currentDataTag()));
}

void tst_accessibility::everyControlThatTakesKeysIsNamed()
{
    auto* const dialog = OpenPreferences();
    QVERIFY(dialog != nullptr);
    int count = 0;
    for (const QWidget* const window :
         { static_cast<QWidget*>(&test_->window), static_cast<QWidget*>(dialog) }) {
        for (QWidget* const widget : window->findChildren<QWidget*>()) {
            // A part of a control, or the menu bar, has its name from elsewhere.
            const bool isPart = widget->objectName().startsWith(u"qt_") || widget->focusProxy() != nullptr;
            if ((widget->focusPolicy() & Qt::TabFocus) == 0 || isPart || widget->window() != window ||
                qobject_cast<QMenu*>(widget) != nullptr) {
                continue;
            }
            ++count;
            QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(widget);
            QVERIFY(face != nullptr);
            QVERIFY2(!face->text(QAccessible::Name).isEmpty(), qPrintable(widget->objectName()));
            QVERIFY2(face->role() != QAccessible::NoRole, qPrintable(widget->objectName()));
            QVERIFY2(face->role() != QAccessible::Client, qPrintable(widget->objectName()));
        }
    }
    QVERIFY(count >= 12);
}

void tst_accessibility::toolbarButtonsHaveNames()
{
    int count = 0;
    for (QAction* const action : test_->Toolbar()->actions()) {
        if (action->isSeparator()) {
            continue;
        }
        ++count;
        QAccessibleInterface* const face =
            QAccessible::queryAccessibleInterface(test_->Toolbar()->widgetForAction(action));
        QVERIFY(face != nullptr);
        QCOMPARE(face->text(QAccessible::Name), action->toolTip());
        QCOMPARE(face->role(), QAccessible::Button);
    }
    QCOMPARE(count, 13);
}

void tst_accessibility::menuEntriesHaveNames()
{
    for (const char* const name :
         { "mnuFile", "mnuEdit", "mnuEEditCase", "mnuInsert", "mnuTools", "mnuHelp" }) {
        QAccessibleInterface* const menu = QAccessible::queryAccessibleInterface(test_->Find<QMenu>(name));
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->role(), QAccessible::PopupMenu);
        QVERIFY(menu->childCount() > 1);
        for (int i = 0; i < menu->childCount(); ++i) {
            QAccessibleInterface* const entry = menu->child(i);
            if (entry->role() != QAccessible::Separator) {
                QCOMPARE(entry->role(), QAccessible::MenuItem);
                QVERIFY(!entry->text(QAccessible::Name).isEmpty());
            }
        }
    }
}

void tst_accessibility::nodesOfTheTreeHaveNames()
{
    auto* const tree = test_->Find<QTreeWidget>("TreeView1");
    tree->expandAll();
    QAccessibleInterface* const face = QAccessible::queryAccessibleInterface(tree);
    QVERIFY(face != nullptr && face->tableInterface() != nullptr);
    QCOMPARE(face->tableInterface()->rowCount(), 169);
    for (int row = 0; row < 169; ++row) {
        QAccessibleInterface* const node = face->tableInterface()->cellAt(row, 0);
        QVERIFY(node != nullptr);
        QCOMPARE(node->role(), QAccessible::TreeItem);
        QVERIFY(!node->text(QAccessible::Name).isEmpty());
    }
}

void tst_accessibility::buttonsCanBePressedByAScreenReader()
{
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    QAccessibleInterface* const field =
        QAccessible::queryAccessibleInterface(test_->Find<QLineEdit>("txtCTags"));
    field->setText(QAccessible::Value, QStringLiteral("a.htm"));
    QAccessibleInterface* const add =
        QAccessible::queryAccessibleInterface(test_->Find<QPushButton>("btnAdd"));
    QVERIFY(add->actionInterface() != nullptr);
    add->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QTRY_COMPARE(test_->folder.imgMap.SavedLinkURL[1], QStringLiteral("a.htm"));
}

void tst_accessibility::preferencesHaveNamesAndRoles_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("role");
    QTest::newRow("optNoWordWrap") << "No Word Wrap" << int(QAccessible::RadioButton);
    QTest::newRow("optWrapToWin") << "Wrap to Widow" << int(QAccessible::RadioButton);
    QTest::newRow("txtIndentValue") << "Indentation in millimetres" << int(QAccessible::EditableText);
    QTest::newRow("cmdOK") << "OK" << int(QAccessible::Button);
    QTest::newRow("cmdClose") << "Close" << int(QAccessible::Button);
    QTest::newRow("Frame1") << "Image Maps Editor" << int(QAccessible::Grouping);
}

void tst_accessibility::preferencesHaveNamesAndRoles()
{
    const auto* const dialog = OpenPreferences();
    QVERIFY(dialog != nullptr);
    CheckNameAndRole(Find<QWidget>(dialog, QTest::currentDataTag()));
}

void tst_accessibility::tabReachesEveryControl_data()
{
    QTest::addColumn<int>("page");
    QTest::addColumn<QString>("controls");
    QTest::newRow("tags") << 0 << "qt_tabwidget_tabbar TreeView1 MapsText1";
    QTest::newRow("links") << 1
                           << "qt_tabwidget_tabbar txtCTags ListView1 btnAdd btnDelete btnSave MapsText1";
}

void tst_accessibility::tabReachesEveryControl()
{
    QFETCH(const int, page);
    QFETCH(const QString, controls);
    auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    tabs->setCurrentIndex(page);
    tabs->tabBar()->setFocus();
    QStringList names;
    // The editor takes Tab for a character of the page.
    while (names.size() < 20 && names.value(names.size() - 1) != u"MapsText1") {
        names << QApplication::focusWidget()->objectName();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QCOMPARE(names.join(u' '), controls);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("\t"));
}

void tst_accessibility::shiftTabLeavesTheEditor()
{
    test_->Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(QApplication::focusWidget(), static_cast<QWidget*>(test_->Find<QTreeWidget>("TreeView1")));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    QVERIFY(test_->Editor()->hasFocus());
    QCOMPARE(test_->Editor()->Text(), QString());
}

QTEST_MAIN(tst_accessibility)
#include "tst_accessibility.moc"
