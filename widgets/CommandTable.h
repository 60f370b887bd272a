#pragma once

#include <QAction>
#include <QIcon>
#include <QKeyEvent>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <optional>
#include <span>

// The commands of a window as a table: one row a command, in the order of its menus.

enum class CommandRowKind { Menu, Submenu, EndSubmenu, Entry, Separator };

/** Where a command stands in the toolbar: positions count from 1, those that no command takes are separators.
 */
struct ToolbarSpot
{
    int position = 0; ///< 0 for a command that is in the menus alone
    const char* tip = "";
    const char* icon = ""; ///< file name under :/icons, without its ending
};

/** For a window whose commands need nothing, or mark no choice. */
enum class NoNeed { Nothing };
enum class NoChoice {};

/** What a command does: a procedure of its window, or one that is called with it. */
template<class Window> class Procedure
{
public:
    constexpr Procedure() = default;
    constexpr Procedure(void (Window::*ofWindow)())
        : ofWindow_(ofWindow)
    {
    }
    constexpr Procedure(void (*withWindow)(Window&))
        : withWindow_(withWindow)
    {
    }

    [[nodiscard]] constexpr bool IsThere() const { return ofWindow_ != nullptr || withWindow_ != nullptr; }

    constexpr bool operator==(const Procedure&) const = default;

    void operator()(Window& window) const
    {
        if (withWindow_ != nullptr) {
            withWindow_(window);
        } else {
            (window.*ofWindow_)();
        }
    }

private:
    void (Window::*ofWindow_)() = nullptr;
    void (*withWindow_)(Window&) = nullptr;
};

/** A menu, a separator, or a command; a command without a procedure is disabled. That of a submenu runs
 * whenever it is about to be shown. */
template<class WindowType, class NeedType = NoNeed, class ChoiceType = NoChoice> struct CommandRow
{
    using Window = WindowType;
    using Need = NeedType;
    using Choice = ChoiceType;

    CommandRowKind kind;
    const char* name = "";
    const char* caption = "";
    const char* shortcut = "";
    Procedure<Window> run = {};
    ToolbarSpot button = {};
    Need need = {};                              ///< what must be there for the command to be enabled
    std::optional<Choice> choice = std::nullopt; ///< the command is checked while this is chosen
};

/** Whether the commands of `rows` fill a toolbar up to its position `count`, each position once. */
template<class Rows> constexpr bool IsToolbarWhole(const Rows& rows, int count)
{
    int last = 0;
    for (const auto& row : rows) {
        for (const auto& other : rows) {
            if (row.button.position != 0 && &row != &other && row.button.position == other.button.position) {
                return false;
            }
        }
        last = row.button.position > last ? row.button.position : last;
    }
    return last == count;
}

/** The commands of one window: makes its menus and toolbar from a table, and enables and checks them. */
template<class Row> class CommandSet
{
public:
    using Window = typename Row::Window;

    /** Adds to `bar` and `toolbar` what `rows` tell, for `window`; `rows` must outlive the set. Menus and
     * entries carry their names. */
    void Create(Window* window, QMenuBar* bar, QToolBar* toolbar, std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            commands_ << Command{ &row };
        }
        FillMenus(window, bar, nullptr);
        FillToolbar(window, toolbar);
    }

    /** Adds what `rows` tell to the end of `menu`, for `window`; none of them has a menu of the bar or a
     * button.
     */
    void Append(Window* window, QMenu* menu, std::span<const Row> rows)
    {
        for (const Row& row : rows) {
            commands_ << Command{ &row };
        }
        FillMenus(window, nullptr, menu);
    }

    /** The entry of the command that runs `run`, of which there is one. */
    [[nodiscard]] QAction& EntryOf(Procedure<Window> run) const
    {
        const auto command = std::find_if(
            commands_.begin(), commands_.end(), [run](const Command& one) { return one.row->run == run; });
        return *command->entry;
    }

    /** The submenu that runs `run`, or the menu in which the command that runs it stands. */
    [[nodiscard]] QMenu& MenuOf(Procedure<Window> run) const
    {
        const QAction& entry = EntryOf(run);
        return entry.menu() != nullptr ? *entry.menu() : *static_cast<QMenu*>(entry.parent());
    }

    /** Enables or disables the commands that need `need`. */
    void Enable(typename Row::Need need, bool enable)
    {
        for (const Command& command : commands_) {
            if (command.row->run.IsThere() && command.row->need == need) {
                ForEachAction(command, [enable](QAction* action) { action->setEnabled(enable); });
            }
        }
    }

    /** Checks the command that makes `choice`, and no other. */
    void Check(typename Row::Choice choice)
    {
        for (const Command& command : commands_) {
            if (command.row->choice) {
                const bool isChosen = command.row->choice == choice;
                ForEachAction(command, [isChosen](QAction* action) { action->setChecked(isChosen); });
            }
        }
    }

    /** Checks the command that makes `choice`, or not; the others stay as they are. */
    void SetChecked(typename Row::Choice choice, bool isChecked)
    {
        for (const Command& command : commands_) {
            if (command.row->choice == choice) {
                ForEachAction(command, [isChecked](QAction* action) { action->setChecked(isChecked); });
            }
        }
    }

private:
    struct Command
    {
        const Row* row;
        QAction* entry = nullptr;
        QAction* button = nullptr;
    };

    template<class Act> static void ForEachAction(const Command& command, Act act)
    {
        for (QAction* const action : { command.entry, command.button }) {
            if (action != nullptr) {
                act(action);
            }
        }
    }

    static void Connect(Window* window, const Row& row, QAction* action)
    {
        action->setCheckable(row.choice.has_value());
        action->setEnabled(row.run.IsThere());
        if (row.run.IsThere()) {
            QObject::connect(action, &QAction::triggered, window, [window, &row] { row.run(*window); });
        }
    }

    static QAction* NewEntry(Window* window, QMenu* menu, const Row& row)
    {
        QAction* const entry = menu->addAction(QString::fromLatin1(row.caption));
        entry->setObjectName(QString::fromLatin1(row.name));
        entry->setShortcut(
            QKeySequence::fromString(QString::fromLatin1(row.shortcut), QKeySequence::PortableText));
        entry->setMenuRole(QAction::NoRole);
        Connect(window, row, entry);
        return entry;
    }

    void FillMenus(Window* window, QMenuBar* bar, QMenu* menu)
    {
        QMenu* outer = nullptr;
        for (Command& command : commands_) {
            const Row& row = *command.row;
            switch (row.kind) {
            case CommandRowKind::Menu:
            case CommandRowKind::Submenu:
                outer = row.kind == CommandRowKind::Submenu ? menu : nullptr;
                menu = outer != nullptr ? outer->addMenu(QString::fromLatin1(row.caption))
                                        : bar->addMenu(QString::fromLatin1(row.caption));
                menu->setObjectName(QString::fromLatin1(row.name));
                menu->menuAction()->setObjectName(menu->objectName());
                command.entry = menu->menuAction();
                if (row.run.IsThere()) {
                    QObject::connect(menu, &QMenu::aboutToShow, window, [window, &row] { row.run(*window); });
                }
                break;
            case CommandRowKind::EndSubmenu:
                menu = outer;
                break;
            case CommandRowKind::Separator:
                menu->addSeparator()->setObjectName(QString::fromLatin1(row.name));
                break;
            case CommandRowKind::Entry:
                command.entry = NewEntry(window, menu, row);
                break;
            }
        }
    }

    /** One action a position, separators included, behind those that are there. */
    void FillToolbar(Window* window, QToolBar* toolbar)
    {
        int last = 0;
        for (const Command& command : commands_) {
            last = std::max(last, command.row->button.position);
        }
        for (int position = int(toolbar->actions().size()) + 1; position <= last; ++position) {
            const auto command =
                std::find_if(commands_.begin(), commands_.end(), [position](const Command& one) {
                    return one.row->button.position == position;
                });
            QAction* const action =
                command != commands_.end() ? NewButton(window, toolbar, *command) : toolbar->addSeparator();
            action->setObjectName(QStringLiteral("%1_%2").arg(toolbar->objectName()).arg(position));
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

    static QAction* NewButton(Window* window, QToolBar* toolbar, Command& command)
    {
        const ToolbarSpot& spot = command.row->button;
        const QString tip = QString::fromLatin1(spot.tip);
        command.button = toolbar->addAction(
            QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(spot.icon))), tip.trimmed());
        command.button->setToolTip(tip);
        Connect(window, *command.row, command.button);
        toolbar->widgetForAction(command.button)->setAccessibleName(tip.trimmed());
        return command.button;
    }

    QList<Command> commands_;
};

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
