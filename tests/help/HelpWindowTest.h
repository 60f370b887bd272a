#pragma once

#include "help/HelpWindow.h"
#include "help/PageView.h"
#include "tests/help/HelpFiles.h"
#include "tests/support/WidgetDriving.h"

#include <QTabWidget>
#include <QTreeWidget>
#include <memory>

/** The help window with the small book. */
class HelpWindowTest : public QObject
{
protected:
    void SetUp();
    void TearDown();

    [[nodiscard]] PageView* Page() const { return Find<PageView>(window_.get(), "PageView1"); }
    [[nodiscard]] QString PageName() const { return book_.PageAt(Page()->source()); }
    [[nodiscard]] QTreeWidget* Keywords() const { return Find<QTreeWidget>(window_.get(), "treKeywords"); }
    [[nodiscard]] QStringList ShownKeywords() const;
    [[nodiscard]] int FocusedTab() const
    {
        return Find<QTabWidget>(window_.get(), "HelpTabs")->currentIndex();
    }
    void PressInFocus(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const;
    void TypeInFocus(const char* text) const;
    void ShowSearchTab() const { PressInFocus(Qt::Key_S, Qt::AltModifier); }

    HelpBook book_;
    std::unique_ptr<HelpWindow> window_;
};

inline QStringList HelpWindowTest::ShownKeywords() const
{
    QStringList shown;
    for (int i = 0; i < Keywords()->topLevelItemCount(); ++i) {
        if (!Keywords()->topLevelItem(i)->isHidden()) {
            shown << Keywords()->topLevelItem(i)->text(0);
        }
    }
    return shown;
}

/** Presses a key where the user is. */
inline void HelpWindowTest::PressInFocus(Qt::Key key, Qt::KeyboardModifiers modifiers) const
{
    QTest::keyClick(window_->windowHandle(), key, modifiers);
}

inline void HelpWindowTest::TypeInFocus(const char* text) const
{
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
}

inline void HelpWindowTest::SetUp()
{
    if (!book_.IsOpen()) {
        QCOMPARE(book_.Open(smallBook), HelpTrouble::None);
    }
    window_ = std::make_unique<HelpWindow>(book_);
    window_->ShowContents();
    QVERIFY(QTest::qWaitForWindowActive(window_.get()));
}

inline void HelpWindowTest::TearDown()
{
    window_.reset();
}
