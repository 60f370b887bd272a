#pragma once

#include <QFrame>

class QLineEdit;

/** A bar above or below the text of the editor, within it; what happens there is not for the text. */
class EditorBar : public QFrame
{
    Q_OBJECT

public:
    EditorBar(QWidget* editor, const char* name, const QString& accessibleName);

protected:
    bool event(QEvent* event) override;
};

/** Leaves the keys of commands to the menus while `field` has the focus, but for those that edit a text. */
void LeaveCommandKeys(QLineEdit* field);
