#pragma once

#include <QString>
#include <QtGlobal>

/** What the process has of the things that it may run out of. */
struct Usage
{
    qint64 heapBytes = 0;     ///< handed out by malloc() and not given back
    qint64 residentBytes = 0; ///< of memory that is really there
    qint64 windows = 0;       ///< top-level widgets, hidden ones included
    qint64 widgets = 0;
    qint64 files = 0; ///< open file handles

    [[nodiscard]] QString ToText() const;
};

/** The usage of this process at a moment when nothing is left to be done. */
[[nodiscard]] Usage MeasureUsage();
