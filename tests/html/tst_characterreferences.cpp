#include "html/CharacterNames.h"
#include "html/CharacterReferences.h"

#include <QTest>

Q_DECLARE_METATYPE(ReferenceIn)

class tst_characterreferences : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void referencesStandForCharacters_data();
    void referencesStandForCharacters();
    void everyNameIsKnown();
    void referencesHaveTheirPlaces();
    void whatIsWrittenIsReadBack_data();
    void whatIsWrittenIsReadBack();
    void onlyHarmlessValuesStandUnquoted_data();
    void onlyHarmlessValuesStandUnquoted();
};

void tst_characterreferences::referencesStandForCharacters_data()
{
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("value");
    const auto alike = [](const char* name, const QString& source, const QString& decoded) {
        QTest::newRow(name) << source << decoded << decoded;
    };
    alike("nothing", "", "");
    alike("no reference", "a & b; &; &x; &#; &#x; &#xg;", "a & b; &; &x; &#; &#x; &#xg;");
    alike("name", "&lt;&eacute;&euro;", QString("<\u00e9\u20ac"));
    alike("case of names", "&Eacute;&AMP;&Amp;", QString("\u00c9&&Amp;"));
    alike("two characters", "&NotEqualTilde;", QString("\u2242\u0338"));
    alike("beyond the first plane", "&Afr;&#x1F600;", QString("\U0001D504\U0001F600"));
    alike("only once", "&amp;lt;", "&lt;");
    alike("name without a semicolon", "&copy &copy. &copy", QString("\u00a9 \u00a9. \u00a9"));
    alike("name that needs its semicolon", "&euro &hellip", "&euro &hellip");
    alike("longest name", "&notin; &not;", QString("\u2209 \u00ac"));
    QTest::newRow("name in a word") << "&notit; &copyx &copy1" << QString("\u00acit; \u00a9x \u00a91")
                                    << "&notit; &copyx &copy1";
    QTest::newRow("name of a parameter") << "?a=1&copy=2&lt" << QString("?a=1\u00a9=2<") << "?a=1&copy=2<";
    alike("decimal", "&#65;&#65 &#0065;", "AA A");
    alike("hexadecimal", "&#x41;&#X4a &#x0004A;", "AJ J");
    alike(
        "no characters", "&#0;&#xD800;&#xDFFF;&#x110000;&#99999999999999999999;", QString(5, QChar(0xFFFD)));
    alike("Windows-1252", "&#128;&#x96;&#159;", QString("\u20ac\u2013\u0178"));
    alike("control characters", "&#129;&#13;&#1;", QString("\u0081\r\u0001"));
    alike("line ends", "a\r\nb\rc\nd\r", "a\nb\nc\nd\n");
    alike("nought", QString(QStringLiteral("a\0b")), QString("a\ufffdb"));
}

void tst_characterreferences::referencesStandForCharacters()
{
    QFETCH(const QString, source);
    QTEST(DecodedText(source), "text");
    QTEST(DecodedValue(source), "value");
}

void tst_characterreferences::everyNameIsKnown()
{
    for (const CharacterName& named : CharacterNames()) {
        const QString name = QString::fromLatin1(named.name.data(), qsizetype(named.name.size()));
        const QString complete = u'&' + name + u';';
        const QString open = u'&' + name + u' ';
        const QString characters =
            QString::fromUcs4(named.characters.data(), named.characters[1] == 0 ? 1 : 2);
        QCOMPARE(DecodedText(complete), characters);
        QCOMPARE(DecodedValue(complete), characters);
        QCOMPARE(DecodedText(open) == QString(characters + u' '), !named.needsSemicolon);
    }
}

void tst_characterreferences::referencesHaveTheirPlaces()
{
    const QString text = QStringLiteral("a & b &amp; c &#38 d &lte");
    const auto first = NextReference(text, 0, ReferenceIn::Text);
    QCOMPARE(first->place.In(text), u"&amp;");
    const auto second = NextReference(text, first->place.End(), ReferenceIn::Text);
    QCOMPARE(second->place.In(text), u"&#38");
    const auto third = NextReference(text, second->place.End(), ReferenceIn::Text);
    QCOMPARE(third->place.In(text), u"&lt");
    QVERIFY(!NextReference(text, third->place.End(), ReferenceIn::Text));
    QVERIFY(!NextReference(text, second->place.End(), ReferenceIn::Value));
}

void tst_characterreferences::whatIsWrittenIsReadBack_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<QString>("inDouble");
    QTest::addColumn<QString>("inSingle");
    QTest::newRow("nothing") << ""
                             << ""
                             << "";
    QTest::newRow("plain") << "a b<c>d"
                           << "a b<c>d"
                           << "a b<c>d";
    QTest::newRow("ampersands") << "a&b&amp;c"
                                << "a&amp;b&amp;amp;c"
                                << "a&amp;b&amp;amp;c";
    QTest::newRow("quotes") << "\"it's\""
                            << "&quot;it's&quot;"
                            << "\"it&#39;s\"";
    QTest::newRow("line ends") << "a\nb\rc"
                               << "a\nb&#13;c"
                               << "a\nb&#13;c";
    QTest::newRow("beyond ASCII") << QString("\u00e9\U0001F600") << QString("\u00e9\U0001F600")
                                  << QString("\u00e9\U0001F600");
}

void tst_characterreferences::whatIsWrittenIsReadBack()
{
    QFETCH(const QString, value);
    QTEST(EscapedFor(u'"', value), "inDouble");
    QTEST(EscapedFor(u'\'', value), "inSingle");
    QCOMPARE(DecodedValue(EscapedFor(u'"', value)), value);
    QCOMPARE(DecodedValue(EscapedFor(u'\'', value)), value);
    QCOMPARE(DecodedValue(EscapedFor(0, value)), value);
}

void tst_characterreferences::onlyHarmlessValuesStandUnquoted_data()
{
    QTest::addColumn<QString>("value");
    QTest::addColumn<bool>("stands");
    QTest::newRow("word") << "rect" << true;
    QTest::newRow("numbers") << "1,2,-3.5" << true;
    QTest::newRow("address") << "a/b.html?c&d#e" << true;
    QTest::newRow("nothing") << "" << false;
    QTest::newRow("blank") << "a b" << false;
    QTest::newRow("line end") << "a\nb" << false;
    QTest::newRow("double quote") << "a\"" << false;
    QTest::newRow("single quote") << "'a" << false;
    QTest::newRow("equals sign") << "a=b" << false;
    QTest::newRow("angles") << "<a>" << false;
    QTest::newRow("grave accent") << "`" << false;
    QTest::newRow("slash at the end") << "a/" << false;
}

void tst_characterreferences::onlyHarmlessValuesStandUnquoted()
{
    QFETCH(const QString, value);
    QTEST(CanStandUnquoted(value), "stands");
}

QTEST_GUILESS_MAIN(tst_characterreferences)

#include "tst_characterreferences.moc"
