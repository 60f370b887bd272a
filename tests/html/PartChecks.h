#pragma once

#include "html/HtmlNames.h"
#include "html/HtmlScanner.h"

#include <vector>

// What must be true of the parts of any text.

inline bool IsSamePart(const HtmlPart& one, const HtmlPart& other)
{
    return one.place == other.place && one.kind == other.kind && one.content == other.content &&
           one.isError == other.isError;
}

inline std::vector<HtmlPart> PartsOf(QStringView text)
{
    HtmlScanner scanner(text);
    std::vector<HtmlPart> parts;
    for (HtmlPart part; scanner.Next(part);) {
        parts.push_back(part);
    }
    return parts;
}

/** Whether the parts stand one behind the other and leave out blanks alone. */
inline bool CoverAllButBlanks(const std::vector<HtmlPart>& parts, QStringView text)
{
    qsizetype end = 0;
    const auto isBlankUpTo = [&end, text](qsizetype start) {
        const QStringView between = text.sliced(end, start - end);
        return std::ranges::all_of(between, [](QChar character) { return IsHtmlSpace(character.unicode()); });
    };
    for (const HtmlPart& part : parts) {
        if (part.place.length <= 0 || part.place.offset < end || part.place.End() > text.size() ||
            !isBlankUpTo(part.place.offset)) {
            return false;
        }
        end = part.place.End();
    }
    return isBlankUpTo(text.size());
}

/** The lines of a text, without their ends. */
inline std::vector<HtmlSpan> LinesOf(QStringView text)
{
    std::vector<HtmlSpan> lines;
    qsizetype start = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'\n' || text[at] == u'\r') {
            lines.push_back({ start, at - start });
            at += text.sliced(at).startsWith(u"\r\n") ? 1 : 0;
            start = at + 1;
        }
    }
    lines.push_back({ start, text.size() - start });
    return lines;
}

/** A text cut into pieces behind every blank and every ">". */
inline std::vector<HtmlSpan> PiecesOf(QStringView text)
{
    std::vector<HtmlSpan> pieces;
    qsizetype start = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        if (text[at] == u'>' || IsHtmlSpace(text[at].unicode())) {
            pieces.push_back({ start, at + 1 - start });
            start = at + 1;
        }
    }
    pieces.push_back({ start, text.size() - start });
    return pieces;
}

/** What scanners find that read one piece each and hand on their state. */
inline std::vector<HtmlPart> PartsByPiece(QStringView text, const std::vector<HtmlSpan>& pieces)
{
    std::vector<HtmlPart> parts;
    HtmlState state;
    for (const HtmlSpan& piece : pieces) {
        const bool isLast = &piece == &pieces.back();
        HtmlScanner scanner(piece.In(text), state, isLast ? HtmlEnd::OfPage : HtmlEnd::OfLine);
        for (HtmlPart part; scanner.Next(part);) {
            part.place.offset += piece.offset;
            parts.push_back(part);
        }
        state = scanner.State();
    }
    return parts;
}

/** Parts of the whole text, cut into those of its pieces. */
inline std::vector<HtmlPart> CutParts(const std::vector<HtmlPart>& parts, const std::vector<HtmlSpan>& pieces)
{
    std::vector<HtmlPart> cut;
    auto piece = pieces.begin();
    for (const HtmlPart& part : parts) {
        while (piece->End() <= part.place.offset && piece + 1 != pieces.end()) {
            ++piece;
        }
        for (auto one = piece; one != pieces.end() && one->offset < part.place.End(); ++one) {
            HtmlPart inPiece = part;
            inPiece.place.offset = std::max(part.place.offset, one->offset);
            inPiece.place.length = std::min(part.place.End(), one->End()) - inPiece.place.offset;
            if (inPiece.place.length > 0) {
                cut.push_back(inPiece);
            }
        }
    }
    return cut;
}

/** Whether reading piece by piece finds the parts of the whole text. */
inline bool
IsSameByPiece(QStringView text, const std::vector<HtmlPart>& parts, const std::vector<HtmlSpan>& pieces)
{
    return std::ranges::equal(PartsByPiece(text, pieces), CutParts(parts, pieces), IsSamePart);
}
