#include "html/TagPairs.h"

#include "html/OpenElements.h"

#include <algorithm>

namespace {

constexpr QStringView openingBrackets = u"([{";
constexpr QStringView closingBrackets = u")]}";

/** Reads the brackets of a style or script; those in strings and comments are none. */
class BracketReader
{
public:
    BracketReader(QStringView code, HtmlContent content)
        : code_(code)
        , hasLineComments_(content == HtmlContent::Script)
    {
    }

    /** The bracket that belongs to the one at `place`; -1 if there is none. */
    [[nodiscard]] qsizetype PartnerOf(qsizetype place);

private:
    void PassString();
    void PassComment(QStringView end);

    QStringView code_;
    bool hasLineComments_;
    qsizetype at_ = 0;
};

void BracketReader::PassString()
{
    const QChar quote = code_[at_];
    const bool endsWithLine = quote != u'`';
    for (++at_; at_ < code_.size() && code_[at_] != quote; ++at_) {
        if (code_[at_] == u'\\') {
            ++at_;
        } else if (code_[at_] == u'\n' && endsWithLine) {
            return;
        }
    }
}

void BracketReader::PassComment(QStringView end)
{
    const qsizetype found = code_.indexOf(end, at_ + 2);
    at_ = found < 0 ? code_.size() : found + end.size() - 1;
}

qsizetype BracketReader::PartnerOf(qsizetype place)
{
    std::vector<qsizetype> open;
    for (; at_ < code_.size(); ++at_) {
        const QChar one = code_[at_];
        if (one == u'"' || one == u'\'' || (one == u'`' && hasLineComments_)) {
            PassString();
        } else if (code_.sliced(at_).startsWith(u"/*")) {
            PassComment(u"*/");
        } else if (hasLineComments_ && code_.sliced(at_).startsWith(u"//")) {
            PassComment(u"\n");
        } else if (openingBrackets.contains(one)) {
            open.push_back(at_);
        } else if (closingBrackets.contains(one) && !open.empty()) {
            const qsizetype start = open.back();
            if (openingBrackets.indexOf(code_[start]) != closingBrackets.indexOf(one)) {
                continue; // one too many
            }
            open.pop_back();
            if (start == place || at_ == place) {
                return start == place ? at_ : start;
            }
        }
        if (at_ >= place && open.empty()) {
            return -1;
        }
    }
    return -1;
}

std::vector<HtmlSpan> BracketsAt(QStringView text, const HtmlToken& token, qsizetype caret)
{
    const QStringView code = token.whole.In(text);
    const qsizetype inCode = caret - token.whole.offset;
    for (const qsizetype place : { inCode, inCode - 1 }) {
        const bool isBracket =
            place >= 0 && place < code.size() &&
            (openingBrackets.contains(code[place]) || closingBrackets.contains(code[place]));
        const qsizetype partner = isBracket ? BracketReader(code, token.content).PartnerOf(place) : -1;
        if (partner >= 0) {
            const qsizetype first = token.whole.offset + std::min(place, partner);
            const qsizetype last = token.whole.offset + std::max(place, partner);
            return { { first, 1 }, { last, 1 } };
        }
    }
    return {};
}

/** The beginning of a tag up to its name, and its ">". */
void AddEnds(std::vector<HtmlSpan>& places, const HtmlSpan& tag, const HtmlSpan& name)
{
    places.push_back({ tag.offset, name.End() - tag.offset });
    places.push_back({ tag.End() - 1, 1 });
}

bool IsTag(const HtmlToken& token)
{
    return (token.kind == HtmlToken::Kind::StartTag || token.kind == HtmlToken::Kind::EndTag) &&
           token.isClosed;
}

/** The element that `taken`, an end tag, has ended by itself; nullptr if none. */
const OpenElements::Element* EndedBy(const OpenElements& elements)
{
    const bool isAny = !elements.EndedLast().empty();
    const bool isGiven = isAny && elements.EndedLast().back().how == OpenElements::End::Given;
    return isGiven ? &elements.EndedLast().back().element : nullptr;
}

bool IsAmong(const std::vector<OpenElements::Element>& open, const HtmlSpan& tag)
{
    return std::any_of(open.rbegin(), open.rend(), [&tag](const auto& one) { return one.tag == tag; });
}

} // namespace

std::vector<HtmlSpan> PairAt(QStringView text, const HtmlState& state, qsizetype caret)
{
    HtmlTokens tokens(text, state);
    OpenElements elements(text);
    std::vector<HtmlSpan> places;
    HtmlSpan own; // the start tag at the caret
    for (HtmlToken token; tokens.Next(token);) {
        const bool isAtCaret = token.whole.offset <= caret && caret <= token.whole.End();
        const bool isCode = token.kind == HtmlToken::Kind::Text &&
                            (token.content == HtmlContent::Script || token.content == HtmlContent::Style);
        if (isAtCaret && isCode) {
            std::vector<HtmlSpan> brackets = BracketsAt(text, token, caret);
            if (!brackets.empty()) {
                return brackets;
            }
        }
        const OpenElements::Effect effect = elements.Take(token, tokens.State());
        const OpenElements::Element* const ended = EndedBy(elements);
        const bool isOwnEnd = isAtCaret && IsTag(token);
        if (ended != nullptr && (isOwnEnd || (own.length > 0 && ended->tag == own))) {
            places.clear();
            AddEnds(places, ended->tag, ended->name);
            AddEnds(places, token.whole, token.name);
        }
        if (isAtCaret && effect == OpenElements::Effect::Opens) {
            own = token.whole; // of two, the one behind the caret
        }
        if (token.whole.offset > caret && (own.length == 0 || !IsAmong(elements.Open(), own))) {
            break;
        }
    }
    return places;
}
