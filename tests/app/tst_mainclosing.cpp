// The windows of the main window, and closing it.

#include "tests/app/FormFixture.h"

class tst_mainclosing : public FormFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void imageMapEditorOpensBy_data();
    void imageMapEditorOpensBy();
    void imageMapEditorIsOpenedOnlyOnce();
    void minimisedImageMapEditorComesBack();
    void closedImageMapEditorIsOpenedAfresh();
    void mapGoesIntoTheDocumentAtTheCaret();

    void programEndsBy_data();
    void programEndsBy();
    void closingAsksWhenTheDocumentHasChanged_data();
    void closingAsksWhenTheDocumentHasChanged();
    void closingTakesTheImageMapEditorAlong();
    void closingWithFiguresTellsThatTheMapIsDeleted();
    void cancelledClosingKeepsTheMap();
    void closingGoesOnAfterAFailedSave();
};

void tst_mainclosing::imageMapEditorOpensBy_data()
{
    QTest::addColumn<QString>("way");
    for (const char* const way : { "shortcut", "menu", "toolbar" }) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

void tst_mainclosing::imageMapEditorOpensBy()
{
    QFETCH(const QString, way);
    QVERIFY(test_->Start());
    test_->Editor()->LoadText(QStringLiteral("text"));
    if (way == u"shortcut") {
        test_->Press(Qt::Key_I, Qt::ControlModifier);
    } else if (way == u"menu") {
        test_->ClickMenu("mnuInsert", "mnuIimagemaps");
    } else {
        test_->ClickToolbar(15);
    }
    frmImageMap* const editor = ImageMapEditor();
    QVERIFY(editor != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(editor->isWindow());
    QVERIFY(!editor->isModal());
    QCOMPARE(editor->parentWidget(), &test_->window);
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("text"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_mainclosing::imageMapEditorIsOpenedOnlyOnce()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    frmImageMap* const first = ImageMapEditor();
    QVERIFY(first != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(first));
    first->move(7, 9);
    const auto* const toolbar = first->findChild<QToolBar*>(QStringLiteral("Toolbar1"));
    const QList<int> looks = LookOfButtons(toolbar);
    test_->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&test_->window));

    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QCOMPARE(test_->window.findChildren<frmImageMap*>().size(), 1);
    QCOMPARE(ImageMapEditor(), first);
    QVERIFY(QTest::qWaitForWindowActive(first));
    QCOMPARE(first->pos(), QPoint(7, 9));
    QCOMPARE(LookOfButtons(toolbar), looks);
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_mainclosing::minimisedImageMapEditorComesBack()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
    ImageMapEditor()->showMinimized();
    test_->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&test_->window));
    test_->ClickToolbar(15);
    QVERIFY(!ImageMapEditor()->isMinimized());
    QVERIFY(ImageMapEditor()->isVisible());
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
}

void tst_mainclosing::closedImageMapEditorIsOpenedAfresh()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    const QPointer<frmImageMap> first = ImageMapEditor();
    QVERIFY(first != nullptr);
    QVERIFY(first->close());
    QTRY_VERIFY(first == nullptr);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(ImageMapEditor() != nullptr);
    QVERIFY(ImageMapEditor()->isVisible());
}

void tst_mainclosing::mapGoesIntoTheDocumentAtTheCaret()
{
    QVERIFY(test_->Start());
    test_->Editor()->LoadText(QStringLiteral("a\r\n[old]\r\nb"));
    test_->Editor()->Select(3, 5);
    DocumentSink& document = test_->window.Page();
    QCOMPARE(document.InsertAtCaret(QStringLiteral("<MAP>\r\n</MAP>\r\n")), 2);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("a\r\n<MAP>\r\n</MAP>\r\n\r\nb"));
    QCOMPARE(test_->Editor()->SelStart(), qsizetype(18));
    QVERIFY(test_->window.File().IsChanged());
}

using Act = std::function<void(MainWindowFixture&)>;

void tst_mainclosing::programEndsBy_data()
{
    QTest::addColumn<Act>("act");
    const auto row = [](const char* name, const Act& act) { QTest::newRow(name) << act; };
    row("shortcut", [](MainWindowFixture& test) { test.Press(Qt::Key_E, Qt::ControlModifier); });
    row("menu", [](MainWindowFixture& test) { test.ClickMenu("mnuFile", "mnuFExit"); });
    row("toolbar", [](MainWindowFixture& test) { test.ClickToolbar(21); });
    row("close box", [](MainWindowFixture& test) { test.window.close(); });
}

void tst_mainclosing::programEndsBy()
{
    QFETCH(const Act, act);
    QVERIFY(test_->Start());
    QVERIFY(EndsProgram([&] { act(*test_); }));
    QVERIFY(!test_->window.isVisible());
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_mainclosing::closingAsksWhenTheDocumentHasChanged_data()
{
    QTest::addColumn<QMessageBox::StandardButton>("answer");
    QTest::addColumn<bool>("isClosed");
    QTest::addColumn<QByteArray>("saved");
    QTest::newRow("Yes") << QMessageBox::Yes << true << QByteArray("oldx\r\n\r\n");
    QTest::newRow("No") << QMessageBox::No << true << QByteArray("old\r\n");
    QTest::newRow("Cancel") << QMessageBox::Cancel << false << QByteArray("old\r\n");
}

void tst_mainclosing::closingAsksWhenTheDocumentHasChanged()
{
    QFETCH(const QMessageBox::StandardButton, answer);
    QFETCH(const bool, isClosed);
    QFETCH(const QByteArray, saved);
    QVERIFY(test_->Start());
    const QString path = test_->folder.Path(QStringLiteral("page.htm"));
    QVERIFY(WriteBytes(path, "old\r\n"));
    test_->Open(path);
    test_->Press(Qt::Key_End);
    test_->Type("x");
    test_->robot.AnswerBox(answer);
    if (isClosed) {
        QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    } else {
        test_->Press(Qt::Key_E, Qt::ControlModifier);
        QVERIFY(!test_->folder.imgMap.ContinueAction);
        QVERIFY(test_->window.File().IsChanged());
        QCOMPARE(test_->DocumentName(), path);
        QCOMPARE(test_->Editor()->Text(), QStringLiteral("oldx\r\n"));
    }
    QCOMPARE(test_->window.isVisible(), !isClosed);
    QCOMPARE(BytesOf(path), saved);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(
        test_->robot.Boxes().constFirst().text,
        QString(u"The text in [" + path + u"] has changed.\n\rDo you want to save the changes?"));
}

void tst_mainclosing::closingTakesTheImageMapEditorAlong()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    const QPointer<frmImageMap> editor = ImageMapEditor();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(editor == nullptr || !editor->isVisible());
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_mainclosing::closingWithFiguresTellsThatTheMapIsDeleted()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    const QPointer<frmImageMap> editor = ImageMapEditor();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    MakeFigure();
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::No);
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QVERIFY(test_->robot.Boxes().at(0).text.startsWith(u"The text in [New Document]"));
    const DialogRobot::SeenBox& box = test_->robot.Boxes().at(1);
    QCOMPARE(box.text, QStringLiteral("Your Image Map must be deleted"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::NoIcon);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
    QVERIFY(editor == nullptr || !editor->isVisible());
    QVERIFY(!test_->window.isVisible());
}

void tst_mainclosing::cancelledClosingKeepsTheMap()
{
    QVERIFY(test_->Start());
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    frmImageMap* const editor = ImageMapEditor();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    MakeFigure();
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_E, Qt::ControlModifier);
    QVERIFY(test_->window.isVisible());
    QVERIFY(editor->isVisible());
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 1);
    QVERIFY(!test_->folder.imgMap.ContinueAction);

    // Its own close box asks as if nothing had been closed before.
    test_->robot.AnswerBox(QMessageBox::No);
    editor->close();
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().at(1).text, QStringLiteral("Do you want to delete your Image Map?"));
    QVERIFY(editor->isVisible());
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 1);
}

void tst_mainclosing::closingGoesOnAfterAFailedSave()
{
    QVERIFY(test_->Start());
    QDir folder(test_->folder.imgMap.ProgramFolder);
    QVERIFY(folder.mkdir(QStringLiteral("pages")));
    const QString path = folder.filePath(QStringLiteral("pages/page.htm"));
    QVERIFY(WriteBytes(path, "old"));
    test_->Open(path);
    test_->Type("x");
    QVERIFY(QDir(folder.filePath(QStringLiteral("pages"))).removeRecursively());
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().at(1).icon, QMessageBox::Warning);
    QVERIFY(!test_->window.isVisible());
}

QTEST_MAIN(tst_mainclosing)
#include "tst_mainclosing.moc"
