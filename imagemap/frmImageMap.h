#pragma once

#include "imagemap/DrawingProtocol.h"
#include "linkdialog/AreaEditor.h"
#include "shared/DocumentSink.h"

#include <QMainWindow>
#include <QPointer>
#include <memory>

namespace Ui {
class frmImageMap;
}
class HelpViewer;
class AreaHeader;
class ElidedLabel;
class QLabel;
class QScrollBar;
class QShortcut;
class frmIMLink;
class frmJSOptions;

/**
 * The image map editor: a picture to draw areas on, the list of the areas, the picture's attributes.
 *
 * One instance at a time; Form_Load() prepares it, closing it deletes it. The figures live in ImgMap.
 */
class frmImageMap : public QMainWindow, public AreaEditor, private DrawingView
{
    Q_OBJECT

public:
    /** `owner` is the window it stays above; `document` receives the finished map. */
    frmImageMap(ImgMap& imgMap, DocumentSink& document, HelpViewer& help, QWidget* owner);
    ~frmImageMap() override;

    /** Prepares the window for its first showing: cursor mode, only Open and Exit enabled. */
    void Form_Load();

    void OpenImage();
    void NewImageMap();
    void GenerateMap();
    void CloseImageMapEditor();
    void ShowHelp();
    void ShowPageOfHelp();
    void DeleteLastFigure();
    void EditAreaData();
    void EditSelectedArea();
    void PickFigureColor();
    void SelectRectangle();
    void SelectCircle();
    void SelectLine();
    void SelectCursor();

    /** Opens the JavaScript options, modally. */
    void mnuJSOptions_Click();

    /** Throws the whole map away: figures, labels and rows. The picture and its attributes stay. */
    void DeleteMap();

    /** Gives up what is half drawn, a polygon with all its sides. */
    void GiveUpDrawing();

    /** Forgets what is half drawn, so that the next polygon has no corner of it. */
    void AbandonDrawing();

    void ShowModeHeader() override;

    // What the link dialog asks for.
    [[nodiscard]] qsizetype AreaCount() const override;
    void AppendArea(const AreaRow& row) override;
    void ReplaceSelectedArea(const QString& link, const QString& message) override;
    void SetMessageHeader(const QString& header) override;
    void RepaintFigures() override;
    void ShowDrawingMode() override;

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    // What the drawing protocol asks for.
    [[nodiscard]] int PictureWidth() const override;
    [[nodiscard]] int PictureHeight() const override;
    void PaintFigure(const PaintedFigure& figure, Pen pen) override;
    void EraseRubberFigure() override;
    void ClearDrawing() override;
    void SetSurfacePointer(SurfacePointer pointer) override;
    void SetLabel(DrawingLabel label, const QString& text) override;
    void BeginPaintingAll() override;
    void EndPaintingAll() override;
    void EnableFigureCommands(bool enable) override;
    void ShowTool() override;
    void RemoveLastArea() override;
    void ReportFullStore(FullStoreText text) override;
    void LinkNewFigure(QStringView prompt) override;

    void PictureDisplay_MouseDown(int button, float x, float y);
    void PictureDisplay_MouseMove(float x, float y);
    void PictureDisplay_MouseUp(int button, float x, float y);
    void PicNosac_Resize();
    void PicNosac_Wheel(QPoint angle);
    void HScroll1_Change(int value);
    [[nodiscard]] bool HScroll1_KeyDown(const QKeyEvent& key);
    void VScroll1_Change(int value);

    void CreateStatusBar();
    void CreateCommands();
    void CreateKeys();
    void CreateList();
    void KeepRoomForNumbers();
    void FitColumns();
    void FitMessageColumn();
    void ConnectPicture();
    void ShowPicture(const QString& path);
    void UpdateScrollBars();
    void EnablePictureCommands(bool enable);
    void EnableButtons(std::initializer_list<int> positions, bool enable);
    void EnableEntries(std::initializer_list<const char*> names, bool enable);
    void ShowStatus(QStringView text);
    void ShowHint();
    [[nodiscard]] bool DiscardMap();
    [[nodiscard]] AreaRow RowAt(int index) const;
    void EditArea(const QString& hint);
    /** For a new area, or for rewriting `replaced`. */
    void OpenLinkDialog(const AreaRow* replaced = nullptr);
    void CloseDialogs(bool mayDelete);
    [[nodiscard]] bool QueryUnload();

    ImgMap& imgMap_;
    DocumentSink& document_;
    HelpViewer& help_;
    std::unique_ptr<Ui::frmImageMap> ui_;
    DrawingProtocol protocol_;
    std::array<QLabel*, drawingLabels.size()> labels_ = {};
    AreaHeader* header_ = nullptr;
    ElidedLabel* panel1_ = nullptr;
    ElidedLabel* panel2_ = nullptr;
    ElidedLabel* panel3_ = nullptr;
    QShortcut* escape_ = nullptr;
    QPoint wheelRest_; ///< what the wheel turned beyond whole pixels, in pixels and parts of a notch
    QPointer<frmIMLink> linkDialog_;
    QPointer<frmJSOptions> jsOptions_;
    bool isMessagePending_ = false; ///< a dialog that the mouse asked for is about to open
};
