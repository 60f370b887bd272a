// Costs of maps that come back: a page of 50 megabytes with 20,000 of them.

#include "app/EditedPage.h"
#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "html/HtmlTokens.h"
#include "mapback/LocalUpdate.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>

namespace {

constexpr int manyMaps = 20'000;

/** What a page has of one map, with text around it: some 2,600 characters. */
QString Section(int number)
{
    constexpr int paragraphs = 18;
    const QString paragraph =
        QStringLiteral("<p class=\"text\">Some text that a page is made of, <b>long</b> enough, with an <a "
                       "href=\"page.html\" title='x'>address</a>.</p>\r\n");
    const QString area =
        QStringLiteral("<area shape=\"rect\" coords=\"10,20,110,70\" href=\"room1.html\" alt=\"Room\">\r\n");
    return paragraph.repeated(paragraphs) +
           QStringLiteral("<img src=\"plan.png\" width=\"400\" height=\"300\" alt=\"A plan\" "
                          "usemap=\"#m%1\">\r\n<map name=\"m%1\">\r\n")
               .arg(number) +
           area.repeated(3) + QStringLiteral("</map>\r\n");
}

QString PageWith(int maps)
{
    const QString start = QStringLiteral("<!DOCTYPE html>\r\n<title>Maps</title>\r\n<body>\r\n");
    QString page = start;
    page.reserve(start.size() + maps * Section(manyMaps).size());
    for (int i = 0; i < maps; ++i) {
        page += Section(i);
    }
    return page;
}

/** What bringing the page's last map to what the editor has takes. */
Cost CostOfUpdate(const QString& page)
{
    constexpr int updates = 100;
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    const ReturnedMap map = ReadMap(page, maps, places.back()).value();
    MapSource now = map.source;
    now.Areas[1].Link = QStringLiteral("another.html");
    return CostOf(
        [&] {
            for (int i = 0; i < updates; ++i) {
                const auto update = UpdateMap(page, map, map.mode, now, {});
                if (!update || update->changes.size() != 1) {
                    qFatal("a link is one change");
                }
            }
        },
        updates);
}

/** The same in an editor that shows the page, until it is painted. */
Cost CostOfUpdateShown(SourceEditor& editor, const QString& page)
{
    constexpr int updates = 100;
    const DocumentFile file;
    EditedPage shown(editor, file);
    const PageMaps maps = ReadPageMaps(page);
    const std::vector<MapPlace> places = MapPlacesOf(page, maps);
    ReturnedMap map = ReadMap(page, maps, places[places.size() / 2]).value();
    shown.Select({ map.place.offset, 0 });
    const auto textAt = [&shown](const HtmlSpan& place) {
        return shown.TextIn({ place.offset, place.length });
    };
    return CostOf(
        [&] {
            for (int i = 0; i < updates; ++i) {
                MapSource now = map.source;
                now.Areas[1].Link = QStringLiteral("room%1.html").arg(i + 2);
                const auto update = UpdateMapAlone(textAt, map, map.mode, now, {});
                if (!update || update->changes.size() != 1) {
                    qFatal("a link is one change");
                }
                shown.Replace(update->changes);
                map = update->after;
                QCoreApplication::processEvents();
            }
        },
        updates);
}

} // namespace

void BenchMaps()
{
    const QString page = PageWith(manyMaps);
    std::size_t found = 0;
    const Cost listed = CostOf([&] { found = MapPlacesOf(page, ReadPageMaps(page)).size(); });
    if (found != manyMaps) {
        qFatal("all maps must be found");
    }
    // Going over all characters once, and no more than a comparison of each.
    qsizetype angles = 0;
    const Cost passed = CostOf([&] { angles += page.count(u'<'); });
    PrintRow(QStringLiteral("list 20,000 maps of a page of 50 MB; count a letter in it"), listed, passed, 30);
    const Cost tags = CostOf([&] {
        HtmlTokens tokens(page);
        for (HtmlToken token; tokens.Next(token);) {
            angles += token.whole.length;
        }
    });
    PrintRow(QStringLiteral("list 20,000 maps; read all tags of their page"), listed, tags, 1.5);
    const Cost second = { .seconds = 1 };
    if (!IsCounting()) {
        PrintRow(QStringLiteral("list 20,000 maps of a page of 50 MB; a second"), listed, second, 1);
    }
    PrintRow(
        QStringLiteral("update a map in 50 MB; in a page that has no other"), CostOfUpdate(page),
        CostOfUpdate(PageWith(1)), 1.5);
    SourceEditor editor;
    editor.LoadText(page);
    editor.resize(700, 500);
    editor.show();
    QCoreApplication::processEvents();
    const Cost update = CostOfUpdateShown(editor, page);
    PrintRow(
        QStringLiteral("update a map in an editor with 50 MB; a key in it"), update,
        CostOfTyping(editor, 100), 1.5);
}
