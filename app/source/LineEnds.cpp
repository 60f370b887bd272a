#include "app/source/LineEnds.h"

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
    cursor.setPosition(document.findBlockByNumber(first).position());
    cursor.setPosition(document.findBlockByNumber(last).position(), QTextCursor::KeepAnchor);
    cursor.mergeBlockFormat(format);
}

} // namespace

LineEnds::LineEnds(const QString& text, QTextDocument& document)
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
    const QString lines = document.toRawText();
    const QStringView most = TextOfKind(static_cast<int>(most_));
    QString text;
    text.reserve(lines.size() + (most.size() - 1) * document.blockCount());
    QTextBlock block = document.begin();
    qsizetype start = 0;
    for (qsizetype end = lines.indexOf(QChar::ParagraphSeparator); end >= 0;
         end = lines.indexOf(QChar::ParagraphSeparator, start)) {
        text += QStringView(lines).sliced(start, end - start);
        if (areMixed_) {
            text += EndOf(block);
            block = block.next();
        } else {
            text += most;
        }
        start = end + 1;
    }
    return text + QStringView(lines).sliced(start);
}

QStringView LineEnds::EndOf(const QTextBlock& line) const
{
    const QVariant kind = areMixed_ ? line.blockFormat().property(lineEndProperty) : QVariant();
    return TextOfKind(kind.isValid() ? kind.toInt() : static_cast<int>(most_));
}
