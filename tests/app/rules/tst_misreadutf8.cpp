#include "app/rules/MisreadUtf8.h"

#include "shared/AnsiCodePage.h"

#include <QTest>

class tst_misreadutf8 : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void misreadCharactersAreFound_data();
    void misreadCharactersAreFound();
};

void tst_misreadutf8::misreadCharactersAreFound_data()
{
    QTest::addColumn<QString>("meant");
    QTest::addColumn<QString>("read");
    const auto row = [](const char* name, const QString& meant) {
        QTest::newRow(name) << meant << AnsiCodePage::Decode(meant.toUtf8());
    };
    row("nothing", QString());
    row("ASCII", QStringLiteral("a?b"));
    row("two, three and four bytes", QStringLiteral("\u00FCx\u65E5\u65E5\U0001F600"));
    row("bytes that the code page has no character for", QStringLiteral("\u00C1\u00CD"));
    QTest::newRow("a mark") << QStringLiteral("a") << QStringLiteral("\u00EF\u00BB\u00BFa");
    row("a mark that marks nothing", QStringLiteral("a\uFEFFb"));
    // What was typed since.
    QTest::newRow("typed letter") << QStringLiteral("\u00FCa\u00FC") << QStringLiteral("\u00FCa\u00C3\u00BC");
    QTest::newRow("typed beyond the code page")
        << QStringLiteral("\u65E5a\u00FC") << QStringLiteral("\u65E5a\u00C3\u00BC");
    QTest::newRow("typed pair") << QStringLiteral("\U0001F600\u00FC")
                                << QStringLiteral("\U0001F600\u00C3\u00BC");
    QTest::newRow("cut off") << QStringLiteral("\u00E6\u2014") << QStringLiteral("\u00E6\u2014");
}

void tst_misreadutf8::misreadCharactersAreFound()
{
    QFETCH(QString, read);
    const QList<TextReplacement> replacements = MisreadUtf8(read);
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        read.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    QTEST(read, "meant");
}

QTEST_GUILESS_MAIN(tst_misreadutf8)
#include "tst_misreadutf8.moc"
