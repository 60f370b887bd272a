#pragma once

#include "tests/support/WidgetDriving.h"

#include "tests/app/MainWindowFixture.h"

#include <QTabWidget>
#include <memory>

inline constexpr int undoButton = 11;

inline QString ClipboardText()
{
    return QGuiApplication::clipboard()->text();
}

inline void PutOnClipboard(const QString& text)
{
    QGuiApplication::clipboard()->setText(text);
}

/** The main window, whose commands are given by menu, toolbar or key. */
class EditingFixture : public QObject
{
protected:
    void Start();
    void Finish();

    static void WaysTo(const char* entry, int button, const char* keys);
    void RunAsTheRowSays();
    void ClickEntry(const char* entry);
    void GoToUrlField(const char* text);

    SourceEditor* Editor() { return test_->Editor(); }
    QLineEdit* UrlField() { return test_->Find<QLineEdit>("txtCTags"); }

    std::unique_ptr<MainWindowFixture> test_;
};

inline void EditingFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
    PutOnClipboard(QStringLiteral("older"));
}

inline void EditingFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

/** Rows for the menu, the toolbar and the keyboard; no keys where there are none. */
inline void EditingFixture::WaysTo(const char* entry, int button, const char* keys)
{
    QTest::addColumn<QByteArray>("entry");
    QTest::addColumn<int>("button");
    QTest::addColumn<QKeySequence>("keys");
    QTest::newRow("menu") << QByteArray(entry) << 0 << QKeySequence();
    QTest::newRow("toolbar") << QByteArray() << button << QKeySequence();
    if (*keys != '\0') {
        QTest::newRow("keys") << QByteArray() << 0 << QKeySequence(QString::fromLatin1(keys));
    }
}

inline void EditingFixture::RunAsTheRowSays()
{
    QFETCH(const QByteArray, entry);
    QFETCH(const int, button);
    QFETCH(const QKeySequence, keys);
    if (!keys.isEmpty()) {
        test_->Press(keys[0].key(), keys[0].keyboardModifiers());
    } else if (button > 0) {
        test_->ClickToolbar(button);
    } else {
        ClickEntry(entry.constData());
    }
}

/** Clicks a menu entry, by way of the submenu where it lies in one. */
inline void EditingFixture::ClickEntry(const char* entry)
{
    auto* const submenu = test_->Find<QMenu>("mnuEEditCase");
    auto* const action = test_->Find<QAction>(entry);
    if (submenu->actions().contains(action)) {
        test_->ClickMenu("mnuEdit", "mnuEEditCase");
        QVERIFY(QTest::qWaitFor([submenu] { return submenu->isVisible(); }));
        QTest::mouseClick(submenu, Qt::LeftButton, {}, submenu->actionGeometry(action).center());
        return;
    }
    for (const char* const menu : { "mnuEdit", "mnuInsert", "mnuTools" }) {
        if (test_->Find<QMenu>(menu)->actions().contains(action)) {
            test_->ClickMenu(menu, entry);
        }
    }
}

/** Goes to the field beside the saved links, with `text` in it and the caret before it. */
inline void EditingFixture::GoToUrlField(const char* text)
{
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    UrlField()->setText(QString::fromLatin1(text));
    UrlField()->setFocus();
    UrlField()->home(false);
}
