// Characters that a page cannot hold as it is saved, and pages that say what they are not.

#include "tests/app/EncodingFixture.h"

class tst_lostcharacters : public EncodingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void lostCharactersAreToldAfterTheSave_data();
    void lostCharactersAreToldAfterTheSave();
    void writingAsReferencesSavesThemAll();
    void savingAsUtf8SavesThemAsTheyAre();
    void nothingIsToldOfAPageInUtf8();
    void messagesOfAnotherDocumentAreForgotten();
    void pageAtOddsWithItsEncodingIsToldOnce();
};

void tst_lostcharacters::lostCharactersAreToldAfterTheSave_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("message");
    QTest::newRow("none") << QStringLiteral("\u00FC?") << QByteArray("\xFC?\r\n") << QString();
    QTest::newRow("one") << QStringLiteral("a\u65E5") << QByteArray("a?\r\n")
                         << QStringLiteral(
                                "Saved, but one character that Windows-1252 lacks became \"?\": \u65E5");
    QTest::newRow("several")
        << QStringLiteral("\u65E5\U0001F600\u672C") << QByteArray("???\r\n")
        << QStringLiteral("Saved, but 3 characters that Windows-1252 lacks became \"?\": \u65E5, \U0001F600, "
                          "\u672C");
}

void tst_lostcharacters::lostCharactersAreToldAfterTheSave()
{
    QFETCH(const QString, text);
    QVERIFY(OpenFile("page.htm", ""));
    Editor()->ReplaceSelection(text);
    const QByteArray saved = Saved();
    QTEST(saved, "bytes");
    QTEST(Message(), "message");
    QVERIFY(!IsChanged());
    QCOMPARE(Editor()->Text(), text);
}

void tst_lostcharacters::writingAsReferencesSavesThemAll()
{
    QVERIFY(OpenFile("page.htm", ""));
    Editor()->ReplaceSelection(QStringLiteral("<p title=\"\u65E5\">\U0001F600</p><script>'\u65E5\U0001F600'"
                                              "</script><style>a::after{content:'\u65E5'}</style>"));
    (void)Saved();
    Answer("btnAsReferences");
    const QByteArray expected = "<p title=\"&#26085;\">&#128512;</p><script>'\\u65e5\\ud83d\\ude00'"
                                "</script><style>a::after{content:'\\65e5 '}</style>";
    QCOMPARE(Editor()->Text(), QString::fromLatin1(expected));
    QCOMPARE(BytesOf(Path("page.htm")), expected + "\r\n");
    QCOMPARE(Message(), QString());
    QVERIFY(!IsChanged());
    Editor()->undo();
    QVERIFY(Editor()->Text().contains(u'\u65E5'));
}

void tst_lostcharacters::savingAsUtf8SavesThemAsTheyAre()
{
    QVERIFY(OpenFile("page.htm", "\xFC\n"));
    Editor()->ReplaceSelection(QStringLiteral("\u65E5"));
    (void)Saved();
    Answer("btnAsUtf8");
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("\xE6\x97\xA5\xC3\xBC\n"));
    QCOMPARE(Encoding(), QStringLiteral("UTF-8"));
    QVERIFY(!IsChanged());
}

void tst_lostcharacters::nothingIsToldOfAPageInUtf8()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC"));
    Answer("btnReadSo");
    Editor()->ReplaceSelection(QStringLiteral("\u65E5"));
    QCOMPARE(Saved(), QByteArray("\xE6\x97\xA5\xC3\xBC"));
    QCOMPARE(Message(), QString());
}

void tst_lostcharacters::messagesOfAnotherDocumentAreForgotten()
{
    QVERIFY(OpenFile("page.htm", "\xC3\xBC"));
    Editor()->ReplaceSelection(QStringLiteral("\u65E5"));
    (void)Saved();
    QCOMPARE(Message(), QStringLiteral("This page is written in UTF-8."));
    Answer("btnCloseMessage");
    QVERIFY(Message().startsWith(u"Saved, but one character"));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Message(), QString());
}

void tst_lostcharacters::pageAtOddsWithItsEncodingIsToldOnce()
{
    QVERIFY(OpenFile("page.htm", "<meta charset=windows-1252>\xC3\xBC"));
    Answer("btnReadSo");
    QVERIFY(Message().startsWith(u"The page says that it is in windows-1252, but it is in UTF-8."));
    QCOMPARE(Answers(), QStringList());
    Answer("btnCloseMessage");
    test_->Type("x");
    (void)Saved();
    QCOMPARE(Message(), QString());

    QVERIFY(OpenFile("page.htm", "<meta charset=utf-8>x"));
    Choose("Windows-1252");
    test_->Type("x");
    Answer("btnCloseMessage"); // of UTF-8
    (void)Saved();
    Answer("btnAsUtf8");
    QCOMPARE(Encoding(), QStringLiteral("UTF-8"));
    QCOMPARE(Message(), QString());
}

QTEST_MAIN(tst_lostcharacters)
#include "tst_lostcharacters.moc"
