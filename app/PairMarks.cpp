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
    if (first.length() > mostEachSide) {
        return {};
    }
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
    connect(&editor_, &SourceEditor::cursorPositionChanged, this, &PairMarks::Rest);
    connect(&editor_, &SourceEditor::textChanged, this, &PairMarks::Rest);
    Rest();
}

PairMarks::~PairMarks()
{
    editor_.SetMarks(SourceEditor::MarkLayer::Pairs, {});
}

/** What was marked is no pair of the caret any more. */
void PairMarks::Rest()
{
    if (isMarked_) {
        isMarked_ = false;
        editor_.SetMarks(SourceEditor::MarkLayer::Pairs, {});
    }
    rest_.start();
}

void PairMarks::ShowPair()
{
    const QTextCursor caret = editor_.textCursor();
    const Surrounding around = Around(caret);
    const std::optional<HtmlState> state =
        around.First.isValid() ? colours_.StateAt(around.First) : std::nullopt;
    if (!state || caret.hasSelection()) {
        return;
    }
    const int start = around.First.position();
    const QColor ground = Mixed(
        editor_.palette().color(QPalette::Base), editor_.palette().color(QPalette::Highlight), markShare);
    const QColor text = editor_.palette().color(QPalette::Text);
    QList<QTextEdit::ExtraSelection> marks;
    for (const HtmlSpan& place : PairAt(around.Text, *state, caret.position() - start)) {
        QTextEdit::ExtraSelection mark{ QTextCursor(editor_.document()), {} };
        mark.cursor.setPosition(start + static_cast<int>(place.offset));
        mark.cursor.setPosition(start + static_cast<int>(place.End()), QTextCursor::KeepAnchor);
        mark.format.setBackground(ground);
        mark.format.setForeground(text);
        marks << mark;
    }
    isMarked_ = !marks.isEmpty();
    editor_.SetMarks(SourceEditor::MarkLayer::Pairs, marks);
}
