#pragma once

#include "imagemap/model/AreaArranging.h"

#include <QObject>
#include <QRect>

class PictureSurface;

/**
 * What screen readers find on the picture: each area as a child of it, with its shape, number, link and
 * place. The focus of a reader follows the selection.
 */
class AreaReader final : public QObject
{
    Q_OBJECT

public:
    /** Lets readers see pictures so: to be called before there is one, since they may meet it at once. */
    static void Install();

    /** Belongs to `surface` from now on. */
    explicit AreaReader(PictureSurface& surface);

    /** Tells readers of the areas and of those that are selected. */
    void Tell(const MapAreas& areas, const AreaNumbers& selected);

    [[nodiscard]] const MapAreas& Areas() const { return areas_; }
    [[nodiscard]] const AreaNumbers& Selected() const { return selected_; }

    /** The area that has the focus while the picture has it; -1 without one. */
    [[nodiscard]] int FocusedArea() const;

    /** Where an area is on the screen. */
    [[nodiscard]] QRect PlaceOf(const MapArea& area) const;

    [[nodiscard]] PictureSurface& Surface() const { return surface_; }

Q_SIGNALS:
    /** A reader goes to the area of this number. */
    void SelectAsked(qsizetype number);

private:
    PictureSurface& surface_;
    MapAreas areas_;
    AreaNumbers selected_;
};
