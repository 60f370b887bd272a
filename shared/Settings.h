#pragma once

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>

/** Something that is on or off. */
struct FlagSetting
{
    const char* Key;
    bool ByDefault;
};

/** A whole number, or the number of a choice; what lies outside its limits in the file does not count. */
struct NumberSetting
{
    const char* Key;
    int ByDefault;
    int Least;
    int Most;
};

/** Texts in an order, none at first; no more than `Most` are kept. */
struct ListSetting
{
    const char* Key;
    qsizetype Most;
};

/** Everything that is remembered from one start to the next, a line each: its place in the file, its default.
 */
namespace Setting {

inline constexpr NumberSetting markupForm{ "Map/Markup", 0, 0, 2 };
inline constexpr FlagSetting showAreas{ "Map/ShowAreas", false };
inline constexpr FlagSetting snap{ "Map/Snap", false };
inline constexpr FlagSetting guides{ "Map/Guides", false };
inline constexpr FlagSetting fitPicture{ "Map/FitPicture", false };
inline constexpr NumberSetting outlineTolerance{ "Map/OutlineTolerance", 80, 0,
                                                 1000 }; ///< tenths of a per cent
inline constexpr NumberSetting outlinePrecision{ "Map/OutlinePrecision", 10, 5, 500 }; ///< tenths of a pixel
inline constexpr FlagSetting outlineHoles{ "Map/OutlineHoles", false };
inline constexpr NumberSetting outlineIslands{ "Map/OutlineIslands", 0, 0, 1 };

inline constexpr FlagSetting readUtf8{ "Page/ReadUtf8", false };
inline constexpr FlagSetting newPagesUtf8{ "Page/NewPagesUtf8", false };
inline constexpr NumberSetting tabIndents{ "Page/TabIndents", 0, 0, 2 }; ///< not decided, on, off
inline constexpr FlagSetting completion{ "Page/Completion", false };
inline constexpr ListSetting recentPages{ "Page/Recent", 10 };
inline constexpr ListSetting recentPictures{ "Map/Recent", 10 };

inline constexpr FlagSetting colours{ "View/Colours", false };
inline constexpr FlagSetting lineNumbers{ "View/LineNumbers", false };
inline constexpr FlagSetting currentLine{ "View/CurrentLine", false };
inline constexpr FlagSetting spaces{ "View/Spaces", false };
inline constexpr FlagSetting wrap{ "View/Wrap", true };
inline constexpr NumberSetting textSize{ "View/TextSize", 0, -6, 60 }; ///< points beyond the usual size

inline constexpr FlagSetting findCase{ "Find/Case", false };
inline constexpr FlagSetting findWords{ "Find/Words", false };
inline constexpr FlagSetting findRegex{ "Find/Regex", false };

} // namespace Setting

/**
 * What is remembered. Values come from a file of the program folder, `Data/Settings.ini`, which is only there
 * once one of them was changed. A file that is broken counts as far as it can be read, and is kept beside the
 * new one; where it cannot be written, values hold until the program ends.
 */
class Settings
{
public:
    /** Every value its default; nothing is written until a file is opened. */
    Settings() = default;

    /** Takes the values of the file below `programFolder`, if there is one, and keeps changes there. */
    void Open(const QString& programFolder);

    [[nodiscard]] bool Value(const FlagSetting& setting) const;
    [[nodiscard]] int Value(const NumberSetting& setting) const;
    [[nodiscard]] QStringList Value(const ListSetting& setting) const;

    /** A value that is what it was is no change, and nothing is written. */
    void Keep(const FlagSetting& setting, bool value);

    /** `value` is taken into the limits. */
    void Keep(const NumberSetting& setting, int value);

    void Keep(const ListSetting& setting, const QStringList& values);

private:
    void Write(const char* key, const QVariant& value);

    QString path_; ///< of the file, or empty
    QHash<QByteArray, QVariant> values_;
};
