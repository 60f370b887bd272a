#include "app/EditCommands.h"

#include "app/FontDialog.h"
#include "app/SourceEditor.h"
#include "shared/TextCase.h"

#include <QApplication>
#include <QFontInfo>
#include <QLineEdit>
#include <array>

namespace {

constexpr auto pageSkeleton =
    std::to_array<const char*>({ "<HTML>\r\n", "<HEAD>\r\n", "<TITLE>Your Title</TITLE>\r\n", "</HEAD>\r\n",
                                 "<BODY>\r\n\r\n", "</BODY>\r\n", "</HTML>" });
/** Where the caret goes after the skeleton: in an empty document to the line inside the body. */
constexpr qsizetype skeletonCaret = 60;

} // namespace

EditCommands::EditCommands(QWidget* window, SourceEditor& editor, QLineEdit& linkField)
    : window_(window)
    , editor_(editor)
    , linkField_(linkField)
{
}

void EditCommands::mnuEDelete_Click()
{
    QWidget* const focused = QApplication::focusWidget();
    if (focused == &editor_) {
        editor_.DeleteText();
    } else if (focused == &linkField_) {
        linkField_.del();
    }
}

void EditCommands::mnuEFont_Click()
{
    // The font that is shown: a dialog that lacks the one asked for would propose any other.
    const QFontInfo shown(editor_.font());
    FontDialog dialog(QFont(shown.family(), shown.pointSize()), window_);
    if (lastFont_) {
        dialog.SetChoice(*lastFont_);
    }
    if (dialog.exec() == QDialog::Accepted) {
        lastFont_ = dialog.Choice();
    }
    // A cancelled dialog keeps its last values, which are applied again.
    if (lastFont_) {
        editor_.mergeCurrentCharFormat(*lastFont_);
    }
}

void EditCommands::mnuEUpperCase_Click()
{
    editor_.ReplaceSelection(UpperCase(editor_.SelText()));
}

void EditCommands::mnuELowerCase_Click()
{
    editor_.ReplaceSelection(LowerCase(editor_.SelText()));
}

void EditCommands::mnuEProperCase_Click()
{
    editor_.ReplaceSelection(ProperCase(editor_.SelText()));
}

void EditCommands::InsertPageSkeleton()
{
    const SourceEditor::UndoStep step(editor_);
    for (const char* const piece : pageSkeleton) {
        editor_.ReplaceSelection(QString::fromLatin1(piece));
    }
    editor_.Select(skeletonCaret, 0);
}
