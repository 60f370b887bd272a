#include "app/source/SourceText.h"
#include "shared/PageDocument.h"

#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <random>

class tst_replacements : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void everyPlaceIsThatOfTheOldText_data();
    void everyPlaceIsThatOfTheOldText();
    void randomReplacementsMakeTheTextThatAStringMakes();

private:
    /** The text of `document` after `replacements`, and after undoing them. */
    static QPair<QString, QString> Replaced(const QString& text, const QList<TextReplacement>& replacements);
};

QPair<QString, QString>
tst_replacements::Replaced(const QString& text, const QList<TextReplacement>& replacements)
{
    QTextDocument document;
    document.setPlainText(text);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    ReplaceEach(cursor, replacements);
    cursor.endEditBlock();
    const QString after = WithCrLf(document.toRawText());
    document.undo();
    return { after, WithCrLf(document.toRawText()) };
}

void tst_replacements::everyPlaceIsThatOfTheOldText_data()
{
    QTest::addColumn<QList<TextReplacement>>("replacements");
    QTest::addColumn<QString>("expected");
    const auto row = [](const char* name, const QList<TextReplacement>& replacements, const char* expected) {
        QTest::newRow(name) << replacements << QString::fromLatin1(expected);
    };
    // The text is "abc", a line end, "def", a line end, and nothing more.
    row("nothing by something", { { { 0, 0 }, "x" }, { { 10, 0 }, "y" } }, "xabc\r\ndef\r\ny");
    row("one beside the other", { { { 0, 1 }, "1" }, { { 1, 1 }, "22" }, { { 2, 1 }, "" } },
        "122\r\ndef\r\n");
    row("behind a line end, which counts as two", { { { 5, 1 }, "X" } }, "abc\r\nXef\r\n");
    row("the line end", { { { 3, 2 }, " " } }, "abc def\r\n");
    row("line ends of any kind come in", { { { 0, 3 }, "1\n2\r3\r\n4" } }, "1\r\n2\r\n3\r\n4\r\ndef\r\n");
    row("everything", { { { 0, 10 }, "all" } }, "all");
    row("longer than the text", { { { 8, 99 }, "!" } }, "abc\r\ndef!");
    row("nothing by nothing", { { { 4, 0 }, "" } }, "abc\r\ndef\r\n");
    row("more lines before, fewer behind", { { { 1, 1 }, "\r\n\r\n" }, { { 5, 5 }, "-" } },
        "a\r\n\r\nc\r\n-");
}

void tst_replacements::everyPlaceIsThatOfTheOldText()
{
    QFETCH(const QList<TextReplacement>, replacements);
    const QString text = QStringLiteral("abc\ndef\n");
    const auto [after, undone] = Replaced(text, replacements);
    QTEST(after, "expected");
    QCOMPARE(undone, QStringLiteral("abc\r\ndef\r\n"));
}

void tst_replacements::randomReplacementsMakeTheTextThatAStringMakes()
{
    std::mt19937 random(20);
    const auto upTo = [&random](qsizetype most) { return qsizetype(random() % std::uint32_t(most + 1)); };
    const auto piece = [&upTo](qsizetype most) {
        QString text;
        for (qsizetype left = upTo(most); left > 0; --left) {
            text += upTo(4) == 0 ? QStringLiteral("\r\n") : QString(QChar(u'a' + char16_t(upTo(25))));
        }
        return text;
    };
    for (int round = 0; round < 500; ++round) {
        const QString text = piece(60);
        QString expected;
        QList<TextReplacement> replacements;
        qsizetype place = 0;
        // A place between CR and LF is none.
        const auto forward = [&text, &upTo](qsizetype from) {
            const qsizetype to = std::min(from + upTo(6), text.size());
            return to > 0 && to < text.size() && text[to] == u'\n' ? to + 1 : to;
        };
        while (place < text.size()) {
            const qsizetype start = forward(place);
            const qsizetype end = forward(start);
            const QString by = piece(5);
            expected += QStringView(text).mid(place, start - place) + by;
            replacements << TextReplacement{ { start, end - start }, by };
            place = std::max(end, start);
            if (end == start) {
                const qsizetype next = std::min(place + (text.mid(place, 2) == u"\r\n" ? 2 : 1), text.size());
                expected += QStringView(text).mid(place, next - place);
                place = next;
            }
        }
        const auto [after, undone] = Replaced(text, replacements);
        QCOMPARE(after, expected);
        QCOMPARE(undone, text);
    }
}

QTEST_MAIN(tst_replacements)
#include "tst_replacements.moc"
