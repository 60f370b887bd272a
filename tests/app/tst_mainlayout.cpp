#include "tests/app/FormFixture.h"

#include <QTabWidget>

namespace {

constexpr int twipsPerPixel = 15;

} // namespace

/** How the controls of the main window share its room. */
class tst_mainlayout : public FormFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void editorTakesTheRoomOfTheWindow_data();
    void editorTakesTheRoomOfTheWindow();
    void lowWindowLeavesTheEditorsHeight();
    void narrowWindowLeavesTheEditorsWidth();
    void lowEditorLeavesTheTabbedPanelsHeight();
    void minimisingChangesNoSize();
    void longDocumentNameDoesNotWidenTheWindow();
};

void tst_mainlayout::editorTakesTheRoomOfTheWindow_data()
{
    QTest::addColumn<QSize>("inside");
    QTest::newRow("medium") << QSize(700, 500);
    QTest::newRow("wide") << QSize(1200, 300);
    QTest::newRow("high") << QSize(400, 900);
    QTest::newRow("odd") << QSize(733, 517);
}

void tst_mainlayout::editorTakesTheRoomOfTheWindow()
{
    QFETCH(const QSize, inside);
    QVERIFY(test_->Start());
    const QWidget* const frame = test_->Find<QFrame>("Frame1");
    const QWidget* const tabs = test_->Find<QTabWidget>("SSTab1");
    const QWidget* const editor = test_->Editor();
    const QRect oldTabs = tabs->geometry();
    const QRect oldEditor = editor->geometry();
    const QRect oldFrame = frame->geometry();
    ResizeInside(inside.width(), inside.height());

    const auto pixels = [](int twips) { return qRound(double(twips) / twipsPerPixel); };
    const int width = inside.width() * twipsPerPixel;
    const int height = inside.height() * twipsPerPixel;
    QCOMPARE(frame->width(), pixels(width - 140));
    QCOMPARE(frame->height(), oldFrame.height());
    QCOMPARE(frame->pos(), oldFrame.topLeft());
    QCOMPARE(editor->pos(), oldEditor.topLeft());
    QCOMPARE(editor->height(), pixels(height - editor->y() * twipsPerPixel - 240));
    QCOMPARE(editor->width(), pixels(width - tabs->width() * twipsPerPixel - 240));
    QCOMPARE(tabs->pos(), oldTabs.topLeft());
    QCOMPARE(tabs->width(), oldTabs.width());
    QCOMPARE(tabs->height(), editor->height());
    QCOMPARE(editor->x(), tabs->geometry().right() + 1);
}

void tst_mainlayout::lowWindowLeavesTheEditorsHeight()
{
    QVERIFY(test_->Start());
    const QWidget* const editor = test_->Editor();
    const int top = editor->y();
    ResizeInside(700, 400);
    const int height = editor->height();
    // 13 pixels are less than the 200 twips that the guard asks for.
    ResizeInside(700, top + 13);
    QCOMPARE(editor->height(), height);
    // 14 pixels are more, but would leave a negative height, which is not taken.
    ResizeInside(700, top + 14);
    QCOMPARE(editor->height(), height);
    ResizeInside(700, top + 15);
    QCOMPARE(editor->height(), height);
    ResizeInside(700, top + 16);
    QCOMPARE(editor->height(), 0);
    ResizeInside(701, top + 13);
    QCOMPARE(editor->height(), 0);
    QCOMPARE(editor->width(), 701 - editor->x() - 16);
}

void tst_mainlayout::narrowWindowLeavesTheEditorsWidth()
{
    QVERIFY(test_->Start());
    const QWidget* const editor = test_->Editor();
    const int tabs = test_->Find<QTabWidget>("SSTab1")->width();
    ResizeInside(700, 400);
    const int width = editor->width();
    // 220 twips are 14 2/3 pixels.
    ResizeInside(tabs + 14, 400);
    QCOMPARE(editor->width(), width);
    ResizeInside(tabs + 15, 400);
    QCOMPARE(editor->width(), width);
    ResizeInside(tabs + 16, 400);
    QCOMPARE(editor->width(), 0);
    ResizeInside(tabs + 14, 450);
    QCOMPARE(editor->width(), 0);
    QCOMPARE(editor->height(), 450 - editor->y() - 16);
    QCOMPARE(test_->Find<QFrame>("Frame1")->width(), tabs + 14 - 9);
}

void tst_mainlayout::lowEditorLeavesTheTabbedPanelsHeight()
{
    QVERIFY(test_->Start());
    const QWidget* const editor = test_->Editor();
    const QWidget* const tabs = test_->Find<QTabWidget>("SSTab1");
    ResizeInside(700, editor->y() + 16 + 300);
    QCOMPARE(tabs->height(), 300);
    // 1150 twips are 76 2/3 pixels.
    ResizeInside(700, editor->y() + 16 + 76);
    QCOMPARE(editor->height(), 76);
    QCOMPARE(tabs->height(), 300);
    ResizeInside(700, editor->y() + 16 + 77);
    QCOMPARE(editor->height(), 77);
    QCOMPARE(tabs->height(), 77);
}

void tst_mainlayout::minimisingChangesNoSize()
{
    QVERIFY(test_->Start());
    ResizeInside(700, 400);
    const auto sizes = [this] {
        return QList<QSize>{ test_->Find<QFrame>("Frame1")->size(), test_->Find<QTabWidget>("SSTab1")->size(),
                             test_->Editor()->size() };
    };
    const QList<QSize> before = sizes();
    test_->window.showMinimized();
    QVERIFY(test_->window.isMinimized());
    // A window manager may well resize a minimised window.
    test_->window.centralWidget()->resize(300, 100);
    QCoreApplication::processEvents();
    QCOMPARE(sizes(), before);
    test_->window.showNormal();
    QCoreApplication::processEvents();
    ResizeInside(700, 400);
    QCOMPARE(sizes(), before);
}

void tst_mainlayout::longDocumentNameDoesNotWidenTheWindow()
{
    QVERIFY(test_->Start());
    const QSize before = test_->window.size();
    const QString path = test_->folder.Path(QString(200, u'x') + QStringLiteral(".htm"));
    QVERIFY(WriteBytes(path, "x"));
    test_->Open(path);
    QCOMPARE(test_->DocumentName(), path);
    QCoreApplication::processEvents();
    QCOMPARE(test_->window.size(), before);
}

QTEST_MAIN(tst_mainlayout)
#include "tst_mainlayout.moc"
