#pragma once

#include "tests/imagemap/EditorTest.h"

/** What the tests of areas that are drawn already have in common: two rectangles, commands and keys. */
class DrawnAreasTest : public EditorTest
{
protected:
    void Trigger(const char* name) { test_->Entry(name)->trigger(); }

    [[nodiscard]] QList<int> Numbers(qsizetype area) const { return test_->map.Areas().at(area).Coordinates; }

    /** A rectangle of 60 by 40 pixels and another one beside it. */
    void DrawTwo()
    {
        test_->OpenPicture({ 300, 120 });
        test_->DrawRectangle({ 10, 10 }, { 70, 50 }, "one.htm");
        test_->DrawRectangle({ 100, 20 }, { 160, 60 }, "two.htm");
        Activate();
    }

    /** The window is the active one again, which it is not at once when a dialog has closed. */
    void Activate()
    {
        test_->editor->activateWindow();
        if (!QTest::qWaitForWindowActive(test_->editor)) {
            qFatal("the editor is not active");
        }
    }

    void Key(int key, Qt::KeyboardModifiers keys = {})
    {
        Activate();
        test_->Surface()->setFocus();
        QTest::keyClick(test_->Surface(), Qt::Key(key), keys);
    }
};
