#pragma once

#include <QHash>
#include <QObject>
#include <QStringList>
#include <memory>

class MapDocument;
class QLockFile;

/**
 * The files of pictures that came from the clipboard, in the folder `Temp` of the program. Undoing finds
 * pictures by their files, so they stay as long as any program runs that may need them, which a lock beside
 * each tells; a program that ends takes away what is needed no more, be it left behind by a sudden end.
 */
class PastedPictures : public QObject
{
    Q_OBJECT

public:
    /** Those of `map`, for as long as its history lives. */
    [[nodiscard]] static PastedPictures& Of(MapDocument& map, const QString& programFolder);

    /** Whether `path` is, or could be, that of such a file. */
    [[nodiscard]] bool Contains(const QString& path) const;

    /** A path that no file has and no other program takes; it is held. Empty where nothing can be written. */
    [[nodiscard]] QString FreePath();

    /** Sees to it that no other program takes the file away until this one ends; any other path is ignored.
     */
    void Hold(const QString& path);

    /** Takes the file away. */
    void Remove(const QString& path);

    /** A page names the file, so that it stays; any other path is ignored. */
    void KeepForGood(const QString& path);

    [[nodiscard]] bool AreThereAny() const { return !Names().isEmpty(); }

    /** The program ends: all go but what it is to leave, `needed`, and what others hold. */
    void End(const QStringList& needed);

private:
    PastedPictures(MapDocument& map, const QString& programFolder);

    [[nodiscard]] QString Path(const QString& name, QStringView ending) const;
    [[nodiscard]] QStringList Names() const;
    [[nodiscard]] bool Take(const QString& name);

    QString folder_;
    QHash<QString, std::shared_ptr<QLockFile>> held_; ///< by the names of the files, without their endings
};
