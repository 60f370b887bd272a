#pragma once

#include <QList>
#include <QString>

class QTextCursor;
class QTextDocument;
struct TextReplacement;

// The text of a page and the document that holds it in the editor. The document has one character for a line
// end, the text has CR LF, and positions and lengths in the text count it as these two. Where the document
// has a long line in several blocks (LongLines), the text has nothing between them.

/** What a document takes for a line end or the edge of a frame of its own, and cannot hold as a character. */
[[nodiscard]] bool IsOfLayout(QChar character);

/** Whether a document takes `text` as it stands. */
[[nodiscard]] bool IsForDocument(const QString& text);

/** What becomes of the characters that a document cannot hold. */
enum class LayoutCharacters {
    AsSaved, ///< as in the code page, which lacks them: "?"
    AsBytes  ///< the bytes of their UTF-8, held as such, three characters each
};

/**
 * `text` as a document can hold it, in one pass over any length: every kind of line end as the one that it
 * takes for a new line.
 */
[[nodiscard]] QString ForDocument(const QString& text, LayoutCharacters layout = LayoutCharacters::AsSaved);

/** A document's own text, in which new lines are paragraph separators, with CR LF line ends. */
[[nodiscard]] QString WithCrLf(const QString& lines);

/** A document's position, which counts a line end as one, in characters of the text. */
[[nodiscard]] qsizetype TextPosition(const QTextDocument& document, int position);

/** The document's position of a character of the text; between CR and LF counts as before both. */
[[nodiscard]] int DocumentPosition(const QTextDocument& document, qsizetype position);

/** A part of a document, in its positions. */
struct EditedPart
{
    int From = 0;
    int To = 0;
};

/**
 * Makes `replacements`, in ascending order and apart from one another, in the document of `cursor`;
 * the part that they are in afterwards. The caller has begun the block of edits that makes them one.
 */
EditedPart ReplaceEach(
    QTextCursor& cursor, const QList<TextReplacement>& replacements,
    LayoutCharacters layout = LayoutCharacters::AsSaved);
