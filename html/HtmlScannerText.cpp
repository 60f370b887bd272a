// The modes in which all is text up to the end tag of the element.

#include "html/HtmlScanner.h"

namespace {

constexpr QLatin1String scriptName("script");

bool EndsName(int character)
{
    return IsHtmlSpace(character) || character == '/' || character == '>';
}

/** Whether the "<" there begins the end tag `name`. */
bool IsEndTagAt(const HtmlCursor& cursor, qsizetype at, QLatin1String name)
{
    return cursor.At(at + 1) == '/' && cursor.HasWord(at + 2, name) &&
           EndsName(cursor.At(at + 2 + name.size()));
}

/** Reads a script, which goes from mode to mode as it hides its own end tag in comments. */
class ScriptReader
{
public:
    ScriptReader(const HtmlCursor& cursor, HtmlMode& mode)
        : cursor_(cursor)
        , mode_(mode)
    {
    }

    /** Where the script's end tag begins, or the end of the text. */
    qsizetype End()
    {
        qsizetype at = cursor_.at;
        while (at < cursor_.text.size() && !(cursor_.text[at] == u'<' && IsEnd(at))) {
            at = mode_ == HtmlMode::Script ? Pass(at) : PassEscaped(at);
        }
        return at;
    }

private:
    [[nodiscard]] bool IsEnd(qsizetype at) const
    {
        return mode_ != HtmlMode::ScriptDoubleEscaped && IsEndTagAt(cursor_, at, scriptName);
    }

    /** Passes over what stands before the next "<", or over that. */
    qsizetype Pass(qsizetype at)
    {
        if (cursor_.text[at] != u'<') {
            return cursor_.Find(u'<', at);
        }
        if (cursor_.HasWord(at, QLatin1String("<!--"))) {
            mode_ = HtmlMode::ScriptEscaped;
            // Its dashes may be those of "-->" as well.
            return at + 2;
        }
        return at + 1;
    }

    qsizetype PassEscaped(qsizetype at)
    {
        const bool isDouble = mode_ == HtmlMode::ScriptDoubleEscaped;
        if (cursor_.text[at] == u'-') {
            return PassDashes(at);
        }
        if (cursor_.text[at] == u'<') {
            const qsizetype name = at + (isDouble ? 2 : 1);
            const bool isTag = (!isDouble || cursor_.At(at + 1) == '/') && cursor_.HasWord(name, scriptName);
            if (isTag && EndsName(cursor_.At(name + scriptName.size()))) {
                mode_ = isDouble ? HtmlMode::ScriptEscaped : HtmlMode::ScriptDoubleEscaped;
            }
        }
        return at + 1;
    }

    /** Passes over a run of dashes; two of them or more end the escape if a ">" follows. */
    qsizetype PassDashes(qsizetype at)
    {
        qsizetype end = at;
        while (cursor_.At(end) == '-') {
            ++end;
        }
        if (end - at >= 2 && cursor_.At(end) == '>') {
            mode_ = HtmlMode::Script;
        }
        return end;
    }

    const HtmlCursor& cursor_;
    HtmlMode& mode_;
};

} // namespace

bool HtmlScanner::ReadPlainText()
{
    return EmitText(HtmlContent::PlainText, cursor_.text.size());
}

bool HtmlScanner::ReadRawText()
{
    const QLatin1String name = NameOf(state_.tag);
    qsizetype end = cursor_.Find(u'<');
    while (end < cursor_.text.size() && !IsEndTagAt(cursor_, end, name)) {
        end = cursor_.Find(u'<', end + 1);
    }
    return ReadTextUpTo(end);
}

bool HtmlScanner::ReadScript()
{
    return ReadTextUpTo(ScriptReader(cursor_, state_.mode).End());
}

/** Makes a part of the text before the end tag, and when there is none, of the tag's beginning. */
bool HtmlScanner::ReadTextUpTo(qsizetype end)
{
    if (end > cursor_.at) {
        return EmitText(ContentOf(state_.tag), end);
    }
    state_.isEndTag = true;
    return Emit(HtmlPartKind::EndTagOpen, 2, HtmlMode::TextEndTagName);
}
