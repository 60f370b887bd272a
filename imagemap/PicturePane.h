#pragma once

#include "imagemap/PictureSurface.h"

#include <QPoint>
#include <QWidget>
#include <memory>

namespace Ui {
class PicturePane;
}
class PictureTool;
class QKeyEvent;
class QMouseEvent;

/**
 * Shows the picture in a frame, with scroll bars to shift one that is larger than the room inside, and hands
 * the mouse on it to the tool in force.
 */
class PicturePane final : public QWidget
{
    Q_OBJECT

public:
    explicit PicturePane(QWidget* parent = nullptr);
    ~PicturePane() override;

    /** The widget whose pixels are the picture's. */
    [[nodiscard]] PictureSurface& Surface() const;

    /** Shows `picture`, without figures, from its top left corner; a null picture leaves the pane empty. */
    void SetPicture(const QImage& picture);

    /** Shows `picture`, without figures, in place of the other one, as large and at the same place. */
    void RenewPicture(const QImage& picture);

    /** Shows the picture `zoom` times as large, within the limits; what is at `place` of the view stays
     * there, or what is in its middle. */
    void SetZoom(double zoom);
    void ZoomAt(double zoom, QPoint place);
    [[nodiscard]] double Zoom() const { return Surface().Zoom(); }

    /** The zoom at which the view shows all of the picture, or of `part` of it, and no more. */
    [[nodiscard]] double FittingZoom() const;
    void FitTo(const QRect& part);

    /** Shifts the picture until `part` of it is in sight, as far as it fits. */
    void Reveal(const QRect& part);

    /** The tool that the mouse drives from now on; it must outlive the pane, or be replaced before it goes.
     */
    void SetTool(PictureTool* tool) { tool_ = tool; }

    /** While the tool is held, it learns of no button; the mouse's position is told all the same. */
    void HoldTool(bool hold) { isToolHeld_ = hold; }

Q_SIGNALS:
    /** A button was pressed or released on the picture, and the tool is through with it. */
    void ToolUsed();

    /** The key that opens menus was pressed on the picture. */
    void MenuKeyPressed();

    /** The picture is shown larger or smaller than before. */
    void ZoomChanged();

    /** The room for the picture is another. */
    void RoomChanged();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /** A button that shifts the picture, and where the mouse was last, on the screen. */
    struct Panning
    {
        Qt::MouseButton button;
        QPoint place;
    };

    void PictureDisplay_MouseDown(int button, float x, float y);
    void PictureDisplay_MouseMove(float x, float y);
    void PictureDisplay_MouseUp(int button, float x, float y);
    void PictureDisplay_DoubleClicked(float x, float y);
    void PictureDisplay_KeysHeld(Qt::KeyboardModifiers keys);
    [[nodiscard]] bool PictureDisplay_Key(const QKeyEvent& key, bool isPress);
    [[nodiscard]] bool Pan(const QMouseEvent& mouse);
    void PicNosac_Zoom(double factor, QPoint place);
    void PicNosac_Pinch();
    void PicNosac_Resize();
    void PicNosac_Wheel(QPoint angle);
    void HScroll1_Change(int value);
    [[nodiscard]] bool HScroll1_KeyDown(const QKeyEvent& key);
    void VScroll1_Change(int value);

    void UpdateScrollBars();

    std::unique_ptr<Ui::PicturePane> ui_;
    PictureTool* tool_ = nullptr;
    bool isToolHeld_ = false;
    bool isSpaceHeld_ = false;
    std::optional<Panning> pan_;
    double turned_ = 1; ///< the zoom that the wheel was turned to, which is shown in whole per cents
    QPoint wheelRest_;  ///< what the wheel turned beyond whole pixels, in pixels and parts of a notch
};
