#include "help/HelpWindow.h"

#include "ui_HelpWindow.h"
#include "widgets/OneLineField.h"

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QShortcut>
#include <QTabBar>
#include <QToolBar>
#include <array>

/** The icons lie in a static library, from which nothing else would fetch them. */
static void LoadHelpIcons()
{
    Q_INIT_RESOURCE(help_icons);
}

namespace {

/** Where an item of a tree or list keeps the name of the page that it opens. */
constexpr int pageRole = Qt::UserRole;

/** How much of the window the left side takes at first. */
constexpr int leftWidth = 280;
constexpr int rightWidth = 770;
constexpr int findFieldCharacters = 24;

QIcon HelpIcon(const char* name)
{
    return QIcon(QStringLiteral(":/help-icons/%1.svg").arg(QString::fromLatin1(name)));
}

QTreeWidgetItem* NewPageItem(const HelpBook& book, const QString& page)
{
    auto* const item = new QTreeWidgetItem({ book.TitleOf(page) });
    item->setData(0, pageRole, page);
    return item;
}

} // namespace

HelpWindow::HelpWindow(const HelpBook& book, QWidget* owner)
    : QMainWindow(owner, Qt::Window)
    , book_(book)
    , ui_(std::make_unique<Ui::HelpWindow>())
{
    LoadHelpIcons();
    ui_->setupUi(this);
    ui_->Splitter1->setStretchFactor(1, 1);
    ui_->Splitter1->setSizes({ leftWidth, rightWidth });
    FillContents();
    FillIndex();
    CreateToolbar();
    HoldOneLine(this);
    CreateKeys();
    ConnectLists();
    txtWords_Change();
}

HelpWindow::~HelpWindow() = default;

void HelpWindow::FillContents()
{
    for (const HelpChapter& chapter : book_.Chapters()) {
        auto* const top = new QTreeWidgetItem(ui_->treContents, { chapter.title });
        top->setIcon(0, HelpIcon("chapter"));
        for (const QString& page : chapter.pages) {
            QTreeWidgetItem* const item = NewPageItem(book_, page);
            item->setIcon(0, HelpIcon("page"));
            top->addChild(item);
            contentsItems_.insert(page, item);
        }
    }
    ui_->treContents->expandAll();
}

void HelpWindow::FillIndex()
{
    for (const HelpKeyword& keyword : book_.Keywords()) {
        auto* const top = new QTreeWidgetItem(ui_->treKeywords, { keyword.text });
        top->setData(0, pageRole, keyword.pages.constFirst());
        if (keyword.pages.size() > 1) {
            for (const QString& page : keyword.pages) {
                top->addChild(NewPageItem(book_, page));
            }
        }
    }
    ui_->treKeywords->expandAll();
    ui_->treKeywords->setItemsExpandable(false);
    ui_->treKeywords->setCurrentItem(ui_->treKeywords->topLevelItem(0));
}

void HelpWindow::CreateToolbar()
{
    PageView* const page = ui_->PageView1;
    back_ = AddCommand(
        "Back", "Back", "back", { QKeySequence(Qt::ALT | Qt::Key_Left), QKeySequence(Qt::Key_Back) });
    forward_ = AddCommand(
        "Forward", "Forward", "forward",
        { QKeySequence(Qt::ALT | Qt::Key_Right), QKeySequence(Qt::Key_Forward) });
    QAction* const home = AddCommand("Home", "First page", "home", { QKeySequence(Qt::ALT | Qt::Key_Home) });
    connect(back_, &QAction::triggered, page, &QTextBrowser::backward);
    connect(forward_, &QAction::triggered, page, &QTextBrowser::forward);
    connect(home, &QAction::triggered, this, [this] { OpenPage(book_.FirstPage()); });
    connect(page, &QTextBrowser::backwardAvailable, back_, &QAction::setEnabled);
    connect(page, &QTextBrowser::forwardAvailable, forward_, &QAction::setEnabled);
    back_->setEnabled(false);
    forward_->setEnabled(false);

    auto* const gap = new QWidget(ui_->Toolbar1);
    gap->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    ui_->Toolbar1->addWidget(gap);
    txtFind_ = new QLineEdit(ui_->Toolbar1);
    txtFind_->setObjectName(QStringLiteral("txtFind"));
    txtFind_->setAccessibleName(QStringLiteral("Words to find in this page"));
    txtFind_->setPlaceholderText(QStringLiteral("Find in this page (Ctrl+F)"));
    txtFind_->setClearButtonEnabled(true);
    txtFind_->setMaximumWidth(findFieldCharacters * fontMetrics().averageCharWidth() * 2);
    ui_->Toolbar1->addWidget(txtFind_);
    QAction* const find = AddCommand("Find", "Find next", "find", { QKeySequence(Qt::Key_F3) });
    connect(find, &QAction::triggered, this, [this] { FindInPage(false); });
}

QAction*
HelpWindow::AddCommand(const char* name, const char* tip, const char* icon, const QList<QKeySequence>& keys)
{
    const QString text = QString::fromLatin1(tip);
    QAction* const action = ui_->Toolbar1->addAction(HelpIcon(icon), text);
    action->setObjectName(u"Toolbar1_" + QString::fromLatin1(name));
    action->setShortcuts(keys);
    action->setToolTip(
        QStringLiteral("%1 (%2)").arg(text, keys.constFirst().toString(QKeySequence::NativeText)));
    QWidget* const button = ui_->Toolbar1->widgetForAction(action);
    button->setAccessibleName(text);
    button->setFocusPolicy(Qt::TabFocus);
    return action;
}

void HelpWindow::CreateKeys()
{
    const auto add = [this](const QKeySequence& keys, auto act) {
        connect(new QShortcut(keys, this), &QShortcut::activated, this, act);
    };
    add(QKeySequence(Qt::Key_Escape), [this] { close(); });
    add(QKeySequence(Qt::CTRL | Qt::Key_F), [this] {
        txtFind_->setFocus(Qt::ShortcutFocusReason);
        txtFind_->selectAll();
    });
    add(QKeySequence(Qt::SHIFT | Qt::Key_F3), [this] { FindInPage(true); });
    add(QKeySequence(Qt::Key_F6), [this] {
        if (ui_->PageView1->hasFocus()) {
            GoToTab();
        } else {
            ui_->PageView1->setFocus(Qt::ShortcutFocusReason);
        }
    });
    add(QKeySequence(Qt::CTRL | Qt::Key_Plus), [this] { ui_->PageView1->Zoom(1); });
    // The key where plus needs Shift.
    add(QKeySequence(Qt::CTRL | Qt::Key_Equal), [this] { ui_->PageView1->Zoom(1); });
    add(QKeySequence(Qt::CTRL | Qt::Key_Minus), [this] { ui_->PageView1->Zoom(-1); });
    add(QKeySequence(Qt::CTRL | Qt::Key_0), [this] { ui_->PageView1->ResetZoom(); });
}

void HelpWindow::ConnectLists()
{
    const auto openContents = [this](const QTreeWidgetItem* item) {
        OpenPage(item->data(0, pageRole).toString());
    };
    connect(ui_->treContents, &QTreeWidget::itemClicked, this, openContents);
    connect(ui_->treContents, &QTreeWidget::itemActivated, this, openContents);
    connect(ui_->treKeywords, &QTreeWidget::itemActivated, this, &HelpWindow::OpenKeyword);
    connect(ui_->lstResults, &QListWidget::itemClicked, this, &HelpWindow::OpenResult);
    connect(ui_->lstResults, &QListWidget::itemActivated, this, &HelpWindow::OpenResult);
    connect(ui_->txtKeyword, &QLineEdit::textChanged, this, &HelpWindow::txtKeyword_Change);
    connect(ui_->txtKeyword, &QLineEdit::returnPressed, this, [this] {
        OpenKeyword(ui_->treKeywords->currentItem());
    });
    connect(ui_->txtWords, &QLineEdit::textChanged, this, &HelpWindow::txtWords_Change);
    connect(ui_->txtWords, &QLineEdit::returnPressed, this, [this] {
        OpenResult(ui_->lstResults->currentItem());
    });
    connect(txtFind_, &QLineEdit::returnPressed, this, [this] { FindInPage(false); });
    connect(ui_->PageView1, &QTextBrowser::anchorClicked, this, &HelpWindow::OpenLink);
    connect(ui_->PageView1, &QTextBrowser::sourceChanged, this, &HelpWindow::PageOpened);
    connect(ui_->HelpTabs, &QTabWidget::currentChanged, this, [this] {
        // Who walks through the tabs with the arrow keys stays there.
        if (!ui_->HelpTabs->tabBar()->hasFocus()) {
            GoToTab();
        }
    });
    ui_->txtKeyword->installEventFilter(this);
    ui_->txtWords->installEventFilter(this);
}

/** Takes the user to where the open tab begins. */
void HelpWindow::GoToTab()
{
    const std::array<QWidget*, 3> first = { ui_->treContents, ui_->txtKeyword, ui_->txtWords };
    first[static_cast<std::size_t>(ui_->HelpTabs->currentIndex())]->setFocus(Qt::ShortcutFocusReason);
}

/** Up and down in a field move in the list below it. */
bool HelpWindow::eventFilter(QObject* watched, QEvent* event)
{
    return (event->type() == QEvent::KeyPress &&
            MoveInList(watched, static_cast<QKeyEvent*>(event)->key())) ||
           QMainWindow::eventFilter(watched, event);
}

bool HelpWindow::MoveInList(QObject* field, int key)
{
    if (key != Qt::Key_Up && key != Qt::Key_Down && key != Qt::Key_PageUp && key != Qt::Key_PageDown) {
        return false;
    }
    QWidget* const list =
        field == ui_->txtKeyword ? static_cast<QWidget*>(ui_->treKeywords) : ui_->lstResults;
    QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
    QCoreApplication::sendEvent(list, &press);
    return true;
}

void HelpWindow::Present()
{
    if (isMinimized()) {
        showNormal();
    }
    show();
    raise();
    activateWindow();
}

void HelpWindow::ShowContents()
{
    Present();
    ui_->HelpTabs->setCurrentWidget(ui_->tabContents);
    OpenPage(book_.FirstPage());
    ui_->treContents->setFocus();
}

void HelpWindow::ShowIndex()
{
    Present();
    if (ui_->PageView1->source().isEmpty()) {
        OpenPage(book_.FirstPage());
    }
    ui_->HelpTabs->setCurrentWidget(ui_->tabIndex);
    ui_->txtKeyword->setFocus();
    ui_->txtKeyword->selectAll();
}

void HelpWindow::ShowTopic(QStringView topic)
{
    Present();
    const QString page = topic.toString();
    OpenPage(book_.HasPage(page) ? page : book_.FirstPage());
    ui_->PageView1->setFocus();
}

void HelpWindow::OpenPage(const QString& name)
{
    if (book_.HasPage(name)) {
        ui_->PageView1->setSource(book_.UrlOf(name));
    }
}

void HelpWindow::OpenLink(const QUrl& link)
{
    const QUrl url = ui_->PageView1->source().resolved(link);
    if (!book_.PageAt(url).isEmpty()) {
        ui_->PageView1->setSource(url);
    } else {
        Q_EMIT LinkToOutside(url);
    }
}

/** Keeps the contents at the page that is shown, however it was opened. */
void HelpWindow::PageOpened(const QUrl& url)
{
    if (QTreeWidgetItem* const item = contentsItems_.value(book_.PageAt(url))) {
        ui_->treContents->setCurrentItem(item);
    }
}

void HelpWindow::txtKeyword_Change()
{
    const QString part = ui_->txtKeyword->text().simplified();
    QTreeWidgetItem* best = nullptr;
    bool isBestAtStart = false;
    for (int i = 0; i < ui_->treKeywords->topLevelItemCount(); ++i) {
        QTreeWidgetItem* const item = ui_->treKeywords->topLevelItem(i);
        const bool isMatch = item->text(0).contains(part, Qt::CaseInsensitive);
        const bool isAtStart = item->text(0).startsWith(part, Qt::CaseInsensitive);
        item->setHidden(!isMatch);
        if (isMatch && (best == nullptr || (isAtStart && !isBestAtStart))) {
            best = item;
            isBestAtStart = isAtStart;
        }
    }
    ui_->treKeywords->setCurrentItem(best);
}

void HelpWindow::OpenKeyword(const QTreeWidgetItem* item)
{
    if (item != nullptr) {
        OpenPage(item->data(0, pageRole).toString());
    }
}

void HelpWindow::txtWords_Change()
{
    const QString words = ui_->txtWords->text();
    const QStringList pages = book_.Search(words);
    ui_->lstResults->clear();
    for (const QString& page : pages) {
        auto* const item = new QListWidgetItem(HelpIcon("page"), book_.TitleOf(page), ui_->lstResults);
        item->setData(pageRole, page);
    }
    ui_->lstResults->setCurrentRow(0);
    const bool isAsked = !words.simplified().isEmpty();
    ui_->lblResults->setText(
        !isAsked            ? QString()
        : pages.isEmpty()   ? QStringLiteral("No page has all these words.")
        : pages.size() == 1 ? QStringLiteral("1 page")
                            : QStringLiteral("%1 pages").arg(pages.size()));
}

/** Opens a page that was searched for and goes to the first of the words on it. */
void HelpWindow::OpenResult(const QListWidgetItem* item)
{
    if (item == nullptr) {
        return;
    }
    OpenPage(item->data(pageRole).toString());
    const QString words = ui_->txtWords->text().simplified();
    ui_->PageView1->moveCursor(QTextCursor::Start);
    if (!ui_->PageView1->FindWords(words, false)) {
        ui_->PageView1->FindWords(words.section(u' ', 0, 0), false);
    }
}

void HelpWindow::FindInPage(bool isBackward)
{
    const QString words = txtFind_->text();
    if (words.isEmpty()) {
        txtFind_->setFocus(Qt::ShortcutFocusReason);
        return;
    }
    const bool isFound = ui_->PageView1->FindWords(words, isBackward);
    txtFind_->setStyleSheet(
        isFound ? QString() : QStringLiteral("QLineEdit { color: white; background-color: #B3261E; }"));
}
