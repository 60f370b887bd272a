// What the main window shows when it comes up.

#include "tests/app/FormFixture.h"

namespace {

constexpr qsizetype linkRecordSize = 276;

/** A used record of the links file. */
QByteArray LinkRecord(const QByteArray& url)
{
    QByteArray record = url.leftJustified(260, ' ') + QByteArray::fromHex("02000100");
    return record.leftJustified(linkRecordSize, '\0');
}

} // namespace

class tst_mainloading : public FormFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void loadingMakesTheProgramFolderCurrent();
    void loadingCentresTheWindow();
    void loadingTurnsTheRaisedToolbarFlat();
    void loadingAFlatToolbarTurnsItRaised();
    void loadingStartsWithAnEmptyNewDocument();
    void loadingListsTheSavedLinks();
    void loadingListsAtMostFifteenLinks();
    void loadingCreatesMissingLinksFile();
    void loadingTellsOnceWhenTheLinksFolderIsMissing();
    void loadingTellsOfADamagedFileAfterEverythingElse();
    void showingEndsTheHourglass();
    void capsPanelFollowsWhatIsTyped();
};

void tst_mainloading::loadingMakesTheProgramFolderCurrent()
{
    QDir::setCurrent(QDir::rootPath());
    test_->window.Form_Load();
    QCOMPARE(QDir::currentPath(), QDir(test_->folder.imgMap.ProgramFolder).canonicalPath());
}

void tst_mainloading::loadingCentresTheWindow()
{
    frmIMmain& window = test_->window;
    window.resize(500, 400);
    window.Form_Load();
    const QRect screen = window.screen()->geometry();
    QCOMPARE(window.pos(), QPoint((screen.width() - 500) / 2, (screen.height() - 400) / 2));
}

void tst_mainloading::loadingTurnsTheRaisedToolbarFlat()
{
    const QList<int> raised(13, 0);
    const QList<int> flat(13, 1);
    QCOMPARE(LookOfButtons(test_->Toolbar()), raised);
    test_->window.Form_Load();
    QCOMPARE(LookOfButtons(test_->Toolbar()), flat);
}

void tst_mainloading::loadingAFlatToolbarTurnsItRaised()
{
    for (QToolButton* const button : test_->Toolbar()->findChildren<QToolButton*>()) {
        button->setAutoRaise(true);
    }
    test_->window.Form_Load();
    QCOMPARE(LookOfButtons(test_->Toolbar()), QList<int>(13, 0));
}

void tst_mainloading::loadingStartsWithAnEmptyNewDocument()
{
    QVERIFY(test_->Start());
    QCOMPARE(test_->DocumentName(), QString::fromLatin1(newDocument));
    QCOMPARE(test_->Editor()->Text(), QString());
    QVERIFY(!test_->window.File().IsChanged());
    QVERIFY(!test_->folder.imgMap.ContinueAction);
    test_->Type("x");
    QVERIFY(test_->window.File().IsChanged());
}

void tst_mainloading::loadingListsTheSavedLinks()
{
    const QByteArray bytes = LinkRecord("  http://a.example/ ") + LinkRecord("b\xE9.htm") +
                             QByteArray(276, '\0') + LinkRecord("behind a free record");
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("Data/Links.dra")), bytes));
    QVERIFY(test_->Start());
    QCOMPARE(LoadedLinks(), QByteArray("http://a.example/|b\xE9.htm"));
    const ImgMap& imgMap = test_->folder.imgMap;
    QCOMPARE(imgMap.SavedLinkURL[1], QStringLiteral("http://a.example/"));
    QCOMPARE(imgMap.SavedLinkURL[2], QStringLiteral("b\u00E9.htm"));
    QVERIFY(imgMap.SavedLinkMark[1].has_value());
    QVERIFY(imgMap.SavedLinkMark[2].has_value());
    QVERIFY(!imgMap.SavedLinkMark[3].has_value());
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("Data/Links.dra"))), bytes);
}

void tst_mainloading::loadingListsAtMostFifteenLinks()
{
    QByteArray bytes;
    for (int i = 1; i <= 20; ++i) {
        bytes += LinkRecord(QByteArray::number(i));
    }
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("Data/Links.dra")), bytes));
    QVERIFY(test_->Start());
    QCOMPARE(LoadedLinks(), QByteArray("1|2|3|4|5|6|7|8|9|10|11|12|13|14|15"));
    QVERIFY(!test_->folder.imgMap.SavedLinkMark[16].has_value());
}

void tst_mainloading::loadingCreatesMissingLinksFile()
{
    QVERIFY(test_->Start());
    QCOMPARE(LoadedLinks(), QByteArray());
    QCOMPARE(BytesOf(test_->folder.Path(QStringLiteral("Data/Links.dra"))), QByteArray());
    QCOMPARE(test_->robot.Boxes().size(), 0);
}

void tst_mainloading::loadingTellsOnceWhenTheLinksFolderIsMissing()
{
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).rmdir(QStringLiteral("Data")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(test_->Start());
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("File Links.dra is either damaged or missing !"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::Ok);
    QVERIFY(!QFile::exists(test_->folder.Path(QStringLiteral("Data"))));
    QVERIFY(test_->window.isVisible());
}

void tst_mainloading::loadingTellsOfADamagedFileAfterEverythingElse()
{
    const QByteArray cutRecord = LinkRecord("cut off").first(100);
    QVERIFY(WriteBytes(test_->folder.Path(QStringLiteral("Data/Links.dra")), LinkRecord("good") + cutRecord));
    QString name;
    QByteArray links;
    QList<int> looks;
    test_->robot.Act([&](QDialog& dialog) {
        name = test_->DocumentName();
        links = LoadedLinks();
        looks = LookOfButtons(test_->Toolbar());
        dialog.accept();
    });
    QVERIFY(test_->Start());
    QCOMPARE(test_->robot.Boxes().size(), 1);
    QCOMPARE(
        test_->robot.Boxes().constFirst().text,
        QStringLiteral("File Links.dra is either damaged or missing !"));
    QCOMPARE(name, QString::fromLatin1(newDocument));
    QCOMPARE(links, QByteArray("good"));
    QCOMPARE(looks, QList<int>(13, 1));
    QCOMPARE(LoadedLinks(), QByteArray("good"));
}

void tst_mainloading::showingEndsTheHourglass()
{
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QVERIFY(test_->Start());
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void tst_mainloading::capsPanelFollowsWhatIsTyped()
{
    QVERIFY(test_->Start());
    const auto* const caps = test_->Find<QLabel>("StatusBar1_Panel1");
    QVERIFY(!caps->isEnabled());
    test_->Press(Qt::Key_CapsLock);
    QVERIFY(caps->isEnabled());
    QTest::keyClick(test_->Editor(), 'x');
    QVERIFY(!caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_X, QStringLiteral("X"), Qt::NoModifier);
    QVERIFY(caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_X, QStringLiteral("x"), Qt::ShiftModifier);
    QVERIFY(caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_X, QStringLiteral("X"), Qt::ShiftModifier);
    QVERIFY(!caps->isEnabled());
    QTest::sendKeyEvent(QTest::Click, test_->Editor(), Qt::Key_1, QStringLiteral("1"), Qt::NoModifier);
    QVERIFY(!caps->isEnabled());
}

QTEST_MAIN(tst_mainloading)
#include "tst_mainloading.moc"
