// A part of a page made another text in few and small steps.

#include "mapback/LineReplacements.h"
#include "mapreader/TagChanges.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

/** A text without its differences in line ends. */
QString WithoutEnds(QString text)
{
    return text.replace(QStringLiteral("\r\n"), QStringLiteral("\n")).replace(u'\r', u'\n');
}

QString Changed(const QString& before, const QString& after)
{
    return Replaced(before, DifferencesOf(before, { 0, before.size() }, after));
}

} // namespace

class tst_linereplacements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void changesAreFewAndSmall_data();
    void changesAreFewAndSmall();
    void lineEndsStay();
    void anyTextBecomesAnyOther();
    void sameTextIsFoundWhateverItsLineEnds_data();
    void sameTextIsFoundWhateverItsLineEnds();
};

void tst_linereplacements::changesAreFewAndSmall_data()
{
    QTest::addColumn<QString>("before");
    QTest::addColumn<QString>("after");
    QTest::addColumn<QStringList>("changes");
    const auto row = [](const char* name, const char* before, const char* after, const QStringList& changes) {
        QTest::newRow(name) << QString::fromUtf8(before) << QString::fromUtf8(after) << changes;
    };
    row("nothing", "a\nb", "a\nb", {});
    row("within a line", "a\nlink one\nb", "a\nlink two\nb", { "7+3 two" });
    row("in two lines", "aXa\nb\ncXc", "aYa\nb\ncYc", { "1+1 Y", "7+1 Y" });
    row("a line more", "a\nb", "a\nx\nb", { "2+0 x|" });
    row("a line less", "a\nx\nb", "a\nb", { "2+2 " });
    row("the last line less", "a\nb\nx", "a\nb", { "3+2 " });
    row("a line more at the end", "a\nb", "a\nb\nx", { "3+0 |x" });
    row("a line less and numbers behind it", "a 1\nb 2\nc 3", "a 1\nc 2", { "4+1 c", "7+4 " });
    row("all", "a", "b", { "0+1 b" });
    row("half of a pair", "\U0001F600", "\U0001F601", { "0+2 \U0001F601" });
}

void tst_linereplacements::changesAreFewAndSmall()
{
    QFETCH(const QString, before);
    QFETCH(const QString, after);
    QStringList changes;
    for (const TextReplacement& change : DifferencesOf(before, { 0, before.size() }, after)) {
        changes << QStringLiteral("%1+%2 ").arg(change.Place.Start).arg(change.Place.Length) +
                       WithoutEnds(change.Text).replace(u'\n', u'|');
    }
    QTEST(changes, "changes");
    QCOMPARE(WithoutEnds(Changed(before, after)), after);
}

void tst_linereplacements::lineEndsStay()
{
    QCOMPARE(Changed("a\r\nb\rc\nd", "a\nx\nc\nd"), QStringLiteral("a\r\nx\rc\nd"));
    QCOMPARE(Changed("a\rb\rc", "a\nb\nx\nc"), QStringLiteral("a\rb\rx\rc"));
    QCOMPARE(Changed("a\r\nb", "a\nb\nc"), QStringLiteral("a\r\nb\r\nc"));
}

void tst_linereplacements::anyTextBecomesAnyOther()
{
    QRandomGenerator random(7);
    const auto text = [&random] {
        QString made;
        const int lines = random.bounded(6);
        for (int i = 0; i < lines; ++i) {
            made += QString(random.bounded(3), QChar('a' + char(random.bounded(3)))) +
                    (random.bounded(4) == 0 ? QString() : QStringLiteral("\n"));
        }
        return made;
    };
    for (int i = 0; i < 20'000; ++i) {
        QString before = text();
        const QString after = text();
        const QString end = QLatin1String(std::array{ "\n", "\r\n", "\r" }[std::size_t(i % 3)]);
        before.replace(u'\n', end);
        const QString page = u"in front" + end + before + end + u"behind";
        const HtmlSpan place{ 8 + end.size(), before.size() };
        const QList<TextReplacement> changes = DifferencesOf(page, place, after);
        qsizetype last = 0;
        for (const TextReplacement& change : changes) {
            QVERIFY(change.Place.Start >= last + (last > 0 ? 1 : 0));
            QVERIFY(change.Place.Length > 0 || !change.Text.isEmpty());
            last = change.Place.Start + change.Place.Length;
        }
        QCOMPARE(WithoutEnds(Replaced(page, changes)), QString(u"in front\n" + after + u"\nbehind"));
    }
}

void tst_linereplacements::sameTextIsFoundWhateverItsLineEnds_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<int>("length");
    QTest::newRow("LF") << "x\na\nb" << 4;
    QTest::newRow("CR LF") << "x\r\na\r\nb" << 6;
    QTest::newRow("CR") << "x\ra\rb" << 4;
    QTest::newRow("other") << "x\na\nc" << -1;
    QTest::newRow("too short") << "x\na\n" << -1;
    QTest::newRow("a line more") << "x\n\na\nb" << -1;
}

void tst_linereplacements::sameTextIsFoundWhateverItsLineEnds()
{
    QFETCH(const QString, page);
    QTEST(int(LengthOfSame(page, 1, u"\na\nb").value_or(-1)), "length");
}

QTEST_GUILESS_MAIN(tst_linereplacements)
#include "tst_linereplacements.moc"
