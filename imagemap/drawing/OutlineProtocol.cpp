#include "imagemap/drawing/OutlineProtocol.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace {

/** So many pixels of the screen sideways are one per cent of tolerance. */
constexpr double pixelsOfPercent = 4;
/** A hand that clicks may tremble by so many. */
constexpr double leastDrag = 3;

RegionTaking TakingOf(Qt::KeyboardModifiers keys)
{
    if (keys.testFlag(Qt::ControlModifier)) {
        return RegionTaking::TakenOff;
    }
    return keys.testFlag(Qt::ShiftModifier) ? RegionTaking::Joined : RegionTaking::Alone;
}

QPoint PixelAt(float x, float y)
{
    return { static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)) };
}

} // namespace

OutlineProtocol::OutlineProtocol(
    SelectionSurface& surface, CrossSurface& cross, std::function<QImage()> picture)
    : surface_(surface)
    , cross_(cross)
    , picture_(std::move(picture))
{
    connect(&work_, &OutlineWork::Found, this, &OutlineProtocol::Work_Found);
    connect(&work_, &OutlineWork::TakesLong, this, &OutlineProtocol::TakesLong);
}

void OutlineProtocol::SetInForce(bool isInForce)
{
    if (isInForce != std::exchange(isInForce_, isInForce)) {
        Abandon();
        const QImage picture = isInForce ? picture_() : QImage();
        pictureKey_ = picture.cacheKey();
        crossPlace_ = picture.rect().center();
        work_.Begin(picture);
    }
}

void OutlineProtocol::Make()
{
    isMakeAsked_ = work_.IsBusy();
    if (!isMakeAsked_ && !outline_.IsEmpty()) {
        Q_EMIT MakeAsked();
    }
}

void OutlineProtocol::Show()
{
    if (const QImage picture = picture_(); picture.cacheKey() != pictureKey_) {
        Abandon();
        pictureKey_ = picture.cacheKey();
        work_.Begin(picture);
    }
    SelectionPicture shown;
    shown.areas = outline_.Plain();
    if (press_ && press_->isDrag) {
        shown.note = QStringLiteral("Tolerance %1 %").arg(work_.Tolerance());
        shown.notePlace = mouse_;
    }
    surface_.ShowSelection(shown);
}

void OutlineProtocol::Take(QPoint place, Qt::KeyboardModifiers keys)
{
    isMakeAsked_ = false;
    isCrossMoved_ = false;
    work_.Take(place, TakingOf(keys));
}

void OutlineProtocol::MouseDown(int button, float x, float y)
{
    cross_.HideCross();
    if (button != leftButton) {
        return;
    }
    mouse_ = PixelAt(x, y);
    crossPlace_ = mouse_;
    press_ = Press{ mouse_, work_.Tolerance() };
    Take(mouse_, keys_);
}

void OutlineProtocol::MouseMove(float x, float y)
{
    mouse_ = PixelAt(x, y);
    if (!press_) {
        return;
    }
    const double way = (mouse_.x() - press_->place.x()) * surface_.Zoom();
    press_->isDrag = press_->isDrag || std::abs(way) >= leastDrag;
    if (press_->isDrag) {
        const double tolerance =
            std::clamp(std::round(press_->tolerance + way / pixelsOfPercent), 0.0, mostTolerance);
        work_.SetTolerance(tolerance);
        Q_EMIT ToleranceDragged(tolerance);
        Show();
    }
}

void OutlineProtocol::MouseUp(int button, float, float)
{
    if (button != leftButton || !press_) {
        return;
    }
    if (std::exchange(press_, std::nullopt)->isDrag) {
        Show();
    }
}

void OutlineProtocol::DoubleClick(float, float)
{
    press_.reset();
    Make();
}

bool OutlineProtocol::KeyDown(int key, Qt::KeyboardModifiers keys)
{
    switch (key) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        PressEnter(keys);
        return true;
    case Qt::Key_Escape: {
        const bool isAnything = work_.IsBusy() || !outline_.IsEmpty();
        Abandon();
        return isAnything;
    }
    default: {
        const QPoint step = CrossStep(key, keys);
        MoveCross(step);
        return !step.isNull();
    }
    }
}

void OutlineProtocol::MoveCross(QPoint by)
{
    if (by.isNull()) {
        return;
    }
    const QSize size = picture_().size();
    crossPlace_ = { std::clamp(crossPlace_.x() + by.x(), 0, size.width() - 1),
                    std::clamp(crossPlace_.y() + by.y(), 0, size.height() - 1) };
    isCrossMoved_ = true;
    cross_.ShowCross(crossPlace_);
}

void OutlineProtocol::PressEnter(Qt::KeyboardModifiers keys)
{
    if (isCrossMoved_) {
        Take(crossPlace_, keys);
    } else {
        Make();
    }
}

void OutlineProtocol::Abandon()
{
    press_.reset();
    isMakeAsked_ = false;
    isCrossMoved_ = false;
    cross_.HideCross();
    work_.Clear();
    outline_ = {};
    if (isInForce_) {
        surface_.ShowSelection({});
    }
    Q_EMIT OutlineChanged();
}

void OutlineProtocol::Work_Found(const RegionOutline& outline)
{
    outline_ = outline;
    Show();
    Q_EMIT OutlineChanged();
    if (isMakeAsked_ && !work_.IsBusy()) {
        Make();
    }
}
