#pragma once

// Mouse events of these tests go through the window: what is hidden, grabbed or blocked counts as for a user.
// To be included before QTest.
#define QTEST_QPA_MOUSE_HANDLING

#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

/** The part of `window` of that name, which must be there. */
template<class Widget> Widget* Find(const QWidget* window, const char* name)
{
    auto* const found = window->findChild<Widget*>(QString::fromLatin1(name));
    if (found == nullptr) {
        qFatal("%s has no %s", qPrintable(window->objectName()), name);
    }
    return found;
}

inline void Click(QWidget* widget, Qt::MouseButton button = Qt::LeftButton)
{
    QTest::mouseClick(widget, button, {}, widget->rect().center());
}

inline void ClickIn(const QWidget* window, const char* name)
{
    Click(Find<QWidget>(window, name));
}

/** Types into a text field or an editable list, whose old text goes. */
inline void TypeIn(const QWidget* window, const char* name, const char* text)
{
    auto* const widget = Find<QWidget>(window, name);
    auto* const list = qobject_cast<QComboBox*>(widget);
    auto* const field = list != nullptr ? list->lineEdit() : qobject_cast<QLineEdit*>(widget);
    field->clear();
    QTest::keyClicks(field, QString::fromLatin1(text));
}
