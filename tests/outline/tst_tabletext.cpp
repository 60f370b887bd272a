#include "outline/TableText.h"

#include <QTest>

/** How tables are read that come as text. */
class tst_tabletext : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tablesAreRead_data();
    void tablesAreRead();
    void encodingsAreTold_data();
    void encodingsAreTold();
    void whatIsNoTableIsRefused_data();
    void whatIsNoTableIsRefused();
    void longTablesAreReadOnce();
};

void tst_tabletext::tablesAreRead_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<TableRows>("rows");
    QTest::newRow("commas") << "a,b\nc,d\n" << TableRows{ { "a", "b" }, { "c", "d" } };
    QTest::newRow("semicolons") << "a;b,1\nc;d,2" << TableRows{ { "a", "b,1" }, { "c", "d,2" } };
    QTest::newRow("tabs") << "a, x\tb\r\nc\td; y\r\n" << TableRows{ { "a, x", "b" }, { "c", "d; y" } };
    QTest::newRow("more of the rows are alike with one of them")
        << "a;b\nc;d,e,f\ng,g;h" << TableRows{ { "a", "b" }, { "c", "d,e,f" }, { "g,g", "h" } };
    QTest::newRow("line ends of all kinds") << "a,b\rc,d\ne,f\r\n"
                                            << TableRows{ { "a", "b" }, { "c", "d" }, { "e", "f" } };
    QTest::newRow("quotes") << "\"a,1\",\"say \"\"b\"\"\"\n\"two\nlines\",d"
                            << TableRows{ { "a,1", "say \"b\"" }, { "two\nlines", "d" } };
    QTest::newRow("a quote within a field")
        << "6\" wide,b\nc,d" << TableRows{ { "6\" wide", "b" }, { "c", "d" } };
    QTest::newRow("text behind quotes") << "\"a\"x,b" << TableRows{ { "ax", "b" } };
    QTest::newRow("empty quotes") << "\"\",b\n,d" << TableRows{ { "", "b" }, { "", "d" } };
    QTest::newRow("one column") << "one.htm\ntwo.htm" << TableRows{ { "one.htm" }, { "two.htm" } };
    QTest::newRow("rows of any length")
        << "a,b\nc\nd,e,f" << TableRows{ { "a", "b" }, { "c" }, { "d", "e", "f" } };
    QTest::newRow("empty rows") << "a,b\n\nc,d\n\n , \n" << TableRows{ { "a", "b" }, { "" }, { "c", "d" } };
    QTest::newRow("nothing") << "" << TableRows();
    QTest::newRow("line ends alone") << "\r\n\r\n\n" << TableRows();
    QTest::newRow("a separator at the end") << "a,\nb," << TableRows{ { "a", "" }, { "b", "" } };
}

void tst_tabletext::tablesAreRead()
{
    QFETCH(const QString, text);
    const TableReading reading = ReadTable(text);
    QTEST(reading.Rows, "rows");
    QCOMPARE(reading.Problem, QString());
}

void tst_tabletext::encodingsAreTold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    const auto row = [](const char* name, const QByteArray& bytes) { QTest::newRow(name) << bytes; };
    row("UTF-8", "M\xC3\xBCnchen");
    row("UTF-8 with a mark", "\xEF\xBB\xBFM\xC3\xBCnchen");
    row("Windows-1252", "M\xFCnchen");
    row("UTF-16, small end first", QByteArray("\xFF\xFEM\0\xFC\0n\0c\0h\0e\0n\0", 16));
    row("UTF-16, large end first", QByteArray("\xFE\xFF\0M\0\xFC\0n\0c\0h\0e\0n", 16));
}

void tst_tabletext::encodingsAreTold()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(TableTextOf(bytes), QStringLiteral("M\u00FCnchen"));
}

void tst_tabletext::whatIsNoTableIsRefused_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("problem");
    QTest::newRow("a character of no text")
        << QString(u"a,b\n" + QString(QChar(0)) + u"c,d") << "This is no table of text !";
    QTest::newRow("quotes without an end") << "a,b\n\"c,d\ne,f"
                                           << "A quotation mark of the table is never closed, in its row 2 !";
    QTest::newRow("a quote alone") << "\""
                                   << "A quotation mark of the table is never closed, in its row 1 !";
    QTest::newRow("too many rows") << QStringLiteral("a\n").repeated(TableReading::mostRows + 1)
                                   << "The table is larger than any map !";
    QTest::newRow("too many columns")
        << QString(TableReading::mostColumns, u',') << "The table is larger than any map !";
}

void tst_tabletext::whatIsNoTableIsRefused()
{
    QFETCH(const QString, text);
    const TableReading reading = ReadTable(text);
    QTEST(reading.Problem, "problem");
    QCOMPARE(reading.Rows, TableRows());
}

void tst_tabletext::longTablesAreReadOnce()
{
    // What grew with the square of its length would not come to an end here.
    const QString quotes = QStringLiteral("\"\"").repeated(500'000);
    QVERIFY(!ReadTable(QString(u'"' + quotes)).Problem.isEmpty());
    QVERIFY(!ReadTable(QString(1'000'000, u';')).Problem.isEmpty());
}

QTEST_GUILESS_MAIN(tst_tabletext)

#include "tst_tabletext.moc"
