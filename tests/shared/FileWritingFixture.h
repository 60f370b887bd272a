#pragma once

#include "shared/FileWriting.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

#ifdef Q_OS_UNIX
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

inline const QByteArray oldText("the old text");

inline const QByteArray newText("another text, and a longer one");

inline QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

/** Writes the file and returns the error's text, or an empty one when all went well. */
inline QString Write(const QString& path, const QByteArray& bytes)
{
    const std::optional<QString> error = WriteWholeFile(path, bytes);
    return error && error->isEmpty() ? QString("<error without a text>") : error.value_or(QString());
}

#ifdef Q_OS_UNIX

inline QByteArray Native(const QString& path)
{
    return QFile::encodeName(path);
}

inline struct stat StatusOf(const QString& path)
{
    struct stat status = {};
    (void)lstat(Native(path).constData(), &status);
    return status;
}

inline int ModeOf(const QString& path)
{
    return static_cast<int>(StatusOf(path).st_mode & 07777U);
}

/** The system's own words for an error, as the user is to read them. */
inline QString ErrorText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

#endif

/** A folder in which files are written. */
class FileWritingFixture : public QObject
{
protected:
    void Start();
    void Finish();

    [[nodiscard]] QString Path(const QString& name = "page.htm") const { return folder_->filePath(name); }
    [[nodiscard]] QStringList Names() const;
    static bool Create(const QString& path, const QByteArray& bytes = oldText);

    std::unique_ptr<QTemporaryDir> folder_;
};

inline void FileWritingFixture::Start()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(folder_->isValid());
    QVERIFY(QFile::setPermissions(
        folder_->path(), QFile::Permissions::fromInt(0x7777))); // another user works here too
}

inline void FileWritingFixture::Finish()
{
    QFile::setPermissions(folder_->path(), QFile::Permissions::fromInt(0x7777));
}

/** Everything that lies in the folder, sorted. */
inline QStringList FileWritingFixture::Names() const
{
    return QDir(folder_->path())
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot, QDir::Name);
}

inline bool FileWritingFixture::Create(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush();
}
