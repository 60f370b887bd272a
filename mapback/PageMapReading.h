#pragma once

#include "mapback/ReturnedMap.h"

/** Reads a map of a page as it stands there, whoever has written it. */
[[nodiscard]] ReturnedMap ReadPageMap(QStringView page, const PageMaps& maps, qsizetype map);

/**
 * The size in which a page shows a picture of that size, if it says it in whole pixels; else an empty one. Of
 * one side, browsers know the other by the picture.
 */
[[nodiscard]] QSize SizeInPage(const MapSource& source, QSize picture);

/** A field about the whole map that is an attribute of its picture. */
struct PictureField
{
    QStringView attribute;
    QString MapSource::*member;
    bool goesWhenEmpty; ///< the attribute; else its value becomes empty
};

inline constexpr std::array<PictureField, 8> pictureFields = { {
    { u"src", &MapSource::PictureReference, false },
    { u"width", &MapSource::Width, true },
    { u"height", &MapSource::Height, true },
    { u"alt", &MapSource::AltText, false },
    { u"align", &MapSource::Align, true },
    { u"border", &MapSource::Border, true },
    { u"hspace", &MapSource::HorizontalSpace, true },
    { u"vspace", &MapSource::VerticalSpace, true },
} };
