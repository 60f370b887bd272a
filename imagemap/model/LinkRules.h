#pragma once

#include "imagemap/model/JSMode.h"

#include <QString>
#include <array>
#include <optional>

/** The text fields of the link dialog. */
enum class LinkField {
    Link,
    StatusBarMessage,
    DefaultImage,
    SwitchImage,
    DefaultTextAreaMessage,
    TextAreaMessage,
    ToolTipMessage,
};
inline constexpr std::size_t linkFieldCount = 7;

/** What was entered for one area. */
struct LinkEntry
{
    std::array<QString, linkFieldCount> Fields;
    QString Target;

    [[nodiscard]] const QString& Text(LinkField field) const
    {
        return Fields[static_cast<std::size_t>(field)];
    }
    void SetText(LinkField field, const QString& text) { Fields[static_cast<std::size_t>(field)] = text; }
};

/** A field that must not be empty, and what the user is told when it is. */
struct RequiredField
{
    LinkField field;
    QStringView message;
};

/** What the link dialog asks for in one mode. */
struct LinkRules
{
    std::array<std::optional<RequiredField>, 3> required; ///< in the order of checking
    LinkField message;                                    ///< the field that becomes the area's message
    std::optional<LinkField> modeDefault; ///< the field that becomes the map's default, if the mode has one
    QStringView headerStart;              ///< message column header: this, the default, "):"
    QStringView newLinkCaption;           ///< title of the box that asks for the link of a new area
};

/** The rules of `mode`. */
[[nodiscard]] const LinkRules& RulesOf(JSMode mode);

/** The first required field of `mode` that `entry` leaves empty; blanks count as a text. */
[[nodiscard]] std::optional<RequiredField> MissingField(JSMode mode, const LinkEntry& entry);

/** The area's message in `mode`. */
[[nodiscard]] const QString& MessageOf(JSMode mode, const LinkEntry& entry);
