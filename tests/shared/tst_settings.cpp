#include "shared/Settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <memory>

namespace {

constexpr FlagSetting flag{ "Test/Flag", false };
constexpr FlagSetting usualFlag{ "Test/UsualFlag", true };
constexpr NumberSetting number{ "Test/Number", 3, 1, 9 };
constexpr ListSetting list{ "Other/List", 3 };

} // namespace

class tst_settings : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void withoutAFileEveryValueIsItsDefault();
    void fileIsWrittenOnlyOnceAValueChanges();
    void valuesComeBackAtTheNextStart();
    void listsComeBackTextForText_data();
    void listsComeBackTextForText();
    void limitsHoldForWhatIsKept();
    void valueThatCannotBeUnderstoodIsTheDefault_data();
    void valueThatCannotBeUnderstoodIsTheDefault();
    void valuesOfOtherVersionsStay();
    void programsThatRunAtOnceKeepEachOthersValues();
    void brokenFileIsReadAsFarAsPossibleAndKeptBeside();
    void folderThatIsMissingIsMade();
    void whereNothingCanBeWrittenValuesHoldUntilTheEnd_data();
    void whereNothingCanBeWrittenValuesHoldUntilTheEnd();
    void withoutAFolderNothingIsWritten();

private:
    [[nodiscard]] QString Path() const { return folder_->filePath(QStringLiteral("Data/Settings.ini")); }
    [[nodiscard]] Settings Opened() const;
    void WriteFile(const QByteArray& bytes) const;
    [[nodiscard]] QByteArray FileBytes(const QString& path) const;

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_settings::init()
{
    folder_ = std::make_unique<QTemporaryDir>();
    QVERIFY(QDir(folder_->path()).mkdir(QStringLiteral("Data")));
}

Settings tst_settings::Opened() const
{
    Settings settings;
    settings.Open(folder_->path());
    return settings;
}

void tst_settings::WriteFile(const QByteArray& bytes) const
{
    QFile file(Path());
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QByteArray tst_settings::FileBytes(const QString& path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

void tst_settings::withoutAFileEveryValueIsItsDefault()
{
    const Settings settings = Opened();
    QCOMPARE(settings.Value(flag), false);
    QCOMPARE(settings.Value(usualFlag), true);
    QCOMPARE(settings.Value(number), 3);
    QCOMPARE(settings.Value(list), QStringList());
    QVERIFY(!QFile::exists(Path()));
}

void tst_settings::fileIsWrittenOnlyOnceAValueChanges()
{
    Settings settings = Opened();
    settings.Keep(flag, false);
    settings.Keep(usualFlag, true);
    settings.Keep(number, 3);
    settings.Keep(list, {});
    QCOMPARE(
        QDir(folder_->filePath(QStringLiteral("Data"))).entryList(QDir::NoDotAndDotDot | QDir::AllEntries),
        QStringList());
    settings.Keep(flag, true);
    QVERIFY(QFile::exists(Path()));
    QCOMPARE(settings.Value(flag), true);
}

void tst_settings::valuesComeBackAtTheNextStart()
{
    {
        Settings settings = Opened();
        settings.Keep(flag, true);
        settings.Keep(usualFlag, false);
        settings.Keep(number, 9);
    }
    Settings settings = Opened();
    QCOMPARE(settings.Value(flag), true);
    QCOMPARE(settings.Value(usualFlag), false);
    QCOMPARE(settings.Value(number), 9);
    settings.Keep(flag, false);
    QCOMPARE(Opened().Value(flag), false);
    QCOMPARE(Opened().Value(number), 9);
}

void tst_settings::listsComeBackTextForText_data()
{
    QTest::addColumn<QStringList>("values");
    QTest::newRow("none") << QStringList();
    QTest::newRow("one") << QStringList{ "C:\\Pages\\new\\index.htm" };
    QTest::newRow("punctuation") << QStringList{ "a, b", "\"c\"; d=e", "[f] @g%20" };
    QTest::newRow("beyond ASCII") << QStringList{ QStringLiteral("/home/ä/日本.html"),
                                                  QStringLiteral("\u00A0\U0001F600") };
    QTest::newRow("blanks") << QStringList{ " a ", "", "  " };
    QTest::newRow("like other values") << QStringList{ "true", "@Invalid()", "12" };
}

void tst_settings::listsComeBackTextForText()
{
    QFETCH(const QStringList, values);
    Settings before = Opened();
    before.Keep(list, { QStringLiteral("something else") });
    before.Keep(list, values);
    QCOMPARE(before.Value(list), values);
    QCOMPARE(Opened().Value(list), values);
}

void tst_settings::limitsHoldForWhatIsKept()
{
    Settings settings = Opened();
    settings.Keep(number, 70);
    QCOMPARE(settings.Value(number), 9);
    settings.Keep(number, -70);
    QCOMPARE(settings.Value(number), 1);
    settings.Keep(list, { "a", "b", "c", "d" });
    QCOMPARE(Opened().Value(list), (QStringList{ "a", "b", "c" }));
}

void tst_settings::valueThatCannotBeUnderstoodIsTheDefault_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("empty file") << QByteArray();
    QTest::newRow("empty values") << QByteArray("[Test]\nFlag=\nUsualFlag=\nNumber=\n");
    QTest::newRow("words") << QByteArray("[Test]\nFlag=maybe\nUsualFlag=no\nNumber=many\n");
    QTest::newRow("numbers beyond the limits") << QByteArray("[Test]\nFlag=1\nUsualFlag=0\nNumber=10\n");
    QTest::newRow("number too large") << QByteArray("[Test]\nNumber=99999999999999999999\n");
    QTest::newRow("lists") << QByteArray("[Test]\nFlag=true, true\nUsualFlag=false, a\nNumber=4, 5\n");
    QTest::newRow("other kinds") << QByteArray("[Test]\nFlag=@Variant(\\0)\nNumber=@Rect(1 2 3 4)\n");
    QTest::newRow("another group") << QByteArray("[Else]\nFlag=true\nUsualFlag=false\nNumber=4\n");
    QTest::newRow("bytes of a picture") << QByteArrayLiteral("\x89PNG\r\n\x1a\n\0\0\0\rIHDR\0\xff\xfe[=]=\n");
}

void tst_settings::valueThatCannotBeUnderstoodIsTheDefault()
{
    QFETCH(const QByteArray, bytes);
    WriteFile(bytes);
    Settings settings = Opened();
    QCOMPARE(settings.Value(flag), false);
    QCOMPARE(settings.Value(usualFlag), true);
    QCOMPARE(settings.Value(number), 3);
    QCOMPARE(settings.Value(list), QStringList());
    QCOMPARE(FileBytes(Path()), bytes);
    settings.Keep(number, 4);
    QCOMPARE(Opened().Value(number), 4);
}

void tst_settings::valuesOfOtherVersionsStay()
{
    WriteFile("[Later]\nColour=#102030\n[Test]\nNumber=5\nUnknown=a, b\n");
    Opened().Keep(flag, true);
    const QByteArray bytes = FileBytes(Path());
    QVERIFY(bytes.contains("Colour=#102030"));
    QVERIFY(bytes.contains("Unknown=a, b"));
    QVERIFY(bytes.contains("Number=5"));
    QVERIFY(bytes.contains("Flag=true"));
}

void tst_settings::programsThatRunAtOnceKeepEachOthersValues()
{
    Settings first = Opened();
    Settings second = Opened();
    first.Keep(flag, true);
    second.Keep(number, 7);
    first.Keep(usualFlag, false);
    const Settings next = Opened();
    QCOMPARE(next.Value(flag), true);
    QCOMPARE(next.Value(number), 7);
    QCOMPARE(next.Value(usualFlag), false);
}

void tst_settings::brokenFileIsReadAsFarAsPossibleAndKeptBeside()
{
    const QByteArray bytes = "[Test]\nNumber=5\nthis line says nothing\nFlag=true\n";
    WriteFile(bytes);
    Settings settings = Opened();
    QCOMPARE(settings.Value(number), 5);
    QCOMPARE(settings.Value(flag), true);
    settings.Keep(number, 6);
    QCOMPARE(FileBytes(Path() + QStringLiteral(".broken")), bytes);
    QCOMPARE(Opened().Value(number), 6);
    QCOMPARE(Opened().Value(flag), true);
}

void tst_settings::folderThatIsMissingIsMade()
{
    QVERIFY(QDir(folder_->path()).rmdir(QStringLiteral("Data")));
    Opened().Keep(flag, true);
    QCOMPARE(Opened().Value(flag), true);
}

void tst_settings::whereNothingCanBeWrittenValuesHoldUntilTheEnd_data()
{
    QTest::addColumn<bool>("isFolderInTheWay");
    QTest::newRow("a folder in the file's place") << true;
    QTest::newRow("a file in the folder's place") << false;
}

void tst_settings::whereNothingCanBeWrittenValuesHoldUntilTheEnd()
{
    QFETCH(const bool, isFolderInTheWay);
    if (isFolderInTheWay) {
        QVERIFY(QDir().mkdir(Path()));
    } else {
        QVERIFY(QDir(folder_->path()).rmdir(QStringLiteral("Data")));
        QFile file(folder_->filePath(QStringLiteral("Data")));
        QVERIFY(file.open(QIODevice::WriteOnly));
    }
    Settings settings = Opened();
    settings.Keep(flag, true);
    settings.Keep(number, 4);
    QCOMPARE(settings.Value(flag), true);
    QCOMPARE(settings.Value(number), 4);
    QCOMPARE(Opened().Value(flag), false);
    QCOMPARE(QDir(folder_->path()).entryList(QDir::NoDotAndDotDot | QDir::AllEntries), QStringList{ "Data" });
}

void tst_settings::withoutAFolderNothingIsWritten()
{
    Settings settings;
    settings.Keep(flag, true);
    QCOMPARE(settings.Value(flag), true);
    QVERIFY(!QFile::exists(Path()));
}

QTEST_GUILESS_MAIN(tst_settings)

#include "tst_settings.moc"
