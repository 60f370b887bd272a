// What is to be pasted belongs to another program, which ends or answers no more.

#include "app/EditorClipboard.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/faults/XServer.h"

#include <QClipboard>
#include <QElapsedTimer>
#include <csignal>
#include <cstdio>
#include <memory>

namespace {

constexpr int patience = 20'000;

/** The other program: owns the clipboard until it is ended. */
int OwnClipboard()
{
    QApplication::clipboard()->setText(QStringLiteral("from outside"));
    QTimer::singleShot(500, qApp, [] {
        std::printf("owned\n");
        std::fflush(stdout);
    });
    return QApplication::exec();
}

bool hasScreen = false;

} // namespace

class tst_clipboardowner : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void textOfAnotherProgramIsPasted();
    void ownerThatHasEndedLeavesNothingToPaste();
    void ownerThatDoesNotAnswerIsNotWaitedForLong();

private:
    [[nodiscard]] bool StartOwner();

    std::unique_ptr<MainWindowFixture> test_;
    std::unique_ptr<QProcess> owner_;
};

void tst_clipboardowner::initTestCase()
{
    if (!hasScreen) {
        QSKIP("there is no Xvfb to share a clipboard on");
    }
}

void tst_clipboardowner::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    // Without a window manager no window takes keys, and none is needed.
    test_->window.Form_Load();
    test_->window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&test_->window));
    owner_ = std::make_unique<QProcess>();
    QVERIFY(StartOwner());
}

void tst_clipboardowner::cleanup()
{
    owner_->kill();
    owner_->waitForFinished();
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

bool tst_clipboardowner::StartOwner()
{
    owner_->start(QCoreApplication::applicationFilePath(), { QStringLiteral("--own") });
    return QTest::qWaitFor([this] { return owner_->readAllStandardOutput().contains("owned"); }, patience);
}

void tst_clipboardowner::textOfAnotherProgramIsPasted()
{
    test_->Editor()->ReplaceSelection(QStringLiteral("ab"));
    PasteText(test_->window.Source());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("abfrom outside"));
}

void tst_clipboardowner::ownerThatHasEndedLeavesNothingToPaste()
{
    test_->Editor()->ReplaceSelection(QStringLiteral("ab"));
    owner_->kill();
    QVERIFY(owner_->waitForFinished());
    PasteText(test_->window.Source());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("ab"));
    // The clipboard works again as soon as somebody has it.
    test_->Editor()->selectAll();
    CopyText(test_->window.Source());
    test_->Editor()->Select(2, 0);
    PasteText(test_->window.Source());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("abab"));
}

void tst_clipboardowner::ownerThatDoesNotAnswerIsNotWaitedForLong()
{
    test_->Editor()->ReplaceSelection(QStringLiteral("ab"));
    QCOMPARE(kill(static_cast<pid_t>(owner_->processId()), SIGSTOP), 0);
    QElapsedTimer clock;
    clock.start();
    PasteText(test_->window.Source());
    const qint64 waited = clock.elapsed();
    kill(static_cast<pid_t>(owner_->processId()), SIGCONT);
    QVERIFY2(waited < patience, qPrintable(QString::number(waited)));
    QVERIFY(test_->Editor()->Text().startsWith(u"ab"));
    QVERIFY(test_->window.isVisible());
}

int main(int argc, char* argv[])
{
    const bool isOwner = argc > 1 && qstrcmp(argv[1], "--own") == 0;
    XServer server;
    hasScreen = isOwner || server.Start();
    QApplication application(argc, argv);
    if (isOwner) {
        return OwnClipboard();
    }
    tst_clipboardowner test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_clipboardowner.moc"
