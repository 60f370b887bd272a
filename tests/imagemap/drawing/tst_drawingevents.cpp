// Any mouse events in any order.

#include "RecordingView.h"
#include "imagemap/drawing/DrawingProtocol.h"
#include "tests/imagemap/drawing/ProtocolFixture.h"

#include <QPointF>
#include <QTest>
#include <limits>
#include <memory>
#include <random>

class tst_drawingevents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void randomEventsNeverBreakTheStore();

private:
    void StartRandomEvent(std::mt19937& random);
    void CheckInvariants();

    std::unique_ptr<Editor> editor_;
};

void tst_drawingevents::init()
{
    editor_ = std::make_unique<Editor>();
}

/** Does one thing that a user can do, mostly with the mouse. */
void tst_drawingevents::StartRandomEvent(std::mt19937& random)
{
    const auto below = [&random](int limit) {
        return static_cast<int>(random() % static_cast<quint32>(limit));
    };
    const auto coordinate = [&]() -> double {
        switch (below(40)) {
        case 0:
            return below(200'000) - 100'000;
        case 1:
            return std::numeric_limits<double>::quiet_NaN();
        case 2:
            return below(2) == 0 ? 1e300 : -1e300;
        default:
            return (below(2000) - 400) / 2.0;
        }
    };
    const QPointF point(coordinate(), coordinate());
    const int button = below(20) == 0 ? middleButton : below(8) == 0 ? rightButton : leftButton;
    const int action = below(1000);
    if (action < 300) {
        editor_->Press(point, button);
    } else if (action < 600) {
        editor_->Release(point, button);
    } else if (action < 970) {
        editor_->Move(point);
    } else if (action < 985) {
        editor_->protocol.SelectTool(static_cast<DrawingTool>(kindRectangle + below(3)));
    } else if (action < 988) {
        editor_->protocol.SelectTool(DrawingTool::Cursor);
    } else if (action < 995) {
        editor_->map.DeleteLastFigure();
    } else if (action < 998) {
        editor_->display.RedrawFigures();
    } else if (action < 999) {
        editor_->protocol.Abandon();
    } else if (below(20) == 0) {
        editor_->DeleteMap();
    }
}

void tst_drawingevents::CheckInvariants()
{
    const FigureStore& store = editor_->Store();
    QVERIFY(store.FigureCount >= 0 && store.FigureCount <= FigureStore::capacity);
    QVERIFY(store.PolygonLineCount >= 0 && store.PolygonLineCount <= store.FigureCount);
    QVERIFY(store.CurrentPolygonLineCount >= 0 && store.CurrentPolygonLineCount <= FigureStore::capacity);
    QVERIFY(store.DrawState >= drawIdle && store.DrawState <= drawMoving);
    const bool hasWork = store.FigureCount > 0 || store.DrawState != drawIdle;
    QCOMPARE(editor_->view.areCommandsEnabled, hasWork);
    QVERIFY(hasWork || editor_->view.Figures().isEmpty());
    QVERIFY(store.DrawState != drawIdle || !editor_->view.rubber);
}

void tst_drawingevents::randomEventsNeverBreakTheStore()
{
    std::mt19937 random(20010203);
    editor_->view.onLink = [&] {
        if (random() % 4 != 0) {
            editor_->AcceptLink();
        } else {
            editor_->CloseLink();
        }
    };
    int most = 0;
    for (int event = 0; event < 200'000; ++event) {
        StartRandomEvent(random);
        most = std::max(most, editor_->Store().FigureCount);
        CheckInvariants();
        if (QTest::currentTestFailed()) {
            qWarning("after event %d", event);
            return;
        }
    }
    // The events reach the limit, or they would not test it.
    QCOMPARE(most, FigureStore::capacity);
    QVERIFY(!editor_->view.fullStoreTexts.isEmpty());
}

QTEST_GUILESS_MAIN(tst_drawingevents)

#include "tst_drawingevents.moc"
