#include "app/EditorClipboard.h"

#include "app/SourceEditor.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

QMimeData* SelectedData(const SourceEditor& editor)
{
    // The usual way would turn no-break spaces into blanks.
    auto* const text = new QMimeData;
    text->setText(editor.SelectedLines().replace(QChar::ParagraphSeparator, u'\n'));
    return text;
}

void CopyText(SourceEditor& editor)
{
    QGuiApplication::clipboard()->clear();
    QGuiApplication::clipboard()->setMimeData(SelectedData(editor));
}

void CutText(SourceEditor& editor)
{
    CopyText(editor);
    editor.ReplaceSelection(QString());
}

void PasteText(SourceEditor& editor)
{
    editor.ReplaceSelection(QGuiApplication::clipboard()->text());
}
