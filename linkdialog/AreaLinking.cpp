#include "linkdialog/AreaLinking.h"

#include <QStringList>
#include <algorithm>
#include <initializer_list>

namespace {

constexpr RequiredField requiredLink = { LinkField::Link, u"Please, enter the Link to get conected to !" };

constexpr LinkRules plainRules = {
    .required = { requiredLink },
    .message = LinkField::StatusBarMessage,
    .modeDefault = std::nullopt,
    .headerStart = u"",
    .newLinkCaption = applicationTitle,
};

constexpr LinkRules switchingImagesRules = {
    .required = { requiredLink,
                  RequiredField{ LinkField::DefaultImage, u"Please, enter the Default Image File Name !" },
                  RequiredField{ LinkField::SwitchImage,
                                 u"Please, enter the File Name for Image to switch to !" } },
    .message = LinkField::SwitchImage,
    .modeDefault = LinkField::DefaultImage,
    .headerStart = u" Switching Images (Default Image:",
    .newLinkCaption = applicationTitle,
};

constexpr LinkRules textAreaRules = {
    .required = { requiredLink,
                  RequiredField{ LinkField::DefaultTextAreaMessage, u"Please, enter the Default Message !" },
                  RequiredField{ LinkField::TextAreaMessage, u"Please, enter the Message to switch to !" } },
    .message = LinkField::TextAreaMessage,
    .modeDefault = LinkField::DefaultTextAreaMessage,
    .headerStart = u" Text Area Messages (Default Message:",
    .newLinkCaption = applicationTitle,
};

constexpr LinkRules toolTipRules = {
    .required = { requiredLink,
                  RequiredField{ LinkField::ToolTipMessage, u"Please, enter the Tool Tip Message !" } },
    .message = LinkField::ToolTipMessage,
    .modeDefault = std::nullopt,
    .headerStart = u"",
    .newLinkCaption = u"Image Map Link",
};

constexpr std::array<const LinkRules*, jsModeTexts.size()> rulesByMode = {
    &plainRules, &plainRules, &switchingImagesRules, &textAreaRules, &toolTipRules,
};

QString JoinedNumbers(std::initializer_list<int> numbers)
{
    QStringList texts;
    for (const int number : numbers) {
        texts << QString::number(number);
    }
    return texts.join(u", ");
}

/** The corners of the current polygon: the first side's start, then every side's end. */
QString PolygonCoords(FigureStore& store)
{
    QStringList points;
    for (int i = 0; i < store.CurrentPolygonLineCount; ++i) {
        const FigureRecord* const side = FigureStore::At(store.CurrentPolygon, i);
        if (side == nullptr) {
            break;
        }
        if (i == 0) {
            points << JoinedNumbers({ side->X1, side->Y1 });
        }
        points << JoinedNumbers({ side->X2, side->Y2 });
    }
    return points.join(u", ");
}

/** The record whose link data an area of the current kind is told by. */
FigureRecord* LinkedRecord(FigureStore& store)
{
    return store.CurrentKind == kindLine
               ? FigureStore::At(store.CurrentPolygon, store.CurrentPolygonLineCount - 1)
               : store.LastFigure();
}

void WriteLinkData(FigureStore& store, const LinkEntry& entry, const QString& message)
{
    if (FigureRecord* const record = LinkedRecord(store)) {
        record->Link = entry.Text(LinkField::Link);
        record->Target = entry.Target;
        record->Message = message;
    }
    if (store.CurrentKind != kindLine) {
        return;
    }
    if (FigureRecord* const endMark = FigureStore::At(store.PolygonLines, store.PolygonLineCount - 1)) {
        endMark->Link = entry.Text(LinkField::Link);
        endMark->Target = entry.Target;
    }
}

struct RowShape
{
    qint16 kind;
    QStringView word;
    int smallIcon;
    QString (*coordinates)(FigureStore& store, const FigureRecord& record);
};

constexpr std::array<RowShape, 3> rowShapes = { {
    { kindRectangle, u" Rectangle", 1,
      [](FigureStore&, const FigureRecord& record) { return NormalizedRectCoords(record); } },
    { kindCircle, u" Circle", 2,
      [](FigureStore&, const FigureRecord& record) {
          return JoinedNumbers({ record.X1, record.Y1, record.Radius });
      } },
    { kindLine, u" Polygon", 3,
      [](FigureStore& store, const FigureRecord&) { return PolygonCoords(store); } },
} };

} // namespace

const LinkRules& RulesOf(JSMode mode)
{
    return *rulesByMode[static_cast<std::size_t>(mode)];
}

std::optional<RequiredField> MissingField(JSMode mode, const LinkEntry& entry)
{
    for (const std::optional<RequiredField>& required : RulesOf(mode).required) {
        if (required && entry.Text(required->field).isEmpty()) {
            return required;
        }
    }
    return std::nullopt;
}

const QString& MessageOf(JSMode mode, const LinkEntry& entry)
{
    return entry.Text(RulesOf(mode).message);
}

std::optional<QString> TakeModeDefault(ImgMap& imgMap, const LinkEntry& entry)
{
    const LinkRules& rules = RulesOf(imgMap.Mode);
    if (!rules.modeDefault) {
        return std::nullopt;
    }
    imgMap.ModeDefault = entry.Text(*rules.modeDefault);
    return rules.headerStart.toString() + imgMap.ModeDefault + u"):";
}

std::optional<AreaRow> LinkNewArea(ImgMap& imgMap, const LinkEntry& entry, qsizetype rowNumber)
{
    FigureStore& store = imgMap.Store;
    WriteLinkData(store, entry, MessageOf(imgMap.Mode, entry));

    const auto* const shape = std::find_if(rowShapes.begin(), rowShapes.end(), [&store](const RowShape& row) {
        return row.kind == store.CurrentKind;
    });
    const FigureRecord* const record = LinkedRecord(store);
    if (shape == rowShapes.end() || record == nullptr) {
        return std::nullopt;
    }
    AreaRow row = { .Text = u" No: " + QString::number(rowNumber) + shape->word,
                    .Link = record->Link,
                    .Target = record->Target,
                    .Coordinates = shape->coordinates(store, *record),
                    .Message = record->Message,
                    .SmallIcon = shape->smallIcon };
    if (shape->kind == kindLine) {
        store.ResetCurrentPolygon();
    }
    return row;
}

void DiscardNewArea(FigureStore& store)
{
    const FigureRecord* const last = store.LastFigure();
    if (last != nullptr && last->Kind == kindLine) {
        store.ResetCurrentPolygon();
    }
    store.RemoveLast();
}

QString NormalizedRectCoords(const FigureRecord& rectangle)
{
    const auto [left, right] = std::minmax(rectangle.X1, rectangle.X2);
    const auto [top, bottom] = std::minmax(rectangle.Y1, rectangle.Y2);
    return JoinedNumbers({ left, top, right, bottom });
}
