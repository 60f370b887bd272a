#include "imagemap/frmJSOptions.h"

#include "imagemap/model/MapDocument.h"
#include "shared/HelpViewer.h"
#include "ui_frmJSOptions.h"
#include "widgets/WindowHelpers.h"

#include <QLabel>
#include <QMouseEvent>
#include <algorithm>

namespace {

/** Lets others ask an option which part of it a click takes. */
class OptionArea : public QRadioButton
{
public:
    [[nodiscard]] static bool Contains(const QRadioButton& option, const QPoint& place)
    {
        return (option.*&OptionArea::hitButton)(place);
    }
};

constexpr const char* switchQuestion =
    "In order to switch Java Script options, your current Image Map must be deleted. "
    "Do you want to delete your Image Map?";

} // namespace

frmJSOptions::frmJSOptions(ImgMap& imgMap, MapDocument& map, HelpViewer& help, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , map_(map)
    , help_(help)
    , ui_(std::make_unique<Ui::frmJSOptions>())
{
    ui_->setupUi(this);
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowModality(Qt::ApplicationModal);
    options_ = { ui_->optJSOpt_0, ui_->optJSOpt_1, ui_->optJSOpt_2, ui_->optJSOpt_3, ui_->optJSOpt_4 };
    explanations_ = { ui_->lblJSOpt_0, ui_->lblJSOpt_1, ui_->lblJSOpt_2, ui_->lblJSOpt_3, ui_->lblJSOpt_4 };
    for (std::size_t i = 0; i < options_.size(); ++i) {
        QRadioButton* const option = options_[i];
        option->setAccessibleDescription(explanations_[i]->text());
        option->installEventFilter(this);
        connect(option, &QRadioButton::clicked, this, &frmJSOptions::optJSOpt_Click);
    }
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmJSOptions::cmdOK_Click);
    connect(ui_->cmdHelp, &QPushButton::clicked, this, &frmJSOptions::cmdHelp_Click);
    ui_->cmdOK->setDefault(true);
}

frmJSOptions::~frmJSOptions() = default;

void frmJSOptions::Form_Load()
{
    GoToProgramFolder(imgMap_);
    LineUpExplanations();
    CentreOnScreen(this);
    SelectCurrentMode();
    options_[static_cast<std::size_t>(map_.Script().Mode())]->setFocus();
}

/** Puts the first line of each explanation at the height of its option's text. */
void frmJSOptions::LineUpExplanations()
{
    ensurePolished();
    for (std::size_t i = 0; i < options_.size(); ++i) {
        const int above = (options_[i]->sizeHint().height() - explanations_[i]->fontMetrics().height()) / 2;
        explanations_[i]->setContentsMargins(0, std::max(above, 0), 0, 0);
    }
}

void frmJSOptions::SelectCurrentMode()
{
    options_[static_cast<std::size_t>(map_.Script().Mode())]->setChecked(true);
}

bool frmJSOptions::eventFilter(QObject* watched, QEvent* event)
{
    const bool isPress =
        event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseButtonDblClick;
    if (!isPress || static_cast<QMouseEvent*>(event)->button() != Qt::LeftButton) {
        return QDialog::eventFilter(watched, event);
    }
    const auto* const option = std::find(options_.begin(), options_.end(), watched);
    return option != options_.end() &&
           OptionArea::Contains(**option, static_cast<QMouseEvent*>(event)->position().toPoint()) &&
           optJSOpt_MouseDown(static_cast<std::size_t>(option - options_.begin()));
}

bool frmJSOptions::optJSOpt_MouseDown(std::size_t index)
{
    if (!map_.HasContent()) {
        map_.Drawing().GiveUp();
        ApplyJSMode();
        return false;
    }
    // Once the press is done: a box that opens inside it would swallow the button's release.
    if (!isQuestionPending_) {
        isQuestionPending_ = true;
        QMetaObject::invokeMethod(
            this, [this, index] { AskToSwitch(index); }, Qt::QueuedConnection);
    }
    return true;
}

void frmJSOptions::AskToSwitch(std::size_t index)
{
    const bool mayDelete = AskYesNo(this, QString::fromLatin1(switchQuestion));
    isQuestionPending_ = false;
    if (!mayDelete) {
        SelectCurrentMode();
        return;
    }
    map_.Clear();
    map_.Script().ForgetModeDefault();
    options_[index]->setChecked(true);
    options_[index]->setFocus();
    ApplyJSMode();
}

void frmJSOptions::optJSOpt_Click()
{
    ApplyJSMode();
}

void frmJSOptions::ApplyJSMode()
{
    for (std::size_t i = 0; i < options_.size(); ++i) {
        if (options_[i]->isChecked()) {
            map_.Script().SetMode(static_cast<JSMode>(i));
            return;
        }
    }
}

void frmJSOptions::cmdOK_Click()
{
    accept();
}

void frmJSOptions::cmdHelp_Click()
{
    GoToProgramFolder(imgMap_);
    help_.ShowTopic(this, u"javascript-options");
}
