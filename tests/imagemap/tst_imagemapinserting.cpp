// Putting the map into the document.

#include "shared/Paths.h"
#include "tests/imagemap/EditorTest.h"

#include <QCheckBox>
#include <QTabWidget>

namespace {

/** The markup of a map without areas and attributes, of the picture that the tests open. */
QString EmptyMap(const QString& source, const QString& attributes)
{
    return QStringLiteral("<!-- This Image Map was created by Cartolen -->\r\n"
                          "<!-- https://cartolen.example/ -->\r\n"
                          "<IMG SRC=\"%1\" USEMAP=\"#MyImageMap\" %2>\r\n"
                          "<MAP NAME=\"MyImageMap\">\r\n"
                          "</MAP>\r\n"
                          "<!-- End Image Map-->")
        .arg(source, attributes);
}

} // namespace

class tst_imagemapinserting : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void insertingNeedsAMapName();
    void insertingWritesTheAreas();
    void insertingUsesTheAttributes();
    void insertingFallsBackToThePicturesSize();
    void insertingNamesThePictureOnlyWhenAsked();
    void insertingTwiceWritesTheMapTwice();
    void insertingWithoutAreasWritesAnEmptyMap();
    void insertingChangesNothingInTheEditor();

private:
    /** What a page refers to the picture by. */
    [[nodiscard]] QString PictureReference() const
    {
        QString path = test_->folder.Path(QStringLiteral("picture.jpg"));
        return PathToFileUrl(path);
    }
};

void tst_imagemapinserting::insertingNeedsAMapName()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    test_->Find<QLineEdit>("txtName")->clear();
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickButton(16);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("Please, enter the Image Map Name !"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(test_->Find<QTabWidget>("SSTab1")->currentIndex(), 0);
    QCOMPARE(test_->editor->focusWidget(), test_->Find<QWidget>("txtName"));
    QVERIFY(test_->document.inserted.isEmpty());
    QTest::keyClick(test_->editor->focusWidget(), Qt::Key_Space);
    test_->ClickButton(16);
    QCOMPARE(test_->document.inserted.size(), 1);
    QVERIFY(test_->document.inserted[0].contains(u"<MAP NAME=\" \">"));
}

void tst_imagemapinserting::insertingWritesTheAreas()
{
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 12 }, { 40, 42 }); });
    TypeIn(dialog, "cmbLink", "one.htm");
    TypeIn(dialog, "cmbTarget", "_top");
    ClickIn(dialog, "SSCmdOK");
    test_->map.Script().SetMode(JSStatusBar);
    test_->ClickButton(6);
    const QPointer<QDialog> second = test_->DialogOpenedBy([this] {
        test_->Drag({ 100, 100 }, { 150, 110 });
    });
    TypeIn(second, "cmbLink", "two.htm");
    TypeIn(second, "txtStatusBarMessage", "Home page");
    ClickIn(second, "SSCmdOK");
    test_->Entry("mnuInsert")->trigger();
    QCOMPARE(test_->document.inserted.size(), 1);
    QCOMPARE(
        test_->document.inserted[0],
        QStringLiteral("<!-- This Image Map was created by Cartolen -->\r\n"
                       "<!-- https://cartolen.example/ -->\r\n"
                       "<IMG SRC=\"%1\" USEMAP=\"#MyImageMap\" WIDTH=300 HEIGHT=200 BORDER=0>\r\n"
                       "<MAP NAME=\"MyImageMap\">\r\n"
                       "<AREA SHAPE=RECT COORDS=\"10, 12, 40, 42\" HREF=\"one.htm\" TARGET=\"_top\">\r\n"
                       "<AREA SHAPE=CIRCLE COORDS=\"100, 100, 50\" HREF=\"two.htm\""
                       " onMouseOver=\"window.status='Home page';return true\""
                       " onMouseOut=\"window.status='';return true\" ALT=\"Home page\">\r\n"
                       "</MAP>\r\n"
                       "<!-- End Image Map-->")
            .arg(PictureReference()));
}

void tst_imagemapinserting::insertingUsesTheAttributes()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    TypeIn(test_->editor, "txtImgWidth", "50%");
    TypeIn(test_->editor, "txtImgHeight", "70");
    TypeIn(test_->editor, "txtAltDescript", "The \"harbour\"");
    TypeIn(test_->editor, "txtBorder", "2");
    TypeIn(test_->editor, "txtHorSp", "5");
    TypeIn(test_->editor, "txtVertSp", "6");
    // What was typed must not turn into the offered item that begins like it.
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    test_->editor->activateWindow();
    test_->Find<QWidget>("cmbAlign")->setFocus();
    QTRY_VERIFY(test_->Find<QWidget>("cmbAlign")->hasFocus());
    TypeIn(test_->editor, "cmbAlign", "lef");
    QCOMPARE(test_->Find<QComboBox>("cmbAlign")->currentText(), QStringLiteral("lef"));
    TypeIn(test_->editor, "cmbAlign", "left");
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[0].contains(
        u" WIDTH=50% HEIGHT=70 ALT=\"The \"harbour\"\" BORDER=2 HSPACE=5 VSPACE=6 ALIGN=left>\r\n"));
    test_->Find<QComboBox>("cmbAlign")->setCurrentIndex(7);
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[1].contains(u" VSPACE=6 ALIGN=BOTTOM>\r\n"));
}

void tst_imagemapinserting::insertingFallsBackToThePicturesSize()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    test_->Find<QLineEdit>("txtImgWidth")->clear();
    test_->Find<QLineEdit>("txtImgHeight")->clear();
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[0].contains(u" WIDTH=300 HEIGHT=200 BORDER=0>\r\n"));
}

void tst_imagemapinserting::insertingNamesThePictureOnlyWhenAsked()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    QTest::keyClick(test_->Find<QCheckBox>("Check1"), Qt::Key_Space);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isChecked());
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[0].contains(u"<IMG SRC=\"picture.jpg\" USEMAP="));
    QTest::keyClick(test_->Find<QCheckBox>("Check1"), Qt::Key_Space);
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[1].contains(u"<IMG SRC=\"" + PictureReference() + u"\" USEMAP="));
}

void tst_imagemapinserting::insertingTwiceWritesTheMapTwice()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    test_->ClickButton(16);
    test_->ClickButton(16);
    QCOMPARE(test_->document.inserted.size(), 2);
    QCOMPARE(test_->document.inserted[0], test_->document.inserted[1]);
}

void tst_imagemapinserting::insertingWithoutAreasWritesAnEmptyMap()
{
    // The commands are there as soon as a figure has been started.
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->ClickButton(16);
    QCOMPARE(
        test_->document.inserted,
        QStringList{ EmptyMap(PictureReference(), QStringLiteral("WIDTH=300 HEIGHT=200 BORDER=0")) });
}

void tst_imagemapinserting::insertingChangesNothingInTheEditor()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    const QImage before = test_->Pixels();
    const QStringList row = test_->Row(0);
    test_->ClickButton(16);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

QTEST_MAIN(tst_imagemapinserting)

#include "tst_imagemapinserting.moc"
