// What the tags put into the page.

#include "tests/app/TagTreeTestFixture.h"

#include <QClipboard>

class tst_tagsinserted : public TagTreeTestFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { StartAll(); }
    void init() { Start(); }
    void cleanup() { Finish(); }

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
};

void tst_tagsinserted::doubleClickWrapsTheSelection()
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

void tst_tagsinserted::doubleClickInsertsAtTheCaret()
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

void tst_tagsinserted::doubleClickKeepsTheSelectedText_data()
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

void tst_tagsinserted::doubleClickKeepsTheSelectedText()
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

void tst_tagsinserted::doubleClickPutsInWhatWasSelectedWhoeverTakesTheClipboard()
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

void tst_tagsinserted::doubleClickWithAnotherButtonInsertsNothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
    QTest::newRow("back") << Qt::BackButton;
}

void tst_tagsinserted::doubleClickWithAnotherButtonInsertsNothing()
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

void tst_tagsinserted::doubleClickOnACategoryOnlyOpensIt()
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

void tst_tagsinserted::everyInsertionIsAStepOfUndoOfItsOwn()
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

void tst_tagsinserted::insertionMarksTheDocumentAsChanged()
{
    QVERIFY(!test_->window.File().IsChanged());
    test_->DoubleClick(test_->Node(QStringLiteral("C4")));
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("TYPE"));
}

void tst_tagsinserted::insertionIntoALargeDocument()
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

void tst_tagsinserted::enterInsertsAsADoubleClickDoes_data()
{
    QTest::addColumn<Qt::Key>("key");
    QTest::addColumn<Qt::KeyboardModifiers>("modifiers");
    QTest::newRow("Return") << Qt::Key_Return << Qt::KeyboardModifiers();
    QTest::newRow("Enter of the keypad") << Qt::Key_Enter << Qt::KeyboardModifiers(Qt::KeypadModifier);
}

void tst_tagsinserted::enterInsertsAsADoubleClickDoes()
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

void tst_tagsinserted::enterOpensAndClosesACategory()
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

void tst_tagsinserted::enterWithNothingSelectedInsertsNothing()
{
    test_->Tree()->setFocus();
    QTest::keyClick(test_->Tree(), Qt::Key_Return);
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_tagsinserted::enterInsertsWhatIsShownAfterAClickBesideIt()
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

QTEST_MAIN(tst_tagsinserted)
#include "tst_tagsinserted.moc"
