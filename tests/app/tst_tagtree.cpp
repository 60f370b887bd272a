#include "tests/app/TagTreeDriving.h"

#include <QClipboard>
#include <QMouseEvent>
#include <QSignalSpy>
#include <memory>

class tst_tagtree : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void everyNodeStandsInItsPlace();
    void treeStartsOpenAtItsCategoriesWithNothingSelected();

    void clickShowsThePreview();
    void arrowKeysShowThePreview();
    void clickWithTheRightButtonShowsThePreview();
    void lettingGoClearsThePreviewOfTheseOnly();
    void clickInsertsNothing();

    void doubleClickWrapsTheSelection();
    void doubleClickInsertsAtTheCaret();
    void doubleClickKeepsTheSelectedText_data();
    void doubleClickKeepsTheSelectedText();
    void doubleClickPutsInWhatWasSelectedWhoeverTakesTheClipboard();
    void doubleClickWithAnotherButtonInsertsNothing_data();
    void doubleClickWithAnotherButtonInsertsNothing();
    void doubleClickOnACategoryOnlyOpensIt();
    void everyInsertionIsAStepOfUndoOfItsOwn();
    void insertionMarksTheDocumentAsChanged();
    void insertionIntoALargeDocument();

    void enterInsertsAsADoubleClickDoes_data();
    void enterInsertsAsADoubleClickDoes();
    void enterOpensAndClosesACategory();
    void enterWithNothingSelectedInsertsNothing();
    void enterInsertsWhatIsShownAfterAClickBesideIt();

private:
    QString AfterDoubleClick(const ExpectedTag& tag, const QString& selected);

    QList<ExpectedTag> tags_;
    std::unique_ptr<TagTreeFixture> test_;
};

void tst_tagtree::initTestCase()
{
    tags_ = ReadTagTable(QFINDTESTDATA("../taglib/data/tags.tsv"));
    QCOMPARE(tags_.size(), 169);
}

void tst_tagtree::init()
{
    test_ = std::make_unique<TagTreeFixture>();
    QVERIFY(test_->Start());
}

void tst_tagtree::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

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

/** Double-clicks the item with `selected` selected in a line; tells what is not as it should be. */
QString tst_tagtree::AfterDoubleClick(const ExpectedTag& tag, const QString& selected)
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

void tst_tagtree::doubleClickWrapsTheSelection()
{
    int count = 0;
    for (const ExpectedTag& tag : std::as_const(tags_)) {
        if (tag.isItem) {
            ++count;
            QCOMPARE(AfterDoubleClick(tag, QStringLiteral("abc")), QString());
        }
    }
    QCOMPARE(count, 156);
}

void tst_tagtree::doubleClickInsertsAtTheCaret()
{
    int count = 0;
    for (const ExpectedTag& tag : std::as_const(tags_)) {
        if (tag.isItem) {
            ++count;
            QCOMPARE(AfterDoubleClick(tag, QString()), QString());
        }
    }
    QCOMPARE(count, 156);
}

void tst_tagtree::doubleClickKeepsTheSelectedText_data()
{
    QTest::addColumn<QString>("selected");
    QTest::addColumn<QString>("carried");
    const auto row = [](const char* name, const QString& selected) {
        QTest::newRow(name) << selected
                            << QString(selected).replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    };
    row("line end", QStringLiteral("\r\n"));
    row("across lines", QStringLiteral("b\r\n\r\nc\r\n"));
    row("blanks and tabs", QStringLiteral(" \t  \t"));
    row("no-break spaces", QStringLiteral("\u00A0b\u00A0\u00A0c"));
    row("characters of the code page", QStringLiteral("\u20AC\u00E9\u0178\u00AD"));
    row("markup", QStringLiteral("<B>&amp;</B>"));
    row("NUL", QStringLiteral("b") + QChar(u'\0') + QStringLiteral("c"));
}

void tst_tagtree::doubleClickKeepsTheSelectedText()
{
    QFETCH(const QString, selected);
    QFETCH(const QString, carried);
    SourceEditor* const editor = test_->Editor();
    editor->LoadText(u"a\r\n" + selected + u"d");
    editor->Select(3, selected.size());
    test_->DoubleClick(test_->Node(QStringLiteral("C604")));
    QCOMPARE(editor->Text(), QString(u"a\r\n<B>" + selected + u"</B>d"));
    QCOMPARE(editor->SelStart(), qsizetype(6));
    QCOMPARE(QGuiApplication::clipboard()->text(), carried);
    test_->window.Source().undo();
    QCOMPARE(editor->Text(), QString(u"a\r\n" + selected + u"d"));

    // One without a caret of its own leaves it behind the selection.
    editor->Select(3, selected.size());
    test_->DoubleClick(test_->Node(QStringLiteral("C204")));
    QCOMPARE(editor->Text(), QString(u"a\r\n<BR>" + selected + u"d"));
    QCOMPARE(editor->SelStart(), 7 + selected.size());
}

void tst_tagtree::doubleClickPutsInWhatWasSelectedWhoeverTakesTheClipboard()
{
    SourceEditor* const editor = test_->Editor();
    editor->LoadText(QStringLiteral("abc"));
    editor->Select(1, 1);
    // As a program does that watches the clipboard and takes it over.
    QClipboard* const clipboard = QGuiApplication::clipboard();
    const auto watch = connect(clipboard, &QClipboard::dataChanged, this, [clipboard] {
        if (clipboard->text() == u"b") {
            clipboard->setText(QStringLiteral("foreign"));
        }
    });
    test_->DoubleClick(test_->Node(QStringLiteral("C604")));
    disconnect(watch);
    QCOMPARE(editor->Text(), QStringLiteral("a<B>b</B>c"));
    QCOMPARE(clipboard->text(), QStringLiteral("foreign"));
}

void tst_tagtree::doubleClickWithAnotherButtonInsertsNothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_tagtree::doubleClickWithAnotherButtonInsertsNothing()
{
    QFETCH(const Qt::MouseButton, button);
    QTreeWidgetItem* const bold = test_->Node(QStringLiteral("C604"));
    const QPoint place = test_->PlaceOf(bold);
    QTest::mouseDClick(test_->Tree()->viewport(), button, {}, place);
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
    // The next one of the left button works.
    QTest::mouseDClick(test_->Tree()->viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("<B></B>"));
}

void tst_tagtree::doubleClickOnACategoryOnlyOpensIt()
{
    SourceEditor* const editor = test_->Editor();
    editor->LoadText(QStringLiteral("abc"));
    editor->Select(1, 1);
    QGuiApplication::clipboard()->setText(QStringLiteral("older"));
    int count = 0;
    for (QTreeWidgetItem* const node : test_->Nodes()) {
        if (node->childCount() == 0) {
            continue;
        }
        ++count;
        const bool wasOpen = node->isExpanded();
        test_->DoubleClick(node);
        QCOMPARE(node->isExpanded(), !wasOpen);
        test_->DoubleClick(node);
        QCOMPARE(node->isExpanded(), wasOpen);
    }
    QCOMPARE(count, 13);
    QCOMPARE(editor->Text(), QStringLiteral("abc"));
    QCOMPARE(editor->SelText(), QStringLiteral("b"));
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("older"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_tagtree::everyInsertionIsAStepOfUndoOfItsOwn()
{
    SourceEditor* const editor = test_->Editor();
    test_->Type("ab");
    test_->DoubleClick(test_->Node(QStringLiteral("C604")));
    test_->DoubleClick(test_->Node(QStringLiteral("C204")));
    test_->DoubleClick(test_->Node(QStringLiteral("C611")));
    test_->Type("c");
    QCOMPARE(editor->Text(), QStringLiteral("ab<B><BR><I>c</I></B>"));
    const QStringList before = { QStringLiteral("ab<B><BR><I></I></B>"), QStringLiteral("ab<B><BR></B>"),
                                 QStringLiteral("ab<B></B>"), QStringLiteral("ab"), QString() };
    for (const QString& text : before) {
        test_->Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(editor->Text(), text);
    }
}

void tst_tagtree::insertionMarksTheDocumentAsChanged()
{
    QVERIFY(!test_->window.File().IsChanged());
    test_->DoubleClick(test_->Node(QStringLiteral("C4")));
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("TYPE"));
}

void tst_tagtree::insertionIntoALargeDocument()
{
    const QString line = QStringLiteral("<p>Some text that a page is made of.</p>\r\n");
    const QString text = line.repeated(100000);
    const qsizetype start = line.size() * 50000;
    SourceEditor* const editor = test_->Editor();
    editor->LoadText(text);
    editor->Select(start, line.size() * 2);
    test_->DoubleClick(test_->Node(QStringLiteral("C207")));
    QCOMPARE(editor->SelStart(), start + 5);
    QCOMPARE(editor->TextLength(), text.size() + 11);
    QVERIFY(
        editor->Text() ==
        text.left(start) + u"<DIV>" + line + line + u"</DIV>" + text.mid(start + line.size() * 2));
    test_->window.Source().undo();
    QVERIFY(editor->Text() == text);
}

void tst_tagtree::enterInsertsAsADoubleClickDoes_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers();
    QTest::newRow("Enter of the keypad") << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
}

void tst_tagtree::enterInsertsAsADoubleClickDoes()
{
    QFETCH(const Qt::Key, key);
    QFETCH(const Qt::KeyboardModifiers, modifiers);
    SourceEditor* const editor = test_->Editor();
    editor->LoadText(QStringLiteral("abc"));
    editor->Select(1, 1);
    test_->Click(test_->Node(QStringLiteral("C603")));
    QTest::keyClick(test_->Tree(), Qt::Key_Down);
    QTest::keyClick(test_->Tree(), key, modifiers);
    QCOMPARE(editor->Text(), QStringLiteral("a<B>b</B>c"));
    QCOMPARE(editor->SelStart(), qsizetype(4));
    QVERIFY(editor->hasFocus());
    QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("b"));
    test_->window.Source().undo();
    QCOMPARE(editor->Text(), QStringLiteral("abc"));
}

void tst_tagtree::enterOpensAndClosesACategory()
{
    QTreeWidgetItem* const fonts = test_->Node(QStringLiteral("C600"));
    test_->Click(fonts);
    QVERIFY(!fonts->isExpanded());
    QTest::keyClick(test_->Tree(), Qt::Key_Return);
    QVERIFY(fonts->isExpanded());
    QTest::keyClick(test_->Tree(), Qt::Key_Return);
    QVERIFY(!fonts->isExpanded());
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_tagtree::enterWithNothingSelectedInsertsNothing()
{
    test_->Tree()->setFocus();
    QTest::keyClick(test_->Tree(), Qt::Key_Return);
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_tagtree::enterInsertsWhatIsShownAfterAClickBesideIt()
{
    QTreeWidget* const tree = test_->Tree();
    QTreeWidgetItem* const bold = test_->Node(QStringLiteral("C604"));
    test_->Click(bold);
    tree->topLevelItem(0)->setExpanded(false);
    tree->topLevelItem(0)->setExpanded(true);
    tree->setCurrentItem(bold);
    for (int i = 0; i < tree->topLevelItemCount(); ++i) {
        for (int child = 0; child < tree->topLevelItem(i)->childCount(); ++child) {
            QTreeWidgetItem* const category = tree->topLevelItem(i)->child(child);
            category->setExpanded(category == bold->parent());
        }
    }
    test_->window.resize(test_->window.width(), 2000);
    const QPoint below(40, tree->viewport()->height() - 5);
    QVERIFY(tree->itemAt(below) == nullptr);
    // No hand is quite still.
    QTest::mousePress(tree->viewport(), Qt::LeftButton, {}, below);
    QTest::mouseMove(tree->viewport(), below - QPoint(1, 1));
    QTest::mouseRelease(tree->viewport(), Qt::LeftButton, {}, below - QPoint(1, 1));
    QCOMPARE(test_->Preview(), QStringLiteral("<B>|</B>"));
    QTest::keyClick(tree, Qt::Key_Return);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("<B></B>"));
}

QTEST_MAIN(tst_tagtree)
#include "tst_tagtree.moc"
