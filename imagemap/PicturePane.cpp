#include "imagemap/PicturePane.h"

#include "imagemap/AreaReader.h"
#include "imagemap/ZoomedPicture.h"
#include "imagemap/drawing/PictureTool.h"
#include "ui_PicturePane.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>
#include <algorithm>
#include <cmath>

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
    AreaReader::Install();
    ui_->setupUi(this);
    for (QScrollBar* const bar : { ui_->HScroll1, ui_->VScroll1 }) {
        bar->setFocusPolicy(Qt::TabFocus);
    }
    ui_->HScroll1->installEventFilter(this);
    ui_->PictureDisplay->installEventFilter(this);
    connect(ui_->PictureDisplay, &PictureSurface::MouseDown, this, &PicturePane::PictureDisplay_MouseDown);
    connect(ui_->PictureDisplay, &PictureSurface::MouseMove, this, &PicturePane::PictureDisplay_MouseMove);
    connect(ui_->PictureDisplay, &PictureSurface::MouseUp, this, &PicturePane::PictureDisplay_MouseUp);
    connect(ui_->PictureDisplay, &PictureSurface::KeysHeld, this, &PicturePane::PictureDisplay_KeysHeld);
    connect(
        ui_->PictureDisplay, &PictureSurface::DoubleClicked, this,
        &PicturePane::PictureDisplay_DoubleClicked);
    connect(ui_->PictureDisplay, &PictureSurface::CrossMoved, this, [this](QPoint place) {
        Reveal({ place, QSize(1, 1) });
    });
    connect(ui_->PicNosac, &PictureView::ZoomTurned, this, &PicturePane::PicNosac_Zoom);
    connect(ui_->PicNosac, &PictureView::PinchBegun, this, &PicturePane::PicNosac_Pinch);
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
    ui_->PictureDisplay->setFocusPolicy(picture.isNull() ? Qt::NoFocus : Qt::TabFocus);
    ui_->PictureDisplay->show();
    ui_->HScroll1->setValue(0);
    ui_->VScroll1->setValue(0);
    UpdateScrollBars();
}

void PicturePane::RenewPicture(const QImage& picture)
{
    const QPoint place(ui_->HScroll1->value(), ui_->VScroll1->value());
    SetPicture(picture);
    ui_->HScroll1->setValue(place.x());
    ui_->VScroll1->setValue(place.y());
}

bool PicturePane::eventFilter(QObject* watched, QEvent* event)
{
    const bool isOnPicture = watched == ui_->PictureDisplay;
    bool isDone = false;
    switch (event->type()) {
    case QEvent::KeyPress:
        isDone = isOnPicture ? PictureDisplay_Key(*static_cast<QKeyEvent*>(event), true)
                             : HScroll1_KeyDown(*static_cast<QKeyEvent*>(event));
        break;
    case QEvent::KeyRelease:
        isDone = isOnPicture && PictureDisplay_Key(*static_cast<QKeyEvent*>(event), false);
        break;
    case QEvent::FocusOut:
        // Whoever has the keys next hears of the key that is let go of.
        isSpaceHeld_ = isSpaceHeld_ && !isOnPicture;
        break;
    case QEvent::ContextMenu:
        // With the mouse its own buttons ask for the menu.
        isDone =
            isOnPicture && static_cast<QContextMenuEvent*>(event)->reason() == QContextMenuEvent::Keyboard;
        if (isDone) {
            Q_EMIT MenuKeyPressed();
        }
        break;
    case QEvent::MouseButtonPress:
    case QEvent::MouseMove:
    case QEvent::MouseButtonRelease:
        isDone = isOnPicture && Pan(*static_cast<QMouseEvent*>(event));
        break;
    default:
        break;
    }
    return isDone || QWidget::eventFilter(watched, event);
}

bool PicturePane::PictureDisplay_Key(const QKeyEvent& key, bool isPress)
{
    if (key.key() == Qt::Key_Space) {
        isSpaceHeld_ = isPress || key.isAutoRepeat();
        return true;
    }
    if (!isPress || tool_ == nullptr || isToolHeld_) {
        return false;
    }
    const bool isTaken = tool_->KeyDown(key.key(), key.modifiers());
    if (isTaken) {
        Q_EMIT ToolUsed();
    }
    return isTaken;
}

/** Shifts the picture with the mouse: by its middle button, or while the space bar is held. */
bool PicturePane::Pan(const QMouseEvent& mouse)
{
    const QPoint place = mouse.globalPosition().toPoint();
    if (mouse.type() == QEvent::MouseButtonPress && !pan_) {
        const bool isLarger = ui_->HScroll1->isEnabled() || ui_->VScroll1->isEnabled();
        const bool isPan =
            mouse.button() == Qt::MiddleButton || (isSpaceHeld_ && mouse.button() == Qt::LeftButton);
        pan_ = isLarger && isPan ? std::optional(Panning{ mouse.button(), place }) : std::nullopt;
        return pan_.has_value();
    }
    // The other buttons go on with what they have begun.
    const bool isMove = mouse.type() == QEvent::MouseMove;
    if (!pan_ || (!isMove && mouse.button() != pan_->button)) {
        return false;
    }
    const QPoint way = place - pan_->place;
    pan_ = isMove ? std::optional(Panning{ pan_->button, place }) : std::nullopt;
    ui_->HScroll1->setValue(ui_->HScroll1->value() - way.x());
    ui_->VScroll1->setValue(ui_->VScroll1->value() - way.y());
    return true;
}

void PicturePane::SetZoom(double zoom)
{
    const QSize view = ui_->PicNosac->size();
    ZoomAt(zoom, { view.width() / 2, view.height() / 2 });
}

void PicturePane::ZoomAt(double zoom, QPoint place)
{
    const double wanted = std::clamp(zoom, leastZoom, greatestZoom);
    if (wanted == Zoom()) {
        return;
    }
    PictureSurface& surface = *ui_->PictureDisplay;
    const QPointF held = surface.ToPicture(place - surface.pos());
    surface.SetZoom(wanted);
    UpdateScrollBars();
    ui_->HScroll1->setValue(static_cast<int>(std::lround(held.x() * wanted)) - place.x());
    ui_->VScroll1->setValue(static_cast<int>(std::lround(held.y() * wanted)) - place.y());
    Q_EMIT ZoomChanged();
}

double PicturePane::FittingZoom() const
{
    const QSizeF picture(Surface().PictureWidth(), Surface().PictureHeight());
    const QSizeF view = ui_->PicNosac->size();
    return picture.isEmpty() ? 1
                             : std::clamp(
                                   std::min(view.width() / picture.width(), view.height() / picture.height()),
                                   leastZoom, greatestZoom);
}

void PicturePane::FitTo(const QRect& part)
{
    const QSizeF view = ui_->PicNosac->size();
    SetZoom(std::min(view.width() / part.width(), view.height() / part.height()));
    const QPointF middle = QRectF(part).center() * Zoom();
    ui_->HScroll1->setValue(static_cast<int>(middle.x() - view.width() / 2));
    ui_->VScroll1->setValue(static_cast<int>(middle.y() - view.height() / 2));
}

void PicturePane::Reveal(const QRect& part)
{
    const auto reveal = [this](QScrollBar* bar, int first, int last, int room) {
        const int low = static_cast<int>(first * Zoom());
        const int high = static_cast<int>((last + 1) * Zoom());
        if (low < bar->value() || high - low > room) {
            bar->setValue(low);
        } else if (high > bar->value() + room) {
            bar->setValue(high - room);
        }
    };
    reveal(ui_->HScroll1, part.left(), part.right(), ui_->PicNosac->width());
    reveal(ui_->VScroll1, part.top(), part.bottom(), ui_->PicNosac->height());
}

void PicturePane::PicNosac_Zoom(double factor, QPoint place)
{
    if (Surface().PictureWidth() > 0) {
        // In whole per cents, so that 100 is reached again; steps that are smaller add up.
        constexpr double parts = 100;
        const auto inPerCents = [](double zoom) { return std::round(zoom * parts) / parts; };
        const double from = inPerCents(turned_) == Zoom() ? turned_ : Zoom();
        turned_ = std::clamp(from * factor, leastZoom, greatestZoom);
        ZoomAt(inPerCents(turned_), place);
    }
}

void PicturePane::PicNosac_Pinch()
{
    if (tool_ != nullptr) {
        tool_->Abandon();
    }
}

void PicturePane::PictureDisplay_KeysHeld(Qt::KeyboardModifiers keys)
{
    if (tool_ != nullptr) {
        tool_->HoldKeys(keys);
    }
}

void PicturePane::PictureDisplay_DoubleClicked(float x, float y)
{
    if (tool_ != nullptr && !isToolHeld_) {
        tool_->DoubleClick(x, y);
        Q_EMIT ToolUsed();
    }
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
    Q_EMIT RoomChanged();
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
