// The user logs out of a desktop while the program runs: what is not saved is asked for, and may stop it.

#include "app/SessionGuard.h"
#include "app/Startup.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/faults/SessionManager.h"
#include "tests/faults/XServer.h"

#include <memory>

namespace {

constexpr int patience = 20'000;

SessionManager session;
bool hasSession = false;

} // namespace

class tst_sessionend : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void unchangedTextLetsTheUserGo();
    void cancelStopsTheLogout();
    void noLetsTheUserGoWithoutTheText();
    void yesSavesAndLetsTheUserGo();
    void failedSaveStopsTheLogout();
    void openDialogStopsTheLogoutOfChangedText();
    void logoutThatMustNotAskAsksNothing();
    void programEndsWithTheSession();
    void startedProgramIsAskedToo();

private:
    void Write(const QString& text);
    [[nodiscard]] bool Hears(const QByteArray& what);

    std::unique_ptr<MainWindowFixture> test_;
    std::unique_ptr<SessionGuard> guard_;
    QByteArray heard_;
};

void tst_sessionend::initTestCase()
{
    if (!hasSession) {
        QSKIP("there is no Xvfb to log out of");
    }
    QVERIFY2(Hears("r"), "the program takes no part in the session");
}

void tst_sessionend::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    test_->robot.Hurry();
    // Without a window manager no window takes keys, and none is needed.
    test_->window.Form_Load();
    test_->window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&test_->window));
    guard_ = std::make_unique<SessionGuard>(test_->window);
    heard_.clear();
}

void tst_sessionend::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    // A logout is at its end before the next one begins.
    QCOMPARE(heard_ + session.Heard(), QByteArray());
    guard_.reset();
    test_.reset();
}

void tst_sessionend::Write(const QString& text)
{
    test_->Editor()->ReplaceSelection(text);
    QVERIFY(test_->window.File().IsChanged());
}

/** Whether the desktop hears this next. */
bool tst_sessionend::Hears(const QByteArray& what)
{
    (void)QTest::qWaitFor(
        [this, &what] {
            heard_ += session.Heard();
            return heard_.size() >= what.size();
        },
        patience);
    const bool isHeard = heard_.startsWith(what);
    heard_.remove(0, what.size());
    return isHeard;
}

void tst_sessionend::unchangedTextLetsTheUserGo()
{
    session.LogOut();
    QVERIFY(Hears("d"));
    QVERIFY(test_->robot.Boxes().isEmpty());
    QVERIFY(test_->window.isVisible());
}

void tst_sessionend::cancelStopsTheLogout()
{
    Write(QStringLiteral("text"));
    test_->robot.AnswerBox(QMessageBox::Cancel);
    session.LogOut();
    QVERIFY(Hears("c"));
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QVERIFY(test_->robot.Boxes().constFirst().text.startsWith(u"The text in [New Document] has changed."));
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("text"));
    QVERIFY(Hears("d"));
}

void tst_sessionend::noLetsTheUserGoWithoutTheText()
{
    Write(QStringLiteral("text"));
    test_->robot.AnswerBox(QMessageBox::No);
    session.LogOut();
    QVERIFY(Hears("d"));
    QCOMPARE(test_->robot.Boxes().size(), 1);
}

void tst_sessionend::yesSavesAndLetsTheUserGo()
{
    Write(QStringLiteral("text"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.ChooseFile(test_->folder.Path(QStringLiteral("saved.htm")));
    session.LogOut();
    QVERIFY(Hears("d"));
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("saved.htm"))), QByteArray("text\r\n"));
}

void tst_sessionend::failedSaveStopsTheLogout()
{
    Write(QStringLiteral("text"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.ChooseFile(test_->folder.Path(QStringLiteral("missing/saved.htm")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    session.LogOut();
    QVERIFY(Hears("c"));
    QVERIFY(test_->window.File().IsChanged());
    QVERIFY(Hears("d"));
}

void tst_sessionend::openDialogStopsTheLogoutOfChangedText()
{
    Write(QStringLiteral("text"));
    bool isStopped = false;
    test_->robot.Act([this, &isStopped](QDialog& dialog) {
        session.LogOut();
        isStopped = Hears("c");
        dialog.reject();
    });
    test_->window.Documents().SaveDocumentAs();
    QVERIFY(isStopped);
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(test_->window.File().IsChanged());
    QVERIFY(Hears("d"));
}

void tst_sessionend::logoutThatMustNotAskAsksNothing()
{
    Write(QStringLiteral("text"));
    session.LogOut(false);
    QVERIFY(Hears("d"));
    QVERIFY(test_->robot.Boxes().isEmpty());
    QVERIFY(test_->window.File().IsChanged());
}

void tst_sessionend::programEndsWithTheSession()
{
    session.LogOut();
    QVERIFY(Hears("d"));
    QVERIFY(EndsProgram([] { session.Die(); }));
    QVERIFY(!test_->window.isVisible());
}

void tst_sessionend::startedProgramIsAskedToo()
{
    guard_.reset();
    RecordingDesktop desktop;
    Startup startup(test_->folder.imgMap, test_->folder.map, desktop);
    startup.Begin();
    frmIMmain* started = nullptr;
    QVERIFY(QTest::qWaitFor(
        [this, &started] {
            for (QWidget* const window : QApplication::topLevelWidgets()) {
                auto* const main = qobject_cast<frmIMmain*>(window);
                started = main != nullptr && main != &test_->window && main->isVisible() ? main : started;
            }
            return started != nullptr;
        },
        patience));
    started->Page().InsertAtCaret(QStringLiteral("text"));
    test_->robot.AnswerBox(QMessageBox::Cancel);
    session.LogOut();
    QVERIFY(Hears("c"));
    QVERIFY(started->File().IsChanged());
    QVERIFY(Hears("d"));
}

int main(int argc, char* argv[])
{
    XServer server;
    hasSession = server.Start() && session.Start();
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    tst_sessionend test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_sessionend.moc"
