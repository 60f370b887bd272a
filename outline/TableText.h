#pragma once

#include <QByteArrayView>
#include <QList>
#include <QStringList>

// Tables that come as text: fields parted by commas, semicolons or tabs, quoted where they hold one of these,
// a quotation mark, or a line end.

/** A row as it was read: rows of one table need not be of the same length. */
using TableRows = QList<QStringList>;

/** A table that was read, or what is to be told about it. */
struct TableReading
{
    TableRows Rows;
    QString Problem; ///< a sentence for the user; empty when all is well

    /** So many rows and columns at most: there is no map with as many areas. */
    static constexpr qsizetype mostRows = 100'000;
    static constexpr qsizetype mostColumns = 256;
    /** A file with more bytes, or a text with more characters, is no table for a map. */
    static constexpr qint64 mostBytes = qint64(64) * 1024 * 1024;
};

/** The text of a file: UTF-8, with a mark or without, UTF-16 with a mark, and Windows-1252 otherwise. */
[[nodiscard]] QString TableTextOf(QByteArrayView bytes);

/**
 * Reads a table. Which character parts the fields is told by what makes most of the first rows alike. A
 * quotation mark within quotes is written twice; one that is not at the beginning of a field is a character
 * like any other. Rows without anything at the end are left out, all others stay.
 */
[[nodiscard]] TableReading ReadTable(QStringView text);

/** The most fields that a row of the table has. */
[[nodiscard]] qsizetype ColumnCount(const TableRows& rows);
