#pragma once

#include "outline/RegionOutline.h"

#include <QWidget>
#include <memory>

namespace Ui {
class OutlineBar;
}
class Settings;

/** The fields of the Outline tool, and what it has outlined. They are remembered once they are changed. */
class OutlineBar final : public QWidget
{
    Q_OBJECT

public:
    explicit OutlineBar(Settings& settings, QWidget* parent = nullptr);
    ~OutlineBar() override;

    /** Of 100. */
    [[nodiscard]] double Tolerance() const;
    void SetTolerance(double tolerance);

    [[nodiscard]] OutlinePlan Plan() const;

    /** Tells about the outline, of which areas can be made. */
    void Tell(const RegionOutline& outline);

    /** Tells that it is being looked for. */
    void TellWork();

Q_SIGNALS:
    void ToleranceChanged(double tolerance);
    void PlanChanged(const OutlinePlan& plan);
    /** The areas are wanted. */
    void MakeAsked();

private:
    void spnTolerance_Change();
    void Plan_Change();

    Settings& settings_;
    std::unique_ptr<Ui::OutlineBar> ui_;
};
