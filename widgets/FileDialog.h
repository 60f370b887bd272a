#pragma once

#include "shared/DialogFilter.h"
#include "shared/SystemWriting.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QEvent>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <optional>

/**
 * Qt's file dialog, which takes the name of one file as it stands. Qt's own reading of the name field makes
 * several files of a name with quotes, and refuses one that is too long without a word.
 */
class FileDialog : public QFileDialog
{
public:
    /** A dialog named `name` that offers the choices of `filter`, each shown as its caption alone. */
    FileDialog(QWidget* owner, const QString& name, FileMode mode, QStringView filter)
        : QFileDialog(owner)
    {
        setObjectName(name);
        setFileMode(mode);
        setOption(HideNameFilterDetails);
        setNameFilters(DialogNameFilters(filter));
        // A system's own dialog has no such parts.
        if (QLineEdit* const field = NameField()) {
            connect(field, &QLineEdit::textChanged, this, &FileDialog::OfferButton);
            findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Open)->installEventFilter(this);
        }
    }

    /** The file that the user chose, in the system's own form, or nothing when the dialog was cancelled. */
    [[nodiscard]] std::optional<QString> Choose()
    {
        chosen_.clear();
        if (exec() != Accepted) {
            return std::nullopt;
        }
        const QStringList files = chosen_.isEmpty() ? selectedFiles() : QStringList(chosen_);
        return files.isEmpty() ? std::nullopt : std::optional(QDir::toNativeSeparators(files.constFirst()));
    }

protected:
    void accept() override
    {
        if (IsTooLong()) {
            QMessageBox::warning(this, windowTitle(), QStringLiteral("The file name is too long !"));
        } else if (IsQuoted()) {
            AcceptFile(PathOf(TypedName()));
        } else {
            QFileDialog::accept();
        }
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::EnabledChange) {
            OfferButton();
        }
        return QFileDialog::eventFilter(watched, event);
    }

private:
    [[nodiscard]] QLineEdit* NameField() const
    {
        return findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    }

    /** What stands in the name field; nothing where the dialog is the system's, or quotes are in no name. */
    [[nodiscard]] QString TypedName() const
    {
        const bool isOwn = NameField() != nullptr && !testAttribute(Qt::WA_DontShowOnScreen);
        return isOwn && QDir::separator() == u'/' ? NameField()->text() : QString();
    }

    [[nodiscard]] bool IsQuoted() const { return TypedName().contains(u'"'); }

    /** Whether the name is that of no file, and longer than a name may be. */
    [[nodiscard]] bool IsTooLong() const
    {
        const QFileInfo file(PathOf(TypedName()));
        const std::optional<qsizetype> limit = LongestFileName(file.path());
        return limit && !file.exists() && QFile::encodeName(file.fileName()).size() > *limit;
    }

    /** Qt forbids the button for names that it does not like, and tells nothing. */
    void OfferButton()
    {
        if (IsQuoted() || IsTooLong()) {
            const auto which = acceptMode() == AcceptSave ? QDialogButtonBox::Save : QDialogButtonBox::Open;
            findChild<QDialogButtonBox*>()->button(which)->setEnabled(true);
        }
    }

    /** The file that a name means, with the ending that is added to one without any. */
    [[nodiscard]] QString PathOf(const QString& name) const
    {
        const QFileInfo file(directory(), name);
        const bool isWhole = defaultSuffix().isEmpty() || file.isDir() || file.fileName().contains(u'.');
        return isWhole ? file.absoluteFilePath() : file.absoluteFilePath() + u'.' + defaultSuffix();
    }

    void AcceptFile(const QString& path)
    {
        const QFileInfo file(path);
        if (file.isDir()) {
            setDirectory(path);
            NameField()->clear();
        } else if (fileMode() == ExistingFile && !file.exists()) {
            QMessageBox::warning(
                this, windowTitle(), QStringLiteral("There is no such file !") + u'\n' + file.fileName());
        } else if (acceptMode() != AcceptSave || !file.exists() || MayReplace(file.fileName())) {
            chosen_ = path;
            // QFileDialog would read the name once more, and wrongly.
            QDialog::accept(); // NOLINT(bugprone-parent-virtual-call)
        }
    }

    [[nodiscard]] bool MayReplace(const QString& name)
    {
        const QString question = name + QStringLiteral(" already exists. Do you want to replace it?");
        return QMessageBox::warning(
                   this, windowTitle(), question, QMessageBox::Yes | QMessageBox::No, QMessageBox::No) ==
               QMessageBox::Yes;
    }

    QString chosen_; ///< what Qt's own reading of the name field would not give
};

/** Asks for a picture to open; nothing when the dialog was cancelled. */
[[nodiscard]] inline std::optional<QString> AskForPicture(QWidget* owner)
{
    FileDialog dialog(owner, QStringLiteral("CMDialog1"), QFileDialog::ExistingFile, pictureFilter);
    return dialog.Choose();
}
