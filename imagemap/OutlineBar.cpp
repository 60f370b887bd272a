#include "imagemap/OutlineBar.h"

#include "imagemap/model/AreaGeometry.h"
#include "shared/Settings.h"
#include "ui_OutlineBar.h"

#include <cmath>

namespace {

/** The file has whole numbers. */
constexpr double tenthsOfOne = 10;

int InTenths(double value)
{
    return static_cast<int>(std::lround(value * tenthsOfOne));
}

/** What is told of an outline. */
QString OutlineText(const RegionOutline& outline, double precision)
{
    if (outline.IsEmpty()) {
        return {};
    }
    const MapArea& largest = outline.Areas.constLast().Area;
    const QString shape = largest.Shape == AreaShape::Polygon
                              ? QStringLiteral("%1 corners").arg(CornersOf(largest).size())
                              : QString(areaShapeNames[std::size_t(largest.Shape)].name.toString());
    const QString count = outline.Areas.size() == 1
                              ? shape
                              : QStringLiteral("%1 areas, %2").arg(outline.Areas.size()).arg(shape);
    // An area has only so many corners, so the precision may give way.
    return outline.Deviation <= precision
               ? count
               : count + QStringLiteral(", up to %1 px off").arg(outline.Deviation, 0, 'f', 1);
}

} // namespace

OutlineBar::OutlineBar(Settings& settings, QWidget* parent)
    : QWidget(parent)
    , settings_(settings)
    , ui_(std::make_unique<Ui::OutlineBar>())
{
    ui_->setupUi(this);
    ui_->spnTolerance->setValue(settings_.Value(Setting::outlineTolerance) / tenthsOfOne);
    ui_->spnPrecision->setRange(
        Setting::outlinePrecision.Least / tenthsOfOne, Setting::outlinePrecision.Most / tenthsOfOne);
    ui_->spnPrecision->setValue(settings_.Value(Setting::outlinePrecision) / tenthsOfOne);
    ui_->chkHoles->setChecked(settings_.Value(Setting::outlineHoles));
    ui_->cmbIslands->setCurrentIndex(settings_.Value(Setting::outlineIslands));
    Tell({});
    connect(ui_->spnTolerance, &QDoubleSpinBox::valueChanged, this, &OutlineBar::spnTolerance_Change);
    connect(ui_->spnPrecision, &QDoubleSpinBox::valueChanged, this, &OutlineBar::Plan_Change);
    connect(ui_->chkHoles, &QCheckBox::toggled, this, &OutlineBar::Plan_Change);
    connect(ui_->cmbIslands, &QComboBox::currentIndexChanged, this, &OutlineBar::Plan_Change);
    connect(ui_->cmdMakeArea, &QPushButton::clicked, this, &OutlineBar::MakeAsked);
}

OutlineBar::~OutlineBar() = default;

double OutlineBar::Tolerance() const
{
    return ui_->spnTolerance->value();
}

void OutlineBar::SetTolerance(double tolerance)
{
    ui_->spnTolerance->setValue(tolerance);
}

OutlinePlan OutlineBar::Plan() const
{
    return { .Precision = ui_->spnPrecision->value(),
             .AreHolesLeftOut = ui_->chkHoles->isChecked(),
             .IsLargestAlone = ui_->cmbIslands->currentIndex() != 0 };
}

void OutlineBar::Tell(const RegionOutline& outline)
{
    ui_->lblOutline->setText(OutlineText(outline, ui_->spnPrecision->value()));
    ui_->cmdMakeArea->setEnabled(!outline.IsEmpty());
}

void OutlineBar::TellWork()
{
    ui_->lblOutline->setText(QStringLiteral("Looking for the outline, Esc gives it up"));
}

void OutlineBar::spnTolerance_Change()
{
    settings_.Keep(Setting::outlineTolerance, InTenths(Tolerance()));
    Q_EMIT ToleranceChanged(Tolerance());
}

void OutlineBar::Plan_Change()
{
    const OutlinePlan plan = Plan();
    settings_.Keep(Setting::outlinePrecision, InTenths(plan.Precision));
    settings_.Keep(Setting::outlineHoles, plan.AreHolesLeftOut);
    settings_.Keep(Setting::outlineIslands, ui_->cmbIslands->currentIndex());
    Q_EMIT PlanChanged(plan);
}
