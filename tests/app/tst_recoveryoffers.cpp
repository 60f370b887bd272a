// What another start of the program has left unsaved is offered by the next one.

#include "tests/app/RecoveryFixture.h"

namespace {

PageCopy LostPage()
{
    return { .Document = { .Name = QStringLiteral("/pages/lost.htm"),
                           .Encoding = TextEncoding::Utf8WithMark,
                           .IsHandledAnew = true,
                           .FoundUtf8 = TextEncoding::Utf8WithMark },
             .Pieces = { QStringLiteral("<p>\n\u65e5\r\n"), QStringLiteral("lost") } };
}

MapCopy LostMap()
{
    MapDocument map;
    map.SetPicture(QStringLiteral(CARTOLEN_PICTURE));
    map.Script().SetMode(JSTextArea);
    map.ChangeAreas(
        { { AreaShape::Rectangle, { 1, 2, 30, 40 }, QStringLiteral("r.htm"), {}, {} },
          { AreaShape::Circle, { 50, 60, 20 }, QStringLiteral("c.htm"), {}, {} } },
        QStringLiteral("Change"));
    return { .State = map.State(), .Fields = { { QStringLiteral("txtName"), QStringLiteral("harbour") } } };
}

/** Longer than the program waits before it looks at a file, in milliseconds. */
constexpr int waitForNothing = 500;
constexpr const char* lostPageMessage =
    "This was not saved before the program ended: the text of [/pages/lost.htm]";

} // namespace

class tst_recoveryoffers : public RecoveryFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { Finish(); }

    void lostTextIsOfferedAndRestored();
    void lostMapIsOfferedAndRestored();
    void restoredMapCanBeUndone();
    void unfinishedPolygonGoesOnWhereItWas();
    void fileChangedSinceTheLossIsTold_data();
    void fileChangedSinceTheLossIsTold();
    void discardedTextIsGone();
    void closedOfferComesAgain();
    void offersOutliveTheDocument();
    void restoringAsksForChangesFirst();

private:
    template<class... Copies> void StartAfterALossOf(const Copies&... copies);
};

/** Starts the program after another one that has kept `copies` and was killed. */
template<class... Copies> void tst_recoveryoffers::StartAfterALossOf(const Copies&... copies)
{
    test_.reset();
    test_ = std::make_unique<MainWindowFixture>();
    test_->folder.imgMap.KeepingInterval = soon;
    (RecoveryStore(test_->folder.imgMap.ProgramFolder).Keep(copies), ...);
    QVERIFY(test_->Start());
}

void tst_recoveryoffers::lostTextIsOfferedAndRestored()
{
    StartAfterALossOf(LostPage());
    QCOMPARE(Message(), QString::fromLatin1(lostPageMessage));
    QCOMPARE(Answers(), QStringList({ "btnRestore", "btnDiscard" }));
    QCOMPARE(Editor()->Text(), QString());
    const QStringList before = Files(".page");
    Answer("btnRestore");
    QCOMPARE(test_->DocumentName(), LostPage().Document.Name);
    QCOMPARE(Editor()->TextAsLoaded(), LostPage().Pieces.join(QString()));
    QCOMPARE(Encoding(), QStringLiteral("UTF-8 with mark"));
    QVERIFY(test_->window.File().IsHandledAnew());
    QVERIFY(IsChanged());
    QCOMPARE(Message(), QString());
    // It is not saved yet, so it is kept as before.
    QTRY_VERIFY(Files(".page").size() == 1 && Files(".page") != before);
    QCOMPARE(KeptText(), LostPage().Pieces.join(QString()));
    test_->Type("x");
    QTRY_VERIFY(KeptText().startsWith(u'x'));
}

void tst_recoveryoffers::lostMapIsOfferedAndRestored()
{
    StartAfterALossOf(LostMap());
    QCOMPARE(
        Message(), QStringLiteral("This was not saved before the program ended: an image map with 2 areas"));
    Answer("btnRestore");
    QVERIFY(ImageMapEditor() != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
    QVERIFY(test_->folder.map.State() == LostMap().State);
    QCOMPARE(::Find<QLineEdit>(ImageMapEditor(), "txtName")->text(), QStringLiteral("harbour"));
    QVERIFY(::Find<QLabel>(ImageMapEditor(), "lblWidthPic")->text().toInt() > 0);
    QVERIFY(::Find<QAction>(ImageMapEditor(), "mnuInsert")->isEnabled());
    QVERIFY(!IsChanged());
    QTRY_VERIFY(KeptMap() && KeptMap()->State == LostMap().State);
    test_->robot.AnswerBox(QMessageBox::Yes);
    QVERIFY(ImageMapEditor()->close());
    QTRY_VERIFY(!QFile::exists(Folder()));
}

void tst_recoveryoffers::restoredMapCanBeUndone()
{
    StartAfterALossOf(LostMap());
    OpenImageMapEditor();
    DrawArea();
    const MapState drawn = test_->folder.map.State();
    test_->GoToEditor();
    Answer("btnRestore");
    QVERIFY(test_->folder.map.State() == LostMap().State);
    test_->folder.map.History().Undo();
    QVERIFY(LooksTheSame(test_->folder.map.State(), drawn));
    test_->folder.map.Clear();
}

void tst_recoveryoffers::unfinishedPolygonGoesOnWhereItWas()
{
    MapDocument none;
    none.SetPicture(QStringLiteral(CARTOLEN_PICTURE));
    StartAfterALossOf(MapCopy{
        .State = none.State(), .Fields = {}, .DrawnCorners = { { 10, 20 }, { 60, 30 }, { 40, 70 } } });
    QCOMPARE(
        Message(),
        QStringLiteral("This was not saved before the program ended: a polygon that was being drawn"));
    Answer("btnRestore");
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
    QVERIFY(::Find<QAction>(ImageMapEditor(), "mnuFigNum_7")->isChecked());
    auto* const picture = ::Find<QWidget>(ImageMapEditor(), "PictureDisplay");
    QTest::mouseMove(picture, { 15, 75 });
    QTest::mouseClick(picture, Qt::LeftButton, {}, { 15, 75 });
    const MapDocument& map = test_->folder.map;
    QCOMPARE(map.Drawing().Corners(), QList<QPoint>({ { 10, 20 }, { 60, 30 }, { 40, 70 }, { 15, 75 } }));
    QTest::keyClick(ImageMapEditor(), Qt::Key_Escape);
    QVERIFY(!map.Drawing().IsInProgress());
    QTRY_VERIFY(!QFile::exists(Folder()));
}

void tst_recoveryoffers::fileChangedSinceTheLossIsTold_data()
{
    QTest::addColumn<QByteArray>("now");
    QTest::addColumn<bool>("isTold");
    QTest::newRow("as it was") << QByteArray("<p>\r\n") << false;
    QTest::newRow("changed") << QByteArray("<p>other\r\n") << true;
    QTest::newRow("gone") << QByteArray() << false;
}

void tst_recoveryoffers::fileChangedSinceTheLossIsTold()
{
    QFETCH(const QByteArray, now);
    QFETCH(const bool, isTold);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("page.htm"));
    DocumentFile file;
    QVERIFY(WriteBytes(path, "<p>\r\n") && file.Open(path));
    PageCopy lost{ .Document = { .Name = path, .ContentHash = file.ContentHash() },
                   .Pieces = { QStringLiteral("<p>mine") } };
    QVERIFY(now.isEmpty() ? QFile::remove(path) : WriteBytes(path, now));
    StartAfterALossOf(lost);
    Answer("btnRestore");
    QCOMPARE(Editor()->TextAsLoaded(), QStringLiteral("<p>mine"));
    const auto tells = [this] { return Message().startsWith(QStringLiteral("Another program has changed")); };
    if (isTold) {
        QTRY_VERIFY(tells());
        QCOMPARE(Answers(), QStringList({ "btnReadAgain", "btnKeepMine" }));
        Answer("btnKeepMine");
    } else {
        QVERIFY(!QTest::qWaitFor(tells, waitForNothing));
    }
    QVERIFY(IsChanged());
}

void tst_recoveryoffers::discardedTextIsGone()
{
    StartAfterALossOf(LostPage());
    Answer("btnDiscard");
    QTRY_VERIFY(!QFile::exists(Folder()));
    QCOMPARE(Message(), QString());
    QCOMPARE(Editor()->Text(), QString());
    QVERIFY(!IsChanged());
}

void tst_recoveryoffers::closedOfferComesAgain()
{
    StartAfterALossOf(LostPage());
    Answer("btnCloseMessage");
    QCOMPARE(Message(), QString());
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(RecoveryStore(test_->folder.imgMap.ProgramFolder).TakeLeftBehind().size(), 1);
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recoveryoffers::offersOutliveTheDocument()
{
    StartAfterALossOf(LostPage(), LostMap());
    const QString first = Message();
    QVERIFY(OpenFile("page.htm", "gr\xC3\xBC\xC3\x9F"));
    QCOMPARE(Message(), first);
    Answer("btnDiscard");
    QVERIFY(Message().startsWith(u"This was not saved"));
    QVERIFY(Message() != first);
    Answer("btnDiscard");
    QCOMPARE(Message(), QStringLiteral("This page is written in UTF-8."));
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QCOMPARE(Message(), QString());
}

void tst_recoveryoffers::restoringAsksForChangesFirst()
{
    StartAfterALossOf(LostPage());
    test_->Type("mine");
    test_->robot.AnswerBox(QMessageBox::Cancel);
    Answer("btnRestore");
    QCOMPARE(Editor()->Text(), QStringLiteral("mine"));
    QCOMPARE(Message(), QString::fromLatin1(lostPageMessage));
    test_->robot.AnswerBox(QMessageBox::No);
    Answer("btnRestore");
    QCOMPARE(Editor()->TextAsLoaded(), LostPage().Pieces.join(QString()));
    QCOMPARE(Message(), QString());
}

QTEST_MAIN(tst_recoveryoffers)
#include "tst_recoveryoffers.moc"
