#pragma once

#include <QObject>
#include <QRect>

class PicturePane;
class QComboBox;
class QStatusBar;

/** The commands and the field that tell how large the picture is shown. */
class ZoomControls final : public QObject
{
    Q_OBJECT

public:
    /** Puts its field at the right end of `bar`; it, `bar` and `pane` must live as long. */
    ZoomControls(PicturePane& pane, QStatusBar& bar);

    void In();
    void Out();
    void ActualSize();
    void ToggleFit();
    void FitTo(const QRect& part);

    [[nodiscard]] bool IsFitting() const { return isFitting_; }

    /** A picture was opened: it is shown in its own size, or fitted. */
    void BeginPicture();

    bool eventFilter(QObject* watched, QEvent* event) override;

Q_SIGNALS:
    /** Fitting was switched on or off. */
    void FittingChanged();

private:
    void SetFitting(bool fits);
    void cmbZoom_Chosen();
    void Pane_ZoomChanged();
    void Pane_RoomChanged();
    void Fit();

    PicturePane& pane_;
    QComboBox* cmbZoom_;
    bool isFitting_ = false;
};
