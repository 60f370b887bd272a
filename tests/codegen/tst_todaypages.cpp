// Compares whole pages with maps for today's browsers, character by character, with those in data/today, each
// of which has been found valid and been read through. CARTOLEN_WRITE_PAGES=FOLDER writes them anew.

#include "tests/codegen/TodayPages.h"

#include "codegen/TodayBlocks.h"
#include "html/HtmlTokens.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTest>

class tst_todaypages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void pageComesOutToTheCharacter_data();
    void pageComesOutToTheCharacter();
    void everyPageOnDiskIsCompared();
    void constantBlocksStandOnceInAPageOfSeveralMaps();
    void nothingTypedGoesIntoStyleOrScript();
    void scriptIsSmall();
    void pagesAreAsciiWhateverWasTyped();
};

void tst_todaypages::initTestCase()
{
    const QString folder = qEnvironmentVariable("CARTOLEN_WRITE_PAGES");
    if (folder.isEmpty()) {
        return;
    }
    const QList<TodayTestPage> pages = SmallTodayPages() + LargeTodayPages();
    for (const TodayTestPage& page : pages) {
        QFile file(QDir(folder).filePath(page.Name + u".html"));
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(page.Text.toUtf8());
    }
}

void tst_todaypages::pageComesOutToTheCharacter_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("text");
    const QList<TodayTestPage> pages = SmallTodayPages();
    for (const TodayTestPage& page : pages) {
        QTest::newRow(qPrintable(page.Name)) << page.Name << page.Text;
    }
}

void tst_todaypages::pageComesOutToTheCharacter()
{
    QFETCH(const QString, name);
    QFETCH(const QString, text);
    QFile file(QFINDTESTDATA("data/today/" + name + ".html"));
    QVERIFY2(file.open(QIODevice::ReadOnly), "there is no such page");
    const QStringList written = text.split(u'\n');
    const QStringList expected = QString::fromUtf8(file.readAll()).split(u'\n');
    for (qsizetype i = 0; i < std::min(written.size(), expected.size()); ++i) {
        QCOMPARE(written[i], expected[i]);
    }
    QCOMPARE(written.size(), expected.size());
}

void tst_todaypages::everyPageOnDiskIsCompared()
{
    QStringList compared;
    const QList<TodayTestPage> pages = SmallTodayPages();
    for (const TodayTestPage& page : pages) {
        compared << page.Name + u".html";
    }
    compared.sort();
    const QDir folder(QFINDTESTDATA("data/today"));
    QCOMPARE(folder.entryList(QDir::Files, QDir::Name), compared);
}

void tst_todaypages::constantBlocksStandOnceInAPageOfSeveralMaps()
{
    const QString page = SmallTodayPages().constLast().Text;
    QCOMPARE(page.count(QStringLiteral("<style")), 1);
    QCOMPARE(page.count(QStringLiteral("<script")), 1);
    QVERIFY(page.contains(TodayBlocks::style));
    QVERIFY(page.contains(TodayBlocks::script));
    QVERIFY(page.indexOf(TodayBlocks::script) < page.indexOf(QStringLiteral("</head>")));
    QCOMPARE(page.count(QStringLiteral("id=\"Shapes\"")), 1);
    QCOMPARE(page.count(QStringLiteral("id=\"Shapes6\"")), 1);
}

void tst_todaypages::nothingTypedGoesIntoStyleOrScript()
{
    int scripts = 0;
    const QList<TodayTestPage> pages = SmallTodayPages() + LargeTodayPages();
    for (const TodayTestPage& page : pages) {
        HtmlTokens tokens(page.Text);
        for (HtmlToken token; tokens.Next(token);) {
            if (token.content == HtmlContent::Style) {
                QCOMPARE(token.whole.In(page.Text), TodayBlocks::style);
            } else if (token.content == HtmlContent::Script) {
                QCOMPARE(token.whole.In(page.Text), TodayBlocks::script);
                ++scripts;
            }
            for (const HtmlAttribute& attribute : token.attributes) {
                const QStringView name = attribute.name.In(page.Text);
                QVERIFY2(name != u"style" && !name.startsWith(u"on"), qPrintable(page.Name));
            }
        }
    }
    QVERIFY(scripts > 0);
}

void tst_todaypages::scriptIsSmall()
{
    QVERIFY2(TodayBlocks::script.size() < 1600, qPrintable(QString::number(TodayBlocks::script.size())));
}

void tst_todaypages::pagesAreAsciiWhateverWasTyped()
{
    const QList<TodayTestPage> pages = LargeTodayPages();
    for (const TodayTestPage& page : pages) {
        for (const QChar character : page.Text) {
            QVERIFY2(character == u'\n' || (character >= u' ' && character <= u'~'), qPrintable(page.Name));
        }
    }
}

QTEST_GUILESS_MAIN(tst_todaypages)

#include "tst_todaypages.moc"
