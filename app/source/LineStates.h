#pragma once

#include "html/HtmlScanner.h"

#include <QTextBlock>
#include <QTextDocument>
#include <optional>

/** What is remembered of a line in the user data of its block. */
struct LineMemory : QTextBlockUserData
{
    std::optional<HtmlState> start; ///< the scanner's state at its start, where that is kept
    bool isColoured = false;        ///< whether its layout has formats of its own
};

/** What is remembered of a line, to be changed; nothing at first. */
[[nodiscard]] LineMemory& MemoryOf(QTextBlock block);

/**
 * How the lines of a document are to be read: the state of the HTML scanner at their starts. Only a line in
 * some thousand characters has its state kept. After an edit what was known of the lines behind it holds from
 * where a state comes out as it was; until then it is in doubt.
 */
class LineStates
{
public:
    /** Nothing is known yet. `document` must outlive this. */
    explicit LineStates(const QTextDocument& document);

    /** Takes note of an edit, told as QTextDocument::contentsChange() tells it. */
    void NoteChange(int position, int removed, int added);

    /**
     * The state at the start of `block`. Nothing when more than about `most` characters would have to be
     * read for it; what was read by then is kept, and the next call goes on there.
     */
    [[nodiscard]] std::optional<HtmlState> At(const QTextBlock& block, qsizetype most);

private:
    /** A line on the way from one that is kept to the next. */
    struct Reading
    {
        int start = -1; ///< less than nought while there is none
        HtmlState state;
        qsizetype characters = 0; ///< since the kept one
        int lines = 0;
    };

    [[nodiscard]] QTextBlock KeptBefore(int position) const;
    [[nodiscard]] QTextBlock BeginReading(const QTextBlock& block, Reading& reading) const;
    bool Settle(const QTextBlock& block, const HtmlState& state);

    const QTextDocument& document_;
    int known_ = 0;   ///< what is kept of the lines that start up to here is right
    int edited_ = 0;  ///< while some is in doubt: where the edits end
    Reading last_;    ///< the line that was asked for last, while what is before it is as it was
    int scanned_ = 0; ///< what is kept of the lines between edited_ and here fits together
};
