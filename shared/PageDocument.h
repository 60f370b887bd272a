#pragma once

#include "shared/DocumentSink.h"
#include "shared/TextEncoding.h"

#include <QList>
#include <memory>
#include <optional>

/** A part of a document; positions and lengths count a line end as CR LF. */
struct TextSpan
{
    qsizetype Start = 0;
    qsizetype Length = 0;

    bool operator==(const TextSpan&) const = default;
};

/** What comes in place of a part of a document. */
struct TextReplacement
{
    TextSpan Place;
    QString Text; ///< with any kind of line ends
};

/**
 * A part of a document that stays the same part while the text is edited. What is put in right at one of its
 * ends belongs to it, so undoing what has replaced it gives it back.
 */
class AnchoredRange
{
public:
    virtual ~AnchoredRange() = default;

    /** False once its document has been replaced by another, or is gone. */
    [[nodiscard]] virtual bool IsThere() const = 0;

    /** Where it is now; nothing at the beginning when it is not there. */
    [[nodiscard]] virtual TextSpan Place() const = 0;
};

/** The document being written, for windows that change it. */
class PageDocument : public DocumentSink
{
public:
    /** The file that it was read from or written to last; empty when there is none. */
    [[nodiscard]] virtual QString FileName() const = 0;

    /** What the user has chosen for it to be written in; without a choice it is Windows-1252, whatever the
     * page says of itself. */
    [[nodiscard]] virtual std::optional<TextEncoding> ChosenEncoding() const = 0;

    /** The whole text, with CR LF line ends. */
    [[nodiscard]] virtual QString Text() const = 0;

    /** The text at `place`, to which it is cut: of a long document in less time than the whole. */
    [[nodiscard]] virtual QString TextIn(const TextSpan& place) const
    {
        return Text().mid(place.Start, place.Length);
    }

    /** The line of a position, from 1. */
    [[nodiscard]] virtual int LineOf(qsizetype position) const
    {
        return int(TextIn({ 0, position }).count(u'\n')) + 1;
    }

    /** What is selected; without a selection it is empty, at the caret. */
    [[nodiscard]] virtual TextSpan Selection() const = 0;

    /** Selects a part of the text, to which it is cut, and brings it into sight. */
    virtual void Select(const TextSpan& place) = 0;

    /** Keeps hold of a part of the text. */
    [[nodiscard]] virtual std::unique_ptr<AnchoredRange> Anchor(const TextSpan& place) = 0;

    /**
     * Makes all of `replacements` in one step of undo. Their places are those before any of them is made, in
     * ascending order and apart from one another.
     */
    virtual void Replace(const QList<TextReplacement>& replacements) = 0;
};
