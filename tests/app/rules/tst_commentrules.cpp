#include "app/rules/CommentRules.h"

#include "html/HtmlTokens.h"

#include <QRandomGenerator>
#include <QTest>

/** Pages are written with "|" at the caret, or with "[" and "]" around the selection, and "~" for a line end.
 */
class tst_commentrules : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void commentsArePutAndTakenOff_data();
    void commentsArePutAndTakenOff();
    void takingOffGivesBackWhatWas_data();
    void takingOffGivesBackWhatWas();
    void anythingBecomesOneCommentAndComesBack();
};

static TextSpan SelectionIn(QString& page)
{
    page.replace(u'~', QStringLiteral("\r\n"));
    const qsizetype caret = page.indexOf(u'|');
    if (caret >= 0) {
        page.remove(caret, 1);
        return { caret, 0 };
    }
    const qsizetype start = page.indexOf(u'[');
    page.remove(start, 1);
    const qsizetype end = page.indexOf(u']');
    page.remove(end, 1);
    return { start, end - start };
}

static QString Changed(QString page, const CommentChange& change)
{
    for (auto one = change.Replacements.crbegin(); one != change.Replacements.crend(); ++one) {
        page.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    return page;
}

static QString Marked(QString page, const std::optional<TextSpan>& selection)
{
    if (selection && selection->Length > 0) {
        page.insert(selection->Start + selection->Length, u']');
        page.insert(selection->Start, u'[');
    } else if (selection) {
        page.insert(selection->Start, u'|');
    }
    return page.replace(QStringLiteral("\r\n"), QStringLiteral("~"));
}

void tst_commentrules::commentsArePutAndTakenOff_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("changed");
    const auto row = [](const char* name, const char* page, const char* changed) {
        QTest::newRow(name) << QString::fromLatin1(page) << QString::fromLatin1(changed);
    };
    row("line", "a~ <p>t|ext</p> ~b", "a~ <!-- <p>text</p> --> ~b");
    row("blank line", "a~|~b", "a~<!-- | -->~b");
    row("selection", "<p>[text]</p>", "<p>[<!-- text -->]</p>");
    row("selection with line ends", "[<p>~</p>~]x", "[<!-- <p>~</p> -->]~x");
    row("off, caret within", "a <!-- te|xt --> b", "a text b");
    row("off, selected", "a [<!-- text -->] b", "a [text] b");
    row("off, line", "  <!-- |text -->~", "  text~");
    row("off, without blanks", "<!--te|xt-->", "text");
    row("off, empty", "<!--|-->", "");
    row("cut tag", "<p cla[ss=x>te]xt", "[<!-- <p class=x>te -->]xt");
    row("cut tag at the end", "te[xt<p cl]ass=x>", "te[<!-- xt<p class=x> -->]");
    row("comment in it", "[a<!-- b -->c]", "[<!-- a<!-&#45; b -&#45;>c -->]");
    row("hyphens off", "[<!-- a<!-&#45; b -&#45;>c -->]", "[a<!-- b -->c]");
    row("hyphens in a row", "[a----b]", "[<!-- a-&#45;&#45;&#45;b -->]");
    row("references stay", "[<!-- a&#38;lt; -->]", "[a&#38;lt;]");
    row("instruction", "<p><?p|hp x ?>", "<!-- <p><?php x ?> -->");
    row("text of an element", "<textarea>a[b</textarea>c]", "[<!-- <textarea>ab</textarea>c -->]");
    row("title", "<title>a|b</title>", "<!-- <title>ab</title> -->");
    row("script line", "<script>~ f(|);~g();~</script>", "<script>~ // f();~g();~</script>");
    row("script lines", "<script>~[f();~~  g();~]</script>", "<script>~[// f();~~  // g();]~</script>");
    row("script off", "<script>~ // f(|);~</script>", "<script>~ f();~</script>");
    row("script some", "<script>~[// f();~g();]~</script>", "<script>~[// // f();~// g();]~</script>");
    row("script from its middle", "<script>~a[b]c~</script>", "<script>~[// ab]c~</script>");
    row("script as a whole", "[<script>i--;</script>]", "[<!-- <script>i-&#45;;</script> -->]");
    row("style line", "<style>~ p { }|~</style>", "<style>~ /* p { } */~</style>");
    row("style off", "<style>~ /* p |{ } */~</style>", "<style>~ p { }~</style>");
    row("style with a comment", "<style>[a/*b*/c]</style>", "<style>[/* a/*b*\\/c */]</style>");
    row("style off with a comment", "<style>[/* a/*b*\\/c */]</style>", "<style>[a/*b*/c]</style>");
    row("style with a string", "<style>a{b:\"/*\"}[c]/**/</style>",
        "<style>a{b:\"/*\"}[/* c */]/**/</style>");
    row("style, cut comment", "<style>[a/*b]c*/</style>", "<style>[/* a/*bc*\\/ */]</style>");
    row("tag that never ends", "x[y<b]", "x[<!-- y<b -->]");
}

void tst_commentrules::commentsArePutAndTakenOff()
{
    QFETCH(QString, page);
    QFETCH(const QString, changed);
    const TextSpan selection = SelectionIn(page);
    const CommentChange change = ToggleComment(page, selection);
    QCOMPARE(Marked(Changed(page, change), change.Selection), changed);
}

void tst_commentrules::takingOffGivesBackWhatWas_data()
{
    QTest::addColumn<QString>("page");
    for (const char* const page : { "[a--b]", "[a&#45;b]", "[&#38;#45;--]", "[---]", "[<!-- a --><!-- b -->]",
                                    "[--!>x]", "[->]", "<style>[a*/b*\\/c*\\\\/]</style>", "[a~~b -~- c]" }) {
        QTest::newRow(page) << QString::fromLatin1(page);
    }
}

void tst_commentrules::takingOffGivesBackWhatWas()
{
    QFETCH(QString, page);
    const TextSpan selection = SelectionIn(page);
    const CommentChange on = ToggleComment(page, selection);
    const QString commented = Changed(page, on);
    QVERIFY(commented != page && on.Selection);
    const CommentChange off = ToggleComment(commented, *on.Selection);
    QCOMPARE(Changed(commented, off), page);
    QVERIFY(off.Selection && *off.Selection == selection);
}

/** Whatever is selected in whatever page, it is in a comment afterwards, and the same as before when that
 * goes. */
void tst_commentrules::anythingBecomesOneCommentAndComesBack()
{
    const QStringList pieces = {
        QStringLiteral("<p>"),  QStringLiteral("--"),      QStringLiteral("<!--"),
        QStringLiteral("-->"),  QStringLiteral("\r\n"),    QStringLiteral("&#45;"),
        QStringLiteral("text"), QStringLiteral("<b x=>"),  QStringLiteral("</b>"),
        QStringLiteral(" "),    QStringLiteral("-"),       QStringLiteral(">"),
        QStringLiteral("<"),    QStringLiteral("<title>"), QStringLiteral("</title>")
    };
    QRandomGenerator random(7);
    for (int round = 0; round < 5'000; ++round) {
        QString page;
        for (int i = 0; i < 12; ++i) {
            page += pieces[random.bounded(int(pieces.size()))];
        }
        const qsizetype start = random.bounded(int(page.size()));
        const qsizetype length = 1 + random.bounded(int(page.size() - start));
        const CommentChange on = ToggleComment(page, { start, length });
        const QString commented = Changed(page, on);
        if (commented.size() < page.size() || !on.Selection || on.Selection->Length == 0) {
            continue; // there was a comment, or nothing but blanks
        }
        HtmlTokens tokens(commented);
        HtmlToken token;
        while (tokens.Next(token) && token.whole.offset < on.Selection->Start) {
        }
        const HtmlSpan marked{ on.Selection->Start, on.Selection->Length };
        QVERIFY2(token.whole == marked, qUtf8Printable(page + u"\n--\n" + commented));
        const CommentChange off = ToggleComment(commented, *on.Selection);
        QCOMPARE(Changed(commented, off), page);
    }
}

QTEST_GUILESS_MAIN(tst_commentrules)
#include "tst_commentrules.moc"
