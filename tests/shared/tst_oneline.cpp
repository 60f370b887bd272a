#include "shared/OneLine.h"

#include <QTest>

class tst_oneline : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void lineEndsGoOrBecomeBlanks_data();
    void lineEndsGoOrBecomeBlanks();
    void everyOtherCharacterStays();
};

void tst_oneline::lineEndsGoOrBecomeBlanks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("line");
    const auto row = [](const char* name, const QString& text, const QString& line) {
        QTest::newRow(name) << text << line;
    };
    row("at the end", QStringLiteral("http://x/\n"), QStringLiteral("http://x/"));
    row("many at the end", QStringLiteral("x\r\n\n\r\u2029"), QStringLiteral("x"));
    row("CR LF", QStringLiteral("a\r\nb"), QStringLiteral("a b"));
    row("LF CR", QStringLiteral("a\n\rb"), QStringLiteral("a  b"));
    row("two", QStringLiteral("a\n\nb"), QStringLiteral("a  b"));
    row("in front", QStringLiteral("\na"), QStringLiteral(" a"));
    row("blanks at the end stay", QStringLiteral("a  \n"), QStringLiteral("a  "));
    row("nothing else", QStringLiteral("\r\n"), QString());
    row("nothing", QString(), QString());
    for (const char16_t lineEnd : u"\n\v\f\r\u0085\u2028\u2029") {
        if (lineEnd != 0) {
            const QString name = QString::number(lineEnd, 16);
            row(qPrintable(name), QStringLiteral("a%1b%1").arg(QChar(lineEnd)), QStringLiteral("a b"));
        }
    }
}

void tst_oneline::lineEndsGoOrBecomeBlanks()
{
    QFETCH(const QString, text);
    QFETCH(const QString, line);
    QCOMPARE(OneLine(text), line);
    QCOMPARE(HasLineEnd(text), text != line);
    QVERIFY(!HasLineEnd(line));
}

void tst_oneline::everyOtherCharacterStays()
{
    int lineEnds = 0;
    for (int code = 0; code <= 0xFFFF; ++code) {
        const QString text = QStringLiteral("a") + QChar(static_cast<char16_t>(code)) + u'b';
        lineEnds += HasLineEnd(text) ? 1 : 0;
        QCOMPARE(OneLine(text), HasLineEnd(text) ? QStringLiteral("a b") : text);
    }
    QCOMPARE(lineEnds, 7);
}

QTEST_GUILESS_MAIN(tst_oneline)
#include "tst_oneline.moc"
