#pragma once

#include "imagemap/EditorDrawing.h"
#include "shared/ImgMap.h"
#include "shared/PageDocument.h"
#include "widgets/CommandTable.h"

#include <QMainWindow>
#include <memory>

namespace Ui {
class frmImageMap;
}
class AreaCommands;
class DrawCommands;
class EditorDialogs;
class EditorPanels;
class HelpViewer;
class InsertCommand;
class MapDiscarding;
class MapFields;
class MapOpening;
class PictureCommands;
class QShortcut;
class UpdateCommand;

/**
 * The image map editor: a picture to draw areas on, the list of the areas, the picture's attributes.
 *
 * One instance at a time; Form_Load() prepares it, closing it deletes it. The map lives in MapDocument. The
 * window puts its parts together and has its commands; what they do is done by the parts.
 */
class frmImageMap : public QMainWindow
{
    Q_OBJECT

public:
    /** What a command needs to be enabled. */
    enum class Need { Nothing, Picture, Figures };
    using Command = CommandRow<frmImageMap, Need, DrawingTool>;

    /** `owner` is the window it stays above; `document` receives the finished map. */
    frmImageMap(ImgMap& imgMap, MapDocument& map, PageDocument& document, HelpViewer& help, QWidget* owner);
    ~frmImageMap() override;

    /** Prepares the window for its first showing: cursor mode, only Open and Exit enabled. */
    void Form_Load();

    void OpenImage();
    /** Opens the picture `path`, which was named otherwise than in a dialog. */
    void OpenNamedImage(const QString& path);
    void NewImageMap();
    void GenerateMap();
    void CloseImageMapEditor();
    void ShowHelp();
    void DeleteLastFigure();
    void EditAreaData();
    void PickFigureColor();
    void mnuJSOptions_Click();

    /** Chooses the tool of a menu entry and button. */
    template<DrawingTool tool> void SelectTool() { drawing_->Protocol().SelectTool(tool); }

    /** Goes on with a polygon from its last corner; without corners there is nothing to be done. */
    void ResumePolygon(const QList<QPoint>& corners);

    /** The fields about the whole map. */
    [[nodiscard]] MapFields& Fields() const { return *fields_; }

    /** By which maps of the page are opened. */
    [[nodiscard]] MapOpening& Opening() const { return *opening_; }

    /** What is between the map and its page. */
    [[nodiscard]] UpdateCommand& Updating() const { return *update_; }

Q_SIGNALS:
    /** A picture was opened, or saved, that is in the file `path`. */
    void PictureFileKnown(const QString& path);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    [[nodiscard]] static std::span<const Command> Commands();
    void CreateDrawing();
    void CreateAreaParts();
    void CreatePictureCommands();
    void ShowPicture(const QString& path, const QImage& picture);
    void ShowPictureFile(const QString& path);
    void Pictures_Renewed(const QImage& picture);
    void Map_PictureChanged();
    void Drawing_ToolChosen(DrawingTool tool);
    void Drawing_FigureCommandsEnabled(bool enable);
    void ShowHint();

    ImgMap& imgMap_;
    MapDocument& map_;
    PageDocument& document_;
    HelpViewer& help_;
    std::unique_ptr<Ui::frmImageMap> ui_;
    CommandSet<Command> commands_;
    std::unique_ptr<MapFields> fields_;
    std::unique_ptr<EditorPanels> panels_;
    std::unique_ptr<EditorDialogs> dialogs_;
    std::unique_ptr<EditorDrawing> drawing_;
    UpdateCommand* update_ = nullptr;
    std::unique_ptr<MapDiscarding> discarding_;
    std::unique_ptr<MapOpening> opening_;
    std::unique_ptr<InsertCommand> insert_;
    AreaCommands* areaCommands_ = nullptr;
    DrawCommands* drawCommands_ = nullptr;
    PictureCommands* pictures_ = nullptr;
    QShortcut* escape_ = nullptr;
};
