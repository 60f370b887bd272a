#pragma once

#include "shared/DocumentSink.h"
#include "shared/ImgMap.h"
#include "widgets/CommandTable.h"

#include <QMainWindow>
#include <QPointer>
#include <QTextCharFormat>
#include <memory>
#include <optional>

namespace Ui {
class frmIMmain;
}
class Desktop;
class HelpDisplay;
class MapDocument;
class QKeyEvent;
class QLabel;
class QMouseEvent;
class QTreeWidgetItem;
class QUrl;
class frmImageMap;
class frmMapOptions;
struct ShellRequest;

/**
 * The main window: the HTML source editor with tags and saved links beside it. It owns the document, whose
 * name is the text of the status bar's third panel.
 */
class frmIMmain : public QMainWindow, public DocumentSink
{
    Q_OBJECT

public:
    using Command = CommandRow<frmIMmain>;

    frmIMmain(ImgMap& imgMap, MapDocument& map, Desktop& desktop);
    ~frmIMmain() override;

    /** Prepares the window for its first showing; tells when the saved links cannot be read. */
    void Form_Load();

    void NewDocument();
    void OpenDocument();
    void SaveDocument();
    void SaveDocumentAs();
    void PrintDocument();
    void PreviewDocument();
    void UndoEdit();
    void CutText();
    void CopyText();
    void PasteText();
    void mnuEDelete_Click();
    void mnuESelectAll_Click();
    void mnuEFont_Click();
    void mnuEUpperCase_Click();
    void mnuELowerCase_Click();
    void mnuEProperCase_Click();
    void InsertPageSkeleton();
    void OpenImageMapEditor();
    void mnuTPref_Click();
    void OpenHomePage();
    void ShowHelpContents();
    void ShowHelpSearch();
    void ShowAbout();
    void ExitProgram();

    int InsertAtCaret(const QString& text) override;

    [[nodiscard]] bool DocumentChanged() const { return documentChanged_; }

    /** Asks whether changes are to be saved; false when the user wants to go on with the document. */
    [[nodiscard]] bool QueryUnload();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MapsText1_Change();
    void TreeView1_NodeClick(const QTreeWidgetItem* node);
    void TreeView1_MouseUp();
    void TreeView1_DblClick();
    void btnAdd_Click();
    void btnDelete_Click();
    void btnSave_Click();
    void lblQTags_MouseDown(QLabel* label);
    void Picture_MouseUp(const QWidget& picture, const QMouseEvent& event);
    void Help_LinkToOutside(const QUrl& url);
    void Form_Resize();
    void Form_Unload();

    void CreateCommands();
    void CreateStatusBar();
    void PlaceToolbar();
    void ShowLogo();
    void GrowWithText();
    void KeepLeastSize();
    void ConnectControls();
    template<class Window, class Make> void ShowOnce(QPointer<Window>& window, Make make);
    void BuildTagTree();
    void LoadSavedLinks();
    [[nodiscard]] bool IsCommandKey(const QKeyEvent& key) const;
    [[nodiscard]] bool TreeView1_KeyDown(const QKeyEvent& key);
    [[nodiscard]] int SelectedNode() const;
    void ShowPreview(int node);
    [[nodiscard]] QString LinksPath() const;

    [[nodiscard]] QString DocumentName() const;
    [[nodiscard]] bool IsNeverSaved() const;
    void SetDocumentName(const QString& name);
    void ClearDocument();
    void PromptSaveChanges();
    [[nodiscard]] bool MayDiscardChanges();
    [[nodiscard]] bool WriteText(const QString& path);
    void WriteDocument(const QString& path);
    [[nodiscard]] std::optional<QString> AskForSavePath();
    [[nodiscard]] std::optional<QString> AskForOpenPath();

    /** Writes a copy of the document for another program; returns its path, also when that failed. */
    [[nodiscard]] QString WriteTemporaryCopy(const QString& ending);
    void ShellRun(const QString& verb, const QString& target);
    void OpenAddress(const QString& address);
    void Launch(const ShellRequest& request, int missingFolder);
    void ShowShellError(int code);
    void ShowOwnAboutBox(const QString& text);

    ImgMap& imgMap_;
    MapDocument& map_;
    Desktop& desktop_;
    std::unique_ptr<Ui::frmIMmain> ui_;
    CommandSet<Command> commands_;
    QLabel* panel1_ = nullptr;
    QLabel* panel2_ = nullptr;
    QLabel* panel3_ = nullptr;
    std::unique_ptr<HelpDisplay> help_;
    QPointer<frmImageMap> imageMapEditor_;
    QPointer<frmMapOptions> options_;
    std::optional<QTextCharFormat> lastFont_; ///< what the font dialog was accepted with last
    bool documentChanged_ = false;
};
