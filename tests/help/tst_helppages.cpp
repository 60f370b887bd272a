// Whether the book that ships is whole, and explains what the program says.

#include "help/HelpBook.h"
#include "imagemap/model/LinkRules.h"
#include "shared/LinksFile.h"
#include "taglib/TagCatalogue.h"
#include "tests/help/HelpFiles.h"

#include <QDir>
#include <QRegularExpression>
#include <QSet>
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

class tst_helppages : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void EveryPageIsInTheContents();
    void EveryLinkLeadsSomewhere();
    void EveryPictureIsThereAndUsed();
    void NoKeywordIsListedTwice();
    void EveryMessageIsExplained();
    void EveryModeIsExplained();
    void EveryTagIsInTheTable();

private:
    HelpBook book_;
};

void tst_helppages::initTestCase()
{
    QCOMPARE(book_.Open(shippedBook), HelpTrouble::None);
}

void tst_helppages::EveryPageIsInTheContents()
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

void tst_helppages::EveryLinkLeadsSomewhere()
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

void tst_helppages::EveryPictureIsThereAndUsed()
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

void tst_helppages::NoKeywordIsListedTwice()
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

void tst_helppages::EveryMessageIsExplained()
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

void tst_helppages::EveryModeIsExplained()
{
    QVERIFY(book_.HasPage(QStringLiteral("javascript-options")));
    const QString text = PartsOf(book_.UrlOf(QStringLiteral("javascript-options"))).text;
    for (const JSModeTexts& mode : jsModeTexts) {
        const QString name = mode.option.toString().remove(QStringLiteral("On Mouse Over - "));
        QVERIFY2(text.contains(name), qUtf8Printable(name));
    }
}

void tst_helppages::EveryTagIsInTheTable()
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

QTEST_GUILESS_MAIN(tst_helppages)

#include "tst_helppages.moc"
