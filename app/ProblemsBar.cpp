#include "app/ProblemsBar.h"

#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "widgets/WindowHelpers.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QStyle>
#include <QTextBlock>

namespace {

/** So many rows are seen at once. */
constexpr int rowsShown = 5;

} // namespace

ProblemsBar::ProblemsBar(SourceEditor& editor, const DocumentFile& file)
    : EditorBar(&editor, "barProblems", QStringLiteral("Check Page"))
    , editor_(editor)
    , file_(file)
{
    AddControls();
    // What was found is of another page.
    connect(&file, &DocumentFile::Began, this, &QWidget::hide);
}

void ProblemsBar::AddControls()
{
    constexpr int margin = 4;
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setSpacing(margin);
    count_ = new QLabel(this);
    count_->setObjectName(QStringLiteral("lblProblems"));
    auto* const close = new QPushButton(this);
    close->setObjectName(QStringLiteral("btnCloseProblems"));
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAccessibleName(QStringLiteral("Close the list of problems"));
    close->setToolTip(QStringLiteral("Close the list of problems"));
    close->setAutoDefault(false);
    close->setFlat(true);
    list_ = new QListWidget(this);
    list_->setObjectName(QStringLiteral("lstProblems"));
    list_->setAccessibleName(QStringLiteral("Problems"));
    list_->setUniformItemSizes(true);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    list_->setFixedHeight(
        rowsShown * (list_->fontMetrics().lineSpacing() + margin) + 2 * list_->frameWidth());
    grid->addWidget(count_, 0, 0);
    grid->addWidget(close, 0, 1);
    grid->addWidget(list_, 1, 0, 1, -1);
    grid->setColumnStretch(0, 1);
    connect(close, &QPushButton::clicked, this, &ProblemsBar::btnCloseProblems_Click);
    connect(list_, &QListWidget::itemClicked, this, [this] { lstProblems_Activate(list_->currentRow()); });
}

void ProblemsBar::CheckNow()
{
    ShowHourglass();
    IsFileThere isThere;
    if (!file_.IsNeverSaved()) {
        const QDir folder = QFileInfo(file_.Name()).absoluteDir();
        isThere = [folder](const QString& path) { return QFileInfo::exists(folder.filePath(path)); };
    }
    Show(CheckPage(editor_.Text(), isThere));
    ShowDefaultPointer();
}

void ProblemsBar::Show(const PageProblems& problems)
{
    list_->clear();
    places_.clear();
    for (const PageProblem& problem : problems.List) {
        QTextCursor place(editor_.document());
        place.setPosition(DocumentPosition(*editor_.document(), problem.Place.offset));
        place.setPosition(
            DocumentPosition(*editor_.document(), problem.Place.End()), QTextCursor::KeepAnchor);
        places_ << place;
        AddRow(QStringLiteral("Line %1: %2").arg(problem.Line).arg(problem.Text));
    }
    const qsizetype count = problems.List.size();
    count_->setText(
        count == 0         ? QStringLiteral("Nothing found")
        : problems.AreMore ? QStringLiteral("More than %1 problems").arg(count)
        : count == 1       ? QStringLiteral("1 problem")
                           : QStringLiteral("%1 problems").arg(count));
    if (count == 0) {
        AddRow(QStringLiteral("Nothing found"));
    }
    list_->setCurrentRow(0);
    show();
    list_->setFocus();
}

void ProblemsBar::AddRow(const QString& text)
{
    auto* const row = new QListWidgetItem(text, list_);
    row->setToolTip(text);
}

void ProblemsBar::lstProblems_Activate(int row)
{
    if (row >= 0 && row < places_.size()) {
        editor_.setTextCursor(places_[row]);
        editor_.centerCursor();
        editor_.setFocus();
    }
}

void ProblemsBar::btnCloseProblems_Click()
{
    hide();
    editor_.setFocus();
}

void ProblemsBar::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        btnCloseProblems_Click();
    } else if (isEnter && list_->hasFocus()) {
        lstProblems_Activate(list_->currentRow());
    } else {
        EditorBar::keyPressEvent(event);
    }
}
