#pragma once

#include "outline/AreaCandidate.h"
#include "shared/ImgMap.h"

#include <QDialog>
#include <memory>

namespace Ui {
class frmRegions;
}
class RegionsModel;

/** Lists areas that could be made, for those to be ticked that are wanted. Modal to its owner, where the
 * ticked ones can be seen. */
class frmRegions : public QDialog
{
    Q_OBJECT

public:
    /** `title` tells what they come from. */
    frmRegions(const ImgMap& imgMap, const QString& title, const AreaCandidates& regions, QWidget* owner);
    ~frmRegions() override;

    /** Places the window beside what it is about, and shows what is ticked. */
    void Form_Load();

    [[nodiscard]] MapAreas Ticked() const;

    /** The area whose row the focus is on; one without a place if there is none. */
    [[nodiscard]] MapArea Current() const;

Q_SIGNALS:
    /** Other areas are ticked, or another one has the focus. */
    void Changed();

private:
    void cmdAll_Click();
    void cmdNone_Click();
    void lstRegions_Change();

    const ImgMap& imgMap_;
    RegionsModel* model_;
    std::unique_ptr<Ui::frmRegions> ui_;
};
