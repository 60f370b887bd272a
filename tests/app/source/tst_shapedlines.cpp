// Which lines of a document stay shaped.

#include "app/source/ShapedLines.h"

#include <QAbstractTextDocumentLayout>
#include <QPlainTextDocumentLayout>
#include <QTest>
#include <QTextCursor>
#include <QTextLayout>

class tst_shapedlines : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { document_.reset(); }

    void linesThatAreSeenAreKept();
    void linesThatLeaveTheViewAreLetGo();
    void linesFollowEditsAbove();
    void newLinesAreKeptToo();
    void otherTextIsKeptAnew();
    void muchTextInBetweenIsNotKept();
    void whatIsLetGoStaysLaidOut();

private:
    /** The numbers of the blocks that stay shaped. */
    QList<int> Kept() const
    {
        QList<int> kept;
        for (QTextBlock block = document_->begin(); block.isValid(); block = block.next()) {
            if (block.layout()->cacheEnabled()) {
                kept << block.blockNumber();
            }
        }
        return kept;
    }
    void Keep(int first, int count) { lines_->Keep(document_->findBlockByNumber(first), count); }
    void Insert(int block, const QString& text)
    {
        QTextCursor(document_->findBlockByNumber(block)).insertText(text);
    }

    std::unique_ptr<QTextDocument> document_;
    ShapedLines* lines_ = nullptr;
};

void tst_shapedlines::init()
{
    document_ = std::make_unique<QTextDocument>();
    document_->setDocumentLayout(new QPlainTextDocumentLayout(document_.get()));
    document_->setPlainText(QStringLiteral("line\n").repeated(19) + u"line");
    lines_ = new ShapedLines(*document_);
}

void tst_shapedlines::linesThatAreSeenAreKept()
{
    QCOMPARE(Kept(), QList<int>());
    Keep(3, 4);
    QCOMPARE(Kept(), QList<int>({ 3, 4, 5, 6 }));
    Keep(17, 10);
    QCOMPARE(Kept(), QList<int>({ 17, 18, 19 }));
}

void tst_shapedlines::linesThatLeaveTheViewAreLetGo()
{
    Keep(3, 4);
    Keep(5, 4);
    QCOMPARE(Kept(), QList<int>({ 5, 6, 7, 8 }));
    Keep(4, 4);
    QCOMPARE(Kept(), QList<int>({ 4, 5, 6, 7 }));
    Keep(4, 2);
    QCOMPARE(Kept(), QList<int>({ 4, 5 }));
    Keep(0, 2);
    QCOMPARE(Kept(), QList<int>({ 0, 1 }));
}

void tst_shapedlines::linesFollowEditsAbove()
{
    Keep(5, 3);
    Insert(0, QStringLiteral("a\nb\n"));
    Keep(0, 1);
    QCOMPARE(Kept(), QList<int>({ 0 }));
}

void tst_shapedlines::newLinesAreKeptToo()
{
    Keep(5, 3);
    Insert(6, QStringLiteral("\n"));
    Keep(5, 3);
    QCOMPARE(Kept(), QList<int>({ 5, 6, 7 }));
    QTextCursor cursor(document_->findBlockByNumber(6));
    cursor.deletePreviousChar();
    Keep(5, 3);
    QCOMPARE(Kept(), QList<int>({ 5, 6, 7 }));
}

void tst_shapedlines::otherTextIsKeptAnew()
{
    Keep(0, 3);
    document_->setPlainText(QStringLiteral("other\n").repeated(19) + u"other");
    Keep(0, 3);
    QCOMPARE(Kept(), QList<int>({ 0, 1, 2 }));
}

void tst_shapedlines::muchTextInBetweenIsNotKept()
{
    Keep(5, 3);
    Insert(6, QStringLiteral("more\n").repeated(1000));
    Keep(1010, 2);
    QCOMPARE(Kept(), QList<int>({ 1010, 1011 }));
}

void tst_shapedlines::whatIsLetGoStaysLaidOut()
{
    const QAbstractTextDocumentLayout& layout = *document_->documentLayout();
    const QTextBlock block = document_->findBlockByNumber(5);
    const QRectF before = layout.blockBoundingRect(block);
    Keep(5, 3);
    Keep(10, 3);
    QCOMPARE(block.layout()->lineCount(), 1);
    QCOMPARE(layout.blockBoundingRect(block), before);
}

QTEST_MAIN(tst_shapedlines)
#include "tst_shapedlines.moc"
