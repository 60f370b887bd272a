#pragma once

#include "imagemap/origin/MapOrigin.h"

#include <QObject>
#include <map>

class MapDocument;

/** Where the maps came from that one history leads through, each by its serial. */
class MapOrigins : public QObject
{
    Q_OBJECT

public:
    /** Those of `map`, for as long as its history lives. */
    [[nodiscard]] static MapOrigins& Of(MapDocument& map);

    /** That of the map which is there now; nullptr if it came from no page. */
    [[nodiscard]] MapOrigin* Present() const;

    /** The map that is there now came from `origin`. */
    void Set(std::unique_ptr<MapOrigin> origin);

Q_SIGNALS:
    /** The present map has another origin, or agrees with its page anew. */
    void Changed();

private:
    explicit MapOrigins(MapDocument& map);

    const MapDocument& map_;
    std::map<int, std::unique_ptr<MapOrigin>> origins_;
};
