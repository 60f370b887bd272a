#include "Selecting.h"

#include <QTest>
#include <memory>

/** The commands that change the selected areas, and what is selected after them. */
class tst_areaediting : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { test_ = std::make_unique<Selecting>(); }
    void cleanup() { test_.reset(); }

    void deleteTakesTheAreas();
    void undoSelectsWhatItChanged();
    void whatGoesIsNotSelected();
    void aCopyLiesInFrontAndIsSelected();
    void theOrderIsChangedWithTheSelection();

private:
    std::unique_ptr<Selecting> test_;
};

void tst_areaediting::deleteTakesTheAreas()
{
    test_->Click({ 20, 20 });
    test_->Click({ 300, 200 }, Qt::ShiftModifier);
    test_->editing.Delete();
    QCOMPARE(test_->map.Areas(), (MapAreas{ second, polygon }));
    QVERIFY(test_->selection.Numbers().isEmpty());
    QCOMPARE(test_->map.History().UndoName(), "Delete of 2 Areas");
}

void tst_areaediting::undoSelectsWhatItChanged()
{
    test_->Drag({ 300, 200 }, { 310, 195 });
    test_->Click({ 5, 290 });
    test_->editing.Undo();
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
    QCOMPARE(test_->map.Areas().at(2), disc);
    test_->editing.Redo();
    QCOMPARE(test_->Numbers(2), (QList{ 310, 195, 40 }));
}

void tst_areaediting::whatGoesIsNotSelected()
{
    test_->selection.Select({ 3 });
    test_->selection.SelectVertex(3);
    test_->map.ChangeAreas({ first, second, disc, WithoutCorner(polygon, 0) }, "smaller");
    QVERIFY(!test_->selection.Vertex());
    test_->map.DeleteLastFigure();
    QVERIFY(test_->selection.Numbers().isEmpty());
}

void tst_areaediting::aCopyLiesInFrontAndIsSelected()
{
    test_->selection.Select({ 2 });
    test_->editing.Duplicate();
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 2 });
    QCOMPARE(test_->Numbers(2), (QList{ 310, 210, 40 }));
    QCOMPARE(test_->map.Areas().at(3), disc);
    test_->editing.Paste({ disc, disc });
    QCOMPARE(test_->selection.Numbers(), (AreaNumbers{ 0, 1 }));
}

void tst_areaediting::theOrderIsChangedWithTheSelection()
{
    test_->selection.Select({ 2 });
    test_->editing.Reorder(OrderChange::Up);
    QCOMPARE(test_->map.Areas().at(1), disc);
    QCOMPARE(test_->selection.Numbers(), AreaNumbers{ 1 });
    QCOMPARE(test_->map.History().UndoName(), "Reordering of an Area");
    test_->editing.Align(Alignment::Left);
    test_->editing.SelectAll();
    test_->editing.Align(Alignment::Left);
    QCOMPARE(BoundsOf(test_->map.Areas().at(3)).left(), 10);
}

QTEST_GUILESS_MAIN(tst_areaediting)
#include "tst_areaediting.moc"
