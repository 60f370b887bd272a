#include "app/LogoPicture.h"

#include <QIcon>
#include <QLabel>
#include <QMouseEvent>
#include <algorithm>
#include <cmath>

namespace {

/** A window darker than this is a dark one. */
constexpr int middleLightness = 128;

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
    fineness_ = NeededFineness();
    picture_->setPixmap(logo.pixmap(picture_->minimumSize(), fineness_));
}

/** Fine enough for the screen that it is on; the label makes it as small as it is shown. */
int LogoPicture::NeededFineness() const
{
    const QSizeF least = picture_->minimumSize();
    const qreal growth =
        std::max({ picture_->width() / least.width(), picture_->height() / least.height(), 1.0 });
    return static_cast<int>(std::ceil(growth * picture_->devicePixelRatioF()));
}

void LogoPicture::Picture_MouseUp(const QMouseEvent& event)
{
    if (event.button() == Qt::LeftButton && picture_->rect().contains(event.position().toPoint())) {
        Q_EMIT Click();
    }
}

bool LogoPicture::eventFilter(QObject* watched, QEvent* event)
{
    const bool isCoarse = event->type() == QEvent::Paint && NeededFineness() > fineness_;
    if (event->type() == QEvent::PaletteChange || isCoarse) {
        Show();
    } else if (event->type() == QEvent::MouseButtonRelease) {
        Picture_MouseUp(*static_cast<QMouseEvent*>(event));
    }
    return QObject::eventFilter(watched, event);
}
