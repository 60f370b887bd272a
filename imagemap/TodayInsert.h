#pragma once

#include "codegen/InsertPlace.h"
#include "codegen/MarkupForm.h"

/** A map for today's browsers, about to be put into a page. */
struct TodayInsert
{
    std::optional<InsertRefusal>
        refusal; ///< why nothing can be put where the caret is; then there is no more
    MapInsertion insertion;
    TextSpan place; ///< what the map replaces
    TodayNotes notes;
    NeededBlocks inFront; ///< what has been put in front of everything, since the page has no head
};

/** The picture that a map is made for. */
struct MapPicture
{
    QString path;
    QSize size;
};

/** What a map for today's browsers has to know of `page`, which holds `text`, and without the map `rest`. */
[[nodiscard]] TodayPage
ContextOf(const PageDocument& page, QStringView text, QStringView rest, const MapPicture& picture);

/** The same without a text, which an update does not ask for. */
[[nodiscard]] TodayPage ContextOf(const PageDocument& page, const MapPicture& picture);

/** Writes the map in `form`, which is none of HTML 4, for the place of the caret in `page`. */
[[nodiscard]] TodayInsert PrepareTodayInsert(
    const PageDocument& page, MarkupForm form, JSMode mode, const MapSource& source,
    const MapPicture& picture);

/** Whether the page has to be saved before it can refer to the files of the map by short ways. */
[[nodiscard]] bool LacksFolder(const PageDocument& page, const MapSource& source);

/** What the user is told in a box when the caret is where nothing can be inserted. */
[[nodiscard]] QString RefusalText(InsertRefusal refusal);

/** What the status panel says of a map that has been inserted. */
[[nodiscard]] QString TodayHint(const TodayInsert& insert);

/** What it says of one in HTML 4. */
[[nodiscard]] QString Html4Hint(int line, JSMode mode);

inline constexpr QStringView unsavedPageQuestion =
    u"The page has not been saved yet, so it would refer to its pictures by their whole paths on this "
    u"computer.\nSave it first to have them found beside it.\n\nInsert the map all the same?";

inline constexpr QStringView mapElementQuestion =
    u"A map element has no room for the messages of the mode that is chosen.\n\nInsert the map with shapes "
    u"over the picture, which shows them?";
