// The image map editor's picture: mouse, painting, scrolling and the dialogs that a drawing leads to.

#include "imagemap/DrawingHints.h"
#include "imagemap/ToolMarks.h"
#include "imagemap/frmImageMap.h"
#include "linkdialog/frmIMLink.h"
#include "shared/CommandTables.h"
#include "shared/ElidedLabel.h"
#include "shared/WindowHelpers.h"
#include "ui_frmImageMap.h"

#include <QColorDialog>
#include <QKeyEvent>

namespace {

/** Eighths of a degree in one notch of the wheel. */
constexpr int wheelNotch = 120;
/** Steps of a scroll bar in one notch. */
constexpr int wheelSteps = 3;
/** Picture pixels in one step of a scroll bar. */
constexpr int scrollStep = 16;

QString FullStoreMessage(FullStoreText text)
{
    return QStringLiteral("         The array is full.\n      You have entered the\nmaximum number of %1.")
        .arg(text == FullStoreText::Lines ? u"lines" : u"figures");
}

/** Lets `bar` shift a picture of `pictureSize` pixels in a view of `viewSize`. */
void FitScrollBar(QScrollBar* bar, int pictureSize, int viewSize)
{
    const bool isNeeded = viewSize < pictureSize;
    bar->setEnabled(isNeeded);
    bar->setMaximum(isNeeded ? pictureSize - viewSize : 0);
    bar->setPageStep(std::max(viewSize, 1));
    bar->setSingleStep(scrollStep);
}

} // namespace

void frmImageMap::PictureDisplay_MouseDown(int button, float x, float y)
{
    if (!isMessagePending_) {
        protocol_.MouseDown(button, x, y);
        ShowHint();
    }
}

void frmImageMap::PictureDisplay_MouseMove(float x, float y)
{
    protocol_.MouseMove(x, y);
}

void frmImageMap::PictureDisplay_MouseUp(int button, float x, float y)
{
    if (!isMessagePending_) {
        protocol_.MouseUp(button, x, y);
        ShowHint();
    }
}

void frmImageMap::PicNosac_Resize()
{
    UpdateScrollBars();
}

void frmImageMap::PicNosac_Wheel(QPoint angle)
{
    // Fine wheels and touchpads turn by less than a pixel at a time.
    wheelRest_ += angle * (wheelSteps * scrollStep);
    const QPoint pixels(wheelRest_.x() / wheelNotch, wheelRest_.y() / wheelNotch);
    wheelRest_ -= pixels * wheelNotch;
    ui_->HScroll1->setValue(ui_->HScroll1->value() - pixels.x());
    ui_->VScroll1->setValue(ui_->VScroll1->value() - pixels.y());
}

void frmImageMap::HScroll1_Change(int value)
{
    ui_->PictureDisplay->move(-value, ui_->PictureDisplay->y());
}

/** Left and right do what they say, unlike in Qt's own scroll bar; true when `key` was one of them. */
bool frmImageMap::HScroll1_KeyDown(const QKeyEvent& key)
{
    const int steps = (key.key() == Qt::Key_Right ? 1 : 0) - (key.key() == Qt::Key_Left ? 1 : 0);
    ui_->HScroll1->setValue(ui_->HScroll1->value() + steps * scrollStep);
    return steps != 0;
}

void frmImageMap::VScroll1_Change(int value)
{
    ui_->PictureDisplay->move(ui_->PictureDisplay->x(), -value);
}

void frmImageMap::UpdateScrollBars()
{
    const QSize view = ui_->PicNosac->size();
    FitScrollBar(ui_->HScroll1, PictureWidth(), view.width());
    FitScrollBar(ui_->VScroll1, PictureHeight(), view.height());
}

void frmImageMap::SelectRectangle()
{
    protocol_.SelectTool(kindRectangle);
}

void frmImageMap::SelectCircle()
{
    protocol_.SelectTool(kindCircle);
}

void frmImageMap::SelectLine()
{
    protocol_.SelectTool(kindLine);
}

void frmImageMap::SelectCursor()
{
    protocol_.SelectCursor();
}

void frmImageMap::DeleteLastFigure()
{
    protocol_.DeleteLastFigure();
    ShowHint();
}

void frmImageMap::GiveUpDrawing()
{
    // A figure whose dialog is open, or about to be, is no longer being drawn.
    const bool isLinking = isMessagePending_ || (linkDialog_ != nullptr && !linkDialog_->IsUnloaded());
    if (!isLinking) {
        protocol_.GiveUpDrawing();
        ShowHint();
    }
}

void frmImageMap::PickFigureColor()
{
    ShowStatus(u"Pick a Color!");
    QColorDialog dialog(ui_->PictureDisplay->ForegroundColor(), this);
    dialog.setObjectName(QStringLiteral("CMDialog1"));
    if (dialog.exec() == QDialog::Accepted) {
        ui_->PictureDisplay->SetForegroundColor(dialog.selectedColor());
        protocol_.RedrawFigures();
    }
    ShowDrawingMode();
}

int frmImageMap::PictureWidth() const
{
    return ui_->PictureDisplay->width();
}

int frmImageMap::PictureHeight() const
{
    return ui_->PictureDisplay->height();
}

void frmImageMap::PaintFigure(const PaintedFigure& figure, Pen pen)
{
    ui_->PictureDisplay->PaintFigure(figure, pen);
}

void frmImageMap::EraseRubberFigure()
{
    ui_->PictureDisplay->EraseRubberFigure();
}

void frmImageMap::ClearDrawing()
{
    ui_->PictureDisplay->ClearDrawing();
}

void frmImageMap::SetSurfacePointer(SurfacePointer pointer)
{
    const Qt::CursorShape shape = pointer == SurfacePointer::Cross ? Qt::CrossCursor : Qt::ArrowCursor;
    if (ui_->PictureDisplay->cursor().shape() != shape) {
        ui_->PictureDisplay->setCursor(shape);
    }
}

void frmImageMap::SetLabel(DrawingLabel label, const QString& text)
{
    labels_[static_cast<std::size_t>(label)]->setText(text);
}

void frmImageMap::BeginPaintingAll()
{
    for (const DrawingLabelName& row : drawingLabels) {
        labels_[static_cast<std::size_t>(row.label)]->setVisible(!row.isPosition);
    }
}

void frmImageMap::EndPaintingAll()
{
    for (QLabel* const label : labels_) {
        label->show();
    }
}

void frmImageMap::EnableFigureCommands(bool enable)
{
    EnableButtons({ 14, 16, 12, 2 }, enable);
    EnableEntries({ "mnuDeleteLast", "mnuInsert", "mnuLink", "mnuNew" }, enable);
    ui_->Check1->setEnabled(enable);
}

void frmImageMap::ShowTool()
{
    for (const ToolMark& mark : toolMarks) {
        const bool isChosen = mark.tool == protocol_.Tool();
        ui_->MenuBar1->findChild<QAction*>(QString::fromLatin1(mark.entry))->setChecked(isChosen);
        ToolbarButton(ui_->Toolbar1, mark.position)->setChecked(isChosen);
    }
    ShowDrawingMode();
}

void frmImageMap::ShowDrawingMode()
{
    ShowStatus(DrawingModeText(protocol_.Tool()));
    ShowHint();
}

void frmImageMap::ReportFullStore(FullStoreText text)
{
    // Once the mouse handler is done: a box that opens inside it would swallow the button's release.
    isMessagePending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this, text] {
            ShowMessage(this, QMessageBox::Warning, FullStoreMessage(text));
            isMessagePending_ = false;
            ShowHint();
        },
        Qt::QueuedConnection);
}

void frmImageMap::LinkNewFigure(QStringView prompt)
{
    ShowStatus(prompt);
    isMessagePending_ = true;
    QMetaObject::invokeMethod(
        this,
        [this] {
            isMessagePending_ = false;
            OpenLinkDialog();
        },
        Qt::QueuedConnection);
}

void frmImageMap::OpenLinkDialog(const AreaRow* replaced)
{
    linkDialog_ = new frmIMLink(imgMap_, *this, this);
    linkDialog_->Form_Load(replaced);
    if (!linkDialog_->IsUnloaded()) {
        panel3_->setText(linkingHint.toString());
        linkDialog_->show();
    }
}

void frmImageMap::EditArea(const QString& hint)
{
    const QList<QTreeWidgetItem*> selected = ui_->ListView1->selectedItems();
    if (selected.isEmpty()) {
        ShowMessage(this, QMessageBox::Information, hint);
    } else if (linkDialog_ == nullptr || !linkDialog_->isVisible()) {
        ShowStatus(TextsOf(imgMap_.Mode).replacePrompt);
        const AreaRow area = RowAt(ui_->ListView1->indexOfTopLevelItem(selected.constFirst()));
        OpenLinkDialog(&area);
    }
}

void frmImageMap::RepaintFigures()
{
    ClearDrawing();
    protocol_.RedrawFigures();
}
