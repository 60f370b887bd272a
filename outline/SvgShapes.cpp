#include "outline/SvgShapes.h"

#include "imagemap/model/AreaGeometry.h"
#include "outline/ShapeAreas.h"
#include "outline/SvgOutlines.h"
#include "shared/OneLine.h"

#include <QSet>
#include <algorithm>
#include <cmath>

namespace {

constexpr QStringView hugeText = u"The drawing has numbers beyond any picture !";
constexpr QStringView tooManyShapesText = u"The drawing has more shapes than any map has areas !";
constexpr QStringView unfoldsText = u"The drawing repeats its parts more often than can be believed !";
constexpr QStringView lineNote = u"a line without an inside";
constexpr QStringView groundNote = u"covers the picture";
constexpr QStringView repeatedNote = u"lies where another one does";

/** A drawing without a size is as large as browsers show it. */
constexpr QSizeF usualSize(300, 150);
/** No place of a drawing is further away, in pixels. */
constexpr double furthestPlace = 1e9;
/** Repeated parts stand no deeper in one another. */
constexpr int deepestUse = 32;
/** A ground is what takes that much of the picture. */
constexpr double shareOfGround = 0.9;
/** What fills a hole reaches no further over its box, in whole pixels. */
constexpr double aroundHole = 1.5;

QLatin1String Named(const char* name)
{
    return QLatin1String(name);
}

/** What a shape has from the elements that it stands in. */
struct SvgContext
{
    QTransform transform; ///< to pixels of the picture
    QSizeF viewport;      ///< what per cents are parts of
    QRectF clip;          ///< what is seen at all, in pixels of the picture
    QString link;
    QString target;
    QString text;
    bool isVisible = true;
    bool isFilled = true;
    int uses = 0;             ///< how many repeated parts it stands in
    bool isTextGiven = false; ///< by what repeats it, so its own does not count
};

/** What an element is called, the name that counts most first. */
QStringList TextsOf(const SvgElement& element)
{
    QStringList texts = { element.Title, element.Value(Named("aria-label")), element.Value(Named("id")) };
    texts.removeIf([](const QString& text) { return text.trimmed().isEmpty(); });
    return texts;
}

bool RunsScript(const QString& link)
{
    QString plain = link;
    plain.removeIf([](QChar character) { return character.unicode() <= u' '; });
    return plain.startsWith(u"javascript:", Qt::CaseInsensitive);
}

/** Whether a place is no further away than any can be; what is no number is not. */
bool IsWithinNumbers(QPointF place)
{
    return std::abs(place.x()) <= furthestPlace && std::abs(place.y()) <= furthestPlace;
}

bool IsWithinNumbers(const QPainterPath& path)
{
    for (int i = 0; i < path.elementCount(); ++i) {
        if (!IsWithinNumbers(QPointF(path.elementAt(i)))) {
            return false;
        }
    }
    return true;
}

/** Nothing outside of `room` is seen any more. One beyond all numbers leaves all of it. */
void Clip(SvgContext& context, const QRectF& room)
{
    if (IsWithinNumbers(room.topLeft()) && IsWithinNumbers(room.bottomRight())) {
        context.clip &= room;
    }
}

/** Goes over a drawing as it is painted. */
class SvgWalk
{
public:
    SvgWalk(const SvgTree& tree, QSize picture)
        : tree_(tree)
        , picture_(picture)
    {
    }

    SvgShapesReading Read()
    {
        const SvgElement& root = tree_.Elements.constFirst();
        const std::optional<QRectF> box = SvgViewBox(root.Value(Named("viewBox")));
        const QSizeF unit = box ? box->size() : usualSize;
        // A share of whatever is around it says nothing about how large a drawing is.
        const auto length = [&root, unit](const char* name, SvgDirection direction, double other) {
            const QString text = root.Value(Named(name));
            const double given = SvgLength(text, direction, unit).value_or(0);
            return text.contains(u'%') || given <= 0 ? other : given;
        };
        QSizeF size(length("width", SvgDirection::Across, 0), length("height", SvgDirection::Down, 0));
        if (size.width() == 0) {
            size.setWidth(size.height() == 0 ? unit.width() : size.height() * unit.width() / unit.height());
        }
        if (size.height() == 0) {
            size.setHeight(size.width() * unit.height() / unit.width());
        }
        SvgContext context;
        context.viewport = size;
        context.clip = QRectF(QPointF(), QSizeF(picture_));
        context.transform =
            QTransform::fromScale(picture_.width() / size.width(), picture_.height() / size.height());
        EnterViewport(root, QRectF(QPointF(), size), context);
        VisitChildren(root, context);
        if (!reading_.Problem.isEmpty()) {
            reading_.Shapes.clear();
        }
        return reading_;
    }

private:
    /** The element's own part of the drawing is fitted into `room`. */
    static void EnterViewport(const SvgElement& element, const QRectF& room, SvgContext& context)
    {
        const QRectF box =
            SvgViewBox(element.Value(Named("viewBox"))).value_or(QRectF(QPointF(), room.size()));
        Clip(context, context.transform.mapRect(room));
        const std::optional<QTransform> fitting =
            SvgFitting(box, element.Value(Named("preserveAspectRatio")), room);
        context.transform = fitting.value_or(QTransform()) * context.transform;
        context.viewport = box.size();
    }

    /** What a style, a rule or an attribute says; the first of them counts. */
    [[nodiscard]] QString Property(const SvgElement& element, const char* name) const
    {
        if (const QString style = element.Value(Named("style")); !style.isEmpty()) {
            if (QString own = SvgDeclarationsOf(style).value(Named(name)); !own.isEmpty()) {
                return own;
            }
        }
        QString attribute = element.Value(Named(name)).trimmed();
        if (tree_.Styles.IsEmpty()) {
            return attribute;
        }
        const QStringList classes =
            element.Value(Named("class")).simplified().split(u' ', Qt::SkipEmptyParts);
        return tree_.Styles.For(element.Name, classes, element.Value(Named("id")))
            .value(Named(name), attribute);
    }

    void TakeOver(const SvgElement& element, SvgContext& context) const
    {
        context.transform = SvgTransform(element.Value(Named("transform"))) * context.transform;
        if (const QString clip = Property(element, "clip-path"); clip.startsWith(u"url(")) {
            Clip(context, ClipBox(clip, context));
        }
        if (const QString visibility = Property(element, "visibility").toLower(); !visibility.isEmpty()) {
            context.isVisible = visibility != u"hidden" && visibility != u"collapse";
        }
        if (const QString fill = Property(element, "fill").toLower(); !fill.isEmpty()) {
            context.isFilled = fill != u"none";
        }
        if (element.Name == u"a") {
            const QString link = OneLine(element.Value(Named("href"))).trimmed();
            context.link = RunsScript(link) ? QString() : link;
            context.target = OneLine(element.Value(Named("target"))).trimmed();
        }
        if (const QStringList texts = TextsOf(element); !texts.isEmpty() && !context.isTextGiven) {
            context.text = OneLine(texts.constFirst()).trimmed();
        }
    }

    /** The box of the clip path that `url` names: what lies outside of it is not seen. */
    [[nodiscard]] QRectF ClipBox(const QString& url, const SvgContext& context) const
    {
        QString name = url.sliced(url.indexOf(u'(') + 1).chopped(1).trimmed();
        name = name.remove(u'"').remove(u'\'').mid(1);
        const SvgElement clip = tree_.Elements.value(tree_.ById.value(name, -1));
        // One whose numbers are shares of what it clips, or that repeats parts, is not followed.
        const bool isPlain =
            clip.Name == u"clipPath" && clip.Value(Named("clipPathUnits")) != u"objectBoundingBox";
        QRectF box;
        for (const qsizetype child : isPlain ? clip.Children : QList<qsizetype>()) {
            const SvgElement& shape = tree_.Elements[child];
            if (!IsSvgShape(shape.Name)) {
                return context.clip;
            }
            const QTransform own =
                SvgTransform(shape.Value(Named("transform"))) * SvgTransform(clip.Value(Named("transform")));
            box |= (own * context.transform).map(SvgOutline(shape, context.viewport)).boundingRect();
        }
        return isPlain ? box : context.clip;
    }

    void Visit(const SvgElement& element, SvgContext context)
    {
        if (++visited_ > SvgTree::mostElements) {
            reading_.Problem = unfoldsText.toString();
        }
        if (!reading_.Problem.isEmpty() || Property(element, "display").toLower() == u"none") {
            return;
        }
        const bool isGroup = element.Name == u"g" || element.Name == u"a" || element.Name == u"switch";
        TakeOver(element, context);
        if (isGroup) {
            VisitChildren(element, context);
        } else if (element.Name == u"svg") {
            VisitInner(element, element, context);
        } else if (element.Name == u"use") {
            VisitUsed(element, context);
        } else if (IsSvgShape(element.Name) && context.isVisible) {
            AddShape(element, context);
        }
    }

    void VisitChildren(const SvgElement& element, const SvgContext& context)
    {
        for (const qsizetype child : element.Children) {
            Visit(tree_.Elements[child], context);
        }
    }

    /** Visits a drawing within the drawing, whose place and size `placed` tells. */
    void VisitInner(const SvgElement& inner, const SvgElement& placed, SvgContext context)
    {
        const auto length = [&](const char* name, SvgDirection direction, double other) {
            const double own = LengthOf(inner, Named(name), direction, context.viewport, other);
            return LengthOf(placed, Named(name), direction, context.viewport, own);
        };
        const double width = length("width", SvgDirection::Across, context.viewport.width());
        const double height = length("height", SvgDirection::Down, context.viewport.height());
        const QPointF corner =
            &inner == &placed
                ? QPointF(length("x", SvgDirection::Across, 0), length("y", SvgDirection::Down, 0))
                : QPointF();
        if (width > 0 && height > 0) {
            EnterViewport(inner, { corner, QSizeF(width, height) }, context);
            VisitChildren(inner, context);
        }
    }

    void VisitUsed(const SvgElement& use, SvgContext context)
    {
        const QString link = use.Value(Named("href")).trimmed();
        const qsizetype number = link.startsWith(u'#') ? tree_.ById.value(link.sliced(1), -1) : -1;
        // What repeats itself is not shown by browsers either.
        if (number < 0 || context.uses >= deepestUse || used_.contains(number)) {
            return;
        }
        const SvgElement& target = tree_.Elements[number];
        ++context.uses;
        context.isTextGiven = context.isTextGiven || !TextsOf(use).isEmpty();
        const QPointF shift(
            LengthOf(use, Named("x"), SvgDirection::Across, context.viewport),
            LengthOf(use, Named("y"), SvgDirection::Down, context.viewport));
        context.transform = QTransform::fromTranslate(shift.x(), shift.y()) * context.transform;
        used_.insert(number);
        if (target.Name == u"symbol") {
            TakeOver(target, context);
            VisitInner(target, use, context);
        } else {
            Visit(target, context);
        }
        used_.remove(number);
    }

    void AddShape(const SvgElement& shape, const SvgContext& context)
    {
        const QPainterPath path = context.transform.map(SvgOutline(shape, context.viewport));
        if (!IsWithinNumbers(path)) {
            reading_.Problem = hugeText.toString();
            return;
        }
        if (context.isFilled) {
            AddOutlines(path, context, false);
        } else {
            // Whatever line closes has an inside, such as a border that is drawn alone.
            AddOutlines(PartsOf(path, PathEnds::Meet), context, false);
            AddOutlines(PartsOf(path, PathEnds::Apart), context, true);
        }
    }

    void AddOutlines(const QPainterPath& path, const SvgContext& context, bool isLine)
    {
        const ShapeOutlines outlines = OutlinesOf(path, context.clip);
        AreaCandidates shapes;
        for (const QPolygonF& outline : outlines.Outer) {
            AreaCandidate candidate;
            candidate.Area = AreaOfOutline(outline);
            if (IsWhole(candidate.Area)) {
                candidate.Area.Link = context.link;
                candidate.Area.Target = context.target;
                candidate.Area.Text = context.text;
                Judge(candidate, isLine, reading_.Shapes.size() + shapes.size() + 1);
                shapes << candidate;
            }
        }
        Place(shapes, outlines.Holes);
        if (reading_.Shapes.size() > SvgShapesReading::mostShapes) {
            reading_.Problem = tooManyShapesText.toString();
        }
    }

    /** Adds what is painted now. What is seen through its holes counts as painted later: an area has none. */
    void Place(const AreaCandidates& shapes, const QList<QRectF>& holes)
    {
        AreaCandidates& all = reading_.Shapes;
        if (holes.isEmpty()) {
            all << shapes;
            return;
        }
        const auto isBeside = [&holes](const AreaCandidate& candidate) {
            const QRectF box = QRectF(BoundsOf(candidate.Area));
            return std::none_of(holes.begin(), holes.end(), [&box](const QRectF& hole) {
                return hole.adjusted(-aroundHole, -aroundHole, aroundHole, aroundHole).contains(box);
            });
        };
        const qsizetype seen = std::stable_partition(all.begin(), all.end(), isBeside) - all.begin();
        all = all.first(seen) + shapes + all.sliced(seen);
    }

    /** Names the shape and unticks it where it can hardly be meant. */
    void Judge(AreaCandidate& candidate, bool isLine, qsizetype number)
    {
        const MapArea& area = candidate.Area;
        candidate.Name = area.Text.isEmpty()
                             ? areaShapeNames[std::size_t(area.Shape)].name + u' ' + QString::number(number)
                             : area.Text;
        const bool isRepeated = places_.contains(area.Coordinates);
        if (isLine) {
            candidate.Note = lineNote.toString();
        } else if (area.Link.isEmpty() && IsGround(area)) {
            candidate.Note = groundNote.toString();
        } else if (area.Link.isEmpty() && isRepeated) {
            candidate.Note = repeatedNote.toString();
        }
        candidate.IsTicked = candidate.Note.isEmpty();
        if (candidate.IsTicked) {
            places_.insert(area.Coordinates);
        }
    }

    [[nodiscard]] bool IsGround(const MapArea& area) const
    {
        const QRect box = BoundsOf(area);
        const double share =
            double(box.width()) * box.height() / (double(picture_.width()) * picture_.height());
        return area.Shape == AreaShape::Rectangle && share >= shareOfGround;
    }

    const SvgTree& tree_;
    QSize picture_;
    SvgShapesReading reading_;
    QSet<qsizetype> used_;    ///< what is being repeated
    QSet<QList<int>> places_; ///< the coordinates of those that are ticked
    qsizetype visited_ = 0;
};

} // namespace

SvgShapesReading ReadSvgShapes(const QByteArray& bytes, QSize picture)
{
    const SvgTree tree = ReadSvgTree(bytes);
    if (!tree.Problem.isEmpty()) {
        return { {}, tree.Problem };
    }
    return SvgWalk(tree, picture).Read();
}
