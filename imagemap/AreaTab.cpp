#include "imagemap/AreaTab.h"

#include "imagemap/AreaAttributes.h"
#include "imagemap/MapOrigins.h"
#include "imagemap/model/AreaConversion.h"
#include "ui_AreaTab.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

#include <algorithm>
#include <utility>

namespace {

constexpr QStringView pickFirst = u"Pick an area with the Select tool or in the list of the first tab";

QLineEdit* EditOf(QWidget* field)
{
    auto* const box = qobject_cast<QComboBox*>(field);
    return box != nullptr ? box->lineEdit() : static_cast<QLineEdit*>(field);
}

/** What all of `areas` have in common; nothing where they differ. */
template<class Value> Value Common(const MapAreas& areas, Value MapArea::*member)
{
    const bool isCommon =
        !areas.isEmpty() && std::all_of(areas.begin(), areas.end(), [&](const MapArea& area) {
            return area.*member == areas.constFirst().*member;
        });
    return isCommon ? areas.constFirst().*member : Value();
}

} // namespace

AreaTab::AreaTab(const ImgMap& imgMap, AreaEditing& editing, std::function<bool()> begin, QWidget* parent)
    : QWidget(parent)
    , editing_(editing)
    , begin_(std::move(begin))
    , ui_(std::make_unique<Ui::AreaTab>())
{
    ui_->setupUi(this);
    HoldOneLine(this);
    for (const AreaShapeName& shape : areaShapeNames) {
        // What is left of the picture is no shape that another could be given.
        if (shape.shape != AreaShape::Default) {
            ui_->cmbAreaShape->addItem(shape.name.toString());
        }
    }
    ui_->cmbAreaLink->Offer(imgMap);
    NameParts(ui_->cmbAreaLink);
    NameParts(ui_->cmbAreaTarget);
    ui_->cmbAreaShape->view()->setAccessibleName(ui_->cmbAreaShape->accessibleName());
    for (QComboBox* const box : std::initializer_list<QComboBox*>{ ui_->cmbAreaLink, ui_->cmbAreaTarget }) {
        box->setCompleter(nullptr);
    }
    connect(ui_->cmbAreaShape, &QComboBox::activated, this, &AreaTab::cmbAreaShape_Chosen);
    connect(ui_->txtAreaCoords, &QLineEdit::textEdited, this, &AreaTab::txtAreaCoords_Edited);
    connect(ui_->txtAreaCoords, &QLineEdit::editingFinished, this, &AreaTab::txtAreaCoords_Left);
    ConnectText(ui_->cmbAreaLink, &MapArea::Link, u"Change of the Link");
    ConnectText(ui_->cmbAreaTarget, &MapArea::Target, u"Change of the Target");
    ConnectText(ui_->txtAreaMessage, &MapArea::Message, u"Change of the Message");
    ConnectText(ui_->txtAreaText, &MapArea::Text, u"Change of the Text");
    connect(&editing_.Selection(), &AreaSelection::Changed, this, &AreaTab::Refresh);
    connect(&editing_.Map(), &MapDocument::AreasChanged, this, &AreaTab::Refresh);
    connect(&editing_.Map().Script(), &MapScript::MessageHeaderChanged, this, &AreaTab::Refresh);
    Refresh();
}

AreaTab::~AreaTab() = default;

void AreaTab::GoToText()
{
    ui_->txtAreaText->setFocus();
}

void AreaTab::OfferAttributes(MapOrigins& origins)
{
    origins_ = &origins;
    new AreaAttributes({ *ui_->tblAttributes, editing_, origins, begin_,
                         [this](const QString& problem) { ShowProblem(problem); } });
}

void AreaTab::ConnectText(QWidget* field, TextOfArea member, QStringView what)
{
    const auto change = [this, member, what](const QString& text) { ChangeText(member, text, what); };
    connect(EditOf(field), &QLineEdit::textEdited, this, change);
    connect(EditOf(field), &QLineEdit::editingFinished, this, [this] { editing_.EndJoining(); });
    if (auto* const box = qobject_cast<QComboBox*>(field)) {
        connect(box, &QComboBox::textActivated, this, change);
    }
}

void AreaTab::ChangeText(TextOfArea member, const QString& text, QStringView what)
{
    if (!begin_()) {
        return;
    }
    MapAreas areas = editing_.SelectedAreas();
    for (MapArea& area : areas) {
        area.*member = text;
    }
    isChanging_ = true;
    editing_.Replace(areas, what, what.toString());
    isChanging_ = false;
}

void AreaTab::cmbAreaShape_Chosen(int index)
{
    if (begin_()) {
        MapAreas areas = editing_.SelectedAreas();
        for (MapArea& area : areas) {
            area = Converted(area, static_cast<AreaShape>(index));
        }
        editing_.Replace(areas, u"Conversion");
    }
}

/** Of an area that cannot be drawn, whatever is typed is kept as it is. */
bool AreaTab::SetWrittenCoordinates(MapArea& area, const QString& text) const
{
    const MapOrigin* const origin = origins_ != nullptr ? origins_->Present() : nullptr;
    const ReturnedMap* const map = origin != nullptr ? origin->Read() : nullptr;
    return map != nullptr && !map->form && area.Coordinates.isEmpty() &&
           SetAttribute(area, QStringLiteral("coords"), text, *map);
}

void AreaTab::txtAreaCoords_Edited(const QString& text)
{
    MapAreas areas = editing_.SelectedAreas();
    if (areas.size() != 1 || !begin_()) {
        return;
    }
    const CoordinatesReading reading = ReadCoordinates(areas.constFirst().Shape, text);
    ShowProblem(reading.problem.isEmpty() ? reading.note : reading.problem);
    const bool isKept = !reading.problem.isEmpty() && SetWrittenCoordinates(areas[0], text);
    if (reading.problem.isEmpty() || isKept) {
        areas[0].Coordinates = isKept ? areas[0].Coordinates : reading.numbers;
        isChanging_ = true;
        editing_.Replace(areas, u"Change of the Coordinates", QStringLiteral("coordinates"));
        isChanging_ = false;
    }
}

void AreaTab::txtAreaCoords_Left()
{
    editing_.EndJoining();
    Refresh();
}

void AreaTab::ShowProblem(const QString& problem)
{
    ui_->lblAreaProblem->setText(problem);
    ui_->txtAreaCoords->setAccessibleDescription(problem);
}

void AreaTab::RefreshText(QWidget* field, TextOfArea member)
{
    const QString text = Common(editing_.SelectedAreas(), member);
    if (EditOf(field)->text() != text) {
        EditOf(field)->setText(text);
    }
}

void AreaTab::Refresh()
{
    // What is being typed stays as it is typed.
    if (isChanging_) {
        return;
    }
    const MapAreas areas = editing_.SelectedAreas();
    const bool isAny = !areas.isEmpty();
    for (QWidget* const field : std::initializer_list<QWidget*>{ ui_->cmbAreaShape, ui_->cmbAreaLink,
                                                                 ui_->cmbAreaTarget, ui_->txtAreaText }) {
        field->setEnabled(isAny);
    }
    ui_->txtAreaMessage->setEnabled(isAny && editing_.Map().Script().Mode() != JSDisabled);
    ui_->txtAreaCoords->setEnabled(areas.size() == 1);
    const bool isOneShape = std::all_of(areas.begin(), areas.end(), [&](const MapArea& area) {
        return area.Shape == areas.constFirst().Shape;
    });
    ui_->cmbAreaShape->setCurrentIndex(isAny && isOneShape ? static_cast<int>(areas.constFirst().Shape) : -1);
    ui_->txtAreaCoords->setText(areas.size() == 1 ? CoordinatesText(areas.constFirst()) : QString());
    RefreshText(ui_->cmbAreaLink, &MapArea::Link);
    RefreshText(ui_->cmbAreaTarget, &MapArea::Target);
    RefreshText(ui_->txtAreaMessage, &MapArea::Message);
    RefreshText(ui_->txtAreaText, &MapArea::Text);
    ShowProblem(isAny ? QString() : pickFirst.toString());
}
