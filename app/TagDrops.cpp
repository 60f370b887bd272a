#include "app/TagDrops.h"

#include "app/SourceEditor.h"

#include <QDropEvent>
#include <QLabel>

TagDrops::TagDrops(SourceEditor& editor)
    : QObject(&editor)
    , editor_(editor)
{
    editor.viewport()->installEventFilter(this);
}

bool TagDrops::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type == QEvent::DragLeave) {
        event->accept();
        return true;
    }
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) {
        return QObject::eventFilter(watched, event);
    }
    auto& drop = *static_cast<QDropEvent*>(event);
    const auto* const label = qobject_cast<const QLabel*>(drop.source());
    drop.setDropAction(Qt::CopyAction);
    drop.setAccepted(label != nullptr);
    if (label != nullptr && type == QEvent::Drop) {
        editor_.ReplaceSelection(label->text());
        editor_.setFocus();
    }
    return true;
}
