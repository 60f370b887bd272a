#include "app/source/LongLines.h"

#include "app/source/LineFitter.h"

#include <QTextDocument>
#include <algorithm>

namespace {

const QList<int>& JointsOf(const QTextDocument& document)
{
    static const QList<int> none;
    const LongLines* const lines = LongLines::Of(document);
    return lines != nullptr ? lines->Joints() : none;
}

int CountBefore(const QList<int>& joints, int position)
{
    return static_cast<int>(std::ranges::lower_bound(joints, position) - joints.begin());
}

/** The number of the first joint in a line from `line` on. */
int FirstJointFrom(const QTextDocument& document, const QList<int>& joints, int line)
{
    int first = 0;
    auto count = static_cast<int>(joints.size());
    while (count > 0) {
        const int half = count / 2;
        if (document.findBlock(joints[first + half]).blockNumber() - (first + half) < line) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return first;
}

/** Whether one of the blocks between two positions is too long for one. */
bool IsAnyLong(const QTextDocument& document, int from, int to)
{
    QTextBlock block = document.findBlock(from);
    for (; block.isValid() && block.position() <= to; block = block.next()) {
        if (block.length() > longLine) {
            return true;
        }
    }
    return false;
}

} // namespace

LongLines::LongLines(QTextDocument& document)
    : QObject(&document)
    , document_(document)
{
    connect(&document, &QTextDocument::contentsChange, this, &LongLines::Document_ContentsChange);
}

const LongLines* LongLines::Of(const QTextDocument& document)
{
    return document.findChild<const LongLines*>(QString(), Qt::FindDirectChildrenOnly);
}

int LongLines::JointsBefore(int position) const
{
    return CountBefore(joints_, position);
}

bool LongLines::Fit(int from, int to)
{
    if (!mayHaveJoints_ && !IsAnyLong(document_, from, to)) {
        return false;
    }
    QTextCursor cursor(&document_);
    const bool isChanged = LineFitter(cursor).Fit(from, to);
    mayHaveJoints_ = mayHaveJoints_ || isChanged;
    return isChanged;
}

LongLines::Loading::Loading(LongLines& lines, const QList<int>& joints)
    : lines_(lines)
    , joints_(joints)
{
    lines_.isLoading_ = true;
    lines_.Take({});
}

LongLines::Loading::~Loading()
{
    lines_.isLoading_ = false;
    lines_.mayHaveJoints_ = !joints_.isEmpty();
    lines_.Take(joints_);
}

void LongLines::Take(const QList<int>& joints)
{
    const bool isOtherCount = joints.size() != joints_.size();
    joints_ = joints;
    if (isOtherCount) {
        Q_EMIT CountChanged();
    }
}

void LongLines::Document_ContentsChange(int position, int removed, int added)
{
    if (isLoading_ || !mayHaveJoints_) {
        return;
    }
    const qsizetype first = CountBefore(joints_, position);
    const qsizetype last = CountBefore(joints_, position + removed);
    const QList<int> found = JointsIn(position, position + added);
    std::for_each(
        joints_.begin() + last, joints_.end(), [removed, added](int& joint) { joint += added - removed; });
    const bool isOtherCount = found.size() != last - first;
    if (isOtherCount) {
        joints_ = joints_.first(first) + found + joints_.sliced(last);
        Q_EMIT CountChanged();
    } else {
        std::ranges::copy(found, joints_.begin() + first);
    }
}

/** The joints from `from` up to before `to`, as they are marked. */
QList<int> LongLines::JointsIn(int from, int to) const
{
    QList<int> found;
    QTextBlock block = document_.findBlock(from);
    for (; block.isValid(); block = block.next()) {
        const int end = block.position() + block.length() - 1;
        if (end >= to) {
            break;
        }
        if (end >= from && EndsAtJoint(block)) {
            found << end;
        }
    }
    return found;
}

int LineNumberOf(const QTextBlock& block)
{
    return block.blockNumber() - CountBefore(JointsOf(*block.document()), block.position());
}

int LineCount(const QTextDocument& document)
{
    return document.blockCount() - static_cast<int>(JointsOf(document).size());
}

QTextBlock BlockOfLine(const QTextDocument& document, int line)
{
    const QList<int>& joints = JointsOf(document);
    return document.findBlockByNumber(line + (line > 0 ? FirstJointFrom(document, joints, line) : 0));
}

QTextBlock FirstPieceOf(const QTextBlock& block)
{
    return BeginsAtJoint(block) ? BlockOfLine(*block.document(), LineNumberOf(block)) : block;
}

QTextBlock LastPieceOf(const QTextBlock& block)
{
    if (!EndsAtJoint(block)) {
        return block;
    }
    const QTextDocument& document = *block.document();
    const int line = LineNumberOf(block);
    const int next = FirstJointFrom(document, JointsOf(document), line + 1);
    return document.findBlockByNumber(line + next);
}

QString LineTextOf(const QTextBlock& block)
{
    QTextBlock piece = FirstPieceOf(block);
    QString text = piece.text();
    while (EndsAtJoint(piece)) {
        piece = piece.next();
        text += piece.text();
    }
    return text;
}

QString WithoutJoints(const QTextDocument& document, const QString& raw, int from)
{
    const QList<int>& joints = JointsOf(document);
    auto joint = std::ranges::lower_bound(joints, from);
    if (joint == joints.end() || *joint - from >= raw.size()) {
        return raw;
    }
    QString text;
    text.reserve(raw.size());
    qsizetype start = 0;
    for (; joint != joints.end() && *joint - from < raw.size(); ++joint) {
        text += QStringView(raw).sliced(start, *joint - from - start);
        start = *joint - from + 1;
    }
    return text + QStringView(raw).sliced(start);
}

int LinesPosition(const QTextDocument& document, int position)
{
    return position - CountBefore(JointsOf(document), position);
}

int PositionOfLines(const QTextDocument& document, qsizetype linesPosition)
{
    const QList<int>& joints = JointsOf(document);
    // Before the joint number i there are i others.
    int first = 0;
    auto count = static_cast<int>(joints.size());
    while (count > 0) {
        const int half = count / 2;
        if (joints[first + half] - (first + half) <= linesPosition) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return static_cast<int>(linesPosition) + first;
}

QTextCursor SelectionOfLines(QTextDocument& document, qsizetype start, qsizetype length)
{
    QTextCursor selection(&document);
    selection.setPosition(PositionOfLines(document, start));
    selection.setPosition(PositionOfLines(document, start + length), QTextCursor::KeepAnchor);
    return selection;
}
