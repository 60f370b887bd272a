// What is not saved is kept for the case that the program ends suddenly.

#include "tests/app/RecoveryFixture.h"

#include <QClipboard>

using namespace std::chrono_literals;

class tst_recovery : public RecoveryFixture
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
    void unfinishedPolygonIsKept();
    void textSavedWithoutSomeCharactersIsKeptUntilThatIsDecided_data();
    void textSavedWithoutSomeCharactersIsKeptUntilThatIsDecided();

    void endLeavesNothing();
    void textThatCouldNotBeSavedAtTheEndIsKept();
    void mapDeletedAtTheEndIsKept();
    void pastedPictureGoesAtTheEnd();
    void pastedPictureOfAKeptMapStays();

private:
    /** Pastes a picture into the image map editor; its path. */
    QString PastedPicture();
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

void tst_recovery::typedTextIsKeptAsItIs()
{
    QVERIFY(OpenFile("page.htm", "a\nb\n"));
    Choose("UTF-8");
    test_->Type("xy");
    QTRY_COMPARE(KeptText(), QStringLiteral("xya\nb\n"));
    const std::optional<PageCopy> page = KeptPage();
    QCOMPARE(page->Document.Name, Path("page.htm"));
    QVERIFY(page->Document.Encoding == TextEncoding::Utf8);
    QVERIFY(page->Document.IsHandledAnew);
    QVERIFY(!page->Document.FoundUtf8);
    test_->Type("z");
    QTRY_COMPARE(KeptText(), QStringLiteral("xyza\nb\n"));
    Choose("UTF-8 with mark");
    QTRY_VERIFY(KeptPage() && KeptPage()->Document.Encoding == TextEncoding::Utf8WithMark);
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

void tst_recovery::unfinishedPolygonIsKept()
{
    OpenImageMapEditor();
    MapDocument& map = test_->folder.map;
    ImageMapEditor()->ResumePolygon({ { 10, 20 }, { 60, 30 }, { 40, 70 } });
    QCOMPARE(map.Figures().FigureCount, 2);
    QTRY_VERIFY(KeptMap());
    QCOMPARE(KeptMap()->DrawnCorners, QList<QPoint>({ { 10, 20 }, { 60, 30 }, { 40, 70 } }));
    QVERIFY(KeptMap()->State == map.State());
    map.Drawing().GiveUp();
    QTRY_VERIFY(!QFile::exists(Folder()));
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
    QCOMPARE(KeptPage()->Document.Name, Path("pages/page.htm"));
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

QTEST_MAIN(tst_recovery)
#include "tst_recovery.moc"
