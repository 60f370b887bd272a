#include "imagemap/model/LinkRules.h"

#include "shared/ImgMap.h"

namespace {

constexpr RequiredField requiredLink = { LinkField::Link, u"Please, enter the Link to get conected to !" };

constexpr LinkRules plainRules = {
    .required = { requiredLink },
    .message = LinkField::StatusBarMessage,
    .modeDefault = std::nullopt,
    .headerStart = u"",
    .newLinkCaption = applicationTitle,
};

constexpr LinkRules switchingImagesRules = {
    .required = { requiredLink,
                  RequiredField{ LinkField::DefaultImage, u"Please, enter the Default Image File Name !" },
                  RequiredField{ LinkField::SwitchImage,
                                 u"Please, enter the File Name for Image to switch to !" } },
    .message = LinkField::SwitchImage,
    .modeDefault = LinkField::DefaultImage,
    .headerStart = u" Switching Images (Default Image:",
    .newLinkCaption = applicationTitle,
};

constexpr LinkRules textAreaRules = {
    .required = { requiredLink,
                  RequiredField{ LinkField::DefaultTextAreaMessage, u"Please, enter the Default Message !" },
                  RequiredField{ LinkField::TextAreaMessage, u"Please, enter the Message to switch to !" } },
    .message = LinkField::TextAreaMessage,
    .modeDefault = LinkField::DefaultTextAreaMessage,
    .headerStart = u" Text Area Messages (Default Message:",
    .newLinkCaption = applicationTitle,
};

constexpr LinkRules toolTipRules = {
    .required = { requiredLink,
                  RequiredField{ LinkField::ToolTipMessage, u"Please, enter the Tool Tip Message !" } },
    .message = LinkField::ToolTipMessage,
    .modeDefault = std::nullopt,
    .headerStart = u"",
    .newLinkCaption = u"Image Map Link",
};

constexpr std::array<const LinkRules*, jsModeTexts.size()> rulesByMode = {
    &plainRules, &plainRules, &switchingImagesRules, &textAreaRules, &toolTipRules,
};

} // namespace

const LinkRules& RulesOf(JSMode mode)
{
    return *rulesByMode[static_cast<std::size_t>(mode)];
}

std::optional<RequiredField> MissingField(JSMode mode, const LinkEntry& entry)
{
    for (const std::optional<RequiredField>& required : RulesOf(mode).required) {
        if (required && entry.Text(required->field).isEmpty()) {
            return required;
        }
    }
    return std::nullopt;
}

const QString& MessageOf(JSMode mode, const LinkEntry& entry)
{
    return entry.Text(RulesOf(mode).message);
}
