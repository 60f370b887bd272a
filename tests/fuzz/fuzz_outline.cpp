// Regions of any picture have contours that are closed and simple, hold just their pixels, and keep so with
// fewer corners.

#include "FuzzTarget.h"
#include "imagemap/model/AreaGeometry.h"
#include "outline/PictureRegions.h"
#include "outline/RegionChoice.h"
#include "outline/RegionShape.h"
#include "tests/outline/ContourChecks.h"

namespace {

constexpr int longestSide = 40;
constexpr double rounding = 1e-9;

/** Two bits a pixel: a colour each, two of them nearly the same. */
QImage PictureOf(FuzzInput& input)
{
    constexpr QRgb colours[] = { qRgb(0, 0, 0), qRgb(255, 255, 255), qRgb(200, 0, 0), qRgb(206, 4, 4) };
    constexpr int pixelsOfByte = 4;
    constexpr int bits = 2;
    const int width = 1 + input.Below(longestSide);
    const int height = 1 + input.Below(longestSide);
    QImage picture(width, height, QImage::Format_RGB32);
    int left = 0;
    int byte = 0;
    for (int i = 0; i < width * height; ++i) {
        if (left == 0) {
            byte = input.Byte();
            left = pixelsOfByte;
        }
        picture.setPixel(i % width, i / width, colours[byte & (pixelsOfByte - 1)]);
        byte >>= bits;
        --left;
    }
    return picture;
}

void TryThinning(const Contour& contour, double precision, int most)
{
    const ThinContour thin = Thinned(contour, precision, most);
    Demand(IsSimple(thin.corners), "a thinned contour is simple");
    Demand(TwiceAreaOf(thin.corners) > 0, "it goes the same way round");
    Demand(thin.corners.size() <= std::size_t(most), "it has no more corners than it may");
    Demand(
        thin.deviation <= precision || thin.corners.size() == std::size_t(most),
        "precision gives way to the number alone");
    Demand(FurthestFrom(thin.corners, contour) <= thin.deviation + rounding, "it keeps to the region");
    Demand(FurthestFrom(contour, thin.corners) <= thin.deviation + rounding, "it leaves nothing of it");
}

void TryContour(const Contour& contour, double precision)
{
    constexpr int fewCorners = 12;
    Demand(IsSimple(contour), "a contour is simple");
    Demand(TwiceAreaOf(contour) > 0, "a contour is clockwise");
    TryThinning(contour, precision, mostCorners);
    TryThinning(contour, precision, fewCorners);
    const RegionShape shape = ShapeOf(contour, precision);
    Demand(IsWhole(shape.area), "a shape has its coordinates");
    Demand(!shape.HasGivenWay(precision), "so few corners keep to the precision");
}

void TryPieces(RegionChoice& choice, double precision)
{
    for (const RegionPiece& piece : choice.Pieces(PieceHoles::Found)) {
        qint64 enclosed = 2 * piece.region.pixels;
        TryContour(piece.contour, precision);
        for (const Contour& hole : piece.holes) {
            TryContour(hole, precision);
            enclosed += TwiceAreaOf(hole);
        }
        Demand(TwiceAreaOf(piece.contour) == enclosed, "a contour holds the region and its holes");
        Demand(choice.Box().contains(piece.region.box), "pieces are in the box");
    }
}

void TryAllRegions(const QImage& picture)
{
    qint64 pixels = 0;
    for (const PictureRegion& region : RegionsOf(picture, { .within = {}, .leastPixels = 1 })) {
        Demand(TwiceAreaOf(region.contour) >= 2 * region.region.pixels, "a region is within its contour");
        pixels += region.region.pixels;
    }
    Demand(pixels == qint64(picture.width()) * picture.height(), "every pixel is in one region");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr int mostTaken = 4;
    constexpr double precisionSteps = 4;
    FuzzInput input(BytesOf(data, size));
    const double precision = input.Below(16) / precisionSteps;
    const int taken = 1 + input.Below(mostTaken);
    struct Taken
    {
        QPoint seed;
        RegionTaking how;
        double tolerance;
    };
    std::vector<Taken> steps;
    for (int i = 0; i < taken; ++i) {
        const QPoint seed(input.Below(longestSide + 1), input.Below(longestSide + 1));
        const auto how = RegionTaking(input.Below(int(RegionTaking::TakenOff) + 1));
        steps.push_back({ seed, how, double(input.Byte()) });
    }
    const QImage picture = PictureOf(input);
    RegionChoice choice(picture);
    for (const Taken& step : steps) {
        choice.Take(step.seed, step.how, step.tolerance / 2);
        choice.SetTolerance(step.tolerance);
    }
    TryPieces(choice, precision);
    TryAllRegions(picture);
    return 0;
}
