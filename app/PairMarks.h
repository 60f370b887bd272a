#pragma once

#include <QList>
#include <QObject>
#include <QTextCursor>
#include <QTimer>

class SourceEditor;
class SyntaxColours;

/**
 * Marks the tag that belongs to the one at the caret, or the bracket in a style or script, as long as it
 * lives. It looks when the caret has come to rest, and no further than some hundred thousand characters.
 */
class PairMarks : public QObject
{
    Q_OBJECT

public:
    /** Both must outlive this; `colours` know how lines are to be read. */
    PairMarks(SourceEditor& editor, SyntaxColours& colours);
    ~PairMarks() override;
    Q_DISABLE_COPY_MOVE(PairMarks)

private:
    [[nodiscard]] QList<QTextCursor> Pair();
    void ShowPair();

    SourceEditor& editor_;
    SyntaxColours& colours_;
    QTimer rest_;
    bool isMarked_ = false;
};
