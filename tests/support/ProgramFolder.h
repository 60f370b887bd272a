#pragma once

#include "imagemap/model/MapDocument.h"
#include "shared/ImgMap.h"

#include <QDir>
#include <QTemporaryDir>

/** The start of a file's name that a text with markup shows otherwise; Windows has no names with "<". */
#ifdef Q_OS_WIN
#define NAME_LIKE_MARKUP "&lt;"
#else
#define NAME_LIKE_MARKUP "<b>"
#endif

/** A fresh program folder with its Data and Temp, current as long as it lives. */
class ProgramFolder
{
public:
    ProgramFolder()
    {
        QDir(folder_.path()).mkdir(QStringLiteral("Data"));
        QDir(folder_.path()).mkdir(QStringLiteral("Temp"));
        imgMap.ProgramFolder = folder_.path();
        imgMap.HelpFolder = folder_.path();
        QDir::setCurrent(folder_.path());
    }
    ~ProgramFolder() { QDir::setCurrent(before_); }
    Q_DISABLE_COPY_MOVE(ProgramFolder)

    /** The path of `name` in the folder, in the system's own form. */
    [[nodiscard]] QString Path(const QString& name) const
    {
        return QDir::toNativeSeparators(folder_.filePath(name));
    }

    ImgMap imgMap;
    MapDocument map;

private:
    QString before_ = QDir::currentPath();
    QTemporaryDir folder_;
};
