#include "app/rules/References.h"

#include <QTest>

class tst_references : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPlaceHasItsWayOfWriting_data();
    void everyPlaceHasItsWayOfWriting();
};

void tst_references::everyPlaceHasItsWayOfWriting_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("text") << QStringLiteral("a\u65E5b\u00FC") << QStringLiteral("a&#26085;b\u00FC");
    QTest::newRow("a pair is one character") << QStringLiteral("\U0001F600") << QStringLiteral("&#128512;");
    QTest::newRow("an attribute") << QStringLiteral("<p title='\u65E5'>")
                                  << QStringLiteral("<p title='&#26085;'>");
    QTest::newRow("a title") << QStringLiteral("<title>\u65E5</title>")
                             << QStringLiteral("<title>&#26085;</title>");
    QTest::newRow("a script") << QStringLiteral("<script>'\u0416\U0001F600'</script>\u0416")
                              << QStringLiteral("<script>'\\u0416\\ud83d\\ude00'</script>&#1046;");
    QTest::newRow("a style") << QStringLiteral("<style>'\u0416\U0001F600'</style>")
                             << QStringLiteral("<style>'\\416 \\1f600 '</style>");
    QTest::newRow("a comment") << QStringLiteral("<!--\u0416-->") << QStringLiteral("<!--&#1046;-->");
}

void tst_references::everyPlaceHasItsWayOfWriting()
{
    QFETCH(const QString, text);
    const QList<TextReplacement> replacements = ReferencesFor(text, TextEncoding::Windows1252);
    QString result = text;
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        result.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    QTEST(result, "expected");
    QVERIFY(ReferencesFor(text, TextEncoding::Utf8).isEmpty());
}

QTEST_GUILESS_MAIN(tst_references)
#include "tst_references.moc"
