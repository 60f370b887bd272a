#include "app/MessageBar.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QStyle>
#include <algorithm>

MessageBar::MessageBar(QWidget* editor)
    : EditorBar(editor, "barMessage", QStringLiteral("Message"))
    , layout_(new QHBoxLayout(this))
    , label_(new QLabel(this))
    , close_(new QPushButton(this))
{
    constexpr int margin = 4;
    layout_->setContentsMargins(margin, margin, margin, margin);
    label_->setObjectName(QStringLiteral("lblMessage"));
    label_->setTextFormat(Qt::PlainText);
    label_->setWordWrap(true);
    layout_->addWidget(label_, 1);
    close_->setObjectName(QStringLiteral("btnCloseMessage"));
    close_->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close_->setAccessibleName(QStringLiteral("Close this message"));
    close_->setToolTip(QStringLiteral("Close this message"));
    close_->setFlat(true);
    layout_->addWidget(close_);
    connect(close_, &QPushButton::clicked, this, &MessageBar::btnCloseMessage_Click);
}

void MessageBar::Tell(const BarMessage& message)
{
    messages_ << message;
    if (messages_.size() == 1) {
        ShowFirst();
    }
}

void MessageBar::Forget()
{
    RemoveIf([](const BarMessage& message) { return message.IsOfDocument; });
}

void MessageBar::Withdraw(const char* answer)
{
    RemoveIf([answer](const BarMessage& message) {
        return std::ranges::any_of(message.Answers, [answer](const MessageAnswer& one) {
            return QLatin1String(one.Name) == QLatin1String(answer);
        });
    });
}

template<class Test> void MessageBar::RemoveIf(Test test)
{
    const bool isShownOneLeft = !messages_.isEmpty() && !test(messages_.constFirst());
    messages_.removeIf(test);
    if (!isShownOneLeft) {
        ShowFirst();
    }
}

void MessageBar::btnCloseMessage_Click()
{
    const std::function<void()> close = messages_.constFirst().Close;
    Answer(close ? close : [] {});
}

/** Takes the message away, then does what was chosen, which may tell another. */
void MessageBar::Answer(const std::function<void()>& act)
{
    // A button must not go while its own click is being told.
    const std::function<void()> chosen = act;
    messages_.removeFirst();
    ShowFirst();
    Q_EMIT Answered();
    chosen();
}

void MessageBar::ShowFirst()
{
    for (QPushButton* const button : std::as_const(buttons_)) {
        button->hide();
        button->setObjectName(QString());
        button->deleteLater();
    }
    buttons_.clear();
    if (messages_.isEmpty()) {
        hide();
        return;
    }
    const BarMessage& message = messages_.constFirst();
    label_->setText(message.Text);
    for (const MessageAnswer& answer : message.Answers) {
        auto* const button = new QPushButton(answer.Caption, this);
        button->setObjectName(QString::fromLatin1(answer.Name));
        button->setAccessibleDescription(message.Text);
        layout_->insertWidget(layout_->indexOf(close_), button);
        connect(button, &QPushButton::clicked, this, [this, act = answer.Do] { Answer(act); });
        buttons_ << button;
    }
    show();
    QAccessibleEvent told(label_, QAccessible::Alert);
    QAccessible::updateAccessibility(&told);
}
