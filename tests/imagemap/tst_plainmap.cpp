// Random plays on the editor's window, compared step by step with a plain account of what must be there.

#include "tests/imagemap/EditorTest.h"
#include "tests/imagemap/PlainMap.h"

#include <QMouseEvent>
#include <QRadioButton>
#include <array>
#include <random>

namespace {

using Tool = PlainTool;
using Button = PlainMap::Button;

constexpr std::array<const char*, 4> toolEntries = { "mnuCursor", "mnuFigNum_5", "mnuFigNum_6",
                                                     "mnuFigNum_7" };
constexpr std::array<const char*, 4> toolStatus = { "Creating Mode !", "Drawing Mode - Rectangle !",
                                                    "Drawing Mode - Circle !",
                                                    "Drawing Mode - Line, draw Polygons !" };
const QList<int> buttonsWithoutFigure = { 3, 5, 6, 7, 9, 11, 18 };
const QList<int> buttonsWithFigure = { 2, 3, 5, 6, 7, 9, 11, 12, 14, 16, 18 };

/** The fields of the link dialog that are filled in each mode: the message, and the map's default. */
struct ModeFields
{
    const char* message;
    const char* modeDefault;
};
constexpr std::array<ModeFields, 5> modeFields = { { { nullptr, nullptr },
                                                     { "txtStatusBarMessage", nullptr },
                                                     { "txtSwitchImage", "txtDefaultImage" },
                                                     { "txtSwitchingTAreaMessage", "txtDefaultTAreaMessage" },
                                                     { "txtToolTipMessage", nullptr } } };

} // namespace

class tst_plainmap : public EditorTest
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup() { End(); }

    void windowDoesWhatThePlainMapDoes_data();
    void windowDoesWhatThePlainMapDoes();

private:
    void Step();
    void PressOrRelease();
    void Move();
    void DrawAFigure();
    void ChooseTool();
    void Delete();
    void StartAnew();
    void SwitchMode();
    void EditRow();
    void CloseAndReopen();

    void Mouse(QEvent::Type type, QPoint at, Qt::MouseButton button = Qt::NoButton);
    void Click(bool isPress, Button button, QPoint at);
    void MoveTo(QPoint to);
    void AnswerLink(const std::function<void()>& act);
    void FillDialog(const QDialog* dialog);
    /** What is entered in the dialog that is open. */
    [[nodiscard]] QString Entered(QStringView what) const { return what + QString::number(texts_); }
    void Compare();
    void CompareRows();
    int Below(int limit) { return static_cast<int>(random_() % static_cast<quint32>(limit)); }
    QPoint Place() { return { Below(320) - 5, Below(215) - 5 }; }

    std::mt19937 random_;
    PlainMap plain_;
    QStringList story_; ///< what was done, to be told on a failure
    int texts_ = 0;     ///< numbers what is entered
};

void tst_plainmap::init()
{
    BeginWithPicture();
    test_->robot.Hurry();
    plain_ = {};
    story_.clear();
    texts_ = 0;
}

void tst_plainmap::windowDoesWhatThePlainMapDoes_data()
{
    QTest::addColumn<quint32>("seed");
    for (const quint32 seed : { 1U, 3U, 4U, 5U }) {
        QTest::addRow("seed %u", seed) << seed;
    }
}

void tst_plainmap::windowDoesWhatThePlainMapDoes()
{
    QFETCH(const quint32, seed);
    constexpr int steps = 200;
    random_.seed(seed);
    for (int step = 0; step < steps; ++step) {
        Step();
        if (!QTest::currentTestFailed()) {
            Compare();
        }
        if (QTest::currentTestFailed()) {
            constexpr int told = 12;
            qWarning("step %d, after %s", step, qPrintable(story_.mid(story_.size() - told).join(u"; ")));
            return;
        }
    }
}

/** Does one of the things that a user can do, some more often than others. */
void tst_plainmap::Step()
{
    struct Choice
    {
        int weight;
        void (tst_plainmap::*act)();
    };
    static constexpr auto choices = std::to_array<Choice>({ { 34, &tst_plainmap::PressOrRelease },
                                                            { 20, &tst_plainmap::Move },
                                                            { 16, &tst_plainmap::DrawAFigure },
                                                            { 12, &tst_plainmap::ChooseTool },
                                                            { 8, &tst_plainmap::Delete },
                                                            { 2, &tst_plainmap::StartAnew },
                                                            { 3, &tst_plainmap::SwitchMode },
                                                            { 4, &tst_plainmap::EditRow },
                                                            { 1, &tst_plainmap::CloseAndReopen } });
    static constexpr int weights = 100;
    int at = Below(weights);
    for (const Choice& choice : choices) {
        at -= choice.weight;
        if (at < 0) {
            (this->*choice.act)();
            return;
        }
    }
}

void tst_plainmap::Mouse(QEvent::Type type, QPoint at, Qt::MouseButton button)
{
    QWidget* const surface = test_->Surface();
    QMouseEvent event(type, at, surface->mapToGlobal(at), button, button, {});
    QApplication::sendEvent(surface, &event);
}

void tst_plainmap::Click(bool isPress, Button button, QPoint at)
{
    const bool isLeft = button == Button::Left;
    story_ << QStringLiteral("%1 %2 at %3,%4")
                  .arg(isPress ? u"press" : u"release", isLeft ? u"left" : u"right")
                  .arg(at.x())
                  .arg(at.y());
    const auto act = [this, isPress, isLeft, at] {
        Mouse(
            isPress ? QEvent::MouseButtonPress : QEvent::MouseButtonRelease, at,
            isLeft ? Qt::LeftButton : Qt::RightButton);
    };
    if (isPress ? plain_.Press(button, at) : plain_.Release(button, at)) {
        AnswerLink(act);
    } else {
        act();
    }
}

void tst_plainmap::MoveTo(QPoint to)
{
    story_ << QStringLiteral("move to %1,%2").arg(to.x()).arg(to.y());
    plain_.Move(to);
    Mouse(QEvent::MouseMove, to);
}

void tst_plainmap::PressOrRelease()
{
    Click(Below(2) == 0, Below(4) == 0 ? Button::Right : Button::Left, Place());
}

void tst_plainmap::Move()
{
    MoveTo(Place());
}

/** A whole figure, as it is usually drawn; with the line a polygon of some sides. */
void tst_plainmap::DrawAFigure()
{
    const int clicks = plain_.tool == Tool::Line ? 2 + Below(3) : 0;
    Click(true, Button::Left, Place());
    for (int click = 0; click < clicks; ++click) {
        Click(false, Button::Left, Place());
        MoveTo(Place());
        Click(true, click + 1 == clicks ? Button::Right : Button::Left, Place());
    }
    MoveTo(Place());
    Click(false, clicks > 0 ? Button::Right : Button::Left, Place());
}

void tst_plainmap::AnswerLink(const std::function<void()>& act)
{
    const QPointer<QDialog> dialog = test_->DialogOpenedBy(act);
    if (Below(4) == 0) {
        story_ << QStringLiteral("close the link dialog");
        plain_.TakeLastBack();
        ClickIn(dialog, "SSCmdClose");
    } else {
        story_ << QStringLiteral("link");
        FillDialog(dialog);
        plain_.Link(Entered(u"link"), Entered(u"message"), Entered(u"default"));
        ClickIn(dialog, "SSCmdOK");
    }
    test_->robot.WaitUntilDone();
}

/** Other texts than in the dialog before. */
void tst_plainmap::FillDialog(const QDialog* dialog)
{
    ++texts_;
    const ModeFields& fields = modeFields[static_cast<std::size_t>(plain_.mode)];
    Find<QComboBox>(dialog, "cmbLink")->setEditText(Entered(u"link"));
    if (fields.message != nullptr) {
        Find<QLineEdit>(dialog, fields.message)->setText(Entered(u"message"));
    }
    if (fields.modeDefault != nullptr) {
        Find<QLineEdit>(dialog, fields.modeDefault)->setText(Entered(u"default"));
    }
}

void tst_plainmap::ChooseTool()
{
    const int tool = Below(8) == 0 ? 0 : 1 + Below(3);
    story_ << QString::fromLatin1(toolEntries[static_cast<std::size_t>(tool)]);
    plain_.Choose(static_cast<Tool>(tool));
    test_->Entry(toolEntries[static_cast<std::size_t>(tool)])->trigger();
}

/** By the command, where it is enabled, or with Esc. */
void tst_plainmap::Delete()
{
    if (Below(4) == 0) {
        story_ << QStringLiteral("Esc");
        plain_.Escape();
        test_->editor->activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(test_->editor));
        QTest::keyClick(test_->editor.data(), Qt::Key_Escape);
    } else if (plain_.areCommandsEnabled) {
        story_ << QStringLiteral("delete the last figure");
        plain_.DeleteLast();
        test_->Entry("mnuDeleteLast")->trigger();
    }
}

void tst_plainmap::StartAnew()
{
    if (!plain_.areCommandsEnabled) {
        return;
    }
    const bool yes = Below(2) == 0;
    story_ << QStringLiteral("new map: %1").arg(yes ? u"yes" : u"no");
    if (plain_.StartAnew(yes)) {
        test_->robot.AnswerBox(yes ? QMessageBox::Yes : QMessageBox::No);
    }
    test_->Entry("mnuNew")->trigger();
    test_->robot.WaitUntilDone();
}

void tst_plainmap::SwitchMode()
{
    const int mode = Below(5);
    const bool yes = Below(2) == 0;
    story_ << QStringLiteral("option %1: %2").arg(mode).arg(yes ? u"yes" : u"no");
    const QPointer<QDialog> dialog =
        test_->DialogOpenedBy([this] { test_->Entry("mnuJSOptions")->trigger(); });
    const qsizetype boxes = test_->robot.Boxes().size();
    const bool isAsked = plain_.SwitchMode(mode, yes);
    if (isAsked) {
        test_->robot.AnswerBox(yes ? QMessageBox::Yes : QMessageBox::No);
    }
    auto* const option = Find<QRadioButton>(dialog, qPrintable(QStringLiteral("optJSOpt_%1").arg(mode)));
    QTest::mouseClick(option, Qt::LeftButton, {}, QPoint(30, option->height() / 2));
    QTRY_COMPARE(test_->robot.Boxes().size(), boxes + (isAsked ? 1 : 0));
    QTRY_COMPARE(QApplication::activeModalWidget(), dialog.data());
    ClickIn(dialog, "cmdOK");
    test_->robot.WaitUntilDone();
}

void tst_plainmap::EditRow()
{
    if (!plain_.areCommandsEnabled || plain_.rows.isEmpty()) {
        return;
    }
    const int row = Below(static_cast<int>(plain_.rows.size()));
    test_->SelectRow(row);
    const QPointer<QDialog> dialog = test_->DialogOpenedBy([this] { test_->Entry("mnuLink")->trigger(); });
    FillDialog(dialog);
    const bool replaces = Below(3) > 0;
    story_ << QStringLiteral("edit row %1: %2").arg(row).arg(replaces ? u"replace" : u"close");
    if (replaces) {
        plain_.Relink(row, Entered(u"link"), Entered(u"message"), Entered(u"default"));
    }
    ClickIn(dialog, replaces ? "SSCmdReplace" : "SSCmdClose");
    test_->robot.WaitUntilDone();
}

void tst_plainmap::CloseAndReopen()
{
    const bool isAsked = !plain_.figures.isEmpty();
    const bool stays = isAsked && Below(3) > 0;
    story_ << QStringLiteral("exit: %1").arg(stays ? u"no" : u"yes");
    if (isAsked) {
        test_->robot.AnswerBox(stays ? QMessageBox::No : QMessageBox::Yes);
    }
    test_->Entry("mnuExit")->trigger();
    test_->robot.WaitUntilDone();
    if (stays) {
        return;
    }
    QVERIFY(test_->Closes());
    plain_.CloseAndReopen();
    test_->LoadEditor();
    QVERIFY(test_->Start());
    test_->OpenPicture(plainPicture);
}

void tst_plainmap::Compare()
{
    CompareRows();
    const FigureStore& ledger = test_->map.Figures();
    QCOMPARE(ledger.FigureCount, plain_.figures.size());
    QCOMPARE(ledger.PolygonLineCount, plain_.sides);
    QCOMPARE(ledger.CurrentPolygonLineCount, plain_.current.size());
    for (int i = 0; i < ledger.FigureCount; ++i) {
        const FigureRecord& figure = ledger.Figures[i];
        QCOMPARE(figure.Kind - kindRectangle, int(plain_.figures[i].kind) - int(Tool::Rectangle));
        QCOMPARE(QPoint(figure.X1, figure.Y1), plain_.figures[i].from);
        QCOMPARE(QPoint(figure.X2, figure.Y2), plain_.figures[i].to);
    }
    QCOMPARE(int(test_->map.Script().Mode()), plain_.mode);
    QCOMPARE(test_->map.Script().ModeDefault(), plain_.modeDefault);
    QCOMPARE(test_->MessageHeader(), plain_.header);
    QCOMPARE(test_->EnabledButtons(), plain_.areCommandsEnabled ? buttonsWithFigure : buttonsWithoutFigure);
    const auto tool = static_cast<std::size_t>(plain_.tool);
    QCOMPARE(test_->CheckedTools(), QStringList(QString::fromLatin1(toolEntries[tool])));
    QCOMPARE(test_->Status(), QString::fromLatin1(toolStatus[tool]));
    QCOMPARE(test_->Cursor1And2(), plain_.labels.cursor);
    QCOMPARE(test_->Start1And2(), plain_.labels.start);
    QCOMPARE(test_->End1And2(), plain_.labels.end);
    QCOMPARE(test_->Dimensions1And2(), plain_.labels.size);
    QCOMPARE(test_->Text("lblFigures"), plain_.labels.figures);
}

void tst_plainmap::CompareRows()
{
    QCOMPARE(test_->RowCount(), plain_.rows.size());
    for (int i = 0; i < plain_.rows.size(); ++i) {
        const PlainMap::Row& row = plain_.rows[i];
        const QString title = QStringLiteral(" No: %1 %2").arg(i + 1).arg(row.shape);
        QCOMPARE(test_->Row(i), QStringList({ title, row.link, QString(), row.coordinates, row.message }));
    }
}

QTEST_MAIN(tst_plainmap)

#include "tst_plainmap.moc"
