// Pages in UTF-8: telling of them, reading and writing them.

#include "tests/app/EncodingFixture.h"

class tst_encoding : public EncodingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void pageInUtf8IsToldOf_data();
    void pageInUtf8IsToldOf();
    void toldPageIsStillHandledAsEver();
    void readItSoShowsThePageAsItIsMeant_data();
    void readItSoShowsThePageAsItIsMeant();
    void readItSoKeepsWhatWasEditedMeanwhile();
    void alwaysHoldsForPagesThatComeAndForNewOnesIfWanted();
    void savedAnewNothingIsAppendedAndLineEndsStay_data();
    void savedAnewNothingIsAppendedAndLineEndsStay();
    void everyByteOfAPageInUtf8ComesBack();
    void choosingAnEncodingReadsAnUnchangedPageAnew();
    void choosingAnEncodingForAChangedPageSetsHowItIsSaved();
    void markThatComesOrGoesIsAChange();
    void pageThatCannotBeReadAgainStays();
    void copiesAreInTheEncoding();
    void newDocumentStartsAsEver();
    void messageIsClosedByItsButton();
    void keysInTheBarAreNotForTheText();
    void barLeavesTheEditorsPlaceAndTheStatusBarsHeight();
    void placeAndChangesAreShown();
    void whatCommandsPutInIsWrittenAsReferences();
    void whatIsReplacedIsWrittenAsReferences();
    void whatIsTypedStaysAsItIs();
};

void tst_encoding::pageInUtf8IsToldOf_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("ASCII") << QByteArray("abc") << false;
    QTest::newRow("Windows-1252") << QByteArray("gr\xFC\xDF") << false;
    QTest::newRow("says Windows-1252") << QByteArray("<meta charset=windows-1252>\xFC") << false;
    QTest::newRow("with a mark") << QByteArray("\xEF\xBB\xBF"
                                               "abc")
                                 << true;
    QTest::newRow("says so") << QByteArray("<meta charset=\"utf-8\">abc") << true;
    QTest::newRow("is so") << QByteArray("gr\xC3\xBC\xC3\x9F") << true;
    QTest::newRow("is so up to one byte") << QByteArray("gr\xC3\xBC\xC3\x9F\xFF") << false;
}

void tst_encoding::pageInUtf8IsToldOf()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const bool, isTold);
    QVERIFY(OpenFile("page.htm", bytes));
    QCOMPARE(Message(), isTold ? QStringLiteral("This page is written in UTF-8.") : QString());
    QCOMPARE(Answers(), isTold ? QStringList({ "btnReadSo", "btnAlways" }) : QStringList());
    QCOMPARE(Encoding(), QStringLiteral("Windows-1252"));
    QVERIFY(!IsChanged());
}

void tst_encoding::toldPageIsStillHandledAsEver()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\n"));
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00C3\u00BC\r\n"));
    QCOMPARE(Saved(), QByteArray("\xC3\xBC\r\n\r\n"));
    QVERIFY(!QFile::exists(Path("Data/Settings.ini")));
}

void tst_encoding::readItSoShowsThePageAsItIsMeant_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("encoding");
    QTest::newRow("without a mark") << QByteArray("gr\xC3\xBC\xC3\x9F \xE6\x97\xA5")
                                    << QStringLiteral("gr\u00FC\u00DF \u65E5") << QStringLiteral("UTF-8");
    QTest::newRow("with a mark") << QByteArray("\xEF\xBB\xBF\xC3\xBC") << QStringLiteral("\u00FC")
                                 << QStringLiteral("UTF-8 with mark");
}

void tst_encoding::readItSoShowsThePageAsItIsMeant()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(OpenFile("page.htm", bytes));
    Answer("btnReadSo");
    QTEST(Editor()->Text(), "text");
    QTEST(Encoding(), "encoding");
    QCOMPARE(Message(), QString());
    QVERIFY(!IsChanged());
    QCOMPARE(test_->window.focusWidget(), Editor());
    QCOMPARE(Saved(), bytes);
    QVERIFY(!QFile::exists(Path("Data/Settings.ini")));
}

void tst_encoding::readItSoKeepsWhatWasEditedMeanwhile()
{
    QVERIFY(OpenFile("page.htm", "gr\xC3\xBC\xC3\x9F\n"));
    Editor()->ReplaceSelection(QStringLiteral("\u00E9\u65E5 "));
    Answer("btnReadSo");
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00E9\u65E5 gr\u00FC\u00DF\r\n"));
    QVERIFY(IsChanged());
    QCOMPARE(Saved(), QByteArray("\xC3\xA9\xE6\x97\xA5 gr\xC3\xBC\xC3\x9F\n"));
    Editor()->undo();
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00E9\u65E5 gr\u00C3\u00BC\u00C3\u0178\r\n"));
}

void tst_encoding::alwaysHoldsForPagesThatComeAndForNewOnesIfWanted()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC"));
    Answer("btnAlways");
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00FC"));
    QCOMPARE(Answers(), QStringList({ "btnAlways" }));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Encoding(), QStringLiteral("Windows-1252"));
    QVERIFY(OpenFile("other.htm", "\xC3\x9F"));
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00DF"));
    QCOMPARE(Message(), QString());
    QVERIFY(OpenFile("old.htm", "\xDF"));
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00DF"));
    QCOMPARE(Encoding(), QStringLiteral("Windows-1252"));

    QVERIFY(OpenFile("page.htm", "\xC3\xBC"));
    test_->folder.imgMap.Remembered.Keep(Setting::newPagesUtf8, true);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Encoding(), QStringLiteral("UTF-8"));
    test_->Type("x");
    test_->robot.ChooseFile(Path("page.htm"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    QCOMPARE(Saved(), QByteArray("x"));
}

void tst_encoding::savedAnewNothingIsAppendedAndLineEndsStay_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("CR LF") << QByteArray("\xC3\xBC\r\nb\r\n");
    QTest::newRow("LF") << QByteArray("\xC3\xBC\nb\nc");
    QTest::newRow("CR") << QByteArray("\xC3\xBC\rb\r");
    QTest::newRow("mixed") << QByteArray("\xC3\xBC\nb\r\nc\rd\n\n\r\n\r\re");
    QTest::newRow("only line ends") << QByteArray("\xEF\xBB\xBF\n\r\n\n\r");
}

void tst_encoding::savedAnewNothingIsAppendedAndLineEndsStay()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(OpenFile("page.htm", bytes));
    Answer("btnReadSo");
    QCOMPARE(Saved(), bytes);
    // A line that comes in ends as its neighbour does.
    Editor()->Select(0, 0);
    Editor()->ReplaceSelection(QStringLiteral("x"));
    QByteArray expected = bytes;
    QCOMPARE(Saved(), expected.insert(bytes.startsWith("\xEF\xBB\xBF") ? 3 : 0, "x"));
    Editor()->undo();
    QCOMPARE(Saved(), bytes);
}

void tst_encoding::everyByteOfAPageInUtf8ComesBack()
{
    // No valid UTF-8, and characters that the editor's document has for its own layout.
    const QByteArray bytes = "<meta charset=utf-8>" + EveryByte() + "\xE2\x80\xA8\xEF\xB7\x90\xED\xA0\x80\n";
    QVERIFY(OpenFile("page.htm", bytes));
    Answer("btnReadSo");
    QCOMPARE(Saved(), bytes);
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    test_->Type("x");
    QCOMPARE(Saved(), bytes + "x");
}

void tst_encoding::choosingAnEncodingReadsAnUnchangedPageAnew()
{
    QVERIFY(OpenFile("page.htm", "a\n\xFC\n"));
    test_->Press(Qt::Key_End, Qt::ControlModifier);
    Choose("Windows-1252");
    Choose("UTF-8");
    QCOMPARE(Editor()->Text(), QString(u"a\r\n" + QChar(0xDCFC) + u"\r\n"));
    QCOMPARE(Editor()->textCursor().blockNumber(), 2);
    QCOMPARE(Saved(), QByteArray("a\n\xFC\n"));
    Choose("Windows-1252");
    QCOMPARE(Editor()->Text(), QStringLiteral("a\r\n\u00FC\r\n"));
    QVERIFY(!IsChanged());
    QCOMPARE(Saved(), QByteArray("a\n\xFC\n"));
}

void tst_encoding::choosingAnEncodingForAChangedPageSetsHowItIsSaved()
{
    QVERIFY(OpenFile("page.htm", "\xFC\n"));
    test_->Type("x");
    Choose("UTF-8");
    QCOMPARE(Editor()->Text(), QStringLiteral("x\u00FC\r\n"));
    QVERIFY(IsChanged());
    QCOMPARE(Saved(), QByteArray("x\xC3\xBC\n"));
}

void tst_encoding::markThatComesOrGoesIsAChange()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC"));
    Choose("UTF-8");
    QVERIFY(!IsChanged());
    Choose("UTF-8 with mark");
    QVERIFY(IsChanged());
    QCOMPARE(Saved(), QByteArray("\xEF\xBB\xBF\xC3\xBC"));
}

void tst_encoding::pageThatCannotBeReadAgainStays()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC"));
    QVERIFY(QFile::remove(Path("page.htm")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Answer("btnReadSo");
    QCOMPARE(test_->robot.Boxes().constLast().text, "Can't open file: " + Path("page.htm"));
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00C3\u00BC"));
    QCOMPARE(Encoding(), QStringLiteral("Windows-1252"));
}

void tst_encoding::copiesAreInTheEncoding()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\n"));
    Answer("btnReadSo");
    test_->window.Outside().PreviewDocument();
    QCOMPARE(BytesOf(test_->desktop.Requests.constLast().Target), QByteArray("\xC3\xBC\n"));
    QCOMPARE(test_->desktop.Requests.constLast().Encoding, TextEncoding::Utf8);
}

void tst_encoding::newDocumentStartsAsEver()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\n"));
    Answer("btnReadSo");
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Encoding(), QStringLiteral("Windows-1252"));
    Editor()->ReplaceSelection(QStringLiteral("\u00FC\u2028"));
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00FC?"));
    test_->robot.ChooseFile(Path("new.htm"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("new.htm")), QByteArray("\xFC?\r\n"));
}

void tst_encoding::messageIsClosedByItsButton()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\n"));
    Answer("btnCloseMessage");
    QCOMPARE(Message(), QString());
    QCOMPARE(test_->window.focusWidget(), Editor());
    QCOMPARE(Encoding(), QStringLiteral("Windows-1252"));
}

void tst_encoding::keysInTheBarAreNotForTheText()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\n"));
    auto* const button = test_->Find<QPushButton>("btnReadSo");
    button->setFocus();
    QTest::keyClicks(button, QStringLiteral("abc"));
    QTest::keyClick(Bar(), Qt::Key_X);
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00C3\u00BC\r\n"));
    QTest::keyClick(button, Qt::Key_Space);
    QCOMPARE(Editor()->Text(), QStringLiteral("\u00FC\r\n"));
}

void tst_encoding::barLeavesTheEditorsPlaceAndTheStatusBarsHeight()
{
    const QRect place = Editor()->geometry();
    const QRect text = Editor()->viewport()->geometry();
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\n"));
    QTRY_VERIFY(Editor()->viewport()->geometry().top() > text.top());
    QCOMPARE(Editor()->geometry(), place);
    QCOMPARE(Editor()->viewport()->geometry().bottom(), text.bottom());
    QVERIFY(Editor()->rect().contains(Bar()->geometry()));
    QVERIFY(!Bar()->geometry().intersects(Editor()->viewport()->geometry()));
    Answer("btnCloseMessage");
    QTRY_COMPARE(Editor()->viewport()->geometry(), text);
    auto* const label = test_->Find<QLabel>("StatusBar1_Panel1");
    QVERIFY(test_->Find<QComboBox>("cmbEncoding")->height() <= label->height());
}

void tst_encoding::placeAndChangesAreShown()
{
    auto* const place = test_->Find<QLabel>("lblPlace");
    auto* const modified = test_->Find<QLabel>("lblModified");
    QCOMPARE(place->text(), QStringLiteral("Line 1, column 1"));
    QCOMPARE(modified->text(), QString());
    test_->Type("ab");
    test_->Press(Qt::Key_Return);
    test_->Type("c");
    QCOMPARE(place->text(), QStringLiteral("Line 2, column 2"));
    QCOMPARE(modified->text(), QStringLiteral("Modified"));
    test_->robot.ChooseFile(Path("page.htm"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(modified->text(), QString());
}

void tst_encoding::whatCommandsPutInIsWrittenAsReferences()
{
    const QList<TextReplacement> atStart = { { { 0, 0 }, QStringLiteral("<p title='\u00FC'>") } };
    QVERIFY(OpenFile("page.htm", "gr\xC3\xBC"));
    test_->window.Page().Replace(atStart);
    QCOMPARE(Saved(), QByteArray("<p title='&#252;'>gr\xC3\xBC\r\n"));
    QVERIFY(OpenFile("page.htm", "gr\xC3\xBC"));
    Answer("btnReadSo");
    test_->window.Page().Replace(atStart);
    QCOMPARE(Saved(), QByteArray("<p title='\xC3\xBC'>gr\xC3\xBC"));
    QVERIFY(OpenFile("page.htm", "gr\xFC"));
    test_->window.Page().Replace(atStart);
    QCOMPARE(Saved(), QByteArray("<p title='\xFC'>gr\xFC\r\n"));
}

static void TypeUmlaut(QWidget* widget)
{
    QTest::sendKeyEvent(QTest::Click, widget, Qt::Key_Udiaeresis, QStringLiteral("\u00FC"), Qt::NoModifier);
}

void tst_encoding::whatIsReplacedIsWrittenAsReferences()
{
    QVERIFY(OpenFile("page.htm", "gr\xC3\xBC gr"));
    test_->Press(Qt::Key_H, Qt::ControlModifier);
    QTest::keyClicks(test_->Find<QLineEdit>("txtFind"), QStringLiteral("gr"));
    TypeUmlaut(test_->Find<QLineEdit>("txtReplace"));
    Click(test_->Find<QPushButton>("btnReplaceAll"));
    QCOMPARE(Saved(), QByteArray("&#252;\xC3\xBC &#252;\r\n"));
}

void tst_encoding::whatIsTypedStaysAsItIs()
{
    QVERIFY(OpenFile("page.htm", "gr\xC3\xBC"));
    test_->Press(Qt::Key_Home, Qt::ControlModifier);
    TypeUmlaut(Editor());
    QCOMPARE(Saved(), QByteArray("\xFCgr\xC3\xBC\r\n"));
}

QTEST_MAIN(tst_encoding)
#include "tst_encoding.moc"
