#pragma once

#include "tests/app/MainWindowFixture.h"

#include <QElapsedTimer>
#include <cstring>
#include <memory>
#include <sys/stat.h>

/** A window that has not answered for this long, in milliseconds, hangs. */
inline constexpr qint64 hanging = 5000;

inline QString SystemText(int number)
{
    return QString::fromLocal8Bit(std::strerror(number));
}

/** A main window that opens and saves what is no ordinary file. */
class StrangeFilesFixture : public QObject
{
protected:
    void StartAll();
    void Start();
    void Finish();

    [[nodiscard]] QString Path(const char* name) const
    {
        return test_->folder.Path(QString::fromLatin1(name));
    }
    [[nodiscard]] QString InPages(const char* name) const
    {
        return Path("pages") + u'/' + QLatin1String(name);
    }
    void OpenPage(const QByteArray& bytes = "old");
    void Save();
    void SaveFails(const QString& text = {});
    void TextIsKept(const QString& path);

    std::unique_ptr<MainWindowFixture> test_;
};

inline void StrangeFilesFixture::StartAll()
{
    // The folders of the tests are also used with the rights of others.
    umask(0);
}

inline void StrangeFilesFixture::Start()
{
    test_ = std::make_unique<MainWindowFixture>();
    test_->robot.Hurry();
    QVERIFY(SetMode(test_->folder.imgMap.ProgramFolder, 0777));
    QVERIFY(QDir(test_->folder.imgMap.ProgramFolder).mkdir(QStringLiteral("pages")));
    QVERIFY(test_->Start());
}

inline void StrangeFilesFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    QVERIFY(QApplication::overrideCursor() == nullptr);
    SetMode(Path("pages"), 0777);
    test_.reset();
}

/** Opens a page in the folder `pages` and changes it. */
inline void StrangeFilesFixture::OpenPage(const QByteArray& bytes)
{
    QVERIFY(WriteBytes(InPages("page.htm"), bytes));
    test_->Open(InPages("page.htm"));
    QCOMPARE(test_->DocumentName(), InPages("page.htm"));
    test_->Type("x");
}

inline void StrangeFilesFixture::Save()
{
    QElapsedTimer clock;
    clock.start();
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY2(clock.elapsed() < hanging, qPrintable(QString::number(clock.elapsed())));
}

/** Saves; the user must be told `text`, or anything at all when it is empty, and lose nothing. */
inline void StrangeFilesFixture::SaveFails(const QString& text)
{
    test_->robot.AnswerBox(QMessageBox::Ok);
    Save();
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QVERIFY(!box.text.isEmpty());
    if (!text.isEmpty()) {
        QCOMPARE(box.text, text);
    }
    TextIsKept(InPages("page.htm"));
}

inline void StrangeFilesFixture::TextIsKept(const QString& path)
{
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xold"));
    QCOMPARE(test_->DocumentName(), path);
    QVERIFY(test_->window.File().IsChanged());
}
