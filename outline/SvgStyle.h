#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QStringView>

/** Declarations of a style by their names. */
using SvgDeclarations = QHash<QString, QString>;

/** The declarations of an attribute `style`, or of what stands in the braces of a rule. */
[[nodiscard]] SvgDeclarations SvgDeclarationsOf(QStringView text);

/**
 * The style sheets of a drawing, as far as drawing programs use them: rules for a class, a name or a kind of
 * element alone. Other rules are passed over.
 */
class SvgStyleSheet
{
public:
    /** Adds the rules of `text`. */
    void Read(QStringView text);

    /** What the rules declare for an element; those for its classes count more than those for its kind, and
     * those for its name most. */
    [[nodiscard]] SvgDeclarations
    For(const QString& kind, const QStringList& classes, const QString& name) const;

    [[nodiscard]] bool IsEmpty() const { return rules_.isEmpty(); }

private:
    QHash<QString, SvgDeclarations> rules_; ///< by their selectors
};
