#include "app/rules/IndentRules.h"
#include "tests/app/rules/IndentRows.h"

#include <QTest>

class tst_indentrules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void millimetresAreWholeNumbersUpToTheMost_data() { AddIndentRows(); }
    void millimetresAreWholeNumbersUpToTheMost();
    void everyMillimetreHasItsInches();
};

void tst_indentrules::millimetresAreWholeNumbersUpToTheMost()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, millimetres);
    QFETCH(const QString, inches);
    const IndentTexts texts = IndentTextsFor(typed);
    QCOMPARE(texts.Millimetres, millimetres);
    QCOMPARE(texts.Inches, inches);
}

void tst_indentrules::everyMillimetreHasItsInches()
{
    for (int millimetres = 0; millimetres <= 254; ++millimetres) {
        // Four hundredths of an inch each: written out, then cut behind the first decimal.
        QString inches = QString::number(millimetres * 4 / 100) + u'.' +
                         QString::number(millimetres * 4 % 100).rightJustified(2, u'0').left(1);
        if (millimetres % 25 == 0) {
            inches = inches.left(1);
        }
        const IndentTexts texts = IndentTextsFor(QString::number(millimetres));
        QCOMPARE(texts.Millimetres, QString::number(millimetres));
        QCOMPARE(texts.Inches, inches);
    }
}

QTEST_GUILESS_MAIN(tst_indentrules)
#include "tst_indentrules.moc"
