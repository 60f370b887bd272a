// The image map editor's area list, editing the areas in it, and putting the map into the document.

#include "shared/Paths.h"
#include "tests/imagemap/EditorFixture.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QTabWidget>
#include <memory>

namespace {

const QString editHint =
    QStringLiteral("To edit already set data, select an Item in the Image Map Preview Box !");
const QString doubleClickHint = QStringLiteral("To edit already set data, double click on an Item !");

/** The markup of a map without areas and attributes, of the picture that the tests open. */
QString EmptyMap(const QString& source, const QString& attributes)
{
    return QStringLiteral("<!-- This Image Map was created by Cartolen -->\r\n"
                          "<!-- https://cartolen.example/ -->\r\n"
                          "<IMG SRC=\"%1\" USEMAP=\"#MyImageMap\" %2>\r\n"
                          "<MAP NAME=\"MyImageMap\">\r\n"
                          "</MAP>\r\n"
                          "<!-- End Image Map-->")
        .arg(source, attributes);
}

} // namespace

class tst_imagemaplist : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void linkedAreasBecomeRows();
    void rowsShowTheirShape();
    void deletingRemovesTheLastRowWhateverIsSelected();
    void rowNumbersFollowTheRowsThereAre();

    void editingNeedsASelectedRow();
    void doubleClickBesideTheRowsNeedsASelectedRow();
    void doubleClickOnTheEmptyListDoesNothing();
    void doubleClickEditsTheRow();
    void doubleClickOfAnotherButtonEditsNothing_data();
    void doubleClickOfAnotherButtonEditsNothing();
    void headersAreWholeWithoutAScrollBar_data();
    void headersAreWholeWithoutAScrollBar();
    void lastColumnTakesTheRoomThatIsLeft();
    void enterEditsTheSelectedRow();
    void rowCanBeEditedAgainAtOnce();
    void editDataEditsTheSelectedRow_data();
    void editDataEditsTheSelectedRow();
    void replacingRewritesOnlyLinkAndMessage();
    void closingTheEditedAreaChangesNothing_data();
    void closingTheEditedAreaChangesNothing();
    void captionAndPromptFollowTheMode_data();
    void captionAndPromptFollowTheMode();
    void rowIsOpenedForEditingOnce();
    void doubleClickWhoseReleaseComesLateLeavesNoStuckButton();

    void insertingNeedsAMapName();
    void insertingWritesTheAreas();
    void insertingUsesTheAttributes();
    void insertingFallsBackToThePicturesSize();
    void insertingNamesThePictureOnlyWhenAsked();
    void insertingTwiceWritesTheMapTwice();
    void insertingWithoutAreasWritesAnEmptyMap();
    void insertingChangesNothingInTheEditor();

private:
    /** What a page refers to the picture by. */
    [[nodiscard]] QString PictureReference() const
    {
        QString path = test_->folder.Path(QStringLiteral("picture.jpg"));
        return PathToFileUrl(path);
    }
    void SelectRow(int index);
    void DoubleClickRow(int index);
    std::unique_ptr<EditorFixture> test_;
};

void tst_imagemaplist::init()
{
    test_ = std::make_unique<EditorFixture>();
    QVERIFY(test_->Start());
    test_->OpenPicture({ 300, 200 });
}

void tst_imagemaplist::cleanup()
{
    const QString problems = test_->robot.Problems();
    test_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

void tst_imagemaplist::SelectRow(int index)
{
    const QRect row = test_->RowRect(index);
    QTest::mouseClick(test_->List()->viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(20, 5));
}

void tst_imagemaplist::DoubleClickRow(int index)
{
    const QRect row = test_->RowRect(index);
    QTest::mouseDClick(test_->List()->viewport(), Qt::LeftButton, {}, row.topLeft() + QPoint(20, 5));
}

void tst_imagemaplist::linkedAreasBecomeRows()
{
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 12 }, { 40, 42 }); });
    TypeIn(dialog, "cmbLink", "one.htm");
    TypeIn(dialog, "cmbTarget", "_top");
    ClickIn(dialog, "SSCmdOK");
    test_->DrawCircle({ 100, 100 }, { 150, 110 }, "two.htm");
    test_->DrawPolygon({ { 200, 20 }, { 250, 20 }, { 250, 90 } }, "three.htm");
    QCOMPARE(test_->RowCount(), 3);
    const QStringList rectangle = { QStringLiteral(" No: 1 Rectangle"), QStringLiteral("one.htm"),
                                    QStringLiteral("_top"), QStringLiteral("10, 12, 40, 42"), QString() };
    const QStringList circle = { QStringLiteral(" No: 2 Circle"), QStringLiteral("two.htm"), QString(),
                                 QStringLiteral("100, 100, 50"), QString() };
    const QStringList polygon = { QStringLiteral(" No: 3 Polygon"), QStringLiteral("three.htm"), QString(),
                                  QStringLiteral("200, 20, 250, 20, 250, 90"), QString() };
    QCOMPARE(test_->Row(0), rectangle);
    QCOMPARE(test_->Row(1), circle);
    QCOMPARE(test_->Row(2), polygon);
}

void tst_imagemaplist::rowsShowTheirShape()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->DrawCircle({ 100, 100 }, { 150, 110 });
    test_->DrawPolygon({ { 200, 20 }, { 250, 20 }, { 250, 90 } });
    const QStringList icons = { QStringLiteral("area-rectangle"), QStringLiteral("area-circle"),
                                QStringLiteral("area-polygon") };
    for (int i = 0; i < icons.size(); ++i) {
        const QImage shown = test_->RowIcon(i).pixmap(16, 16).toImage();
        QVERIFY2(!shown.isNull(), qPrintable(icons[i]));
        QCOMPARE(shown, QIcon(QStringLiteral(":/icons/%1.svg").arg(icons[i])).pixmap(16, 16).toImage());
    }
}

void tst_imagemaplist::deletingRemovesTheLastRowWhateverIsSelected()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawRectangle({ 60, 10 }, { 90, 40 }, "two.htm");
    test_->DrawRectangle({ 110, 10 }, { 140, 40 }, "three.htm");
    SelectRow(0);
    test_->ClickButton(14);
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(test_->Row(0).at(1), QStringLiteral("one.htm"));
    QCOMPARE(test_->Row(1).at(1), QStringLiteral("two.htm"));
    QCOMPARE(test_->SelectedRows(), QList<int>{ 0 });
}

void tst_imagemaplist::rowNumbersFollowTheRowsThereAre()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->DrawRectangle({ 60, 10 }, { 90, 40 });
    test_->ClickButton(14);
    test_->DrawCircle({ 100, 100 }, { 150, 110 });
    QCOMPARE(test_->Row(1).at(0), QStringLiteral(" No: 2 Circle"));
}

void tst_imagemaplist::editingNeedsASelectedRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickButton(12);
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->Entry("mnuLink")->trigger();
    QCOMPARE(test_->robot.Boxes().size(), 2);
    for (const DialogRobot::SeenBox& box : test_->robot.Boxes()) {
        QCOMPARE(box.text, editHint);
        QCOMPARE(box.title, QStringLiteral("Cartolen"));
        QCOMPARE(box.icon, QMessageBox::Information);
        QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    }
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemaplist::doubleClickBesideTheRowsNeedsASelectedRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->robot.AnswerBox(QMessageBox::Ok);
    QTest::mouseDClick(
        test_->List()->viewport(), Qt::LeftButton, {},
        test_->List()->viewport()->rect().bottomLeft() + QPoint(9, -9));
    test_->robot.WaitUntilDone();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, doubleClickHint);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
}

void tst_imagemaplist::doubleClickOnTheEmptyListDoesNothing()
{
    QTest::mouseDClick(test_->List()->viewport(), Qt::LeftButton, {}, QPoint(20, 20));
    test_->Settle();
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_imagemaplist::doubleClickEditsTheRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawRectangle({ 60, 10 }, { 90, 40 }, "two.htm");
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { DoubleClickRow(1); });
    QCOMPARE(dialog->objectName(), QStringLiteral("frmIMLink"));
    QCOMPARE(Find<QComboBox>(dialog, "cmbLink")->currentText(), QStringLiteral("two.htm"));
    TypeIn(dialog, "cmbLink", "new.htm");
    ClickIn(dialog, "SSCmdReplace");
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->Row(0).at(1), QStringLiteral("one.htm"));
    QCOMPARE(test_->Row(1).at(1), QStringLiteral("new.htm"));
}

void tst_imagemaplist::doubleClickOfAnotherButtonEditsNothing_data()
{
    QTest::addColumn<Qt::MouseButton>("button");
    QTest::newRow("right") << Qt::RightButton;
    QTest::newRow("middle") << Qt::MiddleButton;
}

void tst_imagemaplist::doubleClickOfAnotherButtonEditsNothing()
{
    QFETCH(const Qt::MouseButton, button);
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    SelectRow(0);
    const QRect row = test_->RowRect(0);
    QTest::mouseDClick(test_->List()->viewport(), button, {}, row.topLeft() + QPoint(20, 5));
    test_->Settle();
    QCOMPARE(test_->editor->findChildren<QDialog*>().size(), 0);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemaplist::headersAreWholeWithoutAScrollBar_data()
{
    QTest::addColumn<int>("mode");
    for (const int mode : { 0, 1, 2, 3, 4 }) {
        QTest::addRow("mode %d", mode) << mode;
    }
}

void tst_imagemaplist::headersAreWholeWithoutAScrollBar()
{
    QFETCH(const int, mode);
    test_->map.SetMode(static_cast<JSMode>(mode));
    test_->LoadEditor();
    QVERIFY(test_->Start());
    const QHeaderView* const header = test_->List()->header();
    QTRY_COMPARE(header->length(), test_->List()->viewport()->width());
    for (int column = 0; column < header->count(); ++column) {
        QVERIFY(header->sectionSize(column) >= header->sectionSizeHint(column));
        const QString caption = test_->Headers().at(column);
        const QRect room(0, 0, header->sectionSize(column), header->height());
        QVERIFY2(
            room.contains(header->fontMetrics().boundingRect(room, Qt::TextWordWrap, caption)),
            qPrintable(caption));
    }
    QVERIFY(!test_->List()->horizontalScrollBar()->isVisible());
}

void tst_imagemaplist::lastColumnTakesTheRoomThatIsLeft()
{
    QHeaderView* const header = test_->List()->header();
    test_->editor->resize(test_->editor->size() + QSize(150, 0));
    QTRY_COMPARE(header->length(), test_->List()->viewport()->width());
    header->resizeSection(2, header->sectionSize(2) - 10);
    QCOMPARE(header->length(), test_->List()->viewport()->width());
    test_->editor->resize(test_->editor->size() - QSize(150, 0));
    QTRY_VERIFY(header->length() == test_->List()->viewport()->width());
}

void tst_imagemaplist::enterEditsTheSelectedRow()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    SelectRow(0);
    const QPointer<QDialog> dialog =
        test_->DialogOpenedBy([this] { QTest::keyClick(test_->List(), Qt::Key_Return); });
    QCOMPARE(Find<QComboBox>(dialog, "cmbLink")->currentText(), QStringLiteral("one.htm"));
    dialog->close();
}

void tst_imagemaplist::rowCanBeEditedAgainAtOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    SelectRow(0);
    const auto edit = [this] { test_->Entry("mnuLink")->trigger(); };
    const QPointer<QDialog> first = test_->DialogOpenedBy(edit);
    first->close();
    const QPointer<QDialog> again = test_->DialogOpenedBy(edit);
    QVERIFY(again != nullptr);
    QCOMPARE(Find<QComboBox>(again, "cmbLink")->currentText(), QStringLiteral("one.htm"));
    again->close();
}

void tst_imagemaplist::editDataEditsTheSelectedRow_data()
{
    QTest::addColumn<bool>("isByMenu");

    QTest::newRow("toolbar") << false;
    QTest::newRow("menu") << true;
}

void tst_imagemaplist::editDataEditsTheSelectedRow()
{
    QFETCH(const bool, isByMenu);

    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawCircle({ 100, 100 }, { 150, 110 }, "two.htm");
    SelectRow(0);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this, isByMenu] {
        if (isByMenu) {
            test_->Entry("mnuLink")->trigger();
        } else {
            test_->ClickButton(12);
        }
    });
    QVERIFY(dialog->isModal());
    QCOMPARE(Find<QComboBox>(dialog, "cmbLink")->currentText(), QStringLiteral("one.htm"));
    QVERIFY(Find<QPushButton>(dialog, "SSCmdReplace")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog, "SSCmdOK")->isEnabled());
    dialog->close();
}

void tst_imagemaplist::replacingRewritesOnlyLinkAndMessage()
{
    test_->map.SetMode(JSStatusBar);
    test_->ClickButton(5);
    QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 10 }, { 40, 40 }); });
    TypeIn(dialog, "cmbLink", "one.htm");
    TypeIn(dialog, "cmbTarget", "_top");
    TypeIn(dialog, "txtStatusBarMessage", "Old");
    ClickIn(dialog, "SSCmdOK");
    test_->DrawCircle({ 100, 100 }, { 150, 110 }, "two.htm");
    const FigureStore::Records figures = test_->map.Ledger().Figures;
    const QImage pixels = test_->Pixels();

    SelectRow(0);
    dialog = test_->DialogOpenedBy([this] { test_->ClickButton(12); });
    QCOMPARE(Find<QLineEdit>(dialog, "txtStatusBarMessage")->text(), QStringLiteral("Old"));
    TypeIn(dialog, "cmbLink", "new.htm");
    TypeIn(dialog, "cmbTarget", "_blank");
    TypeIn(dialog, "txtStatusBarMessage", "New");
    ClickIn(dialog, "SSCmdReplace");
    QTRY_VERIFY(dialog == nullptr);

    const QStringList row = { QStringLiteral(" No: 1 Rectangle"), QStringLiteral("new.htm"),
                              QStringLiteral("_top"), QStringLiteral("10, 10, 40, 40"),
                              QStringLiteral("New") };
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->Row(1).at(1), QStringLiteral("two.htm"));
    QCOMPARE(test_->RowCount(), 2);
    QVERIFY(test_->map.Ledger().Figures == figures);
    QCOMPARE(test_->map.Ledger().FigureCount, 2);
    QCOMPARE(test_->Pixels(), pixels);
    QCOMPARE(test_->SelectedRows(), QList<int>{ 0 });
}

void tst_imagemaplist::closingTheEditedAreaChangesNothing_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << QStringLiteral("button");
    QTest::newRow("Esc") << QStringLiteral("Esc");
    QTest::newRow("close box") << QStringLiteral("close box");
}

void tst_imagemaplist::closingTheEditedAreaChangesNothing()
{
    QFETCH(const QString, way);

    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawPolygon({ { 200, 20 }, { 250, 20 }, { 250, 90 } }, "two.htm");
    const QImage before = test_->Pixels();
    SelectRow(0);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->ClickButton(12); });
    TypeIn(dialog, "cmbLink", "new.htm");
    if (way == u"button") {
        ClickIn(dialog, "SSCmdClose");
    } else if (way == u"Esc") {
        QTest::keyClick(dialog, Qt::Key_Escape);
    } else {
        dialog->close();
    }
    QTRY_VERIFY(dialog == nullptr);
    QCOMPARE(test_->map.Ledger().FigureCount, 2);
    QCOMPARE(test_->RowCount(), 2);
    QCOMPARE(test_->Row(0).at(1), QStringLiteral("one.htm"));
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Line, draw Polygons !"));
}

void tst_imagemaplist::captionAndPromptFollowTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<QString>("prompt");
    QTest::addColumn<QString>("field");

    const auto add = [](int mode, const char* caption, const char* prompt, const char* field) {
        QTest::newRow(caption) << mode << QString::fromLatin1(caption) << QString::fromLatin1(prompt)
                               << QString::fromLatin1(field);
    };
    add(0, "Standard Image Map", "Replace an existing link !", "");
    add(1, "Image Map - Status Bar Message", "Replace an existing link or your status bar message!",
        "txtStatusBarMessage");
    add(2, "Image Map - Switching Images", "Replace an existing link or your images!", "txtSwitchImage");
    add(3, "Image Map - Text Area Messages", "Replace an existing link or your text area messages!",
        "txtSwitchingTAreaMessage");
    add(4, "Image Map - Tool Tip Messages", "Replace an existing link or your tool tip messages!",
        "txtToolTipMessage");
}

void tst_imagemaplist::captionAndPromptFollowTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, caption);
    QFETCH(const QString, prompt);
    QFETCH(const QString, field);

    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->map.SetMode(static_cast<JSMode>(mode));
    LinkEntry entry;
    entry.Fields.fill(QStringLiteral("Message"));
    test_->map.RelinkArea(0, entry);
    test_->map.SetModeDefault(QString());
    SelectRow(0);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->ClickButton(12); });
    QCOMPARE(dialog->windowTitle(), caption);
    QCOMPARE(test_->Status(), prompt);
    for (const QLineEdit* const edit : dialog->findChildren<QLineEdit*>()) {
        if (edit->objectName().startsWith(u"txt")) {
            QCOMPARE(edit->text(), edit->objectName() == field ? QStringLiteral("Message") : QString());
        }
    }
    dialog->close();
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

void tst_imagemaplist::rowIsOpenedForEditingOnce()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] {
        DoubleClickRow(0);
        DoubleClickRow(0);
    });
    test_->Settle();
    QCOMPARE(test_->editor->findChildren<QDialog*>().size(), 1);
    dialog->close();
}

void tst_imagemaplist::doubleClickWhoseReleaseComesLateLeavesNoStuckButton()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 }, "one.htm");
    test_->DrawRectangle({ 60, 10 }, { 90, 40 }, "two.htm");
    QWidget* const rows = test_->List()->viewport();
    const QPoint at = test_->RowRect(0).topLeft() + QPoint(20, 5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([rows, at] {
        QTest::mouseClick(rows, Qt::LeftButton, {}, at);
        // The second press comes within the time of a double click.
        QTest::lastMouseTimestamp -= QTest::mouseDoubleClickInterval;
        QTest::mousePress(rows, Qt::LeftButton, {}, at);
    });
    QTest::mouseRelease(rows, Qt::LeftButton, {}, at);
    ClickIn(dialog, "SSCmdClose");
    QTRY_VERIFY(dialog == nullptr);
    test_->ClickButton(6);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Circle !"));
    SelectRow(1);
    QCOMPARE(test_->SelectedRows(), QList<int>{ 1 });
}

void tst_imagemaplist::insertingNeedsAMapName()
{
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    test_->Find<QLineEdit>("txtName")->clear();
    test_->robot.AnswerBox(QMessageBox::Ok);
    test_->ClickButton(16);
    const DialogRobot::SeenBox box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("Please, enter the Image Map Name !"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QCOMPARE(test_->Find<QTabWidget>("SSTab1")->currentIndex(), 0);
    QCOMPARE(test_->editor->focusWidget(), test_->Find<QWidget>("txtName"));
    QVERIFY(test_->document.inserted.isEmpty());
    QTest::keyClick(test_->editor->focusWidget(), Qt::Key_Space);
    test_->ClickButton(16);
    QCOMPARE(test_->document.inserted.size(), 1);
    QVERIFY(test_->document.inserted[0].contains(u"<MAP NAME=\" \">"));
}

void tst_imagemaplist::insertingWritesTheAreas()
{
    test_->ClickButton(5);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Drag({ 10, 12 }, { 40, 42 }); });
    TypeIn(dialog, "cmbLink", "one.htm");
    TypeIn(dialog, "cmbTarget", "_top");
    ClickIn(dialog, "SSCmdOK");
    test_->map.SetMode(JSStatusBar);
    test_->ClickButton(6);
    const QPointer<QDialog> second = test_->DialogOpenedBy([this] {
        test_->Drag({ 100, 100 }, { 150, 110 });
    });
    TypeIn(second, "cmbLink", "two.htm");
    TypeIn(second, "txtStatusBarMessage", "Home page");
    ClickIn(second, "SSCmdOK");
    test_->Entry("mnuInsert")->trigger();
    QCOMPARE(test_->document.inserted.size(), 1);
    QCOMPARE(
        test_->document.inserted[0],
        QStringLiteral("<!-- This Image Map was created by Cartolen -->\r\n"
                       "<!-- https://cartolen.example/ -->\r\n"
                       "<IMG SRC=\"%1\" USEMAP=\"#MyImageMap\" WIDTH=300 HEIGHT=200 BORDER=0>\r\n"
                       "<MAP NAME=\"MyImageMap\">\r\n"
                       "<AREA SHAPE=RECT COORDS=\"10, 12, 40, 42\" HREF=\"one.htm\" TARGET=\"_top\">\r\n"
                       "<AREA SHAPE=CIRCLE COORDS=\"100, 100, 50\" HREF=\"two.htm\""
                       " onMouseOver=\"window.status='Home page';return true\""
                       " onMouseOut=\"window.status='';return true\" ALT=\"Home page\">\r\n"
                       "</MAP>\r\n"
                       "<!-- End Image Map-->")
            .arg(PictureReference()));
}

void tst_imagemaplist::insertingUsesTheAttributes()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    TypeIn(test_->editor, "txtImgWidth", "50%");
    TypeIn(test_->editor, "txtImgHeight", "70");
    TypeIn(test_->editor, "txtAltDescript", "The \"harbour\"");
    TypeIn(test_->editor, "txtBorder", "2");
    TypeIn(test_->editor, "txtHorSp", "5");
    TypeIn(test_->editor, "txtVertSp", "6");
    // What was typed must not turn into the offered item that begins like it.
    test_->Find<QTabWidget>("SSTab1")->setCurrentIndex(1);
    test_->editor->activateWindow();
    test_->Find<QWidget>("cmbAlign")->setFocus();
    QTRY_VERIFY(test_->Find<QWidget>("cmbAlign")->hasFocus());
    TypeIn(test_->editor, "cmbAlign", "lef");
    QCOMPARE(test_->Find<QComboBox>("cmbAlign")->currentText(), QStringLiteral("lef"));
    TypeIn(test_->editor, "cmbAlign", "left");
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[0].contains(
        u" WIDTH=50% HEIGHT=70 ALT=\"The \"harbour\"\" BORDER=2 HSPACE=5 VSPACE=6 ALIGN=left>\r\n"));
    test_->Find<QComboBox>("cmbAlign")->setCurrentIndex(7);
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[1].contains(u" VSPACE=6 ALIGN=BOTTOM>\r\n"));
}

void tst_imagemaplist::insertingFallsBackToThePicturesSize()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    test_->Find<QLineEdit>("txtImgWidth")->clear();
    test_->Find<QLineEdit>("txtImgHeight")->clear();
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[0].contains(u" WIDTH=300 HEIGHT=200 BORDER=0>\r\n"));
}

void tst_imagemaplist::insertingNamesThePictureOnlyWhenAsked()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    QTest::keyClick(test_->Find<QCheckBox>("Check1"), Qt::Key_Space);
    QVERIFY(test_->Find<QCheckBox>("Check1")->isChecked());
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[0].contains(u"<IMG SRC=\"picture.jpg\" USEMAP="));
    QTest::keyClick(test_->Find<QCheckBox>("Check1"), Qt::Key_Space);
    test_->ClickButton(16);
    QVERIFY(test_->document.inserted[1].contains(u"<IMG SRC=\"" + PictureReference() + u"\" USEMAP="));
}

void tst_imagemaplist::insertingTwiceWritesTheMapTwice()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    test_->ClickButton(16);
    test_->ClickButton(16);
    QCOMPARE(test_->document.inserted.size(), 2);
    QCOMPARE(test_->document.inserted[0], test_->document.inserted[1]);
}

void tst_imagemaplist::insertingWithoutAreasWritesAnEmptyMap()
{
    // The commands are there as soon as a figure has been started.
    test_->ClickButton(7);
    test_->ClickAt({ 20, 20 });
    test_->ClickButton(16);
    QCOMPARE(
        test_->document.inserted,
        QStringList{ EmptyMap(PictureReference(), QStringLiteral("WIDTH=300 HEIGHT=200 BORDER=0")) });
}

void tst_imagemaplist::insertingChangesNothingInTheEditor()
{
    test_->DrawRectangle({ 10, 12 }, { 40, 42 });
    const QImage before = test_->Pixels();
    const QStringList row = test_->Row(0);
    test_->ClickButton(16);
    QCOMPARE(test_->Pixels(), before);
    QCOMPARE(test_->Row(0), row);
    QCOMPARE(test_->map.Ledger().FigureCount, 1);
    QCOMPARE(test_->Status(), QStringLiteral("Drawing Mode - Rectangle !"));
}

QTEST_MAIN(tst_imagemaplist)
#include "tst_imagemaplist.moc"
