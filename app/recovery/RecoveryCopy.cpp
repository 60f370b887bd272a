#include "app/recovery/RecoveryCopy.h"

#include "shared/SystemWriting.h"

#include <QCryptographicHash>
#include <QDataStream>
#include <QFileInfo>
#include <QIODevice>
#include <QSaveFile>
#include <algorithm>
#include <array>

namespace {

constexpr QByteArrayView fileMark = "CartRecv";
constexpr quint32 formVersion = 4;
constexpr auto checksumKind = QCryptographicHash::Sha256;
constexpr qsizetype checksumLength = 32;
/** Longer ones than this are none of ours: the longest text that can be edited takes less. */
constexpr qint64 longestFile = (qint64(1) << 31) - 1;

enum class CopyKind : quint32 { Page = 1, Map = 2 };

/** The numbers of a `MapArea` that each shape has at least; a polygon has pairs. One that cannot be drawn has
 * none.
 */
constexpr std::array<qsizetype, areaShapeNames.size()> leastCoordinates = { 4, 3, 2, 0 };

void Prepare(QDataStream& stream)
{
    stream.setVersion(QDataStream::Qt_6_4);
}

} // namespace

// Qt's own operators for lists find these only outside of a namespace.

static QDataStream& operator<<(QDataStream& stream, const FigureRecord& record)
{
    return stream << record.Kind << record.X1 << record.Y1 << record.X2 << record.Y2 << record.Radius
                  << record.Link << record.Target << record.Message;
}

static QDataStream& operator>>(QDataStream& stream, FigureRecord& record)
{
    return stream >> record.Kind >> record.X1 >> record.Y1 >> record.X2 >> record.Y2 >> record.Radius >>
           record.Link >> record.Target >> record.Message;
}

static QDataStream& operator<<(QDataStream& stream, const AreaAttribute& attribute)
{
    return stream << attribute.Name << attribute.Value << attribute.IsCode;
}

static QDataStream& operator>>(QDataStream& stream, AreaAttribute& attribute)
{
    return stream >> attribute.Name >> attribute.Value >> attribute.IsCode;
}

static QDataStream& operator<<(QDataStream& stream, const KeptOrigin& origin)
{
    return stream << origin.Text << origin.Start << origin.Sources << qint32(origin.Of);
}

static QDataStream& operator>>(QDataStream& stream, KeptOrigin& origin)
{
    qint32 kind = 0;
    stream >> origin.Text >> origin.Start >> origin.Sources >> kind;
    if (kind < 0 || kind >= KeptOrigin::Kinds) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return stream;
    }
    origin.Of = static_cast<KeptOrigin::Kind>(kind);
    return stream;
}

static QDataStream& operator<<(QDataStream& stream, const MapArea& area)
{
    return stream << static_cast<qint32>(area.Shape) << area.Coordinates << area.Link << area.Target
                  << area.Message << area.Text << area.Source << area.Attributes;
}

static QDataStream& operator>>(QDataStream& stream, MapArea& area)
{
    qint32 shape = 0;
    stream >> shape >> area.Coordinates >> area.Link >> area.Target >> area.Message >> area.Text >>
        area.Source >> area.Attributes;
    const qsizetype count = area.Coordinates.size();
    const bool isShape = shape >= 0 && shape < qint32(areaShapeNames.size());
    area.Shape = isShape ? static_cast<AreaShape>(shape) : AreaShape::Rectangle;
    const qsizetype least = leastCoordinates[static_cast<std::size_t>(area.Shape)];
    const bool isWhole =
        area.Shape == AreaShape::Polygon ? count >= least && count % least == 0 : count == least;
    if (!isShape || (!isWhole && count > 0)) {
        stream.setStatus(QDataStream::ReadCorruptData);
    }
    return stream;
}

static QDataStream& operator<<(QDataStream& stream, const FigureStore& ledger)
{
    return stream << ledger.Figures << ledger.PolygonLines << ledger.CurrentPolygon
                  << qint32(ledger.FigureCount) << qint32(ledger.PolygonLineCount)
                  << qint32(ledger.CurrentPolygonLineCount);
}

static QDataStream& operator>>(QDataStream& stream, FigureStore& ledger)
{
    stream >> ledger.Figures >> ledger.PolygonLines >> ledger.CurrentPolygon;
    const auto readCount = [&stream](int& count, const FigureStore::Records& records) {
        qint32 value = 0;
        stream >> value;
        count = value;
        const bool isThere = value >= 0 && value <= records.size();
        if (!isThere || records.size() < FigureStore::capacity) {
            stream.setStatus(QDataStream::ReadCorruptData);
        }
    };
    readCount(ledger.FigureCount, ledger.Figures);
    readCount(ledger.PolygonLineCount, ledger.PolygonLines);
    readCount(ledger.CurrentPolygonLineCount, ledger.CurrentPolygon);
    return stream;
}

static QDataStream& operator<<(QDataStream& stream, const MapCopy& copy)
{
    const MapState& map = copy.State;
    return stream << map.Figures << map.IsLedgerOfAreas << map.Areas << map.AreAreasEdited
                  << static_cast<qint32>(map.Mode) << map.ModeDefault << map.MessageHeader << map.Picture
                  << copy.Fields << copy.DrawnCorners << copy.Origin;
}

static QDataStream& operator>>(QDataStream& stream, MapCopy& copy)
{
    MapState& map = copy.State;
    qint32 mode = 0;
    stream >> map.Figures >> map.IsLedgerOfAreas >> map.Areas >> map.AreAreasEdited >> mode >>
        map.ModeDefault >> map.MessageHeader >> map.Picture >> copy.Fields >> copy.DrawnCorners >>
        copy.Origin;
    const bool isMode = mode >= 0 && mode < qint32(jsModeTexts.size());
    if (!isMode || copy.DrawnCorners.size() > FigureStore::capacity + 1) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return stream;
    }
    map.Mode = static_cast<JSMode>(mode);
    return stream;
}

static QDataStream& operator<<(QDataStream& stream, TextEncoding encoding)
{
    return stream << static_cast<qint32>(encoding);
}

static QDataStream& operator>>(QDataStream& stream, TextEncoding& encoding)
{
    qint32 value = 0;
    stream >> value;
    if (value < 0 || value > static_cast<qint32>(TextEncoding::Utf8WithMark)) {
        stream.setStatus(QDataStream::ReadCorruptData);
        return stream;
    }
    encoding = static_cast<TextEncoding>(value);
    return stream;
}

/** One byte tells whether there is a value behind it. */
template<typename Value>
static QDataStream& operator<<(QDataStream& stream, const std::optional<Value>& value)
{
    stream << value.has_value();
    return value ? stream << *value : stream;
}

template<typename Value> static QDataStream& operator>>(QDataStream& stream, std::optional<Value>& value)
{
    bool isThere = false;
    stream >> isThere;
    if (isThere) {
        stream >> value.emplace();
    }
    return stream;
}

static QDataStream& operator<<(QDataStream& stream, const LostDocument& document)
{
    const std::optional<quint64> hash = document.ContentHash;
    return stream << document.Name << document.Encoding << document.IsHandledAnew << document.FoundUtf8
                  << hash << document.IsLineEndAppended;
}

static QDataStream& operator>>(QDataStream& stream, LostDocument& document)
{
    std::optional<quint64> hash;
    stream >> document.Name >> document.Encoding >> document.IsHandledAnew >> document.FoundUtf8 >> hash >>
        document.IsLineEndAppended;
    document.ContentHash = hash;
    return stream;
}

namespace {

/** A file in the making, and the checksum of what is in it so far. */
class CheckedFile
{
public:
    explicit CheckedFile(const QString& path)
        : file_(path)
    {
        isGood_ = file_.open(QIODevice::WriteOnly);
        if (isGood_) {
            // What is being written may be for nobody else.
            file_.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
        }
    }

    void Add(QByteArrayView bytes)
    {
        checksum_.addData(bytes);
        isGood_ = isGood_ && file_.write(bytes.data(), bytes.size()) == bytes.size();
    }

    void Begin(CopyKind kind, qint64 length)
    {
        QByteArray head = fileMark.toByteArray();
        QDataStream stream(&head, QIODevice::Append);
        Prepare(stream);
        stream << formVersion << static_cast<quint32>(kind) << length;
        Add(head);
    }

    [[nodiscard]] bool Finish()
    {
        const QByteArray sum = checksum_.result();
        isGood_ = isGood_ && file_.write(sum) == sum.size() && file_.flush() && !SyncToDisk(file_.handle());
        return isGood_ && file_.commit(); // or else what was written beside goes with it
    }

private:
    QSaveFile file_;
    QCryptographicHash checksum_{ checksumKind };
    bool isGood_ = false;
};

/** The copy in the file `path`, if it is whole and of that kind. */
std::optional<QByteArray> ReadChecked(const QString& path, CopyKind kind)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QIODevice::ReadOnly) || file.size() > longestFile) {
        return std::nullopt;
    }
    if (file.peek(fileMark.size()) != fileMark) {
        return std::nullopt; // who knows how long it is
    }
    const QByteArray bytes = file.readAll();
    QDataStream stream(bytes);
    Prepare(stream);
    quint32 version = 0;
    quint32 kindInFile = 0;
    qint64 length = 0;
    stream.skipRawData(int(fileMark.size()));
    stream >> version >> kindInFile >> length;
    const qint64 start = stream.device()->pos();
    if (stream.status() != QDataStream::Ok || version != formVersion ||
        kindInFile != static_cast<quint32>(kind) || length != bytes.size() - checksumLength - start) {
        return std::nullopt;
    }
    const QByteArrayView checked = QByteArrayView(bytes).first(start + length);
    QCryptographicHash checksum(checksumKind);
    checksum.addData(checked);
    return checksum.result() == bytes.last(checksumLength) ? std::optional(bytes.sliced(start, length))
                                                           : std::nullopt;
}

QByteArrayView BytesOfUnits(const QString& text)
{
    return { reinterpret_cast<const char*>(text.constData()), text.size() * qsizetype(sizeof(QChar)) };
}

} // namespace

bool WriteCopy(const QString& path, const PageCopy& copy)
{
    QByteArray head;
    QDataStream stream(&head, QIODevice::WriteOnly);
    Prepare(stream);
    stream << copy.Document;
    qint64 length = head.size();
    for (const QString& piece : copy.Pieces) {
        length += BytesOfUnits(piece).size();
    }
    CheckedFile file(path);
    file.Begin(CopyKind::Page, length);
    file.Add(head);
    for (const QString& piece : copy.Pieces) {
        file.Add(BytesOfUnits(piece));
    }
    return file.Finish();
}

bool WriteCopy(const QString& path, const MapCopy& copy)
{
    QByteArray bytes;
    QDataStream stream(&bytes, QIODevice::WriteOnly);
    Prepare(stream);
    stream << copy;
    CheckedFile file(path);
    file.Begin(CopyKind::Map, bytes.size());
    file.Add(bytes);
    return file.Finish();
}

std::optional<PageCopy> ReadPageCopy(const QString& path)
{
    const std::optional<QByteArray> bytes = ReadChecked(path, CopyKind::Page);
    if (!bytes) {
        return std::nullopt;
    }
    QDataStream stream(*bytes);
    Prepare(stream);
    PageCopy copy;
    stream >> copy.Document;
    const QByteArrayView text = QByteArrayView(*bytes).sliced(stream.device()->pos());
    if (stream.status() != QDataStream::Ok || text.size() % qsizetype(sizeof(QChar)) != 0) {
        return std::nullopt;
    }
    QString whole(text.size() / qsizetype(sizeof(QChar)), Qt::Uninitialized);
    std::copy(text.begin(), text.end(), reinterpret_cast<char*>(whole.data()));
    copy.Pieces << whole;
    return copy;
}

std::optional<MapCopy> ReadMapCopy(const QString& path)
{
    const std::optional<QByteArray> bytes = ReadChecked(path, CopyKind::Map);
    if (!bytes) {
        return std::nullopt;
    }
    QDataStream stream(*bytes);
    Prepare(stream);
    MapCopy copy;
    stream >> copy;
    return stream.status() == QDataStream::Ok && stream.atEnd() ? std::optional(copy) : std::nullopt;
}
