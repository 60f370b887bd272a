// The View menu: how the text is shown, without a change of it.

#include "tests/support/WidgetDriving.h"

#include "tests/app/DocumentsFixture.h"

#include <QTextBlock>
#include <QTextLayout>
#include <QWheelEvent>

class tst_viewcommands : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void entriesStandInOrder();
    void choicesAreCheckedWhileTheyHold_data();
    void choicesAreCheckedWhileTheyHold();
    void choicesComeBackAtTheNextStart_data() { choicesAreCheckedWhileTheyHold_data(); }
    void choicesComeBackAtTheNextStart();
    void nothingIsWrittenUntilAnEntryIsUsed();
    void longLinesAreWrappedOrNot();
    void wrappingFollowsThePreferences();
    void keysChangeTheSizeOfTheText();
    void sizeHasItsLimits();
    void wheelChangesTheSizeOfTheText();
    void fineStepsOfTheWheelAddUp();
    void wheelAloneScrolls();
    void sizeComesBackAtTheNextStart();
    void spacesAreSeen();
    void lineOfTheCaretIsMarked_data();
    void lineOfTheCaretIsMarked();
    void markOfTheLineFollowsTheCaret();
    void documentStaysAsItIs();

private:
    SourceEditor* Editor() { return test_->Editor(); }
    bool IsChecked(const char* entry) { return test_->Find<QAction>(entry)->isChecked(); }
    void Use(const char* entry) { test_->ClickMenu("mnuView", entry); }
    [[nodiscard]] bool IsSettingsFileThere() const { return QFile::exists(Path("Data/Settings.ini")); }

    void Fill(const QString& text)
    {
        Editor()->LoadText(text);
        Editor()->Select(0, 0);
    }

    /** Turns the wheel over the text by `angle` eighths of a degree. */
    void Turn(int angle, Qt::KeyboardModifiers modifiers)
    {
        QWidget* const view = Editor()->viewport();
        const QPointF place(view->rect().center());
        QWheelEvent turn(
            place, view->mapToGlobal(place), {}, { 0, angle }, Qt::NoButton, modifiers, Qt::NoScrollPhase,
            false);
        QApplication::sendEvent(view, &turn);
    }

    double Size() { return Editor()->font().pointSizeF(); }

    /** The colour of the view beside the text, `row` rows below the first. */
    QColor GroundOf(int row)
    {
        const QImage picture = Editor()->viewport()->grab().toImage();
        const QRect first = Editor()->cursorRect(QTextCursor(Editor()->document()));
        const int y = first.center().y() + row * Editor()->fontMetrics().lineSpacing();
        const double ratio = picture.devicePixelRatio();
        return picture.pixelColor({ picture.width() - 3, static_cast<int>(y * ratio) });
    }
};

void tst_viewcommands::init()
{
    Start();
    test_->folder.imgMap.Remembered.Open(test_->folder.imgMap.ProgramFolder);
}

void tst_viewcommands::entriesStandInOrder()
{
    const auto* const menu = test_->Find<QMenu>("mnuView");
    QCOMPARE(menu->title(), QStringLiteral("&View"));
    QStringList lines;
    for (const QAction* const action : menu->actions()) {
        QVERIFY(action->isEnabled());
        lines << action->objectName() + u'|' + action->text() + u'|' +
                     action->shortcut().toString(QKeySequence::PortableText);
    }
    const QStringList expected = {
        QStringLiteral("mnuVColours|Syntax &Colours|"),   QStringLiteral("mnuVLineNumbers|Line &Numbers|"),
        QStringLiteral("mnuVCurrentLine|Cu&rrent Line|"), QStringLiteral("mnuVSpaces|&Spaces and Tabs|"),
        QStringLiteral("mnuVWrap|&Wrap Long Lines|"),     QStringLiteral("mnuVSep1||"),
        QStringLiteral("mnuVLarger|&Larger Text|Ctrl++"), QStringLiteral("mnuVSmaller|S&maller Text|Ctrl+-")
    };
    QCOMPARE(lines, expected);
}

void tst_viewcommands::choicesAreCheckedWhileTheyHold_data()
{
    QTest::addColumn<bool>("usually");
    QTest::newRow("mnuVColours") << false;
    QTest::newRow("mnuVLineNumbers") << false;
    QTest::newRow("mnuVCurrentLine") << false;
    QTest::newRow("mnuVSpaces") << false;
    QTest::newRow("mnuVWrap") << true;
}

void tst_viewcommands::choicesAreCheckedWhileTheyHold()
{
    QFETCH(const bool, usually);
    const char* const entry = QTest::currentDataTag();
    QVERIFY(test_->Find<QAction>(entry)->isCheckable());
    QCOMPARE(IsChecked(entry), usually);
    Use(entry);
    QCOMPARE(IsChecked(entry), !usually);
    Use(entry);
    QCOMPARE(IsChecked(entry), usually);
}

void tst_viewcommands::choicesComeBackAtTheNextStart()
{
    QFETCH(const bool, usually);
    const char* const entry = QTest::currentDataTag();
    Use(entry);
    ImgMap next;
    next.ProgramFolder = next.HelpFolder = test_->folder.imgMap.ProgramFolder;
    next.Remembered.Open(next.ProgramFolder);
    frmIMmain window(next, test_->folder.map, test_->desktop);
    window.Form_Load();
    QCOMPARE(window.findChild<QAction*>(QString::fromLatin1(entry))->isChecked(), !usually);
    const bool isWrapped = window.Source().lineWrapMode() == QPlainTextEdit::WidgetWidth;
    QCOMPARE(isWrapped, qstrcmp(entry, "mnuVWrap") != 0);
}

void tst_viewcommands::nothingIsWrittenUntilAnEntryIsUsed()
{
    Fill(QStringLiteral("<p>text"));
    test_->Type("x");
    Turn(120, Qt::NoModifier);
    QVERIFY(!IsSettingsFileThere());
    Use("mnuVSpaces");
    QVERIFY(IsSettingsFileThere());
}

void tst_viewcommands::longLinesAreWrappedOrNot()
{
    Fill(QStringLiteral("a b ").repeated(300));
    const auto rows = [this] { return Editor()->document()->firstBlock().layout()->lineCount(); };
    QTRY_VERIFY(rows() > 5);
    Use("mnuVWrap");
    QTRY_COMPARE(rows(), 1);
    QCOMPARE(Editor()->blockCount(), 1);
    Use("mnuVWrap");
    QTRY_VERIFY(rows() > 5);
}

void tst_viewcommands::wrappingFollowsThePreferences()
{
    Editor()->setLineWrapMode(QPlainTextEdit::NoWrap); // as the preferences do
    test_->Press(Qt::Key_V, Qt::AltModifier);
    QTRY_VERIFY(test_->Find<QMenu>("mnuView")->isVisible());
    QVERIFY(!IsChecked("mnuVWrap"));
    QTest::keyClick(test_->Find<QMenu>("mnuView"), Qt::Key_W);
    QTRY_COMPARE(Editor()->lineWrapMode(), QPlainTextEdit::WidgetWidth);
    QVERIFY(IsChecked("mnuVWrap"));
}

void tst_viewcommands::keysChangeTheSizeOfTheText()
{
    const double usual = Size();
    const double tab = Editor()->tabStopDistance();
    test_->Press(Qt::Key_Plus, Qt::ControlModifier);
    test_->Press(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 2);
    QCOMPARE(Editor()->tabStopDistance(), tab * (usual + 2) / usual);
    test_->Press(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 1);
    Use("mnuVSmaller");
    QCOMPARE(Size(), usual);
    QCOMPARE(Editor()->tabStopDistance(), tab);
    Use("mnuVLarger");
    QCOMPARE(Size(), usual + 1);
    QCOMPARE(Editor()->Text(), QString());
}

void tst_viewcommands::sizeHasItsLimits()
{
    const double usual = Size();
    Turn(-120 * 100, Qt::ControlModifier);
    QCOMPARE(Size(), usual - 6);
    test_->Press(Qt::Key_Plus, Qt::ControlModifier);
    QCOMPARE(Size(), usual - 5);
    Turn(120 * 100, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 60);
    test_->Press(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 59);
}

void tst_viewcommands::wheelChangesTheSizeOfTheText()
{
    Fill(QStringLiteral("line\n").repeated(300));
    const double usual = Size();
    Turn(120, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 1);
    Turn(-360, Qt::ControlModifier);
    QCOMPARE(Size(), usual - 2);
    QCOMPARE(Editor()->firstVisibleBlock().blockNumber(), 0);
}

void tst_viewcommands::fineStepsOfTheWheelAddUp()
{
    const double usual = Size();
    for (int i = 0; i < 7; ++i) {
        Turn(15, Qt::ControlModifier);
    }
    QCOMPARE(Size(), usual);
    Turn(15, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 1);
    // Back again takes a whole notch too.
    Turn(110, Qt::ControlModifier);
    Turn(-110, Qt::ControlModifier);
    QCOMPARE(Size(), usual + 1);
    Turn(-10, Qt::ControlModifier);
    QCOMPARE(Size(), usual);
}

void tst_viewcommands::wheelAloneScrolls()
{
    Fill(QStringLiteral("line\n").repeated(300));
    const double usual = Size();
    Turn(-120, Qt::NoModifier);
    QCOMPARE(Size(), usual);
    QCOMPARE(Editor()->firstVisibleBlock().blockNumber(), QApplication::wheelScrollLines());
}

void tst_viewcommands::sizeComesBackAtTheNextStart()
{
    const double usual = Size();
    Use("mnuVLarger");
    frmIMmain window(test_->folder.imgMap, test_->folder.map, test_->desktop);
    window.Form_Load();
    QCOMPARE(window.Source().font().pointSizeF(), usual + 1);
}

void tst_viewcommands::spacesAreSeen()
{
    Fill(QStringLiteral("\t   \n"));
    const auto isEmpty = [this] {
        const QImage picture = Editor()->viewport()->grab({ 0, 0, 200, 30 }).toImage();
        const QColor ground = picture.pixelColor(picture.width() - 1, 0);
        for (int y = 0; y < picture.height(); ++y) {
            for (int x = picture.width() / 20; x < picture.width(); ++x) { // beside the caret
                if (picture.pixelColor(x, y) != ground) {
                    return false;
                }
            }
        }
        return true;
    };
    QVERIFY(isEmpty());
    Use("mnuVSpaces");
    QVERIFY(!isEmpty());
    Use("mnuVSpaces");
    QVERIFY(isEmpty());
}

void tst_viewcommands::lineOfTheCaretIsMarked_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("caret");
    QTest::addColumn<int>("first");
    const QString wrapped = QStringLiteral("a b ").repeated(60);
    QTest::newRow("the only one, empty") << QString() << 0 << 0;
    QTest::newRow("the first") << "ab\ncd" << 1 << 0;
    QTest::newRow("the last") << "ab\ncd" << 4 << 1;
    QTest::newRow("an empty one") << "ab\n\ncd" << 4 << 1;
    QTest::newRow("a wrapped one") << QString(u"ab\n" + wrapped + u"\ncd") << 10 << 1;
    QTest::newRow("a wrapped one at the end") << QString(u"ab\n" + wrapped) << 10 << 1;
}

void tst_viewcommands::lineOfTheCaretIsMarked()
{
    QFETCH(const QString, text);
    QFETCH(const int, caret);
    QFETCH(const int, first);
    const QColor plain = GroundOf(0);
    Fill(text);
    Editor()->Select(caret, 0);
    Use("mnuVCurrentLine");
    const int rows = Editor()->textCursor().block().layout()->lineCount();
    QCOMPARE(rows > 1, text.size() > 200);
    for (int row = 0; row < 8; ++row) {
        QCOMPARE(GroundOf(row) != plain, row >= first && row < first + rows);
    }
    Use("mnuVCurrentLine");
    QCOMPARE(GroundOf(first), plain);
}

void tst_viewcommands::markOfTheLineFollowsTheCaret()
{
    const QColor plain = GroundOf(0);
    Fill(QStringLiteral("ab\ncd\nef"));
    Use("mnuVCurrentLine");
    test_->Press(Qt::Key_Down);
    QCOMPARE(GroundOf(0), plain);
    QVERIFY(GroundOf(1) != plain);
    test_->Press(Qt::Key_End);
    test_->Press(Qt::Key_Return);
    QCOMPARE(GroundOf(1), plain);
    QVERIFY(GroundOf(2) != plain);
    QTest::keyClick(Editor(), Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(GroundOf(1) != plain);
    QCOMPARE(GroundOf(2), plain);
    Editor()->LoadText(QStringLiteral("other\ntext"));
    QVERIFY(GroundOf(0) != plain);
    QCOMPARE(GroundOf(1), plain);
}

void tst_viewcommands::documentStaysAsItIs()
{
    QVERIFY(OpenFile("page.htm", "<p>one\ttwo</p>\r\nthree\r\n"));
    const QString text = Editor()->Text();
    for (const QAction* const entry : test_->Find<QMenu>("mnuView")->actions()) {
        if (!entry->isSeparator()) {
            Use(entry->objectName().toLatin1().constData());
        }
    }
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!Editor()->document()->isUndoAvailable());
    QCOMPARE(Editor()->Text(), text);
    QCOMPARE(Editor()->SelStart(), qsizetype(0));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("<p>one\ttwo</p>\r\nthree\r\n\r\n"));
}

QTEST_MAIN(tst_viewcommands)
#include "tst_viewcommands.moc"
