#include "codegen/TodayMap.h"

#include "codegen/AreaTexts.h"
#include "codegen/PageReference.h"
#include "codegen/UniqueName.h"
#include "shared/Paths.h"

#include <algorithm>
#include <array>

namespace {

/** What an alignment of HTML 4 is among the classes of the constant style. */
struct AlignClass
{
    QStringView align;
    QStringView name;
};

constexpr std::array<AlignClass, 9> alignClasses = { {
    { u"TOP", u"imap-top" },
    { u"LEFT", u"imap-left" },
    { u"RIGHT", u"imap-right" },
    { u"TEXTTOP", u"imap-texttop" },
    { u"MIDDLE", u"imap-middle" },
    { u"ABSMIDDLE", u"imap-middle" },
    { u"BASELINE", u"imap-baseline" },
    { u"BOTTOM", u"imap-baseline" },
    { u"ABSBOTTOM", u"" }, // as all maps are
} };

QString AlignClassOf(const QString& align)
{
    const QString wanted = align.trimmed();
    const auto* const found =
        std::find_if(alignClasses.begin(), alignClasses.end(), [&wanted](const AlignClass& row) {
            return row.align.compare(wanted, Qt::CaseInsensitive) == 0;
        });
    return found == alignClasses.end() ? QString() : found->name.toString();
}

/** The pixels that were typed; 0 for what is no whole number of them. */
int WholePixels(const QString& typed)
{
    constexpr int most = 32767;
    bool isNumber = false;
    const int pixels = typed.trimmed().toInt(&isNumber);
    return isNumber && pixels > 0 && pixels <= most ? pixels : 0;
}

QSize ShownSize(const MapSource& source, QSize own)
{
    const int width = WholePixels(source.Width);
    const int height = WholePixels(source.Height);
    return { width > 0 ? width : own.width(), height > 0 ? height : own.height() };
}

/** A name of a frame or window as a page may use it; those that begin with "_" are reserved but for four. */
QString SoundTarget(const QString& typed)
{
    constexpr std::array<QStringView, 4> reserved = { u"_blank", u"_self", u"_parent", u"_top" };
    QString target = OneLineOfText(typed);
    const auto isIt = [&target](QStringView name) { return name.compare(target, Qt::CaseInsensitive) == 0; };
    if (std::any_of(reserved.begin(), reserved.end(), isIt)) {
        return target.toLower();
    }
    while (target.startsWith(u'_')) {
        target.remove(0, 1);
    }
    return target;
}

/** References to the files of one page. */
class References
{
public:
    References(const MapSource& source, const TodayPage& page)
        : page_(page)
        , folder_(ReferenceFolder(page.Text, page.Path))
        , fileNamesOnly_(source.FileNamesOnly)
    {
    }

    [[nodiscard]] QString To(const QString& target) const { return PageReference(target.trimmed(), folder_); }

    [[nodiscard]] QString ToPicture(const QString& path) const
    {
        return fileNamesOnly_ ? FileNameReference(FileNameOnly(path.trimmed())) : To(path);
    }

    [[nodiscard]] QSize SizeOf(const QString& path) const
    {
        return page_.SizeOf ? page_.SizeOf(path.trimmed()) : QSize();
    }

private:
    const TodayPage& page_;
    QString folder_;
    bool fileNamesOnly_;
};

TodayArea MakeArea(JSMode mode, const MapArea& area, const References& references)
{
    TodayArea made{ .Shape = area.Shape,
                    .Coordinates = area.Coordinates,
                    .Address = references.To(area.Link),
                    .Target = SoundTarget(area.Target),
                    .Label = LabelOf(area, mode),
                    .Message = {},
                    .MessageSize = {},
                    .MessageAlt = {} };
    if (mode == JSSwitchImages) {
        made.Message = references.ToPicture(area.Message);
        made.MessageSize = references.SizeOf(area.Message);
        const QString own = OneLineOfText(area.Text);
        made.MessageAlt = own.isEmpty() ? NameOfPicture(area.Message) : own;
    } else if (mode != JSDisabled && !OneLineOfMessage(area.Message).isEmpty()) {
        made.Message = area.Message;
    }
    // A place without a name would be a fault of the page.
    for (const QString& standIn : { made.Address, made.MessageAlt, made.Message }) {
        made.Label = made.Label.isEmpty() ? standIn : made.Label;
    }
    return made;
}

} // namespace

TodayMap MakeTodayMap(JSMode mode, const MapSource& source, const TodayPage& page)
{
    const References references(source, page);
    const QString picture = page.PicturePath.isEmpty() ? source.PictureReference : page.PicturePath;
    TodayMap map{ .Charset = page.Charset,
                  .Name = UniqueMapName(source.MapName, page.Text),
                  .Picture = references.ToPicture(picture),
                  .Own = page.PictureSize,
                  .Shown = ShownSize(source, page.PictureSize),
                  .AltText = OneLineOfText(source.AltText),
                  .AlignClass = AlignClassOf(source.Align),
                  .Default = {},
                  .DefaultSize = {},
                  .Areas = {} };
    if (mode == JSSwitchImages) {
        map.Default = references.ToPicture(source.ModeDefault);
        map.DefaultSize = references.SizeOf(source.ModeDefault);
    } else if (mode == JSTextArea && !OneLineOfMessage(source.ModeDefault).isEmpty()) {
        map.Default = source.ModeDefault;
    }
    for (const MapArea& area : source.Areas) {
        map.Areas << MakeArea(mode, area, references);
    }
    return map;
}

QString AlignOfClass(const QString& name)
{
    const auto* const found =
        std::find_if(alignClasses.begin(), alignClasses.end(), [&name](const AlignClass& row) {
            return row.name == name;
        });
    return found == alignClasses.end() || name.isEmpty() ? QString() : found->align.toString();
}

TodayNotes NotesOn(JSMode mode, const MapSource& source)
{
    TodayNotes notes;
    notes.lacksAltText = OneLineOfText(source.AltText).isEmpty();
    for (qsizetype i = 0; i < source.Areas.size(); ++i) {
        if (LacksText(source.Areas[i], mode)) {
            notes.areasWithoutText << int(i + 1);
        }
    }
    notes.hasOddSize = WholePixels(source.Width) == 0 || WholePixels(source.Height) == 0;
    const auto isSet = [](const QString& text) { return !text.isEmpty() && text.toInt() != 0; };
    notes.leftOutSpacing =
        isSet(source.Border) || isSet(source.HorizontalSpace) || isSet(source.VerticalSpace);
    return notes;
}

NeededBlocks BlocksFor(MarkupForm form, JSMode mode, const TodayMap& map)
{
    const bool isSvg = form == MarkupForm::Today && !map.Areas.isEmpty();
    const bool hasMessages =
        !map.Default.isEmpty() || std::any_of(map.Areas.begin(), map.Areas.end(), [](const TodayArea& area) {
            return !area.Message.isEmpty();
        });
    return { .style = isSvg || !map.AlignClass.isEmpty(),
             .script = isSvg && !HasMapElement(mode) && hasMessages };
}
