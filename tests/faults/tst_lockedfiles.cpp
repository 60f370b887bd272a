// Opening and saving where there is no ordinary file, or none that may be touched.

#include "tests/faults/Rights.h"
#include "tests/faults/StrangeFilesFixture.h"

#include <cerrno>

class tst_lockedfiles : public StrangeFilesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase() { StartAll(); }
    void init() { Start(); }
    void cleanup() { Finish(); }

    void readOnlyFileIsToldAndKept();
    void readOnlyFolderIsNoObstacleForAFileThatMayBeWritten();
    void readOnlyFolderTakesNoNewFile();
    void unreadableFileIsTold();
    void folderRemovedBetweenOpenAndSaveIsTold();
    void fileRemovedBetweenOpenAndSaveIsMadeAgain();
    void renamedFolderIsNotMadeAgain();
};

void tst_lockedfiles::readOnlyFileIsToldAndKept()
{
    OpenPage();
    QVERIFY(SetMode(InPages("page.htm"), 0444));
    const OrdinaryRights rights;
    SaveFails(SystemText(EACCES));
    QCOMPARE(BytesOf(InPages("page.htm")), QByteArray("old"));
}

void tst_lockedfiles::readOnlyFolderIsNoObstacleForAFileThatMayBeWritten()
{
    OpenPage();
    QVERIFY(SetMode(InPages("page.htm"), 0666));
    QVERIFY(SetMode(Path("pages"), 0555));
    const OrdinaryRights rights;
    Save();
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QCOMPARE(BytesOf(InPages("page.htm")), QByteArray("xold\r\n"));
}

void tst_lockedfiles::readOnlyFolderTakesNoNewFile()
{
    OpenPage();
    QVERIFY(QFile::remove(InPages("page.htm")));
    QVERIFY(SetMode(Path("pages"), 0555));
    const OrdinaryRights rights;
    SaveFails(SystemText(EACCES));
    QVERIFY(QDir(Path("pages")).isEmpty());
}

void tst_lockedfiles::unreadableFileIsTold()
{
    QVERIFY(WriteBytes(InPages("page.htm"), "old"));
    QVERIFY(SetMode(InPages("page.htm"), 0200));
    const OrdinaryRights rights;
    test_->robot.ChooseFile(InPages("page.htm"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_O, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->robot.Boxes().constFirst().text, QString(u"Can't open file: " + InPages("page.htm")));
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
}

void tst_lockedfiles::folderRemovedBetweenOpenAndSaveIsTold()
{
    OpenPage();
    QVERIFY(QDir(Path("pages")).removeRecursively());
    SaveFails(SystemText(ENOENT));
    QVERIFY(!QFile::exists(Path("pages")));
}

void tst_lockedfiles::fileRemovedBetweenOpenAndSaveIsMadeAgain()
{
    OpenPage();
    QVERIFY(QFile::remove(InPages("page.htm")));
    Save();
    QCOMPARE(BytesOf(InPages("page.htm")), QByteArray("xold\r\n"));
}

void tst_lockedfiles::renamedFolderIsNotMadeAgain()
{
    OpenPage();
    QVERIFY(QDir().rename(Path("pages"), Path("moved")));
    SaveFails(SystemText(ENOENT));
    QCOMPARE(BytesOf(Path("moved/page.htm")), QByteArray("old"));
}

QTEST_MAIN(tst_lockedfiles)
#include "tst_lockedfiles.moc"
