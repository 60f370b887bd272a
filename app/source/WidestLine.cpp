#include "app/source/WidestLine.h"

#include <QAbstractTextDocumentLayout>
#include <QSignalBlocker>
#include <QTextCharFormat>
#include <QTextCursor>
#include <QTextDocument>

namespace {

/** Wider than any window, in pixels. */
constexpr qreal beyondAnyWindow = 1e6;

} // namespace

void KeepWidestLine(QTextDocument& document)
{
    QTextCharFormat wide;
    wide.setFontLetterSpacingType(QFont::AbsoluteSpacing);
    wide.setFontLetterSpacing(beyondAnyWindow);
    QTextCursor cursor(&document);
    // In a block of edits the cursor does not ask for its place, which would lay out its line.
    const auto edit = [&document, &cursor](const auto& change) {
        cursor.beginEditBlock();
        cursor.setPosition(document.characterCount() - 1);
        change();
        cursor.endEditBlock();
    };
    // Nor may the scroll bars, which ask for the last lines.
    const QSignalBlocker quiet(document.documentLayout());
    edit([&cursor] { cursor.insertBlock(); });
    edit([&cursor, &wide] { cursor.insertText(QStringLiteral("-"), wide); });
    edit([&cursor] {
        cursor.setPosition(cursor.position() - 2, QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
    });
    edit([&cursor] { cursor.insertBlock(); });
    edit([&cursor] { cursor.deletePreviousChar(); });
}
