#include "imagemap/model/MapDocument.h"

#include <QPoint>
#include <QTest>
#include <memory>

namespace {

/** An entry with every field filled. */
LinkEntry FullEntry()
{
    LinkEntry entry;
    entry.SetText(LinkField::Link, "a.html");
    entry.SetText(LinkField::StatusBarMessage, "status bar");
    entry.SetText(LinkField::DefaultImage, "default.gif");
    entry.SetText(LinkField::SwitchImage, "switch.gif");
    entry.SetText(LinkField::DefaultTextAreaMessage, "default text");
    entry.SetText(LinkField::TextAreaMessage, "text area");
    entry.SetText(LinkField::ToolTipMessage, "tool tip");
    entry.Target = "_top";
    return entry;
}

LinkEntry Without(const QList<LinkField>& fields)
{
    LinkEntry entry = FullEntry();
    for (const LinkField field : fields) {
        entry.SetText(field, {});
    }
    return entry;
}

void Place(FigureStore& store, QPoint start, QPoint end)
{
    store.StartX = static_cast<qint16>(start.x());
    store.StartY = static_cast<qint16>(start.y());
    store.EndX = static_cast<qint16>(end.x());
    store.EndY = static_cast<qint16>(end.y());
}

void DrawFigure(FigureStore& store, qint16 kind, QPoint start, QPoint end)
{
    store.CurrentKind = kind;
    Place(store, start, end);
    store.AppendFigure();
}

/** Draws the sides between `points` as the mouse does, the last of them taken back at the right click. */
void DrawPolygon(FigureStore& store, const QList<QPoint>& points)
{
    store.CurrentKind = kindLine;
    for (qsizetype i = 1; i < points.size(); ++i) {
        Place(store, points[i - 1], points[i]);
        store.AppendSide();
    }
    store.RetractLastSide();
}

const QList<QPoint> triangle = { { 1, 2 }, { 30, 4 }, { 5, 60 }, { 1, 2 } };

FigureRecord& Slot(FigureStore::Records& records, int index)
{
    return records[index];
}

} // namespace

Q_DECLARE_METATYPE(LinkEntry)

/** How drawing, linking and deleting change a map. */
class tst_mapdocument : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void fieldsAreRequiredInTheirOrder_data();
    void fieldsAreRequiredInTheirOrder();
    void blanksCountAsAText();
    void onlyToolTipsAskForALinkUnderAnotherTitle();
    void messageIsTheModesField_data();
    void messageIsTheModesField();
    void defaultBecomesTheMapsWithItsHeader_data();
    void defaultBecomesTheMapsWithItsHeader();

    void rectangleGetsItsLinkAndArea();
    void rectangleFromAnyCornerReadsTheSame_data();
    void rectangleFromAnyCornerReadsTheSame();
    void circleGetsItsLinkAndArea();
    void polygonGetsItsLinkAndArea();
    void polygonOfNLinesListsItsCorners_data();
    void polygonOfNLinesListsItsCorners();
    void polygonsSidesButTheLastStayWithoutALink();
    void linkingAPolygonResetsTheCurrentOne();
    void linkingAFigureLeavesAnUnfinishedPolygon();
    void shapeIsToldByTheChosenToolNotByTheRecord();
    void otherKindsHaveNoArea_data();
    void otherKindsHaveNoArea();
    void linkingInAnEmptyStoreGivesNoArea();
    void lastSlotsOfTheStoreAreLinked();

    void discardingAFigureTakesItAlone_data();
    void discardingAFigureTakesItAlone();
    void discardingAPolygonTakesItsSidesAndThePreviousEndMark();
    void discardingTheFirstPolygonEmptiesTheSides();
    void discardingResetsACurrentPolygonOfOneSide();
    void discardingAFigureLeavesAnUnfinishedPolygon();
    void discardingFromAnEmptyStoreDoesNothing();

private:
    [[nodiscard]] FigureStore& Store() const { return map_->Ledger(); }
    /** Links what was drawn last; returns the area that came of it, if any. */
    std::optional<MapArea> Link() const
    {
        const qsizetype before = map_->Areas().size();
        map_->LinkNewArea(FullEntry());
        return map_->Areas().size() > before ? std::optional(map_->Areas().constLast()) : std::nullopt;
    }

    std::unique_ptr<MapDocument> map_;
};

void tst_mapdocument::init()
{
    map_ = std::make_unique<MapDocument>();
}

void tst_mapdocument::fieldsAreRequiredInTheirOrder_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<LinkEntry>("entry");
    QTest::addColumn<QString>("message");
    const QString link = "Please, enter the Link to get conected to !";
    const QString image = "Please, enter the Default Image File Name !";
    const QString switchImage = "Please, enter the File Name for Image to switch to !";
    const QString text = "Please, enter the Default Message !";
    const QString switchText = "Please, enter the Message to switch to !";
    const QString toolTip = "Please, enter the Tool Tip Message !";
    for (const JSModeTexts& texts : jsModeTexts) {
        QTest::addRow("nothing entered, mode %d", texts.mode) << int(texts.mode) << LinkEntry() << link;
        QTest::addRow("all entered, mode %d", texts.mode) << int(texts.mode) << FullEntry() << "";
        QTest::addRow("no link, mode %d", texts.mode)
            << int(texts.mode) << Without({ LinkField::Link }) << link;
    }
    LinkEntry linkAlone;
    linkAlone.SetText(LinkField::Link, "a.html");
    QTest::newRow("no script, link alone") << int(JSDisabled) << linkAlone << "";
    QTest::newRow("status bar, link alone") << int(JSStatusBar) << linkAlone << "";
    QTest::newRow("images, link alone") << int(JSSwitchImages) << linkAlone << image;
    QTest::newRow("images, no image")
        << int(JSSwitchImages) << Without({ LinkField::SwitchImage }) << switchImage;
    QTest::newRow("text area, link alone") << int(JSTextArea) << linkAlone << text;
    QTest::newRow("text area, no message")
        << int(JSTextArea) << Without({ LinkField::TextAreaMessage }) << switchText;
    QTest::newRow("tool tips, link alone") << int(JSToolTips) << linkAlone << toolTip;
}

void tst_mapdocument::fieldsAreRequiredInTheirOrder()
{
    QFETCH(const int, mode);
    QFETCH(const LinkEntry, entry);
    QFETCH(const QString, message);
    const std::optional<RequiredField> missing = MissingField(static_cast<JSMode>(mode), entry);
    QCOMPARE(missing.has_value(), !message.isEmpty());
    if (missing) {
        QCOMPARE(missing->message.toString(), message);
        QVERIFY(entry.Text(missing->field).isEmpty());
    }
}

void tst_mapdocument::blanksCountAsAText()
{
    LinkEntry entry;
    for (std::size_t field = 0; field < linkFieldCount; ++field) {
        entry.Fields[field] = " ";
    }
    for (const JSModeTexts& texts : jsModeTexts) {
        QVERIFY(!MissingField(texts.mode, entry));
    }
}

void tst_mapdocument::onlyToolTipsAskForALinkUnderAnotherTitle()
{
    for (const JSModeTexts& texts : jsModeTexts) {
        const QString title = texts.mode == JSToolTips ? "Image Map Link" : "Cartolen";
        QCOMPARE(RulesOf(texts.mode).newLinkCaption.toString(), title);
    }
}

void tst_mapdocument::messageIsTheModesField_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::newRow("no script") << int(JSDisabled) << "status bar";
    QTest::newRow("status bar") << int(JSStatusBar) << "status bar";
    QTest::newRow("switching images") << int(JSSwitchImages) << "switch.gif";
    QTest::newRow("text area") << int(JSTextArea) << "text area";
    QTest::newRow("tool tips") << int(JSToolTips) << "tool tip";
}

void tst_mapdocument::messageIsTheModesField()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    map_->SetMode(static_cast<JSMode>(mode));
    QCOMPARE(MessageOf(map_->Mode(), FullEntry()), message);

    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    const std::optional<MapArea> area = Link();
    QVERIFY(area);
    QCOMPARE(area->Message, message);
    QCOMPARE(Store().Figures[0].Message, message);
}

void tst_mapdocument::defaultBecomesTheMapsWithItsHeader_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("modeDefault");
    QTest::addColumn<QString>("header");
    QTest::newRow("no script") << int(JSDisabled) << "before"
                               << "";
    QTest::newRow("status bar") << int(JSStatusBar) << "before"
                                << "";
    QTest::newRow("switching images") << int(JSSwitchImages) << "default.gif"
                                      << " Switching Images (Default Image:default.gif):";
    QTest::newRow("text area") << int(JSTextArea) << "default text"
                               << " Text Area Messages (Default Message:default text):";
    QTest::newRow("tool tips") << int(JSToolTips) << "before"
                               << "";
}

void tst_mapdocument::defaultBecomesTheMapsWithItsHeader()
{
    QFETCH(const int, mode);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);
    map_->SetMode(static_cast<JSMode>(mode));
    map_->SetModeDefault("before");
    const QString modesOwn = map_->MessageHeader();
    map_->LinkNewArea(FullEntry());
    QCOMPARE(map_->ModeDefault(), modeDefault);
    QCOMPARE(map_->MessageHeader(), header.isEmpty() ? modesOwn : header);
}

void tst_mapdocument::rectangleGetsItsLinkAndArea()
{
    DrawFigure(Store(), kindCircle, { 0, 0 }, { 9, 9 });
    DrawFigure(Store(), kindRectangle, { 90, 40 }, { 10, 20 });
    const MapArea expected = { AreaShape::Rectangle, { 10, 20, 90, 40 }, "a.html", "_top", "status bar" };
    QVERIFY(Link() == expected);
    const FigureRecord record = { 5, 90, 40, 10, 20, 0, "a.html", "_top", "status bar" };
    QVERIFY(Store().Figures[1] == record);
    QCOMPARE(Store().Figures[0].Link, QString());
    QCOMPARE(Store().PolygonLines[0].Link, QString());
}

void tst_mapdocument::rectangleFromAnyCornerReadsTheSame_data()
{
    QTest::addColumn<QPoint>("start");
    QTest::addColumn<QPoint>("end");
    QTest::addColumn<QString>("coordinates");
    QTest::newRow("top left") << QPoint(10, 20) << QPoint(90, 40) << "10, 20, 90, 40";
    QTest::newRow("top right") << QPoint(90, 20) << QPoint(10, 40) << "10, 20, 90, 40";
    QTest::newRow("bottom left") << QPoint(10, 40) << QPoint(90, 20) << "10, 20, 90, 40";
    QTest::newRow("bottom right") << QPoint(90, 40) << QPoint(10, 20) << "10, 20, 90, 40";
    QTest::newRow("no size") << QPoint(5, 6) << QPoint(5, 6) << "5, 6, 5, 6";
    QTest::newRow("outside the picture") << QPoint(3, 4) << QPoint(-30, -2) << "-30, -2, 3, 4";
    QTest::newRow("largest numbers") << QPoint(32767, -32768) << QPoint(-32768, 32767)
                                     << "-32768, -32768, 32767, 32767";
}

void tst_mapdocument::rectangleFromAnyCornerReadsTheSame()
{
    QFETCH(const QPoint, start);
    QFETCH(const QPoint, end);
    QFETCH(const QString, coordinates);
    DrawFigure(Store(), kindRectangle, start, end);
    QCOMPARE(int(Store().Figures[0].X1), start.x());
    QCOMPARE(CoordinatesText(*Link()), coordinates);
}

void tst_mapdocument::circleGetsItsLinkAndArea()
{
    Store().CurrentRadius = 80;
    DrawFigure(Store(), kindCircle, { 100, 110 }, { 130, 190 });
    Store().CurrentRadius = 5;
    const MapArea expected = { AreaShape::Circle, { 100, 110, 80 }, "a.html", "_top", "status bar" };
    QVERIFY(Link() == expected);
    QCOMPARE(Store().Figures[0].Target, QString("_top"));
}

void tst_mapdocument::polygonGetsItsLinkAndArea()
{
    DrawFigure(Store(), kindRectangle, { 0, 0 }, { 9, 9 });
    DrawPolygon(Store(), triangle);
    const MapArea expected = {
        AreaShape::Polygon, { 1, 2, 30, 4, 5, 60, 1, 2 }, "a.html", "_top", "status bar"
    };
    QVERIFY(Link() == expected);
}

void tst_mapdocument::polygonOfNLinesListsItsCorners_data()
{
    QTest::addColumn<int>("lines");
    for (const int lines : { 2, 3, 4, 40, 500 }) {
        QTest::newRow(qPrintable(QString::number(lines))) << lines;
    }
}

void tst_mapdocument::polygonOfNLinesListsItsCorners()
{
    QFETCH(const int, lines);
    QList<QPoint> points;
    for (int i = 0; i <= lines; ++i) {
        points << QPoint(i, 2 * i);
    }
    DrawPolygon(Store(), points);
    const QStringList numbers = CoordinatesText(*Link()).split(", ");
    QCOMPARE(numbers.size(), 2 * lines + 2);
    QCOMPARE(numbers.constFirst(), QString("0"));
    QCOMPARE(numbers.constLast(), QString::number(2 * lines));
}

void tst_mapdocument::polygonsSidesButTheLastStayWithoutALink()
{
    DrawPolygon(Store(), triangle);
    (void)Link();
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().PolygonLines[0].Link, QString());
    QCOMPARE(Store().PolygonLines[1].Link, QString("a.html"));
    QCOMPARE(Store().PolygonLines[1].Target, QString("_top"));
    QCOMPARE(Store().PolygonLines[1].Message, QString());
    QCOMPARE(Store().PolygonLines[2].Link, QString());
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(Slot(Store().Figures, i).Link, QString());
    }
}

void tst_mapdocument::linkingAPolygonResetsTheCurrentOne()
{
    for (int i = 0; i < 6; ++i) {
        Slot(Store().CurrentPolygon, i).Link = "old";
    }
    DrawPolygon(Store(), triangle);
    (void)Link();
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QStringList links;
    for (int i = 0; i < 6; ++i) {
        links << Slot(Store().CurrentPolygon, i).Link;
    }
    QCOMPARE(links, QStringList({ "old", "", "", "", "old", "old" }));
    QCOMPARE(Store().CurrentPolygon[2].Target, QString("_top"));
    QCOMPARE(Store().CurrentPolygon[2].Message, QString("status bar"));
}

void tst_mapdocument::linkingAFigureLeavesAnUnfinishedPolygon()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    QVERIFY(Link());
    QCOMPARE(Store().CurrentPolygonLineCount, 1);
}

void tst_mapdocument::shapeIsToldByTheChosenToolNotByTheRecord()
{
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    Store().CurrentKind = kindCircle;
    Store().Figures[0].Radius = 8;
    QCOMPARE(CoordinatesText(*Link()), QString("1, 2, 8"));
}

void tst_mapdocument::otherKindsHaveNoArea_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("no tool chosen yet") << 0;
    QTest::newRow("before the rectangle") << 4;
    QTest::newRow("behind the line") << 8;
}

void tst_mapdocument::otherKindsHaveNoArea()
{
    QFETCH(const int, kind);
    DrawFigure(Store(), static_cast<qint16>(kind), { 1, 2 }, { 3, 4 });
    QVERIFY(!Link());
    QCOMPARE(Store().Figures[0].Link, QString("a.html"));
}

void tst_mapdocument::linkingInAnEmptyStoreGivesNoArea()
{
    for (const qint16 kind : { kindRectangle, kindCircle, kindLine }) {
        Store().CurrentKind = kind;
        QVERIFY(!Link());
    }
}

void tst_mapdocument::lastSlotsOfTheStoreAreLinked()
{
    while (Store().FigureCount < FigureStore::capacity) {
        DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    }
    QVERIFY(Link());
    QCOMPARE(Store().Figures.back().Link, QString("a.html"));
    QCOMPARE(Store().Figures[498].Link, QString());
}

void tst_mapdocument::discardingAFigureTakesItAlone_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
}

void tst_mapdocument::discardingAFigureTakesItAlone()
{
    QFETCH(const int, kind);
    DrawPolygon(Store(), triangle);
    (void)Link();
    DrawFigure(Store(), static_cast<qint16>(kind), { 1, 2 }, { 3, 4 });
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 2);
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().PolygonLines[1].Link, QString("a.html"));
}

void tst_mapdocument::discardingAPolygonTakesItsSidesAndThePreviousEndMark()
{
    DrawPolygon(Store(), triangle);
    (void)Link();
    DrawPolygon(Store(), triangle);
    QCOMPARE(Store().FigureCount, 4);
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 2);
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QCOMPARE(Store().PolygonLines[1].Link, QString());

    DrawPolygon(Store(), triangle);
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 0);
}

void tst_mapdocument::discardingTheFirstPolygonEmptiesTheSides()
{
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    DrawPolygon(Store(), triangle);
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 1);
    QCOMPARE(Store().PolygonLineCount, 0);
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
}

void tst_mapdocument::discardingResetsACurrentPolygonOfOneSide()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    Store().CurrentPolygon[1].Link = "old";
    map_->DiscardNewArea();
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QCOMPARE(Store().CurrentPolygon[1].Link, QString());
    QCOMPARE(Store().FigureCount, 0);
}

void tst_mapdocument::discardingAFigureLeavesAnUnfinishedPolygon()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 1);
    QCOMPARE(Store().PolygonLineCount, 1);
    QCOMPARE(Store().CurrentPolygonLineCount, 1);
}

void tst_mapdocument::discardingFromAnEmptyStoreDoesNothing()
{
    map_->DiscardNewArea();
    QCOMPARE(Store().FigureCount, 0);
    QCOMPARE(Store().PolygonLineCount, 0);
}

QTEST_GUILESS_MAIN(tst_mapdocument)

#include "tst_mapdocument.moc"
