#pragma once

#include <QString>

/** The two texts that say how far the text is moved in. */
struct IndentTexts
{
    QString Millimetres;
    QString Inches;

    bool operator==(const IndentTexts&) const = default;
};

/**
 * The texts after `typed` has been entered as millimetres: a whole number (ties to even) from 0 to 254 with
 * its inches, at 0.04 inch a millimetre; no number and "0" for anything else. The inches are cut behind
 * their first decimal; those without one show their first digit only.
 */
[[nodiscard]] IndentTexts IndentTextsFor(const QString& typed);

/** The indentation of a text of millimetres in twips; 0 for one that is no number. */
[[nodiscard]] double IndentTwips(const QString& millimetres);
