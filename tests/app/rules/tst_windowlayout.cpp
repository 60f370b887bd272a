#include "app/rules/WindowLayout.h"

#include <QTest>

namespace {

/** A layout of which every size differs. */
constexpr MainLayout plainLayout = {
    .frameWidth = 9000,
    .editorTop = 700,
    .editorWidth = 5000,
    .editorHeight = 4000,
    .tabWidth = 3000,
    .tabHeight = 3900,
};

} // namespace

class tst_windowlayout : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void editorTakesTheRoomBesideTheTabs();
    void heightFollowsOnlyAWindowHighEnough_data();
    void heightFollowsOnlyAWindowHighEnough();
    void widthFollowsOnlyAWindowWideEnough_data();
    void widthFollowsOnlyAWindowWideEnough();
    void frameFollowsTheWidth_data();
    void frameFollowsTheWidth();
    void tabsFollowAnEditorHighEnough_data();
    void tabsFollowAnEditorHighEnough();
    void oneWayTooSmallLeavesTheOther();
    void fittingTwiceChangesNothingMore();
};

void tst_windowlayout::editorTakesTheRoomBesideTheTabs()
{
    const MainLayout fitted = FitToWindow(plainLayout, 12'000, 9000);
    const MainLayout expected = {
        .frameWidth = 11'860,
        .editorTop = 700,
        .editorWidth = 8760,
        .editorHeight = 8060,
        .tabWidth = 3000,
        .tabHeight = 8060,
    };
    QVERIFY(fitted == expected);
}

void tst_windowlayout::heightFollowsOnlyAWindowHighEnough_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("editorHeight");
    QTest::newRow("nothing left below") << 0 << 4000;
    QTest::newRow("at the threshold") << 900 << 4000;
    QTest::newRow("above the threshold, within the margin") << 901 << 4000;
    QTest::newRow("last negative height") << 939 << 4000;
    QTest::newRow("no height") << 940 << 0;
    QTest::newRow("least height") << 941 << 1;
    QTest::newRow("high") << 5000 << 4060;
}

void tst_windowlayout::heightFollowsOnlyAWindowHighEnough()
{
    QFETCH(const int, height);
    QFETCH(const int, editorHeight);
    QCOMPARE(FitToWindow(plainLayout, 12'000, height).editorHeight, editorHeight);
}

void tst_windowlayout::widthFollowsOnlyAWindowWideEnough_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("editorWidth");
    QTest::newRow("nothing left beside") << 0 << 5000;
    QTest::newRow("at the threshold") << 3220 << 5000;
    QTest::newRow("above the threshold, within the margin") << 3221 << 5000;
    QTest::newRow("last negative width") << 3239 << 5000;
    QTest::newRow("no width") << 3240 << 0;
    QTest::newRow("least width") << 3241 << 1;
    QTest::newRow("wide") << 9000 << 5760;
}

void tst_windowlayout::widthFollowsOnlyAWindowWideEnough()
{
    QFETCH(const int, width);
    QFETCH(const int, editorWidth);
    QCOMPARE(FitToWindow(plainLayout, width, 9000).editorWidth, editorWidth);
}

void tst_windowlayout::frameFollowsTheWidth_data()
{
    QTest::addColumn<int>("width");
    QTest::addColumn<int>("frameWidth");
    QTest::newRow("no room") << 0 << 9000;
    QTest::newRow("last negative width") << 139 << 9000;
    QTest::newRow("no width") << 140 << 0;
    QTest::newRow("wide") << 20'000 << 19'860;
}

void tst_windowlayout::frameFollowsTheWidth()
{
    QFETCH(const int, width);
    QFETCH(const int, frameWidth);
    QCOMPARE(FitToWindow(plainLayout, width, 9000).frameWidth, frameWidth);
}

void tst_windowlayout::tabsFollowAnEditorHighEnough_data()
{
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("tabHeight");
    // The editor's top and margin take 940 of the window's height.
    QTest::newRow("editor low") << 1000 << 3900;
    QTest::newRow("editor at the threshold") << 940 + 1150 << 3900;
    QTest::newRow("editor above the threshold") << 940 + 1151 << 1151;
    QTest::newRow("editor high") << 9000 << 8060;
    // The window is too low for the editor, which keeps its height, and the tabs follow that.
    QTest::newRow("editor left as it was") << 500 << 4000;
}

void tst_windowlayout::tabsFollowAnEditorHighEnough()
{
    QFETCH(const int, height);
    QFETCH(const int, tabHeight);
    QCOMPARE(FitToWindow(plainLayout, 12'000, height).tabHeight, tabHeight);
}

void tst_windowlayout::oneWayTooSmallLeavesTheOther()
{
    const MainLayout low = FitToWindow(plainLayout, 12'000, 100);
    QCOMPARE(low.editorWidth, 8760);
    QCOMPARE(low.editorHeight, 4000);
    const MainLayout narrow = FitToWindow(plainLayout, 100, 9000);
    QCOMPARE(narrow.editorWidth, 5000);
    QCOMPARE(narrow.editorHeight, 8060);
}

void tst_windowlayout::fittingTwiceChangesNothingMore()
{
    const MainLayout once = FitToWindow(plainLayout, 12'000, 9000);
    QVERIFY(FitToWindow(once, 12'000, 9000) == once);
}

QTEST_GUILESS_MAIN(tst_windowlayout)

#include "tst_windowlayout.moc"
