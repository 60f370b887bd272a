#pragma once

#include "shared/ImgMap.h"

#include <QObject>

class QLineEdit;
class QListWidget;
class QPushButton;

struct LinkButtons
{
    QPushButton* Add;
    QPushButton* Delete;
    QPushButton* Save;
};

/** The list of saved links. The table in memory always equals the list that the user sees. */
class LinksList : public QObject
{
    Q_OBJECT

public:
    /** New links are typed into `field`. */
    LinksList(ImgMap& imgMap, QLineEdit* field, QListWidget* list, const LinkButtons& buttons);

    /** Reads the links file; tells when it is damaged. */
    void Load();

private:
    void btnAdd_Click();
    void btnDelete_Click();
    void btnSave_Click();

    [[nodiscard]] QString LinksPath() const;

    ImgMap& imgMap_;
    QLineEdit* field_;
    QListWidget* list_;
};
