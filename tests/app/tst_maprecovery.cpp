// After a sudden end, a map that came from a page goes back there.

#include "tests/app/EditMapFixture.h"

#include "app/recovery/RecoveryStore.h"
#include "imagemap/MapFields.h"

#include <QDir>

class tst_maprecovery : public EditMapFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void restoredMapIsUpdatedInItsPage();
    void restoredMapWithoutChangesClosesWithoutAQuestion();
    void pictureWithoutAMapGetsItAfterwards();
    void mapThatThePageHasNoMoreIsTold();
    void insertedMapIsUpdatedWhereItIs_data();
    void insertedMapIsUpdatedWhereItIs();
    void typingBeforeAMapDoesNotKeepItAnew();

private:
    [[nodiscard]] QString OnlyFile(const char* ending) const;
    [[nodiscard]] std::optional<MapCopy> KeptMap() const { return ReadMapCopy(OnlyFile(".map")); }
    [[nodiscard]] QString KeptText() const;
    void EndSuddenly(const QString& page);
    [[nodiscard]] static QString PageOf(const char* text) { return QString::fromLatin1(text); }
};

void tst_maprecovery::init()
{
    StartWithAPage();
    test_->folder.imgMap.KeepingInterval = std::chrono::milliseconds(50);
}

/** The file of what is kept; empty while there is none. */
QString tst_maprecovery::OnlyFile(const char* ending) const
{
    const QDir folder(Path("Data/Recovery"));
    const QStringList files = folder.entryList({ u'*' + QLatin1String(ending) }, QDir::Files);
    return files.size() == 1 ? folder.filePath(files.constFirst()) : QString();
}

QString tst_maprecovery::KeptText() const
{
    const std::optional<PageCopy> page = ReadPageCopy(OnlyFile(".page"));
    return page ? page->Pieces.join(QString()) : QString();
}

/** Ends the program as soon as its map is kept, and restores that one, and `page`, in another one. */
void tst_maprecovery::EndSuddenly(const QString& page)
{
    std::optional<MapCopy> kept;
    QTRY_VERIFY(
        (kept = KeptMap()) && kept->State == test_->folder.map.State() &&
        kept->Fields == Map()->Fields().Texts());
    MapCopy map = *kept;
    test_ = std::make_unique<MainWindowFixture>();
    WritePicture();
    map.State.Picture = Path("harbour.jpg");
    {
        RecoveryStore store(test_->folder.imgMap.ProgramFolder);
        store.Keep(PageCopy{ .Document = { .Name = Path("page.htm") }, .Pieces = { page } });
        store.Keep(map);
    }
    QVERIFY(test_->Start());
    Click(test_->Find<QPushButton>("btnRestore"));
    QCOMPARE(Text(), page);
    GoToMap();
}

void tst_maprecovery::restoredMapIsUpdatedInItsPage()
{
    const QString page = PageOf(twoAreas);
    QVERIFY(EditMapOf(page));
    ShowArea(0);
    TypeIn(Map(), "cmbAreaLink", "c.htm");
    const QString now = u"<p>Written after it was opened</p>\r\n" + page;
    EndSuddenly(now);
    QVERIFY(::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    Update();
    QCOMPARE(Text(), Replaced(now, "a.htm", "c.htm"));
}

void tst_maprecovery::restoredMapWithoutChangesClosesWithoutAQuestion()
{
    QVERIFY(EditMapOf(PageOf(twoAreas)));
    EndSuddenly(PageOf(twoAreas));
    Update();
    QCOMPARE(Text(), PageOf(twoAreas));
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_maprecovery::pictureWithoutAMapGetsItAfterwards()
{
    const QString page = PageOf("<p>One</p>\r\n<img src=\"harbour.jpg\">\r\n");
    Load(page);
    test_->Editor()->Select(page.indexOf(u"harbour"), 0);
    QVERIFY(Edit());
    DrawRectangle({ QPoint(20, 30), QPoint(60, 70) }, "a.htm");
    TypeIn(Map(), "txtName", "quays");
    EndSuddenly(page);
    Update();
    QVERIFY2(Text().contains(u"usemap=\"#quays\">\r\n<map name=\"quays\">"), qPrintable(Text()));
}

void tst_maprecovery::mapThatThePageHasNoMoreIsTold()
{
    QVERIFY(EditMapOf(PageOf(twoAreas)));
    EndSuddenly(PageOf("<p>Another</p>\r\n"));
    QVERIFY(!::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    QVERIFY(::Find<QLabel>(Map(), "StatusBar1_Panel3")
                ->text()
                .startsWith(u"The page that is open does not have the map as it was"));
    QCOMPARE(Rows().size(), 2);
    test_->folder.map.Clear();
}

void tst_maprecovery::insertedMapIsUpdatedWhereItIs_data()
{
    QTest::addColumn<int>("form");
    QTest::newRow("as ever") << int(MarkupForm::Html4);
    QTest::newRow("for today's browsers") << int(MarkupForm::Today);
    QTest::newRow("as a map element for them") << int(MarkupForm::TodayMapElement);
}

void tst_maprecovery::insertedMapIsUpdatedWhereItIs()
{
    QFETCH(const int, form);
    Load(PageOf("<p>One</p>\r\n\r\n<p>Two</p>\r\n"));
    test_->Editor()->Select(12, 0);
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    MapAreas areas = { PlainArea({ 1, 2, 30, 40 }, "a.htm"), PlainArea({ 100, 100, 20 }, "b.htm") };
    areas[0].Text = QStringLiteral("The quay"); // else it is made of the link
    FillANewMap(areas);
    TypeIn(Map(), "txtName", "m");
    ::Find<QComboBox>(Map(), "cmbMarkup")->setCurrentIndex(form);
    ::Find<QAction>(Map(), "mnuInsert")->trigger();
    const QString inserted = Text();
    ShowArea(0);
    TypeIn(Map(), "cmbAreaLink", "c.htm");
    const QString now = u"<p>Written after it was put in</p>\r\n" + inserted;
    EndSuddenly(now);
    QVERIFY(::Find<QAction>(Map(), "mnuAUpdatePage")->isEnabled());
    Update();
    QCOMPARE(Text(), Replaced(now, "a.htm", "c.htm"));
    // The question of a map that was drawn here is asked as ever.
    test_->folder.map.Clear();
}

/** A page is kept behind the map, so that has had its turn when the text is there. */
void tst_maprecovery::typingBeforeAMapDoesNotKeepItAnew()
{
    QVERIFY(EditMapOf(PageOf(twoAreas)));
    QTRY_VERIFY(KeptMap());
    const QByteArray kept = BytesOf(OnlyFile(".map"));
    const qint64 start = KeptMap()->Origin.Start;
    test_->Editor()->Select(0, 0);
    test_->Editor()->ReplaceSelection(QStringLiteral("typed"));
    QTRY_VERIFY(KeptText().startsWith(u"typed"));
    QCOMPARE(BytesOf(OnlyFile(".map")), kept);
    // Another map might be where it was by now.
    const QString much = PageOf("<p>Much more</p>\r\n").repeated(100);
    test_->Editor()->Select(0, 0);
    test_->Editor()->ReplaceSelection(much);
    QTRY_COMPARE(KeptMap()->Origin.Start, start + 5 + much.size());
}

QTEST_MAIN(tst_maprecovery)
#include "tst_maprecovery.moc"
