#include "app/source/LineFitter.h"

#include <QTextDocument>
#include <algorithm>

namespace {

constexpr int jointProperty = QTextFormat::UserProperty + 2;

/** A block's characters, without the one behind it. */
qsizetype SizeOf(const QTextBlock& block)
{
    return block.length() - 1;
}

QTextCharFormat JointFormat()
{
    QTextCharFormat format;
    format.setProperty(jointProperty, true);
    return format;
}

/** Whether the line of `block` would be long if it had `more` characters. */
bool IsLong(const QTextBlock& block, qsizetype more = 0)
{
    qsizetype size = SizeOf(block) + more;
    for (QTextBlock one = block; size < longLine && BeginsAtJoint(one);) {
        one = one.previous();
        size += SizeOf(one);
    }
    for (QTextBlock one = block; size < longLine && EndsAtJoint(one);) {
        one = one.next();
        size += SizeOf(one);
    }
    return size >= longLine;
}

/** Whether the cut behind `piece` may be a bad one after an edit with so many characters behind it. */
bool MaySpoilCut(const QTextBlock& piece, qsizetype behind, bool removes, QStringView added)
{
    const auto opens = [](QChar c) { return c == u'<' || c == u'&'; };
    return behind == 0 || (behind < seenBeforeCut && !IsBetweenWords(piece.text()) &&
                           (removes || std::ranges::any_of(added, opens)));
}

bool IsCutWell(const QTextBlock& before)
{
    return IsGoodCut(before.text(), before.next().text());
}

} // namespace

bool BeginsAtJoint(const QTextBlock& block)
{
    return block.position() > 0 && block.charFormat().hasProperty(jointProperty);
}

bool EndsAtJoint(const QTextBlock& block)
{
    const QTextBlock next = block.next();
    return next.isValid() && BeginsAtJoint(next);
}

void MarkJoints(QTextDocument& document, const QList<int>& joints)
{
    if (joints.isEmpty()) {
        return;
    }
    const QTextCharFormat format = JointFormat();
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    for (const int joint : joints) {
        cursor.setPosition(joint);
        cursor.setPosition(joint + 1, QTextCursor::KeepAnchor);
        cursor.mergeCharFormat(format);
    }
    cursor.endEditBlock();
}

void InsertLines(QTextCursor& cursor, const QString& text)
{
    QTextCharFormat format = cursor.charFormat();
    if (!format.hasProperty(jointProperty)) {
        cursor.insertText(text);
        return;
    }
    format.clearProperty(jointProperty);
    cursor.insertText(text, format);
}

LineFitter::LineFitter(QTextCursor& cursor)
    : cursor_(cursor)
{
}

bool LineFitter::Fit(int from, int to)
{
    const QTextDocument& document = *cursor_.document();
    isChanged_ = false;
    QTextBlock block = document.findBlock(to);
    block = block.isValid() ? block : document.lastBlock();
    // From the last to the first: what is changed does not move what comes next.
    for (; block.isValid(); block = block.previous()) {
        block = FitAround(block);
        if (block.position() <= from) {
            break;
        }
    }
    return isChanged_;
}

/** Makes `block` fit, with those beside it if need be; the first that it concerned. */
QTextBlock LineFitter::FitAround(const QTextBlock& block)
{
    const bool begins = BeginsAtJoint(block);
    const bool ends = EndsAtJoint(block);
    if (!begins && !ends && SizeOf(block) < longLine) {
        return block;
    }
    QTextBlock first = block;
    QTextBlock last = block;
    if (!IsLong(block)) {
        while (BeginsAtJoint(first)) {
            first = first.previous();
        }
        while (EndsAtJoint(last)) {
            last = last.next();
        }
        return Unite(first, last);
    }
    if (begins && !IsCutWell(block.previous())) {
        first = block.previous();
    }
    if (ends && !IsCutWell(block)) {
        last = block.next();
    }
    if (first == last && SizeOf(block) < leastInPiece) {
        (ends ? last : first) = ends ? block.next() : block.previous();
    }
    if (first != last || SizeOf(block) > mostInPiece) {
        CutAnew(first, last);
    }
    SpreadFormat(BeginsAtJoint(first) ? first.previous() : first);
    return first;
}

/** Makes one block of those from `first` to `last`. */
QTextBlock LineFitter::Unite(const QTextBlock& first, QTextBlock last)
{
    const int start = first.position();
    while (last.position() != start) {
        const int joint = last.position() - 1;
        last = last.previous();
        cursor_.setPosition(joint);
        cursor_.setPosition(joint + 1, QTextCursor::KeepAnchor);
        cursor_.removeSelectedText();
        isChanged_ = true;
    }
    return cursor_.document()->findBlock(start);
}

/** Cuts the pieces from `first` to `last` as if they were one. */
void LineFitter::CutAnew(const QTextBlock& first, const QTextBlock& last)
{
    QString text;
    QList<qsizetype> joints;
    for (QTextBlock block = first; block != last; block = block.next()) {
        text += block.text();
        joints << text.size();
    }
    text += last.text();
    const QList<qsizetype> cuts = CutsOf(text);
    if (cuts == joints) {
        return; // there is no better place
    }
    const int start = first.position();
    const QTextBlock whole = Unite(first, last);
    for (auto cut = cuts.crbegin(); cut != cuts.crend(); ++cut) {
        InsertJoint(whole, start + static_cast<int>(*cut));
    }
}

/** Lets the pieces behind `block` end as it does; edits may have brought parts of several lines together. */
void LineFitter::SpreadFormat(const QTextBlock& block)
{
    const QTextBlockFormat format = block.blockFormat();
    for (QTextBlock next = block; EndsAtJoint(next);) {
        next = next.next();
        if (next.blockFormat() == format) {
            break;
        }
        cursor_.setPosition(next.position());
        cursor_.setBlockFormat(format);
        isChanged_ = true;
    }
}

void LineFitter::InsertJoint(const QTextBlock& block, int position)
{
    cursor_.setPosition(position);
    cursor_.insertBlock(block.blockFormat(), JointFormat());
    isChanged_ = true;
}

bool NeedsFitting(const QTextCursor& selected, QStringView added)
{
    const QTextDocument& document = *selected.document();
    const int start = selected.selectionStart();
    const int end = selected.selectionEnd();
    const QTextBlock first = document.findBlock(start);
    const QTextBlock last = first.contains(end) ? first : document.findBlock(end);
    const bool begins = BeginsAtJoint(first);
    const bool ends = EndsAtJoint(last);
    const qsizetype behind = last.position() + SizeOf(last) - end;
    const qsizetype size = start - first.position() + added.size() + behind;
    if (!begins && !ends) {
        return size >= longLine;
    }
    const bool isAtJoint =
        (begins && start == first.position()) || (ends && MaySpoilCut(last, behind, start != end, added));
    return first != last || isAtJoint || size > mostInPiece || size < leastInPiece ||
           !IsLong(first, size - SizeOf(first));
}
