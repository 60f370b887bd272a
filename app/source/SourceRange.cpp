#include "app/source/SourceRange.h"

#include "app/source/SourceText.h"

SourceRange::SourceRange(QTextDocument* document, const EditWatch* watch, const TextSpan& place)
    : watch_(watch)
    , load_(watch->Loads())
    , first_(document)
    , last_(document)
{
    first_.setPosition(DocumentPosition(*document, place.Start));
    last_.setPosition(DocumentPosition(*document, place.Start + place.Length));
    first_.setKeepPositionOnInsert(true);
}

bool SourceRange::IsThere() const
{
    return watch_ != nullptr && watch_->Loads() == load_;
}

TextSpan SourceRange::Place() const
{
    if (!IsThere()) {
        return {};
    }
    const QTextDocument& document = *first_.document();
    const qsizetype start = TextPosition(document, first_.position());
    return { start, TextPosition(document, last_.position()) - start };
}
