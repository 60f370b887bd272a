#include "app/TagTree.h"

#include "app/EditorClipboard.h"
#include "app/LookStyle.h"
#include "app/SourceEditor.h"
#include "taglib/TagCatalogue.h"

#include <QDrag>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTreeWidget>
#include <array>
#include <memory>

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

/** Only the editor knows what to do with a tag that is dragged. */
constexpr const char* tagMimeType = "application/x-cartolen-tag";
constexpr QSize dragIconSize(32, 32);
constexpr QPoint besidePointer(-20, -8);

QPixmap DragIcon(const char* name, const QWidget& widget)
{
    return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(name)))
        .pixmap(dragIconSize, widget.devicePixelRatioF());
}

/** What is dragged, to be seen beside the pointer. */
QPixmap TagPicture(const QLabel& label)
{
    const QRect text = label.fontMetrics().boundingRect(label.text()).adjusted(-4, -2, 4, 2);
    QPixmap picture(text.size() * label.devicePixelRatioF());
    picture.setDevicePixelRatio(label.devicePixelRatioF());
    picture.fill(label.palette().color(QPalette::ToolTipBase));
    QPainter painter(&picture);
    painter.setFont(label.font());
    painter.setPen(label.palette().color(QPalette::ToolTipText));
    painter.drawText(QRect(QPoint(), text.size()), Qt::AlignCenter | Qt::TextSingleLine, label.text());
    return picture;
}

} // namespace

TagTree::TagTree(QTreeWidget* tree, QLabel* opening, QLabel* closing, SourceEditor& editor)
    : QObject(tree)
    , tree_(tree)
    , opening_(opening)
    , closing_(closing)
    , editor_(editor)
{
    connect(tree_, &QTreeWidget::currentItemChanged, this, &TagTree::TreeView1_NodeClick);
    connect(tree_, &QTreeWidget::itemClicked, this, &TagTree::TreeView1_NodeClick);
    connect(tree_, &QTreeWidget::itemDoubleClicked, this, &TagTree::TreeView1_DblClick);
    for (QObject* const watched :
         std::initializer_list<QObject*>{ tree_, tree_->viewport(), opening_, closing_ }) {
        watched->installEventFilter(this);
    }
}

bool TagTree::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
        return watched == tree_ && TreeView1_KeyDown(*static_cast<QKeyEvent*>(event));
    case QEvent::MouseButtonDblClick:
        // The tree would tell that of another button as a double click like any other.
        return watched == tree_->viewport() && static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton;
    case QEvent::MouseButtonPress:
        if (watched == opening_ || watched == closing_) {
            lblQTags_MouseDown(static_cast<QLabel*>(watched));
            return true;
        }
        return false;
    case QEvent::MouseButtonRelease:
        if (watched == tree_->viewport()) {
            TreeView1_MouseUp();
        }
        return false;
    default:
        return false;
    }
}

void TagTree::Build()
{
    // Under which entry those of each level come.
    QTreeWidgetItem* const top = tree_->invisibleRootItem();
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
    withLines->setParent(tree_);
    tree_->setStyle(withLines);
}

int TagTree::SelectedNode() const
{
    const QList<QTreeWidgetItem*> selected = tree_->selectedItems();
    return selected.isEmpty() ? 0 : selected.constFirst()->data(0, indexRole).toInt();
}

void TagTree::ShowPreview(int node)
{
    if (const std::optional<TagPreview> preview = PreviewOf(node)) {
        opening_->setText(TextOf(preview->Opening));
        closing_->setText(TextOf(preview->Closing));
    }
}

void TagTree::TreeView1_NodeClick(const QTreeWidgetItem* node)
{
    if (node != nullptr) {
        ShowPreview(node->data(0, indexRole).toInt());
    }
}

void TagTree::TreeView1_MouseUp()
{
    if (IsPreviewCleared(SelectedNode())) {
        opening_->clear();
        closing_->clear();
    }
}

void TagTree::TreeView1_DblClick()
{
    const qsizetype start = editor_.SelStart();
    const TagNode* const tag = TagItem(SelectedNode());
    if (tag == nullptr) {
        return;
    }
    const SourceEditor::UndoStep step(editor_);
    // It goes to the clipboard, since users count on what is there afterwards, but does not come from there:
    // another program may have taken it over.
    const QString selected = editor_.SelText();
    CutText(editor_);
    editor_.ReplaceSelection(TextOf(tag->Before));
    editor_.ReplaceSelection(selected);
    editor_.ReplaceSelection(TextOf(tag->After));
    if (tag->Caret != caretAtEnd) {
        editor_.Select(start + tag->Caret, 0);
        editor_.setFocus();
    }
}

/** Enter does what a double click does; true when `key` was that. */
bool TagTree::TreeView1_KeyDown(const QKeyEvent& key)
{
    if (key.key() != Qt::Key_Return && key.key() != Qt::Key_Enter) {
        return false;
    }
    QTreeWidgetItem* const node = tree_->currentItem();
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

void TagTree::lblQTags_MouseDown(QLabel* label)
{
    if (label->text().isEmpty()) {
        return;
    }
    auto* const tag = new QMimeData;
    tag->setData(QString::fromLatin1(tagMimeType), label->text().toUtf8());
    auto* const drag = new QDrag(label);
    drag->setMimeData(tag);
    drag->setPixmap(TagPicture(*label));
    drag->setHotSpot(besidePointer);
    drag->setDragCursor(DragIcon("drag-tag", *label), Qt::IgnoreAction);
    drag->setDragCursor(DragIcon("drag-over", *label), Qt::CopyAction);
    drag->exec(Qt::CopyAction);
}
