#include "app/RecoveryKeeper.h"

#include "app/DocumentCommands.h"
#include "app/EncodingCommands.h"
#include "app/MessageBar.h"
#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "app/source/TextSnapshot.h"
#include "imagemap/MapFields.h"
#include "imagemap/PastedPictures.h"
#include "imagemap/UpdateCommand.h"
#include "imagemap/frmImageMap.h"
#include "imagemap/model/MapDocument.h"

namespace {

/** How long the window may be held up at a time: a part of what a screen takes for a picture. */
constexpr std::chrono::milliseconds sliceTime(4);

bool HasAnything(const MapCopy& map)
{
    return map.State.Figures.FigureCount > 0 || !map.State.Areas.isEmpty() || !map.DrawnCorners.isEmpty();
}

QString WhatIsIn(const MapCopy& map)
{
    const qsizetype count = map.State.Areas.size();
    if (count == 0 && !map.DrawnCorners.isEmpty()) {
        return QStringLiteral("a polygon that was being drawn");
    }
    return count == 1 ? QStringLiteral("an image map with an area")
                      : QStringLiteral("an image map with %1 areas").arg(count);
}

QString OfferText(const LeftBehind& left)
{
    QStringList what;
    if (left.Page) {
        what << u"the text of [" + left.Page->Document.Name + u']';
    }
    if (left.Map) {
        what << WhatIsIn(*left.Map);
    }
    return QStringLiteral("This was not saved before the program ended: ") +
           what.join(QStringLiteral(", and "));
}

} // namespace

RecoveryKeeper::RecoveryKeeper(const Parts& parts, QObject* parent)
    : QObject(parent)
    , parts_(parts)
    , store_(parts.Program.ProgramFolder)
{
    timer_.setSingleShot(true);
    slices_.setInterval(0);
    connect(&timer_, &QTimer::timeout, this, &RecoveryKeeper::timer_Timer);
    connect(&slices_, &QTimer::timeout, this, &RecoveryKeeper::slices_Timer);
    connect(&parts_.Source, &SourceEditor::Change, this, &RecoveryKeeper::Source_Change);
    connect(&parts_.File, &DocumentFile::EncodingChanged, this, &RecoveryKeeper::Source_Change);
    connect(&parts_.File, &DocumentFile::ChangedMarkSet, this, &RecoveryKeeper::Source_Change);
    // What follows tells whether characters were lost on saving.
    connect(&parts_.File, &DocumentFile::ChangedMarkSet, this, &RecoveryKeeper::Review, Qt::QueuedConnection);
    connect(
        &parts_.Encodings, &EncodingCommands::LossDecided, this, &RecoveryKeeper::Review,
        Qt::QueuedConnection);
    connect(&parts_.Map.History(), &MapHistory::Changed, this, &RecoveryKeeper::Map_HistoryChanged);
    connect(&parts_.Map.Drawing(), &MapDrawing::SidesChanged, this, &RecoveryKeeper::Map_HistoryChanged);
}

RecoveryKeeper::~RecoveryKeeper() = default;

bool RecoveryKeeper::IsPageUnsaved() const
{
    return parts_.File.IsChanged() || parts_.Encodings.IsLossUndecided();
}

/** Sees to it that what is not saved is kept in time. */
void RecoveryKeeper::Expect()
{
    if (!timer_.isActive() && !isEnded_) {
        timer_.start(parts_.Program.KeepingInterval);
    }
}

void RecoveryKeeper::Source_Change()
{
    isPageAhead_ = true;
    if (parts_.File.IsChanged()) {
        Expect();
    }
}

void RecoveryKeeper::Map_HistoryChanged()
{
    if (isEnded_) {
        return;
    }
    if (parts_.Map.HasContent()) {
        Expect();
    } else if (isMapKept_) {
        isMapKept_ = false;
        keptMap_ = {};
        store_.DropMap();
    }
}

/** Takes away what has been saved or given up meanwhile. */
void RecoveryKeeper::Review()
{
    if (IsPageUnsaved() || isEnded_) {
        return;
    }
    slices_.stop();
    snapshot_.reset();
    if (isPageKept_) {
        isPageKept_ = false;
        store_.DropPage();
    }
}

void RecoveryKeeper::timer_Timer()
{
    isPageAhead_ = isPageAhead_ || (isPageKept_ && !store_.IsKept());
    if (store_.IsBusy()) {
        Expect();
        return;
    }
    if (isPageAhead_ && IsPageUnsaved() && snapshot_ == nullptr) {
        snapshot_ = parts_.Source.BeginSnapshot();
        slices_.start();
    }
    if (parts_.Map.HasContent()) {
        KeepMap();
        Expect(); // what is typed into the fields of the editor tells nothing of it
    }
}

void RecoveryKeeper::slices_Timer()
{
    if (snapshot_->CopyFor(sliceTime)) {
        slices_.stop();
        FinishPage();
    }
}

PageCopy RecoveryKeeper::CopyOfPage() const
{
    const DocumentFile& file = parts_.File;
    return { .Document = { .Name = file.Name(),
                           .Encoding = file.Encoding(),
                           .IsHandledAnew = file.IsHandledAnew(),
                           .FoundUtf8 = file.FoundUtf8(),
                           .ContentHash = file.ContentHash(),
                           .IsLineEndAppended = file.IsLineEndAppended() },
             .Pieces = snapshot_->Pieces() };
}

void RecoveryKeeper::FinishPage()
{
    store_.Keep(CopyOfPage());
    snapshot_.reset();
    isPageKept_ = true;
    isPageAhead_ = false;
    Expect(); // to see whether it could be written
}

void RecoveryKeeper::KeepMap()
{
    const frmImageMap* const editor = parts_.MapEditor();
    MapCopy map{ .State = parts_.Map.State(),
                 .Fields = editor != nullptr ? editor->Fields().Texts() : keptMap_.Fields,
                 .DrawnCorners = parts_.Map.Drawing().Corners(),
                 .Origin = editor != nullptr ? editor->Updating().Kept(keptMap_.Origin) : keptMap_.Origin };
    const bool isKept = isMapKept_ && store_.IsKept() && map == keptMap_;
    if (HasAnything(map) && !isKept) {
        store_.Keep(map);
        keptMap_ = std::move(map);
        isMapKept_ = true;
    }
}

void RecoveryKeeper::End()
{
    slices_.stop();
    if (!IsPageUnsaved()) {
        Review();
    } else if (isPageAhead_ || !isPageKept_) {
        snapshot_ = parts_.Source.BeginSnapshot();
        while (!snapshot_->CopyFor(sliceTime)) {
        }
        FinishPage();
    }
    if (parts_.Map.HasContent()) {
        KeepMap();
    }
    isEnded_ = true;
    timer_.stop();
    store_.End();
    TidyPasted();
}

/** Nobody undoes anything any more; only a map that is kept may need a picture. */
void RecoveryKeeper::TidyPasted()
{
    PastedPictures& pasted = PastedPictures::Of(parts_.Map, parts_.Program.ProgramFolder);
    if (!pasted.AreThereAny()) {
        return;
    }
    QStringList needed = store_.KeptPictures();
    if (parts_.Map.HasContent()) {
        needed << parts_.Map.Picture(); // it may not have been possible to keep it
    }
    pasted.End(needed);
}

void RecoveryKeeper::OfferLeftBehind()
{
    const QList<LeftBehind> all = store_.TakeLeftBehind();
    for (const LeftBehind& left : all) {
        Offer(left);
    }
}

void RecoveryKeeper::Offer(const LeftBehind& left)
{
    parts_.Messages.Tell(
        { .Text = OfferText(left),
          .Answers = { { "btnRestore", QStringLiteral("Restore"), [this, left] { btnRestore_Click(left); } },
                       { "btnDiscard", QStringLiteral("Discard"), [this, left] { store_.Remove(left); } } },
          .IsOfDocument = false });
}

/** Asks for the changes of the page that is open; false when it is to stay, or could not be saved. */
bool RecoveryKeeper::MayReplacePage()
{
    return parts_.Documents.QueryUnload() && !parts_.File.IsChanged();
}

void RecoveryKeeper::btnRestore_Click(const LeftBehind& left)
{
    if (left.Page && !MayReplacePage()) {
        Offer(left);
        return;
    }
    if (left.Page) {
        PutBack(*left.Page);
    }
    if (left.Map) {
        PutBack(*left.Map);
    }
    store_.Remove(left);
}

void RecoveryKeeper::PutBack(const PageCopy& page)
{
    parts_.File.TakeUp(page.Document);
    parts_.Documents.ShowText(page.Pieces.join(QString()));
    parts_.File.MarkChanged();
    store_.Keep(page);
    isPageKept_ = true;
    isPageAhead_ = false;
}

void RecoveryKeeper::PutBack(const MapCopy& map)
{
    parts_.OpenMapEditor();
    parts_.Map.History().PutBack(map.State);
    if (frmImageMap* const editor = parts_.MapEditor()) {
        editor->Fields().SetTexts(map.Fields);
        editor->ResumePolygon(map.DrawnCorners);
        if (!map.Origin.Text.isEmpty()) {
            editor->Updating().Resume(map.Origin);
        }
    }
    KeepMap();
}
