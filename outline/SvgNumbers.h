#pragma once

#include <QList>
#include <QSizeF>
#include <QStringView>
#include <QTransform>
#include <optional>

// The numbers, lengths and transforms that stand in the attributes of SVG drawings.

/** No number of a drawing is further from 0: larger ones are taken for this. */
inline constexpr double svgNumberLimit = 1e12;

/** Reads numbers one after the other, as the lists and path data of SVG have them: parted by blanks, by one
 * comma, or by nothing where a sign or a point begins the next one. */
class SvgNumberReader
{
public:
    explicit SvgNumberReader(QStringView text)
        : text_(text)
    {
    }

    /** The next number; nothing where there is none. */
    [[nodiscard]] std::optional<double> Number();

    /** The next 0 or 1, which needs nothing behind it. */
    [[nodiscard]] std::optional<bool> Flag();

    /** The next letter; nothing where something else comes, or the end. */
    [[nodiscard]] std::optional<QChar> Letter();

    /** What has not been read yet. */
    [[nodiscard]] QStringView Rest() const { return text_; }

private:
    void PassBlanks();
    void PassSeparator();

    QStringView text_;
};

/** All numbers of `text` up to its end or to what is none. */
[[nodiscard]] QList<double> SvgNumbers(QStringView text);

/** What a length in per cent is a part of. */
enum class SvgDirection { Across, Down, Either };

/** A length in the units of the drawing; `viewport` is what per cents are parts of. Nothing where `text` is
 * no length. */
[[nodiscard]] std::optional<double> SvgLength(QStringView text, SvgDirection direction, QSizeF viewport);

/** The transform that an attribute tells; none where it cannot be understood. */
[[nodiscard]] QTransform SvgTransform(QStringView text);

/** How a part of a drawing is fitted into a rectangle: `viewBox` and `preserveAspectRatio` as the attributes
 * have them. Nothing for a part without a size. */
[[nodiscard]] std::optional<QTransform>
SvgFitting(const QRectF& part, QStringView preserveAspectRatio, const QRectF& room);

/** The part of a drawing that the attribute `viewBox` tells; nothing where it tells none. */
[[nodiscard]] std::optional<QRectF> SvgViewBox(QStringView text);
