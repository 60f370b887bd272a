// Opening a document.

#include "tests/app/DocumentsFixture.h"

#include <QFileDialog>

class tst_opening : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

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
};

void tst_opening::openDialogOffersTheDocumentFilters()
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

void tst_opening::openReadsTheFile_data()
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

void tst_opening::openReadsTheFile()
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

void tst_opening::cancelledOpenChangesNothing()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->robot.Cancel();
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("old"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_opening::openReplacesTheDocument()
{
    QVERIFY(OpenFile("one.htm", "one"));
    QVERIFY(OpenFile("two.txt", "two"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("two"));
    test_->Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("two"));
    QVERIFY(!test_->window.File().IsChanged());
}

void tst_opening::openingAnUntypedEndingTakesThePage()
{
    QVERIFY(WriteBytes(Path("page.htm"), "page"));
    test_->Open(Path("page"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("page"));
}

void tst_opening::openingAFileWithoutEndingTakesThatFile()
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

void tst_opening::openingAFileWithAnotherEndingTakesThatFile()
{
    QVERIFY(OpenFile("style.css", "css"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("css"));
}

void tst_opening::openingAMissingFileTells()
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

void tst_opening::openingWhatIsNoFileTells()
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

void tst_opening::openingAFolderEntersIt()
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

void tst_opening::openingAPathRelativeToTheProgramFolder()
{
    QVERIFY(WriteBytes(Path("page.htm"), "page"));
    QDir::setCurrent(QDir::rootPath());
    test_->Open(QStringLiteral("page.htm"));
    QCOMPARE(test_->DocumentName(), Path("page.htm"));
}

void tst_opening::openAsksWhenTheDocumentHasChanged()
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

void tst_opening::openAfterNoAndCancelledDialogHasLostTheDocument()
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

void tst_opening::openAfterCancelledPromptShowsNoDialog()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.ProposedNames().size(), 0);
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_opening::openAfterCancelledSaveShowsNoDialog()
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

void tst_opening::openGoesOnAfterAFailedSave()
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

void tst_opening::openingAMissingFileAfterNoLeavesAnEmptyDocument()
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

QTEST_MAIN(tst_opening)
#include "tst_opening.moc"
