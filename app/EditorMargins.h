#pragma once

#include <QList>
#include <QMargins>
#include <QObject>
#include <functional>

class QPlainTextEdit;
class QWidget;

/** What the room around an editor's text is for: its indentation, and bars at its edges. */
class EditorMargins : public QObject
{
    Q_OBJECT

public:
    /** `setMargins` sets those of the editor's viewport. */
    EditorMargins(QPlainTextEdit& editor, std::function<void(const QMargins&)> setMargins);

    /** Moves the whole text in from the left edge, in twips; on a narrow editor by less. */
    void SetIndent(double twips);

    /** Shows `bar` at an edge while it is not hidden: as high, at the left as wide, as it wants to be.
     * Several can stand at the bottom, the first of them the lowest. */
    void SetBar(Qt::Edge edge, QWidget* bar);

    /** Makes room anew; for an editor that has another size. */
    void Refresh();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QMargins Wanted() const;
    void PlaceBars(const QMargins& margins) const;

    QPlainTextEdit& editor_;
    std::function<void(const QMargins&)> setMargins_;
    QMargins shown_;
    QWidget* top_ = nullptr;
    QList<QWidget*> bottom_; ///< from the lowest
    QWidget* left_ = nullptr;
    double indent_ = 0; ///< in twips
};
