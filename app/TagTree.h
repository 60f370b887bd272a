#pragma once

#include <QObject>

class QKeyEvent;
class QLabel;
class QTreeWidget;
class QTreeWidgetItem;
class SourceEditor;

/** The tree of HTML tags and the preview below it: what they show, what they put into the editor. */
class TagTree : public QObject
{
    Q_OBJECT

public:
    /** `opening` and `closing` show the selected tag; `editor` must outlive the tree. */
    TagTree(QTreeWidget* tree, QLabel* opening, QLabel* closing, SourceEditor& editor);

    /** Fills the tree. */
    void Build();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void TreeView1_NodeClick(const QTreeWidgetItem* node);
    void TreeView1_MouseUp();
    void TreeView1_DblClick();
    [[nodiscard]] bool TreeView1_KeyDown(const QKeyEvent& key);
    void lblQTags_MouseDown(QLabel* label);

    [[nodiscard]] int SelectedNode() const;
    void ShowPreview(int node);

    QTreeWidget* tree_;
    QLabel* opening_;
    QLabel* closing_;
    SourceEditor& editor_;
};
