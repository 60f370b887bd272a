#pragma once

#include "app/rules/DocumentFile.h"
#include "imagemap/model/KeptOrigin.h"
#include "imagemap/model/MapHistory.h"

#include <QMap>
#include <QPoint>
#include <QString>
#include <QStringList>
#include <optional>

/** The document as it was at one moment. */
struct PageCopy
{
    LostDocument Document = {};
    QStringList Pieces = {}; ///< the text, with its own line ends

    bool operator==(const PageCopy&) const = default;
};

/** The map as it was at one moment. */
struct MapCopy
{
    MapState State;
    QMap<QString, QString> Fields;   ///< what is in the editor's fields, by their names
    QList<QPoint> DrawnCorners = {}; ///< of the polygon that was being drawn, if its first side was there
    KeptOrigin Origin = {};          ///< where it came from in the page

    bool operator==(const MapCopy&) const = default;
};

// A file holds one copy: a mark, the version of the form, which of the two it is, its length, the copy, and
// a checksum of all that. Numbers and texts are as in a QDataStream; the pieces of a page follow each other
// in UTF-16, in the byte order of the machine, which is the one that reads it. What is torn, longer or
// foreign is not read.

/** Writes the file `path` beside what is there and puts it in its place once it is on the disk; false, and
 * the old file stays, when that fails. */
[[nodiscard]] bool WriteCopy(const QString& path, const PageCopy& copy);
[[nodiscard]] bool WriteCopy(const QString& path, const MapCopy& copy);

/** Reads what WriteCopy() has written, the pieces as one; nothing of any other file. */
[[nodiscard]] std::optional<PageCopy> ReadPageCopy(const QString& path);
[[nodiscard]] std::optional<MapCopy> ReadMapCopy(const QString& path);
