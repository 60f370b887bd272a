// The modes in which all is text up to the end tag of the element.

#include "html/HtmlScanner.h"

namespace {

constexpr QLatin1String scriptName("script");

bool EndsName(int character)
{
    return IsHtmlSpace(character) || character == '/' || character == '>';
}

} // namespace

bool HtmlScanner::ReadPlainText()
{
    return EmitText(HtmlContent::PlainText, text_.size());
}

/** Whether the end tag `name` begins there. */
bool HtmlScanner::IsEndTagAt(qsizetype at, QLatin1String name) const
{
    return At(at + 1) == '/' && HasWord(at + 2, name) && EndsName(At(at + 2 + name.size()));
}

bool HtmlScanner::ReadRawText()
{
    const QLatin1String name = NameOf(state_.tag);
    qsizetype end = Find(u'<');
    while (end < text_.size() && !IsEndTagAt(end, name)) {
        end = OrEnd(text_.indexOf(u'<', end + 1));
    }
    return ReadTextUpTo(end);
}

bool HtmlScanner::ReadScript()
{
    return ReadTextUpTo(ScriptEnd());
}

/** Makes a part of the text before the end tag, and when there is none, of the tag's beginning. */
bool HtmlScanner::ReadTextUpTo(qsizetype end)
{
    if (end > at_) {
        return EmitText(ContentOf(state_.tag), end);
    }
    state_.isEndTag = true;
    return Emit(HtmlPartKind::EndTagOpen, 2, HtmlMode::TextEndTagName);
}

/** Where the script's end tag begins, or the end of the text; goes from mode to mode as the script does. */
qsizetype HtmlScanner::ScriptEnd()
{
    qsizetype at = at_;
    while (at < text_.size() && !(text_[at] == u'<' && IsScriptEnd(at))) {
        at = state_.mode == HtmlMode::Script ? PassScript(at) : PassEscapedScript(at);
    }
    return at;
}

bool HtmlScanner::IsScriptEnd(qsizetype at) const
{
    return state_.mode != HtmlMode::ScriptDoubleEscaped && IsEndTagAt(at, scriptName);
}

/** Passes over what stands before the next "<", or over that. */
qsizetype HtmlScanner::PassScript(qsizetype at)
{
    if (text_[at] != u'<') {
        return OrEnd(text_.indexOf(u'<', at));
    }
    if (HasWord(at, QLatin1String("<!--"))) {
        state_.mode = HtmlMode::ScriptEscaped;
        // Its dashes may be those of "-->" as well.
        return at + 2;
    }
    return at + 1;
}

qsizetype HtmlScanner::PassEscapedScript(qsizetype at)
{
    const bool isDouble = state_.mode == HtmlMode::ScriptDoubleEscaped;
    if (text_[at] == u'-') {
        return PassDashes(at);
    }
    if (text_[at] == u'<') {
        const qsizetype name = at + (isDouble ? 2 : 1);
        const bool isTag = (!isDouble || At(at + 1) == '/') && HasWord(name, scriptName);
        if (isTag && EndsName(At(name + scriptName.size()))) {
            state_.mode = isDouble ? HtmlMode::ScriptEscaped : HtmlMode::ScriptDoubleEscaped;
        }
    }
    return at + 1;
}

/** Passes over a run of dashes; two of them or more end the escape if a ">" follows. */
qsizetype HtmlScanner::PassDashes(qsizetype at)
{
    qsizetype end = at;
    while (At(end) == '-') {
        ++end;
    }
    if (end - at >= 2 && At(end) == '>') {
        state_.mode = HtmlMode::Script;
    }
    return end;
}
