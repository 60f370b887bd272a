#pragma once

#include "tests/imagemap/EditorFixture.h"

#include <memory>

/** What the tests of the editor begin and end with: an editor of their own, and no dialog left unanswered. */
class EditorTest : public QObject
{
protected:
    void Begin()
    {
        test_ = std::make_unique<EditorFixture>();
        QVERIFY(test_->Start());
    }

    /** The same with a picture of 300 by 200 pixels. */
    void BeginWithPicture()
    {
        Begin();
        test_->OpenPicture({ 300, 200 });
    }

    void End()
    {
        const QString problems = test_->robot.Problems();
        test_.reset();
        QVERIFY2(problems.isEmpty(), qPrintable(problems));
    }

    std::unique_ptr<EditorFixture> test_;
};
