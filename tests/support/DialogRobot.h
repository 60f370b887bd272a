#pragma once

#include <QElapsedTimer>
#include <QList>
#include <QMessageBox>
#include <QObject>
#include <QPointer>
#include <QStringList>
#include <QTimer>
#include <functional>

class QDialog;
class QFileDialog;

/** The kinds of files that `dialog`, a file dialog, offers to choose from, as shown. */
[[nodiscard]] QStringList OfferedFiles(const QDialog& dialog);

/**
 * Answers modal dialogs as a user would, in the order given, and notes what it saw. A dialog that nobody
 * expects is closed and told by Problems(), and so is an answer that no dialog has asked for.
 */
class DialogRobot : public QObject
{
    Q_OBJECT

public:
    /** What a message box showed. */
    struct SeenBox
    {
        QString title;
        QString text;
        QMessageBox::Icon icon;
        QMessageBox::StandardButtons buttons;
    };

    DialogRobot();

    /** The next dialog is a message box; its `button` is clicked. */
    void AnswerBox(QMessageBox::StandardButton button);

    /** The next dialog is a file dialog; `path` is typed into it and accepted. */
    void ChooseFile(const QString& path);

    /** The next dialog is cancelled with Esc. */
    void Cancel();

    /** The next dialog is handed to `act`, which must close it. */
    void Act(std::function<void(QDialog&)> act);

    /** Takes back the answer given last, which no dialog has asked for. */
    void TakeBack() { answers_.removeLast(); }

    /** From now on dialogs are answered at once, and paths are not typed letter by letter. */
    void Hurry();

    /** Forgets what was seen, so that a long play does not fill the memory. */
    void Forget();

    /** Runs the event loop until every answer is used up, or too long. */
    void WaitUntilDone();

    /** Whether there are answers that no dialog has come for yet. */
    [[nodiscard]] bool HasAnswersLeft() const { return !answers_.isEmpty(); }

    [[nodiscard]] const QList<SeenBox>& Boxes() const { return boxes_; }

    /** The names that file dialogs proposed, as file names. */
    [[nodiscard]] const QStringList& ProposedNames() const { return proposedNames_; }

    /** The folders that file dialogs opened in. */
    [[nodiscard]] const QStringList& ProposedFolders() const { return proposedFolders_; }

    /** What went otherwise than expected; empty when all is well. */
    [[nodiscard]] QString Problems() const;

private:
    [[nodiscard]] int Patience() const;
    void Look();
    void Note(QDialog& dialog);

    QTimer timer_;
    QList<std::function<void(QDialog&)>> answers_;
    QList<QPointer<QDialog>> seen_; ///< a dialog is answered once, also when a box came up over it
    QList<SeenBox> boxes_;
    QStringList proposedNames_;
    QStringList proposedFolders_;
    QStringList problems_;
    QPointer<QDialog> arriving_;
    bool isInHurry_ = false;
    QElapsedTimer age_; ///< since a dialog came up or was answered last
};
