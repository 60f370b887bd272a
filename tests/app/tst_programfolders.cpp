#include "app/Desktop.h"
#include "tests/faults/Rights.h"
#include "tests/support/ProgramFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTest>
#include <memory>
#include <sys/stat.h>

namespace {

/** The permissions of a file or folder as chmod takes them; 0 when there is none. */
unsigned ModeOf(const QString& path)
{
    struct stat state
    {
    };
    return stat(QFile::encodeName(path).constData(), &state) == 0 ? state.st_mode & 07777U : 0U;
}

} // namespace

/** Where the program finds its folders. `folder_` is the root of a small system, with a home in it. */
class tst_programfolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void programIsPortableWhereItIsNotInstalled_data();
    void programIsPortableWhereItIsNotInstalled();
    void eachUserOfAnInstalledProgramHasAFolder_data();
    void eachUserOfAnInstalledProgramHasAFolder();
    void usersFolderIsForTheUserAlone();
    void secondStartLeavesAllAsItIs();
    void foldersThatAreLostAreMadeAnew();
    void folderThatCannotBeMadeIsNamedAllTheSame();

private:
    [[nodiscard]] QString Path(const QString& name) const { return folder_->Path(name); }
    static void Make(const QString& folder) { QVERIFY(QDir().mkpath(folder)); }

    std::unique_ptr<ProgramFolder> folder_;
    QByteArray oldHome_;
    QByteArray oldDataHome_;
    bool hadDataHome_ = false;
};

void tst_programfolders::init()
{
    folder_ = std::make_unique<ProgramFolder>();
    oldHome_ = qgetenv("HOME");
    hadDataHome_ = qEnvironmentVariableIsSet("XDG_DATA_HOME");
    oldDataHome_ = qgetenv("XDG_DATA_HOME");
    Make(Path(QStringLiteral("usr/bin")));
    Make(Path(QStringLiteral("usr/share/cartolen")));
    Make(Path(QStringLiteral("home")));
    qputenv("HOME", QFile::encodeName(Path(QStringLiteral("home"))));
    qunsetenv("XDG_DATA_HOME");
}

void tst_programfolders::cleanup()
{
    qputenv("HOME", oldHome_);
    hadDataHome_ ? qputenv("XDG_DATA_HOME", oldDataHome_) : qunsetenv("XDG_DATA_HOME");
    folder_.reset();
}

void tst_programfolders::programIsPortableWhereItIsNotInstalled_data()
{
    QTest::addColumn<QString>("executableFolder");
    QTest::addColumn<QString>("made");
    const auto row = [](const char* title, const char* executableFolder, const char* made) {
        QTest::newRow(title) << QString::fromLatin1(executableFolder) << QString::fromLatin1(made);
    };
    row("folder of its own", "Cartolen", "Cartolen/Data");
    row("folder without its Data", "Cartolen", "Cartolen");
    row("nothing shared beside bin", "opt/bin", "opt/bin");
    row("not in bin", "usr/games", "usr/games");
    row("below bin", "usr/bin/Cartolen", "usr/bin/Cartolen");
    row("Data beside the program in bin", "usr/bin", "usr/bin/Data");
}

void tst_programfolders::programIsPortableWhereItIsNotInstalled()
{
    QFETCH(const QString, executableFolder);
    QFETCH(const QString, made);
    Make(Path(made));
    const QStringList before = QDir(Path(executableFolder)).entryList();
    const ProgramFolders folders = PrepareProgramFolders(Path(executableFolder));
    QCOMPARE(folders.Own, Path(executableFolder));
    QCOMPARE(folders.Help, Path(executableFolder));
    QCOMPARE(QDir(Path(executableFolder)).entryList(), before);
    QVERIFY(QDir(Path(QStringLiteral("home"))).isEmpty());
}

void tst_programfolders::eachUserOfAnInstalledProgramHasAFolder_data()
{
    QTest::addColumn<QString>("dataHome"); // % stands for the root
    QTest::addColumn<QString>("own");
    const auto row = [](const char* title, const char* dataHome, const char* own) {
        QTest::newRow(title) << QString::fromLatin1(dataHome) << QString::fromLatin1(own);
    };
    row("XDG_DATA_HOME not set", nullptr, "home/.local/share/cartolen");
    row("XDG_DATA_HOME empty", "", "home/.local/share/cartolen");
    row("XDG_DATA_HOME", "%/data", "data/cartolen");
    row("XDG_DATA_HOME with a slash at its end", "%/data/", "data/cartolen");
    row("XDG_DATA_HOME in a folder that is not there", "%/a/b", "a/b/cartolen");
    row("XDG_DATA_HOME relative", "data", "home/.local/share/cartolen");
    row("XDG_DATA_HOME relative to here", "./data", "home/.local/share/cartolen");
}

void tst_programfolders::eachUserOfAnInstalledProgramHasAFolder()
{
    QFETCH(QString, dataHome);
    QFETCH(const QString, own);
    if (!dataHome.isNull()) {
        qputenv("XDG_DATA_HOME", QFile::encodeName(dataHome.replace(u'%', Path(QString()))));
    }
    const ProgramFolders folders = PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    QCOMPARE(folders.Own, Path(own));
    QCOMPARE(folders.Help, Path(QStringLiteral("usr/share/cartolen")));
    QVERIFY(QFileInfo(folders.Own + u"/Data").isDir());
    QVERIFY(QFileInfo(folders.Own + u"/Temp").isDir());
    QCOMPARE(QFileInfo::exists(Path(QStringLiteral("data"))), own.startsWith(u"data"));
    QVERIFY(QDir(Path(QStringLiteral("usr/bin"))).isEmpty());
}

void tst_programfolders::usersFolderIsForTheUserAlone()
{
    QVERIFY(SetMode(Path(QStringLiteral("home")), 0755));
    const ProgramFolders folders = PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    for (const char* const made : { "/..", "", "/Data", "/Temp" }) {
        QCOMPARE(ModeOf(folders.Own + QString::fromLatin1(made)), 0700U);
    }
    QCOMPARE(ModeOf(Path(QStringLiteral("home"))), 0755U);
}

void tst_programfolders::secondStartLeavesAllAsItIs()
{
    const ProgramFolders first = PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    const QString links = first.Own + QStringLiteral("/Data/Links.dra");
    QVERIFY(QFile(links).open(QIODevice::WriteOnly));
    QVERIFY(SetMode(first.Own, 0750));
    const ProgramFolders second = PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    QCOMPARE(second.Own, first.Own);
    QVERIFY(QFile::exists(links));
    QCOMPARE(ModeOf(first.Own), 0750U);
}

void tst_programfolders::foldersThatAreLostAreMadeAnew()
{
    const ProgramFolders folders = PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    QVERIFY(QDir().rmdir(folders.Own + QStringLiteral("/Temp")));
    (void)PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    QVERIFY(QFileInfo(folders.Own + u"/Temp").isDir());
}

void tst_programfolders::folderThatCannotBeMadeIsNamedAllTheSame()
{
    QVERIFY(SetMode(Path(QString()), 0755));
    QVERIFY(SetMode(Path(QStringLiteral("home")), 0555));
    const OrdinaryRights rights;
    const ProgramFolders folders = PrepareProgramFolders(Path(QStringLiteral("usr/bin")));
    QCOMPARE(folders.Own, Path(QStringLiteral("home/.local/share/cartolen")));
    QCOMPARE(folders.Help, Path(QStringLiteral("usr/share/cartolen")));
    QVERIFY(QDir(Path(QStringLiteral("home"))).isEmpty());
}

QTEST_GUILESS_MAIN(tst_programfolders)
#include "tst_programfolders.moc"
