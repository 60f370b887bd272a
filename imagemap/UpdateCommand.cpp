#include "imagemap/UpdateCommand.h"

#include "imagemap/EditorPanels.h"
#include "imagemap/MapFields.h"
#include "imagemap/NewMapProblem.h"
#include "imagemap/PicturePane.h"
#include "imagemap/TodayInsert.h"
#include "imagemap/model/MapDocument.h"
#include "imagemap/origin/AreaLikeness.h"
#include "mapback/NewMap.h"
#include "widgets/LeftKeys.h"
#include "widgets/WindowHelpers.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>
#include <QToolButton>

namespace {

constexpr QStringView updateQuestion =
    u"The page does not have your changes of its map yet.\n\nUpdate the page?";
constexpr QStringView goneText = u"The map is in the page no more, or was changed there so that it cannot be "
                                 u"read.\nInsert puts it in at the caret !";
constexpr QStringView pictureGoneText =
    u"The picture is in the page no more, or has got a map there.\nInsert puts yours in at the caret !";
constexpr QStringView refusedText =
    u"The changes cannot be written: code of a template is in their way, or the form of the map in the page "
    u"has no room for them !";
constexpr QStringView notFoundNote =
    u"The page that is open does not have the map as it was: Insert puts it in at the caret";
constexpr QStringView lossesQuestion = u"The page was changed by hand meanwhile:";
constexpr qsizetype mostLossesTold = 8;

} // namespace

UpdateCommand::UpdateCommand(const Parts& parts)
    : QObject(&parts.window)
    , parts_(parts)
    , origins_(MapOrigins::Of(parts_.map))
    , serial_(parts_.map.Serial().Number())
{
    parts_.menu.addSeparator()->setObjectName(QStringLiteral("mnuASep5"));
    entry_ = parts_.menu.addAction(QStringLiteral("&Update Page"));
    entry_->setObjectName(QStringLiteral("mnuAUpdatePage"));
    entry_->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_U));
    const auto nameLast = [this] {
        QAction* const last = parts_.toolbar.actions().constLast();
        last->setObjectName(
            QStringLiteral("%1_%2").arg(parts_.toolbar.objectName()).arg(parts_.toolbar.actions().size()));
        return last;
    };
    parts_.toolbar.addSeparator();
    (void)nameLast();
    button_ = parts_.toolbar.addAction(
        QIcon(QStringLiteral(":/icons/map-update.svg")), QStringLiteral("Update Page"));
    (void)nameLast();
    button_->setToolTip(QStringLiteral("Update Page"));
    auto* const face = qobject_cast<QToolButton*>(parts_.toolbar.widgetForAction(button_));
    face->setAccessibleName(QStringLiteral("Update Page"));
    face->setAutoRaise(true);
    connect(entry_, &QAction::triggered, this, &UpdateCommand::Update);
    connect(button_, &QAction::triggered, this, &UpdateCommand::Update);
    connect(&origins_, &MapOrigins::Changed, this, &UpdateCommand::Enable);
    connect(&parts_.map.History(), &MapHistory::Changed, this, &UpdateCommand::History_Changed);
    LeaveKey();
    Enable();
}

/** The key erases the text of a field on some systems: it is left to the command by all that there are and
 * all that a table opens. */
void UpdateCommand::LeaveKey()
{
    auto* const leftKeys = new LeftKeys(
        [this](const QWidget&, const QKeyEvent& key) {
            return QKeySequence(key.keyCombination()) == entry_->shortcut();
        },
        this);
    connect(qApp, &QApplication::focusChanged, leftKeys, [this, leftKeys](QWidget*, QWidget* field) {
        if (field != nullptr && field->window() == &parts_.window) {
            field->installEventFilter(leftKeys);
        }
    });
}

void UpdateCommand::Enable()
{
    const MapOrigin* const origin = origins_.Present();
    const bool isThere = origin != nullptr && origin->IsThere();
    entry_->setEnabled(isThere);
    button_->setEnabled(isThere);
}

/** What leads to another map leads to its fields too. */
void UpdateCommand::History_Changed()
{
    Enable();
    if (parts_.map.Serial().Number() == serial_) {
        return;
    }
    serial_ = parts_.map.Serial().Number();
    if (const MapOrigin* const origin = origins_.Present()) {
        parts_.fields.SetTexts(origin->Shown().fields);
    }
}

ShownMap UpdateCommand::Shown(const ReturnedMap* read) const
{
    const MapScript& script = parts_.map.Script();
    // In a tag without a size, the picture's own must not become one.
    const bool isOwnForm = read == nullptr || read->form.has_value();
    ShownMap shown{ { script.Mode(), isOwnForm ? parts_.fields.Source() : parts_.fields.TypedSource() },
                    parts_.fields.Texts() };
    shown.map.source.ModeDefault = script.ModeDefault();
    shown.map.source.Areas = parts_.map.Areas();
    if (read != nullptr) {
        shown.map.source.PictureReference = read->source.PictureReference;
    }
    return shown;
}

void UpdateCommand::TakeInserted(std::unique_ptr<AnchoredRange> range)
{
    const QString text = parts_.page.TextIn(range->Place());
    origins_.Set(std::make_unique<MapOrigin>(std::move(range), text, Shown(nullptr)));
}

void UpdateCommand::TakeRead(ReturnedMap read)
{
    serial_ = parts_.map.Serial().Number();
    std::unique_ptr<AnchoredRange> range = parts_.page.Anchor({ read.Held().offset, read.Held().length });
    ShownMap shown = Shown(&read);
    const QString text = TextOf([this](const HtmlSpan& place) { return TextAt(place); }, read);
    if (MapOrigin* const origin = origins_.Present()) {
        origin->Agree(std::move(read), std::move(range), text, std::move(shown));
        Enable();
        return;
    }
    origins_.Set(std::make_unique<MapOrigin>(std::move(read), std::move(range), text, std::move(shown)));
}

KeptOrigin UpdateCommand::Kept(const KeptOrigin& last) const
{
    const MapOrigin* const origin = origins_.Present();
    return origin != nullptr ? origin->Kept(last) : KeptOrigin();
}

void UpdateCommand::Resume(const KeptOrigin& kept)
{
    const QString page = parts_.page.Text();
    const bool isDone = kept.Of == KeptOrigin::Inserted ? ResumeInserted(page, kept) : ResumeRead(page, kept);
    if (!isDone) {
        parts_.panels.ShowHint(notFoundNote);
    }
}

bool UpdateCommand::ResumeRead(const QString& page, const KeptOrigin& kept)
{
    std::optional<ReturnedMap> read = FindKept(page, kept);
    if (!read) {
        return false;
    }
    ShownMap agreed = AgreedOn(*read);
    std::unique_ptr<AnchoredRange> range = parts_.page.Anchor({ read->Held().offset, read->Held().length });
    const QString text = TextOf(page, *read);
    origins_.Set(std::make_unique<MapOrigin>(*std::move(read), std::move(range), text, std::move(agreed)));
    return true;
}

bool UpdateCommand::ResumeInserted(const QString& page, const KeptOrigin& kept)
{
    const std::optional<TextSpan> place = FindInserted(page, kept);
    if (!place) {
        return false;
    }
    std::optional<ReturnedMap> read = MapOrigin(parts_.page.Anchor(*place), kept.Text, {}).ReadAgain(page);
    if (!read) {
        return false;
    }
    ShownMap agreed = AgreedOn(*read);
    origins_.Set(std::make_unique<MapOrigin>(parts_.page.Anchor(*place), kept.Text, std::move(agreed)));
    return true;
}

/** What page and map agreed on: what would be shown of `read`, not what is shown. */
ShownMap UpdateCommand::AgreedOn(ReturnedMap& read)
{
    const PictureSurface& surface = parts_.pane.Surface();
    (void)FitToPicture(read, { surface.PictureWidth(), surface.PictureHeight() });
    const QMap<QString, QString> texts = parts_.fields.Texts();
    parts_.fields.ShowTyped(read.source);
    ShownMap agreed = Shown(&read);
    parts_.fields.SetTexts(texts);
    agreed.map.mode = read.mode;
    agreed.map.source.ModeDefault = read.source.ModeDefault;
    agreed.map.source.Areas = read.source.Areas;
    return agreed;
}

bool UpdateCommand::IsOfPage() const
{
    const MapOrigin* const origin = origins_.Present();
    return origin != nullptr && origin->IsOfPage() && origin->IsThere();
}

bool UpdateCommand::IsOpen(QStringView page, const HtmlSpan& place) const
{
    return IsOfPage() && origins_.Present()->Read()->Held() == place && origins_.Present()->IsAsRead(page);
}

bool UpdateCommand::HasUnwrittenChanges() const
{
    if (!IsOfPage()) {
        return false;
    }
    const ShownMap& agreed = origins_.Present()->Shown();
    const MapScript& script = parts_.map.Script();
    return parts_.map.Areas() != agreed.map.source.Areas || script.Mode() != agreed.map.mode ||
           script.ModeDefault() != agreed.map.source.ModeDefault || parts_.fields.Texts() != agreed.fields;
}

bool UpdateCommand::MayLeave()
{
    if (!HasUnwrittenChanges()) {
        return true;
    }
    const QMessageBox::StandardButton answer = ShowMessage(
        &parts_.window, QMessageBox::Question, updateQuestion.toString(),
        QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    return answer == QMessageBox::No || (answer == QMessageBox::Yes && Update());
}

void UpdateCommand::Forget()
{
    if (IsOfPage()) {
        parts_.map.Clear();
    }
}

bool UpdateCommand::Leave()
{
    if (!MayLeave()) {
        return false;
    }
    Forget();
    return true;
}

/** What is being typed into a cell of a table counts; fields have told of every key. */
void UpdateCommand::TakeTyped()
{
    for (QWidget* at = parts_.window.focusWidget(); at != nullptr; at = at->parentWidget()) {
        if (auto* const view = qobject_cast<QAbstractItemView*>(at)) {
            view->setFocus();
        }
    }
}

bool UpdateCommand::Update()
{
    TakeTyped();
    MapOrigin* const origin = origins_.Present();
    if (origin == nullptr || !origin->IsThere() || !parts_.begin()) {
        return false;
    }
    return WriteAlone(*origin) || WriteAll(*origin);
}

/** Updates a map that the page has as it was read, without asking for the whole page, which takes long where
 * that is large; false where this will not do. */
bool UpdateCommand::WriteAlone(const MapOrigin& origin)
{
    const auto textAt = [this](const HtmlSpan& place) { return TextAt(place); };
    const ReturnedMap* const read = origin.Read();
    if (read == nullptr || !origin.IsAsRead(textAt)) {
        return false;
    }
    const EditedMap now = Shown(read).map;
    const std::optional<MapUpdate> update =
        UpdateMapAlone(textAt, *read, now.mode, now.source, ContextOf(parts_.page, Picture()));
    if (update) {
        Make(*update, now);
    }
    return update.has_value();
}

bool UpdateCommand::WriteAll(MapOrigin& origin)
{
    const QString page = parts_.page.Text();
    const ReturnedMap* const read = origin.Read();
    // A picture may have got a map that stands elsewhere.
    if (read != nullptr && read->IsInPage() && origin.IsAsRead(page)) {
        return Write(page, ReturnedMap(*read), Shown(read).map);
    }
    std::optional<ReturnedMap> now = origin.ReadAgain(page);
    if (!now) {
        const bool isPicture = read != nullptr && !read->IsInPage();
        ShowMessage(
            &parts_.window, QMessageBox::Information, (isPicture ? pictureGoneText : goneText).toString());
        return false;
    }
    const PictureSurface& surface = parts_.pane.Surface();
    (void)FitToPicture(*now, { surface.PictureWidth(), surface.PictureHeight() });
    const EditedMap shown = Shown(&*now).map;
    if (read != nullptr && read->IsInPage() && !now->IsInPage()) {
        // The picture has lost the whole map, with which there is nothing to be brought together.
        return Write(page, *now, shown);
    }
    KeepSources(now->source.Areas, origin.Shown().map.source.Areas, shown.source.Areas);
    const MergedMap merged = Merge(origin.Shown().map, shown, { now->mode, now->source });
    return MayLose(merged.losses) && Write(page, *now, merged.map);
}

bool UpdateCommand::MayLose(const QStringList& losses)
{
    if (losses.isEmpty()) {
        return true;
    }
    QStringList told = losses.mid(0, mostLossesTold);
    if (losses.size() > mostLossesTold) {
        told << QStringLiteral("and %1 more").arg(losses.size() - mostLossesTold);
    }
    return AskYesNo(
        &parts_.window, lossesQuestion + QStringLiteral("\n\n") + told.join(u'\n') +
                            QStringLiteral("\n\nUpdate the page all the same?"));
}

bool UpdateCommand::Write(const QString& page, const ReturnedMap& was, EditedMap now)
{
    if (!was.IsInPage() && !PrepareNew(page, was, now)) {
        return false;
    }
    const std::optional<MapUpdate> update =
        UpdateMap(page, was, now.mode, now.source, ContextOf(parts_.page, Picture()));
    if (!update) {
        ShowMessage(&parts_.window, QMessageBox::Information, refusedText.toString());
        return false;
    }
    Make(*update, now);
    return true;
}

/** Makes the changes of an update in the page, after which it and the editor have what is in `now`. */
void UpdateCommand::Make(const MapUpdate& update, const EditedMap& now)
{
    parts_.page.Replace(update.changes);
    Show(now);
    TakeRead(update.after);
    parts_.panels.ShowHint(
        update.changes.isEmpty()
            ? QStringLiteral("The page says the same already")
            : QStringLiteral("Updated in line %1").arg(parts_.page.LineOf(update.after.place.offset)));
}

MapPicture UpdateCommand::Picture() const
{
    const PictureSurface& surface = parts_.pane.Surface();
    return { parts_.map.Picture(), { surface.PictureWidth(), surface.PictureHeight() } };
}

QString UpdateCommand::TextAt(const HtmlSpan& place) const
{
    return parts_.page.TextIn({ place.offset, place.length });
}

/** Sees to it that a picture without a map can get this one; tells what is in the way. */
bool UpdateCommand::PrepareNew(const QString& page, const ReturnedMap& picture, EditedMap& map)
{
    const QString problem = ProblemOfNewMap(page, picture, map);
    if (!problem.isEmpty()) {
        ShowMessage(&parts_.window, QMessageBox::Information, problem);
    } else if (map.source.MapName.isEmpty()) {
        ShowMessage(
            &parts_.window, QMessageBox::Information, QStringLiteral("Please, enter the Image Map Name !"));
        parts_.fields.GoToName();
    } else {
        map.source.MapName = NameOfNewMap(page, picture, map.source.MapName);
        return true;
    }
    return false;
}

/** What was changed by hand in the page is shown too. */
void UpdateCommand::Show(const EditedMap& merged)
{
    const MapDocument::Step step(parts_.map, QStringLiteral("Reading of the Page"));
    if (merged.mode != parts_.map.Script().Mode()) {
        parts_.map.Script().SetMode(merged.mode);
    }
    if (merged.source.ModeDefault != parts_.map.Script().ModeDefault()) {
        parts_.map.Script().SetModeDefault(merged.source.ModeDefault);
    }
    if (merged.source.Areas != parts_.map.Areas()) {
        parts_.map.ChangeAreas(merged.source.Areas, QStringLiteral("Reading of the Page"));
    }
    parts_.fields.ShowOther(merged.source);
}
