// Stands in for the fuzzer with any compiler: tries the files, and the files of the folders, that are named
// on the command line.

#include "FuzzTarget.h"

#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QStringList>

namespace {

QStringList FilesOf(const QString& path)
{
    if (!QFileInfo(path).isDir()) {
        return { path };
    }
    QStringList files;
    QDirIterator folder(path, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (folder.hasNext()) {
        files << folder.next();
    }
    files.sort();
    return files;
}

void Try(const QString& path)
{
    QFile file(path);
    Demand(file.open(QIODevice::ReadOnly), qPrintable(path + u" can be read"));
    const QByteArray bytes = file.readAll();
    std::printf("%s, %lld bytes\n", qPrintable(path), static_cast<long long>(bytes.size()));
    std::fflush(stdout);
    LLVMFuzzerTestOneInput(
        reinterpret_cast<const std::uint8_t*>(bytes.constData()), static_cast<std::size_t>(bytes.size()));
}

} // namespace

int main(int count, char** arguments)
{
    int tried = 0;
    for (int index = 1; index < count; ++index) {
        for (const QString& path : FilesOf(QFile::decodeName(arguments[index]))) {
            Try(path);
            ++tried;
        }
    }
    // A corpus that is not there must not look like one that passes.
    std::printf("%d inputs tried\n", tried);
    return tried > 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
