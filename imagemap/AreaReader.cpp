#include "imagemap/AreaReader.h"

#include "imagemap/PictureSurface.h"
#include "imagemap/model/AreaGeometry.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>
#include <algorithm>
#include <cmath>

namespace {

/** Where an area leads to and lies, in words. */
QString SpokenPlace(const MapArea& area)
{
    const QString link = area.Link.isEmpty() ? QStringLiteral("no link") : area.Link;
    return link + u", " + CoordinatesText(area);
}

/** One area as readers see it. */
class AreaFace final : public QAccessibleInterface, public QAccessibleActionInterface
{
public:
    AreaFace(AreaReader& reader, int number)
        : reader_(&reader)
        , number_(number)
    {
    }

    bool isValid() const override { return reader_ != nullptr && number_ < reader_->Areas().size(); }
    QObject* object() const override { return nullptr; }
    QAccessibleInterface* parent() const override
    {
        return reader_ != nullptr ? QAccessible::queryAccessibleInterface(&reader_->Surface()) : nullptr;
    }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    int childCount() const override { return 0; }
    int indexOfChild(const QAccessibleInterface*) const override { return -1; }
    QWindow* window() const override
    {
        return isValid() ? reader_->Surface().window()->windowHandle() : nullptr;
    }

    /** What a page has for an area. */
    QAccessible::Role role() const override { return QAccessible::Link; }
    QString text(QAccessible::Text kind) const override;
    void setText(QAccessible::Text, const QString&) override {}
    QRect rect() const override { return isValid() ? reader_->PlaceOf(Area()) : QRect(); }
    QAccessible::State state() const override;

    void* interface_cast(QAccessible::InterfaceType type) override
    {
        return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this)
                                                    : nullptr;
    }
    QStringList actionNames() const override { return { setFocusAction() }; }
    void doAction(const QString& action) override
    {
        if (isValid() && action == setFocusAction()) {
            Q_EMIT reader_->SelectAsked(number_);
        }
    }
    QStringList keyBindingsForAction(const QString&) const override { return {}; }

private:
    [[nodiscard]] const MapArea& Area() const { return reader_->Areas().at(number_); }

    QPointer<AreaReader> reader_;
    int number_;
};

QString AreaFace::text(QAccessible::Text kind) const
{
    if (!isValid()) {
        return {};
    }
    switch (kind) {
    case QAccessible::Name:
        return TitleOf(Area(), number_).trimmed();
    case QAccessible::Description:
        return SpokenPlace(Area());
    case QAccessible::Value:
        return Area().Link;
    default:
        return {};
    }
}

QAccessible::State AreaFace::state() const
{
    QAccessible::State state;
    state.invalid = !isValid();
    if (isValid()) {
        state.focusable = true;
        state.selectable = true;
        state.multiSelectable = true;
        state.selected = reader_->Selected().contains(number_);
        state.focused = reader_->Surface().hasFocus() && reader_->FocusedArea() == number_;
        const PictureSurface& surface = reader_->Surface();
        state.offscreen = !surface.visibleRegion().intersects(surface.FromPicture(BoundsOf(Area())));
    }
    return state;
}

/** The picture as readers see it: its areas are its children. */
class PictureFace final : public QAccessibleWidget
{
public:
    explicit PictureFace(PictureSurface& surface)
        : QAccessibleWidget(&surface, QAccessible::Graphic)
    {
    }
    ~PictureFace() override
    {
        for (const QAccessible::Id id : std::as_const(faces_)) {
            QAccessible::deleteAccessibleInterface(id);
        }
    }
    Q_DISABLE_COPY_MOVE(PictureFace)

    int childCount() const override
    {
        const AreaReader* const reader = Reader();
        return reader != nullptr ? static_cast<int>(reader->Areas().size()) : 0;
    }
    QAccessibleInterface* child(int number) const override;
    QAccessibleInterface* childAt(int x, int y) const override;
    int indexOfChild(const QAccessibleInterface* face) const override
    {
        return faces_.key(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(face)), -1);
    }
    QAccessibleInterface* focusChild() const override
    {
        const AreaReader* const reader = Reader();
        return reader != nullptr && widget()->hasFocus() ? child(reader->FocusedArea()) : nullptr;
    }

private:
    [[nodiscard]] AreaReader* Reader() const { return widget()->findChild<AreaReader*>(); }

    mutable QHash<int, QAccessible::Id> faces_;
};

QAccessibleInterface* PictureFace::child(int number) const
{
    if (number < 0 || number >= childCount()) {
        return nullptr;
    }
    const auto known = faces_.constFind(number);
    if (known != faces_.cend()) {
        return QAccessible::accessibleInterface(*known);
    }
    auto* const face = new AreaFace(*Reader(), number);
    faces_.insert(number, QAccessible::registerAccessibleInterface(face));
    return face;
}

QAccessibleInterface* PictureFace::childAt(int x, int y) const
{
    const AreaReader* const reader = Reader();
    if (reader == nullptr) {
        return nullptr;
    }
    const QPointF place = reader->Surface().ToPicture(reader->Surface().mapFromGlobal(QPointF(x, y)));
    const QPoint pixel(static_cast<int>(std::floor(place.x())), static_cast<int>(std::floor(place.y())));
    // The first area is the topmost.
    return child(static_cast<int>(AreasAt(reader->Areas(), pixel).value(0, -1)));
}

QAccessibleInterface* NewPictureFace(const QString&, QObject* object)
{
    auto* const surface = qobject_cast<PictureSurface*>(object);
    return surface != nullptr ? new PictureFace(*surface) : nullptr;
}

void Announce(PictureSurface& surface, QAccessible::Event kind, int number)
{
    QAccessibleEvent event(&surface, kind);
    event.setChild(number);
    QAccessible::updateAccessibility(&event);
}

} // namespace

AreaReader::AreaReader(PictureSurface& surface)
    : QObject(&surface)
    , surface_(surface)
{
}

void AreaReader::Install()
{
    // The same factory counts once.
    QAccessible::installFactory(&NewPictureFace);
}

int AreaReader::FocusedArea() const
{
    return selected_.isEmpty() ? -1 : static_cast<int>(selected_.constLast());
}

QRect AreaReader::PlaceOf(const MapArea& area) const
{
    const QRect place = surface_.FromPicture(BoundsOf(area));
    return { surface_.mapToGlobal(place.topLeft()), place.size() };
}

void AreaReader::Tell(const MapAreas& areas, const AreaNumbers& selected)
{
    const bool hasOtherAreas = areas.size() != areas_.size();
    const int focusBefore = FocusedArea();
    const AreaNumbers selectedBefore = selected_;
    areas_ = areas;
    selected_ = selected;
    // Those that went are still selected until the selection hears of it.
    selected_.removeIf([this](qsizetype number) { return number >= areas_.size(); });
    QStringList names;
    for (const qsizetype number : std::as_const(selected_)) {
        const MapArea& area = areas_.at(number);
        names << TitleOf(area, number).trimmed() + u", " + SpokenPlace(area);
    }
    surface_.setAccessibleDescription(names.join(u"; "));
    if (hasOtherAreas) {
        QAccessibleEvent event(&surface_, QAccessible::ObjectReorder);
        QAccessible::updateAccessibility(&event);
    }
    if (selected_.isEmpty()) {
        for (const qsizetype number : selectedBefore) {
            if (number < areas_.size()) {
                Announce(surface_, QAccessible::SelectionRemove, static_cast<int>(number));
            }
        }
    }
    const int focused = FocusedArea();
    if (!std::ranges::equal(selected_, selectedBefore) && focused >= 0) {
        Announce(surface_, QAccessible::Selection, focused);
        if (focused != focusBefore && surface_.hasFocus()) {
            Announce(surface_, QAccessible::Focus, focused);
        }
    }
}
