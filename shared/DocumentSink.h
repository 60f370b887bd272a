#pragma once

#include <QString>

/** Where a finished map goes: the document being written. */
class DocumentSink
{
public:
    virtual ~DocumentSink() = default;

    /**
     * Replaces the document's selection, or inserts at its caret; line ends are CR LF. Returns the line on
     * which the text begins, counted from 1.
     */
    virtual int InsertAtCaret(const QString& text) = 0;
};
