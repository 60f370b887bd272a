// The panel follows the keyboard's real lock, on a screen of its own.

#include "tests/app/MainWindowFixture.h"
#include "tests/faults/XServer.h"

#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <QTreeWidget>
#include <memory>

namespace {

bool hasScreen = false;

/** Does with the keyboard's keys what a hand would; whether it could. */
bool Keyboard(const QStringList& arguments)
{
    return QProcess::execute(QStringLiteral("xdotool"), arguments) == 0;
}

/** Takes the keys until it is ended. */
int BeAnotherProgram()
{
    QWidget window;
    window.show();
    window.activateWindow();
    return QApplication::exec();
}

bool PressCapsLock()
{
    return Keyboard({ QStringLiteral("key"), QStringLiteral("Caps_Lock") });
}

} // namespace

class tst_capslock : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void initTestCase();
    void init();
    void cleanup();

    void panelStartsAsTheLockIs_data();
    void panelStartsAsTheLockIs();
    void panelFollowsWhereverTheFocusIs_data();
    void panelFollowsWhereverTheFocusIs();
    void panelFollowsInTheOtherWindows();
    void panelFollowsWhatHappenedInAnotherProgram();

private:
    struct Program
    {
        ProgramFolder folder;
        std::unique_ptr<Desktop> desktop = MakeDesktop();
        frmIMmain window{ folder.imgMap, folder.map, *desktop };
    };
    void Start();
    [[nodiscard]] bool IsShown() const
    {
        return program_->window.findChild<QLabel*>(QStringLiteral("StatusBar1_Panel1"))->isEnabled();
    }

    std::unique_ptr<Program> program_;
    bool isLocked_ = false;
};

void tst_capslock::initTestCase()
{
    if (!hasScreen) {
        QSKIP("there is no Xvfb with a keyboard of its own");
    }
    if (QStandardPaths::findExecutable(QStringLiteral("xdotool")).isEmpty()) {
        QSKIP("there is no xdotool to press its keys");
    }
}

void tst_capslock::init()
{
    isLocked_ = false;
}

void tst_capslock::cleanup()
{
    program_.reset();
    if (isLocked_) {
        QVERIFY(PressCapsLock());
    }
}

void tst_capslock::Start()
{
    program_ = std::make_unique<Program>();
    program_->window.Form_Load();
    program_->window.show();
    program_->window.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&program_->window));
}

void tst_capslock::panelStartsAsTheLockIs_data()
{
    QTest::addColumn<bool>("isLocked");
    QTest::newRow("off") << false;
    QTest::newRow("on") << true;
}

void tst_capslock::panelStartsAsTheLockIs()
{
    QFETCH(const bool, isLocked);
    if (isLocked) {
        QVERIFY(PressCapsLock());
        isLocked_ = true;
    }
    Start();
    QCOMPARE(IsShown(), isLocked);
}

void tst_capslock::panelFollowsWhereverTheFocusIs_data()
{
    QTest::addColumn<QString>("control");
    for (const char* const name : { "MapsText1", "TreeView1", "txtCTags", "ListView1", "btnAdd", "SSTab1" }) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void tst_capslock::panelFollowsWhereverTheFocusIs()
{
    QFETCH(const QString, control);
    Start();
    auto* const widget = program_->window.findChild<QWidget*>(control);
    auto* const tabs = program_->window.findChild<QTabWidget*>(QStringLiteral("SSTab1"));
    tabs->setCurrentIndex(control == u"TreeView1" ? 0 : 1);
    widget->setFocus();
    QVERIFY(QApplication::focusWidget() != nullptr);
    QVERIFY(PressCapsLock());
    isLocked_ = true;
    QTRY_VERIFY(IsShown());
    QVERIFY(PressCapsLock());
    isLocked_ = false;
    QTRY_VERIFY(!IsShown());
}

void tst_capslock::panelFollowsInTheOtherWindows()
{
    Start();
    program_->window.OpenImageMapEditor();
    auto* const editor = program_->window.findChild<QWidget*>(QStringLiteral("frmImageMap"));
    QVERIFY(QTest::qWaitForWindowActive(editor));
    QVERIFY(PressCapsLock());
    isLocked_ = true;
    QTRY_VERIFY(IsShown());
}

void tst_capslock::panelFollowsWhatHappenedInAnotherProgram()
{
    Start();
    QProcess other;
    other.start(QCoreApplication::applicationFilePath(), { QStringLiteral("--other") });
    QTRY_VERIFY(QApplication::activeWindow() == nullptr);
    QVERIFY(PressCapsLock());
    isLocked_ = true;
    QVERIFY(!IsShown());
    other.kill();
    QVERIFY(other.waitForFinished());
    const QString id = QString::number(program_->window.winId());
    QVERIFY(Keyboard({ QStringLiteral("windowfocus"), id }));
    QVERIFY(QTest::qWaitForWindowActive(&program_->window));
    QTRY_VERIFY(IsShown());
}

int main(int argc, char* argv[])
{
    const bool isOther = argc > 1 && qstrcmp(argv[1], "--other") == 0;
    XServer server;
    hasScreen = isOther || server.Start();
    QApplication application(argc, argv);
    if (isOther) {
        return BeAnotherProgram();
    }
    tst_capslock test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_capslock.moc"
