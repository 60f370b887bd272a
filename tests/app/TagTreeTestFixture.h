#pragma once

#include "tests/app/TagTreeDriving.h"

#include <QSignalSpy>
#include <memory>

/** The tag tree, with what every tag is expected to put in. */
class TagTreeTestFixture : public QObject
{
protected:
    void StartAll();
    void Start();
    void Finish();

    QString AfterDoubleClick(const ExpectedTag& tag, const QString& selected);

    QList<ExpectedTag> tags_;
    std::unique_ptr<TagTreeFixture> test_;
};

inline void TagTreeTestFixture::StartAll()
{
    tags_ = ReadTagTable(QFINDTESTDATA("../taglib/data/tags.tsv"));
    QCOMPARE(tags_.size(), 169);
}

inline void TagTreeTestFixture::Start()
{
    test_ = std::make_unique<TagTreeFixture>();
    QVERIFY(test_->Start());
}

inline void TagTreeTestFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

/** Double-clicks the item with `selected` selected in a line; tells what is not as it should be. */
inline QString TagTreeTestFixture::AfterDoubleClick(const ExpectedTag& tag, const QString& selected)
{
    constexpr qsizetype start = 10;
    SourceEditor* const editor = test_->Editor();
    const QString text = u"0123456789" + selected + u"xyz";
    editor->LoadText(QString());
    editor->ReplaceSelection(text);
    editor->Select(start, selected.size());
    QGuiApplication::clipboard()->setText(QStringLiteral("older"));
    test_->SetPreview(QStringLiteral("old"));
    const QSignalSpy change(editor, &SourceEditor::Change);

    test_->DoubleClick(test_->Node(tag.key));

    const bool hasCaret = tag.caret >= 0;
    QStringList problems;
    const auto check = [&problems](bool holds, const QString& what) {
        if (!holds) {
            problems << what;
        }
    };
    check(editor->Text() == u"0123456789" + tag.before + selected + tag.after + u"xyz", editor->Text());
    check(
        editor->SelStart() == start + (hasCaret ? tag.caret : tag.before.size() + selected.size()),
        QStringLiteral("caret at %1").arg(editor->SelStart()));
    check(editor->SelLength() == 0, QStringLiteral("selection"));
    check(editor->hasFocus() == hasCaret, QStringLiteral("focus"));
    check(QGuiApplication::clipboard()->text() == selected, QGuiApplication::clipboard()->text());
    check(test_->Preview() == tag.opening + u'|' + tag.closing, test_->Preview());
    check(change.count() > 0, QStringLiteral("no change told"));
    test_->window.Source().undo();
    check(editor->Text() == text, u"undone: " + editor->Text());
    return problems.isEmpty() ? QString() : tag.key + u": " + problems.join(u", ");
}
