#pragma once

#include <QEvent>
#include <QKeyEvent>
#include <QObject>
#include <functional>
#include <utility>

/** Leaves keys to the commands of a window that a field with the focus would take for editing. */
class LeftKeys : public QObject
{
public:
    /** `isLeft` tells for a field and a key whether that is left. */
    using IsLeft = std::function<bool(const QWidget& field, const QKeyEvent& key)>;

    LeftKeys(IsLeft isLeft, QObject* parent)
        : QObject(parent)
        , isLeft_(std::move(isLeft))
    {
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride &&
            isLeft_(*static_cast<QWidget*>(watched), *static_cast<QKeyEvent*>(event))) {
            event->ignore();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

private:
    IsLeft isLeft_;
};
