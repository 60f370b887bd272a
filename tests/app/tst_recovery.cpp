// What is not saved is kept for the case that the program ends suddenly, and offered at the next start.

#include "tests/app/EncodingFixture.h"

#include "app/recovery/RecoveryStore.h"
#include "imagemap/frmImageMap.h"

#include <QClipboard>
#include <QPointer>

using namespace std::chrono_literals;

namespace {

constexpr auto soon = 50ms;

PageCopy LostPage()
{
    return { .Name = QStringLiteral("/pages/lost.htm"),
             .Encoding = TextEncoding::Utf8WithMark,
             .IsHandledAnew = true,
             .FoundUtf8 = TextEncoding::Utf8WithMark,
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

constexpr const char* lostPageMessage =
    "This was not saved before the program ended: the text of [/pages/lost.htm]";

} // namespace

class tst_recovery : public EncodingFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { Finish(); }

    void typedTextIsKeptAsItIs();
    void textIsKeptAgainOnlyWhenItHasChanged();
    void textThatCouldNotBeKeptIsKeptLater();
    void savedTextIsKeptNoLonger();
    void textGivenUpIsKeptNoLonger();
    void nothingIsWrittenWhileNothingIsUnsaved();
    void mapIsKeptUntilItIsDeleted();
    void namesTypedInTheEditorAreKept();
    void textSavedWithoutSomeCharactersIsKeptUntilThatIsDecided_data();
    void textSavedWithoutSomeCharactersIsKeptUntilThatIsDecided();

    void endLeavesNothing();
    void textThatCouldNotBeSavedAtTheEndIsKept();
    void mapDeletedAtTheEndIsKept();
    void pastedPictureGoesAtTheEnd();
    void pastedPictureOfAKeptMapStays();

    void lostTextIsOfferedAndRestored();
    void lostMapIsOfferedAndRestored();
    void restoredMapCanBeUndone();
    void discardedTextIsGone();
    void closedOfferComesAgain();
    void offersOutliveTheDocument();
    void restoringAsksForChangesFirst();

private:
    [[nodiscard]] QString Folder() const { return Path("Data/Recovery"); }
    [[nodiscard]] QStringList Files(const char* ending) const
    {
        return QDir(Folder()).entryList({ QLatin1Char('*') + QLatin1String(ending) }, QDir::Files);
    }
    [[nodiscard]] std::optional<PageCopy> KeptPage() const
    {
        const QStringList files = Files(".page");
        return files.size() == 1 ? ReadPageCopy(Folder() + u'/' + files.constFirst()) : std::nullopt;
    }
    [[nodiscard]] std::optional<MapCopy> KeptMap() const
    {
        const QStringList files = Files(".map");
        return files.size() == 1 ? ReadMapCopy(Folder() + u'/' + files.constFirst()) : std::nullopt;
    }
    [[nodiscard]] QString KeptText() const
    {
        const std::optional<PageCopy> page = KeptPage();
        return page ? page->Pieces.join(QString()) : QStringLiteral("(nothing)");
    }
    frmImageMap* ImageMapEditor() { return test_->window.findChild<frmImageMap*>(); }
    void OpenImageMapEditor();
    void DrawArea();
    /** Pastes a picture into the image map editor; its path. */
    QString PastedPicture();
    template<class... Copies> void StartAfterALossOf(const Copies&... copies);
};

void tst_recovery::init()
{
    Start();
    test_->folder.imgMap.KeepingInterval = soon;
}

QString tst_recovery::PastedPicture()
{
    OpenImageMapEditor();
    QImage picture(120, 90, QImage::Format_RGB32);
    picture.fill(Qt::red);
    QGuiApplication::clipboard()->setImage(picture);
    auto* const paste = ImageMapEditor()->findChild<QAction*>(QStringLiteral("mnuAPaste"));
    if (!QTest::qWaitFor([paste] { return paste->isEnabled(); })) {
        return {};
    }
    paste->trigger();
    QGuiApplication::clipboard()->clear();
    return test_->folder.map.Picture();
}

/** Starts the program after another one that has kept `copies` and was killed. */
template<class... Copies> void tst_recovery::StartAfterALossOf(const Copies&... copies)
{
    test_.reset();
    test_ = std::make_unique<MainWindowFixture>();
    test_->folder.imgMap.KeepingInterval = soon;
    (RecoveryStore(test_->folder.imgMap.ProgramFolder).Keep(copies), ...);
    QVERIFY(test_->Start());
}

void tst_recovery::OpenImageMapEditor()
{
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(ImageMapEditor() != nullptr);
    QVERIFY(QTest::qWaitForWindowActive(ImageMapEditor()));
}

/** An area as drawing one leaves it. */
void tst_recovery::DrawArea()
{
    MapDocument& map = test_->folder.map;
    map.Ledger().CurrentKind = kindRectangle;
    map.Ledger().AppendFigure();
    map.LinkNewArea({});
}

void tst_recovery::typedTextIsKeptAsItIs()
{
    QVERIFY(OpenFile("page.htm", "a\nb\n"));
    Choose("UTF-8");
    test_->Type("xy");
    QTRY_COMPARE(KeptText(), QStringLiteral("xya\nb\n"));
    const std::optional<PageCopy> page = KeptPage();
    QCOMPARE(page->Name, Path("page.htm"));
    QVERIFY(page->Encoding == TextEncoding::Utf8);
    QVERIFY(page->IsHandledAnew);
    QVERIFY(!page->FoundUtf8);
    test_->Type("z");
    QTRY_COMPARE(KeptText(), QStringLiteral("xyza\nb\n"));
    Choose("UTF-8 with mark");
    QTRY_VERIFY(KeptPage() && KeptPage()->Encoding == TextEncoding::Utf8WithMark);
    QCOMPARE(BytesOf(Path("page.htm")), QByteArray("a\nb\n"));
}

void tst_recovery::textIsKeptAgainOnlyWhenItHasChanged()
{
    test_->Type("x");
    QTRY_COMPARE(KeptText(), QStringLiteral("x"));
    const QString path = Folder() + u'/' + Files(".page").constFirst();
    QVERIFY(QFile::remove(path));
    QTest::qWait(10 * int(soon.count()));
    QVERIFY(!QFile::exists(path));
    test_->Type("y");
    QTRY_COMPARE(KeptText(), QStringLiteral("xy"));
}

void tst_recovery::textThatCouldNotBeKeptIsKeptLater()
{
    QVERIFY(WriteBytes(Folder(), "in the way"));
    test_->Type("x");
    QTest::qWait(5 * int(soon.count()));
    QVERIFY(QFile::remove(Folder()));
    QTRY_COMPARE(KeptText(), QStringLiteral("x"));
}

void tst_recovery::savedTextIsKeptNoLonger()
{
    QVERIFY(OpenFile("page.htm", "old"));
    test_->Type("x");
    QTRY_COMPARE(KeptText(), QStringLiteral("xold"));
    test_->Press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!QFile::exists(Folder()));
    test_->Type("y");
    QTRY_COMPARE(KeptText(), QStringLiteral("xyold"));
}

void tst_recovery::textGivenUpIsKeptNoLonger()
{
    test_->Type("x");
    QTRY_COMPARE(KeptText(), QStringLiteral("x"));
    test_->robot.AnswerBox(QMessageBox::No);
    test_->Press(Qt::Key_N, Qt::ControlModifier);
    QTRY_VERIFY(!QFile::exists(Folder()));
}

void tst_recovery::nothingIsWrittenWhileNothingIsUnsaved()
{
    QVERIFY(OpenFile("page.htm", "text"));
    OpenImageMapEditor();
    test_->Press(Qt::Key_Down);
    QTest::qWait(10 * int(soon.count()));
    QVERIFY(!QFile::exists(Folder()));
}

void tst_recovery::mapIsKeptUntilItIsDeleted()
{
    OpenImageMapEditor();
    DrawArea();
    QTRY_VERIFY(KeptMap() && KeptMap()->State == test_->folder.map.State());
    DrawArea();
    QTRY_VERIFY(KeptMap() && KeptMap()->State.Areas.size() == 2);
    test_->robot.AnswerBox(QMessageBox::Yes);
    QVERIFY(ImageMapEditor()->close());
    QTRY_VERIFY(!QFile::exists(Folder()));
    QVERIFY(Files(".page").isEmpty());
}

void tst_recovery::namesTypedInTheEditorAreKept()
{
    OpenImageMapEditor();
    DrawArea();
    QTRY_VERIFY(KeptMap());
    TypeIn(ImageMapEditor(), "txtName", "harbour");
    QTRY_COMPARE(
        KeptMap() ? KeptMap()->Fields.value(QStringLiteral("txtName")) : QString(),
        QStringLiteral("harbour"));
    test_->robot.AnswerBox(QMessageBox::Yes);
    QVERIFY(ImageMapEditor()->close());
}

void tst_recovery::textSavedWithoutSomeCharactersIsKeptUntilThatIsDecided_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::newRow("references") << QByteArray("btnAsReferences");
    QTest::newRow("UTF-8") << QByteArray("btnAsUtf8");
    QTest::newRow("closed") << QByteArray("btnCloseMessage");
}

void tst_recovery::textSavedWithoutSomeCharactersIsKeptUntilThatIsDecided()
{
    QFETCH(const QByteArray, button);
    QVERIFY(OpenFile("page.htm", "old"));
    Editor()->ReplaceSelection(QStringLiteral("\u65e5"));
    QCOMPARE(Saved(), QByteArray("?old\r\n"));
    QVERIFY(!IsChanged());
    QTRY_COMPARE(KeptText(), QStringLiteral("\u65e5old"));
    QTest::qWait(5 * int(soon.count()));
    QCOMPARE(KeptText(), QStringLiteral("\u65e5old"));
    Answer(button.constData());
    QTRY_VERIFY(!QFile::exists(Folder()));
}

void tst_recovery::endLeavesNothing()
{
    test_->Type("x");
    QTRY_COMPARE(KeptText(), QStringLiteral("x"));
    test_->robot.AnswerBox(QMessageBox::No);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(!QFile::exists(Folder()));
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recovery::textThatCouldNotBeSavedAtTheEndIsKept()
{
    test_->folder.imgMap.KeepingInterval = 1h;
    MakeUnwritable();
    test_->robot.AnswerBox(QMessageBox::Yes);
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(KeptText(), QStringLiteral("xold"));
    QCOMPARE(KeptPage()->Name, Path("pages/page.htm"));
    QVERIFY(Files(".lock").isEmpty());
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recovery::mapDeletedAtTheEndIsKept()
{
    test_->folder.imgMap.KeepingInterval = 1h;
    OpenImageMapEditor();
    DrawArea();
    TypeIn(ImageMapEditor(), "txtName", "harbour");
    const MapState state = test_->folder.map.State();
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(!test_->folder.map.HasContent());
    QVERIFY(KeptMap() && KeptMap()->State == state);
    QCOMPARE(KeptMap()->Fields.value(QStringLiteral("txtName")), QStringLiteral("harbour"));
    QVERIFY(Files(".page").isEmpty());
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recovery::pastedPictureGoesAtTheEnd()
{
    const QString path = PastedPicture();
    QVERIFY(QFile::exists(path));
    QVERIFY(ImageMapEditor()->close());
    QVERIFY(QFile::exists(path)); // undoing may still ask for it
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(!QFile::exists(path));
    QCOMPARE(QDir(Path("Temp")).entryList({ "Pasted*" }), QStringList());
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recovery::pastedPictureOfAKeptMapStays()
{
    const QString path = PastedPicture();
    test_->folder.map.ChangeAreas(
        { { AreaShape::Circle, { 50, 60, 20 }, QStringLiteral("c.htm"), {}, {} } }, QStringLiteral("Change"));
    test_->robot.AnswerBox(QMessageBox::Ok);
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QVERIFY(KeptMap() && KeptMap()->State.Picture == path);
    QCOMPARE(QDir(Path("Temp")).entryList({ "Pasted*" }), QStringList{ "Pasted001.png" });
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recovery::lostTextIsOfferedAndRestored()
{
    StartAfterALossOf(LostPage());
    QCOMPARE(Message(), QString::fromLatin1(lostPageMessage));
    QCOMPARE(Answers(), QStringList({ "btnRestore", "btnDiscard" }));
    QCOMPARE(Editor()->Text(), QString());
    const QStringList before = Files(".page");
    Answer("btnRestore");
    QCOMPARE(test_->DocumentName(), LostPage().Name);
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

void tst_recovery::lostMapIsOfferedAndRestored()
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

void tst_recovery::restoredMapCanBeUndone()
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

void tst_recovery::discardedTextIsGone()
{
    StartAfterALossOf(LostPage());
    Answer("btnDiscard");
    QTRY_VERIFY(!QFile::exists(Folder()));
    QCOMPARE(Message(), QString());
    QCOMPARE(Editor()->Text(), QString());
    QVERIFY(!IsChanged());
}

void tst_recovery::closedOfferComesAgain()
{
    StartAfterALossOf(LostPage());
    Answer("btnCloseMessage");
    QCOMPARE(Message(), QString());
    QVERIFY(EndsProgram([this] { test_->Press(Qt::Key_E, Qt::ControlModifier); }));
    QCOMPARE(RecoveryStore(test_->folder.imgMap.ProgramFolder).TakeLeftBehind().size(), 1);
    test_->folder.imgMap.ContinueAction = false;
}

void tst_recovery::offersOutliveTheDocument()
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

void tst_recovery::restoringAsksForChangesFirst()
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

QTEST_MAIN(tst_recovery)
#include "tst_recovery.moc"
