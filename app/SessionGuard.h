#pragma once

#include <QObject>

class QSessionManager;
class frmIMmain;

/**
 * Asks for what is not saved when the user logs out of the desktop, and stops the logout where the text is to
 * be kept, could not be saved, or cannot be asked for because a dialog is open.
 */
class SessionGuard : public QObject
{
    Q_OBJECT

public:
    /** `mainWindow` must live longer. */
    explicit SessionGuard(frmIMmain& mainWindow);

private:
    void CommitData(QSessionManager& session);

    frmIMmain& mainWindow_;
};
