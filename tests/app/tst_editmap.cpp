// Maps of a page come back into the editor, and go into the page again.

#include "tests/support/WidgetDriving.h"

#include "imagemap/frmImageMap.h"
#include "mapreader/PageMaps.h"
#include "tests/app/DocumentsFixture.h"

#include <QDir>
#include <QTabWidget>
#include <QTableWidget>
#include <QTreeView>

namespace {

constexpr const char* twoAreas =
    "<p>One</p>\r\n"
    "<img src=\"harbour.jpg\" usemap=\"#h\" width=\"300\" height=\"200\" alt=\"The harbour\">\r\n"
    "<map name=h>\r\n"
    "  <area href='a.htm' shape=rect coords=\"10, 20,60,70\" alt=A title=\"About A\" data-x=\"1\">\r\n"
    "  <AREA SHAPE=\"circle\" COORDS=\"150,100,30\" HREF=\"b.htm?x=1&amp;y=2\" ALT=\"\">\r\n"
    "</map>\r\n"
    "<p>Two</p>\r\n";

} // namespace

class tst_editmap : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void onlyMapOpensAsDrawn();
    void unchangedPageStays_data();
    void unchangedPageStays();
    void movedAreaChangesItsCoordinatesAlone();
    void changedLinkChangesItAlone();
    void deletedAreaTakesItsLine();
    void drawnAreaIsWrittenBesideTheOthers();
    void updateIsOneStepOfUndo();
    void mapAtTheCaretIsTaken();
    void nextMapOpensWhereItIsAfterAnUpdate();
    void listOffersAllMapsAndPictures();
    void escapeClosesTheList();
    void pageWithoutMapsSaysSo();
    void unchangedMapClosesWithoutAQuestion();
    void changesAreOfferedToThePage_data();
    void changesAreOfferedToThePage();
    void endOfTheProgramAsksForChanges();
    void endOfTheProgramKeepsNoMapOfThePage();
    void drawnMapIsAskedForFirst();
    void openingIsAStepOfUndo();
    void insertedMapIsUpdatedWhereItIs();
    void insertedMapIsAskedForAsEver();
    void missingPictureLeavesAPlainGround();
    void handMadeChangesOfThePageStay();
    void lossesAreToldBeforeAnythingIsWritten();
    void updateNeedsAPlaceInThePage();
    void attributesAreChangedInTheirTable();
    void attributesAreAddedAndRemoved();
    void codeOfATemplateIsReadOnly();
    void areasThatCannotBeDrawnStay();
    void coordinatesThatCannotBeDrawnAreEditedAsText();
    void mapIsBroughtUpToDateAfterAPreview();
    void mapStaysWhenThePreviewIsCancelled();
    void mapWithoutAPictureIsNotBroughtUpToDate();

private:
    void WritePicture(QSize size = { 300, 200 });
    void Load(const QString& text);
    frmImageMap* Map() { return ::Find<frmImageMap>(&test_->window, "frmImageMap"); }
    void PressEdit() { test_->Press(Qt::Key_M, Qt::ControlModifier); }
    bool Edit();
    void Update();
    QString Text() { return test_->Editor()->Text(); }
    QStringList Rows();
    void Choose(int row);
    void ShowArea(int row);
    QTableWidget* Table() { return ::Find<QTableWidget>(Map(), "tblAttributes"); }
    QStringList Attributes();
    void TypeInCell(int row, int column, const char* text);
    void GoToMap();

    static QString Replaced(QString text, const char* old, const char* now)
    {
        return text.replace(QString::fromLatin1(old), QString::fromLatin1(now));
    }
};

void tst_editmap::init()
{
    Start();
    WritePicture();
    QVERIFY(WriteBytes(Path("page.htm"), "x"));
    QVERIFY(OpenFile("page.htm", "x\r\n"));
}

void tst_editmap::WritePicture(QSize size)
{
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    QVERIFY(picture.save(Path("harbour.jpg"), "JPG"));
}

void tst_editmap::Load(const QString& text)
{
    test_->Editor()->LoadText(text);
}

/** Opens a map by the command's key; the editor comes to the front. */
bool tst_editmap::Edit()
{
    PressEdit();
    return QTest::qWaitFor([this] {
        const auto* const editor = test_->window.findChild<frmImageMap*>();
        return editor != nullptr && editor->isVisible() && QApplication::activeModalWidget() == nullptr &&
               ::Find<QAction>(editor, "mnuAUpdatePage")->isEnabled();
    });
}

void tst_editmap::GoToMap()
{
    Map()->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(Map()));
}

void tst_editmap::Update()
{
    GoToMap();
    QTest::keyClick(Map(), Qt::Key_U, Qt::ControlModifier);
}

QStringList tst_editmap::Rows()
{
    QStringList rows;
    const QAbstractItemModel* const model = ::Find<QTreeView>(Map(), "ListView1")->model();
    for (int row = 0; row < model->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model->columnCount(); ++column) {
            cells << model->index(row, column).data().toString();
        }
        rows << cells.join(u'|');
    }
    return rows;
}

/** Selects an area by its row. */
void tst_editmap::Choose(int row)
{
    GoToMap();
    auto* const tabs = ::Find<QTabWidget>(Map(), "SSTab1");
    tabs->setCurrentIndex(0);
    auto* const list = ::Find<QTreeView>(Map(), "ListView1");
    QTest::mouseClick(
        list->viewport(), Qt::LeftButton, {},
        list->visualRect(list->model()->index(row, 0)).topLeft() + QPoint(20, 5));
}

/** Shows an area on the tab Area. */
void tst_editmap::ShowArea(int row)
{
    Choose(row);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
}

QStringList tst_editmap::Attributes()
{
    QStringList rows;
    for (int row = 0; row < Table()->rowCount(); ++row) {
        rows << Table()->item(row, 0)->text() + u'=' + Table()->item(row, 1)->text();
    }
    return rows;
}

/** Writes into a cell by a double click and keys. */
void tst_editmap::TypeInCell(int row, int column, const char* text)
{
    Table()->scrollToItem(Table()->item(row, column));
    const QPoint place = Table()->visualItemRect(Table()->item(row, column)).center();
    QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, place);
    auto* const field = Table()->findChild<QLineEdit*>();
    if (field == nullptr) {
        return; // it cannot be written into
    }
    field->selectAll();
    QTest::keyClicks(field, QString::fromLatin1(text));
    QTest::keyClick(field, Qt::Key_Return);
}

void tst_editmap::onlyMapOpensAsDrawn()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    QCOMPARE(
        Rows(), QStringList({ QStringLiteral(" No: 1 Rectangle|a.htm||10, 20, 60, 70|About A"),
                              QStringLiteral(" No: 2 Circle|b.htm?x=1&y=2||150, 100, 30|") }));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtName")->text(), QStringLiteral("h"));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtAltDescript")->text(), QStringLiteral("The harbour"));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtImgWidth")->text(), QStringLiteral("300"));
    QCOMPARE(::Find<QWidget>(Map(), "PictureDisplay")->size(), QSize(300, 200));
    QVERIFY(::Find<QAction>(Map(), "mnuInsert")->isEnabled());
    QVERIFY(test_->Editor()->SelText().startsWith(u"<map name=h>"));
    QVERIFY(test_->Editor()->SelText().endsWith(u"</map>"));
}

void tst_editmap::unchangedPageStays_data()
{
    QTest::addColumn<QString>("file");
    const QDir pages(QStringLiteral(CARTOLEN_MAP_PAGES));
    for (const QString& file : pages.entryList(QDir::Files)) {
        QTest::newRow(qPrintable(file)) << pages.filePath(file);
    }
}

void tst_editmap::unchangedPageStays()
{
    QFETCH(const QString, file);
    Load(QString::fromUtf8(BytesOf(file)));
    const QString text = Text();
    const PageMaps maps = ReadPageMaps(text);
    test_->robot.Hurry();
    constexpr std::size_t mostTried = 6;
    for (std::size_t i = 0; i < maps.maps.size(); i += 1 + maps.maps.size() / mostTried) {
        test_->Editor()->Select(maps.maps[i].tag.offset + 1, 0);
        test_->robot.Cancel(); // the picture is not there
        QVERIFY(Edit());
        if (test_->robot.HasAnswersLeft()) {
            test_->robot.TakeBack();
        }
        Update();
        QCOMPARE(Text(), text);
        Map()->close();
    }
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_editmap::movedAreaChangesItsCoordinatesAlone()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    GoToMap();
    auto* const picture = ::Find<QWidget>(Map(), "PictureDisplay");
    ::Find<QAction>(Map(), "mnuASelect")->trigger();
    QTest::mousePress(picture, Qt::LeftButton, {}, { 30, 40 });
    QTest::mouseMove(picture, { 40, 44 });
    QTest::mouseMove(picture, { 50, 50 });
    QTest::mouseRelease(picture, Qt::LeftButton, {}, { 50, 50 });
    Update();
    QCOMPARE(Text(), Replaced(QString::fromLatin1(twoAreas), "10, 20,60,70", "30, 30,80,80"));
}

void tst_editmap::changedLinkChangesItAlone()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(1);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
    TypeIn(Map(), "cmbAreaLink", "c.htm?x=1&y=2");
    Update();
    QCOMPARE(Text(), Replaced(QString::fromLatin1(twoAreas), "b.htm?x=1&amp;y=2", "c.htm?x=1&amp;y=2"));
}

void tst_editmap::deletedAreaTakesItsLine()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(0);
    QTest::keyClick(::Find<QTreeView>(Map(), "ListView1"), Qt::Key_Delete);
    Update();
    QCOMPARE(
        Text(), Replaced(
                    QString::fromLatin1(twoAreas),
                    "  <area href='a.htm' shape=rect coords=\"10, 20,60,70\" alt=A title=\"About A\" "
                    "data-x=\"1\">\r\n",
                    ""));
}

void tst_editmap::drawnAreaIsWrittenBesideTheOthers()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Click(::Find<QToolBar>(Map(), "Toolbar1")
              ->widgetForAction(::Find<QToolBar>(Map(), "Toolbar1")->actions().at(4)));
    auto* const picture = ::Find<QWidget>(Map(), "PictureDisplay");
    test_->robot.Act([](QDialog& dialog) {
        TypeIn(&dialog, "cmbLink", "new.htm");
        TypeIn(&dialog, "txtStatusBarMessage", "New");
        ClickIn(&dialog, "SSCmdOK");
    });
    QTest::mousePress(picture, Qt::LeftButton, {}, { 200, 120 });
    QTest::mouseMove(picture, { 220, 140 });
    QTest::mouseMove(picture, { 240, 160 });
    QTest::mouseRelease(picture, Qt::LeftButton, {}, { 240, 160 });
    test_->robot.WaitUntilDone();
    Update();
    const QString text = Text();
    const QString before = QString::fromLatin1(twoAreas);
    const qsizetype place = before.indexOf(u"</map>");
    QVERIFY(text.startsWith(before.first(place)));
    QVERIFY(text.endsWith(before.sliced(place)));
    const QString line = text.sliced(place, text.size() - before.size());
    QVERIFY2(line.contains(u"200,120,240,160") && line.contains(u"new.htm"), qPrintable(line));
    QVERIFY2(line.startsWith(u"  <") && line.endsWith(u">\r\n") && line.count(u'\n') == 1, qPrintable(line));
    // What was written counts as read.
    Update();
    QCOMPARE(Text(), text);
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
}

void tst_editmap::updateIsOneStepOfUndo()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    TypeIn(Map(), "txtName", "harbour");
    Choose(0);
    QTest::keyClick(::Find<QTreeView>(Map(), "ListView1"), Qt::Key_Delete);
    Update();
    QVERIFY(Text().contains(u"usemap=\"#harbour\"") && Text().contains(u"<map name=harbour>"));
    QVERIFY(!Text().contains(u"a.htm"));
    test_->Editor()->undo();
    QCOMPARE(Text(), QString::fromLatin1(twoAreas));
}

void tst_editmap::mapAtTheCaretIsTaken()
{
    const QString page = QString::fromLatin1(twoAreas) +
                         QStringLiteral("<img src=harbour.jpg usemap=#o><map name=o><area href=o.htm "
                                        "coords=1,2,30,40></map>");
    Load(page);
    test_->Editor()->Select(page.indexOf(u"o.htm"), 0);
    QVERIFY(Edit());
    QCOMPARE(Rows(), QStringList(QStringLiteral(" No: 1 Rectangle|o.htm||1, 2, 30, 40|")));
}

void tst_editmap::nextMapOpensWhereItIsAfterAnUpdate()
{
    const QString page = QString::fromLatin1(twoAreas) +
                         QStringLiteral("<img src=harbour.jpg usemap=#o><map name=o><area href=o.htm "
                                        "coords=1,2,30,40></map>");
    Load(page);
    test_->Editor()->Select(page.indexOf(u"a.htm"), 0);
    QVERIFY(Edit());
    ShowArea(0);
    TypeIn(Map(), "cmbAreaLink", "a-much-longer-name.htm");
    test_->Editor()->Select(page.indexOf(u"o.htm"), 0);
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Find<QAction>("mnuPEditMap")->trigger();
    test_->robot.WaitUntilDone();
    QTRY_COMPARE(Rows(), QStringList(QStringLiteral(" No: 1 Rectangle|o.htm||1, 2, 30, 40|")));
    QCOMPARE(Text(), Replaced(page, "a.htm", "a-much-longer-name.htm"));
    Update();
    QCOMPARE(Text(), Replaced(page, "a.htm", "a-much-longer-name.htm"));
}

void tst_editmap::listOffersAllMapsAndPictures()
{
    const QString page = QString::fromLatin1(twoAreas) +
                         QStringLiteral("<map name=o><area href=o.htm coords=1,2,30,40></map>\r\n"
                                        "<img src=harbour.jpg>");
    Load(page);
    test_->Editor()->Select(0, 0);
    PressEdit();
    auto* const list = ::Find<QTreeView>(::Find<QDialog>(&test_->window, "frmPageMaps"), "lstMaps");
    QStringList rows;
    for (int row = 0; row < list->model()->rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < list->model()->columnCount(); ++column) {
            cells << list->model()->index(row, column).data().toString();
        }
        rows << cells.join(u'|');
    }
    QCOMPARE(
        rows, QStringList({ QStringLiteral("h|harbour.jpg|2|3|"), QStringLiteral("o||1|8|no picture uses it"),
                            QStringLiteral("|harbour.jpg||9|no map") }));
    test_->robot.Act([](QDialog& dialog) {
        auto* const maps = ::Find<QTreeView>(&dialog, "lstMaps");
        const QPoint place = maps->visualRect(maps->model()->index(2, 0)).center();
        QTest::mouseClick(maps->viewport(), Qt::LeftButton, {}, place);
        QTest::mouseDClick(maps->viewport(), Qt::LeftButton, {}, place);
    });
    test_->robot.WaitUntilDone();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() != nullptr);
    QTRY_COMPARE(::Find<QWidget>(Map(), "PictureDisplay")->size(), QSize(300, 200));
    QVERIFY(Rows().isEmpty());
    QVERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
}

void tst_editmap::escapeClosesTheList()
{
    Load(QStringLiteral("<img src=a.png><img src=b.png>"));
    test_->robot.Cancel();
    PressEdit();
    test_->robot.WaitUntilDone();
    QVERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
}

void tst_editmap::pageWithoutMapsSaysSo()
{
    Load(QStringLiteral("<p>Nothing</p>"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    PressEdit();
    test_->robot.WaitUntilDone();
    QCOMPARE(
        test_->robot.Boxes().constLast().text,
        QStringLiteral("The page has neither an image map nor a picture !"));
}

void tst_editmap::unchangedMapClosesWithoutAQuestion()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_editmap::changesAreOfferedToThePage_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("isClosed");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("yes") << QMessageBox::Yes << true << true;
    QTest::newRow("no") << QMessageBox::No << true << false;
    QTest::newRow("cancel") << QMessageBox::Cancel << false << false;
}

void tst_editmap::changesAreOfferedToThePage()
{
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, isClosed);
    QFETCH(const bool, isWritten);
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(0);
    QTest::keyClick(::Find<QTreeView>(Map(), "ListView1"), Qt::Key_Delete);
    test_->robot.AnswerBox(answer);
    Map()->close();
    test_->robot.WaitUntilDone();
    QCOMPARE(
        test_->robot.Boxes().constLast().text,
        QStringLiteral("The page does not have your changes of its map yet.\n\nUpdate the page?"));
    QTRY_COMPARE(test_->window.findChild<frmImageMap*>() == nullptr, isClosed);
    QCOMPARE(!Text().contains(u"a.htm"), isWritten);
}

void tst_editmap::endOfTheProgramAsksForChanges()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(0);
    QTest::keyClick(::Find<QTreeView>(Map(), "ListView1"), Qt::Key_Delete);
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->window.close();
    test_->robot.WaitUntilDone();
    QVERIFY(test_->robot.Boxes().constLast().text.endsWith(u"Update the page?"));
    QVERIFY(test_->window.isVisible() && Map()->isVisible());
}

void tst_editmap::endOfTheProgramKeepsNoMapOfThePage()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    test_->window.close();
    QVERIFY(!test_->window.isVisible());
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(!test_->folder.map.HasContent());
    QVERIFY(QDir(Path("Data/Recovery")).entryList(QDir::Files).filter(QStringLiteral("map")).isEmpty());
    test_->folder.imgMap.ContinueAction = false;
}

void tst_editmap::drawnMapIsAskedForFirst()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    test_->robot.ChooseFile(Path("harbour.jpg"));
    ::Find<QAction>(Map(), "mnuOpenImage")->trigger();
    test_->robot.WaitUntilDone();
    test_->folder.map.ChangeAreas(
        { { .Shape = AreaShape::Rectangle,
            .Coordinates = { 1, 2, 30, 40 },
            .Link = {},
            .Target = {},
            .Message = {} } },
        QStringLiteral("Drawing"));
    test_->robot.AnswerBox(QMessageBox::No);
    PressEdit();
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().constLast().text, QStringLiteral("Do you want to delete your Image Map?"));
    QCOMPARE(Rows().size(), 1);
    test_->robot.AnswerBox(QMessageBox::Yes);
    PressEdit();
    test_->robot.WaitUntilDone();
    QTRY_COMPARE(Rows().size(), 2);
}

void tst_editmap::openingIsAStepOfUndo()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(0);
    QCOMPARE(test_->folder.map.History().UndoName(), QStringLiteral("Opening of a Map"));
    QTest::keyClick(Map(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(Rows().isEmpty());
    QVERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    QTest::keyClick(Map(), Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(Rows().size(), 2);
    QVERIFY(::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    QCOMPARE(::Find<QLineEdit>(Map(), "txtName")->text(), QStringLiteral("h"));
    Update();
    QCOMPARE(Text(), QString::fromLatin1(twoAreas));
}

void tst_editmap::insertedMapIsUpdatedWhereItIs()
{
    Load(QStringLiteral("<p>One</p>\r\n\r\n<p>Two</p>\r\n"));
    test_->Editor()->Select(12, 0);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    test_->robot.ChooseFile(Path("harbour.jpg"));
    ::Find<QAction>(Map(), "mnuOpenImage")->trigger();
    test_->robot.WaitUntilDone();
    test_->folder.map.ChangeAreas(
        { { .Shape = AreaShape::Rectangle,
            .Coordinates = { 1, 2, 30, 40 },
            .Link = QStringLiteral("a.htm"),
            .Target = {},
            .Message = {} },
          { .Shape = AreaShape::Circle,
            .Coordinates = { 100, 100, 20 },
            .Link = QStringLiteral("b.htm"),
            .Target = {},
            .Message = {} } },
        QStringLiteral("Drawing"));
    TypeIn(Map(), "txtName", "m");
    ::Find<QAction>(Map(), "mnuInsert")->trigger();
    const QString inserted = Text();
    QVERIFY(inserted.contains(u"COORDS=\"1, 2, 30, 40\""));
    // Elsewhere in the page the text goes on.
    test_->Editor()->Select(0, 0);
    test_->Type("x");
    Choose(0);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
    TypeIn(Map(), "cmbAreaLink", "c.htm");
    Update();
    QCOMPARE(Text(), u'x' + Replaced(inserted, "a.htm", "c.htm"));
}

void tst_editmap::insertedMapIsAskedForAsEver()
{
    Load(QStringLiteral("<p>One</p>\r\n"));
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    test_->robot.ChooseFile(Path("harbour.jpg"));
    ::Find<QAction>(Map(), "mnuOpenImage")->trigger();
    test_->robot.WaitUntilDone();
    test_->folder.map.ChangeAreas(
        { { .Shape = AreaShape::Rectangle,
            .Coordinates = { 1, 2, 30, 40 },
            .Link = {},
            .Target = {},
            .Message = {} } },
        QStringLiteral("Drawing"));
    TypeIn(Map(), "txtName", "m");
    ::Find<QAction>(Map(), "mnuInsert")->trigger();
    test_->robot.AnswerBox(QMessageBox::Yes);
    Map()->close();
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().constLast().text, QStringLiteral("Do you want to delete your Image Map?"));
}

void tst_editmap::missingPictureLeavesAPlainGround()
{
    Load(Replaced(QString::fromLatin1(twoAreas), "harbour.jpg", "gone.jpg"));
    test_->robot.Cancel();
    QVERIFY(Edit());
    QCOMPARE(::Find<QWidget>(Map(), "PictureDisplay")->size(), QSize(300, 200));
    QCOMPARE(Rows().size(), 2);
}

void tst_editmap::handMadeChangesOfThePageStay()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(0);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
    TypeIn(Map(), "cmbAreaLink", "c.htm");
    const QString byHand = Replaced(
        Replaced(QString::fromLatin1(twoAreas), "150,100,30", "150,100,33"), "</map>",
        "<area coords=\"5,5,9,9\" href=n.htm>\r\n</map>");
    const qsizetype start = Text().indexOf(u"150,100,30");
    test_->Editor()->Select(start, 10);
    test_->Editor()->ReplaceSelection(QStringLiteral("150,100,33"));
    test_->Editor()->Select(Text().indexOf(u"</map>"), 0);
    test_->Editor()->ReplaceSelection(QStringLiteral("<area coords=\"5,5,9,9\" href=n.htm>\r\n"));
    QCOMPARE(Text(), byHand);
    Update();
    QCOMPARE(Text(), Replaced(byHand, "a.htm", "c.htm"));
    QCOMPARE(
        Rows(), QStringList({ QStringLiteral(" No: 1 Rectangle|c.htm||10, 20, 60, 70|About A"),
                              QStringLiteral(" No: 2 Circle|b.htm?x=1&y=2||150, 100, 33|"),
                              QStringLiteral(" No: 3 Rectangle|n.htm||5, 5, 9, 9|") }));
}

void tst_editmap::lossesAreToldBeforeAnythingIsWritten()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    Choose(1);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
    TypeIn(Map(), "cmbAreaLink", "mine.htm");
    test_->Editor()->Select(Text().indexOf(u"b.htm"), 5);
    test_->Editor()->ReplaceSelection(QStringLiteral("theirs.htm"));
    const QString byHand = Text();
    test_->robot.AnswerBox(QMessageBox::No);
    Update();
    test_->robot.WaitUntilDone();
    QVERIFY(test_->robot.Boxes().constLast().text.contains(u"Area 2 was changed in the page too"));
    QCOMPARE(Text(), byHand);
    test_->robot.AnswerBox(QMessageBox::Yes);
    Update();
    test_->robot.WaitUntilDone();
    QCOMPARE(Text(), Replaced(byHand, "theirs.htm?x=1&amp;y=2", "mine.htm"));
}

void tst_editmap::updateNeedsAPlaceInThePage()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    QVERIFY(OpenFile("other.htm", "y\r\n"));
    GoToMap();
    QTRY_VERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    QVERIFY(WriteBytes(Path("page.htm"), "x"));
}

void tst_editmap::attributesAreChangedInTheirTable()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    ShowArea(0);
    QTRY_COMPARE(
        Attributes(),
        QStringList({ QStringLiteral("href=a.htm"), QStringLiteral("shape=rect"),
                      QStringLiteral("coords=10, 20,60,70"), QStringLiteral("alt=A"),
                      QStringLiteral("title=About A"), QStringLiteral("data-x=1"), QStringLiteral("=") }));
    const qsizetype steps = test_->folder.map.History().Position();
    TypeInCell(5, 1, "2");
    QTRY_COMPARE(test_->folder.map.History().Position(), steps + 1);
    TypeInCell(0, 1, "z.htm");
    QTRY_VERIFY(Rows().constFirst().contains(u"z.htm"));
    QCOMPARE(test_->folder.map.History().Position(), steps + 2);
    Update();
    QCOMPARE(
        Text(),
        Replaced(Replaced(QString::fromLatin1(twoAreas), "data-x=\"1\"", "data-x=\"2\""), "a.htm", "z.htm"));
}

void tst_editmap::attributesAreAddedAndRemoved()
{
    Load(QString::fromLatin1(twoAreas));
    QVERIFY(Edit());
    ShowArea(0);
    QTRY_COMPARE(Table()->rowCount(), 7);
    TypeInCell(6, 0, "rel");
    QTRY_COMPARE(Table()->rowCount(), 8);
    TypeInCell(6, 1, "next");
    QTRY_VERIFY(Attributes().contains(QStringLiteral("rel=next")));
    Table()->setFocus();
    Table()->setCurrentCell(5, 0);
    QTest::keyClick(Table(), Qt::Key_Delete);
    QTRY_COMPARE(Table()->rowCount(), 7);
    QCOMPARE(Rows().size(), 2);
    Update();
    QCOMPARE(Text(), Replaced(QString::fromLatin1(twoAreas), " data-x=\"1\"", " rel=\"next\""));
}

void tst_editmap::codeOfATemplateIsReadOnly()
{
    const QString page = Replaced(QString::fromLatin1(twoAreas), "data-x=\"1\"", "data-x=\"{{ x }}\"");
    Load(page);
    QVERIFY(Edit());
    ShowArea(0);
    QTRY_COMPARE(Table()->rowCount(), 7);
    TypeInCell(5, 1, "2");
    QVERIFY(Table()->findChild<QLineEdit*>() == nullptr);
    QVERIFY(Attributes().contains(QStringLiteral("data-x={{ x }}")));
    Table()->setCurrentCell(5, 0);
    QTest::keyClick(Table(), Qt::Key_Delete);
    Update();
    QCOMPARE(Text(), page);
}

void tst_editmap::areasThatCannotBeDrawnStay()
{
    const QString page = Replaced(
        QString::fromLatin1(twoAreas), "</map>",
        "<area shape=default href=d.htm>\r\n<area coords=\"10%,20%,30%\" href=p.htm>\r\n"
        "<area coords=\"1.5,2.5,30.5,40.5\" href=f.htm>\r\n</map>");
    Load(page);
    QVERIFY(Edit());
    QCOMPARE(Rows().size(), 5);
    QVERIFY2(Rows()[2].startsWith(u" No: 3 Default|d.htm|"), qPrintable(Rows()[2]));
    QVERIFY2(Rows()[3].contains(u"10%,20%,30%"), qPrintable(Rows()[3]));
    QVERIFY(Rows()[4].contains(u"f.htm"));
    ShowArea(0);
    TypeIn(Map(), "cmbAreaLink", "z.htm");
    Update();
    QCOMPARE(Text(), Replaced(page, "a.htm", "z.htm"));
}

void tst_editmap::coordinatesThatCannotBeDrawnAreEditedAsText()
{
    const QString page = Replaced(
        QString::fromLatin1(twoAreas), "</map>", "<area coords=\"10%,20%,30%\" href=p.htm>\r\n</map>");
    Load(page);
    QVERIFY(Edit());
    ShowArea(2);
    QCOMPARE(::Find<QLineEdit>(Map(), "txtAreaCoords")->text(), QStringLiteral("10%,20%,30%"));
    TypeIn(Map(), "txtAreaCoords", "11%,20%,30%");
    Update();
    QCOMPARE(Text(), Replaced(page, "10%", "11%"));
}

void tst_editmap::mapIsBroughtUpToDateAfterAPreview()
{
    Load(QString::fromLatin1(twoAreas));
    test_->robot.Act([](QDialog& dialog) {
        QVERIFY(
            ::Find<QPlainTextEdit>(&dialog, "txtBefore")->document()->toRawText().contains(u"<map name=h>"));
        QVERIFY(::Find<QPlainTextEdit>(&dialog, "txtAfter")->document()->toRawText().contains(u"<svg"));
        QVERIFY(::Find<QLabel>(&dialog, "lblNotes")->text().endsWith(u"data-x"));
        ClickIn(&dialog, "cmdOK");
    });
    test_->ClickMenu("mnuPage", "mnuPToToday");
    test_->robot.WaitUntilDone();
    QVERIFY(Text().contains(u"<svg") && Text().contains(u"href=\"a.htm\""));
    QVERIFY(!Text().contains(u"<map") && !Text().contains(u"usemap"));
    QVERIFY(Text().contains(u"<p>One</p>\r\n") && Text().endsWith(u"<p>Two</p>\r\n"));
    // What the program has written it can read.
    const QString today = Text();
    QVERIFY(Edit());
    QCOMPARE(Rows().size(), 2);
    Update();
    QCOMPARE(Text(), today);
    test_->Editor()->undo();
    QCOMPARE(Text(), QString::fromLatin1(twoAreas));
}

void tst_editmap::mapStaysWhenThePreviewIsCancelled()
{
    Load(QString::fromLatin1(twoAreas));
    test_->robot.Cancel();
    test_->ClickMenu("mnuPage", "mnuPToToday");
    test_->robot.WaitUntilDone();
    QCOMPARE(Text(), QString::fromLatin1(twoAreas));
}

void tst_editmap::mapWithoutAPictureIsNotBroughtUpToDate()
{
    Load(QStringLiteral("<map name=h><area href=a.htm coords=1,2,30,40></map>"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickMenu("mnuPage", "mnuPToToday");
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().constLast().text, QStringLiteral("No picture of the page uses the map !"));
}

QTEST_MAIN(tst_editmap)
#include "tst_editmap.moc"
