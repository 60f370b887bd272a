#include "outline/TableLinks.h"

#include <QTest>

namespace {

MapAreas AreasWithTexts(const QStringList& texts)
{
    MapAreas areas;
    for (const QString& text : texts) {
        MapArea area;
        area.Coordinates = { 0, 0, 9, 9 };
        area.Link = QStringLiteral("old.htm");
        area.Text = text;
        areas << area;
    }
    return areas;
}

QStringList FieldsOf(const MapAreas& areas, TableUse use)
{
    QStringList fields;
    for (const MapArea& area : areas) {
        fields << FieldOf(area, use);
    }
    return fields;
}

TableColumns Columns(int link, int target, int message, int text, bool hasHeader = false)
{
    return { { link, target, message, text }, hasHeader };
}

} // namespace

/** What the rows of a table give to areas. */
class tst_tablelinks : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void columnsAreGuessed_data();
    void columnsAreGuessed();
    void rowsAreTakenInOrder();
    void rowsAreFoundByText();
    void emptyFieldsLeaveWhatIsThere();
    void fieldsAreTakenAsOneLine();
    void missingColumnsGiveNothing();
};

void tst_tablelinks::columnsAreGuessed_data()
{
    QTest::addColumn<TableRows>("rows");
    QTest::addColumn<TableColumns>("columns");
    QTest::newRow("names") << TableRows{ { "Name", "URL", "Frame", "Tooltip" } } << Columns(1, 2, 3, 0, true);
    QTest::newRow("names in any case") << TableRows{ { " HREF ", "ALT" } } << Columns(0, -1, -1, 1, true);
    QTest::newRow("the first of a kind") << TableRows{ { "link", "page" } } << Columns(0, -1, -1, -1, true);
    QTest::newRow("addresses behind texts")
        << TableRows{ { "Bonn", "bonn.htm" }, { "Ulm", "/ulm/" } } << Columns(1, -1, -1, 0);
    QTest::newRow("addresses first") << TableRows{ { "https://a.example", "A" } } << Columns(0, -1, -1, 1);
    QTest::newRow("addresses alone") << TableRows{ { "#one" }, { "#two" } } << Columns(0, -1, -1, -1);
    QTest::newRow("texts alone") << TableRows{ { "Bonn" }, { "Ulm" } } << Columns(-1, -1, -1, 0);
    QTest::newRow("names of several words are none") << TableRows{ { "text alt" } } << Columns(-1, -1, -1, 0);
    QTest::newRow("nothing") << TableRows() << Columns(-1, -1, -1, -1);
    QTest::newRow("an empty row first") << TableRows{ { "" }, { "a.htm", "A" } } << Columns(0, -1, -1, 1);
}

void tst_tablelinks::columnsAreGuessed()
{
    QFETCH(const TableRows, rows);
    QTEST(GuessColumns(rows), "columns");
}

void tst_tablelinks::rowsAreTakenInOrder()
{
    const TableRows rows = { { "link", "text" }, { "a.htm", "A" }, { "b.htm", "B" }, { "c.htm", "C" } };
    const TableOutcome outcome =
        WithTable(AreasWithTexts({ "", "" }), rows, Columns(0, -1, -1, 1, true), TableMatching::InOrder);
    QCOMPARE(FieldsOf(outcome.Areas, TableUse::Link), (QStringList{ "a.htm", "b.htm" }));
    QCOMPARE(FieldsOf(outcome.Areas, TableUse::Text), (QStringList{ "A", "B" }));
    QCOMPARE(outcome.AreasChanged, 2);
    QCOMPARE(outcome.RowsLeft, 1);

    const TableOutcome few = WithTable(
        AreasWithTexts({ "", "", "", "x" }), rows, Columns(0, -1, -1, -1, true), TableMatching::InOrder);
    QCOMPARE(FieldsOf(few.Areas, TableUse::Link), (QStringList{ "a.htm", "b.htm", "c.htm", "old.htm" }));
    QCOMPARE(few.AreasChanged, 3);
    QCOMPARE(few.RowsLeft, 0);
}

void tst_tablelinks::rowsAreFoundByText()
{
    const TableRows rows = { { "Ulm", "ulm.htm", "_top" },
                             { "BONN", "bonn.htm", "" },
                             { "Ulm", "other.htm", "" },
                             { "", "none.htm", "" } };
    const TableOutcome outcome = WithTable(
        AreasWithTexts({ "Bonn", "  ulm ", "", "Trier" }), rows, Columns(1, 2, -1, 0), TableMatching::ByText);
    QCOMPARE(
        FieldsOf(outcome.Areas, TableUse::Link),
        (QStringList{ "bonn.htm", "ulm.htm", "old.htm", "old.htm" }));
    QCOMPARE(FieldsOf(outcome.Areas, TableUse::Target), (QStringList{ "", "_top", "", "" }));
    QCOMPARE(FieldsOf(outcome.Areas, TableUse::Text), (QStringList{ "Bonn", "  ulm ", "", "Trier" }));
    QCOMPARE(outcome.AreasChanged, 2);
    QCOMPARE(outcome.RowsLeft, 2);
}

void tst_tablelinks::emptyFieldsLeaveWhatIsThere()
{
    const TableOutcome outcome = WithTable(
        AreasWithTexts({ "A", "B", "C" }), { { "" }, { " " }, { "c.htm" } }, Columns(0, -1, -1, -1),
        TableMatching::InOrder);
    QCOMPARE(FieldsOf(outcome.Areas, TableUse::Link), (QStringList{ "old.htm", "old.htm", "c.htm" }));
    QCOMPARE(outcome.AreasChanged, 1);
}

void tst_tablelinks::fieldsAreTakenAsOneLine()
{
    const TableOutcome outcome = WithTable(
        AreasWithTexts({ "" }), { { " a.htm\r\n", "two\nlines" } }, Columns(0, -1, 1, -1),
        TableMatching::InOrder);
    QCOMPARE(outcome.Areas.constFirst().Link, "a.htm");
    QCOMPARE(outcome.Areas.constFirst().Message, "two lines");
}

void tst_tablelinks::missingColumnsGiveNothing()
{
    const MapAreas areas = AreasWithTexts({ "A", "B" });
    for (const TableMatching matching : { TableMatching::InOrder, TableMatching::ByText }) {
        QCOMPARE(WithTable(areas, { { "A" } }, Columns(5, -1, -1, -1), matching).Areas, areas);
        QCOMPARE(WithTable(areas, {}, Columns(0, 0, 0, 0, true), matching).Areas, areas);
        QCOMPARE(WithTable({}, { { "A" } }, Columns(0, -1, -1, 0), matching).RowsLeft, 1);
    }
}

QTEST_GUILESS_MAIN(tst_tablelinks)

#include "tst_tablelinks.moc"
