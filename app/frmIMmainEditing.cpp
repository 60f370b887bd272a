// The main window's editing commands: they work on the editor's selection, Delete on the text field in use.

#include "app/FontDialog.h"
#include "app/frmIMmain.h"
#include "shared/TextCase.h"
#include "ui_frmIMmain.h"

#include <QApplication>
#include <QDrag>
#include <QFontInfo>
#include <QIcon>
#include <QMimeData>
#include <QPainter>
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
constexpr QPoint besidePointer(-20, -8);

QPixmap DragIcon(const char* name, const QWidget& widget)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(name)))
        .pixmap(dragIconSize, widget.devicePixelRatioF());
}

/** What is dragged, to be seen beside the pointer. */
QPixmap TagPicture(const QLabel& label)
{
    const QRect text = label.fontMetrics().boundingRect(label.text()).adjusted(-4, -2, 4, 2);
    QPixmap picture(text.size() * label.devicePixelRatioF());
    picture.setDevicePixelRatio(label.devicePixelRatioF());
    picture.fill(label.palette().color(QPalette::ToolTipBase));
    QPainter painter(&picture);
    painter.setFont(label.font());
    painter.setPen(label.palette().color(QPalette::ToolTipText));
    painter.drawText(QRect(QPoint(), text.size()), Qt::AlignCenter | Qt::TextSingleLine, label.text());
    return picture;
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
    // The font that is shown: a dialog that lacks the one asked for would propose any other.
    const QFontInfo shown(ui_->MapsText1->font());
    FontDialog dialog(QFont(shown.family(), shown.pointSize()), this);
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
    drag->setPixmap(TagPicture(*label));
    drag->setHotSpot(besidePointer);
    drag->setDragCursor(DragIcon("drag-tag", *this), Qt::IgnoreAction);
    drag->setDragCursor(DragIcon("drag-over", *this), Qt::CopyAction);
    drag->exec(Qt::CopyAction);
}
