#pragma once

#include <QImage>
#include <QStringList>

/** A picture drawn with letters, a pixel each: '#' is black, '.' white, 'r' red, 'o' a red that is hardly
 * another one. */
inline QImage Drawn(const QStringList& rows)
{
    QImage picture(int(rows.value(0).size()), int(rows.size()), QImage::Format_RGB32);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QChar letter = rows[y][x];
            picture.setPixel(
                x, y,
                letter == u'#'   ? qRgb(0, 0, 0)
                : letter == u'r' ? qRgb(200, 0, 0)
                : letter == u'o' ? qRgb(206, 4, 4)
                                 : qRgb(255, 255, 255));
        }
    }
    return picture;
}
