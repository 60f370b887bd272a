#pragma once

#include "shared/OneLine.h"

#include <QLineEdit>
#include <QSignalBlocker>
#include <QValidator>
#include <algorithm>

/**
 * Keeps line ends out of its field, whichever way a text takes into it: every one passes here before anybody
 * hears of it. Qt's field would keep them unseen.
 */
class OneLineRule : public QValidator
{
public:
    explicit OneLineRule(QLineEdit* field)
        : QValidator(field)
        , field_(field)
        , before_(field->text())
    {
        connect(field, &QLineEdit::textEdited, this, [this] {
            if (isMended_) {
                RepeatAsEdit();
            }
        });
        connect(field, &QLineEdit::textChanged, this, [this](const QString& text) {
            isMended_ = false;
            before_ = text;
        });
    }

    /** What was put in ends at the caret, so line ends go there too. */
    State validate(QString& text, int& caret) const override
    {
        if (HasLineEnd(text)) {
            const QString upToCaret = OneLine(QStringView(text).left(caret));
            text = upToCaret + OneLine(QStringView(text).mid(caret));
            caret = static_cast<int>(upToCaret.size());
            isMended_ = true;
        }
        return Acceptable;
    }

private:
    /** Makes the field's text from the one before by an edit that can be undone: mending it forgot how. */
    void RepeatAsEdit()
    {
        const QString text = field_->text();
        const auto ends = std::mismatch(before_.cbegin(), before_.cend(), text.cbegin(), text.cend());
        const auto start = ends.first - before_.cbegin();
        const auto common =
            std::mismatch(before_.crbegin(), before_.crend() - start, text.crbegin(), text.crend() - start);
        const auto tail = common.first - before_.crbegin();
        const QSignalBlocker quiet(field_);
        field_->setText(before_);
        field_->setSelection(static_cast<int>(start), static_cast<int>(before_.size() - start - tail));
        field_->insert(text.mid(start, text.size() - start - tail));
    }

    QLineEdit* field_;
    QString before_; ///< the field's text that others have heard of
    mutable bool isMended_ = false;
};

/** Makes every field of one line in `window`, those of editable lists included, hold one line. */
inline void HoldOneLine(const QWidget* window)
{
    for (QLineEdit* const field : window->findChildren<QLineEdit*>()) {
        field->setValidator(new OneLineRule(field));
    }
}
