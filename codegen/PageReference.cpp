#include "codegen/PageReference.h"

#include "html/CharacterReferences.h"
#include "html/HtmlTokens.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStringBuilder>
#include <QUrl>
#include <array>

namespace {

/** What an address may hold as it is, besides letters and digits. */
constexpr QStringView addressMarks = u"-._~!$&'()*+,;=:@/?#";

/** What the name of a file or folder may hold as it is in one. */
constexpr const char* segmentMarks = "!$&'()*+,;=@";

/** Schemes whose addresses have a host, or a path of folders, and take "\" for "/". */
constexpr std::array<QStringView, 6> specialSchemes = { u"http", u"https", u"ftp", u"ws", u"wss", u"file" };

bool IsSpecial(QStringView scheme)
{
    return std::any_of(specialSchemes.begin(), specialSchemes.end(), [scheme](QStringView special) {
        return scheme.compare(special, Qt::CaseInsensitive) == 0;
    });
}

/** The address's scheme without its colon; empty for one that is relative. */
QStringView SchemeOf(QStringView address)
{
    static const QRegularExpression scheme(QStringLiteral("^[A-Za-z][A-Za-z0-9+.-]*(?=:)"));
    return address.left(scheme.match(address).capturedLength());
}

bool IsHexPair(QStringView text)
{
    const auto isHex = [](QChar character) {
        return QStringView(u"0123456789abcdefABCDEF").contains(character);
    };
    return text.size() == 2 && isHex(text[0]) && isHex(text[1]);
}

/** "\" as browsers take it: a slash in the path of a page or file, and nothing special elsewhere. */
QString WithSlashes(QStringView address)
{
    const QStringView scheme = SchemeOf(address);
    QString text = address.toString();
    if (!scheme.isEmpty() && !IsSpecial(scheme)) {
        return text;
    }
    const qsizetype end = text.indexOf(QRegularExpression(QStringLiteral("[?#]")));
    const QString path = text.left(end).replace(u'\\', u'/');
    return end < 0 ? path : QString(path % text.mid(end));
}

/** Every character that is none of an address's own as "%" and its bytes in UTF-8. */
QString WithEncodedCharacters(const QString& text)
{
    QString encoded;
    bool isInFragment = false;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar character = text[i];
        const bool isPlain = (character.unicode() < 0x80 && character.isLetterOrNumber()) ||
                             (addressMarks.contains(character) && !(character == u'#' && isInFragment)) ||
                             (character == u'%' && IsHexPair(QStringView(text).mid(i + 1, 2)));
        isInFragment = isInFragment || character == u'#';
        if (isPlain) {
            encoded += character;
        } else if (character.isHighSurrogate() && i + 1 < text.size()) {
            encoded += QString::fromLatin1(QUrl::toPercentEncoding(text.mid(i, 2)));
            ++i;
        } else {
            encoded += QString::fromLatin1(QUrl::toPercentEncoding(QString(character)));
        }
    }
    return encoded;
}

/** Whether an address's host and port are such as browsers can follow; `host` is in ASCII. */
bool IsSoundHost(const QString& host)
{
    static const QRegularExpression name(
        QStringLiteral("^(?:[A-Za-z0-9_-]+\\.)*[A-Za-z0-9_-]+\\.?(?::([0-9]{1,5}))?$"));
    static const QRegularExpression numbers(
        QStringLiteral("^(?:(?:25[0-5]|2[0-4]\\d|1?\\d?\\d)\\.){3}(?:25[0-5]|2[0-4]\\d|1?\\d?\\d)$"));
    static const QRegularExpression endsInNumber(
        QStringLiteral("(?:^|\\.)(?:0[xX][0-9A-Fa-f]*|[0-9]+)\\.?$"));
    constexpr int mostPort = 65535;
    const QRegularExpressionMatch match = name.match(host);
    const QString bare = host.section(u':', 0, 0);
    return match.hasMatch() && match.captured(1).toInt() <= mostPort &&
           (!endsInNumber.match(bare).hasMatch() || numbers.match(bare).hasMatch());
}

/** The host and what stands around it, from behind "//" up to the path, in ASCII; null if it is none. */
QString SoundAuthority(const QString& authority)
{
    const qsizetype at = authority.lastIndexOf(u'@');
    const qsizetype colon = authority.indexOf(u':', at + 1);
    const QString port = colon < 0 ? QString() : authority.mid(colon);
    const QString typedHost = authority.mid(at + 1, colon < 0 ? -1 : colon - at - 1);
    const QString host = QString::fromLatin1(QUrl::toAce(typedHost));
    if (!IsSoundHost(host + port)) {
        return {};
    }
    return WithEncodedCharacters(authority.left(at + 1)) + host + port;
}

/** An address with a host, such as "http://a.example/b"; null if browsers could not follow it. */
QString WithHost(const QString& address, qsizetype hostStart)
{
    const qsizetype found = address.indexOf(QRegularExpression(QStringLiteral("[/?#]")), hostStart);
    const qsizetype hostEnd = found < 0 ? address.size() : found;
    const QString authority = SoundAuthority(address.mid(hostStart, hostEnd - hostStart));
    return authority.isNull()
               ? QString()
               : QString(address.left(hostStart) % authority % WithEncodedCharacters(address.mid(hostEnd)));
}

/** A file URL with its drive in the form that is in use today. */
QString SoundFileUrl(const QString& address)
{
    static const QRegularExpression drive(
        QStringLiteral("^(file:///[A-Za-z])\\|(?=/|$)"), QRegularExpression::CaseInsensitiveOption);
    return WithEncodedCharacters(QString(address).replace(drive, QStringLiteral("\\1:")));
}

/** The address ready to be written; null if browsers could not make anything of it. */
QString Sound(const QString& address)
{
    constexpr QStringView hostMark = u"//";
    const QStringView scheme = SchemeOf(address);
    const QStringView rest = QStringView(address).mid(scheme.isEmpty() ? 0 : scheme.size() + 1);
    if (scheme.compare(u"file", Qt::CaseInsensitive) == 0) {
        return rest.startsWith(u"///") ? SoundFileUrl(address) : QString();
    }
    if (scheme.compare(u"data", Qt::CaseInsensitive) == 0) {
        return rest.contains(u',') ? WithEncodedCharacters(address) : QString();
    }
    if (IsSpecial(scheme) || (scheme.isEmpty() && rest.startsWith(hostMark))) {
        return rest.startsWith(hostMark)
                   ? WithHost(address, rest.data() - address.constData() + hostMark.size())
                   : QString();
    }
    // A colon in the first part of a relative address would end a scheme.
    const qsizetype colon = rest.indexOf(u':');
    const bool isMisleading = scheme.isEmpty() && colon >= 0 &&
                              address.left(colon).indexOf(QRegularExpression(QStringLiteral("[/?#]"))) < 0;
    return rest.isEmpty() || isMisleading ? QString() : WithEncodedCharacters(address);
}

QString WithEncodedSegments(const QString& path)
{
    QStringList segments = path.split(u'/');
    for (QString& segment : segments) {
        segment = QString::fromLatin1(QUrl::toPercentEncoding(segment, segmentMarks));
    }
    return segments.join(u'/');
}

QString FileUrl(const QString& path)
{
    constexpr QStringView driveColon = u":";
    const bool hasDrive = path.mid(1, 1) == driveColon;
    const QString rest = WithEncodedSegments(hasDrive ? path.mid(2) : path);
    return hasDrive ? QString(u"file:///" % path.left(2) % rest) : QString(u"file://" % rest);
}

QString HrefOfBase(QStringView page)
{
    HtmlTokens tokens(page);
    HtmlToken token;
    while (tokens.Next(token)) {
        if (token.kind == HtmlToken::Kind::StartTag && IsName(token.name.In(page), QLatin1String("base"))) {
            const HtmlAttribute* const href = token.Find(page, QLatin1String("href"));
            return href == nullptr ? QString() : DecodedValue(href->value.In(page));
        }
        if (token.kind == HtmlToken::Kind::StartTag && IsName(token.name.In(page), QLatin1String("body"))) {
            break;
        }
    }
    return {};
}

} // namespace

QString EncodedAddress(QStringView typed)
{
    const QString address = WithSlashes(typed.trimmed());
    if (address.isEmpty()) {
        return {};
    }
    const QString sound = Sound(address);
    // What is no address at all stays a reference that leads nowhere, as it was, in a page without a fault.
    return sound.isNull() ? QString(u"./" % WithEncodedCharacters(address)) : sound;
}

QString PageReference(const QString& target, const QString& folder)
{
    if (!QDir::isAbsolutePath(target) || !QFileInfo(target).isFile()) {
        return EncodedAddress(target);
    }
    const QString path = QDir::cleanPath(QDir::fromNativeSeparators(target));
    const QString relative = folder.isEmpty() ? path : QDir(folder).relativeFilePath(path);
    return QDir::isAbsolutePath(relative) ? FileUrl(path) : WithEncodedSegments(relative);
}

QString FileNameReference(const QString& name)
{
    return WithEncodedSegments(name);
}

QString ReferenceFolder(QStringView page, const QString& pagePath)
{
    if (pagePath.isEmpty()) {
        return {};
    }
    const QString href = HrefOfBase(page);
    const QUrl base = QUrl::fromLocalFile(pagePath).resolved(QUrl(EncodedAddress(href)));
    // A base somewhere in the net says where the page will be: beside its pictures, as it is here.
    const QString from = !href.isEmpty() && base.isLocalFile() ? base.toLocalFile() : pagePath;
    return from.endsWith(u'/') ? QDir::cleanPath(from) : QFileInfo(from).absolutePath();
}
