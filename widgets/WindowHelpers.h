#pragma once

#include "shared/ImgMap.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QLayout>
#include <QLineEdit>
#include <QMessageBox>
#include <QScreen>
#include <QStyle>
#include <QWidget>
#include <algorithm>

// What every window does in the same way.

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

/** How many times as large as in the design the text of `window` is; never less than 1. */
inline qreal TextGrowth(const QWidget* window)
{
    constexpr qreal designLine = 16; // the room for a line of text, in pixels
    return std::max(window->fontMetrics().lineSpacing() / designLine, 1.0);
}

/** The room for a window on its screen, title bar and panels of the desktop left out. */
inline QSize RoomOnScreen(const QWidget* window)
{
    const int titleBar = window->style()->pixelMetric(QStyle::PM_TitleBarHeight);
    return window->screen()->availableSize() - QSize(0, titleBar);
}

/**
 * The size that `window` has by design, grown with its text to the room that its contents need, and no larger
 * than its screen.
 */
inline QSize GrownSize(const QWidget* window)
{
    const QSize room = RoomOnScreen(window);
    const QSize size =
        (window->size() * TextGrowth(window)).expandedTo(window->minimumSizeHint()).boundedTo(room);
    if (window->layout() == nullptr || !window->layout()->hasHeightForWidth()) {
        return size;
    }
    // The narrower it is, the more lines its texts take.
    return size.expandedTo({ 0, window->layout()->totalHeightForWidth(size.width()) }).boundedTo(room);
}

/**
 * Moves `window`, grown with its text, to the middle of its screen. What is larger than the screen all the
 * same keeps its title bar in sight.
 */
inline void CentreOnScreen(QWidget* window)
{
    window->ensurePolished();
    window->resize(GrownSize(window));
    const QRect screen = window->screen()->geometry();
    window->move(
        screen.left() + std::max((screen.width() - window->width()) / 2, 0),
        screen.top() + std::max((screen.height() - window->height()) / 2, 0));
}

/** Places `window`, grown with its text, at the lower right corner of its owner, where it leaves most of that
 * to be seen. */
inline void PlaceAtCorner(QWidget* window)
{
    CentreOnScreen(window);
    if (const QWidget* const owner = window->parentWidget()) {
        const QRect screen = window->screen()->availableGeometry();
        const QRect around = owner->frameGeometry() & screen;
        window->move(
            std::max(around.right() - window->width(), screen.left()),
            std::max(around.bottom() - window->height(), screen.top()));
    }
}

/** Gives the field and the list of an editable `box` its name: a screen reader meets them on their own. */
inline void NameParts(const QComboBox* box)
{
    box->lineEdit()->setAccessibleName(box->accessibleName());
    box->view()->setAccessibleName(box->accessibleName());
}
