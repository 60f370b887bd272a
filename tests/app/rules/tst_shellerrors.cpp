#include "app/rules/ShellErrors.h"

#include <QTest>

class tst_shellerrors : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void errorCodesHaveTheirTexts_data();
    void errorCodesHaveTheirTexts();
};

void tst_shellerrors::errorCodesHaveTheirTexts_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QString>("text");
    const auto row = [](int code, const char* text) {
        QTest::addRow("%d", code) << code << QString::fromLatin1(text);
    };
    row(0, "Memory Error");
    row(2, "File not found");
    row(3, "Path not found");
    row(5, "Access Denied");
    row(8, "Out of Memory");
    row(11, "Bad Executeable Format");
    row(26, "Sharing violation");
    row(27, "Association incomplete");
    row(28, "DEE time out");
    row(29, "DDE failed");
    row(30, "DDE Busy error");
    row(31, "No association for this file");
    for (const int other : { -1, 1, 4, 6, 7, 9, 10, 12, 25, 32 }) {
        row(other, "Unknown Error!, Please try again...");
    }
}

void tst_shellerrors::errorCodesHaveTheirTexts()
{
    QFETCH(const int, code);
    QTEST(ShellErrorText(code), "text");
}

QTEST_GUILESS_MAIN(tst_shellerrors)
#include "tst_shellerrors.moc"
