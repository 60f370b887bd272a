#pragma once

#include <QObject>

class Desktop;
class DocumentCommands;
class DocumentFile;
class QWidget;
class SourceEditor;
struct ShellRequest;

/** The main window's ways to other programs: preview, printing, home page, and About. */
class OutsideCommands : public QObject
{
    Q_OBJECT

public:
    OutsideCommands(
        QWidget* window, Desktop& desktop, DocumentCommands& documents, const DocumentFile& file,
        const SourceEditor& editor);

    void PrintDocument();
    void PreviewDocument();
    void OpenAddress(const QString& address);
    void OpenHomePage();
    void ShowAbout();

private:
    void ShellRun(const QString& verb, const QString& target);
    void Launch(const ShellRequest& request, int missingFolder);
    void ShowShellError(int code);
    void ShowOwnAboutBox(const QString& text);

    QWidget* window_;
    Desktop& desktop_;
    DocumentCommands& documents_;
    const DocumentFile& file_;
    const SourceEditor& editor_;
};
