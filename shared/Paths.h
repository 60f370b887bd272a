#pragma once

#include <QString>

/**
 * The part of `path` after its last "\"; in one that starts with "/" or with a drive, "/" separates too. An
 * address and a reference with "/" stay whole: in them it belongs to what the page refers to.
 */
[[nodiscard]] QString FileNameOnly(const QString& path);

/**
 * Turns `path` in place into the form that a page refers to it by, and returns it: a drive's ":\" becomes
 * "|/" behind "file:///", every other "\" becomes "/". A path without a drive stays relative to the site.
 */
QString& PathToFileUrl(QString& path);
