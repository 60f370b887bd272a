// What the link dialog shows, and choosing images in it.

#include "tests/linkdialog/LinkDialogTest.h"

#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>

namespace {

const QStringList modeFrames = { QString(), QStringLiteral("frmStatusBarMessage"),
                                 QStringLiteral("frmSwitchingImages"), QStringLiteral("frmTextArea"),
                                 QStringLiteral("frmToolTip") };

} // namespace

class tst_frmimlink : public LinkDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }
    void cleanup() { TearDown(); }

    void dialogShowsItsTexts();
    void dialogIsModalAndCentredByItsDesignSize();
    void shapeFollowsTheMode_data();
    void shapeFollowsTheMode();
    void newAreaCanOnlyBeAccepted();
    void editedAreaCanOnlyBeReplaced();
    void editedAreaFillsTheFields_data();
    void editedAreaFillsTheFields();
    void defaultOfTheMapIsOffered_data();
    void defaultOfTheMapIsOffered();

    void browsingChoosesAnImage_data();
    void browsingChoosesAnImage();
    void cancelledBrowsingKeepsTheField();
};

void tst_frmimlink::dialogShowsItsTexts()
{
    OpenFor(JSDisabled);
    const QList<std::pair<const char*, const char*>> labels = {
        { "Label1", "Link to get conected to :" },
        { "Label2", "Target (Fill this field in if you intend to use your Image Map on the page within HTML "
                    "Frames) :" },
        { "Label3", "Tool Tip Message :" },
        { "Label4", "Message to switch to On Mouse Over :" },
        { "Label5", "Default Message to be shown On Mouse Out :" },
        { "Label6", "Default Image to be shown On Mouse Out :" },
        { "Label7", "Image to switch to On Mouse Over :" },
        { "Label8", "Status Bar Message (N.N), Tool Tip Message (MSIE):" },
    };
    for (const auto& [name, text] : labels) {
        QCOMPARE(Find<QLabel>(dialog_, name)->text(), QString::fromLatin1(text));
    }
    const QList<std::pair<const char*, const char*>> frames = {
        { "Frame1", "Link Properties" },
        { "frmStatusBarMessage", "On Mouse Over - Status Bar Message" },
        { "frmSwitchingImages", "On Mouse Over - Switching Images" },
        { "frmTextArea", "On Mouse Over - Text Area Message" },
        { "frmToolTip", "On Mouse Over - Tool Tip Message" },
    };
    for (const auto& [name, title] : frames) {
        QCOMPARE(Find<QGroupBox>(dialog_, name)->title(), QString::fromLatin1(title));
    }
    for (const char* const button : { "SSCmdOK", "SSCmdReplace", "SSCmdClose", "Command1", "Command2" }) {
        const auto* const found = Find<QPushButton>(dialog_, button);
        QCOMPARE(found->text(), QString());
        QVERIFY2(!found->icon().pixmap(24, 24).isNull(), button);
    }
    QCOMPARE(dialog_->font().family(), QStringLiteral("Tahoma"));
}

void tst_frmimlink::dialogIsModalAndCentredByItsDesignSize()
{
    OpenFor(JSDisabled);
    QVERIFY(dialog_->isModal());
    const QRect screen = dialog_->screen()->geometry();
    QCOMPARE(dialog_->x(), screen.left() + (screen.width() - dialog_->width()) / 2);
    QCOMPARE(dialog_->y(), screen.top() + (screen.height() - 5565 / 15) / 2);
}

void tst_frmimlink::shapeFollowsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("buttonsTop");

    QTest::newRow("disabled") << 0 << QStringLiteral("Standard Image Map") << 3360 / 15 << 2520 / 15;
    QTest::newRow("status bar") << 1 << QStringLiteral("Image Map - Status Bar Message") << 5565 / 15
                                << 4680 / 15;
    QTest::newRow("images") << 2 << QStringLiteral("Image Map - Switching Images") << 5565 / 15 << 4680 / 15;
    QTest::newRow("text area") << 3 << QStringLiteral("Image Map - Text Area Messages") << 5565 / 15
                               << 4680 / 15;
    QTest::newRow("tool tips") << 4 << QStringLiteral("Image Map - Tool Tip Messages") << 5565 / 15
                               << 4680 / 15;
}

void tst_frmimlink::shapeFollowsTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, caption);
    QFETCH(const int, height);
    QFETCH(const int, buttonsTop);

    OpenFor(mode);
    QCOMPARE(dialog_->windowTitle(), caption);
    QCOMPARE(dialog_->height(), height);
    for (const char* const button : { "SSCmdOK", "SSCmdReplace", "SSCmdClose" }) {
        const auto* const found = Find<QPushButton>(dialog_, button);
        QCOMPARE(found->y(), buttonsTop);
        QVERIFY(dialog_->rect().contains(found->geometry()));
    }
    for (int i = 1; i < 5; ++i) {
        const auto* const frame = Find<QGroupBox>(dialog_, qPrintable(modeFrames[i]));
        QCOMPARE(frame->isVisible(), i == mode);
        QVERIFY(!frame->isVisible() || frame->geometry().bottom() < buttonsTop);
    }
}

void tst_frmimlink::newAreaCanOnlyBeAccepted()
{
    OpenFor(JSStatusBar);
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdOK")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog_, "SSCmdReplace")->isEnabled());
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdClose")->isEnabled());
    QCOMPARE(Find<QGroupBox>(dialog_, "Frame1")->title(), QStringLiteral("Link Properties"));
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QString());
    QCOMPARE(Find<QComboBox>(dialog_, "cmbTarget")->currentText(), QString());
    QCOMPARE(dialog_->focusWidget(), Find<QWidget>(dialog_, "cmbLink"));
}

void tst_frmimlink::editedAreaCanOnlyBeReplaced()
{
    OpenFor(JSStatusBar);
    Edit();
    QVERIFY(!Find<QPushButton>(dialog_, "SSCmdOK")->isEnabled());
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdReplace")->isEnabled());
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdClose")->isEnabled());
    QCOMPARE(Find<QGroupBox>(dialog_, "Frame1")->title(), QStringLiteral(" No: 4 Circle"));
}

void tst_frmimlink::editedAreaFillsTheFields_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("field");

    QTest::newRow("disabled") << 0 << QString();
    QTest::newRow("status bar") << 1 << QStringLiteral("txtStatusBarMessage");
    QTest::newRow("images") << 2 << QStringLiteral("txtSwitchImage");
    QTest::newRow("text area") << 3 << QStringLiteral("txtSwitchingTAreaMessage");
    QTest::newRow("tool tips") << 4 << QStringLiteral("txtToolTipMessage");
}

void tst_frmimlink::editedAreaFillsTheFields()
{
    QFETCH(const int, mode);
    QFETCH(const QString, field);

    WriteLinks(LinkRecord("saved.htm"));
    OpenFor(mode);
    Edit(QStringLiteral("Message"));
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QStringLiteral("old.htm"));
    // The target of a row is not edited.
    QCOMPARE(Find<QComboBox>(dialog_, "cmbTarget")->currentText(), QString());
    for (const QLineEdit* const edit : dialog_->findChildren<QLineEdit*>()) {
        if (edit->objectName().startsWith(u"txt")) {
            QCOMPARE(edit->text(), edit->objectName() == field ? QStringLiteral("Message") : QString());
        }
    }
}

void tst_frmimlink::defaultOfTheMapIsOffered_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("text");

    const QString none;
    const QString offered = QStringLiteral("The default");
    QTest::newRow("disabled") << 0 << none << none;
    QTest::newRow("status bar") << 1 << none << none;
    QTest::newRow("images") << 2 << offered << none;
    QTest::newRow("text area") << 3 << none << offered;
    QTest::newRow("tool tips") << 4 << none << none;
}

void tst_frmimlink::defaultOfTheMapIsOffered()
{
    QFETCH(const int, mode);
    QFETCH(const QString, image);
    QFETCH(const QString, text);

    folder_->map.Script().SetModeDefault(QStringLiteral("The default"));
    OpenFor(mode);
    QCOMPARE(Find<QLineEdit>(dialog_, "txtDefaultImage")->text(), image);
    QCOMPARE(Find<QLineEdit>(dialog_, "txtDefaultTAreaMessage")->text(), text);
}

void tst_frmimlink::browsingChoosesAnImage_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("other");

    QTest::newRow("default") << QStringLiteral("Command1") << QStringLiteral("txtDefaultImage")
                             << QStringLiteral("txtSwitchImage");
    QTest::newRow("over") << QStringLiteral("Command2") << QStringLiteral("txtSwitchImage")
                          << QStringLiteral("txtDefaultImage");
}

void tst_frmimlink::browsingChoosesAnImage()
{
    QFETCH(const QString, button);
    QFETCH(const QString, field);
    QFETCH(const QString, other);

    QFile image(folder_->Path(QStringLiteral("over.gif")));
    QVERIFY(image.open(QIODevice::WriteOnly));
    OpenFor(JSSwitchImages);
    TypeIn(dialog_, qPrintable(field), "before");
    TypeIn(dialog_, qPrintable(other), "stays");
    QDir::setCurrent(QDir::tempPath());
    robot_->ChooseFile(image.fileName());
    ClickIn(dialog_, qPrintable(button));
    QCOMPARE(Find<QLineEdit>(dialog_, qPrintable(field))->text(), QDir::toNativeSeparators(image.fileName()));
    QCOMPARE(Find<QLineEdit>(dialog_, qPrintable(other))->text(), QStringLiteral("stays"));
    QCOMPARE(robot_->ProposedNames(), QStringList{ QString() });
    QCOMPARE(QDir::current(), QDir(folder_->imgMap.ProgramFolder));
    QVERIFY(dialog_->isVisible());
}

void tst_frmimlink::cancelledBrowsingKeepsTheField()
{
    OpenFor(JSSwitchImages);
    TypeIn(dialog_, "txtDefaultImage", "before");
    QStringList shown;
    robot_->Act([&shown](QDialog& dialog) {
        shown = OfferedFiles(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ClickIn(dialog_, "Command1");
    const QStringList expected = { QStringLiteral("JPG and GIF Files(*.jpg;*.gif)"),
                                   QStringLiteral("JPG Files(*.jpg)"), QStringLiteral("GIF Files(*.Gif)") };
    QCOMPARE(shown, expected);
    QCOMPARE(Find<QLineEdit>(dialog_, "txtDefaultImage")->text(), QStringLiteral("before"));
    QVERIFY(dialog_->isVisible());
}

QTEST_MAIN(tst_frmimlink)

#include "tst_frmimlink.moc"
