#pragma once

#include "tests/app/MainWindowFixture.h"

#include <memory>

/** The main window on a desktop that writes down what it is asked for. */
class LaunchingFixture : public QObject
{
protected:
    void Start();
    void Finish();

    void Fill(const QString& text);

    std::unique_ptr<MainWindowFixture> test_;
};

inline void LaunchingFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
}

inline void LaunchingFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

inline void LaunchingFixture::Fill(const QString& text)
{
    test_->Editor()->ReplaceSelection(text);
}
