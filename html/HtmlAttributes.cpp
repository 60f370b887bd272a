#include "html/HtmlAttributes.h"

#include "html/HtmlNames.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace {

struct ElementAttributes
{
    QLatin1String Element;
    std::string_view Attributes; ///< with blanks between
};

/** Each element that has attributes of its own. */
constexpr auto elementAttributes = std::to_array<ElementAttributes>({
    { QLatin1String("a"), "charset coords download href hreflang name ping rel rev shape target type" },
    { QLatin1String("applet"), "align alt archive code codebase height hspace name object vspace width" },
    { QLatin1String("area"), "alt coords download href hreflang name nohref ping rel shape target type" },
    { QLatin1String("audio"), "autoplay controls crossorigin loop muted preload src" },
    { QLatin1String("base"), "href target" },
    { QLatin1String("basefont"), "color face size" },
    { QLatin1String("bgsound"), "balance loop src volume" },
    { QLatin1String("blockquote"), "cite" },
    { QLatin1String("body"),
      "alink background bgcolor bottommargin leftmargin link marginheight marginwidth onload onunload "
      "rightmargin text topmargin vlink" },
    { QLatin1String("br"), "clear" },
    { QLatin1String("button"), "disabled form formaction name type value" },
    { QLatin1String("canvas"), "height width" },
    { QLatin1String("caption"), "align valign" },
    { QLatin1String("col"), "align bgcolor span valign width" },
    { QLatin1String("colgroup"), "align bgcolor span valign width" },
    { QLatin1String("del"), "cite datetime" },
    { QLatin1String("details"), "name open" },
    { QLatin1String("dialog"), "open" },
    { QLatin1String("div"), "align" },
    { QLatin1String("embed"), "align height hidden hspace name pluginspage src type vspace width" },
    { QLatin1String("fieldset"), "disabled form name" },
    { QLatin1String("font"), "color face size" },
    { QLatin1String("form"),
      "accept-charset action autocomplete enctype method name novalidate onreset onsubmit target" },
    { QLatin1String("frame"),
      "bordercolor frameborder longdesc marginheight marginwidth name noresize scrolling src" },
    { QLatin1String("frameset"), "border bordercolor cols frameborder framespacing onload rows" },
    { QLatin1String("h1"), "align" },
    { QLatin1String("h2"), "align" },
    { QLatin1String("h3"), "align" },
    { QLatin1String("h4"), "align" },
    { QLatin1String("h5"), "align" },
    { QLatin1String("h6"), "align" },
    { QLatin1String("hr"), "align color noshade size width" },
    { QLatin1String("html"), "manifest version xmlns" },
    { QLatin1String("iframe"),
      "align allow allowfullscreen frameborder height loading longdesc marginheight marginwidth name "
      "referrerpolicy sandbox scrolling src srcdoc width" },
    { QLatin1String("img"),
      "align alt border crossorigin decoding fetchpriority height hspace ismap loading longdesc lowsrc name "
      "referrerpolicy sizes src srcset usemap vspace width" },
    { QLatin1String("input"),
      "accept align alt autocomplete checked disabled form formaction height list max maxlength min "
      "minlength multiple name pattern placeholder readonly required size src step type usemap value width" },
    { QLatin1String("ins"), "cite datetime" },
    { QLatin1String("label"), "for" },
    { QLatin1String("layer"),
      "above background below bgcolor clip height left name src top visibility width z-index" },
    { QLatin1String("legend"), "align" },
    { QLatin1String("li"), "type value" },
    { QLatin1String("link"),
      "as charset crossorigin href hreflang integrity media referrerpolicy rel rev sizes target type" },
    { QLatin1String("map"), "name" },
    { QLatin1String("marquee"),
      "behavior bgcolor direction height hspace loop scrollamount scrolldelay vspace width" },
    { QLatin1String("meta"), "charset content http-equiv media name property scheme" },
    { QLatin1String("meter"), "high low max min optimum value" },
    { QLatin1String("object"),
      "align archive border classid codebase codetype data declare form height hspace name standby type "
      "usemap vspace width" },
    { QLatin1String("ol"), "compact reversed start type" },
    { QLatin1String("optgroup"), "disabled label" },
    { QLatin1String("option"), "disabled label selected value" },
    { QLatin1String("output"), "for form name" },
    { QLatin1String("p"), "align" },
    { QLatin1String("param"), "name type value valuetype" },
    { QLatin1String("pre"), "width" },
    { QLatin1String("progress"), "max value" },
    { QLatin1String("q"), "cite" },
    { QLatin1String("script"),
      "async charset crossorigin defer integrity language nomodule referrerpolicy src type" },
    { QLatin1String("select"), "autocomplete disabled form multiple name required size" },
    { QLatin1String("source"), "height media sizes src srcset type width" },
    { QLatin1String("style"), "media type" },
    { QLatin1String("table"), "align background bgcolor border bordercolor cellpadding cellspacing frame "
                              "height rules summary width" },
    { QLatin1String("tbody"), "align valign" },
    { QLatin1String("td"), "abbr align axis background bgcolor bordercolor colspan headers height nowrap "
                           "rowspan scope valign width" },
    { QLatin1String("textarea"),
      "autocomplete cols disabled form maxlength minlength name placeholder readonly required rows wrap" },
    { QLatin1String("tfoot"), "align valign" },
    { QLatin1String("th"), "abbr align axis background bgcolor bordercolor colspan headers height nowrap "
                           "rowspan scope valign width" },
    { QLatin1String("thead"), "align valign" },
    { QLatin1String("time"), "datetime" },
    { QLatin1String("tr"), "align bgcolor bordercolor height valign" },
    { QLatin1String("track"), "default kind label src srclang" },
    { QLatin1String("ul"), "compact type" },
    { QLatin1String("video"),
      "autoplay controls crossorigin height loop muted playsinline poster preload src width" },
});

/** Those of every element. */
constexpr std::string_view commonAttributes =
    "accesskey class contenteditable dir draggable hidden id inert lang onblur onchange onclick ondblclick "
    "onfocus onkeydown onkeypress onkeyup onmousedown onmousemove onmouseout onmouseover onmouseup role "
    "style "
    "tabindex title translate";

constexpr std::string_view attributesWithoutValue =
    "allowfullscreen async autoplay checked compact controls declare default defer disabled hidden inert "
    "ismap loop "
    "multiple muted nohref nomodule noresize noshade novalidate nowrap open playsinline readonly required "
    "reversed "
    "selected";

struct AttributeValues
{
    QLatin1String Element; ///< empty for all others
    QLatin1String Attribute;
    std::string_view Values; ///< with blanks between
};

/** The rows of single elements come before those of all. */
constexpr auto attributeValues = std::to_array<AttributeValues>({
    { QLatin1String("img"), QLatin1String("align"), "bottom left middle right top" },
    { QLatin1String("input"), QLatin1String("type"),
      "button checkbox color date datetime-local email file hidden image month number password radio range "
      "reset "
      "search submit tel text time url week" },
    { QLatin1String("button"), QLatin1String("type"), "button reset submit" },
    { QLatin1String("ol"), QLatin1String("type"), "1 A I a i" },
    { QLatin1String("ul"), QLatin1String("type"), "circle disc square" },
    { QLatin1String("script"), QLatin1String("type"), "module text/javascript" },
    { QLatin1String("style"), QLatin1String("type"), "text/css" },
    { QLatin1String("link"), QLatin1String("rel"), "alternate icon manifest preload stylesheet" },
    { QLatin1String("link"), QLatin1String("type"), "image/png text/css" },
    { QLatin1String("a"), QLatin1String("rel"), "external nofollow noopener noreferrer" },
    { QLatin1String("meta"), QLatin1String("charset"), "utf-8 windows-1252" },
    { QLatin1String("meta"), QLatin1String("http-equiv"), "Content-Type refresh" },
    { QLatin1String("meta"), QLatin1String("name"), "author description generator keywords robots viewport" },
    { QLatin1String("br"), QLatin1String("clear"), "all left none right" },
    { QLatin1String("form"), QLatin1String("method"), "get post" },
    { QLatin1String("form"), QLatin1String("enctype"),
      "application/x-www-form-urlencoded multipart/form-data text/plain" },
    { QLatin1String("table"), QLatin1String("frame"), "above below border box hsides lhs rhs void vsides" },
    { QLatin1String("table"), QLatin1String("rules"), "all cols groups none rows" },
    { QLatin1String("marquee"), QLatin1String("behavior"), "alternate scroll slide" },
    { QLatin1String("marquee"), QLatin1String("direction"), "down left right up" },
    { QLatin1String("textarea"), QLatin1String("wrap"), "hard off soft" },
    { QLatin1String("track"), QLatin1String("kind"), "captions chapters descriptions metadata subtitles" },
    { QLatin1String(), QLatin1String("align"), "center justify left right" },
    { QLatin1String(), QLatin1String("valign"), "baseline bottom middle top" },
    { QLatin1String(), QLatin1String("dir"), "auto ltr rtl" },
    { QLatin1String(), QLatin1String("target"), "_blank _parent _self _top" },
    { QLatin1String(), QLatin1String("shape"), "circle default poly rect" },
    { QLatin1String(), QLatin1String("loading"), "eager lazy" },
    { QLatin1String(), QLatin1String("decoding"), "async auto sync" },
    { QLatin1String(), QLatin1String("preload"), "auto metadata none" },
    { QLatin1String(), QLatin1String("scrolling"), "auto no yes" },
    { QLatin1String(), QLatin1String("frameborder"), "0 1" },
    { QLatin1String(), QLatin1String("crossorigin"), "anonymous use-credentials" },
    { QLatin1String(), QLatin1String("scope"), "col colgroup row rowgroup" },
    { QLatin1String(), QLatin1String("contenteditable"), "false true" },
    { QLatin1String(), QLatin1String("draggable"), "false true" },
    { QLatin1String(), QLatin1String("translate"), "no yes" },
    { QLatin1String(), QLatin1String("autocomplete"), "off on" },
    { QLatin1String(), QLatin1String("media"), "all print screen" },
});

QStringList WordsOf(std::string_view words)
{
    return QString::fromLatin1(words.data(), static_cast<qsizetype>(words.size())).split(u' ');
}

} // namespace

QStringList AttributesOf(QStringView element)
{
    QStringList attributes = WordsOf(commonAttributes);
    const auto* const own = std::find_if(
        elementAttributes.begin(), elementAttributes.end(),
        [element](const ElementAttributes& row) { return IsName(element, row.Element); });
    if (own != elementAttributes.end()) {
        attributes += WordsOf(own->Attributes);
    }
    attributes.sort();
    attributes.removeDuplicates();
    return attributes;
}

bool IsWithoutValue(QStringView attribute)
{
    return WordsOf(attributesWithoutValue).contains(attribute, Qt::CaseInsensitive);
}

QStringList ValuesOf(QStringView element, QStringView attribute)
{
    const auto* const row =
        std::find_if(attributeValues.begin(), attributeValues.end(), [&](const AttributeValues& one) {
            return IsName(attribute, one.Attribute) &&
                   (one.Element.isEmpty() || IsName(element, one.Element));
        });
    return row == attributeValues.end() ? QStringList() : WordsOf(row->Values);
}
