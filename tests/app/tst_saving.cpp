// Saving a document.

#include "tests/app/DocumentsFixture.h"

#include <QFileDialog>
#include <QFileInfo>

class tst_saving : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void saveDialogProposesTheNewPageInTheProgramFolder_data();
    void saveDialogProposesTheNewPageInTheProgramFolder();
    void savedDocumentHasItsNameAndOneMoreLineEnd();
    void cancelledSaveChangesNothing_data();
    void cancelledSaveChangesNothing();
    void saveAppendsTheEndingWhenNoneIsTyped_data();
    void saveAppendsTheEndingWhenNoneIsTyped();
    void namedDocumentIsSavedWithoutADialog();
    void saveAsProposesTheDocumentsOwnName();
    void saveAsGoesToTheNewName();
    void saveAsOverAnotherFileReplacesIt();
    void fileCalledNewDocumentIsSavedUnderItsPath();
    void savingGrowsByOneLineEndEachTime();
    void everyByteComesBack();
    void largeDocumentComesBack();
    void loneLineEndsAreSavedAsCrLf();
    void otherCharactersAreSavedAsQuestionMarks();
    void formattingIsNotSaved();
    void savingLeavesTheCaretAndUndo();
    void failedSaveKeepsEverything_data();
    void failedSaveKeepsEverything();
    void failedWriteLeavesTheOldFile();
    void savingEndsTheHourglass();
};

void tst_saving::saveDialogProposesTheNewPageInTheProgramFolder_data()
{
    QTest::addColumn<bool>("isSaveAs");
    QTest::newRow("Save") << false;
    QTest::newRow("Save As") << true;
}

void tst_saving::saveDialogProposesTheNewPageInTheProgramFolder()
{
    QFETCH(const bool, isSaveAs);
    QDir::setCurrent(QDir::rootPath());
    QStringList filters;
    QString suffix;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptOpen;
    test_->robot.Act([&](QDialog& dialog) {
        const auto& files = static_cast<QFileDialog&>(dialog);
        filters = files.nameFilters();
        suffix = files.defaultSuffix();
        mode = files.acceptMode();
        QTest::keyClick(NameField(dialog), Qt::Key_Return);
    });
    test_->Type("x");
    if (isSaveAs) {
        test_->ClickMenu("mnuFile", "mnuFSaveAs");
    } else {
        test_->Press(Qt::Key_S, Qt::ControlModifier);
    }
    QCOMPARE(test_->robot.ProposedNames(), QStringList{ QStringLiteral("newmap.htm") });
    QCOMPARE(test_->robot.ProposedFolders(), QStringList{ test_->folder.imgMap.ProgramFolder });
    QCOMPARE(filters.size(), 5);
    QCOMPARE(suffix, QStringLiteral("htm"));
    QCOMPARE(mode, QFileDialog::AcceptSave);
    QCOMPARE(BytesOf(Path("newmap.htm")), QByteArray("x\r\n"));
    QCOMPARE(test_->DocumentName(), Path("newmap.htm"));
}

void tst_saving::savedDocumentHasItsNameAndOneMoreLineEnd()
{
    test_->Type("ab");
    test_->Press(Qt::Key_Return);
    test_->robot.ChooseFile(Path("page.html"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.html")), QByteArray("ab\r\n\r\n"));
    QCOMPARE(test_->DocumentName(), Path("page.html"));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("ab\r\n"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_saving::cancelledSaveChangesNothing_data()
{
    saveDialogProposesTheNewPageInTheProgramFolder_data();
}

void tst_saving::cancelledSaveChangesNothing()
{
    QFETCH(const bool, isSaveAs);
    test_->Type("x");
    test_->robot.Cancel();
    if (isSaveAs) {
        test_->ClickMenu("mnuFile", "mnuFSaveAs");
    } else {
        test_->Press(Qt::Key_S, Qt::ControlModifier);
    }
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(!QFile::exists(Path("newmap.htm")));
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_saving::saveAppendsTheEndingWhenNoneIsTyped_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<QString>("saved");
    QTest::newRow("none") << "page"
                          << "page.htm";
    QTest::newRow("htm") << "page.htm"
                         << "page.htm";
    QTest::newRow("html") << "page.html"
                          << "page.html";
    QTest::newRow("txt") << "page.txt"
                         << "page.txt";
    QTest::newRow("another") << "page.php"
                             << "page.php";
    QTest::newRow("blanks") << "my page"
                            << "my page.htm";
}

void tst_saving::saveAppendsTheEndingWhenNoneIsTyped()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, saved);
    test_->Type("x");
    test_->robot.ChooseFile(typed);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(test_->DocumentName(), test_->folder.Path(saved));
    QCOMPARE(BytesOf(test_->folder.Path(saved)), QByteArray("x\r\n"));
}

void tst_saving::namedDocumentIsSavedWithoutADialog()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("xold\r\n"));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(test_->robot.ProposedNames().size(), 1);
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_saving::saveAsProposesTheDocumentsOwnName()
{
    QVERIFY(OpenFile("Data/page.txt", "old"));
    test_->robot.Act([](QDialog& dialog) {
        QTest::keyClick(NameField(dialog), Qt::Key_End);
        QTest::keyClicks(NameField(dialog), QStringLiteral("2"));
        QTest::keyClick(NameField(dialog), Qt::Key_Return);
    });
    test_->ClickMenu("mnuFile", "mnuFSaveAs");
    QCOMPARE(test_->robot.ProposedNames().constLast(), QStringLiteral("page.txt"));
    QCOMPARE(QDir::toNativeSeparators(test_->robot.ProposedFolders().constLast()), Path("Data"));
    QCOMPARE(BytesOf(Path("Data/page.txt2")), QByteArray("old\r\n"));
    QCOMPARE(BytesOf(Path("Data/page.txt")), QByteArray("old"));
}

void tst_saving::saveAsGoesToTheNewName()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->robot.ChooseFile(Path("copy.htm"));
    test_->ClickMenu("mnuFile", "mnuFSaveAs");
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("old"));
    QCOMPARE(BytesOf(Path("copy.htm")), QByteArray("xold\r\n"));
    QCOMPARE(test_->DocumentName(), Path("copy.htm"));
    QVERIFY(!test_->window.File().IsChanged());
    test_->Type("y");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("copy.htm")), QByteArray("xyold\r\n"));
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("old"));
}

void tst_saving::saveAsOverAnotherFileReplacesIt()
{
    QVERIFY(WriteBytes(Path("other.htm"), "a longer text than the new one"));
    test_->Type("x");
    test_->robot.ChooseFile(Path("other.htm"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickMenu("mnuFile", "mnuFSaveAs");
    QCOMPARE(BytesOf(Path("other.htm")), QByteArray("x\r\n"));
    QCOMPARE(test_->DocumentName(), Path("other.htm"));
}

void tst_saving::fileCalledNewDocumentIsSavedUnderItsPath()
{
    QVERIFY(OpenFile("New Document", "old"));
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("New Document")), QByteArray("xold\r\n"));
    QCOMPARE(test_->DocumentName(), Path("New Document"));
}

void tst_saving::savingGrowsByOneLineEndEachTime()
{
    QVERIFY(WriteBytes(Path("page.htm"), "page"));
    QByteArray expected = "page";
    for (int i = 0; i < 3; ++i) {
        test_->Open(Path("page.htm"));
        test_->Press(Qt::Key_S, Qt::ControlModifier);
        expected += "\r\n";
        QCOMPARE(BytesOf(Path("page.htm")), expected);
    }
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), expected);
}

void tst_saving::everyByteComesBack()
{
    const QByteArray bytes = EveryByte();
    QCOMPARE(bytes.size(), 256);
    QVERIFY(OpenFile("page.htm", bytes));
    QCOMPARE(test_->Editor()->TextLength(), qsizetype(256));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), bytes + "\r\n");

    test_->Editor()->Select(256, 0);
    test_->Type("x");
    test_->robot.ChooseFile(Path("copy.htm"));
    test_->ClickMenu("mnuFile", "mnuFSaveAs");
    QCOMPARE(BytesOf(Path("copy.htm")), bytes + "x\r\n");
}

void tst_saving::largeDocumentComesBack()
{
    constexpr int size = 5'000'000;
    QByteArray bytes;
    const QByteArray line = "<AREA SHAPE=\"RECT\" COORDS=\"1, 2, 3, 4\" HREF=\"\xE9\xA0.htm\">\r\n";
    while (bytes.size() < size) {
        bytes += line;
    }
    QVERIFY(OpenFile("page.htm", bytes));
    QCOMPARE(test_->Editor()->TextLength(), bytes.size());
    test_->Editor()->Select(bytes.size() / 2, 0);
    const qsizetype caret = test_->Editor()->SelStart();
    test_->Type("x");
    QCOMPARE(test_->Editor()->SelStart(), caret + 1);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(BytesOf(Path("page.htm")) == bytes.insert(caret, 'x') + "\r\n");
}

void tst_saving::loneLineEndsAreSavedAsCrLf()
{
    QVERIFY(OpenFile("page.htm", "a\nb\rc\r\nd\n\r"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("a\r\nb\r\nc\r\nd\r\n\r\n\r\n"));
}

void tst_saving::otherCharactersAreSavedAsQuestionMarks()
{
    QVERIFY(OpenFile("page.htm", ""));
    test_->Editor()->ReplaceSelection(QStringLiteral("\u4E2D\u20AC\U0001F600\u00E9"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("?\x80?\xE9\r\n"));
}

void tst_saving::formattingIsNotSaved()
{
    QVERIFY(OpenFile("page.htm", "abc"));
    test_->Editor()->Select(0, 3);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    test_->Editor()->mergeCurrentCharFormat(format);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("abc\r\n"));
}

void tst_saving::savingLeavesTheCaretAndUndo()
{
    QVERIFY(OpenFile("page.htm", "abc\r\ndef"));
    test_->Editor()->Select(6, 0);
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->SelStart(), qsizetype(7));
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("abc\r\ndef"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_saving::failedSaveKeepsEverything_data()
{
    QTest::addColumn<QString>("way");
    for (const char* const way : { "Save without a folder", "Save As into a missing folder", "full disk" }) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

void tst_saving::failedSaveKeepsEverything()
{
    QFETCH(const QString, way);
    if (way == u"Save without a folder") {
        MakeUnwritable();
        test_->robot.AnswerBox(QMessageBox::Ok);
        test_->Press(Qt::Key_S, Qt::ControlModifier);
    } else if (way == u"Save As into a missing folder") {
        QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
        QVERIFY(OpenFile("pages/page.htm", "old"));
        test_->Type("x");
        test_->robot.ChooseFile(Path("gone/page.htm"));
        test_->robot.AnswerBox(QMessageBox::Ok);
        test_->ClickMenu("mnuFile", "mnuFSaveAs");
    } else {
        if (!QFile::exists(QStringLiteral("/dev/full"))) {
            QSKIP("there is no device that is always full");
        }
        QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
        QVERIFY(OpenFile("pages/page.htm", "old"));
        test_->Type("x");
        QVERIFY(QFile::remove(Path("pages/page.htm")));
        QVERIFY(QFile::link(QStringLiteral("/dev/full"), Path("pages/page.htm")));
        test_->robot.AnswerBox(QMessageBox::Ok);
        test_->Press(Qt::Key_S, Qt::ControlModifier);
        QCOMPARE(test_->robot.Boxes().constLast().text, QStringLiteral("No space left on device"));
        QVERIFY(QFileInfo(Path("pages/page.htm")).isSymLink());
    }
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QVERIFY(!box.text.isEmpty());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QCOMPARE(test_->DocumentName(), Path("pages/page.htm"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_saving::failedWriteLeavesTheOldFile()
{
    QVERIFY(WriteBytes(Path("Data/page.htm"), "old"));
    QVERIFY(WriteBytes(Path("file.txt"), "old"));
    test_->Type("x");
    test_->robot.ChooseFile(Path("file.txt/page.htm"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("file.txt")), QByteArray("old"));
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_saving::savingEndsTheHourglass()
{
    QVERIFY(OpenFile("page.htm", "old"));
    QVERIFY(QApplication::overrideCursor() == nullptr);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(QApplication::overrideCursor() == nullptr);

    // The message about a failure must not come with the hourglass.
    QVERIFY(QFile::remove(Path("page.htm")));
    QVERIFY(QDir().mkpath(Path("page.htm/x")));
    bool isWaiting = true;
    test_->robot.Act([&](QDialog& dialog) {
        isWaiting = QApplication::overrideCursor() != nullptr;
        dialog.accept();
    });
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!isWaiting);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
}

QTEST_MAIN(tst_saving)
#include "tst_saving.moc"
