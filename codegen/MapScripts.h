#pragma once

#include <QStringView>

/** The fixed lines of the scripts; lines end in LF here and in CR LF in the page. */
namespace MapScripts {

extern const QStringView switchingImagesHead;
extern const QStringView switchingImagesFunctions;
extern const QStringView textAreaHead;
extern const QStringView textAreaFunctions;
extern const QStringView toolTips;

} // namespace MapScripts
