#include "codegen/AreaTexts.h"

#include "codegen/HtmlEscaping.h"

#include <QRegularExpression>
#include <QUrl>

namespace {

/** A file's name without what follows its last dot, with blanks where people put marks for them. */
QString Words(const QString& fileName)
{
    static const QRegularExpression ending(QStringLiteral("(?<=[^.])\\.[^.]*$"));
    QString words = QString(fileName).remove(ending);
    words.replace(u'_', u' ').replace(u'-', u' ');
    return OneLineOfText(words);
}

/** The message as far as screen readers have a use for it; a picture is none. */
QString SpokenMessage(const MapArea& area, JSMode mode)
{
    return mode == JSSwitchImages || mode == JSDisabled ? QString() : OneLineOfMessage(area.Message);
}

} // namespace

QString NameOfLink(const QString& link)
{
    static const QRegularExpression separator(QStringLiteral("[/\\\\]"));
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]+:(//)?"));
    const QString decoded = QUrl::fromPercentEncoding(link.trimmed().toUtf8());
    const QString path = decoded.section(u'#', 0, 0).section(u'?', 0, 0);
    const bool hasHost = decoded.contains(QStringLiteral("//"));
    const QStringList segments = QString(path).remove(scheme).split(separator, Qt::SkipEmptyParts);
    const bool isHostAlone = hasHost && segments.size() == 1;
    QString name = segments.isEmpty()                   ? QString()
                   : isHostAlone || path.contains(u'@') ? OneLineOfText(segments.constLast())
                                                        : Words(segments.constLast());
    if (!name.isEmpty()) {
        return name;
    }
    const QString fragment = Words(decoded.section(u'#', 1));
    return fragment.isEmpty() ? OneLineOfText(decoded) : fragment;
}

QString NameOfPicture(const QString& path)
{
    static const QRegularExpression separator(QStringLiteral("[/\\\\]"));
    const QStringList segments = path.split(separator, Qt::SkipEmptyParts);
    return segments.isEmpty() ? QString() : Words(segments.constLast());
}

QString LabelOf(const MapArea& area, JSMode mode)
{
    const QString own = OneLineOfText(area.Text);
    const QString message = SpokenMessage(area, mode);
    return !own.isEmpty() ? own : !message.isEmpty() ? message : NameOfLink(area.Link);
}

bool LacksText(const MapArea& area, JSMode mode)
{
    return OneLineOfText(area.Text).isEmpty() && SpokenMessage(area, mode).isEmpty();
}
