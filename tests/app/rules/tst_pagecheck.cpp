#include "app/rules/PageCheck.h"

#include "app/rules/FileReferences.h"
#include "html/HtmlElements.h"
#include "taglib/TagCatalogue.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

class tst_pagecheck : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void problemsAreFound_data();
    void problemsAreFound();
    void problemsAreToldInOrderWithTheirLines();
    void addressesMeanFiles_data();
    void addressesMeanFiles();
    void missingFilesAreTold();
    void eachFileIsLookedForOnce();
    void addressesBelowABaseAreNotLookedFor();
    void pagesThatTheProgramWritesHaveKnownAndClosedTags();
    void tagsOfTheTreeAreKnown();
    void thereIsAnEndToWhatIsTold();
    void placesLieInThePage();
    void largePageIsGoneOverOnce();
};

static QString Told(const PageProblems& problems)
{
    QStringList texts;
    for (const PageProblem& problem : problems.List) {
        texts << problem.Text;
    }
    return texts.join(u'|');
}

void tst_pagecheck::problemsAreFound_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("told");
    const auto row = [](const char* page, const char* told) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(told);
    };
    row("", "");
    row("<!DOCTYPE html><html><head><title>a</title><body><p>b<ul><li>c</ul>", "");
    row("<foo>a</foo>", "The tag <foo> is unknown");
    row("<FONT><MARQUEE>a</MARQUEE></FONT><my-part></my-part>", "");
    row("<svg><g><path d='x'/><foreignObject><p>a</p></foreignObject></g></svg>", "");
    row("<div><b>a</div>", "<b> is not closed");
    row("<div>a", "<div> is not closed");
    row("a</b>", "</b> closes nothing that is open");
    row("a<b", "The tag <b does not end");
    row("a<!-- b", "The comment does not end");
    row("<p id=a><p id='a'><p id=A>", "The id \"a\" is there already");
    row("<p class=a class=b>", "The attribute class is there twice");
    row("<map name=m></map><img usemap='#m'>", "");
    row("<map name=m></map><map name=m></map><img usemap='#m'>", "There is a map \"m\" already");
    row("<img usemap='#m'>", "There is no map \"m\"");
    row("<img usemap='#m'><map name=M id=m></map>", "No picture uses the map \"M\"");
    row("<img usemap='other.html#m'>", "");
    row("<map name=m></map>", "No picture uses the map \"m\"");
    row("<map></map>", "The map has no name");
    row("<map name='a&amp;b'></map><img usemap='#a&b'>", "");
    row("<img usemap=#m><map name=m><area href=x><area nohref><area href=y alt='to y'></map>",
        "The area has no text (alt)");
    row("<img usemap=#m><map name=m><area href=x alt=' '></map>", "The area has no text (alt)");
    row("<script>if (a<b) '<foo>'</script><!-- <foo> --><textarea><foo></textarea>", "");
}

void tst_pagecheck::problemsAreFound()
{
    QFETCH(const QString, page);
    QFETCH(const QString, told);
    QCOMPARE(Told(CheckPage(page)), told);
}

void tst_pagecheck::problemsAreToldInOrderWithTheirLines()
{
    const PageProblems problems =
        CheckPage(QStringLiteral("<div>\r\n<map name=m></map>\r\n\r\n</i><foo></foo>\r\n<img usemap=#x>"));
    QStringList lines;
    for (const PageProblem& problem : problems.List) {
        lines << QString::number(problem.Line) + u' ' + problem.Text;
    }
    const QStringList expected = { QStringLiteral("1 <div> is not closed"),
                                   QStringLiteral("2 No picture uses the map \"m\""),
                                   QStringLiteral("4 </i> closes nothing that is open"),
                                   QStringLiteral("4 The tag <foo> is unknown"),
                                   QStringLiteral("5 There is no map \"x\"") };
    QCOMPARE(lines, expected);
    QVERIFY(!problems.AreMore);
}

void tst_pagecheck::addressesMeanFiles_data()
{
    QTest::addColumn<QString>("address");
    QTest::addColumn<QString>("file");
    const auto row = [](const char* address, const char* file) {
        QTest::newRow(address) << QString::fromLatin1(address) << QString::fromLatin1(file);
    };
    row("", "");
    row("a.jpg", "a.jpg");
    row(" b/a%20b.jpg?x#y ", "b/a b.jpg");
    row("..\\a.jpg", "../a.jpg");
    row("#top", "");
    row("/a.jpg", "");
    row("//site/a.jpg", "");
    row("http://site/a.jpg", "");
    row("mailto:me@site", "");
    row("javascript:go('a.jpg')", "");
    row("C:\\a.jpg", "");
    row("{{picture}}", "");
    row("<?php echo 1 ?>", "");
}

void tst_pagecheck::addressesMeanFiles()
{
    QFETCH(const QString, address);
    QFETCH(const QString, file);
    QCOMPARE(FileOfAddress(address), file);
}

void tst_pagecheck::missingFilesAreTold()
{
    const QString page = QStringLiteral(
        "<body background=bg.gif><img src='a.jpg'><a href='b.html#x'>b</a><a href='there.html?q'>c</a>"
        "<script src=d.js></script><form action=e.cgi></form></body>");
    const PageProblems problems = CheckPage(page, [](const QString& path) { return path == u"there.html"; });
    QCOMPARE(
        Told(problems), QStringLiteral("The file \"bg.gif\" is missing|The file \"a.jpg\" is missing|"
                                       "The file \"b.html\" is missing|The file \"d.js\" is missing"));
    QCOMPARE(Told(CheckPage(page)), QString());
}

void tst_pagecheck::eachFileIsLookedForOnce()
{
    int lookedFor = 0;
    (void)CheckPage(QStringLiteral("<img src=a><img src=a><img src=b>"), [&lookedFor](const QString&) {
        ++lookedFor;
        return true;
    });
    QCOMPARE(lookedFor, 2);
}

void tst_pagecheck::addressesBelowABaseAreNotLookedFor()
{
    const QString page = QStringLiteral("<base href='http://site/'><img src=a>");
    QCOMPARE(Told(CheckPage(page, [](const QString&) { return false; })), QString());
}

void tst_pagecheck::pagesThatTheProgramWritesHaveKnownAndClosedTags()
{
    const QDir folder(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../../codegen/data"));
    const QStringList names = folder.entryList({ QStringLiteral("*plain.html") });
    QVERIFY(names.size() > 10);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QString told = Told(CheckPage(QString::fromLatin1(file.readAll())));
        const QRegularExpression ofTags(QStringLiteral("unknown|closed|closes|end"));
        QVERIFY2(!ofTags.match(told).hasMatch(), qUtf8Printable(name + u": " + told));
    }
}

void tst_pagecheck::tagsOfTheTreeAreKnown()
{
    const QRegularExpression tag(QStringLiteral("</?([A-Za-z0-9]+)"));
    for (const TagNode& node : TagNodes()) {
        for (const std::string_view text : { node.Before, node.After }) {
            auto matches = tag.globalMatch(QString::fromLatin1(text.data(), qsizetype(text.size())));
            while (matches.hasNext()) {
                const QString name = matches.next().captured(1);
                QVERIFY2(FindElement(name) != nullptr, qUtf8Printable(name));
            }
        }
    }
}

void tst_pagecheck::thereIsAnEndToWhatIsTold()
{
    const PageProblems problems = CheckPage(QStringLiteral("</b>").repeated(100'000));
    QCOMPARE(problems.List.size(), PageProblems::most);
    QVERIFY(problems.AreMore);
}

void tst_pagecheck::placesLieInThePage()
{
    const QStringList pieces = { QStringLiteral("<p>"),     QStringLiteral("</b>"),
                                 QStringLiteral("<b id=a"), QStringLiteral("<map name=a>"),
                                 QStringLiteral("\r\n"),    QStringLiteral("<!--"),
                                 QStringLiteral("<svg>"),   QStringLiteral("<foo/>"),
                                 QStringLiteral("<"),       QStringLiteral("<area href="),
                                 QStringLiteral("'"),       QStringLiteral(">") };
    QRandomGenerator random(11);
    for (int round = 0; round < 2000; ++round) {
        QString page;
        for (int i = 0; i < 20; ++i) {
            page += pieces[random.bounded(int(pieces.size()))];
        }
        qsizetype last = 0;
        const PageProblems problems = CheckPage(page, [](const QString&) { return false; });
        for (const PageProblem& problem : problems.List) {
            QVERIFY(problem.Place.offset >= last && problem.Place.End() <= page.size());
            QCOMPARE(problem.Line, int(QStringView(page).first(problem.Place.offset).count(u'\n')) + 1);
            last = problem.Place.offset;
        }
    }
}

void tst_pagecheck::largePageIsGoneOverOnce()
{
    // How its cost grows with its length is a row of the benchmark.
    const QString page =
        QStringLiteral("<div class=\"a\"><p id=x>Some text <a href=\"b.html\">b</a>\r\n<br></div>\r\n")
            .repeated(15'000);
    int looks = 0;
    const PageProblems problems = CheckPage(page, [&looks](const QString&) {
        ++looks;
        return true;
    });
    QCOMPARE(looks, 1);
    QCOMPARE(problems.List.size(), PageProblems::most);
    QVERIFY(problems.AreMore);
}

QTEST_GUILESS_MAIN(tst_pagecheck)
#include "tst_pagecheck.moc"
