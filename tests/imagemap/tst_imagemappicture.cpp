// Opening a picture in the image map editor, and scrolling it.

#include "shared/Paths.h"
#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/EditorTexts.h"
#include "widgets/ElidedLabel.h"

#include <QCheckBox>
#include <QFile>

class tst_imagemappicture : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

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
};

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

QTEST_MAIN(tst_imagemappicture)

#include "tst_imagemappicture.moc"
