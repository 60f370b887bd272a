// Writes the pages with maps for today's browsers, their pictures, and what the browser suite has to know of
// them.
//
// cartolen-today-pages FOLDER

#include "app/rules/TodayPageFrame.h"
#include "imagemap/model/AreaGeometry.h"
#include "tests/codegen/TodayPages.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>

#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <cstdio>

namespace {

constexpr QSize mapSize(400, 300);
constexpr QSize messageSize(160, 120);

bool Write(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

QJsonArray Described(const MapAreas& areas)
{
    QJsonArray described;
    for (const MapArea& area : areas) {
        QJsonArray numbers;
        for (const int number : area.Coordinates) {
            numbers << number;
        }
        described << QJsonObject{ { "shape", int(area.Shape) },
                                  { "coords", numbers },
                                  { "link", area.Link },
                                  { "message", area.Message } };
    }
    return described;
}

/** Whether the suite asks on the page with that name what lies where. */
bool IsLookedThrough(const QString& name)
{
    static const QRegularExpression pages(
        QStringLiteral("^(svg|map)-(links|texts)-(3|40|rtl|larger|special)$"));
    return pages.match(name).hasMatch();
}

/**
 * Pixels all over the picture, three numbers each: x, y, and which area the editor has there, -1 for none.
 */
QJsonArray Hits(const MapAreas& areas)
{
    constexpr int columnStep = 5; // from one line to the next
    constexpr int oneOf = 12;
    const auto topmost = [&areas](int x, int y) {
        const QList<qsizetype> found = AreasAt(areas, { x, y });
        return found.isEmpty() ? -1 : int(found.constFirst());
    };
    QJsonArray hits;
    for (int y = 0; y < mapSize.height(); ++y) {
        for (int x = y * columnStep % oneOf; x < mapSize.width(); x += oneOf) {
            hits << x << y << topmost(x, y);
        }
    }
    return hits;
}

bool WritePictures(const QDir& folder)
{
    bool isWritten = true;
    int hue = 0;
    for (const char* const name : { "pic", "none", "red", "green", "blue", "orange" }) {
        QImage picture(hue == 0 ? mapSize : messageSize, QImage::Format_RGB32);
        constexpr int step = 50;
        constexpr int saturation = 90;
        constexpr int value = 220;
        picture.fill(QColor::fromHsv(hue, saturation, value));
        hue += step;
        isWritten = picture.save(folder.filePath(QString::fromLatin1(name) + u".png")) && isWritten;
    }
    return isWritten;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fputs("usage: cartolen-today-pages FOLDER\n", stderr);
        return 2;
    }
    const QDir folder(QString::fromLocal8Bit(argv[1]));
    bool isWritten = WritePictures(folder);
    for (const char* const name : { "red.html", "green.html", "blue.html", "above.html", "below.html" }) {
        const QString title = QString::fromLatin1(name);
        isWritten = Write(folder.filePath(title), EmptyTodayPage(title).toUtf8()) && isWritten;
    }
    isWritten = Write(
                    folder.filePath(QStringLiteral("new.html")),
                    MakeTodayPageFrame(QStringLiteral("en")).Text.toUtf8()) &&
                isWritten;
    isWritten = Write(folder.filePath(QStringLiteral("old.html")), OldHtmlPage().toUtf8()) && isWritten;
    QJsonObject maps;
    QJsonObject hits;
    const QList<TodayTestPage> pages = SmallTodayPages() + LargeTodayPages();
    for (const TodayTestPage& page : pages) {
        maps.insert(page.Name, Described(page.Areas));
        if (IsLookedThrough(page.Name)) {
            hits.insert(page.Name, Hits(page.Areas));
        }
        isWritten = Write(folder.filePath(page.Name + u".html"), page.Text.toUtf8()) && isWritten;
    }
    for (const auto& [name, content] : { std::pair("maps.json", maps), std::pair("hits.json", hits) }) {
        const QByteArray json = QJsonDocument(content).toJson(QJsonDocument::Compact);
        isWritten = Write(folder.filePath(QString::fromLatin1(name)), json) && isWritten;
    }
    return isWritten ? 0 : 1;
}
