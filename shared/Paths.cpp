#include "shared/Paths.h"

#include <algorithm>

namespace {

/** Whether `path` leads to a file from the root of a file system, so that "/" separates its folders. */
bool IsWholePath(QStringView path)
{
    constexpr QStringView separators = u"/\\";
    const auto isLetter = [](QChar character) {
        return (character >= u'A' && character <= u'Z') || (character >= u'a' && character <= u'z');
    };
    return path.startsWith(u'/') ||
           (path.size() > 2 && isLetter(path[0]) && path[1] == u':' && separators.contains(path[2]));
}

} // namespace

QString FileNameOnly(const QString& path)
{
    const qsizetype slash = IsWholePath(path) ? path.lastIndexOf(u'/') : -1;
    return path.mid(std::max(path.lastIndexOf(u'\\'), slash) + 1);
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
