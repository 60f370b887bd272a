#pragma once

#include <QStringList>

/** A file dialog's filter, "caption|pattern;pattern|caption|..." , each caption naming its own patterns. */
inline constexpr QStringView documentFilter =
    u"HTML Documents(*.html;*.htm)|*.html;*.htm|HTML(*.html)|*.html|HTM(*.htm)|*.htm"
    u"|Text Files(*.txt)|*.txt|All Files(*.*)|*.*";
inline constexpr QStringView pictureFilter =
    u"JPG and GIF Files(*.jpg;*.gif)|*.jpg;*.gif|JPG Files(*.jpg)|*.jpg|GIF Files(*.Gif)|*.Gif|";
inline constexpr QStringView otherPictureFilter =
    u"Pictures|*.jpg;*.jpeg;*.gif;*.png;*.bmp;*.svg;*.webp|All Files(*.*)|*.*";
inline constexpr QStringView svgFilter = u"SVG Files|*.svg|All Files(*.*)|*.*";
inline constexpr QStringView tableFilter = u"Tables|*.csv;*.tsv;*.tab;*.txt|All Files(*.*)|*.*";
inline constexpr QStringView pngFilter = u"PNG Files(*.png)|*.png";

/**
 * The choices of `filter` as Qt's file dialog takes them: each caption, and behind it in brackets the
 * patterns that count, which a dialog that hides them leaves out. They are separated by blanks there, and
 * "*.*", which would miss names without a dot, is "*". An empty last choice is dropped.
 */
[[nodiscard]] QStringList DialogNameFilters(QStringView filter);
