#include "app/EditedPage.h"

#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "app/source/LongLines.h"
#include "app/source/SourceText.h"

#include <QTextBlock>
#include <algorithm>

EditedPage::EditedPage(SourceEditor& editor, const DocumentFile& file)
    : editor_(editor)
    , file_(file)
{
}

int EditedPage::InsertAtCaret(const QString& text)
{
    const int start = editor_.textCursor().selectionStart();
    const int line = LineNumberOf(editor_.document()->findBlock(start)) + 1;
    editor_.ReplaceSelection(text);
    return line;
}

QString EditedPage::FileName() const
{
    return file_.IsNeverSaved() ? QString() : file_.Name();
}

std::optional<TextEncoding> EditedPage::ChosenEncoding() const
{
    return file_.IsHandledAnew() ? std::optional(file_.Encoding()) : std::nullopt;
}

QString EditedPage::Text() const
{
    return editor_.Text();
}

QString EditedPage::TextIn(const TextSpan& place) const
{
    const QTextDocument& document = *editor_.document();
    const qsizetype length = editor_.TextLength();
    const qsizetype start = std::min(place.Start, length);
    const qsizetype end = start + std::min(place.Length, length - start);
    QTextCursor part(editor_.document());
    part.setPosition(DocumentPosition(document, start));
    part.setPosition(DocumentPosition(document, end), QTextCursor::KeepAnchor);
    return WithCrLf(WithoutJoints(document, part.selectedText(), part.selectionStart()));
}

int EditedPage::LineOf(qsizetype position) const
{
    const QTextDocument& document = *editor_.document();
    const qsizetype place = std::min(position, editor_.TextLength());
    return LineNumberOf(document.findBlock(DocumentPosition(document, place))) + 1;
}

TextSpan EditedPage::Selection() const
{
    return { editor_.SelStart(), editor_.SelLength() };
}

void EditedPage::Select(const TextSpan& place)
{
    editor_.Select(place.Start, place.Length);
}

std::unique_ptr<AnchoredRange> EditedPage::Anchor(const TextSpan& place)
{
    return editor_.Anchor(place);
}

void EditedPage::Replace(const QList<TextReplacement>& replacements)
{
    QList<TextReplacement> written = replacements;
    for (TextReplacement& one : written) {
        one.Text = file_.ToPutIn(one.Text);
    }
    editor_.Replace(written);
}
