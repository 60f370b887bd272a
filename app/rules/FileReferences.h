#pragma once

#include "html/HtmlTokens.h"

#include <QString>

/** Whether an attribute of an element is the address of a file. */
[[nodiscard]] bool IsAddress(QStringView element, QStringView attribute);

/** The path of the file that an address beside the page means, decoded; empty if it means none that could be
 * looked for: another site, a part of the page, a script, the site's root, or what a server fills in. */
[[nodiscard]] QString FileOfAddress(const QString& address);
