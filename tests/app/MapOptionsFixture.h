#pragma once

#include "tests/support/WidgetDriving.h"

#include "app/frmMapOptions.h"
#include "tests/app/MainWindowFixture.h"

#include <QRadioButton>
#include <memory>

/** The preferences, opened from the main window. */
class MapOptionsFixture : public QObject
{
protected:
    void Start();
    void Finish();

    void Open();
    template<class Widget> Widget* Part(const char* name) { return Find<Widget>(dialog_, name); }
    QLineEdit* Field() { return Part<QLineEdit>("txtIndentValue"); }
    QString Inches() { return Part<QLabel>("lblInchIndValue")->text(); }
    void ChooseOption(const char* name);
    void ClickOk() { Click(Part<QPushButton>("cmdOK")); }
    int Indent() { return test_->Editor()->viewport()->x() - plainLeft_; }

    std::unique_ptr<MainWindowFixture> test_;
    QPointer<frmMapOptions> dialog_;
    int plainLeft_ = 0; ///< where the source starts without an indentation
};

inline void MapOptionsFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
    plainLeft_ = test_->Editor()->viewport()->x();
}

inline void MapOptionsFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

inline void MapOptionsFixture::Open()
{
    test_->Press(Qt::Key_P, Qt::ControlModifier);
    for (frmMapOptions* const dialog : test_->window.findChildren<frmMapOptions*>()) {
        if (dialog->isVisible()) {
            dialog_ = dialog;
        }
    }
    QVERIFY(dialog_ != nullptr);
    dialog_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(dialog_));
}

inline void MapOptionsFixture::ChooseOption(const char* name)
{
    auto* const option = Part<QRadioButton>(name);
    QTest::mouseClick(option, Qt::LeftButton, {}, { 8, option->height() / 2 });
    QVERIFY(option->isChecked());
}
