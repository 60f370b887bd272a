#include "tests/app/DocumentsFixture.h"

class tst_documents : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void newClearsAnUnchangedDocumentWithoutAsking_data();
    void newClearsAnUnchangedDocumentWithoutAsking();
    void newAsksWhenTheDocumentHasChanged();
    void newAfterNoIsANewDocument();
    void newAfterYesSavesFirst();
    void newAfterCancelChangesNothing();

    void newPageForTodayIsSavedInUtf8();
    void newPageForTodayAsksWhenTheDocumentHasChanged();
    void newPageForTodayKeepsWhatCannotBeSaved();

    void promptNamesTheDocument();
    void promptClosedByEscIsCancelled();
    void promptSavesTheNewDocumentWhereTheUserSays();
    void promptsCancelledSaveDialogStops();
    void promptsFailedSaveKeepsTheDocument();
    void commandsMakeTheProgramFolderCurrent_data();
    void commandsMakeTheProgramFolderCurrent();
    void menuAndToolbarRunTheSameCommands_data();
    void menuAndToolbarRunTheSameCommands();
};

void tst_documents::newClearsAnUnchangedDocumentWithoutAsking_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("text") << QByteArray("text\r\n");
    QTest::newRow("empty") << QByteArray();
}

void tst_documents::newClearsAnUnchangedDocumentWithoutAsking()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(OpenFile("page.htm", bytes));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QString());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(!test_->window.File().IsChanged());
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QCOMPARE(BytesOf(Path("page.htm")), bytes);
}

void tst_documents::newAsksWhenTheDocumentHasChanged()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(
        box.text,
        QStringLiteral("The text in [New Document] has changed.\n\rDo you want to save the changes?"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
}

void tst_documents::newAfterNoIsANewDocument()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::No);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QString());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("old"));
}

void tst_documents::newAfterYesSavesFirst()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QString());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("xold\r\n"));
}

void tst_documents::newAfterCancelChangesNothing()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("old"));
}

void tst_documents::newPageForTodayIsSavedInUtf8()
{
    test_->ClickMenu("mnuPage", "mnuPNewPage");
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(!test_->window.File().IsChanged());
    const QString page = test_->Editor()->Text();
    QVERIFY(page.startsWith(QStringLiteral("<!DOCTYPE html>\r\n<html lang=\"")));
    QCOMPARE(
        test_->Editor()->SelStart(),
        page.indexOf(QStringLiteral("<body>\r\n")) + qsizetype(qstrlen("<body>\r\n")));
    // What was typed goes into the body and comes out in UTF-8, without a line end behind the page.
    test_->Editor()->insertPlainText(QStringLiteral("<p>\u65e5</p>"));
    test_->robot.ChooseFile(Path("page.htm"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    const QByteArray bytes = BytesOf(Path("page.htm"));
    QVERIFY(bytes.contains("<meta charset=\"utf-8\">"));
    QVERIFY(bytes.contains("<body>\r\n<p>\xe6\x97\xa5</p>\r\n</body>"));
    QVERIFY(bytes.endsWith("</html>\r\n"));
    QVERIFY(!bytes.endsWith("\r\n\r\n"));
}

void tst_documents::newPageForTodayAsksWhenTheDocumentHasChanged()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->ClickMenu("mnuPage", "mnuPNewPage");
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    test_->robot.AnswerBox(QMessageBox::No);
    test_->ClickMenu("mnuPage", "mnuPNewPage");
    QVERIFY(test_->Editor()->Text().startsWith(QStringLiteral("<!DOCTYPE html>")));
}

void tst_documents::newPageForTodayKeepsWhatCannotBeSaved()
{
    MakeUnwritable();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickMenu("mnuPage", "mnuPNewPage");
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_documents::promptNamesTheDocument()
{
    QVERIFY(OpenFile(NAME_LIKE_MARKUP "page & more.htm", "old"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().constLast().text, PromptText(Path(NAME_LIKE_MARKUP "page & more.htm")));
}

void tst_documents::promptClosedByEscIsCancelled()
{
    test_->Type("x");
    test_->robot.Cancel();
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_documents::promptSavesTheNewDocumentWhereTheUserSays()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.ChooseFile(Path("saved"));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->robot.ProposedNames(), QStringList{ QStringLiteral("newmap.htm") });
    QCOMPARE(test_->robot.ProposedFolders(), QStringList{ test_->folder.imgMap.ProgramFolder });
    QCOMPARE(BytesOf(Path("saved.htm")), QByteArray("x\r\n"));
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_documents::promptsCancelledSaveDialogStops()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.Cancel();
    test_->window.close();
    QVERIFY(test_->window.isVisible());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_documents::promptsFailedSaveKeepsTheDocument()
{
    MakeUnwritable();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().at(1).icon, QMessageBox::Warning);
    QCOMPARE(test_->robot.Boxes().at(1).title, QStringLiteral("Cartolen"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QCOMPARE(test_->DocumentName(), Path("pages/page.htm"));
    QVERIFY(test_->window.File().IsChanged());
}

using Command = std::function<void(MainWindowFixture&)>;

void tst_documents::commandsMakeTheProgramFolderCurrent_data()
{
    QTest::addColumn<Command>("run");
    const auto row = [](const char* name, const Command& run) { QTest::newRow(name) << run; };
    row("Open", [](MainWindowFixture& test) { test.Press(Qt::Key_O, Qt::ControlModifier); });
    row("Save", [](MainWindowFixture& test) { test.Press(Qt::Key_S, Qt::ControlModifier); });
    row("Save As", [](MainWindowFixture& test) { test.ClickMenu("mnuFile", "mnuFSaveAs"); });
}

void tst_documents::commandsMakeTheProgramFolderCurrent()
{
    QFETCH(const Command, run);
    QDir::setCurrent(QDir::rootPath());
    test_->robot.Cancel();
    run(*test_);
    QCOMPARE(QDir::currentPath(), QDir(test_->folder.imgMap.ProgramFolder).canonicalPath());
    QCOMPARE(test_->robot.ProposedFolders(), QStringList{ test_->folder.imgMap.ProgramFolder });
}

void tst_documents::menuAndToolbarRunTheSameCommands_data()
{
    QTest::addColumn<Command>("makeNew");
    QTest::addColumn<Command>("open");
    QTest::addColumn<Command>("save");
    QTest::newRow("menu") << Command([](MainWindowFixture& test) { test.ClickMenu("mnuFile", "mnuFNew"); })
                          << Command([](MainWindowFixture& test) { test.ClickMenu("mnuFile", "mnuFOpen"); })
                          << Command([](MainWindowFixture& test) { test.ClickMenu("mnuFile", "mnuFSave"); });
    QTest::newRow("toolbar") << Command([](MainWindowFixture& test) { test.ClickToolbar(2); })
                             << Command([](MainWindowFixture& test) { test.ClickToolbar(3); })
                             << Command([](MainWindowFixture& test) { test.ClickToolbar(4); });
}

void tst_documents::menuAndToolbarRunTheSameCommands()
{
    QFETCH(const Command, makeNew);
    QFETCH(const Command, open);
    QFETCH(const Command, save);
    QVERIFY(WriteBytes(Path("page.htm"), "old"));
    test_->robot.ChooseFile(Path("page.htm"));
    open(*test_);
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    test_->Type("x");
    save(*test_);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("xold\r\n"));
    QVERIFY(!test_->window.File().IsChanged());
    makeNew(*test_);
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QCOMPARE(test_->Editor()->Text(), QString());
}

QTEST_MAIN(tst_documents)
#include "tst_documents.moc"
