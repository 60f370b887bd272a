#include "app/rules/LineIndent.h"

#include <QTest>

class tst_lineindent : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesTellHowTheyAreMovedIn_data();
    void linesTellHowTheyAreMovedIn();
    void linesAreMovedOutByOneStep_data();
    void linesAreMovedOutByOneStep();
};

void tst_lineindent::linesTellHowTheyAreMovedIn_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("indent");
    QTest::newRow("nothing") << ""
                             << "";
    QTest::newRow("text") << "<p>"
                          << "";
    QTest::newRow("blanks alone") << "   "
                                  << "";
    QTest::newRow("tab") << "\t\t<p>"
                         << "\t";
    QTest::newRow("two blanks") << "  <p>"
                                << "  ";
    QTest::newRow("eight blanks") << "        <p>"
                                  << "        ";
    QTest::newRow("lined up") << "         <p>"
                              << "";
}

void tst_lineindent::linesTellHowTheyAreMovedIn()
{
    QFETCH(const QString, line);
    QFETCH(const QString, indent);
    QCOMPARE(IndentOf(line), indent);
}

void tst_lineindent::linesAreMovedOutByOneStep_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("indent");
    QTest::addColumn<int>("length");
    QTest::newRow("nothing there") << "<p>"
                                   << "\t" << 0;
    QTest::newRow("tab") << "\t\t<p>"
                         << "\t" << 1;
    QTest::newRow("tab among blanks") << "\t<p>"
                                      << "  " << 1;
    QTest::newRow("one step") << "    <p>"
                              << "  " << 2;
    QTest::newRow("less than a step") << " <p>"
                                      << "    " << 1;
    QTest::newRow("blanks among tabs") << "    <p>"
                                       << "\t" << 4;
    QTest::newRow("blanks alone") << "  "
                                  << "    " << 2;
}

void tst_lineindent::linesAreMovedOutByOneStep()
{
    QFETCH(const QString, line);
    QFETCH(const QString, indent);
    QFETCH(const int, length);
    QCOMPARE(OutdentLength(line, indent), length);
}

QTEST_GUILESS_MAIN(tst_lineindent)
#include "tst_lineindent.moc"
