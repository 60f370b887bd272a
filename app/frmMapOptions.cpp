#include "app/frmMapOptions.h"

#include "app/EditorMargins.h"
#include "app/SourceEditor.h"
#include "app/rules/IndentRules.h"
#include "ui_frmMapOptions.h"
#include "widgets/OneLineField.h"
#include "widgets/WindowHelpers.h"

frmMapOptions::frmMapOptions(const ImgMap& imgMap, SourceEditor& editor, QWidget* owner)
    : QDialog(owner)
    , imgMap_(imgMap)
    , editor_(editor)
    , ui_(std::make_unique<Ui::frmMapOptions>())
{
    ui_->setupUi(this);
    HoldOneLine(this);
    setAttribute(Qt::WA_DeleteOnClose);
    connect(ui_->txtIndentValue, &QLineEdit::textChanged, this, &frmMapOptions::txtIndentValue_Change);
    connect(ui_->cmdOK, &QPushButton::clicked, this, &frmMapOptions::cmdOK_Click);
    connect(ui_->cmdClose, &QPushButton::clicked, this, &frmMapOptions::cmdClose_Click);
}

frmMapOptions::~frmMapOptions() = default;

void frmMapOptions::Form_Load()
{
    GoToProgramFolder(imgMap_);
    CentreOnScreen(this);
    const bool isWrapped = editor_.lineWrapMode() == QPlainTextEdit::WidgetWidth;
    (isWrapped ? ui_->optWrapToWin : ui_->optNoWordWrap)->setChecked(true);
    ui_->txtIndentValue->setFocus();
    ui_->txtIndentValue->selectAll();
}

bool frmMapOptions::event(QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        ShowDefaultPointer();
    }
    return QDialog::event(event);
}

void frmMapOptions::txtIndentValue_Change(const QString& text)
{
    const IndentTexts texts = IndentTextsFor(text);
    ui_->lblInchIndValue->setText(texts.Inches);
    if (texts.Millimetres != text) {
        ui_->txtIndentValue->setText(texts.Millimetres);
    }
}

void frmMapOptions::cmdOK_Click()
{
    editor_.Margins().SetIndent(IndentTwips(ui_->txtIndentValue->text()));
    if (ui_->optWrapToWin->isChecked()) {
        editor_.setLineWrapMode(QPlainTextEdit::WidgetWidth);
    } else if (ui_->optNoWordWrap->isChecked()) {
        editor_.setLineWrapMode(QPlainTextEdit::NoWrap);
    }
}

void frmMapOptions::cmdClose_Click()
{
    close();
}
