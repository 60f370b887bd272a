#pragma once

#include <QObject>

class QLabel;
class QMouseEvent;

/** A logo on a label, in the letters that stand out from its window, which can be clicked. */
class LogoPicture : public QObject
{
    Q_OBJECT

public:
    /** `picture` owns it. */
    explicit LogoPicture(QLabel* picture);

Q_SIGNALS:
    void Click();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Picture_MouseUp(const QMouseEvent& event);
    void Show();
    [[nodiscard]] int NeededFineness() const;

    QLabel* picture_;
    int fineness_ = 0; ///< how many times as fine as its smallest size it is drawn
};
