#include "app/rules/FileReferences.h"

#include <QUrl>
#include <algorithm>
#include <array>

namespace {

struct AddressRow
{
    QLatin1String Element; ///< empty for all
    QLatin1String Attribute;
};

constexpr auto addressRows = std::to_array<AddressRow>({
    { QLatin1String(), QLatin1String("src") },
    { QLatin1String(), QLatin1String("background") },
    { QLatin1String(), QLatin1String("lowsrc") },
    { QLatin1String("a"), QLatin1String("href") },
    { QLatin1String("area"), QLatin1String("href") },
    { QLatin1String("link"), QLatin1String("href") },
    { QLatin1String("image"), QLatin1String("href") },
    { QLatin1String("image"), QLatin1String("xlink:href") },
    { QLatin1String("object"), QLatin1String("data") },
    { QLatin1String("video"), QLatin1String("poster") },
});

/** What scripts of a server, or of the page, put something else for. */
constexpr QStringView fillers = u"{}<>$|";

} // namespace

bool IsAddress(QStringView element, QStringView attribute)
{
    return std::any_of(addressRows.begin(), addressRows.end(), [&](const AddressRow& row) {
        return IsName(attribute, row.Attribute) && (row.Element.isEmpty() || IsName(element, row.Element));
    });
}

QString FileOfAddress(const QString& address)
{
    const auto isFiller = [](QChar one) { return fillers.contains(one); };
    const QString trimmed = address.trimmed();
    if (trimmed.isEmpty() || std::any_of(trimmed.begin(), trimmed.end(), isFiller)) {
        return {};
    }
    QString path = trimmed;
    path.replace(u'\\', u'/'); // as browsers do
    const QUrl url(path, QUrl::TolerantMode);
    if (!url.isValid() || !url.scheme().isEmpty() || !url.host().isEmpty() || path.startsWith(u'/')) {
        return {};
    }
    return url.path(QUrl::FullyDecoded);
}
