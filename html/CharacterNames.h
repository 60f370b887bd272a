#pragma once

#include <array>
#include <span>
#include <string_view>

/** A name for a character in references such as "&amp;". */
struct CharacterName
{
    std::string_view name;                ///< without "&" and ";"
    std::array<char32_t, 2> characters{}; ///< mostly one; the second is nought then
    bool needsSemicolon = true;           ///< false for the old ones, which are known without it too
};

/** All names that browsers know, in the order of their bytes. */
[[nodiscard]] std::span<const CharacterName> CharacterNames();
