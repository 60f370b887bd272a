#include "imagemap/origin/AreaLikeness.h"

#include <QHash>
#include <QQueue>
#include <QStringBuilder>
#include <algorithm>

namespace {

using AreaKey = QString (*)(const MapArea& area);

QString PlaceKey(const MapArea& area)
{
    return area.Coordinates.isEmpty()
               ? QString()
               : QString(QString::number(static_cast<int>(area.Shape)) % u' ' % CoordinatesText(area));
}

QString LinkKey(const MapArea& area)
{
    return area.Link;
}

QString WholeKey(const MapArea& area)
{
    QString key =
        PlaceKey(area) % u'\n' % area.Link % u'\n' % area.Target % u'\n' % area.Message % u'\n' % area.Text;
    for (const AreaAttribute& attribute : area.Attributes) {
        key += u'\n' % attribute.Name % u'=' % attribute.Value;
    }
    return key;
}

/** Matches, in their order, those that have no match yet and the same key; an empty key stands for none. */
void MatchBy(
    AreaKey keyOf, const MapAreas& before, const MapAreas& now, std::vector<bool>& taken,
    std::vector<qsizetype>& matches)
{
    QHash<QString, QQueue<qsizetype>> free;
    for (qsizetype i = 0; i < before.size(); ++i) {
        if (!taken[std::size_t(i)]) {
            free[keyOf(before[i])].enqueue(i);
        }
    }
    for (qsizetype i = 0; i < now.size(); ++i) {
        const QString key = keyOf(now[i]);
        const auto found = free.find(key);
        if (matches[std::size_t(i)] < 0 && !key.isEmpty() && found != free.end() && !found->isEmpty()) {
            matches[std::size_t(i)] = found->dequeue();
            taken[std::size_t(matches[std::size_t(i)])] = true;
        }
    }
}

} // namespace

MapArea WithoutSource(MapArea area)
{
    area.Source = -1;
    return area;
}

std::vector<qsizetype> MatchAreas(const MapAreas& before, const MapAreas& now)
{
    std::vector<qsizetype> matches(std::size_t(now.size()), -1);
    std::vector<bool> taken(std::size_t(before.size()), false);
    for (const AreaKey key : { WholeKey, PlaceKey, LinkKey }) {
        MatchBy(key, before, now, taken, matches);
    }
    return matches;
}

void KeepSources(MapAreas& page, const MapAreas& before, const MapAreas& shown)
{
    int fresh = 0;
    for (const MapArea& area : before + shown) {
        fresh = std::max(fresh, area.Source + 1);
    }
    const std::vector<qsizetype> matches = MatchAreas(before, page);
    for (qsizetype i = 0; i < page.size(); ++i) {
        const qsizetype match = matches[std::size_t(i)];
        const bool isKnown = match >= 0 && before[match].Source >= 0;
        page[i].Source = isKnown ? before[match].Source : fresh++;
    }
}
