#pragma once

#include "outline/Grid.h"
#include "shared/ImgMap.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class frmGrid;
}

/** Divides the picture, or the selected rectangle, into a grid of areas. Modal to its owner, where the areas
 * can be seen as they will be. */
class frmGrid : public QDialog
{
    Q_OBJECT

public:
    /** What a grid can be put over, as RoomOf() and a rectangle's coordinates have it. */
    struct Rooms
    {
        QRect picture;
        std::optional<QRect> selected; ///< the only selected area, where it is a rectangle
    };

    /** Begins with `plan`. */
    frmGrid(const ImgMap& imgMap, const Rooms& rooms, const GridPlan& plan, QWidget* owner);
    ~frmGrid() override;

    /** Places the window beside what it changes, and shows the grid. */
    void Form_Load();

    [[nodiscard]] GridPlan Plan() const;

    /** The areas of the grid; none where it has no room. */
    [[nodiscard]] MapAreas Areas() const;

    /** Whether it lies over the selected rectangle. */
    [[nodiscard]] bool IsOverSelected() const;

Q_SIGNALS:
    /** The areas are others now. */
    void Changed();

private:
    void ShowPlan(const GridPlan& plan);
    void spn_Change();

    const ImgMap& imgMap_;
    Rooms rooms_;
    std::unique_ptr<Ui::frmGrid> ui_;
};
