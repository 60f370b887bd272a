#include "app/rules/Completions.h"

#include "html/HtmlAttributes.h"
#include "html/HtmlElements.h"

#include <QRandomGenerator>
#include <QTest>

/** Pages are written with "|" at the caret. */
class tst_completions : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void namesAreOffered_data();
    void namesAreOffered();
    void allElementsAreOffered();
    void endTagsGoWithStartTags_data();
    void endTagsGoWithStartTags();
    void filesAreAskedForByFolder();
    void whatIsOfferedBeginsAsIsWritten();
};

static CompletionSources Sources()
{
    return { [] {
                return QStringList({ QStringLiteral("harbour"), QStringLiteral("a&\"b") });
            },
             [](const QString& folder) {
                 return folder.isEmpty()
                            ? QStringList({ QStringLiteral("pictures/"), QStringLiteral("a b.html") })
                        : folder == u"pictures/" ? QStringList({ QStringLiteral(u"gr\u00FC\u00DFe.jpg") })
                                                 : QStringList();
             } };
}

static Completions At(QString page)
{
    const qsizetype caret = page.indexOf(u'|');
    page.remove(u'|');
    return CompletionsAt(page, {}, caret, Sources());
}

void tst_completions::namesAreOffered_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("begun");
    QTest::addColumn<QString>("texts");
    const auto row = [](const char* page, const char* begun, const char* texts) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(begun)
                            << QString::fromLatin1(texts);
    };
    row("|", "", "");
    row("text|", "", "");
    row("<blo|", "blo", "blockquote");
    row("<BLO|ck>", "BLO", "blockquote");
    row("<ul><LI><b>a</|", "", "b> LI> ul>");
    row("<ul><li></l|", "l", "li>");
    row("<ul><li></|>", "", "li ul");
    row("<a hr|", "hr", "href=\"|\" hreflang=\"|\"");
    row("<a href='x' hr|", "hr", "hreflang=\"|\"");
    row("<img isma|", "isma", "ismap");
    row("<br cl|>", "cl", "class=\"|\" clear=\"|\"");
    row("<a target=\"|\"", "", "_blank _parent _self _top");
    row("<a target='_b|'", "_b", "_blank");
    row("<br clear=|", "", "\"all\" \"left\" \"none\" \"right\"");
    row("<br clear=l|", "l", "\"left\"");
    row("<input type=\"ra|\">", "ra", "radio range");
    row("<img usemap=\"|\">", "", "#harbour #a&amp;&quot;b");
    row("<img usemap='#h|'>", "#h", "#harbour");
    row("<img src=\"|\">", "", "pictures/ a%20b.html");
    row("<img src=\"pictures/|\">", "pictures/", "pictures/gr%C3%BC%C3%9Fe.jpg");
    row("<a href=\"http://site/|\">", "", "");
    row("<p title=\"|\">", "", "");
    row("<!-- <b|", "", "");
    row("<script><b|", "", "");
    row("</b |", "", "");
    row("<a href='x'|", "", "");
}

void tst_completions::namesAreOffered()
{
    QFETCH(const QString, page);
    QFETCH(const QString, begun);
    QFETCH(const QString, texts);
    const Completions offered = At(page);
    QCOMPARE(offered.Texts.join(u' '), texts);
    if (!texts.isEmpty()) {
        QCOMPARE(offered.Begun.In(QString(page).remove(u'|')).toString(), begun);
    }
}

void tst_completions::allElementsAreOffered()
{
    QCOMPARE(At(QStringLiteral("<p><|")).Texts.size(), qsizetype(HtmlElements().size()));
    for (const QString& name : At(QStringLiteral("<|")).Texts) {
        QVERIFY(FindElement(name) != nullptr);
        QVERIFY(AttributesOf(name).contains(QStringLiteral("class")));
    }
}

void tst_completions::endTagsGoWithStartTags_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("tag");
    const auto row = [](const char* page, const char* tag) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(tag);
    };
    row("<div|", "</div>");
    row("<LI class=\"a\"|", "</LI>");
    row("<script|", "</script>");
    row("<div|</div>", "");
    row("<div|</p>", "</div>");
    row("<br|", "");
    row("<img src=x|", "");
    row("<svg><path d='x'/|", "");
    row("</div|", "");
    row("<a title=\"x|", "");
    row("<!-- <b|", "");
    row("a |", "");
    row("<script>if (a<b|", "");
    row("<plaintext|", "");
}

void tst_completions::endTagsGoWithStartTags()
{
    QFETCH(QString, page);
    QFETCH(const QString, tag);
    const qsizetype caret = page.indexOf(u'|');
    page.remove(u'|');
    QCOMPARE(EndTagBehind(page, {}, caret), tag);
}

void tst_completions::filesAreAskedForByFolder()
{
    QStringList asked;
    const CompletionSources sources{ {}, [&asked](const QString& folder) {
                                        asked << folder;
                                        return QStringList();
                                    } };
    const QString page = QStringLiteral("<img src=\"a%20b/../c");
    (void)CompletionsAt(page, {}, page.size(), sources);
    (void)CompletionsAt(page, {}, 4, sources);
    QCOMPARE(asked, QStringList(QStringLiteral("a b/../")));
}

void tst_completions::whatIsOfferedBeginsAsIsWritten()
{
    const QStringList pieces = { QStringLiteral("<"),   QStringLiteral("</"), QStringLiteral("a"),
                                 QStringLiteral(" "),   QStringLiteral("="),  QStringLiteral("\""),
                                 QStringLiteral("src"), QStringLiteral(">"),  QStringLiteral("<img "),
                                 QStringLiteral("'"),   QStringLiteral("/"),  QStringLiteral("\n") };
    QRandomGenerator random(2);
    for (int round = 0; round < 2000; ++round) {
        QString page;
        for (int i = 0; i < 10; ++i) {
            page += pieces[random.bounded(int(pieces.size()))];
        }
        const qsizetype caret = random.bounded(int(page.size()) + 1);
        const Completions offered = CompletionsAt(page, {}, caret, Sources());
        if (!offered.Texts.isEmpty()) {
            QCOMPARE(offered.Begun.End(), caret);
            for (QString text : offered.Texts) {
                text.remove(u'"');
                QVERIFY(text.startsWith(offered.Begun.In(page), Qt::CaseInsensitive));
            }
        }
        (void)EndTagBehind(page, {}, caret);
    }
}

QTEST_GUILESS_MAIN(tst_completions)
#include "tst_completions.moc"
