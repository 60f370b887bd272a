#include "imagemap/AreaTools.h"

#include "imagemap/AreaList.h"
#include "imagemap/PicturePane.h"

#include <QToolTip>
#include <utility>

namespace {

constexpr QStringView selectHint = u"Click picks an area, drag moves it";
constexpr QStringView severalHint = u"Drag moves them all, Del takes them away";
constexpr QStringView nowhereHint = u"A click here leads nowhere";
constexpr QStringView outlineHint = u"Click takes a region, drag widens it";
constexpr QStringView outlinedHint = u"Enter makes the area, Shift adds more";
constexpr QStringView tryHint = u"A click on an area tells where it leads";

} // namespace

AreaTools::AreaTools(const Parts& parts, const MapDocument& map, AreaEditing& editing)
    : parts_(parts)
    , editing_(editing)
    , selection_(editing.Selection())
    , select_(editing, parts_.pane.Surface(), parts_.pane.Surface(), parts_.status)
    , try_(map, parts_.pane.Surface())
    , outline_(parts_.pane.Surface(), parts_.pane.Surface(), [&surface = parts_.pane.Surface()] {
        return surface.Picture();
    })
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
    connect(&outline_, &OutlineProtocol::OutlineChanged, this, &AreaTools::Outline_Changed);
}

QStringView AreaTools::Hint() const
{
    if (tool_ == Tool::Try) {
        return tryHint;
    }
    if (tool_ == Tool::Outline) {
        return outline_.Outline().IsEmpty() ? outlineHint : outlinedHint;
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
    PutInForce(tool);
    surface.setFocusPolicy(Qt::StrongFocus);
    surface.SetPointer(tool == Tool::Outline ? SurfacePointer::Cross : SurfacePointer::Arrow);
    parts_.list.setSelectionMode(QAbstractItemView::ExtendedSelection);
    Q_EMIT Switched();
    GiveHint();
}

void AreaTools::Leave()
{
    if (tool_ == Tool::Drawing) {
        return;
    }
    select_.Abandon();
    PutInForce(Tool::Drawing);
    QToolTip::hideText();
    parts_.pane.Surface().setFocusPolicy(Qt::TabFocus);
    if (selection_.Numbers().size() > 1) {
        selection_.Clear();
    }
    parts_.list.setSelectionMode(QAbstractItemView::SingleSelection);
    Q_EMIT Switched();
}

PictureTool& AreaTools::ToolInForce()
{
    switch (tool_) {
    case Tool::Select:
        return select_;
    case Tool::Try:
        return try_;
    case Tool::Outline:
        return outline_;
    case Tool::Drawing:
        break;
    }
    return parts_.drawing;
}

void AreaTools::PutInForce(Tool tool)
{
    tool_ = tool;
    select_.SetInForce(tool == Tool::Select);
    outline_.SetInForce(tool == Tool::Outline);
    parts_.pane.SetTool(&ToolInForce());
}

void AreaTools::ShowSelection()
{
    switch (tool_) {
    case Tool::Select:
        select_.Show();
        break;
    case Tool::Outline:
        outline_.Show();
        break;
    case Tool::Drawing:
    case Tool::Try:
        parts_.pane.Surface().ShowSelection({});
        break;
    }
}

void AreaTools::Outline_Changed()
{
    if (tool_ == Tool::Outline) {
        GiveHint();
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
