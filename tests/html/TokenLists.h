#pragma once

#include "html/HtmlTokens.h"

#include <QTest>

inline QList<HtmlToken> TokensOf(QStringView text)
{
    QList<HtmlToken> tokens;
    HtmlTokens reader(text);
    for (HtmlToken token; reader.Next(token);) {
        tokens += token;
    }
    return tokens;
}
