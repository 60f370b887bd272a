#pragma once

#include "app/source/LineEnds.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <chrono>

class QTextDocument;

/**
 * Copies the text of a document a piece at a time, so that whoever types does not wait for it. What is edited
 * meanwhile is copied again: in the end it is the text of one moment. Line ends are those it was loaded with.
 */
class TextSnapshot : public QObject
{
    Q_OBJECT

public:
    /** `document` must live longer. */
    TextSnapshot(const QTextDocument& document, LineEnds lineEnds);

    /** Copies for about so long; true once the pieces are the whole text as it is now. */
    [[nodiscard]] bool CopyFor(std::chrono::milliseconds time);

    /** What is copied, in its order. */
    [[nodiscard]] QStringList Pieces() const;

private:
    /** A run of whole lines. */
    struct Piece
    {
        int Length = 0; ///< in characters of the document
        QString Text = {};
        bool IsCopied = false;
    };

    void Document_ContentsChange(int position, int removed, int added);
    void BeginAnew();
    void CopyFrom(qsizetype index, int start);

    const QTextDocument& document_;
    LineEnds lineEnds_;
    QList<Piece> pieces_; ///< together they are the document
};
