#pragma once

#include "imagemap/drawing/OutlineProtocol.h"
#include "imagemap/drawing/SelectionProtocol.h"
#include "imagemap/drawing/TryProtocol.h"

#include <QObject>

class AreaList;
class PicturePane;

/**
 * The tools for what has been drawn, or draws itself: Select, the trying of the map, the outlines by colour.
 * Each takes the mouse over from the tools that draw, until it is left.
 */
class AreaTools final : public QObject
{
    Q_OBJECT

public:
    /** Who has the mouse. */
    enum class Tool { Drawing, Select, Try, Outline };

    /** The parts of the window that the tools work on, all of which live as long. */
    struct Parts
    {
        PicturePane& pane;
        AreaList& list;
        DrawingStatus& status;
        PictureTool& drawing; ///< in force while none of these tools is
    };

    AreaTools(const Parts& parts, const MapDocument& map, AreaEditing& editing);

    [[nodiscard]] SelectionProtocol& Select() { return select_; }

    [[nodiscard]] OutlineProtocol& Outline() { return outline_; }

    [[nodiscard]] Tool Chosen() const { return tool_; }

    /** Whether one of these has taken the mouse over from the tools that draw. */
    [[nodiscard]] bool HaveMouse() const { return tool_ != Tool::Drawing; }

    /** What to do next while they have. */
    [[nodiscard]] QStringView Hint() const;

    /** Tells it. */
    void GiveHint();

    /** Takes the mouse over for `tool`, which is not Drawing; does nothing without a picture. */
    void Take(Tool tool);

    /** Gives the mouse back to the tools that draw. */
    void Leave();

    /** Shows the selection on the picture, as far as the tool in force does. */
    void ShowSelection();

Q_SIGNALS:
    /** The mouse is taken over: the tools that draw are put to rest. */
    void Taken();
    /** Another tool has the mouse. */
    void Switched();
    /** Something to be told in the status bar. */
    void HintGiven(const QString& hint);
    /** The link of the selected area is to be edited. */
    void EditAsked();
    /** The menu of the areas is wanted at that place of the screen. */
    void MenuAsked(QPoint place);

private:
    [[nodiscard]] PictureTool& ToolInForce();
    void PutInForce(Tool tool);
    void List_MenuAsked(QPoint place);
    void Select_MenuAsked();
    void Pane_MenuKeyPressed();
    void Try_Hovered(const QString& link, const QString& toolTip);
    void Try_Followed(const QString& link);
    void Outline_Changed();

    Parts parts_;
    AreaEditing& editing_;
    AreaSelection& selection_;
    SelectionProtocol select_;
    TryProtocol try_;
    OutlineProtocol outline_;
    Tool tool_ = Tool::Drawing;
};
