#include "mapback/PictureFields.h"

#include "codegen/PageReference.h"
#include "mapreader/PageTag.h"

#include <algorithm>
#include <array>

namespace {

/** A field about the whole map that is an attribute of its picture. */
struct PictureField
{
    QStringView attribute;
    QString MapSource::*member;
    bool goesWhenEmpty; ///< the attribute; else its value becomes empty
};

constexpr std::array<PictureField, 8> pictureFields = { {
    { u"src", &MapSource::PictureReference, false },
    { u"width", &MapSource::Width, true },
    { u"height", &MapSource::Height, true },
    { u"alt", &MapSource::AltText, false },
    { u"align", &MapSource::Align, true },
    { u"border", &MapSource::Border, true },
    { u"hspace", &MapSource::HorizontalSpace, true },
    { u"vspace", &MapSource::VerticalSpace, true },
} };

} // namespace

void SetPictureFields(MapSource& source, QStringView page, const HtmlSpan& picture)
{
    const QList<AttributeWish> attributes = AttributesOf(PageTag(page, picture));
    for (const PictureField& field : pictureFields) {
        source.*field.member = ValueIn(attributes, field.attribute);
    }
}

QList<AttributeWish>
PictureWishes(QStringView page, const MapSource& was, const MapSource& now, const TodayPage& context)
{
    QList<AttributeWish> wishes;
    for (const PictureField& field : pictureFields) {
        QString value = now.*field.member;
        if (value == was.*field.member) {
            continue;
        }
        if (field.member == &MapSource::PictureReference && !context.PicturePath.isEmpty()) {
            value = now.FileNamesOnly
                        ? value
                        : PageReference(context.PicturePath, ReferenceFolder(page, context.Path));
        }
        const bool goes = value.isEmpty() && field.goesWhenEmpty;
        wishes << AttributeWish{ field.attribute.toString(), goes              ? QString()
                                                             : value.isEmpty() ? QString(QLatin1String(""))
                                                                               : value };
    }
    return wishes;
}

bool ChangesCode(const MapSource& was, const MapSource& now)
{
    const auto isChangedCode = [&](QString MapSource::*field) {
        return now.*field != was.*field && TemplateCodeIn(was.*field) != TemplateCode::None;
    };
    return isChangedCode(&MapSource::MapName) ||
           std::ranges::any_of(
               pictureFields, [&](const PictureField& field) { return isChangedCode(field.member); });
}
