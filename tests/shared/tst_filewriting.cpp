#include "tests/shared/FileWritingFixture.h"

#include <QFileInfo>

class tst_filewriting : public FileWritingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void newFileHoldsTheBytes_data();
    void newFileHoldsTheBytes();
    void oldFileIsReplacedWhole_data();
    void oldFileIsReplacedWhole();
    void relativePathIsWritten();
    void missingFolderIsAnErrorThatLeavesNothing();
    void folderIsNotWritten();

    void namesUpToTheLongestAreWritten_data();
    void namesUpToTheLongestAreWritten();
};

void tst_filewriting::newFileHoldsTheBytes_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QByteArray all;
    for (int byte = 0; byte < 256; ++byte) {
        all += static_cast<char>(byte);
    }
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("every byte there is") << all;
    QTest::newRow("line ends") << QByteArray("a\r\nb\nc\rd\r\n");
    QTest::newRow("some megabytes") << all.repeated(20'000);
}

void tst_filewriting::newFileHoldsTheBytes()
{
    QFETCH(const QByteArray, bytes);
    QCOMPARE(Write(Path(), bytes), QString());
    QCOMPARE(Content(Path()), bytes);
    QCOMPARE(Names(), QStringList("page.htm"));
}

void tst_filewriting::oldFileIsReplacedWhole_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("by more") << newText;
    QTest::newRow("by less") << QByteArray("x");
    QTest::newRow("by nothing") << QByteArray();
}

void tst_filewriting::oldFileIsReplacedWhole()
{
    QFETCH(const QByteArray, bytes);
    QVERIFY(Create(Path()));
    QCOMPARE(Write(Path(), bytes), QString());
    QCOMPARE(Content(Path()), bytes);
    QCOMPARE(Names(), QStringList("page.htm"));
}

void tst_filewriting::relativePathIsWritten()
{
    const QString before = QDir::currentPath();
    QVERIFY(QDir::setCurrent(folder_->path()));
    const QString error = Write("page.htm", newText);
    QDir::setCurrent(before);
    QCOMPARE(error, QString());
    QCOMPARE(Content(Path()), newText);
}

void tst_filewriting::missingFolderIsAnErrorThatLeavesNothing()
{
    const QString error = Write(Path("missing/page.htm"), newText);
    QVERIFY(!error.isEmpty());
#ifdef Q_OS_UNIX
    QCOMPARE(error, ErrorText(ENOENT));
#endif
    QCOMPARE(Names(), QStringList());
}

void tst_filewriting::folderIsNotWritten()
{
    QVERIFY(QDir(folder_->path()).mkdir("page.htm"));
    const QString error = Write(Path(), newText);
    QVERIFY(!error.isEmpty());
    QVERIFY(QFileInfo(Path()).isDir());
    QCOMPARE(Names(), QStringList("page.htm"));
}

void tst_filewriting::namesUpToTheLongestAreWritten_data()
{
    QTest::addColumn<QString>("name");
    for (const int length : { 240, 248, 249, 250, 255 }) {
        QTest::newRow(qPrintable(QString::number(length))) << QString(length - 4, 'n') + ".htm";
    }
    QTest::newRow("254 bytes of 127 letters") << QString(127, QChar(0xE4));
}

void tst_filewriting::namesUpToTheLongestAreWritten()
{
    QFETCH(const QString, name);
    QCOMPARE(Write(Path(name), oldText), QString());
    QCOMPARE(Content(Path(name)), oldText);
    QCOMPARE(Write(Path(name), newText), QString());
    QCOMPARE(Content(Path(name)), newText);
    QCOMPARE(Names(), QStringList(name));
}

QTEST_GUILESS_MAIN(tst_filewriting)
#include "tst_filewriting.moc"
