#pragma once

#include <QRgb>
#include <vector>

/** A colour as CIELAB has it, for daylight (D65): differences count as much as the eye sees of them. */
struct LabColour
{
    float lightness = 0;  ///< from 0 for black to 100 for white
    float redness = 0;    ///< negative towards green
    float yellowness = 0; ///< negative towards blue
};

/** The sRGB colour; how opaque it is counts for nothing. */
[[nodiscard]] LabColour LabOf(QRgb colour);

/**
 * How far two colours are apart in CIELAB: 100 from black to white, about 1 where the eye begins to see it.
 * Colours that let shine through are compared on black and on white ground, and the larger difference counts;
 * so what is wholly transparent is all alike.
 */
[[nodiscard]] float DifferenceOf(QRgb one, QRgb other);

/**
 * The differences of any colours from one. Those of colours that were asked for lately are kept: neighbours
 * in a picture have few.
 */
class ColourDistances
{
public:
    explicit ColourDistances(QRgb from = 0);

    /** Measures from another colour from now on. */
    void SetFrom(QRgb from);

    [[nodiscard]] float To(QRgb colour)
    {
        // The upper bits of the product depend on all those of the colour.
        constexpr quint32 spread = 2654435769U;
        Kept& kept = kept_[(colour * spread) >> (32 - keptBits)];
        return kept.colour == colour && kept.turn == turn_ ? kept.distance : Measure(kept, colour);
    }

private:
    struct Kept
    {
        QRgb colour = 0;
        quint32 turn = 0; ///< which of the colours it was measured from; 0 if from none
        float distance = 0;
    };
    static constexpr int keptBits = 12;

    float Measure(Kept& kept, QRgb colour) const;

    QRgb from_;
    quint32 turn_ = 1;
    std::vector<Kept> kept_;
};
