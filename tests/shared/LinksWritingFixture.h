#pragma once

#include "shared/LinksFile.h"
#include "shared/SavedLinks.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QtEndian>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

inline constexpr qsizetype recordSize = 276;

inline constexpr qsizetype urlSize = 260;

inline constexpr int recordsWritten = 50;

inline constexpr qsizetype writtenSize = recordSize * recordsWritten;

inline QByteArray Content(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
}

inline bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

inline quint16 WordAt(const QByteArray& bytes, qsizetype offset)
{
    return qFromLittleEndian<quint16>(bytes.constData() + offset);
}

/** The URL of a record, from 1, with the blanks that fill its field. */
inline QByteArray UrlField(const QByteArray& bytes, int record)
{
    return bytes.mid((record - 1) * recordSize, urlSize);
}

inline QByteArray MarkField(const QByteArray& bytes, int record)
{
    return bytes.mid((record - 1) * recordSize + urlSize, 4);
}

/** A folder with a links file that is written anew. */
class LinksWritingFixture : public QObject
{
protected:
    void Start();
    void Finish();

    [[nodiscard]] QString Path() const { return folder_->filePath("Data/Links.dra"); }
    /** The bytes of the file after writing; the writing must succeed. */
    [[nodiscard]] QByteArray Written() const;
    void Add(const QString& url) { AddSavedLink(*imgMap_, url); }

    std::unique_ptr<QTemporaryDir> folder_;
    std::unique_ptr<ImgMap> imgMap_;
};

inline void LinksWritingFixture::Start()
{
    folder_ = std::make_unique<QTemporaryDir>();
    imgMap_ = std::make_unique<ImgMap>();
    QVERIFY(QDir(folder_->path()).mkdir("Data"));
}

inline void LinksWritingFixture::Finish()
{
    QFile::setPermissions(folder_->filePath("Data"), QFile::Permissions::fromInt(0x7777));
}

inline QByteArray LinksWritingFixture::Written() const
{
    return WriteSavedLinks(Path(), *imgMap_) ? Content(Path()) : QByteArray("<failed>");
}
