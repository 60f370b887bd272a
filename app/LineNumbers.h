#pragma once

#include <QWidget>

class SourceEditor;

/** The numbers of the lines, left of the text of the editor, which makes room for them while they show. */
class LineNumbers : public QWidget
{
    Q_OBJECT

public:
    /** Hidden at first. */
    explicit LineNumbers(SourceEditor& editor);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void Follow(const QRect& changed, int scrolled);
    void TakeCount();
    void TakeWidth();

    SourceEditor& editor_;
    int shownWidth_ = 0; ///< that there is room for
};
