#include "app/source/LineStates.h"

#include "html/HtmlSyntax.h"

#include <algorithm>

namespace {

/** A state is kept after so many characters, or lines. */
constexpr qsizetype charactersApart = 4096;
constexpr int linesApart = 256;

LineMemory* KnownOf(const QTextBlock& block)
{
    return static_cast<LineMemory*>(block.userData());
}

const std::optional<HtmlState>& KeptOf(const QTextBlock& block)
{
    static const std::optional<HtmlState> none;
    const LineMemory* const memory = KnownOf(block);
    return memory != nullptr ? memory->start : none;
}

/** Where a place is after an edit; inside what was replaced, at its end. */
int Moved(int place, int position, int removed, int added)
{
    return place <= position ? place : std::max(place - removed, position) + added;
}

} // namespace

LineMemory& MemoryOf(QTextBlock block)
{
    if (block.userData() == nullptr) {
        block.setUserData(new LineMemory);
    }
    return *KnownOf(block);
}

LineStates::LineStates(const QTextDocument& document)
    : document_(document)
{
}

void LineStates::NoteChange(int position, int removed, int added)
{
    const QTextBlock block = document_.findBlock(position);
    const int start = block.isValid() ? block.position() : 0;
    const int end = position + added;
    if (known_ < scanned_) {
        // What has been put right meanwhile does not fit what comes behind it.
        edited_ = std::max(Moved(std::max(edited_, known_), position, removed, added), end);
    } else {
        edited_ = end;
    }
    scanned_ = scanned_ > position + removed ? scanned_ + added - removed : std::min(scanned_, start);
    known_ = std::min({ known_, start, scanned_ });
    if (position < last_.start) {
        last_ = {};
    }
    // Two lines that become one leave it what either was remembered by.
    if (block.isValid() && KeptOf(block)) {
        KnownOf(block)->start.reset();
    }
}

/** The last line at or before `position` whose state is kept, or the first line. */
QTextBlock LineStates::KeptBefore(int position) const
{
    QTextBlock block = document_.findBlock(position);
    block = block.isValid() ? block : document_.lastBlock();
    while (block.blockNumber() > 0 && (block.position() > position || !KeptOf(block))) {
        block = block.previous();
    }
    return block;
}

/** The line from which `block` is to be read, and how far `reading` is there. */
QTextBlock LineStates::BeginReading(const QTextBlock& block, Reading& reading) const
{
    const int distance = block.position() - last_.start;
    if (last_.start >= 0 && distance >= 0 && distance <= charactersApart) {
        reading = last_;
        return document_.findBlock(last_.start);
    }
    const QTextBlock line = KeptBefore(std::min(known_, block.position()));
    reading = { .state = KeptOf(line).value_or(HtmlState()) };
    return line;
}

std::optional<HtmlState> LineStates::At(const QTextBlock& block, qsizetype most)
{
    Reading reading;
    QTextBlock line = BeginReading(block, reading);
    qsizetype read = 0;
    while (line != block) {
        if (read > most) {
            return std::nullopt;
        }
        PassLine(line.text(), reading.state);
        read += line.length();
        reading.characters += line.length();
        ++reading.lines;
        line = line.next();
        const bool wasKept = KeptOf(line).has_value();
        if (wasKept && Settle(line, reading.state)) {
            // From here on all that is kept is right again.
            line = KeptBefore(std::min(known_, block.position()));
            reading.state = KeptOf(line).value_or(HtmlState());
        } else if (!wasKept && (reading.characters >= charactersApart || reading.lines >= linesApart)) {
            MemoryOf(line).start = reading.state;
        }
        if (KeptOf(line)) {
            reading.characters = 0;
            reading.lines = 0;
        }
        known_ = std::max(known_, line.position());
        scanned_ = std::max(scanned_, known_);
    }
    last_ = reading;
    last_.start = block.position();
    return reading.state;
}

/** Puts right what is kept of `block`; true when it ends the doubt, since it was right. */
bool LineStates::Settle(const QTextBlock& block, const HtmlState& state)
{
    if (block.position() <= known_) {
        return false;
    }
    if (block.position() > edited_ && block.position() <= scanned_ && KeptOf(block) == state) {
        known_ = scanned_;
        return true;
    }
    MemoryOf(block).start = state;
    return false;
}
