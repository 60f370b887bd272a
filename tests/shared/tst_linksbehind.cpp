// What stands behind the records of the links file.

#include "tests/shared/LinksWritingFixture.h"

#include <algorithm>
#include <random>

namespace {

QByteArray RandomBytes(std::mt19937& random, qsizetype size)
{
    QByteArray bytes(size, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() & 0xFF);
    }
    return bytes;
}

} // namespace

class tst_linksbehind : public LinksWritingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void whatLiesBehindTheRecordsStays_data();
    void whatLiesBehindTheRecordsStays();
    void randomFilesKeepWhatIsBehindTheRecords();
    void largeFileKeepsWhatIsBehindTheRecords();
    void fileFarTooLargeIsLeftAlone();
};

void tst_linksbehind::whatLiesBehindTheRecordsStays_data()
{
    QTest::addColumn<qsizetype>("oldSize");
    for (const qsizetype size :
         { qsizetype(0), qsizetype(1), qsizetype(275), qsizetype(276), writtenSize - 1, writtenSize,
           writtenSize + 1, writtenSize + recordSize, writtenSize * 3 + 5 }) {
        QTest::addRow("%d bytes", int(size)) << size;
    }
}

void tst_linksbehind::whatLiesBehindTheRecordsStays()
{
    QFETCH(const qsizetype, oldSize);
    std::mt19937 random(quint32(oldSize) + 1);
    const QByteArray old = RandomBytes(random, oldSize);
    QVERIFY(WriteBytes(Path(), old));
    Add("a.htm");
    const QByteArray bytes = Written();
    QCOMPARE(bytes.size(), std::max(oldSize, writtenSize));
    QCOMPARE(bytes.mid(writtenSize), old.mid(writtenSize));
    QCOMPARE(UrlField(bytes, 1).trimmed(), QByteArray("a.htm"));
    QCOMPARE(int(WordAt(MarkField(bytes, 2), 0)), 0);
}

void tst_linksbehind::randomFilesKeepWhatIsBehindTheRecords()
{
    std::mt19937 random(20030517);
    for (int round = 0; round < 200; ++round) {
        const QByteArray old = RandomBytes(random, qsizetype(random() % (writtenSize * 2)));
        QVERIFY(WriteBytes(Path(), old));
        imgMap_ = std::make_unique<ImgMap>();
        const auto count = int(random() % 51);
        for (int i = 0; i < count; ++i) {
            Add(QString::fromLatin1(RandomBytes(random, qsizetype(random() % 400))));
        }
        const QByteArray bytes = Written();
        QCOMPARE(bytes.mid(writtenSize), old.mid(writtenSize));
        QCOMPARE(bytes.size(), std::max(old.size(), writtenSize));
        const SavedLinks saved = ReadSavedLinks(Path());
        QVERIFY(!saved.isDamaged);
        QCOMPARE(saved.links.size(), std::min(count, 15));
    }
}

void tst_linksbehind::largeFileKeepsWhatIsBehindTheRecords()
{
    std::mt19937 random(7);
    const QByteArray old = RandomBytes(random, 8 * 1024 * 1024 + 3);
    QVERIFY(WriteBytes(Path(), old));
    Add("a.htm");
    QVERIFY(Written().mid(writtenSize) == old.mid(writtenSize));
}

void tst_linksbehind::fileFarTooLargeIsLeftAlone()
{
    constexpr qint64 size = qint64(5) << 30;
    QFile file(Path());
    QVERIFY(file.open(QIODevice::WriteOnly) && file.write("old") == 3);
    if (!file.resize(size)) {
        QSKIP("This file system has no files with holes.");
    }
    file.close();
    Add("a.htm");
    QVERIFY(!WriteSavedLinks(Path(), *imgMap_));
    QCOMPARE(QFile(Path()).size(), size);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.read(3), QByteArray("old"));
}

QTEST_GUILESS_MAIN(tst_linksbehind)
#include "tst_linksbehind.moc"
