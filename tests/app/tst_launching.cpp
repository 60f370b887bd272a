#include "tests/support/WidgetDriving.h"

#include "app/rules/ShellErrors.h"
#include "tests/app/LaunchingFixture.h"
#include "tests/support/Icons.h"

#include <QDir>

namespace {

QString Native(const QString& path)
{
    return QDir::toNativeSeparators(path);
}

} // namespace

class tst_launching : public LaunchingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void commandWritesACopyAndHandsItOver_data();
    void commandWritesACopyAndHandsItOver();
    void savedDocumentsCopyLiesBesideIt();
    void copyOfADocumentInAFolderWithADotLiesBesideThatFolder();
    void copyHoldsEveryCharacter();
    void copyingLeavesTheDocumentAsItIs();
    void copyIsWrittenAgainEveryTime();
    void emptyDocumentIsOnlyTold_data();
    void emptyDocumentIsOnlyTold();
    void missingTempFolderIsToldTwice();
    void olderCopyIsLaunchedWhenItCannotBeWritten();
    void missingFolderOfADocumentIsAMissingPath();
    void failedLaunchIsTold_data();
    void failedLaunchIsTold();
    void lateFailureOfAClosedWindowIsNotTold();

    void homePageOpensBy_data();
    void homePageOpensBy();
    void logosTakeOnlyAWholeClickOfTheLeftButton();
    void logosHaveAQuestionMarkPointer();
    void homePageThatCannotBeOpenedIsTold();
    void aboutIsTheSystemsBox();
    void missingPathOfAnAddressIsToldAsSuch();
    void aboutIsABoxOfOurOwnWhereTheSystemHasNone();
    void ownAboutBoxShowsLogoLicenceAndHomePage();
};

using Act = std::function<void(MainWindowFixture&)>;

void tst_launching::commandWritesACopyAndHandsItOver_data()
{
    QTest::addColumn<Act>("act");
    QTest::addColumn<QString>("verb");
    QTest::addColumn<QString>("copy");
    const auto row = [](const char* name, const Act& act, const char* verb, const char* copy) {
        QTest::newRow(name) << act << QString::fromLatin1(verb) << QString::fromLatin1(copy);
    };
    const char* const html = "Temp/Temp001.html";
    const char* const txt = "Temp/Temp001.txt";
    row(
        "preview, menu", [](auto& test) { test.ClickMenu("mnuTools", "mnuTPreview"); }, "Open", html);
    row(
        "preview, key", [](auto& test) { test.Press(Qt::Key_D, Qt::ControlModifier); }, "Open", html);
    row(
        "preview, toolbar", [](auto& test) { test.ClickToolbar(17); }, "Open", html);
    row(
        "print, menu", [](auto& test) { test.ClickMenu("mnuFile", "mnuFPrint"); }, "Print", txt);
    row(
        "print, toolbar", [](auto& test) { test.ClickToolbar(6); }, "Print", txt);
}

void tst_launching::commandWritesACopyAndHandsItOver()
{
    QFETCH(const Act, act);
    QFETCH(const QString, copy);
    Fill(QStringLiteral("<p>\r\nx"));
    act(*test_);
    QCOMPARE(BytesOf(test_->folder.Path(copy)), QByteArray("<p>\r\nx\r\n"));
    QCOMPARE(test_->desktop.Requests.size(), 1);
    const ShellRequest& request = test_->desktop.Requests.constFirst();
    QCOMPARE(request.Window, quintptr(test_->window.winId()));
    QTEST(request.Verb, "verb");
    QCOMPARE(request.Target, Native(test_->folder.imgMap.ProgramFolder + u'/' + copy));
    QCOMPARE(request.Parameters, QStringLiteral("0"));
    QCOMPARE(request.Folder, request.Target);
    QCOMPARE(request.ShowMode, 0);
}

void tst_launching::savedDocumentsCopyLiesBesideIt()
{
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("page.htm")), "saved"));
    test_->Open(test_->folder.Path(QStringLiteral("page.htm")));
    test_->Type("un");
    test_->window.Outside().PreviewDocument();
    const QString copy = test_->folder.Path(QStringLiteral("page_Temp.html"));
    QCOMPARE(test_->desktop.Requests.constFirst().Target, Native(copy));
    QCOMPARE(BytesOf(copy), QByteArray("unsaved\r\n"));
    test_->window.Outside().PrintDocument();
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("page_Temp.txt"))), QByteArray("unsaved\r\n"));
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("page.htm"))), QByteArray("saved"));
}

void tst_launching::copyOfADocumentInAFolderWithADotLiesBesideThatFolder()
{
    QVERIFY(QDir(test_->folder.Path(QString())).mkdir(QStringLiteral("my.site")));
    const QString path = test_->folder.Path(QStringLiteral("my.site/page.htm"));
    QVERIFY(WriteBytes(path, "text"));
    test_->Open(path);
    test_->window.Outside().PreviewDocument();
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("my_Temp.html"))), QByteArray("text\r\n"));
}

void tst_launching::copyHoldsEveryCharacter()
{
    const QString path = test_->folder.Path(QStringLiteral("page.htm"));
    QVERIFY(WriteBytes(path, EveryByte()));
    test_->Open(path);
    test_->window.Outside().PreviewDocument();
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("page_Temp.html"))), EveryByte() + "\r\n");
}

void tst_launching::copyingLeavesTheDocumentAsItIs()
{
    Fill(QStringLiteral("x"));
    test_->window.Outside().PreviewDocument();
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("x"));
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_launching::copyIsWrittenAgainEveryTime()
{
    Fill(QStringLiteral("a long first text"));
    test_->window.Outside().PreviewDocument();
    test_->Editor()->Select(0, test_->Editor()->TextLength());
    Fill(QStringLiteral("short"));
    test_->window.Outside().PreviewDocument();
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("Temp/Temp001.html"))), QByteArray("short\r\n"));
}

void tst_launching::emptyDocumentIsOnlyTold_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("text");
    QTest::newRow("print") << 6 << "There is no contents to print in the current document!";
    QTest::newRow("preview") << 17 << "There is no contents to display in the current document!";
}

void tst_launching::emptyDocumentIsOnlyTold()
{
    QFETCH(const int, button);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickToolbar(button);
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QTEST(box.text, "text");
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QVERIFY(test_->desktop.Requests.isEmpty());
    QVERIFY(QDir(test_->folder.Path(QStringLiteral("Temp"))).isEmpty());
}

void tst_launching::missingTempFolderIsToldTwice()
{
    QVERIFY(QDir(test_->folder.Path(QStringLiteral("Temp"))).removeRecursively());
    test_->desktop.Code = shellPathNotFound;
    Fill(QStringLiteral("x"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.Outside().PreviewDocument();
    QCOMPARE(test_->robot.Boxes().size(), 2);
    QCOMPARE(test_->robot.Boxes()[0].icon, QMessageBox::Warning);
    QVERIFY(!test_->robot.Boxes()[0].text.isEmpty());
    QCOMPARE(test_->robot.Boxes()[1].icon, QMessageBox::Critical);
    QCOMPARE(test_->robot.Boxes()[1].text, QStringLiteral("File not found"));
    QVERIFY(!QFile::exists(test_->folder.Path(QStringLiteral("Temp"))));
}

void tst_launching::olderCopyIsLaunchedWhenItCannotBeWritten()
{
    const QString copy = test_->folder.Path(QStringLiteral("Temp/Temp001.html"));
    QVERIFY(QDir().mkpath(copy)); // a folder cannot be written over
    Fill(QStringLiteral("x"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.Outside().PreviewDocument();
    QCOMPARE(test_->robot.Boxes().constFirst().icon, QMessageBox::Warning);
    QCOMPARE(test_->desktop.Requests.size(), 1);
    QCOMPARE(test_->desktop.Requests.constFirst().Target, Native(copy));
}

void tst_launching::missingFolderOfADocumentIsAMissingPath()
{
    QVERIFY(QDir(test_->folder.Path(QString())).mkdir(QStringLiteral("site")));
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("site/page.htm")), "text"));
    test_->Open(test_->folder.Path(QStringLiteral("site/page.htm")));
    QVERIFY(QDir(test_->folder.Path(QStringLiteral("site"))).removeRecursively());
    test_->desktop.Code = shellPathNotFound;
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.Outside().PreviewDocument();
    QCOMPARE(test_->robot.Boxes()[1].text, QStringLiteral("Path not found"));
}

void tst_launching::failedLaunchIsTold_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("boxes");
    for (const int error : { 0, 2, 5, 8, 11, 26, 27, 28, 29, 30, 31, 1, 32 }) {
        QTest::addRow("%d", error) << error << 1;
    }
    for (const int success : { 33, 42 }) {
        QTest::addRow("%d", success) << success << 0;
    }
}

void tst_launching::failedLaunchIsTold()
{
    QFETCH(const int, code);
    QFETCH(const int, boxes);
    test_->desktop.Code = code;
    Fill(QStringLiteral("x"));
    if (boxes > 0) {
        test_->robot.AnswerBox(QMessageBox::Ok);
    }
    test_->window.Outside().PrintDocument();
    QCOMPARE(test_->robot.Boxes().size(), boxes);
    if (boxes > 0) {
        QCOMPARE(test_->robot.Boxes().constFirst().text, ShellErrorText(code));
        QCOMPARE(test_->robot.Boxes().constFirst().icon, QMessageBox::Critical);
        QCOMPARE(test_->robot.Boxes().constFirst().title, QStringLiteral("Cartolen"));
    }
}

void tst_launching::lateFailureOfAClosedWindowIsNotTold()
{
    class LateDesktop : public RecordingDesktop
    {
    public:
        void Execute(const ShellRequest&, const Report& report) override { report_ = report; }
        Report report_;
    } late;
    {
        frmIMmain window(test_->folder.imgMap, test_->folder.map, late);
        window.Outside().OpenHomePage();
    }
    QVERIFY(late.report_);
    late.report_(shellNoAssociation);
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_launching::homePageOpensBy_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("menu") << Act([](auto& test) { test.ClickMenu("mnuHelp", "mnuHHome"); });
    QTest::newRow("logo beside the tags") << Act([](auto& test) { ClickIn(&test.window, "Picture1"); });
    QTest::newRow("logo beside the links") << Act([](auto& test) {
        test.template Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
        ClickIn(&test.window, "Picture2");
    });
}

void tst_launching::homePageOpensBy()
{
    QFETCH(const Act, act);
    act(*test_);
    QCOMPARE(test_->desktop.Requests.size(), 1);
    const ShellRequest& request = test_->desktop.Requests.constFirst();
    QCOMPARE(request.Window, quintptr(test_->window.winId()));
    QCOMPARE(request.Verb, QStringLiteral("Open"));
    QCOMPARE(request.Target, QStringLiteral("https://cartolen.example/"));
    QCOMPARE(request.Parameters, QString());
    QCOMPARE(request.Folder, QStringLiteral("https://cartolen.example/"));
    QCOMPARE(request.ShowMode, 3);
}

void tst_launching::logosTakeOnlyAWholeClickOfTheLeftButton()
{
    auto* const logo = test_->Find<QLabel>("Picture1");
    Click(logo, Qt::RightButton);
    QTest::mousePress(logo, Qt::LeftButton);
    QTest::mouseRelease(logo, Qt::LeftButton, {}, QPoint(-30, -30));
    QVERIFY(test_->desktop.Requests.isEmpty());
}

void tst_launching::logosHaveAQuestionMarkPointer()
{
    QCOMPARE(test_->Find<QLabel>("Picture1")->cursor().shape(), Qt::WhatsThisCursor);
    QCOMPARE(test_->Find<QLabel>("Picture2")->cursor().shape(), Qt::WhatsThisCursor);
}

void tst_launching::homePageThatCannotBeOpenedIsTold()
{
    test_->desktop.Code = shellNoAssociation;
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.Outside().OpenHomePage();
    QCOMPARE(test_->robot.Boxes().constFirst().text, QStringLiteral("No association for this file"));
}

void tst_launching::aboutIsTheSystemsBox()
{
    test_->ClickMenu("mnuHelp", "mnuHAbout");
    QCOMPARE(test_->desktop.AboutBoxes.size(), 1);
    const RecordingDesktop::AboutBox& box = test_->desktop.AboutBoxes.constFirst();
    QCOMPARE(box.window, quintptr(test_->window.winId()));
    QCOMPARE(box.application, QStringLiteral("Cartolen"));
    QCOMPARE(box.details, QStringLiteral("V4.0\nMade by the Cartolen authors"));
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_launching::aboutIsABoxOfOurOwnWhereTheSystemHasNone()
{
    test_->desktop.HasAboutBox = false;
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.Outside().ShowAbout();
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.title, QStringLiteral("About"));
    QCOMPARE(box.text, QStringLiteral("Cartolen\nV4.0\nMade by the Cartolen authors"));
    QCOMPARE(box.icon, QMessageBox::Information);
}

void tst_launching::missingPathOfAnAddressIsToldAsSuch()
{
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    test_->desktop.Code = shellPathNotFound;
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->window.Outside().OpenHomePage();
    QCOMPARE(test_->robot.Boxes().constFirst().text, QStringLiteral("Path not found"));
}

void tst_launching::ownAboutBoxShowsLogoLicenceAndHomePage()
{
    LoadIcons();
    test_->desktop.HasAboutBox = false;
    QString details;
    QSizeF logo;
    test_->robot.Act([&details, &logo](QDialog& dialog) {
        auto& box = static_cast<QMessageBox&>(dialog);
        auto* const information = box.findChild<QLabel*>(QStringLiteral("qt_msgbox_informativelabel"));
        const auto* const icon = box.findChild<QLabel*>(QStringLiteral("qt_msgboxex_icon_label"));
        details = box.informativeText();
        logo = icon->pixmap().deviceIndependentSize();
        Q_EMIT information->linkActivated(QStringLiteral("https://cartolen.example/"));
        QTest::mouseClick(box.button(QMessageBox::Ok), Qt::LeftButton);
    });
    test_->window.Outside().ShowAbout();
    QVERIFY2(details.contains(u"MIT"), qPrintable(details));
    QVERIFY2(details.contains(u"href=\"https://cartolen.example/\""), qPrintable(details));
    QVERIFY(logo.width() >= 64);
    // The address goes where all go.
    QCOMPARE(test_->desktop.Requests.size(), 1);
    QCOMPARE(test_->desktop.Requests.constFirst().Target, QStringLiteral("https://cartolen.example/"));
}

QTEST_MAIN(tst_launching)
#include "tst_launching.moc"
