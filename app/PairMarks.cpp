#include "app/PairMarks.h"

#include "app/Shades.h"
#include "app/SourceEditor.h"
#include "app/SyntaxColours.h"
#include "html/TagPairs.h"

#include <QTextBlock>
#include <chrono>

namespace {

/** The caret has come to rest after so long. */
constexpr auto untilRest = std::chrono::milliseconds(60);
/** So many characters before the caret and behind it are looked through. */
constexpr int mostEachSide = 100'000;
/** How much of the selection's colour the marks have. */
constexpr double markShare = 0.3;

/** The whole lines around a place, as many as may be looked through. */
struct Surrounding
{
    QTextBlock First;
    QString Text;
};

Surrounding Around(const QTextCursor& caret)
{
    QTextBlock first = caret.block();
    QTextBlock last = first;
    const auto before = [](const QTextBlock& block) { return block.previous().isValid(); };
    while (before(first) && caret.position() - first.previous().position() <= mostEachSide) {
        first = first.previous();
    }
    const auto end = [](const QTextBlock& block) { return block.position() + block.length(); };
    while (last.next().isValid() && end(last.next()) - caret.position() <= mostEachSide) {
        last = last.next();
    }
    QString text;
    text.reserve(end(last) - first.position());
    for (QTextBlock block = first; block.isValid(); block = block.next()) {
        text += block.text() + u'\n';
        if (block == last) {
            break;
        }
    }
    return { first, text };
}

} // namespace

PairMarks::PairMarks(SourceEditor& editor, SyntaxColours& colours)
    : editor_(editor)
    , colours_(colours)
{
    rest_.setSingleShot(true);
    rest_.setInterval(untilRest);
    connect(&rest_, &QTimer::timeout, this, &PairMarks::ShowPair);
    // Until then the old marks stay: to take them off at every key would have all painted anew each time.
    connect(&editor_, &SourceEditor::cursorPositionChanged, &rest_, qOverload<>(&QTimer::start));
    connect(&editor_, &SourceEditor::textChanged, &rest_, qOverload<>(&QTimer::start));
    rest_.start();
}

PairMarks::~PairMarks()
{
    editor_.SetMarks(SourceEditor::MarkLayer::Pairs, {});
}

/** The places that belong to each other at the caret. */
QList<QTextCursor> PairMarks::Pair()
{
    const QTextCursor caret = editor_.textCursor();
    const Surrounding around = Around(caret);
    const std::optional<HtmlState> state =
        around.First.isValid() ? colours_.StateAt(around.First) : std::nullopt;
    QList<QTextCursor> pair;
    if (!state || caret.hasSelection()) {
        return pair;
    }
    const int start = around.First.position();
    for (const HtmlSpan& place : PairAt(around.Text, *state, caret.position() - start)) {
        QTextCursor one(editor_.document());
        one.setPosition(start + static_cast<int>(place.offset));
        one.setPosition(start + static_cast<int>(place.End()), QTextCursor::KeepAnchor);
        pair << one;
    }
    return pair;
}

void PairMarks::ShowPair()
{
    const QList<QTextCursor> pair = Pair();
    if (pair.isEmpty() && !isMarked_) {
        return;
    }
    const QColor ground = Mixed(
        editor_.palette().color(QPalette::Base), editor_.palette().color(QPalette::Highlight), markShare);
    const QColor text = editor_.palette().color(QPalette::Text);
    QList<QTextEdit::ExtraSelection> marks;
    for (const QTextCursor& place : pair) {
        QTextEdit::ExtraSelection mark{ place, {} };
        mark.format.setBackground(ground);
        mark.format.setForeground(text);
        marks << mark;
    }
    isMarked_ = !marks.isEmpty();
    editor_.SetMarks(SourceEditor::MarkLayer::Pairs, marks);
}
