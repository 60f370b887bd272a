#include "tests/desktop/EveryWindow.h"

#include <QScreen>
#include <QScrollArea>
#include <QStyle>

namespace {

/** The place of `part` on the screen. */
QRect OnScreen(const QWidget* part)
{
    return { part->mapToGlobal(QPoint()), part->size() };
}

} // namespace

/** The program on a screen that is smaller than its windows: a common one at a scaling of 300 %. */
class tst_smallscreen : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void windowsStartWithinTheScreen_data() { EveryWindow::Rows(); }
    void windowsStartWithinTheScreen();
    void buttonsOfDialogsCanBeReached_data();
    void buttonsOfDialogsCanBeReached();
};

void tst_smallscreen::windowsStartWithinTheScreen()
{
    QFETCH(const QByteArray, window);
    EveryWindow every;
    const QWidget* const shown = every.Show(window);
    const QRect screen = shown->screen()->availableGeometry();
    QVERIFY2(screen.contains(shown->pos()), qPrintable(QString::number(shown->y())));
    if (qobject_cast<const frmImageMap*>(shown) != nullptr) {
        // Its list reaches below the screen; what comes before it does not.
        for (const char* const part : { "MenuBar1", "Toolbar1", "PicNosac", "qt_tabwidget_tabbar" }) {
            QVERIFY2(screen.contains(OnScreen(Find<QWidget>(shown, part))), part);
        }
    } else if (window != "font") { // Qt's own
        QVERIFY2(shown->width() <= screen.width(), qPrintable(QString::number(shown->width())));
        QVERIFY2(shown->height() <= screen.height(), qPrintable(QString::number(shown->height())));
    }
}

void tst_smallscreen::buttonsOfDialogsCanBeReached_data()
{
    QTest::addColumn<QByteArray>("window");
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("link") << QByteArray("link-0") << QByteArray("SSCmdClose");
    QTest::newRow("link with images") << QByteArray("link-2") << QByteArray("SSCmdClose");
    QTest::newRow("script options") << QByteArray("script-options") << QByteArray("cmdHelp");
    QTest::newRow("preferences") << QByteArray("preferences") << QByteArray("cmdClose");
}

void tst_smallscreen::buttonsOfDialogsCanBeReached()
{
    QFETCH(const QByteArray, window);
    QFETCH(const QByteArray, button);
    EveryWindow every;
    const QWidget* const dialog = every.Show(window);
    const auto* const goal = Find<QWidget>(dialog, button.constData());
    constexpr int most = 20;
    for (int i = 0; i < most && !goal->hasFocus(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    QVERIFY(goal->hasFocus());
    QVERIFY(dialog->screen()->availableGeometry().contains(OnScreen(goal)));
    QCOMPARE(goal->visibleRegion().boundingRect(), goal->rect());
}

QTEST_MAIN(tst_smallscreen)
#include "tst_smallscreen.moc"
