#include "app/rules/TemporaryCopy.h"

#include <QTest>

class tst_temporarycopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void copyReplacesWhatFollowsTheFirstDot_data();
    void copyReplacesWhatFollowsTheFirstDot();
};

void tst_temporarycopy::copyReplacesWhatFollowsTheFirstDot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("copy");
    QTest::newRow("page") << "C:\\web\\page.htm"
                          << "C:\\web\\page_Temp.html";
    QTest::newRow("folder with a dot") << "C:\\my.site\\page.htm"
                                       << "C:\\my_Temp.html";
    QTest::newRow("two dots") << "/a/b.c.htm"
                              << "/a/b_Temp.html";
    QTest::newRow("no dot") << "/a/page"
                            << "_Temp.html";
    QTest::newRow("dot first") << ".page"
                               << "_Temp.html";
    QTest::newRow("hidden folder") << "/a/.b/page.htm"
                                   << "/a/_Temp.html";
}

void tst_temporarycopy::copyReplacesWhatFollowsTheFirstDot()
{
    QFETCH(const QString, path);
    QTEST(TemporaryCopyOf(path, QStringLiteral("html")), "copy");
}

QTEST_GUILESS_MAIN(tst_temporarycopy)
#include "tst_temporarycopy.moc"
