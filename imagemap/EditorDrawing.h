#pragma once

#include "imagemap/drawing/DrawingHints.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "imagemap/drawing/KeyedDrawing.h"

class EditorDialogs;
class EditorPanels;
class PictureSurface;

/** The tools that draw, with what they show on the picture, beside it and in the status bar. */
class EditorDrawing final : public QObject, private DrawingStatus
{
    Q_OBJECT

public:
    /** All of these live as long. */
    EditorDrawing(MapDocument& map, PictureSurface& surface, EditorPanels& panels, EditorDialogs& dialogs);

    [[nodiscard]] DrawingProtocol& Protocol() { return protocol_; }
    [[nodiscard]] FigureDisplay& Figures() { return display_; }

    /** The same tools, driven by keys too. */
    [[nodiscard]] KeyedDrawing& Keyed() { return keyed_; }

    /** Where whatever has the mouse tells what it does. */
    [[nodiscard]] DrawingStatus& Status() { return *this; }

    /** What the user is at. */
    [[nodiscard]] DrawingMoment Moment() const;

    /** Gives up what is half drawn, a polygon with all its sides. */
    void GiveUp();

    /** Gives up what is being drawn for another command; false while the mouse is asking for a dialog. */
    [[nodiscard]] bool BeginCommand();

    /** Shows the chosen tool in the status bar, in place of what was told there for a while. */
    void ShowMode();

Q_SIGNALS:
    /** A tool was chosen. */
    void ToolChosen(DrawingTool tool);
    /** The commands that need figures can be used from now on, or cannot. */
    void FigureCommandsEnabled(bool enable);
    /** There may be something else to be done next. */
    void MomentChanged();

private:
    void SetLabel(DrawingLabel label, const QString& text) override;
    void EnableFigureCommands(bool enable) override;
    void ShowTool() override;
    void ReportFullStore(FullStoreText text) override;
    void LinkNewFigure(QStringView prompt) override;

    MapDocument& map_;
    PictureSurface& surface_;
    EditorPanels& panels_;
    EditorDialogs& dialogs_;
    FigureDisplay display_;
    DrawingProtocol protocol_;
    KeyedDrawing keyed_;
};
