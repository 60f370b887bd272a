// Costs of the View menu: what colours and line numbers add to editing.

#include "app/EditorMargins.h"
#include "app/LineNumbers.h"
#include "app/PairMarks.h"
#include "app/SourceEditor.h"
#include "app/SyntaxColours.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QTextLayout>

namespace {

/** A page as it is written by hand, with as many tags as text. */
QString PageOfTags(double megabytes)
{
    const QString lines =
        QStringLiteral("<p class=\"note\">Some text &amp; <b>more of it</b>, long enough.</p>\n"
                       "<!-- a remark --><img src='a.jpg' alt=\"\" usemap=\"#map\">\n"
                       "Text alone, which goes on until the line ends.\n");
    return lines.repeated(static_cast<qsizetype>(megabytes * megabyte) / lines.size());
}

/** An editor that shows a text, in colours and with line numbers if it is `refined`. */
class View
{
public:
    View(const QString& text, bool isRefined)
    {
        if (isRefined) {
            colours_ = std::make_unique<SyntaxColours>(editor);
            pairs_ = std::make_unique<PairMarks>(editor, *colours_);
            auto* const numbers = new LineNumbers(editor);
            editor.Margins().SetBar(Qt::LeftEdge, numbers);
            numbers->show();
        }
        editor.resize(700, 500);
        editor.show();
        editor.LoadText(text);
        QCoreApplication::processEvents();
    }

    SourceEditor editor;

private:
    std::unique_ptr<SyntaxColours> colours_;
    std::unique_ptr<PairMarks> pairs_;
};

/** Markup typed in the middle, line after line, from the event to the painted editor. */
Cost CostOfTyping(const QString& text, bool isRefined)
{
    View view(text, isRefined);
    SourceEditor& editor = view.editor;
    editor.Select(editor.TextLength() / 2, 0);
    QTest::qWait(500); // what is far off is read meanwhile
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClick(&editor, Qt::Key_Return);
    const QString typed = QStringLiteral("<p id=\"a\">Text &amp; <b>so</b> on.\r");
    return CostOf(
        [&editor, &typed] {
            for (int i = 0; i < 3; ++i) {
                for (const QChar character : typed) {
                    QTest::keyClick(&editor, character.toLatin1());
                    QCoreApplication::processEvents();
                }
            }
        },
        static_cast<int>(3 * typed.size()));
}

Cost CostOfOpening(const QString& text, bool isRefined)
{
    View view(QString(), isRefined);
    return CostOf([&view, &text] {
        view.editor.LoadText(text);
        QCoreApplication::processEvents();
    });
}

/** Goes to the end of a page that was just opened, until its last lines are in their colours. */
Cost CostOfEnd(const QString& text)
{
    View view(QString(), true);
    return CostOfTimed([&view, &text] {
        SourceEditor& editor = view.editor;
        editor.LoadText(text);
        QCoreApplication::processEvents();
        return SecondsOnce([&editor] {
            QTest::keyClick(&editor, Qt::Key_End, Qt::ControlModifier);
            const QTextBlock line = editor.document()->lastBlock().previous().previous();
            while (line.layout()->formats().isEmpty()) {
                QCoreApplication::processEvents();
            }
        });
    });
}

/** The numbers beside the last lines, painted again and again. */
Cost CostOfNumbers(int lines)
{
    constexpr int times = 50;
    View view(QStringLiteral("a\n").repeated(lines), true);
    auto* const numbers = view.editor.findChild<LineNumbers*>();
    view.editor.verticalScrollBar()->setValue(view.editor.verticalScrollBar()->maximum());
    QCoreApplication::processEvents();
    return CostOf(
        [numbers] {
            for (int i = 0; i < times; ++i) {
                numbers->repaint();
            }
        },
        times);
}

} // namespace

void BenchViews()
{
    const QString large = PageOfTags(IsCounting() ? 10 : 50);
    const Cost inEmpty = CostOfTyping(QString(), true);
    const Cost inLarge = CostOfTyping(large, true);
    PrintRow(
        QStringLiteral("a key in 50 MB in colours and numbered; in an empty document so"), inLarge, inEmpty,
        2);
    PrintRow(
        QStringLiteral("a key in 50 MB in colours and numbered; without"), inLarge,
        CostOfTyping(large, false), 3);
    const QString middle = PageOfTags(10);
    PrintRow(
        QStringLiteral("open 10 MB in colours and numbered; without"), CostOfOpening(middle, true),
        CostOfOpening(middle, false), 1.2);
    PrintRow(
        QStringLiteral("colour the end of 10 MB; open them"), CostOfEnd(middle), CostOfOpening(middle, false),
        1);
    PrintRow(
        QStringLiteral("number lines behind 1,000,000; behind 100"), CostOfNumbers(1'000'000),
        CostOfNumbers(100), 2);
}
