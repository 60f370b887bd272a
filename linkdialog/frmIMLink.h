#pragma once

#include "linkdialog/AreaEditor.h"
#include "linkdialog/AreaLinking.h"

#include <QDialog>
#include <memory>

namespace Ui {
class frmIMLink;
}
class QLineEdit;

/**
 * Gives one area its link, target and the text of the mode in force: a figure just drawn (OK) or a row of the
 * area list (Replace). Modal; closing it in any way but by OK or Replace takes a figure just drawn back.
 */
class frmIMLink : public QDialog
{
    Q_OBJECT

public:
    frmIMLink(ImgMap& imgMap, AreaEditor& editor, QWidget* owner);
    ~frmIMLink() override;

    /**
     * Prepares the dialog: caption and fields of the mode, the saved links to choose from. It is for a new
     * area, or for rewriting `replaced`. Tells when the saved links cannot be read; the dialog may be closed
     * meanwhile.
     */
    void Form_Load(const AreaRow* replaced = nullptr);

    /** Whether the dialog has been closed. */
    [[nodiscard]] bool IsUnloaded() const { return isUnloaded_; }

    /** Prepares the loaded dialog for rewriting `area`, the selected row of the list. */
    void PrepareReplacing(const AreaRow& area);

    void SSCmdOK_Click();
    void SSCmdReplace_Click();
    void SSCmdClose_Click();
    void Command1_Click();
    void Command2_Click();

    /** The window's close box and Esc do what Close does. */
    void reject() override;

private:
    void ShowModeFields();
    void SetHeight(int pixels);
    /** Returns whether all of them could be read. */
    [[nodiscard]] bool LoadLinks();
    [[nodiscard]] QLineEdit* FieldEdit(LinkField field) const;
    [[nodiscard]] LinkEntry Entry() const;
    [[nodiscard]] bool IsComplete(const LinkEntry& entry, QStringView linkCaption);
    void ChooseImage(QLineEdit* field);
    void Unload(int result);

    ImgMap& imgMap_;
    AreaEditor& editor_;
    std::unique_ptr<Ui::frmIMLink> ui_;
    qreal growth_ = 1; ///< against the sizes of the design
    bool isReplacing_ = false;
    bool isUnloaded_ = false;
};
