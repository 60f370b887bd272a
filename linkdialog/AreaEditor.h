#pragma once

#include "shared/AreaRow.h"

#include <QString>

/** What the link dialog asks of the editor whose areas it links. */
class AreaEditor
{
public:
    virtual ~AreaEditor() = default;

    /** Rows in the area list. */
    [[nodiscard]] virtual qsizetype AreaCount() const = 0;

    /** Adds a row at the end of the area list. */
    virtual void AppendArea(const AreaRow& row) = 0;

    /** Rewrites the link and message of the selected row; everything else of it stays. */
    virtual void ReplaceSelectedArea(const QString& link, const QString& message) = 0;

    /** Sets the header of the area list's message column. */
    virtual void SetMessageHeader(const QString& header) = 0;

    /** Paints the figures of the store on the cleared picture. */
    virtual void RepaintFigures() = 0;

    /** Puts the text of the chosen tool back into the status bar. */
    virtual void ShowDrawingMode() = 0;
};
