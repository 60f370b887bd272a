#include "app/rules/TextSearch.h"

#include <QTest>

class tst_textsearch : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPlaceIsFound_data();
    void everyPlaceIsFound();
    void onlyThePartIsLookedAt();
    void expressionThatNeverEndsIsGivenUp_data();
    void expressionThatNeverEndsIsGivenUp();
    void heldBytesAreNoFaultOfTheText();
    void faultOfAnExpressionIsTold();
    void groupsArePutIn_data();
    void groupsArePutIn();
    void thereIsAnEndToWhatIsTold();
};

static QString Places(const SearchResult& result)
{
    QStringList places;
    for (const TextSpan& match : result.Matches) {
        places << QStringLiteral("%1+%2").arg(match.Start).arg(match.Length);
    }
    return places.join(u' ');
}

void tst_textsearch::everyPlaceIsFound_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("what");
    QTest::addColumn<QString>("how");
    QTest::addColumn<QString>("places");
    const auto row = [](const char* name, const char16_t* text, const char16_t* what, const char* how,
                        const char* places) {
        QTest::newRow(name) << QString::fromUtf16(text) << QString::fromUtf16(what)
                            << QString::fromLatin1(how) << QString::fromLatin1(places);
    };
    row("nothing", u"abc", u"", "", "");
    row("not there", u"abc", u"d", "", "");
    row("one after the other", u"aaaa", u"aa", "", "0+2 2+2");
    row("capitals too", u"Ab aB ab", u"AB", "", "0+2 3+2 6+2");
    row("signs are no letters", u"[{ @`", u"{`", "", "");
    row("with case", u"Ab aB ab", u"ab", "c", "6+2");
    row("letters beyond ASCII", u"\u00C4\u00E4", u"\u00E4", "", "0+1 1+1");
    row("letters beyond ASCII, with case", u"\u00C4\u00E4", u"\u00E4", "c", "1+1");
    row("at the very end", u"xab", u"ab", "", "1+2");
    row("whole words", u"map maps map_ map-map bitmap", u"map", "w", "0+3 14+3 18+3");
    row("words of letters beyond ASCII", u"map\u00E4 \u00E4map map", u"map", "w", "10+3");
    row("what is no word", u"a<b <b", u"<", "w", "1+1 4+1");
    row("dots are dots", u"a.c abc", u"a.c", "", "0+3");
    row("expression", u"a.c abc", u"a.c", "r", "0+3 4+3");
    row("expression with case", u"Abc abc", u"a.c", "rc", "4+3");
    row("expression of whole words", u"abc xabc", u"a.c", "rw", "0+3");
    row("lines", u"one\ntwo\none", u"^one$", "r", "0+3 8+3");
    row("beginnings of lines", u"a\nb", u"^", "r", "0+0 2+0");
    row("across lines", u"a\nb", u"a\\nb", "r", "0+3");
}

void tst_textsearch::everyPlaceIsFound()
{
    QFETCH(const QString, text);
    QFETCH(const QString, what);
    QFETCH(const QString, how);
    const SearchTerms terms{ .What = what,
                             .IsCaseSensitive = how.contains(u'c'),
                             .AreWholeWords = how.contains(u'w'),
                             .IsRegex = how.contains(u'r') };
    const SearchResult result = FindAll(text, terms, { 0, text.size() });
    QTEST(Places(result), "places");
    QVERIFY(!result.AreMore);
    QCOMPARE(result.Trouble, QString());
}

void tst_textsearch::onlyThePartIsLookedAt()
{
    const QString text = QStringLiteral("ab ab ab ab");
    QCOMPARE(Places(FindAll(text, { .What = QStringLiteral("ab") }, { 1, 8 })), QStringLiteral("3+2 6+2"));
    QCOMPARE(
        Places(FindAll(text, { .What = QStringLiteral("ab"), .IsRegex = true }, { 1, 7 })),
        QStringLiteral("3+2 6+2"));
}

void tst_textsearch::expressionThatNeverEndsIsGivenUp_data()
{
    QTest::addColumn<QString>("what");
    QTest::newRow("at once") << "(a+)+$";
    QTest::newRow("after something was found") << "x|(a+)+$";
}

void tst_textsearch::expressionThatNeverEndsIsGivenUp()
{
    QFETCH(const QString, what);
    const QString text = u"x " + QString(5000, u'a') + u'b';
    const SearchResult result = FindAll(text, { .What = what, .IsRegex = true }, { 0, text.size() });
    QCOMPARE(result.Trouble, QStringLiteral("It would take too long to find this."));
    QVERIFY(result.Matches.isEmpty());
}

void tst_textsearch::heldBytesAreNoFaultOfTheText()
{
    const QString text = QStringLiteral("abc a%1c").arg(QChar(0xDC80));
    const SearchTerms terms{ .What = QStringLiteral("a(.)c"), .IsRegex = true };
    const SearchResult result = FindAll(text, terms, { 0, text.size() });
    QCOMPARE(result.Trouble, QString());
    QCOMPARE(Places(result), QStringLiteral("0+3 4+3"));
    QCOMPARE(
        MatchReplacement(text, terms, QStringLiteral("<\\1>")).Of({ 4, 3 }), u'<' + text.mid(5, 1) + u'>');
}

void tst_textsearch::faultOfAnExpressionIsTold()
{
    const SearchResult result =
        FindAll(QStringLiteral("a"), { .What = QStringLiteral("(a"), .IsRegex = true }, { 0, 1 });
    QVERIFY(!result.Trouble.isEmpty());
    QVERIFY(result.Matches.isEmpty());
}

void tst_textsearch::groupsArePutIn_data()
{
    QTest::addColumn<bool>("isRegex");
    QTest::addColumn<QString>("by");
    QTest::addColumn<QString>("expected");
    QTest::newRow("plain") << false << "\\1\\n"
                           << "\\1\\n";
    QTest::newRow("groups") << true << "\\2=\\1"
                            << "b=a";
    QTest::newRow("the whole") << true << "[\\0]"
                               << "[a-b]";
    QTest::newRow("no such group") << true << "\\7x"
                                   << "x";
    QTest::newRow("line end, tab, backslash") << true << "\\n\\t\\\\"
                                              << "\n\t\\";
    QTest::newRow("backslash at the end") << true << "x\\"
                                          << "x\\";
}

void tst_textsearch::groupsArePutIn()
{
    QFETCH(const bool, isRegex);
    QFETCH(const QString, by);
    const SearchTerms terms{ .What = QStringLiteral("(\\w)-(\\w)"), .IsRegex = isRegex };
    QTEST(MatchReplacement(QStringLiteral("x a-b"), terms, by).Of({ 2, 3 }), "expected");
}

void tst_textsearch::thereIsAnEndToWhatIsTold()
{
    const QString text(SearchResult::most + 1, u'a');
    const SearchResult result = FindAll(text, { .What = QStringLiteral("a") }, { 0, text.size() });
    QCOMPARE(result.Matches.size(), SearchResult::most);
    QVERIFY(result.AreMore);
}

QTEST_GUILESS_MAIN(tst_textsearch)
#include "tst_textsearch.moc"
