#include "AnyPictureTest.h"

/** Drawings, which could ask for more than they show. */
class tst_svgpicture : public AnyPictureTest
{
    Q_OBJECT

private Q_SLOTS:
    void drawingsFetchNothing();
    void picturesInADrawingAreShown();
    void drawingsMayUseEntities();
    void drawingsDoNotUnfoldOutOfProportion_data();
    void drawingsDoNotUnfoldOutOfProportion();
};

void tst_svgpicture::drawingsFetchNothing()
{
    if (!IsReadable("svg")) {
        QSKIP("this system has no reader for drawings");
    }
    const QByteArray other = Write(Written(FourCorners(), "png"), "other.png").toUtf8();
    const QByteArray sheet = Write("rect { fill: red }", "sheet.css").toUtf8();
    QImage white(40, 30, QImage::Format_RGB32);
    white.fill(Qt::white);
    QCOMPARE(Read(Svg("<image width='40' height='30' xlink:href='" + other + "'/>")).Picture, white);
    QCOMPARE(Read(Svg("<image width='40' height='30' xlink:href='file://" + other + "'/>")).Picture, white);
    const QByteArray styled = Svg("<rect width='40' height='30' fill='#fff'/>");
    QCOMPARE(
        Read(
            "<?xml-stylesheet type='text/css' href='" + sheet + "'?>" + styled.sliced(styled.indexOf("<svg")))
            .Picture,
        white);
    QCOMPARE(Read(Svg("<script>while (true);</script>")).Picture, white);
}

void tst_svgpicture::picturesInADrawingAreShown()
{
    if (!IsReadable("svg")) {
        QSKIP("this system has no reader for drawings");
    }
    const QByteArray inside = Written(FourCorners(), "png").toBase64();
    const PictureReading reading =
        Read(Svg("<image width='40' height='30' xlink:href='data:image/png;base64," + inside + "'/>"));
    QVERIFY(AreNear(CornersOf(reading.Picture), uprightCorners));
}

void tst_svgpicture::drawingsMayUseEntities()
{
    if (!IsReadable("svg")) {
        QSKIP("this system has no reader for drawings");
    }
    const QByteArray drawing =
        "<!DOCTYPE svg [<!ENTITY ns 'http://www.w3.org/2000/svg'><!ENTITY red '#f00'>]>"
        "<svg xmlns='&ns;' width='9' height='7'>"
        "<rect width='9' height='7' fill='&red;'/></svg>";
    const PictureReading reading = Read(drawing);
    QCOMPARE(reading.Problem, QString());
    QCOMPARE(reading.Picture.pixelColor(4, 3), QColor(Qt::red));
}

void tst_svgpicture::drawingsDoNotUnfoldOutOfProportion_data()
{
    QTest::addColumn<QByteArray>("bytes");

    QByteArray doubled = "<g id='a0'><rect width='1' height='1'/></g>";
    QByteArray entities = "<!DOCTYPE svg [<!ENTITY e0 'xxxxxxxxxx'>";
    for (int i = 1; i < 40; ++i) {
        const QByteArray before = QByteArray::number(i - 1);
        const QByteArray use = "<use xlink:href='#a" + before + "'/>";
        doubled += "<g id='a" + QByteArray::number(i) + "'>" + use + use + "</g>";
        entities += "<!ENTITY e" + QByteArray::number(i) + " '&e" + before + ";&e" + before + ";'>";
    }
    AddRow("repeated", Svg(doubled));
    AddRow("itself", Svg("<g id='a'><use xlink:href='#a'/></g>"));
    AddRow("entities", entities + "]><svg xmlns='http://www.w3.org/2000/svg'><text>&e39;</text></svg>");
    AddRow("deep", Svg(QByteArray("<g>").repeated(5000) + QByteArray("</g>").repeated(5000)));
    AddRow("many", Svg(QByteArray("<g/>").repeated(300'000)));
}

void tst_svgpicture::drawingsDoNotUnfoldOutOfProportion()
{
    QFETCH(const QByteArray, bytes);
    if (!IsReadable("svg")) {
        QSKIP("this system has no reader for drawings");
    }
    QCOMPARE(Read(bytes).Problem, damaged.toString());
}

QTEST_MAIN(tst_svgpicture)
#include "tst_svgpicture.moc"
