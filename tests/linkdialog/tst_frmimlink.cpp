#include "linkdialog/frmIMLink.h"
#include "tests/support/DialogRobot.h"
#include "tests/support/Icons.h"
#include "tests/support/ListedAreas.h"
#include "tests/support/ProgramFolder.h"
#include "tests/support/WidgetDriving.h"

#include <QFile>
#include <QGroupBox>
#include <QLabel>
#include <QScreen>
#include <memory>

namespace {

/** Notes what the dialog does to the map, and when it is through. */
class MapWatcher : public QObject
{
public:
    explicit MapWatcher(MapDocument& map)
        : map_(map)
    {
    }

    /** Notes what happens from now on; `replaced` is the area that the dialog is for, if it is no new one. */
    void Watch(const QDialog& dialog, std::optional<qsizetype> replaced)
    {
        count_ = map_.Areas().size();
        replaced_ = replaced;
        calls.clear();
        disconnect(&map_, nullptr, this, nullptr);
        connect(&map_, &MapDocument::AreasChanged, this, [this] { NoteAreas(); });
        connect(&map_, &MapDocument::MessageHeaderChanged, this, [this] {
            calls << u"header" + map_.MessageHeader();
        });
        connect(&map_, &MapDocument::FiguresRemoved, this, [this] { calls << QStringLiteral("repaint"); });
        disconnect(&dialog, nullptr, this, nullptr);
        connect(&dialog, &QDialog::finished, this, [this] { calls << QStringLiteral("status"); });
    }

    QStringList calls;

private:
    void NoteAreas()
    {
        if (map_.Areas().size() > count_) {
            calls << QStringLiteral("append");
        } else if (replaced_) {
            const MapArea& area = map_.Areas().at(*replaced_);
            calls << QStringLiteral("replace %1 %2").arg(area.Link, area.Message);
        }
        count_ = map_.Areas().size();
    }

    MapDocument& map_;
    qsizetype count_ = 0;
    std::optional<qsizetype> replaced_;
};

constexpr int linkRecordSize = 276;

/** A used record of the links file. */
QByteArray LinkRecord(const QByteArray& url)
{
    QByteArray record = url.leftJustified(260, ' ') + QByteArray::fromHex("02000100");
    return record.leftJustified(linkRecordSize, '\0');
}

QByteArray FreeRecord()
{
    return QByteArray(260, ' ').leftJustified(linkRecordSize, '\0');
}

const QStringList modeFrames = { QString(), QStringLiteral("frmStatusBarMessage"),
                                 QStringLiteral("frmSwitchingImages"), QStringLiteral("frmTextArea"),
                                 QStringLiteral("frmToolTip") };

/** What a field of the dialog is filled with. */
struct Filling
{
    const char* field;
    const char* text;
};
using Fillings = QList<Filling>;

Fillings CompleteFor(int mode)
{
    switch (mode) {
    case 1:
        return { { "cmbLink", "a.htm" }, { "txtStatusBarMessage", "Hello" } };
    case 2:
        return { { "cmbLink", "a.htm" }, { "txtDefaultImage", "out.gif" }, { "txtSwitchImage", "over.gif" } };
    case 3:
        return { { "cmbLink", "a.htm" },
                 { "txtDefaultTAreaMessage", "Welcome" },
                 { "txtSwitchingTAreaMessage", "Here" } };
    case 4:
        return { { "cmbLink", "a.htm" }, { "txtToolTipMessage", "Tip" } };
    default:
        return { { "cmbLink", "a.htm" } };
    }
}

} // namespace

class tst_frmimlink : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void dialogShowsItsTexts();
    void dialogIsModalAndCentredByItsDesignSize();
    void shapeFollowsTheMode_data();
    void shapeFollowsTheMode();
    void newAreaCanOnlyBeAccepted();
    void editedAreaCanOnlyBeReplaced();
    void editedAreaFillsTheFields_data();
    void editedAreaFillsTheFields();
    void defaultOfTheMapIsOffered_data();
    void defaultOfTheMapIsOffered();

    void savedLinksAreOffered();
    void atMostFifteenSavedLinksAreOffered();
    void freeRecordEndsTheSavedLinks();
    void linksAddedButNotSavedStayInMemory();
    void missingLinksFileTellsNothing();
    void missingLinksFolderIsToldAndTheDialogOpens();
    void damagedRecordIsToldAndTheOthersAreOffered();
    void savedLinkIsChosenFromTheList();
    void targetsStandInOrder();
    void typedTextIsNotCompleted();

    void missingFieldsAreAskedForInOrder_data();
    void missingFieldsAreAskedForInOrder();
    void blanksCountAsAText();
    void statusBarMessageMayBeEmpty();

    void acceptingAddsARow_data();
    void acceptingAddsARow();
    void acceptingWritesTheFigure_data();
    void acceptingWritesTheFigure();
    void acceptingAPolygonFinishesIt();
    void acceptingAnUnknownKindAddsNoRow();
    void rowNumberCountsTheRows();

    void replacingRewritesTheRowOnly_data();
    void replacingRewritesTheRowOnly();
    void replacingWithoutScriptClearsTheMessage();

    void closingDiscardsANewFigure_data();
    void closingDiscardsANewFigure();
    void closingDiscardsANewPolygon();
    void closingKeepsAnEditedArea_data();
    void closingKeepsAnEditedArea();

    void enterAccepts_data();
    void enterAccepts();
    void enterReplacesAnEditedArea();

    void browsingChoosesAnImage_data();
    void browsingChoosesAnImage();
    void cancelledBrowsingKeepsTheField();

private:
    void OpenFor(int mode, qint16 kind = kindRectangle);
    void Show(std::optional<qsizetype> replaced);
    void Edit(const QString& message = {});
    void Fill(const Fillings& fillings);
    void WriteLinks(const QByteArray& bytes);
    QStringList OfferedLinks();
    void CloseBy(const QString& way);
    [[nodiscard]] AreaRows Rows() const { return RowsOf(folder_->map); }

    std::unique_ptr<ProgramFolder> folder_;
    std::unique_ptr<QWidget> owner_;
    std::unique_ptr<DialogRobot> robot_;
    std::unique_ptr<MapWatcher> watcher_;
    QPointer<frmIMLink> dialog_;
};

void tst_frmimlink::init()
{
    LoadIcons();
    folder_ = std::make_unique<ProgramFolder>();
    owner_ = std::make_unique<QWidget>();
    owner_->show();
    robot_ = std::make_unique<DialogRobot>();
    watcher_ = std::make_unique<MapWatcher>(folder_->map);
}

void tst_frmimlink::cleanup()
{
    delete dialog_.data();
    const QString problems = robot_->Problems();
    robot_.reset();
    owner_.reset();
    folder_.reset();
    QVERIFY2(problems.isEmpty(), qPrintable(problems));
}

/** Draws a figure of `kind` and shows the dialog for it. */
void tst_frmimlink::OpenFor(int mode, qint16 kind)
{
    MapDocument& map = folder_->map;
    map.SetMode(static_cast<JSMode>(mode));
    FigureStore& store = map.Ledger();
    store.CurrentKind = kind;
    store.StartX = 90;
    store.StartY = 80;
    store.EndX = 10;
    store.EndY = 20;
    store.CurrentRadius = 33;
    if (kind == kindLine) {
        store.AppendSide();
        store.StartX = 10;
        store.StartY = 20;
        store.EndX = 70;
        store.EndY = 60;
        store.AppendSide();
        store.RetractLastSide();
    } else {
        store.AppendFigure();
    }
    Show(std::nullopt);
}

/** Shows a dialog for a new area, or for the area `replaced`, and watches what it does. */
void tst_frmimlink::Show(std::optional<qsizetype> replaced)
{
    delete dialog_.data();
    dialog_ = new frmIMLink(folder_->imgMap, folder_->map, owner_.get());
    dialog_->Form_Load(replaced);
    // The robot leaves the dialog to the test, and answers what opens over it.
    bool isSeen = false;
    robot_->Act([&isSeen](QDialog&) { isSeen = true; });
    dialog_->show();
    QTRY_VERIFY(isSeen);
    QVERIFY(QTest::qWaitForWindowActive(dialog_));
    watcher_->Watch(*dialog_, replaced);
}

/** Shows the dialog for the fourth area of the map instead. */
void tst_frmimlink::Edit(const QString& message)
{
    constexpr int others = 3;
    for (int i = 0; i < others; ++i) {
        folder_->map.AppendArea({});
    }
    folder_->map.AppendArea({ .Shape = AreaShape::Circle,
                              .Coordinates = { 1, 2, 3 },
                              .Link = QStringLiteral("old.htm"),
                              .Target = QStringLiteral("_self"),
                              .Message = message });
    Show(others);
}

void tst_frmimlink::Fill(const Fillings& fillings)
{
    for (const Filling& filling : fillings) {
        TypeIn(dialog_, filling.field, filling.text);
    }
}

void tst_frmimlink::WriteLinks(const QByteArray& bytes)
{
    QFile file(folder_->Path(QStringLiteral("Data/Links.dra")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(bytes), bytes.size());
}

QStringList tst_frmimlink::OfferedLinks()
{
    const auto* const list = Find<QComboBox>(dialog_, "cmbLink");
    QStringList links;
    for (int i = 0; i < list->count(); ++i) {
        links << list->itemText(i);
    }
    return links;
}

void tst_frmimlink::CloseBy(const QString& way)
{
    if (way == u"button") {
        ClickIn(dialog_, "SSCmdClose");
    } else if (way == u"Esc") {
        QTest::keyClick(dialog_, Qt::Key_Escape);
    } else {
        dialog_->close();
    }
}

void tst_frmimlink::dialogShowsItsTexts()
{
    OpenFor(JSDisabled);
    const QList<std::pair<const char*, const char*>> labels = {
        { "Label1", "Link to get conected to :" },
        { "Label2", "Target (Fill this field in if you intend to use your Image Map on the page within HTML "
                    "Frames) :" },
        { "Label3", "Tool Tip Message :" },
        { "Label4", "Message to switch to On Mouse Over :" },
        { "Label5", "Default Message to be shown On Mouse Out :" },
        { "Label6", "Default Image to be shown On Mouse Out :" },
        { "Label7", "Image to switch to On Mouse Over :" },
        { "Label8", "Status Bar Message (N.N), Tool Tip Message (MSIE):" },
    };
    for (const auto& [name, text] : labels) {
        QCOMPARE(Find<QLabel>(dialog_, name)->text(), QString::fromLatin1(text));
    }
    const QList<std::pair<const char*, const char*>> frames = {
        { "Frame1", "Link Properties" },
        { "frmStatusBarMessage", "On Mouse Over - Status Bar Message" },
        { "frmSwitchingImages", "On Mouse Over - Switching Images" },
        { "frmTextArea", "On Mouse Over - Text Area Message" },
        { "frmToolTip", "On Mouse Over - Tool Tip Message" },
    };
    for (const auto& [name, title] : frames) {
        QCOMPARE(Find<QGroupBox>(dialog_, name)->title(), QString::fromLatin1(title));
    }
    for (const char* const button : { "SSCmdOK", "SSCmdReplace", "SSCmdClose", "Command1", "Command2" }) {
        const auto* const found = Find<QPushButton>(dialog_, button);
        QCOMPARE(found->text(), QString());
        QVERIFY2(!found->icon().pixmap(24, 24).isNull(), button);
    }
    QCOMPARE(dialog_->font().family(), QStringLiteral("Tahoma"));
}

void tst_frmimlink::dialogIsModalAndCentredByItsDesignSize()
{
    OpenFor(JSDisabled);
    QVERIFY(dialog_->isModal());
    const QRect screen = dialog_->screen()->geometry();
    QCOMPARE(dialog_->x(), screen.left() + (screen.width() - dialog_->width()) / 2);
    QCOMPARE(dialog_->y(), screen.top() + (screen.height() - 5565 / 15) / 2);
}

void tst_frmimlink::shapeFollowsTheMode_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("caption");
    QTest::addColumn<int>("height");
    QTest::addColumn<int>("buttonsTop");

    QTest::newRow("disabled") << 0 << QStringLiteral("Standard Image Map") << 3360 / 15 << 2520 / 15;
    QTest::newRow("status bar") << 1 << QStringLiteral("Image Map - Status Bar Message") << 5565 / 15
                                << 4680 / 15;
    QTest::newRow("images") << 2 << QStringLiteral("Image Map - Switching Images") << 5565 / 15 << 4680 / 15;
    QTest::newRow("text area") << 3 << QStringLiteral("Image Map - Text Area Messages") << 5565 / 15
                               << 4680 / 15;
    QTest::newRow("tool tips") << 4 << QStringLiteral("Image Map - Tool Tip Messages") << 5565 / 15
                               << 4680 / 15;
}

void tst_frmimlink::shapeFollowsTheMode()
{
    QFETCH(const int, mode);
    QFETCH(const QString, caption);
    QFETCH(const int, height);
    QFETCH(const int, buttonsTop);

    OpenFor(mode);
    QCOMPARE(dialog_->windowTitle(), caption);
    QCOMPARE(dialog_->height(), height);
    for (const char* const button : { "SSCmdOK", "SSCmdReplace", "SSCmdClose" }) {
        const auto* const found = Find<QPushButton>(dialog_, button);
        QCOMPARE(found->y(), buttonsTop);
        QVERIFY(dialog_->rect().contains(found->geometry()));
    }
    for (int i = 1; i < 5; ++i) {
        const auto* const frame = Find<QGroupBox>(dialog_, qPrintable(modeFrames[i]));
        QCOMPARE(frame->isVisible(), i == mode);
        QVERIFY(!frame->isVisible() || frame->geometry().bottom() < buttonsTop);
    }
}

void tst_frmimlink::newAreaCanOnlyBeAccepted()
{
    OpenFor(JSStatusBar);
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdOK")->isEnabled());
    QVERIFY(!Find<QPushButton>(dialog_, "SSCmdReplace")->isEnabled());
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdClose")->isEnabled());
    QCOMPARE(Find<QGroupBox>(dialog_, "Frame1")->title(), QStringLiteral("Link Properties"));
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QString());
    QCOMPARE(Find<QComboBox>(dialog_, "cmbTarget")->currentText(), QString());
    QCOMPARE(dialog_->focusWidget(), Find<QWidget>(dialog_, "cmbLink"));
}

void tst_frmimlink::editedAreaCanOnlyBeReplaced()
{
    OpenFor(JSStatusBar);
    Edit();
    QVERIFY(!Find<QPushButton>(dialog_, "SSCmdOK")->isEnabled());
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdReplace")->isEnabled());
    QVERIFY(Find<QPushButton>(dialog_, "SSCmdClose")->isEnabled());
    QCOMPARE(Find<QGroupBox>(dialog_, "Frame1")->title(), QStringLiteral(" No: 4 Circle"));
}

void tst_frmimlink::editedAreaFillsTheFields_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("field");

    QTest::newRow("disabled") << 0 << QString();
    QTest::newRow("status bar") << 1 << QStringLiteral("txtStatusBarMessage");
    QTest::newRow("images") << 2 << QStringLiteral("txtSwitchImage");
    QTest::newRow("text area") << 3 << QStringLiteral("txtSwitchingTAreaMessage");
    QTest::newRow("tool tips") << 4 << QStringLiteral("txtToolTipMessage");
}

void tst_frmimlink::editedAreaFillsTheFields()
{
    QFETCH(const int, mode);
    QFETCH(const QString, field);

    WriteLinks(LinkRecord("saved.htm"));
    OpenFor(mode);
    Edit(QStringLiteral("Message"));
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QStringLiteral("old.htm"));
    // The target of a row is not edited.
    QCOMPARE(Find<QComboBox>(dialog_, "cmbTarget")->currentText(), QString());
    for (const QLineEdit* const edit : dialog_->findChildren<QLineEdit*>()) {
        if (edit->objectName().startsWith(u"txt")) {
            QCOMPARE(edit->text(), edit->objectName() == field ? QStringLiteral("Message") : QString());
        }
    }
}

void tst_frmimlink::defaultOfTheMapIsOffered_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("image");
    QTest::addColumn<QString>("text");

    const QString none;
    const QString offered = QStringLiteral("The default");
    QTest::newRow("disabled") << 0 << none << none;
    QTest::newRow("status bar") << 1 << none << none;
    QTest::newRow("images") << 2 << offered << none;
    QTest::newRow("text area") << 3 << none << offered;
    QTest::newRow("tool tips") << 4 << none << none;
}

void tst_frmimlink::defaultOfTheMapIsOffered()
{
    QFETCH(const int, mode);
    QFETCH(const QString, image);
    QFETCH(const QString, text);

    folder_->map.SetModeDefault(QStringLiteral("The default"));
    OpenFor(mode);
    QCOMPARE(Find<QLineEdit>(dialog_, "txtDefaultImage")->text(), image);
    QCOMPARE(Find<QLineEdit>(dialog_, "txtDefaultTAreaMessage")->text(), text);
}

void tst_frmimlink::savedLinksAreOffered()
{
    WriteLinks(LinkRecord("http://one.example/") + LinkRecord("  two.htm") + LinkRecord("caf\xe9.htm"));
    OpenFor(JSDisabled);
    const QStringList expected = { QStringLiteral("http://one.example/"), QStringLiteral("two.htm"),
                                   QStringLiteral("caf\u00e9.htm") };
    QCOMPARE(OfferedLinks(), expected);
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QString());
    QVERIFY(robot_->Boxes().isEmpty());
}

void tst_frmimlink::atMostFifteenSavedLinksAreOffered()
{
    QByteArray bytes;
    for (int i = 1; i <= 20; ++i) {
        bytes += LinkRecord("link" + QByteArray::number(i));
    }
    WriteLinks(bytes);
    OpenFor(JSDisabled);
    QCOMPARE(OfferedLinks().size(), 15);
    QCOMPARE(OfferedLinks().constLast(), QStringLiteral("link15"));
}

void tst_frmimlink::freeRecordEndsTheSavedLinks()
{
    WriteLinks(LinkRecord("one.htm") + FreeRecord() + LinkRecord("three.htm"));
    OpenFor(JSDisabled);
    QCOMPARE(OfferedLinks(), QStringList{ QStringLiteral("one.htm") });
}

void tst_frmimlink::linksAddedButNotSavedStayInMemory()
{
    folder_->imgMap.SavedLinkURL[1] = QStringLiteral("added but not saved");
    folder_->imgMap.SavedLinkMark[1] = qint16(1);
    WriteLinks(LinkRecord("one.htm") + LinkRecord("two.htm"));
    OpenFor(JSDisabled);
    QCOMPARE(OfferedLinks(), (QStringList{ QStringLiteral("one.htm"), QStringLiteral("two.htm") }));
    QCOMPARE(folder_->imgMap.SavedLinkURL[1], QStringLiteral("added but not saved"));
    QVERIFY(folder_->imgMap.SavedLinkMark[1].has_value());
    QVERIFY(!folder_->imgMap.SavedLinkMark[2].has_value());
}

void tst_frmimlink::missingLinksFileTellsNothing()
{
    OpenFor(JSDisabled);
    QVERIFY(robot_->Boxes().isEmpty());
    QCOMPARE(OfferedLinks(), QStringList());
}

void tst_frmimlink::missingLinksFolderIsToldAndTheDialogOpens()
{
    QVERIFY(QDir(folder_->Path(QStringLiteral("Data"))).removeRecursively());
    robot_->AnswerBox(QMessageBox::Ok);
    OpenFor(JSStatusBar);
    QCOMPARE(robot_->Boxes().size(), 1);
    const DialogRobot::SeenBox box = robot_->Boxes().constFirst();
    QCOMPARE(box.text, QStringLiteral("File Links.dra is either damaged or missing !"));
    QCOMPARE(box.title, QStringLiteral("Cartolen"));
    QCOMPARE(box.icon, QMessageBox::Warning);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(dialog_->isVisible());
    TypeIn(dialog_, "cmbLink", "works.htm");
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
}

void tst_frmimlink::damagedRecordIsToldAndTheOthersAreOffered()
{
    QByteArray damaged = LinkRecord("bad.htm");
    damaged[260] = 99;
    WriteLinks(LinkRecord("one.htm") + damaged + LinkRecord("three.htm"));
    robot_->AnswerBox(QMessageBox::Ok);
    OpenFor(JSDisabled);
    QCOMPARE(robot_->Boxes().size(), 1);
    QVERIFY(OfferedLinks().contains(QStringLiteral("one.htm")));
    QVERIFY(dialog_->isVisible());
}

void tst_frmimlink::savedLinkIsChosenFromTheList()
{
    WriteLinks(LinkRecord("one.htm") + LinkRecord("two.htm"));
    OpenFor(JSDisabled);
    auto* const list = Find<QComboBox>(dialog_, "cmbLink");
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Down);
    QCOMPARE(list->currentText(), QStringLiteral("two.htm"));
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Link, QStringLiteral("two.htm"));
}

void tst_frmimlink::targetsStandInOrder()
{
    OpenFor(JSDisabled);
    const auto* const list = Find<QComboBox>(dialog_, "cmbTarget");
    QStringList items;
    for (int i = 0; i < list->count(); ++i) {
        items << list->itemText(i);
    }
    QCOMPARE(items.join(u' '), QStringLiteral("_blank _parent _self _top"));
    QVERIFY(list->isEditable());
    QVERIFY(Find<QComboBox>(dialog_, "cmbLink")->isEditable());
}

void tst_frmimlink::typedTextIsNotCompleted()
{
    WriteLinks(LinkRecord("http://one.example/page.htm") + LinkRecord("ONE.htm"));
    OpenFor(JSDisabled);
    TypeIn(dialog_, "cmbLink", "http://one");
    TypeIn(dialog_, "cmbTarget", "_T");
    QCOMPARE(Find<QComboBox>(dialog_, "cmbLink")->currentText(), QStringLiteral("http://one"));
    TypeIn(dialog_, "cmbLink", "one.htm");
    QTest::keyClick(Find<QComboBox>(dialog_, "cmbLink")->lineEdit(), Qt::Key_Tab);
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Link, QStringLiteral("one.htm"));
    QCOMPARE(Rows()[0].Target, QStringLiteral("_T"));
}

void tst_frmimlink::missingFieldsAreAskedForInOrder_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("isReplacing");
    QTest::addColumn<int>("filled");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("title");

    const QString application = QStringLiteral("Cartolen");
    const QString link = QStringLiteral("Please, enter the Link to get conected to !");
    const QStringList names = { QStringLiteral("disabled"), QStringLiteral("status bar"),
                                QStringLiteral("images"), QStringLiteral("text area"),
                                QStringLiteral("tool tips") };
    const QList<QStringList> texts = {
        { link },
        { link },
        { link, QStringLiteral("Please, enter the Default Image File Name !"),
          QStringLiteral("Please, enter the File Name for Image to switch to !") },
        { link, QStringLiteral("Please, enter the Default Message !"),
          QStringLiteral("Please, enter the Message to switch to !") },
        { link, QStringLiteral("Please, enter the Tool Tip Message !") },
    };
    for (const bool isReplacing : { false, true }) {
        for (int mode = 0; mode < 5; ++mode) {
            for (int filled = 0; filled < texts[mode].size(); ++filled) {
                const bool hasOwnTitle = mode == 4 && filled == 0 && !isReplacing;
                QTest::addRow(
                    "%s, %s, %d filled", isReplacing ? "replace" : "ok", qPrintable(names[mode]), filled)
                    << mode << isReplacing << filled << texts[mode][filled]
                    << (hasOwnTitle ? QStringLiteral("Image Map Link") : application);
            }
        }
    }
}

void tst_frmimlink::missingFieldsAreAskedForInOrder()
{
    QFETCH(const int, mode);
    QFETCH(const bool, isReplacing);
    QFETCH(const int, filled);
    QFETCH(const QString, text);
    QFETCH(const QString, title);

    OpenFor(mode);
    if (isReplacing) {
        Edit();
        Find<QComboBox>(dialog_, "cmbLink")->clearEditText();
    }
    folder_->map.SetModeDefault(QStringLiteral("untouched"));
    Fill(CompleteFor(mode).first(filled));
    // The last field alone does not make up for those before it.
    if (filled + 1 < CompleteFor(mode).size() && CompleteFor(mode).size() == 3) {
        Fill({ CompleteFor(mode).constLast() });
    }
    robot_->AnswerBox(QMessageBox::Ok);
    ClickIn(dialog_, isReplacing ? "SSCmdReplace" : "SSCmdOK");
    QCOMPARE(robot_->Boxes().size(), 1);
    const DialogRobot::SeenBox box = robot_->Boxes().constFirst();
    QCOMPARE(box.text, text);
    QCOMPARE(box.title, title);
    QCOMPARE(box.icon, QMessageBox::Information);
    QCOMPARE(box.buttons, QMessageBox::StandardButtons(QMessageBox::Ok));
    QVERIFY(dialog_ != nullptr && dialog_->isVisible());
    QCOMPARE(watcher_->calls, QStringList());
    QCOMPARE(folder_->map.ModeDefault(), QStringLiteral("untouched"));
    QCOMPARE(folder_->map.Ledger().Figures[0].Link, QString());
    QCOMPARE(folder_->map.Ledger().FigureCount, 1);
}

void tst_frmimlink::blanksCountAsAText()
{
    OpenFor(JSTextArea);
    Fill({ { "cmbLink", " " }, { "txtDefaultTAreaMessage", "  " }, { "txtSwitchingTAreaMessage", " " } });
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Link, QStringLiteral(" "));
    QCOMPARE(Rows()[0].Message, QStringLiteral(" "));
    QCOMPARE(folder_->map.ModeDefault(), QStringLiteral("  "));
}

void tst_frmimlink::statusBarMessageMayBeEmpty()
{
    OpenFor(JSStatusBar);
    Fill({ { "cmbLink", "a.htm" } });
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Message, QString());
}

void tst_frmimlink::acceptingAddsARow_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("message");
    QTest::addColumn<QString>("modeDefault");
    QTest::addColumn<QString>("header");

    const QString untouched = QStringLiteral("untouched");
    QTest::newRow("disabled") << 0 << QString() << untouched << QString();
    QTest::newRow("status bar") << 1 << QStringLiteral("Hello") << untouched << QString();
    QTest::newRow("images") << 2 << QStringLiteral("over.gif") << QStringLiteral("out.gif")
                            << QStringLiteral(" Switching Images (Default Image:out.gif):");
    QTest::newRow("text area") << 3 << QStringLiteral("Here") << QStringLiteral("Welcome")
                               << QStringLiteral(" Text Area Messages (Default Message:Welcome):");
    QTest::newRow("tool tips") << 4 << QStringLiteral("Tip") << untouched << QString();
}

void tst_frmimlink::acceptingAddsARow()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);

    QDir::setCurrent(QDir::tempPath());
    folder_->map.SetModeDefault(QStringLiteral("untouched"));
    OpenFor(mode);
    Fill(CompleteFor(mode));
    TypeIn(dialog_, "cmbTarget", "main");
    ClickIn(dialog_, "SSCmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    const AreaRow row = { .Text = QStringLiteral(" No: 1 Rectangle"),
                          .Link = QStringLiteral("a.htm"),
                          .Target = QStringLiteral("main"),
                          .Coordinates = QStringLiteral("10, 20, 90, 80"),
                          .Message = message,
                          .SmallIcon = 1 };
    QCOMPARE(Rows().size(), 1);
    QVERIFY(Rows()[0] == row);
    QCOMPARE(folder_->map.ModeDefault(), modeDefault);
    QStringList calls;
    if (!header.isEmpty()) {
        calls << u"header" + header;
    }
    calls << QStringLiteral("append") << QStringLiteral("status");
    QCOMPARE(watcher_->calls, calls);
    QCOMPARE(QDir::current(), QDir(folder_->imgMap.ProgramFolder));
}

void tst_frmimlink::acceptingWritesTheFigure_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("coordinates");
    QTest::addColumn<int>("icon");

    QTest::newRow("rectangle") << 5 << QStringLiteral(" No: 1 Rectangle") << QStringLiteral("10, 20, 90, 80")
                               << 1;
    QTest::newRow("circle") << 6 << QStringLiteral(" No: 1 Circle") << QStringLiteral("90, 80, 33") << 2;
}

void tst_frmimlink::acceptingWritesTheFigure()
{
    QFETCH(const int, kind);
    QFETCH(const QString, text);
    QFETCH(const QString, coordinates);
    QFETCH(const int, icon);

    OpenFor(JSStatusBar, static_cast<qint16>(kind));
    Fill(CompleteFor(JSStatusBar));
    TypeIn(dialog_, "cmbTarget", "_top");
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().size(), 1);
    QCOMPARE(Rows()[0].Text, text);
    QCOMPARE(Rows()[0].Coordinates, coordinates);
    QCOMPARE(Rows()[0].SmallIcon, icon);
    const FigureRecord& figure = folder_->map.Ledger().Figures[0];
    QCOMPARE(figure.Link, QStringLiteral("a.htm"));
    QCOMPARE(figure.Target, QStringLiteral("_top"));
    QCOMPARE(figure.Message, QStringLiteral("Hello"));
    QCOMPARE(QPoint(figure.X1, figure.Y1), QPoint(90, 80));
    QCOMPARE(QPoint(figure.X2, figure.Y2), QPoint(10, 20));
    QCOMPARE(folder_->map.Ledger().FigureCount, 1);
}

void tst_frmimlink::acceptingAPolygonFinishesIt()
{
    OpenFor(JSToolTips, kindLine);
    Fill(CompleteFor(JSToolTips));
    TypeIn(dialog_, "cmbTarget", "_top");
    ClickIn(dialog_, "SSCmdOK");
    const AreaRow row = { .Text = QStringLiteral(" No: 1 Polygon"),
                          .Link = QStringLiteral("a.htm"),
                          .Target = QStringLiteral("_top"),
                          .Coordinates = QStringLiteral("90, 80, 10, 20, 70, 60"),
                          .Message = QStringLiteral("Tip"),
                          .SmallIcon = 3 };
    QCOMPARE(Rows().size(), 1);
    QVERIFY(Rows()[0] == row);
    const FigureStore& store = folder_->map.Ledger();
    QCOMPARE(store.PolygonLines[0].Link, QStringLiteral("a.htm"));
    QCOMPARE(store.PolygonLines[0].Target, QStringLiteral("_top"));
    QCOMPARE(store.Figures[0].Link, QString());
    QCOMPARE(store.CurrentPolygonLineCount, 0);
    QCOMPARE(store.PolygonLineCount, 1);
    QCOMPARE(store.FigureCount, 1);
}

void tst_frmimlink::acceptingAnUnknownKindAddsNoRow()
{
    OpenFor(JSDisabled);
    folder_->map.Ledger().CurrentKind = 0;
    Fill(CompleteFor(JSDisabled));
    ClickIn(dialog_, "SSCmdOK");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(watcher_->calls, QStringList{ QStringLiteral("status") });
    QCOMPARE(folder_->map.Ledger().Figures[0].Link, QStringLiteral("a.htm"));
}

void tst_frmimlink::rowNumberCountsTheRows()
{
    for (int i = 0; i < 9; ++i) {
        folder_->map.AppendArea({});
    }
    OpenFor(JSDisabled);
    Fill(CompleteFor(JSDisabled));
    ClickIn(dialog_, "SSCmdOK");
    QCOMPARE(Rows().constLast().Text, QStringLiteral(" No: 10 Rectangle"));
}

void tst_frmimlink::replacingRewritesTheRowOnly_data()
{
    acceptingAddsARow_data();
}

void tst_frmimlink::replacingRewritesTheRowOnly()
{
    QFETCH(const int, mode);
    QFETCH(const QString, message);
    QFETCH(const QString, modeDefault);
    QFETCH(const QString, header);

    folder_->map.SetModeDefault(QStringLiteral("untouched"));
    OpenFor(mode, kindLine);
    Edit(QStringLiteral("Old"));
    const FigureStore before = folder_->map.Ledger();
    Fill(CompleteFor(mode));
    TypeIn(dialog_, "cmbTarget", "_blank");
    ClickIn(dialog_, "SSCmdReplace");
    QTRY_VERIFY(dialog_ == nullptr);
    QStringList calls = { QStringLiteral("replace a.htm %1").arg(message) };
    if (!header.isEmpty()) {
        calls << u"header" + header;
    }
    calls << QStringLiteral("status");
    QCOMPARE(watcher_->calls, calls);
    QCOMPARE(folder_->map.ModeDefault(), modeDefault);
    QVERIFY(folder_->map.Ledger().Figures == before.Figures);
    QVERIFY(folder_->map.Ledger().PolygonLines == before.PolygonLines);
    QVERIFY(folder_->map.Ledger().CurrentPolygon == before.CurrentPolygon);
    QCOMPARE(folder_->map.Ledger().FigureCount, before.FigureCount);
    QCOMPARE(folder_->map.Ledger().CurrentPolygonLineCount, before.CurrentPolygonLineCount);
}

void tst_frmimlink::replacingWithoutScriptClearsTheMessage()
{
    OpenFor(JSDisabled);
    Edit(QStringLiteral("left over from another mode"));
    ClickIn(dialog_, "SSCmdReplace");
    QCOMPARE(watcher_->calls.constFirst(), QStringLiteral("replace old.htm "));
}

void tst_frmimlink::closingDiscardsANewFigure_data()
{
    QTest::addColumn<QString>("way");

    QTest::newRow("button") << QStringLiteral("button");
    QTest::newRow("Esc") << QStringLiteral("Esc");
    QTest::newRow("close box") << QStringLiteral("close box");
}

void tst_frmimlink::closingDiscardsANewFigure()
{
    QFETCH(const QString, way);

    OpenFor(JSTextArea, kindCircle);
    Fill(CompleteFor(JSTextArea));
    CloseBy(way);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(folder_->map.Ledger().FigureCount, 0);
    const QStringList calls = { QStringLiteral("repaint"), QStringLiteral("status") };
    QCOMPARE(watcher_->calls, calls);
    QCOMPARE(folder_->map.ModeDefault(), QString());
}

void tst_frmimlink::closingDiscardsANewPolygon()
{
    OpenFor(JSDisabled, kindLine);
    ClickIn(dialog_, "SSCmdClose");
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(folder_->map.Ledger().FigureCount, 0);
    QCOMPARE(folder_->map.Ledger().PolygonLineCount, 0);
    QCOMPARE(folder_->map.Ledger().CurrentPolygonLineCount, 0);
}

void tst_frmimlink::closingKeepsAnEditedArea_data()
{
    closingDiscardsANewFigure_data();
}

void tst_frmimlink::closingKeepsAnEditedArea()
{
    QFETCH(const QString, way);

    OpenFor(JSDisabled);
    Edit();
    CloseBy(way);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(folder_->map.Ledger().FigureCount, 1);
    QCOMPARE(watcher_->calls, QStringList{ QStringLiteral("status") });
}

void tst_frmimlink::enterAccepts_data()
{
    QTest::addColumn<QString>("field");

    QTest::newRow("link") << QStringLiteral("cmbLink");
    QTest::newRow("target") << QStringLiteral("cmbTarget");
    QTest::newRow("message") << QStringLiteral("txtStatusBarMessage");
}

void tst_frmimlink::enterAccepts()
{
    QFETCH(const QString, field);

    OpenFor(JSStatusBar);
    Fill(CompleteFor(JSStatusBar));
    auto* const focused = Find<QWidget>(dialog_, qPrintable(field));
    focused->setFocus();
    QTest::keyClick(focused, Qt::Key_Return);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(Rows().size(), 1);
}

void tst_frmimlink::enterReplacesAnEditedArea()
{
    OpenFor(JSDisabled);
    Edit();
    QTest::keyClick(Find<QComboBox>(dialog_, "cmbLink"), Qt::Key_Return);
    QTRY_VERIFY(dialog_ == nullptr);
    QCOMPARE(watcher_->calls.constFirst(), QStringLiteral("replace old.htm "));
}

void tst_frmimlink::browsingChoosesAnImage_data()
{
    QTest::addColumn<QString>("button");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("other");

    QTest::newRow("default") << QStringLiteral("Command1") << QStringLiteral("txtDefaultImage")
                             << QStringLiteral("txtSwitchImage");
    QTest::newRow("over") << QStringLiteral("Command2") << QStringLiteral("txtSwitchImage")
                          << QStringLiteral("txtDefaultImage");
}

void tst_frmimlink::browsingChoosesAnImage()
{
    QFETCH(const QString, button);
    QFETCH(const QString, field);
    QFETCH(const QString, other);

    QFile image(folder_->Path(QStringLiteral("over.gif")));
    QVERIFY(image.open(QIODevice::WriteOnly));
    OpenFor(JSSwitchImages);
    TypeIn(dialog_, qPrintable(field), "before");
    TypeIn(dialog_, qPrintable(other), "stays");
    QDir::setCurrent(QDir::tempPath());
    robot_->ChooseFile(image.fileName());
    ClickIn(dialog_, qPrintable(button));
    QCOMPARE(Find<QLineEdit>(dialog_, qPrintable(field))->text(), QDir::toNativeSeparators(image.fileName()));
    QCOMPARE(Find<QLineEdit>(dialog_, qPrintable(other))->text(), QStringLiteral("stays"));
    QCOMPARE(robot_->ProposedNames(), QStringList{ QString() });
    QCOMPARE(QDir::current(), QDir(folder_->imgMap.ProgramFolder));
    QVERIFY(dialog_->isVisible());
}

void tst_frmimlink::cancelledBrowsingKeepsTheField()
{
    OpenFor(JSSwitchImages);
    TypeIn(dialog_, "txtDefaultImage", "before");
    QStringList shown;
    robot_->Act([&shown](QDialog& dialog) {
        shown = OfferedFiles(dialog);
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    ClickIn(dialog_, "Command1");
    const QStringList expected = { QStringLiteral("JPG and GIF Files(*.jpg;*.gif)"),
                                   QStringLiteral("JPG Files(*.jpg)"), QStringLiteral("GIF Files(*.Gif)") };
    QCOMPARE(shown, expected);
    QCOMPARE(Find<QLineEdit>(dialog_, "txtDefaultImage")->text(), QStringLiteral("before"));
    QVERIFY(dialog_->isVisible());
}

QTEST_MAIN(tst_frmimlink)
#include "tst_frmimlink.moc"
