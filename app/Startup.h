#pragma once

#include "shared/ImgMap.h"

#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <memory>

class Desktop;
class MapDocument;
class frmIMmain;
class SessionGuard;
class frmSplash;

/** Brings the program up: the splash panel, then after its timer the main window in its place. */
class Startup : public QObject
{
    Q_OBJECT

public:
    Startup(ImgMap& imgMap, MapDocument& map, Desktop& desktop);
    ~Startup() override;

    /** Shows the splash panel; the rest follows from the event loop. */
    void Begin();

    /** Opens `files` as soon as there is a main window that is not waiting for an answer. */
    void OpenFiles(const QStringList& files);

private:
    void ShowMainWindow();
    void OpenWaiting();

    ImgMap& imgMap_;
    MapDocument& map_;
    Desktop& desktop_;
    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<frmIMmain> mainWindow_;
    std::unique_ptr<SessionGuard> sessionGuard_;
    QStringList waiting_; ///< files to be opened
    QTimer waitingTimer_;
};
