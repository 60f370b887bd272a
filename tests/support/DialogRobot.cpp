#include "tests/support/DialogRobot.h"

#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDir>
#include <QFileDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

namespace {

constexpr int lookMilliseconds = 10;
constexpr int settleMilliseconds = 120;
constexpr int usualPatience = 5000;
/** Long plays run beside other work, which may stop them for a while. */
constexpr int patienceInHurry = 60'000;

QString NameFieldText(const QFileDialog& dialog)
{
    const auto* const field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    return field != nullptr ? field->text() : QString();
}

} // namespace

QStringList OfferedFiles(const QDialog& dialog)
{
    const auto* const choices = dialog.findChild<QComboBox*>(QStringLiteral("fileTypeCombo"));
    QStringList texts;
    for (int i = 0; choices != nullptr && i < choices->count(); ++i) {
        texts << choices->itemText(i);
    }
    return texts;
}

DialogRobot::DialogRobot()
{
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    connect(&timer_, &QTimer::timeout, this, &DialogRobot::Look);
    timer_.start(lookMilliseconds);
}

void DialogRobot::AnswerBox(QMessageBox::StandardButton button)
{
    Act([this, button](QDialog& dialog) {
        auto* const box = qobject_cast<QMessageBox*>(&dialog);
        QAbstractButton* const chosen = box != nullptr ? box->button(button) : nullptr;
        if (chosen == nullptr) {
            problems_ << QStringLiteral("no box with the expected button, but %1").arg(dialog.windowTitle());
            dialog.reject();
            return;
        }
        QTest::mouseClick(chosen, Qt::LeftButton);
    });
}

void DialogRobot::ChooseFile(const QString& path)
{
    Act([this, path](QDialog& dialog) {
        auto* const field = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (field == nullptr) {
            problems_ << QStringLiteral("no file dialog, but %1").arg(dialog.windowTitle());
            dialog.reject();
            return;
        }
        field->selectAll();
        if (isInHurry_) {
            field->setText(path);
        } else {
            QTest::keyClicks(field, path);
        }
        // The names offered below the field would take the click for themselves.
        if (QWidget* const offers = QApplication::activePopupWidget()) {
            offers->close();
        }
        const bool isSaving = qobject_cast<QFileDialog*>(&dialog)->acceptMode() == QFileDialog::AcceptSave;
        QTest::mouseClick(
            dialog.findChild<QDialogButtonBox*>()->button(
                isSaving ? QDialogButtonBox::Save : QDialogButtonBox::Open),
            Qt::LeftButton);
    });
}

void DialogRobot::Cancel()
{
    Act([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
}

void DialogRobot::Act(std::function<void(QDialog&)> act)
{
    answers_ << std::move(act);
}

void DialogRobot::Hurry()
{
    isInHurry_ = true;
    timer_.start(0);
}

int DialogRobot::Patience() const
{
    return isInHurry_ ? patienceInHurry : usualPatience;
}

void DialogRobot::Forget()
{
    boxes_.clear();
    proposedNames_.clear();
    proposedFolders_.clear();
    seen_.removeAll(nullptr);
}

void DialogRobot::WaitUntilDone()
{
    if (!QTest::qWaitFor(
            [this] { return answers_.isEmpty() && QApplication::activeModalWidget() == nullptr; },
            Patience())) {
        problems_ << QStringLiteral("a dialog did not come, or did not go");
    }
}

QString DialogRobot::Problems() const
{
    QStringList problems = problems_;
    if (!answers_.isEmpty()) {
        problems << QStringLiteral("%1 answers were not asked for").arg(answers_.size());
    }
    return problems.join(u'\n');
}

void DialogRobot::Look()
{
    auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr || !dialog->isVisible()) {
        return;
    }
    if (seen_.contains(dialog)) {
        if (age_.isValid() && age_.elapsed() > Patience()) {
            problems_ << QStringLiteral("a dialog stayed open: %1").arg(dialog->windowTitle());
            age_.invalidate();
            dialog->reject();
        }
        return;
    }
    // A file dialog that is still reading its folder would turn what is typed into something else.
    if (arriving_ != dialog) {
        arriving_ = dialog;
        age_.start();
    }
    if (age_.elapsed() < settleMilliseconds && !isInHurry_) {
        return;
    }
    seen_ << dialog;
    age_.start();
    Note(*dialog);
    if (answers_.isEmpty()) {
        problems_ << QStringLiteral("unexpected dialog: %1").arg(dialog->windowTitle());
        dialog->reject();
        return;
    }
    // Not from within the timer, which stands still until then: the answer may bring up another dialog.
    QMetaObject::invokeMethod(
        this,
        [act = answers_.takeFirst(), target = QPointer<QDialog>(dialog)] {
            if (target != nullptr) {
                act(*target);
            }
        },
        Qt::QueuedConnection);
}

void DialogRobot::Note(QDialog& dialog)
{
    if (const auto* const box = qobject_cast<QMessageBox*>(&dialog)) {
        boxes_ << SeenBox{ box->windowTitle(), box->text(), box->icon(), box->standardButtons() };
    } else if (const auto* const files = qobject_cast<QFileDialog*>(&dialog)) {
        proposedNames_ << NameFieldText(*files);
        proposedFolders_ << files->directory().absolutePath();
    }
}
