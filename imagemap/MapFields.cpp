#include "imagemap/MapFields.h"

#include "ui_frmImageMap.h"
#include "widgets/WindowHelpers.h"

namespace {

QString TextOrCaption(const QLineEdit* field, const QLabel* fallback)
{
    return field->text().isEmpty() ? fallback->text() : field->text();
}

} // namespace

MapFields::MapFields(Ui::frmImageMap& ui, Settings& settings)
    : ui_(ui)
    , settings_(settings)
{
    ui_.cmbAlign->setCompleter(nullptr);
    ui_.cmbAlign->setCurrentIndex(-1);
    NameParts(ui_.cmbAlign);
    for (const QStringView name : markupFormNames) {
        ui_.cmbMarkup->addItem(name.toString());
    }
    ui_.cmbMarkup->setCurrentIndex(settings_.Value(Setting::markupForm));
    connect(ui_.cmbMarkup, &QComboBox::activated, this, &MapFields::cmbMarkup_Activated);
}

QMap<QString, QString> MapFields::Texts() const
{
    QMap<QString, QString> texts;
    const QList<QLineEdit*> fields = { ui_.txtName,   ui_.txtAltDescript, ui_.txtImgWidth, ui_.txtImgHeight,
                                       ui_.txtBorder, ui_.txtHorSp,       ui_.txtVertSp };
    for (const QLineEdit* const field : fields) {
        texts.insert(field->objectName(), field->text());
    }
    texts.insert(ui_.cmbAlign->objectName(), ui_.cmbAlign->currentText());
    texts.insert(ui_.Check1->objectName(), QString::number(int(ui_.Check1->isChecked())));
    return texts;
}

void MapFields::SetTexts(const QMap<QString, QString>& texts)
{
    for (const auto& [name, text] : texts.asKeyValueRange()) {
        if (auto* const field = ui_.SSTab1->findChild<QLineEdit*>(name)) {
            field->setText(text);
        }
    }
    ui_.cmbAlign->setCurrentText(texts.value(ui_.cmbAlign->objectName()));
    ui_.Check1->setChecked(texts.value(ui_.Check1->objectName()).toInt() != 0);
}

MapSource MapFields::Source() const
{
    return { .MapName = ui_.txtName->text(),
             .Width = TextOrCaption(ui_.txtImgWidth, ui_.lblWidthPic),
             .Height = TextOrCaption(ui_.txtImgHeight, ui_.lblHeightPic),
             .AltText = ui_.txtAltDescript->text(),
             .Align = ui_.cmbAlign->currentText(),
             .Border = ui_.txtBorder->text(),
             .HorizontalSpace = ui_.txtHorSp->text(),
             .VerticalSpace = ui_.txtVertSp->text(),
             .PictureReference = {},
             .FileNamesOnly = ui_.Check1->isChecked(),
             .ModeDefault = {},
             .Areas = {} };
}

MapSource MapFields::TypedSource() const
{
    MapSource source = Source();
    source.Width = ui_.txtImgWidth->text();
    source.Height = ui_.txtImgHeight->text();
    return source;
}

void MapFields::ShowOther(const MapSource& source)
{
    const MapSource shown = Source();
    for (const SourceField& field : SourceFields()) {
        if (shown.*field.member != source.*field.member) {
            field.edit->setText(source.*field.member);
        }
    }
    ui_.Check1->setChecked(source.FileNamesOnly);
}

void MapFields::ShowTyped(const MapSource& source)
{
    for (const SourceField& field : SourceFields()) {
        field.edit->setText(source.*field.member);
    }
    ui_.Check1->setChecked(source.FileNamesOnly);
}

/** The fields that hold a text of the map each. */
QList<MapFields::SourceField> MapFields::SourceFields() const
{
    return { { ui_.txtName, &MapSource::MapName },         { ui_.txtImgWidth, &MapSource::Width },
             { ui_.txtImgHeight, &MapSource::Height },     { ui_.txtAltDescript, &MapSource::AltText },
             { ui_.txtBorder, &MapSource::Border },        { ui_.txtHorSp, &MapSource::HorizontalSpace },
             { ui_.txtVertSp, &MapSource::VerticalSpace }, { ui_.cmbAlign->lineEdit(), &MapSource::Align } };
}

MarkupForm MapFields::Form() const
{
    return MarkupForm(ui_.cmbMarkup->currentIndex());
}

void MapFields::ShowPictureSize(QSize size)
{
    ui_.lblWidthPic->setText(QString::number(size.width()));
    ui_.lblHeightPic->setText(QString::number(size.height()));
    ui_.txtImgWidth->setText(ui_.lblWidthPic->text());
    ui_.txtImgHeight->setText(ui_.lblHeightPic->text());
}

void MapFields::GoToName()
{
    ui_.SSTab1->setCurrentWidget(ui_.tabCreating);
    ui_.txtName->setFocus();
}

void MapFields::GoToAltText()
{
    ui_.SSTab1->setCurrentWidget(ui_.tabOptions);
    ui_.txtAltDescript->setFocus();
}

void MapFields::cmbMarkup_Activated(int form)
{
    settings_.Keep(Setting::markupForm, form);
}
