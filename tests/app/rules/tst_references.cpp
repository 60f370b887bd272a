#include "app/rules/References.h"

#include <QTest>

class tst_references : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPlaceHasItsWayOfWriting_data();
    void everyPlaceHasItsWayOfWriting();
    void allBeyondAsciiIsWrittenSo_data();
    void allBeyondAsciiIsWrittenSo();
    void piecesAreWrittenAsTheirPlacesWant();
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

void tst_references::allBeyondAsciiIsWrittenSo_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");
    QTest::newRow("ascii") << QStringLiteral("<a b='c'>") << QStringLiteral("<a b='c'>");
    QTest::newRow("letters") << QStringLiteral("<a b='\u00FC'>\u65E5")
                             << QStringLiteral("<a b='&#252;'>&#26085;");
    QTest::newRow("a pair") << QStringLiteral("\U0001F600") << QStringLiteral("&#128512;");
    QTest::newRow("script and style") << QStringLiteral("<script>'\u00FC'</script><style>'\u00FC'</style>")
                                      << QStringLiteral("<script>'\\u00fc'</script><style>'\\fc '</style>");
    // "\u00C3\u00BC" is what the UTF-8 of an "\u00FC" reads like.
    QTest::newRow("of the page") << QStringLiteral("\u00C3\u00BC\u00FC\u00C3\u00BC")
                                 << QStringLiteral("\u00C3\u00BC&#252;\u00C3\u00BC");
    QTest::newRow("half a pair") << QString(QChar(0xDC80)) << QString(QChar(0xDC80));
}

void tst_references::allBeyondAsciiIsWrittenSo()
{
    QFETCH(const QString, text);
    QTEST(WithReferences(text), "expected");
}

void tst_references::piecesAreWrittenAsTheirPlacesWant()
{
    const QString page = QStringLiteral("x<script>x</script>x<style>x</style><p title='x'>x");
    QList<TextReplacement> replacements;
    for (qsizetype at = page.indexOf(u'x'); at >= 0; at = page.indexOf(u'x', at + 1)) {
        replacements << TextReplacement{ { at, 1 }, QStringLiteral("\u00FC\u00C3\u00BC") };
    }
    QStringList written;
    for (const TextReplacement& one : WithReferences(page, replacements)) {
        QCOMPARE(one.Place, replacements[written.size()].Place);
        written << QString(one.Text).remove(QStringLiteral("\u00C3\u00BC"));
    }
    QCOMPARE(written, QStringList({ "&#252;", "\\u00fc", "&#252;", "\\fc ", "&#252;", "&#252;" }));
    QVERIFY(WithReferences(page, {}).isEmpty());
}

QTEST_GUILESS_MAIN(tst_references)
#include "tst_references.moc"
