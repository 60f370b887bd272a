#include "app/FindBar.h"

#include "app/SourceEditor.h"
#include "app/WrappingLayout.h"
#include "app/rules/DocumentFile.h"
#include "app/source/LongLines.h"
#include "shared/Settings.h"
#include "widgets/OneLineField.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QStyle>
#include <QTextBlock>
#include <algorithm>
#include <chrono>

namespace {

constexpr auto pauseAfterEdits = std::chrono::milliseconds(200);
/** Amber, and what is read on it, in light and dark windows. */
constexpr QColor matchGround(0xFF, 0xE0, 0x80);
constexpr QColor matchText(0x20, 0x20, 0x20);

QPushButton* NewButton(QWidget* owner, const char* name, const QString& caption)
{
    auto* const button = new QPushButton(caption, owner);
    button->setObjectName(QString::fromLatin1(name));
    button->setAutoDefault(false);
    return button;
}

QLineEdit* NewField(QWidget* owner, const char* name, const QString& accessibleName)
{
    auto* const field = new QLineEdit(owner);
    field->setObjectName(QString::fromLatin1(name));
    field->setAccessibleName(accessibleName);
    LeaveCommandKeys(field);
    return field;
}

} // namespace

FindBar::FindBar(SourceEditor& editor, Settings& settings, const DocumentFile& file)
    : EditorBar(&editor, "barFind", QStringLiteral("Find"))
    , editor_(editor)
    , settings_(settings)
    , file_(file)
{
    AddControls();
    HoldOneLine(this);
    afterEdits_.setSingleShot(true);
    afterEdits_.setInterval(pauseAfterEdits);
    connect(&afterEdits_, &QTimer::timeout, this, &FindBar::SearchIfStale);
    connect(&editor_, &SourceEditor::textChanged, this, [this] {
        isStale_ = true;
        if (isVisible()) {
            afterEdits_.start();
        }
    });
    connect(&editor_, &SourceEditor::selectionChanged, this, &FindBar::ShowCount);
    connect(editor_.verticalScrollBar(), &QScrollBar::valueChanged, this, &FindBar::ShowMarks);
}

void FindBar::AddControls()
{
    constexpr int margin = 4;
    auto* const grid = new QGridLayout(this);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setSpacing(margin);
    find_ = NewField(this, "txtFind", QStringLiteral("Find"));
    replace_ = NewField(this, "txtReplace", QStringLiteral("Replace with"));
    auto* const findLabel = new QLabel(QStringLiteral("Find:"), this);
    replaceLabel_ = new QLabel(QStringLiteral("Replace with:"), this);
    count_ = new QLabel(this);
    count_->setObjectName(QStringLiteral("lblMatches"));
    grid->addWidget(findLabel, 0, 0);
    grid->addWidget(find_, 0, 1);
    grid->addWidget(replaceLabel_, 1, 0);
    grid->addWidget(replace_, 1, 1);
    AddButtons(*grid);
    auto* const ways = new WrappingLayout;
    ways->setSpacing(2 * margin);
    case_ = NewCheck("chkCase", QStringLiteral("&Match case"), &Setting::findCase);
    words_ = NewCheck("chkWords", QStringLiteral("&Whole words"), &Setting::findWords);
    regex_ = NewCheck("chkRegex", QStringLiteral("Regular e&xpression"), &Setting::findRegex);
    selection_ = NewCheck("chkSelection", QStringLiteral("In &selection"), nullptr);
    for (QWidget* const way : std::initializer_list<QWidget*>{ case_, words_, regex_, selection_, count_ }) {
        ways->addWidget(way);
    }
    grid->addLayout(ways, 2, 0, 1, -1);
    grid->setColumnStretch(1, 1);
    connect(find_, &QLineEdit::textChanged, this, &FindBar::txtFind_Change);
    connect(selection_, &QCheckBox::toggled, this, &FindBar::chkSelection_Click);
}

void FindBar::AddButtons(QGridLayout& grid)
{
    auto* const next = NewButton(this, "btnFindNext", QStringLiteral("Next"));
    auto* const previous = NewButton(this, "btnFindPrevious", QStringLiteral("Previous"));
    replaceOne_ = NewButton(this, "btnReplace", QStringLiteral("Replace"));
    replaceAll_ = NewButton(this, "btnReplaceAll", QStringLiteral("Replace All"));
    auto* const close = NewButton(this, "btnCloseFind", QString());
    close->setIcon(style()->standardIcon(QStyle::SP_TitleBarCloseButton));
    close->setAccessibleName(QStringLiteral("Close the find bar"));
    close->setToolTip(QStringLiteral("Close the find bar"));
    close->setFlat(true);
    grid.addWidget(next, 0, 2);
    grid.addWidget(previous, 0, 3);
    grid.addWidget(close, 0, 4);
    grid.addWidget(replaceOne_, 1, 2);
    grid.addWidget(replaceAll_, 1, 3);
    connect(next, &QPushButton::clicked, this, &FindBar::FindNext);
    connect(previous, &QPushButton::clicked, this, &FindBar::FindPrevious);
    connect(replaceOne_, &QPushButton::clicked, this, &FindBar::btnReplace_Click);
    connect(replaceAll_, &QPushButton::clicked, this, &FindBar::btnReplaceAll_Click);
    connect(close, &QPushButton::clicked, this, &FindBar::btnCloseFind_Click);
}

/** A way of searching, remembered under `setting` if there is one. */
QCheckBox* FindBar::NewCheck(const char* name, const QString& caption, const FlagSetting* setting)
{
    auto* const check = new QCheckBox(caption, this);
    check->setObjectName(QString::fromLatin1(name));
    if (setting != nullptr) {
        check->setChecked(settings_.Value(*setting));
        connect(check, &QCheckBox::toggled, this, [this, setting](bool isChecked) {
            settings_.Keep(*setting, isChecked);
            txtFind_Change();
        });
    }
    return check;
}

void FindBar::ShowFind()
{
    Open(false);
}

void FindBar::ShowReplace()
{
    Open(true);
}

void FindBar::Open(bool withReplacing)
{
    for (QWidget* const part :
         std::initializer_list<QWidget*>{ replaceLabel_, replace_, replaceOne_, replaceAll_ }) {
        part->setVisible(withReplacing);
    }
    const QString selected = editor_.SelectedLines();
    const bool isOneLine = !selected.isEmpty() && !selected.contains(QChar::ParagraphSeparator);
    show();
    StartAnew();
    if (isOneLine && !find_->hasFocus() && !replace_->hasFocus()) {
        find_->setText(selected);
    }
    Search();
    find_->setFocus();
    find_->selectAll();
}

/** What is typed is looked for from where the selection starts now. */
void FindBar::StartAnew()
{
    from_ = Selected().Start;
}

void FindBar::keyPressEvent(QKeyEvent* event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (event->key() == Qt::Key_Escape) {
        btnCloseFind_Click();
    } else if (isEnter && replace_->hasFocus()) {
        btnReplace_Click();
    } else if (isEnter && event->modifiers().testFlag(Qt::ShiftModifier)) {
        FindPrevious();
    } else if (isEnter) {
        FindNext();
    }
}

void FindBar::btnCloseFind_Click()
{
    hide();
    selection_->setChecked(false);
    editor_.SetMarks(SourceEditor::MarkLayer::Matches, {});
    editor_.setFocus();
}

void FindBar::txtFind_Change()
{
    Search();
    const auto next = std::ranges::lower_bound(result_.Matches, from_, {}, &TextSpan::Start);
    if (next != result_.Matches.end()) {
        SelectMatch(next - result_.Matches.begin());
    } else if (!result_.Matches.isEmpty()) {
        SelectMatch(0);
    }
}

void FindBar::chkSelection_Click(bool isChecked)
{
    range_.reset();
    if (isChecked) {
        range_ = editor_.Anchor({ editor_.SelStart(), editor_.SelLength() });
    }
    Search();
}

SearchTerms FindBar::Terms() const
{
    return { .What = find_->text(),
             .IsCaseSensitive = case_->isChecked(),
             .AreWholeWords = words_->isChecked(),
             .IsRegex = regex_->isChecked() };
}

/** What comes in place of `matches`, as it is written there. */
QList<TextReplacement> FindBar::Replacements(const QString& lines, const QList<TextSpan>& matches) const
{
    const MatchReplacement replacement(lines, Terms(), replace_->text());
    QList<TextReplacement> replacements;
    replacements.reserve(matches.size());
    for (const TextSpan& match : matches) {
        replacements << TextReplacement{ match, replacement.Of(match) };
    }
    return file_.ToPutIn(lines, replacements);
}

/** The text with line feeds; the places of matches are in it. */
QString FindBar::Lines() const
{
    const QTextDocument& document = *editor_.document();
    QString lines = WithoutJoints(document, document.toRawText());
    return lines.replace(QChar::ParagraphSeparator, u'\n');
}

/** The part of `lines` that is searched. */
TextSpan FindBar::Within(const QString& lines) const
{
    if (range_ == nullptr) {
        return { 0, lines.size() };
    }
    const TextSpan place = range_->Place();
    const QTextDocument& document = *editor_.document();
    const int start = LinesPosition(document, DocumentPosition(document, place.Start));
    const int end = LinesPosition(document, DocumentPosition(document, place.Start + place.Length));
    return { start, end - start };
}

void FindBar::Search()
{
    const QString lines = Lines();
    result_ = FindAll(lines, Terms(), Within(lines));
    isStale_ = false;
    ShowMarks();
    ShowCount();
}

void FindBar::SearchIfStale()
{
    if (isStale_ && isVisible()) {
        Search();
    }
}

TextSpan FindBar::Selected() const
{
    const QTextCursor caret = editor_.textCursor();
    const int start = LinesPosition(*caret.document(), caret.selectionStart());
    return { start, LinesPosition(*caret.document(), caret.selectionEnd()) - start };
}

/** Which match is selected; -1 if none is. */
qsizetype FindBar::SelectedMatch() const
{
    const TextSpan selected = Selected();
    const auto match = std::ranges::lower_bound(result_.Matches, selected.Start, {}, &TextSpan::Start);
    return match != result_.Matches.end() && *match == selected ? match - result_.Matches.begin() : -1;
}

void FindBar::SelectMatch(qsizetype index)
{
    const TextSpan& match = result_.Matches[index];
    editor_.setTextCursor(SelectionOfLines(*editor_.document(), match.Start, match.Length));
    editor_.ensureCursorVisible();
    ShowCount();
}

/** Searches anew where that is due; asks for what to find where nothing was given. */
bool FindBar::IsAnythingFound()
{
    if (find_->text().isEmpty()) {
        ShowFind();
        return false;
    }
    if (isStale_ || !isVisible()) {
        Search();
    }
    return !result_.Matches.isEmpty();
}

void FindBar::FindNext()
{
    if (!IsAnythingFound()) {
        return;
    }
    const TextSpan selected = Selected();
    const auto next = std::ranges::find_if(result_.Matches, [&selected](const TextSpan& match) {
        return match.Start >= selected.Start + selected.Length && match != selected;
    });
    SelectMatch(next != result_.Matches.end() ? next - result_.Matches.begin() : 0);
    StartAnew();
}

void FindBar::FindPrevious()
{
    if (!IsAnythingFound()) {
        return;
    }
    const auto next = std::ranges::lower_bound(result_.Matches, Selected().Start, {}, &TextSpan::Start);
    const qsizetype index = next - result_.Matches.begin();
    SelectMatch(index > 0 ? index - 1 : result_.Matches.size() - 1);
    StartAnew();
}

void FindBar::btnReplace_Click()
{
    if (isStale_) {
        Search();
    }
    if (SelectedMatch() >= 0) {
        editor_.ReplaceSelection(Replacements(Lines(), { Selected() }).constFirst().Text);
        Search();
    }
    FindNext();
}

void FindBar::btnReplaceAll_Click()
{
    Search();
    const QString lines = Lines();
    QList<TextReplacement> replacements = Replacements(lines, result_.Matches);
    CountLineEndsAsTwo(lines, replacements);
    editor_.Replace(replacements);
    Search();
    count_->setText(QStringLiteral("%1 replaced").arg(replacements.size()));
}

/** Marks the matches that are in sight. */
void FindBar::ShowMarks()
{
    if (!isVisible()) {
        return;
    }
    const QTextDocument& document = *editor_.document();
    const int first = LinesPosition(document, editor_.cursorForPosition({ 0, 0 }).block().position());
    const QPoint corner(editor_.viewport()->width(), editor_.viewport()->height());
    const QTextBlock lastBlock = editor_.cursorForPosition(corner).block();
    const int last = LinesPosition(document, lastBlock.position() + lastBlock.length());
    QList<QTextEdit::ExtraSelection> marks;
    auto match = std::ranges::lower_bound(
        result_.Matches, qsizetype(first), {}, [](const TextSpan& one) { return one.Start + one.Length; });
    for (; match != result_.Matches.end() && match->Start < last; ++match) {
        QTextEdit::ExtraSelection mark{ SelectionOfLines(*editor_.document(), match->Start, match->Length),
                                        {} };
        mark.format.setBackground(matchGround);
        mark.format.setForeground(matchText);
        marks << mark;
    }
    editor_.SetMarks(SourceEditor::MarkLayer::Matches, marks);
}

void FindBar::ShowCount()
{
    if (isStale_) {
        return;
    }
    const qsizetype count = result_.Matches.size();
    const qsizetype selected = SelectedMatch();
    const QString all = result_.AreMore ? QStringLiteral("more than %1").arg(count) : QString::number(count);
    count_->setText(
        !result_.Trouble.isEmpty() ? result_.Trouble
        : find_->text().isEmpty()  ? QString()
        : count == 0               ? QStringLiteral("Not found")
        : selected >= 0            ? QStringLiteral("%1 of %2").arg(selected + 1).arg(all)
                                   : QStringLiteral("%1 found").arg(all));
}
