#pragma once

#include "imagemap/drawing/DrawingView.h"
#include "imagemap/model/MapDocument.h"

#include <QObject>
#include <optional>

/**
 * Shows the figures of a map on the picture, and their positions, sizes and number beside it; keeps both up
 * to date whenever the map loses figures.
 */
class FigureDisplay final : public QObject
{
    Q_OBJECT

public:
    FigureDisplay(MapDocument& map, DrawingSurface& surface, DrawingStatus& status);

    /** Shows the figure in progress, its second point clamped to the picture, as the one that follows the
     * mouse. */
    void FollowFigure();

    /** Shows position and size of the figure in progress for the last time: it follows the mouse no more. */
    void FinishFigure();

    /** Shows every figure of the map on the picture, and their number. */
    void ShowFigures();

    /** The same with position and size of the last; an empty map puts the editor back into its empty state.
     */
    void RedrawFigures();

    /** Empties the labels of positions, size and number of figures. */
    void ClearPositionLabels();

private:
    void Drawing_SidesGivenUp();
    void Drawing_GivenUp();
    void Map_Cleared();
    void Map_FiguresRemoved();
    void Map_Remade();

    [[nodiscard]] std::optional<PaintedFigure> Painted(const FigureRecord& figure) const;
    void AppendFigures(PaintedFigures& figures, int first) const;
    [[nodiscard]] FigureRecord FigureInProgress() const;
    /** Shows where `figure` is and how large; returns what is to be painted of it, if anything can be. */
    [[nodiscard]] std::optional<PaintedFigure> Measure(const FigureRecord& figure);
    void MeasureAll();
    void ShowEmptyState();
    void ShowFigureCount();
    void ShowPoints(const PaintedFigure& figure);
    /** False when the size does not fit 16 bits; what comes before the part that does not fit is shown. */
    [[nodiscard]] bool ShowSize(const PaintedFigure& figure);

    MapDocument& map_;
    DrawingSurface& surface_;
    DrawingStatus& status_;
};
