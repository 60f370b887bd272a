#include "app/EditorBar.h"

#include "widgets/CommandTable.h"
#include "widgets/LeftKeys.h"

#include <QLineEdit>
#include <algorithm>
#include <array>

namespace {

/** Whether a field has this editing key, too. */
bool IsOfEditing(const QKeyEvent& key)
{
    using enum QKeySequence::StandardKey;
    constexpr auto keys = std::to_array({ Undo, Redo, Cut, Copy, Paste, Delete, SelectAll });
    return std::any_of(keys.begin(), keys.end(), [&key](auto one) { return key.matches(one); });
}

/** Whether the key is that of a command. */
bool IsOfMenus(const QWidget& field, const QKeyEvent& key)
{
    return EntryOfKey(field.window(), key) != nullptr && !IsOfEditing(key);
}

} // namespace

void LeaveCommandKeys(QLineEdit* field)
{
    field->installEventFilter(new LeftKeys(IsOfMenus, field));
}

EditorBar::EditorBar(QWidget* editor, const char* name, const QString& accessibleName)
    : QFrame(editor)
{
    setObjectName(QString::fromLatin1(name));
    setAccessibleName(accessibleName);
    setFrameShape(QFrame::StyledPanel);
    setBackgroundRole(QPalette::Window); // the editor's own is that of its text
    setAutoFillBackground(true);
    // The text below is in a typewriter's letters, and under a pointer for text.
    setFont(editor->window()->font());
    setCursor(Qt::ArrowCursor);
    hide();
}

bool EditorBar::event(QEvent* event)
{
    const bool isHandled = QFrame::event(event);
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
    case QEvent::Wheel:
    case QEvent::ContextMenu:
        event->accept();
        return true;
    default:
        return isHandled;
    }
}
