// Linking a new area in the dialog.

#include "tests/linkdialog/LinkDialogTest.h"

class tst_linkdialogaccepting : public LinkDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }
    void cleanup() { TearDown(); }

    void missingFieldsAreAskedForInOrder_data();
    void missingFieldsAreAskedForInOrder();
    void blanksCountAsAText();
    void statusBarMessageMayBeEmpty();

    void acceptingAddsARow_data();
    void acceptingAddsARow();
    void acceptingWritesTheFigure_data();
    void acceptingWritesTheFigure();
    void acceptingAPolygonFinishesIt();
    void acceptingAnUnknownKindAddsNoRow();
    void rowNumberCountsTheRows();

    void enterAccepts_data();
    void enterAccepts();
};

void tst_linkdialogaccepting::missingFieldsAreAskedForInOrder_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("isReplacing");
    QTest::addColumn<int>("filled");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");

    const QString application = QStringLiteral("Cartolen");
    const QString link = QStringLiteral("Please, enter the Link to get conected to !");
    const QStringList names = { QStringLiteral("disabled"), QStringLiteral("status bar"),
                                QStringLiteral("images"), QStringLiteral("text area"),
                                QStringLiteral("tool tips") };
    const QList<QStringList> texts = {
        { link },
        { link },
        { link, QStringLiteral("Please, enter the Default Image File Name !"),
          QStringLiteral("Please, enter the File Name for Image to switch to !") },
        { link, QStringLiteral("Please, enter the Default Message !"),
          QStringLiteral("Please, enter the Message to switch to !") },
        { link, QStringLiteral("Please, enter the Tool Tip Message !") },
    };
    for (const bool isReplacing : { false, true }) {
        for (int mode = 0; mode < 5; ++mode) {
            for (int filled = 0; filled < texts[mode].size(); ++filled) {
                const bool hasOwnTitle = mode == 4 && filled == 0 && !isReplacing;
                QTest::addRow(
                    "%s, %s, %d filled", isReplacing ? "replace" : "ok", qPrintable(names[mode]), filled)
                    << mode << isReplacing << filled << texts[mode][filled]
                    << (hasOwnTitle ? QStringLiteral("Image Map Link") : application);
            }
        }
    }
}

void tst_linkdialogaccepting::missingFieldsAreAskedForInOrder()
{
    QFETCH(const int, mode);
    QFETCH(const bool, isReplacing);
    QFETCH(const int, filled);
    QFETCH(const QString, text);
    QFETCH(const QString, title);

    OpenFor(mode);
    if (isReplacing) {
        Edit();
        Find<QComboBox>(dialog_, "cmbLink")->clearEditText();
    }
    folder_->map.Script().SetModeDefault(QStringLiteral("untouched"));
    Fill(CompleteFor(mode).first(filled));
    // The last field alone does not make up for those before it.
    if (filled + 1 < CompleteFor(mode).size() && CompleteFor(mode).size() == 3) {
        Fill({ CompleteFor(mode).constLast() });
    }
    robot_->AnswerBox(QMessageBox::Ok);
    ClickIn(dialog_, isReplacing ? "SSCmdReplace" : "SSCmdOK");
    QCOMPARE(robot_->Boxes().size(), 1);
    const DialogRobot::SeenBox box = robot_->Boxes().constFirst();
    QCOMPARE(box.text, text);
    QCOMPARE(box.title, title);
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(dialog_ != nullptr && dialog_->isVisible());
    QCOMPARE(watcher_->calls, QStringList());
    QCOMPARE(folder_->map.Script().ModeDefault(), QStringLiteral("untouched"));
    QCOMPARE(folder_->map.Ledger().Figures[0].Link, QString());
    QCOMPARE(folder_->map.Ledger().FigureCount, 1);
}

void tst_linkdialogaccepting::blanksCountAsAText()
{
    OpenFor(JSTextArea);
    Fill({ { "cmbLink", " " }, { "txtDefaultTAreaMessage", "  " }, { "txtSwitchingTAreaMessage", " " } });
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Link, QStringLiteral(" "));
    QCOMPARE(Rows()[0].Message, QStringLiteral(" "));
    QCOMPARE(folder_->map.Script().ModeDefault(), QStringLiteral("  "));
}

void tst_linkdialogaccepting::statusBarMessageMayBeEmpty()
{
    OpenFor(JSStatusBar);
    Fill({ { "cmbLink", "a.htm" } });
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Message, QString());
}

void tst_linkdialogaccepting::acceptingAddsARow_data()
{
    AddAcceptedAreas();
}

void tst_linkdialogaccepting::acceptingAddsARow()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);

    QDir::setCurrent(QDir::tempPath());
    folder_->map.Script().SetModeDefault(QStringLiteral("untouched"));
    OpenFor(mode);
    Fill(CompleteFor(mode));
    TypeIn(dialog_, "cmbTarget", "main");
    ClickIn(dialog_, "SSCmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    const AreaRow row = { .Text = QStringLiteral(" No: 1 Rectangle"),
                          .Link = QStringLiteral("a.htm"),
                          .Target = QStringLiteral("main"),
                          .Coordinates = QStringLiteral("10, 20, 90, 80"),
                          .Message = message,
                          .SmallIcon = 1 };
    QCOMPARE(Rows().size(), 1);
    QVERIFY(Rows()[0] == row);
    QCOMPARE(folder_->map.Script().ModeDefault(), modeDefault);
    QStringList calls;
    if (!header.isEmpty()) {
        calls << u"header" + header;
    }
    calls << QStringLiteral("append") << QStringLiteral("status");
    QCOMPARE(watcher_->calls, calls);
    QCOMPARE(QDir::current(), QDir(folder_->imgMap.ProgramFolder));
}

void tst_linkdialogaccepting::acceptingWritesTheFigure_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("coordinates");
    QTest::addColumn<int>("icon");

    QTest::newRow("rectangle") << 5 << QStringLiteral(" No: 1 Rectangle") << QStringLiteral("10, 20, 90, 80")
                               << 1;
    QTest::newRow("circle") << 6 << QStringLiteral(" No: 1 Circle") << QStringLiteral("90, 80, 33") << 2;
}

void tst_linkdialogaccepting::acceptingWritesTheFigure()
{
    QFETCH(const int, kind);
    QFETCH(const QString, text);
    QFETCH(const QString, coordinates);
    QFETCH(const int, icon);

    OpenFor(JSStatusBar, static_cast<qint16>(kind));
    Fill(CompleteFor(JSStatusBar));
    TypeIn(dialog_, "cmbTarget", "_top");
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Text, text);
    QCOMPARE(Rows()[0].Coordinates, coordinates);
    QCOMPARE(Rows()[0].SmallIcon, icon);
    const FigureRecord& figure = folder_->map.Ledger().Figures[0];
    QCOMPARE(figure.Link, QStringLiteral("a.htm"));
    QCOMPARE(figure.Target, QStringLiteral("_top"));
    QCOMPARE(figure.Message, QStringLiteral("Hello"));
    QCOMPARE(QPoint(figure.X1, figure.Y1), QPoint(90, 80));
    QCOMPARE(QPoint(figure.X2, figure.Y2), QPoint(10, 20));
    QCOMPARE(folder_->map.Ledger().FigureCount, 1);
}

void tst_linkdialogaccepting::acceptingAPolygonFinishesIt()
{
    OpenFor(JSToolTips, kindLine);
    Fill(CompleteFor(JSToolTips));
    TypeIn(dialog_, "cmbTarget", "_top");
    ClickIn(dialog_, "SSCmdOK");
    const AreaRow row = { .Text = QStringLiteral(" No: 1 Polygon"),
                          .Link = QStringLiteral("a.htm"),
                          .Target = QStringLiteral("_top"),
                          .Coordinates = QStringLiteral("90, 80, 10, 20, 70, 60"),
                          .Message = QStringLiteral("Tip"),
                          .SmallIcon = 3 };
    QCOMPARE(Rows().size(), 1);
    QVERIFY(Rows()[0] == row);
    const FigureStore& store = folder_->map.Ledger();
    QCOMPARE(store.PolygonLines[0].Link, QStringLiteral("a.htm"));
    QCOMPARE(store.PolygonLines[0].Target, QStringLiteral("_top"));
    QCOMPARE(store.Figures[0].Link, QString());
    QCOMPARE(store.CurrentPolygonLineCount, 0);
    QCOMPARE(store.PolygonLineCount, 1);
    QCOMPARE(store.FigureCount, 1);
}

void tst_linkdialogaccepting::acceptingAnUnknownKindAddsNoRow()
{
    OpenFor(JSDisabled);
    folder_->map.Ledger().CurrentKind = 0;
    Fill(CompleteFor(JSDisabled));
    ClickIn(dialog_, "SSCmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(watcher_->calls, QStringList{ QStringLiteral("status") });
    QCOMPARE(folder_->map.Ledger().Figures[0].Link, QStringLiteral("a.htm"));
}

void tst_linkdialogaccepting::rowNumberCountsTheRows()
{
    for (int i = 0; i < 9; ++i) {
        folder_->map.AppendArea({});
    }
    OpenFor(JSDisabled);
    Fill(CompleteFor(JSDisabled));
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().constLast().Text, QStringLiteral(" No: 10 Rectangle"));
}

void tst_linkdialogaccepting::enterAccepts_data()
{
    QTest::addColumn<QString>("field");

    QTest::newRow("link") << QStringLiteral("cmbLink");
    QTest::newRow("target") << QStringLiteral("cmbTarget");
    QTest::newRow("message") << QStringLiteral("txtStatusBarMessage");
}

void tst_linkdialogaccepting::enterAccepts()
{
    QFETCH(const QString, field);

    OpenFor(JSStatusBar);
    Fill(CompleteFor(JSStatusBar));
    auto* const focused = Find<QWidget>(dialog_, qPrintable(field));
    focused->setFocus();
    QTest::keyClick(focused, Qt::Key_Return);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(Rows().size(), 1);
}

QTEST_MAIN(tst_linkdialogaccepting)

#include "tst_linkdialogaccepting.moc"
