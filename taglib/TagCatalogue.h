#pragma once

#include <optional>
#include <span>
#include <string_view>

/** The level of a node in the tag tree: one root, under it categories, under these the items. */
enum class TagLevel { Root, Category, Item };

/** The caret stays where the insertion of an item ended. */
inline constexpr int caretAtEnd = -1;

/** One node of the tag tree; an item carries the markup that it stands for. All texts are ASCII. */
struct TagNode
{
    std::string_view Key;
    std::string_view Caption;
    TagLevel Level;
    std::string_view Before = {}; ///< goes before the selection
    std::string_view After = {};  ///< goes behind the selection; may be empty
    int Caret = caretAtEnd;       ///< characters from where the selection began, or `caretAtEnd`
};

/** What the preview shows of a node. */
struct TagPreview
{
    std::string_view Opening;
    std::string_view Closing;

    bool operator==(const TagPreview&) const = default;
};

/** Every node in tree order, a category before its items. The index of a node is its place here, from 1. */
[[nodiscard]] std::span<const TagNode> TagNodes();

/** The item of that index, or nullptr for the root, a category and any other number. */
[[nodiscard]] const TagNode* TagItem(int index);

/** The preview of the node of that index, empty for root and categories; nothing for any other number. */
[[nodiscard]] std::optional<TagPreview> PreviewOf(int index);

/** Whether letting go of the mouse over the tree clears the preview while the node of that index is selected.
 */
[[nodiscard]] bool IsPreviewCleared(int index);
