#include "app/rules/IndentRules.h"

#include <cmath>

namespace {

constexpr double mostMillimetres = 254;
constexpr double twipsPerMillimetre = 56.7;

QString InchesText(int millimetres)
{
    const int hundredths = millimetres * 4;
    if (hundredths % 100 == 0) {
        return QString::number(hundredths / 100).left(1);
    }
    return QStringLiteral("%1.%2").arg(hundredths / 100).arg(hundredths / 10 % 10);
}

} // namespace

IndentTexts IndentTextsFor(const QString& typed)
{
    bool isNumber = false;
    const double whole = std::nearbyint(typed.toDouble(&isNumber));
    // A number that is none compares as false.
    if (!isNumber || !(whole >= 0 && whole <= mostMillimetres)) {
        return { QString(), QStringLiteral("0") };
    }
    const int millimetres = static_cast<int>(whole);
    return { QString::number(millimetres), InchesText(millimetres) };
}

double IndentTwips(const QString& millimetres)
{
    return millimetres.toDouble() * twipsPerMillimetre;
}
