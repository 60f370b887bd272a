#pragma once

#include "codegen/TodayMap.h"

// A map of one picture of 400 by 300 pixels, for tests of what is written from it.

/** The map with these areas; nothing else is said that need not be. */
inline MapSource MapOfPicture(const MapAreas& areas)
{
    return { .MapName = "m",
             .Width = "400",
             .Height = "300",
             .AltText = "A picture",
             .Align = {},
             .Border = {},
             .HorizontalSpace = {},
             .VerticalSpace = {},
             .PictureReference = "pic.png",
             .FileNamesOnly = false,
             .ModeDefault = {},
             .Areas = areas };
}

/** The map made for a page that is no file yet. */
inline TodayMap MadeForPicture(JSMode mode, const MapSource& source)
{
    return MakeTodayMap(
        mode, source,
        { .Text = {},
          .Path = {},
          .Charset = PageCharset::Ascii,
          .PicturePath = {},
          .PictureSize = { 400, 300 },
          .SizeOf = {} });
}
