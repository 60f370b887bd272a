#include "app/rules/NamedFiles.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>
#include <array>

namespace {

constexpr auto pictureSuffixes =
    std::to_array<QStringView>({ u"jpg", u"jpeg", u"jpe", u"gif", u"png", u"bmp", u"webp", u"svg" });

bool IsPicture(const QString& path)
{
    const QString suffix = QFileInfo(path).suffix();
    return std::ranges::any_of(pictureSuffixes, [&suffix](QStringView one) {
        return suffix.compare(one, Qt::CaseInsensitive) == 0;
    });
}

} // namespace

QStringList FilesNamedBy(const QStringList& arguments, const QString& folder)
{
    QStringList files;
    bool areOptionsOver = false;
    for (const QString& argument : arguments) {
        if (argument == u"--" && !areOptionsOver) {
            areOptionsOver = true;
        } else if (!argument.isEmpty() && (areOptionsOver || !argument.startsWith(u'-'))) {
            const bool isAddress = argument.startsWith(u"file:", Qt::CaseInsensitive);
            const QString path = isAddress ? QUrl(argument).toLocalFile() : argument;
            files << QDir::toNativeSeparators(QDir::cleanPath(QDir(folder).absoluteFilePath(path)));
        }
    }
    return files;
}

NamedFiles SortFiles(const QStringList& paths)
{
    NamedFiles files;
    for (const QString& path : paths) {
        (IsPicture(path) ? files.Picture : files.Page) = path;
    }
    return files;
}
