#pragma once

#include "shared/DialogFilter.h"
#include "shared/ImgMap.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QScreen>
#include <QWidget>

// What every window does in the same way. Only windows include this; the library beside it needs no widgets.

/** One pixel in twips, at 96 dots an inch. */
inline constexpr int twipsPerPixel = 15;

/** Shows a modal message with the application's title; returns the button that closed it. */
inline QMessageBox::StandardButton ShowMessage(
    QWidget* owner, QMessageBox::Icon icon, const QString& text,
    QMessageBox::StandardButtons buttons = QMessageBox::Ok,
    const QString& title = applicationTitle.toString())
{
    QMessageBox box(icon, title, text, buttons, owner);
    box.setTextFormat(Qt::PlainText);
    return static_cast<QMessageBox::StandardButton>(box.exec());
}

/** Asks a question; true for Yes. */
inline bool AskYesNo(QWidget* owner, const QString& text, const QString& title = applicationTitle.toString())
{
    return ShowMessage(owner, QMessageBox::Question, text, QMessageBox::Yes | QMessageBox::No, title) ==
           QMessageBox::Yes;
}

/** Shows the waiting pointer everywhere until ShowDefaultPointer(). */
inline void ShowHourglass()
{
    if (QApplication::overrideCursor() == nullptr) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
    }
}

inline void ShowDefaultPointer()
{
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

/** Makes the program's folder the current one: relative paths rest on it. */
inline void GoToProgramFolder(const ImgMap& imgMap)
{
    QDir::setCurrent(imgMap.ProgramFolder);
}

/** Moves `window`, grown to the room its contents need, to the middle of its screen. */
inline void CentreOnScreen(QWidget* window)
{
    window->ensurePolished();
    window->resize(window->size().expandedTo(window->minimumSizeHint()));
    const QRect screen = window->screen()->geometry();
    window->move(
        screen.left() + (screen.width() - window->width()) / 2,
        screen.top() + (screen.height() - window->height()) / 2);
}

/** The file that a modal dialog chose, in the system's own form, or nothing when it was cancelled. */
inline std::optional<QString> ChosenFile(QFileDialog& dialog)
{
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) {
        return std::nullopt;
    }
    return QDir::toNativeSeparators(dialog.selectedFiles().constFirst());
}

/** Offers the choices of `filter`, each shown as its caption alone. */
inline void OfferFiles(QFileDialog& dialog, QStringView filter)
{
    dialog.setOption(QFileDialog::HideNameFilterDetails);
    dialog.setNameFilters(DialogNameFilters(filter));
}

/** Asks for a picture to open; nothing when the dialog was cancelled. */
inline std::optional<QString> AskForPicture(QWidget* owner)
{
    QFileDialog dialog(owner);
    dialog.setObjectName(QStringLiteral("CMDialog1"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    OfferFiles(dialog, pictureFilter);
    return ChosenFile(dialog);
}
