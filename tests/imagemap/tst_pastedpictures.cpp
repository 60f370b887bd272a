#include "imagemap/PastedPictures.h"
#include "tests/support/ProgramFolder.h"

#include <QFile>
#include <QTest>
#include <memory>

namespace {

/** The number of a process that there is not. */
constexpr const char* lockOfTheDead = "2147483646\ncartolen\n\n";

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

} // namespace

/** Pasted pictures stay while anybody needs them, and no longer. */
class tst_pastedpictures : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void eachHasAFileOfItsOwn();
    void theyGoAtTheEnd();
    void whatIsNeededStays();
    void whatAPageNamesStays();
    void anotherRunningProgramKeepsItsOwn();
    void whatAnotherShowsTooStaysUntilBothHaveEnded();
    void leftoversGo_data();
    void leftoversGo();
    void otherFilesStay();
    void withoutAFolderThereIsNoPath();

private:
    [[nodiscard]] PastedPictures& Of(MapDocument& map) const
    {
        return PastedPictures::Of(map, folder_->imgMap.ProgramFolder);
    }
    [[nodiscard]] QString Pasted(MapDocument& map) const
    {
        const QString path = Of(map).FreePath();
        return WriteFile(path, "picture") ? path : QString();
    }
    [[nodiscard]] QStringList Files() const
    {
        return QDir(folder_->Path("Temp")).entryList(QDir::Files | QDir::Hidden);
    }

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<MapDocument> other_; ///< of another program
};

void tst_pastedpictures::init()
{
    folder_ = std::make_unique<ProgramFolder>();
    other_ = std::make_unique<MapDocument>();
}

void tst_pastedpictures::cleanup()
{
    other_.reset();
    folder_.reset();
}

void tst_pastedpictures::eachHasAFileOfItsOwn()
{
    const QString first = Of(folder_->map).FreePath();
    QCOMPARE(first, folder_->Path("Temp/Pasted001.png"));
    // Nothing has been written yet.
    QCOMPARE(Of(*other_).FreePath(), folder_->Path("Temp/Pasted002.png"));
    QVERIFY(Of(folder_->map).Contains(first));
    QVERIFY(!Of(folder_->map).Contains(folder_->Path("Pasted001.png")));
    QVERIFY(!Of(folder_->map).Contains(folder_->Path("Temp/other.png")));
}

void tst_pastedpictures::theyGoAtTheEnd()
{
    QVERIFY(!Pasted(folder_->map).isEmpty());
    QVERIFY(!Pasted(folder_->map).isEmpty());
    Of(folder_->map).End({});
    QCOMPARE(Files(), QStringList());
}

void tst_pastedpictures::whatIsNeededStays()
{
    const QString first = Pasted(folder_->map);
    QVERIFY(!Pasted(folder_->map).isEmpty());
    Of(folder_->map).End({ first, folder_->Path("picture.jpg") });
    QCOMPARE(Files(), QStringList{ "Pasted001.png" });
    Of(*other_).End({});
    QCOMPARE(Files(), QStringList());
}

void tst_pastedpictures::whatAPageNamesStays()
{
    const QString first = Pasted(folder_->map);
    Of(folder_->map).KeepForGood(first);
    Of(folder_->map).KeepForGood(folder_->Path("picture.jpg"));
    Of(folder_->map).End({});
    Of(*other_).End({});
    QVERIFY(QFile::exists(first));
    QVERIFY(!Files().contains("Pasted001.lock"));
    QVERIFY(!QFile::exists(folder_->Path("picture.kept")));
}

void tst_pastedpictures::anotherRunningProgramKeepsItsOwn()
{
    const QString first = Pasted(folder_->map);
    Of(*other_).End({});
    QVERIFY(QFile::exists(first));
    Of(folder_->map).End({});
    QCOMPARE(Files(), QStringList());
}

void tst_pastedpictures::whatAnotherShowsTooStaysUntilBothHaveEnded()
{
    const QString left = folder_->Path("Temp/Pasted004.png");
    QVERIFY(WriteFile(left, "picture"));
    Of(*other_).Hold(left);
    Of(*other_).Hold(left);
    Of(*other_).Hold(folder_->Path("picture.jpg"));
    Of(folder_->map).End({});
    QVERIFY(QFile::exists(left));
    QVERIFY(!QFile::exists(folder_->Path("picture.lock")));
    Of(*other_).End({});
    QCOMPARE(Files(), QStringList());
}

void tst_pastedpictures::leftoversGo_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::newRow("picture") << QStringList{ "Pasted007.png" };
    QTest::newRow("picture and lock") << QStringList{ "Pasted007.png", "Pasted007.lock" };
    QTest::newRow("lock") << QStringList{ "Pasted007.lock" };
}

void tst_pastedpictures::leftoversGo()
{
    QFETCH(const QStringList, names);
    for (const QString& name : names) {
        QVERIFY(WriteFile(folder_->Path("Temp/" + name), lockOfTheDead));
    }
    QVERIFY(Of(folder_->map).AreThereAny());
    Of(folder_->map).End({});
    QCOMPARE(Files(), QStringList());
    QVERIFY(!Of(folder_->map).AreThereAny());
}

void tst_pastedpictures::otherFilesStay()
{
    const QStringList names = { "Pasted by me.png", "Pasted.txt", "picture.png", "preview.htm" };
    for (const QString& name : names) {
        QVERIFY(WriteFile(folder_->Path("Temp/" + name), "kept"));
    }
    QVERIFY(!Of(folder_->map).AreThereAny());
    Of(folder_->map).End({});
    QCOMPARE(Files(), names);
}

void tst_pastedpictures::withoutAFolderThereIsNoPath()
{
    QVERIFY(QDir(folder_->Path("Temp")).removeRecursively());
    QCOMPARE(Of(folder_->map).FreePath(), QString());
    Of(folder_->map).End({});
    QVERIFY(!QFile::exists(folder_->Path("Temp")));
}

QTEST_MAIN(tst_pastedpictures)
#include "tst_pastedpictures.moc"
