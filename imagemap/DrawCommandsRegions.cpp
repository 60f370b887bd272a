// The commands that make areas of what the picture itself shows.

#include "imagemap/AreaCommands.h"
#include "imagemap/DrawCommands.h"
#include "imagemap/PicturePane.h"
#include "imagemap/frmRegions.h"
#include "imagemap/picture/AnyPicture.h"
#include "widgets/WindowHelpers.h"

#include <QMainWindow>

namespace {

constexpr QStringView otherSizeText =
    u"The file of the picture has another size by now: load the picture anew first !";
constexpr QStringView noTransparencyText = u"No part of the picture is transparent !";

/** The picture in the file `path` with what is transparent in it, as large as it is shown. */
PictureReading SeeThroughPicture(const QString& path, QSize shown)
{
    PictureReading reading = ReadSeeThroughPicture(path);
    if (reading.Picture.isNull()) {
        return reading;
    }
    if (reading.Picture.size() != shown) {
        return { {}, otherSizeText.toString() };
    }
    return HasTransparency(reading.Picture) ? reading : PictureReading{ {}, noTransparencyText.toString() };
}

} // namespace

/** The box of the selected areas, as far as it is in the picture; null where there is none. */
QRect DrawCommands::SelectedPixels() const
{
    // Coordinates are those of the pixels' edges, so the last ones have their pixel before them.
    const QRect bounds = BoundsOf(parts_.areas.Editing().SelectedAreas());
    const QRect pixels = bounds.adjusted(0, 0, -1, -1) & QRect(QPoint(), PictureSize());
    return pixels.isEmpty() ? QRect() : pixels;
}

void DrawCommands::LookForRegions(const QString& title, const RegionGround& ground)
{
    auto* const dialog = new frmRegions(parts_.imgMap, title, ground, regions_, &parts_.window);
    connect(dialog, &frmRegions::accepted, this, [this, dialog] {
        regions_ = dialog->Wish();
        // Like a grid: what was looked for in areas lies in front of them, or nobody could click on it; all
        // else behind what is there.
        const AreaNumbers& numbers = parts_.areas.Editing().Selection().Numbers();
        const bool isInFront = !regions_.within.isNull() && !numbers.isEmpty();
        Add(dialog->Ticked(), isInFront ? numbers.constFirst() : parts_.map.Areas().size(), u"Regions");
    });
    OfferRegions(*dialog);
}

void DrawCommands::OutlineAll()
{
    if (parts_.begin()) {
        LookForRegions(
            QStringLiteral("Regions of the Picture"),
            { parts_.pane.Surface().Picture(), likeColours, SelectedPixels() });
    }
}

void DrawCommands::OutlineOpaque()
{
    if (!parts_.begin()) {
        return;
    }
    // What is shown lies on white, so the file has to tell what is transparent.
    const QString path = parts_.map.Picture();
    ShowHourglass();
    const PictureReading reading = SeeThroughPicture(path, PictureSize());
    ShowDefaultPointer();
    if (reading.Picture.isNull()) {
        ShowMessage(&parts_.window, QMessageBox::Warning, reading.Problem + u'\n' + path);
    } else {
        LookForRegions(QStringLiteral("Areas from Transparency"), { reading.Picture, opaqueIslands });
    }
}
