#pragma once

#include "imagemap/model/FigureStore.h"
#include "imagemap/model/JSMode.h"
#include "imagemap/model/LinkRules.h"
#include "imagemap/model/MapArea.h"
#include "imagemap/model/MapDrawing.h"
#include "imagemap/model/MapHistory.h"
#include "imagemap/model/MapScript.h"
#include "imagemap/model/MapSerial.h"

#include <QObject>

/**
 * The map that is being made: what has been drawn, the areas that came of it, and what the script around them
 * shows. Whoever changes it does so here, and whoever shows it learns from here what has changed.
 *
 * The areas are what a page is written from; the figures are the ledger of the drawing tools, by which the
 * last of them is found again. Both are changed together, by rules of their own: see DeleteLastFigure(). Once
 * areas have been changed otherwise than by the tools, the ledger is what drawing them would leave.
 *
 * Every change is a step that can be undone, exactly, the freed slots of the ledger included.
 */
class MapDocument final : public QObject
{
    Q_OBJECT

public:
    /**
     * What happens to the map while one of these is there is one step, called `name`; one inside of another
     * is part of that. For `joinKey` see MapHistory::EndStep().
     */
    class Step
    {
    public:
        Step(MapDocument& map, QString name, QString joinKey = {});
        ~Step();
        Q_DISABLE_COPY_MOVE(Step)

    private:
        MapDocument& map_;
        QString name_;
        QString joinKey_;
    };

    [[nodiscard]] const FigureStore& Figures() const { return figures_; }

    /** For the drawing tools, which move the figure in progress and append to the ledger. */
    [[nodiscard]] FigureStore& Ledger() { return figures_; }

    [[nodiscard]] const MapAreas& Areas() const { return areas_; }

    /** What the script around the areas shows, which is a part of the map. */
    [[nodiscard]] MapScript& Script() { return script_; }
    [[nodiscard]] const MapScript& Script() const { return script_; }

    /** What is being drawn at this moment. */
    [[nodiscard]] MapDrawing& Drawing() { return drawing_; }
    [[nodiscard]] const MapDrawing& Drawing() const { return drawing_; }

    /** The steps that led here, by which they are undone. */
    [[nodiscard]] MapHistory& History() { return history_; }
    [[nodiscard]] const MapHistory& History() const { return history_; }

    /** Whether there is something that nobody throws away without being asked: figures, or edited areas. */
    [[nodiscard]] bool HasContent() const
    {
        return figures_.FigureCount > 0 || (areAreasEdited_ && !areas_.isEmpty());
    }

    /** Whether the areas tell what is on the picture, since the ledger alone does not. */
    [[nodiscard]] bool AreAreasEdited() const { return areAreasEdited_; }

    /** How many figures at the end of the ledger have no area yet: the sides of an unfinished polygon, or a
     * figure whose link is being asked for. Of a map with edited areas alone. */
    [[nodiscard]] int FiguresWithoutArea() const { return figures_.FigureCount - figuresOfAreas_; }

    /** The path of the picture's file, or nothing where none is open. */
    [[nodiscard]] const QString& Picture() const { return picture_; }
    void SetPicture(const QString& path);

    /** Which of the maps that were here one after the other this is. */
    [[nodiscard]] MapSerial& Serial() { return serial_; }
    [[nodiscard]] const MapSerial& Serial() const { return serial_; }

    /** Puts `areas` in place of those of the map and makes the ledger anew: one step, called `name`. What is
     * being drawn is given up. */
    void ChangeAreas(const MapAreas& areas, const QString& name, const QString& joinKey = {});

    /** The map as it is while nothing is being drawn, but for the tool that is chosen. */
    [[nodiscard]] MapState State() const;

    /** Becomes what it was in `state`, but for the tool; no step of its own, see MapHistory::PutBack(). */
    void Restore(const MapState& state);

    /** A new editor shows the map: nothing is being drawn, no area listed; the ledger keeps its figures. */
    void BeginEditing();

    /**
     * Makes an area of the figure drawn last, or of the current polygon, which is finished by this; the
     * mode's default is taken from `entry` too. With nothing drawn, or a kind that has no area, only the
     * default is.
     */
    void LinkNewArea(const LinkEntry& entry);

    /** Adds an area behind the others; the ledger learns nothing of it. */
    void AppendArea(MapArea area);

    /** Rewrites link and message of the area `index`, if there is one, and takes the mode's default from
     * `entry`. */
    void RelinkArea(qsizetype index, const LinkEntry& entry);

    /** Takes the figure just drawn, which has no area yet, out of the ledger again. */
    void DiscardNewArea();

    /**
     * Removes the last rectangle, circle or whole polygon with the last area; an unfinished polygon has no
     * area yet. While a figure is being drawn of which nothing is committed, that alone is given up.
     */
    void DeleteLastFigure();

    /** Throws the areas away; the ledger keeps its figures. */
    void ForgetAreas();

    /** Throws figures and areas away. Mode, default and label stay. */
    void Clear();

Q_SIGNALS:
    /** Figures went that are on the picture. */
    void FiguresRemoved();

    /** The map was thrown away. */
    void Cleared();

    /** Areas were changed otherwise than by drawing, and the ledger with them, or a step was undone. */
    void Remade();

    /** Another picture belongs to the map now, by undoing or doing again. */
    void PictureChanged();

    void AreasChanged();

private:
    void RemakeLedger();
    void DeleteLastArea();

    FigureStore figures_;
    MapAreas areas_;
    bool areAreasEdited_ = false;
    FigureStore ledgerOfAreas_; ///< what was made of the areas when they were edited last
    MapAreas editedAreas_;      ///< the areas as they were then
    int figuresOfAreas_ = 0;    ///< how many figures of the ledger edited areas have
    MapScript script_{ *this };
    MapDrawing drawing_{ *this };
    QString picture_;
    MapSerial serial_;
    MapHistory history_{ *this };
};
