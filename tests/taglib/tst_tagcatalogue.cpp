#include "taglib/TagCatalogue.h"
#include "tests/support/TagTable.h"

#include <QSet>
#include <QTest>
#include <limits>

namespace {

QString TextOf(std::string_view text)
{
    return QString::fromLatin1(text.data(), qsizetype(text.size()));
}

TagLevel LevelOf(const ExpectedTag& tag)
{
    if (tag.parent.isEmpty()) {
        return TagLevel::Root;
    }
    return tag.isItem ? TagLevel::Item : TagLevel::Category;
}

} // namespace

class tst_tagcatalogue : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();

    void nodesStandInOrderWithTheirKeysAndCaptions();
    void thereAreOneRootTwelveCategoriesAndTheirItems();
    void categoriesHaveTheirIndexes_data();
    void categoriesHaveTheirIndexes();
    void everyItemStandsUnderItsCategory();
    void keysAreUniqueWhileCaptionsAreNot();
    void everyItemInsertsItsTexts();
    void caretStandsBehindTheOpeningTextButForAFew();
    void onlyItemsAreItems();
    void previewIsWhatIsInsertedButForAFew();
    void previewOfRootAndCategoriesIsEmpty();
    void indexesOutsideHaveNothing_data();
    void indexesOutsideHaveNothing();
    void lettingGoClearsThePreviewOfTheseOnly();

private:
    [[nodiscard]] const ExpectedTag& Expected(int index) const { return expected_.at(index - 1); }

    QList<ExpectedTag> expected_;
};

void tst_tagcatalogue::initTestCase()
{
    expected_ = ReadTagTable(QFINDTESTDATA("data/tags.tsv"));
    QCOMPARE(expected_.size(), 169);
}

void tst_tagcatalogue::nodesStandInOrderWithTheirKeysAndCaptions()
{
    const auto nodes = TagNodes();
    QCOMPARE(qsizetype(nodes.size()), expected_.size());
    for (std::size_t i = 0; i < nodes.size(); ++i) {
        const ExpectedTag& expected = expected_.at(qsizetype(i));
        QCOMPARE(TextOf(nodes[i].Key), expected.key);
        QCOMPARE(TextOf(nodes[i].Caption), expected.caption);
        QCOMPARE(nodes[i].Level, LevelOf(expected));
    }
}

void tst_tagcatalogue::thereAreOneRootTwelveCategoriesAndTheirItems()
{
    QList<int> counts(3, 0);
    for (const TagNode& node : TagNodes()) {
        ++counts[int(node.Level)];
    }
    QCOMPARE(counts, QList<int>({ 1, 12, 156 }));
}

void tst_tagcatalogue::categoriesHaveTheirIndexes_data()
{
    QTest::addColumn<int>("index");
    QTest::newRow("HTML") << 1;
    QTest::newRow("C2") << 2;
    QTest::newRow("C100") << 17;
    QTest::newRow("C200") << 28;
    QTest::newRow("C300") << 43;
    QTest::newRow("C400") << 50;
    QTest::newRow("C500") << 71;
    QTest::newRow("C600") << 85;
    QTest::newRow("C700") << 105;
    QTest::newRow("C800") << 119;
    QTest::newRow("C900") << 138;
    QTest::newRow("C1000") << 149;
    QTest::newRow("C1100") << 160;
}

void tst_tagcatalogue::categoriesHaveTheirIndexes()
{
    QFETCH(const int, index);
    const TagNode& node = TagNodes()[std::size_t(index - 1)];
    QCOMPARE(TextOf(node.Key), QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(node.Level != TagLevel::Item);
}

void tst_tagcatalogue::everyItemStandsUnderItsCategory()
{
    QString category;
    for (std::size_t i = 0; i < TagNodes().size(); ++i) {
        const TagNode& node = TagNodes()[i];
        if (node.Level == TagLevel::Category) {
            category = TextOf(node.Key);
        } else if (node.Level == TagLevel::Item) {
            QCOMPARE(category, expected_.at(qsizetype(i)).parent);
        }
    }
}

void tst_tagcatalogue::keysAreUniqueWhileCaptionsAreNot()
{
    QSet<QString> keys;
    QSet<QString> captions;
    for (const TagNode& node : TagNodes()) {
        keys << TextOf(node.Key);
        captions << TextOf(node.Caption);
    }
    QCOMPARE(keys.size(), 169);
    QCOMPARE(captions.size(), 167); // "Body" and "Border" stand twice
    QVERIFY(captions.contains(QStringLiteral("Preformated Text")));
}

void tst_tagcatalogue::everyItemInsertsItsTexts()
{
    for (int index = 1; index <= expected_.size(); ++index) {
        const TagNode* const item = TagItem(index);
        if (item == nullptr) {
            continue;
        }
        QCOMPARE(TextOf(item->Key), Expected(index).key);
        QCOMPARE(TextOf(item->Before), Expected(index).before);
        QCOMPARE(TextOf(item->After), Expected(index).after);
        QCOMPARE(item->Caret, int(Expected(index).caret));
    }
}

void tst_tagcatalogue::caretStandsBehindTheOpeningTextButForAFew()
{
    QStringList others;
    for (const TagNode& node : TagNodes()) {
        if (node.Caret != caretAtEnd && std::size_t(node.Caret) != node.Before.size()) {
            others << TextOf(node.Caption);
        }
    }
    QCOMPARE(others.join(u'|'), QStringLiteral("Meta|Frameset Columns|Frameset Rows|Comment"));
}

void tst_tagcatalogue::onlyItemsAreItems()
{
    for (int index = 1; index <= expected_.size(); ++index) {
        QCOMPARE(TagItem(index) != nullptr, Expected(index).isItem);
    }
}

void tst_tagcatalogue::previewIsWhatIsInsertedButForAFew()
{
    int others = 0;
    for (int index = 1; index <= expected_.size(); ++index) {
        const std::optional<TagPreview> preview = PreviewOf(index);
        QVERIFY(preview.has_value());
        QCOMPARE(TextOf(preview->Opening), Expected(index).opening);
        QCOMPARE(TextOf(preview->Closing), Expected(index).closing);
        const TagNode& node = TagNodes()[std::size_t(index - 1)];
        others += preview->Opening != node.Before || preview->Closing != node.After ? 1 : 0;
    }
    QCOMPARE(others, 15);
}

void tst_tagcatalogue::previewOfRootAndCategoriesIsEmpty()
{
    int count = 0;
    for (int index = 1; index <= expected_.size(); ++index) {
        if (!Expected(index).isItem) {
            ++count;
            QVERIFY(PreviewOf(index) == TagPreview{});
        }
    }
    QCOMPARE(count, 13);
}

void tst_tagcatalogue::indexesOutsideHaveNothing_data()
{
    QTest::addColumn<int>("index");
    for (const int index :
         { 0, -1, 170, 1000, std::numeric_limits<int>::max(), std::numeric_limits<int>::min() }) {
        QTest::addRow("%d", index) << index;
    }
}

void tst_tagcatalogue::indexesOutsideHaveNothing()
{
    QFETCH(const int, index);
    QVERIFY(TagItem(index) == nullptr);
    QVERIFY(!PreviewOf(index).has_value());
    QVERIFY(!IsPreviewCleared(index));
}

void tst_tagcatalogue::lettingGoClearsThePreviewOfTheseOnly()
{
    // "Miscellaneous", the 160th, is not among them.
    const QList<int> clearing = { 1, 2, 17, 28, 43, 50, 71, 85, 105, 119, 138, 149 };
    for (int index = 1; index <= expected_.size(); ++index) {
        QCOMPARE(IsPreviewCleared(index), clearing.contains(index));
    }
}

QTEST_GUILESS_MAIN(tst_tagcatalogue)

#include "tst_tagcatalogue.moc"
