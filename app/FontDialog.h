#pragma once

#include <QFontDialog>
#include <QTextCharFormat>

class QComboBox;

/** Chooses a font with its effects and its colour in one dialog. */
class FontDialog : public QFontDialog
{
    Q_OBJECT

public:
    /** The dialog starts with `font` and without a colour of its own. */
    FontDialog(const QFont& font, QWidget* owner);

    /** Starts the dialog with what Choice() gave earlier. */
    void SetChoice(const QTextCharFormat& choice);

    /** Family, size in points, bold, italic, strike-through, underline and colour. */
    [[nodiscard]] QTextCharFormat Choice() const;

private:
    void AddColors();

    QComboBox* cmbColor_ = nullptr;
};
