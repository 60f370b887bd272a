#include "app/rules/PageFormat.h"

#include "html/HtmlTokens.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QTest>

/** Pages are written with "~" for a line end and ">>" for a tab at the beginning of a line. */
class tst_pageformat : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void linesAreMovedInByNesting_data();
    void linesAreMovedInByNesting();
    void pagesKeepTheirOwnWay_data();
    void pagesKeepTheirOwnWay();
    void anyPageKeepsItsTokensAndIsFormattedOnce();
    void realPagesKeepTheirTokensAndAreFormattedOnce();
};

static QString Formatted(QString page)
{
    const QList<TextReplacement> replacements = FormatPage(page);
    for (auto one = replacements.crbegin(); one != replacements.crend(); ++one) {
        page.replace(one->Place.Start, one->Place.Length, one->Text);
    }
    return page;
}

void tst_pageformat::linesAreMovedInByNesting_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("formatted");
    const auto row = [](const char* name, const char* page, const char* formatted) {
        QTest::newRow(name) << QString::fromLatin1(page) << QString::fromLatin1(formatted);
    };
    row("nothing", "", "");
    row("text", "  a~ b~~c", "a~b~~c");
    row("nested", "<div>~<p>~a~</p>~</div>~b", "<div>~\t<p>~\t\ta~\t</p>~</div>~b");
    row("page", "<html>~<head>~<title>a</title>~</head>~<body>~<p>b~</body>~</html>",
        "<html>~<head>~\t<title>a</title>~</head>~<body>~\t<p>b~</body>~</html>");
    row("items without end tags", "<ul>~<li>a~<li>b~c~</ul>", "<ul>~\t<li>a~\t<li>b~\t\tc~</ul>");
    row("tags that share a line", "<table><tr><td>~a~</td></tr></table>~b",
        "<table><tr><td>~\t\t\ta~</td></tr></table>~b");
    row("end and start", "<ul><li>a~</li><li>b~</li></ul>", "<ul><li>a~\t</li><li>b~</li></ul>");
    row("void elements", "<div>~<br>~<img src=x>~a</div>", "<div>~\t<br>~\t<img src=x>~\ta</div>");
    row("blank lines", "<div>~   ~a~\t~</div>", "<div>~~\ta~~</div>");
    row("pre", "<div>~<pre>~ a~  b~</pre>~c</div>", "<div>~\t<pre>~ a~  b~</pre>~\tc</div>");
    row("pre with tags", "<pre>~ <b>~ a~ </b>~</pre>", "<pre>~ <b>~ a~ </b>~</pre>");
    row("kept by style", "<p style='white-space: pre'>~  a~</p>", "<p style='white-space: pre'>~  a~</p>");
    row("textarea", "<form>~<textarea>~  a~</textarea>", "<form>~\t<textarea>~  a~</textarea>");
    row("script and style", "<div>~<script>~  a~</script>~<style>~ b~</style>~</div>",
        "<div>~\t<script>~  a~</script>~\t<style>~ b~</style>~</div>");
    row("comment", "<div>~<!-- a~   b -->~c~</div>", "<div>~\t<!-- a~   b -->~\tc~</div>");
    row("attributes", "<div>~<img~src=x~alt='a~ b'>~</div>", "<div>~\t<img~\t\tsrc=x~\t\talt='a~ b'>~</div>");
    row("stray end tag", "<div>~</b>~a~</div>", "<div>~\t</b>~\ta~</div>");
    row("tag without an end", "<div>~a <b~ c", "<div>~\ta <b~ c");
    row("drawing", "<svg>~<g>~<path/>~</g>~</svg>", "<svg>~\t<g>~\t\t<path/>~\t</g>~</svg>");
}

void tst_pageformat::linesAreMovedInByNesting()
{
    QFETCH(QString, page);
    QFETCH(QString, formatted);
    page.replace(u'~', QStringLiteral("\r\n"));
    formatted.replace(u'~', QStringLiteral("\r\n"));
    QCOMPARE(Formatted(page), formatted);
    QVERIFY(FormatPage(formatted).isEmpty());
}

void tst_pageformat::pagesKeepTheirOwnWay_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("step");
    QTest::newRow("none") << "<div>\r\na\r\n</div>"
                          << "\t";
    QTest::newRow("tabs") << "<div>\r\n\ta\r\n  b\r\n</div>"
                          << "\t";
    QTest::newRow("two blanks") << "<div>\r\n  a\r\nb\r\n</div>"
                                << "  ";
    QTest::newRow("four blanks") << "<div>\r\n    a\r\n<p>\r\n        b\r\n  c\r\n</div>"
                                 << "    ";
    QTest::newRow("odd blanks") << "<div><p>\r\n   b\r\n</div>"
                                << "  ";
}

void tst_pageformat::pagesKeepTheirOwnWay()
{
    QFETCH(const QString, page);
    QFETCH(const QString, step);
    const QStringList lines = Formatted(page).split(QStringLiteral("\r\n"));
    QVERIFY2(lines[1].startsWith(step) && !lines[1].startsWith(step + step + step), qUtf8Printable(lines[1]));
}

/** A page's tokens without the blanks at the beginnings of their lines, and without texts that are blank. */
static QStringList TokensOf(const QString& page)
{
    QStringList texts;
    HtmlTokens tokens(page);
    for (HtmlToken token; tokens.Next(token);) {
        const bool isMarkupText = token.kind == HtmlToken::Kind::Text && token.content == HtmlContent::Markup;
        QString text = QString::number(int(token.kind)) + u':';
        if (isMarkupText) {
            const QStringList lines = token.whole.In(page).toString().split(u'\n');
            for (const QString& line : lines) {
                const auto isBlank = [](QChar one) { return one == u' ' || one == u'\t'; };
                text += line.mid(std::find_if_not(line.begin(), line.end(), isBlank) - line.begin()) + u'\n';
            }
        } else if (token.kind == HtmlToken::Kind::StartTag || token.kind == HtmlToken::Kind::EndTag) {
            text += token.name.In(page);
            for (const HtmlAttribute& attribute : token.attributes) {
                text += u'|' + attribute.whole.In(page);
            }
        } else {
            text += token.whole.In(page);
        }
        const bool isBlank = isMarkupText && QStringView(text).mid(2).trimmed().isEmpty();
        if (!isBlank) {
            texts << text;
        }
    }
    return texts;
}

static QString WithoutIndents(const QString& page)
{
    QStringList lines = page.split(QStringLiteral("\r\n"));
    for (QString& line : lines) {
        while (line.startsWith(u' ') || line.startsWith(u'\t')) {
            line.remove(0, 1);
        }
    }
    return lines.join(QStringLiteral("\r\n"));
}

static QString Fault(const QString& page)
{
    const QString once = Formatted(page);
    return WithoutIndents(once) != WithoutIndents(page) ? QStringLiteral("more than indents changed")
           : TokensOf(once) != TokensOf(page)           ? QStringLiteral("tokens changed")
           : Formatted(once) != once                    ? QStringLiteral("formatting again changes more")
                                                        : QString();
}

void tst_pageformat::anyPageKeepsItsTokensAndIsFormattedOnce()
{
    const QStringList pieces = {
        QStringLiteral("\r\n"),        QStringLiteral("\r\n"),      QStringLiteral("\r\n  "),
        QStringLiteral("\r\n\t"),      QStringLiteral("\r\n   "),   QStringLiteral("<div>"),
        QStringLiteral("</div>"),      QStringLiteral("<pre>"),     QStringLiteral("</pre>"),
        QStringLiteral("<p\r\n"),      QStringLiteral(" a='b\r\n"), QStringLiteral("'>"),
        QStringLiteral("<!-- "),       QStringLiteral(" -->"),      QStringLiteral("<script>"),
        QStringLiteral("</script>"),   QStringLiteral("<li>"),      QStringLiteral("</ul>"),
        QStringLiteral("<ul>"),        QStringLiteral("text"),      QStringLiteral("<"),
        QStringLiteral(">"),           QStringLiteral("<svg>"),     QStringLiteral("<![CDATA[ "),
        QStringLiteral("]]>"),         QStringLiteral("</svg>"),    QStringLiteral("<textarea>"),
        QStringLiteral("</textarea>"), QStringLiteral("<tr><td>"),  QStringLiteral("<table>"),
        QStringLiteral("</table>"),    QStringLiteral(" = ")
    };
    QRandomGenerator random(5);
    for (int round = 0; round < 6'000; ++round) {
        QString page;
        const int length = 1 + random.bounded(30);
        for (int i = 0; i < length; ++i) {
            page += pieces[random.bounded(int(pieces.size()))];
        }
        const QString fault = Fault(page);
        QVERIFY2(fault.isEmpty(), qUtf8Printable(fault + u"\n" + page + u"\n--\n" + Formatted(page)));
    }
}

void tst_pageformat::realPagesKeepTheirTokensAndAreFormattedOnce()
{
    const QDir folder(QStringLiteral(QT_TESTCASE_SOURCEDIR "/../../html/pages"));
    const QStringList names = folder.entryList({ QStringLiteral("*.html") });
    QVERIFY(names.size() > 10);
    QRandomGenerator random(9);
    for (const QString& name : names) {
        QFile file(folder.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QString page = QString::fromLatin1(file.readAll());
        page.replace(QRegularExpression(QStringLiteral("\r\n|\r|\n")), QStringLiteral("\r\n"));
        for (int round = 0; round < 50 && !page.isEmpty(); ++round) {
            const QString fault = Fault(page);
            QVERIFY2(fault.isEmpty(), qUtf8Printable(name + u": " + fault + u"\n" + page));
            const qsizetype place = random.bounded(int(page.size()));
            if (page[place] != u'\r' && page[place] != u'\n') {
                page.remove(place, 1);
            }
        }
    }
}

QTEST_GUILESS_MAIN(tst_pageformat)
#include "tst_pageformat.moc"
