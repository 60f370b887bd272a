#pragma once

#include "codegen/InsertPlace.h"
#include "codegen/MarkupForm.h"
#include "codegen/TodayMap.h"

/** A whole page with maps for today's browsers, put together by the generators. */
struct TodayTestPage
{
    QString Name;        ///< of its file, without the ending
    QString Text;        ///< lines end in LF
    MapAreas Areas = {}; ///< of the one map that it has, as they are in the editor's list
};

/** Every form and mode with no, one and three areas, and what is special about single ones; a page each. */
[[nodiscard]] QList<TodayTestPage> SmallTodayPages();

/** What is too much to compare by eye: pages from right to left and in HTML 4, larger pictures, odd areas and
 * many, and texts that would break a page. */
[[nodiscard]] QList<TodayTestPage> LargeTodayPages();

/** A page in English without a map. */
[[nodiscard]] QString EmptyTodayPage(const QString& title);

/** A page in HTML 4 without a map, with all that was usual in its day. */
[[nodiscard]] QString OldHtmlPage();

/** Puts a map at the end of the body of `page`, as Insert does. */
[[nodiscard]] QString WithTodayMap(
    const QString& page, MarkupForm form, JSMode mode, const MapSource& source, QSize picture = { 400, 300 });
