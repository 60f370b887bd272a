#include "imagemap/AreaTools.h"

#include "imagemap/AreaList.h"
#include "imagemap/PicturePane.h"

#include <QToolTip>
#include <utility>

namespace {

constexpr QStringView selectHint = u"Click picks an area, drag moves it";
constexpr QStringView severalHint = u"Drag moves them all, Del takes them away";
constexpr QStringView nowhereHint = u"A click here leads nowhere";
constexpr QStringView tryHint = u"A click on an area tells where it leads";

} // namespace

AreaTools::AreaTools(const Parts& parts, const MapDocument& map, AreaEditing& editing)
    : parts_(parts)
    , editing_(editing)
    , selection_(editing.Selection())
    , select_(editing, parts_.pane.Surface(), parts_.pane.Surface(), parts_.status)
    , try_(map, parts_.pane.Surface())
{
    select_.SetInForce(false);
    parts_.list.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&parts_.list, &QWidget::customContextMenuRequested, this, &AreaTools::List_MenuAsked);
    connect(&select_, &SelectionProtocol::EditAsked, this, &AreaTools::EditAsked, Qt::QueuedConnection);
    connect(
        &select_, &SelectionProtocol::MenuAsked, this, &AreaTools::Select_MenuAsked, Qt::QueuedConnection);
    connect(&parts_.pane, &PicturePane::MenuKeyPressed, this, &AreaTools::Pane_MenuKeyPressed);
    connect(&try_, &TryProtocol::Hovered, this, &AreaTools::Try_Hovered);
    connect(&try_, &TryProtocol::Followed, this, &AreaTools::Try_Followed);
}

QStringView AreaTools::Hint() const
{
    if (tool_ == Tool::Try) {
        return tryHint;
    }
    return selection_.Numbers().size() > 1 ? severalHint : selectHint;
}

void AreaTools::GiveHint()
{
    Q_EMIT HintGiven(Hint().toString());
}

void AreaTools::Take(Tool tool)
{
    PictureSurface& surface = parts_.pane.Surface();
    if (tool_ == tool || surface.PictureWidth() == 0) {
        return;
    }
    Q_EMIT Taken();
    tool_ = tool;
    select_.SetInForce(tool == Tool::Select);
    parts_.pane.SetTool(tool == Tool::Select ? static_cast<PictureTool*>(&select_) : &try_);
    surface.setFocusPolicy(Qt::StrongFocus);
    surface.SetPointer(SurfacePointer::Arrow);
    parts_.list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    Q_EMIT Switched();
    GiveHint();
}

void AreaTools::Leave()
{
    Q_EMIT Left();
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
    Q_EMIT Switched();
}

void AreaTools::ShowSelection()
{
    if (tool_ != Tool::Select) {
        parts_.pane.Surface().ShowSelection({});
    } else {
        select_.Show();
    }
}

void AreaTools::List_MenuAsked(QPoint place)
{
    Q_EMIT MenuAsked(parts_.list.viewport()->mapToGlobal(place));
}

void AreaTools::Select_MenuAsked()
{
    Q_EMIT MenuAsked(QCursor::pos());
}

void AreaTools::Pane_MenuKeyPressed()
{
    if (tool_ != Tool::Select) {
        return;
    }
    // Where what it is for can be seen, else in the middle.
    const PictureSurface& surface = parts_.pane.Surface();
    const QRect inSight = surface.visibleRegion().boundingRect();
    const QRect selected = surface.FromPicture(BoundsOf(editing_.SelectedAreas())) & inSight;
    Q_EMIT MenuAsked(surface.mapToGlobal((selected.isEmpty() ? inSight : selected).center()));
}

void AreaTools::Try_Hovered(const QString& link, const QString& toolTip)
{
    Q_EMIT HintGiven(link.isEmpty() ? Hint().toString() : link);
    if (toolTip.isEmpty()) {
        QToolTip::hideText();
    } else {
        QToolTip::showText(QCursor::pos(), toolTip.toHtmlEscaped(), &parts_.pane.Surface());
    }
}

void AreaTools::Try_Followed(const QString& link)
{
    Q_EMIT HintGiven(link.isEmpty() ? nowhereHint.toString() : QStringLiteral("A click leads to ") + link);
}
