#pragma once

#include "outline/SvgStyle.h"

#include <QByteArray>
#include <QHash>
#include <QList>
#include <QString>

/** An element of a drawing with those of its attributes that shapes are made of. */
struct SvgElement
{
    QString Name;
    QHash<QString, QString> Attributes; ///< by their names without a prefix
    QString Title;                      ///< what its first title says, as one line
    QList<qsizetype> Children;          ///< numbers in the tree

    [[nodiscard]] QString Value(QLatin1String name) const { return Attributes.value(name); }
};

/** A drawing as it was read, or what is to be told about it. */
struct SvgTree
{
    QList<SvgElement> Elements; ///< the first is the drawing itself
    QHash<QString, qsizetype> ById;
    SvgStyleSheet Styles;
    QString Problem; ///< a sentence for the user; empty when all is well

    static constexpr qint64 mostBytes = qint64(32) * 1024 * 1024;
    /** So many elements at most, those that are drawn again counted as often as they are. */
    static constexpr qsizetype mostElements = 200'000;
    static constexpr qsizetype deepestNesting = 200;
};

/** Reads a drawing. Nothing is loaded that lies outside of it, and what it declares unfolds no further than
 * Qt's reader allows. */
[[nodiscard]] SvgTree ReadSvgTree(const QByteArray& bytes);
