#include "tests/html/PartChecks.h"

#include <QDir>
#include <QTest>

Q_DECLARE_METATYPE(HtmlMode)

namespace {

/** The state behind some lines, read one by one. */
HtmlState StateBehind(const QStringList& lines)
{
    HtmlState state;
    for (const QString& line : lines) {
        HtmlScanner scanner(line, state, HtmlEnd::OfLine);
        for (HtmlPart part; scanner.Next(part);) {
        }
        state = scanner.State();
    }
    return state;
}

QList<HtmlPartKind> KindsOf(const QString& text)
{
    QList<HtmlPartKind> kinds;
    for (const HtmlPart& part : PartsOf(text)) {
        kinds += part.kind;
    }
    return kinds;
}

} // namespace

class tst_htmlscanner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everythingInATagIsAPart();
    void commentsAndDeclarationsAreOfThreeParts();
    void pagesReadByLineHaveTheSameParts_data();
    void pagesReadByLineHaveTheSameParts();
    void lineEndsDoWhatTheyDoInTheText_data();
    void lineEndsDoWhatTheyDoInTheText();
    void statesAreEqualWhereAllGoesOnAlike();
    void statesDifferWhereSomethingGoesOnOtherwise_data();
    void statesDifferWhereSomethingGoesOnOtherwise();
    void linesThatChangeNothingLeaveTheStateAsItIs();
};

void tst_htmlscanner::everythingInATagIsAPart()
{
    using enum HtmlPartKind;
    QCOMPARE(
        KindsOf(QStringLiteral("a<b c='d' e=f g=\"\" / h/></b >")),
        (QList<HtmlPartKind>{ Text,           TagOpen,        TagName,      AttributeName, Equals,
                              OpeningQuote,   AttributeValue, ClosingQuote, AttributeName, Equals,
                              AttributeValue, AttributeName,  Equals,       OpeningQuote,  ClosingQuote,
                              StraySlash,     AttributeName,  SelfClosing,  TagClose,      EndTagOpen,
                              TagName,        TagClose }));
}

void tst_htmlscanner::commentsAndDeclarationsAreOfThreeParts()
{
    using enum HtmlPartKind;
    QCOMPARE(
        KindsOf(QStringLiteral("<!--a--><!---><!doctype b><?c><svg><![CDATA[d]]>")),
        (QList<HtmlPartKind>{ CommentOpen, Comment, CommentClose, CommentOpen, CommentClose, DoctypeOpen,
                              Doctype, DoctypeClose, CommentOpen, Comment, CommentClose, TagOpen, TagName,
                              TagClose, CDataOpen, Text, CDataClose }));
}

void tst_htmlscanner::pagesReadByLineHaveTheSameParts_data()
{
    QTest::addColumn<QString>("text");
    QDir pages(QStringLiteral(QT_TESTCASE_SOURCEDIR "/pages"));
    for (const QString& name : pages.entryList(QDir::Files)) {
        QFile file(pages.filePath(name));
        QVERIFY(file.open(QIODevice::ReadOnly));
        QTest::newRow(qPrintable(name)) << QString::fromUtf8(file.readAll());
    }
}

void tst_htmlscanner::pagesReadByLineHaveTheSameParts()
{
    QFETCH(const QString, text);
    const std::vector<HtmlPart> parts = PartsOf(text);
    QVERIFY(CoverAllButBlanks(parts, text));
    QVERIFY(IsSameByPiece(text, parts, LinesOf(text)));
    QVERIFY(IsSameByPiece(text, parts, PiecesOf(text)));
}

void tst_htmlscanner::lineEndsDoWhatTheyDoInTheText_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<HtmlMode>("mode");
    QTest::newRow("text") << "a" << HtmlMode::Data;
    QTest::newRow("angle") << "a <" << HtmlMode::Data;
    QTest::newRow("end of an end tag's mark") << "</" << HtmlMode::BogusComment;
    QTest::newRow("declaration") << "<!" << HtmlMode::BogusComment;
    QTest::newRow("dash of a declaration") << "<!-" << HtmlMode::BogusComment;
    QTest::newRow("tag") << "<a" << HtmlMode::InTag;
    QTest::newRow("name") << "<a b" << HtmlMode::AfterAttributeName;
    QTest::newRow("equals sign") << "<a b=" << HtmlMode::BeforeValue;
    QTest::newRow("unquoted value") << "<a b=c" << HtmlMode::InTag;
    QTest::newRow("double quote") << "<a b=\"" << HtmlMode::DoubleQuotedValue;
    QTest::newRow("single quote") << "<a b='c" << HtmlMode::SingleQuotedValue;
    QTest::newRow("closed quote") << "<a b='c'" << HtmlMode::InTag;
    QTest::newRow("stray slash") << "<a /" << HtmlMode::InTag;
    QTest::newRow("comment") << "<!--" << HtmlMode::Comment;
    QTest::newRow("comment and a dash") << "<!---" << HtmlMode::Comment;
    QTest::newRow("dashes in a comment") << "<!-- --" << HtmlMode::Comment;
    QTest::newRow("doctype") << "<!DOCTYPE" << HtmlMode::Doctype;
    QTest::newRow("title") << "<title>a</title" << HtmlMode::InTag;
    QTest::newRow("other end tag in a title") << "<title>a</titl" << HtmlMode::RawText;
    QTest::newRow("script") << "<script>a" << HtmlMode::Script;
    QTest::newRow("comment in a script") << "<script><!--" << HtmlMode::ScriptEscaped;
    QTest::newRow("script in a comment in a script")
        << "<script><!--<script" << HtmlMode::ScriptDoubleEscaped;
    QTest::newRow("comment closed in a script") << "<script><!--<script-->" << HtmlMode::Script;
    QTest::newRow("plaintext") << "<plaintext>" << HtmlMode::PlainText;
    QTest::newRow("section") << "<svg><![CDATA[ ]]" << HtmlMode::CData;
}

void tst_htmlscanner::lineEndsDoWhatTheyDoInTheText()
{
    QFETCH(const QString, line);
    QTEST(StateBehind({ line }).mode, "mode");
}

void tst_htmlscanner::statesAreEqualWhereAllGoesOnAlike()
{
    const HtmlState plain;
    QCOMPARE(StateBehind({}), plain);
    QCOMPARE(StateBehind({ "a <b>c</b> <img src=x>", "<!-- d -->", "<title>e</title>" }), plain);
    QCOMPARE(StateBehind({ "<font size=1>", "</script>", "<svg><title></title></svg>" }), plain);
    QCOMPARE(StateBehind({ "<i", "b='c'", ">" }), plain);
    QCOMPARE(StateBehind({ "<a b='c'" }), StateBehind({ "<a d", "e=f" }));
}

void tst_htmlscanner::statesDifferWhereSomethingGoesOnOtherwise_data()
{
    QTest::addColumn<QString>("one");
    QTest::addColumn<QString>("other");
    QTest::newRow("text and comment") << "a"
                                      << "<!--";
    QTest::newRow("tags of other content") << "<style"
                                           << "<script";
    QTest::newRow("start tag and end tag") << "<style"
                                           << "</style";
    QTest::newRow("texts of other elements") << "<title>"
                                             << "<textarea>";
    QTest::newRow("fonts of other kinds") << "<font"
                                          << "<font size=1";
    QTest::newRow("HTML and SVG") << "<p>"
                                  << "<svg>";
    QTest::newRow("SVG and SVG in it") << "<svg>"
                                       << "<svg><svg>";
    QTest::newRow("quotes") << "<a b=\""
                            << "<a b='";
}

void tst_htmlscanner::statesDifferWhereSomethingGoesOnOtherwise()
{
    QFETCH(const QString, one);
    QFETCH(const QString, other);
    QVERIFY(StateBehind({ one }) != StateBehind({ other }));
}

void tst_htmlscanner::linesThatChangeNothingLeaveTheStateAsItIs()
{
    for (const char* const beginning :
         { "", "<a ", "<a b='", "<!-- ", "<script>", "<script><!--", "<svg>", "<title>" }) {
        const HtmlState state = StateBehind({ beginning });
        QCOMPARE(StateBehind({ beginning, "" }), state);
        QCOMPARE(StateBehind({ beginning, "  " }), state);
    }
}

QTEST_GUILESS_MAIN(tst_htmlscanner)

#include "tst_htmlscanner.moc"
