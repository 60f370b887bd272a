#include "imagemap/EditorDrawing.h"

#include "imagemap/EditorDialogs.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/PictureSurface.h"

EditorDrawing::EditorDrawing(
    MapDocument& map, PictureSurface& surface, EditorPanels& panels, EditorDialogs& dialogs)
    : map_(map)
    , surface_(surface)
    , panels_(panels)
    , dialogs_(dialogs)
    , display_(map_, surface_, *this)
    , protocol_(map_, surface_, *this, display_)
    , keyed_(protocol_, surface_, surface_)
{
    connect(&dialogs_, &EditorDialogs::Closed, this, &EditorDrawing::ShowMode);
    connect(&dialogs_, &EditorDialogs::MessageRead, this, &EditorDrawing::MomentChanged);
}

DrawingMoment EditorDrawing::Moment() const
{
    return { .hasPicture = surface_.PictureWidth() > 0,
             .hasFigures = map_.HasContent(),
             .isInProgress = map_.Drawing().IsInProgress(),
             .drawState = map_.Figures().DrawState,
             .tool = protocol_.Tool(),
             .isPressedInVain = protocol_.IsPressedInVain() };
}

void EditorDrawing::GiveUp()
{
    // A figure whose dialog is open, or about to be, is no longer being drawn.
    if (!dialogs_.IsLinking()) {
        keyed_.Abandon();
        Q_EMIT MomentChanged();
    }
}

bool EditorDrawing::BeginCommand()
{
    GiveUp();
    return !dialogs_.IsLinking();
}

void EditorDrawing::ShowMode()
{
    panels_.ShowStatus(DrawingModeText(protocol_.Tool()));
    Q_EMIT MomentChanged();
}

void EditorDrawing::SetLabel(DrawingLabel label, const QString& text)
{
    panels_.SetLabel(label, text);
}

void EditorDrawing::EnableFigureCommands(bool enable)
{
    Q_EMIT FigureCommandsEnabled(enable);
}

void EditorDrawing::ShowTool()
{
    Q_EMIT ToolChosen(protocol_.Tool());
    ShowMode();
}

void EditorDrawing::ReportFullStore(FullStoreText text)
{
    dialogs_.ReportFullStore(text);
}

void EditorDrawing::LinkNewFigure(QStringView prompt)
{
    panels_.ShowStatus(prompt);
    dialogs_.LinkNewFigure();
}
