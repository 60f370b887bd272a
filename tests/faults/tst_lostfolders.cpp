// The program's own folders and files are gone, are something else, or must not be read.

#include "tests/support/WidgetDriving.h"

#include "imagemap/frmImageMap.h"
#include "tests/app/MainWindowFixture.h"
#include "tests/faults/Rights.h"

#include <QDialogButtonBox>
#include <QFileDialog>
#include <QListWidget>
#include <memory>

namespace {

constexpr const char* damagedLinks = "File Links.dra is either damaged or missing !";

} // namespace

class tst_lostfolders : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dataFolderThatIsAFileIsTold();
    void dataFolderThatGoesTakesNoLinks();
    void unreadableLinksAreToldAndKept();
    void writeProtectedLinksAreReadAndKept();
    void tempFolderThatIsAFileIsTold_data();
    void tempFolderThatIsAFileIsTold();
    void programFolderThatGoesLeavesTheProgramUsable();
    void pictureRemovedBeforeItIsLoadedLeavesAnEmptySurface();

private:
    [[nodiscard]] QString Path(const char* name) const
    {
        return test_->folder.Path(QString::fromLatin1(name));
    }
    void Start(const QString& told = {});
    void AddLink(const char* link);

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_lostfolders::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    test_->robot.Hurry();
}

void tst_lostfolders::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
}

/** Starts the window, which tells `told` at first. */
void tst_lostfolders::Start(const QString& told)
{
    if (!told.isEmpty()) {
        test_->robot.AnswerBox(QMessageBox::Ok);
    }
    QVERIFY(test_->Start());
    QCOMPARE(test_->robot.Boxes().size(), told.isEmpty() ? 0 : 1);
    QVERIFY(told.isEmpty() || test_->robot.Boxes().constFirst().text == told);
    test_->robot.Forget();
}

/** Adds a link to the list and saves the list. */
void tst_lostfolders::AddLink(const char* link)
{
    Find<QTabWidget>(&test_->window, "SSTab1")->setCurrentIndex(1);
    TypeIn(&test_->window, "txtCTags", link);
    ClickIn(&test_->window, "btnAdd");
    ClickIn(&test_->window, "btnSave");
}

void tst_lostfolders::dataFolderThatIsAFileIsTold()
{
    QVERIFY(QDir().rmdir(Path("Data")));
    QVERIFY(WriteBytes(Path("Data"), "a file"));
    Start(QString::fromLatin1(damagedLinks));
    AddLink("one.htm");
    QCOMPARE(BytesOf(Path("Data")), QByteArray("a file"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QCOMPARE(Find<QListWidget>(&test_->window, "ListView1")->count(), 1);
}

void tst_lostfolders::dataFolderThatGoesTakesNoLinks()
{
    Start();
    QVERIFY(QDir(Path("Data")).removeRecursively());
    AddLink("one.htm");
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(!QFile::exists(Path("Data")));
    // The next save finds the folder again.
    QVERIFY(QDir().mkdir(Path("Data")));
    ClickIn(&test_->window, "btnSave");
    QVERIFY(BytesOf(Path("Data/Links.dra")).startsWith("one.htm "));
}

void tst_lostfolders::unreadableLinksAreToldAndKept()
{
    const QByteArray links(276, 'l');
    QVERIFY(SetMode(test_->folder.imgMap.ProgramFolder, 0777) && SetMode(Path("Data"), 0777));
    QVERIFY(WriteBytes(Path("Data/Links.dra"), links));
    QVERIFY(SetMode(Path("Data/Links.dra"), 0));
    {
        const OrdinaryRights rights;
        Start(QString::fromLatin1(damagedLinks));
        AddLink("one.htm");
    }
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(SetMode(Path("Data/Links.dra"), 0600));
    QCOMPARE(BytesOf(Path("Data/Links.dra")), links);
}

void tst_lostfolders::writeProtectedLinksAreReadAndKept()
{
    Start();
    AddLink("one.htm");
    const QByteArray links = BytesOf(Path("Data/Links.dra"));
    QVERIFY(SetMode(test_->folder.imgMap.ProgramFolder, 0755) && SetMode(Path("Data"), 0555));
    QVERIFY(SetMode(Path("Data/Links.dra"), 0444));
    {
        const OrdinaryRights rights;
        RecordingDesktop desktop;
        frmIMmain other(test_->folder.imgMap, test_->folder.map, desktop);
        other.Form_Load();
        QCOMPARE(Find<QListWidget>(&other, "ListView1")->count(), 1);
        AddLink("two.htm");
    }
    QVERIFY(SetMode(Path("Data"), 0755));
    QCOMPARE(BytesOf(Path("Data/Links.dra")), links);
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_lostfolders::tempFolderThatIsAFileIsTold_data()
{
    QTest::addColumn<bool>("isFile");
    QTest::newRow("gone") << false;
    QTest::newRow("a file") << true;
}

void tst_lostfolders::tempFolderThatIsAFileIsTold()
{
    QFETCH(const bool, isFile);
    Start();
    QVERIFY(QDir().rmdir(Path("Temp")));
    QVERIFY(!isFile || WriteBytes(Path("Temp"), "a file"));
    test_->desktop.Code = 2;
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Press(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes().at(0).icon, QMessageBox::Warning);
    QCOMPARE(test_->robot.Boxes().at(1).text, QStringLiteral("File not found"));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QCOMPARE(QFile::exists(Path("Temp")), isFile);
}

void tst_lostfolders::programFolderThatGoesLeavesTheProgramUsable()
{
    const QTemporaryDir elsewhere;
    const QString page = elsewhere.filePath(QStringLiteral("page.htm"));
    QVERIFY(WriteBytes(page, "old"));
    Start();
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).removeRecursively());
    test_->Open(page);
    QCOMPARE(test_->DocumentName(), page);
    test_->Type("x");
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QCOMPARE(BytesOf(page), QByteArray("xold\r\n"));
    QCOMPARE(test_->robot.Boxes().size(), 0);
    QVERIFY(!QFile::exists(test_->folder.imgMap.ProgramFolder));
}

void tst_lostfolders::pictureRemovedBeforeItIsLoadedLeavesAnEmptySurface()
{
    Start();
    const QString gone = Path("gone.jpg");
    QVERIFY(QFile::copy(QStringLiteral(CARTOLEN_PICTURE), gone));
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    auto* const editor = test_->window.findChild<frmImageMap*>();
    QVERIFY(QTest::qWaitForWindowActive(editor));
    const auto clickOpen = [editor] {
        auto* const toolbar = Find<QToolBar>(editor, "Toolbar1");
        Click(toolbar->widgetForAction(toolbar->actions().at(2)));
    };
    test_->robot.Act([gone](QDialog& dialog) {
        QObject::connect(&dialog, &QDialog::accepted, &dialog, [gone] { QFile::remove(gone); });
        dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(gone);
        Click(dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open));
    });
    clickOpen();
    QVERIFY(!QFile::exists(gone));
    auto* const surface = Find<QWidget>(editor, "PictureDisplay");
    QCOMPARE(surface->size(), QSize(0, 0));
    QCOMPARE(test_->robot.Boxes().size(), 0);
    test_->robot.ChooseFile(QStringLiteral(CARTOLEN_PICTURE));
    clickOpen();
    QVERIFY(surface->width() > 0);
}

QTEST_MAIN(tst_lostfolders)
#include "tst_lostfolders.moc"
