#pragma once

#include "codegen/HtmlEscaping.h"
#include "codegen/MapMarkup.h"
#include "codegen/MarkupForm.h"

#include <QSize>
#include <functional>

/** An area as a page for today's browsers says it. */
struct TodayArea
{
    AreaShape Shape = AreaShape::Rectangle;
    QList<int> Coordinates; ///< as in MapArea
    QString Address;        ///< percent-encoded; empty for an area that leads nowhere
    QString Target;         ///< a name that a page may use, or empty
    QString Label;          ///< for screen readers
    QString Message;        ///< a text, or the address of a picture; empty if there is none
    QSize MessageSize;      ///< of the picture, if it could be read
    QString MessageAlt;     ///< of the picture

    bool operator==(const TodayArea&) const = default;
};

/** What a map for today's browsers is written from: every text as it counts, not yet escaped. */
struct TodayMap
{
    PageCharset Charset = PageCharset::Ascii;
    QString Name;    ///< unique in the page, and the start of every id
    QString Picture; ///< its address
    QSize Own;       ///< the picture's, to which the coordinates refer
    QSize Shown;     ///< the one it has in the page
    QString AltText;
    QString AlignClass; ///< of the constant style, or empty
    QString Default;    ///< the message that is shown first: a text, or the address of a picture
    QSize DefaultSize;  ///< of the picture, if it could be read
    QList<TodayArea> Areas;
};

/** What only the page and the picture know of a map. */
struct TodayPage
{
    QStringView Text; ///< the page without what the map replaces
    QString Path;     ///< empty while the page is no file
    PageCharset Charset = PageCharset::Ascii;
    QString PicturePath;                              ///< of the picture's file
    QSize PictureSize;                                ///< in its own pixels
    std::function<QSize(const QString& path)> SizeOf; ///< of another picture's file; empty if it has none
};

/** What a user may want to know of the map that was made. */
struct TodayNotes
{
    bool lacksAltText = false;
    QList<int> areasWithoutText; ///< the numbers of areas that say no more than where they lead, from 1
    bool hasOddSize =
        false; ///< a width or height was no whole number of pixels, and the picture's own is taken
    bool leftOutSpacing = false; ///< border and spacing are not written
};

/** The map that `source` describes, as `page` needs it. */
[[nodiscard]] TodayMap MakeTodayMap(JSMode mode, const MapSource& source, const TodayPage& page);

[[nodiscard]] TodayNotes NotesOn(JSMode mode, const MapSource& source);

/** An alignment of HTML 4 that becomes that class of the constant style; empty for none of its classes. */
[[nodiscard]] QString AlignOfClass(const QString& name);

/** The picture under shapes that are links; lines end in LF. Without areas, the picture alone. */
[[nodiscard]] QString GenerateTodayMap(JSMode mode, const TodayMap& map);

/** The picture with a `map`; for the modes without a script. Without areas, the picture alone. */
[[nodiscard]] QString GenerateTodayMapElement(JSMode mode, const TodayMap& map);

/** Whether the map element has all that `mode` shows. */
[[nodiscard]] constexpr bool HasMapElement(JSMode mode)
{
    return mode == JSDisabled || mode == JSStatusBar;
}

/** Which of the constant blocks a map needs. */
struct NeededBlocks
{
    bool style = false;
    bool script = false;
};

/** What `map` needs in the head of its page, written in a form for today's browsers. */
[[nodiscard]] NeededBlocks BlocksFor(MarkupForm form, JSMode mode, const TodayMap& map);
