#pragma once

#include "app/FontDialog.h"
#include "app/SourceEditor.h"
#include "app/Startup.h"
#include "app/TodayChange.h"
#include "app/frmIMmain.h"
#include "app/frmMapChange.h"
#include "app/frmMapOptions.h"
#include "app/frmPageMaps.h"
#include "app/frmSplash.h"
#include "help/HelpDisplay.h"
#include "help/HelpWindow.h"
#include "imagemap/frmGrid.h"
#include "imagemap/frmImageMap.h"
#include "imagemap/frmJSOptions.h"
#include "imagemap/frmRegions.h"
#include "imagemap/frmTable.h"
#include "linkdialog/frmIMLink.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/WidgetDriving.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QListWidget>
#include <QMessageBox>
#include <QPainter>
#include <QStyleFactory>
#include <QTabWidget>
#include <QTest>
#include <QTreeView>
#include <QTreeWidget>
#include <array>
#include <memory>
#include <vector>

/** Every window of the program, filled as in use, to be looked at one after the other. */
class EveryWindow
{
public:
    static constexpr std::array names = { "splash",         "main",        "links",         "editor",
                                          "attributes",     "area",        "link-0",        "link-1",
                                          "link-2",         "link-3",      "link-4",        "outline",
                                          "script-options", "preferences", "help-contents", "help-index",
                                          "help-search",    "font",        "question",      "page-maps",
                                          "map-change",     "grid",        "table",         "regions",
                                          "regions-found" };

    /** A row for each window, with its name. */
    static void Rows()
    {
        QTest::addColumn<QByteArray>("window");
        for (const char* const name : names) {
            QTest::newRow(name) << QByteArray(name);
        }
    }

    /** Shows the window of that name and gives it the keys. */
    QWidget* Show(const QByteArray& name)
    {
        QWidget* const window = Make(name);
        window->show();
        window->activateWindow();
        if (!QTest::qWaitForWindowActive(window)) {
            qFatal("the window %s does not take keys", name.constData());
        }
        QCoreApplication::processEvents();
        return window;
    }

    EveryWindow()
    {
        QFile::copy(QStringLiteral(CARTOLEN_BOOK), folder_.Path(QStringLiteral("Cartolen.hlp")));
    }
    ~EveryWindow()
    {
        while (!made_.empty()) {
            made_.pop_back();
        }
        while (QApplication::overrideCursor() != nullptr) {
            QApplication::restoreOverrideCursor();
        }
    }
    Q_DISABLE_COPY_MOVE(EveryWindow)

private:
    QWidget* Make(const QByteArray& name)
    {
        if (name == "splash") {
            return Loaded(Keep(new frmSplash(imgMap_)));
        }
        if (name == "main" || name == "links") {
            return MainWindow(name == "links");
        }
        if (name == "editor" || name == "attributes") {
            frmImageMap* const editor = Editor();
            Find<QTabWidget>(editor, "SSTab1")->setCurrentIndex(name == "attributes" ? 1 : 0);
            return editor;
        }
        if (name == "area") {
            frmImageMap* const editor = Editor();
            Find<QTabWidget>(editor, "SSTab1")->setCurrentIndex(2);
            return editor;
        }
        if (name == "outline") {
            frmImageMap* const editor = Editor();
            Find<QAction>(editor, "mnuAOutline")->trigger();
            return editor;
        }
        if (name.startsWith("link-")) {
            map_.Script().SetMode(static_cast<JSMode>(name.back() - '0'));
            frmImageMap* const editor = Editor();
            return Loaded(Keep(new frmIMLink(imgMap_, map_, editor)));
        }
        if (name == "script-options") {
            return Loaded(Keep(new frmJSOptions(imgMap_, map_, help_, Editor())));
        }
        if (name == "preferences") {
            QWidget* const main = MainWindow(false);
            return Loaded(Keep(new frmMapOptions(imgMap_, *Find<SourceEditor>(main, "MapsText1"), main)));
        }
        if (name == "page-maps") {
            return Loaded(Keep(new frmPageMaps(imgMap_, PageMapsOfExample(), MainWindow(false))));
        }
        if (name == "map-change") {
            TodayChange change;
            change.before = QStringLiteral("<map name=house>\r\n</map>");
            change.after = QStringLiteral("<p class=\"imap\">\r\n</p>");
            change.notes << QStringLiteral("The new form has no place for these attributes: onclick");
            return Loaded(Keep(new frmMapChange(imgMap_, change, MainWindow(false))));
        }
        if (name == "grid") {
            const frmGrid::Rooms rooms{ RoomOf({ 640, 480 }), QRect(10, 20, 300, 200) };
            return Loaded(Keep(new frmGrid(imgMap_, rooms, {}, Editor())));
        }
        if (name == "table") {
            return Table();
        }
        if (name == "regions") {
            QWidget* const editor = Editor();
            const AreaCandidates regions = {
                { map_.Areas().at(0), QStringLiteral("The house") },
                { map_.Areas().at(1), QStringLiteral("Rectangle 2"), QStringLiteral("covers the picture"),
                  false },
            };
            return Loaded(Keep(new frmRegions(imgMap_, QStringLiteral("Shapes of an SVG"), regions, editor)));
        }
        if (name == "regions-found") {
            return FoundRegions();
        }
        if (name == "font") {
            return Keep(new FontDialog(QFont(QStringLiteral("Courier New"), 10), nullptr));
        }
        if (name == "question") {
            return Keep(new QMessageBox(
                QMessageBox::Question, QStringLiteral("Cartolen"), QStringLiteral("Do you want that?"),
                QMessageBox::Yes | QMessageBox::No));
        }
        return Help(name);
    }

    QWidget* FoundRegions()
    {
        QImage picture(QSize(640, 480), QImage::Format_RGB32);
        picture.fill(Qt::white);
        QPainter painter(&picture);
        painter.fillRect(40, 40, 200, 100, Qt::darkRed);
        painter.fillRect(300, 60, 120, 120, Qt::darkBlue);
        painter.end();
        auto* const window = Loaded(Keep(new frmRegions(
            imgMap_, QStringLiteral("Regions of the Picture"),
            { picture, likeColours, QRect(10, 10, 600, 400) }, {}, Editor())));
        const auto* const list = Find<QTreeView>(window, "lstRegions");
        if (!QTest::qWaitFor([list] { return list->model()->rowCount() > 0; })) {
            qFatal("no regions are found");
        }
        return window;
    }

    static PageMapsModel* PageMapsOfExample()
    {
        QString page =
            QStringLiteral("<img src=house.jpg usemap=#house>\r\n<map name=house><area href=house.htm "
                           "coords=10,20,300,400></map>\r\n<map name=garden></map>\r\n<img src=tree.png>");
        PageMaps maps = ReadPageMaps(page);
        std::vector<MapPlace> places = MapPlacesOf(page, maps);
        return new PageMapsModel(std::move(page), std::move(maps), std::move(places));
    }

    template<class Window> Window* Keep(Window* window)
    {
        window->setAttribute(Qt::WA_DeleteOnClose, false);
        made_.emplace_back(window);
        return window;
    }

    template<class Window> static Window* Loaded(Window* window)
    {
        window->Form_Load();
        return window;
    }

    QWidget* MainWindow(bool isOnLinks)
    {
        auto* const main = Loaded(Keep(new frmIMmain(imgMap_, map_, desktop_)));
        main_ = main;
        Find<SourceEditor>(main, "MapsText1")->LoadText(QStringLiteral("<html>\r\n<body>\r\n</body>"));
        auto* const tree = Find<QTreeWidget>(main, "TreeView1");
        tree->setCurrentItem(tree->topLevelItem(0)->child(0));
        auto* const links = Find<QListWidget>(main, "ListView1");
        links->addItem(QStringLiteral("https://www.example.com/"));
        links->setCurrentRow(0);
        Find<QTabWidget>(main, "SSTab1")->setCurrentIndex(isOnLinks ? 1 : 0);
        return main;
    }

    void AddAreas()
    {
        for (int i = 0; i < 3; ++i) {
            map_.AppendArea({ .Shape = AreaShape::Rectangle,
                              .Coordinates = { 10, 20, 300, 400 },
                              .Link = QStringLiteral("house.htm"),
                              .Target = QStringLiteral("_top"),
                              .Message = QStringLiteral("The house") });
        }
    }

    frmImageMap* Editor()
    {
        (void)MainWindow(false);
        auto* const editor = Loaded(Keep(new frmImageMap(imgMap_, map_, main_->Page(), help_, main_)));
        AddAreas();
        auto* const list = Find<QTreeView>(editor, "ListView1");
        list->setCurrentIndex(list->model()->index(0, 0));
        return editor;
    }

    QWidget* Table()
    {
        QGuiApplication::clipboard()->setText(QStringLiteral("link\ttext\r\nhouse.htm\tThe house\r\n"));
        QWidget* const editor = Editor();
        return Loaded(Keep(new frmTable(imgMap_, { map_.Areas(), { 0, 1, 2 }, false }, editor)));
    }

    QWidget* Help(const QByteArray& name)
    {
        if (name == "help-contents") {
            help_.ShowContents(nullptr);
        } else {
            help_.ShowSearch(nullptr);
        }
        QWidget* const window = help_.Window();
        if (window == nullptr) {
            qFatal("there is no help");
        }
        if (name == "help-search") {
            Find<QTabWidget>(window, "HelpTabs")->setCurrentIndex(2);
            TypeIn(window, "txtWords", "polygon");
        }
        return window;
    }

    ProgramFolder folder_;
    ImgMap& imgMap_ = folder_.imgMap;
    MapDocument& map_ = folder_.map;
    RecordingDesktop desktop_;
    Startup startup_{ imgMap_, map_, desktop_ }; ///< never begun: it knows the icons and the fonts
    HelpDisplay help_{ imgMap_ };
    frmIMmain* main_ = nullptr;
    std::vector<std::unique_ptr<QWidget>> made_; ///< each before those that it owns
};
