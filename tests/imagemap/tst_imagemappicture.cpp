// Opening a picture in the image map editor, scrolling it, and starting a new map on it.

#include "shared/Paths.h"
#include "tests/imagemap/EditorFixture.h"
#include "widgets/ElidedLabel.h"

#include <QCheckBox>
#include <QFile>
#include <memory>

namespace {

const QString deletionQuestion = QStringLiteral("Do you want to delete your Image Map?");
const QList<int> buttonsWithPicture = { 3, 5, 6, 7, 9, 11, 18 };
const QList<int> buttonsWithFigure = { 2, 3, 5, 6, 7, 9, 11, 12, 14, 16, 18 };
const QMessageBox::StandardButtons yesNo = QMessageBox::Yes | QMessageBox::No;

} // namespace

class tst_imagemappicture : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void openingShowsThePictureAndItsSize();
    void openingAGifShowsIt();
    void openingTellsNameAndAddress();
    void longNameIsElidedInTheMiddle();
    void openingKeepsAChosenTool();
    void openingOffersPicturesOnly();
    void smallPictureNeedsNoScrollBars();
    void widePictureScrollsSidewaysOnly();
    void tallPictureScrollsUpAndDownOnly();
    void resizingTheWindowFitsTheScrollBars();
    void openingAnotherPictureStartsAtItsCorner();
    void unreadablePictureLeavesAnEmptySurface();
    void pictureOpensAfterAnUnreadableOne();
    void cancelledOpeningChangesNothing();
    void openingWithFiguresAsksAndKeepsThemOnNo();
    void openingWithFiguresDeletesThemOnYes();
    void cancelledOpeningAfterYesHasDeletedTheMap();

    void newImageMapAsksAndKeepsTheMapOnNo();
    void newImageMapKeepsPictureAndAttributes();
    void newImageMapTakesTheModesPlainHeaderButKeepsItsDefault();
    void newImageMapWithoutFiguresAsksNothing();
    void rowsLeftOverGoWithoutAQuestion_data();
    void rowsLeftOverGoWithoutAQuestion();
    void cancelledOpeningKeepsRowsLeftOver();

private:
    void LeaveRowWithoutFigures();

    std::unique_ptr<EditorFixture> test_;
};

void tst_imagemappicture::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
}

void tst_imagemappicture::cleanup()
{
    const QString problems = test_->robot.Problems();
    test_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void tst_imagemappicture::openingShowsThePictureAndItsSize()
{
    test_->OpenPicture({ 300, 200 });
    QCOMPARE(test_->Surface()->size(), QSize(300, 200));
    QVERIFY(test_->Surface()->isVisible());
    QCOMPARE(test_->Surface()->pos(), QPoint(0, 0));
    QCOMPARE(test_->Text("lblWidthPic"), QStringLiteral("300"));
    QCOMPARE(test_->Text("lblHeightPic"), QStringLiteral("200"));
    QCOMPARE(test_->Find<QLineEdit>("txtImgWidth")->text(), QStringLiteral("300"));
    QCOMPARE(test_->Find<QLineEdit>("txtImgHeight")->text(), QStringLiteral("200"));
    const QImage expected = QImage(test_->folder.Path(QStringLiteral("picture.jpg")));
    QCOMPARE(test_->Pixels(), expected.convertToFormat(QImage::Format_RGB32));
}

void tst_imagemappicture::openingAGifShowsIt()
{
    const QString path = QFINDTESTDATA("../data/harbour.gif");
    test_->Open(path);
    const QImage expected = QImage(path).convertToFormat(QImage::Format_RGB32);
    QVERIFY(!expected.isNull());
    QCOMPARE(test_->Pixels(), expected);
}

void tst_imagemappicture::openingTellsNameAndAddress()
{
    const QString name = QStringLiteral("my " NAME_LIKE_MARKUP "map.jpg");
    QString path = test_->WritePicture({ 50, 50 }, name);
    test_->Open(path);
    QCOMPARE(test_->Text("StatusBar1_Panel2"), name);
    QCOMPARE(test_->Find<QLabel>("StatusBar1_Panel2")->textFormat(), Qt::PlainText);
    QCOMPARE(test_->imgMap.ImageUrl, PathToFileUrl(path));
    QCOMPARE(QDir::current(), QDir(test_->imgMap.ProgramFolder));
}

void tst_imagemappicture::longNameIsElidedInTheMiddle()
{
    const QString name = QString(60, u'a') + QStringLiteral(" &amp; middle ") + QString(60, u'z') + ".jpg";
    test_->Open(test_->WritePicture({ 50, 50 }, name));
    const auto* const panel = static_cast<const ElidedLabel*>(test_->Find<QLabel>("StatusBar1_Panel2"));
    QCOMPARE(panel->text(), name);
    QCOMPARE(panel->toolTip(), name);
    const QString shown = panel->ShownText();
    QVERIFY(shown.startsWith(u"aaa") && shown.endsWith(u"z.jpg") && shown.contains(u'\u2026'));
    QVERIFY(panel->fontMetrics().horizontalAdvance(shown) <= panel->width());
    // What looks like markup is shown letter for letter.
    QVERIFY(!Qt::mightBeRichText(PlainToolTip(name)));
    QTextDocument tip;
    tip.setHtml(PlainToolTip(QStringLiteral("<b>bold</b> &amp; x.jpg")));
    QCOMPARE(tip.toPlainText(), QStringLiteral("<b>bold</b> &amp; x.jpg"));
}

void tst_imagemappicture::openingKeepsAChosenTool()
{
    test_->OpenPicture();
    test_->ClickButton(6);
    test_->OpenPicture();
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuFigNum_6") });
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
}

void tst_imagemappicture::openingOffersPicturesOnly()
{
    QStringList shown;
    test_->robot.Act([&shown](QDialog& dialog) {
        shown = OfferedFiles(dialog);
        dialog.reject();
    });
    test_->Entry("mnuOpenImage")->trigger();
    const QStringList expected = { QStringLiteral("JPG and GIF Files(*.jpg;*.gif)"),
                                   QStringLiteral("JPG Files(*.jpg)"), QStringLiteral("GIF Files(*.Gif)") };
    QCOMPARE(shown, expected);
}

void tst_imagemappicture::smallPictureNeedsNoScrollBars()
{
    test_->OpenPicture({ 120, 90 });
    QVERIFY(!test_->Find<QScrollBar>("HScroll1")->isEnabled());
    QVERIFY(!test_->Find<QScrollBar>("VScroll1")->isEnabled());
}

void tst_imagemappicture::widePictureScrollsSidewaysOnly()
{
    test_->OpenPicture({ 1500, 100 });
    const auto* const bar = test_->Find<QScrollBar>("HScroll1");
    QVERIFY(bar->isEnabled());
    QCOMPARE(bar->minimum(), 0);
    QCOMPARE(bar->maximum(), 1500 - test_->Find<QWidget>("PicNosac")->contentsRect().width());
    QCOMPARE(bar->value(), 0);
    QVERIFY(!test_->Find<QScrollBar>("VScroll1")->isEnabled());
}

void tst_imagemappicture::tallPictureScrollsUpAndDownOnly()
{
    test_->OpenPicture({ 100, 1500 });
    const auto* const bar = test_->Find<QScrollBar>("VScroll1");
    QVERIFY(bar->isEnabled());
    QCOMPARE(bar->maximum(), 1500 - test_->Find<QWidget>("PicNosac")->contentsRect().height());
    QCOMPARE(bar->value(), 0);
    QVERIFY(!test_->Find<QScrollBar>("HScroll1")->isEnabled());
}

void tst_imagemappicture::resizingTheWindowFitsTheScrollBars()
{
    test_->OpenPicture({ 1000, 100 });
    auto* const bar = test_->Find<QScrollBar>("HScroll1");
    const int before = bar->maximum();
    const QSize windowSize = test_->editor->size();
    bar->setValue(before);
    QCOMPARE(test_->Surface()->x(), -before);
    test_->editor->resize(windowSize + QSize(60, 0));
    QTRY_COMPARE(bar->maximum(), before - 60);
    QCOMPARE(bar->value(), before - 60);
    QCOMPARE(test_->Surface()->x(), 60 - before);
    test_->editor->resize(windowSize + QSize(before, 0));
    QTRY_VERIFY(!bar->isEnabled());
    QCOMPARE(test_->Surface()->x(), 0);
    test_->editor->resize(windowSize);
    QTRY_VERIFY(bar->isEnabled());
    QCOMPARE(bar->maximum(), before);
}

void tst_imagemappicture::openingAnotherPictureStartsAtItsCorner()
{
    test_->OpenPicture({ 1500, 1400 });
    test_->Find<QScrollBar>("HScroll1")->setValue(200);
    test_->Find<QScrollBar>("VScroll1")->setValue(150);
    QCOMPARE(test_->Surface()->pos(), QPoint(-200, -150));
    test_->OpenPicture({ 1600, 1500 });
    QCOMPARE(test_->Find<QScrollBar>("HScroll1")->value(), 0);
    QCOMPARE(test_->Find<QScrollBar>("VScroll1")->value(), 0);
    QCOMPARE(test_->Surface()->pos(), QPoint(0, 0));
}

void tst_imagemappicture::unreadablePictureLeavesAnEmptySurface()
{
    test_->OpenPicture({ 1500, 1400 });
    QFile broken(test_->folder.Path(QStringLiteral("broken.jpg")));
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("no picture") > 0);
    broken.close();
    test_->Open(broken.fileName());
    QVERIFY(test_->robot.Boxes().isEmpty());
    QVERIFY(test_->Surface()->size().isEmpty());
    QCOMPARE(test_->Text("lblWidthPic"), QStringLiteral("0"));
    QCOMPARE(test_->Text("lblHeightPic"), QStringLiteral("0"));
    QCOMPARE(test_->Find<QLineEdit>("txtImgWidth")->text(), QStringLiteral("0"));
    QCOMPARE(test_->Find<QLineEdit>("txtImgHeight")->text(), QStringLiteral("0"));
    QVERIFY(!test_->Find<QScrollBar>("HScroll1")->isEnabled());
    QVERIFY(!test_->Find<QScrollBar>("VScroll1")->isEnabled());
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("broken.jpg"));
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QCOMPARE(QApplication::overrideCursor(), nullptr);
}

void tst_imagemappicture::pictureOpensAfterAnUnreadableOne()
{
    QFile broken(test_->folder.Path(QStringLiteral("broken.gif")));
    QVERIFY(broken.open(QIODevice::WriteOnly) && broken.write("GIF89a") > 0);
    broken.close();
    test_->Open(broken.fileName());
    test_->OpenPicture({ 300, 200 });
    QCOMPARE(test_->Text("lblWidthPic"), QStringLiteral("300"));
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    QCOMPARE(test_->Row(0).at(3), QStringLiteral("10, 10, 40, 40"));
}

void tst_imagemappicture::cancelledOpeningChangesNothing()
{
    test_->OpenPicture({ 300, 200 });
    test_->Move({ 30, 40 });
    const QImage before = test_->Pixels();
    test_->robot.Cancel();
    test_->ClickButton(3);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->Text("lblWidthPic"), QStringLiteral("300"));
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("picture.jpg"));
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
}

void tst_imagemappicture::openingWithFiguresAsksAndKeepsThemOnNo()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    const QImage before = test_->Pixels();
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickButton(3);
    test_->Settle();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, deletionQuestion);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, yesNo);
    QCOMPARE(test_->robot.ProposedNames().size(), 1);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->EnabledButtons(), buttonsWithFigure);
}

void tst_imagemappicture::openingWithFiguresDeletesThemOnYes()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->OpenPicture({ 250, 150 });
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Text("lblWidthPic"), QStringLiteral("250"));
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isEnabled());
    QCOMPARE(test_->Text("lblFigures"), QString());
}

void tst_imagemappicture::cancelledOpeningAfterYesHasDeletedTheMap()
{
    test_->OpenPicture();
    const QImage blank = test_->Pixels();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.Cancel();
    test_->ClickButton(3);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Pixels(), blank);
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("picture.jpg"));
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QVERIFY(!test_->Find<QCheckBox>("Check1")->isEnabled());
}

void tst_imagemappicture::newImageMapAsksAndKeepsTheMapOnNo()
{
    test_->OpenPicture();
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickButton(2);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, deletionQuestion);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Question);
    QCOMPARE(box.buttons, yesNo);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->RowCount(), 1);
}

void tst_imagemappicture::newImageMapKeepsPictureAndAttributes()
{
    test_->OpenPicture();
    const QImage blank = test_->Pixels();
    TypeIn(test_->editor, "txtName", "Harbour");
    TypeIn(test_->editor, "txtAltDescript", "View");
    TypeIn(test_->editor, "txtImgWidth", "77");
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickButton(2);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 0);
    QCOMPARE(test_->Pixels(), blank);
    QCOMPARE(test_->Find<QLineEdit>("txtName")->text(), QStringLiteral("Harbour"));
    QCOMPARE(test_->Find<QLineEdit>("txtAltDescript")->text(), QStringLiteral("View"));
    QCOMPARE(test_->Find<QLineEdit>("txtImgWidth")->text(), QStringLiteral("77"));
    QCOMPARE(test_->Text("StatusBar1_Panel2"), QStringLiteral("picture.jpg"));
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
    QCOMPARE(test_->CheckedTools(), QStringList{ QStringLiteral("mnuFigNum_5") });
    QCOMPARE(test_->Text("lblFigures") + test_->Start1And2(), QString());
}

void tst_imagemappicture::newImageMapTakesTheModesPlainHeaderButKeepsItsDefault()
{
    test_->map.SetMode(JSTextArea);
    test_->OpenPicture();
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    TypeIn(dialog, "cmbLink", "a.htm");
    TypeIn(dialog, "txtDefaultTAreaMessage", "Welcome");
    TypeIn(dialog, "txtSwitchingTAreaMessage", "Here");
    ClickIn(dialog, "SSCmdOK");
    QCOMPARE(test_->MessageHeader(), QStringLiteral(" Text Area Messages (Default Message:Welcome):"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Entry("mnuNew")->trigger();
    QCOMPARE(test_->MessageHeader(), QStringLiteral(" Switching Text Area Messages:"));
    QCOMPARE(test_->map.ModeDefault(), QStringLiteral("Welcome"));
}

void tst_imagemappicture::newImageMapWithoutFiguresAsksNothing()
{
    test_->OpenPicture();
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    QCOMPARE(test_->map.Ledger().DrawState, drawDrawing);
    test_->ClickButton(2);
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
    QCOMPARE(test_->map.Ledger().DrawState, drawIdle);
    QCOMPARE(test_->EnabledButtons(), buttonsWithPicture);
}

/** A polygon drawn after one was deleted takes the first with it when it is deleted, but only its own row. */
void tst_imagemappicture::LeaveRowWithoutFigures()
{
    test_->OpenPicture();
    const QList<QPoint> corners = { { 10, 10 }, { 90, 20 }, { 50, 80 }, { 20, 70 } };
    test_->DrawPolygon(corners);
    test_->DrawPolygon(corners);
    test_->ClickButton(14);
    test_->DrawPolygon(corners);
    test_->ClickButton(14);
    QCOMPARE(test_->map.Ledger().FigureCount, 0);
    QCOMPARE(test_->RowCount(), 1);
}

void tst_imagemappicture::rowsLeftOverGoWithoutAQuestion_data()
{
    QTest::addColumn<int>("button");
    QTest::newRow("New") << 2;
    QTest::newRow("Open") << 3;
}

void tst_imagemappicture::rowsLeftOverGoWithoutAQuestion()
{
    QFETCH(const int, button);
    LeaveRowWithoutFigures();
    if (button == 3) {
        test_->OpenPicture({ 250, 150 });
    } else {
        // A figure that is started enables the button.
        test_->ClickAt({ 20, 20 });
        test_->ClickButton(2);
    }
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(test_->robot.Boxes().isEmpty());
    test_->DrawCircle({ 100, 100 }, { 120, 110 });
    QCOMPARE(test_->Row(0).at(0), QStringLiteral(" No: 1 Circle"));
}

void tst_imagemappicture::cancelledOpeningKeepsRowsLeftOver()
{
    LeaveRowWithoutFigures();
    test_->robot.Cancel();
    test_->ClickButton(3);
    QCOMPARE(test_->RowCount(), 1);
}

QTEST_MAIN(tst_imagemappicture)
#include "tst_imagemappicture.moc"
