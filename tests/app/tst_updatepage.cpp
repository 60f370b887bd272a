// A map goes back to where it came from in the page; closing asks for what the page does not have yet.

#include "tests/app/EditMapFixture.h"

#include "mapreader/PageMaps.h"

#include <QDir>
#include <QPointer>
#include <QTableWidget>

class tst_updatepage : public EditMapFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { StartWithAPage(); }
    void cleanup() { Finish(); }

    void unchangedPageStays_data();
    void unchangedPageStays();
    void movedAreaChangesItsCoordinatesAlone();
    void changedLinkChangesItAlone();
    void deletedAreaTakesItsLine();
    void drawnAreaIsWrittenBesideTheOthers();
    void updateIsOneStepOfUndo();
    void insertedMapIsUpdatedWhereItIs();
    void handMadeChangesOfThePageStay();
    void lossesAreToldBeforeAnythingIsWritten();
    void updateNeedsAPlaceInThePage();
    void keyOfUpdateLeavesTheTextOfAField_data();
    void keyOfUpdateLeavesTheTextOfAField();

    void unchangedMapClosesWithoutAQuestion();
    void changesAreOfferedToThePage_data();
    void changesAreOfferedToThePage();
    void endOfTheProgramAsksForChanges();
    void endOfTheProgramKeepsNoMapOfThePage();
    void insertedMapIsAskedForAsEver();
};

void tst_updatepage::unchangedPageStays_data()
{
    QTest::addColumn<QString>("file");
    const QDir pages(QStringLiteral(CARTOLEN_MAP_PAGES));
    for (const QString& file : pages.entryList(QDir::Files)) {
        QTest::newRow(qPrintable(file)) << pages.filePath(file);
    }
}

void tst_updatepage::unchangedPageStays()
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

void tst_updatepage::movedAreaChangesItsCoordinatesAlone()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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

void tst_updatepage::changedLinkChangesItAlone()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    Choose(1);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(2);
    TypeIn(Map(), "cmbAreaLink", "c.htm?x=1&y=2");
    Update();
    QCOMPARE(Text(), Replaced(QString::fromLatin1(twoAreas), "b.htm?x=1&amp;y=2", "c.htm?x=1&amp;y=2"));
}

void tst_updatepage::deletedAreaTakesItsLine()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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

void tst_updatepage::drawnAreaIsWrittenBesideTheOthers()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    DrawRectangle({ QPoint(200, 120), QPoint(240, 160) }, "new.htm");
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

void tst_updatepage::updateIsOneStepOfUndo()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    TypeIn(Map(), "txtName", "harbour");
    Choose(0);
    QTest::keyClick(::Find<QTreeView>(Map(), "ListView1"), Qt::Key_Delete);
    Update();
    QVERIFY(Text().contains(u"usemap=\"#harbour\"") && Text().contains(u"<map name=harbour>"));
    QVERIFY(!Text().contains(u"a.htm"));
    test_->Editor()->undo();
    QCOMPARE(Text(), QString::fromLatin1(twoAreas));
}

void tst_updatepage::insertedMapIsUpdatedWhereItIs()
{
    Load(QStringLiteral("<p>One</p>\r\n\r\n<p>Two</p>\r\n"));
    test_->Editor()->Select(12, 0);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    FillANewMap({ PlainArea({ 1, 2, 30, 40 }, "a.htm"), PlainArea({ 100, 100, 20 }, "b.htm") });
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

void tst_updatepage::handMadeChangesOfThePageStay()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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

void tst_updatepage::lossesAreToldBeforeAnythingIsWritten()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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

void tst_updatepage::updateNeedsAPlaceInThePage()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    QVERIFY(OpenFile("other.htm", "y\r\n"));
    GoToMap();
    QTRY_VERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    QVERIFY(WriteBytes(Path("page.htm"), "x"));
}

void tst_updatepage::keyOfUpdateLeavesTheTextOfAField_data()
{
    QTest::addColumn<int>("tab");
    QTest::addColumn<QByteArray>("name");
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    QTest::newRow("field") << 0 << QByteArray("txtName") << "2"
                           << "<map name=h2>";
    QTest::newRow("list with a field") << 2 << QByteArray("cmbAreaLink") << "l"
                                       << "'a.html'";
    QTest::newRow("cell of a table") << 2 << QByteArray("tblAttributes") << "l"
                                     << "'a.html'";
}

void tst_updatepage::keyOfUpdateLeavesTheTextOfAField()
{
    QFETCH(const int, tab);
    QFETCH(const QByteArray, name);
    QFETCH(const QString, typed);
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    Choose(0);
    ::Find<QTabWidget>(Map(), "SSTab1")->setCurrentIndex(tab);
    auto* const control = ::Find<QWidget>(Map(), name.constData());
    control->setFocus();
    if (auto* const table = qobject_cast<QTableWidget*>(control)) {
        table->setCurrentCell(0, 1);
        table->editItem(table->currentItem());
    }
    QPointer<QWidget> const field = QApplication::focusWidget();
    QTest::keyClick(field, Qt::Key_End);
    QTest::keyClicks(field, typed);
    // A key that fields take for themselves everywhere; that of the command erases them on some systems only.
    ::Find<QAction>(Map(), "mnuAUpdatePage")->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Left));
    QTest::keyClick(field, Qt::Key_Left, Qt::ControlModifier);
    QFETCH(const QString, written);
    QVERIFY2(Text().contains(written), qPrintable(Text()));
}

void tst_updatepage::unchangedMapClosesWithoutAQuestion()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_updatepage::changesAreOfferedToThePage_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("isClosed");
    QTest::addColumn<bool>("isWritten");
    QTest::newRow("yes") << QMessageBox::Yes << true << true;
    QTest::newRow("no") << QMessageBox::No << true << false;
    QTest::newRow("cancel") << QMessageBox::Cancel << false << false;
}

void tst_updatepage::changesAreOfferedToThePage()
{
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, isClosed);
    QFETCH(const bool, isWritten);
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
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

void tst_updatepage::endOfTheProgramAsksForChanges()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    Choose(0);
    QTest::keyClick(::Find<QTreeView>(Map(), "ListView1"), Qt::Key_Delete);
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->window.close();
    test_->robot.WaitUntilDone();
    QVERIFY(test_->robot.Boxes().constLast().text.endsWith(u"Update the page?"));
    QVERIFY(test_->window.isVisible() && Map()->isVisible());
}

void tst_updatepage::endOfTheProgramKeepsNoMapOfThePage()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    test_->window.close();
    QVERIFY(!test_->window.isVisible());
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(!test_->folder.map.HasContent());
    QVERIFY(QDir(Path("Data/Recovery")).entryList(QDir::Files).filter(QStringLiteral("map")).isEmpty());
    test_->folder.imgMap.ContinueAction = false;
}

void tst_updatepage::insertedMapIsAskedForAsEver()
{
    Load(QStringLiteral("<p>One</p>\r\n"));
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    FillANewMap({ PlainArea({ 1, 2, 30, 40 }, "") });
    TypeIn(Map(), "txtName", "m");
    ::Find<QAction>(Map(), "mnuInsert")->trigger();
    test_->robot.AnswerBox(QMessageBox::Yes);
    Map()->close();
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().constLast().text, QStringLiteral("Do you want to delete your Image Map?"));
}

QTEST_MAIN(tst_updatepage)
#include "tst_updatepage.moc"
