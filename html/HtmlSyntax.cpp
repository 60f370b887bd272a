#include "html/HtmlSyntax.h"

#include "html/CharacterReferences.h"

namespace {

/** What a part is in colours; a text that is only read is nothing. */
std::optional<SyntaxKind> SyntaxKindOf(const HtmlPart& part)
{
    switch (part.kind) {
    case HtmlPartKind::Text:
        return part.content == HtmlContent::Script  ? std::optional(SyntaxKind::Script)
               : part.content == HtmlContent::Style ? std::optional(SyntaxKind::Style)
                                                    : std::nullopt;
    case HtmlPartKind::AttributeName:
        return SyntaxKind::AttributeName;
    case HtmlPartKind::OpeningQuote:
    case HtmlPartKind::AttributeValue:
    case HtmlPartKind::ClosingQuote:
        return SyntaxKind::Value;
    case HtmlPartKind::CommentOpen:
    case HtmlPartKind::Comment:
    case HtmlPartKind::CommentClose:
        return SyntaxKind::Comment;
    case HtmlPartKind::DoctypeOpen:
    case HtmlPartKind::Doctype:
    case HtmlPartKind::DoctypeClose:
    case HtmlPartKind::CDataOpen:
    case HtmlPartKind::CDataClose:
        return SyntaxKind::Doctype;
    case HtmlPartKind::Equals:
        return std::nullopt;
    default:
        return SyntaxKind::Tag;
    }
}

/** Where references stand in a part, if they do. */
std::optional<ReferenceIn> ReferencesIn(const HtmlPart& part)
{
    if (part.kind == HtmlPartKind::AttributeValue) {
        return ReferenceIn::Value;
    }
    const bool isRead = part.kind == HtmlPartKind::Text && HoldsReferences(part.content);
    return isRead ? std::optional(ReferenceIn::Text) : std::nullopt;
}

class Pieces
{
public:
    void Add(HtmlSpan place, std::optional<SyntaxKind> kind)
    {
        if (!kind || place.length == 0) {
            return;
        }
        if (!all_.empty() && all_.back().kind == *kind && all_.back().place.End() == place.offset) {
            all_.back().place.length += place.length;
        } else {
            all_.push_back({ place, *kind });
        }
    }

    [[nodiscard]] std::vector<SyntaxPiece> Taken() { return std::move(all_); }

private:
    std::vector<SyntaxPiece> all_;
};

/** Adds a part whose references are pieces of their own. */
void AddWithReferences(Pieces& pieces, QStringView line, const HtmlPart& part, ReferenceIn where)
{
    const std::optional<SyntaxKind> kind = SyntaxKindOf(part);
    const QStringView text = part.place.In(line);
    qsizetype from = 0;
    for (auto found = NextReference(text, from, where); found; found = NextReference(text, from, where)) {
        pieces.Add({ part.place.offset + from, found->place.offset - from }, kind);
        pieces.Add({ part.place.offset + found->place.offset, found->place.length }, SyntaxKind::Reference);
        from = found->place.End();
    }
    pieces.Add({ part.place.offset + from, part.place.length - from }, kind);
}

} // namespace

std::vector<SyntaxPiece> SyntaxOf(QStringView line, HtmlState& state)
{
    HtmlScanner scanner(line, state, HtmlEnd::OfLine);
    Pieces pieces;
    for (HtmlPart part; scanner.Next(part);) {
        if (const std::optional<ReferenceIn> where = ReferencesIn(part)) {
            AddWithReferences(pieces, line, part, *where);
        } else {
            pieces.Add(part.place, SyntaxKindOf(part));
        }
    }
    state = scanner.State();
    return pieces.Taken();
}

void PassLine(QStringView line, HtmlState& state)
{
    HtmlScanner scanner(line, state, HtmlEnd::OfLine);
    for (HtmlPart part; scanner.Next(part);) {
    }
    state = scanner.State();
}
