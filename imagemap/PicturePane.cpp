#include "imagemap/PicturePane.h"

#include "imagemap/drawing/PictureTool.h"
#include "ui_PicturePane.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <algorithm>

namespace {

/** Eighths of a degree in one notch of the wheel. */
constexpr int wheelNotch = 120;
/** Steps of a scroll bar in one notch. */
constexpr int wheelSteps = 3;
/** Picture pixels in one step of a scroll bar. */
constexpr int scrollStep = 16;

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

PicturePane::PicturePane(QWidget* parent)
    : QWidget(parent)
    , ui_(std::make_unique<Ui::PicturePane>())
{
    ui_->setupUi(this);
    for (QScrollBar* const bar : { ui_->HScroll1, ui_->VScroll1 }) {
        bar->setFocusPolicy(Qt::TabFocus);
    }
    ui_->HScroll1->installEventFilter(this);
    connect(ui_->PictureDisplay, &PictureSurface::MouseDown, this, &PicturePane::PictureDisplay_MouseDown);
    connect(ui_->PictureDisplay, &PictureSurface::MouseMove, this, &PicturePane::PictureDisplay_MouseMove);
    connect(ui_->PictureDisplay, &PictureSurface::MouseUp, this, &PicturePane::PictureDisplay_MouseUp);
    connect(ui_->PicNosac, &PictureView::Resized, this, &PicturePane::PicNosac_Resize);
    connect(ui_->PicNosac, &PictureView::WheelTurned, this, &PicturePane::PicNosac_Wheel);
    connect(ui_->HScroll1, &QScrollBar::valueChanged, this, &PicturePane::HScroll1_Change);
    connect(ui_->VScroll1, &QScrollBar::valueChanged, this, &PicturePane::VScroll1_Change);
}

PicturePane::~PicturePane() = default;

PictureSurface& PicturePane::Surface() const
{
    return *ui_->PictureDisplay;
}

void PicturePane::SetPicture(const QImage& picture)
{
    ui_->PictureDisplay->hide();
    ui_->PictureDisplay->move(0, 0);
    ui_->PictureDisplay->SetPicture(picture);
    ui_->PictureDisplay->show();
    ui_->HScroll1->setValue(0);
    ui_->VScroll1->setValue(0);
    UpdateScrollBars();
}

bool PicturePane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::KeyPress && HScroll1_KeyDown(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    return QWidget::eventFilter(watched, event);
}

void PicturePane::PictureDisplay_MouseDown(int button, float x, float y)
{
    if (tool_ != nullptr && !isToolHeld_) {
        tool_->MouseDown(button, x, y);
        Q_EMIT ToolUsed();
    }
}

void PicturePane::PictureDisplay_MouseMove(float x, float y)
{
    if (tool_ != nullptr) {
        tool_->MouseMove(x, y);
    }
}

void PicturePane::PictureDisplay_MouseUp(int button, float x, float y)
{
    if (tool_ != nullptr && !isToolHeld_) {
        tool_->MouseUp(button, x, y);
        Q_EMIT ToolUsed();
    }
}

void PicturePane::PicNosac_Resize()
{
    UpdateScrollBars();
}

void PicturePane::PicNosac_Wheel(QPoint angle)
{
    // Fine wheels and touchpads turn by less than a pixel at a time.
    wheelRest_ += angle * (wheelSteps * scrollStep);
    const QPoint pixels(wheelRest_.x() / wheelNotch, wheelRest_.y() / wheelNotch);
    wheelRest_ -= pixels * wheelNotch;
    ui_->HScroll1->setValue(ui_->HScroll1->value() - pixels.x());
    ui_->VScroll1->setValue(ui_->VScroll1->value() - pixels.y());
}

void PicturePane::HScroll1_Change(int value)
{
    ui_->PictureDisplay->move(-value, ui_->PictureDisplay->y());
}

/** Left and right do what they say, unlike in Qt's own scroll bar; true when `key` was one of them. */
bool PicturePane::HScroll1_KeyDown(const QKeyEvent& key)
{
    const int steps = (key.key() == Qt::Key_Right ? 1 : 0) - (key.key() == Qt::Key_Left ? 1 : 0);
    ui_->HScroll1->setValue(ui_->HScroll1->value() + steps * scrollStep);
    return steps != 0;
}

void PicturePane::VScroll1_Change(int value)
{
    ui_->PictureDisplay->move(ui_->PictureDisplay->x(), -value);
}

void PicturePane::UpdateScrollBars()
{
    const QSize view = ui_->PicNosac->size();
    FitScrollBar(ui_->HScroll1, ui_->PictureDisplay->width(), view.width());
    FitScrollBar(ui_->VScroll1, ui_->PictureDisplay->height(), view.height());
}
