#pragma once

#include <QStringView>
#include <vector>

// What `shape` and `coords` of an area say, as the HTML standard (html.spec.whatwg.org) reads them. Both are
// the values as browsers see them, with character references resolved.

/** The shape that an area has in a page. */
enum class PageShape : quint8 { Rectangle, Circle, Polygon, Default };

struct ShapeInEffect
{
    PageShape shape = PageShape::Rectangle;
    bool isKnown = true; ///< false if the word means none, so that it is a rectangle

    bool operator==(const ShapeInEffect&) const = default;
};

/** The shape that a word means; the null view stands for an attribute that is not there. */
[[nodiscard]] ShapeInEffect ShapeOfWord(QStringView word);

/** A number of a list of coordinates. */
struct PageCoordinate
{
    double number = 0;
    qsizetype offset = 0; ///< where it is written in the list, with what is not a number in front of it
    qsizetype length = 0;
    bool isPlain = true; ///< false if something in what is written is no part of the number

    bool operator==(const PageCoordinate&) const = default;
};

/** The numbers of a list; whatever is none is nought. */
[[nodiscard]] std::vector<PageCoordinate> CoordinatesIn(QStringView list);

/** So many coordinates has a shape at least; fewer, and there is nothing to be clicked at. */
[[nodiscard]] qsizetype FewestCoordinates(PageShape shape);

/** Whether `count` coordinates are just what the shape takes: browsers pass over the others. */
[[nodiscard]] bool FitsShape(PageShape shape, qsizetype count);
