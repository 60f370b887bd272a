// Costs of checking a page, of knowing which of its elements are open, and of completing it.

#include "app/SourceEditor.h"
#include "app/TagCompletion.h"
#include "app/rules/DocumentFile.h"
#include "app/rules/PageCheck.h"
#include "html/HtmlTokens.h"
#include "html/OpenElements.h"
#include "shared/Settings.h"
#include "tests/bench/Bench.h"

#include <QAction>
#include <QCoreApplication>
#include <QTest>
#include <algorithm>

namespace {

/** Paragraphs that are not closed, with the same id each. */
QString FaultyPage(int paragraphs)
{
    return QStringLiteral("<div class=\"a\"><p id=x>Some text <a href=\"b.html\">b</a>\r\n<br></div>\r\n")
        .repeated(paragraphs);
}

Cost CostOfCheck(const QString& page)
{
    return CostOf([&page] {
        if (!CheckPage(page, [](const QString&) { return true; }).AreMore) {
            qFatal("there are more problems than are told");
        }
    });
}

/** Elements in one another, so many deep, each of which ends. */
QString NestedPage(int depth)
{
    return QStringLiteral("<span>").repeated(depth) + QStringLiteral("</span>").repeated(depth);
}

Cost CostOfTokens(const QString& page)
{
    return CostOf([&page] {
        qsizetype length = 0;
        HtmlTokens tokens(page);
        for (HtmlToken token; tokens.Next(token);) {
            length += token.whole.length;
        }
        if (length != page.size()) {
            qFatal("not all is read");
        }
    });
}

Cost CostOfNesting(int depth)
{
    const QString page = NestedPage(depth);
    return CostOf([&page, depth] {
        HtmlTokens tokens(page);
        OpenElements elements(page);
        std::size_t most = 0;
        for (HtmlToken token; tokens.Next(token);) {
            (void)elements.Take(token, tokens.State());
            most = std::max(most, elements.Open().size());
        }
        if (most != std::size_t(depth) || !elements.Open().empty()) {
            qFatal("the elements are not nested");
        }
    });
}

void BenchNesting()
{
    constexpr int depth = 100'000;
    constexpr int times = 10;
    const Cost nested = CostOfNesting(depth);
    PrintRow(
        QStringLiteral("which of 100,000 nested elements are open; read their tags"), nested,
        CostOfTokens(NestedPage(depth)), 20);
    PrintGrowth(
        QStringLiteral("nest 100,000 elements; ten times 10,000"), nested, CostOfNesting(depth / times),
        times);
}

/** Start tags typed in the middle of a page, each on a line of its own, with and without their end tags. */
Cost CostOfStartTags(bool isCompleted)
{
    constexpr int tags = 20;
    SourceEditor editor;
    Settings settings;
    settings.Keep(Setting::completion, isCompleted);
    const DocumentFile file;
    QAction entry;
    const TagCompletion completion(editor, settings, file, entry);
    editor.resize(700, 500);
    editor.show();
    editor.LoadText(FaultyPage(15'000));
    return CostOf(
        [&editor] {
            for (int i = 0; i < tags; ++i) {
                editor.Select(editor.TextLength() / 2, 0);
                for (const char key : { '\r', '<', 'b', '>' }) {
                    QTest::keyClick(&editor, key);
                    QCoreApplication::processEvents();
                }
            }
        },
        tags);
}

} // namespace

void BenchChecking()
{
    constexpr int paragraphs = 15'000;
    constexpr int times = 10;
    const QString page = FaultyPage(paragraphs);
    const Cost checked = CostOfCheck(page);
    const Cost read = CostOfTokens(page);
    PrintRow(QStringLiteral("check a page of 1 MB with many problems; read all its tags"), checked, read, 4);
    PrintGrowth(
        QStringLiteral("check 1 MB; ten times 100 KB"), checked, CostOfCheck(FaultyPage(paragraphs / times)),
        times);
    BenchNesting();
    PrintRow(
        QStringLiteral("a start tag in 1 MB, its end tag put in; without"), CostOfStartTags(true),
        CostOfStartTags(false), 1.5);
}
