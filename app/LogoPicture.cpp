#include "app/LogoPicture.h"

#include <QIcon>
#include <QLabel>
#include <QMouseEvent>

namespace {

/** A window darker than this is a dark one. */
constexpr int middleLightness = 128;
/** How many times as fine as it is shown the logo is drawn. */
constexpr qreal logoFineness = 3;

} // namespace

LogoPicture::LogoPicture(QLabel* picture)
    : QObject(picture)
    , picture_(picture)
{
    picture->installEventFilter(this);
    Show();
}

void LogoPicture::Show()
{
    const bool isDark = picture_->window()->palette().color(QPalette::Window).lightness() < middleLightness;
    const QIcon logo(isDark ? QStringLiteral(":/icons/logo-dark.svg") : QStringLiteral(":/icons/logo.svg"));
    // Fine enough for every screen: the label makes it as small as it is shown.
    picture_->setPixmap(logo.pixmap(picture_->minimumSize(), logoFineness));
}

void LogoPicture::Picture_MouseUp(const QMouseEvent& event)
{
    if (event.button() == Qt::LeftButton && picture_->rect().contains(event.position().toPoint())) {
        Q_EMIT Click();
    }
}

bool LogoPicture::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        Show();
    } else if (event->type() == QEvent::MouseButtonRelease) {
        Picture_MouseUp(*static_cast<QMouseEvent*>(event));
    }
    return QObject::eventFilter(watched, event);
}
