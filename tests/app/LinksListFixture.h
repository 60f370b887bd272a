#pragma once

#include "tests/support/WidgetDriving.h"

#include "tests/app/MainWindowFixture.h"

#include <QListWidget>
#include <QTabWidget>
#include <memory>

/** The saved links beside the editor, worked with as a user does. */
class LinksListFixture : public QObject
{
protected:
    void Start();
    void Finish();

    void Open();
    /** Closes the window and opens a fresh one on the same folder, as if the program were started again. */
    void Restart();
    void Add(const QString& url);
    void AddMany(int count);
    void ClickButton(const char* name) { Click(test_->Find<QPushButton>(name)); }
    void SelectRow(int row);
    void ExpectBox(QMessageBox::Icon icon, const QString& text);
    QStringList Urls() const;
    /** The table in memory, which always equals the list but for blanks. */
    QStringList Table() const;
    QString LinksPath() const { return folder_->Path(QStringLiteral("Data/Links.dra")); }

    /** The main window on a folder that outlives it. */
    struct Session
    {
        explicit Session(ProgramFolder& folder)
            : window(folder.imgMap, folder.map, desktop)
        {
        }
        template<class Widget> Widget* Find(const char* name) { return ::Find<Widget>(&window, name); }
        DialogRobot robot;
        RecordingDesktop desktop;
        frmIMmain window;
    };

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<Session> test_;
};

inline void LinksListFixture::Start()
{
    folder_ = std::make_unique<ProgramFolder>();
    test_ = std::make_unique<Session>(*folder_);
}

inline void LinksListFixture::Finish()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    folder_.reset();
}

inline void LinksListFixture::Open()
{
    test_->window.Form_Load();
    test_->window.show();
    QVERIFY(QTest::qWaitForWindowActive(&test_->window));
    const auto* const tabs = test_->Find<QTabWidget>("SSTab1");
    QTest::mouseClick(tabs->tabBar(), Qt::LeftButton, {}, tabs->tabBar()->tabRect(1).center());
    QCOMPARE(tabs->currentIndex(), 1);
}

inline void LinksListFixture::Restart()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    const QString programFolder = folder_->imgMap.ProgramFolder;
    folder_->imgMap = ImgMap();
    folder_->imgMap.ProgramFolder = programFolder;
    test_ = std::make_unique<Session>(*folder_);
    Open();
}

inline void LinksListFixture::Add(const QString& url)
{
    test_->Find<QLineEdit>("txtCTags")->setText(url);
    ClickButton("btnAdd");
}

inline void LinksListFixture::AddMany(int count)
{
    for (int i = 1; i <= count; ++i) {
        Add(QStringLiteral("link%1").arg(i));
    }
}

inline void LinksListFixture::SelectRow(int row)
{
    auto* const list = test_->Find<QListWidget>("ListView1");
    list->scrollToItem(list->item(row));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, {}, list->visualItemRect(list->item(row)).center());
    QCOMPARE(list->currentRow(), row);
}

inline void LinksListFixture::ExpectBox(QMessageBox::Icon icon, const QString& text)
{
    QCOMPARE(test_->robot.Boxes().size(), 1);
    const DialogRobot::SeenBox& box = test_->robot.Boxes().constFirst();
    QCOMPARE(box.text, text);
    QCOMPARE(box.icon, icon);
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.buttons, QMessageBox::Ok);
}

inline QStringList LinksListFixture::Urls() const
{
    const auto* const list = test_->Find<QListWidget>("ListView1");
    QStringList urls;
    for (int i = 0; i < list->count(); ++i) {
        urls << list->item(i)->text();
    }
    return urls;
}

inline QStringList LinksListFixture::Table() const
{
    QStringList urls;
    for (std::size_t slot = 1; folder_->imgMap.SavedLinkMark[slot]; ++slot) {
        urls << folder_->imgMap.SavedLinkURL[slot];
    }
    return urls;
}
