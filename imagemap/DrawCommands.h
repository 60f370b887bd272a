#pragma once

#include "imagemap/OutlineCommand.h"
#include "imagemap/RegionFinding.h"
#include "outline/Grid.h"
#include "shared/ImgMap.h"
#include "widgets/CommandTable.h"

#include <QObject>
#include <functional>

class AreaCommands;
class AreaList;
class MapDocument;
class PicturePane;
class QMainWindow;
class frmRegions;

/**
 * The commands that make many areas at once, or give many their links: the submenu Draw of the areas' menu.
 * What they are about to do is seen before it is done, and each is one step of undo.
 */
class DrawCommands final : public QObject
{
    Q_OBJECT

public:
    /** What a command needs to be enabled. */
    enum class Need { Nothing, Picture, Areas };
    /** What is switched on and off. */
    enum class Mark { Outline };
    using Command = CommandRow<DrawCommands, Need, Mark>;

    /** The parts of the window that the commands work on, all of which live as long. */
    struct Parts
    {
        QMainWindow& window;
        AreaCommands& areas; ///< the submenu stands at the end of its menu
        MapDocument& map;
        PicturePane& pane;
        AreaList& list;
        EditorDialogs& dialogs;
        OutlineBar& outlineBar;
        const ImgMap& imgMap;
        std::function<bool()> begin; ///< gives up what is being drawn; false where a dialog is about to open
    };

    explicit DrawCommands(const Parts& parts);

    /** A picture is shown, or none, or there are other areas: enables what can be done. */
    void EnableCommands();

    void ChooseOutline();
    void OutlineAll();
    void OutlineOpaque();
    void ShapesOfSvg();
    void DrawGrid();
    void LinkFromTable();

private:
    [[nodiscard]] static std::span<const Command> Commands();
    void CreateKeys();
    void ShowTool();
    [[nodiscard]] QSize PictureSize() const;
    void ShowPreview(const MapAreas& areas);
    void EndPreview();
    [[nodiscard]] QRect SelectedPixels() const;
    void LookForRegions(const QString& title, const RegionGround& ground);
    void OfferRegions(frmRegions& dialog);
    void Add(const MapAreas& areas, qsizetype place, QStringView what);

    Parts parts_;
    CommandSet<Command> commands_;
    OutlineCommand outline_;
    GridPlan grid_;      ///< the last one that was made
    RegionWish regions_; ///< which regions were made last
};
