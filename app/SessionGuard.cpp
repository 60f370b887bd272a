#include "app/SessionGuard.h"

#include "app/frmIMmain.h"

#include <QApplication>
#include <QSessionManager>

SessionGuard::SessionGuard(frmIMmain& mainWindow)
    : mainWindow_(mainWindow)
{
    // Directly: the desktop counts on the answer when the signal has been handled.
    connect(qApp, &QGuiApplication::commitDataRequest, this, &SessionGuard::CommitData, Qt::DirectConnection);
}

void SessionGuard::CommitData(QSessionManager& session)
{
    if (!mainWindow_.File().IsChanged() || !session.allowsInteraction()) {
        return;
    }
    if (QApplication::activeModalWidget() == nullptr) {
        (void)mainWindow_.QueryUnload();
    }
    if (mainWindow_.File().IsChanged()) {
        session.cancel();
    } else {
        session.release();
    }
}
