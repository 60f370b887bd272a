#include "app/rules/EndTags.h"

#include "html/OpenElements.h"

QString EndTagAt(const QString& page, qsizetype caret)
{
    HtmlTokens tokens(page);
    OpenElements elements(page);
    for (HtmlToken token; tokens.Next(token) && token.whole.offset < caret;) {
        const bool isText = token.kind == HtmlToken::Kind::Text;
        if (token.whole.End() > caret && !isText) {
            return {};
        }
        if (token.content == HtmlContent::PlainText && isText) {
            return {}; // nothing ends it
        }
        elements.Take(token, tokens.State());
    }
    if (elements.Open().empty()) {
        return {};
    }
    return u"</" + elements.Open().back().name.In(page) + u'>';
}
