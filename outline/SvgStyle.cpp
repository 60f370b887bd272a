#include "outline/SvgStyle.h"

namespace {

/** `text` without its comments. */
QString WithoutComments(QStringView text)
{
    QString plain;
    while (true) {
        const qsizetype start = text.indexOf(u"/*");
        if (start < 0) {
            return plain + text;
        }
        plain += text.first(start);
        const qsizetype end = text.indexOf(u"*/", start + 2);
        if (end < 0) {
            return plain;
        }
        text = text.sliced(end + 2);
    }
}

} // namespace

SvgDeclarations SvgDeclarationsOf(QStringView text)
{
    constexpr QStringView important = u"!important";
    SvgDeclarations declarations;
    for (const QStringView declaration : text.split(u';')) {
        const qsizetype colon = declaration.indexOf(u':');
        if (colon > 0) {
            QString value = declaration.sliced(colon + 1).trimmed().toString();
            if (value.endsWith(important, Qt::CaseInsensitive)) {
                value = value.chopped(important.size()).trimmed();
            }
            declarations.insert(declaration.first(colon).trimmed().toString().toLower(), value);
        }
    }
    return declarations;
}

void SvgStyleSheet::Read(QStringView text)
{
    const QString plain = WithoutComments(text);
    QStringView rest = plain;
    while (true) {
        const qsizetype open = rest.indexOf(u'{');
        const qsizetype close = open < 0 ? -1 : rest.indexOf(u'}', open);
        if (close < 0) {
            return;
        }
        const SvgDeclarations declarations = SvgDeclarationsOf(rest.sliced(open + 1, close - open - 1));
        for (const QStringView selector : rest.first(open).split(u',')) {
            rules_[selector.trimmed().toString()].insert(declarations);
        }
        rest = rest.sliced(close + 1);
    }
}

SvgDeclarations SvgStyleSheet::For(const QString& kind, const QStringList& classes, const QString& name) const
{
    SvgDeclarations declarations = rules_.value(kind);
    for (const QString& one : classes) {
        declarations.insert(rules_.value(u'.' + one));
    }
    declarations.insert(rules_.value(u'#' + name));
    return declarations;
}
