#pragma once

#include "tests/imagemap/EditorTest.h"

#include <QRadioButton>

inline const QStringList modeHeaders = {
    QStringLiteral(" Java Script Disabled - No Messages will be inserted!"),
    QStringLiteral(" Status Bar Messages (Netscape), and Tool Tips (MSIE):"),
    QStringLiteral(" Switching Images:"),
    QStringLiteral(" Switching Text Area Messages:"),
    QStringLiteral(" Tool Tip Messages:"),
};

/** The JavaScript options over an editor with a picture. */
class OptionsDialogTest : public EditorTest
{
protected:
    void OpenOptions();
    QRadioButton* Option(int index);
    /** Clicks where the option's text stands. */
    void ClickOption(int index, Qt::MouseButton button = Qt::LeftButton);
    int SelectedOption();

    QPointer<QDialog> dialog_;
};

inline QRadioButton* OptionsDialogTest::Option(int index)
{
    return Find<QRadioButton>(dialog_, qPrintable(QStringLiteral("optJSOpt_%1").arg(index)));
}

inline void OptionsDialogTest::OpenOptions()
{
    dialog_ = test_->DialogOpenedBy([this] { test_->Entry("mnuJSOptions")->trigger(); });
}

inline void OptionsDialogTest::ClickOption(int index, Qt::MouseButton button)
{
    QTest::mouseClick(Option(index), button, {}, QPoint(30, Option(index)->height() / 2));
}

inline int OptionsDialogTest::SelectedOption()
{
    int selected = -1;
    for (int i = 0; i < 5; ++i) {
        if (Option(i)->isChecked()) {
            selected = selected == -1 ? i : -2;
        }
    }
    return selected;
}
