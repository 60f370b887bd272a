// Costs of editing documents of 1, 10 and 50 megabytes, and of what the program puts into them.

#include "app/SourceEditor.h"
#include "app/frmIMmain.h"
#include "html/HtmlTokens.h"
#include "imagemap/frmImageMap.h"
#include "shared/AnsiCodePage.h"
#include "shared/FileWriting.h"
#include "tests/bench/Bench.h"
#include "tests/support/FakePage.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/RecordingDesktop.h"
#include "tests/support/RecordingHelp.h"

#include <QCoreApplication>
#include <QFile>
#include <QTest>
#include <QTreeWidget>

namespace {

const QByteArray line = "<p>Some text that a page is made of, long enough.</p>\r\n";
/** More lines than a window shows. */
constexpr int screenful = 60;

QByteArray PageOf(int megabytes)
{
    return line.repeated(megabytes * int(megabyte) / int(line.size()));
}

QByteArray ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void ShowIn(QPlainTextEdit& editor)
{
    editor.resize(700, 500);
    editor.show();
    QCoreApplication::processEvents();
}

/** Keys typed on a line of its own in the middle, from the event to the painted editor. */
Cost CostOfKey(const QString& text)
{
    constexpr int keys = 100;
    SourceEditor editor;
    editor.LoadText(text);
    ShowIn(editor);
    editor.Select(editor.TextLength() / 2, 0);
    QTest::keyClick(&editor, Qt::Key_End);
    QTest::keyClick(&editor, Qt::Key_Return);
    return CostOf(
        [&editor] {
            for (int i = 0; i < keys; ++i) {
                QTest::keyClick(&editor, Qt::Key_X);
                if (i % 40 == 0) {
                    QTest::keyClick(&editor, Qt::Key_Return);
                }
                QCoreApplication::processEvents();
            }
        },
        keys);
}

/** From the top to the end of the text and back. */
Cost CostOfScrolling(QPlainTextEdit& editor)
{
    return CostOf([&editor] {
        QTest::keyClick(&editor, Qt::Key_End, Qt::ControlModifier);
        QCoreApplication::processEvents();
        QTest::keyClick(&editor, Qt::Key_Home, Qt::ControlModifier);
        QCoreApplication::processEvents();
    });
}

/** From the double click on "Bold" to the painted editor, with a word selected in the middle line, and back.
 */
Cost CostOfTag(const QByteArray& page)
{
    constexpr int tags = 20;
    ProgramFolder folder;
    RecordingDesktop desktop;
    frmIMmain window(folder.imgMap, folder.map, desktop);
    window.Form_Load();
    window.show();
    auto* const editor = window.findChild<SourceEditor*>();
    auto* const tree = window.findChild<QTreeWidget*>();
    editor->LoadText(QString::fromLatin1(page));
    QTreeWidgetItem* const bold = tree->findItems(QStringLiteral("Bold"), Qt::MatchRecursive).constFirst();
    tree->setCurrentItem(bold);
    QCoreApplication::processEvents();
    const qsizetype word = page.size() / line.size() / 2 * line.size() + line.indexOf("text");
    return CostOf(
        [&window, editor, tree, bold, word] {
            for (int i = 0; i < tags; ++i) {
                editor->Select(word, 4);
                Q_EMIT tree->itemDoubleClicked(bold, 0);
                QCoreApplication::processEvents();
                window.Source().undo();
            }
        },
        tags);
}

/** What a document of one size costs, for comparing with another. */
struct DocumentCosts
{
    Cost opened;
    Cost saved;
};

DocumentCosts BenchDocument(int megabytes, const Cost& bareKey, const Cost& bareTag)
{
    const ProgramFolder folder;
    const QString path = folder.Path(QStringLiteral("page.htm"));
    (void)WriteWholeFile(path, PageOf(megabytes));
    const QString size = QStringLiteral(" %1 MB; ").arg(megabytes);

    QPlainTextEdit bare;
    ShowIn(bare);
    const Cost filled = CostOf([&bare, &path] {
        bare.clear();
        bare.setPlainText(QString::fromLatin1(ReadAll(path)));
        QCoreApplication::processEvents();
    });
    SourceEditor editor;
    ShowIn(editor);
    const Cost opened = CostOf([&editor, &path] {
        editor.LoadText(AnsiCodePage::Decode(ReadAll(path)));
        QCoreApplication::processEvents();
    });
    PrintRow(
        QStringLiteral("open") + size + QStringLiteral("read, convert and fill a bare editor"), opened,
        filled, 3);
    PrintRow(
        QStringLiteral("scroll to the end of") + size + QStringLiteral("a bare editor"),
        CostOfScrolling(editor), CostOfScrolling(bare), 2);
    PrintRow(
        QStringLiteral("a key in") + size + QStringLiteral("in an empty document"), CostOfKey(editor.Text()),
        bareKey, 2);
    PrintRow(
        QStringLiteral("wrap a word in a tag in") + size + QStringLiteral("in a document of one screenful"),
        CostOfTag(PageOf(megabytes)), bareTag, 2);
    const Cost saved = CostOf(
        [&editor, &path] { (void)WriteWholeFile(path, AnsiCodePage::Encode(editor.Text()) + "\r\n"); });
    PrintRow(
        QStringLiteral("save") + size + QStringLiteral("read, convert and fill a bare editor"), saved, filled,
        3);
    return { opened, saved };
}

/** A page of tags, attributes and references, as maps are written. */
QString MapsOf(int megabytes)
{
    const QString area = QStringLiteral(
        "<area shape=\"rect\" coords=\"10,20,300,40\" href='page.html?a=1&amp;b=2' alt=\"An area\" />\r\n"
        "<!-- more --><p class=note>Some text &amp; <b>more of it</b>, long enough.</p>\r\n");
    return area.repeated(megabytes * qsizetype(megabyte) / area.size());
}

/** Taking a page to pieces; its baseline makes a text of its bytes. */
void BenchTokens()
{
    const auto cost = [](const QString& text) {
        return CostOf([&text] {
            HtmlTokens tokens(text);
            qsizetype attributes = 0;
            for (HtmlToken token; tokens.Next(token);) {
                attributes += qsizetype(token.attributes.size());
            }
            if (attributes == 0) {
                qFatal("no attributes were found");
            }
        });
    };
    const QString text = MapsOf(10);
    const QByteArray bytes = AnsiCodePage::Encode(text);
    const Cost decoded = CostOf([&bytes] { (void)AnsiCodePage::Decode(bytes); });
    const Cost tokens = cost(text);
    PrintRow(QStringLiteral("find the tokens of 10 MB; decode them"), tokens, decoded, 8);
    PrintGrowth(QStringLiteral("find the tokens of 10 MB; ten times of 1 MB"), tokens, cost(MapsOf(1)), 10);
}

/** A document open in an editor, with the caret in its middle; remembers what was put in last. */
class OpenDocument : public FakePage
{
public:
    explicit OpenDocument(const QString& text)
    {
        source_.LoadText(text);
        ShowIn(source_);
        source_.Select(source_.TextLength() / 2, 0);
        QCoreApplication::processEvents();
    }

    int InsertAtCaret(const QString& text) override
    {
        inserted = text;
        source_.ReplaceSelection(text);
        QCoreApplication::processEvents();
        return 1;
    }

    QString inserted;

private:
    SourceEditor source_;
};

/** A word in each of the first `count` lines. */
QList<TextReplacement> WordsToReplace(int count)
{
    const qsizetype word = line.indexOf("text");
    QList<TextReplacement> replacements;
    for (int i = 0; i < count; ++i) {
        replacements << TextReplacement{ { i * line.size() + word, 4 }, QStringLiteral("writing") };
    }
    return replacements;
}

/** Times `replace`, and takes it back between. */
Cost CostOfReplacing(QPlainTextEdit& editor, const std::function<void()>& replace)
{
    ShowIn(editor);
    return CostOfTimed([&editor, &replace] {
        const double seconds = SecondsOnce([&replace] {
            replace();
            QCoreApplication::processEvents();
        });
        editor.undo();
        QCoreApplication::processEvents();
        return seconds;
    });
}

/** Many replacements; their baseline is one block of as many edits in a bare editor. */
void BenchReplacing()
{
    constexpr int many = 20'000;
    const QString text = QString::fromLatin1(PageOf(2));
    const QList<TextReplacement> replacements = WordsToReplace(many);
    SourceEditor editor;
    editor.LoadText(text);
    const Cost replaced = CostOfReplacing(editor, [&editor, &replacements] { editor.Replace(replacements); });
    QPlainTextEdit bare;
    bare.setPlainText(text);
    const Cost edited = CostOfReplacing(bare, [&bare, &replacements] {
        QTextCursor cursor(bare.document());
        cursor.beginEditBlock();
        for (int i = many - 1; i >= 0; --i) {
            // The document counts a line end as one character.
            const int start = static_cast<int>(replacements[i].Place.Start) - i;
            cursor.setPosition(start);
            cursor.setPosition(start + 4, QTextCursor::KeepAnchor);
            cursor.insertText(replacements[i].Text);
        }
        cursor.endEditBlock();
    });
    PrintRow(
        QStringLiteral("replace 20,000 words; a block of edits in a bare editor"), replaced, edited, 1.5);
    const QList<TextReplacement> fewer = WordsToReplace(many / 10);
    const Cost less = CostOfReplacing(editor, [&editor, &fewer] { editor.Replace(fewer); });
    PrintGrowth(QStringLiteral("replace 20,000 words; ten times 2,000"), replaced, less, 10);
}

/** Puts `count` linked areas into a map. */
void AppendAreas(MapDocument& map, int count)
{
    for (int i = 0; i < count; ++i) {
        map.AppendArea({ .Shape = AreaShape::Rectangle,
                         .Coordinates = { i % 300, i % 200, 400, 300 },
                         .Link = QStringLiteral("area%1.htm").arg(i),
                         .Target = QStringLiteral("_blank"),
                         .Message = QStringLiteral("What there is to see in area %1").arg(i) });
    }
}

void BenchInsert()
{
    constexpr int areas = 500;
    const QString text = QString::fromLatin1(PageOf(10));
    ProgramFolder folder;
    folder.map.Script().SetMode(JSTextArea);
    OpenDocument page(text);
    RecordingHelp help;
    auto* const editor = new frmImageMap(folder.imgMap, folder.map, page, help, nullptr);
    editor->Form_Load();
    AppendAreas(folder.map, areas);
    const Cost generated = CostOf([editor] { editor->GenerateMap(); });
    OpenDocument otherPage(text);
    const Cost finished = CostOf([&page, &otherPage] { otherPage.InsertAtCaret(QString(page.inserted)); });
    PrintRow(
        QStringLiteral("generate and insert 500 areas in 10 MB; insert the finished text"), generated,
        finished, 3);
    delete editor;
}

} // namespace

void BenchDocuments()
{
    const Cost bareKey = CostOfKey(QString());
    const Cost bareTag = CostOfTag(line.repeated(screenful));
    const DocumentCosts small = BenchDocument(1, bareKey, bareTag);
    const DocumentCosts large = BenchDocument(10, bareKey, bareTag);
    PrintGrowth(QStringLiteral("open 10 MB; ten times opening 1 MB"), large.opened, small.opened, 10);
    PrintGrowth(QStringLiteral("save 10 MB; ten times saving 1 MB"), large.saved, small.saved, 10);
    if (!IsCounting()) {
        (void)BenchDocument(50, bareKey, bareTag);
    }
    BenchReplacing();
    BenchInsert();
    BenchTokens();
}
