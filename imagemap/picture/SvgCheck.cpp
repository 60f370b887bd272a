#include "imagemap/picture/SvgCheck.h"

#include <QHash>
#include <QList>
#include <QString>
#include <QXmlStreamReader>
#include <QXmlStreamWriter>
#include <algorithm>
#include <array>

namespace {

constexpr QStringView svgNamespace = u"http://www.w3.org/2000/svg";
constexpr QLatin1String linkNamespace("http://www.w3.org/1999/xlink");
/** So many elements at most, those that others repeat counted as often as they are drawn. */
constexpr qint64 elementsAtMost = 200'000;
/** Elements stand in one another no deeper: they are drawn one inside the other. */
constexpr qsizetype nestingAtMost = 200;
/** The same with what others repeat, which goes on from there. */
constexpr qsizetype repeatedNestingAtMost = 4 * nestingAtMost;
/** What browsers leave out of a picture, or run outside of it. */
constexpr std::array<QStringView, 3> leftOut = { u"script", u"foreignObject", u"feImage" };

QString LinkOf(const QXmlStreamAttributes& attributes)
{
    const QStringView link = attributes.value(linkNamespace, QLatin1String("href"));
    return (link.isEmpty() ? attributes.value(QLatin1String("href")) : link).trimmed().toString();
}

bool IsLeftOut(const QXmlStreamReader& reader)
{
    // Pictures in a picture have to be part of it.
    const bool isOutside =
        reader.name() == u"image" && !LinkOf(reader.attributes()).startsWith(QLatin1String("data:"));
    return isOutside || std::find(leftOut.begin(), leftOut.end(), reader.name()) != leftOut.end();
}

/** Counts what a drawing unfolds to: an element that repeats others can itself be repeated. */
class Unfolding
{
public:
    void Open(const QXmlStreamReader& reader)
    {
        const qsizetype number = elements_.size();
        elements_ << Element{};
        if (!open_.isEmpty()) {
            elements_[open_.constLast()].children << number;
        }
        open_ << number;
        const QXmlStreamAttributes attributes = reader.attributes();
        const QString id = attributes.value(QLatin1String("id")).toString();
        if (!id.isEmpty() && !byId_.contains(id)) {
            byId_.insert(id, number);
        }
        if (reader.name() == u"use") {
            elements_[number].repeated = LinkOf(attributes).mid(1);
        }
    }
    void Close() { open_.removeLast(); }

    [[nodiscard]] bool IsCredible()
    {
        return elements_.size() <= elementsAtMost && (elements_.isEmpty() || CountOf(0) <= elementsAtMost);
    }
    [[nodiscard]] qsizetype Depth() const { return open_.size(); }

private:
    struct Element
    {
        QList<qsizetype> children;
        QString repeated; ///< the name of what is drawn here once more
        qint64 count = 0; ///< nothing until it is known
        bool isBeingCounted = false;
    };

    qint64 CountOf(qsizetype number)
    {
        // An element that repeats what it stands in has no end.
        if (elements_[number].isBeingCounted || ++depth_ > repeatedNestingAtMost) {
            return elementsAtMost + 1;
        }
        if (elements_[number].count == 0) {
            elements_[number].isBeingCounted = true;
            qint64 count = 1;
            for (const qsizetype child : QList<qsizetype>(elements_[number].children)) {
                count = std::min(count + CountOf(child), elementsAtMost + 1);
            }
            if (const auto target = byId_.constFind(elements_[number].repeated); target != byId_.cend()) {
                count = std::min(count + CountOf(*target), elementsAtMost + 1);
            }
            elements_[number].count = count;
            elements_[number].isBeingCounted = false;
        }
        --depth_;
        return elements_[number].count;
    }

    QList<Element> elements_;
    QList<qsizetype> open_;
    QHash<QString, qsizetype> byId_;
    qsizetype depth_ = 0;
};

/** Copies what may stay, of the file as it is read. */
bool CopyHarmless(QXmlStreamReader& reader, QXmlStreamWriter& writer, Unfolding& unfolding)
{
    while (!reader.atEnd() && unfolding.Depth() <= nestingAtMost) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement:
            if (unfolding.Depth() == 0 &&
                (reader.name() != u"svg" || reader.namespaceUri() != svgNamespace)) {
                return false;
            }
            if (unfolding.Depth() > 0 && IsLeftOut(reader)) {
                reader.skipCurrentElement();
                break;
            }
            unfolding.Open(reader);
            writer.writeCurrentToken(reader);
            break;
        case QXmlStreamReader::EndElement:
            unfolding.Close();
            writer.writeCurrentToken(reader);
            break;
        case QXmlStreamReader::StartDocument:
        case QXmlStreamReader::Characters:
            writer.writeCurrentToken(reader);
            break;
        default:
            // Declarations have done their work, and instructions would lead elsewhere.
            break;
        }
    }
    return reader.atEnd() && !reader.hasError();
}

} // namespace

std::optional<QByteArray> HarmlessSvg(const QByteArray& bytes)
{
    QXmlStreamReader reader(bytes);
    QByteArray copy;
    QXmlStreamWriter writer(&copy);
    Unfolding unfolding;
    if (!CopyHarmless(reader, writer, unfolding) || !unfolding.IsCredible()) {
        return {};
    }
    return copy;
}
