#pragma once

#include "imagemap/model/KeptOrigin.h"
#include "imagemap/origin/MapMerge.h"
#include "mapback/LocalUpdate.h"
#include "shared/PageDocument.h"

#include <QMap>
#include <memory>

/** What an editor showed of a map at one moment. */
struct ShownMap
{
    EditedMap map;
    QMap<QString, QString> fields; ///< what was in the editor's fields, by their names
};

/**
 * Where a map came from: the part of a page that it was read from, or put into, and what it was when the two
 * agreed last.
 */
class MapOrigin
{
public:
    /** A map that was read from a page, at `range`, or a picture that has none yet. */
    MapOrigin(ReturnedMap read, std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown);

    /** A map that was put into a page as `text`, at `range`; it is read when it is needed. */
    MapOrigin(std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown);

    /** Whether its page is still the document. */
    [[nodiscard]] bool IsThere() const { return range_->IsThere(); }

    /** Whether the page has had the map from the beginning, or was given it by an update: what agrees with it
     * can go without a question. */
    [[nodiscard]] bool IsOfPage() const { return read_.has_value(); }

    /** The map as it was read last; nullptr while it never was. */
    [[nodiscard]] const ReturnedMap* Read() const { return read_ ? &*read_ : nullptr; }

    /** What was shown when map and page agreed last. */
    [[nodiscard]] const ShownMap& Shown() const { return shown_; }

    /** Whether the page has at the same place what Read() was read from. */
    [[nodiscard]] bool IsAsRead(QStringView page) const;
    /** The same of a page of which no more than these places are asked for. */
    [[nodiscard]] bool IsAsRead(const TextAtPlace& textAt) const;

    /** Reads the map again where it is now, or the picture that has lost it again; nothing if it is there no
     * more, or cannot be read, or has got to a picture that had none. */
    [[nodiscard]] std::optional<ReturnedMap> ReadAgain(QStringView page) const;

    /** What has to be kept to find the map in its page again. It is `last`, what was kept before, as long as
     * that leads to the map too: so it does not change with every key that is typed before the map. */
    [[nodiscard]] KeptOrigin Kept(const KeptOrigin& last) const;

    /** Map and page agree: `read` is what the page has at `range`, which holds `text`. */
    void Agree(ReturnedMap read, std::unique_ptr<AnchoredRange> range, QString text, ShownMap shown);

private:
    std::unique_ptr<AnchoredRange> range_;
    std::unique_ptr<AnchoredRange> picture_; ///< the picture that had no map until an update
    QString text_; ///< of the range, and of the picture's tag, when they were read or put in
    std::optional<ReturnedMap> read_;
    ShownMap shown_;
};

/** The map or picture that was kept, where a page has it unchanged; of several, the one that is next to its
 * old place. */
[[nodiscard]] std::optional<ReturnedMap> FindKept(QStringView page, const KeptOrigin& kept);

/** Where a page has the text of a map that was put into it; of several places, the one next to the old. */
[[nodiscard]] std::optional<TextSpan> FindInserted(QStringView page, const KeptOrigin& kept);

/** What a page has at the places of `map`; while it stays the same, so do they. */
[[nodiscard]] QString TextOf(QStringView page, const ReturnedMap& map);
[[nodiscard]] QString TextOf(const TextAtPlace& textAt, const ReturnedMap& map);
