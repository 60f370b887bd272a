#include "app/source/LineEnds.h"
#include "app/source/SourceText.h"

#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <random>

class tst_lineends : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void everyTextKeepsItsOwn_data();
    void everyTextKeepsItsOwn();
    void newLinesEndAsTheirNeighbours();
    void undoneLinesEndAsBefore();

private:
    [[nodiscard]] LineEnds Load(const QString& text)
    {
        document_->setUndoRedoEnabled(false);
        document_->setPlainText(ForDocument(text));
        LineEnds ends(text, *document_);
        document_->setUndoRedoEnabled(true);
        return ends;
    }

    std::unique_ptr<QTextDocument> document_;
};

void tst_lineends::init()
{
    document_ = std::make_unique<QTextDocument>();
}

void tst_lineends::everyTextKeepsItsOwn_data()
{
    QTest::addColumn<QString>("text");
    QTest::newRow("nothing") << QString();
    QTest::newRow("one line") << QStringLiteral("a");
    QTest::newRow("CR LF") << QStringLiteral("a\r\nb\r\n");
    QTest::newRow("LF") << QStringLiteral("a\n\nb");
    QTest::newRow("CR") << QStringLiteral("\ra\r");
    QTest::newRow("mixed") << QStringLiteral("a\nb\r\nc\rd\n\r\re\r\n\n");
    std::mt19937 random(3);
    for (int round = 0; round < 100; ++round) {
        QString text;
        for (int i = 0; i < 50; ++i) {
            text += QLatin1String("\r\n\nab\r")[qsizetype(random() % 6)];
        }
        QTest::addRow("chance %d", round) << text;
    }
}

void tst_lineends::everyTextKeepsItsOwn()
{
    QFETCH(const QString, text);
    QCOMPARE(Load(text).TextOf(*document_), text);
}

void tst_lineends::newLinesEndAsTheirNeighbours()
{
    const LineEnds ends = Load(QStringLiteral("a\nb\r\nc\r\n"));
    QTextCursor cursor(document_.get());
    cursor.insertText(QStringLiteral("x\ny"));
    QCOMPARE(ends.TextOf(*document_), QStringLiteral("x\nya\nb\r\nc\r\n"));
    cursor.movePosition(QTextCursor::End);
    cursor.insertText(QStringLiteral("d\n"));
    QCOMPARE(ends.TextOf(*document_), QStringLiteral("x\nya\nb\r\nc\r\nd\r\n"));
    QCOMPARE(LineEnds().TextOf(*document_), WithCrLf(document_->toRawText()));
}

void tst_lineends::undoneLinesEndAsBefore()
{
    const QString text = QStringLiteral("a\nb\r\nc\rd\r\ne\r\n");
    const LineEnds ends = Load(text);
    QTextCursor cursor(document_.get());
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    QCOMPARE(ends.TextOf(*document_), QString());
    document_->undo();
    QCOMPARE(ends.TextOf(*document_), text);
}

QTEST_MAIN(tst_lineends)
#include "tst_lineends.moc"
