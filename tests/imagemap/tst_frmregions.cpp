#include "RegionsTest.h"

#include <QFile>

namespace {

/** Four shapes in a drawing that is shown at twice its size: a ground, two that overlap, and a circle. */
constexpr const char* drawing =
    "<svg xmlns='http://www.w3.org/2000/svg' width='150' height='60'>"
    "<rect width='150' height='60' fill='#ccc'/>"
    "<a href='low.htm'><rect x='10' y='10' width='40' height='30'><title>Low</title></rect></a>"
    "<a href='high.htm'><rect x='20' y='20' width='20' height='10'/></a>"
    "<circle id='round' cx='100' cy='30' r='20'/></svg>";

} // namespace

/** Shapes of a drawing, of which those are made into areas that are ticked. */
class tst_frmregions : public RegionsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup() { End(); }

    void shapesAreListed();
    void tickedShapesAreSeenBeforeTheyAreMade();
    void tickedShapesAreOneStepOfUndo();
    void cancelMakesNothing();
    void keysTickAndUntick();
    void withoutTicksNothingCanBeMade();
    void anEditorThatGoesTakesTheWindowAlong();
    void aDrawingThatIsDamagedIsTold();
    void aDrawingWithoutShapesIsTold();

private:
    QString Write(const QByteArray& bytes)
    {
        const QString path = test_->folder.Path(QStringLiteral("drawing.svg"));
        QFile file(path);
        if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size()) {
            qFatal("cannot write %s", qPrintable(path));
        }
        return path;
    }

    QPointer<QDialog> OpenShapes()
    {
        test_->OpenPicture({ 300, 120 });
        Activate();
        test_->robot.ChooseFile(Write(drawing));
        return test_->DialogOpenedBy([this] { Trigger("mnuAFromSvg"); });
    }

    void TellsOf(const QByteArray& bytes, const char* problem)
    {
        test_->OpenPicture({ 300, 120 });
        const QString path = Write(bytes);
        test_->robot.ChooseFile(path);
        test_->robot.AnswerBox(QMessageBox::Ok);
        Trigger("mnuAFromSvg");
        test_->robot.WaitUntilDone();
        QCOMPARE(test_->robot.Boxes().constLast().text, QString(QLatin1String(problem) + u'\n' + path));
        QCOMPARE(test_->RowCount(), 0);
    }
};

void tst_frmregions::shapesAreListed()
{
    const QPointer<QDialog> dialog = OpenShapes();
    QCOMPARE(dialog->windowTitle(), "Shapes of an SVG");
    QCOMPARE(
        TextsOf(Model(dialog), 0), (QStringList{ "Rectangle 1", "Rectangle", "", "covers the picture" }));
    QCOMPARE(TextsOf(Model(dialog), 1), (QStringList{ "Low", "Rectangle", "low.htm", "" }));
    QCOMPARE(TextsOf(Model(dialog), 3), (QStringList{ "round", "Circle", "", "" }));
    QCOMPARE(TickedRows(dialog), (QList<int>{ 1, 2, 3 }));
    QCOMPARE(TextIn(dialog), "3 of 4 will be made.");
    QVERIFY(!::Find<QWidget>(dialog, "pnlSearch")->isVisible());
    Close(dialog, "cmdCancel");
}

void tst_frmregions::tickedShapesAreSeenBeforeTheyAreMade()
{
    test_->OpenPicture({ 300, 120 });
    const QImage bare = test_->Pixels();
    const QPointer<QDialog> dialog = OpenShapes();
    // The right end of the circle.
    QVERIFY(test_->Pixels().pixel(240, 60) != bare.pixel(240, 60));
    Close(dialog, "cmdCancel");
    QCOMPARE(test_->Pixels(), bare);
}

void tst_frmregions::tickedShapesAreOneStepOfUndo()
{
    const QPointer<QDialog> dialog = OpenShapes();
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 3);
    // What lies on top in the drawing does so in the map, where the first is topmost.
    QCOMPARE(test_->Row(0).at(1), "high.htm");
    QCOMPARE(test_->Row(1).at(1), "low.htm");
    QCOMPARE(Numbers(0), (QList<int>{ 40, 40, 80, 60 }));
    QCOMPARE(Numbers(2), (QList<int>{ 200, 60, 40 }));
    QCOMPARE(test_->map.Areas().at(1).Text, "Low");
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Shapes of 3 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
}

void tst_frmregions::cancelMakesNothing()
{
    Close(OpenShapes(), "cmdCancel");
    QCOMPARE(test_->RowCount(), 0);
    QVERIFY(!test_->map.HasContent());
}

void tst_frmregions::keysTickAndUntick()
{
    const QPointer<QDialog> dialog = OpenShapes();
    auto* const list = ::Find<QTreeView>(dialog, "lstRegions");
    QTest::keyClick(list, Qt::Key_Space);
    QCOMPARE(TickedRows(dialog), (QList<int>{ 0, 1, 2, 3 }));
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Space);
    QCOMPARE(TickedRows(dialog), (QList<int>{ 0, 2, 3 }));
    Close(dialog, "cmdOK");
    QCOMPARE(test_->RowCount(), 3);
}

void tst_frmregions::withoutTicksNothingCanBeMade()
{
    const QPointer<QDialog> dialog = OpenShapes();
    ClickIn(dialog, "cmdNone");
    QCOMPARE(TickedRows(dialog), QList<int>());
    QVERIFY(!::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    ClickIn(dialog, "cmdAll");
    QCOMPARE(TickedRows(dialog), (QList<int>{ 0, 1, 2, 3 }));
    QVERIFY(::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    Close(dialog, "cmdCancel");
}

void tst_frmregions::anEditorThatGoesTakesTheWindowAlong()
{
    const QPointer<QDialog> dialog = OpenShapes();
    delete test_->editor.data();
    QVERIFY(dialog == nullptr);
}

void tst_frmregions::aDrawingThatIsDamagedIsTold()
{
    TellsOf("<svg xmlns='http://www.w3.org/2000/svg'>\n<g>", "The drawing is damaged in its line 2 !");
}

void tst_frmregions::aDrawingWithoutShapesIsTold()
{
    TellsOf("<svg xmlns='http://www.w3.org/2000/svg'/>", "The drawing has no shapes that could be areas !");
}

QTEST_MAIN(tst_frmregions)

#include "tst_frmregions.moc"
