#pragma once

#include "imagemap/model/AreaGeometry.h"

#include <QLine>
#include <QString>
#include <optional>

/** What the Select tool shows over the picture, in picture pixels. */
struct SelectionPicture
{
    MapAreas areas;            ///< the selected areas as they are to be seen at this moment
    QList<AreaHandle> handles; ///< by which the only one is reshaped
    std::optional<int> vertex; ///< the selected one of its corners
    QRect frame;               ///< within which areas are picked; null without one
    QList<QLine> guides;       ///< what the areas being moved have been lined up with
    QString note;              ///< position and size of what is being moved
    QPoint notePlace;          ///< the mouse, beside which the note stands

    bool operator==(const SelectionPicture&) const = default;
};

/** What the Select tool asks of the widget that shows the picture. */
class SelectionSurface
{
public:
    SelectionSurface() = default;
    virtual ~SelectionSurface() = default;
    Q_DISABLE_COPY_MOVE(SelectionSurface)

    /** How many pixels of the screen a pixel of the picture takes. */
    [[nodiscard]] virtual double Zoom() const = 0;

    virtual void ShowSelection(const SelectionPicture& selection) = 0;
};
