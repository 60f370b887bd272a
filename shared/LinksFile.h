#pragma once

#include "shared/ImgMap.h"

#include <QList>
#include <QString>

/** One used record of the links file. */
struct SavedLink
{
    QString Url;     ///< without the blanks around it
    qint16 Mark = 0; ///< the slot the link had when it was added
};

/** What could be read of a links file. */
struct SavedLinks
{
    QList<SavedLink> links;
    bool isDamaged = false; ///< some of the file could not be read
};

/**
 * Reads the links file `path`: records of 276 bytes, of which at most the first 15 are read, up to the first
 * free one. A missing file in an existing folder is created empty. A record that cannot be made out is
 * passed over and told by `isDamaged`.
 */
[[nodiscard]] SavedLinks ReadSavedLinks(const QString& path);

/**
 * Writes the saved links to the links file `path`: 50 records, free ones included, and behind them whatever
 * an older, longer file has there. URLs are cut to 260 characters of the code page. False when the file could
 * not be written; it is then as it was.
 */
[[nodiscard]] bool WriteSavedLinks(const QString& path, const ImgMap& imgMap);

/** What the user is told of a file that is damaged in this sense. */
inline constexpr QStringView linksDamagedText = u"File Links.dra is either damaged or missing !";

/** Where the links file lies, relative to the program's folder. */
inline constexpr QStringView linksFileName = u"Data/Links.dra";
