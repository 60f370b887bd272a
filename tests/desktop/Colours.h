#pragma once

#include <QHash>
#include <QImage>
#include <QPalette>
#include <algorithm>
#include <cmath>

/** A light from 0 to 1, as it is seen. */
inline double Luminance(QRgb color)
{
    const auto linear = [](int part) {
        const double value = part / 255.0;
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(qRed(color)) + 0.7152 * linear(qGreen(color)) + 0.0722 * linear(qBlue(color));
}

/** How well two colours can be told apart: from 1 to 21. */
inline double Contrast(QRgb one, QRgb other)
{
    const double a = Luminance(one) + 0.05;
    const double b = Luminance(other) + 0.05;
    return std::max(a, b) / std::min(a, b);
}

/** The colours of a dark desktop, as a theme sets them. */
inline QPalette DarkPalette()
{
    const QColor text(0xE6, 0xE6, 0xE6);
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(0x32, 0x32, 0x32));
    dark.setColor(QPalette::WindowText, text);
    dark.setColor(QPalette::Base, QColor(0x24, 0x24, 0x24));
    dark.setColor(QPalette::AlternateBase, QColor(0x2B, 0x2B, 0x2B));
    dark.setColor(QPalette::Text, text);
    dark.setColor(QPalette::PlaceholderText, QColor(0xA0, 0xA0, 0xA0));
    dark.setColor(QPalette::Button, QColor(0x32, 0x32, 0x32));
    dark.setColor(QPalette::ButtonText, text);
    dark.setColor(QPalette::BrightText, Qt::white);
    dark.setColor(QPalette::ToolTipBase, QColor(0x1B, 0x1B, 0x1B));
    dark.setColor(QPalette::ToolTipText, text);
    dark.setColor(QPalette::Light, QColor(0x5B, 0x5B, 0x5B));
    dark.setColor(QPalette::Midlight, QColor(0x46, 0x46, 0x46));
    dark.setColor(QPalette::Mid, QColor(0x2B, 0x2B, 0x2B));
    dark.setColor(QPalette::Dark, QColor(0x1B, 0x1B, 0x1B));
    dark.setColor(QPalette::Shadow, Qt::black);
    dark.setColor(QPalette::Highlight, QColor(0x1F, 0x5F, 0xA8));
    dark.setColor(QPalette::HighlightedText, Qt::white);
    dark.setColor(QPalette::Link, QColor(0x6C, 0xB2, 0xF5));
    dark.setColor(QPalette::LinkVisited, QColor(0xC3, 0x9B, 0xE8));
    for (const QPalette::ColorRole role : { QPalette::WindowText, QPalette::Text, QPalette::ButtonText }) {
        dark.setColor(QPalette::Disabled, role, QColor(0x80, 0x80, 0x80));
    }
    return dark;
}

/** How well what is drawn on the commonest colour of `image` stands out from it, at best. */
inline double BestContrast(const QImage& image)
{
    QHash<QRgb, int> counts;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            ++counts[image.pixel(x, y)];
        }
    }
    const auto byCount = [](int a, int b) { return a < b; };
    const QRgb ground = std::max_element(counts.cbegin(), counts.cend(), byCount).key();
    double best = 1;
    for (auto color = counts.cbegin(); color != counts.cend(); ++color) {
        best = std::max(best, Contrast(ground, color.key()));
    }
    return best;
}
