// The numbers beside the lines of the source.

#include "app/EditorMargins.h"
#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

#include <QAbstractTextDocumentLayout>
#include <QScrollBar>
#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>
#include <utility>

class tst_linenumbers : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void standBesideTheText();
    void textHasTheirRoomBackWithoutThem();
    void indentationStandsBehindThem();
    void everyNumberStandsOnItsLine_data();
    void everyNumberStandsOnItsLine();
    void areAlignedRight();
    void followTheEdits();
    void arePaintedWheneverLinesMove();
    void areNotPaintedAtEveryKey();
    void areWiderForMoreLines();
    void growWithTheText();
    void wheelOverThemScrolls();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    QWidget* Bar() { return test_->Find<QWidget>("barLineNumbers"); }

    void Show(const QString& text)
    {
        Editor()->LoadText(text);
        Editor()->Select(0, 0);
        test_->ClickMenu("mnuView", "mnuVLineNumbers");
        QVERIFY(Bar()->isVisible());
    }

    /** The rows of the bar, in its pixels, that have something on their ground, as spans from top to bottom.
     */
    QList<std::pair<int, int>> Labels()
    {
        const QImage picture = Bar()->grab().toImage();
        QList<std::pair<int, int>> labels;
        bool isInLabel = false;
        for (int y = 0; y < picture.height(); ++y) {
            bool isEmpty = true;
            for (int x = 0; x < picture.width(); ++x) {
                isEmpty = isEmpty && picture.pixel(x, y) == picture.pixel(0, 0);
            }
            if (!isEmpty && !isInLabel) {
                labels << std::pair(y, y);
            }
            isInLabel = !isEmpty;
            if (isInLabel) {
                labels.last().second = y;
            }
        }
        return labels;
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        paints_ += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }

    /** Whether the numbers have been painted since they were asked last. */
    bool AreTheyPainted()
    {
        QCoreApplication::processEvents();
        return std::exchange(paints_, 0) > 0;
    }

    int paints_ = 0;

    /** How many columns at the right edge of row `y` to `y + height` are ground alone. */
    int EmptyAtRight(int y, int height)
    {
        const QImage picture = Bar()->grab().toImage();
        for (int x = picture.width() - 1; x >= 0; --x) {
            for (int i = y; i < y + height; ++i) {
                if (picture.pixel(x, i) != picture.pixel(0, 0)) {
                    return picture.width() - 1 - x;
                }
            }
        }
        return picture.width();
    }
};

void tst_linenumbers::standBesideTheText()
{
    const QRect place = Editor()->geometry();
    const QRect text = Editor()->viewport()->geometry();
    Show(QStringLiteral("a\nb"));
    QCOMPARE(Editor()->geometry(), place);
    QTRY_COMPARE(Bar()->geometry().right() + 1, Editor()->viewport()->x());
    QCOMPARE(Bar()->geometry().topLeft(), text.topLeft());
    QCOMPARE(Bar()->height(), text.height());
    QCOMPARE(Editor()->viewport()->geometry().bottomRight(), text.bottomRight());
    QCOMPARE(Editor()->Text(), QStringLiteral("a\r\nb"));
}

void tst_linenumbers::textHasTheirRoomBackWithoutThem()
{
    const QRect text = Editor()->viewport()->geometry();
    Show(QStringLiteral("a\nb"));
    QTRY_VERIFY(Editor()->viewport()->geometry() != text);
    test_->ClickMenu("mnuView", "mnuVLineNumbers");
    QVERIFY(!Bar()->isVisible());
    QTRY_COMPARE(Editor()->viewport()->geometry(), text);
}

void tst_linenumbers::indentationStandsBehindThem()
{
    Show(QStringLiteral("a"));
    const int left = Editor()->viewport()->x();
    Editor()->Margins().SetIndent(30 * 15);
    QCOMPARE(Editor()->viewport()->x(), left + 30);
    QCOMPARE(Bar()->geometry().right() + 1, left);
}

void tst_linenumbers::everyNumberStandsOnItsLine_data()
{
    QTest::addColumn<bool>("isWrapped");
    QTest::addColumn<int>("larger");
    QTest::newRow("as usual") << true << 0;
    QTest::newRow("not wrapped") << false << 0;
    QTest::newRow("large") << true << 9;
    QTest::newRow("small") << true << -3;
}

void tst_linenumbers::everyNumberStandsOnItsLine()
{
    QFETCH(const bool, isWrapped);
    QFETCH(const int, larger);
    // Letters as high as digits, and a line that wraps.
    Show(QStringLiteral("H\n") + QStringLiteral("H ").repeated(150) + QStringLiteral("\nH\n\nH"));
    if (!isWrapped) {
        test_->ClickMenu("mnuView", "mnuVWrap");
    }
    for (int i = 0; i < std::abs(larger); ++i) {
        test_->Press(larger > 0 ? Qt::Key_Plus : Qt::Key_Minus, Qt::ControlModifier);
    }
    // One line is in other letters.
    Editor()->Select(0, 1);
    QTextCharFormat high;
    high.setFontPointSize(20);
    Editor()->mergeCurrentCharFormat(high);
    QCoreApplication::processEvents();
    const auto labels = Labels();
    QCOMPARE(labels.size(), 5);
    const auto& layout = *Editor()->document()->documentLayout();
    double top = Editor()->contentOffset().y();
    QTextBlock block = Editor()->document()->begin();
    for (const auto& [first, last] : labels) {
        const QTextLine line = block.layout()->lineAt(0);
        QVERIFY(std::abs(last + 1 - (top + line.ascent())) <= 1.5);
        top += layout.blockBoundingRect(block).height();
        block = block.next();
    }
}

void tst_linenumbers::areAlignedRight()
{
    Show(QStringLiteral("a\n").repeated(100));
    Editor()->verticalScrollBar()->setValue(96); // 97 to 101
    QCoreApplication::processEvents();
    const auto labels = Labels();
    const int atRight = EmptyAtRight(labels[1].first, 20);
    Editor()->verticalScrollBar()->setValue(0);
    QCoreApplication::processEvents();
    for (const auto& [first, last] : Labels()) {
        QVERIFY(std::abs(EmptyAtRight(first, last - first + 1) - atRight) <= 3); // digits differ in shape
    }
}

void tst_linenumbers::followTheEdits()
{
    Show(QStringLiteral("a\nb"));
    QTRY_COMPARE(Labels().size(), 2);
    test_->Press(Qt::Key_Return);
    QTRY_COMPARE(Labels().size(), 3);
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(Labels().size(), 2);
    Editor()->LoadText(QStringLiteral("1\n2\n3\n4"));
    QTRY_COMPARE(Labels().size(), 4);
}

void tst_linenumbers::arePaintedWheneverLinesMove()
{
    Show(QStringLiteral("a\n").repeated(5));
    Bar()->installEventFilter(this);
    (void)AreTheyPainted();
    test_->Press(Qt::Key_Return);
    QVERIFY(AreTheyPainted());
    test_->Press(Qt::Key_Backspace);
    QVERIFY(AreTheyPainted());
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    (void)AreTheyPainted();
    test_->Press(Qt::Key_Return);
    QVERIFY(AreTheyPainted());
    Editor()->Select(0, 0);
    (void)AreTheyPainted();
    Editor()->ReplaceSelection(QStringLiteral("so ").repeated(200)); // takes several rows
    QVERIFY(AreTheyPainted());
    Editor()->LoadText(QStringLiteral("a\n").repeated(300));
    QVERIFY(AreTheyPainted());
    Editor()->verticalScrollBar()->setValue(10);
    QVERIFY(AreTheyPainted());
    test_->Press(Qt::Key_Plus, Qt::ControlModifier);
    QVERIFY(AreTheyPainted());
}

void tst_linenumbers::areNotPaintedAtEveryKey()
{
    Show(QStringLiteral("a\n").repeated(5));
    Bar()->installEventFilter(this);
    (void)AreTheyPainted();
    test_->Type("xyz");
    QVERIFY(!AreTheyPainted());
    test_->Press(Qt::Key_Backspace);
    QVERIFY(!AreTheyPainted());
}

void tst_linenumbers::areWiderForMoreLines()
{
    Show(QStringLiteral("a\n").repeated(998));
    const int width = Bar()->width();
    test_->Press(Qt::Key_Return);
    QTRY_VERIFY(Bar()->width() > width);
    QTRY_COMPARE(Bar()->geometry().right() + 1, Editor()->viewport()->x());
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(Bar()->width(), width);
}

void tst_linenumbers::growWithTheText()
{
    Show(QStringLiteral("a"));
    const int width = Bar()->width();
    for (int i = 0; i < 10; ++i) {
        test_->Press(Qt::Key_Plus, Qt::ControlModifier);
    }
    QTRY_VERIFY(Bar()->width() > width * 3 / 2);
    QTRY_COMPARE(Bar()->geometry().right() + 1, Editor()->viewport()->x());
}

void tst_linenumbers::wheelOverThemScrolls()
{
    Show(QStringLiteral("a\n").repeated(300));
    const QPointF place(Bar()->rect().center());
    QWheelEvent turn(
        place, Bar()->mapToGlobal(place), {}, { 0, -120 }, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
        false);
    QApplication::sendEvent(Bar(), &turn);
    QCOMPARE(Editor()->verticalScrollBar()->value(), QApplication::wheelScrollLines());
}

QTEST_MAIN(tst_linenumbers)
#include "tst_linenumbers.moc"
