#include "app/PageCommands.h"

#include "app/SourceEditor.h"

#include <QInputDialog>
#include <QSpinBox>
#include <QTextBlock>

PageCommands::PageCommands(QWidget* window, SourceEditor& editor)
    : window_(window)
    , editor_(editor)
{
}

void PageCommands::mnuPGoTo_Click()
{
    QInputDialog dialog(window_);
    dialog.setObjectName(QStringLiteral("frmGoTo"));
    dialog.setWindowTitle(QStringLiteral("Go to Line"));
    dialog.setLabelText(QStringLiteral("Line, 1 to %1:").arg(editor_.blockCount()));
    dialog.setInputMode(QInputDialog::IntInput);
    dialog.setIntRange(1, editor_.blockCount());
    dialog.setIntValue(editor_.textCursor().blockNumber() + 1);
    if (auto* const field = dialog.findChild<QSpinBox*>()) {
        field->setObjectName(QStringLiteral("txtLine"));
        field->setAccessibleName(QStringLiteral("Line"));
    }
    if (dialog.exec() == QDialog::Accepted) {
        QTextCursor caret(editor_.document()->findBlockByNumber(dialog.intValue() - 1));
        editor_.setTextCursor(caret);
        editor_.centerCursor();
        editor_.setFocus();
    }
}
