#pragma once

#include "app/source/LineCuts.h"

#include <QTextBlock>
#include <QTextCursor>

// A long line is in several blocks of its document. The character that the document has between two of them
// is marked in its format as a joint, which follows it through edits and undo: no line ends there.

/** Whether `block` goes on with the line of the block before. */
[[nodiscard]] bool BeginsAtJoint(const QTextBlock& block);

/** Whether the block behind `block` goes on with its line. */
[[nodiscard]] bool EndsAtJoint(const QTextBlock& block);

/** Marks the line ends of `document` at `joints` as such, in one block of edits. */
void MarkJoints(QTextDocument& document, const QList<int>& joints);

/** Puts in `text`, with LF line ends, in place of what `cursor` has selected; none of it becomes a joint. */
void InsertLines(QTextCursor& cursor, const QString& text);

/** Cuts lines that have become long, and puts together those that no longer are. */
class LineFitter
{
public:
    /** Edits with `cursor`, whose block of edits has begun. */
    explicit LineFitter(QTextCursor& cursor);

    /** Makes the lines fit that were edited between two positions; whether that was needed. */
    bool Fit(int from, int to);

private:
    [[nodiscard]] QTextBlock FitAround(const QTextBlock& block);
    [[nodiscard]] QTextBlock Unite(const QTextBlock& first, QTextBlock last);
    void CutAnew(const QTextBlock& first, const QTextBlock& last);
    void SpreadFormat(const QTextBlock& block);
    void InsertJoint(const QTextBlock& block, int position);

    QTextCursor& cursor_;
    bool isChanged_ = false;
};

/** Whether lines may have to be made fit after `added`, without line ends, came for what was selected. */
[[nodiscard]] bool NeedsFitting(const QTextCursor& selected, QStringView added);
