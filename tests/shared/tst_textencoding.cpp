#include "shared/TextEncoding.h"

#include "shared/AnsiCodePage.h"

#include <QTest>
#include <random>

class tst_textencoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windows1252IsTheCodePage();
    void textOfUtf8_data();
    void textOfUtf8();
    void everyByteComesBack_data();
    void everyByteComesBack();
    void markIsWrittenOnce();
    void heldBytesAreNoneOfTheCodePage();
    void lackingCharactersAreCountedAndNamed_data();
    void lackingCharactersAreCountedAndNamed();
};

static QByteArray EveryByte()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.append(static_cast<char>(byte));
    }
    return bytes;
}

void tst_textencoding::windows1252IsTheCodePage()
{
    const QByteArray bytes = EveryByte();
    const QString text = DecodeText(bytes, TextEncoding::Windows1252);
    QCOMPARE(text, AnsiCodePage::Decode(bytes));
    QCOMPARE(EncodeText(text, TextEncoding::Windows1252), bytes);
    QCOMPARE(EncodeText(u"\u0416", TextEncoding::Windows1252), QByteArray("?"));
}

void tst_textencoding::textOfUtf8_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QByteArray() << QString();
    QTest::newRow("ASCII") << QByteArray("a\r\nb\0c", 6) << QString(QLatin1String("a\r\nb\0c", 6));
    QTest::newRow("two, three and four bytes")
        << QByteArray("\xC3\xBC\xE6\x97\xA5\xF0\x9F\x98\x80") << QStringLiteral("\u00FC\u65E5\U0001F600");
    QTest::newRow("a mark is no text") << QByteArray("\xEF\xBB\xBFx") << QStringLiteral("x");
    QTest::newRow("the second one is")
        << QByteArray("\xEF\xBB\xBF\xEF\xBB\xBFx") << QStringLiteral("\uFEFFx");
    QTest::newRow("a byte that begins nothing") << QByteArray("a\xFF") << QString(u"a" + QChar(0xDCFF));
    QTest::newRow("a character cut off") << QByteArray("\xE6\x97") << QString(QChar(0xDCE6)) + QChar(0xDC97);
    QTest::newRow("half of a pair is none")
        << QByteArray("\xED\xA0\x80") << QString(QChar(0xDCED)) + QChar(0xDCA0) + QChar(0xDC80);
    QTest::newRow("longer than need be") << QByteArray("\xC0\x80") << QString(QChar(0xDCC0)) + QChar(0xDC80);
}

void tst_textencoding::textOfUtf8()
{
    QFETCH(const QByteArray, bytes);
    QTEST(DecodeText(bytes, TextEncoding::Utf8), "text");
    QTEST(DecodeText(bytes, TextEncoding::Utf8WithMark), "text");
}

void tst_textencoding::everyByteComesBack_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("every byte") << EveryByte();
    QTest::newRow("valid") << QByteArray("a\xC3\xBC\xE2\x80\xA8\xEF\xB7\x90\xF4\x8F\xBF\xBF");
    QTest::newRow("marks within") << QByteArray("a\xEF\xBB\xBF\xFF\xEF\xBB\xBF\xEF\xBB\xBF");
    QTest::newRow("cut anywhere") << QByteArray("\xF0\x9F\x98\xF0\x9F\xF0\xE2\x80\xC3");
    std::mt19937 random(15);
    for (int round = 0; round < 200; ++round) {
        QByteArray bytes;
        for (int i = 0; i < 200; ++i) {
            // Mostly such bytes as characters are made of.
            const auto number = random();
            bytes += static_cast<char>((number & 0x100U) != 0 ? 0x80U + (number & 0x7FU) : number & 0xFFU);
        }
        QTest::addRow("chance %d", round) << bytes;
    }
}

void tst_textencoding::everyByteComesBack()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(EncodeText(DecodeText(bytes, TextEncoding::Utf8), TextEncoding::Utf8), bytes);
}

void tst_textencoding::markIsWrittenOnce()
{
    const QString text = DecodeText("\xEF\xBB\xBFx", TextEncoding::Utf8WithMark);
    QCOMPARE(EncodeText(text, TextEncoding::Utf8WithMark), QByteArray("\xEF\xBB\xBFx"));
    QCOMPARE(EncodeText(text, TextEncoding::Utf8), QByteArray("x"));
}

void tst_textencoding::heldBytesAreNoneOfTheCodePage()
{
    QCOMPARE(EncodeText(HeldBytes("\xFF\x80"), TextEncoding::Windows1252), QByteArray("??"));
    QCOMPARE(EncodeText(HeldBytes("\xFF\x80"), TextEncoding::Utf8), QByteArray("\xFF\x80"));
}

void tst_textencoding::lackingCharactersAreCountedAndNamed_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<qsizetype>("count");
    QTest::addColumn<QString>("which");
    QTest::newRow("none") << QStringLiteral("a?\u20AC\u00FC\u0081") << qsizetype(0) << QString();
    QTest::newRow("each named once") << QStringLiteral("\u65E5\u672C\u65E5") << qsizetype(3)
                                     << QStringLiteral("\u65E5\u672C");
    QTest::newRow("a pair is one") << QStringLiteral("x\U0001F600y") << qsizetype(1)
                                   << QStringLiteral("\U0001F600");
    QTest::newRow("only the first are named")
        << QStringLiteral("\u0410\u0411\u0412\u0413\u0414\u0415\u0416\u0417\u0418\u0419\u041A\u041B")
        << qsizetype(12) << QStringLiteral("\u0410\u0411\u0412\u0413\u0414\u0415\u0416\u0417\u0418\u0419");
}

void tst_textencoding::lackingCharactersAreCountedAndNamed()
{
    QFETCH(const QString, text);
    QFETCH(const qsizetype, count);
    const LackingCharacters lacking = LackingIn(text, TextEncoding::Windows1252);
    QCOMPARE(lacking.Count, count);
    QTEST(lacking.Which, "which");
    QCOMPARE(LackingIn(text, TextEncoding::Utf8).Count, qsizetype(0));
}

QTEST_GUILESS_MAIN(tst_textencoding)
#include "tst_textencoding.moc"
