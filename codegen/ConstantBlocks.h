#pragma once

#include "html/HtmlTokens.h"

#include <QString>
#include <optional>

/** The constant style or script in a page: the one place that knows whether it is there. */
class ConstantBlock
{
public:
    /** `element` is "style" or "script", `content` what stands between its tags today. */
    ConstantBlock(QLatin1String element, QStringView content)
        : element_(element)
        , content_(content)
    {
    }

    /** Takes the next token of `page`. */
    void Take(QStringView page, const HtmlToken& token);

    /** Whether the version in force has been seen. */
    [[nodiscard]] bool IsCurrent() const { return isCurrent_; }

    /** The first older version that has been seen, with its tags. */
    [[nodiscard]] std::optional<HtmlSpan> Older() const { return older_; }

    /** Whether one of any version begins in `span`. */
    [[nodiscard]] bool IsIn(HtmlSpan span) const;

    /** The element as it is written today; lines end in LF, the last one too. */
    [[nodiscard]] QString Markup() const;

private:
    QLatin1String element_;
    QStringView content_;
    std::optional<qsizetype> start_ = {}; ///< of an older one that is being read
    bool isCurrent_ = false;
    std::vector<qsizetype> starts_ = {}; ///< of all versions
    std::optional<HtmlSpan> older_ = {};
};

[[nodiscard]] ConstantBlock StyleBlock();
[[nodiscard]] ConstantBlock ScriptBlock();
