#pragma once

#include <QStringList>

// What may be written in the tags of HTML, of today and of old.

/** The attributes of an element; those that every element has are among them. In the order of their names. */
[[nodiscard]] QStringList AttributesOf(QStringView element);

/** Whether an attribute is there or not, and has no value. */
[[nodiscard]] bool IsWithoutValue(QStringView attribute);

/** The words that an attribute of an element may have as its value; none if it is not one of a few words. */
[[nodiscard]] QStringList ValuesOf(QStringView element, QStringView attribute);
