#pragma once

#include "imagemap/MapViewCommands.h"
#include "imagemap/drawing/AreaEditing.h"
#include "imagemap/drawing/SelectionProtocol.h"
#include "imagemap/drawing/TryProtocol.h"
#include "widgets/CommandTable.h"

#include <QObject>
#include <functional>
#include <memory>

class AreaList;
class AreaListModel;
class AreaReader;
class PicturePane;
class QMainWindow;
class ZoomControls;

/**
 * The commands that change what has been drawn: their menu, their toolbar, the Select tool and the trying of
 * the map. Every one gives up first what is being drawn.
 */
class AreaCommands final : public QObject
{
    Q_OBJECT

public:
    /** What a command needs to be enabled. */
    enum class Need { Nothing, Picture, Areas, Selection, Several, Undo, Redo, Paste };
    /** What is switched on and off. */
    enum class Mark { Select, Try };
    using Command = CommandRow<AreaCommands, Need, Mark>;

    /** The parts of the window that the commands work on, all of which live as long. */
    struct Parts
    {
        QMainWindow& window;
        QMenuBar& menus;
        QToolBar& toolbar;
        PicturePane& pane;
        AreaList& list;
        AreaListModel& model;
        DrawingStatus& status;
        PictureTool& drawing;        ///< in force while neither Select nor trying is
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
    };

    AreaCommands(const Parts& parts, MapDocument& map, ZoomControls& zoom, Settings& settings);
    ~AreaCommands() override;

    [[nodiscard]] AreaEditing& Editing() { return editing_; }

    [[nodiscard]] MapViewCommands& View() { return *view_; }

    /** Whether Select, or the trying of the map, has taken the mouse over from the tools that draw. */
    [[nodiscard]] bool HasTool() const { return tool_ != Tool::Drawing; }

    /** What to do next while it has. */
    [[nodiscard]] QStringView Hint() const;

    /** Gives the mouse back to the tools that draw. */
    void LeaveTool();

    /** Another picture is shown, or none. */
    void BeginPicture(QSize size);

    /** The picture is another one, and the map stays. */
    void RenewPicture(QSize size);

    void ChooseSelect();
    void TryTheMap();
    void Undo()
    {
        Change([this] { editing_.Undo(); });
    }
    void Redo()
    {
        Change([this] { editing_.Redo(); });
    }
    void Cut();
    void Copy();
    void Paste();
    void Duplicate();
    void Delete()
    {
        Change([this] { editing_.Delete(); });
    }
    void SelectAll();
    template<OrderChange change> void Reorder()
    {
        Change([this] { editing_.Reorder(change); });
    }
    template<Alignment alignment> void Align()
    {
        Change([this] { editing_.Align(alignment); });
    }

Q_SIGNALS:
    /** The mouse is taken over: the tools that draw are put to rest. */
    void ToolTaken();
    /** Something to be told in the status bar. */
    void HintGiven(const QString& hint);
    /** There are no areas to be pasted; something else may be on the clipboard. */
    void OtherPasted();
    /** The link of the selected area is to be edited. */
    void EditAsked();

private:
    enum class Tool { Drawing, Select, Try };

    [[nodiscard]] static std::span<const Command> Commands();
    void CreateMenus(Settings& settings);
    void CreateKeys();
    void TakeTool(Tool tool, PictureTool& protocol);
    void Change(const std::function<void()>& change);
    void EnableCommands();
    void View_Switched();
    void ShowAll();
    void ShowAreaMarks();
    void SelectInList();
    void List_SelectionChanged();
    void Reader_SelectAsked(qsizetype number);
    void List_MenuAsked(QPoint place);
    void Selection_Changed();
    void Try_Hovered(const QString& link, const QString& toolTip);
    void ShowMenu(QPoint place);

    Parts parts_;
    MapDocument& map_;
    ZoomControls& zoom_;
    AreaSelection selection_;
    AreaEditing editing_;
    SelectionProtocol select_;
    TryProtocol try_;
    AreaReader& reader_; ///< belongs to the picture
    CommandSet<Command> commands_;
    MapViewCommands* view_ = nullptr;
    Tool tool_ = Tool::Drawing;
    QSize picture_;
    bool isSelectingInList_ = false;
};
