#pragma once

#include <QProxyStyle>

/**
 * The desktop's own style with what makes the program's windows one: drawn icons in message boxes and on
 * their buttons, which are sharp at every scaling, rows with some air in lists, icons that keep their
 * contrast in the selected row, and fields and marks that have an edge on a dark desktop too.
 */
class LookStyle : public QProxyStyle
{
    Q_OBJECT

public:
    /** Rests on a style like that of the application. */
    LookStyle();

    [[nodiscard]] QIcon
    standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
    [[nodiscard]] QPixmap
    standardPixmap(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const override;
    [[nodiscard]] QPixmap
    generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const override;
    void drawPrimitive(
        PrimitiveElement element, const QStyleOption* option, QPainter* painter,
        const QWidget* widget) const override;
    [[nodiscard]] QSize sizeFromContents(
        ContentsType type, const QStyleOption* option, const QSize& size,
        const QWidget* widget) const override;
    [[nodiscard]] QRect subControlRect(
        ComplexControl control, const QStyleOptionComplex* option, SubControl part,
        const QWidget* widget) const override;
    [[nodiscard]] int
    pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
};
