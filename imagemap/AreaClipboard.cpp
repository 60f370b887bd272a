#include "imagemap/AreaClipboard.h"

#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaGeometry.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMimeData>

namespace {

QString AreasFormat()
{
    return QStringLiteral("application/x-cartolen-areas");
}

QJsonObject Packed(const MapArea& area)
{
    return { { "shape", static_cast<int>(area.Shape) },
             { "coordinates", CoordinatesText(area) },
             { "link", area.Link },
             { "target", area.Target },
             { "message", area.Message },
             { "text", area.Text } };
}

/** The area that was packed, or one without coordinates. */
MapArea Unpacked(const QJsonObject& packed)
{
    const int shape = packed.value("shape").toInt(-1);
    MapArea area;
    if (shape < 0 || shape >= int(areaShapeNames.size())) {
        return area;
    }
    area.Shape = static_cast<AreaShape>(shape);
    const CoordinatesReading reading = ReadCoordinates(area.Shape, packed.value("coordinates").toString());
    if (reading.problem.isEmpty()) {
        area.Coordinates = reading.numbers;
    }
    area.Link = packed.value("link").toString();
    area.Target = packed.value("target").toString();
    area.Message = packed.value("message").toString();
    area.Text = packed.value("text").toString();
    return area;
}

} // namespace

void CopyAreas(const MapAreas& areas)
{
    QJsonArray packed;
    QStringList texts;
    for (const MapArea& area : areas) {
        packed.append(Packed(area));
        texts << CoordinatesText(area);
    }
    auto* const data = new QMimeData;
    data->setData(AreasFormat(), QJsonDocument(packed).toJson(QJsonDocument::Compact));
    data->setText(texts.join(u'\n'));
    QGuiApplication::clipboard()->setMimeData(data);
}

bool HasAreasOnClipboard()
{
    const QMimeData* const data = QGuiApplication::clipboard()->mimeData();
    return data != nullptr && data->hasFormat(AreasFormat());
}

MapAreas AreasOnClipboard()
{
    MapAreas areas;
    if (HasAreasOnClipboard()) {
        const QByteArray packed = QGuiApplication::clipboard()->mimeData()->data(AreasFormat());
        const QJsonArray packedAreas = QJsonDocument::fromJson(packed).array();
        for (const auto& value : packedAreas) {
            const MapArea area = Unpacked(value.toObject());
            if (IsWhole(area) || area.Shape == AreaShape::Default) {
                areas << area;
            }
        }
    }
    return areas;
}
