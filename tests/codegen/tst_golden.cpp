// Compares what the generators write, byte by byte, with pages composed without them:
//
//     data/<mode>.<whole-paths or file-names>.<number>-area(s).<kind of text>.html
//
// The texts of one kind stand wherever a map has a text: in its name, links, targets, messages and pictures.

#include "codegen/MapMarkup.h"
#include "shared/AnsiCodePage.h"

#include <QDir>
#include <QFile>
#include <QTest>
#include <algorithm>
#include <array>

namespace {

constexpr std::array<const char*, jsModeTexts.size()> modeNames = { "no-script", "status-bar",
                                                                    "switching-images", "text-area",
                                                                    "tool-tips" };

/** What people put into their texts, and what programs like to stumble over. */
struct TextKind
{
    const char* name;
    QString text;
};

const std::array<TextKind, 7> textKinds = { {
    { "plain", QStringLiteral("a plain text") },
    { "quotes", QStringLiteral("say \"when\"") },
    { "apostrophes", QStringLiteral("it's 'so'") },
    { "line-breaks", QStringLiteral("one<br>two<br>three") },
    { "dollars-and-percents", QStringLiteral("$1 $& $$ ${x} %1 %2 %L3 %%") },
    { "backslashes", QStringLiteral("C:\\new\\table D:\\x\\") },
    { "beyond-ascii", QStringLiteral("Caf\u00e9 \u201cGr\u00f6\u00dfe\u201d \u20ac \u017e\u2026 \u00ff") },
} };

/** As many areas as an editor holds; they have short texts of their own. */
constexpr int manyAreas = 500;

struct Page
{
    JSMode mode;
    bool fileNamesOnly;
    int areas;
    const TextKind* kind;
};

QString FileNameOf(const Page& page)
{
    const QString count = page.areas == 0   ? QStringLiteral("no-areas")
                          : page.areas == 1 ? QStringLiteral("1-area")
                                            : QStringLiteral("%1-areas").arg(page.areas);
    return QStringLiteral("%1.%2.%3.%4.html")
        .arg(
            QString::fromLatin1(modeNames[page.mode]),
            page.fileNamesOnly ? QStringLiteral("file-names") : QStringLiteral("whole-paths"), count,
            QString::fromLatin1(page.kind->name));
}

QList<Page> AllPages()
{
    QList<Page> pages;
    for (const JSModeTexts& mode : jsModeTexts) {
        for (const bool fileNamesOnly : { false, true }) {
            for (const TextKind& kind : textKinds) {
                for (const int areas : { 0, 1, 2 }) {
                    pages << Page{ mode.mode, fileNamesOnly, areas, &kind };
                }
            }
            pages << Page{ mode.mode, fileNamesOnly, manyAreas, textKinds.data() };
        }
    }
    return pages;
}

/** An area of each shape in turn, with neither link nor message. */
MapArea ShapeOf(int number)
{
    MapArea area;
    switch (number % 3) {
    case 1:
        area.Shape = AreaShape::Rectangle;
        area.Coordinates = { number, 10, number + 80, 40 };
        break;
    case 2:
        area.Shape = AreaShape::Circle;
        area.Coordinates = { number + 100, 50, 30 };
        break;
    default:
        area.Shape = AreaShape::Polygon;
        area.Coordinates = { number, 2, number + 50, 4, 5, number + 60 };
    }
    return area;
}

QString MessageOf(JSMode mode, const QString& text)
{
    if (mode == JSDisabled) {
        return {};
    }
    return mode == JSSwitchImages ? QString(u"C:\\img\\" + text + u".gif") : text;
}

MapArea AreaOf(const Page& page, int number)
{
    const bool isShort = page.areas == manyAreas;
    const QString digits = QString::number(number);
    MapArea area = ShapeOf(number);
    area.Link = (isShort ? digits : QString(page.kind->text + u' ' + digits)) + u".htm";
    if (number % 2 == 1) {
        area.Target = isShort ? QStringLiteral("_blank") : page.kind->text;
    }
    area.Message = MessageOf(page.mode, (isShort ? QStringLiteral("Area") : page.kind->text) + u' ' + digits);
    return area;
}

MapSource SourceOf(const Page& page)
{
    const bool isShort = page.areas == manyAreas;
    const QString text = isShort ? QStringLiteral("Map") : page.kind->text;
    const QString picture = (isShort ? QStringLiteral("map") : text) + u".gif";
    MapSource source = { .MapName = text,
                         .Width = "300",
                         .Height = "50%",
                         .AltText = text,
                         .Align = "left",
                         .Border = {},
                         .HorizontalSpace = "5",
                         .VerticalSpace = {},
                         .PictureReference =
                             page.fileNamesOnly ? picture : QString(u"file:///C|/pics/" + picture),
                         .FileNamesOnly = page.fileNamesOnly,
                         .ModeDefault =
                             page.mode == JSSwitchImages ? QString(u"C:\\img\\" + text + u".gif") : text,
                         .Areas = {} };
    for (int number = 1; number <= page.areas; ++number) {
        source.Areas << AreaOf(page, number);
    }
    return source;
}

QByteArray Expected(const QString& name)
{
    QFile file(QFINDTESTDATA("data/" + name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : "<there is no page " + name.toLatin1() + '>';
}

/** The first line in which two pages differ, since a whole page tells nobody anything. */
QByteArray FirstDifference(const QByteArray& written, const QByteArray& expected)
{
    const QByteArrayList writtenLines = written.split('\n');
    const QByteArrayList expectedLines = expected.split('\n');
    for (qsizetype i = 0; i < std::min(writtenLines.size(), expectedLines.size()); ++i) {
        if (writtenLines[i] != expectedLines[i]) {
            return "line " + QByteArray::number(i + 1) + " is " + writtenLines[i].toPercentEncoding(" ") +
                   ", not " + expectedLines[i].toPercentEncoding(" ");
        }
    }
    return QByteArray::number(writtenLines.size()) + " lines, not " +
           QByteArray::number(expectedLines.size());
}

} // namespace

class tst_golden : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void pageComesOutToTheByte_data();
    void pageComesOutToTheByte();
    void everyPageOnDiskIsCompared();
};

void tst_golden::pageComesOutToTheByte_data()
{
    QTest::addColumn<int>("index");
    const QList<Page> pages = AllPages();
    for (qsizetype i = 0; i < pages.size(); ++i) {
        QTest::newRow(qPrintable(FileNameOf(pages[i]))) << int(i);
    }
}

void tst_golden::pageComesOutToTheByte()
{
    QFETCH(const int, index);
    const Page page = AllPages().at(index);
    const QByteArray written = AnsiCodePage::Encode(GenerateMapFor(page.mode, SourceOf(page)));
    const QByteArray expected = Expected(FileNameOf(page));
    QVERIFY2(written == expected, FirstDifference(written, expected).constData());
}

void tst_golden::everyPageOnDiskIsCompared()
{
    QStringList compared;
    for (const Page& page : AllPages()) {
        compared << FileNameOf(page);
    }
    compared.sort();
    const QDir folder(QFINDTESTDATA("data"));
    QCOMPARE(folder.entryList({ QStringLiteral("*.*.*.*.html") }, QDir::Files, QDir::Name), compared);
}

QTEST_GUILESS_MAIN(tst_golden)

#include "tst_golden.moc"
