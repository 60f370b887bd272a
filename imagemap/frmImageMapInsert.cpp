// Insert: the map is written in the form that is chosen, and goes into the page; and the fields that it
// takes.

#include "codegen/MapMarkup.h"
#include "imagemap/AreaTab.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/TodayInsert.h"
#include "imagemap/frmImageMap.h"
#include "ui_frmImageMap.h"
#include "widgets/WindowHelpers.h"

namespace {

QString TextOrCaption(const QLineEdit* field, const QLabel* fallback)
{
    return field->text().isEmpty() ? fallback->text() : field->text();
}

} // namespace

void frmImageMap::GenerateMap()
{
    if (ui_->txtName->text().isEmpty()) {
        ShowMessage(this, QMessageBox::Information, QStringLiteral("Please, enter the Image Map Name !"));
        ui_->SSTab1->setCurrentWidget(ui_->tabCreating);
        ui_->txtName->setFocus();
        return;
    }
    const bool fileNameOnly = ui_->Check1->isChecked();
    const MapSource source = { .MapName = ui_->txtName->text(),
                               .Width = TextOrCaption(ui_->txtImgWidth, ui_->lblWidthPic),
                               .Height = TextOrCaption(ui_->txtImgHeight, ui_->lblHeightPic),
                               .AltText = ui_->txtAltDescript->text(),
                               .Align = ui_->cmbAlign->currentText(),
                               .Border = ui_->txtBorder->text(),
                               .HorizontalSpace = ui_->txtHorSp->text(),
                               .VerticalSpace = ui_->txtVertSp->text(),
                               .PictureReference = fileNameOnly ? panels_->PictureName() : imgMap_.ImageUrl,
                               .FileNamesOnly = fileNameOnly,
                               .ModeDefault = map_.Script().ModeDefault(),
                               .Areas = map_.Areas() };
    if (ui_->cmbMarkup->currentIndex() == int(MarkupForm::Html4)) {
        const int line = document_.InsertAtCaret(GenerateMapFor(map_.Script().Mode(), source));
        pictures_->KeepPasted();
        panels_->ShowHint(Html4Hint(line, map_.Script().Mode()));
    } else {
        InsertTodayMap(source);
    }
}

QMap<QString, QString> frmImageMap::Fields() const
{
    QMap<QString, QString> texts;
    const QList<QLineEdit*> fields = { ui_->txtName,      ui_->txtAltDescript, ui_->txtImgWidth,
                                       ui_->txtImgHeight, ui_->txtBorder,      ui_->txtHorSp,
                                       ui_->txtVertSp };
    for (const QLineEdit* const field : fields) {
        texts.insert(field->objectName(), field->text());
    }
    texts.insert(ui_->cmbAlign->objectName(), ui_->cmbAlign->currentText());
    texts.insert(ui_->Check1->objectName(), QString::number(int(ui_->Check1->isChecked())));
    return texts;
}

void frmImageMap::SetFields(const QMap<QString, QString>& texts)
{
    for (const auto& [name, text] : texts.asKeyValueRange()) {
        if (auto* const field = ui_->SSTab1->findChild<QLineEdit*>(name)) {
            field->setText(text);
        }
    }
    ui_->cmbAlign->setCurrentText(texts.value(ui_->cmbAlign->objectName()));
    ui_->Check1->setChecked(texts.value(ui_->Check1->objectName()).toInt() != 0);
}

void frmImageMap::cmbMarkup_Activated(int form)
{
    imgMap_.Remembered.Keep(Setting::markupForm, form);
}

void frmImageMap::InsertTodayMap(const MapSource& source)
{
    MarkupForm form = MarkupForm(ui_->cmbMarkup->currentIndex());
    if (form == MarkupForm::TodayMapElement && !HasMapElement(map_.Script().Mode())) {
        if (!AskYesNo(this, mapElementQuestion.toString())) {
            return;
        }
        form = MarkupForm::Today;
    }
    if (LacksFolder(document_, source) && !AskYesNo(this, unsavedPageQuestion.toString())) {
        return;
    }
    const PictureSurface& surface = ui_->picturePane->Surface();
    const MapPicture picture{ map_.Picture(), { surface.PictureWidth(), surface.PictureHeight() } };
    const TodayInsert insert = PrepareTodayInsert(document_, form, map_.Script().Mode(), source, picture);
    if (insert.refusal) {
        ShowMessage(this, QMessageBox::Information, RefusalText(*insert.refusal));
        return;
    }
    document_.Replace(insert.insertion.changes);
    pictures_->KeepPasted();
    const bool isTextMissing = insert.notes.lacksAltText || !insert.notes.areasWithoutText.isEmpty();
    panels_->ShowHint(
        TodayHint(insert),
        isTextMissing ? std::function<void()>([this, notes = insert.notes] { GoToMissingText(notes); })
                      : std::function<void()>());
}

/** To the field of the picture's text, or else to that of the first area without one. */
void frmImageMap::GoToMissingText(const TodayNotes& notes)
{
    if (notes.lacksAltText) {
        ui_->SSTab1->setCurrentWidget(ui_->tabOptions);
        ui_->txtAltDescript->setFocus();
        return;
    }
    ui_->ListView1->setCurrentIndex(
        ui_->ListView1->model()->index(notes.areasWithoutText.constFirst() - 1, 0));
    ui_->SSTab1->setCurrentWidget(areaTab_);
    areaTab_->GoToText();
}
