#include "app/source/EditWatch.h"

#include <QTextBlock>
#include <QTextDocument>
#include <limits>

namespace {

/** A number that tells the text of `block` from another; never that of a block without one. */
int TextMark(const QTextBlock& block)
{
    return static_cast<int>(qHash(block.text(), 0) & size_t(std::numeric_limits<int>::max()));
}

} // namespace

EditWatch::EditWatch(QTextDocument* document)
    : QObject(document)
    , document_(document)
{
    connect(document, &QTextDocument::contentsChange, this, &EditWatch::Document_ContentsChange);
}

EditWatch::Loading::Loading(EditWatch& watch)
    : watch_(watch)
{
    watch_.isLoading_ = true;
    ++watch_.loads_;
}

EditWatch::Loading::~Loading()
{
    watch_.isLoading_ = false;
}

void EditWatch::Document_ContentsChange(int position, int removed, int added)
{
    // Formatting is told as if as much text came as went.
    const bool isOtherText = RememberText(position, added);
    if (!isLoading_ && (removed != added || isOtherText)) {
        Q_EMIT Edited();
    }
}

/** Marks the blocks of a range by their texts; true when one of them had another text before. */
bool EditWatch::RememberText(int position, int length)
{
    bool isOtherText = false;
    QTextBlock block = document_->findBlock(position);
    for (; block.isValid() && block.position() <= position + length; block = block.next()) {
        const int mark = TextMark(block);
        if (block.userState() != mark) {
            isOtherText = true;
            block.setUserState(mark);
        }
    }
    return isOtherText;
}
