#include "shared/TextEncoding.h"

#include "shared/AnsiCodePage.h"

#include <QTest>

class tst_textencoding : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windows1252IsTheCodePage();
};

void tst_textencoding::windows1252IsTheCodePage()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.append(static_cast<char>(byte));
    }
    const QString text = DecodeText(bytes, TextEncoding::Windows1252);
    QCOMPARE(text, AnsiCodePage::Decode(bytes));
    QCOMPARE(EncodeText(text, TextEncoding::Windows1252), bytes);
    QCOMPARE(EncodeText(u"\u0416", TextEncoding::Windows1252), QByteArray("?"));
}

QTEST_GUILESS_MAIN(tst_textencoding)
#include "tst_textencoding.moc"
