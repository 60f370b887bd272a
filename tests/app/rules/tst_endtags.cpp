#include "app/rules/EndTags.h"

#include <QTest>

class tst_endtags : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void innermostElementIsClosed_data();
    void innermostElementIsClosed();
};

void tst_endtags::innermostElementIsClosed_data()
{
    QTest::addColumn<QString>("page"); // with "|" at the caret
    QTest::addColumn<QString>("tag");
    const auto row = [](const char* page, const char* tag) {
        QTest::newRow(page) << QString::fromLatin1(page) << QString::fromLatin1(tag);
    };
    row("|", "");
    row("<p>|", "</p>");
    row("|<p>", "");
    row("<DIV>text|", "</DIV>");
    row("<div><br><img src=x>|", "</div>");
    row("<ul><li>one<li>two|</ul>", "</li>");
    row("<ul><li>one</li>|", "</ul>");
    row("<p>one<p>two</p>|", "");
    row("<p>text|</p>", "</p>");
    row("<script>if (a<b) |", "</script>");
    row("<textarea><b>|", "</textarea>");
    row("<div><!-- | -->", "");
    row("<div cla|ss=x>", "");
    row("<div>|<p>", "</div>");
    row("<svg><path d='x'/>|", "</svg>");
    row("<plaintext>all|", "");
    row("<my-part>|", "</my-part>");
}

void tst_endtags::innermostElementIsClosed()
{
    QFETCH(const QString, page);
    QFETCH(const QString, tag);
    QCOMPARE(EndTagAt(QString(page).remove(u'|'), page.indexOf(u'|')), tag);
}

QTEST_GUILESS_MAIN(tst_endtags)
#include "tst_endtags.moc"
