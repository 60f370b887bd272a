#include "DrawnAreasTest.h"

#include <QCheckBox>
#include <QClipboard>
#include <QFile>
#include <QRadioButton>

/** Links for areas out of a table: the window that shows them before they are put in. */
class tst_frmtable : public DrawnAreasTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void withoutAreasThereIsNothingToLink();
    void aFileGoesToAllAreasInOrder();
    void theClipboardIsTakenAtOnce();
    void aSingleWordOnTheClipboardIsNotTaken();
    void theSelectedAreasAlone();
    void rowsAreFoundByText();
    void columnsCanBeChosen();
    void theFirstRowCanBeContent();
    void cancelWritesNothing();
    void anEditorThatGoesTakesTheWindowAlong();
    void filesThatAreNoTablesAreTold_data();
    void filesThatAreNoTablesAreTold();
    void anEmptyClipboardIsTold();

private:
    QPointer<QDialog> OpenTable()
    {
        Activate();
        return test_->DialogOpenedBy([this] { Trigger("mnuATable"); });
    }

    /** Opens the window while `copied` is on the clipboard. */
    QPointer<QDialog> OpenTableOf(const QString& copied)
    {
        QGuiApplication::clipboard()->setText(copied);
        return OpenTable();
    }

    QString TablePath() const { return test_->folder.Path(QStringLiteral("links.csv")); }

    /** Makes a file of `bytes` the one that is chosen next. */
    void ChooseFileOf(const QByteArray& bytes)
    {
        QFile file(TablePath());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        test_->robot.ChooseFile(TablePath());
    }

    static QStringList Previewed(const QDialog* dialog, int row)
    {
        return TextsOf(::Find<QTreeView>(dialog, "lstTable")->model(), row);
    }

    static QString Label(const QDialog* dialog, const char* name)
    {
        return ::Find<QLabel>(dialog, name)->text();
    }

    static void Close(const QPointer<QDialog>& dialog, const char* button)
    {
        ClickIn(dialog, button);
        QTRY_VERIFY(dialog == nullptr);
    }

    QStringList Links() const
    {
        QStringList links;
        for (const MapArea& area : test_->map.Areas()) {
            links << area.Link;
        }
        return links;
    }
};

void tst_frmtable::init()
{
    QGuiApplication::clipboard()->clear();
    Begin();
}

void tst_frmtable::withoutAreasThereIsNothingToLink()
{
    QVERIFY(!test_->Entry("mnuATable")->isEnabled());
    test_->OpenPicture();
    QVERIFY(!test_->Entry("mnuATable")->isEnabled());
    DrawTwo();
    QVERIFY(test_->Entry("mnuATable")->isEnabled());
}

void tst_frmtable::aFileGoesToAllAreasInOrder()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTable();
    QVERIFY(!::Find<QPushButton>(dialog, "cmdOK")->isEnabled());
    ChooseFileOf(
        "link;text;target\r\nm\xFCnchen.htm;\"M\xFCnchen; Mitte\";_top\r\nulm.htm;Ulm;\r\nx.htm;X;\r\n");
    ClickIn(dialog, "cmdFile");
    QCOMPARE(Label(dialog, "lblSource"), "links.csv: 4 rows, 3 columns");
    QVERIFY(::Find<QCheckBox>(dialog, "chkHeader")->isChecked());
    QCOMPARE(
        Previewed(dialog, 0), (QStringList{ "No: 1 Rectangle", QStringLiteral("m\u00FCnchen.htm"), "_top", "",
                                            QStringLiteral("M\u00FCnchen; Mitte") }));
    QCOMPARE(Label(dialog, "lblResult"), "Of 2 areas, 2 will be changed. 1 row of the table is for no area.");
    QCOMPARE(Links(), (QStringList{ "one.htm", "two.htm" }));
    Close(dialog, "cmdOK");
    QCOMPARE(Links(), (QStringList{ QStringLiteral("m\u00FCnchen.htm"), "ulm.htm" }));
    QCOMPARE(test_->map.Areas().at(1).Text, "Ulm");
    QCOMPARE(test_->Entry("mnuAUndo")->text(), "&Undo Linking of 2 Areas");
    Trigger("mnuAUndo");
    QCOMPARE(Links(), (QStringList{ "one.htm", "two.htm" }));
    QCOMPARE(test_->map.Areas().at(1).Text, "");
}

void tst_frmtable::theClipboardIsTakenAtOnce()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("Bonn\tbonn.htm\nUlm\tulm.htm\n"));
    QCOMPARE(Label(dialog, "lblSource"), "Clipboard: 2 rows, 2 columns");
    QCOMPARE(Previewed(dialog, 1).at(1), "ulm.htm");
    QCOMPARE(Previewed(dialog, 1).at(4), "Ulm");
    QGuiApplication::clipboard()->setText(QStringLiteral("a.htm\nb.htm"));
    ClickIn(dialog, "cmdPaste");
    QCOMPARE(Previewed(dialog, 1).at(1), "b.htm");
    Close(dialog, "cmdOK");
    QCOMPARE(Links(), (QStringList{ "a.htm", "b.htm" }));
}

void tst_frmtable::aSingleWordOnTheClipboardIsNotTaken()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("word"));
    QVERIFY(!Label(dialog, "lblSource").startsWith(u"Clipboard"));
    QVERIFY(!::Find<QComboBox>(dialog, "cmbLinkColumn")->isEnabled());
    Close(dialog, "cmdCancel");
}

void tst_frmtable::theSelectedAreasAlone()
{
    DrawTwo();
    Trigger("mnuASelect");
    test_->ClickAt({ 120, 40 });
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("a.htm\nb.htm"));
    QCOMPARE(
        Label(dialog, "lblResult"),
        "Of 1 selected area, 1 will be changed. 1 row of the table is for no area.");
    QCOMPARE(Previewed(dialog, 0).at(0), "No: 2 Rectangle");
    Close(dialog, "cmdOK");
    QCOMPARE(Links(), (QStringList{ "one.htm", "a.htm" }));
}

void tst_frmtable::rowsAreFoundByText()
{
    DrawTwo();
    MapAreas areas = test_->map.Areas();
    areas[0].Text = QStringLiteral("Ulm");
    areas[1].Text = QStringLiteral("Bonn");
    test_->map.ChangeAreas(areas, QStringLiteral("Texts"));
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("bonn\tb.htm\nTrier\tt.htm\nULM\tu.htm"));
    ::Find<QRadioButton>(dialog, "optByText")->setFocus();
    QTest::keyClick(::Find<QRadioButton>(dialog, "optByText"), Qt::Key_Space);
    QCOMPARE(Previewed(dialog, 0).at(1), "u.htm");
    Close(dialog, "cmdOK");
    QCOMPARE(Links(), (QStringList{ "u.htm", "b.htm" }));
    QCOMPARE(test_->map.Areas().at(0).Text, "Ulm");
}

void tst_frmtable::columnsCanBeChosen()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("a\tb\nc\td"));
    auto* const message = ::Find<QComboBox>(dialog, "cmbMessageColumn");
    QCOMPARE(message->count(), 3);
    QCOMPARE(message->itemText(0), "(none)");
    QCOMPARE(message->itemText(2), "2: b");
    QTest::keyClick(message, Qt::Key_End);
    QCOMPARE(Previewed(dialog, 1), (QStringList{ "No: 2 Rectangle", "two.htm", "", "d", "c" }));
    QTest::keyClick(::Find<QComboBox>(dialog, "cmbTextColumn"), Qt::Key_Home);
    Close(dialog, "cmdOK");
    QCOMPARE(test_->map.Areas().at(0).Message, "b");
    QCOMPARE(test_->map.Areas().at(0).Text, "");
}

void tst_frmtable::theFirstRowCanBeContent()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("link\nb.htm"));
    QCOMPARE(Previewed(dialog, 0).at(1), "b.htm");
    ::Find<QCheckBox>(dialog, "chkHeader")->setFocus();
    QTest::keyClick(::Find<QCheckBox>(dialog, "chkHeader"), Qt::Key_Space);
    QCOMPARE(Previewed(dialog, 0).at(1), "link");
    Close(dialog, "cmdCancel");
}

void tst_frmtable::cancelWritesNothing()
{
    DrawTwo();
    const QString undo = test_->Entry("mnuAUndo")->text();
    Close(OpenTableOf(QStringLiteral("a.htm\nb.htm")), "cmdCancel");
    QCOMPARE(Links(), (QStringList{ "one.htm", "two.htm" }));
    QCOMPARE(test_->Entry("mnuAUndo")->text(), undo);
}

void tst_frmtable::anEditorThatGoesTakesTheWindowAlong()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("a.htm\nb.htm"));
    delete test_->editor.data();
    QVERIFY(dialog == nullptr);
}

void tst_frmtable::filesThatAreNoTablesAreTold_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QString>("problem");
    QTest::newRow("not of text") << QByteArray("GIF89a\0\0", 8) << "This is no table of text !";
    QTest::newRow("quotes without an end")
        << QByteArray("a,\"b\nc") << "A quotation mark of the table is never closed, in its row 1 !";
}

void tst_frmtable::filesThatAreNoTablesAreTold()
{
    QFETCH(const QByteArray, bytes);
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTableOf(QStringLiteral("a.htm\nb.htm"));
    ChooseFileOf(bytes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    ClickIn(dialog, "cmdFile");
    QFETCH(const QString, problem);
    QCOMPARE(test_->robot.Boxes().constLast().text, QString(problem + u'\n' + TablePath()));
    // What was there stays.
    QCOMPARE(Previewed(dialog, 0).at(1), "a.htm");
    Close(dialog, "cmdCancel");
}

void tst_frmtable::anEmptyClipboardIsTold()
{
    DrawTwo();
    const QPointer<QDialog> dialog = OpenTable();
    test_->robot.AnswerBox(QMessageBox::Ok);
    ClickIn(dialog, "cmdPaste");
    QCOMPARE(test_->robot.Boxes().constLast().text, "There is no table on the clipboard !");
    Close(dialog, "cmdCancel");
}

QTEST_MAIN(tst_frmtable)

#include "tst_frmtable.moc"
