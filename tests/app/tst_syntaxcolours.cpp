// The colours of the source: those that are seen, and nothing else of it.

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"
#include "tests/desktop/Colours.h"

#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTextBlock>
#include <QTextLayout>

class tst_syntaxcolours : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void partsOfAPageHaveTheirColours();
    void coloursFollowWhatIsTyped();
    void coloursBehindAnEditFollowIt();
    void linesBehindStayWhileATagIsTyped();
    void turningThemOffLeavesNothing();
    void linesOutOfSightAreNotColoured();
    void farPlacesAreColouredSoon();
    void coloursOfTheFontCommandStay();
    void composedTextKeepsItsLook();
    void otherDocumentHasItsOwnColours();
    void longLinesAreColouredAllAlong();
    void coloursCanBeRead_data();
    void coloursCanBeRead();
    void nothingIsTold();
    void paintingEndsAtOnce();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    QTextBlock Line(int number) { return Editor()->document()->findBlockByNumber(number); }

    /** Shows `text` in colours. */
    void Show(const QString& text)
    {
        Editor()->LoadText(text);
        Editor()->Select(0, 0);
        test_->ClickMenu("mnuView", "mnuVColours");
        Paint();
    }

    void Paint()
    {
        Editor()->viewport()->update();
        QCoreApplication::processEvents();
    }

    /** The coloured pieces of a line, a blank between them. */
    QString Pieces(int number)
    {
        QStringList pieces;
        for (const QTextLayout::FormatRange& range : Line(number).layout()->formats()) {
            pieces << Line(number).text().mid(range.start, range.length);
        }
        return pieces.join(u' ');
    }

    /** The colour that a character of a line is in. */
    QColor ColourAt(int number, int place)
    {
        for (const QTextLayout::FormatRange& range : Line(number).layout()->formats()) {
            if (place >= range.start && place < range.start + range.length) {
                return range.format.foreground().color();
            }
        }
        return {};
    }
};

void tst_syntaxcolours::partsOfAPageHaveTheirColours()
{
    Show(QStringLiteral("<a href=\"x\">y &amp; z</a>\n<!-- a\nb -->c"));
    QCOMPARE(Pieces(0), QStringLiteral("<a href \"x\" > &amp; </a>"));
    QCOMPARE(Pieces(1), QStringLiteral("<!-- a"));
    QCOMPARE(Pieces(2), QStringLiteral("b -->"));
    QCOMPARE(ColourAt(0, 0), ColourAt(0, 21));
    QVERIFY(ColourAt(0, 0) != ColourAt(0, 4));
    QCOMPARE(ColourAt(1, 0), ColourAt(2, 0));
    // And they are on the screen.
    const QImage picture = Editor()->viewport()->grab().toImage();
    int inColour = 0;
    for (int x = 0; x < picture.width(); ++x) {
        for (int y = 0; y < Editor()->fontMetrics().height(); ++y) {
            inColour += picture.pixelColor(x, y).saturation() > 100 ? 1 : 0;
        }
    }
    QVERIFY(inColour > 20);
}

void tst_syntaxcolours::coloursFollowWhatIsTyped()
{
    Show(QString());
    test_->Type("<p id=a>&lt;");
    Paint();
    QCOMPARE(Pieces(0), QStringLiteral("<p id a > &lt;"));
    test_->Press(Qt::Key_Home);
    test_->Press(Qt::Key_Delete);
    Paint();
    QCOMPARE(Pieces(0), QStringLiteral("&lt;"));
    QTest::keyClick(Editor(), Qt::Key_Z, Qt::ControlModifier);
    Paint();
    QCOMPARE(Pieces(0), QStringLiteral("<p id a > &lt;"));
}

void tst_syntaxcolours::coloursBehindAnEditFollowIt()
{
    Show(QStringLiteral("\n<p>one\n<b>two\n--><i>"));
    test_->Type("<!--");
    QTRY_COMPARE(Pieces(1), QStringLiteral("<p>one"));
    QTRY_COMPARE(Pieces(2), QStringLiteral("<b>two"));
    QTRY_COMPARE(Pieces(3), QStringLiteral("--> <i>"));
    test_->Press(Qt::Key_Backspace);
    QTRY_COMPARE(Pieces(1), QStringLiteral("<p>")); // "<!-" begins one, too, up to the next ">"
    QCOMPARE(ColourAt(1, 0), ColourAt(0, 0));
    QTRY_COMPARE(Pieces(2), QStringLiteral("<b>"));
    test_->Press(Qt::Key_Backspace);
    test_->Press(Qt::Key_Backspace);
    QTRY_COMPARE(Pieces(2), QStringLiteral("<b>"));
    QTRY_COMPARE(Pieces(3), QStringLiteral("<i>"));
}

void tst_syntaxcolours::linesBehindStayWhileATagIsTyped()
{
    Show(QStringLiteral("a\n<p>one\n</p>"));
    for (const char* const key : { "<", "b", " ", "i", "d", "=", "\"", "c", "\"", ">" }) {
        test_->Type(key);
        Editor()->viewport()->repaint();
        QCOMPARE(Pieces(1), QStringLiteral("<p>"));
        QCOMPARE(Pieces(2), QStringLiteral("</p>"));
    }
    QCOMPARE(Pieces(0), QStringLiteral("<b id \"c\" >"));
    test_->Press(Qt::Key_Return);
    test_->Type("<i>");
    Editor()->viewport()->repaint();
    QCOMPARE(Pieces(1), QStringLiteral("<i>"));
    QCOMPARE(Pieces(2), QStringLiteral("<p>"));
}

void tst_syntaxcolours::turningThemOffLeavesNothing()
{
    Show(QStringLiteral("<p>one\n").repeated(500));
    Editor()->verticalScrollBar()->setValue(300);
    Paint();
    QCOMPARE(Pieces(301), QStringLiteral("<p>"));
    test_->ClickMenu("mnuView", "mnuVColours");
    for (QTextBlock line = Line(0); line.isValid(); line = line.next()) {
        QVERIFY(line.layout()->formats().isEmpty());
        QVERIFY(line.userData() == nullptr);
    }
    Paint();
    QCOMPARE(Pieces(301), QString());
}

void tst_syntaxcolours::linesOutOfSightAreNotColoured()
{
    Show(QStringLiteral("<p>one\n").repeated(5000));
    int coloured = 0;
    for (QTextBlock line = Line(0); line.isValid(); line = line.next()) {
        coloured += line.layout()->formats().isEmpty() ? 0 : 1;
    }
    QVERIFY(coloured > 20);
    QVERIFY(coloured < 100);
}

void tst_syntaxcolours::farPlacesAreColouredSoon()
{
    Show(
        QStringLiteral("<script>\n") +
        QStringLiteral("some lines of it, one after the other\n").repeated(50000));
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    QTRY_COMPARE(Pieces(49990), QStringLiteral("some lines of it, one after the other"));
}

void tst_syntaxcolours::coloursOfTheFontCommandStay()
{
    Show(QStringLiteral("<a href=\"x\">y</a>"));
    QTextCharFormat red;
    red.setForeground(Qt::red);
    Editor()->Select(1, 4);
    Editor()->mergeCurrentCharFormat(red);
    QTextCharFormat large;
    large.setFontPointSize(20);
    large.setForeground(QBrush()); // "Automatic"
    Editor()->Select(13, 4);
    Editor()->mergeCurrentCharFormat(large);
    Paint();
    QCOMPARE(Pieces(0), QStringLiteral("< ef \"x\" > </a>"));
    QCOMPARE(ColourAt(0, 0), ColourAt(0, 14));
}

void tst_syntaxcolours::composedTextKeepsItsLook()
{
    Show(QStringLiteral("<b>"));
    Editor()->Select(2, 0);
    QTextCharFormat underlined;
    underlined.setFontUnderline(true);
    QInputMethodEvent compose(
        QStringLiteral("xy"),
        { { QInputMethodEvent::TextFormat, 0, 2, underlined }, { QInputMethodEvent::Cursor, 2, 1 } });
    QApplication::sendEvent(Editor(), &compose);
    Paint();
    bool isUnderlined = false;
    int end = 0;
    for (const QTextLayout::FormatRange& range : Line(0).layout()->formats()) {
        isUnderlined =
            isUnderlined || (range.format.fontUnderline() && range.start == 2 && range.length == 2);
        end = std::max(end, range.start + range.length);
    }
    QVERIFY(isUnderlined);
    QCOMPARE(end, 5);
    QInputMethodEvent commit;
    commit.setCommitString(QStringLiteral("x"));
    QApplication::sendEvent(Editor(), &commit);
    Paint();
    QCOMPARE(Pieces(0), QStringLiteral("<bx>"));
}

void tst_syntaxcolours::otherDocumentHasItsOwnColours()
{
    Show(QStringLiteral("<!--\n").repeated(2000));
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    Paint();
    QTRY_COMPARE(Pieces(1990), QStringLiteral("<!--"));
    Editor()->LoadText(QStringLiteral("<p>a\n").repeated(2000));
    Paint();
    QCOMPARE(Pieces(1), QStringLiteral("<p>"));
    Editor()->verticalScrollBar()->setValue(1900);
    Paint();
    QTRY_COMPARE(Pieces(1901), QStringLiteral("<p>"));
}

void tst_syntaxcolours::longLinesAreColouredAllAlong()
{
    Show(QStringLiteral("<b>a</b> ").repeated(3000) + QStringLiteral("<!--\nend"));
    QVERIFY(!Line(0).layout()->formats().isEmpty());
    Editor()->verticalScrollBar()->setValue(Editor()->verticalScrollBar()->maximum());
    Paint();
    const int last = Editor()->blockCount() - 1;
    QTRY_COMPARE(Pieces(last), QStringLiteral("end"));
    QVERIFY(Pieces(last - 1).endsWith(QStringLiteral("<!--")));
    QVERIFY(Pieces(last - 1).contains(QStringLiteral("<b>")));
}

void tst_syntaxcolours::coloursCanBeRead_data()
{
    QTest::addColumn<QPalette>("palette");
    QPalette blue = QApplication::palette();
    blue.setColor(QPalette::Base, QColor(0, 0, 0x80));
    blue.setColor(QPalette::Text, Qt::yellow);
    QTest::newRow("light") << QApplication::palette();
    QTest::newRow("dark") << DarkPalette();
    QTest::newRow("blue") << blue;
}

void tst_syntaxcolours::coloursCanBeRead()
{
    QFETCH(const QPalette, palette);
    test_->window.setPalette(palette);
    Show(QStringLiteral("<!DOCTYPE html><!-- a --><a b=\"c\">&amp;<style>d</style><script>e</script>"));
    test_->ClickMenu("mnuView", "mnuVCurrentLine");
    Paint();
    const QRgb ground = Editor()->palette().color(QPalette::Base).rgb();
    QSet<QRgb> colours;
    for (const QTextLayout::FormatRange& range : Line(0).layout()->formats()) {
        const QRgb colour = range.format.foreground().color().rgb();
        QVERIFY(Contrast(colour, ground) >= 4.5);
        colours << colour;
    }
    QVERIFY(colours.size() >= 5);
    // Another desktop is followed at once.
    test_->window.setPalette(DarkPalette());
    Paint();
    const QRgb dark = DarkPalette().color(QPalette::Base).rgb();
    for (const QTextLayout::FormatRange& range : Line(0).layout()->formats()) {
        QVERIFY(Contrast(range.format.foreground().color().rgb(), dark) >= 4.5);
    }
}

void tst_syntaxcolours::nothingIsTold()
{
    QVERIFY(OpenFile("page.htm", QByteArray("<p>a</p>\r\n").repeated(3000)));
    const QSignalSpy edits(Editor(), &SourceEditor::Change);
    const QSignalSpy changes(Editor()->document(), &QTextDocument::contentsChange);
    const QSignalSpy texts(Editor(), &SourceEditor::textChanged);
    const int revision = Editor()->document()->revision();
    test_->ClickMenu("mnuView", "mnuVColours");
    Paint();
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    QTRY_COMPARE(Pieces(2990), QStringLiteral("<p> </p>"));
    test_->Press(Qt::Key_Home, Qt::ControlModifier);
    Paint();
    QCOMPARE(edits.size() + changes.size() + texts.size(), qsizetype(0));
    QCOMPARE(Editor()->document()->revision(), revision);
    QVERIFY(!Editor()->document()->isUndoAvailable());
    QVERIFY(!test_->window.File().IsChanged());
    // The next edit tells of itself alone.
    test_->Type("x");
    QCOMPARE(changes.size(), qsizetype(1));
    QCOMPARE(changes[0], (QVariantList{ 0, 0, 1 }));
    QCOMPARE(edits.size(), qsizetype(1));
    QTest::keyClick(Editor(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(!Editor()->document()->isUndoAvailable());
}

namespace {

class PaintCounter : public QObject
{
public:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        paints += event->type() == QEvent::Paint ? 1 : 0;
        return QObject::eventFilter(watched, event);
    }
    int paints = 0;
};

} // namespace

void tst_syntaxcolours::paintingEndsAtOnce()
{
    Show(QStringLiteral("<p>a</p>\n").repeated(3000));
    PaintCounter counter;
    Editor()->viewport()->installEventFilter(&counter);
    test_->Type("<");
    QTest::qWait(50);
    // One for the line, and one for those behind it that have other colours now; the caret may blink.
    QVERIFY2(counter.paints <= 3, qPrintable(QString::number(counter.paints)));
}

QTEST_MAIN(tst_syntaxcolours)
#include "tst_syntaxcolours.moc"
