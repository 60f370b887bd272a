#include "mapreader/PageTag.h"

#include "html/CharacterReferences.h"

#include <array>

namespace {

/** How a piece of code begins and ends. */
struct CodeMarks
{
    QStringView opening;
    QStringView closing;
};

constexpr std::array<CodeMarks, 8> codeMarks = { {
    { u"<?", u"?>" },
    { u"<%", u"%>" },
    { u"<#", u">" },
    { u"{{", u"}}" },
    { u"{%", u"%}" },
    { u"{#", u"#}" },
    { u"${", u"}" },
    { u"#{", u"}" },
} };

/** A value that is one piece of code, as in JSX. */
bool IsInBraces(QStringView value)
{
    return value.size() >= 2 && value.front() == u'{' && value.back() == u'}';
}

void Shift(HtmlSpan& place, qsizetype by)
{
    place.offset += by;
}

void ShiftMark(qsizetype& mark, qsizetype by)
{
    mark = mark < 0 ? mark : mark + by;
}

} // namespace

TemplateCode TemplateCodeIn(QStringView text)
{
    TemplateCode found = IsInBraces(text) ? TemplateCode::Whole : TemplateCode::None;
    for (const CodeMarks& marks : codeMarks) {
        qsizetype at = text.indexOf(marks.opening);
        while (at >= 0) {
            const qsizetype end = text.indexOf(marks.closing, at + marks.opening.size());
            if (end < 0) {
                return TemplateCode::Cut;
            }
            found = TemplateCode::Whole;
            at = text.indexOf(marks.opening, end + marks.closing.size());
        }
    }
    return found;
}

PageTag::PageTag(QStringView page, const HtmlSpan& tag)
    : page_(page)
{
    HtmlTokens tokens(tag.In(page));
    (void)tokens.Next(token_);
    Shift(token_.whole, tag.offset);
    Shift(token_.name, tag.offset);
    Shift(token_.inside, tag.offset);
    ShiftMark(token_.slash, tag.offset);
    for (HtmlAttribute& attribute : token_.attributes) {
        Shift(attribute.whole, tag.offset);
        Shift(attribute.name, tag.offset);
        Shift(attribute.value, tag.offset);
        ShiftMark(attribute.equals, tag.offset);
    }
}

QString PageTag::ValueOf(const HtmlAttribute& attribute) const
{
    const QStringView value = attribute.value.In(page_);
    // An empty one is not the null string of one that is not there.
    return value.isEmpty() ? QString(QLatin1String("")) : DecodedValue(value);
}

QString PageTag::Value(QLatin1String name) const
{
    const HtmlAttribute* const attribute = Find(name);
    return attribute == nullptr ? QString() : ValueOf(*attribute);
}

bool PageTag::HoldsTemplate(const HtmlAttribute& attribute) const
{
    return TemplateCodeIn(attribute.name.In(page_)) != TemplateCode::None ||
           TemplateCodeIn(attribute.value.In(page_)) != TemplateCode::None;
}

TemplateCode PageTag::Template() const
{
    // The ">" that ends the tag may be the last mark of the code.
    const QStringView tag = token_.whole.In(page_);
    const bool isCut = TemplateCodeIn(tag.chopped(1)) == TemplateCode::Cut;
    const TemplateCode whole = isCut ? TemplateCode::Cut : TemplateCodeIn(tag);
    const bool isAnywhere = std::ranges::any_of(
        token_.attributes, [this](const HtmlAttribute& attribute) { return HoldsTemplate(attribute); });
    return whole == TemplateCode::None && isAnywhere ? TemplateCode::Whole : whole;
}
