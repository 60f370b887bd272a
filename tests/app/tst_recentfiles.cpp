// The submenu with the files that were opened or saved last.

#include "tests/support/WidgetDriving.h"

#include "imagemap/frmImageMap.h"
#include "tests/app/DocumentsFixture.h"

class tst_recentfiles : public DocumentsFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void nothingIsThereAtFirst();
    void pagesAreListedTheLastFirst();
    void savedPagesAreListed();
    void pagesSavedWhenTheyAreLeftAreListed();
    void picturesAreListedBehindPages();
    void chosenPageIsOpened();
    void chosenPictureIsOpened();
    void keysChooseEntries();
    void changesAreAskedForFirst();
    void listsHaveTheirLengths();
    void longPathsAreCutInTheMiddle();
    void ampersandsAreShown();
    void missingFilesAreToldAndTakenOff();
    void nothingIsWrittenUntilAnEntryWasChosen();
    void listsComeBackAtTheNextStart();
    void clearForgetsAll();

private:
    QMenu* Menu() { return test_->Find<QMenu>("mnuPRecent"); }
    void OpenMenu();
    void CloseMenu();
    QStringList Entries();
    void Choose(const char* entry);
    void MakePage(const char* name) { QVERIFY(OpenFile(name, "<p>")); }
    void OpenPicture(const char* name);
    [[nodiscard]] bool IsSettingsFileThere() const { return QFile::exists(Path("Data/Settings.ini")); }
};

void tst_recentfiles::init()
{
    Start();
    test_->robot.Hurry();
    test_->folder.imgMap.Remembered.Open(test_->folder.imgMap.ProgramFolder);
}

void tst_recentfiles::OpenMenu()
{
    test_->GoToEditor();
    test_->ClickMenu("mnuPage", "mnuPRecent");
    QVERIFY(QTest::qWaitFor([this] { return Menu()->isVisible(); }));
}

void tst_recentfiles::CloseMenu()
{
    QTest::keyClick(Menu(), Qt::Key_Escape);
    QTest::keyClick(test_->Find<QMenu>("mnuPage"), Qt::Key_Escape);
}

/** The names and tool tips of the entries. */
QStringList tst_recentfiles::Entries()
{
    OpenMenu();
    QStringList entries;
    for (const QAction* const entry : Menu()->actions()) {
        const bool isFile = entry->objectName().contains(u'_');
        entries
            << (isFile ? entry->objectName().mid(10) + u'=' + QFileInfo(entry->toolTip()).fileName()
                       : entry->objectName().mid(10));
    }
    CloseMenu();
    return entries;
}

void tst_recentfiles::Choose(const char* entry)
{
    OpenMenu();
    auto* const action = test_->Find<QAction>(entry);
    QTest::mouseClick(Menu(), Qt::LeftButton, {}, Menu()->actionGeometry(action).center());
}

void tst_recentfiles::OpenPicture(const char* name)
{
    QVERIFY(QImage(20, 10, QImage::Format_RGB32).save(Path(name), "jpg"));
    test_->window.OpenFiles({ Path(name) });
}

void tst_recentfiles::nothingIsThereAtFirst()
{
    QCOMPARE(Entries().join(u' '), QStringLiteral("None Sep2 Clear"));
    QVERIFY(!test_->Find<QAction>("mnuPRecentNone")->isEnabled());
    QVERIFY(!test_->Find<QAction>("mnuPRecentClear")->isEnabled());
}

void tst_recentfiles::pagesAreListedTheLastFirst()
{
    MakePage("one.htm");
    MakePage("two.htm");
    MakePage("one.htm");
    test_->window.OpenFiles({ Path("two.htm") });
    QCOMPARE(Entries().join(u' '), QStringLiteral("Page_1=two.htm Page_2=one.htm Sep2 Clear"));
}

void tst_recentfiles::savedPagesAreListed()
{
    test_->Type("x");
    test_->robot.ChooseFile(Path("saved.htm"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(QFile::exists(Path("saved.htm")));
    QCOMPARE(Entries().join(u' '), QStringLiteral("Page_1=saved.htm Sep2 Clear"));
}

void tst_recentfiles::pagesSavedWhenTheyAreLeftAreListed()
{
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.ChooseFile(Path("left.htm"));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QVERIFY(QFile::exists(Path("left.htm")));
    QCOMPARE(Entries().join(u' '), QStringLiteral("Page_1=left.htm Sep2 Clear"));
}

void tst_recentfiles::picturesAreListedBehindPages()
{
    OpenPicture("a.jpg");
    MakePage("one.htm");
    OpenPicture("b.jpg");
    QCOMPARE(
        Entries().join(u' '),
        QStringLiteral("Page_1=one.htm Sep1 Picture_1=b.jpg Picture_2=a.jpg Sep2 Clear"));
}

void tst_recentfiles::chosenPageIsOpened()
{
    MakePage("one.htm");
    MakePage("two.htm");
    Choose("mnuPRecentPage_2");
    QCOMPARE(test_->DocumentName(), Path("one.htm"));
}

void tst_recentfiles::chosenPictureIsOpened()
{
    OpenPicture("a.jpg");
    OpenPicture("b.jpg");
    QVERIFY(test_->folder.imgMap.ImageUrl.endsWith(u"b.jpg"));
    Choose("mnuPRecentPicture_2");
    QVERIFY(test_->folder.imgMap.ImageUrl.endsWith(u"a.jpg"));
}

void tst_recentfiles::keysChooseEntries()
{
    OpenPicture("a.jpg");
    MakePage("one.htm");
    MakePage("two.htm");
    OpenMenu();
    QTest::keyClick(Menu(), Qt::Key_2);
    QCOMPARE(test_->DocumentName(), Path("one.htm"));
    OpenPicture("b.jpg");
    OpenMenu();
    QTest::keyClick(Menu(), Qt::Key_B);
    QVERIFY(test_->folder.imgMap.ImageUrl.endsWith(u"a.jpg"));
}

void tst_recentfiles::changesAreAskedForFirst()
{
    MakePage("one.htm");
    MakePage("two.htm");
    test_->Type("x");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    Choose("mnuPRecentPage_2");
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->DocumentName(), Path("two.htm"));
}

void tst_recentfiles::listsHaveTheirLengths()
{
    for (int i = 1; i <= 12; ++i) {
        MakePage(qPrintable(QStringLiteral("%1.htm").arg(i)));
    }
    const QStringList entries = Entries();
    QCOMPARE(entries.size(), 12);
    QCOMPARE(entries[0], QStringLiteral("Page_1=12.htm"));
    QCOMPARE(entries[9], QStringLiteral("Page_10=3.htm"));
}

void tst_recentfiles::longPathsAreCutInTheMiddle()
{
    const QByteArray name = QByteArray(200, 'n') + ".htm";
    MakePage(name.constData());
    OpenMenu();
    const QString text = test_->Find<QAction>("mnuPRecentPage_1")->text();
    QVERIFY2(text.endsWith(u"n.htm") && text.contains(QChar(0x2026)), qUtf8Printable(text));
    QVERIFY2(text.startsWith(u"&1  " + Path("").left(3)), qUtf8Printable(text));
    QVERIFY(Menu()->width() < 600);
    CloseMenu();
}

void tst_recentfiles::ampersandsAreShown()
{
    MakePage("a&b.htm");
    OpenMenu();
    QVERIFY(test_->Find<QAction>("mnuPRecentPage_1")->text().endsWith(u"a&&b.htm"));
    CloseMenu();
}

void tst_recentfiles::missingFilesAreToldAndTakenOff()
{
    MakePage("one.htm");
    MakePage("two.htm");
    QVERIFY(QFile::remove(Path("one.htm")));
    test_->robot.AnswerBox(QMessageBox::Ok);
    Choose("mnuPRecentPage_2");
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().last().text, QString(u"The file is no longer there: " + Path("one.htm")));
    QCOMPARE(test_->DocumentName(), Path("two.htm"));
    QCOMPARE(Entries().join(u' '), QStringLiteral("Page_1=two.htm Sep2 Clear"));
}

void tst_recentfiles::nothingIsWrittenUntilAnEntryWasChosen()
{
    MakePage("one.htm");
    MakePage("two.htm");
    (void)Entries();
    QVERIFY(!IsSettingsFileThere());
    Choose("mnuPRecentPage_2");
    QVERIFY(IsSettingsFileThere());
}

void tst_recentfiles::listsComeBackAtTheNextStart()
{
    OpenPicture("a.jpg");
    MakePage("one.htm");
    MakePage("two.htm");
    Choose("mnuPRecentPage_2");
    MakePage("three.htm");
    ImgMap next;
    next.ProgramFolder = next.HelpFolder = test_->folder.imgMap.ProgramFolder;
    next.Remembered.Open(next.ProgramFolder);
    frmIMmain window(next, test_->folder.map, test_->desktop);
    auto* const menu = window.findChild<QMenu*>(QStringLiteral("mnuPRecent"));
    Q_EMIT menu->aboutToShow();
    QStringList names;
    for (const QAction* const entry : menu->actions()) {
        names << QFileInfo(entry->toolTip()).fileName();
    }
    QCOMPARE(names.mid(0, 5).join(u' '), QStringLiteral("three.htm one.htm two.htm  a.jpg"));
}

void tst_recentfiles::clearForgetsAll()
{
    MakePage("one.htm");
    MakePage("two.htm");
    Choose("mnuPRecentPage_1");
    Choose("mnuPRecentClear");
    QCOMPARE(Entries().join(u' '), QStringLiteral("None Sep2 Clear"));
    MakePage("three.htm");
    QVERIFY(!BytesOf(Path("Data/Settings.ini")).contains("htm"));
}

QTEST_MAIN(tst_recentfiles)
#include "tst_recentfiles.moc"
