#pragma once

#include "html/HtmlNames.h"

#include <QStringView>

/** What the end of a text is. */
enum class HtmlEnd {
    OfPage,
    OfLine ///< a line end follows, which is not in the text
};

/** How far a text has been read, and what lies ahead. Places are in UTF-16 units from the text's beginning.
 */
struct HtmlCursor
{
    static constexpr int endOfPage = -1;

    HtmlCursor(QStringView read, HtmlEnd end)
        : text(read)
        , behind(end == HtmlEnd::OfLine ? '\n' : endOfPage)
    {
    }

    QStringView text; ///< must outlive the cursor
    int behind;       ///< what At() is behind the text
    qsizetype at = 0;

    [[nodiscard]] bool IsAtEnd() const { return at >= text.size(); }

    /** What has not been read yet. */
    [[nodiscard]] QStringView Rest() const { return text.sliced(at); }

    /** The character there, or `behind` at the end. */
    [[nodiscard]] int At(qsizetype index) const
    {
        return index < text.size() ? text[index].unicode() : behind;
    }

    /** Whether `word` stands there, in letters of either case. */
    [[nodiscard]] bool HasWord(qsizetype place, QLatin1String word) const
    {
        return text.size() - place >= word.size() && IsName(text.sliced(place, word.size()), word);
    }

    /** Where `what` begins next from `from` on, or the end of the text. */
    template<class What> [[nodiscard]] qsizetype Find(What what, qsizetype from) const
    {
        const qsizetype found = text.indexOf(what, from);
        return found < 0 ? text.size() : found;
    }
    template<class What> [[nodiscard]] qsizetype Find(What what) const { return Find(what, at); }

    void PassSpaces()
    {
        while (!IsAtEnd() && IsHtmlSpace(text[at].unicode())) {
            ++at;
        }
    }
};
