#include "app/EditorMargins.h"

#include "widgets/WindowHelpers.h"

#include <QEvent>
#include <QPlainTextEdit>
#include <algorithm>
#include <cmath>

namespace {

/** So much room stays for the text beside any indentation, in pixels. */
constexpr int leastTextWidth = 60;

/** The height that a bar above or below the text wants. */
int HeightOf(const QWidget* bar, int width)
{
    if (bar == nullptr || bar->isHidden()) {
        return 0;
    }
    return bar->hasHeightForWidth() ? bar->heightForWidth(width) : bar->sizeHint().height();
}

} // namespace

EditorMargins::EditorMargins(QPlainTextEdit& editor, std::function<void(const QMargins&)> setMargins)
    : QObject(&editor)
    , editor_(editor)
    , setMargins_(std::move(setMargins))
{
}

void EditorMargins::SetIndent(double twips)
{
    indent_ = twips;
    Refresh();
}

void EditorMargins::SetBar(Qt::Edge edge, QWidget* bar)
{
    if (edge == Qt::BottomEdge) {
        bottom_ << bar;
    } else {
        (edge == Qt::TopEdge ? top_ : left_) = bar;
    }
    bar->setParent(&editor_);
    bar->installEventFilter(this);
    Refresh();
}

QMargins EditorMargins::Wanted() const
{
    const int numbers = left_ == nullptr || left_->isHidden() ? 0 : left_->sizeHint().width();
    const int room = std::max(editor_.contentsRect().width() - numbers - leastTextWidth, 0);
    const int indent = static_cast<int>(std::nearbyint(indent_ / twipsPerPixel));
    const int width = editor_.viewport()->width() + shown_.left();
    int below = 0;
    for (const QWidget* const bar : bottom_) {
        below += HeightOf(bar, width);
    }
    return { numbers + std::min(indent, room), HeightOf(top_, width), 0, below };
}

void EditorMargins::Refresh()
{
    const QMargins wanted = Wanted();
    if (wanted != shown_) {
        shown_ = wanted;
        setMargins_(wanted); // which resizes the editor, and comes back here
    }
    PlaceBars(shown_);
}

void EditorMargins::PlaceBars(const QMargins& margins) const
{
    const QRect text = editor_.viewport()->geometry();
    const QRect whole = text.marginsAdded(margins);
    if (top_ != nullptr) {
        top_->setGeometry(whole.left(), whole.top(), whole.width(), margins.top());
    }
    int bottom = whole.bottom() + 1;
    for (QWidget* const bar : bottom_) {
        const int height = HeightOf(bar, whole.width());
        bottom -= height;
        bar->setGeometry(whole.left(), bottom, whole.width(), height);
    }
    if (left_ != nullptr) {
        left_->setGeometry(whole.left(), text.top(), left_->sizeHint().width(), text.height());
    }
}

bool EditorMargins::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
    case QEvent::LayoutRequest:
        Refresh();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}
