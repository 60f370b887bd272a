#pragma once

#include <QFile>
#include <QString>

/** The book that ships, and a small one made for tests. */
inline const QString shippedBook = QStringLiteral(CARTOLEN_BOOK);
inline const QString smallBook = QStringLiteral(CARTOLEN_SMALL_BOOK);

/** The folder of the book's sources. */
inline const QString helpFolder = QStringLiteral(CARTOLEN_HELP_FOLDER);

inline QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline bool WriteBytes(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}
