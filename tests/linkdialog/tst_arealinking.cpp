#include "linkdialog/AreaLinking.h"

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
    return records[static_cast<std::size_t>(index)];
}

} // namespace

Q_DECLARE_METATYPE(LinkEntry)

class TestAreaLinking : public QObject
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

    void rectangleGetsItsLinkAndRow();
    void rectangleFromAnyCornerReadsTheSame_data();
    void rectangleFromAnyCornerReadsTheSame();
    void circleGetsItsLinkAndRow();
    void polygonGetsItsLinkAndRow();
    void polygonOfNLinesListsItsCorners_data();
    void polygonOfNLinesListsItsCorners();
    void polygonsSidesButTheLastStayWithoutALink();
    void linkingAPolygonResetsTheCurrentOne();
    void linkingAFigureLeavesAnUnfinishedPolygon();
    void shapeIsToldByTheChosenToolNotByTheRecord();
    void otherKindsHaveNoRow_data();
    void otherKindsHaveNoRow();
    void linkingInAnEmptyStoreGivesNoRow();
    void lastSlotsOfTheStoreAreLinked();

    void discardingAFigureTakesItAlone_data();
    void discardingAFigureTakesItAlone();
    void discardingAPolygonTakesItsSidesAndThePreviousEndMark();
    void discardingTheFirstPolygonEmptiesTheSides();
    void discardingResetsACurrentPolygonOfOneSide();
    void discardingAFigureLeavesAnUnfinishedPolygon();
    void discardingFromAnEmptyStoreDoesNothing();

private:
    [[nodiscard]] FigureStore& Store() const { return imgMap_->Store; }
    std::optional<AreaRow> Link(qsizetype rowNumber = 1) const
    {
        return LinkNewArea(*imgMap_, FullEntry(), rowNumber);
    }

    std::unique_ptr<ImgMap> imgMap_;
};

void TestAreaLinking::init()
{
    imgMap_ = std::make_unique<ImgMap>();
}

void TestAreaLinking::fieldsAreRequiredInTheirOrder_data()
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

void TestAreaLinking::fieldsAreRequiredInTheirOrder()
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

void TestAreaLinking::blanksCountAsAText()
{
    LinkEntry entry;
    for (std::size_t field = 0; field < linkFieldCount; ++field) {
        entry.Fields[field] = " ";
    }
    for (const JSModeTexts& texts : jsModeTexts) {
        QVERIFY(!MissingField(texts.mode, entry));
    }
}

void TestAreaLinking::onlyToolTipsAskForALinkUnderAnotherTitle()
{
    for (const JSModeTexts& texts : jsModeTexts) {
        const QString title = texts.mode == JSToolTips ? "Image Map Link" : "Cartolen";
        QCOMPARE(RulesOf(texts.mode).newLinkCaption.toString(), title);
    }
}

void TestAreaLinking::messageIsTheModesField_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::newRow("no script") << int(JSDisabled) << "status bar";
    QTest::newRow("status bar") << int(JSStatusBar) << "status bar";
    QTest::newRow("switching images") << int(JSSwitchImages) << "switch.gif";
    QTest::newRow("text area") << int(JSTextArea) << "text area";
    QTest::newRow("tool tips") << int(JSToolTips) << "tool tip";
}

void TestAreaLinking::messageIsTheModesField()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    imgMap_->Mode = static_cast<JSMode>(mode);
    QCOMPARE(MessageOf(imgMap_->Mode, FullEntry()), message);

    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    const std::optional<AreaRow> row = Link();
    QVERIFY(row);
    QCOMPARE(row->Message, message);
    QCOMPARE(Store().Figures[0].Message, message);
}

void TestAreaLinking::defaultBecomesTheMapsWithItsHeader_data()
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

void TestAreaLinking::defaultBecomesTheMapsWithItsHeader()
{
    QFETCH(const int, mode);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);
    imgMap_->Mode = static_cast<JSMode>(mode);
    imgMap_->ModeDefault = "before";
    const std::optional<QString> newHeader = TakeModeDefault(*imgMap_, FullEntry());
    QCOMPARE(imgMap_->ModeDefault, modeDefault);
    QCOMPARE(newHeader.has_value(), !header.isEmpty());
    QCOMPARE(newHeader.value_or(QString()), header);
}

void TestAreaLinking::rectangleGetsItsLinkAndRow()
{
    DrawFigure(Store(), kindCircle, { 0, 0 }, { 9, 9 });
    DrawFigure(Store(), kindRectangle, { 90, 40 }, { 10, 20 });
    const AreaRow expected = { " No: 7 Rectangle", "a.html", "_top", "10, 20, 90, 40", "status bar", 1 };
    QVERIFY(Link(7) == expected);
    const FigureRecord record = { 5, 90, 40, 10, 20, 0, "a.html", "_top", "status bar" };
    QVERIFY(Store().Figures[1] == record);
    QCOMPARE(Store().Figures[0].Link, QString());
    QCOMPARE(Store().PolygonLines[0].Link, QString());
}

void TestAreaLinking::rectangleFromAnyCornerReadsTheSame_data()
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

void TestAreaLinking::rectangleFromAnyCornerReadsTheSame()
{
    QFETCH(const QPoint, start);
    QFETCH(const QPoint, end);
    QFETCH(const QString, coordinates);
    DrawFigure(Store(), kindRectangle, start, end);
    QCOMPARE(NormalizedRectCoords(Store().Figures[0]), coordinates);
    QCOMPARE(int(Store().Figures[0].X1), start.x());
    QCOMPARE(Link()->Coordinates, coordinates);
}

void TestAreaLinking::circleGetsItsLinkAndRow()
{
    Store().CurrentRadius = 80;
    DrawFigure(Store(), kindCircle, { 100, 110 }, { 130, 190 });
    Store().CurrentRadius = 5;
    const AreaRow expected = { " No: 1 Circle", "a.html", "_top", "100, 110, 80", "status bar", 2 };
    QVERIFY(Link() == expected);
    QCOMPARE(Store().Figures[0].Target, QString("_top"));
}

void TestAreaLinking::polygonGetsItsLinkAndRow()
{
    DrawFigure(Store(), kindRectangle, { 0, 0 }, { 9, 9 });
    DrawPolygon(Store(), triangle);
    const AreaRow expected = {
        " No: 2 Polygon", "a.html", "_top", "1, 2, 30, 4, 5, 60, 1, 2", "status bar", 3
    };
    QVERIFY(Link(2) == expected);
}

void TestAreaLinking::polygonOfNLinesListsItsCorners_data()
{
    QTest::addColumn<int>("lines");
    for (const int lines : { 2, 3, 4, 40, 500 }) {
        QTest::newRow(qPrintable(QString::number(lines))) << lines;
    }
}

void TestAreaLinking::polygonOfNLinesListsItsCorners()
{
    QFETCH(const int, lines);
    QList<QPoint> points;
    for (int i = 0; i <= lines; ++i) {
        points << QPoint(i, 2 * i);
    }
    DrawPolygon(Store(), points);
    const QStringList numbers = Link()->Coordinates.split(", ");
    QCOMPARE(numbers.size(), 2 * lines + 2);
    QCOMPARE(numbers.constFirst(), QString("0"));
    QCOMPARE(numbers.constLast(), QString::number(2 * lines));
}

void TestAreaLinking::polygonsSidesButTheLastStayWithoutALink()
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

void TestAreaLinking::linkingAPolygonResetsTheCurrentOne()
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

void TestAreaLinking::linkingAFigureLeavesAnUnfinishedPolygon()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    QVERIFY(Link());
    QCOMPARE(Store().CurrentPolygonLineCount, 1);
}

void TestAreaLinking::shapeIsToldByTheChosenToolNotByTheRecord()
{
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    Store().CurrentKind = kindCircle;
    Store().Figures[0].Radius = 8;
    QCOMPARE(Link()->Coordinates, QString("1, 2, 8"));
}

void TestAreaLinking::otherKindsHaveNoRow_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("no tool chosen yet") << 0;
    QTest::newRow("before the rectangle") << 4;
    QTest::newRow("behind the line") << 8;
}

void TestAreaLinking::otherKindsHaveNoRow()
{
    QFETCH(const int, kind);
    DrawFigure(Store(), static_cast<qint16>(kind), { 1, 2 }, { 3, 4 });
    QVERIFY(!Link());
    QCOMPARE(Store().Figures[0].Link, QString("a.html"));
}

void TestAreaLinking::linkingInAnEmptyStoreGivesNoRow()
{
    for (const qint16 kind : { kindRectangle, kindCircle, kindLine }) {
        Store().CurrentKind = kind;
        QVERIFY(!Link());
    }
}

void TestAreaLinking::lastSlotsOfTheStoreAreLinked()
{
    while (Store().FigureCount < FigureStore::capacity) {
        DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    }
    QVERIFY(Link(500));
    QCOMPARE(Store().Figures.back().Link, QString("a.html"));
    QCOMPARE(Store().Figures[498].Link, QString());
}

void TestAreaLinking::discardingAFigureTakesItAlone_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("rectangle") << int(kindRectangle);
    QTest::newRow("circle") << int(kindCircle);
}

void TestAreaLinking::discardingAFigureTakesItAlone()
{
    QFETCH(const int, kind);
    DrawPolygon(Store(), triangle);
    (void)Link();
    DrawFigure(Store(), static_cast<qint16>(kind), { 1, 2 }, { 3, 4 });
    DiscardNewArea(Store());
    QCOMPARE(Store().FigureCount, 2);
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().PolygonLines[1].Link, QString("a.html"));
}

void TestAreaLinking::discardingAPolygonTakesItsSidesAndThePreviousEndMark()
{
    DrawPolygon(Store(), triangle);
    (void)Link();
    DrawPolygon(Store(), triangle);
    QCOMPARE(Store().FigureCount, 4);
    DiscardNewArea(Store());
    QCOMPARE(Store().FigureCount, 2);
    QCOMPARE(Store().PolygonLineCount, 2);
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QCOMPARE(Store().PolygonLines[1].Link, QString());

    DrawPolygon(Store(), triangle);
    DiscardNewArea(Store());
    QCOMPARE(Store().FigureCount, 0);
}

void TestAreaLinking::discardingTheFirstPolygonEmptiesTheSides()
{
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    DrawPolygon(Store(), triangle);
    DiscardNewArea(Store());
    QCOMPARE(Store().FigureCount, 1);
    QCOMPARE(Store().PolygonLineCount, 0);
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
}

void TestAreaLinking::discardingResetsACurrentPolygonOfOneSide()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    Store().CurrentPolygon[1].Link = "old";
    DiscardNewArea(Store());
    QCOMPARE(Store().CurrentPolygonLineCount, 0);
    QCOMPARE(Store().CurrentPolygon[1].Link, QString());
    QCOMPARE(Store().FigureCount, 0);
}

void TestAreaLinking::discardingAFigureLeavesAnUnfinishedPolygon()
{
    Store().CurrentKind = kindLine;
    Store().AppendSide();
    DrawFigure(Store(), kindRectangle, { 1, 2 }, { 3, 4 });
    DiscardNewArea(Store());
    QCOMPARE(Store().FigureCount, 1);
    QCOMPARE(Store().PolygonLineCount, 1);
    QCOMPARE(Store().CurrentPolygonLineCount, 1);
}

void TestAreaLinking::discardingFromAnEmptyStoreDoesNothing()
{
    DiscardNewArea(Store());
    QCOMPARE(Store().FigureCount, 0);
    QCOMPARE(Store().PolygonLineCount, 0);
}

QTEST_GUILESS_MAIN(TestAreaLinking)

#include "tst_arealinking.moc"
