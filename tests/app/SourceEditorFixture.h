#pragma once

#include "app/SourceEditor.h"

#include <QTest>
#include <memory>

/** The source editor on its own, with the focus. */
class SourceEditorFixture : public QObject
{
protected:
    void Start();

    std::unique_ptr<SourceEditor> editor_;
};

inline void SourceEditorFixture::Start()
{
    editor_ = std::make_unique<SourceEditor>();
    editor_->resize(400, 300);
    editor_->show();
    QVERIFY(QTest::qWaitForWindowActive(editor_.get()));
    editor_->setFocus();
}
