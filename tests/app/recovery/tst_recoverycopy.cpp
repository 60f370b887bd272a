// What is kept of a page and a map, as a file.

#include "tests/app/recovery/Copies.h"

#include <QTemporaryDir>
#include <QTest>

class tst_recoverycopy : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init() { folder_ = std::make_unique<QTemporaryDir>(); }
    void cleanup() { folder_.reset(); }

    void pageComesBackAsItWas_data();
    void pageComesBackAsItWas();
    void mapComesBackAsItWas();
    void mapOfChangedAreasComesBackAsItWas();
    void mapOfAPageKeepsItsOriginAndAttributes();
    void fileIsForTheUserAlone();
    void copyThatCannotBeWrittenLeavesTheOldOne();
    void oneIsNotReadAsTheOther();
    void whatIsTornOrForeignIsPassedOver_data();
    void whatIsTornOrForeignIsPassedOver();
    void fileWithOneOtherByteIsPassedOver();

private:
    [[nodiscard]] QString Path() const { return folder_->filePath(QStringLiteral("copy")); }

    std::unique_ptr<QTemporaryDir> folder_;
};

void tst_recoverycopy::pageComesBackAsItWas_data()
{
    QTest::addColumn<QStringList>("pieces");
    QTest::newRow("no text") << QStringList();
    QTest::newRow("one piece") << SomePage().Pieces;
    QTest::newRow("several") << QStringList({ QStringLiteral("a"), QString(), QStringLiteral("b\r\n") });
    QTest::newRow("large") << QStringList({ QString(3'000'000, u'x'), QStringLiteral("end") });
}

void tst_recoverycopy::pageComesBackAsItWas()
{
    QFETCH(const QStringList, pieces);
    PageCopy page = SomePage();
    page.Pieces = pieces;
    QVERIFY(WriteCopy(Path(), page));
    page.Pieces = { pieces.join(QString()) };
    const std::optional<PageCopy> read = ReadPageCopy(Path());
    QVERIFY(read);
    QVERIFY(*read == page);

    page.Document.FoundUtf8.reset();
    page.Document.Encoding = TextEncoding::Windows1252;
    page.Document.IsHandledAnew = false;
    QVERIFY(WriteCopy(Path(), page));
    QVERIFY(ReadPageCopy(Path()) == page);
}

void tst_recoverycopy::mapComesBackAsItWas()
{
    const MapCopy map = SomeMap();
    QCOMPARE(map.State.Areas.size(), 2);
    QVERIFY(!map.State.IsLedgerOfAreas);
    QVERIFY(WriteCopy(Path(), map));
    QVERIFY(ReadMapCopy(Path()) == map);
}

void tst_recoverycopy::mapOfChangedAreasComesBackAsItWas()
{
    MapDocument map;
    map.ChangeAreas(
        { { AreaShape::Polygon,
            { 1, 2, 3, 4, 5, -6 },
            QStringLiteral("p.htm"),
            QStringLiteral("_top"),
            QStringLiteral("m"),
            QStringLiteral("t") },
          { AreaShape::Default, {}, QStringLiteral("rest.htm"), {}, {} } },
        QStringLiteral("Change"));
    const MapCopy copy{ .State = map.State(), .Fields = {} };
    QVERIFY(copy.State.IsLedgerOfAreas);
    QVERIFY(WriteCopy(Path(), copy));
    const std::optional<MapCopy> read = ReadMapCopy(Path());
    QVERIFY(read == copy);

    MapDocument other;
    other.History().PutBack(read->State);
    QVERIFY(other.State() == map.State());
    QVERIFY(other.Figures().Figures == map.Figures().Figures);
    other.History().Undo();
    QVERIFY(!other.HasContent());
}

void tst_recoverycopy::mapOfAPageKeepsItsOriginAndAttributes()
{
    MapCopy copy = SomeMap();
    MapArea& area = copy.State.Areas.first();
    area.Source = 7;
    area.Attributes = {
        { .Name = QStringLiteral("href"), .Value = QStringLiteral("a.htm"), .IsCode = false },
        { .Name = QStringLiteral("alt"), .Value = QStringLiteral("<?= 1 ?>"), .IsCode = true }
    };
    copy.Origin = { .Text = QStringLiteral("<map name=\u00e9></map>"),
                    .Start = qint64(1) << 33,
                    .Sources = { 7, -1 },
                    .Of = KeptOrigin::Inserted };
    QVERIFY(WriteCopy(Path(), copy));
    QVERIFY(ReadMapCopy(Path()) == copy);
}

void tst_recoverycopy::fileIsForTheUserAlone()
{
    QVERIFY(WriteCopy(Path(), SomePage()));
    const QFileDevice::Permissions others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
#ifdef Q_OS_UNIX
    QVERIFY(!(QFile::permissions(Path()) & others));
#else
    Q_UNUSED(others)
#endif
}

void tst_recoverycopy::copyThatCannotBeWrittenLeavesTheOldOne()
{
    QVERIFY(!WriteCopy(folder_->filePath(QStringLiteral("missing/copy")), SomePage()));
    QVERIFY(!WriteCopy(folder_->filePath(QStringLiteral("missing/copy")), SomeMap()));
    QVERIFY(!WriteCopy(folder_->path(), SomePage()));
}

void tst_recoverycopy::oneIsNotReadAsTheOther()
{
    QVERIFY(WriteCopy(Path(), SomePage()));
    QVERIFY(!ReadMapCopy(Path()));
    QVERIFY(WriteCopy(Path(), SomeMap()));
    QVERIFY(!ReadPageCopy(Path()));
    QVERIFY(!ReadPageCopy(folder_->path()));
    QVERIFY(!ReadPageCopy(folder_->filePath(QStringLiteral("nothing"))));
}

void tst_recoverycopy::whatIsTornOrForeignIsPassedOver_data()
{
    QTest::addColumn<bool>("isPage");
    QTest::addColumn<int>("length");
    init();
    QVERIFY(WriteCopy(Path(), SomePage()));
    const int page = int(QFile(Path()).size());
    QVERIFY(WriteCopy(Path(), SomeMap()));
    const int map = int(QFile(Path()).size());
    for (const int length : { 0, 1, 7, 8, 9, 23, 24, 25, page / 2, page - 33, page - 1, page + 1 }) {
        QTest::addRow("page of %d", length) << true << length;
    }
    for (const int length : { 24, map / 3, map - 32, map - 1, map + 1 }) {
        QTest::addRow("map of %d", length) << false << length;
    }
}

void tst_recoverycopy::whatIsTornOrForeignIsPassedOver()
{
    QFETCH(const bool, isPage);
    QFETCH(const int, length);
    QVERIFY(isPage ? WriteCopy(Path(), SomePage()) : WriteCopy(Path(), SomeMap()));
    const QByteArray longer = BytesOfFile(Path()) + "x";
    QVERIFY(WriteFile(Path(), longer.first(length)));
    QVERIFY(!ReadPageCopy(Path()));
    QVERIFY(!ReadMapCopy(Path()));
    QVERIFY(WriteFile(Path(), QByteArray(length, 'x')));
    QVERIFY(!ReadPageCopy(Path()));
    QVERIFY(!ReadMapCopy(Path()));
}

void tst_recoverycopy::fileWithOneOtherByteIsPassedOver()
{
    QVERIFY(WriteCopy(Path(), SomePage()));
    const QByteArray whole = BytesOfFile(Path());
    for (qsizetype i = 0; i < whole.size(); ++i) {
        QByteArray other = whole;
        other[i] = static_cast<char>(other[i] ^ 1);
        QVERIFY(WriteFile(Path(), other));
        QVERIFY2(!ReadPageCopy(Path()), qPrintable(QString::number(i)));
    }
}

QTEST_GUILESS_MAIN(tst_recoverycopy)
#include "tst_recoverycopy.moc"
