#pragma once

#include <QObject>
#include <QTextBlock>
#include <QTextDocument>

/**
 * Lets the lines that are seen stay shaped: with the glyphs of their characters, which Qt otherwise finds
 * anew for every painting and for every place of the caret. What has left the view does not take the memory.
 */
class ShapedLines : public QObject
{
    Q_OBJECT

public:
    /** Becomes a child of `document`. */
    explicit ShapedLines(QTextDocument& document);

    /** From now on it is `count` blocks from `first` on, and no others. */
    void Keep(const QTextBlock& first, int count);

private:
    void Document_ContentsChange(int position, int removed, int added);
    void LetGoBut(int from, int to) const;

    QTextDocument& document_;
    int from_ = 0; ///< where the blocks are that stay shaped: the first
    int to_ = 0;   ///< and the last
    int count_ = 0;
    int blockCount_ =
        -1; ///< of the document, when they were chosen; less than nought when there may be others
};
