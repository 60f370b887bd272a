#pragma once

#include <QComboBox>

struct ImgMap;

/** A field for a link that offers the saved ones as they are when it is used; what is typed stays as it is.
 */
class SavedLinksBox final : public QComboBox
{
    Q_OBJECT

public:
    using QComboBox::QComboBox;

    /** Offers the saved links of `imgMap`, which must live as long. */
    void Offer(const ImgMap& imgMap) { imgMap_ = &imgMap; }

    void showPopup() override;

protected:
    void focusInEvent(QFocusEvent* event) override;

private:
    void Renew();

    const ImgMap* imgMap_ = nullptr;
};
