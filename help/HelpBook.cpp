#include "help/HelpBook.h"

#include <QCryptographicHash>
#include <QFile>
#include <QFileInfo>
#include <QMap>
#include <QResource>
#include <QXmlStreamReader>
#include <algorithm>
#include <array>
#include <optional>

namespace {

constexpr qint64 bytesAtMost = 64LL * 1024 * 1024;

/** What the binding of the book puts at its end: this and the SHA-256 sum, in hexadecimal, of all before it.
 */
constexpr QByteArrayView sealMark = "Cartolen help book, SHA-256 ";
constexpr qsizetype sumDigits = 64;

bool IsSealed(const QByteArray& bytes)
{
    const qsizetype sealed = bytes.size() - sealMark.size() - sumDigits;
    if (sealed <= 0 || QByteArrayView(bytes).sliced(sealed, sealMark.size()) != sealMark) {
        return false;
    }
    const QByteArray sum =
        QCryptographicHash::hash(QByteArrayView(bytes).first(sealed), QCryptographicHash::Sha256);
    return sum.toHex() == bytes.last(sumDigits);
}

std::optional<QByteArray> ReadSmallFile(const QString& path)
{
    QFile file(path);
    // Opening a pipe could wait for ever, so the file's kind is asked for first.
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > bytesAtMost) {
        return std::nullopt;
    }
    return file.readAll();
}

constexpr std::array<QStringView, 3> headingElements = { u"h1", u"h2", u"h3" };
constexpr std::array<QStringView, 9> inlineElements = { u"a",   u"b",    u"i",    u"em", u"strong",
                                                        u"kbd", u"code", u"span", u"sup" };

template<class List> bool Contains(const List& list, QStringView text)
{
    return std::find(list.begin(), list.end(), text) != list.end();
}

QString Folded(const QString& text)
{
    return text.toCaseFolded().simplified();
}

/** What a page says of itself, and the words on it. */
struct PageText
{
    QString title;
    QStringList keywords;
    QString headings;
    QString text;
};

/** Reads a page, which must be well-formed as XML. */
class PageTextReader
{
public:
    explicit PageTextReader(const QByteArray& html)
        : reader_(html)
    {
    }

    /** Nothing when the page is not well-formed or has no title. */
    [[nodiscard]] std::optional<PageText> Read()
    {
        while (!reader_.atEnd()) {
            Take(reader_.readNext());
        }
        if (reader_.hasError() || page_.title.isEmpty()) {
            return std::nullopt;
        }
        return page_;
    }

private:
    void Take(QXmlStreamReader::TokenType token)
    {
        switch (token) {
        case QXmlStreamReader::StartElement:
            Start(reader_.name());
            break;
        case QXmlStreamReader::EndElement:
            End(reader_.name());
            break;
        case QXmlStreamReader::Characters:
            TakeText(reader_.text());
            break;
        default:
            break;
        }
    }

    void Start(QStringView element)
    {
        if (element == u"title") {
            page_.title = reader_.readElementText().simplified();
        } else if (element == u"meta" && reader_.attributes().value(QLatin1String("name")) == u"keywords") {
            TakeKeywords(reader_.attributes().value(QLatin1String("content")));
        } else if (element == u"body") {
            isInBody_ = true;
        } else if (Contains(headingElements, element)) {
            isInHeading_ = true;
        }
        Separate(element);
    }

    void End(QStringView element)
    {
        if (Contains(headingElements, element)) {
            isInHeading_ = false;
            page_.headings += u' ';
        }
        Separate(element);
    }

    /** Words of different paragraphs and cells do not run together; those of one word in bold stay one. */
    void Separate(QStringView element)
    {
        if (!Contains(inlineElements, element)) {
            page_.text += u' ';
        }
    }

    void TakeText(QStringView text)
    {
        if (isInBody_) {
            page_.text += text;
        }
        if (isInHeading_) {
            page_.headings += text;
        }
    }

    void TakeKeywords(QStringView list)
    {
        for (const QStringView keyword : list.split(u';', Qt::SkipEmptyParts)) {
            page_.keywords << keyword.toString().simplified();
        }
    }

    QXmlStreamReader reader_;
    PageText page_;
    bool isInBody_ = false;
    bool isInHeading_ = false;
};

/** Whether a word of `text` begins with `start`. */
bool HasWordStarting(QStringView text, QStringView start)
{
    for (qsizetype at = text.indexOf(start); at >= 0; at = text.indexOf(start, at + 1)) {
        if (at == 0 || !text[at - 1].isLetterOrNumber()) {
            return true;
        }
    }
    return false;
}

/** What a word is worth where it is found: more at a word's start than within one. */
int Worth(QStringView text, QStringView word, int points)
{
    if (!text.contains(word)) {
        return 0;
    }
    return HasWordStarting(text, word) ? 2 * points : points;
}

} // namespace

HelpBook::~HelpBook()
{
    Close();
}

void HelpBook::Close()
{
    if (!root_.isEmpty()) {
        QResource::unregisterResource(reinterpret_cast<const uchar*>(bytes_.constData()), root_);
    }
    root_.clear();
    bytes_.clear();
    chapters_.clear();
    keywords_.clear();
    pages_.clear();
}

HelpTrouble HelpBook::Open(const QString& path)
{
    Close();
    if (!QFileInfo::exists(path)) {
        return HelpTrouble::Missing;
    }
    const std::optional<QByteArray> bytes = ReadSmallFile(path);
    if (!bytes || !IsSealed(*bytes)) {
        return HelpTrouble::Damaged;
    }
    // Every open book has a place of its own, so that two of them do not show each other's pages.
    static int booksOpened = 0;
    const QString root = QStringLiteral("/help-book-%1").arg(++booksOpened);
    bytes_ = *bytes;
    if (!QResource::registerResource(reinterpret_cast<const uchar*>(bytes_.constData()), root)) {
        return HelpTrouble::Damaged;
    }
    root_ = root;
    if (!ReadContents()) {
        Close();
        return HelpTrouble::Damaged;
    }
    MakeIndex();
    return HelpTrouble::None;
}

/** The contents: a chapter's title stands at the start of a line, the names of its pages below are indented.
 */
bool HelpBook::ReadContents()
{
    const std::optional<QByteArray> contents = ReadSmallFile(u':' + root_ + u"/pages/contents.txt");
    if (!contents) {
        return false;
    }
    for (const QString& line : QString::fromUtf8(*contents).split(u'\n', Qt::SkipEmptyParts)) {
        const QString entry = line.trimmed();
        if (entry.isEmpty()) {
            continue;
        }
        if (!line[0].isSpace()) {
            chapters_ << HelpChapter{ entry, {} };
        } else if (!chapters_.isEmpty() && ReadPage(entry)) {
            chapters_.last().pages << entry;
        } else {
            return false;
        }
    }
    return !chapters_.isEmpty() && !chapters_.constFirst().pages.isEmpty();
}

bool HelpBook::ReadPage(const QString& name)
{
    const std::optional<QByteArray> html = ReadSmallFile(u':' + PathOf(name));
    std::optional<PageText> page = html ? PageTextReader(*html).Read() : std::nullopt;
    if (!page) {
        return false;
    }
    pages_.insert(
        name, { .title = page->title,
                .keywords = page->keywords,
                .foldedTitle = Folded(page->title),
                .foldedKeywords = Folded(page->keywords.join(u' ')),
                .headings = Folded(page->headings),
                .text = Folded(page->text) });
    return true;
}

void HelpBook::MakeIndex()
{
    QMap<QString, HelpKeyword> byText;
    for (const HelpChapter& chapter : std::as_const(chapters_)) {
        for (const QString& name : chapter.pages) {
            for (const QString& keyword : pages_.value(name).keywords) {
                HelpKeyword& entry = byText[keyword.toCaseFolded()];
                if (entry.pages.isEmpty()) {
                    entry.text = keyword;
                }
                entry.pages << name;
            }
        }
    }
    keywords_ = byText.values();
}

QString HelpBook::FirstPage() const
{
    return IsOpen() ? chapters_.constFirst().pages.constFirst() : QString();
}

QString HelpBook::PathOf(const QString& name) const
{
    return root_ + u"/pages/" + name + u".html";
}

QUrl HelpBook::UrlOf(const QString& name) const
{
    QUrl url;
    url.setScheme(QStringLiteral("qrc"));
    url.setPath(PathOf(name));
    return url;
}

QString HelpBook::PageAt(const QUrl& url) const
{
    const QString name = QFileInfo(url.path()).completeBaseName();
    return HasPage(name) && url.adjusted(QUrl::RemoveFragment) == UrlOf(name) ? name : QString();
}

QStringList HelpBook::Search(QStringView words) const
{
    const QStringList wanted = Folded(words.toString()).split(u' ', Qt::SkipEmptyParts);
    struct Hit
    {
        QString page;
        int score;
    };
    QList<Hit> hits;
    for (const HelpChapter& chapter : chapters_) {
        for (const QString& name : chapter.pages) {
            const Page page = pages_.value(name);
            int total = 0;
            const bool hasAll = std::all_of(wanted.begin(), wanted.end(), [&](const QString& word) {
                const int score = Score(page, word);
                total += score;
                return score > 0;
            });
            if (hasAll && total > 0) {
                hits << Hit{ name, total };
            }
        }
    }
    // Among equals the order of the book stays.
    std::stable_sort(
        hits.begin(), hits.end(), [](const Hit& left, const Hit& right) { return left.score > right.score; });
    QStringList found;
    for (const Hit& hit : std::as_const(hits)) {
        found << hit.page;
    }
    return found;
}

int HelpBook::Score(const Page& page, const QString& word)
{
    constexpr int inTitle = 40;
    constexpr int inKeywords = 20;
    constexpr int inHeadings = 10;
    constexpr qsizetype timesAtMost = 10;
    const auto times = static_cast<int>(std::min(page.text.count(word), timesAtMost));
    return Worth(page.foldedTitle, word, inTitle) + Worth(page.foldedKeywords, word, inKeywords) +
           Worth(page.headings, word, inHeadings) + times;
}
