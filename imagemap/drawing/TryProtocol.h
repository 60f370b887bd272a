#pragma once

#include "imagemap/drawing/DrawingView.h"
#include "imagemap/drawing/PictureTool.h"
#include "imagemap/model/MapDocument.h"

#include <QObject>

/** Trying the map: the mouse does over the picture what it will do in a browser, and a click tells where it
 * leads. */
class TryProtocol final : public QObject, public PictureTool
{
    Q_OBJECT

public:
    TryProtocol(const MapDocument& map, DrawingSurface& picture)
        : map_(map)
        , picture_(picture)
    {
    }

    void MouseDown(int, float, float) override {}
    void MouseMove(float x, float y) override;
    void MouseUp(int button, float x, float y) override;
    void Abandon() override {}

Q_SIGNALS:
    /** What the browser shows of the area under the mouse: its link, and what appears as tool tip. */
    void Hovered(const QString& link, const QString& toolTip);
    /** Where a click leads. */
    void Followed(const QString& link);

private:
    [[nodiscard]] const MapArea* AreaAt(float x, float y) const;

    const MapDocument& map_;
    DrawingSurface& picture_;
};
