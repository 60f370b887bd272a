#pragma once

#include "imagemap/model/MapState.h"

#include <algorithm>

/**
 * A list to be kept: in pieces, of which it takes those that are the same from a list kept before. Slots at
 * its end that were never used take no room.
 */
template<class Value> class PackedList
{
public:
    PackedList() = default;

    PackedList(const QList<Value>& list, const PackedList& before)
        : size_(list.size())
    {
        const Value neverUsed = {};
        const auto unused = std::find_if(
            list.crbegin(), list.crend(), [&neverUsed](const Value& value) { return value != neverUsed; });
        const qsizetype used = list.crend() - unused;
        pieces_.reserve((used + pieceSize - 1) / pieceSize);
        for (qsizetype start = 0; start < used; start += pieceSize) {
            const auto first = list.cbegin() + start;
            const auto last = list.cbegin() + std::min(start + pieceSize, used);
            const Piece kept = before.pieces_.value(start / pieceSize);
            pieces_ << (std::equal(first, last, kept.cbegin(), kept.cend()) ? kept : Piece(first, last));
        }
        if (pieces_ == before.pieces_) {
            pieces_ = before.pieces_;
        }
    }

    [[nodiscard]] QList<Value> Unpacked() const
    {
        QList<Value> list;
        list.reserve(size_);
        for (const Piece& piece : pieces_) {
            list += piece;
        }
        list.resize(size_);
        return list;
    }

private:
    using Piece = QList<Value>;
    /** Few enough that a change costs little, and enough that what holds them does too. */
    static constexpr qsizetype pieceSize = 16;

    QList<Piece> pieces_;
    qsizetype size_ = 0;
};

/** A map at one moment that takes the memory of what makes it differ from the one kept before. */
class PackedState
{
public:
    /** Stands for what was kept before the first one. */
    PackedState();
    PackedState(const MapState& state, const PackedState& before);

    /** The state as it was, to the last slot of its ledger. */
    [[nodiscard]] MapState Unpacked() const;

private:
    PackedList<FigureRecord> figures_;
    PackedList<FigureRecord> polygonLines_;
    PackedList<FigureRecord> currentPolygon_;
    PackedList<MapArea> areas_;
    MapState rest_; ///< with lists that are empty
};
