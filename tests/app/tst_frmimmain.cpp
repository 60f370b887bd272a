#include "tests/app/FormFixture.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTabWidget>
#include <QTreeWidget>

namespace {

/** One line of a menu: a name alone is a separator. */
struct Line
{
    const char* name;
    const char* caption = nullptr;
    const char* shortcut = "";
};

bool ShowsPicture(const QIcon& icon)
{
    const QImage image = icon.pixmap(24, 24).toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y).alpha() != 0) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

/** What the main window consists of: controls, menus and toolbar. */
class tst_frmimmain : public FormFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void windowIsComplete();
    void captionsAreThoseOfTheWindow();
    void menusHaveTheirEntriesInOrder_data();
    void menusHaveTheirEntriesInOrder();
    void menuBarHasTheMenusInOrder();
    void everyCommandHasItsOwnShortcut();
    void toolbarHasItsButtonsAndSeparators();
    void toolbarButtonsShowPictures();
    void separatorsDoNothing();
};

void tst_frmimmain::windowIsComplete()
{
    QVERIFY(test_->Start());
    QCOMPARE(test_->window.objectName(), QStringLiteral("frmIMmain"));
    QCOMPARE(test_->window.font().family(), QStringLiteral("Tahoma"));
    QVERIFY(test_->Find<QFrame>("Frame1")->isAncestorOf(test_->Toolbar()));
    auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    QCOMPARE(tabs->count(), 2);
    QWidget* const tags = tabs->widget(0);
    QWidget* const links = tabs->widget(1);
    QVERIFY(tags->isAncestorOf(test_->Find<QTreeWidget>("TreeView1")));
    auto* const preview = test_->Find<QGroupBox>("Frame3");
    QVERIFY(tags->isAncestorOf(preview));
    for (const char* const name : { "lblQTagsO", "lblQTagsC" }) {
        const auto* const label = test_->Find<QLabel>(name);
        QVERIFY(preview->isAncestorOf(label));
        QCOMPARE(label->text(), QString());
        QCOMPARE(label->font().family(), QStringLiteral("MS Sans Serif"));
    }
    for (const char* const name : { "Label1", "Label2", "Label3", "Label4" }) {
        QVERIFY(links->isAncestorOf(test_->Find<QLabel>(name)));
    }
    for (const char* const name : { "btnAdd", "btnDelete", "btnSave" }) {
        QVERIFY(links->isAncestorOf(test_->Find<QPushButton>(name)));
    }
    QVERIFY(links->isAncestorOf(test_->Find<QLineEdit>("txtCTags")));
    QVERIFY(links->isAncestorOf(test_->Find<QListWidget>("ListView1")));
    QCOMPARE(test_->Find<QLabel>("Picture1")->isVisible(), true);
    QVERIFY(!test_->Find<QLabel>("Picture1")->pixmap(Qt::ReturnByValue).isNull());
    QVERIFY(!test_->Find<QLabel>("Picture2")->pixmap(Qt::ReturnByValue).isNull());
    QCOMPARE(test_->Editor()->font().family(), QStringLiteral("Courier New"));
    QVERIFY(test_->Editor()->hasFocus());
    QVERIFY(!test_->Editor()->isReadOnly());
    QVERIFY(test_->Find<QStatusBar>("StatusBar1")->isVisible());
}

void tst_frmimmain::captionsAreThoseOfTheWindow()
{
    QVERIFY(test_->Start());
    const auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    QCOMPARE(tabs->tabText(0), QStringLiteral(" Tags "));
    QCOMPARE(tabs->tabText(1), QStringLiteral(" Links "));
    QCOMPARE(test_->Find<QGroupBox>("Frame3")->title(), QStringLiteral("Preview :"));
    QCOMPARE(test_->Find<QLabel>("Label1")->text(), QStringLiteral("URL :"));
    QCOMPARE(test_->Find<QLabel>("Label3")->text(), QStringLiteral("Delete"));
    QCOMPARE(test_->Find<QLabel>("Label4")->text(), QStringLiteral("Save"));
    QCOMPARE(test_->Find<QLabel>("StatusBar1_Panel1")->text(), QStringLiteral("CAPS"));
}

void tst_frmimmain::menusHaveTheirEntriesInOrder_data()
{
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QList<Line>>("lines");
    QTest::newRow("mnuFile") << "&File"
                             << QList<Line>{ { "mnuFNew", "&New", "Ctrl+N" },
                                             { "mnuFOpen", "&Open...", "Ctrl+O" },
                                             { "mnuFSave", "&Save", "Ctrl+S" },
                                             { "mnuFSaveAs", "Save &As...", "" },
                                             { "mnuFSep1" },
                                             { "mnuFPrint", "&Print..." },
                                             { "mnuFSep2" },
                                             { "mnuFExit", "&Exit", "Ctrl+E" } };
    QTest::newRow("mnuEdit") << "&Edit"
                             << QList<Line>{ { "mnuEUndo", "&Undo", "Ctrl+Z" },
                                             { "mnuESep1" },
                                             { "mnuECut", "Cu&t", "Ctrl+X" },
                                             { "mnuECopy", "&Copy", "Ctrl+C" },
                                             { "mnuEPaste", "&Paste", "" },
                                             { "mnuEDelete", "&Delete", "Del" },
                                             { "mnuESelectAll", "Select &All", "" },
                                             { "mnuESep2" },
                                             { "mnuEFont", "&Font", "" },
                                             { "mnuESep3" },
                                             { "mnuEEditCase", "&Edit Case", "" } };
    QTest::newRow("mnuEEditCase") << "&Edit Case"
                                  << QList<Line>{ { "mnuEUpperCase", "&Upper Case", "" },
                                                  { "mnuELowerCase", "&Lower Case", "" },
                                                  { "mnuEProperCase", "&Proper Case", "" } };
    QTest::newRow("mnuInsert") << "&Insert"
                               << QList<Line>{ { "mnuIimagemaps", "&Image Maps...", "Ctrl+I" },
                                               { "mnuISep2" },
                                               { "mnuICustomHTML", "Custom &HTML", "" } };
    QTest::newRow("mnuTools") << "&Tools"
                              << QList<Line>{ { "mnuTPref", "&Preferences...", "Ctrl+P" },
                                              { "mnuTSep1" },
                                              { "mnuTPreview", "Preview with Default &Browser", "Ctrl+D" } };
    QTest::newRow("mnuPage") << "&Page"
                             << QList<Line>{ { "mnuPFind", "&Find...", "Ctrl+F" },
                                             { "mnuPReplace", "&Replace...", "Ctrl+H" },
                                             { "mnuPNext", "Find &Next", "F3" },
                                             { "mnuPPrevious", "Find &Previous", "Shift+F3" },
                                             { "mnuPSep1" },
                                             { "mnuPGoTo", "&Go to Line...", "Ctrl+G" },
                                             { "mnuPSep2" },
                                             { "mnuPRedo", "Red&o", "Ctrl+Y" },
                                             { "mnuPSep3" },
                                             { "mnuPNewPage", "New Page for &Today", "" },
                                             { "mnuPRecent", "R&ecent Files", "" },
                                             { "mnuPSep4" },
                                             { "mnuPIndent", "&Indent Lines", "" },
                                             { "mnuPUnindent", "&Unindent Lines", "" },
                                             { "mnuPTabIndents", "Tab Ke&y Indents", "" },
                                             { "mnuPComment", "Co&mment", "Ctrl+/" },
                                             { "mnuPCloseTag", "&Close Tag", "" },
                                             { "mnuPComplete", "Tag Comp&letion", "" },
                                             { "mnuPFormat", "Form&at Page", "" },
                                             { "mnuPSep5" },
                                             { "mnuPCheck", "Chec&k Page", "" },
                                             { "mnuPSep6" },
                                             { "mnuPEditMap", "&Edit Image Map...", "Ctrl+M" },
                                             { "mnuPToToday", "&Bring Map up to Date", "" } };
    QTest::newRow("mnuHelp") << "&Help"
                             << QList<Line>{ { "mnuHContents", "&Contents", "F1" },
                                             { "mnuHSearch", "&Search" },
                                             { "mnuHSep1" },
                                             { "mnuHHome", "&Cartolen Home Page..." },
                                             { "mnuHSep2" },
                                             { "mnuHAbout", "&About Cartolen..." } };
}

void tst_frmimmain::menusHaveTheirEntriesInOrder()
{
    QFETCH(const QString, caption);
    QFETCH(const QList<Line>, lines);
    QVERIFY(test_->Start());
    const auto* const menu = test_->Find<QMenu>(QTest::currentDataTag());
    QCOMPARE(menu->title(), caption);
    const QList<QAction*> actions = menu->actions();
    QCOMPARE(actions.size(), lines.size());
    for (qsizetype i = 0; i < lines.size(); ++i) {
        const QAction* const action = actions[i];
        QCOMPARE(action->objectName(), QString::fromLatin1(lines[i].name));
        QCOMPARE(action->isSeparator(), lines[i].caption == nullptr);
        if (action->isSeparator()) {
            continue;
        }
        QCOMPARE(action->text(), QString::fromLatin1(lines[i].caption));
        QCOMPARE(
            action->shortcut().toString(QKeySequence::PortableText), QString::fromLatin1(lines[i].shortcut));
        const QStringList checkable = { QStringLiteral("mnuPTabIndents"), QStringLiteral("mnuPComplete") };
        QCOMPARE(action->isCheckable(), checkable.contains(action->objectName()));
        QVERIFY2(action->isEnabled(), lines[i].name);
    }
}

void tst_frmimmain::menuBarHasTheMenusInOrder()
{
    QVERIFY(test_->Start());
    QStringList names;
    for (const QAction* const action : test_->Find<QMenuBar>("MenuBar1")->actions()) {
        names << action->menu()->objectName();
    }
    QCOMPARE(names.join(u' '), QStringLiteral("mnuFile mnuEdit mnuInsert mnuTools mnuPage mnuView mnuHelp"));
    QCOMPARE(test_->Find<QMenu>("mnuEEditCase")->menuAction()->menu()->title(), QStringLiteral("&Edit Case"));
}

void tst_frmimmain::everyCommandHasItsOwnShortcut()
{
    QVERIFY(test_->Start());
    QStringList shortcuts;
    for (const QAction* const action : test_->window.findChildren<QAction*>()) {
        for (const QKeySequence& shortcut : action->shortcuts()) {
            shortcuts << shortcut.toString(QKeySequence::PortableText);
        }
    }
    shortcuts.sort();
    QCOMPARE(
        shortcuts.join(u' '),
        QStringLiteral("Ctrl++ Ctrl+- Ctrl+/ Ctrl+C Ctrl+D Ctrl+E Ctrl+F Ctrl+G Ctrl+H Ctrl+I Ctrl+M "
                       "Ctrl+N Ctrl+O Ctrl+P Ctrl+S Ctrl+X "
                       "Ctrl+Y Ctrl+Z Del F1 F3 Shift+F3"));
}

void tst_frmimmain::toolbarHasItsButtonsAndSeparators()
{
    // An empty tip stands for a separator.
    const QList<const char*> tips = { "",
                                      "New",
                                      "Open",
                                      "Save",
                                      "",
                                      "Print",
                                      "",
                                      "Cut",
                                      "Copy",
                                      "Paste",
                                      "Undo",
                                      "",
                                      "Custom HTML",
                                      "",
                                      "Image Map",
                                      "",
                                      "Preview with Default Browser",
                                      "",
                                      "Help",
                                      "",
                                      "Exit" };
    QVERIFY(test_->Start());
    const QList<QAction*> actions = test_->Toolbar()->actions();
    QCOMPARE(actions.size(), 21);
    QCOMPARE(tips.size(), 21);
    for (qsizetype i = 0; i < actions.size(); ++i) {
        const bool isSeparator = *tips[i] == '\0';
        QCOMPARE(actions[i]->isSeparator(), isSeparator);
        if (isSeparator) {
            continue;
        }
        QCOMPARE(actions[i]->toolTip(), QString::fromLatin1(tips[i]));
        QVERIFY2(actions[i]->isEnabled(), tips[i]);
        QWidget* const button = test_->Toolbar()->widgetForAction(actions[i]);
        QVERIFY2(button->isVisible(), tips[i]);
        QCOMPARE(button->toolTip(), QString::fromLatin1(tips[i]));
    }
}

void tst_frmimmain::toolbarButtonsShowPictures()
{
    QVERIFY(test_->Start());
    for (const QAction* const action : test_->Toolbar()->actions()) {
        QVERIFY2(action->isSeparator() || ShowsPicture(action->icon()), qPrintable(action->toolTip()));
    }
    for (const char* const name : { "btnAdd", "btnDelete", "btnSave" }) {
        QVERIFY2(ShowsPicture(test_->Find<QPushButton>(name)->icon()), name);
    }
}

void tst_frmimmain::separatorsDoNothing()
{
    QVERIFY(test_->Start());
    test_->Type("x");
    for (const int position : { 1, 5, 7, 12, 14, 16, 18, 20 }) {
        QVERIFY(test_->Toolbar()->actions().at(position - 1)->isSeparator());
        test_->ClickToolbar(position);
    }
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(test_->window.isVisible());
    QVERIFY(ImageMapEditor() == nullptr);
}

QTEST_MAIN(tst_frmimmain)
#include "tst_frmimmain.moc"
