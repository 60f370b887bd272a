#pragma once

#include <QString>
#include <array>

/** What the script around a map does when the mouse is over an area; the number is the option's index. */
enum JSMode : int {
    JSDisabled = 0,
    JSStatusBar = 1,
    JSSwitchImages = 2,
    JSTextArea = 3,
    JSToolTips = 4,
};

/** The texts on screen that follow the mode. */
struct JSModeTexts
{
    JSMode mode;
    QStringView option;        ///< caption of the option button
    QStringView explanation;   ///< text beside the option button
    QStringView header;        ///< header of the area list's message column
    QStringView linkCaption;   ///< caption of the link dialog
    QStringView newPrompt;     ///< status text while a new area is linked
    QStringView replacePrompt; ///< status text while an area is edited
};

inline constexpr std::array<JSModeTexts, 5> jsModeTexts = { {
    { JSDisabled, u"Disable Java Script",
      u"This option will generate standard Image Map with URLs shown in Browser's Status Bar",
      u" Java Script Disabled - No Messages will be inserted!", u"Standard Image Map", u"Link a drawn area !",
      u"Replace an existing link !" },
    { JSStatusBar, u"On Mouse Over - Status Bar Messages, and Tool Tips",
      u"Use this option to display your custom messages in the Netscape's Status Bar. "
      u"For MSIE, same message will be shown as a Tool Tip.",
      u" Status Bar Messages (Netscape), and Tool Tips (MSIE):", u"Image Map - Status Bar Message",
      u"Link a drawn area and enter your message!", u"Replace an existing link or your status bar message!" },
    { JSSwitchImages, u"On Mouse Over - Switching Images",
      u"This option will switch other images in your page when you move mouse over different areas of "
      u"your Image Map.",
      u" Switching Images:", u"Image Map - Switching Images", u"Link a drawn area and set switching images!",
      u"Replace an existing link or your images!" },
    { JSTextArea, u"On Mouse Over - Text Area Messages",
      u"This option uses textarea to show your messages when you move mouse over different areas of your "
      u"Image Map. ",
      u" Switching Text Area Messages:", u"Image Map - Text Area Messages",
      u"Link a drawn area and set text area messages!",
      u"Replace an existing link or your text area messages!" },
    { JSToolTips, u"On Mouse Over - Tool Tip Messages",
      u"Use this option to display your messages in the form of Tool Tips for both, Netscape and MSIE.",
      u" Tool Tip Messages:", u"Image Map - Tool Tip Messages",
      u"Link a drawn area and enter tool tip message!",
      u"Replace an existing link or your tool tip messages!" },
} };

/** The texts of `mode`. */
[[nodiscard]] constexpr const JSModeTexts& TextsOf(JSMode mode)
{
    return jsModeTexts[static_cast<std::size_t>(mode)];
}

static_assert(
    [] {
        for (std::size_t i = 0; i < jsModeTexts.size(); ++i) {
            if (jsModeTexts[i].mode != static_cast<JSMode>(i)) {
                return false;
            }
        }
        return true;
    }(),
    "the rows stand in the order of the modes' numbers");
