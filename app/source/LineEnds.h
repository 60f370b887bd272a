#pragma once

#include <QString>

class LongLines;
class QTextBlock;
class QTextDocument;

/**
 * The line ends that a text came with. A document knows none; most lines end alike, and those that do not
 * carry it as a property of their block's format, which follows the lines through edits and undo.
 */
class LineEnds
{
public:
    enum class Kind : int { CrLf, Lf, Cr };

    /** Those of a new text. */
    LineEnds() = default;

    /** Those of `text`, whose lines are in `document` already; there is no step of undo of it. */
    LineEnds(const QString& text, QTextDocument& document);

    /** The text of `document` with its own line ends; a new line has those of the line that it came from. */
    [[nodiscard]] QString TextOf(const QTextDocument& document) const;

    /** What is behind `block`, which must not be the last one: a line end, or nothing where its line goes on.
     */
    [[nodiscard]] QStringView EndOf(const QTextBlock& block) const;

private:
    Kind most_ = Kind::CrLf;
    bool areMixed_ = false;
    const LongLines* longLines_ = nullptr; ///< of the document, which must live longer
};
