#include "imagemap/InsertCommand.h"

#include "imagemap/AreaTab.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/MapFields.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/PicturePane.h"
#include "imagemap/TodayInsert.h"
#include "imagemap/UpdateCommand.h"
#include "imagemap/model/MapDocument.h"
#include "shared/ImgMap.h"
#include "shared/PageDocument.h"
#include "widgets/WindowHelpers.h"

#include <QTabWidget>
#include <QTreeView>

void InsertCommand::Insert()
{
    MapSource source = parts_.fields.Source();
    if (source.MapName.isEmpty()) {
        ShowMessage(
            &parts_.window, QMessageBox::Information, QStringLiteral("Please, enter the Image Map Name !"));
        parts_.fields.GoToName();
        return;
    }
    const MapScript& script = parts_.map.Script();
    source.PictureReference = source.FileNamesOnly ? parts_.panels.PictureName() : parts_.imgMap.ImageUrl;
    source.ModeDefault = script.ModeDefault();
    source.Areas = parts_.map.Areas();
    if (parts_.fields.Form() == MarkupForm::Html4) {
        std::unique_ptr<AnchoredRange> range = parts_.page.Anchor(parts_.page.Selection());
        const int line = parts_.page.InsertAtCaret(GenerateMapFor(script.Mode(), source));
        parts_.pictures.KeepPasted();
        parts_.update.TakeInserted(std::move(range));
        parts_.panels.ShowHint(Html4Hint(line, script.Mode()));
    } else {
        InsertTodayMap(source);
    }
}

void InsertCommand::InsertTodayMap(const MapSource& source)
{
    const JSMode mode = parts_.map.Script().Mode();
    MarkupForm form = parts_.fields.Form();
    if (form == MarkupForm::TodayMapElement && !HasMapElement(mode)) {
        if (!AskYesNo(&parts_.window, mapElementQuestion.toString())) {
            return;
        }
        form = MarkupForm::Today;
    }
    if (LacksFolder(parts_.page, source) && !AskYesNo(&parts_.window, unsavedPageQuestion.toString())) {
        return;
    }
    const PictureSurface& surface = parts_.pane.Surface();
    const MapPicture picture{ parts_.map.Picture(), { surface.PictureWidth(), surface.PictureHeight() } };
    const TodayInsert insert = PrepareTodayInsert(parts_.page, form, mode, source, picture);
    if (insert.refusal) {
        ShowMessage(&parts_.window, QMessageBox::Information, RefusalText(*insert.refusal));
        return;
    }
    std::unique_ptr<AnchoredRange> range = parts_.page.Anchor(insert.place);
    parts_.page.Replace(insert.insertion.changes);
    parts_.pictures.KeepPasted();
    parts_.update.TakeInserted(std::move(range));
    const bool isTextMissing = insert.notes.lacksAltText || !insert.notes.areasWithoutText.isEmpty();
    parts_.panels.ShowHint(
        TodayHint(insert),
        isTextMissing ? std::function<void()>([this, notes = insert.notes] { GoToMissingText(notes); })
                      : std::function<void()>());
}

/** To the field of the picture's text, or else to that of the first area without one. */
void InsertCommand::GoToMissingText(const TodayNotes& notes)
{
    if (notes.lacksAltText) {
        parts_.fields.GoToAltText();
        return;
    }
    parts_.list.setCurrentIndex(parts_.list.model()->index(notes.areasWithoutText.constFirst() - 1, 0));
    parts_.tabs.setCurrentWidget(&parts_.areaTab);
    parts_.areaTab.GoToText();
}
