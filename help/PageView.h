#pragma once

#include <QTextBrowser>

/**
 * Shows a page of the help book in a column of readable width, whatever the window's, with text that Ctrl and
 * the wheel or + and - enlarge.
 */
class PageView : public QTextBrowser
{
    Q_OBJECT

public:
    explicit PageView(QWidget* parent = nullptr);

    /** Makes the text larger or smaller by `steps` points, within bounds. */
    void Zoom(int steps);

    /** Brings the text back to its own size. */
    void ResetZoom();

    /** Selects the next `words`, or the ones before, beginning anew at the end; whether there are any. */
    bool FindWords(const QString& words, bool isBackward);

protected:
    QVariant loadResource(int type, const QUrl& name) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void ShowFitted(const QUrl& url);
    void FitColumn();
    void Reread();

    int zoom_ = 0;
    int wheelRest_ = 0; ///< turned with Ctrl, but not yet a whole step
};
