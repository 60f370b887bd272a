#pragma once

#include "help/HelpBook.h"

#include <QMainWindow>
#include <memory>

namespace Ui {
class HelpWindow;
}
class QAction;
class QLineEdit;
class QListWidgetItem;
class QTreeWidget;
class QTreeWidgetItem;

/**
 * Shows an open help book: contents, keyword index and search on the left, the page on the right. Closing it
 * hides it.
 */
class HelpWindow : public QMainWindow
{
    Q_OBJECT

public:
    /** `book` must be open and live longer than the window. */
    explicit HelpWindow(const HelpBook& book, QWidget* owner = nullptr);
    ~HelpWindow() override;

    /** Shows the contents and the first page. */
    void ShowContents();

    /** Shows the index, its field ready to take a part of a keyword. */
    void ShowIndex();

    /** Shows the page named `topic`, or the first one where the book has no such page. */
    void ShowTopic(QStringView topic);

Q_SIGNALS:
    /** The user follows a link that leads out of the book. */
    void LinkToOutside(const QUrl& url);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void FillContents();
    void FillIndex();
    void CreateToolbar();
    QAction* AddCommand(const char* name, const char* tip, const char* icon, const QList<QKeySequence>& keys);
    void CreateKeys();
    void ConnectLists();

    void Present();
    void GoToTab();
    void OpenPage(const QString& name);
    void OpenLink(const QUrl& link);
    void PageOpened(const QUrl& url);
    void txtKeyword_Change();
    void OpenKeyword(const QTreeWidgetItem* item);
    void txtWords_Change();
    void OpenResult(const QListWidgetItem* item);
    void FindInPage(bool isBackward);
    [[nodiscard]] bool MoveInList(QObject* field, int key);

    const HelpBook& book_;
    std::unique_ptr<Ui::HelpWindow> ui_;
    QAction* back_ = nullptr;
    QAction* forward_ = nullptr;
    QLineEdit* txtFind_ = nullptr;
    QHash<QString, QTreeWidgetItem*> contentsItems_; ///< by page name
};
