#include "app/PageMapCommands.h"

#include "app/PageMapsModel.h"
#include "app/TodayChange.h"
#include "app/frmMapChange.h"
#include "app/frmPageMaps.h"
#include "imagemap/MapOpening.h"
#include "imagemap/frmImageMap.h"
#include "shared/PageDocument.h"
#include "widgets/WindowHelpers.h"

#include <memory>
#include <utility>

namespace {

constexpr QStringView noMapsText = u"The page has neither an image map nor a picture !";
constexpr QStringView noMapHereText = u"Put the caret into an image map, or into the tag of its picture !";

} // namespace

PageMapCommands::PageMapCommands(
    QWidget* window, const ImgMap& imgMap, PageDocument& page, std::function<frmImageMap&()> openEditor)
    : QObject(window)
    , window_(window)
    , imgMap_(imgMap)
    , page_(page)
    , openEditor_(std::move(openEditor))
{
}

/** What the page has, as a list that has no owner yet. */
PageMapsModel* PageMapCommands::ReadPage()
{
    ShowHourglass();
    QString text = page_.Text();
    PageMaps maps = ReadPageMaps(text);
    std::vector<MapPlace> places = MapPlacesOf(text, maps);
    auto* const model = new PageMapsModel(std::move(text), std::move(maps), std::move(places));
    ShowDefaultPointer();
    return model;
}

/** The map at the caret opens, else the only one, else one that is chosen. */
void PageMapCommands::mnuPEditMap_Click()
{
    std::unique_ptr<PageMapsModel> model(ReadPage());
    if (const std::optional<int> row = model->RowAt(page_.Selection())) {
        Open(*model, *row);
    } else if (model->rowCount() == 0) {
        ShowMessage(window_, QMessageBox::Information, noMapsText.toString());
    } else {
        ShowList(model.release());
    }
}

/** The map at the caret, else the only one, is written anew once the user has seen what that changes. */
void PageMapCommands::mnuPToToday_Click()
{
    const std::unique_ptr<PageMapsModel> model(ReadPage());
    const std::optional<int> row = model->RowAt(page_.Selection());
    if (!row || model->MapOf(*row) == nullptr) {
        ShowMessage(window_, QMessageBox::Information, noMapHereText.toString());
        return;
    }
    const TodayChange change = PrepareTodayChange(page_, model->Page(), model->Maps(), *model->MapOf(*row));
    if (!change.problem.isEmpty()) {
        ShowMessage(window_, QMessageBox::Information, change.problem);
        return;
    }
    frmMapChange preview(imgMap_, change, window_);
    preview.Form_Load();
    if (preview.exec() == QDialog::Accepted) {
        page_.Replace(change.changes);
    }
}

void PageMapCommands::ShowList(PageMapsModel* model)
{
    auto* const list = new frmPageMaps(imgMap_, model, window_);
    connect(list, &frmPageMaps::Chosen, this, [this, list](int row) { Open(list->Model(), row); });
    list->Form_Load();
    list->show();
}

void PageMapCommands::Open(const PageMapsModel& model, int row)
{
    MapOpening& opening = openEditor_().Opening();
    if (const MapPlace* const place = model.MapOf(row)) {
        opening.EditMap(model.Page(), model.Maps(), *place);
    } else if (const std::optional<HtmlSpan> picture = model.PictureOf(row)) {
        opening.MapPicture(model.Page(), model.Maps(), *picture);
    }
}
