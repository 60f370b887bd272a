// The program is ended from outside while one of its dialogs is open, as a desktop does that logs its user
// out.

#include "tests/faults/DialogSituations.h"

#include <QPointer>
#include <algorithm>
#include <memory>

class tst_closing : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void init();
    void cleanup();

    void programEndsWhileADialogIsOpen_data();
    void programEndsWhileADialogIsOpen();
    void programEndsAndTellsOfTheMapWhileADialogIsOpen_data();
    void programEndsAndTellsOfTheMapWhileADialogIsOpen();
    void programEndsWhileOtherWindowsAreOpen();
    void changedTextIsAskedForWhileADialogIsOpen_data();
    void changedTextIsAskedForWhileADialogIsOpen();
    void cancelledEndLeavesTheProgramUsable_data();
    void cancelledEndLeavesTheProgramUsable();
    void closedEditorTakesBackTheAreaWhoseLinksAreDamaged();
    void closedEditorKeepsTheAreasWhenOneIsEdited();

private:
    [[nodiscard]] bool EndsIn(const Situation& situation, const Act& end);
    static bool HasVisibleWindows();
    static void RunInProgram(const std::function<void()>& act);

    std::unique_ptr<MainWindowFixture> test_;
};

void tst_closing::init()
{
    test_ = std::make_unique<MainWindowFixture>();
    test_->robot.Hurry();
    QVERIFY(test_->Start());
}

void tst_closing::cleanup()
{
    QCOMPARE(test_->robot.Problems(), QString());
    test_.reset();
    QVERIFY(!HasVisibleWindows());
    while (QApplication::overrideCursor() != nullptr) {
        QApplication::restoreOverrideCursor();
    }
}

bool tst_closing::HasVisibleWindows()
{
    const QWidgetList windows = QApplication::topLevelWidgets();
    return std::any_of(
        windows.begin(), windows.end(), [](const QWidget* window) { return window->isVisible(); });
}

/** Runs `act` inside the program's event loop, which goes on afterwards. */
void tst_closing::RunInProgram(const std::function<void()>& act)
{
    QTimer::singleShot(0, qApp, [act] {
        act();
        QCoreApplication::exit();
    });
    QCoreApplication::exec();
}

/** Whether the program ends, without leaving a window, when `end` is done while the dialog is open. */
bool tst_closing::EndsIn(const Situation& situation, const Act& end)
{
    situation.prepare(*test_);
    for (const auto& click : situation.onTheWay) {
        test_->robot.Act(click);
    }
    test_->robot.Act([this, end](QDialog&) {
        // What is asked at the end is answered as if it was the first question.
        end(*test_);
    });
    return EndsProgram([this, &situation] { situation.open(*test_); }) && !HasVisibleWindows();
}

void tst_closing::programEndsWhileADialogIsOpen_data()
{
    AddRows(MainWindowDialogs() + EditorSituations());
}

void tst_closing::programEndsWhileADialogIsOpen()
{
    QFETCH(const Situation, situation);
    QFETCH(const Act, end);
    QVERIFY(EndsIn(situation, end));
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
}

void tst_closing::programEndsAndTellsOfTheMapWhileADialogIsOpen_data()
{
    AddRows(AreaDialogs());
}

void tst_closing::programEndsAndTellsOfTheMapWhileADialogIsOpen()
{
    QFETCH(const Situation, situation);
    QFETCH(const Act, end);
    QString told;
    const Act endAndAnswer = [end, &told](MainWindowFixture& test) {
        test.robot.Act([&told](QDialog& dialog) {
            auto* const box = qobject_cast<QMessageBox*>(&dialog);
            told = box->text();
            QAbstractButton* const yes = box->button(QMessageBox::Yes);
            Click(yes != nullptr ? yes : box->button(QMessageBox::Ok));
        });
        end(test);
    };
    QVERIFY(EndsIn(situation, endAndAnswer));
    // Which window is asked first when the program is told to end is left to chance.
    QVERIFY2(
        told == u"Your Image Map must be deleted" || told == u"Do you want to delete your Image Map?",
        qPrintable(told));
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
}

void tst_closing::programEndsWhileOtherWindowsAreOpen()
{
    OpenEditor(*test_);
    test_->Press(Qt::Key_P, Qt::ControlModifier);
    QVERIFY(test_->window.findChild<QDialog*>(QStringLiteral("frmMapOptions")) != nullptr);
    QVERIFY(EndsProgram([] { QCoreApplication::quit(); }));
    QVERIFY(!HasVisibleWindows());
}

void tst_closing::changedTextIsAskedForWhileADialogIsOpen_data()
{
    AddRows(
        QList<Situation>{
            { "Save As", Nothing, [](auto& test) { test.ClickMenu("mnuFile", "mnuFSaveAs"); } },
            { "save prompt", Nothing, [](auto& test) { test.Press(Qt::Key_N, Qt::ControlModifier); } },
            { "Save in the prompt",
              Nothing,
              [](auto& test) { test.Press(Qt::Key_O, Qt::ControlModifier); },
              { [](QDialog& dialog) {
                  Click(qobject_cast<QMessageBox*>(&dialog)->button(QMessageBox::Yes));
              } } },
            { "font", Nothing, [](auto& test) { test.ClickMenu("mnuEdit", "mnuEFont"); } },
        } +
        EditorSituations());
}

void tst_closing::changedTextIsAskedForWhileADialogIsOpen()
{
    QFETCH(const Situation, situation);
    QFETCH(const Act, end);
    test_->Type("x");
    QVERIFY(EndsIn(situation, [end](MainWindowFixture& test) {
        test.robot.AnswerBox(QMessageBox::No);
        end(test);
    }));
    QVERIFY(test_->robot.Boxes().constLast().text.startsWith(u"The text in [New Document]"));
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
}

void tst_closing::cancelledEndLeavesTheProgramUsable_data()
{
    changedTextIsAskedForWhileADialogIsOpen_data();
}

void tst_closing::cancelledEndLeavesTheProgramUsable()
{
    QFETCH(const Situation, situation);
    QFETCH(const Act, end);
    test_->Type("x");
    situation.prepare(*test_);
    for (const auto& click : situation.onTheWay) {
        test_->robot.Act(click);
    }
    bool hasAsked = false;
    test_->robot.Act([this, situation, end, &hasAsked](QDialog& dialog) {
        const QPointer<QDialog> open(&dialog);
        test_->robot.AnswerBox(QMessageBox::Cancel);
        end(*test_);
        // Which window is asked first when the program is told to end is left to chance.
        if (situation.isFollowed && Editor() != nullptr && Editor()->isVisible()) {
            test_->robot.Cancel();
        }
        if (open != nullptr && open->isVisible()) {
            open->reject();
        }
        hasAsked = true;
    });
    RunInProgram([&] {
        situation.open(*test_);
        QVERIFY(QTest::qWaitFor([&] { return hasAsked && !test_->robot.HasAnswersLeft(); }));
        QCoreApplication::processEvents();
        // The dialog below the one that was open stays.
        while (auto* const left = qobject_cast<QDialog*>(QApplication::activeModalWidget())) {
            left->reject();
            QCoreApplication::processEvents();
        }
    });
    QVERIFY(test_->window.isVisible());
    QVERIFY(test_->window.File().IsChanged());
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
    test_->Type("y");
    QCOMPARE(test_->Editor()->Text(), QStringLiteral("xy"));
    QVERIFY(!test_->folder.imgMap.ContinueAction);
}

void tst_closing::closedEditorTakesBackTheAreaWhoseLinksAreDamaged()
{
    OpenEditor(*test_);
    RemoveLinksFolder(*test_);
    const QPointer<frmImageMap> editor(Editor());
    test_->robot.Act([&](QDialog& box) {
        QVERIFY(editor->close());
        QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
        box.accept();
    });
    RunInProgram([this] {
        DrawRectangle();
        test_->robot.WaitUntilDone();
    });
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 0);
    QCOMPARE(QApplication::activeModalWidget(), nullptr);
    QVERIFY(editor == nullptr || !editor->isVisible());
    // A fresh editor opens as if nothing had been.
    test_->Press(Qt::Key_I, Qt::ControlModifier);
    QVERIFY(Editor() != nullptr);
}

void tst_closing::closedEditorKeepsTheAreasWhenOneIsEdited()
{
    MakeArea(*test_);
    SelectArea();
    RemoveLinksFolder(*test_);
    const QPointer<frmImageMap> editor(Editor());
    test_->robot.Act([&](QDialog& box) {
        test_->robot.AnswerBox(QMessageBox::No);
        QVERIFY(!editor->close());
        QCOMPARE(test_->folder.map.Ledger().FigureCount, 1);
        box.accept();
    });
    RunInProgram([this] {
        ClickEditorButton(12);
        test_->robot.WaitUntilDone();
    });
    QCOMPARE(test_->folder.map.Ledger().FigureCount, 1);
    QCOMPARE(Find<QTreeView>(editor, "ListView1")->model()->rowCount(), 1);
    QVERIFY(editor->isVisible());
}

QTEST_MAIN(tst_closing)
#include "tst_closing.moc"
