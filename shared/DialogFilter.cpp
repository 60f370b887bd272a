#include "shared/DialogFilter.h"

QStringList DialogNameFilters(QStringView filter)
{
    QStringList choices;
    const QList<QStringView> parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        const QStringView caption = parts[i].left(parts[i].indexOf(u'('));
        QString patterns = parts[i + 1].toString();
        patterns.replace(u';', u' ');
        choices << QStringLiteral("%1(%2)").arg(caption, patterns == u"*.*" ? QStringLiteral("*") : patterns);
    }
    return choices;
}
