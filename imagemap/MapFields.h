#pragma once

#include "codegen/MapMarkup.h"
#include "codegen/MarkupForm.h"

#include <QMap>
#include <QObject>
#include <QSize>

namespace Ui {
class frmImageMap;
}
class QLineEdit;

/** The fields of the editor about the whole map: its name, the picture's attributes, and how it is written.
 */
class MapFields final : public QObject
{
    Q_OBJECT

public:
    /** The controls of `ui` and `settings`, where the form of the markup is remembered, live as long. */
    MapFields(Ui::frmImageMap& ui, Settings& settings);

    /** What is in the fields, by their names. */
    [[nodiscard]] QMap<QString, QString> Texts() const;
    void SetTexts(const QMap<QString, QString>& texts);

    /** What the fields tell of the map; its areas and its picture's reference are left to whoever has them.
     */
    [[nodiscard]] MapSource Source() const;

    /** The same, but for the picture's own size, which does not stand in for one that was not typed. */
    [[nodiscard]] MapSource TypedSource() const;

    /** Shows what `source` says of the map, where it is something else than Source(). */
    void ShowOther(const MapSource& source);

    /** Shows what `source` says of the map, and nothing where it says nothing. */
    void ShowTyped(const MapSource& source);

    /** What the map is to be written as. */
    [[nodiscard]] MarkupForm Form() const;

    /** A picture of that size is open: it is what the map has unless something else is typed. */
    void ShowPictureSize(QSize size);

    /** Give the keys to the field of the map's name, or to that of the picture's text. */
    void GoToName();
    void GoToAltText();

private:
    struct SourceField
    {
        QLineEdit* edit;
        QString MapSource::*member;
    };

    [[nodiscard]] QList<SourceField> SourceFields() const;
    void cmbMarkup_Activated(int form);

    Ui::frmImageMap& ui_;
    Settings& settings_;
};
