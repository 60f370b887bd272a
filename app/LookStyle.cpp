#include "app/LookStyle.h"

#include <QApplication>
#include <QIcon>
#include <QPainter>
#include <QStyleOptionViewItem>
#include <algorithm>
#include <array>

namespace {

struct DrawnIcon
{
    QStyle::StandardPixmap which;
    const char* name;
};

constexpr auto drawnIcons = std::to_array<DrawnIcon>({
    { QStyle::SP_MessageBoxInformation, "box-information" },
    { QStyle::SP_MessageBoxWarning, "box-warning" },
    { QStyle::SP_MessageBoxCritical, "box-critical" },
    { QStyle::SP_MessageBoxQuestion, "box-question" },
    { QStyle::SP_DialogOkButton, "button-ok" },
    { QStyle::SP_DialogYesButton, "button-ok" },
    { QStyle::SP_DialogApplyButton, "button-ok" },
    { QStyle::SP_DialogNoButton, "button-close" },
    { QStyle::SP_DialogCancelButton, "button-cancel" },
    { QStyle::SP_DialogCloseButton, "button-close" },
    { QStyle::SP_DialogDiscardButton, "button-delete" },
    { QStyle::SP_DialogHelpButton, "button-help" },
    { QStyle::SP_DialogOpenButton, "open" },
    { QStyle::SP_DialogSaveButton, "button-save" },
    { QStyle::SP_TitleBarCloseButton, "bar-close" },
});

/** Above and below the text of a row together, in pixels. */
constexpr int rowAir = 4;
/** The least side of an icon, in pixels. */
constexpr int leastIcon = 16;
/** How far inside its place the line of a frame is drawn, in pixels. */
constexpr int frameLine = 1;
/** How round the corners of fields and marks are, in pixels. */
constexpr qreal edgeRadius = 2;
/** How much of the text's colour is in an edge on a dark ground: enough for three times its light. */
constexpr float edgeStrength = 0.55F;
/** How much lighter than a selection the edge of the field is that has the focus, in per cent. */
constexpr int focusLightness = 160;

const DrawnIcon* Find(QStyle::StandardPixmap which)
{
    const auto* const found = std::ranges::find(drawnIcons, which, &DrawnIcon::which);
    return found != drawnIcons.end() ? found : nullptr;
}

/** What the style of the application is called, below those that only refine one. */
QString BaseStyleName()
{
    const QStyle* style = QApplication::style();
    while (const auto* const refining = qobject_cast<const QProxyStyle*>(style)) {
        style = refining->baseStyle();
    }
    return style->name();
}

/** The shape of `icon`, all in `color`. */
QPixmap Silhouette(const QPixmap& icon, const QColor& color)
{
    QPixmap shape = icon;
    QPainter painter(&shape);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(shape.rect(), color);
    return shape;
}

/** `icon` with an edge of `color` around it, a pixel wide where the icon has its least size. */
QPixmap Edged(QPixmap icon, const QColor& color)
{
    // Icons come here before they are told of the screen's scaling; their size tells it.
    const qreal ratio = icon.devicePixelRatio();
    icon.setDevicePixelRatio(1);
    const int width = (icon.height() + leastIcon - 1) / leastIcon;
    const QPixmap shape = Silhouette(icon, color);
    QPixmap edged(icon.size());
    edged.fill(Qt::transparent);
    QPainter painter(&edged);
    for (int x = -width; x <= width; ++x) {
        for (int y = -width; y <= width; ++y) {
            painter.drawPixmap(x, y, shape);
        }
    }
    painter.drawPixmap(0, 0, icon);
    painter.end();
    edged.setDevicePixelRatio(ratio);
    return edged;
}

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightnessF() < palette.color(QPalette::WindowText).lightnessF();
}

/** Draws the edge that styles leave out on dark grounds, where they make it darker still. */
void DrawEdge(QStyle::PrimitiveElement element, const QStyleOption& option, QPainter* painter)
{
    QColor color = option.palette.color(QPalette::WindowText);
    color.setAlphaF(edgeStrength);
    if (element == QStyle::PE_FrameLineEdit && (option.state & QStyle::State_HasFocus)) {
        color = option.palette.color(QPalette::Highlight).lighter(focusLightness);
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    painter->setPen(color);
    painter->setBrush(Qt::NoBrush);
    const qreal half = 0.5;
    const QRectF edge = QRectF(option.rect).adjusted(half, half, -half, -half);
    if (element == QStyle::PE_IndicatorRadioButton) {
        painter->drawEllipse(edge);
    } else {
        painter->drawRoundedRect(edge, edgeRadius, edgeRadius);
    }
    painter->restore();
}

} // namespace

LookStyle::LookStyle()
    : QProxyStyle(BaseStyleName())
{
}

QIcon LookStyle::standardIcon(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const
{
    if (const DrawnIcon* const drawn = Find(which)) {
        return QIcon(QStringLiteral(":/icons/%1.svg").arg(QString::fromLatin1(drawn->name)));
    }
    return QProxyStyle::standardIcon(which, option, widget);
}

QPixmap
LookStyle::standardPixmap(StandardPixmap which, const QStyleOption* option, const QWidget* widget) const
{
    const DrawnIcon* const drawn = Find(which);
    if (drawn == nullptr) {
        return QProxyStyle::standardPixmap(which, option, widget);
    }
    const int side = pixelMetric(
        which <= SP_MessageBoxQuestion ? PM_MessageBoxIconSize : PM_ButtonIconSize, option, widget);
    return standardIcon(which, option, widget).pixmap({ side, side }, qApp->devicePixelRatio());
}

QPixmap
LookStyle::generatedIconPixmap(QIcon::Mode mode, const QPixmap& pixmap, const QStyleOption* option) const
{
    // Styles blend the icon with the colour of the selection, until it can hardly be told from it.
    return mode == QIcon::Selected ? Edged(pixmap, option->palette.color(QPalette::HighlightedText))
                                   : QProxyStyle::generatedIconPixmap(mode, pixmap, option);
}

void LookStyle::drawPrimitive(
    PrimitiveElement element, const QStyleOption* option, QPainter* painter, const QWidget* widget) const
{
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    const bool hasEdge =
        element == PE_FrameLineEdit || element == PE_IndicatorRadioButton || element == PE_IndicatorCheckBox;
    if (hasEdge && IsDark(option->palette)) {
        DrawEdge(element, *option, painter);
    }
}

QSize LookStyle::sizeFromContents(
    ContentsType type, const QStyleOption* option, const QSize& size, const QWidget* widget) const
{
    const QSize needed = QProxyStyle::sizeFromContents(type, option, size, widget);
    const auto* const row = qstyleoption_cast<const QStyleOptionViewItem*>(option);
    if (type != CT_ItemViewItem || row == nullptr) {
        return needed;
    }
    return needed.expandedTo({ 0, row->fontMetrics.lineSpacing() + rowAir });
}

QRect LookStyle::subControlRect(
    ComplexControl control, const QStyleOptionComplex* option, SubControl part, const QWidget* widget) const
{
    const QRect place = QProxyStyle::subControlRect(control, option, part, widget);
    if (control != CC_GroupBox || part != SC_GroupBoxLabel) {
        return place;
    }
    // Where a title stands above its frame, it begins at the frame's line, which is drawn inside its place.
    const int frame = QProxyStyle::subControlRect(control, option, SC_GroupBoxFrame, widget).left();
    return place.left() == frame ? place.translated(frameLine, 0) : place;
}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    // Icons of a list are as large as those of a tree.
    return QProxyStyle::pixelMetric(
        metric == PM_ListViewIconSize ? PM_SmallIconSize : metric, option, widget);
}
