#pragma once

#include "app/EditedPage.h"
#include "app/rules/DocumentFile.h"
#include "shared/ImgMap.h"
#include "widgets/CommandTable.h"

#include <QMainWindow>
#include <QPointer>
#include <memory>

namespace Ui {
class frmIMmain;
}
class Desktop;
class DocumentCommands;
class EditCommands;
class EncodingCommands;
class FindBar;
class HelpDisplay;
class LinksList;
class MapDocument;
class MessageBar;
class OutsideCommands;
class PageCommands;
class PageMapCommands;
class QUrl;
class RecentFiles;
class RecoveryKeeper;
class TagTree;
class ViewCommands;
class frmImageMap;
class frmMapOptions;
enum class ViewChoice;

/**
 * The main window: the HTML source editor with tags and saved links beside it. It owns the document, whose
 * name the status bar's third panel shows. What its commands do is done by its parts.
 */
class frmIMmain : public QMainWindow
{
    Q_OBJECT

public:
    using Command = CommandRow<frmIMmain, NoNeed, ViewChoice>;

    frmIMmain(ImgMap& imgMap, MapDocument& map, Desktop& desktop);
    ~frmIMmain() override;

    /** Prepares the window for its first showing; tells when the saved links cannot be read. */
    void Form_Load();

    void OpenImageMapEditor();
    void OpenPicture(const QString& path);

    /** Opens a page and a picture of `paths`, and comes to the front. */
    void OpenFiles(const QStringList& paths);

    void mnuTPref_Click();
    void ShowHelpContents();
    void ShowHelpSearch();
    void ExitProgram();

    [[nodiscard]] const DocumentFile& File() const { return file_; }
    [[nodiscard]] PageDocument& Page() { return *page_; }
    [[nodiscard]] SourceEditor& Source();
    [[nodiscard]] DocumentCommands& Documents();
    [[nodiscard]] EditCommands& Edits();
    [[nodiscard]] OutsideCommands& Outside();
    [[nodiscard]] PageCommands& Pages();
    [[nodiscard]] PageMapCommands& Maps();
    [[nodiscard]] RecentFiles& Recent();
    [[nodiscard]] ViewCommands& Views();
    [[nodiscard]] FindBar& Find();

    /** Asks whether changes are to be saved; false when the user wants to go on with the document. */
    [[nodiscard]] bool QueryUnload();

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Help_LinkToOutside(const QUrl& url);
    void Form_Resize();
    void Form_Unload();

    void CreateParts();
    void KeepLeastSize();
    void ConnectControls();
    template<class Window, class Make> void ShowOnce(QPointer<Window>& window, Make make);

    ImgMap& imgMap_;
    MapDocument& map_;
    Desktop& desktop_;
    DocumentFile file_;
    std::unique_ptr<Ui::frmIMmain> ui_;
    std::unique_ptr<DocumentCommands> documents_;
    std::unique_ptr<EditCommands> edits_;
    std::unique_ptr<EditedPage> page_;
    std::unique_ptr<ViewCommands> views_;
    PageCommands* pages_ = nullptr;
    PageMapCommands* maps_ = nullptr;
    MessageBar* messages_ = nullptr;
    EncodingCommands* encodings_ = nullptr;
    RecentFiles* recent_ = nullptr;
    RecoveryKeeper* recovery_ = nullptr;
    FindBar* find_ = nullptr; ///< once it was wanted
    OutsideCommands* outside_ = nullptr;
    TagTree* tags_ = nullptr;
    LinksList* links_ = nullptr;
    CommandSet<Command> commands_;
    std::unique_ptr<HelpDisplay> help_;
    QPointer<frmImageMap> imageMapEditor_;
    QPointer<frmMapOptions> options_;
};
