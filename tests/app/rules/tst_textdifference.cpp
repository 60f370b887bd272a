#include "app/rules/TextDifference.h"

#include <QTest>
#include <random>

class tst_textdifference : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreCounted_data();
    void linesAreCounted();
    void verySmallDifferencesOfLargeTextsAreFound();
    void tooManyAreNotCounted();
    void differenceIsDescribed_data();
    void differenceIsDescribed();
    void replacementMakesTheOneOfTheOther_data();
    void replacementMakesTheOneOfTheOther();
};

void tst_textdifference::linesAreCounted_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("now");
    QTest::addColumn<QList<int>>("counts");
    const auto row = [](const char* name, const char* before, const char* now, const QList<int>& counts) {
        QTest::newRow(name) << QString::fromLatin1(before).replace(u' ', QStringLiteral("\r\n"))
                            << QString::fromLatin1(now).replace(u' ', QStringLiteral("\r\n")) << counts;
    };
    row("nothing", "", "", { 0, 0, 0 });
    row("alike", "a b c", "a b c", { 0, 0, 0 });
    row("one changed", "a b c", "a x c", { 1, 0, 0 });
    row("first and last changed", "a b c", "x b y", { 2, 0, 0 });
    row("one added", "a b c", "a b x c", { 0, 1, 0 });
    row("all removed", "a b c", "", { 1, 0, 2 });
    row("removed and added", "a b c d", "b c d e", { 1, 0, 0 });
    row("two removed", "a b c d e", "a c e", { 0, 0, 2 });
    row("line end added", "a", "a ", { 0, 1, 0 });
}

void tst_textdifference::linesAreCounted()
{
    QFETCH(const QString, before);
    QFETCH(const QString, now);
    QFETCH(const QList<int>, counts);
    const std::optional<LineDifference> found = CompareLines(before, now);
    QVERIFY(found);
    QCOMPARE((QList<int>{ int(found->Changed), int(found->Added), int(found->Removed) }), counts);
}

void tst_textdifference::verySmallDifferencesOfLargeTextsAreFound()
{
    QStringList lines;
    for (int i = 0; i < 100'000; ++i) {
        lines << QString::number(i);
    }
    const QString before = lines.join(QStringLiteral("\r\n"));
    lines[3] = QStringLiteral("x");
    lines.removeAt(50'000);
    lines.insert(99'000, QStringLiteral("y"));
    lines.insert(99'001, QStringLiteral("z"));
    const LineDifference expected{ .Changed = 2, .Added = 1, .Removed = 0 };
    QVERIFY(CompareLines(before, lines.join(QStringLiteral("\r\n"))) == expected);
}

void tst_textdifference::tooManyAreNotCounted()
{
    const QString before = QStringLiteral("a\r\n").repeated(100);
    const QString now = QStringLiteral("b\r\n").repeated(100);
    QVERIFY(CompareLines(before, now, 200));
    QVERIFY(!CompareLines(before, now, 199));
}

void tst_textdifference::differenceIsDescribed_data()
{
    QTest::addColumn<std::optional<LineDifference>>("difference");
    QTest::addColumn<QString>("text");
    const auto row = [](const char* text, const std::optional<LineDifference>& difference) {
        QTest::newRow(text) << difference << QString::fromLatin1(text);
    };
    row("very many lines changed", std::nullopt);
    row("1 line changed", LineDifference{ 1, 0, 0 });
    row("2 lines changed, 1 line added", LineDifference{ 2, 1, 0 });
    row("3 lines removed", LineDifference{ 0, 0, 3 });
    row("nothing that is seen in the text", LineDifference());
}

void tst_textdifference::differenceIsDescribed()
{
    QFETCH(const std::optional<LineDifference>, difference);
    QFETCH(const QString, text);
    QCOMPARE(Describe(difference), text);
}

void tst_textdifference::replacementMakesTheOneOfTheOther_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("now");
    QTest::newRow("insertion") << QStringLiteral("ab") << QStringLiteral("axb");
    QTest::newRow("deletion") << QStringLiteral("aaaa") << QStringLiteral("aa");
    QTest::newRow("line end goes") << QStringLiteral("a\r\n\r\nb") << QStringLiteral("a\r\nb");
    QTest::newRow("line end comes") << QStringLiteral("a\r\nb") << QStringLiteral("a\r\n\r\n\r\nb");
    std::mt19937 random(5);
    for (int round = 0; round < 200; ++round) {
        QString texts[2];
        for (QString& text : texts) {
            for (int i = int(random() % 8); i > 0; --i) {
                text += random() % 2 == 0 ? QStringLiteral("\r\n") : QStringLiteral("a");
            }
        }
        QTest::addRow("chance %d", round) << texts[0] << texts[1];
    }
}

void tst_textdifference::replacementMakesTheOneOfTheOther()
{
    QFETCH(const QString, before);
    QFETCH(const QString, now);
    const std::optional<TextReplacement> replacement = ReplacementFor(before, now);
    QCOMPARE(replacement.has_value(), before != now);
    if (!replacement) {
        return;
    }
    const auto& [place, text] = *replacement;
    QCOMPARE(before.left(place.Start) + text + before.mid(place.Start + place.Length), now);
    const auto splitsLineEnd = [&before](qsizetype at) {
        return at > 0 && at < before.size() && before[at - 1] == u'\r' && before[at] == u'\n';
    };
    QVERIFY(!splitsLineEnd(place.Start));
    QVERIFY(!splitsLineEnd(place.Start + place.Length));
}

QTEST_GUILESS_MAIN(tst_textdifference)
#include "tst_textdifference.moc"
