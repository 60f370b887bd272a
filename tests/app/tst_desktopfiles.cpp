// Files that come from the desktop: named when the program is started, handed over by another start, dropped.

#include "tests/app/EncodingFixture.h"

#include "app/RunningProgram.h"
#include "app/Startup.h"
#include "imagemap/frmImageMap.h"

#include <QDropEvent>
#include <QMimeData>
#include <QProcess>
#include <QTreeView>
#include <QUrl>
#include <future>

class tst_desktopfiles : public EncodingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void pageAndPictureAreOpened();
    void openingAsksForChangesFirst();
    void textThatCannotBeSavedStays();
    void fileThatCannotBeOpenedIsTold();
    void openingAPictureAsksForTheMapFirst();
    void droppedFileIsOpened();
    void fileDroppedOnTheTextIsLeftToIt();
    void whatIsNoFileIsNotTaken();
    void pictureDroppedOnItsEditorIsOpened();
    void pageDroppedOnThePictureEditorIsOpened();
    void filesDroppedTogetherGoWhereTheyBelong();
    void whatIsNoFileIsNotTakenByThePictureEditor();
    void startedProgramOpensItsFilesWhenItIsUp();
    void filesAreHandedToARunningProgram();
    void anotherProgramTakesOver();
    void nobodyTakesFilesOfAnotherFolder();
    void secondStartWithAFileHandsItOver();

private:
    frmImageMap* ImageMapEditor() { return test_->window.findChild<frmImageMap*>(); }
    static QString Picture() { return QStringLiteral(CARTOLEN_PICTURE); }
    /** Whether `widget`, or a window that it is in, takes `paths` at its middle; and drops them there. */
    static bool Drop(QWidget& window, const QWidget& at, const QMimeData& data);
    static QMimeData* FilesAsDragged(const QStringList& paths);
    [[nodiscard]] std::future<bool> HandOver(const QStringList& files) const
    {
        return std::async(std::launch::async, [files, folder = test_->folder.imgMap.ProgramFolder] {
            return RunningProgram(folder).HandOver(files);
        });
    }
    static bool IsReady(const std::future<bool>& future)
    {
        return future.wait_for(std::chrono::seconds(0)) == std::future_status::ready;
    }
};

QMimeData* tst_desktopfiles::FilesAsDragged(const QStringList& paths)
{
    auto* const data = new QMimeData;
    QList<QUrl> urls;
    for (const QString& path : paths) {
        urls << QUrl::fromLocalFile(path);
    }
    data->setUrls(urls);
    return data;
}

bool tst_desktopfiles::Drop(QWidget& window, const QWidget& at, const QMimeData& data)
{
    const QPoint place = at.mapTo(&window, at.rect().center());
    QDragEnterEvent enter(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop(place, Qt::CopyAction | Qt::MoveAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    return enter.isAccepted() && drop.isAccepted() && drop.dropAction() == Qt::CopyAction;
}

void tst_desktopfiles::pageAndPictureAreOpened()
{
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    test_->window.OpenFiles({ Path("a.htm"), Picture() });
    QCOMPARE(test_->DocumentName(), Path("a.htm"));
    QCOMPARE(Editor()->Text(), QStringLiteral("page a"));
    QVERIFY(!IsChanged());
    QVERIFY(ImageMapEditor() != nullptr);
    QCOMPARE(test_->folder.map.Picture(), Picture());
    QVERIFY(::Find<QLabel>(ImageMapEditor(), "lblWidthPic")->text().toInt() > 0);
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_desktopfiles::openingAsksForChangesFirst()
{
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    test_->Type("mine");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    test_->window.OpenFiles({ Path("a.htm") });
    QCOMPARE(Editor()->Text(), QStringLiteral("mine"));
    test_->robot.AnswerBox(QMessageBox::No);
    test_->window.OpenFiles({ Path("a.htm") });
    QCOMPARE(Editor()->Text(), QStringLiteral("page a"));
}

void tst_desktopfiles::textThatCannotBeSavedStays()
{
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    MakeUnwritable();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.OpenFiles({ Path("a.htm") });
    QCOMPARE(Editor()->Text(), QStringLiteral("xold"));
    QVERIFY(IsChanged());
}

void tst_desktopfiles::fileThatCannotBeOpenedIsTold()
{
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.OpenFiles({ Path("missing.htm") });
    QCOMPARE(test_->robot.Boxes().constLast().text, "Can't open file: " + Path("missing.htm"));
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
}

void tst_desktopfiles::openingAPictureAsksForTheMapFirst()
{
    test_->window.OpenFiles({ Picture() });
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
    MapDocument& map = test_->folder.map;
    map.Ledger().CurrentKind = kindRectangle;
    map.Ledger().AppendFigure();
    map.LinkNewArea({});
    test_->robot.AnswerBox(QMessageBox::No);
    test_->window.OpenFiles({ Picture() });
    QCOMPARE(map.Areas().size(), 1);
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->window.OpenFiles({ Picture() });
    QCOMPARE(map.Areas().size(), 0);
}

void tst_desktopfiles::droppedFileIsOpened()
{
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    const std::unique_ptr<QMimeData> data(FilesAsDragged({ Path("a.htm") }));
    QVERIFY(Drop(test_->window, *test_->Toolbar(), *data));
    QTRY_COMPARE(test_->DocumentName(), Path("a.htm"));
}

void tst_desktopfiles::fileDroppedOnTheTextIsLeftToIt()
{
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    const std::unique_ptr<QMimeData> data(FilesAsDragged({ Path("a.htm") }));
    QVERIFY(!Drop(test_->window, *Editor(), *data));
    QCoreApplication::processEvents();
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QCOMPARE(Editor()->Text(), QString());
}

void tst_desktopfiles::whatIsNoFileIsNotTaken()
{
    QMimeData text;
    text.setText(QStringLiteral("text"));
    QVERIFY(!Drop(test_->window, *test_->Toolbar(), text));
    QMimeData address;
    address.setUrls({ QUrl(QStringLiteral("https://cartolen.example/a.htm")) });
    QVERIFY(!Drop(test_->window, *test_->Toolbar(), address));
}

void tst_desktopfiles::pictureDroppedOnItsEditorIsOpened()
{
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(ImageMapEditor() != nullptr);
    const std::unique_ptr<QMimeData> data(FilesAsDragged({ Picture() }));
    QVERIFY(Drop(*ImageMapEditor(), *ImageMapEditor(), *data));
    QTRY_COMPARE(test_->folder.map.Picture(), Picture());
}

void tst_desktopfiles::pageDroppedOnThePictureEditorIsOpened()
{
    test_->window.OpenFiles({ Picture() });
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    const std::unique_ptr<QMimeData> data(FilesAsDragged({ Path("a.htm") }));
    QVERIFY(Drop(*ImageMapEditor(), *ImageMapEditor(), *data));
    QTRY_COMPARE(test_->DocumentName(), Path("a.htm"));
    QCOMPARE(test_->folder.map.Picture(), Picture());
}

void tst_desktopfiles::filesDroppedTogetherGoWhereTheyBelong()
{
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    QImage other(120, 90, QImage::Format_RGB32);
    other.fill(Qt::red);
    QVERIFY(other.save(Path("other.png")));
    const std::unique_ptr<QMimeData> data(FilesAsDragged({ Picture(), Path("a.htm"), Path("other.png") }));
    QVERIFY(Drop(*ImageMapEditor(), *ImageMapEditor(), *data));
    QTRY_COMPARE(test_->folder.map.Picture(), Path("other.png"));
    QCOMPARE(test_->DocumentName(), Path("a.htm"));
    QCOMPARE(ImageMapEditor()->findChild<QWidget*>("PictureDisplay")->size(), other.size());
}

void tst_desktopfiles::whatIsNoFileIsNotTakenByThePictureEditor()
{
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QMimeData address;
    address.setUrls({ QUrl(QStringLiteral("https://cartolen.example/other.png")) });
    QVERIFY(!Drop(*ImageMapEditor(), *ImageMapEditor(), address));
    QCoreApplication::processEvents();
    QVERIFY(test_->folder.map.Picture().isEmpty());
}

void tst_desktopfiles::startedProgramOpensItsFilesWhenItIsUp()
{
    QVERIFY(WriteBytes(Path("a.htm"), "page a"));
    MapDocument map;
    Startup startup(test_->folder.imgMap, map, test_->desktop);
    startup.Begin();
    startup.OpenFiles({ Path("a.htm") });
    const auto started = [this]() -> frmIMmain* {
        for (QWidget* const window : QApplication::topLevelWidgets()) {
            auto* const main = qobject_cast<frmIMmain*>(window);
            if (main != nullptr && main != &test_->window && main->isVisible()) {
                return main;
            }
        }
        return nullptr;
    };
    QTRY_VERIFY_WITH_TIMEOUT(started() != nullptr, 10000);
    QTRY_COMPARE(started()->File().Name(), Path("a.htm"));
    QTRY_VERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_desktopfiles::filesAreHandedToARunningProgram()
{
    RunningProgram running(test_->folder.imgMap.ProgramFolder);
    QStringList came;
    connect(&running, &RunningProgram::FilesCame, this, [&came](const QStringList& files) { came << files; });
    QVERIFY(!HandOver({ QStringLiteral("/a.htm") }).get());
    running.Listen();
    const QStringList files = { QStringLiteral("/a \u65e5.htm"), QStringLiteral("/b.gif") };
    std::future<bool> isHandedOver = HandOver(files);
    QTRY_VERIFY(IsReady(isHandedOver));
    QVERIFY(isHandedOver.get());
    QCOMPARE(came, files);
}

void tst_desktopfiles::anotherProgramTakesOver()
{
    auto first = std::make_unique<RunningProgram>(test_->folder.imgMap.ProgramFolder);
    first->Listen();
    RunningProgram second(test_->folder.imgMap.ProgramFolder);
    QStringList came;
    connect(&second, &RunningProgram::FilesCame, this, [&came](const QStringList& files) { came << files; });
    second.Listen();
    QTest::qWait(100);
    first.reset();
    const QStringList files = { QStringLiteral("/a.htm") };
    bool isHandedOver = false;
    constexpr int mostAttempts = 100;
    for (int i = 0; i < mostAttempts && !isHandedOver; ++i) {
        std::future<bool> attempt = HandOver(files);
        QTRY_VERIFY(IsReady(attempt));
        isHandedOver = attempt.get();
        QTest::qWait(100);
    }
    QVERIFY(isHandedOver);
    QCOMPARE(came, files);
}

void tst_desktopfiles::nobodyTakesFilesOfAnotherFolder()
{
    QVERIFY(QDir().mkdir(Path("other")));
    RunningProgram other(Path("other"));
    other.Listen();
    std::future<bool> isHandedOver = HandOver({ QStringLiteral("/a.htm") });
    QTRY_VERIFY(IsReady(isHandedOver));
    QVERIFY(!isHandedOver.get());
}

void tst_desktopfiles::secondStartWithAFileHandsItOver()
{
    const QString binary = Path("cartolen");
    QVERIFY(QFile::copy(QStringLiteral(CARTOLEN_BINARY), binary));
    RunningProgram running(test_->folder.imgMap.ProgramFolder);
    QStringList came;
    connect(&running, &RunningProgram::FilesCame, this, [&came](const QStringList& files) { came << files; });
    running.Listen();
    QProcess program;
    program.setWorkingDirectory(QDir::tempPath());
    program.start(binary, { QStringLiteral("a.htm") });
    QTRY_VERIFY_WITH_TIMEOUT(program.state() == QProcess::NotRunning, 20000);
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QCOMPARE(program.exitCode(), 0);
    QCOMPARE(came, QStringList(QDir(QDir::tempPath()).filePath(QStringLiteral("a.htm"))));

    // Without a file it is a program of its own, as ever.
    QProcess another;
    another.start(binary, {});
    QVERIFY(another.waitForStarted());
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(Path("Data/Links.dra")), 20000);
    QVERIFY(!another.waitForFinished(500));
    another.kill();
    QVERIFY(another.waitForFinished());
}

QTEST_MAIN(tst_desktopfiles)
#include "tst_desktopfiles.moc"
