#pragma once

class AreaTab;
class EditorPanels;
class MapDocument;
class MapFields;
class PageDocument;
class PictureCommands;
class PicturePane;
class QTabWidget;
class QTreeView;
class QWidget;
class UpdateCommand;
struct ImgMap;
struct MapSource;
struct TodayNotes;

/** Insert: the map is written in the form that is chosen, and goes into the page. */
class InsertCommand
{
public:
    /** What it works on, all of which lives as long. */
    struct Parts
    {
        QWidget& window;
        const ImgMap& imgMap;
        const MapDocument& map;
        PageDocument& page;
        MapFields& fields;
        EditorPanels& panels;
        const PicturePane& pane;
        PictureCommands& pictures;
        QTreeView& list;
        QTabWidget& tabs;
        AreaTab& areaTab;
        UpdateCommand& update;
    };

    explicit InsertCommand(const Parts& parts)
        : parts_(parts)
    {
    }

    /** Asks and refuses where it has to, and tells in the status bar what came of it. */
    void Insert();

private:
    void InsertTodayMap(const MapSource& source);
    void GoToMissingText(const TodayNotes& notes);

    Parts parts_;
};
