#include "html/HtmlSyntax.h"

#include <QTest>

class tst_htmlsyntax : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void piecesOfALineAreFound_data();
    void piecesOfALineAreFound();
    void linesGoOnWhereTheOneBeforeEnded_data();
    void linesGoOnWhereTheOneBeforeEnded();
    void passingOverALineLeavesTheSameState();
};

namespace {

/** A letter for every character of `line`, by its kind; a dot for those without. */
QString LettersOf(QStringView line, HtmlState& state)
{
    constexpr QStringView letters = u"tavrcdsy";
    QString all(line.size(), u'.');
    for (const SyntaxPiece& piece : SyntaxOf(line, state)) {
        for (qsizetype i = piece.place.offset; i < piece.place.End(); ++i) {
            all[i] = letters[qsizetype(piece.kind)];
        }
    }
    return all;
}

} // namespace

void tst_htmlsyntax::piecesOfALineAreFound_data()
{
    QTest::addColumn<QString>("line");
    QTest::addColumn<QString>("letters");
    const auto row = [](const char* name, const char* line, const char* letters) {
        QTest::newRow(name) << QString::fromLatin1(line) << QString::fromLatin1(letters);
    };
    row("nothing", "", "");
    row("text", "a < b", ".....");
    row("a tag", "a<b>c</b>d", ".ttt.tttt.");
    row("attributes", "<a b=\"c\" d='e' f=g h/>", "tt.a.vvv.a.vvv.a.v.att");
    row("an empty value", "<a b=\"\">", "tt.a.vvt");
    row("references", "a&amp;b<c d=\"e&lt;f\">&bogus; &#9;", ".rrrrr.tt.a.vvrrrrvvt........rrrr");
    row("no reference in a value", "<a b=\"c?d&copy=e\">", "tt.a.vvvvvvvvvvvvt");
    row("a comment", "a<!--b-->c", ".cccccccc.");
    row("a bogus comment", "a<?b>c", ".cccc.");
    row("a doctype", "<!DOCTYPE html>a", "ddddddddddddddd.");
    row("a script", "<script>a<b</script>c", "ttttttttsssttttttttt.");
    row("a style", "<style>p&lt;{}</style>", "tttttttyyyyyyytttttttt");
    row("a title", "<title><b>&amp;</title>", "ttttttt...rrrrrtttttttt");
    row("a text area", "<textarea><b></textarea>", "tttttttttt...ttttttttttt");
    row("capitals", "<SCRIPT>a</Script>", "ttttttttsttttttttt");
}

void tst_htmlsyntax::piecesOfALineAreFound()
{
    QFETCH(const QString, line);
    QFETCH(const QString, letters);
    HtmlState state;
    QCOMPARE(LettersOf(line, state), letters);
}

void tst_htmlsyntax::linesGoOnWhereTheOneBeforeEnded_data()
{
    QTest::addColumn<QStringList>("lines");
    QTest::addColumn<QStringList>("letters");
    const auto row = [](const char* name, const QStringList& lines, const QStringList& letters) {
        QTest::newRow(name) << lines << letters;
    };
    row("a comment", { "<!-- a", "<b>", "--><b>" }, { "cccccc", "ccc", "cccttt" });
    row("a tag", { "<a", "b=\"c", "d\" e", ">f" }, { "tt", "a.vv", "vv.a", "t." });
    row("a script", { "<script>", "if (a<b)", "</script>c" }, { "tttttttt", "ssssssss", "ttttttttt." });
    row("a style", { "<style", ">p", "</style>c" }, { "tttttt", "ty", "tttttttt." });
}

void tst_htmlsyntax::linesGoOnWhereTheOneBeforeEnded()
{
    QFETCH(const QStringList, lines);
    QFETCH(const QStringList, letters);
    HtmlState state;
    QStringList found;
    for (const QString& line : lines) {
        found << LettersOf(line, state);
    }
    QCOMPARE(found, letters);
}

void tst_htmlsyntax::passingOverALineLeavesTheSameState()
{
    HtmlState coloured;
    HtmlState passed;
    for (const char* const line : { "<p>a<!-- b", "-->", "<script>c", "</script", "d=\"e", "\"", "", ">" }) {
        (void)SyntaxOf(QString::fromLatin1(line), coloured);
        PassLine(QString::fromLatin1(line), passed);
        QVERIFY2(coloured == passed, line);
    }
    QVERIFY(coloured == HtmlState());
}

QTEST_APPLESS_MAIN(tst_htmlsyntax)
#include "tst_htmlsyntax.moc"
