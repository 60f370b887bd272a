#pragma once

#include <QLatin1String>
#include <QStringView>

/**
 * The style and the script that maps for today's browsers share, once in a page. They hold nothing that a
 * user typed, so their hashes in a content security policy never change.
 */
namespace TodayBlocks {

/** What stands between the tags, line ends around it included; lines end in LF. */
extern const QStringView style;
extern const QStringView script;

/** The attribute of the two elements that tells them from others, and what it says of these. */
inline constexpr QLatin1String markAttribute("data-imap");
inline constexpr QStringView version = u"1";

} // namespace TodayBlocks
