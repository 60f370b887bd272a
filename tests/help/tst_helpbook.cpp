// Opening help books, sound and damaged, and looking things up in them.

#include "help/HelpBook.h"
#include "tests/help/HelpFiles.h"

#include <QRandomGenerator>
#include <QTemporaryDir>
#include <QTest>

class tst_helpbook : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void TheContentsStandInTheirOrder();
    void TheIndexIsSortedAndJoinsKeywordsOfSeveralPages();
    void SearchFindsPagesWithAllWords_data();
    void SearchFindsPagesWithAllWords();
    void PagesAreKnownByTheirAddress();
    void TwoOpenBooksKeepApart();
    void AMissingBookIsTold();
    void ATruncatedBookIsDamaged();
    void ABookWithAChangedByteIsDamaged();
    void ForeignFilesAreDamaged_data();
    void ForeignFilesAreDamaged();
    void ABookCanBeOpenedAfterADamagedOne();
    void TheFileMayGoWhileTheBookIsOpen();

private:
    HelpBook small_;
    HelpBook book_;
    QTemporaryDir folder_;
};

void tst_helpbook::initTestCase()
{
    QCOMPARE(small_.Open(smallBook), HelpTrouble::None);
    QCOMPARE(book_.Open(shippedBook), HelpTrouble::None);
}

void tst_helpbook::TheContentsStandInTheirOrder()
{
    QCOMPARE(small_.Chapters().size(), 2);
    QCOMPARE(small_.Chapters()[0].title, QStringLiteral("On the water"));
    QCOMPARE(
        small_.Chapters()[0].pages, QStringList({ QStringLiteral("boats"), QStringLiteral("harbours") }));
    QCOMPARE(small_.Chapters()[1].pages, QStringList({ QStringLiteral("sun") }));
    QCOMPARE(small_.FirstPage(), QStringLiteral("boats"));
    QCOMPARE(small_.TitleOf(QStringLiteral("sun")), QStringLiteral("The sun"));
}

void tst_helpbook::TheIndexIsSortedAndJoinsKeywordsOfSeveralPages()
{
    QStringList lines;
    for (const HelpKeyword& keyword : small_.Keywords()) {
        lines << keyword.text + u": " + keyword.pages.join(u' ');
    }
    QCOMPARE(
        lines, QStringList({ QStringLiteral("Anchor: boats harbours"), QStringLiteral("quay: harbours"),
                             QStringLiteral("sail: boats"), QStringLiteral("summer: boats sun") }));
}

void tst_helpbook::SearchFindsPagesWithAllWords_data()
{
    QTest::addColumn<QString>("words");
    QTest::addColumn<QString>("pages");
    QTest::newRow("a word of the title comes first") << "harbour"
                                                     << "harbours boats";
    QTest::newRow("what is named more often comes first") << "boats"
                                                          << "boats harbours";
    QTest::newRow("any case") << "SUN"
                              << "sun";
    QTest::newRow("part of a word") << "arbou"
                                    << "harbours boats";
    QTest::newRow("the start of a word is worth more") << "s"
                                                       << "sun boats harbours";
    QTest::newRow("all words") << "boat  harbour"
                               << "harbours boats";
    QTest::newRow("not all words") << "boat moon"
                                   << "";
    QTest::newRow("a word that is partly bold") << "sail"
                                                << "boats";
    QTest::newRow("words of two cells are two") << "northsouth"
                                                << "";
    QTest::newRow("a heading") << "tides"
                               << "harbours";
    QTest::newRow("a keyword that the text lacks") << "summer"
                                                   << "boats sun";
    QTest::newRow("blanks") << "  "
                            << "";
    QTest::newRow("nothing") << ""
                             << "";
}

void tst_helpbook::SearchFindsPagesWithAllWords()
{
    QFETCH(const QString, words);
    QFETCH(const QString, pages);
    QCOMPARE(small_.Search(words).join(u' '), pages);
}

void tst_helpbook::PagesAreKnownByTheirAddress()
{
    QUrl url = small_.UrlOf(QStringLiteral("boats"));
    QCOMPARE(small_.PageAt(url), QStringLiteral("boats"));
    url.setFragment(QStringLiteral("sail"));
    QCOMPARE(small_.PageAt(url), QStringLiteral("boats"));
    QCOMPARE(small_.PageAt(QUrl(QStringLiteral("https://cartolen.example/boats.html"))), QString());
    QCOMPARE(small_.PageAt(QUrl()), QString());
    QVERIFY(!small_.HasPage(QStringLiteral("moon")));
}

void tst_helpbook::TwoOpenBooksKeepApart()
{
    QVERIFY(BytesOf(u':' + small_.UrlOf(QStringLiteral("boats")).path()).contains("A boat"));
    QVERIFY(BytesOf(u':' + book_.UrlOf(QStringLiteral("welcome")).path()).contains("Cartolen"));
    QCOMPARE(book_.PageAt(small_.UrlOf(QStringLiteral("boats"))), QString());
}

void tst_helpbook::AMissingBookIsTold()
{
    HelpBook book;
    QCOMPARE(book.Open(folder_.filePath(QStringLiteral("none.hlp"))), HelpTrouble::Missing);
    QVERIFY(!book.IsOpen());
    QCOMPARE(book.FirstPage(), QString());
    QCOMPARE(book.Search(u"boat"), QStringList());
}

void tst_helpbook::ATruncatedBookIsDamaged()
{
    const QByteArray whole = BytesOf(smallBook);
    const QString path = folder_.filePath(QStringLiteral("short.hlp"));
    HelpBook book;
    for (qsizetype length = 0; length < whole.size(); length += length % 13 == 0 ? 1 : 12) {
        QVERIFY(WriteBytes(path, whole.first(length)));
        QCOMPARE(book.Open(path), HelpTrouble::Damaged);
    }
    QVERIFY(WriteBytes(path, whole.chopped(1)));
    QCOMPARE(book.Open(path), HelpTrouble::Damaged);
    QVERIFY(WriteBytes(path, whole));
    QCOMPARE(book.Open(path), HelpTrouble::None);
    QVERIFY(WriteBytes(path, whole + '\n'));
    QCOMPARE(book.Open(path), HelpTrouble::Damaged);
}

void tst_helpbook::ABookWithAChangedByteIsDamaged()
{
    const QByteArray whole = BytesOf(smallBook);
    const QString path = folder_.filePath(QStringLiteral("changed.hlp"));
    HelpBook book;
    for (qsizetype place = 0; place < whole.size(); place += 11) {
        QByteArray changed = whole;
        changed[place] = static_cast<char>(changed[place] ^ (1 << (place % 8)));
        QVERIFY(WriteBytes(path, changed));
        QCOMPARE(book.Open(path), HelpTrouble::Damaged);
    }
}

void tst_helpbook::ForeignFilesAreDamaged_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("text") << QByteArray("This is no book.\n");
    QTest::newRow("a program") << BytesOf(QCoreApplication::applicationFilePath());
    QTest::newRow("the start of a book alone") << QByteArray("qres");
    QTest::newRow("a book without its seal") << BytesOf(smallBook).chopped(92);
    QRandomGenerator random(1);
    for (int i = 1; i <= 50; ++i) {
        QByteArray bytes("qres");
        for (int length = i * i; length > 0; --length) {
            bytes.append(static_cast<char>(random.bounded(256)));
        }
        QTest::addRow("random bytes %d", i) << bytes;
    }
}

void tst_helpbook::ForeignFilesAreDamaged()
{
    QFETCH(const QByteArray, bytes);
    const QString path = folder_.filePath(QStringLiteral("foreign.hlp"));
    QVERIFY(WriteBytes(path, bytes));
    HelpBook book;
    QCOMPARE(book.Open(path), HelpTrouble::Damaged);
    QVERIFY(!book.IsOpen());
    QCOMPARE(book.Open(folder_.path()), HelpTrouble::Damaged);
}

void tst_helpbook::ABookCanBeOpenedAfterADamagedOne()
{
    HelpBook book;
    QCOMPARE(book.Open(folder_.path()), HelpTrouble::Damaged);
    QCOMPARE(book.Open(smallBook), HelpTrouble::None);
    QCOMPARE(book.FirstPage(), QStringLiteral("boats"));
    QCOMPARE(book.Open(folder_.filePath(QStringLiteral("none.hlp"))), HelpTrouble::Missing);
    QVERIFY(!book.IsOpen());
}

void tst_helpbook::TheFileMayGoWhileTheBookIsOpen()
{
    const QString path = folder_.filePath(QStringLiteral("going.hlp"));
    QVERIFY(QFile::copy(smallBook, path));
    HelpBook book;
    QCOMPARE(book.Open(path), HelpTrouble::None);
    QVERIFY(WriteBytes(path, "gone"));
    QVERIFY(BytesOf(u':' + book.UrlOf(QStringLiteral("sun")).path()).contains("shines"));
}

QTEST_GUILESS_MAIN(tst_helpbook)

#include "tst_helpbook.moc"
