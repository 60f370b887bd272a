#pragma once

#include <QTextCharFormat>
#include <optional>

class QLineEdit;
class QWidget;
class SourceEditor;

/** The commands of the Edit menu that are more than one call of the editor, and the page skeleton. */
class EditCommands
{
public:
    /** Delete works on `linkField` while the user is there. */
    EditCommands(QWidget* window, SourceEditor& editor, QLineEdit& linkField);

    void mnuEDelete_Click();
    void mnuEFont_Click();
    void mnuEUpperCase_Click();
    void mnuELowerCase_Click();
    void mnuEProperCase_Click();
    void InsertPageSkeleton();

private:
    QWidget* window_;
    SourceEditor& editor_;
    QLineEdit& linkField_;
    std::optional<QTextCharFormat> lastFont_; ///< what the font dialog was accepted with last
};
