#include "html/ForeignNesting.h"

#include <array>

namespace {

/** The elements that are levels; where one stands is its number from 1, nought is none. */
constexpr std::array<HtmlTag, 10> levelTags = { HtmlTag::Svg,  HtmlTag::Math,  HtmlTag::ForeignObject,
                                                HtmlTag::Desc, HtmlTag::Title, HtmlTag::Mi,
                                                HtmlTag::Mo,   HtmlTag::Mn,    HtmlTag::Ms,
                                                HtmlTag::Mtext };

constexpr quint64 LevelOf(HtmlTag tag)
{
    for (std::size_t index = 0; index < levelTags.size(); ++index) {
        if (levelTags[index] == tag) {
            return index + 1;
        }
    }
    return 0;
}

/** Whether `tag` begins a level when it stands directly in SVG or MathML. */
constexpr bool IsLevelIn(HtmlTag root, HtmlTag tag)
{
    switch (tag) {
    case HtmlTag::Svg:
    case HtmlTag::ForeignObject:
    case HtmlTag::Desc:
    case HtmlTag::Title:
        return root == HtmlTag::Svg;
    case HtmlTag::Math:
    case HtmlTag::Mi:
    case HtmlTag::Mo:
    case HtmlTag::Mn:
    case HtmlTag::Ms:
    case HtmlTag::Mtext:
        return root == HtmlTag::Math;
    default:
        return false;
    }
}

} // namespace

HtmlTag ForeignNesting::Top() const
{
    constexpr quint64 lowest = (1U << bitsALevel) - 1;
    const quint64 level = levels_ & lowest;
    return level == 0 ? HtmlTag::Other : levelTags[level - 1];
}

void ForeignNesting::Push(HtmlTag tag)
{
    constexpr int bits = 64;
    const bool isFull = levels_ >> (bits - bitsALevel) != 0;
    if (!isFull) {
        levels_ = levels_ << bitsALevel | LevelOf(tag);
    }
}

void ForeignNesting::LeaveForeign()
{
    while (IsForeign()) {
        Pop();
    }
}

bool ForeignNesting::Open(HtmlTag tag, bool isHtmlFont, bool isSelfClosing)
{
    if (tag == HtmlTag::Html || isHtmlFont) {
        LeaveForeign();
    }
    const bool isForeign = IsForeign();
    const bool isLevel = isForeign ? IsLevelIn(Top(), tag) : tag == HtmlTag::Svg || tag == HtmlTag::Math;
    if (isLevel && !isSelfClosing) {
        Push(tag);
    }
    return !isForeign;
}

void ForeignNesting::Close(HtmlTag tag)
{
    if (!IsForeign()) {
        // In HTML only the element that it stands in can be the one.
        if (LevelOf(tag) != 0 && Top() == tag) {
            Pop();
        }
    } else if (tag == HtmlTag::Html) {
        LeaveForeign();
    } else if (LevelOf(tag) != 0) {
        CloseNearest(tag);
    }
}

void ForeignNesting::CloseNearest(HtmlTag tag)
{
    ForeignNesting outside = *this;
    while (outside.levels_ != 0) {
        const bool isFound = outside.Top() == tag;
        outside.Pop();
        if (isFound) {
            *this = outside;
            return;
        }
    }
}
