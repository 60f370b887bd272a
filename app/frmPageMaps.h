#pragma once

#include "app/PageMapsModel.h"

#include <QDialog>
#include <memory>

namespace Ui {
class frmPageMaps;
}
struct ImgMap;

/** Lists the maps of the page, and its pictures without one, for one to be chosen. Modal to its owner. */
class frmPageMaps : public QDialog
{
    Q_OBJECT

public:
    /** Takes `model` over. */
    frmPageMaps(const ImgMap& imgMap, PageMapsModel* model, QWidget* owner);
    ~frmPageMaps() override;

    /** Centres the window and chooses its first row. */
    void Form_Load();

    [[nodiscard]] const PageMapsModel& Model() const { return *model_; }

Q_SIGNALS:
    /** A row was chosen; the window is closing. */
    void Chosen(int row);

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    void cmdOpen_Click();

    const ImgMap& imgMap_;
    PageMapsModel* model_;
    std::unique_ptr<Ui::frmPageMaps> ui_;
};
