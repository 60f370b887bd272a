#include "codegen/MapMarkup.h"

#include <QFile>
#include <QTest>

namespace {

/** The page `name` as it must come out, byte for byte. */
QByteArray Expected(const QString& name)
{
    QFile file(QFINDTESTDATA("data/" + name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<no such page>");
}

MapSource PlainSource()
{
    MapSource source;
    source.MapName = "MyImageMap";
    source.Width = "200";
    source.Height = "100";
    source.PictureReference = "file:///C|/pics/map.gif";
    return source;
}

MapAreas TwoAreas(const QString& firstMessage, const QString& secondMessage)
{
    return { { AreaShape::Rectangle, { 10, 10, 90, 40 }, "a.html", "", firstMessage },
             { AreaShape::Circle, { 150, 50, 30 }, "b.html", "_blank", secondMessage } };
}

MapSource SourceWith(const QString& modeDefault, const MapAreas& areas)
{
    MapSource source = PlainSource();
    source.ModeDefault = modeDefault;
    source.Areas = areas;
    return source;
}

/** The line of `text` that starts with `start`. */
QString LineOf(const QString& text, const QString& start)
{
    for (const QString& line : text.split("\r\n")) {
        if (line.startsWith(start)) {
            return line;
        }
    }
    return {};
}

} // namespace

class tst_mapmarkup : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void standardMapComesOutToTheByte();
    void everyAttributeHasItsPlace();
    void mapWithoutAreasIsAMapStill();
    void emptyAttributesAreLeftOut_data();
    void emptyAttributesAreLeftOut();
    void shapeHasItsWord_data();
    void shapeHasItsWord();
    void emptyTargetAndMessageAreLeftOut_data();
    void emptyTargetAndMessageAreLeftOut();
    void coordinatesAreJoinedByCommaAndBlank();

    void switchingImagesComeOutToTheByte();
    void switchingImagesMayBeNamedWithoutFolders();
    void switchingImagesWithoutAreasComeOutToTheByte();
    void switchingImagesHaveHandlersWithoutAMessage();
    void textAreaComesOutToTheByte();
    void textAreaCopiesQuotesAsTheyStand();
    void textAreaWithoutAreasComesOutToTheByte();
    void toolTipsComeOutToTheByte();
    void toolTipsHaveHandlersWithoutAMessage();

    void modeChoosesTheGenerator_data();
    void modeChoosesTheGenerator();
    void generatingChangesNothing();
    void everyLineEndsInCrLf_data();
    void everyLineEndsInCrLf();
    void manyAreasAreNumberedThrough();
};

void tst_mapmarkup::standardMapComesOutToTheByte()
{
    MapSource source = PlainSource();
    source.AltText = "Site map";
    source.Areas = TwoAreas("Home page", "");
    source.Areas[0].Link = "index.html";
    source.Areas[1].Link = "contact.html";
    QCOMPARE(GenerateStandardMap(source).toLatin1(), Expected("standard.html"));
}

void tst_mapmarkup::everyAttributeHasItsPlace()
{
    const MapSource source = {
        .MapName = "Plan",
        .Width = "50%",
        .Height = "7",
        .AltText = "A \"quoted\" text",
        .Align = "left",
        .Border = "2",
        .HorizontalSpace = "5",
        .VerticalSpace = "6",
        .PictureReference = "map.gif",
        .FileNamesOnly = true,
        .ModeDefault = "unused",
        .Areas = { { AreaShape::Polygon, { -1, 2, 3, 4, 5, 6 }, "", "_top", "" },
                   { AreaShape::Rectangle, { 0, 0, 0, 0 }, "a\"b.html", "", "it's \"so\"" } },
    };
    QCOMPARE(GenerateStandardMap(source).toLatin1(), Expected("every-attribute.html"));
}

void tst_mapmarkup::mapWithoutAreasIsAMapStill()
{
    MapSource source = PlainSource();
    source.Width = "0";
    source.Height = "0";
    source.PictureReference.clear();
    QCOMPARE(GenerateStandardMap(source).toLatin1(), Expected("no-areas.html"));
}

void tst_mapmarkup::emptyAttributesAreLeftOut_data()
{
    QTest::addColumn<QString>("alt");
    QTest::addColumn<QString>("align");
    QTest::addColumn<QString>("border");
    QTest::addColumn<QString>("horizontal");
    QTest::addColumn<QString>("vertical");
    QTest::addColumn<QString>("pieces");
    QTest::newRow("none") << ""
                          << ""
                          << ""
                          << ""
                          << ""
                          << " BORDER=0";
    QTest::newRow("alternative text") << "x y"
                                      << ""
                                      << ""
                                      << ""
                                      << ""
                                      << " ALT=\"x y\" BORDER=0";
    QTest::newRow("alignment") << ""
                               << "TOP"
                               << ""
                               << ""
                               << ""
                               << " BORDER=0 ALIGN=TOP";
    QTest::newRow("border") << ""
                            << ""
                            << "2"
                            << ""
                            << ""
                            << " BORDER=2";
    QTest::newRow("no border") << ""
                               << ""
                               << "0"
                               << ""
                               << ""
                               << " BORDER=0";
    QTest::newRow("horizontal space") << ""
                                      << ""
                                      << ""
                                      << "5"
                                      << ""
                                      << " BORDER=0 HSPACE=5";
    QTest::newRow("vertical space") << ""
                                    << ""
                                    << ""
                                    << ""
                                    << "5"
                                    << " BORDER=0 VSPACE=5";
    QTest::newRow("spaces and alignment") << ""
                                          << "left"
                                          << ""
                                          << "5"
                                          << "5"
                                          << " BORDER=0 HSPACE=5 VSPACE=5 ALIGN=left";
    QTest::newRow("no numbers") << ""
                                << ""
                                << "b b"
                                << " "
                                << "v"
                                << " BORDER=b b HSPACE=  VSPACE=v";
}

void tst_mapmarkup::emptyAttributesAreLeftOut()
{
    QFETCH(const QString, pieces);
    QFETCH(const QString, alt);
    QFETCH(const QString, align);
    QFETCH(const QString, border);
    QFETCH(const QString, horizontal);
    QFETCH(const QString, vertical);
    MapSource source = PlainSource();
    source.AltText = alt;
    source.Align = align;
    source.Border = border;
    source.HorizontalSpace = horizontal;
    source.VerticalSpace = vertical;
    QCOMPARE(
        LineOf(GenerateStandardMap(source), "<IMG"),
        QString("<IMG SRC=\"file:///C|/pics/map.gif\" USEMAP=\"#MyImageMap\" WIDTH=200 HEIGHT=100%1>")
            .arg(pieces));
}

void tst_mapmarkup::shapeHasItsWord_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<QString>("opening");
    QTest::newRow("rectangle") << int(AreaShape::Rectangle) << "<AREA SHAPE=RECT COORDS=\"";
    QTest::newRow("circle") << int(AreaShape::Circle) << "<AREA SHAPE=CIRCLE COORDS=\"";
    QTest::newRow("polygon") << int(AreaShape::Polygon) << "<AREA SHAPE=POLYGON COORDS=\"";
}

void tst_mapmarkup::shapeHasItsWord()
{
    QFETCH(const int, shape);
    QFETCH(const QString, opening);
    MapSource source = PlainSource();
    source.Areas = { { static_cast<AreaShape>(shape), { 1, 2 }, "a.html", "", "" } };
    const QString line = GenerateStandardMap(source).split("\r\n").at(4);
    QCOMPARE(line, opening + "1, 2\" HREF=\"a.html\">");
}

void tst_mapmarkup::emptyTargetAndMessageAreLeftOut_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("rest");
    const QString handlers = " onMouseOver=\"window.status='Hi';return true\""
                             " onMouseOut=\"window.status='';return true\" ALT=\"Hi\"";
    QTest::newRow("neither") << ""
                             << ""
                             << "";
    QTest::newRow("target") << "_self"
                            << ""
                            << " TARGET=\"_self\"";
    QTest::newRow("message") << ""
                             << "Hi" << handlers;
    QTest::newRow("both") << "main"
                          << "Hi"
                          << " TARGET=\"main\"" + handlers;
    QTest::newRow("blanks") << " "
                            << ""
                            << " TARGET=\" \"";
}

void tst_mapmarkup::emptyTargetAndMessageAreLeftOut()
{
    QFETCH(const QString, target);
    QFETCH(const QString, message);
    QFETCH(const QString, rest);
    MapSource source = PlainSource();
    source.Areas = { { AreaShape::Circle, { 1, 2, 3 }, "", target, message } };
    QCOMPARE(
        LineOf(GenerateStandardMap(source), "<AREA"),
        QString("<AREA SHAPE=CIRCLE COORDS=\"1, 2, 3\" HREF=\"\"" + rest + ">"));
}

void tst_mapmarkup::coordinatesAreJoinedByCommaAndBlank()
{
    MapSource source = PlainSource();
    source.Areas = { { AreaShape::Polygon, { 9, 8, -7, 0, 32767, -32768 }, "a", "", "" } };
    QVERIFY(GenerateStandardMap(source).contains("COORDS=\"9, 8, -7, 0, 32767, -32768\""));
}

void tst_mapmarkup::switchingImagesComeOutToTheByte()
{
    const MapSource source = SourceWith(R"(C:\img\d.gif)", TwoAreas(R"(C:\img\a.gif)", R"(C:\img\b.gif)"));
    QCOMPARE(GenerateSwitchingImagesMap(source).toLatin1(), Expected("switching-images.html"));
}

void tst_mapmarkup::switchingImagesMayBeNamedWithoutFolders()
{
    MapSource source = SourceWith(R"(C:\img\d.gif)", TwoAreas(R"(C:\img\a.gif)", R"(C:\img\b.gif)"));
    source.FileNamesOnly = true;
    source.PictureReference = "map.gif";
    QCOMPARE(GenerateSwitchingImagesMap(source).toLatin1(), Expected("switching-images-names.html"));
}

void tst_mapmarkup::switchingImagesWithoutAreasComeOutToTheByte()
{
    QCOMPARE(
        GenerateSwitchingImagesMap(SourceWith("", {})).toLatin1(), Expected("switching-images-empty.html"));
}

void tst_mapmarkup::switchingImagesHaveHandlersWithoutAMessage()
{
    const QString text = GenerateSwitchingImagesMap(SourceWith("d.gif", TwoAreas("", "")));
    QVERIFY(text.contains("\r\nimage2on.src = \"\";\r\n"));
    QVERIFY(text.contains(" onMouseOver=\"on('image2');\"  onmouseout=\"off('origimage')\">\r\n"));
}

void tst_mapmarkup::textAreaComesOutToTheByte()
{
    const MapSource source = SourceWith("Pick an area", TwoAreas("First", "Second"));
    QCOMPARE(GenerateTextAreaMap(source).toLatin1(), Expected("text-area.html"));
}

void tst_mapmarkup::textAreaCopiesQuotesAsTheyStand()
{
    const MapSource source = SourceWith("say \"when\"", TwoAreas("a \"word\"", ""));
    QCOMPARE(GenerateTextAreaMap(source).toLatin1(), Expected("text-area-quotes.html"));
}

void tst_mapmarkup::textAreaWithoutAreasComesOutToTheByte()
{
    QCOMPARE(GenerateTextAreaMap(SourceWith("", {})).toLatin1(), Expected("text-area-empty.html"));
}

void tst_mapmarkup::toolTipsComeOutToTheByte()
{
    const MapSource source = SourceWith("unused", TwoAreas("Our shop", "it's<br>here"));
    QCOMPARE(GenerateToolTipMap(source).toLatin1(), Expected("tool-tips.html"));
}

void tst_mapmarkup::toolTipsHaveHandlersWithoutAMessage()
{
    const MapSource source = SourceWith("unused", TwoAreas("", ""));
    QCOMPARE(GenerateToolTipMap(source).toLatin1(), Expected("tool-tips-no-messages.html"));
}

void tst_mapmarkup::modeChoosesTheGenerator_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    const MapSource source = SourceWith("d.gif", TwoAreas("one", "two"));
    QTest::newRow("no script") << int(JSDisabled) << GenerateStandardMap(source);
    QTest::newRow("status bar") << int(JSStatusBar) << GenerateStandardMap(source);
    QTest::newRow("switching images") << int(JSSwitchImages) << GenerateSwitchingImagesMap(source);
    QTest::newRow("text area") << int(JSTextArea) << GenerateTextAreaMap(source);
    QTest::newRow("tool tips") << int(JSToolTips) << GenerateToolTipMap(source);
}

void tst_mapmarkup::modeChoosesTheGenerator()
{
    QFETCH(const int, mode);
    QFETCH(const QString, text);
    QCOMPARE(GenerateMapFor(static_cast<JSMode>(mode), SourceWith("d.gif", TwoAreas("one", "two"))), text);
}

void tst_mapmarkup::generatingChangesNothing()
{
    const MapSource source = SourceWith(R"(C:\img\d.gif)", TwoAreas(R"(C:\img\a.gif)", R"(C:\img\b.gif)"));
    const QString first = GenerateSwitchingImagesMap(source);
    QCOMPARE(source.ModeDefault, QString(R"(C:\img\d.gif)"));
    QCOMPARE(source.Areas, TwoAreas(R"(C:\img\a.gif)", R"(C:\img\b.gif)"));
    QCOMPARE(GenerateSwitchingImagesMap(source), first);
}

void tst_mapmarkup::everyLineEndsInCrLf_data()
{
    QTest::addColumn<int>("mode");
    for (const JSModeTexts& texts : jsModeTexts) {
        QTest::newRow(qPrintable(texts.linkCaption.toString())) << int(texts.mode);
    }
}

void tst_mapmarkup::everyLineEndsInCrLf()
{
    QFETCH(const int, mode);
    const QString text = GenerateMapFor(static_cast<JSMode>(mode), SourceWith("d", TwoAreas("one", "two")));
    QCOMPARE(text.count('\r'), text.count("\r\n"));
    QCOMPARE(text.count('\n'), text.count("\r\n"));
}

void tst_mapmarkup::manyAreasAreNumberedThrough()
{
    MapAreas areas;
    for (int i = 0; i < 500; ++i) {
        areas << TwoAreas("x", "y").constFirst();
    }
    const QString images = GenerateSwitchingImagesMap(SourceWith("d", areas));
    QVERIFY(images.contains("\r\nimage500on.src = \"x\";\r\n"));
    QVERIFY(!images.contains("image501on"));
    const QString messages = GenerateTextAreaMap(SourceWith("d", areas));
    QVERIFY(messages.contains("\r\n  TAreaTips[501] = \"x\";\r\n"));
    QVERIFY(messages.contains("writeTip(501);"));
}

QTEST_GUILESS_MAIN(tst_mapmarkup)

#include "tst_mapmarkup.moc"
