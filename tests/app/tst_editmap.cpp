// Maps of a page come back into the editor, and are brought up to date.

#include "tests/app/EditMapFixture.h"

class tst_editmap : public EditMapFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { StartWithAPage(); }
    void cleanup() { Finish(); }

    void onlyMapOpensAsDrawn();
    void mapAtTheCaretIsTaken();
    void nextMapOpensWhereItIsAfterAnUpdate();
    void missingPictureLeavesAPlainGround();
    void openingIsAStepOfUndo();
    void drawnMapIsAskedForFirst();
    void listOffersAllMapsAndPictures();
    void escapeClosesTheList();
    void pageWithoutMapsSaysSo();

    void mapIsBroughtUpToDateAfterAPreview();
    void mapStaysWhenThePreviewIsCancelled();
    void mapWithoutAPictureIsNotBroughtUpToDate();
};

void tst_editmap::onlyMapOpensAsDrawn()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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
    PressEdit();
    test_->robot.WaitUntilDone();
    QTRY_COMPARE(Rows(), QStringList(QStringLiteral(" No: 1 Rectangle|o.htm||1, 2, 30, 40|")));
    QCOMPARE(Text(), Replaced(page, "a.htm", "a-much-longer-name.htm"));
    Update();
    QCOMPARE(Text(), Replaced(page, "a.htm", "a-much-longer-name.htm"));
}

void tst_editmap::missingPictureLeavesAPlainGround()
{
    Load(Replaced(QString::fromLatin1(twoAreas), "harbour.jpg", "gone.jpg"));
    test_->robot.Cancel();
    QVERIFY(Edit());
    QCOMPARE(::Find<QWidget>(Map(), "PictureDisplay")->size(), QSize(300, 200));
    QCOMPARE(Rows().size(), 2);
}

void tst_editmap::openingIsAStepOfUndo()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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

void tst_editmap::drawnMapIsAskedForFirst()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    FillANewMap({ PlainArea({ 1, 2, 30, 40 }, "") });
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
    QVERIFY(::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
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
