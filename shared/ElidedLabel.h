#pragma once

#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>

// Only windows include this; the library beside it needs no widgets.

/** `text` as a tool tip that shows it letter for letter, also where it looks like markup. */
inline QString PlainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text) ? Qt::convertFromPlainText(text) : text;
}

/**
 * A line of plain text that leaves out its middle where the room is too narrow; text() stays whole. Never
 * asks for more room than it is given.
 */
class ElidedLabel : public QLabel
{
public:
    explicit ElidedLabel(QWidget* parent = nullptr)
        : QLabel(parent)
    {
        setTextFormat(Qt::PlainText);
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

    /** What is shown of the text. */
    [[nodiscard]] QString ShownText() const
    {
        return fontMetrics().elidedText(text(), Qt::ElideMiddle, contentsRect().width());
    }

protected:
    void paintEvent(QPaintEvent* event) override
    {
        Q_UNUSED(event)
        QPainter painter(this);
        drawFrame(&painter);
        style()->drawItemText(
            &painter, contentsRect(),
            static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())), palette(), isEnabled(),
            ShownText(), foregroundRole());
    }
};
