// The main window's editing commands: they work on the editor's selection, Delete on the text field in use.

#include "app/FontDialog.h"
#include "app/frmIMmain.h"
#include "shared/TextCase.h"
#include "ui_frmIMmain.h"

#include <QApplication>
#include <QDrag>
#include <QIcon>
#include <QMimeData>
#include <array>

namespace {

constexpr auto pageSkeleton =
    std::to_array<const char*>({ "<HTML>\r\n", "<HEAD>\r\n", "<TITLE>Your Title</TITLE>\r\n", "</HEAD>\r\n",
                                 "<BODY>\r\n\r\n", "</BODY>\r\n", "</HTML>" });
/** Where the caret goes after the skeleton: in an empty document to the line inside the body. */
constexpr qsizetype skeletonCaret = 60;

/** Only the editor knows what to do with a tag that is dragged. */
constexpr const char* tagMimeType = "application/x-cartolen-tag";
constexpr QSize dragIconSize(32, 32);

QPixmap DragIcon(const char* name, const QWidget& widget)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(name)))
        .pixmap(dragIconSize, widget.devicePixelRatioF());
}

} // namespace

void frmIMmain::UndoEdit()
{
    ui_->MapsText1->undo();
}

void frmIMmain::CutText()
{
    ui_->MapsText1->CutText();
}

void frmIMmain::CopyText()
{
    ui_->MapsText1->CopyText();
}

void frmIMmain::PasteText()
{
    ui_->MapsText1->PasteText();
}

void frmIMmain::mnuEDelete_Click()
{
    QWidget* const focused = QApplication::focusWidget();
    if (focused == ui_->MapsText1) {
        ui_->MapsText1->DeleteText();
    } else if (focused == ui_->txtCTags) {
        ui_->txtCTags->del();
    }
}

void frmIMmain::mnuESelectAll_Click()
{
    ui_->MapsText1->selectAll();
}

void frmIMmain::mnuEFont_Click()
{
    FontDialog dialog(ui_->MapsText1->font(), this);
    if (lastFont_) {
        dialog.SetChoice(*lastFont_);
    }
    if (dialog.exec() == QDialog::Accepted) {
        lastFont_ = dialog.Choice();
    }
    // A cancelled dialog keeps its last values, which are applied again.
    if (lastFont_) {
        ui_->MapsText1->SetSelFormat(*lastFont_);
    }
}

void frmIMmain::mnuEUpperCase_Click()
{
    ui_->MapsText1->ReplaceSelection(UpperCase(ui_->MapsText1->SelText()));
}

void frmIMmain::mnuELowerCase_Click()
{
    ui_->MapsText1->ReplaceSelection(LowerCase(ui_->MapsText1->SelText()));
}

void frmIMmain::mnuEProperCase_Click()
{
    ui_->MapsText1->ReplaceSelection(ProperCase(ui_->MapsText1->SelText()));
}

void frmIMmain::InsertPageSkeleton()
{
    const SourceEditor::UndoStep step(*ui_->MapsText1);
    for (const char* const piece : pageSkeleton) {
        ui_->MapsText1->ReplaceSelection(QString::fromLatin1(piece));
    }
    ui_->MapsText1->Select(skeletonCaret, 0);
}

void frmIMmain::lblQTags_MouseDown(QLabel* label)
{
    if (label->text().isEmpty()) {
        return;
    }
    auto* const tag = new QMimeData;
    tag->setData(QString::fromLatin1(tagMimeType), label->text().toUtf8());
    auto* const drag = new QDrag(label);
    drag->setMimeData(tag);
    drag->setPixmap(DragIcon("drag-tag", *this));
    drag->setDragCursor(DragIcon("drag-tag", *this), Qt::IgnoreAction);
    drag->setDragCursor(DragIcon("drag-over", *this), Qt::CopyAction);
    drag->exec(Qt::CopyAction);
}
