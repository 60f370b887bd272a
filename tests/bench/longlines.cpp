// Costs of pages that a tool has put into one line: each beside the same bytes in lines of 80.

#include "app/SourceEditor.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>
#include <QTest>
#include <chrono>

namespace {

constexpr qsizetype shortLine = 80;
constexpr auto idleTime = std::chrono::milliseconds(3000);

/** Markup with blanks, and the inside of an address without one. */
const QString markup =
    QStringLiteral("<p class=\"note\">Some text &amp; <b>more of it</b>, long enough.</p>");
const QString noBlanks =
    QStringLiteral("iVBORw0KGgoAAAANSUhEUgAAAAEAAAABCAYAAAAfFcSJAAAADUlEQVR42mNk/M9QDwAEhgGAWjR9aw");

QString OneLine(const QString& part, int megabytes)
{
    return part.repeated(megabytes * qsizetype(megabyte) / part.size());
}

/** The same characters, of which every eightieth is a line end. */
QString InShortLines(QString text)
{
    for (qsizetype i = shortLine - 1; i < text.size(); i += shortLine) {
        text[i] = u'\n';
    }
    return text;
}

void ShowIn(SourceEditor& editor)
{
    editor.resize(700, 500);
    editor.show();
    editor.setFocus();
    QCoreApplication::processEvents();
}

/** From the text to the painted editor. */
Cost CostOfOpening(const QString& text)
{
    SourceEditor editor;
    ShowIn(editor);
    return CostOf([&editor, &text] {
        editor.LoadText(text);
        QCoreApplication::processEvents();
    });
}

/** Keys typed in the middle of the text, from the event to the painted editor. */
Cost CostOfKey(const QString& text)
{
    SourceEditor editor;
    ShowIn(editor);
    editor.LoadText(text);
    editor.Select(editor.TextLength() / 2, 0);
    QCoreApplication::processEvents();
    return CostOfTyping(editor, 20);
}

/** A second in which nothing happens but the blinking of the caret. */
Cost CostOfIdling(const QString& text)
{
    SourceEditor editor;
    ShowIn(editor);
    editor.LoadText(text);
    editor.Select(editor.TextLength() / 2, 0);
    QTest::qWait(200);
    Cost cost;
    cost.seconds = SecondsOnce([] { QTest::qWait(int(idleTime.count())); }) * 1000 / double(idleTime.count());
    return cost;
}

void BenchText(const QString& what, const QString& text)
{
    const QString lines = InShortLines(text);
    PrintRow(
        QStringLiteral("open ") + what + QStringLiteral("; in lines of 80"), CostOfOpening(text),
        CostOfOpening(lines), 2);
    PrintRow(
        QStringLiteral("a key in ") + what + QStringLiteral("; in lines of 80"), CostOfKey(text),
        CostOfKey(lines), 2);
    if (!IsCounting()) {
        PrintRow(
            QStringLiteral("an idle second in ") + what + QStringLiteral("; in lines of 80"),
            CostOfIdling(text), CostOfIdling(lines), 2);
    }
}

} // namespace

void BenchLongLines()
{
    BenchText(QStringLiteral("1 MB in one line"), OneLine(markup, 1));
    BenchText(QStringLiteral("1 MB in one line without blanks"), OneLine(noBlanks, 1));
    if (!IsCounting()) {
        BenchText(QStringLiteral("5 MB in one line"), OneLine(markup, 5));
    }
}
