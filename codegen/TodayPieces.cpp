#include "codegen/TodayPieces.h"

#include <QStringBuilder>

QString Attribute(QStringView name, const QString& value, PageCharset charset)
{
    return value.isEmpty() ? QString() : QString(u' ' % name % u"=\"" % EscapedHtml(value, charset) % u'"');
}

QString SizeAttributes(QSize size)
{
    return size.isEmpty() ? QString()
                          : QString(
                                u" width=\"" % QString::number(size.width()) % u"\" height=\"" %
                                QString::number(size.height()) % u'"');
}

QString PictureTag(const TodayMap& map, const QString& more)
{
    // The alternative text stands there even when it is empty: without it, the file's name would be read out.
    return u"<img" % Attribute(u"src", map.Picture, map.Charset) % SizeAttributes(map.Shown) % u" alt=\"" %
           EscapedHtml(map.AltText, map.Charset) % u'"' % more % u'>';
}

QString LinkAttributes(const TodayArea& area, PageCharset charset)
{
    if (area.Address.isEmpty()) {
        return {};
    }
    // Browsers would not reuse a named window that knows nothing of the page.
    const bool isNewWindow = area.Target == u"_blank";
    return Attribute(u"href", area.Address, charset) % Attribute(u"target", area.Target, charset) %
           (isNewWindow ? QStringLiteral(" rel=\"noopener\"") : QString());
}

QString PictureAlone(const TodayMap& map)
{
    return u"<p>" % PictureTag(map, Attribute(u"class", map.AlignClass, map.Charset)) % u"</p>\n";
}
