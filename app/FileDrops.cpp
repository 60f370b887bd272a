#include "app/FileDrops.h"

#include <QDir>
#include <QDropEvent>
#include <QMimeData>
#include <QUrl>
#include <QWidget>

namespace {

QStringList FilesIn(const QMimeData& data)
{
    QStringList paths;
    const QList<QUrl> addresses = data.urls();
    for (const QUrl& address : addresses) {
        if (address.isLocalFile()) {
            paths << QDir::toNativeSeparators(address.toLocalFile());
        }
    }
    return paths;
}

} // namespace

FileDrops::FileDrops(QWidget* window, const QWidget* exception, Open open)
    : QObject(window)
    , window_(window)
    , exception_(exception)
    , open_(std::move(open))
{
    window->setAcceptDrops(true);
    window->installEventFilter(this);
}

bool FileDrops::eventFilter(QObject* watched, QEvent* event)
{
    const QEvent::Type type = event->type();
    if (type != QEvent::DragEnter && type != QEvent::DragMove && type != QEvent::Drop) {
        return QObject::eventFilter(watched, event);
    }
    auto& drop = *static_cast<QDropEvent*>(event);
    const QPoint place = drop.position().toPoint();
    const bool isElsewhere =
        exception_ == nullptr || !exception_->rect().contains(exception_->mapFrom(window_, place));
    const QStringList paths = FilesIn(*drop.mimeData());
    drop.setAccepted(isElsewhere && !paths.isEmpty());
    if (drop.isAccepted()) {
        drop.setDropAction(Qt::CopyAction); // whoever gives a file away keeps it
    }
    if (drop.isAccepted() && type == QEvent::Drop) {
        // What opening asks must not hold up the program that the files come from.
        QMetaObject::invokeMethod(
            this, [this, paths] { open_(paths); }, Qt::QueuedConnection);
    }
    return true;
}
