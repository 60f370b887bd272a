#include "tests/app/TagTreeTestFixture.h"

#include <QMouseEvent>

class tst_tagtree : public TagTreeTestFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { StartAll(); }
    void init() { Start(); }
    void cleanup() { Finish(); }

    void everyNodeStandsInItsPlace();
    void treeStartsOpenAtItsCategoriesWithNothingSelected();

    void clickShowsThePreview();
    void arrowKeysShowThePreview();
    void clickWithTheRightButtonShowsThePreview();
    void lettingGoClearsThePreviewOfTheseOnly();
    void clickInsertsNothing();
};

void tst_tagtree::everyNodeStandsInItsPlace()
{
    const QList<QTreeWidgetItem*> nodes = test_->Nodes();
    QCOMPARE(nodes.size(), tags_.size());
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        QCOMPARE(TagTreeFixture::KeyOf(nodes[i]), tags_[i].key);
        QCOMPARE(nodes[i]->text(0), tags_[i].caption);
        QCOMPARE(TagTreeFixture::KeyOf(nodes[i]->parent()), tags_[i].parent);
        QVERIFY(nodes[i]->icon(0).isNull());
        QVERIFY(!(nodes[i]->flags() & Qt::ItemIsEditable));
    }
}

void tst_tagtree::treeStartsOpenAtItsCategoriesWithNothingSelected()
{
    for (const QTreeWidgetItem* const node : test_->Nodes()) {
        QCOMPARE(node->isExpanded(), node->parent() == nullptr);
    }
    QVERIFY(test_->Tree()->selectedItems().isEmpty());
    QVERIFY(test_->Tree()->rootIsDecorated());
    QVERIFY(test_->Tree()->visualItemRect(test_->Nodes().constFirst()).top() >= 0);
    QCOMPARE(test_->Preview(), QStringLiteral("|"));
}

void tst_tagtree::clickShowsThePreview()
{
    const QList<QTreeWidgetItem*> nodes = test_->Nodes();
    for (qsizetype i = 0; i < nodes.size(); ++i) {
        test_->SetPreview(QStringLiteral("old"));
        test_->Click(nodes[i]);
        QCOMPARE(test_->Tree()->currentItem(), nodes[i]);
        QCOMPARE(test_->Preview(), tags_[i].opening + u'|' + tags_[i].closing);
    }
}

void tst_tagtree::arrowKeysShowThePreview()
{
    test_->Click(test_->Node(QStringLiteral("C604")));
    QTest::keyClick(test_->Tree(), Qt::Key_Down);
    QCOMPARE(test_->Preview(), QStringLiteral("COLOR=\"#|\""));
    QTest::keyClick(test_->Tree(), Qt::Key_Up);
    QCOMPARE(test_->Preview(), QStringLiteral("<B>|</B>"));
    QTest::keyClick(test_->Tree(), Qt::Key_Left);
    QCOMPARE(TagTreeFixture::KeyOf(test_->Tree()->currentItem()), QStringLiteral("C600"));
    QCOMPARE(test_->Preview(), QStringLiteral("|"));
}

void tst_tagtree::clickWithTheRightButtonShowsThePreview()
{
    QTreeWidgetItem* const bold = test_->Node(QStringLiteral("C604"));
    const QPoint place = test_->PlaceOf(bold);
    QTest::mouseClick(test_->Tree()->viewport(), Qt::RightButton, {}, place);
    QCOMPARE(test_->Preview(), QStringLiteral("<B>|</B>"));
}

void tst_tagtree::lettingGoClearsThePreviewOfTheseOnly()
{
    const QStringList clearing = { QStringLiteral("HTML"), QStringLiteral("C2"),   QStringLiteral("C100"),
                                   QStringLiteral("C200"), QStringLiteral("C300"), QStringLiteral("C400"),
                                   QStringLiteral("C500"), QStringLiteral("C600"), QStringLiteral("C700"),
                                   QStringLiteral("C800"), QStringLiteral("C900"), QStringLiteral("C1000") };
    for (QTreeWidgetItem* const node : test_->Nodes()) {
        test_->Tree()->setCurrentItem(node);
        test_->SetPreview(QStringLiteral("kept"));
        // Beside all nodes: this is no click.
        const QPointF place(5, -50);
        QMouseEvent release(
            QEvent::MouseButtonRelease, place, test_->Tree()->viewport()->mapToGlobal(place), Qt::LeftButton,
            Qt::NoButton, Qt::NoModifier);
        QApplication::sendEvent(test_->Tree()->viewport(), &release);
        const QString key = TagTreeFixture::KeyOf(node);
        QVERIFY2(
            test_->Preview() == (clearing.contains(key) ? QStringLiteral("|") : QStringLiteral("kept|kept")),
            qPrintable(key));
    }
}

void tst_tagtree::clickInsertsNothing()
{
    test_->Click(test_->Node(QStringLiteral("C604")));
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
}

QTEST_MAIN(tst_tagtree)
#include "tst_tagtree.moc"
