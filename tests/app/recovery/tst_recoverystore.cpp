// The folder of what is not saved: who writes to it, who is offered what is in it.

#include "app/recovery/RecoveryStore.h"
#include "tests/app/recovery/Copies.h"

#include <QDir>
#include <QLockFile>
#include <QTemporaryDir>
#include <QTest>

class tst_recoverystore : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void nothingIsWrittenWhileNothingIsKept();
    void whatIsKeptIsThereUntilItIsDropped();
    void whatARunningProgramKeepsIsNotOffered();
    void whatIsLeftBehindIsOfferedOnce();
    void whatIsKeptAtTheEndIsOffered();
    void whatIsNotAnsweredIsOfferedAgain();
    void removedOneIsGone();
    void oneIsNotRemovedWhenItsSuccessorCouldNotBeWritten();
    void twoRunningProgramsLeaveEachOtherAlone();
    void lockOfAProcessWithTheSameNumberIsNone();
    void tornAndForeignFilesArePassedOverAndStay();
    void beginningOfAFirstCopyIsSweptAway();

private:
    [[nodiscard]] QStringList Files() const;
    [[nodiscard]] QString Kept(const char* ending) const;
    /** Keeps a page as a program that is gone. */
    void LeaveBehind(const PageCopy& page = SomePage()) const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_recoverystore::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("Data")));
}

void tst_recoverystore::cleanup()
{
    folder_.reset();
}

QStringList tst_recoverystore::Files() const
{
    return QDir(folder_->filePath(QStringLiteral("Data/Recovery")))
        .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot);
}

/** The path of the one file that ends so. */
QString tst_recoverystore::Kept(const char* ending) const
{
    const QStringList files = Files().filter(QLatin1String(ending));
    return files.size() == 1 ? folder_->filePath(u"Data/Recovery/" + files.constFirst()) : QString();
}

void tst_recoverystore::LeaveBehind(const PageCopy& page) const
{
    RecoveryStore store(folder_->path());
    store.Keep(page);
}

void tst_recoverystore::nothingIsWrittenWhileNothingIsKept()
{
    {
        RecoveryStore store(folder_->path());
        QVERIFY(store.TakeLeftBehind().isEmpty());
        store.DropPage();
        store.DropMap();
        store.End();
    }
    QVERIFY(QDir(folder_->filePath(QStringLiteral("Data"))).isEmpty());
}

void tst_recoverystore::whatIsKeptIsThereUntilItIsDropped()
{
    RecoveryStore store(folder_->path());
    store.Keep(SomePage());
    store.Keep(SomeMap());
    store.Wait();
    QVERIFY(!store.IsBusy());
    QVERIFY(store.IsKept());
    QVERIFY(ReadPageCopy(Kept(".page")) == SomePage());
    QVERIFY(ReadMapCopy(Kept(".map")) == SomeMap());
    QCOMPARE(Files().size(), 3);

    PageCopy page = SomePage();
    page.Pieces = QStringList{ QStringLiteral("other") };
    store.Keep(page);
    store.Wait();
    QVERIFY(ReadPageCopy(Kept(".page")) == page);
    store.DropPage();
    store.Wait();
    QCOMPARE(Kept(".page"), QString());
    QVERIFY(ReadMapCopy(Kept(".map")) == SomeMap());
    store.DropMap();
    store.Wait();
    QVERIFY(!QFile::exists(folder_->filePath(QStringLiteral("Data/Recovery"))));
}

void tst_recoverystore::whatARunningProgramKeepsIsNotOffered()
{
    RecoveryStore running(folder_->path());
    running.Keep(SomePage());
    running.Wait();
    RecoveryStore other(folder_->path());
    QVERIFY(other.TakeLeftBehind().isEmpty());
    QVERIFY(running.TakeLeftBehind().isEmpty());
    QVERIFY(ReadPageCopy(Kept(".page")));
}

void tst_recoverystore::whatIsLeftBehindIsOfferedOnce()
{
    LeaveBehind();
    RecoveryStore first(folder_->path());
    const QList<LeftBehind> left = first.TakeLeftBehind();
    QCOMPARE(left.size(), 1);
    QVERIFY(left.constFirst().Page == SomePage());
    QVERIFY(!left.constFirst().Map);
    RecoveryStore second(folder_->path());
    QVERIFY(second.TakeLeftBehind().isEmpty());
}

void tst_recoverystore::whatIsKeptAtTheEndIsOffered()
{
    {
        RecoveryStore store(folder_->path());
        store.Keep(SomeMap());
        store.End();
        QCOMPARE(Files().size(), 1);
        RecoveryStore other(folder_->path());
        const QList<LeftBehind> left = other.TakeLeftBehind();
        QCOMPARE(left.size(), 1);
        QVERIFY(left.constFirst().Map == SomeMap());
    }
    QCOMPARE(Files().size(), 1);
}

void tst_recoverystore::whatIsNotAnsweredIsOfferedAgain()
{
    LeaveBehind();
    PageCopy other = SomePage();
    other.Document.Name = QStringLiteral("other.htm");
    LeaveBehind(other);
    for (int start = 0; start < 3; ++start) {
        RecoveryStore store(folder_->path());
        QCOMPARE(store.TakeLeftBehind().size(), 2);
    }
}

void tst_recoverystore::removedOneIsGone()
{
    LeaveBehind();
    QVERIFY(WriteFile(Kept(".page") + u".XyZabc", "beginning of another"));
    RecoveryStore store(folder_->path());
    store.Remove(store.TakeLeftBehind().constFirst());
    store.Wait();
    QVERIFY(!QFile::exists(folder_->filePath(QStringLiteral("Data/Recovery"))));
    QVERIFY(store.TakeLeftBehind().isEmpty());
}

void tst_recoverystore::oneIsNotRemovedWhenItsSuccessorCouldNotBeWritten()
{
    LeaveBehind();
    RecoveryStore store(folder_->path());
    const QList<LeftBehind> left = store.TakeLeftBehind();
    store.Keep(SomePage());
    store.Wait();
    // Something is in the way of the next copy.
    QString own;
    for (const QString& name : Files().filter(QStringLiteral(".page"))) {
        own = name.startsWith(left.constFirst().Id) ? own : name;
    }
    const QString path = folder_->filePath(u"Data/Recovery/" + own);
    QVERIFY(QFile::remove(path) && QDir().mkdir(path));
    store.Keep(SomePage());
    store.Remove(left.constFirst());
    store.Wait();
    QVERIFY(!store.IsKept());
    QVERIFY(ReadPageCopy(folder_->filePath(u"Data/Recovery/" + left.constFirst().Id + u".page")));
}

void tst_recoverystore::twoRunningProgramsLeaveEachOtherAlone()
{
    RecoveryStore first(folder_->path());
    RecoveryStore second(folder_->path());
    PageCopy other = SomePage();
    other.Document.Name = QStringLiteral("other.htm");
    first.Keep(SomePage());
    second.Keep(other);
    first.Wait();
    second.Wait();
    QCOMPARE(Files().filter(QStringLiteral(".page")).size(), 2);
    first.DropPage();
    first.End();
    QVERIFY(ReadPageCopy(Kept(".page")) == other);
    first.Keep(SomePage());
    first.Wait();
    QCOMPARE(Files().filter(QStringLiteral(".page")).size(), 2);
}

void tst_recoverystore::lockOfAProcessWithTheSameNumberIsNone()
{
    LeaveBehind();
    const QString lockPath = Kept(".page").chopped(5) + u".lock";
    {
        QLockFile lock(lockPath);
        QVERIFY(lock.tryLock(0));
        QVERIFY(QFile::copy(lockPath, lockPath + u".copy"));
    }
    // As a program leaves it that was killed, with the number that this one has.
    QVERIFY(QFile::rename(lockPath + u".copy", lockPath));
    RecoveryStore store(folder_->path());
    QCOMPARE(store.TakeLeftBehind().size(), 1);
}

void tst_recoverystore::tornAndForeignFilesArePassedOverAndStay()
{
    LeaveBehind();
    const QString path = Kept(".page");
    const QByteArray torn = BytesOfFile(path).chopped(1);
    QVERIFY(WriteFile(path, torn));
    QVERIFY(WriteFile(folder_->filePath(QStringLiteral("Data/Recovery/notes.page")), "mine"));
    RecoveryStore store(folder_->path());
    QVERIFY(store.TakeLeftBehind().isEmpty());
    QCOMPARE(BytesOfFile(path), torn);
    QCOMPARE(Files().size(), 2);
}

void tst_recoverystore::beginningOfAFirstCopyIsSweptAway()
{
    LeaveBehind();
    const QString path = Kept(".page");
    QVERIFY(QFile::rename(path, path + u".XyZabc"));
    RecoveryStore store(folder_->path());
    QVERIFY(store.TakeLeftBehind().isEmpty());
    QVERIFY(!QFile::exists(folder_->filePath(QStringLiteral("Data/Recovery"))));
}

QTEST_GUILESS_MAIN(tst_recoverystore)
#include "tst_recoverystore.moc"
