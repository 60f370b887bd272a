// A picture of the page that has no map gets one by Update Page.

#include "tests/app/EditMapFixture.h"

class tst_picturemaps : public EditMapFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { StartWithAPage(); }
    void cleanup() { Finish(); }

    void pictureAtTheCaretGetsAMap();
    void nextUpdateChangesTheMap();
    void mapOfAPictureIsOneStepOfUndo();
    void mapUndoneInThePageIsMadeAgain();
    void nameThatThePageHasIsNumbered();
    void nameIsAskedFor();
    void mapWithoutAreasIsNotWritten();
    void modeWithAScriptIsRefused();
    void pictureInALinkIsTold();
    void pictureOfTheServerIsTold();
    void pictureChangedByHandGetsItsMap();
    void pictureThatHasGotAMapIsLeftAlone();
    void pictureThatIsGoneIsTold();
    void openPictureIsBroughtBack();
    void closingOffersTheMapToThePage();

private:
    static constexpr const char* plainPage = "<p>One</p>\r\n"
                                             "<div>\r\n"
                                             "  <IMG SRC='harbour.jpg' ALT='The harbour'>\r\n"
                                             "</div>\r\n"
                                             "<p>Two</p>\r\n";

    bool EditPicture(const QString& page);
    void GiveName(const char* name) { TypeIn(Map(), "txtName", name); }
    void Draw() { DrawRectangle({ QPoint(20, 30), QPoint(60, 70) }, "a.htm"); }
    QString Told();
};

/** Opens the page's picture with the caret in its tag. */
bool tst_picturemaps::EditPicture(const QString& page)
{
    Load(page);
    test_->Editor()->Select(page.indexOf(u"harbour"), 0);
    return Edit();
}

/** What Update Page says in a box; the page stays as it is. */
QString tst_picturemaps::Told()
{
    const QString page = Text();
    test_->robot.AnswerBox(QMessageBox::Ok);
    Update();
    test_->robot.WaitUntilDone();
    return Text() == page ? test_->robot.Boxes().constLast().text : QStringLiteral("changed");
}

void tst_picturemaps::pictureAtTheCaretGetsAMap()
{
    const QString page = QString::fromLatin1(plainPage) + QString::fromLatin1(twoAreas);
    QVERIFY(EditPicture(page));
    QCOMPARE(test_->Editor()->SelText(), QStringLiteral("<IMG SRC='harbour.jpg' ALT='The harbour'>"));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtAltDescript")->text(), QStringLiteral("The harbour"));
    QVERIFY(Rows().isEmpty());
    Draw();
    GiveName("quays");
    Update();
    QCOMPARE(
        Text(), Replaced(
                    page, "<IMG SRC='harbour.jpg' ALT='The harbour'>\r\n",
                    "<IMG SRC='harbour.jpg' ALT='The harbour' USEMAP='#quays'>\r\n"
                    "  <MAP NAME='quays'>\r\n"
                    "    <AREA SHAPE='rect' COORDS='20,30,60,70' HREF='a.htm' ALT='a' TITLE='New'>\r\n"
                    "  </MAP>\r\n"));
    QCOMPARE(::Find<QLabel>(Map(), "StatusBar1_Panel3")->text(), QStringLiteral("Updated in line 4"));
}

void tst_picturemaps::nextUpdateChangesTheMap()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    GiveName("quays");
    Update();
    const QString written = Text();
    Update();
    QCOMPARE(Text(), written);
    ShowArea(0);
    TypeIn(Map(), "cmbAreaLink", "b.htm");
    Update();
    // Its text is told from the link.
    QCOMPARE(Text(), Replaced(Replaced(written, "a.htm", "b.htm"), "ALT='a'", "ALT='b'"));
    Map()->close();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_picturemaps::mapOfAPictureIsOneStepOfUndo()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    GiveName("quays");
    Update();
    QVERIFY(Text().contains(u"<MAP"));
    test_->Editor()->undo();
    QCOMPARE(Text(), QString::fromLatin1(plainPage));
}

void tst_picturemaps::mapUndoneInThePageIsMadeAgain()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    GiveName("quays");
    Update();
    const QString written = Text();
    test_->Editor()->undo();
    QCOMPARE(Text(), QString::fromLatin1(plainPage));
    Update();
    QCOMPARE(Text(), written);
    // And so is one that is changed by then.
    test_->Editor()->undo();
    DrawRectangle({ QPoint(5, 5), QPoint(15, 15) }, "b.htm");
    Update();
    QVERIFY(Text().contains(u"COORDS='20,30,60,70' HREF='a.htm'"));
    QVERIFY(Text().contains(u"COORDS='5,5,15,15' HREF='b.htm'"));
    QCOMPARE(Text().count(u"<MAP"), 1);
}

void tst_picturemaps::nameThatThePageHasIsNumbered()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage) + QString::fromLatin1(twoAreas)));
    Draw();
    GiveName("h");
    Update();
    QVERIFY2(Text().contains(u"USEMAP='#h2'>\r\n  <MAP NAME='h2'>"), qPrintable(Text()));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtName")->text(), QStringLiteral("h2"));
    Update();
    QCOMPARE(Text().count(u"h2"), 2);
}

void tst_picturemaps::nameIsAskedFor()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    QCOMPARE(Told(), QStringLiteral("Please, enter the Image Map Name !"));
    QCOMPARE(Map()->focusWidget()->objectName(), QStringLiteral("txtName"));
}

void tst_picturemaps::mapWithoutAreasIsNotWritten()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    GiveName("quays");
    QCOMPARE(Told(), QStringLiteral("Draw an area first: a map without areas is not put into the page !"));
}

void tst_picturemaps::modeWithAScriptIsRefused()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    test_->folder.map.Script().SetMode(JSToolTips);
    test_->folder.map.ChangeAreas({ PlainArea({ 1, 2, 30, 40 }, "a.htm") }, QStringLiteral("Drawing"));
    GiveName("quays");
    QVERIFY(Told().startsWith(u"A picture of the page can only get a map without a script"));
}

void tst_picturemaps::pictureInALinkIsTold()
{
    QVERIFY(EditPicture(QStringLiteral("<p><a href=x><img src=harbour.jpg></a></p>\r\n")));
    const QString told = ::Find<QLabel>(Map(), "StatusBar1_Panel3")->text();
    QVERIFY2(told.startsWith(u"The picture is in a link"), qPrintable(told));
    Draw();
    GiveName("quays");
    QCOMPARE(Told(), told);
    // Once the link is gone, it can be written.
    test_->Editor()->Select(Text().indexOf(u"<a href=x>"), 10);
    test_->Editor()->ReplaceSelection({});
    Update();
    QVERIFY(Text().contains(u"usemap=#quays"));
}

void tst_picturemaps::pictureOfTheServerIsTold()
{
    QVERIFY(EditPicture(QStringLiteral("<p><img src=harbour.jpg ismap></p>\r\n")));
    Draw();
    GiveName("quays");
    QVERIFY(Told().startsWith(u"The picture's tag says ismap"));
}

void tst_picturemaps::pictureChangedByHandGetsItsMap()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    GiveName("quays");
    test_->Editor()->Select(0, 0);
    test_->Editor()->ReplaceSelection(QStringLiteral("<p>Nought</p>\r\n"));
    test_->Editor()->Select(Text().indexOf(u"The harbour"), 3);
    test_->Editor()->ReplaceSelection(QStringLiteral("Our"));
    Update();
    QVERIFY2(
        Text().contains(u"<IMG SRC='harbour.jpg' ALT='Our harbour' USEMAP='#quays'>\r\n  <MAP NAME='quays'>"),
        qPrintable(Text()));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtAltDescript")->text(), QStringLiteral("Our harbour"));
}

void tst_picturemaps::pictureThatHasGotAMapIsLeftAlone()
{
    QVERIFY(EditPicture(QStringLiteral("<p>x</p>\r\n<img src=harbour.jpg usemap=#h>\r\n")));
    QCOMPARE(::Find<QLineEdit>(Map(), "txtName")->text(), QStringLiteral("h"));
    Draw();
    test_->Editor()->Select(Text().size(), 0);
    test_->Editor()->ReplaceSelection(QStringLiteral("<map name=h></map>"));
    QCOMPARE(
        Told(), QStringLiteral("The picture is in the page no more, or has got a map there.\n"
                               "Insert puts yours in at the caret !"));
}

void tst_picturemaps::pictureThatIsGoneIsTold()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    GiveName("quays");
    const qsizetype start = Text().indexOf(u"<IMG");
    test_->Editor()->Select(start, Text().indexOf(u'>', start) + 1 - start);
    test_->Editor()->ReplaceSelection({});
    QVERIFY(Told().startsWith(u"The picture is in the page no more"));
}

void tst_picturemaps::openPictureIsBroughtBack()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    QVERIFY(Edit());
    GoToMap();
    QCOMPARE(Rows().size(), 1);
    QVERIFY(test_->robot.Boxes().isEmpty());
}

void tst_picturemaps::closingOffersTheMapToThePage()
{
    QVERIFY(EditPicture(QString::fromLatin1(plainPage)));
    Draw();
    GiveName("quays");
    test_->robot.AnswerBox(QMessageBox::Yes);
    Map()->close();
    test_->robot.WaitUntilDone();
    QTRY_VERIFY(test_->window.findChild<frmImageMap*>() == nullptr);
    QVERIFY(Text().contains(u"<MAP NAME='quays'>"));
}

QTEST_MAIN(tst_picturemaps)
#include "tst_picturemaps.moc"
