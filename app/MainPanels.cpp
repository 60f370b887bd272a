#include "app/MainPanels.h"

#include "app/CapsLock.h"
#include "app/rules/DocumentFile.h"
#include "widgets/ElidedLabel.h"

#include <QLabel>
#include <QStatusBar>

MainPanels::MainPanels(QStatusBar* bar, const Desktop& desktop, const DocumentFile& file)
    : QObject(bar)
    , panel1_(new QLabel(QStringLiteral("CAPS"), bar))
    , panel2_(new QLabel(bar))
    , panel3_(new ElidedLabel(bar))
{
    panel1_->setObjectName(QStringLiteral("StatusBar1_Panel1"));
    panel2_->setObjectName(QStringLiteral("StatusBar1_Panel2"));
    panel3_->setObjectName(QStringLiteral("StatusBar1_Panel3"));
    const auto* const capsLock = new CapsLock(desktop, this);
    panel1_->setEnabled(capsLock->IsOn());
    connect(capsLock, &CapsLock::Changed, panel1_, &QLabel::setEnabled);
    connect(&file, &DocumentFile::NameChanged, this, &MainPanels::ShowDocumentName);
    bar->addWidget(panel1_);
    bar->addWidget(panel2_);
    bar->addWidget(panel3_, 1);
}

int MainPanels::Height() const
{
    return panel1_->sizeHint().height();
}

void MainPanels::ShowDocumentName(const QString& name)
{
    panel3_->setText(name);
    panel3_->setToolTip(PlainToolTip(name));
}
