#pragma once

#include "shared/ImgMap.h"

#include <functional>

class DocumentFile;
class QWidget;
class SourceEditor;

/** The commands that read and write the document, and the question before its changes are lost. */
class DocumentCommands
{
public:
    DocumentCommands(QWidget* window, ImgMap& imgMap, SourceEditor& editor, DocumentFile& file);

    void NewDocument();
    /** Begins a page for today's browsers, in UTF-8. */
    void mnuPNewPage_Click();
    void OpenDocument();
    /** Opens the file `path`, which was named otherwise than in a dialog. */
    void OpenNamed(const QString& path);
    void SaveDocument();
    void SaveDocumentAs();

    /** Becomes a new document without asking. */
    void ClearDocument();

    /** The text as it is to be written. */
    [[nodiscard]] QString TextToWrite() const;

    /** Makes `text` that of the document, whose encoding is known already. */
    void ShowText(const QString& text);

    /** Asks whether changes are to be saved; false when the user wants to go on with the document. */
    [[nodiscard]] bool QueryUnload();

    /** Writes a copy of the document for another program; returns its path, also when that failed. */
    [[nodiscard]] QString WriteTemporaryCopy(const QString& ending);

private:
    void ReadDocument(const QString& path);
    void PromptSaveChanges();
    [[nodiscard]] bool MayDiscardChanges();
    [[nodiscard]] bool IsWritten(const std::function<std::optional<QString>()>& write);
    void WriteDocument(const QString& path);
    [[nodiscard]] std::optional<QString> AskForSavePath();
    [[nodiscard]] std::optional<QString> AskForOpenPath();

    QWidget* window_;
    ImgMap& imgMap_;
    SourceEditor& editor_;
    DocumentFile& file_;
};
