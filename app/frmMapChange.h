#pragma once

#include <QDialog>
#include <memory>

namespace Ui {
class frmMapChange;
}
struct ImgMap;
struct TodayChange;

/** Shows what a map is written as and what it would be, for the user to accept. Modal. */
class frmMapChange : public QDialog
{
    Q_OBJECT

public:
    frmMapChange(const ImgMap& imgMap, const TodayChange& change, QWidget* owner);
    ~frmMapChange() override;

    /** Centres the dialog. */
    void Form_Load();

private:
    const ImgMap& imgMap_;
    std::unique_ptr<Ui::frmMapChange> ui_;
};
