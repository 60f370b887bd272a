#pragma once

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <span>

// Menus and toolbars as tables. Only windows include this; the library beside it needs no widgets.

enum class MenuRowKind { Menu, Submenu, EndSubmenu, Entry, CheckedEntry, Separator };

/** One line of a menu bar; without a procedure the entry is disabled. */
template<class Window> struct MenuRow
{
    MenuRowKind kind;
    const char* name = "";
    const char* caption = "";
    const char* shortcut = "";
    void (Window::*run)() = nullptr;
};

/** One button of a toolbar; positions count from 1, those that no row names are separators. */
template<class Window> struct ToolbarRow
{
    int position;
    const char* tip;
    const char* icon; ///< file name under :/icons, without its ending
    void (Window::*run)() = nullptr;
};

/** Whether `rows` stand in ascending order within a toolbar of `count` positions. */
template<class Rows> constexpr bool IsToolbarInOrder(const Rows& rows, int count)
{
    int last = 0;
    for (const auto& row : rows) {
        if (row.position <= last) {
            return false;
        }
        last = row.position;
    }
    return last == count;
}

template<class Window> QAction* NewMenuEntry(Window* window, QMenu* menu, const MenuRow<Window>& row)
{
    QAction* const entry = menu->addAction(QString::fromLatin1(row.caption));
    entry->setObjectName(QString::fromLatin1(row.name));
    entry->setShortcut(
        QKeySequence::fromString(QString::fromLatin1(row.shortcut), QKeySequence::PortableText));
    entry->setCheckable(row.kind == MenuRowKind::CheckedEntry);
    entry->setMenuRole(QAction::NoRole);
    entry->setEnabled(row.run != nullptr);
    if (row.run != nullptr) {
        QObject::connect(entry, &QAction::triggered, window, row.run);
    }
    return entry;
}

/** Adds the menus of `rows` to `bar`; menus and entries carry their names. */
template<class Window> void FillMenuBar(QMenuBar* bar, Window* window, std::span<const MenuRow<Window>> rows)
{
    QMenu* menu = nullptr;
    QMenu* outer = nullptr;
    for (const MenuRow<Window>& row : rows) {
        const QString name = QString::fromLatin1(row.name);
        const QString caption = QString::fromLatin1(row.caption);
        switch (row.kind) {
        case MenuRowKind::Menu:
        case MenuRowKind::Submenu:
            outer = row.kind == MenuRowKind::Submenu ? menu : nullptr;
            menu = outer != nullptr ? outer->addMenu(caption) : bar->addMenu(caption);
            menu->setObjectName(name);
            menu->menuAction()->setObjectName(name);
            break;
        case MenuRowKind::EndSubmenu:
            menu = outer;
            break;
        case MenuRowKind::Separator:
            menu->addSeparator()->setObjectName(name);
            break;
        case MenuRowKind::Entry:
        case MenuRowKind::CheckedEntry:
            NewMenuEntry(window, menu, row);
            break;
        }
    }
}

/** Fills `toolbar` with the buttons of `rows`, one action a position, separators included. */
template<class Window>
void FillToolbar(QToolBar* toolbar, Window* window, std::span<const ToolbarRow<Window>> rows)
{
    int position = 0;
    for (const ToolbarRow<Window>& row : rows) {
        while (++position < row.position) {
            toolbar->addSeparator()->setObjectName(
                QStringLiteral("%1_%2").arg(toolbar->objectName()).arg(position));
        }
        const QString tip = QString::fromLatin1(row.tip);
        QAction* const action = toolbar->addAction(
            QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(row.icon))), tip.trimmed());
        action->setObjectName(QStringLiteral("%1_%2").arg(toolbar->objectName()).arg(position));
        action->setToolTip(tip);
        action->setEnabled(row.run != nullptr);
        if (row.run != nullptr) {
            QObject::connect(action, &QAction::triggered, window, row.run);
        }
        toolbar->widgetForAction(action)->setAccessibleName(tip.trimmed());
    }
    // Qt's own button for what does not fit has no name.
    if (auto* const more = toolbar->findChild<QToolButton*>(QStringLiteral("qt_toolbar_ext_button"))) {
        more->setAccessibleName(QStringLiteral("More buttons"));
    }
    // A new toolbar looks raised; ToggleFlatLook() changes that.
    for (QToolButton* const button : toolbar->findChildren<QToolButton*>()) {
        button->setAutoRaise(false);
    }
}

/** Turns a raised toolbar flat and a flat one raised. */
inline void ToggleFlatLook(QToolBar* toolbar)
{
    for (QToolButton* const button : toolbar->findChildren<QToolButton*>()) {
        button->setAutoRaise(!button->autoRaise());
    }
}

/** The entry of the menu bar of `window` whose key was pressed; null when there is none. */
inline QAction* EntryOfKey(const QWidget* window, const QKeyEvent& key)
{
    const QKeySequence pressed(key.keyCombination());
    // Not the window's own children, among which are the windows that it owns, with entries of theirs.
    const auto* const bar = window->findChild<QMenuBar*>(QString(), Qt::FindDirectChildrenOnly);
    const QList<QAction*> actions = bar != nullptr ? bar->findChildren<QAction*>() : QList<QAction*>();
    const auto entry = std::find_if(actions.begin(), actions.end(), [&pressed](const QAction* action) {
        return !pressed.isEmpty() && action->shortcut() == pressed;
    });
    return entry != actions.end() ? *entry : nullptr;
}

/** The action at `position` of `toolbar`, counted from 1. */
inline QAction* ToolbarButton(const QToolBar* toolbar, int position)
{
    return toolbar->actions().at(position - 1);
}
