#include "imagemap/MapOpening.h"

#include "imagemap/EditorPanels.h"
#include "imagemap/MapFields.h"
#include "imagemap/NewMapProblem.h"
#include "imagemap/PastedPictures.h"
#include "imagemap/UpdateCommand.h"
#include "imagemap/model/MapDocument.h"
#include "imagemap/origin/MapOrigin.h"
#include "imagemap/origin/PagePicture.h"
#include "imagemap/picture/AnyPicture.h"
#include "mapback/MapPlaces.h"
#include "mapback/NewMap.h"
#include "shared/FileWriting.h"
#include "shared/Paths.h"
#include "widgets/FileDialog.h"
#include "widgets/WindowHelpers.h"

#include <QBuffer>
#include <QMainWindow>
#include <utility>

namespace {

constexpr const char* groundFormat = "png";
constexpr QStringView plainGroundNote = u"The picture was not found: the areas are on a plain ground";
constexpr QStringView scaledNote =
    u"The page shows the picture in another size: coordinates are written in that size";

/** As much of a reference as a title has room for. */
QString ShortName(const QString& reference)
{
    constexpr qsizetype most = 60;
    return reference.size() > most ? QString(u"..." + reference.right(most)) : reference;
}

QByteArray BytesOf(const QImage& picture)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    return buffer.open(QIODevice::WriteOnly) && picture.save(&buffer, groundFormat) ? bytes : QByteArray();
}

} // namespace

void MapOpening::EditMap(const QString& page, const PageMaps& maps, const MapPlace& place)
{
    if (!parts_.begin()) {
        return;
    }
    std::optional<ReturnedMap> map = ReadMap(page, maps, place);
    if (!map) {
        ShowMessage(
            &parts_.window, QMessageBox::Information,
            QStringLiteral("The map was changed by hand, so that it cannot be read any more !"));
        return;
    }
    const MapOrigin there(parts_.page.Anchor({ place.whole.offset, place.whole.length }), {}, {});
    if (parts_.update.IsOpen(page, place.whole) || !parts_.discard()) {
        return;
    }
    // The map that went may have been written before.
    const QString now = parts_.page.Text();
    map = now == page ? map : there.ReadAgain(now);
    if (map) {
        Open(*map, now, maps.base);
    }
}

void MapOpening::MapPicture(const QString& page, const PageMaps& maps, const HtmlSpan& place)
{
    const std::unique_ptr<AnchoredRange> there = parts_.page.Anchor({ place.offset, place.length });
    if (!parts_.begin() || parts_.update.IsOpen(page, place) || !parts_.discard()) {
        return;
    }
    const QString now = parts_.page.Text();
    const TextSpan tag = now == page ? TextSpan{ place.offset, place.length } : there->Place();
    Open(ReadPicture(now, { tag.Start, tag.Length }), now, maps.base);
}

/** A file of the program's own for a picture that has none: undoing finds pictures by their files. */
QString MapOpening::KeptPath(const QByteArray& bytes)
{
    PastedPictures& kept = PastedPictures::Of(parts_.map, parts_.imgMap.ProgramFolder);
    QString path = kept.FreePath();
    if (path.isEmpty() || bytes.isEmpty() || WriteWholeFile(path, bytes)) {
        kept.Remove(path);
        return {};
    }
    return path;
}

MapOpening::Ground MapOpening::FindGround(const ReturnedMap& map, const QString& base)
{
    const FoundPicture found = FindPicture(map.source.PictureReference, base, parts_.page.FileName());
    const QString path = found.data.isEmpty() ? found.path : KeptPath(found.data);
    if (path.isEmpty()) {
        return AskForGround(map, {});
    }
    const PictureReading reading = ReadAnyPicture(path);
    return reading.Picture.isNull() ? AskForGround(map, reading.Problem)
                                    : Ground{ path, reading.Picture, {} };
}

MapOpening::Ground MapOpening::AskForGround(const ReturnedMap& map, const QString& problem)
{
    ShowDefaultPointer();
    FileDialog dialog(
        &parts_.window, QStringLiteral("CMDialog1"), QFileDialog::ExistingFile, otherPictureFilter);
    const QString name = ShortName(map.source.PictureReference);
    dialog.setWindowTitle(
        name.isEmpty() ? QStringLiteral("Which picture has the map?")
                       : QStringLiteral("Where is the picture %1?").arg(name));
    const std::optional<QString> path = dialog.Choose();
    GoToProgramFolder(parts_.imgMap);
    const PictureReading reading = path ? ReadAnyPicture(*path) : PictureReading{ {}, problem };
    if (!reading.Picture.isNull()) {
        return { *path, reading.Picture, {} };
    }
    Ground ground = PlainGround(map);
    if (path && !reading.Problem.isEmpty()) {
        ground.note = reading.Problem;
    }
    return ground;
}

MapOpening::Ground MapOpening::PlainGround(const ReturnedMap& map)
{
    const QSize size =
        map.coordinateSize.isEmpty()
            ? SizeOfGround(PixelsOf(map.source.Width), PixelsOf(map.source.Height), map.source.Areas)
            : SizeOfGround(map.coordinateSize.width(), map.coordinateSize.height(), {});
    QImage picture(size, QImage::Format_RGB32);
    picture.fill(Qt::white);
    return { KeptPath(BytesOf(picture)), picture, plainGroundNote.toString() };
}

void MapOpening::Open(ReturnedMap map, const QString& text, const QString& base)
{
    ShowHourglass();
    Ground ground = FindGround(map, base);
    if (FitToPicture(map, ground.picture.size())) {
        ground.note = scaledNote.toString();
    }
    Show(map, ground);
    ShowDefaultPointer();
    parts_.page.Select({ map.Held().offset, map.Held().length });
    const QString problem = ProblemOfPicture(text, map);
    parts_.update.TakeRead(std::move(map));
    if (const QString note = problem.isEmpty() ? ground.note : problem; !note.isEmpty()) {
        parts_.panels.ShowHint(note);
    }
}

void MapOpening::Show(const ReturnedMap& map, const Ground& ground)
{
    {
        const MapDocument::Step step(parts_.map, QStringLiteral("Opening of a Map"));
        parts_.map.ForgetAreas();
        parts_.map.SetPicture(ground.path);
        parts_.map.Script().SetMode(map.mode);
        if (const std::optional<LinkField> field = RulesOf(map.mode).modeDefault) {
            LinkEntry entry;
            entry.SetText(*field, map.source.ModeDefault);
            parts_.map.Script().TakeModeDefault(entry);
        }
        parts_.map.ChangeAreas(map.source.Areas, QStringLiteral("Opening of a Map"));
    }
    parts_.showPicture(ground.path, ground.picture);
    parts_.fields.ShowTyped(map.source);
}
