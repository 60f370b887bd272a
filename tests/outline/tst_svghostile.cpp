#include "SvgReadings.h"
#include "outline/SvgTree.h"

#include <QTemporaryFile>
#include <QTest>
#include <QUrl>

/** Drawings that are damaged, or made to harm. */
class tst_svghostile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void endInAMessage_data();
    void endInAMessage();
    void nothingIsLoadedFromElsewhere();
    void oddNumbersDoNoHarm_data();
    void oddNumbersDoNoHarm();
    void everyBeginningOfADrawingIsTold();
    void longPathsComeToAnEnd();
};

void tst_svghostile::endInAMessage_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    const auto row = [](const char* name, const QByteArray& bytes, const char* problem) {
        QTest::newRow(name) << bytes << QString::fromLatin1(problem);
    };
    const QByteArray begin = "<svg xmlns='http://www.w3.org/2000/svg' width='200' height='100'>";
    row("nothing", "", "This is no SVG drawing !");
    row("a page", "<html><body></body></html>", "This is no SVG drawing !");
    row("compressed", QByteArray("\x1F\x8B\x08\0\0\0\0\0", 8),
        "The drawing is compressed (SVGZ): save it as plain SVG first !");
    row("a picture", "\x89PNG\r\n\x1A\n", "This is no SVG drawing !");
    row("cut off", begin + "\n<g>\n<rect", "The drawing is damaged in its line 3 !");
    row("wrongly nested", begin + "<g></svg>", "The drawing is damaged in its line 1 !");
    QByteArray entities = "<!DOCTYPE svg [<!ENTITY a 'aaaaaaaaaa'>";
    for (char name = 'b'; name < 'm'; ++name) {
        const QByteArray inner = QByteArray("&") + char(name - 1) + ';';
        entities += QByteArray("<!ENTITY ") + name + " '" + inner.repeated(10) + "'>";
    }
    row("entities that unfold", entities + "]>\n" + begin + "<title>&l;</title></svg>",
        "The drawing is damaged in its line 2 !");
    row("deep nesting", begin + QByteArray("<g>").repeated(100'000),
        "The elements of the drawing stand too deep in one another !");
    row("very many elements", begin + QByteArray("<g/>").repeated(SvgTree::mostElements + 1),
        "The drawing has more elements than can be believed !");
    row("very many shapes",
        begin + QByteArray("<circle r='9'/>").repeated(SvgShapesReading::mostShapes + 1) + "</svg>",
        "The drawing has more shapes than any map has areas !");
    QByteArray uses = "<defs><g id='u0'><path/></g>";
    for (int level = 1; level < 12; ++level) {
        const QByteArray use = "<use href='#u" + QByteArray::number(level - 1) + "'/>";
        uses += "<g id='u" + QByteArray::number(level) + "'>" + use.repeated(10) + "</g>";
    }
    row("parts that unfold", begin + uses + "</defs><use href='#u11'/></svg>",
        "The drawing repeats its parts more often than can be believed !");
    row("huge numbers", begin + "<rect width='1e200' height='5'/></svg>",
        "The drawing has numbers beyond any picture !");
    row("huge transforms",
        begin + "<g transform='scale(1e12)'><g transform='scale(1e12)'><rect width='9' "
                "height='9'/></g></g></svg>",
        "The drawing has numbers beyond any picture !");
    row("a size of nearly nothing",
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 1e-11 1e-11'><rect width='9' "
        "height='9'/></svg>",
        "The drawing has numbers beyond any picture !");
}

void tst_svghostile::endInAMessage()
{
    QFETCH(const QByteArray, bytes);
    const SvgShapesReading reading = ReadSvgShapes(bytes, { 200, 100 });
    QTEST(reading.Problem, "problem");
    QVERIFY(reading.Shapes.isEmpty());
}

void tst_svghostile::nothingIsLoadedFromElsewhere()
{
    QTemporaryFile secret;
    QVERIFY(secret.open());
    secret.write("secret");
    secret.flush();
    const QByteArray address = QUrl::fromLocalFile(secret.fileName()).toEncoded();
    const SvgShapesReading reading = ReadSvgShapes(
        "<!DOCTYPE svg [<!ENTITY a SYSTEM '" + address +
            "'>]><svg xmlns='http://www.w3.org/2000/svg'><rect width='90' height='90'><title>is "
            "&a;</title></rect>"
            "<use href='" +
            address + "#a'/></svg>",
        { 100, 100 });
    QCOMPARE(reading.Shapes.size(), 1);
    QCOMPARE(reading.Shapes.constFirst().Area.Text, "is");
}

void tst_svghostile::oddNumbersDoNoHarm_data()
{
    QTest::addColumn<QByteArray>("content");
    const auto row = [](const char* name, const QByteArray& content) { QTest::newRow(name) << content; };
    row("no numbers", "<rect x='NaN' y='inf' width='nan' height='-nan'/>");
    row("a transform that leaves nothing", "<g transform='scale(0)'><circle r='50'/></g>");
    row("a transform that skews endlessly", "<g transform='skewX(90)'><path d='M0 0h10v1e-15z'/></g>");
    row("arcs of any radius", "<path d='M0 0A1e-12 1e12 45 1 1 50 50A1e12 1e-12 45 0 1 0 90z'/>");
    row("uses in one another", "<g id='a'><use href='#b'/></g><g id='b'><use href='#a'/></g>");
    row("a drawing within without a size",
        "<svg width='0' height='9' viewBox='0 0 0 0'><circle r='9'/></svg>");
    row("the same name twice", "<g id='a'/><rect id='a' width='9' height='9'/><use href='#a'/>");
}

void tst_svghostile::oddNumbersDoNoHarm()
{
    QFETCH(const QByteArray, content);
    const SvgShapesReading reading = ReadInner(content);
    for (const AreaCandidate& shape : reading.Shapes) {
        for (const int number : shape.Area.Coordinates) {
            QVERIFY(number >= 0 && number <= 200);
        }
    }
}

void tst_svghostile::everyBeginningOfADrawingIsTold()
{
    const QByteArray whole =
        "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 10 10'><style>.a{fill:none}</style>"
        "<a href='x'><path class='a' d='M1 1h5a2 2 0 0 1 2 3z'/><title>t</title></a></svg>";
    for (qsizetype length = 0; length < whole.size(); ++length) {
        QVERIFY(!ReadSvgShapes(whole.first(length), { 100, 100 }).Problem.isEmpty());
    }
    QCOMPARE(ReadSvgShapes(whole, { 100, 100 }).Shapes.size(), 1);
}

void tst_svghostile::longPathsComeToAnEnd()
{
    QByteArray path = "<path d='M0 0";
    for (int i = 0; i < 200'000; ++i) {
        path += "C1e8 0 -1e8 90 " + QByteArray::number(i % 200) + ' ' + QByteArray::number(i * 7 % 100);
    }
    // What grew with the square of its length would not come to an end here.
    QCOMPARE(ReadInner(path + "'/>").Problem, QString());
}

QTEST_GUILESS_MAIN(tst_svghostile)

#include "tst_svghostile.moc"
