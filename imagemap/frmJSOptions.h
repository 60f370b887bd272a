#pragma once

#include "imagemap/model/JSMode.h"
#include "shared/ImgMap.h"

#include <QDialog>
#include <array>
#include <memory>

namespace Ui {
class frmJSOptions;
}
class HelpViewer;
class MapDocument;
class QLabel;
class QRadioButton;

/** Chooses the JavaScript mode. A choice applies at once; OK only closes the dialog. Modal. */
class frmJSOptions : public QDialog
{
    Q_OBJECT

public:
    frmJSOptions(ImgMap& imgMap, MapDocument& map, HelpViewer& help, QWidget* owner);
    ~frmJSOptions() override;

    /** Centres the dialog and selects the option of the mode in force; applies nothing. */
    void Form_Load();

    void optJSOpt_Click();
    void cmdOK_Click();
    void cmdHelp_Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /** The guard against switching under an existing map; true when the press must not become a click. */
    [[nodiscard]] bool optJSOpt_MouseDown(std::size_t index);
    void AskToSwitch(std::size_t index);
    void ApplyJSMode();
    void SelectCurrentMode();
    void LineUpExplanations();

    ImgMap& imgMap_;
    MapDocument& map_;
    HelpViewer& help_;
    std::unique_ptr<Ui::frmJSOptions> ui_;
    std::array<QRadioButton*, jsModeTexts.size()> options_;
    std::array<QLabel*, jsModeTexts.size()> explanations_;
    bool isQuestionPending_ = false;
};
