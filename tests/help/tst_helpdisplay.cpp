#include "help/HelpDisplay.h"
#include "help/HelpWindow.h"
#include "tests/help/HelpFiles.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/WidgetDriving.h"

#include <QDialog>
#include <QPointer>
#include <QSignalSpy>
#include <QTextBrowser>
#include <QToolBar>
#include <memory>

class tst_helpdisplay : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void TheBookOfTheProgramFolderIsShown();
    void EveryCallShowsTheSameWindow();
    void AMissingBookIsTold();
    void ADamagedBookIsToldUntilItIsReplaced();
    void ALinkToOutsideIsHandedOn();
    void AModalDialogBlocksHelpThatItDidNotAskFor();
    void HelpIsUsableBesideTheModalDialogThatAskedForIt();
    void HelpShownBeforeIsUsableBesideAModalDialog();
    void HelpOutlivesTheDialogThatAskedForIt();
    void ANonModalOwnerLeavesHelpOnItsOwn();

private:
    void PutBook() const { QVERIFY(QFile::copy(smallBook, folder_->Path(QStringLiteral("Cartolen.hlp")))); }
    [[nodiscard]] QPointer<QDialog> NewModalDialog() const;
    [[nodiscard]] QString PageTitle() const;
    void ClickHome() const;

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<QWidget> owner_;
    std::unique_ptr<HelpDisplay> help_;
};

void tst_helpdisplay::init()
{
    folder_ = std::make_unique<ProgramFolder>();
    owner_ = std::make_unique<QWidget>();
    owner_->show();
    help_ = std::make_unique<HelpDisplay>(folder_->imgMap);
}

void tst_helpdisplay::cleanup()
{
    help_.reset();
    owner_.reset();
    folder_.reset();
}

QPointer<QDialog> tst_helpdisplay::NewModalDialog() const
{
    auto* const dialog = new QDialog(owner_.get());
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setWindowModality(Qt::ApplicationModal);
    dialog->show();
    return dialog;
}

QString tst_helpdisplay::PageTitle() const
{
    return Find<QTextBrowser>(help_->Window(), "PageView1")->documentTitle();
}

/** Clicks the toolbar's Home as the user does: a window that is blocked does not take it. */
void tst_helpdisplay::ClickHome() const
{
    auto* const toolbar = Find<QToolBar>(help_->Window(), "Toolbar1");
    Click(toolbar->widgetForAction(Find<QAction>(help_->Window(), "Toolbar1_Home")));
}

void tst_helpdisplay::TheBookOfTheProgramFolderIsShown()
{
    PutBook();
    QVERIFY(help_->Window() == nullptr);
    help_->ShowContents(owner_.get());
    QVERIFY(help_->Window()->isVisible());
    QCOMPARE(help_->Window()->objectName(), QStringLiteral("HelpWindow"));
    QCOMPARE(PageTitle(), QStringLiteral("Boats"));
}

void tst_helpdisplay::EveryCallShowsTheSameWindow()
{
    PutBook();
    HelpViewer& viewer = *help_;
    viewer.ShowContents(owner_.get());
    const HelpWindow* const window = help_->Window();
    viewer.ShowTopic(nullptr, u"sun");
    QCOMPARE(PageTitle(), QStringLiteral("The sun"));
    help_->Window()->close();
    viewer.ShowSearch(owner_.get());
    QVERIFY(window == help_->Window() && window->isVisible());
    QVERIFY(Find<QLineEdit>(window, "txtKeyword")->isVisible());
}

void tst_helpdisplay::AMissingBookIsTold()
{
    DialogRobot robot;
    robot.AnswerBox(QMessageBox::Ok);
    help_->ShowContents(owner_.get());
    robot.WaitUntilDone();
    QCOMPARE(robot.Boxes().size(), 1);
    const DialogRobot::SeenBox box = robot.Boxes().constFirst();
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QVERIFY(box.text.startsWith(QStringLiteral("The help file Cartolen.hlp is missing.")));
    QVERIFY(box.text.contains(QDir::toNativeSeparators(folder_->imgMap.ProgramFolder)));
    QVERIFY(help_->Window() == nullptr);
    QCOMPARE(robot.Problems(), QString());
}

void tst_helpdisplay::ADamagedBookIsToldUntilItIsReplaced()
{
    DialogRobot robot;
    const QString path = folder_->Path(QStringLiteral("Cartolen.hlp"));
    QVERIFY(WriteBytes(path, BytesOf(smallBook).chopped(1)));
    robot.AnswerBox(QMessageBox::Ok);
    help_->ShowTopic(owner_.get(), u"sun");
    robot.WaitUntilDone();
    robot.AnswerBox(QMessageBox::Ok);
    help_->ShowSearch(owner_.get());
    robot.WaitUntilDone();
    QCOMPARE(robot.Boxes().size(), 2);
    QVERIFY(robot.Boxes().constLast().text.startsWith(
        QStringLiteral("The help file Cartolen.hlp is damaged or cannot be read.")));
    QCOMPARE(robot.Problems(), QString());
    QVERIFY(QFile::remove(path));
    PutBook();
    help_->ShowTopic(owner_.get(), u"sun");
    QCOMPARE(PageTitle(), QStringLiteral("The sun"));
}

void tst_helpdisplay::ALinkToOutsideIsHandedOn()
{
    PutBook();
    help_->ShowContents(owner_.get());
    const QSignalSpy links(help_.get(), &HelpDisplay::LinkToOutside);
    auto* const page = Find<QTextBrowser>(help_->Window(), "PageView1");
    page->setFocus();
    QTest::keyClick(page, Qt::Key_Tab);
    QTest::keyClick(page, Qt::Key_Tab);
    QTest::keyClick(page, Qt::Key_Return);
    QCOMPARE(links.size(), 1);
    QCOMPARE(links[0][0].toUrl(), QUrl(QStringLiteral("https://cartolen.example/")));
}

void tst_helpdisplay::AModalDialogBlocksHelpThatItDidNotAskFor()
{
    PutBook();
    help_->ShowTopic(owner_.get(), u"sun");
    const QPointer<QDialog> dialog = NewModalDialog();
    ClickHome();
    QCOMPARE(PageTitle(), QStringLiteral("The sun"));
    dialog->close();
    ClickHome();
    QCOMPARE(PageTitle(), QStringLiteral("Boats"));
}

void tst_helpdisplay::HelpIsUsableBesideTheModalDialogThatAskedForIt()
{
    PutBook();
    const QPointer<QDialog> dialog = NewModalDialog();
    help_->ShowTopic(dialog, u"sun");
    QCOMPARE(PageTitle(), QStringLiteral("The sun"));
    ClickHome();
    QCOMPARE(PageTitle(), QStringLiteral("Boats"));
    QVERIFY(dialog->isVisible());
    dialog->close();
}

void tst_helpdisplay::HelpShownBeforeIsUsableBesideAModalDialog()
{
    PutBook();
    help_->ShowTopic(owner_.get(), u"sun");
    const QPointer<QDialog> dialog = NewModalDialog();
    help_->ShowTopic(dialog, u"harbours");
    ClickHome();
    QCOMPARE(PageTitle(), QStringLiteral("Boats"));
    dialog->close();
}

void tst_helpdisplay::HelpOutlivesTheDialogThatAskedForIt()
{
    PutBook();
    QPointer<QDialog> dialog = NewModalDialog();
    help_->ShowTopic(dialog, u"sun");
    dialog->close();
    QVERIFY(QTest::qWaitFor([&dialog] { return dialog == nullptr; }));
    QVERIFY(help_->Window()->isVisible());
    ClickHome();
    QCOMPARE(PageTitle(), QStringLiteral("Boats"));
    help_->ShowTopic(owner_.get(), u"harbours");
    QCOMPARE(PageTitle(), QStringLiteral("Harbours"));
}

void tst_helpdisplay::ANonModalOwnerLeavesHelpOnItsOwn()
{
    PutBook();
    help_->ShowContents(owner_.get());
    QVERIFY(help_->Window()->windowHandle()->transientParent() == nullptr);
    owner_.reset();
    QVERIFY(help_->Window()->isVisible());
}

QTEST_MAIN(tst_helpdisplay)
#include "tst_helpdisplay.moc"
