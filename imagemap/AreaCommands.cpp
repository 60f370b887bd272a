#include "imagemap/AreaCommands.h"

#include "imagemap/AreaClipboard.h"
#include "imagemap/AreaList.h"
#include "imagemap/AreaListModel.h"
#include "imagemap/AreaReader.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/PicturePane.h"
#include "imagemap/ZoomControls.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QMainWindow>
#include <QMenu>
#include <QScopedValueRollback>
#include <QToolTip>
#include <utility>

namespace {

constexpr QStringView selectHint = u"Click picks an area, drag moves it";
constexpr QStringView severalHint = u"Drag moves them all, Del takes them away";
constexpr QStringView nowhereHint = u"A click here leads nowhere";
constexpr QStringView tryHint = u"A click on an area tells where it leads";

} // namespace

AreaCommands::AreaCommands(const Parts& parts, MapDocument& map, ZoomControls& zoom, Settings& settings)
    : QObject(&parts.window)
    , parts_(parts)
    , map_(map)
    , zoom_(zoom)
    , editing_(map_, selection_)
    , select_(editing_, parts_.pane.Surface(), parts_.pane.Surface(), parts_.status)
    , try_(map_, parts_.pane.Surface())
    , reader_(*new AreaReader(parts_.pane.Surface()))
{
    CreateMenus(settings);
    CreateKeys();
    parts_.list.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&parts_.list, &QWidget::customContextMenuRequested, this, &AreaCommands::List_MenuAsked);
    connect(
        parts_.list.selectionModel(), &QItemSelectionModel::selectionChanged, this,
        &AreaCommands::List_SelectionChanged);
    select_.SetInForce(false);
    connect(&selection_, &AreaSelection::Changed, this, &AreaCommands::Selection_Changed);
    connect(&map_, &MapDocument::AreasChanged, this, &AreaCommands::ShowAll);
    connect(&map_.History(), &MapHistory::Changed, this, &AreaCommands::EnableCommands);
    connect(&select_, &SelectionProtocol::EditAsked, this, &AreaCommands::EditAsked, Qt::QueuedConnection);
    const auto showMenu = [this] { ShowMenu(QCursor::pos()); };
    connect(&select_, &SelectionProtocol::MenuAsked, this, showMenu, Qt::QueuedConnection);
    connect(&reader_, &AreaReader::SelectAsked, this, &AreaCommands::Reader_SelectAsked);
    connect(&try_, &TryProtocol::Hovered, this, &AreaCommands::Try_Hovered);
    connect(&try_, &TryProtocol::Followed, this, [this](const QString& link) {
        Q_EMIT HintGiven(
            link.isEmpty() ? nowhereHint.toString() : QStringLiteral("A click leads to ") + link);
    });
    connect(view_, &MapViewCommands::Switched, this, &AreaCommands::View_Switched);
    connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this, &AreaCommands::EnableCommands);
    View_Switched();
    EnableCommands();
}

AreaCommands::~AreaCommands() = default;

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
}

QStringView AreaCommands::Hint() const
{
    if (tool_ == Tool::Try) {
        return tryHint;
    }
    return selection_.Numbers().size() > 1 ? severalHint : selectHint;
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

void AreaCommands::TakeTool(Tool tool, PictureTool& protocol)
{
    if (tool_ == tool || picture_.isEmpty()) {
        return;
    }
    Q_EMIT ToolTaken();
    tool_ = tool;
    select_.SetInForce(tool == Tool::Select);
    parts_.pane.SetTool(&protocol);
    parts_.pane.Surface().setFocusPolicy(Qt::StrongFocus);
    parts_.pane.Surface().SetPointer(SurfacePointer::Arrow);
    parts_.list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    ShowAll();
    Q_EMIT HintGiven(Hint().toString());
}

void AreaCommands::LeaveTool()
{
    commands_.SetChecked(Mark::Select, false);
    commands_.SetChecked(Mark::Try, false);
    if (std::exchange(tool_, Tool::Drawing) == Tool::Drawing) {
        return;
    }
    select_.Abandon();
    select_.SetInForce(false);
    QToolTip::hideText();
    parts_.pane.SetTool(&parts_.drawing);
    parts_.pane.Surface().setFocusPolicy(Qt::TabFocus);
    if (selection_.Numbers().size() > 1) {
        selection_.Clear();
    }
    parts_.list.setSelectionMode(QAbstractItemView::SingleSelection);
    ShowAll();
}

void AreaCommands::ChooseSelect()
{
    if (parts_.begin()) {
        TakeTool(Tool::Select, select_);
    }
    commands_.SetChecked(Mark::Select, tool_ == Tool::Select);
}

void AreaCommands::TryTheMap()
{
    if (parts_.begin()) {
        TakeTool(
            tool_ == Tool::Try ? Tool::Select : Tool::Try,
            tool_ == Tool::Try ? static_cast<PictureTool&>(select_) : try_);
    }
    commands_.SetChecked(Mark::Try, tool_ == Tool::Try);
    commands_.SetChecked(Mark::Select, tool_ == Tool::Select);
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
    select_.SetSnapping(view_->IsOn(Setting::snap));
    select_.ShowGuides(view_->IsOn(Setting::guides));
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
    if (tool_ != Tool::Select) {
        parts_.pane.Surface().ShowSelection({});
    } else {
        select_.Show();
    }
    ShowAreaMarks();
    reader_.Tell(map_.Areas(), selection_.Numbers());
    SelectInList();
    EnableCommands();
}

void AreaCommands::ShowAreaMarks()
{
    const bool areAreasShown = view_->IsOn(Setting::showAreas);
    parts_.pane.Surface().ShowAreas(areAreasShown ? map_.Areas() : MapAreas());
    parts_.model.MarkFaults(areAreasShown || HasTool() ? picture_ : QSize());
}

void AreaCommands::Selection_Changed()
{
    map_.History().EndJoining();
    if (tool_ != Tool::Select) {
        parts_.pane.Surface().ShowSelection({});
    } else if (const QRect bounds = BoundsOf(editing_.SelectedAreas()); !bounds.isNull()) {
        if (!QGuiApplication::mouseButtons()) {
            parts_.pane.Reveal(bounds);
        }
        Q_EMIT HintGiven(Hint().toString());
    }
    reader_.Tell(map_.Areas(), selection_.Numbers());
    SelectInList();
    EnableCommands();
}

void AreaCommands::SelectInList()
{
    // Without the tool the list has a selection of its own, which leads here.
    if (tool_ == Tool::Drawing || isSelectingInList_) {
        return;
    }
    const QScopedValueRollback<bool> selecting(isSelectingInList_, true);
    parts_.list.SelectAreas(selection_.Numbers());
}

void AreaCommands::List_SelectionChanged()
{
    if (isSelectingInList_) {
        return;
    }
    const QScopedValueRollback<bool> selecting(isSelectingInList_, true);
    AreaNumbers numbers = parts_.list.SelectedAreas();
    numbers.removeIf([this](qsizetype number) { return number >= map_.Areas().size(); });
    selection_.Select(numbers);
}

void AreaCommands::Reader_SelectAsked(qsizetype number)
{
    ChooseSelect();
    selection_.Select({ number });
    parts_.pane.Surface().setFocus();
}

void AreaCommands::List_MenuAsked(QPoint place)
{
    ShowMenu(parts_.list.viewport()->mapToGlobal(place));
}

void AreaCommands::ShowMenu(QPoint place)
{
    commands_.MenuOf(&AreaCommands::ChooseSelect).popup(place);
}

void AreaCommands::Try_Hovered(const QString& link, const QString& toolTip)
{
    Q_EMIT HintGiven(link.isEmpty() ? Hint().toString() : link);
    if (toolTip.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(QCursor::pos(), toolTip.toHtmlEscaped(), &parts_.pane.Surface());
    }
}
