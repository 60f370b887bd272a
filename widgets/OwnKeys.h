#pragma once

#include <QEvent>
#include <QObject>

/**
 * Leaves the keys that are pressed in an open menu to the menu. The focus is on the menu bar if a key has
 * opened it, so a command of the menus would act whose key is for the focus alone, and the menu would stay.
 */
class OwnKeys : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::ShortcutOverride) {
            event->accept();
            return true;
        }
        return QObject::eventFilter(watched, event);
    }
};
