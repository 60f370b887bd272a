#include "shared/DialogFilter.h"

QStringList DialogNameFilters(QStringView filter)
{
    QStringList choices;
    const QList<QStringView> parts = filter.split(u'|');
    for (qsizetype i = 0; i + 1 < parts.size(); i += 2) {
        QString patterns = parts[i + 1].toString();
        patterns.replace(u';', u' ');
        choices << QStringLiteral("%1(%2)").arg(
            parts[i], patterns == u"*.*" ? QStringLiteral("*") : patterns);
    }
    return choices;
}
