#include "shared/Settings.h"

#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <algorithm>

namespace {

constexpr QStringView settingsFileName = u"Data/Settings.ini";
constexpr QStringView brokenFileEnd = u".broken";

/** Whether `path` is nothing yet, or a file that whoever opens it does not wait for. */
bool IsPlainFileOrFree(const QString& path)
{
    const QFileInfo file(path);
    return !file.exists() || file.isFile();
}

/** Whether a line of the file `path` is none of those that the program writes; reading passes over it. */
bool IsBroken(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return false;
    }
    const QList<QByteArray> lines = file.readAll().split('\n');
    return std::any_of(lines.begin(), lines.end(), [](const QByteArray& line) {
        const QByteArray text = line.trimmed();
        const bool isGroup = text.startsWith('[') && text.endsWith(']');
        return !text.isEmpty() && !isGroup && text.indexOf('=') < 1;
    });
}

} // namespace

void Settings::Open(const QString& programFolder)
{
    path_ = QDir(programFolder).filePath(settingsFileName.toString());
    values_.clear();
    if (!QFileInfo(path_).isFile()) {
        return;
    }
    const QSettings file(path_, QSettings::IniFormat);
    const QStringList keys = file.allKeys();
    for (const QString& key : keys) {
        values_.insert(key.toUtf8(), file.value(key));
    }
}

bool Settings::Value(const FlagSetting& setting) const
{
    const QString text = values_.value(setting.Key).toString();
    const bool isFlag = text == QLatin1String("true") || text == QLatin1String("false");
    return isFlag ? text == QLatin1String("true") : setting.ByDefault;
}

int Settings::Value(const NumberSetting& setting) const
{
    bool isNumber = false;
    const int number = values_.value(setting.Key).toString().toInt(&isNumber);
    return isNumber && number >= setting.Least && number <= setting.Most ? number : setting.ByDefault;
}

QStringList Settings::Value(const ListSetting& setting) const
{
    return values_.value(setting.Key).toStringList().mid(0, setting.Most);
}

void Settings::Keep(const FlagSetting& setting, bool value)
{
    if (Value(setting) != value) {
        Write(setting.Key, value);
    }
}

void Settings::Keep(const NumberSetting& setting, int value)
{
    const int kept = std::clamp(value, setting.Least, setting.Most);
    if (Value(setting) != kept) {
        Write(setting.Key, kept);
    }
}

void Settings::Keep(const ListSetting& setting, const QStringList& values)
{
    const QStringList kept = values.mid(0, setting.Most);
    if (Value(setting) != kept) {
        Write(setting.Key, kept);
    }
}

void Settings::Write(const char* key, const QVariant& value)
{
    values_.insert(key, value);
    if (path_.isEmpty() || !IsPlainFileOrFree(path_)) {
        return;
    }
    if (IsBroken(path_)) {
        // Writing would drop what cannot be read; somebody may have typed it.
        QFile::remove(path_ + brokenFileEnd);
        QFile::copy(path_, path_ + brokenFileEnd);
    }
    QSettings file(path_, QSettings::IniFormat);
    file.setAtomicSyncRequired(true);
    file.setValue(QLatin1String(key), value);
    file.sync();
}
