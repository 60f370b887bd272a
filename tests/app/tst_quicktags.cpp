#include "tests/app/TagTreeDriving.h"

#include <QClipboard>
#include <QDrag>
#include <QDragEnterEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <functional>
#include <memory>

/** Tags dragged from the preview into the source. */
class tst_quicktags : public QObject
{
    Q_OBJECT

public:
    /** Unlike the platform of the other tests, this one lets things be dragged. */
    static void initMain() { qputenv("QT_QPA_PLATFORM", "minimal"); }

private Q_SLOTS:
    void init();
    void cleanup();

    void droppedTagGoesInAtTheCaretWhereverThePointerIs_data();
    void droppedTagGoesInAtTheCaretWhereverThePointerIs();
    void droppedTagReplacesTheSelection();
    void droppedTagIsOneStepOfUndo();
    void droppedTagLeavesTheClipboardAlone();
    void iconTellsWhetherThePointerIsOverTheEditor();
    void labelWithoutATagStartsNoDrag_data();
    void labelWithoutATagStartsNoDrag();
    void escapeCancelsTheDrag();
    void tagDroppedElsewhereIsGone_data();
    void tagDroppedElsewhereIsGone();
    void releaseWithoutMovingInsertsNothing();

    void foreignDropsAreIgnored_data();
    void foreignDropsAreIgnored();
    void selectedTextIsNotMovedByDragging();

private:
    using Step = std::function<void()>;
    /** Presses on the label; while it is dragged, `steps` are taken one after the other. */
    void DragFrom(const char* label, const QList<Step>& steps);
    void Move(QWidget* over, QPoint place);
    void Release(QWidget* over, QPoint place);
    void DragToEditor(const char* label, QPoint place);
    SourceEditor* Editor() { return test_->Editor(); }
    QPoint Middle() { return Editor()->viewport()->rect().center(); }

    std::unique_ptr<TagTreeFixture> test_;
};

void tst_quicktags::init()
{
    test_ = std::make_unique<TagTreeFixture>();
    QVERIFY(test_->Start());
    test_->Click(test_->Node(QStringLiteral("C604")));
    QCOMPARE(test_->Preview(), QStringLiteral("<B>|</B>"));
    Editor()->LoadText(QStringLiteral("abc\r\ndef"));
}

void tst_quicktags::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

void tst_quicktags::Move(QWidget* over, QPoint place)
{
    QTest::mouseMove(test_->window.windowHandle(), over->mapTo(&test_->window, place));
}

void tst_quicktags::Release(QWidget* over, QPoint place)
{
    QTest::mouseRelease(test_->window.windowHandle(), Qt::LeftButton, {}, over->mapTo(&test_->window, place));
}

void tst_quicktags::DragFrom(const char* label, const QList<Step>& steps)
{
    // The drag has an event loop of its own, in which these come due.
    QObject context;
    int delay = 0;
    qsizetype done = 0;
    for (const Step& step : steps) {
        QTimer::singleShot(delay += 20, &context, [&done, step] {
            step();
            ++done;
        });
    }
    bool isStuck = false;
    QTimer::singleShot(delay + 3000, &context, [&isStuck] {
        isStuck = true;
        QDrag::cancel();
    });
    auto* const source = test_->Find<QLabel>(label);
    QTest::mousePress(
        test_->window.windowHandle(), Qt::LeftButton, {}, source->mapTo(&test_->window, QPoint(5, 5)));
    QTRY_COMPARE(done, steps.size());
    QCoreApplication::processEvents();
    QVERIFY(!isStuck);
}

void tst_quicktags::DragToEditor(const char* label, QPoint place)
{
    DragFrom(
        label, { [this, place] { Move(Editor()->viewport(), place + QPoint(20, 20)); },
                 [this, place] { Move(Editor()->viewport(), place); },
                 [this, place] { Release(Editor()->viewport(), place); } });
}

void tst_quicktags::droppedTagGoesInAtTheCaretWhereverThePointerIs_data()
{
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QPoint>("place");
    QTest::addColumn<QString>("expected");
    QTest::newRow("opening tag, below the text")
        << QByteArray("lblQTagsO") << QPoint(100, 200) << "a<B>bc\r\ndef";
    QTest::newRow("opening tag, over other text")
        << QByteArray("lblQTagsO") << QPoint(4, 22) << "a<B>bc\r\ndef";
    QTest::newRow("closing tag") << QByteArray("lblQTagsC") << QPoint(100, 200) << "a</B>bc\r\ndef";
}

void tst_quicktags::droppedTagGoesInAtTheCaretWhereverThePointerIs()
{
    QFETCH(const QByteArray, label);
    QFETCH(const QPoint, place);
    QFETCH(const QString, expected);
    Editor()->Select(1, 0);
    DragToEditor(label.constData(), place);
    QCOMPARE(Editor()->Text(), expected);
    QCOMPARE(Editor()->SelStart(), 1 + expected.size() - 8);
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->Preview(), QStringLiteral("<B>|</B>"));
}

void tst_quicktags::droppedTagReplacesTheSelection()
{
    Editor()->Select(1, 5);
    DragToEditor("lblQTagsO", Middle());
    QCOMPARE(Editor()->Text(), QStringLiteral("a<B>ef"));
    QCOMPARE(Editor()->SelStart(), qsizetype(4));
    QCOMPARE(Editor()->SelLength(), qsizetype(0));
}

void tst_quicktags::droppedTagIsOneStepOfUndo()
{
    Editor()->Select(1, 5);
    DragToEditor("lblQTagsO", Middle());
    test_->window.Source().undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
}

void tst_quicktags::droppedTagLeavesTheClipboardAlone()
{
    QGuiApplication::clipboard()->setText(QStringLiteral("older"));
    Editor()->Select(1, 1);
    DragToEditor("lblQTagsO", Middle());
    QCOMPARE(Editor()->Text(), QStringLiteral("a<B>c\r\ndef"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("older"));
}

void tst_quicktags::iconTellsWhetherThePointerIsOverTheEditor()
{
    QList<bool> differ;
    const auto look = [&differ, this] {
        const auto* const drag = test_->Find<QLabel>("lblQTagsO")->findChild<QDrag*>();
        QVERIFY(drag != nullptr);
        const QImage over = drag->dragCursor(Qt::CopyAction).toImage();
        const QImage elsewhere = drag->dragCursor(Qt::IgnoreAction).toImage();
        differ << (!over.isNull() && !elsewhere.isNull() && over != elsewhere);
        QVERIFY(!drag->pixmap().isNull());
    };
    DragFrom(
        "lblQTagsO", { [this] { Move(Editor()->viewport(), Middle()); }, look,
                       [this] { Release(Editor()->viewport(), Middle()); } });
    QCOMPARE(differ, QList<bool>({ true }));
}

void tst_quicktags::labelWithoutATagStartsNoDrag_data()
{
    QTest::addColumn<QByteArray>("label");
    QTest::addColumn<QString>("node");
    QTest::newRow("nothing behind the selection") << QByteArray("lblQTagsC") << "C204";
    QTest::newRow("category") << QByteArray("lblQTagsO") << "C600";
}

void tst_quicktags::labelWithoutATagStartsNoDrag()
{
    QFETCH(const QByteArray, label);
    QFETCH(const QString, node);
    test_->Click(test_->Node(node));
    QVERIFY(test_->Find<QLabel>(label.constData())->text().isEmpty());
    bool isDragging = false;
    DragFrom(
        label.constData(),
        { [this] { Move(Editor()->viewport(), Middle()); },
          [&isDragging, this] { isDragging = !test_->window.findChildren<QDrag*>().isEmpty(); },
          [this] { Release(Editor()->viewport(), Middle()); } });
    QVERIFY(!isDragging);
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_quicktags::escapeCancelsTheDrag()
{
    DragFrom(
        "lblQTagsO", { [this] { Move(Editor()->viewport(), Middle()); },
                       [this] { QTest::keyClick(test_->window.windowHandle(), Qt::Key_Escape); },
                       [this] { Release(Editor()->viewport(), Middle()); } });
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_quicktags::tagDroppedElsewhereIsGone_data()
{
    QTest::addColumn<QByteArray>("target");
    for (const char* const target : { "TreeView1", "lblQTagsC", "StatusBar1", "Toolbar1" }) {
        QTest::newRow(target) << QByteArray(target);
    }
}

void tst_quicktags::tagDroppedElsewhereIsGone()
{
    QFETCH(const QByteArray, target);
    auto* const widget = test_->Find<QWidget>(target.constData());
    DragFrom(
        "lblQTagsO", { [this] { Move(Editor()->viewport(), Middle()); },
                       [this, widget] { Move(widget, widget->rect().center()); },
                       [this, widget] { Release(widget, widget->rect().center()); } });
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_quicktags::releaseWithoutMovingInsertsNothing()
{
    auto* const label = test_->Find<QLabel>("lblQTagsO");
    DragFrom("lblQTagsO", { [this, label] { Release(label, { 5, 5 }); } });
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
    // The next click is a click again.
    test_->Click(test_->Node(QStringLiteral("C611")));
    QCOMPARE(test_->Preview(), QStringLiteral("<I>|</I>"));
}

void tst_quicktags::foreignDropsAreIgnored_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::newRow("text") << QByteArray("text/plain");
    QTest::newRow("rich text") << QByteArray("text/html");
    QTest::newRow("files") << QByteArray("text/uri-list");
    QTest::newRow("looking like a tag") << QByteArray("application/x-cartolen-tag");
    QTest::newRow("picture") << QByteArray("image/png");
}

void tst_quicktags::foreignDropsAreIgnored()
{
    QFETCH(const QByteArray, type);
    QMimeData data;
    data.setData(QString::fromLatin1(type), "file:///tmp/x");
    Editor()->Select(1, 2);
    const QSignalSpy change(Editor(), &SourceEditor::Change);
    for (const Qt::DropAction action : { Qt::CopyAction, Qt::MoveAction }) {
        QDragEnterEvent enter(Middle(), action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Editor()->viewport(), &enter);
        QVERIFY(!enter.isAccepted());
        QDragMoveEvent move(Middle(), action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Editor()->viewport(), &move);
        QVERIFY(!move.isAccepted());
        QDropEvent drop(Middle(), action, &data, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(Editor()->viewport(), &drop);
        QVERIFY(!drop.isAccepted());
    }
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QCOMPARE(Editor()->SelText(), QStringLiteral("bc"));
    QCOMPARE(change.count(), 0);
}

void tst_quicktags::selectedTextIsNotMovedByDragging()
{
    Editor()->Select(0, 2);
    QTextCursor first(Editor()->document());
    first.setPosition(1);
    const QPoint from = Editor()->cursorRect(first).center();
    QObject context;
    QTimer::singleShot(30, &context, [this] { Move(Editor()->viewport(), Middle()); });
    bool isReleased = false;
    QTimer::singleShot(60, &context, [this, &isReleased] {
        Release(Editor()->viewport(), Middle());
        isReleased = true;
    });
    QTest::mousePress(
        test_->window.windowHandle(), Qt::LeftButton, {}, Editor()->viewport()->mapTo(&test_->window, from));
    QTRY_VERIFY(isReleased);
    Move(Editor()->viewport(), from + QPoint(30, 40));
    QCoreApplication::processEvents();
    Release(Editor()->viewport(), Middle());
    QCOMPARE(Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QVERIFY(!test_->window.File().IsChanged());
}

QTEST_MAIN(tst_quicktags)
#include "tst_quicktags.moc"
