// The main window's tag tree: what it shows, previews and inserts.

#include "app/LookStyle.h"
#include "app/frmIMmain.h"
#include "taglib/TagCatalogue.h"
#include "ui_frmIMmain.h"

#include <QKeyEvent>
#include <QStyleFactory>
#include <QStyleOption>
#include <array>

namespace {

/** Which node an entry of the tree is, and its key. */
constexpr int indexRole = Qt::UserRole;
constexpr int keyRole = Qt::UserRole + 1;

/** The style of the program with the lines of a tree and boxes to open and close. */
class TreeStyle : public LookStyle
{
public:
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override
    {
        if (element != PE_IndicatorBranch) {
            LookStyle::drawPrimitive(element, option, painter, widget);
            return;
        }
        // It draws them in a shade that is meant for light windows.
        QStyleOption lines(*option);
        lines.palette.setColor(QPalette::Dark, option->palette.color(QPalette::PlaceholderText));
        lines_->drawPrimitive(element, &lines, painter, widget);
    }

    [[nodiscard]] int styleHint(
        StyleHint hint, const QStyleOption* option, const QWidget* widget,
        QStyleHintReturn* data) const override
    {
        // The lines stay as they are in the selected row.
        return hint == SH_ItemView_ShowDecorationSelected ? 0
                                                          : LookStyle::styleHint(hint, option, widget, data);
    }

private:
    /** The one style of Qt's own that draws them. */
    std::unique_ptr<QStyle> lines_{ QStyleFactory::create(QStringLiteral("Windows")) };
};

QString TextOf(std::string_view text)
{
    return QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
}

} // namespace

void frmIMmain::BuildTagTree()
{
    // Under which entry those of each level come.
    QTreeWidgetItem* const top = ui_->TreeView1->invisibleRootItem();
    std::array<QTreeWidgetItem*, 3> parents = { top, top, top };
    int index = 0;
    for (const TagNode& node : TagNodes()) {
        auto* const entry = new QTreeWidgetItem({ TextOf(node.Caption) });
        entry->setData(0, indexRole, ++index);
        entry->setData(0, keyRole, TextOf(node.Key));
        const auto level = static_cast<std::size_t>(node.Level);
        parents[level]->addChild(entry);
        if (node.Level != TagLevel::Item) {
            parents[level + 1] = entry;
        }
    }
    top->child(0)->setExpanded(true);
    auto* const withLines = new TreeStyle;
    withLines->setParent(ui_->TreeView1);
    ui_->TreeView1->setStyle(withLines);
}

int frmIMmain::SelectedNode() const
{
    const QList<QTreeWidgetItem*> selected = ui_->TreeView1->selectedItems();
    return selected.isEmpty() ? 0 : selected.constFirst()->data(0, indexRole).toInt();
}

void frmIMmain::ShowPreview(int node)
{
    if (const std::optional<TagPreview> preview = PreviewOf(node)) {
        ui_->lblQTagsO->setText(TextOf(preview->Opening));
        ui_->lblQTagsC->setText(TextOf(preview->Closing));
    }
}

void frmIMmain::TreeView1_NodeClick(const QTreeWidgetItem* node)
{
    if (node != nullptr) {
        ShowPreview(node->data(0, indexRole).toInt());
    }
}

void frmIMmain::TreeView1_MouseUp()
{
    if (IsPreviewCleared(SelectedNode())) {
        ui_->lblQTagsO->clear();
        ui_->lblQTagsC->clear();
    }
}

void frmIMmain::TreeView1_DblClick()
{
    SourceEditor& editor = *ui_->MapsText1;
    const qsizetype start = editor.SelStart();
    const TagNode* const tag = TagItem(SelectedNode());
    if (tag == nullptr) {
        return;
    }
    const SourceEditor::UndoStep step(editor);
    // It goes to the clipboard, since users count on what is there afterwards, but does not come from there:
    // another program may have taken it over.
    const QString selected = editor.SelText();
    CutText();
    editor.ReplaceSelection(TextOf(tag->Before));
    editor.ReplaceSelection(selected);
    editor.ReplaceSelection(TextOf(tag->After));
    if (tag->Caret != caretAtEnd) {
        editor.Select(start + tag->Caret, 0);
        editor.setFocus();
    }
}

/** Enter does what a double click does; true when `key` was that. */
bool frmIMmain::TreeView1_KeyDown(const QKeyEvent& key)
{
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) {
        return false;
    }
    QTreeWidgetItem* const node = ui_->TreeView1->currentItem();
    if (SelectedNode() == 0 && node != nullptr) {
        // A click beside all nodes selects none, but this one and its preview are still shown.
        node->setSelected(true);
    }
    if (node != nullptr && node->childCount() > 0) {
        node->setExpanded(!node->isExpanded());
    } else {
        TreeView1_DblClick();
    }
    return true;
}
