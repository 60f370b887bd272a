#include "help/PageView.h"

#include <QEvent>
#include <QPixmap>
#include <QScrollBar>
#include <QTextFrame>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace {

constexpr int smallestZoom = -3;
constexpr int largestZoom = 20;
/** The widest column, in average characters; more is tiring to read. */
constexpr int columnCharacters = 100;
/** The widest picture of the book. */
constexpr int pictureWidth = 680;
constexpr int leastMargin = 20;
constexpr int topMargin = 14;
constexpr int wheelStep = 120;

} // namespace

PageView::PageView(QWidget* parent)
    : QTextBrowser(parent)
{
    setOpenLinks(false);
    setUndoRedoEnabled(false);
    connect(this, &QTextBrowser::sourceChanged, this, &PageView::ShowFitted);
}

void PageView::Zoom(int steps)
{
    const int zoom = std::clamp(zoom_ + steps, smallestZoom, largestZoom);
    if (zoom != zoom_) {
        zoomIn(zoom - zoom_);
        zoom_ = zoom;
        FitColumn();
    }
}

void PageView::ResetZoom()
{
    Zoom(-zoom_);
}

bool PageView::FindWords(const QString& words, bool isBackward)
{
    const QTextDocument::FindFlags flags =
        isBackward ? QTextDocument::FindBackward : QTextDocument::FindFlags();
    if (find(words, flags)) {
        return true;
    }
    const QTextCursor before = textCursor();
    moveCursor(isBackward ? QTextCursor::End : QTextCursor::Start);
    const bool isFound = find(words, flags);
    if (!isFound) {
        setTextCursor(before);
    }
    return isFound;
}

QVariant PageView::loadResource(int type, const QUrl& name)
{
    QVariant resource = QTextBrowser::loadResource(type, name);
    const qreal ratio = devicePixelRatio();
    if (type != QTextDocument::ImageResource || ratio <= 1) {
        return resource;
    }
    // The text layout would enlarge pictures on a dense screen without smoothing.
    QPixmap picture;
    if (!picture.loadFromData(resource.toByteArray())) {
        return resource;
    }
    picture = picture.scaled(picture.size() * ratio, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    picture.setDevicePixelRatio(ratio);
    return picture;
}

void PageView::ShowFitted(const QUrl& url)
{
    FitColumn();
    // The column's width has moved the place that the address names.
    if (url.hasFragment()) {
        scrollToAnchor(url.fragment());
    }
}

void PageView::resizeEvent(QResizeEvent* event)
{
    QTextBrowser::resizeEvent(event);
    FitColumn();
}

void PageView::wheelEvent(QWheelEvent* event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QTextBrowser::wheelEvent(event);
        return;
    }
    const int delta = event->angleDelta().y();
    // Touchpads and fine wheels tell many small turns; what is left of one way is none of the other.
    const bool isSameWay = (delta > 0) == (wheelRest_ > 0);
    wheelRest_ = (isSameWay ? wheelRest_ : 0) + delta;
    Zoom(wheelRest_ / wheelStep);
    wheelRest_ %= wheelStep;
    event->accept();
}

void PageView::changeEvent(QEvent* event)
{
    QTextBrowser::changeEvent(event);
    // Links and frames have their colours from the palette at the time the page was read.
    if (event->type() == QEvent::PaletteChange && !source().isEmpty()) {
        Reread();
    }
}

void PageView::Reread()
{
    const int top = verticalScrollBar()->value();
    reload();
    verticalScrollBar()->setValue(top);
}

void PageView::FitColumn()
{
    QTextFrame* const frame = document()->rootFrame();
    const int column = std::max(columnCharacters * fontMetrics().averageCharWidth(), pictureWidth);
    const int margin = std::max(leastMargin, (viewport()->width() - column) / 2);
    QTextFrameFormat format = frame->frameFormat();
    if (static_cast<int>(std::nearbyint(format.leftMargin())) == margin) {
        return;
    }
    format.setTopMargin(topMargin);
    format.setBottomMargin(leastMargin);
    format.setLeftMargin(margin);
    format.setRightMargin(margin);
    frame->setFrameFormat(format);
}
