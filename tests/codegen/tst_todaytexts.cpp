// The rules by which what was typed becomes what a page for today's browsers needs.

#include "codegen/AreaTexts.h"
#include "codegen/HtmlEscaping.h"
#include "codegen/PageReference.h"
#include "codegen/UniqueName.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

Q_DECLARE_METATYPE(PageCharset)

class tst_todaytexts : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void textIsEscaped_data();
    void textIsEscaped();
    void messageHasTheLinesThatItsBreaksMake();
    void addressIsEncodedAndElseStaysAsTyped_data();
    void addressIsEncodedAndElseStaysAsTyped();
    void fileIsReferredToFromThePagesFolder_data();
    void fileIsReferredToFromThePagesFolder();
    void baseOfAPageMovesItsReferences_data();
    void baseOfAPageMovesItsReferences();
    void linkHasAName_data();
    void linkHasAName();
    void labelIsTheFirstTextThatThereIs();
    void nameOfAMapIsItsOwnInThePage_data();
    void nameOfAMapIsItsOwnInThePage();
};

void tst_todaytexts::textIsEscaped_data()
{
    QTest::addColumn<PageCharset>("charset");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("written");
    using enum PageCharset;
    QTest::newRow("markup") << Ascii << "<b a=\"c\" d='e'>&amp;"
                            << "&lt;b a=&quot;c&quot; d='e'&gt;&amp;amp;";
    QTest::newRow("letters in ASCII")
        << Ascii << QStringLiteral("\u00e4\u0161\u65e5") << "&#xE4;&#x161;&#x65E5;";
    QTest::newRow("letters in Windows-1252")
        << Windows1252 << QStringLiteral("\u00e4\u0161\u65e5") << QStringLiteral("\u00e4\u0161&#x65E5;");
    QTest::newRow("letters in UTF-8")
        << Unicode << QStringLiteral("\u00e4\u0161\u65e5") << QStringLiteral("\u00e4\u0161\u65e5");
    QTest::newRow("beyond 16 bits") << Windows1252 << QStringLiteral("\U0001F600") << "&#x1F600;";
    QTest::newRow("beyond 16 bits in UTF-8")
        << Unicode << QStringLiteral("\U0001F600") << QStringLiteral("\U0001F600");
    QTest::newRow("controls") << Unicode
                              << QString(QStringLiteral("a\u0001b\u0085c\u009fd") + QChar(0) + u"e\x7f")
                              << "abcde";
    QTest::newRow("fixed blank") << Ascii << QStringLiteral("\u00a0") << "&#xA0;";
    QTest::newRow("halves of pairs") << Unicode << QString(QString(QChar(0xD83D)) + u'a' + QChar(0xDE00))
                                     << "a";
    QTest::newRow("no characters") << Unicode << QString(QString(QChar(0xFFFE)) + QChar(0xFDD0) + u'a')
                                   << "a";
}

void tst_todaytexts::textIsEscaped()
{
    QFETCH(const PageCharset, charset);
    QFETCH(const QString, text);
    QFETCH(const QString, written);
    QCOMPARE(EscapedHtml(text, charset), written);
}

void tst_todaytexts::messageHasTheLinesThatItsBreaksMake()
{
    QCOMPARE(LinesOfMessage(u"one<br>two <BR/> three<br />"), (QStringList{ "one", "two", "three", "" }));
    QCOMPARE(LinesOfMessage(u"<b>one</b>"), QStringList{ "<b>one</b>" });
    QCOMPARE(OneLineOfMessage(u" one<br> two "), QStringLiteral("one two"));
    QCOMPARE(OneLineOfMessage(u" <br> "), QString());
}

void tst_todaytexts::addressIsEncodedAndElseStaysAsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("written");
    const auto row = [](const char* name, const QString& typed, const QString& written) {
        QTest::newRow(name) << typed << written;
    };
    row("relative", "../a/b.html?c=d&e=f#g", "../a/b.html?c=d&e=f#g");
    row("whole", "https://user@example.org:8080/a?b#c", "https://user@example.org:8080/a?b#c");
    row("blanks around it", "  a.html ", "a.html");
    row("blanks alone", "  ", "");
    row("blank", "a b.html", "a%20b.html");
    row("encoded already", "a%20b.html", "a%20b.html");
    row("stray per cent", "50%.html", "50%25.html");
    row("letters", QStringLiteral("\u00fc/\u65e5\U0001F600"), "%C3%BC/%E6%97%A5%F0%9F%98%80");
    row("two fragments", "a#b#c", "a#b%23c");
    row("brackets", "a[1]{2}|3^4`5<6>\"7\"", "a%5B1%5D%7B2%7D%7C3%5E4%605%3C6%3E%227%22");
    row("backslashes", "a\\b\\c.html?d\\e", "a/b/c.html?d%5Ce");
    row("host beyond ASCII", QStringLiteral("http://m\u00fcnchen.example/\u00fc"),
        "http://xn--mnchen-3ya.example/%C3%BC");
    row("mail", "mailto:a@b.example?subject=c d", "mailto:a@b.example?subject=c%20d");
    row("script", "javascript:f(\"a\")", "javascript:f(%22a%22)");
    row("old drive", "file:///C|/a b.gif", "file:///C:/a%20b.gif");
    row("host that is none", "http://a b/", "./http://a%20b/");
    row("open bracket", "http://[x/", "./http://%5Bx/");
    row("no host", "https:", "./https:");
    row("port too high", "http://a:99999/", "./http://a:99999/");
    row("number too high", "http://1.2.3.256/", "./http://1.2.3.256/");
    row("colon in front", "::", "./::");
    row("colon in a file's name", "1:2.html", "./1:2.html");
    row("no data", "data:x", "./data:x");
    row("same scheme", "//a.example/b", "//a.example/b");
    row("slashes alone", "//", ".///");
}

void tst_todaytexts::addressIsEncodedAndElseStaysAsTyped()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, written);
    QCOMPARE(EncodedAddress(typed), written);
    QCOMPARE(EncodedAddress(written), written);
}

void tst_todaytexts::fileIsReferredToFromThePagesFolder_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("folder"); ///< of the page, below the same one; "-" for none
    QTest::addColumn<QString>("reference");
    QTest::newRow("beside the page") << "pic.gif"
                                     << ""
                                     << "pic.gif";
    QTest::newRow("below it") << "img/pic.gif"
                              << ""
                              << "img/pic.gif";
    QTest::newRow("above it") << "pic.gif"
                              << "pages/old"
                              << "../../pic.gif";
    QTest::newRow("letters that mean something") << "a b%20#1?.gif"
                                                 << ""
                                                 << "a%20b%2520%231%3F.gif";
    QTest::newRow("colon") << "a:b.gif"
                           << ""
                           << "a%3Ab.gif";
    QTest::newRow("beyond ASCII") << QStringLiteral("\u00fc.gif") << ""
                                  << "%C3%BC.gif";
    QTest::newRow("missing") << "-missing.gif"
                             << ""
                             << "-typed";
    QTest::newRow("page without a folder") << "a b.gif"
                                           << "-"
                                           << "-url";
}

void tst_todaytexts::fileIsReferredToFromThePagesFolder()
{
#ifdef Q_OS_WIN
    if (qstrcmp(QTest::currentDataTag(), "colon") == 0 ||
        qstrcmp(QTest::currentDataTag(), "letters that mean something") == 0) {
        QSKIP("Windows has no such names");
    }
#endif
    QFETCH(const QString, file);
    QFETCH(const QString, folder);
    QFETCH(QString, reference);
    const QTemporaryDir root;
    const QDir dir(root.path());
    QVERIFY(dir.mkpath(QStringLiteral("img")));
    const QString path = dir.filePath(file);
    if (!file.startsWith(u'-')) {
        QFile made(path);
        QVERIFY(made.open(QIODevice::WriteOnly));
    }
    if (reference == QStringLiteral("-typed")) {
        reference = EncodedAddress(QDir::toNativeSeparators(path));
    } else if (reference == QStringLiteral("-url")) {
        reference = QStringLiteral("file://") + (path.startsWith(u'/') ? QString() : QStringLiteral("/")) +
                    dir.filePath(QStringLiteral("a%20b.gif"));
    }
    const QString from = folder == QStringLiteral("-") ? QString() : QDir::cleanPath(dir.filePath(folder));
    QCOMPARE(PageReference(QDir::toNativeSeparators(path), from), reference);
}

void tst_todaytexts::baseOfAPageMovesItsReferences_data()
{
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("folder");
    QTest::newRow("none") << "<p>"
                          << "/site/pages";
    QTest::newRow("folder") << "<base href=\"../img/\"><p>"
                            << "/site/img";
    QTest::newRow("file") << "<base href='sub/x.html'>"
                          << "/site/pages/sub";
    QTest::newRow("in the net") << "<base href=\"https://a.example/b/\">"
                                << "/site/pages";
    QTest::newRow("target only") << "<base target=x>"
                                 << "/site/pages";
    QTest::newRow("in a comment") << "<!-- <base href=\"x/\"> -->"
                                  << "/site/pages";
    QTest::newRow("in the body") << "<body><base href=\"x/\">"
                                 << "/site/pages";
}

void tst_todaytexts::baseOfAPageMovesItsReferences()
{
#ifdef Q_OS_WIN
    QSKIP("The paths are not those of Windows");
#endif
    QFETCH(const QString, page);
    QFETCH(const QString, folder);
    QCOMPARE(ReferenceFolder(page, QStringLiteral("/site/pages/a.html")), folder);
    QCOMPARE(ReferenceFolder(page, QString()), QString());
}

void tst_todaytexts::linkHasAName_data()
{
    QTest::addColumn<QString>("link");
    QTest::addColumn<QString>("name");
    QTest::newRow("page") << "red.html"
                          << "red";
    QTest::newRow("page in a folder") << "../rooms/red-room_2.html?x=1#y"
                                      << "red room 2";
    QTest::newRow("Windows path") << "C:\\pages\\red.htm"
                                  << "red";
    QTest::newRow("encoded") << "a%20b.html"
                             << "a b";
    QTest::newRow("host") << "https://www.example.org/"
                          << "www.example.org";
    QTest::newRow("folder of a host") << "https://www.example.org/maps/"
                                      << "maps";
    QTest::newRow("place in the page") << "#top-left"
                                       << "top left";
    QTest::newRow("mail") << "mailto:a.b@c.example"
                          << "a.b@c.example";
    QTest::newRow("nothing to name") << "../"
                                     << "..";
    QTest::newRow("none") << ""
                          << "";
}

void tst_todaytexts::linkHasAName()
{
    QFETCH(const QString, link);
    QFETCH(const QString, name);
    QCOMPARE(NameOfLink(link), name);
}

void tst_todaytexts::labelIsTheFirstTextThatThereIs()
{
    MapArea area;
    area.Link = QStringLiteral("red.html");
    QCOMPARE(LabelOf(area, JSToolTips), QStringLiteral("red"));
    QVERIFY(LacksText(area, JSToolTips));
    area.Message = QStringLiteral("A<br>message");
    QCOMPARE(LabelOf(area, JSToolTips), QStringLiteral("A message"));
    QVERIFY(!LacksText(area, JSToolTips));
    QCOMPARE(LabelOf(area, JSSwitchImages), QStringLiteral("red"));
    QVERIFY(LacksText(area, JSSwitchImages));
    QVERIFY(LacksText(area, JSDisabled));
    area.Text = QStringLiteral(" Its own ");
    QCOMPARE(LabelOf(area, JSToolTips), QStringLiteral("Its own"));
    QVERIFY(!LacksText(area, JSSwitchImages));
}

void tst_todaytexts::nameOfAMapIsItsOwnInThePage_data()
{
    QTest::addColumn<QString>("wanted");
    QTest::addColumn<QString>("page");
    QTest::addColumn<QString>("name");
    QTest::newRow("free") << "MyMap"
                          << "<p id=other>MyMap"
                          << "MyMap";
    QTest::newRow("a map's") << "MyMap"
                             << "<map name=MyMap>"
                             << "MyMap2";
    QTest::newRow("an id") << "MyMap"
                           << "<p id='MyMap'><p id=\"MyMap2\">"
                           << "MyMap3";
    QTest::newRow("in another case") << "MyMap"
                                     << "<map name=MYMAP>"
                                     << "MyMap2";
    QTest::newRow("the start of ids") << "m"
                                      << "<p id=m-1>"
                                      << "m2";
    QTest::newRow("in a comment") << "m"
                                  << "<!-- <p id=m> -->"
                                  << "m";
    QTest::newRow("blanks") << " my map "
                            << ""
                            << "my-map";
    QTest::newRow("number in front") << "1map"
                                     << ""
                                     << "m1map";
    QTest::newRow("beyond ASCII") << QStringLiteral("K\u00e4rtchen") << ""
                                  << "K-rtchen";
    QTest::newRow("nothing") << " "
                             << ""
                             << "m";
}

void tst_todaytexts::nameOfAMapIsItsOwnInThePage()
{
    QFETCH(const QString, wanted);
    QFETCH(const QString, page);
    QFETCH(const QString, name);
    QCOMPARE(UniqueMapName(wanted, page), name);
}

QTEST_GUILESS_MAIN(tst_todaytexts)

#include "tst_todaytexts.moc"
