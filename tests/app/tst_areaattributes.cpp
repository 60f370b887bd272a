// The attributes of an area are edited in a table, and coordinates that cannot be drawn as text.

#include "tests/app/EditMapFixture.h"

#include <QTableWidget>

class tst_areaattributes : public EditMapFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { StartWithAPage(); }
    void cleanup() { Finish(); }

    void attributesAreChangedInTheirTable();
    void attributesAreAddedAndRemoved();
    void codeOfATemplateIsReadOnly();
    void areasThatCannotBeDrawnStay();
    void coordinatesThatCannotBeDrawnAreEditedAsText();

private:
    QTableWidget* Table() { return ::Find<QTableWidget>(Map(), "tblAttributes"); }
    QStringList Attributes();
    void TypeInCell(int row, int column, const char* text);
};

QStringList tst_areaattributes::Attributes()
{
    QStringList rows;
    for (int row = 0; row < Table()->rowCount(); ++row) {
        rows << Table()->item(row, 0)->text() + u'=' + Table()->item(row, 1)->text();
    }
    return rows;
}

/** Writes into a cell by a double click and keys. */
void tst_areaattributes::TypeInCell(int row, int column, const char* text)
{
    Table()->scrollToItem(Table()->item(row, column));
    const QPoint place = Table()->visualItemRect(Table()->item(row, column)).center();
    QTest::mouseClick(Table()->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(Table()->viewport(), Qt::LeftButton, {}, place);
    auto* const field = Table()->findChild<QLineEdit*>();
    if (field == nullptr) {
        return; // it cannot be written into
    }
    field->selectAll();
    QTest::keyClicks(field, QString::fromLatin1(text));
    QTest::keyClick(field, Qt::Key_Return);
}

void tst_areaattributes::attributesAreChangedInTheirTable()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    ShowArea(0);
    QTRY_COMPARE(
        Attributes(),
        QStringList({ QStringLiteral("href=a.htm"), QStringLiteral("shape=rect"),
                      QStringLiteral("coords=10, 20,60,70"), QStringLiteral("alt=A"),
                      QStringLiteral("title=About A"), QStringLiteral("data-x=1"), QStringLiteral("=") }));
    const qsizetype steps = test_->folder.map.History().Position();
    TypeInCell(5, 1, "2");
    QTRY_COMPARE(test_->folder.map.History().Position(), steps + 1);
    TypeInCell(0, 1, "z.htm");
    QTRY_VERIFY(Rows().constFirst().contains(u"z.htm"));
    QCOMPARE(test_->folder.map.History().Position(), steps + 2);
    Update();
    QCOMPARE(
        Text(),
        Replaced(Replaced(QString::fromLatin1(twoAreas), "data-x=\"1\"", "data-x=\"2\""), "a.htm", "z.htm"));
}

void tst_areaattributes::attributesAreAddedAndRemoved()
{
    QVERIFY(EditMapOf(QString::fromLatin1(twoAreas)));
    ShowArea(0);
    QTRY_COMPARE(Table()->rowCount(), 7);
    TypeInCell(6, 0, "rel");
    QTRY_COMPARE(Table()->rowCount(), 8);
    TypeInCell(6, 1, "next");
    QTRY_VERIFY(Attributes().contains(QStringLiteral("rel=next")));
    Table()->setFocus();
    Table()->setCurrentCell(5, 0);
    QTest::keyClick(Table(), Qt::Key_Delete);
    QTRY_COMPARE(Table()->rowCount(), 7);
    QCOMPARE(Rows().size(), 2);
    Update();
    QCOMPARE(Text(), Replaced(QString::fromLatin1(twoAreas), " data-x=\"1\"", " rel=\"next\""));
}

void tst_areaattributes::codeOfATemplateIsReadOnly()
{
    const QString page = Replaced(QString::fromLatin1(twoAreas), "data-x=\"1\"", "data-x=\"{{ x }}\"");
    QVERIFY(EditMapOf(page));
    ShowArea(0);
    QTRY_COMPARE(Table()->rowCount(), 7);
    TypeInCell(5, 1, "2");
    QVERIFY(Table()->findChild<QLineEdit*>() == nullptr);
    QVERIFY(Attributes().contains(QStringLiteral("data-x={{ x }}")));
    Table()->setCurrentCell(5, 0);
    QTest::keyClick(Table(), Qt::Key_Delete);
    Update();
    QCOMPARE(Text(), page);
}

void tst_areaattributes::areasThatCannotBeDrawnStay()
{
    const QString page = Replaced(
        QString::fromLatin1(twoAreas), "</map>",
        "<area shape=default href=d.htm>\r\n<area coords=\"10%,20%,30%\" href=p.htm>\r\n"
        "<area coords=\"1.5,2.5,30.5,40.5\" href=f.htm>\r\n</map>");
    QVERIFY(EditMapOf(page));
    QCOMPARE(Rows().size(), 5);
    QVERIFY2(Rows()[2].startsWith(u" No: 3 Default|d.htm|"), qPrintable(Rows()[2]));
    QVERIFY2(Rows()[3].contains(u"10%,20%,30%"), qPrintable(Rows()[3]));
    QVERIFY(Rows()[4].contains(u"f.htm"));
    ShowArea(0);
    TypeIn(Map(), "cmbAreaLink", "z.htm");
    Update();
    QCOMPARE(Text(), Replaced(page, "a.htm", "z.htm"));
}

void tst_areaattributes::coordinatesThatCannotBeDrawnAreEditedAsText()
{
    const QString page = Replaced(
        QString::fromLatin1(twoAreas), "</map>", "<area coords=\"10%,20%,30%\" href=p.htm>\r\n</map>");
    QVERIFY(EditMapOf(page));
    ShowArea(2);
    QCOMPARE(::Find<QLineEdit>(Map(), "txtAreaCoords")->text(), QStringLiteral("10%,20%,30%"));
    TypeIn(Map(), "txtAreaCoords", "11%,20%,30%");
    Update();
    QCOMPARE(Text(), Replaced(page, "10%", "11%"));
}

QTEST_MAIN(tst_areaattributes)
#include "tst_areaattributes.moc"
