#include "html/DeclaredEncoding.h"

#include <QFile>
#include <QTest>

class tst_declaredencoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void labelsMeanEncodings_data();
    void labelsMeanEncodings();
    void marksAreAtTheVeryBeginning_data();
    void marksAreAtTheVeryBeginning();
    void markupDeclaresAnEncoding_data();
    void markupDeclaresAnEncoding();
    void onlyTheBeginningIsLookedAt();
    void validUtf8IsToldFromOtherBytes_data();
    void validUtf8IsToldFromOtherBytes();
};

void tst_declaredencoding::labelsMeanEncodings_data()
{
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("encoding");
    QTest::newRow("UTF-8") << QByteArray("utf-8") << "UTF-8";
    QTest::newRow("in capitals") << QByteArray("UTF8") << "UTF-8";
    QTest::newRow("Latin 1 is not what it says") << QByteArray("iso-8859-1") << "windows-1252";
    QTest::newRow("nor is ASCII") << QByteArray("US-ASCII") << "windows-1252";
    QTest::newRow("windows-1252") << QByteArray("x-cp1252") << "windows-1252";
    QTest::newRow("windows-1250") << QByteArray("cp1250") << "windows-1250";
    QTest::newRow("EUC-KR") << QByteArray("ks_c_5601-1987") << "EUC-KR";
    QTest::newRow("Shift_JIS") << QByteArray("sjis") << "Shift_JIS";
    QTest::newRow("UTF-16") << QByteArray("utf-16") << "UTF-16LE";
    QTest::newRow("last of a row") << QByteArray("x-unicode20utf8") << "UTF-8";
    QTest::newRow("blanks around") << QByteArray("\t latin1\r\n") << "windows-1252";
    QTest::newRow("nothing") << QByteArray("") << "";
    QTest::newRow("blank") << QByteArray(" ") << "";
    QTest::newRow("unknown") << QByteArray("utf-9") << "";
    QTest::newRow("part of one") << QByteArray("latin") << "";
    QTest::newRow("two") << QByteArray("latin1 us-ascii") << "";
    QTest::newRow("beyond ASCII") << QByteArray("utf\xAD"
                                                "8")
                                  << "";
}

void tst_declaredencoding::labelsMeanEncodings()
{
    QFETCH(const QByteArray, label);
    QTEST(QString(EncodingOfLabel(label)), "encoding");
}

void tst_declaredencoding::marksAreAtTheVeryBeginning_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("encoding");
    QTest::newRow("UTF-8") << QByteArray("\xEF\xBB\xBF<p>") << "UTF-8";
    QTest::newRow("UTF-16, high byte first") << QByteArray("\xFE\xFF\0a", 4) << "UTF-16BE";
    QTest::newRow("UTF-16, low byte first") << QByteArray(
                                                   "\xFF\xFE"
                                                   "a\0",
                                                   4)
                                            << "UTF-16LE";
    QTest::newRow("none") << QByteArray("<p>") << "";
    QTest::newRow("cut off") << QByteArray("\xEF\xBB") << "";
    QTest::newRow("not at the beginning") << QByteArray(" \xEF\xBB\xBF") << "";
    QTest::newRow("nothing") << QByteArray() << "";
}

void tst_declaredencoding::marksAreAtTheVeryBeginning()
{
    QFETCH(const QByteArray, page);
    QTEST(QString(EncodingOfMark(page)), "encoding");
}

void tst_declaredencoding::markupDeclaresAnEncoding_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("encoding");
    const auto row = [](const char* name, const char* page, const char* encoding) {
        QTest::newRow(name) << QByteArray(page) << encoding;
    };
    row("nothing", "", "");
    row("charset", "<!DOCTYPE html><meta charset=\"utf-8\">", "UTF-8");
    row("charset without quotes", "<meta charset=utf-8>", "UTF-8");
    row("charset in capitals", "<META CHARSET='ISO-8859-1'>", "windows-1252");
    row("charset closed by itself", "<meta charset=\"utf-8\"/>", "UTF-8");
    row("slash in front", "<meta/charset=utf-8>", "UTF-8");
    row("blanks round the equals sign", "<meta charset = utf-8 >", "UTF-8");
    row("content", "<meta http-equiv=\"Content-Type\" content=\"text/html; charset=windows-1250\">",
        "windows-1250");
    row("content first", "<meta content='text/html;charset=euc-kr' http-equiv=content-type>", "EUC-KR");
    row("quotes in the content", "<meta http-equiv=content-type content='x; charset = \"utf-8\"'>", "UTF-8");
    row("open quotes in the content", "<meta http-equiv=content-type content='charset=\"utf-8'>", "");
    row("the word twice in the content", "<meta http-equiv=content-type content='charset charset=utf-8'>",
        "UTF-8");
    row("content of something else", "<meta name=description content='charset=utf-8'>", "");
    row("content for a refresh", "<meta http-equiv=refresh content='charset=utf-8'>", "");
    row("charset beside content", "<meta charset=utf-8 http-equiv=content-type content='charset=latin1'>",
        "UTF-8");
    row("attribute twice", "<meta charset=latin1 charset=utf-8>", "windows-1252");
    row("unknown and then a known one", "<meta charset=x><meta charset=utf-8>", "UTF-8");
    row("UTF-16 cannot be", "<meta charset=utf-16>", "UTF-8");
    row("neither can this", "<meta charset=x-user-defined>", "windows-1252");
    row("in a comment", "<!-- <meta charset=utf-8> -->", "");
    row("behind a comment", "<!-- a --><meta charset=utf-8>", "UTF-8");
    row("behind a short comment", "<!--><meta charset=utf-8>", "UTF-8");
    row("in a value", "<a b='<meta charset=utf-8>'>", "");
    row("in an instruction", "<?a <meta charset=utf-8>", "");
    row("behind an end tag", "</a b='>'><meta charset=utf-8>", "UTF-8");
    row("in a script", "<script><meta charset=utf-8></script>", "UTF-8");
    row("of another element", "<metadata charset=utf-8>", "");
    row("cut off", "<meta charset=utf-8", "");
    row("XML", "<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><p>", "windows-1252");
    row("XML and meta", "<?xml version='1.0' encoding='latin1'?><meta charset=utf-8>", "UTF-8");
    row("XML that is not at the beginning", " <?xml version='1.0' encoding='utf-8'?>", "");
    row("XML without an encoding", "<?xml version='1.0'?><p encoding='utf-8'>", "");
    row("XML with open quotes", "<?xml encoding='utf-8?>", "");
}

void tst_declaredencoding::markupDeclaresAnEncoding()
{
    QFETCH(const QByteArray, page);
    QTEST(QString(EncodingOfMarkup(page)), "encoding");
}

void tst_declaredencoding::onlyTheBeginningIsLookedAt()
{
    const QByteArray declaration = "<meta charset=utf-8>";
    const QByteArray filling(1024 - declaration.size(), 'x');
    QCOMPARE(EncodingOfMarkup(QByteArray(filling + declaration)), utf8Name);
    QCOMPARE(EncodingOfMarkup(QByteArray(filling + 'x' + declaration)), QLatin1String());
}

void tst_declaredencoding::validUtf8IsToldFromOtherBytes_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<bool>("isUtf8");
    QTest::newRow("nothing") << QByteArray() << false;
    QTest::newRow("ASCII") << QByteArray("Hello") << false;
    QTest::newRow("two bytes") << QByteArray("Gr\xC3\xB6\xC3\x9F"
                                             "e")
                               << true;
    QTest::newRow("three bytes") << QByteArray("\xE6\x97\xA5") << true;
    QTest::newRow("four bytes") << QByteArray("\xF0\x9F\x98\x80") << true;
    QTest::newRow("last code point") << QByteArray("\xF4\x8F\xBF\xBF") << true;
    QTest::newRow("mark") << QByteArray("\xEF\xBB\xBFx") << true;
    QTest::newRow("Windows-1252") << QByteArray("Gr\xF6\xDF"
                                                "e")
                                  << false;
    QTest::newRow("cut off") << QByteArray("a\xE6\x97") << false;
    QTest::newRow("stray byte at the end") << QByteArray(100, 'a') + "\xC3\xB6\xB6" << false;
    QTest::newRow("too long for ASCII") << QByteArray("\xC1\xA1") << false;
    QTest::newRow("too long in three") << QByteArray("\xE0\x9F\xBF") << false;
    QTest::newRow("too long in four") << QByteArray("\xF0\x8F\xBF\xBF") << false;
    QTest::newRow("half of a pair") << QByteArray("\xED\xA0\x80") << false;
    QTest::newRow("both halves of a pair") << QByteArray("\xED\xA0\xBD\xED\xB8\x80") << false;
    QTest::newRow("behind the last code point") << QByteArray("\xF4\x90\x80\x80") << false;
    QTest::newRow("far behind it") << QByteArray("\xF8\x88\x80\x80\x80") << false;
}

void tst_declaredencoding::validUtf8IsToldFromOtherBytes()
{
    QFETCH(const QByteArray, page);
    QTEST(IsUtf8BeyondAscii(page), "isUtf8");
}

QTEST_GUILESS_MAIN(tst_declaredencoding)

#include "tst_declaredencoding.moc"
