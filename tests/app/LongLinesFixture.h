#pragma once

#include "app/source/LineFitter.h"
#include "app/source/LongLines.h"
#include "tests/app/SourceEditorFixture.h"

#include <QTextBlock>
#include <random>

/** Texts with lines that are held in pieces, and what must be true of them. */
class LongLinesFixture : public SourceEditorFixture
{
protected:
    /** Where caret and anchor are in the text with LF. */
    [[nodiscard]] int Caret() const
    {
        return LinesPosition(*editor_->document(), editor_->textCursor().position());
    }
    [[nodiscard]] int Anchor() const
    {
        return LinesPosition(*editor_->document(), editor_->textCursor().anchor());
    }
    void Place(int anchor, int caret)
    {
        QTextCursor cursor(editor_->document());
        cursor.setPosition(PositionOfLines(*editor_->document(), anchor));
        cursor.setPosition(PositionOfLines(*editor_->document(), caret), QTextCursor::KeepAnchor);
        editor_->setTextCursor(cursor);
    }
    [[nodiscard]] QString Lines() const { return editor_->Text().remove(u'\r'); }
    [[nodiscard]] qsizetype Joints() const { return LongLines::Of(*editor_->document())->Joints().size(); }
    /** Where the joint number `index` is in the text with LF. */
    [[nodiscard]] int JointPlace(int index) const
    {
        return LongLines::Of(*editor_->document())->Joints()[index] - index;
    }
    /** What is wrong with how lines are held; nothing if all is as it must be. */
    [[nodiscard]] QString Trouble() const;
};

inline QString LongLinesFixture::Trouble() const
{
    const QTextDocument& document = *editor_->document();
    QList<int> joints;
    qsizetype length = 0;
    bool isCut = false;
    int line = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        const int size = block.length() - 1;
        const bool ends = EndsAtJoint(block);
        length += size;
        isCut = isCut || ends;
        if (LineNumberOf(block) != line) {
            return QStringLiteral("line %1 has the number %2").arg(line).arg(LineNumberOf(block));
        }
        if (size >= longLine || (isCut && (size > mostInPiece || size == 0))) {
            return QStringLiteral("a piece of %1 characters in line %2").arg(size).arg(line);
        }
        if (ends) {
            joints << block.position() + size;
            if (block.text().back().isHighSurrogate()) {
                return QStringLiteral("a pair is cut");
            }
            continue;
        }
        if (isCut && length < longLine) {
            return QStringLiteral("line %1 with %2 characters is cut").arg(line).arg(length);
        }
        length = 0;
        isCut = false;
        ++line;
    }
    if (joints != LongLines::Of(document)->Joints()) {
        return QStringLiteral("other joints are known than there are");
    }
    return line == LineCount(*editor_->document()) ? QString()
                                                   : QStringLiteral("the count of lines is wrong");
}

/** `length` characters of markup without a line end. */
inline QString MarkupLine(qsizetype length)
{
    const QString part =
        QStringLiteral("<p class=\"note\">Some text &amp; <b>more of it</b>, long enough.</p>");
    return part.repeated(length / part.size() + 1).first(length);
}
