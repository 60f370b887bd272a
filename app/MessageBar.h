#pragma once

#include "app/EditorBar.h"

#include <QList>
#include <QString>
#include <functional>

class QHBoxLayout;
class QLabel;
class QPushButton;

/** One of the ways on that a message offers. */
struct MessageAnswer
{
    const char* Name; ///< of its button
    QString Caption;
    std::function<void()> Do;
};

/** What is told above the text, without standing in anybody's way. */
struct BarMessage
{
    QString Text;
    QList<MessageAnswer> Answers;
    std::function<void()> Close = {}; ///< what closing it without an answer does, if anything
    bool IsOfDocument = true;         ///< it goes with the document that is open
};

/** The bar above the text: it shows one message after the other, each until it is answered or closed. */
class MessageBar : public EditorBar
{
    Q_OBJECT

public:
    explicit MessageBar(QWidget* editor);

    /** Shows `message` once those before it are answered. */
    void Tell(const BarMessage& message);

    /** Forgets the messages of a document that has gone. */
    void Forget();

    /** Takes back the messages that have the button `answer`: what they tell holds no longer. */
    void Withdraw(const char* answer);

Q_SIGNALS:
    /** A message was answered or closed, so the user may go on. */
    void Answered();

private:
    void btnCloseMessage_Click();
    void Answer(const std::function<void()>& act);
    template<class Test> void RemoveIf(Test test);
    void ShowFirst();

    QHBoxLayout* layout_;
    QLabel* label_;
    QPushButton* close_;
    QList<QPushButton*> buttons_;
    QList<BarMessage> messages_;
};
