#pragma once

#include "html/HtmlPart.h"

#include <QList>
#include <QString>
#include <functional>

/** Something in a page that may be a mistake. */
struct PageProblem
{
    HtmlSpan Place; ///< in the page
    int Line = 0;   ///< from 1
    QString Text;
};

/** What was found in a page. */
struct PageProblems
{
    QList<PageProblem> List; ///< in the order of the page
    bool AreMore = false;    ///< whether there are more than are told, `most` of them

    static constexpr qsizetype most = 1000;
};

/** Whether there is a file for the relative address `path`, which is decoded and has neither query nor
 * fragment. */
using IsFileThere = std::function<bool(const QString& path)>;

/**
 * Looks for unknown tags, elements that are not closed, end tags of nothing, doubled ids and names of maps,
 * maps and pictures that do not find each other, areas without a text, and with `isThere` for missing files.
 * One pass over the page.
 */
[[nodiscard]] PageProblems CheckPage(const QString& page, const IsFileThere& isThere = {});
