#include "codegen/ConstantBlocks.h"

#include "codegen/TodayBlocks.h"
#include "html/CharacterReferences.h"

#include <QStringBuilder>
#include <algorithm>

void ConstantBlock::Take(QStringView page, const HtmlToken& token)
{
    if (!IsName(token.name.In(page), element_)) {
        return;
    }
    if (token.kind == HtmlToken::Kind::EndTag && start_) {
        older_ = HtmlSpan{ *start_, token.whole.End() - *start_ };
        start_.reset();
        return;
    }
    const HtmlAttribute* const mark = token.Find(page, TodayBlocks::markAttribute);
    if (token.kind != HtmlToken::Kind::StartTag || mark == nullptr) {
        return;
    }
    starts_.push_back(token.whole.offset);
    if (DecodedValue(mark->value.In(page)) == TodayBlocks::version) {
        isCurrent_ = true;
    } else if (!older_) {
        start_ = token.whole.offset;
    }
}

bool ConstantBlock::IsIn(HtmlSpan span) const
{
    return std::any_of(starts_.begin(), starts_.end(), [span](qsizetype start) {
        return start >= span.offset && start < span.End();
    });
}

QString ConstantBlock::Markup() const
{
    return u'<' % element_ % u' ' % TodayBlocks::markAttribute % u"=\"" % TodayBlocks::version % u"\">" %
           content_ % u"</" % element_ % u">\n";
}

ConstantBlock StyleBlock()
{
    return { QLatin1String("style"), TodayBlocks::style };
}

ConstantBlock ScriptBlock()
{
    return { QLatin1String("script"), TodayBlocks::script };
}
