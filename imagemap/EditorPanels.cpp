#include "imagemap/EditorPanels.h"

#include "widgets/ElidedLabel.h"

#include <QStatusBar>

namespace {

/** The parts of the width that the panels take. */
constexpr int statusPart = 4;
constexpr int pictureNamePart = 3;
constexpr int hintPart = 5;

/** Room for a number of figures, and for a frame with two positions, in digits. */
constexpr int countDigits = 5;
constexpr int framedDigits = 16;

} // namespace

/** Does something when its label is clicked. */
class ClickWatch : public QObject
{
public:
    explicit ClickWatch(QWidget* label)
        : QObject(label)
    {
        label->installEventFilter(this);
    }

    void SetAct(std::function<void()> act) { act_ = std::move(act); }

    bool eventFilter(QObject* label, QEvent* event) override
    {
        if (event->type() == QEvent::MouseButtonRelease && act_) {
            // It may put another in its place.
            const std::function<void()> act = act_;
            act();
        }
        return QObject::eventFilter(label, event);
    }

private:
    std::function<void()> act_;
};

EditorPanels::EditorPanels(QStatusBar& bar, const Labels& labels)
    : labels_(labels)
    , status_(NewPanel(bar, "StatusBar1_Panel1", statusPart))
    , pictureName_(NewPanel(bar, "StatusBar1_Panel2", pictureNamePart))
    , hint_(NewPanel(bar, "StatusBar1_Panel3", hintPart))
    , hintClicks_(new ClickWatch(hint_))
{
    // Of a file's name, beginning and ending tell most.
    pictureName_->SetElideMode(Qt::ElideMiddle);
    status_->setText(noPictureText.toString());
    pictureName_->setText(noPictureText.toString());
}

ElidedLabel* EditorPanels::NewPanel(QStatusBar& bar, const char* name, int part)
{
    auto* const panel = new ElidedLabel(&bar);
    panel->setObjectName(QString::fromLatin1(name));
    bar.addWidget(panel, part);
    return panel;
}

void EditorPanels::SetLabel(DrawingLabel label, const QString& text)
{
    labels_[static_cast<std::size_t>(label)]->setText(text);
}

void EditorPanels::ShowStatus(QStringView text)
{
    status_->setText(text.toString());
}

void EditorPanels::ShowPictureName(const QString& name)
{
    pictureName_->setText(name);
    pictureName_->setToolTip(PlainToolTip(name));
}

QString EditorPanels::PictureName() const
{
    return pictureName_->text();
}

void EditorPanels::ShowHint(QStringView text, std::function<void()> act)
{
    hint_->setText(text.toString());
    hint_->setCursor(act ? Qt::PointingHandCursor : Qt::ArrowCursor);
    hintClicks_->SetAct(std::move(act));
}

void EditorPanels::KeepRoomForNumbers(std::initializer_list<QLabel*> counts)
{
    const QFontMetrics metrics = status_->window()->fontMetrics();
    const QSize digit(metrics.horizontalAdvance(u'0'), metrics.height());
    for (QLabel* const count : counts) {
        count->setMinimumSize(digit.width() * countDigits, digit.height());
    }
    for (QLabel* const label : labels_) {
        label->setMinimumHeight(digit.height());
    }
    for (const DrawingLabel framed :
         { DrawingLabel::StartPosition1, DrawingLabel::EndPosition1, DrawingLabel::Dimensions1 }) {
        labels_[static_cast<std::size_t>(framed)]->parentWidget()->setMinimumWidth(
            digit.width() * framedDigits);
    }
}
