#pragma once

#include "imagemap/model/MapDocument.h"

#include <QObject>
#include <optional>

class AreaCommands;
class EditorDialogs;
class OutlineBar;
class OutlineProtocol;
class PicturePane;

/** Makes areas of what the Outline tool has outlined: each time one step of undo, link included. */
class OutlineCommand final : public QObject
{
    Q_OBJECT

public:
    /** The parts of the window that it works on, all of which live as long. */
    struct Parts
    {
        AreaCommands& areas;
        MapDocument& map;
        PicturePane& pane;
        EditorDialogs& dialogs;
        OutlineBar& bar; ///< shown while the tool is in force
    };

    explicit OutlineCommand(const Parts& parts);
    ~OutlineCommand() override;

private:
    void Tools_Switched();
    void Protocol_OutlineChanged();
    void Protocol_ToleranceDragged(double tolerance);
    void Protocol_MakeAsked();
    void Link(qsizetype place);
    void EndLinking(qsizetype place, bool isLinked);

    Parts parts_;
    OutlineProtocol& protocol_;
    std::optional<MapDocument::Step> step_; ///< open while the link is asked for
    MapState before_;                       ///< the map without the areas
    QList<bool> areHoles_;                  ///< which of the areas in the making lead nowhere
};
