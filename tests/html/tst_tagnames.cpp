// Tags whose attributes are passed over end where they do when all is read, and the text goes on alike.

#include "html/HtmlTokens.h"

#include <QDir>
#include <QFile>
#include <QRandomGenerator>
#include <QTest>
#include <array>

namespace {

/** Compares the tokens of a text with and without attributes; what differs first, or nothing. */
QString FirstDifference(QStringView text)
{
    HtmlTokens whole(text);
    HtmlTokens names(text, {}, HtmlTags::Names);
    HtmlToken one;
    HtmlToken other;
    while (whole.Next(one)) {
        const bool isSame = names.Next(other) && one.kind == other.kind && one.whole == other.whole &&
                            one.name == other.name && one.inside == other.inside &&
                            one.content == other.content && one.isClosed == other.isClosed &&
                            whole.State() == names.State();
        if (!isSame) {
            return one.whole.In(text).toString();
        }
    }
    return names.Next(other) ? QStringLiteral("a token more") : QString();
}

} // namespace

class tst_tagnames : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void tagsEndWhereTheyDo_data();
    void tagsEndWhereTheyDo();
    void tagsOfAnyTextEndWhereTheyDo();
    void pagesReadAlike_data();
    void pagesReadAlike();
    void attributesAreLeftOut();
};

void tst_tagnames::tagsEndWhereTheyDo_data()
{
    QTest::addColumn<QString>("text");
    for (const char* const text : { "<a>",
                                    "<a b>",
                                    "<a b=c>",
                                    "<a b='>'>",
                                    "<a b=\">\">",
                                    "<a b=>x>",
                                    "<a b='x>",
                                    "<a b = '>' c>",
                                    "<a ='>'>",
                                    "<a b'>'>",
                                    "<a/>",
                                    "<a / b>",
                                    "<a b=c/>",
                                    "<a b='c'/>",
                                    "<a b='c'd='>'>",
                                    "<a\n\t>",
                                    "<a b",
                                    "<a b=",
                                    "<a b='",
                                    "<a b= ",
                                    "<a /",
                                    "<svg/><![CDATA[>]]>",
                                    "<svg a='/'><![CDATA[>]]>",
                                    "<svg a=/><![CDATA[>]]>",
                                    "<svg><font color=x><![CDATA[>]]>",
                                    "<svg><font x><![CDATA[>]]>",
                                    "</a b='>'>x",
                                    "<title a='</title>'>x</title b='>'>",
                                    "<script a=b>'<a b='</script>",
                                    "<a<b='>'>",
                                    "<a \"b='>'>x'>",
                                    "<textarea/><b>" }) {
        QTest::newRow(text) << QString::fromLatin1(text);
    }
}

void tst_tagnames::tagsEndWhereTheyDo()
{
    QFETCH(const QString, text);
    QCOMPARE(FirstDifference(text), QString());
    QCOMPARE(FirstDifference(QString(text + u"<b>")), QString());
}

void tst_tagnames::tagsOfAnyTextEndWhereTheyDo()
{
    constexpr std::array pieces = {
        "<",  "a",    "</",      ">",     "/",       " ",   "=",  "'",    "\"", "/>",  "<svg ", "<font",
        "\n", "size", "<title ", "title", "<script", "x=y", "--", "<!--", "\t", "<p ", "]]>",   "<![CDATA["
    };
    QRandomGenerator random(11);
    for (int i = 0; i < 30'000; ++i) {
        QString text;
        for (int count = random.bounded(14); count >= 0; --count) {
            text += QLatin1String(pieces[std::size_t(random.bounded(int(pieces.size())))]);
        }
        QVERIFY2(FirstDifference(text).isEmpty(), qPrintable(text));
    }
}

void tst_tagnames::pagesReadAlike_data()
{
    QTest::addColumn<QString>("path");
    for (const char* const folder : { "/pages", "/../mapreader/pages" }) {
        const QDir pages(QString(QT_TESTCASE_SOURCEDIR) + QLatin1String(folder));
        for (const QString& name : pages.entryList(QDir::Files, QDir::Name)) {
            QTest::newRow(qPrintable(name)) << pages.filePath(name);
        }
    }
}

void tst_tagnames::pagesReadAlike()
{
    QFETCH(const QString, path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(FirstDifference(QString::fromLatin1(file.readAll())), QString());
}

void tst_tagnames::attributesAreLeftOut()
{
    const QString text = QStringLiteral("<a b=c d='e'>");
    HtmlTokens names(text, {}, HtmlTags::Names);
    HtmlToken token;
    QVERIFY(names.Next(token));
    QVERIFY(token.isClosed);
    QVERIFY(token.attributes.empty());
}

QTEST_GUILESS_MAIN(tst_tagnames)
#include "tst_tagnames.moc"
