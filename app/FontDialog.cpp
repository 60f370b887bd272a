#include "app/FontDialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPainter>
#include <QVBoxLayout>
#include <array>

namespace {

/** The sixteen colours that HTML 4 knows by name. */
constexpr auto colorNames =
    std::to_array<const char*>({ "Black", "Maroon", "Green", "Olive", "Navy", "Purple", "Teal", "Gray",
                                 "Silver", "Red", "Lime", "Yellow", "Blue", "Fuchsia", "Aqua", "White" });

QIcon ColorPatch(const QColor& color)
{
    QPixmap patch(24, 12);
    patch.fill(color);
    QPainter painter(&patch);
    painter.setPen(Qt::gray);
    painter.drawRect(patch.rect().adjusted(0, 0, -1, -1));
    return patch;
}

} // namespace

FontDialog::FontDialog(const QFont& font, QWidget* owner)
    : QFontDialog(font, owner)
{
    setObjectName(QStringLiteral("CommonDialog1"));
    setWindowTitle(QStringLiteral("Font"));
    // The systems' own dialogs know no colour.
    setOption(QFontDialog::DontUseNativeDialog);
    AddColors();
}

void FontDialog::AddColors()
{
    cmbColor_ = new QComboBox(this);
    cmbColor_->setObjectName(QStringLiteral("cmbColor"));
    cmbColor_->setAccessibleName(QStringLiteral("Color"));
    cmbColor_->setIconSize({ 24, 12 });
    // What the palette gives to text; no colour of its own.
    cmbColor_->addItem(QStringLiteral("Automatic"), QVariant::fromValue(QBrush()));
    for (const char* const name : colorNames) {
        const QColor color(QString::fromLatin1(name).toLower());
        cmbColor_->addItem(ColorPatch(color), QString::fromLatin1(name), QVariant::fromValue(QBrush(color)));
    }
    auto* const label = new QLabel(QStringLiteral("&Color"), this);
    label->setBuddy(cmbColor_);
    // Beside the other effects, where Qt's dialog is built as it has long been.
    const auto* const effect = findChild<QCheckBox*>();
    QLayout* const effects = effect != nullptr ? effect->parentWidget()->layout() : layout();
    effects->addWidget(label);
    effects->addWidget(cmbColor_);
}

void FontDialog::SetChoice(const QTextCharFormat& choice)
{
    setCurrentFont(choice.font());
    cmbColor_->setCurrentIndex(cmbColor_->findData(QVariant::fromValue(choice.foreground())));
}

QTextCharFormat FontDialog::Choice() const
{
    const QFont font = currentFont();
    QTextCharFormat choice;
    choice.setFontFamilies({ font.family() });
    choice.setFontPointSize(font.pointSizeF());
    choice.setFontWeight(font.weight());
    choice.setFontItalic(font.italic());
    choice.setFontStrikeOut(font.strikeOut());
    choice.setFontUnderline(font.underline());
    choice.setForeground(cmbColor_->currentData().value<QBrush>());
    return choice;
}
