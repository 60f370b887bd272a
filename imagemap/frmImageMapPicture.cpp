// The picture of the image map editor: opened by a command, with a map of the page, or brought back by
// undoing.

#include "imagemap/AreaCommands.h"
#include "imagemap/DrawCommands.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/MapDiscarding.h"
#include "imagemap/MapFields.h"
#include "imagemap/PictureCommands.h"
#include "imagemap/frmImageMap.h"
#include "imagemap/picture/PictureFile.h"
#include "shared/Paths.h"
#include "ui_frmImageMap.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

void frmImageMap::OpenImage()
{
    if (!discarding_->Discard()) {
        return;
    }
    map_.Drawing().GiveUp();
    const std::optional<QString> path = AskForPicture(this);
    if (!path) {
        return;
    }
    GoToProgramFolder(imgMap_);
    {
        const MapDocument::Step step(map_, QStringLiteral("Opening of a Picture"));
        map_.ForgetAreas();
        map_.SetPicture(*path);
    }
    ShowHourglass();
    // The old picture makes room before the new one is read.
    ui_->picturePane->SetPicture({});
    ShowPicture(*path, LoadPicture(*path));
    ShowDefaultPointer();
}

void frmImageMap::OpenNamedImage(const QString& path)
{
    if (drawing_->BeginCommand()) {
        pictures_->Open(path);
    }
}

void frmImageMap::CreatePictureCommands()
{
    pictures_ = new PictureCommands({ *this, areaCommands_->View().Menu(), map_, document_, imgMap_,
                                      [this] { return drawing_->BeginCommand(); },
                                      [this] { return discarding_->Discard(); } });
    connect(areaCommands_, &AreaCommands::OtherPasted, this, [this] {
        if (!pictures_->Paste()) {
            panels_->ShowHint(u"There are no areas on the clipboard");
        }
    });
    connect(pictures_, &PictureCommands::Opened, this, &frmImageMap::ShowPicture);
    connect(pictures_, &PictureCommands::Renewed, this, &frmImageMap::Pictures_Renewed);
    connect(pictures_, &PictureCommands::Moved, this, &frmImageMap::ShowPictureFile);
    connect(pictures_, &PictureCommands::Opened, this, &frmImageMap::PictureFileKnown);
    connect(pictures_, &PictureCommands::Moved, this, &frmImageMap::PictureFileKnown);
    connect(pictures_, &PictureCommands::Changed, this, &frmImageMap::ShowHint);
    connect(
        pictures_, &PictureCommands::OfferMade, this,
        [this](const QString& hint, const std::function<void()>& act) { panels_->ShowHint(hint, act); });
}

void frmImageMap::ShowPicture(const QString& path, const QImage& picture)
{
    PictureSurface& surface = ui_->picturePane->Surface();
    ui_->picturePane->SetPicture(picture);
    fields_->ShowPictureSize({ surface.PictureWidth(), surface.PictureHeight() });
    ShowPictureFile(path);
    ui_->Check1->setEnabled(true);
    commands_.Enable(frmImageMap::Need::Picture, true);
    areaCommands_->BeginPicture({ surface.PictureWidth(), surface.PictureHeight() });
    drawCommands_->EnableCommands();
    if (drawing_->Protocol().Tool() == DrawingTool::Cursor) {
        drawing_->Protocol().SelectTool(DrawingTool::Cursor);
    }
    ShowHint();
}

void frmImageMap::ShowPictureFile(const QString& path)
{
    panels_->ShowPictureName(FileNameOnly(path));
    imgMap_.ImageUrl = path;
    PathToFileUrl(imgMap_.ImageUrl);
    pictures_->Watch(path);
}

void frmImageMap::Pictures_Renewed(const QImage& picture)
{
    const PictureSurface& surface = ui_->picturePane->Surface();
    const QSize before(surface.PictureWidth(), surface.PictureHeight());
    ui_->picturePane->RenewPicture(picture);
    // What was typed for a picture of this size still fits.
    if (picture.size() != before) {
        fields_->ShowPictureSize(picture.size());
    }
    areaCommands_->RenewPicture(picture.size());
    drawing_->Figures().ShowFigures();
    ShowHint();
}

void frmImageMap::Map_PictureChanged()
{
    const QString path = map_.Picture();
    ShowHourglass();
    ui_->picturePane->SetPicture({});
    ShowPicture(path, ReadAnyPicture(path).Picture);
    drawing_->Figures().ShowFigures();
    ShowDefaultPointer();
    if (!path.isEmpty() && ui_->picturePane->Surface().PictureWidth() == 0) {
        ShowMessage(
            this, QMessageBox::Warning,
            QStringLiteral("The picture of the map is gone, or is no picture any more !") + u'\n' + path);
    }
}
