// Insert, where the map is written for today's browsers.

#include "imagemap/EditorPanels.h"
#include "imagemap/TodayInsert.h"
#include "imagemap/frmImageMap.h"
#include "ui_frmImageMap.h"
#include "widgets/WindowHelpers.h"

void frmImageMap::cmbMarkup_Activated(int form)
{
    imgMap_.Remembered.Keep(Setting::markupForm, form);
}

void frmImageMap::InsertTodayMap(const MapSource& source)
{
    MarkupForm form = MarkupForm(ui_->cmbMarkup->currentIndex());
    if (form == MarkupForm::TodayMapElement && !HasMapElement(map_.Mode())) {
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
    const TodayInsert insert = PrepareTodayInsert(document_, form, map_.Mode(), source, picture);
    if (insert.refusal) {
        ShowMessage(this, QMessageBox::Information, RefusalText(*insert.refusal));
        return;
    }
    document_.Replace(insert.insertion.changes);
    const bool isTextMissing = insert.notes.lacksAltText || !insert.notes.areasWithoutText.isEmpty();
    panels_->ShowHint(
        TodayHint(insert),
        isTextMissing ? std::function<void()>([this, notes = insert.notes] { GoToMissingText(notes); })
                      : std::function<void()>());
}

/** To the field of the picture's text, or else to that of the first area without one. */
void frmImageMap::GoToMissingText(const TodayNotes& notes)
{
    auto* const field = findChild<QWidget*>(QStringLiteral("txtAreaText"));
    if (notes.lacksAltText || field == nullptr) {
        ui_->SSTab1->setCurrentWidget(ui_->tabOptions);
        ui_->txtAltDescript->setFocus();
        return;
    }
    ui_->ListView1->setCurrentIndex(
        ui_->ListView1->model()->index(notes.areasWithoutText.constFirst() - 1, 0));
    for (QWidget* page = field; page != nullptr; page = page->parentWidget()) {
        if (ui_->SSTab1->indexOf(page) >= 0) {
            ui_->SSTab1->setCurrentWidget(page);
        }
    }
    field->setFocus();
}
