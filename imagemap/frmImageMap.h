#pragma once

#include "imagemap/drawing/DrawingProtocol.h"
#include "shared/ImgMap.h"
#include "shared/PageDocument.h"
#include "widgets/CommandTable.h"

#include <QMainWindow>
#include <QMap>
#include <QPointer>
#include <memory>
#include <optional>

namespace Ui {
class frmImageMap;
}
class AreaCommands;
class AreaTab;
class EditorPanels;
class HelpViewer;
class KeyedDrawing;
class PictureCommands;
class QShortcut;
class ZoomControls;
class frmIMLink;
class frmJSOptions;
struct MapSource;
struct TodayNotes;

/**
 * The image map editor: a picture to draw areas on, the list of the areas, the picture's attributes.
 *
 * One instance at a time; Form_Load() prepares it, closing it deletes it. The map lives in MapDocument.
 */
class frmImageMap : public QMainWindow, private DrawingStatus
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
    void ShowPageOfHelp();
    void DeleteLastFigure();
    void EditAreaData();
    void EditSelectedArea();
    void PickFigureColor();
    void mnuJSOptions_Click();

    /** Chooses the tool of a menu entry and button. */
    template<DrawingTool tool> void SelectTool() { protocol_->SelectTool(tool); }

    /** What is in the fields about the whole map, by their names. */
    [[nodiscard]] QMap<QString, QString> Fields() const;
    void SetFields(const QMap<QString, QString>& texts);

    /** Gives up what is half drawn, a polygon with all its sides. */
    void GiveUpDrawing();

Q_SIGNALS:
    /** A picture was opened, or saved, that is in the file `path`. */
    void PictureFileKnown(const QString& path);

protected:
    bool event(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // What the drawing tools ask for.
    void SetLabel(DrawingLabel label, const QString& text) override;
    void EnableFigureCommands(bool enable) override;
    void ShowTool() override;
    void ReportFullStore(FullStoreText text) override;
    void LinkNewFigure(QStringView prompt) override;

    [[nodiscard]] static std::span<const Command> Commands();
    void CreateKeys();
    void CreateAreaParts();
    void CreatePictureCommands();
    void ShowPicture(const QString& path, const QImage& picture);
    void ShowPictureFile(const QString& path);
    void ShowPictureSize();
    void Pictures_Renewed(const QImage& picture);
    /** Gives up what is being drawn for another command; false while the mouse is asking for a dialog. */
    [[nodiscard]] bool BeginCommand();
    void AreaCommands_ToolTaken();
    void Map_PictureChanged();
    void cmbMarkup_Activated(int form);
    void InsertTodayMap(const MapSource& source);
    void GoToMissingText(const TodayNotes& notes);
    void ShowDrawingMode();
    void ShowHint();
    /** Lets the mouse wait while `act`, which may open a dialog, runs once the mouse handler is done. */
    template<class Act> void AfterTheMouse(Act act);
    [[nodiscard]] bool DiscardMap();
    void EditArea(const QString& hint);
    /** For a new area, or for rewriting the area `replaced`. */
    void OpenLinkDialog(std::optional<qsizetype> replaced = std::nullopt);
    void CloseDialogs(bool mayDelete);
    [[nodiscard]] bool QueryUnload();

    ImgMap& imgMap_;
    MapDocument& map_;
    PageDocument& document_;
    HelpViewer& help_;
    std::unique_ptr<Ui::frmImageMap> ui_;
    CommandSet<Command> commands_;
    std::unique_ptr<EditorPanels> panels_;
    std::unique_ptr<FigureDisplay> display_;
    std::unique_ptr<DrawingProtocol> protocol_;
    std::unique_ptr<KeyedDrawing> drawing_;
    ZoomControls* zoom_ = nullptr;
    AreaCommands* areaCommands_ = nullptr;
    PictureCommands* pictures_ = nullptr;
    AreaTab* areaTab_ = nullptr;
    QShortcut* escape_ = nullptr;
    QPointer<frmIMLink> linkDialog_;
    QPointer<frmJSOptions> jsOptions_;
    bool isMessagePending_ = false; ///< a dialog that the mouse asked for is about to open
};
