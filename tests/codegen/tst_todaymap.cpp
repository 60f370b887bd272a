// What becomes of the fields of a map on the way into a page for today's browsers.

#include "tests/codegen/PictureMaps.h"

#include <QRegularExpression>
#include <QTest>

namespace {

/** A square in a picture of 400 by 300 pixels. */
MapSource Source()
{
    return MapOfPicture({ { .Shape = AreaShape::Rectangle,
                            .Coordinates = { 20, 40, 120, 90 },
                            .Link = "red.html",
                            .Target = {},
                            .Message = {} } });
}

} // namespace

class tst_todaymap : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void shapesScaleWithThePicture_data();
    void shapesScaleWithThePicture();
    void alignmentIsAClassOfTheStyle_data();
    void alignmentIsAClassOfTheStyle();
    void alignmentIsWrittenWithItsStyle();
    void targetIsOneThatAPageMayUse_data();
    void targetIsOneThatAPageMayUse();
    void leftOutSpacingIsNoted_data();
    void leftOutSpacingIsNoted();
    void missingTextsAreNotedWithTheirAreas();
    void linkHasALabelWhateverItIs_data();
    void linkHasALabelWhateverItIs();
    void placeThatShowsAPictureHasALabel_data();
    void placeThatShowsAPictureHasALabel();
    void messageOfNothingVisibleIsNone();
    void scriptIsNeededOnlyForMessagesThatChange_data();
    void scriptIsNeededOnlyForMessagesThatChange();
};

void tst_todaymap::shapesScaleWithThePicture_data()
{
    QTest::addColumn<QString>("width");
    QTest::addColumn<QString>("height");
    QTest::addColumn<QString>("svg");
    QTest::addColumn<QString>("coords");
    const auto row = [](const char* name, const char* width, const char* height, const char* svg,
                        const char* coords) {
        QTest::newRow(name) << QString::fromLatin1(width) << QString::fromLatin1(height)
                            << QString::fromLatin1(svg) << QString::fromLatin1(coords);
    };
    constexpr const char* own = R"(<svg width="400" height="300" viewBox="0 0 400 300")";
    row("own size", "400", "300", own, "20,40,120,90");
    row("twice as large", "800", "600", R"(<svg width="800" height="600" viewBox="0 0 400 300")",
        "40,80,240,180");
    row("half as large", "200", "150", R"(<svg width="200" height="150" viewBox="0 0 400 300")",
        "10,20,60,45");
    row("blanks around it", " 800 ", " 600", R"(<svg width="800" height="600" viewBox="0 0 400 300")",
        "40,80,240,180");
    row("distorted", "800", "300",
        "<svg width=\"800\" height=\"300\" viewBox=\"0 0 400 300\" preserveAspectRatio=\"none\"",
        "40,40,240,90");
    row("per cent", "50%", "300", own, "20,40,120,90");
    row("fraction", "400.5", "300", own, "20,40,120,90");
    row("nothing", "", "", own, "20,40,120,90");
    row("zero", "0", "300", own, "20,40,120,90");
    row("negative", "-400", "300", own, "20,40,120,90");
    row("more than a page takes", "99999", "300", own, "20,40,120,90");
}

void tst_todaymap::shapesScaleWithThePicture()
{
    QFETCH(const QString, width);
    QFETCH(const QString, height);
    QFETCH(const QString, svg);
    QFETCH(const QString, coords);
    MapSource source = Source();
    source.Width = width;
    source.Height = height;
    const TodayMap map = MadeForPicture(JSDisabled, source);
    const QString shapes = GenerateTodayMap(JSDisabled, map);
    QVERIFY2(shapes.contains(svg), qPrintable(shapes));
    QVERIFY(shapes.contains(QStringLiteral(R"(<rect x="20" y="40" width="100" height="50"/>)")));
    const QString element = GenerateTodayMapElement(JSDisabled, map);
    QVERIFY2(element.contains(u"coords=\"" + coords + u'"'), qPrintable(element));
}

void tst_todaymap::alignmentIsAClassOfTheStyle_data()
{
    QTest::addColumn<QString>("align");
    QTest::addColumn<QString>("name");
    const auto row = [](const char* align, const char* name) {
        QTest::newRow(align) << QString::fromLatin1(align) << QString::fromLatin1(name);
    };
    row("TOP", "imap-top");
    row("LEFT", "imap-left");
    row("RIGHT", "imap-right");
    row("TEXTTOP", "imap-texttop");
    row("MIDDLE", "imap-middle");
    row("ABSMIDDLE", "imap-middle");
    row("BASELINE", "imap-baseline");
    row("BOTTOM", "imap-baseline");
    row("ABSBOTTOM", "");
    row(" left ", "imap-left");
    row("", "");
    row("LEFT\"", "");
}

void tst_todaymap::alignmentIsAClassOfTheStyle()
{
    QFETCH(const QString, align);
    QFETCH(const QString, name);
    MapSource source = Source();
    source.Align = align;
    QCOMPARE(MadeForPicture(JSDisabled, source).AlignClass, name);
}

void tst_todaymap::alignmentIsWrittenWithItsStyle()
{
    MapSource source = Source();
    source.Align = QStringLiteral("LEFT");
    const TodayMap map = MadeForPicture(JSDisabled, source);
    QVERIFY(GenerateTodayMap(JSDisabled, map).contains(QStringLiteral("<span class=\"imap imap-left\"")));
    QVERIFY(
        GenerateTodayMap(JSTextArea, map).contains(QStringLiteral("<figure class=\"imap-fig imap-left\"")));
    QVERIFY(GenerateTodayMapElement(JSDisabled, map).contains(QStringLiteral("class=\"imap-left\"")));
    QVERIFY(BlocksFor(MarkupForm::TodayMapElement, JSDisabled, map).style);
    const TodayMap plain = MadeForPicture(JSDisabled, Source());
    QVERIFY(!BlocksFor(MarkupForm::TodayMapElement, JSDisabled, plain).style);
}

void tst_todaymap::targetIsOneThatAPageMayUse_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("svg");
    QTest::addColumn<QString>("element");
    const auto row = [](const char* name, const char* typed, const char* svg, const char* element) {
        QTest::newRow(name) << QString::fromLatin1(typed) << QString::fromLatin1(svg)
                            << QString::fromLatin1(element);
    };
    row("none", "", "", "");
    row("new window", "_BLANK", "target=\"_blank\" rel=\"noopener\"", "target=\"_blank\" rel=\"noopener\"");
    row("window", "side", "target=\"side\"", "target=\"side\"");
    row("reserved", "_other", "target=\"other\"", "target=\"other\"");
    row("blanks", " my  side ", "target=\"my-side\"", "target=\"my side\"");
    row("nothing that can be read", "\x01", "", "");
    row("reserved marks alone", "__", "", "");
    row("number", "1", "target=\"w1\"", "target=\"1\"");
}

void tst_todaymap::targetIsOneThatAPageMayUse()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, svg);
    QFETCH(const QString, element);
    MapSource source = Source();
    source.Areas[0].Target = typed;
    const TodayMap map = MadeForPicture(JSDisabled, source);
    const auto attributes = [](const QString& markup) {
        const QString href = QStringLiteral("href=\"red.html\" ");
        const qsizetype start = markup.indexOf(href) + href.size();
        return markup.mid(start, markup.indexOf(QRegularExpression("aria-label|alt="), start) - start)
            .trimmed();
    };
    QCOMPARE(attributes(GenerateTodayMap(JSDisabled, map)), svg);
    QCOMPARE(attributes(GenerateTodayMapElement(JSDisabled, map)), element);
}

void tst_todaymap::leftOutSpacingIsNoted_data()
{
    QTest::addColumn<QString>("border");
    QTest::addColumn<QString>("horizontal");
    QTest::addColumn<QString>("vertical");
    QTest::addColumn<bool>("isNoted");
    QTest::newRow("nothing") << ""
                             << ""
                             << "" << false;
    QTest::newRow("none") << "0"
                          << "0"
                          << "0" << false;
    QTest::newRow("border") << "2"
                            << ""
                            << "" << true;
    QTest::newRow("beside") << "0"
                            << "5"
                            << "" << true;
    QTest::newRow("above and below") << ""
                                     << ""
                                     << "7" << true;
}

void tst_todaymap::leftOutSpacingIsNoted()
{
    QFETCH(const QString, border);
    QFETCH(const QString, horizontal);
    QFETCH(const QString, vertical);
    QFETCH(const bool, isNoted);
    MapSource source = Source();
    const TodayMap without = MadeForPicture(JSDisabled, source);
    source.Border = border;
    source.HorizontalSpace = horizontal;
    source.VerticalSpace = vertical;
    QCOMPARE(NotesOn(JSDisabled, source).leftOutSpacing, isNoted);
    QCOMPARE(
        GenerateTodayMap(JSDisabled, MadeForPicture(JSDisabled, source)),
        GenerateTodayMap(JSDisabled, without));
}

void tst_todaymap::missingTextsAreNotedWithTheirAreas()
{
    MapSource source = Source();
    source.Areas << source.Areas[0] << source.Areas[0];
    source.Areas[1].Text = QStringLiteral("Red");
    source.Areas[2].Message = QStringLiteral("A message");
    QCOMPARE(NotesOn(JSDisabled, source).areasWithoutText, (QList<int>{ 1, 3 }));
    QCOMPARE(NotesOn(JSToolTips, source).areasWithoutText, QList<int>{ 1 });
    QVERIFY(!NotesOn(JSDisabled, source).lacksAltText);
    for (const char16_t character : { u' ', u'\u0001', u'\uFFFE' }) {
        source.AltText = QString(character);
        source.Areas[1].Text = QString(character);
        QVERIFY(NotesOn(JSDisabled, source).lacksAltText);
        QCOMPARE(NotesOn(JSDisabled, source).areasWithoutText, (QList<int>{ 1, 2, 3 }));
    }
}

void tst_todaymap::linkHasALabelWhateverItIs_data()
{
    QTest::addColumn<QString>("link");
    for (const char* const link : { "%20", "%01", "%EF%BF%BE", "?", "#", "/", ".", "%", "\x01", "mailto:" }) {
        QTest::newRow(link[0] == '\x01' ? "control" : link) << QString::fromLatin1(link);
    }
    QTest::newRow("no character") << QString(QChar(0xFFFE));
    QTest::newRow("half of a pair") << QString(QChar(0xD800));
}

void tst_todaymap::linkHasALabelWhateverItIs()
{
    QFETCH(const QString, link);
    MapSource source = Source();
    source.Areas[0].Link = link;
    source.Areas[0].Text = QStringLiteral("\u0001");
    const TodayMap map = MadeForPicture(JSDisabled, source);
    QVERIFY(!map.Areas[0].Address.isEmpty());
    const QRegularExpression label(QStringLiteral(" aria-label=\"[^\"]+\""));
    QVERIFY2(
        GenerateTodayMap(JSDisabled, map).contains(label), qPrintable(GenerateTodayMap(JSDisabled, map)));
    const QRegularExpression alt(QStringLiteral("href=.* alt=\"[^\"]+\""));
    QVERIFY(GenerateTodayMapElement(JSDisabled, map).contains(alt));
}

void tst_todaymap::placeThatShowsAPictureHasALabel_data()
{
    QTest::addColumn<QString>("picture");
    QTest::addColumn<QString>("label");
    QTest::newRow("name") << "rooms/red_room.png"
                          << "red room";
    QTest::newRow("nothing that can be read") << "\x01"
                                              << "%01";
}

void tst_todaymap::placeThatShowsAPictureHasALabel()
{
    QFETCH(const QString, picture);
    QFETCH(const QString, label);
    MapSource source = Source();
    source.Areas[0].Link.clear();
    source.Areas[0].Message = picture;
    QCOMPARE(MadeForPicture(JSSwitchImages, source).Areas[0].Label, label);
    QCOMPARE(NotesOn(JSSwitchImages, source).areasWithoutText, QList<int>{ 1 });
}

void tst_todaymap::messageOfNothingVisibleIsNone()
{
    for (const QString& nothing : { QStringLiteral(" "), QStringLiteral("<br> <br/>"),
                                    QStringLiteral("\u0001"), QStringLiteral("\u0001<br>\uFFFE") }) {
        MapSource source = Source();
        source.Areas[0].Message = nothing;
        source.ModeDefault = nothing;
        for (const JSMode mode : { JSStatusBar, JSTextArea, JSToolTips }) {
            const TodayMap map = MadeForPicture(mode, source);
            QCOMPARE(map.Areas[0].Message, QString());
            QCOMPARE(map.Default, QString());
        }
    }
}

void tst_todaymap::scriptIsNeededOnlyForMessagesThatChange_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("needsScript");
    QTest::newRow("links") << int(JSDisabled) << false;
    QTest::newRow("simple messages") << int(JSStatusBar) << false;
    QTest::newRow("pictures") << int(JSSwitchImages) << true;
    QTest::newRow("texts") << int(JSTextArea) << true;
    QTest::newRow("tips") << int(JSToolTips) << true;
}

void tst_todaymap::scriptIsNeededOnlyForMessagesThatChange()
{
    QFETCH(const int, mode);
    QFETCH(const bool, needsScript);
    const auto jsMode = JSMode(mode);
    MapSource source = Source();
    QVERIFY(!BlocksFor(MarkupForm::Today, jsMode, MadeForPicture(jsMode, source)).script);
    source.Areas[0].Message = QStringLiteral("a message");
    const TodayMap map = MadeForPicture(jsMode, source);
    QCOMPARE(BlocksFor(MarkupForm::Today, jsMode, map).script, needsScript);
    QVERIFY(BlocksFor(MarkupForm::Today, jsMode, map).style);
    QVERIFY(!BlocksFor(MarkupForm::TodayMapElement, jsMode, map).script);
    source.Areas.clear();
    const NeededBlocks alone = BlocksFor(MarkupForm::Today, jsMode, MadeForPicture(jsMode, source));
    QVERIFY(!alone.script && !alone.style);
}

QTEST_GUILESS_MAIN(tst_todaymap)

#include "tst_todaymap.moc"
