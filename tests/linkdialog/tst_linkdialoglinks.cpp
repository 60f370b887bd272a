// The links and targets that the link dialog offers.

#include "tests/linkdialog/LinkDialogTest.h"

namespace {

QByteArray FreeRecord()
{
    return QByteArray(260, ' ').leftJustified(linkRecordSize, '\0');
}

} // namespace

class tst_linkdialoglinks : public LinkDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }
    void cleanup() { TearDown(); }

    void savedLinksAreOffered();
    void atMostFifteenSavedLinksAreOffered();
    void freeRecordEndsTheSavedLinks();
    void linksAddedButNotSavedStayInMemory();
    void missingLinksFileTellsNothing();
    void missingLinksFolderIsToldAndTheDialogOpens();
    void damagedRecordIsToldAndTheOthersAreOffered();
    void savedLinkIsChosenFromTheList();
    void targetsStandInOrder();
    void typedTextIsNotCompleted();

private:
    QStringList OfferedLinks();
};

QStringList tst_linkdialoglinks::OfferedLinks()
{
    const auto* const list = Find<QComboBox>(dialog_, "cmbLink");
    QStringList links;
    for (int i = 0; i < list->count(); ++i) {
        links << list->itemText(i);
    }
    return links;
}

void tst_linkdialoglinks::savedLinksAreOffered()
{
    WriteLinks(LinkRecord("http://one.example/") + LinkRecord("  two.htm") + LinkRecord("caf\xe9.htm"));
    OpenFor(JSDisabled);
    const QStringList expected = { QStringLiteral("http://one.example/"), QStringLiteral("two.htm"),
                                   QStringLiteral("caf\u00e9.htm") };
    QCOMPARE(OfferedLinks(), expected);
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QString());
    QVERIFY(robot_->Boxes().isEmpty());
}

void tst_linkdialoglinks::atMostFifteenSavedLinksAreOffered()
{
    QByteArray bytes;
    for (int i = 1; i <= 20; ++i) {
        bytes += LinkRecord("link" + QByteArray::number(i));
    }
    WriteLinks(bytes);
    OpenFor(JSDisabled);
    QCOMPARE(OfferedLinks().size(), 15);
    QCOMPARE(OfferedLinks().constLast(), QStringLiteral("link15"));
}

void tst_linkdialoglinks::freeRecordEndsTheSavedLinks()
{
    WriteLinks(LinkRecord("one.htm") + FreeRecord() + LinkRecord("three.htm"));
    OpenFor(JSDisabled);
    QCOMPARE(OfferedLinks(), QStringList{ QStringLiteral("one.htm") });
}

void tst_linkdialoglinks::linksAddedButNotSavedStayInMemory()
{
    folder_->imgMap.SavedLinkURL[1] = QStringLiteral("added but not saved");
    folder_->imgMap.SavedLinkMark[1] = qint16(1);
    WriteLinks(LinkRecord("one.htm") + LinkRecord("two.htm"));
    OpenFor(JSDisabled);
    QCOMPARE(OfferedLinks(), (QStringList{ QStringLiteral("one.htm"), QStringLiteral("two.htm") }));
    QCOMPARE(folder_->imgMap.SavedLinkURL[1], QStringLiteral("added but not saved"));
    QVERIFY(folder_->imgMap.SavedLinkMark[1].has_value());
    QVERIFY(!folder_->imgMap.SavedLinkMark[2].has_value());
}

void tst_linkdialoglinks::missingLinksFileTellsNothing()
{
    OpenFor(JSDisabled);
    QVERIFY(robot_->Boxes().isEmpty());
    QCOMPARE(OfferedLinks(), QStringList());
}

void tst_linkdialoglinks::missingLinksFolderIsToldAndTheDialogOpens()
{
    QVERIFY(QDir(folder_->Path(QStringLiteral("Data"))).removeRecursively());
    robot_->AnswerBox(QMessageBox::Ok);
    OpenFor(JSStatusBar);
    QCOMPARE(robot_->Boxes().size(), 1);
    const DialogRobot::SeenBox box = robot_->Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("File Links.dra is either damaged or missing !"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(dialog_->isVisible());
    TypeIn(dialog_, "cmbLink", "works.htm");
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
}

void tst_linkdialoglinks::damagedRecordIsToldAndTheOthersAreOffered()
{
    QByteArray damaged = LinkRecord("bad.htm");
    damaged[260] = 99;
    WriteLinks(LinkRecord("one.htm") + damaged + LinkRecord("three.htm"));
    robot_->AnswerBox(QMessageBox::Ok);
    OpenFor(JSDisabled);
    QCOMPARE(robot_->Boxes().size(), 1);
    QVERIFY(OfferedLinks().contains(QStringLiteral("one.htm")));
    QVERIFY(dialog_->isVisible());
}

void tst_linkdialoglinks::savedLinkIsChosenFromTheList()
{
    WriteLinks(LinkRecord("one.htm") + LinkRecord("two.htm"));
    OpenFor(JSDisabled);
    auto* const list = Find<QComboBox>(dialog_, "cmbLink");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(list->currentText(), QStringLiteral("two.htm"));
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Link, QStringLiteral("two.htm"));
}

void tst_linkdialoglinks::targetsStandInOrder()
{
    OpenFor(JSDisabled);
    const auto* const list = Find<QComboBox>(dialog_, "cmbTarget");
    QStringList items;
    for (int i = 0; i < list->count(); ++i) {
        items << list->itemText(i);
    }
    QCOMPARE(items.join(u' '), QStringLiteral("_blank _parent _self _top"));
    QVERIFY(list->isEditable());
    QVERIFY(Find<QComboBox>(dialog_, "cmbLink")->isEditable());
}

void tst_linkdialoglinks::typedTextIsNotCompleted()
{
    WriteLinks(LinkRecord("http://one.example/page.htm") + LinkRecord("ONE.htm"));
    OpenFor(JSDisabled);
    TypeIn(dialog_, "cmbLink", "http://one");
    TypeIn(dialog_, "cmbTarget", "_T");
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QStringLiteral("http://one"));
    TypeIn(dialog_, "cmbLink", "one.htm");
    QTest::keyClick(Find<QComboBox>(dialog_, "cmbLink")->lineEdit(), Qt::Key_Tab);
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Link, QStringLiteral("one.htm"));
    QCOMPARE(Rows()[0].Target, QStringLiteral("_T"));
}

QTEST_MAIN(tst_linkdialoglinks)

#include "tst_linkdialoglinks.moc"
