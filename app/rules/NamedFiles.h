#pragma once

#include <QString>
#include <QStringList>

/** The files that `arguments` of a command line name, `folder` being the current one; what looks like an
 * option is none. Their paths are absolute and in the system's own form. */
[[nodiscard]] QStringList FilesNamedBy(const QStringList& arguments, const QString& folder);

/** What is to be opened of several files: a window holds one of each kind, the last that was named. */
struct NamedFiles
{
    QString Page;
    QString Picture;
};

/** Tells pictures from pages by the ends of their names. */
[[nodiscard]] NamedFiles SortFiles(const QStringList& paths);
