#include "help/HelpBook.h"
#include "imagemap/model/LinkRules.h"
#include "shared/LinksFile.h"
#include "taglib/TagCatalogue.h"
#include "tests/help/HelpFiles.h"

#include <QDir>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

namespace {

/** What a page points to and what can be pointed to in it. */
struct PageParts
{
    QStringList links;
    QStringList pictures;
    QStringList picturesWithoutText;
    QStringList keywords;
    QSet<QString> places;
    QString text;
};

void TakeElement(const QXmlStreamReader& reader, PageParts& parts)
{
    const QXmlStreamAttributes attributes = reader.attributes();
    const auto value = [&attributes](const char* name) {
        return attributes.value(QLatin1String(name)).toString();
    };
    if (reader.name() == u"a" && attributes.hasAttribute(QLatin1String("href"))) {
        parts.links << value("href");
    } else if (reader.name() == u"a") {
        parts.places << value("name");
    } else if (reader.name() == u"img") {
        parts.pictures << value("src");
        if (value("alt").isEmpty()) {
            parts.picturesWithoutText << value("src");
        }
    } else if (reader.name() == u"meta" && value("name") == u"keywords") {
        for (const QString& keyword : value("content").split(u';')) {
            parts.keywords << keyword.simplified();
        }
    }
}

PageParts PartsOf(const QUrl& page)
{
    PageParts parts;
    QXmlStreamReader reader(BytesOf(u':' + page.path()));
    while (!reader.atEnd()) {
        const QXmlStreamReader::TokenType token = reader.readNext();
        if (token == QXmlStreamReader::StartElement) {
            TakeElement(reader, parts);
        } else if (token == QXmlStreamReader::Characters) {
            parts.text += reader.text();
        } else if (token == QXmlStreamReader::EndElement && reader.name() == u"td") {
            parts.text += u' ';
        }
    }
    parts.text = parts.text.simplified();
    return parts;
}

QStringList AllPages(const HelpBook& book)
{
    QStringList pages;
    for (const HelpChapter& chapter : book.Chapters()) {
        pages << chapter.pages;
    }
    return pages;
}

/** The texts in quotation marks of a source file; those that follow each other directly are one. */
QStringList LiteralsOf(const QString& path)
{
    static const QRegularExpression comments(
        QStringLiteral("^\\s*(//|\\*|/\\*|#).*$"), QRegularExpression::MultilineOption);
    static const QRegularExpression joints(QStringLiteral("(?<!\\\\)\"\\s*\\n\\s*u?\""));
    static const QRegularExpression literals(QStringLiteral("\"((?:[^\"\\\\\\n]|\\\\.)*)\""));
    QString source = QString::fromUtf8(BytesOf(path));
    source.remove(comments).remove(joints);
    QStringList found;
    for (const QRegularExpressionMatch& match : literals.globalMatch(source)) {
        found << match.captured(1)
                     .replace(QStringLiteral("\\n"), QStringLiteral(" "))
                     .replace(QStringLiteral("\\r"), QStringLiteral(" "))
                     .simplified();
    }
    return found;
}

/** `text` as a page holds it. */
QString EscapedText(QString text)
{
    return text.replace(u'&', QStringLiteral("&amp;"))
        .replace(u'<', QStringLiteral("&lt;"))
        .replace(u'>', QStringLiteral("&gt;"));
}

} // namespace

class TestHelpBook : public QObject
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

    void EveryPageIsInTheContents();
    void EveryLinkLeadsSomewhere();
    void EveryPictureIsThereAndUsed();
    void NoKeywordIsListedTwice();
    void EveryMessageIsExplained();
    void EveryModeIsExplained();
    void EveryTagIsInTheTable();

private:
    HelpBook small_;
    HelpBook book_;
    QTemporaryDir folder_;
};

void TestHelpBook::initTestCase()
{
    QCOMPARE(small_.Open(smallBook), HelpTrouble::None);
    QCOMPARE(book_.Open(shippedBook), HelpTrouble::None);
}

void TestHelpBook::TheContentsStandInTheirOrder()
{
    QCOMPARE(small_.Chapters().size(), 2);
    QCOMPARE(small_.Chapters()[0].title, QStringLiteral("On the water"));
    QCOMPARE(
        small_.Chapters()[0].pages, QStringList({ QStringLiteral("boats"), QStringLiteral("harbours") }));
    QCOMPARE(small_.Chapters()[1].pages, QStringList({ QStringLiteral("sun") }));
    QCOMPARE(small_.FirstPage(), QStringLiteral("boats"));
    QCOMPARE(small_.TitleOf(QStringLiteral("sun")), QStringLiteral("The sun"));
}

void TestHelpBook::TheIndexIsSortedAndJoinsKeywordsOfSeveralPages()
{
    QStringList lines;
    for (const HelpKeyword& keyword : small_.Keywords()) {
        lines << keyword.text + u": " + keyword.pages.join(u' ');
    }
    QCOMPARE(
        lines, QStringList({ QStringLiteral("Anchor: boats harbours"), QStringLiteral("quay: harbours"),
                             QStringLiteral("sail: boats"), QStringLiteral("summer: boats sun") }));
}

void TestHelpBook::SearchFindsPagesWithAllWords_data()
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

void TestHelpBook::SearchFindsPagesWithAllWords()
{
    QFETCH(const QString, words);
    QFETCH(const QString, pages);
    QCOMPARE(small_.Search(words).join(u' '), pages);
}

void TestHelpBook::PagesAreKnownByTheirAddress()
{
    QUrl url = small_.UrlOf(QStringLiteral("boats"));
    QCOMPARE(small_.PageAt(url), QStringLiteral("boats"));
    url.setFragment(QStringLiteral("sail"));
    QCOMPARE(small_.PageAt(url), QStringLiteral("boats"));
    QCOMPARE(small_.PageAt(QUrl(QStringLiteral("https://cartolen.example/boats.html"))), QString());
    QCOMPARE(small_.PageAt(QUrl()), QString());
    QVERIFY(!small_.HasPage(QStringLiteral("moon")));
}

void TestHelpBook::TwoOpenBooksKeepApart()
{
    QVERIFY(BytesOf(u':' + small_.UrlOf(QStringLiteral("boats")).path()).contains("A boat"));
    QVERIFY(BytesOf(u':' + book_.UrlOf(QStringLiteral("welcome")).path()).contains("Cartolen"));
    QCOMPARE(book_.PageAt(small_.UrlOf(QStringLiteral("boats"))), QString());
}

void TestHelpBook::AMissingBookIsTold()
{
    HelpBook book;
    QCOMPARE(book.Open(folder_.filePath(QStringLiteral("none.hlp"))), HelpTrouble::Missing);
    QVERIFY(!book.IsOpen());
    QCOMPARE(book.FirstPage(), QString());
    QCOMPARE(book.Search(u"boat"), QStringList());
}

void TestHelpBook::ATruncatedBookIsDamaged()
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

void TestHelpBook::ABookWithAChangedByteIsDamaged()
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

void TestHelpBook::ForeignFilesAreDamaged_data()
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

void TestHelpBook::ForeignFilesAreDamaged()
{
    QFETCH(const QByteArray, bytes);
    const QString path = folder_.filePath(QStringLiteral("foreign.hlp"));
    QVERIFY(WriteBytes(path, bytes));
    HelpBook book;
    QCOMPARE(book.Open(path), HelpTrouble::Damaged);
    QVERIFY(!book.IsOpen());
    QCOMPARE(book.Open(folder_.path()), HelpTrouble::Damaged);
}

void TestHelpBook::ABookCanBeOpenedAfterADamagedOne()
{
    HelpBook book;
    QCOMPARE(book.Open(folder_.path()), HelpTrouble::Damaged);
    QCOMPARE(book.Open(smallBook), HelpTrouble::None);
    QCOMPARE(book.FirstPage(), QStringLiteral("boats"));
    QCOMPARE(book.Open(folder_.filePath(QStringLiteral("none.hlp"))), HelpTrouble::Missing);
    QVERIFY(!book.IsOpen());
}

void TestHelpBook::TheFileMayGoWhileTheBookIsOpen()
{
    const QString path = folder_.filePath(QStringLiteral("going.hlp"));
    QVERIFY(QFile::copy(smallBook, path));
    HelpBook book;
    QCOMPARE(book.Open(path), HelpTrouble::None);
    QVERIFY(WriteBytes(path, "gone"));
    QVERIFY(BytesOf(u':' + book.UrlOf(QStringLiteral("sun")).path()).contains("shines"));
}

void TestHelpBook::EveryPageIsInTheContents()
{
    QStringList listed = AllPages(book_);
    QStringList written;
    const QDir pages(helpFolder + u"/pages");
    for (const QString& file : pages.entryList({ QStringLiteral("*.html") })) {
        written << file.chopped(5);
    }
    listed.sort();
    written.sort();
    QCOMPARE(listed, written);
}

void TestHelpBook::EveryLinkLeadsSomewhere()
{
    int links = 0;
    for (const QString& page : AllPages(book_)) {
        for (const QString& link : PartsOf(book_.UrlOf(page)).links) {
            ++links;
            const QUrl url = book_.UrlOf(page).resolved(QUrl(link));
            if (url.scheme() == u"https") {
                QCOMPARE(url.toString(), homePage.toString());
                continue;
            }
            const QByteArray where = QString(page + u" -> " + link).toUtf8();
            QVERIFY2(!book_.PageAt(url).isEmpty(), where.constData());
            if (url.hasFragment()) {
                const PageParts target = PartsOf(book_.UrlOf(book_.PageAt(url)));
                QVERIFY2(target.places.contains(url.fragment()), where.constData());
            }
        }
    }
    QVERIFY(links > 50);
}

void TestHelpBook::EveryPictureIsThereAndUsed()
{
    QSet<QString> used;
    for (const QString& page : AllPages(book_)) {
        const PageParts parts = PartsOf(book_.UrlOf(page));
        QCOMPARE(parts.picturesWithoutText, QStringList());
        for (const QString& picture : parts.pictures) {
            const QUrl url = book_.UrlOf(page).resolved(QUrl(picture));
            QVERIFY2(QFile::exists(u':' + url.path()), qUtf8Printable(page + u" -> " + picture));
            used << url.fileName();
        }
    }
    const QStringList made = QDir(helpFolder + u"/pictures").entryList(QDir::Files);
    QCOMPARE(used, QSet<QString>(made.begin(), made.end()));
}

void TestHelpBook::NoKeywordIsListedTwice()
{
    QHash<QString, QString> spellings;
    for (const QString& page : AllPages(book_)) {
        QSet<QString> ofPage;
        const QStringList keywords = PartsOf(book_.UrlOf(page)).keywords;
        QVERIFY2(!keywords.isEmpty(), qUtf8Printable(page + u" has no keyword"));
        for (const QString& keyword : keywords) {
            const QString folded = keyword.toCaseFolded();
            QVERIFY2(!keyword.isEmpty() && !ofPage.contains(folded), qUtf8Printable(page + u": " + keyword));
            ofPage << folded;
            QCOMPARE(spellings.value(folded, keyword), keyword);
            spellings.insert(folded, keyword);
        }
    }
    QCOMPARE(book_.Keywords().size(), spellings.size());
}

void TestHelpBook::EveryMessageIsExplained()
{
    const QString text = PartsOf(book_.UrlOf(QStringLiteral("messages"))).text;
    QStringList messages = { linksDamagedText.toString(), QStringLiteral("Can't open file: ...") };
    for (const JSModeTexts& mode : jsModeTexts) {
        messages << mode.newPrompt.toString() << mode.replacePrompt.toString();
        for (const std::optional<RequiredField>& field : RulesOf(mode.mode).required) {
            messages << (field ? field->message.toString() : QString());
        }
    }
    // The program's messages end with these marks, so the sources tell what there is.
    for (const QString& folder : { QStringLiteral("app"), QStringLiteral("imagemap"),
                                   QStringLiteral("linkdialog"), QStringLiteral("shared") }) {
        const QDir sources(helpFolder + u"/../" + folder);
        for (const QString& file : sources.entryList({ QStringLiteral("*.cpp"), QStringLiteral("*.h") })) {
            for (const QString& literal : LiteralsOf(sources.filePath(file))) {
                if (literal.contains(u' ') && (literal.endsWith(u'!') || literal.endsWith(u'?'))) {
                    messages << literal;
                }
            }
        }
    }
    QVERIFY(messages.size() > 25);
    for (const QString& message : std::as_const(messages)) {
        QVERIFY2(text.contains(message.simplified()), qUtf8Printable(message));
    }
}

void TestHelpBook::EveryModeIsExplained()
{
    QVERIFY(book_.HasPage(QStringLiteral("javascript-options")));
    const QString text = PartsOf(book_.UrlOf(QStringLiteral("javascript-options"))).text;
    for (const JSModeTexts& mode : jsModeTexts) {
        const QString name = mode.option.toString().remove(QStringLiteral("On Mouse Over - "));
        QVERIFY2(text.contains(name), qUtf8Printable(name));
    }
}

void TestHelpBook::EveryTagIsInTheTable()
{
    const QString table = QString::fromUtf8(BytesOf(helpFolder + u"/pages/tag-table.html"));
    const auto code = [](std::string_view text) {
        const QString markup = QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
        return markup.isEmpty() ? QString() : QString(u"<code>" + EscapedText(markup) + u"</code>");
    };
    qsizetype tags = 0;
    qsizetype place = 0;
    for (const TagNode& node : TagNodes()) {
        if (node.Level == TagLevel::Item) {
            ++tags;
            const QString caption = QString::fromUtf8(node.Caption.data(), qsizetype(node.Caption.size()));
            place = table.indexOf(
                u"<tr><td>" + caption + u"</td><td>" + code(node.Before) + u"</td><td>" + code(node.After) +
                    u"</td></tr>",
                place);
            QVERIFY2(place > 0, qUtf8Printable(caption));
        }
    }
    QCOMPARE(table.count(QStringLiteral("<tr><td>")), tags);
    const QString page = QString::fromUtf8(BytesOf(helpFolder + u"/pages/tags.html"));
    QVERIFY(page.contains(QStringLiteral(" %1 HTML tags").arg(tags)));
}

QTEST_GUILESS_MAIN(TestHelpBook)
#include "tst_helpbook.moc"
