#pragma once

#include <QObject>

class Desktop;
class QKeyEvent;

/**
 * Follows Caps Lock wherever in the program the keys go. Where the desktop does not tell the lock's state,
 * what the keys type does.
 */
class CapsLock : public QObject
{
    Q_OBJECT

public:
    /** `desktop` must live longer. */
    CapsLock(const Desktop& desktop, QObject* owner);

    [[nodiscard]] bool IsOn() const { return isOn_; }

Q_SIGNALS:
    void Changed(bool isOn);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Follow(const QKeyEvent& key);
    void Ask(bool otherwise);

    const Desktop& desktop_;
    bool isOn_ = false;
};
