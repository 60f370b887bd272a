#include "app/source/ShapedLines.h"

#include <QImage>
#include <QPainter>
#include <QTextLayout>
#include <algorithm>

namespace {

/** Where a place is after an edit; inside what was replaced, at its end. */
int PlaceAfter(int place, int position, int removed, int added)
{
    return place <= position ? place : std::max(place - removed, position) + added;
}

/** Frees the glyphs of blocks, whose lines stay laid out. Only painting does so, here of nothing. */
class Freeing
{
public:
    void Free(const QTextBlock& block)
    {
        QTextLayout* const layout = block.layout();
        if (layout->cacheEnabled()) {
            layout->setCacheEnabled(false);
            layout->draw(&painter_, QPointF(), {}, QRectF(0, -2, 1, 1)); // above all lines
        }
    }

private:
    QImage nothing_{ 1, 1, QImage::Format_ARGB32_Premultiplied };
    QPainter painter_{ &nothing_ };
};

} // namespace

ShapedLines::ShapedLines(QTextDocument& document)
    : QObject(&document)
    , document_(document)
{
    connect(&document, &QTextDocument::contentsChange, this, &ShapedLines::Document_ContentsChange);
}

void ShapedLines::Keep(const QTextBlock& first, int count)
{
    if (first.position() == from_ && count == count_ && document_.blockCount() == blockCount_) {
        return;
    }
    int last = first.position();
    QTextBlock block = first;
    for (int i = 0; i < count && block.isValid(); ++i) {
        block.layout()->setCacheEnabled(true);
        last = block.position();
        block = block.next();
    }
    LetGoBut(first.position(), last);
    from_ = first.position();
    to_ = last;
    count_ = count;
    blockCount_ = document_.blockCount();
}

/** Lets go of what was kept, but for the blocks between two places. */
void ShapedLines::LetGoBut(int from, int to) const
{
    Freeing freeing;
    // What an edit has put in between was never shaped, however much it is.
    QTextBlock block = document_.findBlock(from_);
    for (int i = 0; i < count_ && block.isValid() && block.position() <= to_; ++i) {
        if (block.position() < from || block.position() > to) {
            freeing.Free(block);
        }
        block = block.next();
    }
    block = document_.findBlock(to_);
    for (int i = 0; i < count_ && block.isValid() && block.position() >= from_; ++i) {
        if (block.position() < from || block.position() > to) {
            freeing.Free(block);
        }
        block = block.previous();
    }
}

void ShapedLines::Document_ContentsChange(int position, int removed, int added)
{
    from_ = PlaceAfter(from_, position, removed, added);
    to_ = PlaceAfter(to_, position, removed, added);
    if (removed > 1 || added > 1) {
        blockCount_ = -1; // as many blocks as before may be others
    }
}
