#pragma once

#include "tests/app/MainWindowFixture.h"
#include "tests/faults/FailingSystem.h"

#include <memory>

inline QByteArray Lines(qsizetype bytes, char letter)
{
    const QByteArray line = QByteArray(62, letter) + "\r\n";
    return line.repeated(bytes / line.size() + 1).first(bytes);
}

/** A main window on storage that fails. */
class FailingStorageFixture : public QObject
{
protected:
    void Start();
    void Finish();

    [[nodiscard]] QString Path(const char* name) const
    {
        return test_->folder.Path(QString::fromLatin1(name));
    }
    [[nodiscard]] QStringList Names() const
    {
        return QDir(Path("pages")).entryList(QDir::Files | QDir::Hidden | QDir::System, QDir::Name);
    }
    void OpenPage(const QByteArray& bytes);

    std::unique_ptr<MainWindowFixture> test_;
};

inline void FailingStorageFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
    test_->robot.Hurry();
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
    QVERIFY(test_->Start());
}

inline void FailingStorageFixture::Finish()
{
    FailingSystem::Stop();
    QCOMPARE(test_->robot.Problems(), QString());
    QVERIFY(QApplication::overrideCursor() == nullptr);
    test_.reset();
}

inline void FailingStorageFixture::OpenPage(const QByteArray& bytes)
{
    QVERIFY(WriteBytes(Path("pages/page.htm"), bytes));
    test_->Open(Path("pages/page.htm"));
    test_->Type("x");
    QVERIFY(test_->window.File().IsChanged());
}
