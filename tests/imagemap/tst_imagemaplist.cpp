// The image map editor's area list.

#include "tests/imagemap/EditorTest.h"

#include <QHeaderView>

class tst_imagemaplist : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init() { BeginWithPicture(); }
    void cleanup() { End(); }

    void linkedAreasBecomeRows();
    void rowsShowTheirShape();
    void deletingRemovesTheLastRowWhateverIsSelected();
    void rowNumbersFollowTheRowsThereAre();

    void headersAreWholeWithoutAScrollBar_data();
    void headersAreWholeWithoutAScrollBar();
    void aLongDefaultIsShortenedInTheHeaderOnly();
    void lastColumnTakesTheRoomThatIsLeft();
};

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
    test_->ClickRow(0);
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
    test_->map.Script().SetMode(static_cast<JSMode>(mode));
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

void tst_imagemaplist::aLongDefaultIsShortenedInTheHeaderOnly()
{
    constexpr int lengthOfDefault = 20'000;
    test_->DrawRectangle({ 10, 10 }, { 40, 40 });
    test_->map.Script().SetMode(JSTextArea);
    LinkEntry entry;
    entry.SetText(LinkField::Link, QStringLiteral("one.htm"));
    entry.SetText(LinkField::DefaultTextAreaMessage, QString(lengthOfDefault, u'x'));
    test_->map.RelinkArea(0, entry);
    const QHeaderView* const header = test_->List()->header();
    const int message = header->count() - 1;
    const auto tipOf = [this](int column) {
        return test_->List()->model()->headerData(column, Qt::Horizontal, Qt::ToolTipRole).toString();
    };
    QVERIFY(test_->Headers().at(message).size() > lengthOfDefault);
    QCOMPARE(tipOf(message).trimmed(), test_->Headers().at(message).trimmed());
    QCOMPARE(tipOf(0), QString());
    QVERIFY(header->sectionSizeHint(message) < 2 * test_->List()->viewport()->width());
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

QTEST_MAIN(tst_imagemaplist)

#include "tst_imagemaplist.moc"
