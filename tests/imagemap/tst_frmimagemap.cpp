// The image map editor's window.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/EditorTexts.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QMenu>
#include <QMenuBar>
#include <QTabWidget>

class tst_frmimagemap : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void windowShowsItsCaptions();
    void tabsHoldTheirFields();
    void alignmentsStandInOrder();
    void listHasItsColumns();
    void menusHaveTheirEntriesInOrder_data();
    void menusHaveTheirEntriesInOrder();
    void helpEntryShowsTheContents();
    void helpKeyShowsTheEditorsPage();
    void thirdPanelTellsToOpenAPicture();
    void panelsStandInOrder();
    void windowHasALeastSize();
    void toolbarHasItsButtonsAndSeparators();
    void toolbarButtonsShowPictures();
};

void tst_frmimagemap::windowShowsItsCaptions()
{
    QCOMPARE(test_->editor->windowTitle(), QStringLiteral("Cartolen"));
    QCOMPARE(test_->Find<QCheckBox>("Check1")->text(), QStringLiteral("Insert Image File Name Only"));
    QVERIFY(!test_->Find<QCheckBox>("Check1")->isChecked());
    QCOMPARE(test_->Text("StatusBar1_Panel1"), QStringLiteral("Open an Image !"));
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("Open an Image !"));
    QStringList frames;
    for (const QGroupBox* const frame : test_->editor->findChildren<QGroupBox*>()) {
        frames << frame->title();
    }
    frames.sort();
    const QStringList expected = { QStringLiteral("Cursor Position"), QStringLiteral("Ending Position :"),
                                   QStringLiteral("Original"), QStringLiteral("Size - Radius"),
                                   QStringLiteral("Starting Position") };
    QCOMPARE(frames, expected);
    QStringList captions;
    for (const QLabel* const label : test_->editor->findChildren<QLabel*>()) {
        captions << label->text();
    }
    for (const char* const caption :
         { "Width :", "Height :", "Image Map Name :", "Image Map Preview :", "Total No. of Lines :",
           "Alt. Description :", "Image Width :", "Image Height :", "Border Width :", "Horiz. Spacing :",
           "Vert. Spacing :", "Alignment : " }) {
        QVERIFY2(captions.contains(QString::fromLatin1(caption)), caption);
    }
    for (const char* const label :
         { "lblCursor1", "lblCursor2", "lblStartPosition1", "lblStartPosition2", "lblEndPosition1",
           "lblEndPosition2", "lblDimensions1", "lblDimensions2", "lblFigures" }) {
        QCOMPARE(test_->Text(label), QString());
    }
}

void tst_frmimagemap::tabsHoldTheirFields()
{
    const auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    QCOMPARE(tabs->count(), 3);
    QCOMPARE(tabs->tabText(0), QStringLiteral("Creating"));
    QCOMPARE(tabs->tabText(1), QStringLiteral("Options"));
    QCOMPARE(tabs->currentIndex(), 0);
    for (const char* const name : { "lblWidthPic", "lblHeightPic", "txtName", "ListView1", "lblFigures" }) {
        QVERIFY2(tabs->widget(0)->isAncestorOf(test_->Find<QWidget>(name)), name);
    }
    for (const char* const name :
         { "txtAltDescript", "txtImgWidth", "txtImgHeight", "txtBorder", "txtHorSp", "txtVertSp" }) {
        QVERIFY2(tabs->widget(1)->isAncestorOf(test_->Find<QWidget>(name)), name);
        QCOMPARE(test_->Find<QLineEdit>(name)->text(), QString());
    }
    QVERIFY(tabs->widget(1)->isAncestorOf(test_->Find<QWidget>("cmbAlign")));
    QCOMPARE(test_->Find<QLineEdit>("txtName")->text(), QStringLiteral("MyImageMap"));
}

void tst_frmimagemap::alignmentsStandInOrder()
{
    const auto* const align = test_->Find<QComboBox>("cmbAlign");
    QStringList items;
    for (int i = 0; i < align->count(); ++i) {
        items << align->itemText(i);
    }
    QCOMPARE(
        items.join(u' '),
        QStringLiteral("TOP LEFT RIGHT TEXTTOP MIDDLE ABSMIDDLE BASELINE BOTTOM ABSBOTTOM"));
    QCOMPARE(align->currentText(), QString());
    QVERIFY(align->isEditable());
}

void tst_frmimagemap::listHasItsColumns()
{
    const QStringList headers = { QStringLiteral("Figure :"), QStringLiteral("Link to get conected to :"),
                                  QStringLiteral("Target :"), QStringLiteral("Coordinates :"),
                                  disabledHeader };
    QCOMPARE(test_->Headers(), headers);
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->List()->rootIsDecorated());
}

void tst_frmimagemap::menusHaveTheirEntriesInOrder_data()
{
    using Lines = QStringList;
    QTest::addColumn<QString>("menu");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<Lines>("lines");

    const auto add = [](const char* menu, const char* caption, const Lines& lines) {
        QTest::newRow(menu) << QString::fromLatin1(menu) << QString::fromLatin1(caption) << lines;
    };
    const QString separator = QStringLiteral("-");
    add("mnuFile", "&File",
        { QStringLiteral("mnuOpenImage=&Open an Image"), QStringLiteral("mnuNew=&New Image Map"), separator,
          QStringLiteral("mnuInsert=&Insert"), separator, QStringLiteral("mnuExit=E&xit") });
    add("mnuEdit", "&Edit",
        { QStringLiteral("mnuFigureColors=&Figure Colors..."), QStringLiteral("mnuLink=Edit &Data..."),
          separator, QStringLiteral("mnuDeleteLast=&Delete Last Figure") });
    add("mnuTool", "&Tools",
        { QStringLiteral("mnuFigNum_5=&Rectangle"), QStringLiteral("mnuFigNum_6=C&ircle"),
          QStringLiteral("mnuFigNum_7=&Line"), separator, QStringLiteral("mnuCursor=&Cursor") });
    add("mnuJS", "&Java Script", { QStringLiteral("mnuJSOptions=Java Script &Options...") });
    add("mnuHelp", "&Help", { QStringLiteral("mnuContents=&Help...") });
}

void tst_frmimagemap::menusHaveTheirEntriesInOrder()
{
    QFETCH(const QString, menu);
    QFETCH(const QString, caption);
    QFETCH(const QStringList, lines);

    const auto* const found = test_->Find<QMenu>(qPrintable(menu));
    QCOMPARE(found->title(), caption);
    QVERIFY(test_->Find<QMenuBar>("MenuBar1")->actions().contains(found->menuAction()));
    QStringList seen;
    for (const QAction* const entry : found->actions()) {
        seen << (entry->isSeparator() ? QStringLiteral("-") : entry->objectName() + u'=' + entry->text());
    }
    QCOMPARE(seen, lines);
}

void tst_frmimagemap::helpEntryShowsTheContents()
{
    QVERIFY(test_->Start());
    QDir::setCurrent(QDir::rootPath());
    QVERIFY(test_->Entry("mnuContents")->isEnabled());
    test_->Entry("mnuContents")->trigger();
    QCOMPARE(test_->help.Asked, QStringList({ QStringLiteral("contents") }));
    QCOMPARE(QDir::currentPath(), QDir(test_->imgMap.ProgramFolder).canonicalPath());
}

void tst_frmimagemap::helpKeyShowsTheEditorsPage()
{
    QVERIFY(test_->Start());
    for (const char* const name : { "txtName", "ListView1", "Check1" }) {
        test_->Find<QWidget>(name)->setFocus();
        QTest::keyClick(test_->editor->windowHandle(), Qt::Key_F1);
        QCOMPARE(test_->help.Asked, QStringList({ QStringLiteral("image-map-editor") }));
        test_->help.Asked.clear();
    }
}

void tst_frmimagemap::thirdPanelTellsToOpenAPicture()
{
    QCOMPARE(test_->Text("StatusBar1_Panel3"), QStringLiteral("First open a picture, a JPG or GIF file"));
    test_->OpenPicture();
    QCOMPARE(
        test_->Text("StatusBar1_Panel3"), QStringLiteral("Choose Rectangle, Circle or Line to draw an area"));
}

void tst_frmimagemap::panelsStandInOrder()
{
    int right = -1;
    for (const char* const name : { "StatusBar1_Panel1", "StatusBar1_Panel2", "StatusBar1_Panel3" }) {
        const auto* const panel = test_->Find<QLabel>(name);
        QVERIFY2(panel->x() > right, name);
        QVERIFY2(panel->width() > 100, name);
        right = panel->geometry().right();
    }
}

void tst_frmimagemap::windowHasALeastSize()
{
    test_->editor->resize(10, 10);
    QTRY_VERIFY(test_->editor->width() < 900);
    QVERIFY(test_->editor->width() >= 600);
    QVERIFY(test_->Find<QWidget>("PicNosac")->height() >= 150);
    QVERIFY(test_->Find<QWidget>("ListView1")->height() >= 100);
}

void tst_frmimagemap::toolbarHasItsButtonsAndSeparators()
{
    const QList<const char*> tips = { nullptr,           " New Image Map ",
                                      " Open an Image ", nullptr,
                                      " Rectangle ",     " Circle ",
                                      " Line ",          nullptr,
                                      " Cursor ",        nullptr,
                                      " Color ",         "Edit Data",
                                      nullptr,           " Delete Last Figure ",
                                      nullptr,           "Insert",
                                      nullptr,           " Exit " };
    const QList<QAction*> actions = test_->Find<QToolBar>("Toolbar1")->actions();
    QCOMPARE(actions.size(), tips.size());
    for (qsizetype i = 0; i < tips.size(); ++i) {
        QCOMPARE(actions[i]->isSeparator(), tips[i] == nullptr);
        if (tips[i] != nullptr) {
            QCOMPARE(actions[i]->toolTip(), QString::fromLatin1(tips[i]));
            QCOMPARE(
                test_->Find<QToolBar>("Toolbar1")->widgetForAction(actions[i])->toolTip(),
                QString::fromLatin1(tips[i]));
        }
    }
}

void tst_frmimagemap::toolbarButtonsShowPictures()
{
    for (const QAction* const action : test_->Find<QToolBar>("Toolbar1")->actions()) {
        if (!action->isSeparator()) {
            const QImage image = action->icon().pixmap(24, 24).toImage();
            QVERIFY2(!image.isNull(), qPrintable(action->toolTip()));
            QVERIFY2(image != QImage(image.size(), image.format()), qPrintable(action->toolTip()));
        }
    }
}

QTEST_MAIN(tst_frmimagemap)

#include "tst_frmimagemap.moc"
