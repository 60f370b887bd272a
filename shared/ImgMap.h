#pragma once

#include "shared/Settings.h"

#include <QString>
#include <array>
#include <chrono>
#include <optional>

inline constexpr QStringView applicationTitle = u"Cartolen";
inline constexpr QStringView homePage = u"https://cartolen.example/";
inline constexpr QStringView helpFileName = u"Cartolen.hlp";

/** What every window of the program may read and write; made once by main(), afresh by each test. */
struct ImgMap
{
    /** Highest slot of the saved links; it always stays free and ends a walk over them. */
    static constexpr int savedLinkSlots = 51;

    QString ProgramFolder; ///< where Data and Temp lie; without a trailing separator
    QString HelpFolder;    ///< where the help file lies; without a trailing separator

    QString ImageUrl; ///< the open picture as a page refers to it

    Settings Remembered; ///< from one start to the next

    /** After so long at the latest what is not saved is kept for the case that the program ends suddenly. */
    std::chrono::milliseconds KeepingInterval = std::chrono::seconds(10);

    /** True while the program closes and inside a running save prompt; the prompt's Cancel clears it. */
    bool ContinueAction = false;

    /** The saved links, in slots 1 and up without gaps; a slot is in use while it has a mark. */
    std::array<QString, savedLinkSlots + 1> SavedLinkURL;
    std::array<std::optional<qint16>, savedLinkSlots + 1> SavedLinkMark;
};
