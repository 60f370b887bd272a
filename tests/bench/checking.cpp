// Costs of checking a page.

#include "app/rules/PageCheck.h"
#include "html/HtmlTokens.h"
#include "tests/bench/Bench.h"

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

} // namespace

void BenchChecking()
{
    constexpr int paragraphs = 15'000;
    constexpr int times = 10;
    const QString page = FaultyPage(paragraphs);
    const Cost checked = CostOfCheck(page);
    qsizetype length = 0;
    const Cost read = CostOf([&page, &length] {
        HtmlTokens tokens(page);
        for (HtmlToken token; tokens.Next(token);) {
            length += token.whole.length;
        }
    });
    PrintRow(QStringLiteral("check a page of 1 MB with many problems; read all its tags"), checked, read, 4);
    PrintGrowth(
        QStringLiteral("check 1 MB; ten times 100 KB"), checked, CostOfCheck(FaultyPage(paragraphs / times)),
        times);
}
