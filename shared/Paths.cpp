#include "shared/Paths.h"

#include <QDir>
#include <algorithm>

QString FileNameOnly(const QString& path)
{
    return path.mid(std::max(path.lastIndexOf(u'\\'), path.lastIndexOf(QDir::separator())) + 1);
}

QString& PathToFileUrl(QString& path)
{
    const qsizetype drive = path.indexOf(u":\\");
    if (drive >= 0) {
        path.replace(drive, 2, QStringLiteral("|/"));
        path.prepend(u"file:///");
    }
    return path.replace(u'\\', u'/');
}
