#pragma once

#include <QList>
#include <QObject>
#include <QTextBlock>

class QTextCursor;
class QTextDocument;

/**
 * Knows where the joints of a document are, which is what tells its blocks from the lines of the text, and
 * its positions from theirs. Qt lays a block out whole, so a long line is in several. The functions below ask
 * it; in a document without one each block is a line.
 */
class LongLines : public QObject
{
    Q_OBJECT

public:
    /** Becomes a child of `document`, which has no joints yet. */
    explicit LongLines(QTextDocument& document);

    /** That of `document`, or null. */
    [[nodiscard]] static const LongLines* Of(const QTextDocument& document);

    /** The positions of all joints, in ascending order; in a block of edits, those before it. */
    [[nodiscard]] const QList<int>& Joints() const { return joints_; }

    /** How many joints there are before `position`. */
    [[nodiscard]] int JointsBefore(int position) const;

    /** Makes the lines fit that were edited between two positions, in a block of edits; whether it had to. */
    bool Fit(int from, int to);

    /** While it lives, what is loaded has no joints; then it has those that are marked. */
    class Loading
    {
    public:
        Loading(LongLines& lines, const QList<int>& joints);
        ~Loading();
        Q_DISABLE_COPY_MOVE(Loading)

    private:
        LongLines& lines_;
        const QList<int>& joints_;
    };

Q_SIGNALS:
    /** There are more or fewer joints than before. */
    void CountChanged();

private:
    void Document_ContentsChange(int position, int removed, int added);
    [[nodiscard]] QList<int> JointsIn(int from, int to) const;
    void Take(const QList<int>& joints);

    QTextDocument& document_;
    QList<int> joints_;
    bool isLoading_ = false;
    bool mayHaveJoints_ = false; ///< there have been some since the text was loaded
};

/** The number of the line that `block` belongs to, from 0. */
[[nodiscard]] int LineNumberOf(const QTextBlock& block);

[[nodiscard]] int LineCount(const QTextDocument& document);

/** The first block of a line; invalid where there is no such line. */
[[nodiscard]] QTextBlock BlockOfLine(const QTextDocument& document, int line);

/** The blocks that the line of `block` begins and ends with. */
[[nodiscard]] QTextBlock FirstPieceOf(const QTextBlock& block);
[[nodiscard]] QTextBlock LastPieceOf(const QTextBlock& block);

/** The text of the line of `block`. */
[[nodiscard]] QString LineTextOf(const QTextBlock& block);

/** `raw`, which is the document's own text from `from` on, without the joints. */
[[nodiscard]] QString WithoutJoints(const QTextDocument& document, const QString& raw, int from = 0);

// Positions in the text with LF, which are those of the document less the joints.

[[nodiscard]] int LinesPosition(const QTextDocument& document, int position);

/** At a joint, the place behind it. */
[[nodiscard]] int PositionOfLines(const QTextDocument& document, qsizetype linesPosition);

[[nodiscard]] QTextCursor SelectionOfLines(QTextDocument& document, qsizetype start, qsizetype length);
