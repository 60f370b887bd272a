#include "app/source/TextSnapshot.h"

#include <QElapsedTimer>
#include <QTextBlock>
#include <QTextDocument>
#include <algorithm>

namespace {

/** So much is copied before the clock is looked at, in characters, but for a line that is longer. */
constexpr int pieceLength = 1 << 16;

} // namespace

TextSnapshot::TextSnapshot(const QTextDocument& document, LineEnds lineEnds)
    : document_(document)
    , lineEnds_(lineEnds)
{
    BeginAnew();
    connect(&document, &QTextDocument::contentsChange, this, &TextSnapshot::Document_ContentsChange);
}

void TextSnapshot::BeginAnew()
{
    pieces_ = { Piece{ .Length = document_.characterCount() } };
}

bool TextSnapshot::CopyFor(std::chrono::milliseconds time)
{
    QElapsedTimer clock;
    clock.start();
    int start = 0;
    for (qsizetype i = 0; i < pieces_.size(); ++i) {
        if (!pieces_.at(i).IsCopied) {
            if (clock.elapsed() >= time.count()) {
                return false;
            }
            CopyFrom(i, start);
        }
        start += pieces_.at(i).Length;
    }
    return true;
}

/** Copies the first lines of the piece `index`, which starts at `start`; the others become the next piece. */
void TextSnapshot::CopyFrom(qsizetype index, int start)
{
    const int whole = pieces_.at(index).Length;
    Piece copied{ .IsCopied = true };
    copied.Text.reserve(std::min(whole, pieceLength));
    QTextBlock line = document_.findBlock(start);
    while (copied.Length < whole && copied.Length < pieceLength && line.isValid()) {
        copied.Length += line.length();
        const QTextBlock next = line.next();
        copied.Text += line.text();
        if (next.isValid()) {
            copied.Text += lineEnds_.EndOf(line);
        }
        line = next;
    }
    copied.Length = std::min(copied.Length, whole);
    const int rest = whole - copied.Length;
    pieces_[index] = std::move(copied);
    if (rest > 0) {
        pieces_.insert(index + 1, Piece{ .Length = rest });
    }
}

/** What touches the edit is one piece again that is to be copied; it still begins and ends with a line. */
void TextSnapshot::Document_ContentsChange(int position, int removed, int added)
{
    qsizetype first = -1;
    qsizetype last = -1;
    int start = 0;
    int length = 0;
    int total = 0;
    for (qsizetype i = 0; i < pieces_.size(); ++i) {
        const int end = start + pieces_.at(i).Length;
        const bool isTouched = end > position && start <= position + removed;
        if (isTouched) {
            first = first < 0 ? i : first;
            last = i;
            length += pieces_.at(i).Length;
        }
        start = end;
        total = end;
    }
    const int growth = added - removed;
    // Changes of the whole document may be told with more characters than it has.
    if (first < 0 || length + growth <= 0 || total + growth != document_.characterCount()) {
        BeginAnew();
        return;
    }
    pieces_.remove(first, last - first + 1);
    pieces_.insert(first, Piece{ .Length = length + growth });
}

QStringList TextSnapshot::Pieces() const
{
    QStringList texts;
    texts.reserve(pieces_.size());
    for (const Piece& piece : pieces_) {
        texts << piece.Text;
    }
    return texts;
}
