// Copying a text piece by piece while it is edited.

#include "app/source/SourceText.h"
#include "app/source/TextSnapshot.h"

#include <QAbstractTextDocumentLayout>
#include <QTest>
#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>
#include <algorithm>
#include <random>

using namespace std::chrono_literals;

namespace {

/** Shows nothing. */
class NoLayout : public QAbstractTextDocumentLayout
{
public:
    using QAbstractTextDocumentLayout::QAbstractTextDocumentLayout;

    void draw(QPainter*, const PaintContext&) override {}
    int hitTest(const QPointF&, Qt::HitTestAccuracy) const override { return 0; }
    int pageCount() const override { return 1; }
    QSizeF documentSize() const override { return {}; }
    QRectF frameBoundingRect(QTextFrame*) const override { return {}; }
    QRectF blockBoundingRect(const QTextBlock&) const override { return {}; }

protected:
    void documentChanged(int, int, int) override {}
};

} // namespace

class tst_textsnapshot : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { document_.reset(); }

    void textIsCopiedWithItsLineEnds_data();
    void textIsCopiedWithItsLineEnds();
    void theClockIsLookedAtBetweenSmallPieces();
    void whatIsEditedMeanwhileIsCopiedAgain();
    void onlyWhatIsEditedIsCopiedAgain();
    void textThatIsReplacedMeanwhileIsCopiedAnew();

private:
    [[nodiscard]] LineEnds Load(const QString& text)
    {
        document_->setUndoRedoEnabled(false);
        document_->setPlainText(ForDocument(text));
        LineEnds ends(text, *document_);
        document_->setUndoRedoEnabled(true);
        return ends;
    }
    void EditByChance(std::mt19937& random);

    std::unique_ptr<QTextDocument> document_;
};

void tst_textsnapshot::init()
{
    document_ = std::make_unique<QTextDocument>();
    // Without a layout a document tells nothing of edits; Qt's own takes long for so many lines.
    document_->setDocumentLayout(new NoLayout(document_.get()));
}

void tst_textsnapshot::textIsCopiedWithItsLineEnds_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QString();
    QTest::newRow("one line") << QStringLiteral("a");
    QTest::newRow("CR LF") << QStringLiteral("a\r\n\r\nb\r\n");
    QTest::newRow("LF") << QStringLiteral("a\nb");
    QTest::newRow("mixed") << QStringLiteral("a\nb\r\nc\rd\n");
    QTest::newRow("no-break space") << QStringLiteral("a\u00a0b\n");
    QTest::newRow("large") << QStringLiteral("line\r\nother\n").repeated(10'000);
    QTest::newRow("long line") << QString(200'000, u'x') + u"\nb";
}

void tst_textsnapshot::textIsCopiedWithItsLineEnds()
{
    QFETCH(const QString, text);
    TextSnapshot snapshot(*document_, Load(text));
    while (!snapshot.CopyFor(1ms)) {
    }
    QCOMPARE(snapshot.Pieces().join(QString()), text);
}

void tst_textsnapshot::theClockIsLookedAtBetweenSmallPieces()
{
    const QString text = QString(78, u'x').append(QLatin1String("\r\n")).repeated(125'000); // 10 MB
    TextSnapshot snapshot(*document_, Load(text));
    while (!snapshot.CopyFor(4ms)) {
    }
    // What is copied without a look at the clock is a small part of a frame: 64 Ki characters and a line.
    constexpr qsizetype most = (1 << 16) * 80 / 79 + 80; // the text has a line end more of each 79 characters
    const QStringList pieces = snapshot.Pieces();
    QVERIFY(std::ranges::all_of(pieces, [](const QString& piece) { return piece.size() <= most; }));
    QCOMPARE(pieces.join(QString()), text);
}

void tst_textsnapshot::EditByChance(std::mt19937& random)
{
    const auto upTo = [&random](int most) { return int(random() % unsigned(most + 1)); };
    QTextCursor cursor(document_.get());
    const int end = document_->characterCount() - 1;
    cursor.setPosition(upTo(end));
    switch (upTo(4)) {
    case 0:
        cursor.insertText(QStringLiteral("new\nlines\n").left(upTo(10)));
        break;
    case 1:
        cursor.setPosition(std::min(end, cursor.position() + upTo(100)), QTextCursor::KeepAnchor);
        cursor.removeSelectedText();
        break;
    case 2:
        cursor.setPosition(upTo(end), QTextCursor::KeepAnchor);
        cursor.insertText(cursor.selectedText() + u'y');
        break;
    case 3:
        document_->undo();
        break;
    default:
        document_->redo();
        break;
    }
}

void tst_textsnapshot::whatIsEditedMeanwhileIsCopiedAgain()
{
    std::mt19937 random(7);
    for (int round = 0; round < 8; ++round) {
        const LineEnds ends = Load(QStringLiteral("one\r\ntwo\nthree\r\n\r\n").repeated(8'000));
        TextSnapshot snapshot(*document_, ends);
        for (int i = 0; i < 12; ++i) {
            (void)snapshot.CopyFor(1ms);
            EditByChance(random);
        }
        while (!snapshot.CopyFor(1ms)) {
        }
        QVERIFY2(
            snapshot.Pieces().join(QString()) == ends.TextOf(*document_), qPrintable(QString::number(round)));
        EditByChance(random);
        while (!snapshot.CopyFor(1ms)) {
        }
        QVERIFY(snapshot.Pieces().join(QString()) == ends.TextOf(*document_));
    }
}

void tst_textsnapshot::onlyWhatIsEditedIsCopiedAgain()
{
    const LineEnds ends = Load(QStringLiteral("0123456789\r\n").repeated(100'000));
    TextSnapshot snapshot(*document_, ends);
    while (!snapshot.CopyFor(1000ms)) {
    }
    const QStringList before = snapshot.Pieces();
    QTextCursor cursor(document_.get());
    cursor.insertText(QStringLiteral("x"));
    QVERIFY(snapshot.CopyFor(1000ms));
    const QStringList after = snapshot.Pieces();
    int same = 0;
    for (const QString& piece : before) {
        for (const QString& other : after) {
            same += piece.constData() == other.constData() ? 1 : 0;
        }
    }
    QCOMPARE(same, before.size() - 1);
}

void tst_textsnapshot::textThatIsReplacedMeanwhileIsCopiedAnew()
{
    const LineEnds ends = Load(QStringLiteral("one\r\n").repeated(50'000));
    TextSnapshot snapshot(*document_, ends);
    (void)snapshot.CopyFor(1ms);
    document_->setPlainText(QStringLiteral("other\ntext"));
    while (!snapshot.CopyFor(1ms)) {
    }
    QCOMPARE(snapshot.Pieces().join(QString()), QStringLiteral("other\r\ntext"));
}

QTEST_MAIN(tst_textsnapshot)
#include "tst_textsnapshot.moc"
