#include "app/source/LineStates.h"

#include "html/HtmlSyntax.h"

#include <QRandomGenerator>
#include <QTest>
#include <QTextCursor>
#include <QTextDocument>
#include <limits>

namespace {

constexpr qsizetype any = std::numeric_limits<qsizetype>::max();

/** The state at the start of each line, read from the beginning. */
std::vector<HtmlState> AllStates(const QTextDocument& document)
{
    std::vector<HtmlState> states;
    HtmlState state;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        states.push_back(state);
        PassLine(block.text(), state);
    }
    return states;
}

int LinesKept(const QTextDocument& document)
{
    int count = 0;
    for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
        count += block.userData() != nullptr && MemoryOf(block).start ? 1 : 0;
    }
    return count;
}

} // namespace

class tst_linestates : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void statesAreThoseOfReadingFromTheStart();
    void onlyFewStatesAreKept();
    void farLinesAreReadInSteps();
    void editLeavesWhatIsBehindItKnown();
    void editThatChangesAllBehindItIsFollowed();
    void lineThatBecomesTheFirstHasNoState();
    void statesHoldThroughAnyEdits_data();
    void statesHoldThroughAnyEdits();

private:
    [[nodiscard]] std::optional<HtmlState> At(int line, qsizetype most = any)
    {
        return states_->At(document_->findBlockByNumber(line), most);
    }
    void Edit(int start, int length, const QString& text)
    {
        QTextCursor cursor(document_.get());
        cursor.setPosition(start);
        cursor.setPosition(start + length, QTextCursor::KeepAnchor);
        cursor.insertText(text);
    }
    void EditRandomly(QRandomGenerator& random);

    std::unique_ptr<QTextDocument> document_;
    std::unique_ptr<LineStates> states_;
};

void tst_linestates::init()
{
    document_ = std::make_unique<QTextDocument>();
    (void)document_->documentLayout(); // without one, edits are not told
    states_ = std::make_unique<LineStates>(*document_);
    connect(
        document_.get(), &QTextDocument::contentsChange, this,
        [this](int position, int removed, int added) { states_->NoteChange(position, removed, added); });
}

void tst_linestates::statesAreThoseOfReadingFromTheStart()
{
    document_->setPlainText(
        QStringLiteral("<!-- a\n-->\n<script>\nb\n</script>\n<p\nc=\"d\n\">").repeated(900));
    const std::vector<HtmlState> all = AllStates(*document_);
    for (const int line : { 3, 0, 6299, 1, 4000, 4001, 2 }) {
        QVERIFY(At(line) == all[std::size_t(line)]);
    }
}

void tst_linestates::onlyFewStatesAreKept()
{
    document_->setPlainText(QStringLiteral("<p>Some text in the line</p>\n").repeated(10000));
    QVERIFY(At(10000));
    QVERIFY(LinesKept(*document_) > 50);
    QVERIFY(LinesKept(*document_) < 80);
    document_->setPlainText(QStringLiteral("\n").repeated(10000));
    QVERIFY(At(10000));
    QVERIFY(LinesKept(*document_) > 35);
    QVERIFY(LinesKept(*document_) < 45);
}

void tst_linestates::farLinesAreReadInSteps()
{
    document_->setPlainText(QStringLiteral("<p>Some text in the line</p>\n").repeated(10000));
    int steps = 1;
    while (!At(9999, 20000)) {
        ++steps;
        QVERIFY(steps < 100);
    }
    QVERIFY(steps > 10);
    QVERIFY(At(9999, 20000));
    QVERIFY(At(5000, 20000));
}

void tst_linestates::editLeavesWhatIsBehindItKnown()
{
    document_->setPlainText(QStringLiteral("<p>Some text in the line</p>\n").repeated(10000));
    QVERIFY(At(9999));
    Edit(50, 0, QStringLiteral("<b>\nx"));
    QVERIFY(At(10000, 20000));
    Edit(500, 3, QString());
    Edit(70000, 100, QStringLiteral("y"));
    Edit(60, 0, QStringLiteral("z"));
    QVERIFY(At(9990, 90000));
}

void tst_linestates::editThatChangesAllBehindItIsFollowed()
{
    document_->setPlainText(QStringLiteral("<p>Some text in the line</p>\n").repeated(10000));
    QVERIFY(At(9999));
    Edit(0, 0, QStringLiteral("<!--"));
    QVERIFY(!At(9999, 20000));
    QVERIFY(At(9999)->mode == HtmlMode::Comment);
    QVERIFY(At(5000)->mode == HtmlMode::Comment);
    document_->undo();
    QVERIFY(At(9999)->mode == HtmlMode::Data);
    QVERIFY(At(5000)->mode == HtmlMode::Data);
}

void tst_linestates::lineThatBecomesTheFirstHasNoState()
{
    document_->setPlainText(QStringLiteral("<!--\n") + QStringLiteral("a line in it\n").repeated(1000));
    QVERIFY(At(1000)->mode == HtmlMode::Comment);
    QTextBlock kept = document_->findBlockByNumber(1);
    while (kept.userData() == nullptr) {
        kept = kept.next();
    }
    Edit(0, kept.position(), QString());
    QVERIFY(At(0) == HtmlState());
    QVERIFY(At(200)->mode == HtmlMode::Data);
}

void tst_linestates::statesHoldThroughAnyEdits_data()
{
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= 10; ++seed) {
        QTest::addRow("%u", seed) << seed;
    }
}

/** One that a user might make: a few characters, lines, large parts, several in one step, undoing. */
void tst_linestates::EditRandomly(QRandomGenerator& random)
{
    static const QStringList texts = { QStringLiteral("x"),        QStringLiteral("\n"),
                                       QStringLiteral("<!--"),     QStringLiteral("-->"),
                                       QStringLiteral("<script>"), QStringLiteral("</script>\n"),
                                       QStringLiteral("\""),       QStringLiteral("<svg>\n<b"),
                                       QStringLiteral(">"),        QString() };
    const auto place = [this, &random] { return random.bounded(document_->characterCount()); };
    const int kind = random.bounded(12);
    if (kind == 0) {
        document_->undo();
    } else if (kind == 1) {
        document_->redo();
    } else if (kind == 2) {
        const int start = place();
        const int length = std::min(random.bounded(3000), document_->characterCount() - 1 - start);
        Edit(start, length, QStringLiteral("<p>a\n").repeated(random.bounded(600)));
    } else if (kind == 3) {
        QTextCursor step(document_.get());
        step.beginEditBlock();
        for (int i = 0; i < 3; ++i) {
            Edit(place(), 0, texts[random.bounded(int(texts.size()))]);
        }
        step.endEditBlock();
    } else {
        const int start = place();
        Edit(
            start, std::min(random.bounded(3), document_->characterCount() - 1 - start),
            texts[random.bounded(int(texts.size()))]);
    }
}

void tst_linestates::statesHoldThroughAnyEdits()
{
    QFETCH(const quint32, seed);
    QRandomGenerator random(seed);
    document_->setPlainText(
        QStringLiteral("<p class=\"a\">Text &amp; <b>more</b></p>\n<!-- b -->\n").repeated(800));
    for (int i = 0; i < 80; ++i) {
        EditRandomly(random);
        if (random.bounded(3) == 0) {
            continue; // several edits between two looks
        }
        const int line = random.bounded(document_->blockCount());
        const qsizetype most = random.bounded(2) == 0 ? any : 6000;
        const std::optional<HtmlState> state = At(line, most);
        QVERIFY(state || most != any);
        if (state) {
            QVERIFY2(*state == AllStates(*document_)[std::size_t(line)], qPrintable(QString::number(i)));
        }
    }
}

QTEST_MAIN(tst_linestates)
#include "tst_linestates.moc"
