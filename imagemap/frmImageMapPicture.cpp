// The picture of the image map editor: opened by a command, or brought back by undoing.

#include "imagemap/AreaCommands.h"
#include "imagemap/EditorPanels.h"
#include "imagemap/frmImageMap.h"
#include "imagemap/picture/PictureFile.h"
#include "shared/Paths.h"
#include "ui_frmImageMap.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

void frmImageMap::OpenImage()
{
    if (!DiscardMap()) {
        return;
    }
    map_.GiveUpDrawing();
    if (const std::optional<QString> path = AskForPicture(this)) {
        TakePicture(*path);
    }
}

void frmImageMap::OpenNamedImage(const QString& path)
{
    if (BeginCommand() && DiscardMap()) {
        map_.GiveUpDrawing();
        TakePicture(path);
    }
}

void frmImageMap::TakePicture(const QString& path)
{
    GoToProgramFolder(imgMap_);
    {
        const MapDocument::Step step(map_, QStringLiteral("Opening of a Picture"));
        map_.ForgetAreas();
        map_.SetPicture(path);
    }
    ShowHourglass();
    ShowPicture(path);
    ShowDefaultPointer();
}

void frmImageMap::ShowPicture(const QString& path)
{
    PicturePane& pane = *ui_->picturePane;
    // The old picture makes room before the new one is read.
    pane.SetPicture({});
    pane.SetPicture(LoadPicture(path));
    ui_->lblWidthPic->setText(QString::number(pane.Surface().PictureWidth()));
    ui_->lblHeightPic->setText(QString::number(pane.Surface().PictureHeight()));
    ui_->txtImgWidth->setText(ui_->lblWidthPic->text());
    ui_->txtImgHeight->setText(ui_->lblHeightPic->text());
    panels_->ShowPictureName(FileNameOnly(path));
    imgMap_.ImageUrl = path;
    PathToFileUrl(imgMap_.ImageUrl);
    ui_->Check1->setEnabled(true);
    commands_.Enable(frmImageMap::Need::Picture, true);
    areaCommands_->BeginPicture({ pane.Surface().PictureWidth(), pane.Surface().PictureHeight() });
    if (protocol_->Tool() == DrawingTool::Cursor) {
        protocol_->SelectTool(DrawingTool::Cursor);
    }
    ShowHint();
}

void frmImageMap::Map_PictureChanged()
{
    const QString path = map_.Picture();
    ShowHourglass();
    ShowPicture(path);
    display_->ShowFigures();
    ShowDefaultPointer();
    if (!path.isEmpty() && ui_->picturePane->Surface().PictureWidth() == 0) {
        ShowMessage(
            this, QMessageBox::Warning,
            QStringLiteral("The picture of the map is gone, or is no picture any more !") + u'\n' + path);
    }
}
