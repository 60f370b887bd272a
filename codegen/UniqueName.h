#pragma once

#include <QString>

/**
 * `wanted` as the name of a map and the start of its ids: letters, digits, "-" and "_" behind a letter, and
 * numbered when `page` has a map of that name, or ids that begin with it and a "-". Names that differ in case
 * count as the same.
 */
[[nodiscard]] QString UniqueMapName(const QString& wanted, QStringView page);
