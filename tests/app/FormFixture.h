#pragma once

#include "imagemap/frmImageMap.h"
#include "tests/app/MainWindowFixture.h"

#include <QListWidget>
#include <QToolButton>
#include <memory>

inline QList<int> LookOfButtons(const QToolBar* toolbar)
{
    QList<int> looks;
    for (QAction* const action : toolbar->actions()) {
        if (const auto* const button = qobject_cast<QToolButton*>(toolbar->widgetForAction(action))) {
            looks << (button->autoRaise() ? 1 : 0);
        }
    }
    return looks;
}

/** The main window, looked at as a whole. */
class FormFixture : public QObject
{
protected:
    void Start();
    void Finish();

    void ResizeInside(int width, int height);
    void MakeFigure();
    frmImageMap* ImageMapEditor();
    QByteArray LoadedLinks();

    std::unique_ptr<MainWindowFixture> test_;
};

inline void FormFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
}

inline void FormFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

/** Makes the room inside the window, below the menu bar and above the status bar, of the given size. */
inline void FormFixture::ResizeInside(int width, int height)
{
    QMainWindow& window = test_->window;
    window.resize(window.size() - window.centralWidget()->size() + QSize(width, height));
    QTRY_COMPARE(window.centralWidget()->size(), QSize(width, height));
}

inline void FormFixture::MakeFigure()
{
    FigureStore& store = test_->folder.map.Ledger();
    store.CurrentKind = kindRectangle;
    store.AppendFigure();
}

inline frmImageMap* FormFixture::ImageMapEditor()
{
    return test_->window.findChild<frmImageMap*>(QStringLiteral("frmImageMap"));
}

inline QByteArray FormFixture::LoadedLinks()
{
    const auto* const list = test_->Find<QListWidget>("ListView1");
    QStringList links;
    for (int i = 0; i < list->count(); ++i) {
        links << list->item(i)->text();
    }
    return links.join(u'|').toLatin1();
}
