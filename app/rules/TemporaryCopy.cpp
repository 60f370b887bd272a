#include "app/rules/TemporaryCopy.h"

#include <QDir>
#include <algorithm>

QString TemporaryCopyOfNew(const QString& programFolder, const QString& ending)
{
    return QDir::toNativeSeparators(programFolder + u"/Temp/Temp001." + ending);
}

QString TemporaryCopyOf(const QString& path, const QString& ending)
{
    return path.left(std::max(path.indexOf(u'.'), qsizetype(0))) + u"_Temp." + ending;
}
