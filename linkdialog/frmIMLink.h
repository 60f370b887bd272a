#pragma once

#include "imagemap/model/LinkRules.h"
#include "shared/ImgMap.h"

#include <QDialog>
#include <memory>
#include <optional>

namespace Ui {
class frmIMLink;
}
class MapDocument;
class QLineEdit;

/**
 * Gives one area its link, target and the text of the mode in force: a figure just drawn (OK) or an area of
 * the map (Replace). Modal; closing it in any way but by OK or Replace takes a figure just drawn back.
 */
class frmIMLink : public QDialog
{
    Q_OBJECT

public:
    frmIMLink(ImgMap& imgMap, MapDocument& map, QWidget* owner);
    ~frmIMLink() override;

    /**
     * Prepares the dialog: caption and fields of the mode, the saved links to choose from. It is for a new
     * area, or for rewriting the area `replaced` of the map. Tells when the saved links cannot be read; the
     * dialog may be closed meanwhile.
     */
    void Form_Load(std::optional<qsizetype> replaced = std::nullopt);

    /** Whether the dialog has been closed. */
    [[nodiscard]] bool IsUnloaded() const { return isUnloaded_; }

    void SSCmdOK_Click();
    void SSCmdReplace_Click();
    void SSCmdClose_Click();
    void Command1_Click();
    void Command2_Click();

    /** The window's close box and Esc do what Close does. */
    void reject() override;

private:
    void PrepareReplacing();
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
    MapDocument& map_;
    std::unique_ptr<Ui::frmIMLink> ui_;
    qreal growth_ = 1;                  ///< against the sizes of the design
    std::optional<qsizetype> replaced_; ///< the area that is being rewritten
    bool isUnloaded_ = false;
};
