#include "app/SyntaxColours.h"

#include "app/Shades.h"
#include "app/SourceEditor.h"

#include <QAbstractTextDocumentLayout>
#include <QPaintEvent>
#include <QSignalBlocker>
#include <algorithm>
#include <chrono>

namespace {

/** So many characters are read before other events have their turn. */
constexpr qsizetype mostAtOnce = 1 << 18;
/** The lines behind an edit follow it after so long: a tag that is being typed would change them at every
 * key. */
constexpr auto pauseInTyping = std::chrono::milliseconds(200);
/** A ground darker than this is a dark one. */
constexpr int middleOfLightness = 128;

struct Look
{
    SyntaxKind Kind;
    QColor OnLight;
    QColor OnDark;
};

constexpr std::array looks = {
    Look{ SyntaxKind::Tag, { 0x1A, 0x4F, 0xA3 }, { 0x7F, 0xB4, 0xF5 } },
    Look{ SyntaxKind::AttributeName, { 0x8A, 0x4B, 0x08 }, { 0xE0, 0xB0, 0x6A } },
    Look{ SyntaxKind::Value, { 0x1E, 0x6E, 0x2E }, { 0x8C, 0xCF, 0x8C } },
    Look{ SyntaxKind::Reference, { 0xA0, 0x20, 0x80 }, { 0xE8, 0x98, 0xD0 } },
    Look{ SyntaxKind::Comment, { 0x6A, 0x6A, 0x6A }, { 0xA0, 0xA0, 0xA0 } },
    Look{ SyntaxKind::Doctype, { 0x5A, 0x3E, 0x9E }, { 0xB8, 0xA2, 0xF0 } },
    Look{ SyntaxKind::Script, { 0x8B, 0x1A, 0x1A }, { 0xF0, 0x9A, 0x8A } },
    Look{ SyntaxKind::Style, { 0x00, 0x6B, 0x75 }, { 0x6F, 0xC8, 0xCF } },
};

constexpr bool AreLooksInOrder()
{
    for (std::size_t i = 0; i < looks.size(); ++i) {
        if (looks[i].Kind != static_cast<SyntaxKind>(i)) {
            return false;
        }
    }
    return looks.size() == std::size_t(SyntaxKind::Style) + 1;
}
static_assert(AreLooksInOrder());

using Range = QTextLayout::FormatRange;

/** Takes the characters from `start` to `end` out of `ranges`. */
QList<Range> Without(const QList<Range>& ranges, int start, int end)
{
    QList<Range> rest;
    for (const Range& range : ranges) {
        const int rangeEnd = range.start + range.length;
        if (range.start < start) {
            rest << Range{ range.start, std::min(rangeEnd, start) - range.start, range.format };
        }
        if (rangeEnd > end) {
            const int from = std::max(range.start, end);
            rest << Range{ from, rangeEnd - from, range.format };
        }
    }
    return rest;
}

/** Lets what is being composed in the line keep its own formats, and moves those behind it. */
QList<Range> AroundComposed(const QList<Range>& ranges, const QTextLayout& layout)
{
    const int start = layout.preeditAreaPosition();
    const auto length = static_cast<int>(layout.preeditAreaText().size());
    QList<Range> all;
    for (const Range& range : ranges) {
        if (range.start < start) {
            all << Range{ range.start, std::min(range.length, start - range.start), range.format };
        }
        const int from = std::max(range.start, start);
        if (range.start + range.length > from) {
            all << Range{ from + length, range.start + range.length - from, range.format };
        }
    }
    for (const Range& range : layout.formats()) {
        if (range.start >= start && range.start + range.length <= start + length) {
            all << range;
        }
    }
    return all;
}

} // namespace

SyntaxColours::SyntaxColours(SourceEditor& editor)
    : editor_(editor)
    , states_(*editor.document())
{
    TakeColours();
    later_.setSingleShot(true);
    later_.setInterval(0);
    connect(&later_, &QTimer::timeout, this, &SyntaxColours::ReadOn);
    pause_.setSingleShot(true);
    pause_.setInterval(pauseInTyping);
    connect(&pause_, &QTimer::timeout, this, [this] {
        isStale_ = true;
        ColourSeen({});
    });
    connect(
        editor_.document(), &QTextDocument::contentsChange, this, &SyntaxColours::Document_ContentsChange);
    editor_.viewport()->installEventFilter(this);
    editor_.viewport()->update();
}

std::optional<HtmlState> SyntaxColours::StateAt(const QTextBlock& block)
{
    return states_.At(block, mostAtOnce);
}

void SyntaxColours::TakeAway()
{
    for (QTextBlock block = editor_.document()->begin(); block.isValid(); block = block.next()) {
        if (block.userData() != nullptr) {
            if (MemoryOf(block).isColoured) {
                block.layout()->clearFormats();
            }
            block.setUserData(nullptr);
        }
    }
    editor_.document()->markContentsDirty(0, 0);
    editor_.viewport()->update();
}

void SyntaxColours::Document_ContentsChange(int position, int removed, int added)
{
    states_.NoteChange(position, removed, added);
    const bool isFirst = !isStale_;
    editStart_ = isFirst ? position : std::min(editStart_, position);
    editEnd_ = isFirst ? position + added : std::max(editEnd_, position) + added;
    isStale_ = true;
    pause_.start();
}

void SyntaxColours::TakeColours()
{
    const QColor ground = CurrentLineGround(editor_.palette());
    const QColor text = editor_.palette().color(QPalette::Text);
    const bool isDark = ground.lightness() < middleOfLightness;
    for (const Look& look : looks) {
        const QColor colour = ReadableOn(ground, isDark ? look.OnDark : look.OnLight, text);
        looks_[static_cast<std::size_t>(look.Kind)].setForeground(colour);
    }
    isStale_ = true;
}

bool SyntaxColours::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        TakeColours();
    } else if (event->type() == QEvent::Paint) {
        ColourSeen(static_cast<QPaintEvent*>(event)->rect());
    }
    return QObject::eventFilter(watched, event);
}

/** Reads on towards what is seen, which is far behind what has been read. */
void SyntaxColours::ReadOn()
{
    if (states_.At(editor_.firstVisibleBlock(), mostAtOnce)) {
        editor_.viewport()->update();
    } else {
        later_.start();
    }
}

/** Colours the lines that are seen, of which the part in `painted` is about to be painted. */
void SyntaxColours::ColourSeen(const QRect& painted)
{
    const QAbstractTextDocumentLayout& layout = *editor_.document()->documentLayout();
    const QTextBlock first = editor_.firstVisibleBlock();
    const double top = editor_.blockBoundingGeometry(first).translated(editor_.contentOffset()).top();
    const int height = editor_.viewport()->height();
    const QTextBlock edited = editor_.document()->findBlock(editStart_);
    double editedTop = top;
    QTextBlock end = first;
    for (double y = top; end.isValid() && y < height; end = end.next()) {
        editedTop = end == edited ? y : editedTop;
        y += layout.blockBoundingRect(end).height();
    }
    const int endPosition = end.isValid() ? end.position() : editor_.document()->characterCount();
    if (!isStale_ && first.position() == firstSeen_ && endPosition == endSeen_) {
        return;
    }
    // Whoever scrolls while typing sees other lines, too.
    const bool isTyping = pause_.isActive() && first.position() == firstSeen_;
    isStale_ = false;
    firstSeen_ = first.position();
    endSeen_ = endPosition;
    if (isTyping && edited.position() >= first.position()) {
        ColourFrom(edited, std::min(endPosition, editEnd_ + 1), editedTop, painted);
    } else {
        ColourFrom(first, isTyping ? std::min(endPosition, editEnd_ + 1) : endPosition, top, painted);
    }
}

/** Colours the lines that begin before `end`, the first of which is at `top`. */
void SyntaxColours::ColourFrom(const QTextBlock& first, int end, double top, const QRect& painted)
{
    const QAbstractTextDocumentLayout& layout = *editor_.document()->documentLayout();
    std::optional<HtmlState> state;
    int changedFrom = -1;
    bool isPainted = true;
    for (QTextBlock block = first; block.isValid() && block.position() < end; block = block.next()) {
        const double bottom = top + layout.blockBoundingRect(block).height();
        state = state ? state : states_.At(block, mostAtOnce);
        if (!state) {
            isStale_ = true;
            later_.start();
            break;
        }
        if (ColourLine(block, *state)) {
            changedFrom = changedFrom < 0 ? block.position() : changedFrom;
            isPainted = isPainted && top >= painted.top() && bottom <= painted.bottom() + 1;
        }
        top = bottom;
    }
    if (changedFrom >= 0) {
        // The layout lays these lines out anew when they are painted; it would have everything painted again.
        const QSignalBlocker quiet(editor_.document()->documentLayout());
        editor_.document()->markContentsDirty(changedFrom, 0);
        if (!isPainted) {
            editor_.viewport()->update();
        }
    }
}

/** Colours one line, whose state becomes that of the next; true when it had other colours. */
bool SyntaxColours::ColourLine(const QTextBlock& block, HtmlState& state)
{
    QTextLayout* const layout = block.layout();
    Formats formats = FormatsOf(block, state);
    if (!layout->preeditAreaText().isEmpty()) {
        formats = AroundComposed(formats, *layout);
    }
    if (formats == layout->formats()) {
        return false;
    }
    layout->setFormats(formats);
    MemoryOf(block).isColoured = true;
    return true;
}

SyntaxColours::Formats SyntaxColours::FormatsOf(const QTextBlock& block, HtmlState& state) const
{
    const QString line = block.text();
    Formats formats;
    for (const SyntaxPiece& piece : SyntaxOf(line, state)) {
        formats << Range{ static_cast<int>(piece.place.offset), static_cast<int>(piece.place.length),
                          looks_[static_cast<std::size_t>(piece.kind)] };
    }
    for (auto fragment = block.begin(); !fragment.atEnd(); ++fragment) {
        const QTextFragment text = fragment.fragment();
        if (text.charFormat().foreground().style() != Qt::NoBrush) {
            const int start = text.position() - block.position();
            formats = Without(formats, start, start + text.length());
        }
    }
    return formats;
}
