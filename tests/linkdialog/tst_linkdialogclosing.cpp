// Rewriting an area in the dialog, and closing it without.

#include "tests/linkdialog/LinkDialogTest.h"

class tst_linkdialogclosing : public LinkDialogTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { SetUp(); }
    void cleanup() { TearDown(); }

    void replacingRewritesTheRowOnly_data();
    void replacingRewritesTheRowOnly();
    void replacingWithoutScriptClearsTheMessage();

    void closingDiscardsANewFigure_data();
    void closingDiscardsANewFigure();
    void closingDiscardsANewPolygon();
    void closingKeepsAnEditedArea_data();
    void closingKeepsAnEditedArea();

    void enterReplacesAnEditedArea();

private:
    void CloseBy(const QString& way);
};

void tst_linkdialogclosing::CloseBy(const QString& way)
{
    if (way == u"button") {
        ClickIn(dialog_, "SSCmdClose");
    } else if (way == u"Esc") {
        QTest::keyClick(dialog_, Qt::Key_Escape);
    } else {
        dialog_->close();
    }
}

void tst_linkdialogclosing::replacingRewritesTheRowOnly_data()
{
    AddAcceptedAreas();
}

void tst_linkdialogclosing::replacingRewritesTheRowOnly()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);

    folder_->map.Script().SetModeDefault(QStringLiteral("untouched"));
    OpenFor(mode, kindLine);
    Edit(QStringLiteral("Old"));
    const FigureStore before = folder_->map.Ledger();
    Fill(CompleteFor(mode));
    TypeIn(dialog_, "cmbTarget", "_blank");
    ClickIn(dialog_, "SSCmdReplace");
    QTRY_VERIFY(dialog_ == nullptr);
    QStringList calls = { QStringLiteral("replace a.htm %1").arg(message) };
    if (!header.isEmpty()) {
        calls << u"header" + header;
    }
    calls << QStringLiteral("status");
    QCOMPARE(watcher_->calls, calls);
    QCOMPARE(folder_->map.Script().ModeDefault(), modeDefault);
    QVERIFY(folder_->map.Ledger().Figures == before.Figures);
    QVERIFY(folder_->map.Ledger().PolygonLines == before.PolygonLines);
    QVERIFY(folder_->map.Ledger().CurrentPolygon == before.CurrentPolygon);
    QCOMPARE(folder_->map.Ledger().FigureCount, before.FigureCount);
    QCOMPARE(folder_->map.Ledger().CurrentPolygonLineCount, before.CurrentPolygonLineCount);
}

void tst_linkdialogclosing::replacingWithoutScriptClearsTheMessage()
{
    OpenFor(JSDisabled);
    Edit(QStringLiteral("left over from another mode"));
    ClickIn(dialog_, "SSCmdReplace");
    QCOMPARE(watcher_->calls.constFirst(), QStringLiteral("replace old.htm "));
}

void tst_linkdialogclosing::closingDiscardsANewFigure_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << QStringLiteral("button");
    QTest::newRow("Esc") << QStringLiteral("Esc");
    QTest::newRow("close box") << QStringLiteral("close box");
}

void tst_linkdialogclosing::closingDiscardsANewFigure()
{
    QFETCH(const QString, way);

    OpenFor(JSTextArea, kindCircle);
    Fill(CompleteFor(JSTextArea));
    CloseBy(way);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(folder_->map.Ledger().FigureCount, 0);
    const QStringList calls = { QStringLiteral("repaint"), QStringLiteral("status") };
    QCOMPARE(watcher_->calls, calls);
    QCOMPARE(folder_->map.Script().ModeDefault(), QString());
}

void tst_linkdialogclosing::closingDiscardsANewPolygon()
{
    OpenFor(JSDisabled, kindLine);
    ClickIn(dialog_, "SSCmdClose");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(folder_->map.Ledger().FigureCount, 0);
    QCOMPARE(folder_->map.Ledger().PolygonLineCount, 0);
    QCOMPARE(folder_->map.Ledger().CurrentPolygonLineCount, 0);
}

void tst_linkdialogclosing::closingKeepsAnEditedArea_data()
{
    closingDiscardsANewFigure_data();
}

void tst_linkdialogclosing::closingKeepsAnEditedArea()
{
    QFETCH(const QString, way);

    OpenFor(JSDisabled);
    Edit();
    CloseBy(way);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(folder_->map.Ledger().FigureCount, 1);
    QCOMPARE(watcher_->calls, QStringList{ QStringLiteral("status") });
}

void tst_linkdialogclosing::enterReplacesAnEditedArea()
{
    OpenFor(JSDisabled);
    Edit();
    QTest::keyClick(Find<QComboBox>(dialog_, "cmbLink"), Qt::Key_Return);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(watcher_->calls.constFirst(), QStringLiteral("replace old.htm "));
}

QTEST_MAIN(tst_linkdialogclosing)

#include "tst_linkdialogclosing.moc"
