#include "app/LineNumbers.h"

#include "app/Shades.h"
#include "app/SourceEditor.h"
#include "app/source/LineFitter.h"
#include "app/source/LongLines.h"

#include <QAbstractTextDocumentLayout>
#include <QCoreApplication>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>
#include <QTextLayout>
#include <algorithm>
#include <cmath>

namespace {

/** Room for so many digits there is always, so that the text of a short page seldom moves. */
constexpr int leastDigits = 3;
/** Beside the numbers, in widths of a digit. */
constexpr double sideRoom = 0.75;
/** How much of the text's colour the numbers have, and their ground. */
constexpr double numberShare = 0.65;
constexpr double numberGroundShare = 0.05;

/** The width of a number. Asking for that of a text would shape it. */
int WidthOf(const QString& number, const QFontMetricsF& metrics)
{
    double width = 0;
    for (const QChar digit : number) {
        width += metrics.horizontalAdvance(digit);
    }
    return static_cast<int>(std::lround(width));
}

} // namespace

LineNumbers::LineNumbers(SourceEditor& editor)
    : QWidget(&editor)
    , editor_(editor)
{
    setObjectName(QStringLiteral("barLineNumbers"));
    setAccessibleName(QStringLiteral("Line numbers"));
    setCursor(Qt::ArrowCursor);
    setAttribute(Qt::WA_OpaquePaintEvent);
    hide();
    connect(&editor_, &SourceEditor::updateRequest, this, &LineNumbers::Follow);
    connect(&editor_, &SourceEditor::LineCountChanged, this, &LineNumbers::TakeCount);
}

QSize LineNumbers::sizeHint() const
{
    const int digits =
        std::max(static_cast<int>(QString::number(LineCount(*editor_.document())).size()), leastDigits);
    const double digit = QFontMetricsF(font()).horizontalAdvance(u'0');
    return { static_cast<int>(std::ceil((digits + 2 * sideRoom) * digit)), 0 };
}

void LineNumbers::TakeCount()
{
    update();
    TakeWidth();
}

void LineNumbers::TakeWidth()
{
    const int width = sizeHint().width();
    if (width != shownWidth_) {
        shownWidth_ = width;
        // For the margins of the editor, which make room, but not in the middle of an edit.
        QCoreApplication::postEvent(this, new QEvent(QEvent::LayoutRequest));
    }
}

/** Keeps up with what of the editor's view was scrolled, or is painted anew because lines have moved: then it
 * is all of it. An edit within a line leaves the numbers as they are.
 */
void LineNumbers::Follow(const QRect& changed, int scrolled)
{
    if (scrolled != 0 || changed.height() >= editor_.viewport()->height()) {
        update();
    }
}

void LineNumbers::paintEvent(QPaintEvent* event)
{
    const QColor text = palette().color(QPalette::Text);
    const QColor ground = Mixed(palette().color(QPalette::Base), text, numberGroundShare);
    QPainter painter(this);
    painter.fillRect(event->rect(), ground);
    painter.setPen(ReadableOn(ground, Mixed(ground, text, numberShare), text));
    const double right = width() - sideRoom * painter.fontMetrics().horizontalAdvance(u'0');
    const QFontMetricsF metrics(painter.font(), this);
    QTextBlock block = editor_.firstVisibleBlock();
    double top = editor_.blockBoundingGeometry(block).translated(editor_.contentOffset()).top();
    const QAbstractTextDocumentLayout& layout = *editor_.document()->documentLayout();
    int number = LineNumberOf(block) + 1;
    while (block.isValid() && top <= event->rect().bottom()) {
        const double height = layout.blockBoundingRect(block).height();
        if (top + height >= event->rect().top() && !BeginsAtJoint(block)) {
            // On the line of the letters, which may be larger than the number.
            const QTextLine line = block.layout()->lineAt(0);
            const double base = top + line.y() + line.ascent();
            const QString label = QString::number(number);
            painter.drawText(QPointF(right - WidthOf(label, metrics), base), label);
        }
        top += height;
        block = block.next();
        number += block.isValid() && !BeginsAtJoint(block) ? 1 : 0;
    }
}

void LineNumbers::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        TakeWidth();
    }
}

void LineNumbers::wheelEvent(QWheelEvent* event)
{
    QCoreApplication::sendEvent(editor_.viewport(), event);
}
