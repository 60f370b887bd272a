#include "imagemap/drawing/SelectionProtocol.h"

#include "imagemap/drawing/SelectionReadout.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace {

/** Pixels of the screen: how near to a handle a press takes it, how far the mouse moves before it drags, how
 * near to a line an edge snaps. */
constexpr int handleReach = 5;
constexpr int dragDistance = 3;
constexpr int snapReach = 4;
/** Pixels of the picture that an arrow key with Shift moves by. */
constexpr int longStep = 10;

QPoint PixelOf(float x, float y)
{
    const auto whole = [](float position) {
        return static_cast<int>(
            std::floor(std::clamp(position, float(-coordinateLimit), float(coordinateLimit))));
    };
    return { whole(x), whole(y) };
}

/** `by` along the axis that it follows more. */
QPoint AlongAxis(QPoint by)
{
    return std::abs(by.x()) >= std::abs(by.y()) ? QPoint(by.x(), 0) : QPoint(0, by.y());
}

QPoint WayOfKey(int key)
{
    const auto is = [key](Qt::Key one) { return key == one ? 1 : 0; };
    return { is(Qt::Key_Right) - is(Qt::Key_Left), is(Qt::Key_Down) - is(Qt::Key_Up) };
}

} // namespace

SelectionProtocol::SelectionProtocol(
    AreaEditing& editing, DrawingSurface& picture, SelectionSurface& surface, DrawingStatus& status)
    : editing_(editing)
    , picture_(picture)
    , surface_(surface)
    , status_(status)
{
    connect(&editing_.Map(), &MapDocument::AreasChanged, this, &SelectionProtocol::Map_AreasChanged);
    connect(&Selection(), &AreaSelection::Changed, this, &SelectionProtocol::Show);
}

QSize SelectionProtocol::PictureSize() const
{
    return { picture_.PictureWidth(), picture_.PictureHeight() };
}

/** So many pixels of the screen in whole pixels of the picture. */
int SelectionProtocol::Reach(int screenPixels) const
{
    return static_cast<int>(std::floor(screenPixels / surface_.Zoom()));
}

std::optional<AreaHandle> SelectionProtocol::HandleAt(QPoint place) const
{
    const std::optional<qsizetype> only = Selection().OnlyOne();
    if (!only) {
        return std::nullopt;
    }
    const int reach = Reach(handleReach);
    const QList<AreaHandle> handles = HandlesOf(editing_.Map().Areas().at(*only));
    const auto found = std::find_if(handles.begin(), handles.end(), [place, reach](const AreaHandle& handle) {
        const QPoint away = handle.place - place;
        return std::max(std::abs(away.x()), std::abs(away.y())) <= reach;
    });
    return found != handles.end() ? std::optional(*found) : std::nullopt;
}

void SelectionProtocol::MouseDown(int button, float x, float y)
{
    if (drag_ != Drag::None) {
        return;
    }
    pressed_ = PixelOf(x, y);
    isUnderWay_ = false;
    isFreshPick_ = false;
    const std::optional<AreaHandle> handle = HandleAt(pressed_);
    if (button == rightButton) {
        const QList<qsizetype> hits = AreasAt(editing_.Map().Areas(), pressed_);
        if (!hits.isEmpty() && !Selection().Contains(hits.constFirst())) {
            Selection().Select({ hits.constFirst() });
        }
        Q_EMIT MenuAsked();
        return;
    }
    if (button != leftButton) {
        return;
    }
    if (handle) {
        handle_ = *handle;
        drag_ = Drag::Handle;
        Selection().SelectVertex(
            handle->kind == HandleKind::Vertex ? std::optional(handle->index) : std::nullopt);
    } else {
        PressOnAreas();
    }
    before_ = editing_.SelectedAreas();
    preview_ = before_;
}

void SelectionProtocol::PressOnAreas()
{
    const QList<qsizetype> hits = AreasAt(editing_.Map().Areas(), pressed_);
    if (hits.isEmpty()) {
        drag_ = Drag::Frame;
        return;
    }
    drag_ = Drag::Areas;
    const bool isSelected =
        std::any_of(hits.begin(), hits.end(), [this](qsizetype hit) { return Selection().Contains(hit); });
    if (keys_.testFlag(Qt::ShiftModifier)) {
        isFreshPick_ = !Selection().Contains(hits.constFirst());
        if (isFreshPick_) {
            Selection().Toggle(hits.constFirst());
        }
    } else if (!isSelected) {
        isFreshPick_ = true;
        Selection().Select({ hits.constFirst() });
    }
}

/** A click on what was selected before: with Shift it is selected no more, else the next below is. */
void SelectionProtocol::PickBelow()
{
    const QList<qsizetype> hits = AreasAt(editing_.Map().Areas(), pressed_);
    if (hits.isEmpty() || isFreshPick_) {
        return;
    }
    if (keys_.testFlag(Qt::ShiftModifier)) {
        Selection().Toggle(hits.constFirst());
        return;
    }
    const QPoint away = pressed_ - lastClick_.value_or(pressed_ + QPoint(longStep, longStep) * longStep);
    const bool isAgain = away.manhattanLength() <= std::max(Reach(dragDistance), 0);
    const qsizetype at = isAgain && Selection().OnlyOne() ? hits.indexOf(*Selection().OnlyOne()) : -1;
    passedOn_ = at >= 0 ? Selection().OnlyOne() : std::nullopt;
    Selection().Select({ hits[(at + 1) % hits.size()] });
}

void SelectionProtocol::MouseMove(float x, float y)
{
    constexpr int digits = 7;
    status_.SetLabel(DrawingLabel::Cursor1, QString::number(x, 'g', digits) + u',');
    status_.SetLabel(DrawingLabel::Cursor2, QString::number(y, 'g', digits));
    const QPoint place = PixelOf(x, y);
    if (drag_ == Drag::None) {
        const bool isOverArea = !AreasAt(editing_.Map().Areas(), place).isEmpty();
        picture_.SetPointer(
            HandleAt(place) ? SurfacePointer::Handle
            : isOverArea    ? SurfacePointer::Move
                            : SurfacePointer::Arrow);
        return;
    }
    const QPoint way = place - pressed_;
    const int distance = std::max(std::abs(way.x()), std::abs(way.y()));
    isUnderWay_ = isUnderWay_ || (distance > 0 && distance * surface_.Zoom() >= dragDistance);
    if (isUnderWay_) {
        DragTo(place);
    }
}

void SelectionProtocol::DragTo(QPoint place)
{
    shown_ = {};
    shown_.notePlace = place;
    switch (drag_) {
    case Drag::Areas:
        DragAreas(place - pressed_);
        break;
    case Drag::Handle:
        DragHandle(handle_.place + place - pressed_);
        break;
    case Drag::Frame:
        DragFrame(place);
        break;
    case Drag::None:
        break;
    }
    shown_.areas = preview_;
    surface_.ShowSelection(shown_);
}

void SelectionProtocol::Snap(const MapAreas& areas, QPoint& by) const
{
    if (isSnapping_) {
        const MapAreas others = Without(editing_.Map().Areas(), Selection().Numbers());
        by +=
            StepToLines(SnapLinesOf(others, PictureSize()), BoundsOf(areas).translated(by), Reach(snapReach));
    }
}

void SelectionProtocol::DragAreas(QPoint by)
{
    const bool keepsAxis = keys_.testFlag(Qt::ShiftModifier);
    by = keepsAxis ? AlongAxis(by) : by;
    QPoint snapped = by;
    Snap(before_, snapped);
    // What keeps to an axis snaps along it alone.
    by = { keepsAxis && by.x() == 0 ? 0 : snapped.x(), keepsAxis && by.y() == 0 ? 0 : snapped.y() };
    if (!keys_.testFlag(Qt::AltModifier)) {
        by = StepWithin(BoundsOf(before_), by, PictureSize());
    }
    std::transform(before_.begin(), before_.end(), preview_.begin(), [by](const MapArea& area) {
        return Moved(area, by);
    });
    Note(preview_);
}

void SelectionProtocol::DragHandle(QPoint to)
{
    const bool keeps = keys_.testFlag(Qt::ShiftModifier);
    if (keeps && handle_.kind != HandleKind::Corner && handle_.kind != HandleKind::Rim) {
        to = handle_.place + AlongAxis(to - handle_.place);
    }
    if (isSnapping_ && !(keeps && handle_.kind == HandleKind::Corner)) {
        const MapAreas others = Without(editing_.Map().Areas(), Selection().Numbers());
        to += StepToLines(SnapLinesOf(others, PictureSize()), QRect(to, QSize(1, 1)), Reach(snapReach));
    }
    if (!keys_.testFlag(Qt::AltModifier)) {
        to = { std::clamp(to.x(), 0, PictureSize().width()), std::clamp(to.y(), 0, PictureSize().height()) };
    }
    preview_[0] = Reshaped(before_[0], handle_, to, keeps);
    shown_.handles = HandlesOf(preview_[0]);
    Note(preview_);
}

void SelectionProtocol::DragFrame(QPoint to)
{
    shown_.frame = QRect(
        QPoint(std::min(pressed_.x(), to.x()), std::min(pressed_.y(), to.y())),
        QPoint(std::max(pressed_.x(), to.x()), std::max(pressed_.y(), to.y())));
}

/** Tells where `areas`, which follow the mouse, are. */
void SelectionProtocol::Note(const MapAreas& areas)
{
    shown_.note = NoteOf(areas);
    if (isSnapping_ || areGuidesShown_) {
        const MapAreas others = Without(editing_.Map().Areas(), Selection().Numbers());
        shown_.guides = LinesTouched(SnapLinesOf(others, PictureSize()), BoundsOf(areas), PictureSize());
    }
    ShowPlaceOf(status_, areas);
}

void SelectionProtocol::MouseUp(int button, float x, float y)
{
    if (button != leftButton || drag_ == Drag::None) {
        return;
    }
    passedOn_.reset();
    if (isUnderWay_) {
        DragTo(PixelOf(x, y));
        Drop();
    } else if (drag_ == Drag::Areas) {
        PickBelow();
    } else if (drag_ == Drag::Frame && !keys_.testFlag(Qt::ShiftModifier)) {
        Selection().Clear();
    }
    lastClick_ = pressed_;
    drag_ = Drag::None;
    isUnderWay_ = false;
    Show();
}

void SelectionProtocol::Drop()
{
    if (drag_ == Drag::Frame) {
        AreaNumbers numbers = keys_.testFlag(Qt::ShiftModifier) ? Selection().Numbers() : AreaNumbers();
        const MapAreas& areas = editing_.Map().Areas();
        for (qsizetype i = 0; i < areas.size(); ++i) {
            if (IsWhole(areas[i]) && shown_.frame.contains(BoundsOf(areas[i]))) {
                numbers << i;
            }
        }
        Selection().Select(numbers);
        return;
    }
    const bool isNewCorner = drag_ == Drag::Handle && handle_.kind == HandleKind::Middle;
    editing_.Replace(preview_, drag_ == Drag::Areas ? u"Move" : isNewCorner ? u"New Corner" : u"Reshaping");
    if (isNewCorner) {
        Selection().SelectVertex(handle_.index + 1);
    }
}

void SelectionProtocol::DoubleClick(float x, float y)
{
    const QPoint place = PixelOf(x, y);
    const std::optional<AreaHandle> handle = HandleAt(place);
    const bool isOnArea = drag_ == Drag::Areas || handle;
    Abandon();
    lastClick_.reset();
    if (passedOn_ && !handle) {
        Selection().Select({ *passedOn_ });
    }
    if (handle && handle->kind == HandleKind::Vertex) {
        Selection().SelectVertex(handle->index);
        editing_.Delete();
        Show();
    } else if (isOnArea && Selection().OnlyOne()) {
        Q_EMIT EditAsked();
    }
}

bool SelectionProtocol::KeyDown(int key, Qt::KeyboardModifiers keys)
{
    const int step = keys.testFlag(Qt::ShiftModifier) ? -1 : 1;
    switch (key) {
    case Qt::Key_Escape:
        return GiveUpByKey();
    case Qt::Key_Tab:
        return editing_.SelectNext(step);
    case Qt::Key_Backtab:
        return editing_.SelectNext(-1);
    case Qt::Key_V:
        return editing_.SelectNextVertex(step);
    case Qt::Key_Insert:
        return editing_.InsertVertex();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (Selection().OnlyOne()) {
            Q_EMIT EditAsked();
        }
        return Selection().OnlyOne().has_value();
    default:
        return MoveByKey(key, keys);
    }
}

bool SelectionProtocol::MoveByKey(int key, Qt::KeyboardModifiers keys)
{
    const QPoint by = WayOfKey(key) * (keys.testFlag(Qt::ShiftModifier) ? longStep : 1);
    if (by.isNull() || Selection().Numbers().isEmpty() || drag_ != Drag::None) {
        return false;
    }
    if (keys.testFlag(Qt::ControlModifier)) {
        editing_.Resize(by);
    } else {
        editing_.Nudge(by, keys.testFlag(Qt::AltModifier));
    }
    return true;
}

bool SelectionProtocol::GiveUpByKey()
{
    if (drag_ != Drag::None) {
        Abandon();
    } else if (Selection().Vertex()) {
        Selection().SelectVertex(std::nullopt);
    } else if (!Selection().Numbers().isEmpty()) {
        Selection().Clear();
    } else {
        return false;
    }
    return true;
}

void SelectionProtocol::Abandon()
{
    drag_ = Drag::None;
    isUnderWay_ = false;
    Show();
}

void SelectionProtocol::Map_AreasChanged()
{
    drag_ = Drag::None;
    isUnderWay_ = false;
    Selection().KeepWithin(editing_.Map().Areas());
    Show();
}

void SelectionProtocol::Show()
{
    if (!isInForce_ || (drag_ != Drag::None && isUnderWay_)) {
        return;
    }
    shown_ = {};
    shown_.areas = editing_.SelectedAreas();
    if (shown_.areas.size() == 1) {
        shown_.handles = HandlesOf(shown_.areas.constFirst());
        shown_.vertex = Selection().Vertex();
    }
    surface_.ShowSelection(shown_);
    ShowPlaceOf(status_, shown_.areas);
}
