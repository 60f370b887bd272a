#include "codegen/InsertPlace.h"

#include <QTest>

Q_DECLARE_METATYPE(std::optional<InsertRefusal>)

namespace {

/** A page with "|" at its caret, or two of them around its selection. */
struct Marked
{
    explicit Marked(const QString& text)
        : page(QString(text).remove(u'|'))
    {
        const qsizetype first = text.indexOf(u'|');
        const qsizetype second = text.indexOf(u'|', first + 1);
        selection = { first, second < 0 ? 0 : second - first - 1 };
    }

    QString page;
    HtmlSpan selection;
};

QString Applied(const QString& page, const QList<TextReplacement>& changes)
{
    QString text = page;
    for (auto change = changes.rbegin(); change != changes.rend(); ++change) {
        text.replace(change->Place.Start, change->Place.Length, change->Text);
    }
    return text;
}

QString
Inserted(const Marked& marked, NeededBlocks needed = {}, const QString& lineEnd = QStringLiteral("\n"))
{
    const InsertPlace place = FindInsertPlace(marked.page, marked.selection);
    return Applied(
        marked.page, InsertMap(marked.page, place, QStringLiteral("MAP\n"), needed, lineEnd).changes);
}

} // namespace

class tst_insertplace : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void mapGoesWhereAParagraphMayStand_data();
    void mapGoesWhereAParagraphMayStand();
    void mapIsRefusedWhereItWouldBeText_data();
    void mapIsRefusedWhereItWouldBeText();
    void blocksGoToTheEndOfTheHead_data();
    void blocksGoToTheEndOfTheHead();
    void blocksAreWrittenOnce();
    void olderBlockIsReplacedAloneAndOnlyOnce();
    void blocksOfOthersAreLeftAlone();
    void lineEndsAreThoseOfThePage();
    void selectionThatHoldsTheBlocksStays();
    void lineIsTheOneOnWhichTheMapBegins_data();
    void lineIsTheOneOnWhichTheMapBegins();
    void placeIsFoundInEveryTextAtEveryCaret();
};

void tst_insertplace::mapGoesWhereAParagraphMayStand_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const char* page, const char* expected) {
        QTest::newRow(name) << QString::fromLatin1(page) << QString::fromLatin1(expected);
    };
    row("empty page", "|", "MAP\n");
    row("between paragraphs", "<p>a</p>\n|\n<p>b</p>", "<p>a</p>\nMAP\n<p>b</p>");
    row("in text of the body", "<body>a|b</body>", "<body>a\nMAP\nb</body>");
    row("in a paragraph", "<body><p>a|b</p>\n<p>c</p>", "<body><p>ab</p>\nMAP\n<p>c</p>");
    row("in a paragraph without its end", "<p>a|b\n<p>c", "<p>ab\nMAP\n<p>c");
    row("in a paragraph that a list ends", "<p>a|b<ul><li>c</ul>", "<p>ab\nMAP\n<ul><li>c</ul>");
    row("in the last paragraph", "<p>a|b", "<p>ab\nMAP\n");
    row("in the last paragraph of a body", "<body><p>a|b\n</body>", "<body><p>ab\nMAP\n</body>");
    row("in marked text of a paragraph", "<p>a<b>b|c</b>d</p>e", "<p>a<b>bc</b>d</p>\nMAP\ne");
    row("in a heading", "<h1>a|b</h1>c", "<h1>ab</h1>\nMAP\nc");
    row("in a list item", "<ul><li>a|b</li></ul>", "<ul><li>a\nMAP\nb</li></ul>");
    row("between list items", "<ul><li>a</li>|<li>b</li></ul>c", "<ul><li>a</li><li>b</li></ul>\nMAP\nc");
    row("in a paragraph of a list item", "<ul><li><p>a|b</ul>c", "<ul><li><p>ab\nMAP\n</ul>c");
    row("in a table's cell", "<table><tr><td>|a</td></tr></table>",
        "<table><tr><td>\nMAP\na</td></tr></table>");
    row("between a table's rows", "<table><tr><td>a</td></tr>|<tr></tr></table>b",
        "<table><tr><td>a</td></tr><tr></tr></table>\nMAP\nb");
    row("in a division of a division", "<div><div>a|</div></div>", "<div><div>a\nMAP\n</div></div>");
    row("in a division of marked text", "<b><div>a|b</div></b>c", "<b><div>ab</div></b>\nMAP\nc");
    row("in another map", "<map name=m>|<area></map>b", "<map name=m><area></map>\nMAP\nb");
    row("in a drawing", "<svg><g>|<path/></g></svg>b", "<svg><g><path/></g></svg>\nMAP\nb");
    row("in preformatted text", "<pre>a\n|b</pre>c", "<pre>a\nb</pre>\nMAP\nc");
    row("in the head", "<html><head>\n|<title>a</title>\n</head>\n<body>\n<p>b</p></body></html>",
        "<html><head>\n<title>a</title>\n</head>\n<body>\nMAP\n<p>b</p></body></html>");
    row("in a head whose end is not written", "<title>a</title>|<p>b", "<title>a</title>\nMAP\n<p>b");
    row("in front of everything", "|<!DOCTYPE html><title>a</title>b",
        "<!DOCTYPE html><title>a</title>\nMAP\nb");
    row("between head and body", "<head></head>|<body>b</body>", "<head></head><body>\nMAP\nb</body>");
    row("behind the body", "<body>a</body></html>\n|", "<body>a\nMAP\n</body></html>\n");
    row("at the end of a body", "<body>a\n|</body>", "<body>a\nMAP\n</body>");
    row("behind a comment", "<!--a-->|<p>b", "<!--a-->\nMAP\n<p>b");
    row("behind a script", "<p>a</p><script>b</script>|c", "<p>a</p><script>b</script>\nMAP\nc");
    row("in an anchor without an address", "<p><a name=x>a|b</a></p>c", "<p><a name=x>ab</a></p>\nMAP\nc");
    row("in front of a title that never ends", "|<title>a", "MAP\n<title>a");
    row("in a paragraph before a script that never ends", "<p>a|b<script>c", "<p>ab\nMAP\n<script>c");
    row("in a paragraph before a comment that never ends", "<p>a|b<!-- c", "<p>ab\nMAP\n<!-- c");
    row("in a paragraph before an end tag that is only begun", "<p>a|b</", "<p>ab\nMAP\n</");
    row("selection of whole paragraphs", "<p>a</p>\n|<p>b</p>\n|<p>c</p>", "<p>a</p>\nMAP\n<p>c</p>");
    row("selection of text in the body", "a|b|c", "a\nMAP\nc");
    row("selection across paragraphs", "<p>a|b</p><p>c|d</p>e", "<p>ab</p><p>cd</p>\nMAP\ne");
    row("selection that begins in a paragraph", "<p>a|b</p>|c", "<p>ab</p>\nMAP\nc");
    row("selection from one division to another", "<div>|a</div><div>b|</div>",
        "<div>a</div><div>b\nMAP\n</div>");
}

void tst_insertplace::mapGoesWhereAParagraphMayStand()
{
    QFETCH(const QString, page);
    QFETCH(const QString, expected);
    const Marked marked(page);
    QVERIFY(!FindInsertPlace(marked.page, marked.selection).refusal);
    QCOMPARE(Inserted(marked), expected);
}

void tst_insertplace::mapIsRefusedWhereItWouldBeText_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<std::optional<InsertRefusal>>("refusal");
    const auto row = [](const char* name, const char* page, std::optional<InsertRefusal> refusal) {
        QTest::newRow(name) << QString::fromLatin1(page) << refusal;
    };
    row("in a tag's name", "<b|r>", InsertRefusal::InTag);
    row("in a value", "<img src=\"a|b\">", InsertRefusal::InTag);
    row("in an end tag", "<p>a</|p>", InsertRefusal::InTag);
    row("in a tag that never ends", "<p title=\"a|b", InsertRefusal::InTag);
    row("at the end of one", "<p title=\"ab|", InsertRefusal::InTag);
    row("behind an end tag that is only begun", "<p>a</|", InsertRefusal::InTag);
    row("in the DOCTYPE", "<!DOC|TYPE html>", InsertRefusal::InTag);
    row("in a comment", "a<!-- b| -->", InsertRefusal::InComment);
    row("at the end of one that never ends", "a<!-- b|", InsertRefusal::InComment);
    row("in a script", "<script>a|b</script>", InsertRefusal::InScript);
    row("at the start of a script", "<script>|a</script>", InsertRefusal::InScript);
    row("in an empty script", "<script>|</script>", InsertRefusal::InScript);
    row("at the end of a script", "<script>a|</script>", InsertRefusal::InScript);
    row("in a style", "<style>a|b</style>", InsertRefusal::InScript);
    row("in the title", "<title>a|b</title>", InsertRefusal::InText);
    row("in a text field", "<textarea>|</textarea>", InsertRefusal::InText);
    row("in a link", "<a href=x>a|b</a>", InsertRefusal::InLink);
    row("in a paragraph of a link", "<a href=x><p>a|b</p></a>", InsertRefusal::InLink);
    row("in a link of a paragraph", "<p><a href=x><b>a|b</b></a></p>", InsertRefusal::InLink);
    row("in front of a tag", "a|<br>", std::nullopt);
    row("behind a tag", "a<br>|", std::nullopt);
    row("behind a link", "<a href=x>a</a>|", std::nullopt);
    row("in front of a comment", "|<!-- -->", std::nullopt);
}

void tst_insertplace::mapIsRefusedWhereItWouldBeText()
{
    QFETCH(const QString, page);
    QFETCH(const std::optional<InsertRefusal>, refusal);
    const Marked marked(page);
    QCOMPARE(FindInsertPlace(marked.page, marked.selection).refusal, refusal);
}

void tst_insertplace::blocksGoToTheEndOfTheHead_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("before"); ///< what stands in front of the style
    QTest::addColumn<bool>("hasHead");
    const auto row = [](const char* name, const char* page, const char* before, bool hasHead) {
        QTest::newRow(name) << QString::fromLatin1(page) << QString::fromLatin1(before) << hasHead;
    };
    row("written head", "<html><head><title>a</title>\n</head><body>|</body>",
        "<html><head><title>a</title>\n", true);
    row("head without its end", "<head><title>a</title><body>|", "<head><title>a</title>\n", true);
    row("title alone", "<title>a</title>\n<p>b|", "<title>a</title>\n", true);
    row("DOCTYPE alone", "<!DOCTYPE html>\n<p>b|", "<!DOCTYPE html>\n", true);
    row("style and script in the head", "<head><style>a</style><script>b</script></head>|",
        "<head><style>a</style><script>b</script>\n", true);
    row("markup for browsers without script", "<head><noscript><link></noscript></head>|",
        "<head><noscript><link></noscript>\n", true);
    row("fragment", "<p>a</p>|", "", false);
    row("comment in front of a fragment", "<!-- a --><p>b</p>|", "", false);
    row("nothing", "|", "", false);
}

void tst_insertplace::blocksGoToTheEndOfTheHead()
{
    QFETCH(const QString, page);
    QFETCH(const QString, before);
    QFETCH(const bool, hasHead);
    const Marked marked(page);
    const QString text = Inserted(marked, { .style = true, .script = true });
    QCOMPARE(text.left(text.indexOf(QStringLiteral("<style data-imap"))), before);
    QVERIFY(text.indexOf(QStringLiteral("<script data-imap")) > 0);
    QVERIFY(text.indexOf(QStringLiteral("MAP")) > text.indexOf(QStringLiteral("<script data-imap")));
    QCOMPARE(FindInsertPlace(marked.page, marked.selection).hasHead, hasHead);
}

void tst_insertplace::blocksAreWrittenOnce()
{
    QString page = QStringLiteral("<head><title>a</title></head>\n<body>\n</body>");
    for (int i = 0; i < 3; ++i) {
        const qsizetype caret = page.indexOf(QStringLiteral("</body>"));
        const InsertPlace place = FindInsertPlace(page, { caret, 0 });
        page = Applied(
            page,
            InsertMap(page, place, QStringLiteral("MAP\n"), { true, i > 0 }, QStringLiteral("\n")).changes);
        QCOMPARE(page.count(QStringLiteral("<style")), 1);
        QCOMPARE(page.count(QStringLiteral("<script")), i > 0 ? 1 : 0);
        QCOMPARE(page.count(QStringLiteral("MAP")), i + 1);
    }
}

void tst_insertplace::olderBlockIsReplacedAloneAndOnlyOnce()
{
    const Marked marked(
        QStringLiteral("<head><style>mine</style><style data-imap=\"0\">old</style><b></b>|"));
    const QString text = Inserted(marked, { .style = true, .script = false });
    QCOMPARE(
        text.left(text.indexOf(QStringLiteral("<style data-imap=\"1\">"))),
        QStringLiteral("<head><style>mine</style>"));
    QVERIFY(!text.contains(QStringLiteral("old")));
    QVERIFY(text.endsWith(QStringLiteral("</style><b></b>\nMAP\n")));
    QCOMPARE(Inserted(Marked(text + u'|'), { .style = true, .script = false }), QString(text + u"MAP\n"));
}

void tst_insertplace::blocksOfOthersAreLeftAlone()
{
    const QString page =
        QStringLiteral("<head><style data-imap=\"1\">changed by hand</style><script>x</script></head>");
    const QString text = Inserted(Marked(page + u'|'), { .style = true, .script = false });
    QCOMPARE(text, QString(page + u"\nMAP\n"));
}

void tst_insertplace::lineEndsAreThoseOfThePage()
{
    const Marked marked(QStringLiteral("<title>a</title>\r\n<p>b</p>\r\n|<p>c</p>"));
    const QString text = Inserted(marked, { .style = true, .script = true }, QStringLiteral("\r\n"));
    QCOMPARE(text.count(u'\n'), text.count(QStringLiteral("\r\n")));
    QVERIFY(text.contains(QStringLiteral("<p>b</p>\r\nMAP\r\n<p>c</p>")));
}

void tst_insertplace::selectionThatHoldsTheBlocksStays()
{
    const QString page = Inserted(Marked(QStringLiteral("<p>a</p>|")), { .style = true, .script = true });
    const InsertPlace place = FindInsertPlace(page, { 0, page.size() });
    QCOMPARE(place.map, (HtmlSpan{ page.size(), 0 }));
}

void tst_insertplace::lineIsTheOneOnWhichTheMapBegins_data()
{
    QTest::addColumn<QString>("page");
    QTest::newRow("empty page") << "|";
    QTest::newRow("fragment") << "<p>a</p>\n<p>b|";
    QTest::newRow("page") << "<title>a</title>\n<body>\n<p>b</p>\n|\n</body>";
    QTest::newRow("text of the body") << "<body>\nb|c</body>";
    QTest::newRow("head without content") << "<!DOCTYPE html>|";
    QTest::newRow("older block above") << "<head><style data-imap=0>\n\n\n</style></head>\n<body>\n|";
    QTest::newRow("older block below") << "<title>a</title>\n|<p>b<style data-imap=0>\n</style>";
    QTest::newRow("selection") << "<title>a</title>\n|<p>b\n<p>c\n|d";
}

void tst_insertplace::lineIsTheOneOnWhichTheMapBegins()
{
    QFETCH(const QString, page);
    const Marked marked(page);
    const InsertPlace place = FindInsertPlace(marked.page, marked.selection);
    for (const NeededBlocks needed : { NeededBlocks(), NeededBlocks{ true, true } }) {
        const MapInsertion insertion =
            InsertMap(marked.page, place, QStringLiteral("MAP\n"), needed, QStringLiteral("\r\n"));
        const QStringList lines = Applied(marked.page, insertion.changes).split(u'\n');
        QCOMPARE(lines.value(insertion.line - 1).trimmed(), QStringLiteral("MAP"));
    }
}

void tst_insertplace::placeIsFoundInEveryTextAtEveryCaret()
{
    const QString page =
        QStringLiteral("<!DOCTYPE html><html><head><title>a&amp;</title><style>b{}</style></head>"
                       "<body><p>c<a href=\"d\">e</a><table><tr><td>f</table><!-- g --><svg><a/>"
                       "</svg></p></li><ul><li>h</body></html> i <b");
    constexpr qsizetype step = 5;
    for (qsizetype length = 0; length <= page.size(); length += step) {
        const QStringView text = QStringView(page).left(length);
        for (qsizetype caret = 0; caret <= length; ++caret) {
            const InsertPlace place = FindInsertPlace(text, { caret, 0 });
            QVERIFY(place.head >= 0 && place.head <= place.map.offset);
            QVERIFY(place.map.offset <= length && place.map.length == 0);
        }
    }
}

QTEST_GUILESS_MAIN(tst_insertplace)

#include "tst_insertplace.moc"
