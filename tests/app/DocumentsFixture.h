#pragma once

#include "tests/app/MainWindowFixture.h"

#include <QLineEdit>
#include <memory>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

inline QLineEdit* NameField(const QDialog& dialog)
{
    return dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

inline QString PromptText(const QString& name)
{
    return u"The text in [" + name + u"] has changed.\n\rDo you want to save the changes?";
}

/** The main window with documents in a program folder, opened and saved as a user does. */
class DocumentsFixture : public QObject
{
protected:
    void Start();
    void Finish();

    [[nodiscard]] QString Path(const char* name) const
    {
        return test_->folder.Path(QString::fromLatin1(name));
    }
    [[nodiscard]] bool OpenFile(const char* name, const QByteArray& bytes);
    void MakeUnwritable();

    std::unique_ptr<MainWindowFixture> test_;
};

inline void DocumentsFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
    QVERIFY(test_->Start());
}

inline void DocumentsFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    QVERIFY(!test_->folder.imgMap.ContinueAction);
    QVERIFY(QApplication::overrideCursor() == nullptr);
    test_.reset();
}

/** Makes a file of the program folder the open document. */
inline bool DocumentsFixture::OpenFile(const char* name, const QByteArray& bytes)
{
    if (!WriteBytes(Path(name), bytes)) {
        return false;
    }
    test_->Open(Path(name));
    return test_->DocumentName() == Path(name) && !test_->window.File().IsChanged();
}

/** Opens a document, changes it and takes its folder away. */
inline void DocumentsFixture::MakeUnwritable()
{
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
    QVERIFY(OpenFile("pages/page.htm", "old"));
    test_->Type("x");
    QVERIFY(QDir(Path("pages")).removeRecursively());
}
