#include "tests/app/MainWindowFixture.h"

#include <QElapsedTimer>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

namespace {

QLineEdit* NameField(const QDialog& dialog)
{
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

QString PromptText(const QString& name)
{
    return u"The text in [" + name + u"] has changed.\n\rDo you want to save the changes?";
}

} // namespace

class tst_documents : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void newClearsAnUnchangedDocumentWithoutAsking_data();
    void newClearsAnUnchangedDocumentWithoutAsking();
    void newAsksWhenTheDocumentHasChanged();
    void newAfterNoIsANewDocument();
    void newAfterYesSavesFirst();
    void newAfterCancelChangesNothing();

    void openDialogOffersTheDocumentFilters();
    void openReadsTheFile_data();
    void openReadsTheFile();
    void cancelledOpenChangesNothing();
    void openReplacesTheDocument();
    void openingAnUntypedEndingTakesThePage();
    void openingAFileWithoutEndingTakesThatFile();
    void openingAFileWithAnotherEndingTakesThatFile();
    void openingAMissingFileTells();
    void openingWhatIsNoFileTells();
    void openingAFolderEntersIt();
    void openingAPathRelativeToTheProgramFolder();
    void openAsksWhenTheDocumentHasChanged();
    void openAfterNoAndCancelledDialogHasLostTheDocument();
    void openAfterCancelledPromptShowsNoDialog();
    void openAfterCancelledSaveShowsNoDialog();
    void openGoesOnAfterAFailedSave();
    void openingAMissingFileAfterNoLeavesAnEmptyDocument();

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

    void promptNamesTheDocument();
    void promptClosedByEscIsCancelled();
    void promptSavesTheNewDocumentWhereTheUserSays();
    void promptsCancelledSaveDialogStops();
    void promptsFailedSaveKeepsTheDocument();
    void commandsMakeTheProgramFolderCurrent_data();
    void commandsMakeTheProgramFolderCurrent();
    void menuAndToolbarRunTheSameCommands_data();
    void menuAndToolbarRunTheSameCommands();

private:
    [[nodiscard]] QString Path(const char* name) const
    {
        return test_->folder.Path(QString::fromLatin1(name));
    }
    [[nodiscard]] bool OpenFile(const char* name, const QByteArray& bytes);
    void MakeUnwritable();

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_documents::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
}

void tst_documents::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    QVERIFY(!test_->folder.imgMap.ContinueAction);
    QVERIFY(QApplication::overrideCursor() == nullptr);
    test_.reset();
}

/** Makes a file of the program folder the open document. */
bool tst_documents::OpenFile(const char* name, const QByteArray& bytes)
{
    if (!WriteBytes(Path(name), bytes)) {
        return false;
    }
    test_->Open(Path(name));
    return test_->DocumentName() == Path(name) && !test_->window.File().IsChanged();
}

/** Opens a document, changes it and takes its folder away. */
void tst_documents::MakeUnwritable()
{
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
    QVERIFY(OpenFile("pages/page.htm", "old"));
    test_->Type("x");
    QVERIFY(QDir(Path("pages")).removeRecursively());
}

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

void tst_documents::openDialogOffersTheDocumentFilters()
{
    QStringList shown;
    QString chosen;
    QString field;
    QFileDialog::AcceptMode mode = QFileDialog::AcceptSave;
    test_->robot.Act([&](QDialog& dialog) {
        const auto& files = static_cast<QFileDialog&>(dialog);
        shown = OfferedFiles(dialog);
        chosen = files.selectedNameFilter();
        mode = files.acceptMode();
        field = NameField(dialog)->text();
        dialog.reject();
    });
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    const QStringList expected{ QStringLiteral("HTML Documents(*.html;*.htm)"),
                                QStringLiteral("HTML(*.html)"), QStringLiteral("HTM(*.htm)"),
                                QStringLiteral("Text Files(*.txt)"), QStringLiteral("All Files(*.*)") };
    QCOMPARE(shown, expected);
    QCOMPARE(chosen, expected.constFirst());
    QCOMPARE(mode, QFileDialog::AcceptOpen);
    QCOMPARE(field, QString());
    QCOMPARE(test_->robot.ProposedFolders(), QStringList{ test_->folder.imgMap.ProgramFolder });
}

void tst_documents::openReadsTheFile_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("text");
    QTest::newRow("empty") << QByteArray() << QString();
    QTest::newRow("lines") << QByteArray("a\r\nb\r\n") << QStringLiteral("a\r\nb\r\n");
    QTest::newRow("lone line ends") << QByteArray("a\nb\rc") << QStringLiteral("a\r\nb\r\nc");
    QTest::newRow("code page") << QByteArray("\x80\xA0\xE9\x81")
                               << QStringLiteral("\u20AC\u00A0\u00E9\u0081");
    QTest::newRow("UTF-8 is 8-bit text")
        << QByteArray("\xEF\xBB\xBF\xC3\xA9") << QStringLiteral("\u00EF\u00BB\u00BF\u00C3\u00A9");
    QTest::newRow("NUL") << QByteArray("a\0b", 3) << QStringLiteral("a") + QChar(u'\0') + QStringLiteral("b");
}

void tst_documents::openReadsTheFile()
{
    QFETCH(const QByteArray, bytes);
    QFETCH(const QString, text);
    QVERIFY(OpenFile("page.htm", bytes));
    QCOMPARE(test_->Editor()->Text(), text);
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QCOMPARE(test_->Editor()->SelStart(), qsizetype(0));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(BytesOf(Path("page.htm")), bytes);
}

void tst_documents::cancelledOpenChangesNothing()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->robot.Cancel();
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("old"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_documents::openReplacesTheDocument()
{
    QVERIFY(OpenFile("one.htm", "one"));
    QVERIFY(OpenFile("two.txt", "two"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("two"));
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("two"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_documents::openingAnUntypedEndingTakesThePage()
{
    QVERIFY(WriteBytes(Path("page.htm"), "page"));
    test_->Open(Path("page"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("page"));
}

void tst_documents::openingAFileWithoutEndingTakesThatFile()
{
    QVERIFY(WriteBytes(Path("README"), "without"));
    QVERIFY(WriteBytes(Path("README.htm"), "with"));
    test_->Open(Path("README"));
    QCOMPARE(test_->DocumentName(), Path("README"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("without"));
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("README")), QByteArray("xwithout\r\n"));
    QCOMPARE(BytesOf(Path("README.htm")), QByteArray("with"));
}

void tst_documents::openingAFileWithAnotherEndingTakesThatFile()
{
    QVERIFY(OpenFile("style.css", "css"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("css"));
}

void tst_documents::openingAMissingFileTells()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->robot.ChooseFile(Path("missing.txt"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    test_->robot.ChooseFile(Path("missing"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 2);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().at(0);
    QCOMPARE(box.text, QString(u"Can't open file: " + Path("missing.txt")));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QCOMPARE(test_->robot.Boxes().at(1).text, QString(u"Can't open file: " + Path("missing.htm")));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("old"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!QFile::exists(Path("missing.txt")));
}

void tst_documents::openingWhatIsNoFileTells()
{
#ifdef Q_OS_UNIX
    QVERIFY(OpenFile("page.htm", "old"));
    QVERIFY(QFile::link(QStringLiteral("/dev/zero"), Path("zero.htm")));
    QCOMPARE(mkfifo(QFile::encodeName(Path("pipe.htm")).constData(), 0600), 0);
    for (const char* const name : { "zero.htm", "pipe.htm" }) {
        test_->robot.ChooseFile(Path(name));
        test_->robot.AnswerBox(QMessageBox::Ok);
        test_->Press(Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(test_->robot.Boxes().constLast().text, QString(u"Can't open file: " + Path(name)));
        QCOMPARE(test_->Editor()->Text(), QStringLiteral("old"));
        QCOMPARE(test_->DocumentName(), Path("page.htm"));
    }
#else
    QSKIP("devices and pipes have no file names here");
#endif
}

void tst_documents::openingAFolderEntersIt()
{
    QVERIFY(WriteBytes(Path("Data/inside.htm"), "inside"));
    bool isStillOpen = false;
    test_->robot.Act([&](QDialog& dialog) {
        QTest::keyClicks(NameField(dialog), Path("Data"));
        QTest::keyClick(NameField(dialog), Qt::Key_Return);
        isStillOpen = dialog.isVisible();
        NameField(dialog)->selectAll();
        QTest::keyClicks(NameField(dialog), QStringLiteral("inside.htm"));
        QTest::keyClick(NameField(dialog), Qt::Key_Return);
    });
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QVERIFY(isStillOpen);
    QCOMPARE(test_->DocumentName(), Path("Data/inside.htm"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_documents::openingAPathRelativeToTheProgramFolder()
{
    QVERIFY(WriteBytes(Path("page.htm"), "page"));
    QDir::setCurrent(QDir::rootPath());
    test_->Open(QStringLiteral("page.htm"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
}

void tst_documents::openAsksWhenTheDocumentHasChanged()
{
    QVERIFY(OpenFile("page.htm", "old"));
    QVERIFY(WriteBytes(Path("other.htm"), "other"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.ChooseFile(Path("other.htm"));
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().constLast().text, PromptText(Path("page.htm")));
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("xold\r\n"));
    QCOMPARE(test_->DocumentName(), Path("other.htm"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("other"));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(test_->robot.ProposedNames().constLast(), QString());
}

void tst_documents::openAfterNoAndCancelledDialogHasLostTheDocument()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::No);
    test_->robot.Cancel();
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QString());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("old"));
}

void tst_documents::openAfterCancelledPromptShowsNoDialog()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.ProposedNames().size(), 0);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_documents::openAfterCancelledSaveShowsNoDialog()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.Cancel();
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.ProposedNames(), QStringList{ QStringLiteral("newmap.htm") });
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_documents::openGoesOnAfterAFailedSave()
{
    QVERIFY(WriteBytes(Path("other.htm"), "other"));
    MakeUnwritable();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->robot.Cancel();
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QCOMPARE(test_->DocumentName(), Path("pages/page.htm"));
    QVERIFY(test_->window.File().IsChanged());

    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->robot.ChooseFile(Path("other.htm"));
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("other"));
    QCOMPARE(test_->DocumentName(), Path("other.htm"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_documents::openingAMissingFileAfterNoLeavesAnEmptyDocument()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::No);
    test_->robot.ChooseFile(Path("missing.htm"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().constLast().text, QString(u"Can't open file: " + Path("missing.htm")));
    QCOMPARE(test_->Editor()->Text(), QString());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
}

void tst_documents::saveDialogProposesTheNewPageInTheProgramFolder_data()
{
    QTest::addColumn<bool>("isSaveAs");
    QTest::newRow("Save") << false;
    QTest::newRow("Save As") << true;
}

void tst_documents::saveDialogProposesTheNewPageInTheProgramFolder()
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

void tst_documents::savedDocumentHasItsNameAndOneMoreLineEnd()
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

void tst_documents::cancelledSaveChangesNothing_data()
{
    saveDialogProposesTheNewPageInTheProgramFolder_data();
}

void tst_documents::cancelledSaveChangesNothing()
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

void tst_documents::saveAppendsTheEndingWhenNoneIsTyped_data()
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

void tst_documents::saveAppendsTheEndingWhenNoneIsTyped()
{
    QFETCH(const QString, typed);
    QFETCH(const QString, saved);
    test_->Type("x");
    test_->robot.ChooseFile(typed);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(test_->DocumentName(), test_->folder.Path(saved));
    QCOMPARE(BytesOf(test_->folder.Path(saved)), QByteArray("x\r\n"));
}

void tst_documents::namedDocumentIsSavedWithoutADialog()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("xold\r\n"));
    QVERIFY(!test_->window.File().IsChanged());
    QCOMPARE(test_->robot.ProposedNames().size(), 1);
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_documents::saveAsProposesTheDocumentsOwnName()
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

void tst_documents::saveAsGoesToTheNewName()
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

void tst_documents::saveAsOverAnotherFileReplacesIt()
{
    QVERIFY(WriteBytes(Path("other.htm"), "a longer text than the new one"));
    test_->Type("x");
    test_->robot.ChooseFile(Path("other.htm"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->ClickMenu("mnuFile", "mnuFSaveAs");
    QCOMPARE(BytesOf(Path("other.htm")), QByteArray("x\r\n"));
    QCOMPARE(test_->DocumentName(), Path("other.htm"));
}

void tst_documents::fileCalledNewDocumentIsSavedUnderItsPath()
{
    QVERIFY(OpenFile("New Document", "old"));
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("New Document")), QByteArray("xold\r\n"));
    QCOMPARE(test_->DocumentName(), Path("New Document"));
}

void tst_documents::savingGrowsByOneLineEndEachTime()
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

void tst_documents::everyByteComesBack()
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

void tst_documents::largeDocumentComesBack()
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

void tst_documents::loneLineEndsAreSavedAsCrLf()
{
    QVERIFY(OpenFile("page.htm", "a\nb\rc\r\nd\n\r"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("a\r\nb\r\nc\r\nd\r\n\r\n\r\n"));
}

void tst_documents::otherCharactersAreSavedAsQuestionMarks()
{
    QVERIFY(OpenFile("page.htm", ""));
    test_->Editor()->ReplaceSelection(QStringLiteral("\u4E2D\u20AC\U0001F600\u00E9"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("?\x80?\xE9\r\n"));
}

void tst_documents::formattingIsNotSaved()
{
    QVERIFY(OpenFile("page.htm", "abc"));
    test_->Editor()->Select(0, 3);
    QTextCharFormat format;
    format.setFontWeight(QFont::Bold);
    test_->Editor()->mergeCurrentCharFormat(format);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("abc\r\n"));
}

void tst_documents::savingLeavesTheCaretAndUndo()
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

void tst_documents::failedSaveKeepsEverything_data()
{
    QTest::addColumn<QString>("way");
    for (const char* const way : { "Save without a folder", "Save As into a missing folder", "full disk" }) {
        QTest::newRow(way) << QString::fromLatin1(way);
    }
}

void tst_documents::failedSaveKeepsEverything()
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

void tst_documents::failedWriteLeavesTheOldFile()
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

void tst_documents::savingEndsTheHourglass()
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
