#pragma once

#include "html/HtmlScanner.h"

#include <vector>

/** What a piece of the source is to whoever reads it in colours. Text between tags has no kind. */
enum class SyntaxKind : quint8 { Tag, AttributeName, Value, Reference, Comment, Doctype, Script, Style };

struct SyntaxPiece
{
    HtmlSpan place;
    SyntaxKind kind = SyntaxKind::Tag;

    bool operator==(const SyntaxPiece&) const = default;
};

/**
 * The pieces of a line, in order and apart from one another; neighbours of one kind are one. `state` is the
 * one at the line's start, and becomes that at the start of the next.
 */
[[nodiscard]] std::vector<SyntaxPiece> SyntaxOf(QStringView line, HtmlState& state);

/** Passes over a line: `state`, the one at its start, becomes that at the start of the next. */
void PassLine(QStringView line, HtmlState& state);
