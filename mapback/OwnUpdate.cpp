#include "mapback/OwnUpdate.h"

#include "codegen/InsertPlace.h"
#include "mapback/AreaMatching.h"
#include "mapback/LineReplacements.h"
#include "mapback/TodayFields.h"
#include "mapback/TodayReading.h"
#include "mapreader/PageLines.h"

#include <algorithm>

namespace {

/** A text as lines are compared: with LF alone, and none at its end. */
QString AsLines(QString text)
{
    text.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    while (text.endsWith(u'\n')) {
        text.chop(1);
    }
    return text;
}

/** A place once changes have been made that lie in front of it or in it. */
HtmlSpan Shifted(const HtmlSpan& place, const QList<TextReplacement>& changes)
{
    HtmlSpan shifted = place;
    for (const TextReplacement& change : changes) {
        const qsizetype growth = change.Text.size() - change.Place.Length;
        const bool isInFront = change.Place.Start < place.offset;
        (isInFront ? shifted.offset : shifted.length) += growth;
    }
    return shifted;
}

/** Makes the map that a page will have. */
class TodayUpdater
{
public:
    TodayUpdater(QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now)
        : page_(page)
        , was_(was)
        , mode_(mode)
        , now_(now)
        , isElement_(was.form == MarkupForm::TodayMapElement)
    {
    }

    MapUpdate Run(const TodayPage& context);

private:
    void Make(const TodayPage& context);
    void KeepFields();
    void KeepAreas();
    void KeepArea(qsizetype index, qsizetype before, const PictureScale& scale, bool isScaleKept);
    [[nodiscard]] PageCharset CharsetFor(PageCharset wished) const;
    [[nodiscard]] bool IsSame(QString MapSource::*field) const { return now_.*field == was_.source.*field; }
    [[nodiscard]] QStringView Head() const;
    [[nodiscard]] QString WithEnds(QString text) const;
    [[nodiscard]] QList<TextReplacement> AddBlocks(NeededBlocks missing, QString& text) const;

    QStringView page_;
    const ReturnedMap& was_;
    JSMode mode_;
    const MapSource& now_;
    bool isElement_;
    TodayMap map_;
    QSize pictureSize_; ///< what the editor's coordinates refer to
};

/** As much of the page as can tell from where its references count. */
QStringView TodayUpdater::Head() const
{
    const qsizetype body = page_.first(was_.place.offset).indexOf(u"<body", 0, Qt::CaseInsensitive);
    return page_.first(body < 0 ? was_.place.offset : body);
}

/** The wished one, if what stands in the page would have been written the same with it. */
PageCharset TodayUpdater::CharsetFor(PageCharset wished) const
{
    TodayMap map = was_.today;
    map.Charset = wished;
    return GenerateToday(*was_.form, was_.mode, map) == GenerateToday(*was_.form, was_.mode, was_.today)
               ? wished
               : was_.today.Charset;
}

void TodayUpdater::Make(const TodayPage& context)
{
    TodayPage page = context;
    const bool keepsName = IsSame(&MapSource::MapName);
    QString rest;
    if (!keepsName) {
        rest = page_.toString();
        rest.remove(was_.place.offset, was_.place.length);
    }
    page.Text = keepsName ? Head() : QStringView(rest);
    if (IsSame(&MapSource::PictureReference)) {
        page.PicturePath.clear();
    }
    map_ = MakeTodayMap(mode_, now_, page);
    map_.Charset = CharsetFor(context.Charset);
    KeepFields();
    KeepAreas();
}

/** What nobody has changed stays as it is written. */
void TodayUpdater::KeepFields()
{
    const TodayMap& before = was_.today;
    const bool isSamePicture = IsSame(&MapSource::PictureReference);
    if (IsSame(&MapSource::MapName)) {
        map_.Name = before.Name;
    }
    if (isSamePicture) {
        map_.Picture = before.Picture;
        map_.Own = before.Own;
    }
    if (IsSame(&MapSource::Width) && IsSame(&MapSource::Height)) {
        map_.Shown = before.Shown;
    }
    if (IsSame(&MapSource::AltText)) {
        map_.AltText = before.AltText;
    }
    if (IsSame(&MapSource::Align)) {
        map_.AlignClass = before.AlignClass;
    }
    if (IsSame(&MapSource::ModeDefault) && mode_ == was_.mode) {
        map_.Default = before.Default;
        map_.DefaultSize = before.DefaultSize;
    }
    if (isElement_) {
        map_.Own = map_.Shown;
    }
    pictureSize_ = !isSamePicture               ? map_.Own
                   : was_.pictureSize.isEmpty() ? was_.coordinateSize
                                                : was_.pictureSize;
}

void TodayUpdater::KeepAreas()
{
    const auto saysTheSame = [](MapArea inPage, const MapArea& inEditor) {
        inPage.Source = inEditor.Source;
        return inPage == inEditor;
    };
    const QList<qsizetype> matches = MatchedAreas(was_.source.Areas, now_.Areas, saysTheSame);
    PictureScale scale;
    if (!pictureSize_.isEmpty() && !map_.Own.isEmpty()) {
        scale = { double(map_.Own.width()) / pictureSize_.width(),
                  double(map_.Own.height()) / pictureSize_.height() };
    }
    const bool isScaleKept = map_.Own == was_.coordinateSize;
    for (qsizetype i = 0; i < map_.Areas.size(); ++i) {
        KeepArea(i, matches[i], scale, isScaleKept);
    }
}

void TodayUpdater::KeepArea(qsizetype index, qsizetype before, const PictureScale& scale, bool isScaleKept)
{
    TodayArea& made = map_.Areas[index];
    const MapArea& area = now_.Areas[index];
    made.Coordinates = Scaled(made.Shape, made.Coordinates, scale);
    if (before < 0) {
        return;
    }
    const MapArea& old = was_.source.Areas[before];
    const TodayArea& written = was_.today.Areas[before];
    const bool isSameMessage = area.Message == old.Message && mode_ == was_.mode;
    if (isScaleKept && area.Shape == old.Shape && area.Coordinates == old.Coordinates) {
        made.Shape = written.Shape;
        made.Coordinates = written.Coordinates;
    }
    if (area.Link == old.Link) {
        made.Address = written.Address;
    }
    if (area.Target == old.Target) {
        made.Target = written.Target;
    }
    if (isSameMessage) {
        made.Message = written.Message;
        made.MessageSize = written.MessageSize;
    }
    if (isSameMessage && area.Text == old.Text) {
        made.MessageAlt = written.MessageAlt;
        made.Label = area.Link == old.Link ? written.Label : made.Label;
    }
}

/** Puts style and script into the page's head, or in front of `text` where it has none and begins with it. */
QList<TextReplacement> TodayUpdater::AddBlocks(NeededBlocks missing, QString& text) const
{
    const HtmlSpan& place = was_.place;
    InsertPlace found = FindInsertPlace(page_, place);
    found.map = place;
    const QString ends = LineEndAt(page_, place.offset);
    QList<TextReplacement> changes =
        InsertMap(page_, found, text, missing, ends.isEmpty() ? QStringLiteral("\r\n") : ends).changes;
    const auto isMap = [&place](const TextReplacement& one) {
        return one.Place.Start == place.offset && one.Place.Length == place.length;
    };
    const auto ofMap = std::ranges::find_if(changes, isMap);
    if (found.head == place.offset && ofMap != changes.end()) {
        const QString withBlocks = AsLines(ofMap->Text);
        text = withBlocks.endsWith(text) ? withBlocks : text;
    }
    changes.removeIf(isMap);
    return changes;
}

/** A text with the line ends that it gets where the map is. */
QString TodayUpdater::WithEnds(QString text) const
{
    const QStringView map = was_.place.In(page_);
    const auto* const end = std::ranges::find_if(map, [](QChar one) { return one == u'\n' || one == u'\r'; });
    const bool isPair = end == map.end() || map.sliced(end - map.begin()).startsWith(u"\r\n");
    return isPair ? text.replace(u'\n', QStringLiteral("\r\n")) : text;
}

MapUpdate TodayUpdater::Run(const TodayPage& context)
{
    Make(context);
    QString text = AsLines(GenerateToday(*was_.form, mode_, map_));
    const qsizetype length = text.size();
    const NeededBlocks before = BlocksFor(*was_.form, was_.mode, was_.today);
    const NeededBlocks needed = BlocksFor(*was_.form, mode_, map_);
    const NeededBlocks missing{ .style = needed.style && !before.style,
                                .script = needed.script && !before.script };
    QList<TextReplacement> changes;
    if (missing.style || missing.script) {
        changes = AddBlocks(missing, text);
    }
    const QString front = WithEnds(text.first(text.size() - length));
    changes += DifferencesOf(page_, was_.place, text);
    std::ranges::sort(changes, {}, [](const TextReplacement& one) { return one.Place.Start; });
    MapUpdate update{ .changes = changes, .after = was_ };
    update.after.place = Shifted(was_.place, changes);
    update.after.place.offset += front.size();
    update.after.place.length -= front.size();
    update.after.mode = mode_;
    update.after.source = now_;
    update.after.today = map_;
    update.after.coordinateSize = map_.Own;
    update.after.pictureSize = pictureSize_;
    return update;
}

} // namespace

MapUpdate UpdateHtml4Map(QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now)
{
    const QString text = AsLines(GenerateMapFor(mode, now));
    MapUpdate update{ .changes = DifferencesOf(page, was.place, text), .after = was };
    update.after.place = Shifted(was.place, update.changes);
    update.after.mode = mode;
    update.after.source = now;
    return update;
}

std::optional<MapUpdate> UpdateTodayMap(
    QStringView page, const ReturnedMap& was, JSMode mode, const MapSource& now, const TodayPage& context)
{
    if (was.form == MarkupForm::TodayMapElement && !HasMapElement(mode)) {
        return std::nullopt;
    }
    return TodayUpdater(page, was, mode, now).Run(context);
}
