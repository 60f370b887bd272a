#pragma once

#include "codegen/MapMarkup.h"

#include <QStringList>

/** A map as an editor has it: what it is written from, and in which mode. */
struct EditedMap
{
    JSMode mode = JSDisabled;
    MapSource source;
};

/** What came of two changes of one map. */
struct MergedMap
{
    EditedMap map;
    QStringList losses; ///< what of either change had to give way, a sentence each
};

/**
 * Puts together what became of the map `was`: in the editor `mine`, by hand in the page `theirs`. What only
 * one of them changed is as it was changed; where both did, the editor's counts, and the other is a loss. An
 * area that was taken out of the page stays out unless the editor changed it. Areas of the result say by
 * their sources which of `theirs` they are.
 */
[[nodiscard]] MergedMap Merge(const EditedMap& was, const EditedMap& mine, const EditedMap& theirs);
