// A page that another program changes is told of, and nothing else.

#include "tests/app/EncodingFixture.h"

#include <QSaveFile>

class tst_diskwatch : public EncodingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void changedFileIsTold_data();
    void changedFileIsTold();
    void changeIsSeenWhenTheWindowBecomesActive();
    void ownSavesAreNotTold();
    void sameBytesAreNotTold();
    void lostFileIsNotToldUntilItComesBackAsAnother();
    void changeIsToldOnce();
    void takenBackChangeIsNoLongerTold();
    void readAgainShowsTheFile();
    void readAgainCanBeUndoneToWhatWasWrittenHere();
    void readAgainKeepsEncodingAndLineEnds();
    void keepMineMarksThePageAsChanged();
    void savingTakesTheMessageBack();
    void savedPageIsComparedWithoutItsAppendedLineEnd();
    void otherDocumentIsFollowedInstead();
    void newDocumentHasNothingToFollow();

private:
    /** Writes the file as another program that does not take a moment over it. */
    [[nodiscard]] bool Rewrite(const QByteArray& bytes, const char* name = "page.htm") const
    {
        QSaveFile file(Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.commit();
    }
    static QString Told(const char* difference)
    {
        return QStringLiteral("Another program has changed this page. Compared with the text here: ") +
               QLatin1String(difference);
    }
    void WaitForWatch() { QTest::qWait(600); }
};

void tst_diskwatch::changedFileIsTold_data()
{
    QTest::addColumn<bool>("isInPlace");
    QTest::newRow("in place") << true;
    QTest::newRow("renamed over") << false;
}

void tst_diskwatch::changedFileIsTold()
{
    QFETCH(const bool, isInPlace);
    QVERIFY(OpenFile("page.htm", "a\r\nb\r\nc\r\n"));
    QCOMPARE(Message(), QString());
    const QByteArray other = "a\r\nx\r\nc\r\nd\r\n";
    QVERIFY(isInPlace ? WriteBytes(Path("page.htm"), other) : Rewrite(other));
    QTRY_COMPARE(Message(), Told("1 line changed, 1 line added"));
    QCOMPARE(Answers(), QStringList({ "btnReadAgain", "btnKeepMine" }));
    QVERIFY(!IsChanged());
    QCOMPARE(Editor()->Text(), QStringLiteral("a\r\nb\r\nc\r\n"));
    // It is followed on under its name.
    QVERIFY(isInPlace ? WriteBytes(Path("page.htm"), "a\r\n") : Rewrite("a\r\n"));
    QTRY_COMPARE(Message(), Told("2 lines removed"));
}

void tst_diskwatch::changeIsSeenWhenTheWindowBecomesActive()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(Rewrite("other"));
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&test_->window, &activated);
    QCOMPARE(Message(), Told("1 line changed"));
}

void tst_diskwatch::ownSavesAreNotTold()
{
    QVERIFY(OpenFile("page.htm", "a"));
    for (int i = 0; i < 3; ++i) {
        test_->Type("x");
        QVERIFY(Saved().startsWith("x"));
        WaitForWatch();
        QCOMPARE(Message(), QString());
    }
}

void tst_diskwatch::sameBytesAreNotTold()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(Rewrite("a"));
    WaitForWatch();
    QCOMPARE(Message(), QString());
    QVERIFY(Rewrite("b"));
    QTRY_COMPARE(Message(), Told("1 line changed"));
}

void tst_diskwatch::lostFileIsNotToldUntilItComesBackAsAnother()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(QFile::remove(Path("page.htm")));
    WaitForWatch();
    QCOMPARE(Message(), QString());
    QVERIFY(Rewrite("b"));
    test_->GoToEditor();
    QEvent activated(QEvent::WindowActivate);
    QCoreApplication::sendEvent(&test_->window, &activated);
    QCOMPARE(Message(), Told("1 line changed"));
}

void tst_diskwatch::changeIsToldOnce()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(Rewrite("b"));
    QTRY_VERIFY(Message() != QString());
    Answer("btnCloseMessage");
    QVERIFY(Rewrite("b"));
    WaitForWatch();
    QCOMPARE(Message(), QString());
    QVERIFY(!IsChanged());
    QVERIFY(Rewrite("c"));
    QTRY_VERIFY(Message() != QString());
}

void tst_diskwatch::takenBackChangeIsNoLongerTold()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(Rewrite("b"));
    QTRY_VERIFY(Message() != QString());
    QVERIFY(Rewrite("a"));
    QTRY_COMPARE(Message(), QString());
}

void tst_diskwatch::readAgainShowsTheFile()
{
    QVERIFY(OpenFile("page.htm", "a\r\nb"));
    QVERIFY(Rewrite("a\r\nother\r\nb"));
    QTRY_VERIFY(Message() != QString());
    Answer("btnReadAgain");
    QCOMPARE(Message(), QString());
    QCOMPARE(Editor()->Text(), QStringLiteral("a\r\nother\r\nb"));
    QVERIFY(!IsChanged());
    QVERIFY(!test_->window.File().IsHandledAnew());
    QVERIFY(Rewrite("a\r\nb"));
    QTRY_COMPARE(Message(), Told("1 line removed"));
}

void tst_diskwatch::readAgainCanBeUndoneToWhatWasWrittenHere()
{
    QVERIFY(OpenFile("page.htm", "a\r\nb\r\n"));
    test_->Type("mine");
    QVERIFY(Rewrite("a\r\ntheirs\r\n"));
    QTRY_COMPARE(Message(), Told("2 lines changed"));
    Answer("btnReadAgain");
    QCOMPARE(Editor()->Text(), QStringLiteral("a\r\ntheirs\r\n"));
    QVERIFY(!IsChanged());
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Editor()->Text(), QStringLiteral("minea\r\nb\r\n"));
    QVERIFY(IsChanged());
}

void tst_diskwatch::readAgainKeepsEncodingAndLineEnds()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC\nb\n"));
    Answer("btnReadSo");
    QVERIFY(Rewrite("\xC3\xA4\nb\r\nc\n"));
    QTRY_VERIFY(Answers().contains(QStringLiteral("btnReadAgain")));
    Answer("btnReadAgain");
    QCOMPARE(Editor()->TextAsLoaded(), QStringLiteral("\u00e4\nb\r\nc\n"));
    QCOMPARE(Encoding(), QStringLiteral("UTF-8"));
    QVERIFY(!IsChanged());
    test_->Type("x");
    QCOMPARE(Editor()->TextAsLoaded(), QStringLiteral("x\u00e4\nb\r\nc\n"));
    QCOMPARE(Saved(), QByteArray("x\xC3\xA4\nb\r\nc\n"));
}

void tst_diskwatch::keepMineMarksThePageAsChanged()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(Rewrite("b"));
    QTRY_VERIFY(Message() != QString());
    Answer("btnKeepMine");
    QCOMPARE(Message(), QString());
    QVERIFY(IsChanged());
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("b"));
    QCOMPARE(Saved(), QByteArray("a\r\n"));
    QVERIFY(!IsChanged());
}

void tst_diskwatch::savingTakesTheMessageBack()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(Rewrite("b"));
    QTRY_VERIFY(Message() != QString());
    QCOMPARE(Saved(), QByteArray("a\r\n"));
    QCOMPARE(Message(), QString());
}

void tst_diskwatch::savedPageIsComparedWithoutItsAppendedLineEnd()
{
    QVERIFY(OpenFile("page.htm", "a"));
    test_->Type("x");
    QCOMPARE(Saved(), QByteArray("xa\r\n"));
    QVERIFY(Rewrite("ya\r\n"));
    QTRY_COMPARE(Message(), Told("1 line changed"));
}

void tst_diskwatch::otherDocumentIsFollowedInstead()
{
    QVERIFY(OpenFile("page.htm", "a"));
    QVERIFY(OpenFile("other.htm", "b"));
    QVERIFY(Rewrite("x"));
    WaitForWatch();
    QCOMPARE(Message(), QString());
    QVERIFY(Rewrite("x", "other.htm"));
    QTRY_VERIFY(Message() != QString());
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Message(), QString());
}

void tst_diskwatch::newDocumentHasNothingToFollow()
{
    QVERIFY(WriteBytes(Path("New Document"), "a"));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(Rewrite("b", "New Document"));
    WaitForWatch();
    QCOMPARE(Message(), QString());
}

QTEST_MAIN(tst_diskwatch)
#include "tst_diskwatch.moc"
