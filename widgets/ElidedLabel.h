#pragma once

#include <QEvent>
#include <QHelpEvent>
#include <QLabel>
#include <QPainter>
#include <QStyle>
#include <QTextDocument>
#include <QToolTip>

/** `text` as a tool tip that shows it letter for letter, even where it looks like markup. */
inline QString PlainToolTip(const QString& text)
{
    return Qt::mightBeRichText(text)
               ? QStringLiteral("<p style=\"white-space:pre\">%1</p>").arg(text.toHtmlEscaped())
               : text;
}

/**
 * One line of plain text in whatever room there is: what does not fit is left out at an ellipsis, and told in
 * a tool tip. text() is always the whole.
 */
class ElidedLabel : public QLabel
{
public:
    explicit ElidedLabel(QWidget* parent = nullptr)
        : QLabel(parent)
    {
        setTextFormat(Qt::PlainText);
        // A long text must not widen the window.
        setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    }

    /** Where the ellipsis stands; in the middle unless told. */
    void SetElideMode(Qt::TextElideMode mode)
    {
        mode_ = mode;
        update();
    }

    /** What is shown of the text. */
    [[nodiscard]] QString ShownText() const
    {
        return fontMetrics().elidedText(text(), mode_, contentsRect().width());
    }

    /** As high without a text as with one, so that nothing moves when one comes. */
    [[nodiscard]] QSize sizeHint() const override
    {
        return QLabel::sizeHint().expandedTo({ 0, fontMetrics().height() });
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        drawFrame(&painter);
        style()->drawItemText(
            &painter, contentsRect(),
            static_cast<int>(QStyle::visualAlignment(layoutDirection(), alignment())) | Qt::TextSingleLine,
            palette(), isEnabled(), ShownText(), foregroundRole());
    }

    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::ToolTip && toolTip().isEmpty() && ShownText() != text()) {
            QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), PlainToolTip(text()), this);
            return true;
        }
        return QLabel::event(event);
    }

private:
    Qt::TextElideMode mode_ = Qt::ElideMiddle;
};
