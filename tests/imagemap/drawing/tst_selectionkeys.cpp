#include "Selecting.h"

#include <QTest>
#include <memory>

/** The Select tool, driven by keys. */
class tst_selectionkeys : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test_ = std::make_unique<Selecting>(); }
    void cleanup() { test_.reset(); }

    void arrowsMove();
    void arrowsMoveByTenWithShift();
    void arrowsResizeWithControl();
    void arrowsMoveASelectedCorner();
    void arrowsAreNotTakenWithoutSelection();
    void tabGoesThroughTheAreasAndLeaves();
    void cornersAreReachedByKeys();
    void escapeGivesUpStepByStep();

private:
    std::unique_ptr<Selecting> test_;
};

void tst_selectionkeys::arrowsMove()
{
    test_->Click({ 20, 20 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Down, {}));
    QCOMPARE(test_->Numbers(0), (QList{ 11, 11, 111, 61 }));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Left, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Up, {}));
    QCOMPARE(test_->map.History().UndoName(), "made");
}

void tst_selectionkeys::arrowsMoveByTenWithShift()
{
    test_->Click({ 20, 20 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Left, Qt::ShiftModifier));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Left, Qt::ShiftModifier));
    QCOMPARE(test_->Numbers(0), (QList{ 0, 10, 100, 60 }));
}

void tst_selectionkeys::arrowsResizeWithControl()
{
    test_->Click({ 20, 20 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, Qt::ControlModifier));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Up, Qt::ControlModifier | Qt::ShiftModifier));
    QCOMPARE(test_->Numbers(0), (QList{ 10, 10, 111, 50 }));
}

void tst_selectionkeys::arrowsMoveASelectedCorner()
{
    test_->Click({ 220, 60 });
    test_->Click({ 280, 90 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Right, {}));
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 280, 20, 282, 90, 200, 90 }));
    QCOMPARE(test_->selection.Vertex(), std::optional(2));
}

void tst_selectionkeys::arrowsAreNotTakenWithoutSelection()
{
    QVERIFY(!test_->tool.KeyDown(Qt::Key_Right, {}));
    QVERIFY(!test_->tool.KeyDown(Qt::Key_A, {}));
    QVERIFY(!test_->tool.KeyDown(Qt::Key_Escape, {}));
}

void tst_selectionkeys::tabGoesThroughTheAreasAndLeaves()
{
    for (const qsizetype expected : { 0, 1, 2, 3 }) {
        QVERIFY(test_->tool.KeyDown(Qt::Key_Tab, {}));
        QCOMPARE(test_->selection.Numbers(), AreaNumbers{ expected });
    }
    QVERIFY(!test_->tool.KeyDown(Qt::Key_Tab, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Backtab, Qt::ShiftModifier));
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
}

void tst_selectionkeys::cornersAreReachedByKeys()
{
    QVERIFY(!test_->tool.KeyDown(Qt::Key_V, {}));
    test_->selection.Select({ 3 });
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, {}));
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, {}));
    QCOMPARE(test_->selection.Vertex(), std::optional(1));
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, Qt::ShiftModifier));
    QVERIFY(test_->tool.KeyDown(Qt::Key_V, Qt::ShiftModifier));
    QCOMPARE(test_->selection.Vertex(), std::optional(3));
    QVERIFY(test_->tool.KeyDown(Qt::Key_Insert, {}));
    QCOMPARE(test_->Numbers(3), (QList{ 200, 20, 280, 20, 280, 90, 200, 90, 200, 55 }));
    QCOMPARE(test_->selection.Vertex(), std::optional(4));
}

void tst_selectionkeys::escapeGivesUpStepByStep()
{
    test_->selection.Select({ 3 });
    test_->selection.SelectVertex(1);
    QVERIFY(test_->tool.KeyDown(Qt::Key_Escape, {}));
    QVERIFY(!test_->selection.Vertex());
    QVERIFY(test_->tool.KeyDown(Qt::Key_Escape, {}));
    QVERIFY(test_->selection.Numbers().isEmpty());
}

QTEST_GUILESS_MAIN(tst_selectionkeys)
#include "tst_selectionkeys.moc"
