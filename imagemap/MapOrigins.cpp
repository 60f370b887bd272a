#include "imagemap/MapOrigins.h"

#include "imagemap/model/MapDocument.h"

MapOrigins::MapOrigins(MapDocument& map)
    : QObject(&map)
    , map_(map)
{
}

MapOrigins& MapOrigins::Of(MapDocument& map)
{
    auto* origins = map.findChild<MapOrigins*>(QString(), Qt::FindDirectChildrenOnly);
    return origins != nullptr ? *origins : *new MapOrigins(map);
}

MapOrigin* MapOrigins::Present() const
{
    const auto found = origins_.find(map_.Serial().Number());
    return found != origins_.end() ? found->second.get() : nullptr;
}

void MapOrigins::Set(std::unique_ptr<MapOrigin> origin)
{
    origins_[map_.Serial().Number()] = std::move(origin);
    Q_EMIT Changed();
}
