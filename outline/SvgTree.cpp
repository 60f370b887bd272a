#include "outline/SvgTree.h"

#include <QXmlStreamReader>
#include <algorithm>
#include <array>

namespace {

constexpr QStringView svgNamespaceName = u"http://www.w3.org/2000/svg";
constexpr QStringView damagedSvgText = u"The drawing is damaged in its line ";
constexpr QStringView noSvgText = u"This is no SVG drawing !";
constexpr QStringView compressedText = u"The drawing is compressed (SVGZ): save it as plain SVG first !";
constexpr QStringView tooDeepText = u"The elements of the drawing stand too deep in one another !";
constexpr QStringView tooManyText = u"The drawing has more elements than can be believed !";

/** What gzip begins with. */
constexpr QByteArrayView gzipMark("\x1F\x8B");

/** The attributes that are kept. */
constexpr std::array<QStringView, 25> keptAttributes = {
    u"id",
    u"class",
    u"style",
    u"transform",
    u"viewBox",
    u"preserveAspectRatio",
    u"x",
    u"y",
    u"width",
    u"height",
    u"rx",
    u"ry",
    u"cx",
    u"cy",
    u"r",
    u"d",
    u"points",
    u"href",
    u"target",
    u"display",
    u"fill",
    u"visibility",
    u"aria-label",
    u"clip-path",
    u"clipPathUnits",
};

bool IsKept(QStringView name)
{
    return std::find(keptAttributes.begin(), keptAttributes.end(), name) != keptAttributes.end();
}

/** Reads a drawing element by element. */
class SvgTreeReader
{
public:
    explicit SvgTreeReader(const QByteArray& bytes)
        : reader_(bytes)
    {
    }

    SvgTree Read()
    {
        while (!reader_.atEnd() && tree_.Problem.isEmpty()) {
            ReadToken(reader_.readNext());
        }
        if (tree_.Problem.isEmpty() && tree_.Elements.isEmpty()) {
            tree_.Problem = noSvgText.toString();
        } else if (tree_.Problem.isEmpty() && reader_.hasError()) {
            tree_.Problem = damagedSvgText + QString::number(reader_.lineNumber()) + u" !";
        }
        if (!tree_.Problem.isEmpty()) {
            tree_.Elements.clear();
        }
        return tree_;
    }

private:
    void ReadToken(QXmlStreamReader::TokenType token)
    {
        if (token == QXmlStreamReader::StartElement) {
            Open();
        } else if (token == QXmlStreamReader::EndElement) {
            Close();
        } else if (token == QXmlStreamReader::Characters && !open_.isEmpty()) {
            text_ += reader_.text();
        }
    }

    void Open()
    {
        const bool isOfSvg = reader_.namespaceUri().isEmpty() || reader_.namespaceUri() == svgNamespaceName;
        if (open_.isEmpty() && (!isOfSvg || reader_.name() != u"svg")) {
            tree_.Problem = noSvgText.toString();
        } else if (open_.size() >= SvgTree::deepestNesting) {
            tree_.Problem = tooDeepText.toString();
        } else if (tree_.Elements.size() >= SvgTree::mostElements) {
            tree_.Problem = tooManyText.toString();
        } else {
            SvgElement element;
            element.Name = isOfSvg ? reader_.name().toString() : QString();
            TakeAttributes(element);
            const qsizetype number = tree_.Elements.size();
            if (const QString id = element.Value(QLatin1String("id"));
                !id.isEmpty() && !tree_.ById.contains(id)) {
                tree_.ById.insert(id, number);
            }
            if (!open_.isEmpty()) {
                tree_.Elements[open_.constLast()].Children << number;
            }
            open_ << number;
            tree_.Elements << element;
            text_.clear();
        }
    }

    void TakeAttributes(SvgElement& element)
    {
        const QXmlStreamAttributes attributes = reader_.attributes();
        for (const QXmlStreamAttribute& attribute : attributes) {
            // The newer form of a link, which has no namespace, counts more.
            const bool isNewer = attribute.namespaceUri().isEmpty();
            const QString name = attribute.name().toString();
            if (IsKept(name) && (isNewer || (name == u"href" && !element.Attributes.contains(name)))) {
                element.Attributes.insert(name, attribute.value().toString());
            }
        }
    }

    void Close()
    {
        const qsizetype number = open_.takeLast();
        const QString& name = tree_.Elements[number].Name;
        if (name == u"title" && !open_.isEmpty() && tree_.Elements[open_.constLast()].Title.isEmpty()) {
            tree_.Elements[open_.constLast()].Title = text_.simplified();
        } else if (name == u"style") {
            tree_.Styles.Read(text_);
        }
        text_.clear();
    }

    QXmlStreamReader reader_;
    SvgTree tree_;
    QList<qsizetype> open_;
    QString text_; ///< since the last tag
};

} // namespace

SvgTree ReadSvgTree(const QByteArray& bytes)
{
    SvgTree tree;
    if (bytes.startsWith(gzipMark)) {
        tree.Problem = compressedText.toString();
        return tree;
    }
    if (bytes.size() > SvgTree::mostBytes) {
        tree.Problem = tooManyText.toString();
        return tree;
    }
    return SvgTreeReader(bytes).Read();
}
