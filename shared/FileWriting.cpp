#include "shared/FileWriting.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <filesystem>

namespace {

using Error = std::optional<QString>;

/** How many symbolic links are followed before they count as a circle; Linux's own limit. */
constexpr int maxLinks = 40;

/** The file that `path` leads to through any symbolic links, whether or not it exists. */
QString LinkTarget(const QString& path)
{
    QString target = path;
    for (int i = 0; i < maxLinks && QFileInfo(target).isSymLink(); ++i) {
        target = QFileInfo(target).symLinkTarget();
    }
    return target;
}

bool HasOtherNames(const QFileInfo& file)
{
    std::error_code error;
    const auto count = std::filesystem::hard_link_count(file.filesystemFilePath(), error);
    return !error && count > 1;
}

/** Whether a file made beside `file` would belong to somebody else; a trial file tells for any folder. */
bool WouldChangeOwner(const QFileInfo& file)
{
    QTemporaryFile trial(file.absolutePath() + u"/XXXXXX");
    if (!trial.open()) {
        return false;
    }
    const QFileInfo made(trial.fileName());
    return made.ownerId() != file.ownerId() || made.groupId() != file.groupId();
}

bool WriteAll(QFileDevice& file, const QByteArray& bytes)
{
    return file.write(bytes) == bytes.size() && file.flush();
}

/** Writes to something that has no content of its own to lose: a device or a pipe. */
Error WriteToDevice(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || !WriteAll(file, bytes)) {
        return file.errorString();
    }
    return std::nullopt;
}

Error CreateFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    if (!WriteAll(file, bytes)) {
        const QString error = file.errorString();
        file.remove();
        return error;
    }
    return std::nullopt;
}

/**
 * Overwrites without cutting the file first: the room it occupies stays its own, so the old content can be
 * put back even on a full disk.
 */
Error OverwriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    const QByteArray old = file.readAll();
    if (old.size() != file.size()) {
        return file.errorString();
    }
    if (file.seek(0) && WriteAll(file, bytes) && file.resize(bytes.size())) {
        return std::nullopt;
    }
    const QString error = file.errorString();
    if (file.seek(0) && WriteAll(file, old)) {
        file.resize(old.size());
    }
    return error;
}

Error WriteInPlace(const QString& path, const QByteArray& bytes)
{
    return QFileInfo::exists(path) ? OverwriteFile(path, bytes) : CreateFile(path, bytes);
}

} // namespace

std::optional<QString> WriteWholeFile(const QString& path, const QByteArray& bytes)
{
    const QString target = LinkTarget(path);
    const QFileInfo file(target);
    if (file.exists() && !file.isFile()) {
        return WriteToDevice(target, bytes);
    }
    if (file.exists() && (HasOtherNames(file) || WouldChangeOwner(file))) {
        return WriteInPlace(target, bytes);
    }
    QSaveFile beside(target);
    if (!beside.open(QIODevice::WriteOnly)) {
        return WriteInPlace(target, bytes);
    }
    if (!WriteAll(beside, bytes)) {
        const QString error = beside.errorString();
        beside.cancelWriting();
        return error;
    }
    if (!beside.commit()) {
        return beside.error() == QFileDevice::RenameError ? WriteInPlace(target, bytes)
                                                          : Error(beside.errorString());
    }
    return std::nullopt;
}
