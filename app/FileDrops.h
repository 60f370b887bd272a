#pragma once

#include <QObject>
#include <QStringList>
#include <functional>

class QWidget;

/** Opens the files that are dropped on a window, but for a part of it that keeps to its own ways. */
class FileDrops : public QObject
{
    Q_OBJECT

public:
    using Open = std::function<void(const QStringList& paths)>;

    /** `exception` is that part of `window`, or null. */
    FileDrops(QWidget* window, const QWidget* exception, Open open);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QWidget* window_;
    const QWidget* exception_;
    Open open_;
};
