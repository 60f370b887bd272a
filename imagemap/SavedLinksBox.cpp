#include "imagemap/SavedLinksBox.h"

#include "shared/SavedLinks.h"

#include <QSignalBlocker>

void SavedLinksBox::Renew()
{
    const QStringList addresses = imgMap_ != nullptr ? SavedLinkAddresses(*imgMap_) : QStringList();
    QStringList offered;
    for (int i = 0; i < count(); ++i) {
        offered << itemText(i);
    }
    if (offered == addresses) {
        return;
    }
    const QString typed = currentText();
    const QSignalBlocker quiet(this);
    clear();
    addItems(addresses);
    // The list takes its first item for what was chosen.
    setCurrentIndex(-1);
    setEditText(typed);
}

void SavedLinksBox::showPopup()
{
    Renew();
    QComboBox::showPopup();
}

void SavedLinksBox::focusInEvent(QFocusEvent* event)
{
    // Arrow keys choose without the list being opened.
    Renew();
    QComboBox::focusInEvent(event);
}
