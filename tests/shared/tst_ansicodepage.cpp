#include "shared/AnsiCodePage.h"

#include <QTest>

namespace {

QByteArray AllBytes()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

} // namespace

class tst_ansicodepage : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyByteSurvivesTheRoundTrip();
    void everyByteIsACharacterOfItsOwn();
    void halfOfTheBytesAreAscii();
    void upperBytesAreLatin1();
    void bytesBetweenAreTheirOwnCharacters_data();
    void bytesBetweenAreTheirOwnCharacters();
    void unassignedBytesAreControlCharacters_data();
    void unassignedBytesAreControlCharacters();
    void charactersOutsideBecomeQuestionMarks_data();
    void charactersOutsideBecomeQuestionMarks();
    void lineEndsAndNulsPassUnchanged();
    void nothingStaysNothing();
};

void tst_ansicodepage::everyByteSurvivesTheRoundTrip()
{
    const QByteArray bytes = AllBytes();
    const QString text = AnsiCodePage::Decode(bytes);
    QCOMPARE(text.size(), bytes.size());
    QCOMPARE(AnsiCodePage::Encode(text), bytes);
}

void tst_ansicodepage::everyByteIsACharacterOfItsOwn()
{
    const QString text = AnsiCodePage::Decode(AllBytes());
    for (const QChar character : text) {
        QCOMPARE(text.count(character), 1);
    }
}

void tst_ansicodepage::halfOfTheBytesAreAscii()
{
    const QByteArray bytes = AllBytes().first(0x80);
    QCOMPARE(AnsiCodePage::Decode(bytes), QString::fromLatin1(bytes));
}

void tst_ansicodepage::upperBytesAreLatin1()
{
    const QByteArray bytes = AllBytes().sliced(0xA0);
    QCOMPARE(AnsiCodePage::Decode(bytes), QString::fromLatin1(bytes));
}

void tst_ansicodepage::bytesBetweenAreTheirOwnCharacters_data()
{
    QTest::addColumn<int>("byte");
    QTest::addColumn<QString>("character");
    QTest::newRow("euro sign") << 0x80 << QString(u'\u20AC');
    QTest::newRow("low single quote") << 0x82 << QString(u'\u201A');
    QTest::newRow("florin") << 0x83 << QString(u'\u0192');
    QTest::newRow("low double quote") << 0x84 << QString(u'\u201E');
    QTest::newRow("ellipsis") << 0x85 << QString(u'\u2026');
    QTest::newRow("dagger") << 0x86 << QString(u'\u2020');
    QTest::newRow("double dagger") << 0x87 << QString(u'\u2021');
    QTest::newRow("circumflex") << 0x88 << QString(u'\u02C6');
    QTest::newRow("per mille") << 0x89 << QString(u'\u2030');
    QTest::newRow("S caron") << 0x8A << QString(u'\u0160');
    QTest::newRow("left angle quote") << 0x8B << QString(u'\u2039');
    QTest::newRow("OE") << 0x8C << QString(u'\u0152');
    QTest::newRow("Z caron") << 0x8E << QString(u'\u017D');
    QTest::newRow("left single quote") << 0x91 << QString(u'\u2018');
    QTest::newRow("right single quote") << 0x92 << QString(u'\u2019');
    QTest::newRow("left double quote") << 0x93 << QString(u'\u201C');
    QTest::newRow("right double quote") << 0x94 << QString(u'\u201D');
    QTest::newRow("bullet") << 0x95 << QString(u'\u2022');
    QTest::newRow("en dash") << 0x96 << QString(u'\u2013');
    QTest::newRow("em dash") << 0x97 << QString(u'\u2014');
    QTest::newRow("small tilde") << 0x98 << QString(u'\u02DC');
    QTest::newRow("trade mark") << 0x99 << QString(u'\u2122');
    QTest::newRow("s caron") << 0x9A << QString(u'\u0161');
    QTest::newRow("right angle quote") << 0x9B << QString(u'\u203A');
    QTest::newRow("oe") << 0x9C << QString(u'\u0153');
    QTest::newRow("z caron") << 0x9E << QString(u'\u017E');
    QTest::newRow("Y diaeresis") << 0x9F << QString(u'\u0178');
}

void tst_ansicodepage::bytesBetweenAreTheirOwnCharacters()
{
    QFETCH(const int, byte);
    QFETCH(const QString, character);
    const QByteArray bytes(1, static_cast<char>(byte));
    QCOMPARE(AnsiCodePage::Decode(bytes), character);
    QCOMPARE(AnsiCodePage::Encode(character), bytes);
}

void tst_ansicodepage::unassignedBytesAreControlCharacters_data()
{
    QTest::addColumn<int>("byte");
    for (const int byte : { 0x81, 0x8D, 0x8F, 0x90, 0x9D }) {
        QTest::newRow(qPrintable(QString::number(byte, 16))) << byte;
    }
}

void tst_ansicodepage::unassignedBytesAreControlCharacters()
{
    QFETCH(const int, byte);
    const QByteArray bytes(1, static_cast<char>(byte));
    const QString character(QChar(static_cast<char16_t>(byte)));
    QCOMPARE(AnsiCodePage::Decode(bytes), character);
    QCOMPARE(AnsiCodePage::Encode(character), bytes);
}

void tst_ansicodepage::charactersOutsideBecomeQuestionMarks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    const QChar high(0xD83D);
    const QChar low(0xDE00);
    QTest::newRow("Greek among ASCII") << QString("a\u03A9b") << QByteArray("a?b");
    QTest::newRow("first beyond Latin 1") << QString("\u0100") << QByteArray("?");
    QTest::newRow("control whose byte is the euro's") << QString(QChar(0x80)) << QByteArray("?");
    QTest::newRow("control whose byte is a letter's") << QString(QChar(0x9F)) << QByteArray("?");
    QTest::newRow("last of the plane") << QString(QChar(0xFFFF)) << QByteArray("?");
    QTest::newRow("pair is one character") << u'a' + QString(high) + low + u'b' << QByteArray("a?b");
    QTest::newRow("two pairs") << QString(high) + low + high + low << QByteArray("?\?");
    QTest::newRow("high half alone") << QString(high) + u'a' << QByteArray("?a");
    QTest::newRow("high half at the end") << u'a' + QString(high) << QByteArray("a?");
    QTest::newRow("low half alone") << QString(low) + u'a' << QByteArray("?a");
    QTest::newRow("halves the wrong way round") << QString(low) + high << QByteArray("?\?");
    QTest::newRow("high half before a pair") << QString(high) + high + low << QByteArray("?\?");
}

void tst_ansicodepage::charactersOutsideBecomeQuestionMarks()
{
    QFETCH(const QString, text);
    QFETCH(const QByteArray, bytes);
    QCOMPARE(AnsiCodePage::Encode(text), bytes);
}

void tst_ansicodepage::lineEndsAndNulsPassUnchanged()
{
    const QByteArray bytes("a\r\nb\nc\rd\0e", 10);
    QCOMPARE(AnsiCodePage::Decode(bytes), QString::fromLatin1(bytes));
    QCOMPARE(AnsiCodePage::Encode(QString::fromLatin1(bytes)), bytes);
}

void tst_ansicodepage::nothingStaysNothing()
{
    QCOMPARE(AnsiCodePage::Decode({}), QString());
    QCOMPARE(AnsiCodePage::Encode({}), QByteArray());
}

QTEST_GUILESS_MAIN(tst_ansicodepage)

#include "tst_ansicodepage.moc"
