#pragma once

#include "imagemap/AreaListSelection.h"
#include "imagemap/AreaTools.h"
#include "imagemap/MapViewCommands.h"
#include "imagemap/drawing/AreaEditing.h"
#include "widgets/CommandTable.h"

#include <QObject>
#include <functional>

class AreaListModel;
class AreaReader;
class QMainWindow;
class ZoomControls;

/**
 * The commands that change what has been drawn, or choose the tools for it: their menu and their toolbar.
 * Every one gives up first what is being drawn.
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
        PictureTool& drawing;        ///< in force while none of the tools for areas is
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
    };

    AreaCommands(const Parts& parts, MapDocument& map, ZoomControls& zoom, Settings& settings);

    [[nodiscard]] AreaEditing& Editing() { return editing_; }

    [[nodiscard]] MapViewCommands& View() { return *view_; }

    [[nodiscard]] AreaTools& Tools() { return tools_; }

    /** The menu of the areas. */
    [[nodiscard]] QMenu& Menu() const { return commands_.MenuOf(&AreaCommands::ChooseSelect); }

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
    /** There are no areas to be pasted; something else may be on the clipboard. */
    void OtherPasted();

private:
    [[nodiscard]] static std::span<const Command> Commands();
    void CreateMenus(Settings& settings);
    void CreateKeys();
    void Change(const std::function<void()>& change);
    void EnableCommands();
    void ShowTool();
    void View_Switched();
    void ShowAll();
    void ShowAreaMarks();
    void SelectInList();
    void Reader_SelectAsked(qsizetype number);
    void Selection_Changed();
    void Tools_MenuAsked(QPoint place);

    Parts parts_;
    MapDocument& map_;
    ZoomControls& zoom_;
    AreaSelection selection_;
    AreaEditing editing_;
    AreaTools tools_;
    AreaListSelection rows_;
    AreaReader& reader_; ///< belongs to the picture
    CommandSet<Command> commands_;
    MapViewCommands* view_ = nullptr;
    QSize picture_;
};
