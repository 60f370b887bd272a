#pragma once

#include "imagemap/drawing/AreaEditing.h"
#include "imagemap/drawing/DrawingView.h"
#include "imagemap/drawing/PictureTool.h"
#include "imagemap/drawing/SelectionView.h"
#include "imagemap/model/AreaSnapping.h"

#include <QObject>

/**
 * The Select tool: picks areas by clicks, again for the next below, with Shift or by a frame; moves them,
 * reshapes the only one by its handles. What follows the mouse is shown, and done to the map on release.
 */
class SelectionProtocol final : public QObject, public PictureTool
{
    Q_OBJECT

public:
    SelectionProtocol(
        AreaEditing& editing, DrawingSurface& picture, SelectionSurface& surface, DrawingStatus& status);

    /** Whether what is moved stops at edges and centres of the other areas and of the picture. */
    void SetSnapping(bool snaps) { isSnapping_ = snaps; }
    /** Whether lines show what the areas moved are in line with, also without snapping. */
    void ShowGuides(bool show) { areGuidesShown_ = show; }

    void HoldKeys(Qt::KeyboardModifiers keys) override { keys_ = keys; }
    void MouseDown(int button, float x, float y) override;
    void MouseMove(float x, float y) override;
    void MouseUp(int button, float x, float y) override;
    void DoubleClick(float x, float y) override;
    bool KeyDown(int key, Qt::KeyboardModifiers keys) override;
    void Abandon() override;

    /** The areas are others now: gives up what was being done to those before. */
    void Map_AreasChanged();

    /** Whether it is the tool at work; while it is not, it shows nothing. */
    void SetInForce(bool isInForce) { isInForce_ = isInForce; }

    /** Shows the selection as it is, and its place and size beside the picture. */
    void Show();

Q_SIGNALS:
    /** The link of the selected area is to be edited. */
    void EditAsked();
    /** The right button was pressed; the area there is selected now. */
    void MenuAsked();

private:
    enum class Drag { None, Areas, Handle, Frame };

    [[nodiscard]] AreaSelection& Selection() const { return editing_.Selection(); }
    [[nodiscard]] QSize PictureSize() const;
    [[nodiscard]] std::optional<AreaHandle> HandleAt(QPoint place) const;
    [[nodiscard]] int Reach(int screenPixels) const;
    void PressOnAreas();
    void PickBelow();
    void DragTo(QPoint place);
    void DragAreas(QPoint by);
    void DragHandle(QPoint to);
    void DragFrame(QPoint to);
    void Snap(const MapAreas& areas, QPoint& by) const;
    void Drop();
    [[nodiscard]] bool MoveByKey(int key, Qt::KeyboardModifiers keys);
    [[nodiscard]] bool GiveUpByKey();
    void Note(const MapAreas& areas);

    AreaEditing& editing_;
    DrawingSurface& picture_;
    SelectionSurface& surface_;
    DrawingStatus& status_;
    Qt::KeyboardModifiers keys_;
    bool isInForce_ = true;
    bool isSnapping_ = false;
    bool areGuidesShown_ = false;

    Drag drag_ = Drag::None;
    bool isUnderWay_ = false;  ///< the mouse was moved far enough to mean it
    bool isFreshPick_ = false; ///< the press has selected what it was on
    QPoint pressed_;
    std::optional<QPoint> lastClick_;
    std::optional<qsizetype> passedOn_; ///< from which the last click went on to the next below
    AreaHandle handle_;
    MapAreas before_;  ///< the selected areas as they were when the button was pressed
    MapAreas preview_; ///< and as they would be if it was released now
    SelectionPicture shown_;
};
