#include "EditorTest.h"
#include "imagemap/PastedPictures.h"

#include <QClipboard>
#include <QComboBox>
#include <QFileDialog>
#include <QLineEdit>

namespace {

constexpr QColor ground(200, 30, 30);
constexpr QColor otherGround(30, 30, 200);

} // namespace

/** Pictures that come by the new commands, are pasted, or changed on disk. */
class tst_otherpictures : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup()
    {
        QGuiApplication::clipboard()->clear();
        End();
    }

    void anotherFormIsOpened();
    void theOldCommandTakesNoOtherForm();
    void whatCannotBeReadCostsNothing();
    void areasAreAskedForBeforeTheyGo();
    void openingIsUndoneAsAnotherPictureIs();
    void aPastedPictureIsOpenedAndSaved();
    void aPastedPictureInAPageStays_data();
    void aPastedPictureInAPageStays();
    void areasArePastedBeforePictures();
    void aPictureChangedOnDiskIsOffered();
    void aPictureReplacedOnDiskIsOffered();
    void loadingAnewKeepsAreasAndPlace();
    void whatIsHalfWrittenIsNotTaken();

private:
    QString Png(const QString& name, QSize size = { 120, 90 }, QColor color = ground)
    {
        QImage picture(size, QImage::Format_RGB32);
        picture.fill(color);
        const QString path = test_->folder.Path(name);
        if (!picture.save(path, "png")) {
            qFatal("cannot write a picture");
        }
        return path;
    }
    void OpenOther(const QString& path)
    {
        test_->robot.ChooseFile(path);
        test_->Entry("mnuVOther")->trigger();
        test_->robot.WaitUntilDone();
    }
    void Activate()
    {
        test_->editor->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(test_->editor));
    }
    [[nodiscard]] QString Hint() const { return test_->Text("StatusBar1_Panel3"); }
    [[nodiscard]] QColor Shown() const { return test_->Pixels().pixelColor(80, 70); }
};

void tst_otherpictures::anotherFormIsOpened()
{
    OpenOther(Png("other.png"));
    QCOMPARE(test_->Surface()->size(), QSize(120, 90));
    QCOMPARE(Shown(), ground);
    QCOMPARE(test_->Text("StatusBar1_Panel2"), "other.png");
    QCOMPARE(test_->Text("lblWidthPic"), "120");
    QCOMPARE(test_->CheckedTools(), QStringList{ "mnuCursor" });
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    QCOMPARE(test_->RowCount(), 1);
}

void tst_otherpictures::theOldCommandTakesNoOtherForm()
{
    test_->Open(Png("other.jpg"));
    QCOMPARE(test_->Text("lblWidthPic"), "0");
}

void tst_otherpictures::whatCannotBeReadCostsNothing()
{
    test_->OpenPicture({ 300, 200 });
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    const MapState before = test_->map.State();
    QFile whole(Png("other.png"));
    QVERIFY(whole.open(QIODevice::ReadWrite));
    QVERIFY(whole.resize(whole.size() / 2));
    test_->robot.ChooseFile(whole.fileName());
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Entry("mnuVOther")->trigger();
    test_->robot.WaitUntilDone();
    QCOMPARE(
        test_->robot.Boxes().constLast().text,
        "The picture is cut off or damaged !\n" + test_->folder.Path("other.png"));
    QCOMPARE(test_->map.State(), before);
    QCOMPARE(test_->Surface()->size(), QSize(300, 200));
}

void tst_otherpictures::areasAreAskedForBeforeTheyGo()
{
    test_->OpenPicture({ 300, 200 });
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    const QString path = Png("other.png");
    test_->robot.ChooseFile(path);
    test_->robot.AnswerBox(QMessageBox::No);
    test_->Entry("mnuVOther")->trigger();
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Surface()->size(), QSize(300, 200));
    test_->robot.ChooseFile(path);
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Entry("mnuVOther")->trigger();
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Surface()->size(), QSize(120, 90));
}

void tst_otherpictures::openingIsUndoneAsAnotherPictureIs()
{
    OpenOther(Png("one.png"));
    OpenOther(Png("two.png", { 200, 150 }, otherGround));
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Opening of a Picture");
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(test_->Surface()->size(), QSize(120, 90));
    QCOMPARE(Shown(), ground);
    test_->Entry("mnuARedo")->trigger();
    QCOMPARE(test_->Surface()->size(), QSize(200, 150));
    QCOMPARE(Shown(), otherGround);
}

void tst_otherpictures::aPastedPictureIsOpenedAndSaved()
{
    QVERIFY(!test_->Entry("mnuAPaste")->isEnabled());
    QVERIFY(!test_->Entry("mnuVSavePasted")->isEnabled());
    QImage picture(120, 90, QImage::Format_RGB32);
    picture.fill(ground);
    QGuiApplication::clipboard()->setImage(picture);
    QTRY_VERIFY(test_->Entry("mnuAPaste")->isEnabled());
    test_->Find<QWidget>("ListView1")->setFocus();
    QTest::keyClick(test_->Find<QWidget>("ListView1"), Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Shown(), ground);
    QVERIFY(Hint().contains("click here to save"));
    const QString kept = test_->map.Picture();
    QVERIFY(QFile::exists(kept));

    test_->document.fileName = test_->folder.Path("Data/page.html");
    QString proposed;
    test_->robot.Act([&proposed](QDialog& dialog) {
        proposed = dynamic_cast<QFileDialog&>(dialog).directory().dirName();
        TypeIn(&dialog, "fileNameEdit", "harbour");
        QTest::keyClick(dialog.findChild<QLineEdit*>("fileNameEdit"), Qt::Key_Return);
    });
    QTest::mouseClick(test_->Find<QLabel>("StatusBar1_Panel3"), Qt::LeftButton);
    test_->robot.WaitUntilDone();
    QCOMPARE(proposed, "Data");
    QCOMPARE(test_->map.Picture(), test_->folder.Path("Data/harbour.png"));
    QCOMPARE(QImage(test_->map.Picture()).pixelColor(5, 5), ground);
    QCOMPARE(test_->Text("StatusBar1_Panel2"), "harbour.png");
    QVERIFY(!test_->Entry("mnuVSavePasted")->isEnabled());
    test_->Entry("mnuAUndo")->trigger();
    QCOMPARE(test_->map.Picture(), kept);
    QCOMPARE(Shown(), ground);
}

void tst_otherpictures::aPastedPictureInAPageStays_data()
{
    QTest::addColumn<int>("form");
    QTest::newRow("HTML 4") << 0;
    QTest::newRow("for today's browsers") << 1;
}

void tst_otherpictures::aPastedPictureInAPageStays()
{
    QFETCH(const int, form);
    QImage picture(120, 90, QImage::Format_RGB32);
    picture.fill(ground);
    QGuiApplication::clipboard()->setImage(picture);
    QTRY_VERIFY(test_->Entry("mnuAPaste")->isEnabled());
    test_->Entry("mnuAPaste")->trigger();
    const QString path = test_->map.Picture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->Find<QLineEdit>("txtName")->setText("harbour");
    test_->document.fileName = test_->folder.Path("page.html");
    test_->Find<QComboBox>("cmbMarkup")->setCurrentIndex(form);
    test_->Entry("mnuInsert")->trigger();
    PastedPictures::Of(test_->map, test_->folder.imgMap.ProgramFolder).End({});
    QVERIFY(QFile::exists(path));
}

void tst_otherpictures::areasArePastedBeforePictures()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    Activate();
    test_->Entry("mnuASelectAll")->trigger();
    test_->Entry("mnuACopy")->trigger();
    test_->Entry("mnuAPaste")->trigger();
    QCOMPARE(test_->RowCount(), 2);
    QGuiApplication::clipboard()->setText("words");
    test_->Entry("mnuAPaste")->trigger();
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(Hint(), "There are no areas on the clipboard");
}

void tst_otherpictures::aPictureChangedOnDiskIsOffered()
{
    OpenOther(Png("other.png"));
    QVERIFY(!Hint().contains("changed on disk"));
    (void)Png("unrelated.png");
    (void)Png("other.png", { 150, 100 }, otherGround);
    QTRY_VERIFY(Hint().contains("changed on disk"));
    QCOMPARE(Shown(), ground);
    QTest::mouseClick(test_->Find<QLabel>("StatusBar1_Panel3"), Qt::LeftButton);
    QCOMPARE(test_->Surface()->size(), QSize(150, 100));
    QCOMPARE(Shown(), otherGround);
    QCOMPARE(test_->Text("lblWidthPic"), "150");
    QVERIFY(!Hint().contains("changed on disk"));
}

void tst_otherpictures::aPictureReplacedOnDiskIsOffered()
{
    const QString path = Png("other.png");
    OpenOther(path);
    for (const QColor color : { otherGround, ground }) {
        const QString next = Png("next.png", { 150, 100 }, color);
        QVERIFY(QFile::remove(path) && QFile::rename(next, path));
        QTRY_VERIFY(Hint().contains("changed on disk"));
        test_->Entry("mnuVLoadAnew")->trigger();
        QCOMPARE(Shown(), color);
        QVERIFY(!Hint().contains("changed on disk"));
    }
}

void tst_otherpictures::loadingAnewKeepsAreasAndPlace()
{
    QVERIFY(!test_->Entry("mnuVLoadAnew")->isEnabled());
    OpenOther(Png("other.png", { 1800, 1500 }));
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    Activate();
    test_->Find<QLineEdit>("txtImgWidth")->setText("900");
    test_->Entry("mnuVZoomIn")->trigger();
    auto* const across = test_->Find<QScrollBar>("HScroll1");
    across->setValue(77);
    const MapState before = test_->map.State();
    const qsizetype steps = test_->map.History().Position();
    (void)Png("other.png", { 1800, 1500 }, otherGround);
    test_->Entry("mnuVLoadAnew")->trigger();
    QCOMPARE(test_->Pixels().pixelColor(800, 700), otherGround);
    QCOMPARE(test_->map.State(), before);
    QCOMPARE(test_->map.History().Position(), steps);
    QCOMPARE(test_->Surface()->size(), QSize(2250, 1875));
    QCOMPARE(across->value(), 77);
    QCOMPARE(test_->Find<QLineEdit>("txtImgWidth")->text(), "900");
    // The figure is still there.
    QCOMPARE(test_->Pixels().pixelColor(13, 30), QColor(Qt::black));
}

void tst_otherpictures::whatIsHalfWrittenIsNotTaken()
{
    const QString path = Png("other.png");
    OpenOther(path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadWrite));
    QVERIFY(file.resize(file.size() - 20));
    file.close();
    QTRY_VERIFY(Hint().contains("changed on disk"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Entry("mnuVLoadAnew")->trigger();
    test_->robot.WaitUntilDone();
    QVERIFY(test_->robot.Boxes().constLast().text.startsWith("The picture is cut off"));
    QCOMPARE(Shown(), ground);
}

QTEST_MAIN(tst_otherpictures)
#include "tst_otherpictures.moc"
