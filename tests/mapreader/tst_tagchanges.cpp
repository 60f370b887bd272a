// A tag changed where it has to be, and nowhere else.

#include "mapreader/TagChanges.h"

#include <QTest>

namespace {

/** The tag with the attributes wished for, each as "name=value", or "-name" for one that shall go. */
QString Changed(const QString& tag, const QStringList& wishes)
{
    QList<AttributeWish> wished;
    for (const QString& wish : wishes) {
        const qsizetype equals = wish.indexOf(u'=');
        wished
            << (wish.startsWith(u'-')
                    ? AttributeWish{ wish.sliced(1), {} }
                    : AttributeWish{ wish.first(equals), QLatin1String("") + wish.sliced(equals + 1) });
    }
    // In a page it stands somewhere.
    const QString page = u"<p>\r\n" + tag + u"x>";
    const auto changes = ChangeTag(PageTag(page, { page.indexOf(u'<', 1), tag.size() }), wished);
    return changes ? Replaced(page, *changes).sliced(5).chopped(2) : QStringLiteral("cannot");
}

} // namespace

class tst_tagchanges : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void onlyWhatIsWishedForChanges_data();
    void onlyWhatIsWishedForChanges();
    void whatIsThereIsLeftAlone();
    void aValueIsReplacedAlone();
};

void tst_tagchanges::onlyWhatIsWishedForChanges_data()
{
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QStringList>("wishes");
    QTest::addColumn<QString>("changed");
    const auto row = [](const char* name, const char* tag, const QStringList& wishes, const char* changed) {
        QTest::newRow(name) << QString::fromUtf8(tag) << wishes << QString::fromUtf8(changed);
    };
    row("nothing", "<area>", {}, "<area>");
    row("value", "<area alt=\"a\" href=\"b\">", { "href=c" }, "<area alt=\"a\" href=\"c\">");
    row("single quotes stay", "<area href = 'b'>", { "href=it's \"c\"" }, "<area href = 'it&#39;s \"c\"'>");
    row("double quotes stay", "<area href=\"b\">", { "href=\"&\"" }, "<area href=\"&quot;&amp;&quot;\">");
    row("none are needed", "<area href=b alt=x>", { "href=c/d" }, "<area href=c/d alt=x>");
    row("some are needed", "<area href=b alt=x>", { "href=c d" }, "<area href=\"c d\" alt=x>");
    row("some are needed at a slash", "<area href=b>", { "href=c/" }, "<area href=\"c/\">");
    row("emptied", "<area href=b alt=x>", { "href=" }, "<area href=\"\" alt=x>");
    row("had none", "<area nohref alt='x'>", { "nohref=y" }, "<area nohref='y' alt='x'>");
    row("had only a sign", "<area alt= >", { "alt=y" }, "<area alt=y >");
    row("capitals stay", "<AREA HREF=\"b\">", { "href=c" }, "<AREA HREF=\"c\">");
    row("first of two", "<area href=a HREF=b>", { "href=c" }, "<area href=c HREF=b>");
    row("several", "<area href=a alt=b>", { "alt=c", "href=d" }, "<area href=d alt=c>");
    row("added", "<area href=\"a\">", { "alt=b" }, "<area href=\"a\" alt=\"b\">");
    row("added twice", "<area>", { "alt=b", "title=" }, "<area alt=\"b\" title=\"\">");
    row("added before a slash", "<area href='a' />", { "alt=b" }, "<area href='a' alt='b' />");
    row("added right before a slash", "<area href='a'/>", { "alt=b" }, "<area href='a' alt='b'/>");
    row("added without quotes", "<area href=a>", { "alt=b" }, "<area href=a alt=b>");
    row("added where some are needed", "<area href=a>", { "alt=b c" }, "<area href=a alt=\"b c\">");
    row("added without quotes at a slash", "<area href=a nohref/>", { "alt=b" },
        "<area href=a nohref alt=\"b\"/>");
    row("added in capitals", "<AREA HREF='a'>", { "alt=b" }, "<AREA HREF='a' ALT='b'>");
    row("added to a bare tag in capitals", "<AREA>", { "alt=b" }, "<AREA ALT=\"b\">");
    row("added on its line", "<area href='a'\r\n   alt='b'\r\n   />", { "title=c" },
        "<area href='a'\r\n   alt='b'\r\n   title='c'\r\n   />");
    row("added behind some on one line", "<area a='1' href='a'\n   alt='b'>", { "title=c" },
        "<area a='1' href='a'\n   alt='b' title='c'>");
    row("added behind what is changed", "<area href=a>", { "href=b c", "alt=d" },
        "<area href=\"b c\" alt=d>");
    row("added behind what goes", "<area href='a' alt='b'>", { "-alt", "title=c" },
        "<area href='a' title='c'>");
    row("added behind a bare sign", "<area alt= >", { "title=b" }, "<area alt=\"\" title=\"b\" >");
    row("added behind one that gets a value", "<area alt= >", { "alt=a", "title=b" },
        "<area alt=a title=\"b\" >");
    row("removed", "<area href=\"a\" alt=\"b\" title=\"c\">", { "-alt" }, "<area href=\"a\" title=\"c\">");
    row("removed at the end", "<area href=a alt=b>", { "-alt" }, "<area href=a>");
    row("removed before a slash", "<area href=a alt=b />", { "-alt" }, "<area href=a />");
    row("removed with one blank", "<area href=a  alt=b>", { "-alt" }, "<area href=a >");
    row("removed with its line end", "<area href=a\r\nalt=b\r\ntitle=c>", { "-alt" },
        "<area href=a\r\ntitle=c>");
    row("removed between two without blanks", "<area href=a alt=\"b\"title=c>", { "-alt" },
        "<area href=a title=c>");
    row("removed with its namesakes", "<area alt=a href=b ALT=c>", { "-alt" }, "<area href=b>");
    row("removed though it is not there", "<area href=b>", { "-alt" }, "<area href=b>");
    row("the only one", "<area alt=b>", { "-alt" }, "<area>");
    row("next to one that goes", "<area alt=b href=c>", { "-alt", "-href" }, "<area>");
    row("errors stay", "<area onclick=\"a\"; href=b>", { "href=c" }, "<area onclick=\"a\"; href=c>");
    row("references elsewhere stay", "<area href=?a&b alt=&eacute;>", { "href=d" },
        "<area href=d alt=&eacute;>");
    row("a sign would get another's value", "<area a b=\"1\" =c>", { "-b" }, "cannot");
    row("no name of an attribute", "<area>", { "a b=c" }, "cannot");
    row("code cuts the tag", "<area href=<?php $a->", { "alt=b" }, "cannot");
    row("code elsewhere in the tag", "<area coords='<?= $a ?>' alt=b>", { "alt=c" },
        "<area coords='<?= $a ?>' alt=c>");
}

void tst_tagchanges::onlyWhatIsWishedForChanges()
{
    QFETCH(const QString, tag);
    QFETCH(const QStringList, wishes);
    QTEST(Changed(tag, wishes), "changed");
}

void tst_tagchanges::whatIsThereIsLeftAlone()
{
    const QString tag = QStringLiteral("<area ALT = 'a &amp; &quot;b&quot;' href=?a&b nohref>");
    const auto changes = ChangeTag(
        PageTag(tag, { 0, tag.size() }), { { "alt", "a & \"b\"" }, { "href", "?a&b" }, { "nohref", "" } });
    QVERIFY(changes && changes->isEmpty());
}

void tst_tagchanges::aValueIsReplacedAlone()
{
    const QString tag = QStringLiteral("<area alt='a' href='b'>");
    const auto changes = ChangeTag(PageTag(tag, { 0, tag.size() }), { { "href", "cde" } });
    QVERIFY(changes && changes->size() == 1);
    QCOMPARE(changes->first().Place, (TextSpan{ tag.indexOf(u'b'), 1 }));
    QCOMPARE(changes->first().Text, QStringLiteral("cde"));
}

QTEST_GUILESS_MAIN(tst_tagchanges)
#include "tst_tagchanges.moc"
