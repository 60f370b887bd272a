#include "app/source/SourceRange.h"

#include <QTest>
#include <QTextDocument>
#include <memory>

namespace {

using Edit = std::function<void(QTextCursor& cursor)>;

/** Replaces the document's characters from `first` to before `last`, which count a line end as one. */
Edit Replacing(int first, int last, const char* text)
{
    return [first, last, text](QTextCursor& cursor) {
        cursor.setPosition(first);
        cursor.setPosition(last, QTextCursor::KeepAnchor);
        cursor.insertText(QString::fromLatin1(text));
    };
}

} // namespace

Q_DECLARE_METATYPE(TextSpan)

class tst_sourcerange : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void rangeFollowsTheEdits_data();
    void rangeFollowsTheEdits();
    void undoneReplacementGivesTheRangeBack();
    void anotherDocumentTakesTheRangeAway();
    void rangeOutlivesItsDocument();

private:
    std::unique_ptr<QTextDocument> document_;
    std::unique_ptr<EditWatch> watch_;
};

void tst_sourcerange::init()
{
    watch_.reset();
    document_ = std::make_unique<QTextDocument>();
    document_->setPlainText(QStringLiteral("one\n<map>\n</map>\ntwo"));
    watch_ = std::make_unique<EditWatch>(document_.get());
}

void tst_sourcerange::rangeFollowsTheEdits_data()
{
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<TextSpan>("place");
    QTest::newRow("nothing") << Edit([](QTextCursor&) {}) << TextSpan{ 5, 13 };
    QTest::newRow("before it") << Replacing(0, 0, "xy") << TextSpan{ 7, 13 };
    QTest::newRow("lines before it") << Replacing(0, 0, "a\nb\n") << TextSpan{ 11, 13 };
    QTest::newRow("inside it") << Replacing(8, 8, "name=x\n") << TextSpan{ 5, 21 };
    QTest::newRow("behind it") << Replacing(17, 19, "") << TextSpan{ 5, 13 };
    QTest::newRow("right before it") << Replacing(4, 4, "x") << TextSpan{ 5, 14 };
    QTest::newRow("right behind it") << Replacing(16, 16, "x") << TextSpan{ 5, 14 };
    QTest::newRow("its beginning taken away") << Replacing(2, 6, "") << TextSpan{ 2, 11 };
    QTest::newRow("all of it taken away") << Replacing(3, 17, "") << TextSpan{ 3, 0 };
}

void tst_sourcerange::rangeFollowsTheEdits()
{
    QFETCH(const Edit, edit);
    const SourceRange range(document_.get(), watch_.get(), { 5, 13 });
    QTextCursor cursor(document_.get());
    edit(cursor);
    QVERIFY(range.IsThere());
    QTEST(range.Place(), "place");
}

void tst_sourcerange::undoneReplacementGivesTheRangeBack()
{
    const SourceRange range(document_.get(), watch_.get(), { 5, 13 });
    QTextCursor cursor(document_.get());
    cursor.beginEditBlock();
    Replacing(4, 16, "<map name=new>\n</map>")(cursor);
    cursor.endEditBlock();
    QCOMPARE(range.Place(), (TextSpan{ 5, 22 }));
    document_->undo();
    QCOMPARE(range.Place(), (TextSpan{ 5, 13 }));
    document_->redo();
    QCOMPARE(range.Place(), (TextSpan{ 5, 22 }));
}

void tst_sourcerange::anotherDocumentTakesTheRangeAway()
{
    const SourceRange range(document_.get(), watch_.get(), { 5, 13 });
    {
        const EditWatch::Loading loading(*watch_);
        document_->setPlainText(QStringLiteral("one\n<map>\n</map>\ntwo"));
    }
    QVERIFY(!range.IsThere());
    QCOMPARE(range.Place(), TextSpan());
}

void tst_sourcerange::rangeOutlivesItsDocument()
{
    const SourceRange range(document_.get(), watch_.get(), { 5, 13 });
    watch_.release();
    document_.reset();
    QVERIFY(!range.IsThere());
    QCOMPARE(range.Place(), TextSpan());
}

QTEST_MAIN(tst_sourcerange)
#include "tst_sourcerange.moc"
