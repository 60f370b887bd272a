#pragma once

#include <QString>

/** What a new page for today's browsers begins as, and where in it the user goes on. */
struct TodayPageFrame
{
    QString Text;        ///< with CR LF line ends
    qsizetype Caret = 0; ///< in the empty line of its body
};

/** A valid page in UTF-8 (html.spec.whatwg.org) whose language is `language`, as BCP 47 names it. */
[[nodiscard]] TodayPageFrame MakeTodayPageFrame(const QString& language);
