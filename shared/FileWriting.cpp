#include "shared/FileWriting.h"

#include "shared/SystemWriting.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>
#include <filesystem>

namespace {

using Error = std::optional<QString>;

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

/** Writes in as many pieces as the system takes: only a piece of nothing tells why there is no more. */
Error WriteAll(QFileDevice& file, const QByteArray& bytes)
{
    qint64 written = 0;
    while (written < bytes.size()) {
        const qint64 piece = file.write(bytes.constData() + written, bytes.size() - written);
        if (piece <= 0) {
            return file.errorString();
        }
        written += piece;
    }
    return file.flush() ? SyncToDisk(file.handle()) : file.errorString();
}

/** Writes a file that is not there yet; `path` may be a link to it. */
Error CreateFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return file.errorString();
    }
    Error error = WriteAll(file, bytes);
    if (error) {
        QFile::remove(QFileInfo(path).canonicalFilePath());
    }
    return error;
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
    Error error = file.seek(0) ? WriteAll(file, bytes) : file.errorString();
    if (!error && !file.resize(bytes.size())) {
        error = file.errorString();
    }
    if (error && file.seek(0) && !WriteAll(file, old)) {
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
    const QFileInfo named(path);
    if (named.exists() && !named.isFile()) {
        return WriteToDevice(path, bytes);
    }
    if (!named.exists() && named.isSymLink()) {
        return CreateFile(path, bytes);
    }
    const QString target = named.exists() ? named.canonicalFilePath() : path;
    const QFileInfo file(target);
    if (file.exists() && (HasOtherNames(file) || WouldChangeOwner(file))) {
        return OverwriteFile(target, bytes);
    }
    QSaveFile beside(target);
    if (!beside.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
        return WriteInPlace(target, bytes);
    }
    if (Error error = WriteAll(beside, bytes)) {
        beside.cancelWriting();
        return error;
    }
    return beside.commit() ? std::nullopt : WriteInPlace(target, bytes);
}
