#include "app/source/LineEnds.h"

#include "app/source/LineFitter.h"
#include "app/source/LongLines.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <array>

namespace {

using enum LineEnds::Kind;

constexpr int lineEndProperty = QTextFormat::UserProperty + 1;
constexpr std::array<QStringView, 3> lineEndTexts = { u"\r\n", u"\n", u"\r" };

/** Calls `act` for each line end of `text` with its kind. */
template<class Act> void ForEachLineEnd(QStringView text, Act act)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (text[i] == u'\n') {
            act(Lf);
        } else if (text[i] == u'\r') {
            const bool isPair = i + 1 < text.size() && text[i + 1] == u'\n';
            act(isPair ? CrLf : Cr);
            i += isPair ? 1 : 0;
        }
    }
}

QStringView TextOfKind(int kind)
{
    return lineEndTexts[static_cast<std::size_t>(kind)];
}

/** Marks the lines from `first` to `last` as ending in the way of `kind`. */
void MarkLines(QTextCursor& cursor, int first, int last, int kind)
{
    const QTextDocument& document = *cursor.document();
    QTextBlockFormat format;
    format.setProperty(lineEndProperty, kind);
    cursor.setPosition(BlockOfLine(document, first).position());
    cursor.setPosition(LastPieceOf(BlockOfLine(document, last)).position(), QTextCursor::KeepAnchor);
    cursor.mergeBlockFormat(format);
}

} // namespace

LineEnds::LineEnds(const QString& text, QTextDocument& document)
    : longLines_(LongLines::Of(document))
{
    std::array<qsizetype, lineEndTexts.size()> counts = {};
    ForEachLineEnd(text, [&counts](Kind kind) { ++counts[static_cast<std::size_t>(kind)]; });
    const auto* const most = std::max_element(counts.begin(), counts.end());
    most_ = static_cast<Kind>(most - counts.begin());
    areMixed_ = std::count(counts.begin(), counts.end(), 0) < qsizetype(counts.size()) - 1;
    if (!areMixed_) {
        return;
    }
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    int line = 0;
    int first = 0; // of those that end alike
    Kind kindOfFirst = most_;
    const auto markUpTo = [this, &cursor, &first, &kindOfFirst](int end) {
        if (end > first && kindOfFirst != most_) {
            MarkLines(cursor, first, end - 1, static_cast<int>(kindOfFirst));
        }
    };
    ForEachLineEnd(text, [&](Kind kind) {
        if (kind != kindOfFirst) {
            markUpTo(line);
            first = line;
            kindOfFirst = kind;
        }
        ++line;
    });
    markUpTo(line);
    cursor.endEditBlock();
}

QString LineEnds::TextOf(const QTextDocument& document) const
{
    const QString lines = WithoutJoints(document, document.toRawText());
    const QStringView most = TextOfKind(static_cast<int>(most_));
    QString text;
    text.reserve(lines.size() + (most.size() - 1) * document.blockCount());
    QTextBlock line = document.begin(); // or the last block of it
    qsizetype start = 0;
    for (qsizetype end = lines.indexOf(QChar::ParagraphSeparator); end >= 0;
         end = lines.indexOf(QChar::ParagraphSeparator, start)) {
        text += QStringView(lines).sliced(start, end - start);
        if (areMixed_) {
            line = LastPieceOf(line);
            text += EndOf(line);
            line = line.next();
        } else {
            text += most;
        }
        start = end + 1;
    }
    return text + QStringView(lines).sliced(start);
}

QStringView LineEnds::EndOf(const QTextBlock& block) const
{
    const bool areAnyLong = longLines_ != nullptr && !longLines_->Joints().isEmpty();
    if (areAnyLong && EndsAtJoint(block)) {
        return {};
    }
    if (!areMixed_) {
        return TextOfKind(static_cast<int>(most_));
    }
    const QTextBlock line = areAnyLong ? FirstPieceOf(block) : block;
    const QVariant kind = line.blockFormat().property(lineEndProperty);
    return TextOfKind(kind.isValid() ? kind.toInt() : static_cast<int>(most_));
}
