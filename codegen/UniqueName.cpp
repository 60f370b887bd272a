#include "codegen/UniqueName.h"

#include "html/CharacterReferences.h"
#include "html/HtmlTokens.h"

#include <QSet>
#include <algorithm>

namespace {

QString SafeName(const QString& wanted)
{
    QString name = wanted.trimmed();
    for (QChar& character : name) {
        const bool isMark = character == u'-' || character == u'_';
        const bool isPlain = character.unicode() < 0x80 && character.isLetterOrNumber();
        character = isMark || isPlain ? character : QChar(u'-');
    }
    const bool beginsWithLetter = !name.isEmpty() && name[0].isLetter();
    return beginsWithLetter ? name : QString(u'm' + name);
}

/** Every id and name of the page's elements, in small letters. */
QSet<QString> NamesOf(QStringView page)
{
    QSet<QString> names;
    HtmlTokens tokens(page);
    HtmlToken token;
    while (tokens.Next(token)) {
        for (const HtmlAttribute& attribute : token.attributes) {
            const QStringView name = attribute.name.In(page);
            if (IsName(name, QLatin1String("id")) || IsName(name, QLatin1String("name"))) {
                names.insert(DecodedValue(attribute.value.In(page)).toLower());
            }
        }
    }
    return names;
}

} // namespace

QString UniqueMapName(const QString& wanted, QStringView page)
{
    const QString safe = SafeName(wanted);
    const QSet<QString> taken = NamesOf(page);
    const auto isTaken = [&taken](const QString& candidate) {
        const QString name = candidate.toLower();
        const QString start = name + u'-';
        return taken.contains(name) ||
               std::any_of(taken.begin(), taken.end(), [&start](const QString& other) {
                   return other.startsWith(start);
               });
    };
    QString name = safe;
    for (int number = 2; isTaken(name); ++number) {
        name = safe + QString::number(number);
    }
    return name;
}
