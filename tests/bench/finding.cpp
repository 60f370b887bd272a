// Costs of the find bar.

#include "app/FindBar.h"
#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "shared/Settings.h"
#include "tests/bench/Bench.h"

#include <QCoreApplication>
#include <QLineEdit>
#include <QTest>
#include <QTextDocument>

void BenchFinding()
{
    constexpr int lines = 500'000;
    SourceEditor editor;
    Settings settings;
    const DocumentFile file;
    FindBar bar(editor, settings, file);
    editor.resize(700, 500);
    editor.show();
    editor.LoadText(QString(98, u'a').append(QStringLiteral("\r\n")).repeated(lines));
    bar.ShowFind();
    auto* const what = bar.findChild<QLineEdit*>(QStringLiteral("txtFind"));
    QCoreApplication::processEvents();

    const Cost found = CostOf([what] {
        what->selectAll();
        QTest::keyClick(what, Qt::Key_Z);
        QCoreApplication::processEvents();
    });
    qsizetype sum = 0;
    const Cost read = CostOf([&editor, &sum] { sum += editor.document()->toRawText().count(u'z'); });
    if (sum != 0) {
        qFatal("what is looked for must not be there");
    }
    PrintRow(
        QStringLiteral("find what is not in 50 MB, as it is typed; count a letter in them"), found, read, 4);
}
