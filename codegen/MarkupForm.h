#pragma once

#include "shared/Settings.h"

#include <QStringView>
#include <array>

/** What a map is written as; the number is the choice's index on screen and in what is remembered. */
enum class MarkupForm : int {
    Html4 = 0,           ///< for the browsers of its day
    Today = 1,           ///< a picture under shapes that are links, which scales with the page
    TodayMapElement = 2, ///< a picture with `map` and `area`, in a fixed size and without a script
};

/** What the forms are called on screen, in their order. */
inline constexpr std::array<QStringView, 3> markupFormNames = { u"HTML 4, as ever", u"Today's browsers",
                                                                u"Today's browsers, map element" };
static_assert(markupFormNames.size() == static_cast<std::size_t>(Setting::markupForm.Most) + 1);
