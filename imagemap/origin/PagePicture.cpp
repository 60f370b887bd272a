#include "imagemap/origin/PagePicture.h"

#include "codegen/PageReference.h"
#include "imagemap/model/AreaGeometry.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>
#include <algorithm>

namespace {

constexpr QStringView dataScheme = u"data:";
constexpr QStringView base64Mark = u";base64";

/** What a ground is at least, so that it can be drawn on, and at most, in pixels. */
constexpr QSize leastGround(100, 100);
constexpr QSize mostGround(8000, 8000);

/** What a `data:` address holds. */
QByteArray DataIn(const QString& address)
{
    const qsizetype comma = address.indexOf(u',');
    if (comma < 0) {
        return {};
    }
    const QStringView kind = QStringView(address).first(comma).trimmed();
    const QByteArray written = QByteArray::fromPercentEncoding(address.mid(comma + 1).toUtf8());
    return kind.endsWith(base64Mark, Qt::CaseInsensitive) ? QByteArray::fromBase64(written) : written;
}

QString FileAt(const QUrl& url)
{
    const QString path = url.isLocalFile() ? url.toLocalFile() : QString();
    return QFileInfo(path).isFile() ? path : QString();
}

} // namespace

FoundPicture FindPicture(const QString& reference, const QString& base, const QString& pagePath)
{
    if (reference.trimmed().startsWith(dataScheme, Qt::CaseInsensitive)) {
        return { .path = {}, .data = DataIn(reference.trimmed()) };
    }
    if (reference.trimmed().isEmpty()) {
        return {};
    }
    const QUrl page = pagePath.isEmpty() ? QUrl() : QUrl::fromLocalFile(pagePath);
    const QUrl based = base.isEmpty() ? page : page.resolved(QUrl(EncodedAddress(base)));
    const QUrl from = based.isLocalFile() ? based : page;
    QString path = FileAt(from.resolved(QUrl(EncodedAddress(reference))));
    if (path.isEmpty() && from.isLocalFile()) {
        // A name with "%", "?" or "#" as it is on the disk.
        const QFileInfo literal(QFileInfo(from.toLocalFile()).absoluteDir(), reference);
        path = literal.isFile() ? literal.absoluteFilePath() : QString();
    }
    return { .path = QDir::toNativeSeparators(path), .data = {} };
}

std::optional<int> PixelsOf(QStringView length)
{
    constexpr int mostDigits = 7;
    const QStringView text = length.trimmed();
    qsizetype digits = 0;
    while (digits < text.size() && text[digits] >= u'0' && text[digits] <= u'9') {
        ++digits;
    }
    const bool isShare = text.sliced(digits).trimmed().endsWith(u'%');
    if (digits == 0 || digits > mostDigits || isShare || text.first(digits).toInt() == 0) {
        return std::nullopt;
    }
    return text.first(digits).toInt();
}

QSize SizeOfGround(std::optional<int> width, std::optional<int> height, const MapAreas& areas)
{
    const QRect bounds = BoundsOf(areas);
    const QSize needed(std::max(bounds.right() + 1, 0), std::max(bounds.bottom() + 1, 0));
    return QSize(width.value_or(needed.width()), height.value_or(needed.height()))
        .expandedTo(width && height ? QSize(1, 1) : leastGround)
        .boundedTo(mostGround);
}
