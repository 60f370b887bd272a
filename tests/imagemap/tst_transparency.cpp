#include "PictureFileTest.h"
#include "RegionsTest.h"

#include <QClipboard>
#include <QPainter>

namespace {

/** Two islands, one of which is half transparent, and a haze that is none. */
QImage Islands()
{
    QImage picture(200, 100, QImage::Format_ARGB32);
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(10, 10, 40, 30, Qt::red);
    painter.fillRect(10, 40, 40, 10, Qt::blue);
    painter.fillRect(100, 20, 50, 50, QColor(0, 0, 0, 140));
    painter.fillRect(160, 20, 30, 30, QColor(0, 0, 0, 100));
    return picture;
}

} // namespace

/** What is opaque in a picture, island by island. */
class tst_transparency : public RegionsTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Begin(); }
    void cleanup()
    {
        QGuiApplication::clipboard()->clear();
        End();
    }

    void islandsAreListed();
    void islandsAreOneStepOfUndo();
    void islandsOfAGifAreThoseOfItsFirstFrame();
    void islandsOfAPastedPictureAreFound();
    void opaquePictureIsTold();
    void missingFileIsTold();
    void otherSizeIsTold();

private:
    void Tells(const QString& problem, const QString& path)
    {
        test_->robot.AnswerBox(QMessageBox::Ok);
        Trigger("mnuATransparency");
        test_->robot.WaitUntilDone();
        QCOMPARE(test_->robot.Boxes().constLast().text, problem + u'\n' + path);
        QCOMPARE(test_->RowCount(), 0);
    }
};

void tst_transparency::islandsAreListed()
{
    OpenPng(Islands());
    const QPointer<QDialog> dialog = OpenBy("mnuATransparency");
    QTRY_COMPARE(CountOf(dialog), 2);
    QCOMPARE(TextsOf(Model(dialog), 0), (QStringList{ "Region 1", "Rectangle", "1600", "" }));
    QCOMPARE(TextsOf(Model(dialog), 1), (QStringList{ "Region 2", "Rectangle", "2500", "" }));
    QVERIFY(::Find<QWidget>(dialog, "spnLeastPixels")->isVisible());
    QVERIFY(::Find<QWidget>(dialog, "spnPrecision")->isVisible());
    QVERIFY(!::Find<QWidget>(dialog, "spnTolerance")->isVisible());
    QVERIFY(!::Find<QWidget>(dialog, "chkSelected")->isVisible());
    TypeNumber(dialog, "spnLeastPixels", "2000");
    QTRY_COMPARE(CountOf(dialog), 1);
    Close(dialog, "cmdCancel");
    QCOMPARE(test_->RowCount(), 0);
}

void tst_transparency::islandsAreOneStepOfUndo()
{
    OpenPng(Islands());
    Close(OpenBy("mnuATransparency"), "cmdOK");
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(Numbers(0), (QList<int>{ 10, 10, 50, 50 }));
    QCOMPARE(Numbers(1), (QList<int>{ 100, 20, 150, 70 }));
    Trigger("mnuAUndo");
    QCOMPARE(test_->RowCount(), 0);
}

void tst_transparency::islandsOfAGifAreThoseOfItsFirstFrame()
{
    const QString path = test_->folder.Path(QStringLiteral("frame.gif"));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(RedGif({ 60, 40 }, { 20, 10, 30, 20 }));
    file.close();
    test_->Open(path);
    Close(OpenBy("mnuATransparency"), "cmdOK");
    QCOMPARE(test_->RowCount(), 1);
    QCOMPARE(Numbers(0), (QList<int>{ 20, 10, 50, 30 }));
}

void tst_transparency::islandsOfAPastedPictureAreFound()
{
    QGuiApplication::clipboard()->setImage(Islands());
    Key(Qt::Key_V, Qt::ControlModifier);
    Close(OpenBy("mnuATransparency"), "cmdOK");
    QCOMPARE(test_->RowCount(), 2);
}

void tst_transparency::opaquePictureIsTold()
{
    QImage opaque = Islands();
    opaque.fill(Qt::red);
    Tells("No part of the picture is transparent !", OpenPng(opaque));
}

void tst_transparency::missingFileIsTold()
{
    const QString path = OpenPng(Islands());
    QVERIFY(QFile::remove(path));
    Tells("The picture is not there, is empty, or is larger than 512 MB !", path);
}

void tst_transparency::otherSizeIsTold()
{
    const QString path = OpenPng(Islands());
    QVERIFY(Islands().copy(0, 0, 100, 100).save(path));
    Tells("The file of the picture has another size by now: load the picture anew first !", path);
}

QTEST_MAIN(tst_transparency)

#include "tst_transparency.moc"
