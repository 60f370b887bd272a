#pragma once

#include <QString>

/** The part of `path` after its last "\" or the system's own separator; `path` itself when it holds none. */
[[nodiscard]] QString FileNameOnly(const QString& path);

/**
 * Turns `path` in place into the form that a page refers to it by, and returns it: a drive's ":\" becomes
 * "|/" behind "file:///", every other "\" becomes "/". A path without a drive stays relative to the site.
 */
QString& PathToFileUrl(QString& path);
