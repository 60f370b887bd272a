#include "help/HelpDisplay.h"

#include "help/HelpWindow.h"
#include "widgets/WindowHelpers.h"

#include <QWindow>

HelpDisplay::HelpDisplay(const ImgMap& imgMap)
    : imgMap_(imgMap)
{
}

HelpDisplay::~HelpDisplay() = default;

void HelpDisplay::ShowContents(QWidget* owner)
{
    if (IsReady(owner)) {
        window_->ShowContents();
    }
}

void HelpDisplay::ShowSearch(QWidget* owner)
{
    if (IsReady(owner)) {
        window_->ShowIndex();
    }
}

void HelpDisplay::ShowTopic(QWidget* owner, QStringView topic)
{
    if (IsReady(owner)) {
        window_->ShowTopic(topic);
    }
}

bool HelpDisplay::IsReady(QWidget* owner)
{
    if (!book_.IsOpen()) {
        const HelpTrouble trouble = book_.Open(imgMap_.HelpFolder + u'/' + helpFileName);
        if (trouble != HelpTrouble::None) {
            ShowMessage(owner, QMessageBox::Warning, TroubleText(trouble));
            return false;
        }
    }
    if (window_ == nullptr) {
        window_ = std::make_unique<HelpWindow>(book_);
        connect(window_.get(), &HelpWindow::LinkToOutside, this, &HelpDisplay::LinkToOutside);
        CentreOnScreen(window_.get());
    }
    Join(owner);
    return true;
}

QString HelpDisplay::TroubleText(HelpTrouble trouble) const
{
    const QString what = trouble == HelpTrouble::Missing
                             ? QStringLiteral("The help file Cartolen.hlp is missing.")
                             : QStringLiteral("The help file Cartolen.hlp is damaged or cannot be read.");
    return what + QStringLiteral("\n\nPut a fresh copy of it into the program's folder and try again:\n%1")
                      .arg(QDir::toNativeSeparators(imgMap_.HelpFolder));
}

/**
 * Lets the window belong to a modal dialog that asks for help, since such a dialog blocks all others. That is
 * told to the window system only and is no parenthood: when the dialog goes, the window stays.
 */
void HelpDisplay::Join(const QWidget* owner)
{
    const QWidget* const top = owner != nullptr ? owner->window() : nullptr;
    window_->winId();
    window_->windowHandle()->setTransientParent(
        top != nullptr && top->isModal() ? top->windowHandle() : nullptr);
}
