// What is promised of regions and their polygons, measured on maps that others have drawn: those of Debian's
// kgeography-data, which says beside each picture which colours are divisions and which are frontiers, water
// and the like.

#include "imagemap/model/AreaConversion.h"
#include "imagemap/model/AreaGeometry.h"
#include "outline/PictureRegions.h"
#include "outline/RegionShape.h"
#include "tests/outline/ContourChecks.h"

#include <QDir>
#include <QFile>
#include <QHash>
#include <QTest>
#include <QXmlStreamReader>

namespace {

/** Each so-many-th map is looked at. */
constexpr qsizetype everyMap = 5;

struct DrawnMap
{
    QImage picture;
    QHash<QRgb, bool> isDivision; ///< by colour
};

void ReadDivision(QXmlStreamReader& xml, DrawnMap& map)
{
    bool isIgnored = false;
    int channels[3] = {};
    while (xml.readNext() != QXmlStreamReader::EndElement || xml.name() != u"division") {
        if (xml.atEnd()) {
            return;
        }
        const QStringView names[] = { u"red", u"green", u"blue" };
        for (std::size_t i = 0; xml.isStartElement() && i < std::size(names); ++i) {
            if (xml.name() == names[i]) {
                channels[i] = xml.readElementText().trimmed().toInt();
            }
        }
        if (xml.isStartElement() && xml.name() == u"ignore") {
            isIgnored = xml.readElementText().trimmed() == u"yes";
        }
    }
    map.isDivision.insert(qRgb(channels[0], channels[1], channels[2]), !isIgnored);
}

DrawnMap ReadMap(const QFileInfo& info)
{
    DrawnMap map;
    QFile file(info.filePath());
    if (!file.open(QIODevice::ReadOnly)) {
        return map;
    }
    QXmlStreamReader xml(&file);
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == u"mapFile") {
            map.picture = QImage(info.dir().filePath(xml.readElementText().trimmed()));
        } else if (xml.isStartElement() && xml.name() == u"division") {
            ReadDivision(xml, map);
        }
    }
    return map;
}

/** What was promised of regions of a size, and how often it was kept. */
struct Promise
{
    qint64 leastPixels;
    double share;
    int regions = 0;
    int kept = 0;
};

Contour CornersOfShape(const MapArea& area)
{
    const QList<QPoint> corners = CornersOf(Converted(area, AreaShape::Polygon));
    return { corners.begin(), corners.end() };
}

} // namespace

class tst_regionmaps : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void polygonsAreTheRegions();
    void polygonsHaveFewCorners();
    void divisionsAreTickedAndOthersAreNot();

private:
    struct Outlined
    {
        PictureRegion region;
        RegionShape shape;
        bool isDivision;
    };
    std::vector<Outlined> outlined_;
};

void tst_regionmaps::initTestCase()
{
    const QFileInfoList files = QDir(QStringLiteral("/usr/share/kgeography")).entryInfoList({ "*.kgm" });
    QVERIFY2(files.size() > 100, "the package kgeography-data is needed");
    for (qsizetype i = 0; i < files.size(); i += everyMap) {
        const DrawnMap map = ReadMap(files[i]);
        QVERIFY2(!map.picture.isNull() && !map.isDivision.isEmpty(), qPrintable(files[i].filePath()));
        for (PictureRegion& region : RegionsOf(map.picture, {})) {
            const auto colour = map.isDivision.constFind(region.colour);
            if (colour != map.isDivision.constEnd()) {
                const RegionShape shape = *colour ? ShapeOf(region.contour) : RegionShape{};
                outlined_.push_back({ std::move(region), shape, *colour });
            }
        }
    }
    QVERIFY(outlined_.size() > 500);
}

void tst_regionmaps::polygonsAreTheRegions()
{
    Promise promises[] = { { 10000, 0.98 }, { 1000, 0.95 }, { 200, 0.90 } };
    for (const Outlined& one : outlined_) {
        if (!one.isDivision) {
            continue;
        }
        const Contour corners = CornersOfShape(one.shape.area);
        QVERIFY(corners.size() <= std::size_t(mostCorners));
        QVERIFY(IsSimple(corners));
        QVERIFY(TwiceAreaOf(corners) > 0);
        QVERIFY(!one.shape.HasGivenWay(usualPrecision) || corners.size() == std::size_t(mostCorners));
        for (Promise& promise : promises) {
            if (one.region.region.pixels >= promise.leastPixels) {
                ++promise.regions;
                promise.kept += ShareOf(one.region.contour, corners) >= promise.share ? 1 : 0;
                break;
            }
        }
    }
    for (const Promise& promise : promises) {
        qInfo("from %lld pixels: %d of %d", promise.leastPixels, promise.kept, promise.regions);
        QVERIFY(promise.regions > 20);
        QVERIFY(promise.kept * 100 >= promise.regions * 98);
    }
}

void tst_regionmaps::polygonsHaveFewCorners()
{
    std::vector<double> parts;
    for (const Outlined& one : outlined_) {
        if (!one.isDivision) {
            continue;
        }
        const Contour& contour = one.region.contour;
        const std::size_t corners = CornersOfShape(one.shape.area).size();
        parts.push_back(double(corners) / double(contour.size()));
        // A rectangle keeps its four; nor has an L too many.
        QVERIFY(
            2 * corners <= contour.size() || one.shape.area.Shape != AreaShape::Polygon ||
            2 * FewestCorners(contour, usualPrecision) > contour.size());
    }
    std::sort(parts.begin(), parts.end());
    QVERIFY(parts[parts.size() / 2] <= 1.0 / 3);
}

void tst_regionmaps::divisionsAreTickedAndOthersAreNot()
{
    int divisions = 0;
    int ticked = 0;
    int others = 0;
    int unticked = 0;
    for (const Outlined& one : outlined_) {
        const bool isArea = one.region.role == RegionRole::Area;
        (one.isDivision ? divisions : others) += 1;
        ticked += one.isDivision && isArea ? 1 : 0;
        unticked += !one.isDivision && !isArea ? 1 : 0;
    }
    qInfo("%d of %d divisions ticked, %d of %d others not", ticked, divisions, unticked, others);
    QVERIFY(ticked * 100 >= divisions * 98);
    QVERIFY(unticked * 100 >= others * 80);
}

QTEST_GUILESS_MAIN(tst_regionmaps)
#include "tst_regionmaps.moc"
