#include "app/CapsLock.h"

#include "app/Desktop.h"

#include <QApplication>
#include <QKeyEvent>
#include <QWidget>
#include <optional>

namespace {

/** Who gets a key first; those that it is passed on to get it again. */
const QWidget* FirstReceiver()
{
    const QWidget* const popup = QApplication::activePopupWidget();
    if (popup == nullptr) {
        return QApplication::focusWidget();
    }
    return popup->focusWidget() != nullptr ? popup->focusWidget() : popup;
}

/** What a letter says about the lock; nothing when `key` types none. */
std::optional<bool> LockByLetter(const QKeyEvent& key)
{
    const QString text = key.text();
    const bool isLetter = text.size() == 1 && text[0].isLetter() && text[0].toUpper() != text[0].toLower();
    return isLetter ? std::optional(text[0].isUpper() != key.modifiers().testFlag(Qt::ShiftModifier))
                    : std::nullopt;
}

} // namespace

CapsLock::CapsLock(const Desktop& desktop, QObject* owner)
    : QObject(owner)
    , desktop_(desktop)
{
    Ask(false);
    qApp->installEventFilter(this);
}

bool CapsLock::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        if (watched == FirstReceiver()) {
            Follow(*static_cast<QKeyEvent*>(event));
        }
        break;
    case QEvent::WindowActivate:
        // The user may have pressed the key in another program.
        if (watched->isWidgetType() && static_cast<QWidget*>(watched)->isWindow()) {
            Ask(isOn_);
        }
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void CapsLock::Follow(const QKeyEvent& key)
{
    const bool isPress = key.type() == QEvent::KeyPress && !key.isAutoRepeat();
    if (key.key() == Qt::Key_CapsLock) {
        // Some systems unlock when the key is let go.
        Ask(isPress ? !isOn_ : isOn_);
    } else if (const std::optional<bool> lock = LockByLetter(key); isPress && lock && *lock != isOn_) {
        Ask(*lock);
    }
}

/** Takes over the lock's state from the desktop, or else the one given. */
void CapsLock::Ask(bool otherwise)
{
    const bool isOn = desktop_.IsCapsLockOn().value_or(otherwise);
    if (isOn != isOn_) {
        isOn_ = isOn;
        Q_EMIT Changed(isOn);
    }
}
