#pragma once

#include "app/source/EditWatch.h"
#include "shared/PageDocument.h"

#include <QPointer>
#include <QTextCursor>

/** A part of the editor's text; it follows the edits and undoing them by itself. */
class SourceRange : public AnchoredRange
{
public:
    SourceRange(QTextDocument* document, const EditWatch* watch, const TextSpan& place);

    [[nodiscard]] bool IsThere() const override;
    [[nodiscard]] TextSpan Place() const override;

private:
    QPointer<const EditWatch> watch_;
    int load_; ///< which document it is a part of
    QTextCursor first_;
    QTextCursor last_;
};
