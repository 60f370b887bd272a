#pragma once

#include <QString>

/** An address as typed, with everything percent-encoded that an address cannot hold. Empty for blanks. */
[[nodiscard]] QString EncodedAddress(QStringView typed);

/**
 * How a page refers to `target`. The whole path of a file that is there becomes relative to `folder`, from
 * which the page's references count, when both are on one drive; else, or with no folder, a file URL. Any
 * other text is an address: EncodedAddress() of it.
 */
[[nodiscard]] QString PageReference(const QString& target, const QString& folder);

/** The name of a file beside the page as a reference. */
[[nodiscard]] QString FileNameReference(const QString& name);

/**
 * The folder from which the references of a page count: the page's own, or where its `base` leads to; empty
 * for a page that is no file yet.
 */
[[nodiscard]] QString ReferenceFolder(QStringView page, const QString& pagePath);
