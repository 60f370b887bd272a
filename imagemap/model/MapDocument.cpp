#include "imagemap/model/MapDocument.h"

#include "imagemap/model/AreaLedger.h"
#include "imagemap/model/LastFigure.h"

#include <utility>

namespace {

QString StepNameOf(QStringView what, AreaShape shape)
{
    return what + QStringLiteral(" of a ") + areaShapeNames[static_cast<std::size_t>(shape)].name;
}

/** Leaves the ledger as it is while nothing is being drawn, without what belongs to the mouse and the tool.
 */
void PutToRest(FigureStore& ledger)
{
    if (ledger.HasUnfinishedPolygon()) {
        ledger.RemoveCurrentPolygon();
    }
    ledger.CurrentKind = 0;
    ledger.DrawState = drawIdle;
    ledger.StartX = ledger.StartY = ledger.EndX = ledger.EndY = 0;
    ledger.CurrentRadius = 0;
}

} // namespace

MapDocument::Step::Step(MapDocument& map, QString name, QString joinKey)
    : map_(map)
    , name_(std::move(name))
    , joinKey_(std::move(joinKey))
{
    map_.History().BeginStep();
}

MapDocument::Step::~Step()
{
    map_.History().EndStep(name_, joinKey_);
}

MapState MapDocument::State() const
{
    MapState state = { .Figures = figures_,
                       .IsLedgerOfAreas = false,
                       .Areas = areas_,
                       .AreAreasEdited = areAreasEdited_,
                       .Mode = script_.Mode(),
                       .ModeDefault = script_.ModeDefault(),
                       .MessageHeader = script_.MessageHeader(),
                       .Picture = picture_ };
    PutToRest(state.Figures);
    state.IsLedgerOfAreas = areAreasEdited_ && areas_ == editedAreas_ && state.Figures == ledgerOfAreas_;
    if (state.IsLedgerOfAreas) {
        state.Figures = FigureStore();
    }
    return state;
}

void MapDocument::Restore(const MapState& state)
{
    const qint16 tool = figures_.CurrentKind;
    figures_ = LedgerOf(state);
    areas_ = state.Areas;
    if (state.IsLedgerOfAreas) {
        ledgerOfAreas_ = figures_;
        editedAreas_ = areas_;
    }
    figures_.CurrentKind = tool;
    areAreasEdited_ = state.AreAreasEdited;
    figuresOfAreas_ = figures_.FigureCount;
    script_.Restore(state);
    const bool isOtherPicture = std::exchange(picture_, state.Picture) != state.Picture;
    Q_EMIT Remade();
    Q_EMIT AreasChanged();
    Q_EMIT script_.MessageHeaderChanged();
    if (isOtherPicture) {
        Q_EMIT PictureChanged();
    }
}

void MapDocument::SetPicture(const QString& path)
{
    const Step step(*this, QStringLiteral("Opening of a Picture"));
    picture_ = path;
}

void MapDocument::RemakeLedger()
{
    const qint16 tool = figures_.CurrentKind;
    ledgerOfAreas_ = LedgerOf(areas_);
    editedAreas_ = areas_;
    figures_ = ledgerOfAreas_;
    figures_.CurrentKind = tool;
    figuresOfAreas_ = figures_.FigureCount;
    areAreasEdited_ = true;
}

void MapDocument::ChangeAreas(const MapAreas& areas, const QString& name, const QString& joinKey)
{
    drawing_.GiveUp();
    if (areas == areas_) {
        return;
    }
    const Step step(*this, name, joinKey);
    areas_ = areas;
    RemakeLedger();
    Q_EMIT Remade();
    Q_EMIT AreasChanged();
}

void MapDocument::BeginEditing()
{
    const bool isAnythingOpen = !areas_.isEmpty() || !picture_.isEmpty();
    figures_.DrawState = drawIdle;
    figures_.ResetCurrentPolygon();
    picture_.clear();
    history_.BeginStep();
    ForgetAreas();
    script_.ResetMessageHeader();
    if (isAnythingOpen) {
        history_.EndStep(QStringLiteral("Closing of the Map"));
    } else {
        history_.EndStepUnkept();
    }
}

void MapDocument::LinkNewArea(const LinkEntry& entry)
{
    const std::optional<AreaShape> shape = ShapeOfLastFigure(figures_);
    const Step step(*this, shape ? StepNameOf(u"Drawing", *shape) : QStringLiteral("Change of the Default"));
    script_.TakeModeDefault(entry);
    LinkLastFigure(figures_, entry, MessageOf(script_.Mode(), entry));
    const std::optional<MapArea> area = AreaOfLastFigure(figures_);
    if (!area) {
        return;
    }
    AppendArea(*area);
    if (area->Shape == AreaShape::Polygon) {
        figures_.ResetCurrentPolygon();
    }
    figuresOfAreas_ = figures_.FigureCount;
}

void MapDocument::AppendArea(MapArea area)
{
    const Step step(*this, QStringLiteral("Addition of an Area"));
    areas_ << std::move(area);
    Q_EMIT AreasChanged();
}

void MapDocument::RelinkArea(qsizetype index, const LinkEntry& entry)
{
    const Step step(*this, QStringLiteral("Change of a Link"));
    if (index >= 0 && index < areas_.size()) {
        areas_[index].Link = entry.Text(LinkField::Link);
        areas_[index].Message = MessageOf(script_.Mode(), entry);
        Q_EMIT AreasChanged();
    }
    script_.TakeModeDefault(entry);
}

void MapDocument::DiscardNewArea()
{
    const Step step(*this, QStringLiteral("Discarding of a Figure"));
    if (areAreasEdited_) {
        RemakeLedger();
        Q_EMIT FiguresRemoved();
        return;
    }
    const FigureRecord* const last = std::as_const(figures_).LastFigure();
    if (last != nullptr && last->Kind == kindLine) {
        figures_.ResetCurrentPolygon();
    }
    figures_.RemoveLast();
    Q_EMIT FiguresRemoved();
}

void MapDocument::DeleteLastArea()
{
    if (drawing_.IsInProgress() || areas_.isEmpty()) {
        drawing_.GiveUp();
        return;
    }
    areas_.removeLast();
    RemakeLedger();
    Q_EMIT FiguresRemoved();
    Q_EMIT AreasChanged();
}

void MapDocument::DeleteLastFigure()
{
    const Step step(*this, QStringLiteral("Delete Last Figure"));
    if (areAreasEdited_) {
        DeleteLastArea();
        return;
    }
    const FigureRecord* const last = std::as_const(figures_).LastFigure();
    if (last == nullptr || (figures_.IsDrawing() && !figures_.HasUnfinishedPolygon())) {
        drawing_.GiveUp();
        return;
    }
    const bool isUnfinished = last->Kind == kindLine && figures_.HasUnfinishedPolygon();
    if (last->Kind == kindLine) {
        figures_.ResetCurrentPolygon();
    }
    figures_.DrawState = drawIdle;
    figures_.RemoveLast();
    Q_EMIT FiguresRemoved();
    if (!isUnfinished && !areas_.isEmpty()) {
        areas_.removeLast();
        Q_EMIT AreasChanged();
    }
}

void MapDocument::ForgetAreas()
{
    const Step step(*this, QStringLiteral("Delete of the Map"));
    areas_.clear();
    areAreasEdited_ = false;
    figuresOfAreas_ = 0;
    serial_.Begin();
    Q_EMIT AreasChanged();
}

void MapDocument::Clear()
{
    const Step step(*this, QStringLiteral("Delete of the Map"));
    figures_.DrawState = drawIdle;
    figures_.ResetCurrentPolygon();
    figures_.Clear();
    Q_EMIT Cleared();
    ForgetAreas();
}
