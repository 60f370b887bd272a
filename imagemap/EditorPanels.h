#pragma once

#include "imagemap/drawing/DrawingHints.h"
#include "imagemap/drawing/DrawingView.h"

#include <QString>
#include <array>
#include <functional>
#include <initializer_list>

class ClickWatch;
class ElidedLabel;
class QLabel;
class QStatusBar;

/** What the panels show until a picture is open. */
inline constexpr QStringView noPictureText = u"Open an Image !";

/** The panels of the editor's status bar, and the labels of positions, size and number beside the picture. */
class EditorPanels
{
public:
    /** In the order of DrawingLabel. */
    using Labels = std::array<QLabel*, drawingLabelCount>;

    /** Puts the panels into `bar`; they and `labels` must outlive this. */
    EditorPanels(QStatusBar& bar, const Labels& labels);

    /**
     * Keeps the room of the numbers that are still to come, so that nothing moves when they do: of positions
     * and sizes, and of single numbers in `counts`.
     */
    void KeepRoomForNumbers(std::initializer_list<QLabel*> counts);

    void SetLabel(DrawingLabel label, const QString& text);

    /** What the editor is at, in the first panel. */
    void ShowStatus(QStringView text);

    /** The open picture's file name, in the second panel. */
    void ShowPictureName(const QString& name);
    [[nodiscard]] QString PictureName() const;

    /** What to do next, in the third panel; a click on it does `act`, if there is one. */
    void ShowHint(QStringView text, std::function<void()> act = {});

private:
    ElidedLabel* NewPanel(QStatusBar& bar, const char* name, int part);

    Labels labels_;
    ElidedLabel* status_;
    ElidedLabel* pictureName_;
    ElidedLabel* hint_;
    ClickWatch* hintClicks_;
};
