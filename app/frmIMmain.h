#pragma once

#include "shared/DocumentSink.h"
#include "shared/ImgMap.h"

#include <QMainWindow>
#include <QPointer>
#include <memory>
#include <optional>

namespace Ui {
class frmIMmain;
}
class QKeyEvent;
class QLabel;
class frmImageMap;

/**
 * The main window: the HTML source editor with tags and saved links beside it. It owns the document, whose
 * name is the text of the status bar's third panel.
 */
class frmIMmain : public QMainWindow, public DocumentSink
{
    Q_OBJECT

public:
    explicit frmIMmain(ImgMap& imgMap);
    ~frmIMmain() override;

    /** Prepares the window for its first showing; tells when the saved links cannot be read. */
    void Form_Load();

    void NewDocument();
    void OpenDocument();
    void SaveDocument();
    void SaveDocumentAs();
    void OpenImageMapEditor();
    void ExitProgram();

    void InsertAtCaret(const QString& text) override;

    [[nodiscard]] bool DocumentChanged() const { return documentChanged_; }

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void MapsText1_Change();
    void Form_Resize();
    void Form_Unload();
    [[nodiscard]] bool QueryUnload();

    void CreateCommands();
    void CreateStatusBar();
    void PlaceToolbar();
    void LoadSavedLinks();
    void FollowCapsLock(const QKeyEvent& key);

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

    ImgMap& imgMap_;
    std::unique_ptr<Ui::frmIMmain> ui_;
    QLabel* panel1_ = nullptr;
    QLabel* panel2_ = nullptr;
    QLabel* panel3_ = nullptr;
    QPointer<frmImageMap> imageMapEditor_;
    bool documentChanged_ = false;
};
