#include "app/EditorBar.h"

#include "widgets/CommandTable.h"

#include <QLineEdit>

namespace {

/** The editing keys that a field has, too: those of the Edit menu, and Redo. */
bool IsOfEditing(const QWidget* window, QAction* entry)
{
    return entry->objectName() == u"mnuPRedo" ||
           window->findChild<QMenu*>(QStringLiteral("mnuEdit"))->actions().contains(entry);
}

class CommandKeyFilter : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride) {
            const QWidget* const window = static_cast<QWidget*>(watched)->window();
            QAction* const entry = EntryOfKey(window, *static_cast<QKeyEvent*>(event));
            if (entry != nullptr && !IsOfEditing(window, entry)) {
                event->ignore();
                return true;
            }
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void LeaveCommandKeys(QLineEdit* field)
{
    field->installEventFilter(new CommandKeyFilter(field));
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
