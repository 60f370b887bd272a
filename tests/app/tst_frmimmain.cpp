#include "imagemap/frmImageMap.h"
#include "tests/app/MainWindowFixture.h"

#include <QGroupBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QScreen>
#include <QStatusBar>
#include <QTabWidget>
#include <QToolButton>
#include <QTreeWidget>
#include <memory>
#include <utility>

namespace {

constexpr int twipsPerPixel = 15;
constexpr qsizetype linkRecordSize = 276;

/** A used record of the links file. */
QByteArray LinkRecord(const QByteArray& url)
{
    QByteArray record = url.leftJustified(260, ' ') + QByteArray::fromHex("02000100");
    return record.leftJustified(linkRecordSize, '\0');
}

/** One line of a menu: a name alone is a separator. */
struct Line
{
    const char* name;
    const char* caption = nullptr;
    const char* shortcut = "";
};

QList<int> LookOfButtons(const QToolBar* toolbar)
{
    QList<int> looks;
    for (QAction* const action : toolbar->actions()) {
        if (const auto* const button = qobject_cast<QToolButton*>(toolbar->widgetForAction(action))) {
            looks << (button->autoRaise() ? 1 : 0);
        }
    }
    return looks;
}

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

class tst_frmimmain : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void windowIsComplete();
    void captionsAreThoseOfTheWindow();
    void menusHaveTheirEntriesInOrder_data();
    void menusHaveTheirEntriesInOrder();
    void menuBarHasTheMenusInOrder();
    void everyCommandHasItsOwnShortcut();
    void toolbarHasItsButtonsAndSeparators();
    void toolbarButtonsShowPictures();
    void separatorsDoNothing();

    void loadingMakesTheProgramFolderCurrent();
    void loadingCentresTheWindow();
    void loadingTurnsTheRaisedToolbarFlat();
    void loadingAFlatToolbarTurnsItRaised();
    void loadingStartsWithAnEmptyNewDocument();
    void loadingListsTheSavedLinks();
    void loadingListsAtMostFifteenLinks();
    void loadingCreatesMissingLinksFile();
    void loadingTellsOnceWhenTheLinksFolderIsMissing();
    void loadingTellsOfADamagedFileAfterEverythingElse();
    void showingEndsTheHourglass();
    void capsPanelFollowsWhatIsTyped();

    void editorTakesTheRoomOfTheWindow_data();
    void editorTakesTheRoomOfTheWindow();
    void lowWindowLeavesTheEditorsHeight();
    void narrowWindowLeavesTheEditorsWidth();
    void lowEditorLeavesTheTabbedPanelsHeight();
    void minimisingChangesNoSize();
    void longDocumentNameDoesNotWidenTheWindow();

    void imageMapEditorOpensBy_data();
    void imageMapEditorOpensBy();
    void imageMapEditorIsOpenedOnlyOnce();
    void minimisedImageMapEditorComesBack();
    void closedImageMapEditorIsOpenedAfresh();
    void mapGoesIntoTheDocumentAtTheCaret();

    void programEndsBy_data();
    void programEndsBy();
    void closingAsksWhenTheDocumentHasChanged_data();
    void closingAsksWhenTheDocumentHasChanged();
    void closingTakesTheImageMapEditorAlong();
    void closingWithFiguresTellsThatTheMapIsDeleted();
    void cancelledClosingKeepsTheMap();
    void closingGoesOnAfterAFailedSave();

private:
    void ResizeInside(int width, int height);
    void MakeFigure();
    frmImageMap* ImageMapEditor();
    QByteArray LoadedLinks();

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_frmimmain::init()
{
    test_ = std::make_unique<MainWindowFixture>();
}

void tst_frmimmain::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

/** Makes the room inside the window, below the menu bar and above the status bar, of the given size. */
void tst_frmimmain::ResizeInside(int width, int height)
{
    QMainWindow& window = test_->window;
    window.resize(window.size() - window.centralWidget()->size() + QSize(width, height));
    QTRY_COMPARE(window.centralWidget()->size(), QSize(width, height));
}

void tst_frmimmain::MakeFigure()
{
    FigureStore& store = test_->folder.map.Ledger();
    store.CurrentKind = kindRectangle;
    store.AppendFigure();
}

frmImageMap* tst_frmimmain::ImageMapEditor()
{
    return test_->window.findChild<frmImageMap*>(QStringLiteral("frmImageMap"));
}

QByteArray tst_frmimmain::LoadedLinks()
{
    const auto* const list = test_->Find<QListWidget>("ListView1");
    QStringList links;
    for (int i = 0; i < list->count(); ++i) {
        links << list->item(i)->text();
    }
    return links.join(u'|').toLatin1();
}

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
        QVERIFY(!action->isCheckable());
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
    QCOMPARE(names.join(u' '), QStringLiteral("mnuFile mnuEdit mnuInsert mnuTools mnuHelp"));
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
        QStringLiteral("Ctrl+C Ctrl+D Ctrl+E Ctrl+I Ctrl+N Ctrl+O Ctrl+P Ctrl+S Ctrl+X Ctrl+Z Del F1"));
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

void tst_frmimmain::loadingMakesTheProgramFolderCurrent()
{
    QDir::setCurrent(QDir::rootPath());
    test_->window.Form_Load();
    QCOMPARE(QDir::currentPath(), QDir(test_->folder.imgMap.ProgramFolder).canonicalPath());
}

void tst_frmimmain::loadingCentresTheWindow()
{
    frmIMmain& window = test_->window;
    window.resize(500, 400);
    window.Form_Load();
    const QRect screen = window.screen()->geometry();
    QCOMPARE(window.pos(), QPoint((screen.width() - 500) / 2, (screen.height() - 400) / 2));
}

void tst_frmimmain::loadingTurnsTheRaisedToolbarFlat()
{
    const QList<int> raised(13, 0);
    const QList<int> flat(13, 1);
    QCOMPARE(LookOfButtons(test_->Toolbar()), raised);
    test_->window.Form_Load();
    QCOMPARE(LookOfButtons(test_->Toolbar()), flat);
}

void tst_frmimmain::loadingAFlatToolbarTurnsItRaised()
{
    for (QToolButton* const button : test_->Toolbar()->findChildren<QToolButton*>()) {
        button->setAutoRaise(true);
    }
    test_->window.Form_Load();
    QCOMPARE(LookOfButtons(test_->Toolbar()), QList<int>(13, 0));
}

void tst_frmimmain::loadingStartsWithAnEmptyNewDocument()
{
    QVERIFY(test_->Start());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!test_->folder.imgMap.ContinueAction);
    test_->Type("x");
    QVERIFY(test_->window.File().IsChanged());
}

void tst_frmimmain::loadingListsTheSavedLinks()
{
    const QByteArray bytes = LinkRecord("  http://a.example/ ") + LinkRecord("b\xE9.htm") +
                             QByteArray(276, '\0') + LinkRecord("behind a free record");
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("Data/Links.dra")), bytes));
    QVERIFY(test_->Start());
    QCOMPARE(LoadedLinks(), QByteArray("http://a.example/|b\xE9.htm"));
    const ImgMap& imgMap = test_->folder.imgMap;
    QCOMPARE(imgMap.SavedLinkURL[1], QStringLiteral("http://a.example/"));
    QCOMPARE(imgMap.SavedLinkURL[2], QStringLiteral("b\u00E9.htm"));
    QVERIFY(imgMap.SavedLinkMark[1].has_value());
    QVERIFY(imgMap.SavedLinkMark[2].has_value());
    QVERIFY(!imgMap.SavedLinkMark[3].has_value());
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("Data/Links.dra"))), bytes);
}

void tst_frmimmain::loadingListsAtMostFifteenLinks()
{
    QByteArray bytes;
    for (int i = 1; i <= 20; ++i) {
        bytes += LinkRecord(QByteArray::number(i));
    }
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("Data/Links.dra")), bytes));
    QVERIFY(test_->Start());
    QCOMPARE(LoadedLinks(), QByteArray("1|2|3|4|5|6|7|8|9|10|11|12|13|14|15"));
    QVERIFY(!test_->folder.imgMap.SavedLinkMark[16].has_value());
}

void tst_frmimmain::loadingCreatesMissingLinksFile()
{
    QVERIFY(test_->Start());
    QCOMPARE(LoadedLinks(), QByteArray());
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("Data/Links.dra"))), QByteArray());
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_frmimmain::loadingTellsOnceWhenTheLinksFolderIsMissing()
{
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).rmdir(QStringLiteral("Data")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(test_->Start());
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("File Links.dra is either damaged or missing !"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QVERIFY(!QFile::exists(test_->folder.Path(QStringLiteral("Data"))));
    QVERIFY(test_->window.isVisible());
}

void tst_frmimmain::loadingTellsOfADamagedFileAfterEverythingElse()
{
    const QByteArray cutRecord = LinkRecord("cut off").first(100);
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("Data/Links.dra")), LinkRecord("good") + cutRecord));
    QString name;
    QByteArray links;
    QList<int> looks;
    test_->robot.Act([&](QDialog& dialog) {
        name = test_->DocumentName();
        links = LoadedLinks();
        looks = LookOfButtons(test_->Toolbar());
        dialog.accept();
    });
    QVERIFY(test_->Start());
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(
        test_->robot.Boxes().constFirst().text,
        QStringLiteral("File Links.dra is either damaged or missing !"));
    QCOMPARE(name, QString::fromLatin1(newDocument));
    QCOMPARE(links, QByteArray("good"));
    QCOMPARE(looks, QList<int>(13, 1));
    QCOMPARE(LoadedLinks(), QByteArray("good"));
}

void tst_frmimmain::showingEndsTheHourglass()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QVERIFY(test_->Start());
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_frmimmain::capsPanelFollowsWhatIsTyped()
{
    QVERIFY(test_->Start());
    const auto* const caps = test_->Find<QLabel>("StatusBar1_Panel1");
    QVERIFY(!caps->isEnabled());
    test_->Press(Qt::Key_CapsLock);
    QVERIFY(caps->isEnabled());
    QTest::keyClick(test_->Editor(), 'x');
    QVERIFY(!caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_X, QStringLiteral("X"), Qt::NoModifier);
    QVERIFY(caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_X, QStringLiteral("x"), Qt::ShiftModifier);
    QVERIFY(caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_X, QStringLiteral("X"), Qt::ShiftModifier);
    QVERIFY(!caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_1, QStringLiteral("1"), Qt::NoModifier);
    QVERIFY(!caps->isEnabled());
}

void tst_frmimmain::editorTakesTheRoomOfTheWindow_data()
{
    QTest::addColumn<QSize>("inside");
    QTest::newRow("medium") << QSize(700, 500);
    QTest::newRow("wide") << QSize(1200, 300);
    QTest::newRow("high") << QSize(400, 900);
    QTest::newRow("odd") << QSize(733, 517);
}

void tst_frmimmain::editorTakesTheRoomOfTheWindow()
{
    QFETCH(const QSize, inside);
    QVERIFY(test_->Start());
    const QWidget* const frame = test_->Find<QFrame>("Frame1");
    const QWidget* const tabs = test_->Find<QTabWidget>("SSTab1");
    const QWidget* const editor = test_->Editor();
    const QRect oldTabs = tabs->geometry();
    const QRect oldEditor = editor->geometry();
    const QRect oldFrame = frame->geometry();
    ResizeInside(inside.width(), inside.height());

    const auto pixels = [](int twips) { return qRound(double(twips) / twipsPerPixel); };
    const int width = inside.width() * twipsPerPixel;
    const int height = inside.height() * twipsPerPixel;
    QCOMPARE(frame->width(), pixels(width - 140));
    QCOMPARE(frame->height(), oldFrame.height());
    QCOMPARE(frame->pos(), oldFrame.topLeft());
    QCOMPARE(editor->pos(), oldEditor.topLeft());
    QCOMPARE(editor->height(), pixels(height - editor->y() * twipsPerPixel - 240));
    QCOMPARE(editor->width(), pixels(width - tabs->width() * twipsPerPixel - 240));
    QCOMPARE(tabs->pos(), oldTabs.topLeft());
    QCOMPARE(tabs->width(), oldTabs.width());
    QCOMPARE(tabs->height(), editor->height());
    QCOMPARE(editor->x(), tabs->geometry().right() + 1);
}

void tst_frmimmain::lowWindowLeavesTheEditorsHeight()
{
    QVERIFY(test_->Start());
    const QWidget* const editor = test_->Editor();
    const int top = editor->y();
    ResizeInside(700, 400);
    const int height = editor->height();
    // 13 pixels are less than the 200 twips that the guard asks for.
    ResizeInside(700, top + 13);
    QCOMPARE(editor->height(), height);
    // 14 pixels are more, but would leave a negative height, which is not taken.
    ResizeInside(700, top + 14);
    QCOMPARE(editor->height(), height);
    ResizeInside(700, top + 15);
    QCOMPARE(editor->height(), height);
    ResizeInside(700, top + 16);
    QCOMPARE(editor->height(), 0);
    ResizeInside(701, top + 13);
    QCOMPARE(editor->height(), 0);
    QCOMPARE(editor->width(), 701 - editor->x() - 16);
}

void tst_frmimmain::narrowWindowLeavesTheEditorsWidth()
{
    QVERIFY(test_->Start());
    const QWidget* const editor = test_->Editor();
    const int tabs = test_->Find<QTabWidget>("SSTab1")->width();
    ResizeInside(700, 400);
    const int width = editor->width();
    // 220 twips are 14 2/3 pixels.
    ResizeInside(tabs + 14, 400);
    QCOMPARE(editor->width(), width);
    ResizeInside(tabs + 15, 400);
    QCOMPARE(editor->width(), width);
    ResizeInside(tabs + 16, 400);
    QCOMPARE(editor->width(), 0);
    ResizeInside(tabs + 14, 450);
    QCOMPARE(editor->width(), 0);
    QCOMPARE(editor->height(), 450 - editor->y() - 16);
    QCOMPARE(test_->Find<QFrame>("Frame1")->width(), tabs + 14 - 9);
}

void tst_frmimmain::lowEditorLeavesTheTabbedPanelsHeight()
{
    QVERIFY(test_->Start());
    const QWidget* const editor = test_->Editor();
    const QWidget* const tabs = test_->Find<QTabWidget>("SSTab1");
    ResizeInside(700, editor->y() + 16 + 300);
    QCOMPARE(tabs->height(), 300);
    // 1150 twips are 76 2/3 pixels.
    ResizeInside(700, editor->y() + 16 + 76);
    QCOMPARE(editor->height(), 76);
    QCOMPARE(tabs->height(), 300);
    ResizeInside(700, editor->y() + 16 + 77);
    QCOMPARE(editor->height(), 77);
    QCOMPARE(tabs->height(), 77);
}

void tst_frmimmain::minimisingChangesNoSize()
{
    QVERIFY(test_->Start());
    ResizeInside(700, 400);
    const auto sizes = [this] {
        return QList<QSize>{ test_->Find<QFrame>("Frame1")->size(), test_->Find<QTabWidget>("SSTab1")->size(),
                             test_->Editor()->size() };
    };
    const QList<QSize> before = sizes();
    test_->window.showMinimized();
    QVERIFY(test_->window.isMinimized());
    // A window manager may well resize a minimised window.
    test_->window.centralWidget()->resize(300, 100);
    QCoreApplication::processEvents();
    QCOMPARE(sizes(), before);
    test_->window.showNormal();
    QCoreApplication::processEvents();
    ResizeInside(700, 400);
    QCOMPARE(sizes(), before);
}

void tst_frmimmain::longDocumentNameDoesNotWidenTheWindow()
{
    QVERIFY(test_->Start());
    const QSize before = test_->window.size();
    const QString path = test_->folder.Path(QString(200, u'x') + QStringLiteral(".htm"));
    QVERIFY(WriteBytes(path, "x"));
    test_->Open(path);
    QCOMPARE(test_->DocumentName(), path);
    QCoreApplication::processEvents();
    QCOMPARE(test_->window.size(), before);
}

void tst_frmimmain::imageMapEditorOpensBy_data()
{
    QTest::addColumn<QString>("way");
    for (const char* const way : { "shortcut", "menu", "toolbar" }) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

void tst_frmimmain::imageMapEditorOpensBy()
{
    QFETCH(const QString, way);
    QVERIFY(test_->Start());
    test_->Editor()->LoadText(QStringLiteral("text"));
    if (way == u"shortcut") {
        test_->Press(Qt::Key_I, Qt::ControlModifier);
    } else if (way == u"menu") {
        test_->ClickMenu("mnuInsert", "mnuIimagemaps");
    } else {
        test_->ClickToolbar(15);
    }
    frmImageMap* const editor = ImageMapEditor();
    QVERIFY(editor != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(editor->isWindow());
    QVERIFY(!editor->isModal());
    QCOMPARE(editor->parentWidget(), &test_->window);
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("text"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_frmimmain::imageMapEditorIsOpenedOnlyOnce()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    frmImageMap* const first = ImageMapEditor();
    QVERIFY(first != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(first));
    first->move(7, 9);
    const auto* const toolbar = first->findChild<QToolBar*>(QStringLiteral("Toolbar1"));
    const QList<int> looks = LookOfButtons(toolbar);
    test_->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&test_->window));

    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(test_->window.findChildren<frmImageMap*>().size(), 1);
    QCOMPARE(ImageMapEditor(), first);
    QVERIFY(QTest::qWaitForWindowActive(first));
    QCOMPARE(first->pos(), QPoint(7, 9));
    QCOMPARE(LookOfButtons(toolbar), looks);
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_frmimmain::minimisedImageMapEditorComesBack()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
    ImageMapEditor()->showMinimized();
    test_->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&test_->window));
    test_->ClickToolbar(15);
    QVERIFY(!ImageMapEditor()->isMinimized());
    QVERIFY(ImageMapEditor()->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
}

void tst_frmimmain::closedImageMapEditorIsOpenedAfresh()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    const QPointer<frmImageMap> first = ImageMapEditor();
    QVERIFY(first != nullptr);
    QVERIFY(first->close());
    QTRY_VERIFY(first == nullptr);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(ImageMapEditor() != nullptr);
    QVERIFY(ImageMapEditor()->isVisible());
}

void tst_frmimmain::mapGoesIntoTheDocumentAtTheCaret()
{
    QVERIFY(test_->Start());
    test_->Editor()->LoadText(QStringLiteral("a\r\n[old]\r\nb"));
    test_->Editor()->Select(3, 5);
    DocumentSink& document = test_->window.Page();
    QCOMPARE(document.InsertAtCaret(QStringLiteral("<MAP>\r\n</MAP>\r\n")), 2);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("a\r\n<MAP>\r\n</MAP>\r\n\r\nb"));
    QCOMPARE(test_->Editor()->SelStart(), qsizetype(18));
    QVERIFY(test_->window.File().IsChanged());
}

using Act = std::function<void(MainWindowFixture&)>;

void tst_frmimmain::programEndsBy_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char* name, const Act& act) { QTest::newRow(name) << act; };
    row("shortcut", [](MainWindowFixture& test) { test.Press(Qt::Key_E, Qt::ControlModifier); });
    row("menu", [](MainWindowFixture& test) { test.ClickMenu("mnuFile", "mnuFExit"); });
    row("toolbar", [](MainWindowFixture& test) { test.ClickToolbar(21); });
    row("close box", [](MainWindowFixture& test) { test.window.close(); });
}

void tst_frmimmain::programEndsBy()
{
    QFETCH(const Act, act);
    QVERIFY(test_->Start());
    QVERIFY(EndsProgram([&] { act(*test_); }));
    QVERIFY(!test_->window.isVisible());
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_frmimmain::closingAsksWhenTheDocumentHasChanged_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("isClosed");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("Yes") << QMessageBox::Yes << true << QByteArray("oldx\r\n\r\n");
    QTest::newRow("No") << QMessageBox::No << true << QByteArray("old\r\n");
    QTest::newRow("Cancel") << QMessageBox::Cancel << false << QByteArray("old\r\n");
}

void tst_frmimmain::closingAsksWhenTheDocumentHasChanged()
{
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, isClosed);
    QFETCH(const QByteArray, saved);
    QVERIFY(test_->Start());
    const QString path = test_->folder.Path(QStringLiteral("page.htm"));
    QVERIFY(WriteBytes(path, "old\r\n"));
    test_->Open(path);
    test_->Press(Qt::Key_End);
    test_->Type("x");
    test_->robot.AnswerBox(answer);
    if (isClosed) {
        QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    } else {
        test_->Press(Qt::Key_E, Qt::ControlModifier);
        QVERIFY(!test_->folder.imgMap.ContinueAction);
        QVERIFY(test_->window.File().IsChanged());
        QCOMPARE(test_->DocumentName(), path);
        QCOMPARE(test_->Editor()->Text(), QStringLiteral("oldx\r\n"));
    }
    QCOMPARE(test_->window.isVisible(), !isClosed);
    QCOMPARE(BytesOf(path), saved);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(
        test_->robot.Boxes().constFirst().text,
        QString(u"The text in [" + path + u"] has changed.\n\rDo you want to save the changes?"));
}

void tst_frmimmain::closingTakesTheImageMapEditorAlong()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    const QPointer<frmImageMap> editor = ImageMapEditor();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(editor == nullptr || !editor->isVisible());
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_frmimmain::closingWithFiguresTellsThatTheMapIsDeleted()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    const QPointer<frmImageMap> editor = ImageMapEditor();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    MakeFigure();
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::No);
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QVERIFY(test_->robot.Boxes().at(0).text.startsWith(u"The text in [New Document]"));
    const DialogRobot::SeenBox& box = test_->robot.Boxes().at(1);
    QCOMPARE(box.text, QStringLiteral("Your Image Map must be deleted"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::NoIcon);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
    QVERIFY(editor == nullptr || !editor->isVisible());
    QVERIFY(!test_->window.isVisible());
}

void tst_frmimmain::cancelledClosingKeepsTheMap()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    frmImageMap* const editor = ImageMapEditor();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    MakeFigure();
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_E, Qt::ControlModifier);
    QVERIFY(test_->window.isVisible());
    QVERIFY(editor->isVisible());
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 1);
    QVERIFY(!test_->folder.imgMap.ContinueAction);

    // Its own close box asks as if nothing had been closed before.
    test_->robot.AnswerBox(QMessageBox::No);
    editor->close();
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().at(1).text, QStringLiteral("Do you want to delete your Image Map?"));
    QVERIFY(editor->isVisible());
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 1);
}

void tst_frmimmain::closingGoesOnAfterAFailedSave()
{
    QVERIFY(test_->Start());
    QDir folder(test_->folder.imgMap.ProgramFolder);
    QVERIFY(folder.mkdir(QStringLiteral("pages")));
    const QString path = folder.filePath(QStringLiteral("pages/page.htm"));
    QVERIFY(WriteBytes(path, "old"));
    test_->Open(path);
    test_->Type("x");
    QVERIFY(QDir(folder.filePath(QStringLiteral("pages"))).removeRecursively());
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().at(1).icon, QMessageBox::Warning);
    QVERIFY(!test_->window.isVisible());
}

QTEST_MAIN(tst_frmimmain)
#include "tst_frmimmain.moc"
