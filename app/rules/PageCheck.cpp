#include "app/rules/PageCheck.h"

#include "app/rules/FileReferences.h"
#include "html/CharacterReferences.h"
#include "html/OpenElements.h"

#include <QHash>
#include <QSet>
#include <algorithm>

namespace {

/** So many different files are looked for at most: they may lie on another computer. */
constexpr qsizetype mostFiles = 5000;
/** So many problems are put in order: more are told than anybody reads, and something else is no page. */
constexpr qsizetype mostProblems = 20 * PageProblems::most;

/** What a page names by names of its own, and where. */
using Names = QHash<QString, HtmlSpan>;

class PageChecker
{
public:
    PageChecker(const QString& page, const IsFileThere& isThere)
        : page_(page)
        , isThere_(isThere)
        , open_(page)
    {
    }

    [[nodiscard]] PageProblems Check();

private:
    void Take(const HtmlToken& token, const HtmlState& state);
    void TakeStart(const HtmlToken& token, bool isForeign);
    void TakeAttributes(const HtmlToken& token);
    void TakeMap(const HtmlToken& token);
    void TakeUseOfMap(const HtmlToken& token);
    void TakeArea(const HtmlToken& token);
    void TakeAddress(const HtmlAttribute& attribute, QStringView element);
    void TellOfMaps();
    void TellOfFiles();

    void Tell(const HtmlSpan& place, const QString& text);
    void TellOfEnded(const OpenElements::Element& element);
    void NoteOnce(Names& names, const QString& name, const HtmlSpan& place, const QString& text);
    [[nodiscard]] QString ValueOf(const HtmlAttribute& attribute) const;
    [[nodiscard]] PageProblems Sorted();
    [[nodiscard]] QString NameIn(const HtmlToken& token) const { return token.name.In(page_).toString(); }

    QStringView page_;
    const IsFileThere& isThere_;
    OpenElements open_;
    QList<PageProblem> problems_;
    Names ids_;
    Names maps_;
    QSet<QString> mapIds_; ///< by which old browsers find maps, too
    QList<std::pair<QString, HtmlSpan>> usesOfMaps_;
    QList<std::pair<QString, HtmlSpan>> files_;
    bool areTooMany_ = false;
    bool hasBase_ = false; ///< whether addresses are those of another folder
};

PageProblems PageChecker::Check()
{
    HtmlTokens tokens(page_);
    for (HtmlToken token; tokens.Next(token);) {
        Take(token, tokens.State());
    }
    for (const OpenElements::Element& element : open_.Open()) {
        if (OpenElements::AtEndOfPage(element) == OpenElements::End::Missing) {
            TellOfEnded(element);
        }
    }
    TellOfMaps();
    TellOfFiles();
    return Sorted();
}

void PageChecker::Take(const HtmlToken& token, const HtmlState& state)
{
    using enum HtmlToken::Kind;
    const OpenElements::Effect effect = open_.Take(token, state);
    for (const OpenElements::Ended& ended : open_.EndedLast()) {
        if (ended.how == OpenElements::End::Missing) {
            TellOfEnded(ended.element);
        }
    }
    if (token.kind != Text && !token.isClosed) {
        const bool isTag = token.kind == StartTag || token.kind == EndTag;
        Tell(
            { token.whole.offset, 1 }, isTag ? QStringLiteral("The tag <%1 does not end").arg(NameIn(token))
                                             : QStringLiteral("The comment does not end"));
    } else if (effect == OpenElements::Effect::IsStray) {
        Tell(token.whole, QStringLiteral("</%1> closes nothing that is open").arg(NameIn(token)));
    } else if (token.kind == StartTag) {
        TakeStart(token, state.foreign.IsForeign());
    }
}

void PageChecker::Tell(const HtmlSpan& place, const QString& text)
{
    areTooMany_ = areTooMany_ || problems_.size() >= mostProblems;
    if (!areTooMany_) {
        problems_ << PageProblem{ place, 0, text };
    }
}

void PageChecker::TellOfEnded(const OpenElements::Element& element)
{
    Tell(element.tag, QStringLiteral("<%1> is not closed").arg(element.name.In(page_)));
}

void PageChecker::TakeStart(const HtmlToken& token, bool isForeign)
{
    const QStringView name = token.name.In(page_);
    const HtmlElement* const kind = FindElement(name);
    const bool isOwn = name.contains(u'-'); // of a page's scripts
    const bool isInForeign = isForeign || (!open_.Open().empty() && open_.Open().back().isForeign);
    if (kind == nullptr && !isOwn && !isInForeign) {
        Tell(token.whole, QStringLiteral("The tag <%1> is unknown").arg(name));
    }
    TakeAttributes(token);
    if (kind == nullptr) {
        return;
    }
    if (kind->name == "map") {
        TakeMap(token);
    } else if (kind->name == "area") {
        TakeArea(token);
    } else if (kind->name == "base") {
        hasBase_ = hasBase_ || token.Find(page_, QLatin1String("href")) != nullptr;
    } else if (kind->name == "img" || kind->name == "input" || kind->name == "object") {
        TakeUseOfMap(token);
    }
}

void PageChecker::TakeAttributes(const HtmlToken& token)
{
    for (const HtmlAttribute& attribute : token.attributes) {
        const QStringView name = attribute.name.In(page_);
        if (attribute.isDuplicate) {
            Tell(attribute.whole, QStringLiteral("The attribute %1 is there twice").arg(name));
        } else if (IsName(name, QLatin1String("id"))) {
            const QString id = ValueOf(attribute);
            NoteOnce(ids_, id, attribute.whole, QStringLiteral("The id \"%1\" is there already").arg(id));
        } else if (IsAddress(token.name.In(page_), name)) {
            TakeAddress(attribute, token.name.In(page_));
        }
    }
}

void PageChecker::NoteOnce(Names& names, const QString& name, const HtmlSpan& place, const QString& text)
{
    if (names.contains(name)) {
        Tell(place, text);
    } else {
        names.insert(name, place);
    }
}

void PageChecker::TakeMap(const HtmlToken& token)
{
    const HtmlAttribute* const name = token.Find(page_, QLatin1String("name"));
    const HtmlAttribute* const id = token.Find(page_, QLatin1String("id"));
    if (id != nullptr) {
        mapIds_ << ValueOf(*id);
    }
    if (name == nullptr || name->value.length == 0) {
        Tell(token.whole, QStringLiteral("The map has no name"));
        return;
    }
    const QString mapName = ValueOf(*name);
    NoteOnce(maps_, mapName, token.whole, QStringLiteral("There is a map \"%1\" already").arg(mapName));
}

void PageChecker::TakeUseOfMap(const HtmlToken& token)
{
    if (const HtmlAttribute* const use = token.Find(page_, QLatin1String("usemap"))) {
        usesOfMaps_ << std::pair(ValueOf(*use), use->whole);
    }
}

void PageChecker::TakeArea(const HtmlToken& token)
{
    const bool leadsOn = token.Find(page_, QLatin1String("href")) != nullptr;
    const HtmlAttribute* const text = token.Find(page_, QLatin1String("alt"));
    if (leadsOn && (text == nullptr || ValueOf(*text).trimmed().isEmpty())) {
        Tell(token.whole, QStringLiteral("The area has no text (alt)"));
    }
}

void PageChecker::TakeAddress(const HtmlAttribute& attribute, QStringView element)
{
    if (!isThere_ || (IsName(element, QLatin1String("base")))) {
        return;
    }
    const QString file = FileOfAddress(ValueOf(attribute));
    if (!file.isEmpty()) {
        files_ << std::pair(file, attribute.whole);
    }
}

void PageChecker::TellOfMaps()
{
    QSet<QString> used;
    for (const auto& [address, place] : std::as_const(usesOfMaps_)) {
        const QString name = address.mid(address.indexOf(u'#') + 1);
        const bool isOther = address.indexOf(u'#') > 0; // a map of another page
        if (!isOther && !maps_.contains(name) && !mapIds_.contains(name)) {
            Tell(place, QStringLiteral("There is no map \"%1\"").arg(name));
        }
        used << name;
    }
    for (auto map = maps_.cbegin(); map != maps_.cend(); ++map) {
        if (!used.contains(map.key())) {
            Tell(map.value(), QStringLiteral("No picture uses the map \"%1\"").arg(map.key()));
        }
    }
}

void PageChecker::TellOfFiles()
{
    QHash<QString, bool> areThere;
    if (hasBase_) {
        return;
    }
    for (const auto& [file, place] : std::as_const(files_)) {
        if (!areThere.contains(file)) {
            if (areThere.size() >= mostFiles) {
                return;
            }
            areThere.insert(file, isThere_(file));
        }
        if (!areThere.value(file)) {
            Tell(place, QStringLiteral("The file \"%1\" is missing").arg(file));
        }
    }
}

QString PageChecker::ValueOf(const HtmlAttribute& attribute) const
{
    return DecodedValue(attribute.value.In(page_));
}

/** The problems in the order of the page, with their lines. */
PageProblems PageChecker::Sorted()
{
    std::ranges::stable_sort(problems_, {}, [](const PageProblem& problem) { return problem.Place.offset; });
    PageProblems all{ problems_.mid(0, PageProblems::most),
                      areTooMany_ || problems_.size() > PageProblems::most };
    int line = 1;
    qsizetype counted = 0;
    for (PageProblem& problem : all.List) {
        const QStringView between = page_.sliced(counted, problem.Place.offset - counted);
        line += static_cast<int>(between.count(u'\n'));
        counted = problem.Place.offset;
        problem.Line = line;
    }
    return all;
}

} // namespace

PageProblems CheckPage(const QString& page, const IsFileThere& isThere)
{
    return PageChecker(page, isThere).Check();
}
