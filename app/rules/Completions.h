#pragma once

#include "html/HtmlScanner.h"

#include <QStringList>
#include <functional>

/** Where names come from that are not those of HTML; each is asked only when its names are wanted. */
struct CompletionSources
{
    /** The names of the maps in the page. */
    std::function<QStringList()> Maps;
    /** The files and folders in a folder beside the page, folders with a "/" at their ends. */
    std::function<QStringList(const QString& folder)> Files;
};

/** What can be written at a place. */
struct Completions
{
    HtmlSpan Begun;    ///< what stands there already, and is replaced
    QStringList Texts; ///< with "|" where the caret comes, if not at the end
};

/**
 * What can be written at `caret`, in the order in which it is offered. `text` is a part of a page that begins
 * at a line whose state is `state`.
 */
[[nodiscard]] Completions
CompletionsAt(QStringView text, const HtmlState& state, qsizetype caret, const CompletionSources& sources);

/** The end tag that goes with the start tag that a ">" at `caret` would end; empty if there is none to be
 * written. */
[[nodiscard]] QString EndTagBehind(QStringView text, const HtmlState& state, qsizetype caret);
