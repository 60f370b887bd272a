#pragma once

#include "app/source/LineStates.h"
#include "html/HtmlSyntax.h"

#include <QTextLayout>
#include <QTimer>
#include <array>

class SourceEditor;

/**
 * Shows the HTML in an editor in colours, as long as it lives. Only the lines that are seen are coloured,
 * just before they are painted, and in their layouts alone: the text, its formats and what can be undone know
 * nothing of it. Where the text has a colour of its own, that is seen.
 */
class SyntaxColours : public QObject
{
    Q_OBJECT

public:
    explicit SyntaxColours(SourceEditor& editor);

    /** How a line is to be read; nothing while that is not known, which it will be before long. */
    [[nodiscard]] std::optional<HtmlState> StateAt(const QTextBlock& block);

    /** Shows the text as before. */
    void TakeAway();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    using Formats = QList<QTextLayout::FormatRange>;

    void Document_ContentsChange(int position, int removed, int added);
    void TakeColours();
    void ReadOn();
    void ColourSeen(const QRect& painted);
    void ColourFrom(const QTextBlock& first, int end, double top, const QRect& painted);
    [[nodiscard]] bool ColourLine(const QTextBlock& block, HtmlState& state);
    [[nodiscard]] Formats FormatsOf(const QTextBlock& block, HtmlState& state) const;

    SourceEditor& editor_;
    LineStates states_;
    std::array<QTextCharFormat, std::size_t(SyntaxKind::Style) + 1> looks_; ///< of each kind
    QTimer later_;                                                          ///< goes on reading
    QTimer pause_;        ///< runs while the user types: then only the lines that were edited are coloured
    bool isStale_ = true; ///< whether what is seen may have to be coloured anew
    int editStart_ = 0;   ///< where these lines begin and end
    int editEnd_ = 0;
    int firstSeen_ = -1; ///< where the lines begin and end that were coloured last
    int endSeen_ = -1;
};
