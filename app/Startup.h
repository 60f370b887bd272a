#pragma once

#include "shared/ImgMap.h"

#include <QObject>
#include <QPointer>
#include <memory>

class frmIMmain;
class frmSplash;

/** Brings the program up: the splash panel, then after its timer the main window in its place. */
class Startup : public QObject
{
    Q_OBJECT

public:
    explicit Startup(ImgMap& imgMap);
    ~Startup() override;

    /** Shows the splash panel; the rest follows from the event loop. */
    void Begin();

private:
    void ShowMainWindow();

    ImgMap& imgMap_;
    std::unique_ptr<frmSplash> splash_;
    std::unique_ptr<frmIMmain> mainWindow_;
};
