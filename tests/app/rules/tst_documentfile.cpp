#include "app/rules/DocumentFile.h"

#include <QFile>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

class tst_documentfile : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();

    void newDocumentHasNoFile();
    void namesThatBeginLikeANewDocumentAreToldByTheirLength_data();
    void namesThatBeginLikeANewDocumentAreToldByTheirLength();
    void openedFileIsTheDocument();
    void whatCannotBeOpenedChangesNothing();
    void savedTextIsTheFileWithOneMoreLineEnd();
    void failedSaveChangesNothing();
    void copyLeavesTheDocumentAsItIs();
    void copyLiesBesideTheFileOrInTheFolderForThem();
    void everyByteComesBack();

private:
    [[nodiscard]] QString Path(const char* name) const { return folder_.filePath(QString::fromLatin1(name)); }
    [[nodiscard]] QByteArray Bytes(const char* name) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<cannot be read>");
    }
    [[nodiscard]] bool Write(const char* name, const QByteArray& bytes) const
    {
        QFile file(Path(name));
        return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
    }

    QTemporaryDir folder_;
    std::unique_ptr<DocumentFile> file_;
};

void tst_documentfile::init()
{
    file_ = std::make_unique<DocumentFile>();
    file_->StartNew();
}

void tst_documentfile::newDocumentHasNoFile()
{
    QSignalSpy named(file_.get(), &DocumentFile::NameChanged);
    file_->MarkChanged();
    QVERIFY(file_->IsChanged());
    file_->StartNew();
    QCOMPARE(file_->Name(), QStringLiteral("New Document"));
    QVERIFY(file_->IsNeverSaved());
    QVERIFY(!file_->IsChanged());
    QCOMPARE(named.count(), 1);
    QCOMPARE(named.constFirst().constFirst().toString(), file_->Name());
}

void tst_documentfile::namesThatBeginLikeANewDocumentAreToldByTheirLength_data()
{
    QTest::addColumn<QString>("name");
    QTest::newRow("longer") << QStringLiteral("New Document.htm");
    QTest::newRow("another folder") << QStringLiteral("pages.htm");
}

void tst_documentfile::namesThatBeginLikeANewDocumentAreToldByTheirLength()
{
    QFETCH(const QString, name);
    const QString path = folder_.filePath(name);
    QCOMPARE(file_->Save(path, QStringLiteral("a")), std::nullopt);
    QVERIFY(!file_->IsNeverSaved());
    QCOMPARE(file_->Name(), path);
}

void tst_documentfile::openedFileIsTheDocument()
{
    QVERIFY(Write("page.htm", "a\x80\r\nb"));
    file_->MarkChanged();
    QSignalSpy named(file_.get(), &DocumentFile::NameChanged);
    QCOMPARE(file_->Open(Path("page.htm")), QStringLiteral("a\u20AC\r\nb"));
    QCOMPARE(file_->Name(), Path("page.htm"));
    QVERIFY(!file_->IsChanged());
    QVERIFY(!file_->IsNeverSaved());
    QCOMPARE(named.count(), 1);
    QCOMPARE(file_->Encoding(), TextEncoding::Windows1252);
}

void tst_documentfile::whatCannotBeOpenedChangesNothing()
{
    file_->MarkChanged();
    QSignalSpy named(file_.get(), &DocumentFile::NameChanged);
    QCOMPARE(file_->Open(Path("missing.htm")), std::nullopt);
    QCOMPARE(file_->Open(folder_.path()), std::nullopt);
    QVERIFY(file_->IsNeverSaved());
    QVERIFY(file_->IsChanged());
    QCOMPARE(named.count(), 0);
}

void tst_documentfile::savedTextIsTheFileWithOneMoreLineEnd()
{
    file_->MarkChanged();
    QCOMPARE(file_->Save(Path("page.htm"), QStringLiteral("\u20AC\r\n\u0416")), std::nullopt);
    QCOMPARE(Bytes("page.htm"), QByteArray("\x80\r\n?\r\n"));
    QCOMPARE(file_->Name(), Path("page.htm"));
    QVERIFY(!file_->IsChanged());
}

void tst_documentfile::failedSaveChangesNothing()
{
    file_->MarkChanged();
    const std::optional<QString> error = file_->Save(Path("missing/page.htm"), QStringLiteral("a"));
    QVERIFY(error.has_value() && !error->isEmpty());
    QVERIFY(file_->IsNeverSaved());
    QVERIFY(file_->IsChanged());
}

void tst_documentfile::copyLeavesTheDocumentAsItIs()
{
    file_->MarkChanged();
    QCOMPARE(file_->WriteCopy(Path("copy.txt"), QStringLiteral("a")), std::nullopt);
    QCOMPARE(Bytes("copy.txt"), QByteArray("a\r\n"));
    QVERIFY(file_->IsNeverSaved());
    QVERIFY(file_->IsChanged());
}

void tst_documentfile::copyLiesBesideTheFileOrInTheFolderForThem()
{
    const QString ending = QStringLiteral("html");
    QVERIFY(file_->CopyPath(folder_.path(), ending).endsWith(QStringLiteral("Temp001.html")));
    QCOMPARE(file_->Save(Path("page.htm"), QString()), std::nullopt);
    QCOMPARE(file_->CopyPath(folder_.path(), ending), Path("page_Temp.html"));
}

void tst_documentfile::everyByteComesBack()
{
    QByteArray bytes;
    for (int byte = 0; byte < 256; ++byte) {
        bytes.append(static_cast<char>(byte));
    }
    QVERIFY(Write("page.htm", bytes));
    const std::optional<QString> text = file_->Open(Path("page.htm"));
    QVERIFY(text.has_value());
    QCOMPARE(file_->Save(Path("page.htm"), *text), std::nullopt);
    QCOMPARE(Bytes("page.htm"), bytes + "\r\n");
}

QTEST_GUILESS_MAIN(tst_documentfile)
#include "tst_documentfile.moc"
