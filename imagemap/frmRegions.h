#pragma once

#include "imagemap/RegionFinding.h"
#include "outline/AreaCandidate.h"
#include "shared/ImgMap.h"

#include <QDialog>
#include <QTimer>
#include <memory>
#include <optional>

namespace Ui {
class frmRegions;
}
class RegionsModel;
enum class RegionsSource;

/** Lists areas that could be made, for those to be ticked that are wanted, and looks for them where they are
 * not known. Modal to its owner, where the ticked ones can be seen. */
class frmRegions : public QDialog
{
    Q_OBJECT

public:
    /** `title` tells what they come from. */
    frmRegions(const ImgMap& imgMap, const QString& title, const AreaCandidates& regions, QWidget* owner);

    /** Looks for regions of a picture, at first for what is wished; only fields that matter are there. */
    frmRegions(
        const ImgMap& imgMap, const QString& title, const RegionGround& ground, const RegionWish& wish,
        QWidget* owner);
    ~frmRegions() override;

    /** Places the window beside what it is about, and shows what is ticked. */
    void Form_Load();

    [[nodiscard]] MapAreas Ticked() const;

    /** The area whose row the focus is on; one without a place if there is none. */
    [[nodiscard]] MapArea Current() const;

    /** What was looked for last. */
    [[nodiscard]] RegionWish Wish() const;

Q_SIGNALS:
    /** Other areas are ticked, or another one has the focus. */
    void Changed();

private:
    frmRegions(
        const ImgMap& imgMap, const QString& title, const AreaCandidates& regions, RegionsSource source,
        QWidget* owner);
    void ShowWish(const RegionWish& wish, bool hasTolerance);
    void Search();
    void ShowSearching();
    void Finding_Found(const AreaCandidates& candidates, bool areSame);
    void cmdStop_Click();
    void cmdAll_Click();
    void cmdNone_Click();
    void lstRegions_Change();

    const ImgMap& imgMap_;
    RegionsModel* model_;
    RegionFinding* finding_ = nullptr; ///< where areas are looked for
    QRect selected_;                   ///< see RegionGround
    bool isSearching_ = false;
    std::optional<RegionWish> searched_; ///< what was looked for last, unless the search was stopped
    QTimer patience_;                    ///< runs while a search is so short that nothing needs to tell of it
    std::unique_ptr<Ui::frmRegions> ui_;
};
