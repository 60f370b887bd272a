#include "html/OpenElements.h"

#include <QTest>

/** Which elements are open at a place of a page, and how they end. */
class tst_openelements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void elementsAreKnownInEitherCase();
    void openAtTheEnd_data();
    void openAtTheEnd();
    void missingAndStrayTagsAreTold_data();
    void missingAndStrayTagsAreTold();
    void deepNestingComesToAnEnd();
};

struct Reading
{
    QStringList open;
    QStringList faults; ///< "-x" for an end tag that is missing, "/x" for one that is stray
};

static Reading Read(const QString& page)
{
    Reading reading;
    HtmlTokens tokens(page);
    OpenElements elements(page);
    for (HtmlToken token; tokens.Next(token);) {
        if (elements.Take(token, tokens.State()) == OpenElements::Effect::IsStray) {
            reading.faults << u'/' + token.name.In(page).toString();
        }
        for (const OpenElements::Ended& ended : elements.EndedLast()) {
            if (ended.how == OpenElements::End::Missing) {
                reading.faults << u'-' + ended.element.name.In(page).toString();
            }
        }
    }
    for (const OpenElements::Element& element : elements.Open()) {
        reading.open << element.name.In(page).toString();
    }
    return reading;
}

void tst_openelements::elementsAreKnownInEitherCase()
{
    for (const HtmlElement& element : HtmlElements()) {
        const QString name = QString::fromLatin1(element.name.data(), qsizetype(element.name.size()));
        QCOMPARE(FindElement(name), &element);
        QCOMPARE(FindElement(name.toUpper()), &element);
    }
    for (const char16_t* const name : { u"", u"foo", u"aa", u"divx", u"di", u"\u212A", u"zzz" }) {
        QVERIFY(FindElement(QStringView(name)) == nullptr);
    }
}

void tst_openelements::openAtTheEnd_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("open");
    const auto row = [](const char* page, const char* open) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(open);
    };
    row("", "");
    row("<html><body><DIV><p>text", "html body DIV p");
    row("<div><br><img src=x><hr/></div>", "");
    row("<p>one<p>two", "p");
    row("<p>one<b>two<div>", "div");
    row("<ul><li>one<li>two", "ul li");
    row("<ul><li>one<ul><li>two", "ul li ul li");
    row("<ul><li>one<div><li>two", "ul li");
    row("<ul><li>one<ul></li>", "ul li ul");
    row("<dl><dt>a<dd>b<dt>c", "dl dt");
    row("<table><tr><td>a<td>b<tr><td>c", "table tr td");
    row("<table><tbody><tr><td>a<tbody><tr>", "table tbody tr");
    row("<table><tr><td><table><tr><td>a<td>b", "table tr td table tr td");
    row("<table><tr><td><p>a</table>", "");
    row("<div><table><tr><td></div>", "div table tr td");
    row("<select><option>a<option>b", "select option");
    row("<select><optgroup><option>a<optgroup>", "select optgroup");
    row("<p><button><p>", "p button p");
    row("<head><title>a</title><body>", "body");
    row("<b><i></b>", "");
    row("<i></b>", "i");
    row("<svg><g><path/><rect>", "svg g rect");
    row("<svg/><p>", "p");
    row("<svg><foreignObject><p>a</p></foreignObject><title>t</title></svg>", "");
    row("<div/>", "div");
    row("<my-element><p></my-element>", "");
    row("<script>if (a<b) x='<p>';", "script");
    row("<!-- <b> --><textarea><i></textarea>", "");
    row("<p>text <b", "p");
}

void tst_openelements::openAtTheEnd()
{
    QFETCH(const QString, page);
    QFETCH(const QString, open);
    QCOMPARE(Read(page).open.join(u' '), open);
}

void tst_openelements::missingAndStrayTagsAreTold_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("faults");
    const auto row = [](const char* page, const char* faults) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(faults);
    };
    row("<html><head><body><p>a<p>b</body></html>", "");
    row("<ul><li>a<li>b</ul><table><tr><td>a<tr><td>b</table>", "");
    row("<div><b>a</div>", "-b");
    row("<b><i>a</b></i>", "-i /i");
    row("<p>a</p></p>", "/p");
    row("</img></br>", "/img /br");
    row("<table><tr><td></div></td></tr></table>", "/div");
    row("<p><b>a<div></div>", "-b");
    row("<div><svg><g></svg></div>", "-g");
}

void tst_openelements::missingAndStrayTagsAreTold()
{
    QFETCH(const QString, page);
    QFETCH(const QString, faults);
    QCOMPARE(Read(page).faults.join(u' '), faults);
}

void tst_openelements::deepNestingComesToAnEnd()
{
    constexpr int many = 20'000;
    QCOMPARE(Read(QStringLiteral("<b>").repeated(many)).open.size(), many);
    (void)Read(QStringLiteral("<b>").repeated(many) + QStringLiteral("</i><p>").repeated(many));
}

QTEST_GUILESS_MAIN(tst_openelements)
#include "tst_openelements.moc"
