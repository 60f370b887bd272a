#include "taglib/TagCatalogue.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

using enum TagLevel;

// A few entries are odd: their carets stand elsewhere than behind the opening text, or they insert another
// text than they show. Users know them by what they do, so they stay.

// clang-format off
constexpr auto nodes = std::to_array<TagNode>({
    { "HTML", "HTML Tags", Root },
    { "C2", "Document", Category },
    { "C3", "Base", Item, "<BASE HREF=\"", "\">", 12 },
    { "C4", "Doc Type", Item, "TYPE", "", caretAtEnd },
    { "C5", "Head", Item, "<HEAD>", "</HEAD>", 6 },
    { "C6", "HTML", Item, "<HTML>", "</HTML>", 6 },
    { "C7", "Is Index", Item, "<ISINDEX", ">", 8 },
    { "C8", "Link", Item, "<LINK", ">", 5 },
    { "C9", "Meta", Item, "<META", ">", 6 },
    { "C10", "NextID", Item, "<NEXTID", ">", 7 },
    { "C11", "Prompt", Item, "<PROMPT=\"", "\"", 9 },
    { "C12", "Range", Item, "<RANGE", ">", 6 },
    { "C13", "Role", Item, "ROLE", "", caretAtEnd },
    { "C14", "Style", Item, "<STYLE>", "</STYLE>", 7 },
    { "C15", "Title", Item, "<TITLE>", "</TITLE>", 7 },
    { "C16", "URN", Item, "URN", "", caretAtEnd },
    { "C100", "Body", Category },
    { "C101", "Active Link Color", Item, "ALINK=\"#", "\"", 8 },
    { "C102", "Background Color", Item, "BGCOLOR=\"", "\"", 9 },
    { "C103", "Background Image", Item, "BACKGROUND=\"", "\"", 12 },
    { "C104", "Background Sound", Item, "<BGSOUNDSRC=\"", "\">", 13 },
    { "C105", "Banner", Item, "BANNER=\"", "\"", 8 },
    { "C106", "Body", Item, "<BODY>", "</BODY>", 6 },
    { "C107", "Link Color", Item, "LINK=\"#", "\"", 7 },
    { "C108", "Text Color", Item, "TEXT=\"#", "\"", 7 },
    { "C109", "Visited Link Color", Item, "VLINK=\"#", "\"", 8 },
    { "C110", "Watermark", Item, "BGPROPERTIES=FIXED", "", caretAtEnd },
    { "C200", "Content", Category },
    { "C201", "Address", Item, "<ADDRESS>", "</ADDRESS>", 9 },
    { "C202", "Anchor", Item, "<A HREF=\"", "\"></A>", 9 },
    { "C203", "Block quote", Item, "<BLOCKQUOTE>", "</BLOCKQUOTE>", 12 },
    { "C204", "Break", Item, "<BR>", "", caretAtEnd },
    { "C205", "Credit", Item, "<CREDIT>", "</CREDIT>", 8 },
    { "C206", "Defining Instance", Item, "<DFN>", "</DFN>", 5 },
    { "C207", "Division", Item, "<DIV>", "</DIV>", 5 },
    { "C208", "Example", Item, "<XMP>", "</XMP>", 5 },
    { "C209", "Footnote", Item, "<FN>", "</FN>", 4 },
    { "C210", "Markup Block", Item, "<XBM>", "</XBM>", 5 },
    { "C211", "No Break", Item, "<NOBR>", "</NOBR>", 6 },
    { "C212", "Note", Item, "<NOTE>", "</NOTE>", 6 },
    { "C213", "Paragraph", Item, "<P>", "", caretAtEnd },
    { "C214", "Preformated Text", Item, "<PRE>", "</PRE>", 5 },
    { "C300", "Headings", Category },
    { "C301", "Heading1", Item, "<H1>", "</H1>", 4 },
    { "C302", "Heading2", Item, "<H2>", "</H2>", 4 },
    { "C303", "Heading3", Item, "<H3>", "</H3>", 4 },
    { "C304", "Heading4", Item, "<H4>", "</H4>", 4 },
    { "C305", "Heading5", Item, "<H5>", "</H5>", 4 },
    { "C306", "Heading6", Item, "<H6>", "</H6>", 4 },
    { "C400", "Attributes", Category },
    { "C401", "Align", Item, "ALIGN=", "", caretAtEnd },
    { "C402", "Centered", Item, "<CENTER>", "</CENTER>", 8 },
    { "C403", "Class", Item, "CLASS=", "", caretAtEnd },
    { "C404", "Clear", Item, "CLEAR=", "", caretAtEnd },
    { "C405", "Decimal Placeholder", Item, "DP\"", "\"LANGUAGE", 3 },
    { "C406", "Dingbat", Item, "DINGBAT", "", caretAtEnd },
    { "C407", "DYNSRC", Item, "DYNSRC\"", "\"", 7 },
    { "C408", "Href", Item, "HREF=\"", "\"", 6 },
    { "C409", "ID", Item, "ID=", "", caretAtEnd },
    { "C410", "Image Source", Item, "SRC=\"", "\"", 5 },
    { "C411", "Indent", Item, "INDENT=", "", caretAtEnd },
    { "C412", "Message Digest", Item, "MD=\"", "", caretAtEnd },
    { "C413", "Name", Item, "NAME=\"", "", caretAtEnd },
    { "C414", "No Flow", Item, "NOFLOW", "", caretAtEnd },
    { "C415", "No Shade", Item, "NOSHADE", "", caretAtEnd },
    { "C416", "No Wrap", Item, "NOWRAP", "", caretAtEnd },
    { "C417", "Relationship", Item, "REL=", "", caretAtEnd },
    { "C418", "Reverse Relationship", Item, "REV=", "", caretAtEnd },
    { "C419", "Sequence Number", Item, "SEQNUM", "", caretAtEnd },
    { "C420", "Skip", Item, "SKIP", "", caretAtEnd },
    { "C500", "Graphics", Category },
    { "C501", "Anchor Name", Item, "<A NAME=\"", "\"></A>", 9 },
    { "C502", "Alternate Text", Item, "ALT=\"", "\"", 5 },
    { "C503", "Border", Item, "BORDER=", "", caretAtEnd },
    { "C504", "Figure", Item, "<FIG", "", caretAtEnd },
    { "C505", "Height", Item, "HEIGHT=", "", caretAtEnd },
    { "C506", "Image", Item, "<IMG SRC=\"", "\">", 10 },
    { "C507", "Image Map", Item, "IMAGEMAP=", "", caretAtEnd },
    { "C508", "Is Map", Item, "ISMAP", "", caretAtEnd },
    { "C509", "Low Res", Item, "LOWSRC=\"", "", caretAtEnd },
    { "C510", "Shape", Item, "SHAPE=\"", "", caretAtEnd },
    { "C511", "Source", Item, "SRC=\"", "", caretAtEnd },
    { "C512", "Units", Item, "UNITS=PIXELS", "", caretAtEnd },
    { "C513", "Width", Item, "WIDTH=", "", caretAtEnd },
    { "C600", "Fonts", Category },
    { "C601", "Base Size", Item, "<BASEFONT", "", caretAtEnd },
    { "C602", "Big", Item, "<BIG>", "</BIG>", 5 },
    { "C603", "Blink", Item, "<BLINK>", "</BLINK>", 7 },
    { "C604", "Bold", Item, "<B>", "</B>", 3 },
    { "C605", "Color", Item, "COLOR=\"#", "\"", 8 },
    { "C606", "Deleted", Item, "<DEL>", "</DEL>", 5 },
    { "C607", "Emphasis", Item, "<EM>", "</EM>", 4 },
    { "C608", "Face", Item, "FACE=\"", "\"", 6 },
    { "C609", "Fixed-Width", Item, "<TT>", "</TT>", 4 },
    { "C610", "Font", Item, "<FONT>", "</FONT>", 6 },
    { "C611", "Italic", Item, "<I>", "</I>", 3 },
    { "C612", "Keyboard", Item, "<KBD>", "</KBD>", 5 },
    { "C613", "Size", Item, "SIZE=", "", caretAtEnd },
    { "C614", "Small", Item, "<SMALL>", "</SMALL>", 7 },
    { "C615", "Strikethrough", Item, "<S>", "</S>", 3 },
    { "C616", "Strong Emphasis", Item, "<STRONG>", "</STRONG>", 8 },
    { "C617", "Subscript", Item, "<SUB>", "</SUB>", 5 },
    { "C618", "Superscript", Item, "<SUP>", "</SUP>", 5 },
    { "C619", "Underline", Item, "<U>", "</U>", 3 },
    { "C700", "Lists", Category },
    { "C701", "Bulleted List", Item, "<UL>", "</UL>", 4 },
    { "C702", "Compact", Item, "COMPACT", "", caretAtEnd },
    { "C703", "Continue", Item, "CONTINUE", "", caretAtEnd },
    { "C704", "Definition Item", Item, "<DT>", "<DD>", 4 },
    { "C705", "Definition List", Item, "<DL>", "</DL>", 4 },
    { "C706", "Directory", Item, "<DIR>", "</DIR>", 5 },
    { "C707", "List Heading", Item, "<LH>", "</LH>", 4 },
    { "C708", "List Item", Item, "<LI>", "", caretAtEnd },
    { "C709", "Menu", Item, "<MENU>", "</MENU>", 6 },
    { "C710", "Numbered List", Item, "<OL>", "</OL>", 4 },
    { "C711", "Plain", Item, "PLAIN", "", caretAtEnd },
    { "C712", "Start Number", Item, "SEQNUM=", "", caretAtEnd },
    { "C713", "Type", Item, "TYPE=", "", caretAtEnd },
    { "C800", "Forms", Category },
    { "C801", "Action", Item, "ACTION=\"", "", caretAtEnd },
    { "C802", "Check Box", Item, "TYPE=CHECKBOX", "", caretAtEnd },
    { "C803", "Form", Item, "<FORM>", "</FORM>", 6 },
    { "C804", "Input", Item, "<INPUT", "", caretAtEnd },
    { "C805", "Method", Item, "METHOD=GET", "", caretAtEnd },
    { "C806", "MIME Encoding Type", Item, "ENCTYPE=\"application/x-www-form-urlencoded\"", "", caretAtEnd },
    { "C807", "Multiple", Item, "MULTIPLE", "", caretAtEnd },
    { "C808", "Form Name", Item, "NAME=\"", "", caretAtEnd },
    { "C809", "Form Size", Item, "SIZE=\"", "", caretAtEnd },
    { "C810", "Radio Button", Item, "TYPE=RADIO", "", caretAtEnd },
    { "C811", "Reset Button", Item, "TYPE=RESET", "", caretAtEnd },
    { "C812", "Script", Item, "SCRIPT=\"", "", caretAtEnd },
    { "C813", "Select List", Item, "<SELECT</SELECT>", "", caretAtEnd },
    { "C814", "Select List Item", Item, "<OPTION>", "", caretAtEnd },
    { "C815", "Selected", Item, "SELECTED", "", caretAtEnd },
    { "C816", "Submit Button", Item, "TYPE=SUBMIT", "", caretAtEnd },
    { "C817", "Text Area", Item, "<TEXTAREA</TEXTAREA>", "", caretAtEnd },
    { "C818", "Value", Item, "VALUE=", "", caretAtEnd },
    { "C900", "Tables", Category },
    { "C901", "Border", Item, "BORDER=", "", caretAtEnd },
    { "C902", "Caption", Item, "<CAPTION>", "</CAPTION>", 9 },
    { "C903", "Cellpadding", Item, "CELLPADDING=", "", caretAtEnd },
    { "C904", "Cellspacing", Item, "CELLSPACING=", "", caretAtEnd },
    { "C905", "Data", Item, "<TD>", "</TD>", 4 },
    { "C906", "Column Span", Item, "COLSPAN=", "", caretAtEnd },
    { "C907", "Table Header", Item, "<TH>", "</TH>", 4 },
    { "C908", "Row", Item, "<TR>", "</TR>", 4 },
    { "C909", "Row Span", Item, "ROWSPAN=", "", caretAtEnd },
    { "C910", "Table", Item, "<TABLE>", "</TABLE>", 7 },
    { "C1000", "Frames", Category },
    { "C1001", "IFrame", Item, "<IFRAME>", "</IFRAME>", 8 },
    { "C1002", "Frame Source", Item, "<FRAME SRC=\"", "\"", 12 },
    { "C1003", "Frameset Columns", Item, "<FRAMESET COLS=\"\">", "</FRAMESET>", 16 },
    { "C1004", "Frameset Rows", Item, "<FRAMESET ROWS=\"\">", "</FRAMESET>", 16 },
    { "C1005", "Frameborder", Item, "FRAMEBORDER=\"", "\"", 13 },
    { "C1006", "Margin Width", Item, "MARGINWIDTH=\"", "\"", 13 },
    { "C1007", "Margin Height", Item, "MARGINHEIGHT=\"", "\"", 14 },
    { "C1008", "No Frames", Item, "<NOFRAMES>", "</NOFRAMES>", 10 },
    { "C1009", "No Resize", Item, "NORESIZE", "", caretAtEnd },
    { "C1010", "Scrolling", Item, "SCROLLING=\"", "\"", 11 },
    { "C1100", "Miscellaneous", Category },
    { "C1101", "Abbreviation", Item, "<ABBREV>", "</ABBREV>", 8 },
    { "C1102", "Acronym", Item, "<ACRONYM>", "</ACRONYM>", 9 },
    { "C1103", "Applet", Item, "<APPLET>", "", caretAtEnd },
    { "C1104", "Citation", Item, "<CITE>", "</CITE>", 6 },
    { "C1105", "Comment", Item, "<!-- ", " -->", 4 },
    { "C1106", "Marquee", Item, "<MARQUEE>", "</MARQUEE>", 9 },
    { "C1107", "MultiCol", Item, "<MULTICOL=>", "", caretAtEnd },
    { "C1108", "No Embed", Item, "<NOEMBED>", "</NOEMBED>", 9 },
    { "C1109", "WBR", Item, "<WBR>", "", caretAtEnd },
});
// clang-format on

/** An item whose preview is not the text that it inserts. */
struct OtherPreview
{
    std::string_view Key;
    TagPreview Preview;
};

// clang-format off
constexpr auto otherPreviews = std::to_array<OtherPreview>({
    { "C11", { "PROMPT=\"", "\"" } },
    { "C102", { "BGCOLOR=\"#", "\"" } },
    { "C104", { "<BGSOUND SRC=\"", "\">" } },
    { "C202", { "<A HREF=\"\">", "</A>" } },
    { "C405", { "DP=\"", "\"LANGUAGE" } },
    { "C407", { "DYNSRC=\"", "\"" } },
    { "C501", { "<A NAME=\"\">", "</A>" } },
    { "C506", { "<IMG SRC=\"\">", "</IMG>" } },
    { "C704", { "<DT>", "</DD>" } },
    { "C808", { "NAME=\"\"", "" } },
    { "C813", { "<SELECT", "</SELECT>" } },
    { "C817", { "<TEXTAREA", "</TEXTAREA>" } },
    { "C818", { "VALUE=\"\"", "" } },
    { "C1105", { "<!--", "-->" } },
    { "C1106", { "<MARQUEE", "</MARQUEE>" } },
});
// clang-format on

constexpr std::ptrdiff_t CountOf(TagLevel level)
{
    return std::ranges::count(nodes, level, &TagNode::Level);
}

constexpr const TagNode* NodeOf(std::string_view key)
{
    const auto* const found = std::ranges::find(nodes, key, &TagNode::Key);
    return found != nodes.end() ? found : nullptr;
}

constexpr bool AreKeysUnique()
{
    return std::ranges::all_of(nodes, [](const TagNode& node) { return NodeOf(node.Key) == &node; });
}

constexpr bool IsInTreeOrder()
{
    return nodes[0].Level == Root && nodes[1].Level == Category && CountOf(Root) == 1;
}

/** Items insert something, and the others nothing; no caret goes beyond the text. */
constexpr bool IsMarkupSound(const TagNode& node)
{
    const auto length = static_cast<int>(node.Before.size() + node.After.size());
    return node.Level == Item ? !node.Before.empty() && node.Caret >= caretAtEnd && node.Caret <= length
                              : node.Before.empty() && node.After.empty() && node.Caret == caretAtEnd;
}

constexpr bool IsPreviewOfAnItem(const OtherPreview& other)
{
    const TagNode* const node = NodeOf(other.Key);
    return node != nullptr && node->Level == Item &&
           !(other.Preview == TagPreview{ node->Before, node->After });
}

static_assert(nodes.size() == 169 && CountOf(Category) == 12 && CountOf(Item) == 156);
static_assert(IsInTreeOrder() && AreKeysUnique());
static_assert(std::ranges::all_of(nodes, IsMarkupSound));
static_assert(otherPreviews.size() == 15 && std::ranges::all_of(otherPreviews, IsPreviewOfAnItem));

/** The category that keeps the preview when the mouse is let go. */
constexpr std::string_view keepsPreview = "C1100";
static_assert(NodeOf(keepsPreview)->Level == Category);

const TagNode* NodeAt(int index)
{
    const bool isNode = index >= 1 && index <= static_cast<int>(nodes.size());
    return isNode ? &nodes[static_cast<std::size_t>(index - 1)] : nullptr;
}

} // namespace

std::span<const TagNode> TagNodes()
{
    return nodes;
}

const TagNode* TagItem(int index)
{
    const TagNode* const node = NodeAt(index);
    return node != nullptr && node->Level == Item ? node : nullptr;
}

std::optional<TagPreview> PreviewOf(int index)
{
    const TagNode* const node = NodeAt(index);
    if (node == nullptr) {
        return std::nullopt;
    }
    const auto* const other = std::ranges::find(otherPreviews, node->Key, &OtherPreview::Key);
    return other != otherPreviews.end() ? other->Preview : TagPreview{ node->Before, node->After };
}

bool IsPreviewCleared(int index)
{
    const TagNode* const node = NodeAt(index);
    return node != nullptr && node->Level != Item && node->Key != keepsPreview;
}
