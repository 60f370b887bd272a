#include "shared/AnsiCodePage.h"
#include "shared/TextCase.h"

#include <QTest>

namespace {

QString EveryCharacter()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return AnsiCodePage::Decode(bytes);
}

} // namespace

class tst_textcase : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lettersOfTheCodePageHaveTheirCounterparts();
    void charactersWithoutACounterpartStay_data();
    void charactersWithoutACounterpartStay();
    void everyConversionStaysInTheCodePageAndKeepsTheLength();
    void charactersOutsideTheCodePage_data();
    void charactersOutsideTheCodePage();
    void lineEndsStay();
    void nothingStaysNothing();
    void properCaseStartsWordsBehindEverythingButLetters_data();
    void properCaseStartsWordsBehindEverythingButLetters();
    void properCaseStartsAWordBehindEveryOtherCharacter();
};

void tst_textcase::lettersOfTheCodePageHaveTheirCounterparts()
{
    const QString upper = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ"
                                         "\u00C0\u00C1\u00C2\u00C3\u00C4\u00C5\u00C6\u00C7\u00C8\u00C9\u00CA"
                                         "\u00CB\u00CC\u00CD\u00CE\u00CF\u00D0\u00D1\u00D2\u00D3\u00D4\u00D5"
                                         "\u00D6\u00D8\u00D9\u00DA\u00DB\u00DC\u00DD\u00DE"
                                         "\u0160\u0152\u017D\u0178");
    const QString lower = QStringLiteral("abcdefghijklmnopqrstuvwxyz"
                                         "\u00E0\u00E1\u00E2\u00E3\u00E4\u00E5\u00E6\u00E7\u00E8\u00E9\u00EA"
                                         "\u00EB\u00EC\u00ED\u00EE\u00EF\u00F0\u00F1\u00F2\u00F3\u00F4\u00F5"
                                         "\u00F6\u00F8\u00F9\u00FA\u00FB\u00FC\u00FD\u00FE"
                                         "\u0161\u0153\u017E\u00FF");
    QCOMPARE(UpperCase(lower), upper);
    QCOMPARE(UpperCase(upper), upper);
    QCOMPARE(LowerCase(upper), lower);
    QCOMPARE(LowerCase(lower), lower);
    // These are all that change.
    for (const QChar character : EveryCharacter()) {
        QCOMPARE(UpperCase(character) != character, lower.contains(character));
        QCOMPARE(LowerCase(character) != character, upper.contains(character));
    }
}

void tst_textcase::charactersWithoutACounterpartStay_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("sharp s would be two letters") << QStringLiteral("\u00DF");
    QTest::newRow("micro sign") << QStringLiteral("\u00B5");
    QTest::newRow("f with hook") << QStringLiteral("\u0192");
    QTest::newRow("ordinal indicators") << QStringLiteral("\u00AA\u00BA");
    QTest::newRow("times and divided by") << QStringLiteral("\u00D7\u00F7");
    QTest::newRow("digits and signs") << QStringLiteral("0123456789 @[`{<>\"'\u20AC\u2122");
    QTest::newRow("fixed blank and soft hyphen") << QStringLiteral("\u00A0\u00AD");
}

void tst_textcase::charactersWithoutACounterpartStay()
{
    QFETCH(const QString, text);
    QCOMPARE(UpperCase(text), text);
    QCOMPARE(LowerCase(text), text);
    QCOMPARE(ProperCase(text), text);
}

void tst_textcase::everyConversionStaysInTheCodePageAndKeepsTheLength()
{
    const QString all = EveryCharacter();
    for (const QString& converted : { UpperCase(all), LowerCase(all), ProperCase(all) }) {
        QCOMPARE(converted.size(), all.size());
        QCOMPARE(AnsiCodePage::Decode(AnsiCodePage::Encode(converted)), converted);
    }
}

void tst_textcase::charactersOutsideTheCodePage_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("Greek") << QStringLiteral("\u03B1\u0391");
    QTest::newRow("Cyrillic") << QStringLiteral("\u0436\u0416");
    QTest::newRow("capital i with a dot") << QStringLiteral("\u0130");
    QTest::newRow("ligature") << QStringLiteral("\uFB01");
    QTest::newRow("outside the basic plane") << QStringLiteral("\U0001D49C\U00010428\U0001F600");
}

void tst_textcase::charactersOutsideTheCodePage()
{
    QFETCH(const QString, text);
    QCOMPARE(UpperCase(text), text);
    QCOMPARE(LowerCase(text), text);
}

void tst_textcase::lineEndsStay()
{
    QCOMPARE(UpperCase(QStringLiteral("a\r\n\tb\r\n")), QStringLiteral("A\r\n\tB\r\n"));
    QCOMPARE(ProperCase(QStringLiteral("AB\r\nCD")), QStringLiteral("Ab\r\nCd"));
}

void tst_textcase::nothingStaysNothing()
{
    QCOMPARE(UpperCase(QString()), QString());
    QCOMPARE(LowerCase(QString()), QString());
    QCOMPARE(ProperCase(QString()), QString());
}

void tst_textcase::properCaseStartsWordsBehindEverythingButLetters_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("words") << "hELLO wORLD"
                           << "Hello World";
    QTest::newRow("apostrophe") << "don't"
                                << "Don'T";
    QTest::newRow("name") << "o'neil"
                          << "O'Neil";
    QTest::newRow("digit") << "3rd"
                           << "3Rd";
    QTest::newRow("everything") << "mcdonald's 2nd-rate"
                                << "Mcdonald'S 2Nd-Rate";
    QTest::newRow("markup") << "<A HREF=\"INDEX.HTM\">"
                            << "<A Href=\"Index.Htm\">";
    QTest::newRow("accented letters stay low")
        << QStringLiteral("\u00C9T\u00C9 caf\u00C9s") << QStringLiteral("\u00E9T\u00E9 Caf\u00E9S");
    QTest::newRow("one letter") << "x"
                                << "X";
    QTest::newRow("behind nothing but blanks") << "  x"
                                               << "  X";
    QTest::newRow("underscore") << "a_b"
                                << "A_B";
}

void tst_textcase::properCaseStartsWordsBehindEverythingButLetters()
{
    QFETCH(const QString, text);
    QFETCH(const QString, expected);
    QCOMPARE(ProperCase(text), expected);
}

void tst_textcase::properCaseStartsAWordBehindEveryOtherCharacter()
{
    for (const QChar character : EveryCharacter()) {
        const bool isLetter = QStringLiteral("abcdefghijklmnopqrstuvwxyz").contains(character.toLower());
        const QString proper = ProperCase(u'x' + QString(character) + u'y');
        QCOMPARE(proper.at(0), QChar(u'X'));
        QCOMPARE(proper.at(1), LowerCase(character).at(0));
        QCOMPARE(proper.at(2), isLetter ? QChar(u'y') : QChar(u'Y'));
    }
}

QTEST_GUILESS_MAIN(tst_textcase)

#include "tst_textcase.moc"
