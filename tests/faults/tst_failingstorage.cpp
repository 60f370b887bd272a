#include "tests/faults/FailingStorageFixture.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <array>
#include <cerrno>
#include <cstring>
#include <unistd.h>

namespace {

constexpr std::array systemErrors = { ENOSPC, EIO, EACCES, EDQUOT };

} // namespace

class tst_failingstorage : public FailingStorageFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void everyCallOfASaveMayFail_data();
    void everyCallOfASaveMayFail();
    void diskThatTellsLateThatItIsFullKeepsTheOldFile_data();
    void diskThatTellsLateThatItIsFullKeepsTheOldFile();
    void diskThatCannotBeWaitedForIsNoError();
    void everyCallOfSavingTheLinksMayFail();
    void everyCallOfAPreviewMayFail();
    void everyCallOfOpeningMayFail();
    void slowStorageIsWaitedFor();
};

void tst_failingstorage::everyCallOfASaveMayFail_data()
{
    QTest::addColumn<bool>("isInPlace");
    QTest::addColumn<bool>("isLasting");
    QTest::addColumn<int>("error");
    for (const int error : systemErrors) {
        QTest::addRow("beside, %s, once", std::strerror(error)) << false << false << error;
        QTest::addRow("beside, %s, from then on", std::strerror(error)) << false << true << error;
    }
    // What cannot be replaced is overwritten, and the old text put back: that takes a disk that works again.
    QTest::addRow("in place, once") << true << false << ENOSPC;
}

void tst_failingstorage::everyCallOfASaveMayFail()
{
    QFETCH(const bool, isInPlace);
    QFETCH(const bool, isLasting);
    QFETCH(const int, error);
    const QByteArray old = Lines(20'000, 'o');
    OpenPage(old);
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        QVERIFY(WriteBytes(Path("pages/page.htm"), old));
        if (isInPlace && call == 0) {
            QVERIFY(
                link(
                    QFile::encodeName(Path("pages/page.htm")).constData(),
                    QFile::encodeName(Path("pages/other.htm")).constData()) == 0);
        }
        const QStringList names = Names();
        // Always changed: a key more, and the same one away.
        test_->Type("y");
        test_->Press(Qt::Key_Backspace);
        QVERIFY(test_->window.File().IsChanged());
        bool isTold = false;
        test_->robot.Act([&isTold](QDialog& dialog) {
            isTold = true;
            FailingSystem::Stop();
            dialog.accept();
        });
        FailingSystem::Watch(Path("pages"));
        FailingSystem::Fail(call, error, isLasting);
        test_->window.Documents().SaveDocument();
        isFailing = isTold || FailingSystem::Stop() > call;
        if (!isTold) {
            test_->robot.TakeBack();
        }
        const QByteArray now = BytesOf(Path("pages/page.htm"));
        const QByteArray wanted = isTold ? old : "x" + old + "\r\n";
        QVERIFY2(now == wanted, qPrintable(QStringLiteral("call %1, told %2").arg(call).arg(isTold)));
        QCOMPARE(test_->window.File().IsChanged(), isTold);
        QCOMPARE(test_->Editor()->TextLength(), old.size() + 1);
        QCOMPARE(Names(), names);
        QVERIFY2(call < 100, "a save takes no hundred calls");
    }
}

void tst_failingstorage::diskThatTellsLateThatItIsFullKeepsTheOldFile_data()
{
    QTest::addColumn<int>("error");
    for (const int error : { ENOSPC, EDQUOT, EIO }) {
        QTest::newRow(std::strerror(error)) << error;
    }
}

void tst_failingstorage::diskThatTellsLateThatItIsFullKeepsTheOldFile()
{
    QFETCH(const int, error);
    OpenPage("old");
    test_->robot.AnswerBox(QMessageBox::Ok);
    FailingSystem::Watch(Path("pages"));
    FailingSystem::FailSync(error);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    FailingSystem::Stop();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(test_->robot.Boxes().constFirst().text, QString::fromLocal8Bit(std::strerror(error)));
    QCOMPARE(BytesOf(Path("pages/page.htm")), QByteArray("old"));
    QCOMPARE(Names(), QStringList(QStringLiteral("page.htm")));
    QVERIFY(test_->window.File().IsChanged());
}

void tst_failingstorage::diskThatCannotBeWaitedForIsNoError()
{
    OpenPage("old");
    FailingSystem::Watch(Path("pages"));
    FailingSystem::FailSync(EINVAL);
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    FailingSystem::Stop();
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QCOMPARE(BytesOf(Path("pages/page.htm")), QByteArray("xold\r\n"));
}

void tst_failingstorage::everyCallOfSavingTheLinksMayFail()
{
    const QByteArray old = [this] {
        test_->Find<QLineEdit>("txtCTags")->setText(QStringLiteral("old.htm"));
        test_->Find<QPushButton>("btnAdd")->click();
        test_->Find<QPushButton>("btnSave")->click();
        return BytesOf(Path("Data/Links.dra"));
    }();
    QVERIFY(old.startsWith("old.htm"));
    test_->Find<QLineEdit>("txtCTags")->setText(QStringLiteral("new.htm"));
    test_->Find<QPushButton>("btnAdd")->click();
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        QVERIFY(WriteBytes(Path("Data/Links.dra"), old));
        FailingSystem::Watch(Path("Data"));
        FailingSystem::Fail(call, ENOSPC, true);
        test_->Find<QPushButton>("btnSave")->click();
        isFailing = FailingSystem::Stop() > call;
        const QByteArray now = BytesOf(Path("Data/Links.dra"));
        QVERIFY2(
            now == old || (now.size() == old.size() && now.mid(276).startsWith("new.htm")),
            qPrintable(QString::number(call)));
        QCOMPARE(QDir(Path("Data")).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QCOMPARE(test_->Find<QListWidget>("ListView1")->count(), 2);
    }
    QVERIFY(BytesOf(Path("Data/Links.dra")).mid(276).startsWith("new.htm"));
}

void tst_failingstorage::everyCallOfAPreviewMayFail()
{
    test_->Editor()->ReplaceSelection(QStringLiteral("new"));
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        QVERIFY(WriteBytes(Path("Temp/Temp001.html"), "old"));
        bool isTold = false;
        test_->robot.Act([&isTold](QDialog& dialog) {
            isTold = true;
            FailingSystem::Stop();
            dialog.accept();
        });
        FailingSystem::Watch(Path("Temp"));
        FailingSystem::Fail(call, ENOSPC, true);
        test_->window.Outside().PreviewDocument();
        isFailing = isTold || FailingSystem::Stop() > call;
        if (!isTold) {
            test_->robot.TakeBack();
        }
        QCOMPARE(BytesOf(Path("Temp/Temp001.html")), isTold ? QByteArray("old") : QByteArray("new\r\n"));
        QCOMPARE(QDir(Path("Temp")).entryList(QDir::Files | QDir::Hidden).size(), 1);
        QCOMPARE(test_->desktop.Requests.size(), call + 1);
    }
}

void tst_failingstorage::everyCallOfOpeningMayFail()
{
    const QByteArray bytes = Lines(200'000, 'n');
    QVERIFY(WriteBytes(Path("pages/page.htm"), bytes));
    bool isFailing = true;
    for (int call = 0; isFailing; ++call) {
        test_->Press(Qt::Key_N, Qt::ControlModifier);
        bool isTold = false;
        test_->robot.ChooseFile(Path("pages/page.htm"));
        test_->robot.Act([&isTold](QDialog& dialog) {
            isTold = true;
            FailingSystem::Stop();
            dialog.accept();
        });
        FailingSystem::Watch(Path("pages"));
        FailingSystem::Fail(call, EIO, true);
        test_->window.Documents().OpenDocument();
        isFailing = isTold || FailingSystem::Stop() > call;
        if (!isTold) {
            test_->robot.TakeBack();
        }
        // Closing may fail after everything has been read.
        QVERIFY(test_->Editor()->TextLength() == (isTold ? 0 : bytes.size()));
        QCOMPARE(test_->DocumentName(), isTold ? QString::fromLatin1(newDocument) : Path("pages/page.htm"));
    }
}

void tst_failingstorage::slowStorageIsWaitedFor()
{
    constexpr int milliseconds = 5;
    constexpr qint64 atOnce = 4096;
    const QByteArray old = Lines(100'000, 'o');
    QVERIFY(WriteBytes(Path("pages/page.htm"), old));
    FailingSystem::Watch(Path("pages"));
    FailingSystem::SlowDown(milliseconds, atOnce);
    test_->Open(Path("pages/page.htm"));
    QCOMPARE(test_->Editor()->TextLength(), old.size());
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    const int calls = FailingSystem::Stop();
    QVERIFY2(calls > 2 * old.size() / atOnce, qPrintable(QString::number(calls)));
    QVERIFY(BytesOf(Path("pages/page.htm")) == "x" + old + "\r\n");
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

QTEST_MAIN(tst_failingstorage)
#include "tst_failingstorage.moc"
