#pragma once

#include "shared/ImgMap.h"

#include <QDialog>
#include <memory>

namespace Ui {
class frmMapOptions;
}
class SourceEditor;

/** Sets how far the source is moved in and whether its lines wrap; nothing of it is kept. Not modal. */
class frmMapOptions : public QDialog
{
    Q_OBJECT

public:
    /** The dialog stays above `owner`, in which `editor` lies. */
    frmMapOptions(const ImgMap& imgMap, SourceEditor& editor, QWidget* owner);
    ~frmMapOptions() override;

    /** Centres the dialog and gets its field ready to type in. */
    void Form_Load();

protected:
    bool event(QEvent* event) override;

private:
    void txtIndentValue_Change(const QString& text);
    void cmdOK_Click();
    void cmdClose_Click();

    const ImgMap& imgMap_;
    SourceEditor& editor_;
    std::unique_ptr<Ui::frmMapOptions> ui_;
};
