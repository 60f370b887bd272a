#include "imagemap/AreaCommands.h"

#include "imagemap/AreaClipboard.h"
#include "imagemap/AreaList.h"
#include "imagemap/AreaListModel.h"
#include "imagemap/AreaReader.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/PicturePane.h"
#include "imagemap/ZoomControls.h"
#include "widgets/OwnKeys.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMainWindow>
#include <QMenu>

AreaCommands::AreaCommands(const Parts& parts, MapDocument& map, ZoomControls& zoom, Settings& settings)
    : QObject(&parts.window)
    , parts_(parts)
    , map_(map)
    , zoom_(zoom)
    , editing_(map_, selection_)
    , tools_({ parts_.pane, parts_.list, parts_.status, parts_.drawing }, map_, editing_)
    , rows_(parts_.list, selection_, map_)
    , reader_(*new AreaReader(parts_.pane.Surface()))
{
    CreateMenus(settings);
    CreateKeys();
    connect(&selection_, &AreaSelection::Changed, this, &AreaCommands::Selection_Changed);
    connect(&map_, &MapDocument::AreasChanged, this, &AreaCommands::ShowAll);
    connect(&map_.History(), &MapHistory::Changed, this, &AreaCommands::EnableCommands);
    connect(&tools_, &AreaTools::Switched, this, &AreaCommands::ShowTool);
    connect(&tools_, &AreaTools::Switched, this, &AreaCommands::ShowAll);
    connect(&tools_, &AreaTools::MenuAsked, this, &AreaCommands::Tools_MenuAsked);
    connect(&reader_, &AreaReader::SelectAsked, this, &AreaCommands::Reader_SelectAsked);
    connect(view_, &MapViewCommands::Switched, this, &AreaCommands::View_Switched);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &AreaCommands::EnableCommands);
    View_Switched();
    EnableCommands();
}

void AreaCommands::CreateMenus(Settings& settings)
{
    QAction* const help = parts_.menus.actions().constLast();
    commands_.Create(this, &parts_.menus, &parts_.toolbar, Commands());
    view_ = new MapViewCommands(this, { parts_.menus, parts_.toolbar, zoom_, settings, parts_.begin, [this] {
                                           return BoundsOf(editing_.SelectedAreas());
                                       } });
    ToggleFlatLook(&parts_.toolbar);
    // Help stays the last one.
    parts_.menus.insertAction(nullptr, help);
}

void AreaCommands::CreateKeys()
{
    commands_.EntryOf(&AreaCommands::Redo)
        .setShortcuts({ QKeySequence(Qt::CTRL | Qt::Key_Y), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z) });
    // These are for typing wherever else the focus is.
    for (const Procedure<AreaCommands> command :
         { Procedure(&AreaCommands::ChooseSelect), Procedure(&AreaCommands::Delete),
           Procedure(&AreaCommands::Reorder<OrderChange::Up>),
           Procedure(&AreaCommands::Reorder<OrderChange::Down>) }) {
        QAction& entry = commands_.EntryOf(command);
        entry.setShortcutContext(Qt::WidgetShortcut);
        parts_.pane.Surface().addAction(&entry);
        parts_.list.addAction(&entry);
    }
    auto* const ownKeys = new OwnKeys(this);
    for (QMenu* const menu : parts_.menus.findChildren<QMenu*>()) {
        menu->installEventFilter(ownKeys);
    }
}

void AreaCommands::BeginPicture(QSize size)
{
    picture_ = size;
    editing_.SetPictureSize(size);
    selection_.Clear();
    zoom_.BeginPicture();
    EnableCommands();
    ShowAll();
}

void AreaCommands::RenewPicture(QSize size)
{
    picture_ = size;
    editing_.SetPictureSize(size);
    ShowAll();
}

void AreaCommands::ChooseSelect()
{
    if (parts_.begin()) {
        tools_.Take(AreaTools::Tool::Select);
    }
    ShowTool();
}

void AreaCommands::TryTheMap()
{
    if (parts_.begin()) {
        tools_.Take(tools_.Chosen() == AreaTools::Tool::Try ? AreaTools::Tool::Select : AreaTools::Tool::Try);
    }
    ShowTool();
}

void AreaCommands::ShowTool()
{
    commands_.SetChecked(Mark::Select, tools_.Chosen() == AreaTools::Tool::Select);
    commands_.SetChecked(Mark::Try, tools_.Chosen() == AreaTools::Tool::Try);
}

void AreaCommands::Change(const std::function<void()>& change)
{
    if (parts_.begin()) {
        change();
    }
}

void AreaCommands::Cut()
{
    Change([this] {
        CopyAreas(editing_.SelectedAreas());
        editing_.Cut();
    });
}

void AreaCommands::Copy()
{
    Change([this] { CopyAreas(editing_.SelectedAreas()); });
}

void AreaCommands::Paste()
{
    Change([this] {
        const MapAreas areas = AreasOnClipboard();
        if (areas.isEmpty()) {
            Q_EMIT OtherPasted();
            return;
        }
        ChooseSelect();
        editing_.Paste(areas);
    });
}

void AreaCommands::Duplicate()
{
    Change([this] {
        const AreaNumbers selected = selection_.Numbers();
        ChooseSelect();
        selection_.Select(selected);
        editing_.Duplicate();
    });
}

void AreaCommands::SelectAll()
{
    Change([this] {
        ChooseSelect();
        editing_.SelectAll();
    });
}

/** What is switched on shows in the tool, in the picture and in the list. */
void AreaCommands::View_Switched()
{
    tools_.Select().SetSnapping(view_->IsOn(Setting::snap));
    tools_.Select().ShowGuides(view_->IsOn(Setting::guides));
    ShowAreaMarks();
}

void AreaCommands::EnableCommands()
{
    const bool hasPicture = !picture_.isEmpty();
    const bool hasSelection = !selection_.Numbers().isEmpty();
    const MapHistory& history = map_.History();
    commands_.Enable(Need::Picture, hasPicture);
    commands_.Enable(Need::Areas, hasPicture && !map_.Areas().isEmpty());
    commands_.Enable(Need::Selection, hasPicture && hasSelection);
    view_->Enable(hasPicture, hasSelection);
    commands_.Enable(Need::Several, hasPicture && selection_.Numbers().size() > 1);
    commands_.Enable(Need::Paste, hasPicture || HasPictureOnClipboard());
    commands_.Enable(Need::Undo, history.CanUndo());
    commands_.Enable(Need::Redo, history.CanRedo());
    commands_.EntryOf(&AreaCommands::Undo).setText(QString(u"&Undo " + history.UndoName()).trimmed());
    commands_.EntryOf(&AreaCommands::Redo).setText(QString(u"&Redo " + history.RedoName()).trimmed());
}

/** Shows areas and selection as far as the tool in force does. */
void AreaCommands::ShowAll()
{
    tools_.ShowSelection();
    ShowAreaMarks();
    reader_.Tell(map_.Areas(), selection_.Numbers());
    SelectInList();
    EnableCommands();
}

void AreaCommands::ShowAreaMarks()
{
    const bool areAreasShown = view_->IsOn(Setting::showAreas);
    parts_.pane.Surface().ShowAreas(areAreasShown ? map_.Areas() : MapAreas());
    parts_.model.MarkFaults(areAreasShown || tools_.HaveMouse() ? picture_ : QSize());
}

void AreaCommands::Selection_Changed()
{
    map_.History().EndJoining();
    if (tools_.Chosen() != AreaTools::Tool::Select) {
        tools_.ShowSelection();
    } else if (const QRect bounds = BoundsOf(editing_.SelectedAreas()); !bounds.isNull()) {
        if (!QGuiApplication::mouseButtons()) {
            parts_.pane.Reveal(bounds);
        }
        tools_.GiveHint();
    }
    reader_.Tell(map_.Areas(), selection_.Numbers());
    SelectInList();
    EnableCommands();
}

void AreaCommands::SelectInList()
{
    // Without the tools the list has a selection of its own, which leads here.
    if (tools_.HaveMouse()) {
        rows_.ShowInList();
    }
}

void AreaCommands::Reader_SelectAsked(qsizetype number)
{
    ChooseSelect();
    selection_.Select({ number });
    parts_.pane.Surface().setFocus();
}

void AreaCommands::Tools_MenuAsked(QPoint place)
{
    Menu().popup(place);
}
