#pragma once

#include "html/HtmlTokens.h"

#include <QString>
#include <optional>

/** What a text holds of the code that templates and servers are written in. */
enum class TemplateCode : quint8 {
    None,
    Whole, ///< from its beginning to its end
    Cut    ///< the text ends within it
};

/** Looks for code of PHP, JSP, ERB, Jinja, Angular, JSX and their like. */
[[nodiscard]] TemplateCode TemplateCodeIn(QStringView text);

/**
 * A start tag of a page, read again from its place: the reading of a page keeps places alone, so that it
 * costs little even in the largest. Places are those in the page.
 */
class PageTag
{
public:
    /** `page` must outlive this. `tag` is the place of a whole start tag. */
    PageTag(QStringView page, const HtmlSpan& tag);

    /** The tag itself: its name, its slash and its attributes in their order. */
    [[nodiscard]] const HtmlToken& Token() const { return token_; }
    [[nodiscard]] const std::vector<HtmlAttribute>& Attributes() const { return token_.attributes; }

    [[nodiscard]] QStringView Page() const { return page_; }

    /** The attribute of that name, in small letters, that browsers see; nullptr if there is none. */
    [[nodiscard]] const HtmlAttribute* Find(QLatin1String name) const { return token_.Find(page_, name); }

    /** What browsers take for its value; empty for one without. */
    [[nodiscard]] QString ValueOf(const HtmlAttribute& attribute) const;

    /** The value of the attribute of that name; the null string if there is none. */
    [[nodiscard]] QString Value(QLatin1String name) const;

    [[nodiscard]] bool HoldsTemplate(const HtmlAttribute& attribute) const;

    /** `Cut` if a ">" of the code in it is what ends the tag, so that what was meant goes on behind it. */
    [[nodiscard]] TemplateCode Template() const;

private:
    QStringView page_;
    HtmlToken token_;
};
