#include "imagemap/drawing/TryProtocol.h"

#include "imagemap/model/AreaGeometry.h"

#include <cmath>

const MapArea* TryProtocol::AreaAt(float x, float y) const
{
    const QPoint place(static_cast<int>(std::floor(x)), static_cast<int>(std::floor(y)));
    const QList<qsizetype> hits = AreasAt(map_.Areas(), place);
    return hits.isEmpty() ? nullptr : &map_.Areas().at(hits.constFirst());
}

void TryProtocol::MouseMove(float x, float y)
{
    const MapArea* const area = AreaAt(x, y);
    picture_.SetPointer(area != nullptr ? SurfacePointer::Handle : SurfacePointer::Arrow);
    if (area == nullptr) {
        Q_EMIT Hovered({}, {});
    } else {
        // Pictures that are switched to are no texts.
        const bool isText = map_.Script().Mode() != JSSwitchImages;
        Q_EMIT Hovered(area->Link, isText && !area->Message.isEmpty() ? area->Message : area->Text);
    }
}

void TryProtocol::MouseUp(int button, float x, float y)
{
    const MapArea* const area = AreaAt(x, y);
    if (button == leftButton && area != nullptr) {
        Q_EMIT Followed(area->Link);
    }
}
