#pragma once

#include "outline/ColourRegion.h"
#include "outline/RegionPieces.h"

#include <optional>

/** What a region does to those that were taken before. */
enum class RegionTaking { Alone, Joined, TakenOff };

/**
 * The pixels of a picture that were chosen by pointing at regions of like colour. The region taken last still
 * follows the tolerance. A byte a pixel of the picture is all that it keeps besides.
 */
class RegionChoice
{
public:
    /** See WithWholePixels(). */
    explicit RegionChoice(const QImage& picture);

    /** Takes the region around `seed`; one outside of the picture is empty. */
    void Take(QPoint seed, RegionTaking how, double tolerance, const StopSign& stop = {});

    /** Gives the region taken last another tolerance; what was stopped meanwhile goes on. */
    void SetTolerance(double tolerance, const StopSign& stop = {});

    /** Nothing is chosen any longer. */
    void Clear();

    /** Whether the pixel is chosen. */
    [[nodiscard]] bool Holds(QPoint pixel) const;

    /** A box that holds all that is chosen. */
    [[nodiscard]] QRect Box() const;

    /** The connected parts of what is chosen, from the top down. */
    [[nodiscard]] std::vector<RegionPiece> Pieces(PieceHoles holes, const StopSign& stop = {});

private:
    [[nodiscard]] bool IsChosen(quint8 marks) const;
    void SettleLast();

    QImage picture_;
    PixelMask mask_;
    QRect chosenBox_;
    std::optional<ColourRegion> last_;
    RegionTaking how_ = RegionTaking::Alone;
};
