#pragma once

#include "shared/ImgMap.h"

#include <QPixmap>
#include <QTimer>
#include <QWidget>
#include <memory>

namespace Ui {
class frmSplash;
}

/** The panel shown while the program starts; it asks to be replaced by the main window once. */
class frmSplash : public QWidget
{
    Q_OBJECT

public:
    explicit frmSplash(ImgMap& imgMap, QWidget* parent = nullptr);
    ~frmSplash() override;

    /** Centres the panel, shows name and version and starts its timer. */
    void Form_Load();

Q_SIGNALS:
    void Timer1_Timer();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    ImgMap& imgMap_;
    std::unique_ptr<Ui::frmSplash> ui_;
    QTimer timer1_;
};
