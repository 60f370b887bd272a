#include "app/EncodingCommands.h"

#include "app/DocumentCommands.h"
#include "app/MessageBar.h"
#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "app/rules/MisreadUtf8.h"
#include "app/rules/References.h"
#include "app/source/LongLines.h"
#include "html/DeclaredEncoding.h"
#include "shared/Settings.h"
#include "widgets/WindowHelpers.h"

#include <QComboBox>
#include <QLabel>
#include <QStatusBar>
#include <QTextBlock>
#include <array>

namespace {

constexpr std::array encodings = { TextEncoding::Windows1252, TextEncoding::Utf8,
                                   TextEncoding::Utf8WithMark };

/** The part of a page that browsers look for a declaration in, and more. */
constexpr qsizetype declarationLength = 4096;

QString LackingText(const LackingCharacters& lacking)
{
    QStringList characters;
    for (qsizetype i = 0; i < lacking.Which.size();) {
        const qsizetype length = lacking.Which[i].isHighSurrogate() ? 2 : 1;
        characters << lacking.Which.mid(i, length);
        i += length;
    }
    const QString which = characters.join(QStringLiteral(", "));
    const QString all = lacking.Count > characters.size() ? which + QStringLiteral(" ...") : which;
    return lacking.Count == 1
               ? QStringLiteral("Saved, but one character that Windows-1252 lacks became \"?\": ") + all
               : QStringLiteral("Saved, but %1 characters that Windows-1252 lacks became \"?\": ")
                         .arg(lacking.Count) +
                     all;
}

} // namespace

EncodingCommands::EncodingCommands(
    QWidget* window, Settings& settings, SourceEditor& editor, DocumentFile& file,
    DocumentCommands& documents, MessageBar& messages)
    : QObject(window)
    , window_(window)
    , settings_(settings)
    , editor_(editor)
    , file_(file)
    , documents_(documents)
    , messages_(messages)
{
    connect(&file_, &DocumentFile::Began, this, &EncodingCommands::File_Began);
    connect(&file_, &DocumentFile::Saved, this, &EncodingCommands::File_Saved);
    connect(&messages_, &MessageBar::Answered, &editor_, qOverload<>(&QWidget::setFocus));
}

void EncodingCommands::AddTo(QStatusBar& bar, int height)
{
    modified_ = new QLabel(&bar);
    modified_->setObjectName(QStringLiteral("lblModified"));
    place_ = new QLabel(&bar);
    place_->setObjectName(QStringLiteral("lblPlace"));
    encoding_ = new QComboBox(&bar);
    encoding_->setObjectName(QStringLiteral("cmbEncoding"));
    encoding_->setAccessibleName(QStringLiteral("Encoding"));
    encoding_->setToolTip(QStringLiteral("Encoding"));
    encoding_->setFrame(false);
    for (const TextEncoding encoding : encodings) {
        encoding_->addItem(NameOf(encoding));
    }
    for (QWidget* const part : std::initializer_list<QWidget*>{ modified_, place_, encoding_ }) {
        // In a narrow window they are cut; they must not make it wider.
        part->setMinimumWidth(1);
        part->setMaximumHeight(height);
        bar.addPermanentWidget(part);
    }
    QWidget::setTabOrder(&editor_, encoding_);
    connect(encoding_, &QComboBox::activated, this, &EncodingCommands::cmbEncoding_Click);
    connect(&editor_, &SourceEditor::cursorPositionChanged, this, &EncodingCommands::ShowPlace);
    connect(&file_, &DocumentFile::ChangedMarkSet, this, &EncodingCommands::ShowChanged);
    connect(&file_, &DocumentFile::EncodingChanged, this, &EncodingCommands::ShowEncoding);
    ShowPlace();
    ShowEncoding();
}

void EncodingCommands::ShowPlace()
{
    const QTextCursor caret = editor_.textCursor();
    const QTextDocument& document = *caret.document();
    const int lineStart = LinesPosition(document, FirstPieceOf(caret.block()).position());
    const int column = LinesPosition(document, caret.position()) - lineStart;
    place_->setText(
        QStringLiteral("Line %1, column %2").arg(LineNumberOf(caret.block()) + 1).arg(column + 1));
}

void EncodingCommands::ShowChanged(bool isChanged)
{
    modified_->setText(isChanged ? QStringLiteral("Modified") : QString());
}

void EncodingCommands::ShowEncoding()
{
    encoding_->setCurrentIndex(static_cast<int>(file_.Encoding()));
    const bool isUtf8 = file_.Encoding() != TextEncoding::Windows1252;
    editor_.SetLayoutCharacters(isUtf8 ? LayoutCharacters::AsBytes : LayoutCharacters::AsSaved);
}

void EncodingCommands::cmbEncoding_Click(int index)
{
    const TextEncoding encoding = encodings[static_cast<std::size_t>(index)];
    if (file_.IsChanged() || file_.IsNeverSaved()) {
        file_.SetEncoding(encoding);
    } else if (!ReadAgain(encoding)) {
        ShowEncoding();
        return;
    }
    TellOfOdds(editor_.TextAsLoaded());
}

/** Shows the file as it reads in `encoding`, with the caret where it was; tells when that is not possible. */
bool EncodingCommands::ReadAgain(TextEncoding encoding)
{
    ShowHourglass();
    const int line = LineNumberOf(editor_.textCursor().block());
    const std::optional<QString> text = file_.ReadAgain(encoding);
    if (text) {
        documents_.ShowText(*text);
        QTextCursor caret = editor_.textCursor();
        caret.setPosition(BlockOfLine(*editor_.document(), line).position());
        editor_.setTextCursor(caret);
    }
    ShowDefaultPointer();
    if (!text) {
        ShowMessage(window_, QMessageBox::Information, QStringLiteral("Can't open file: ") + file_.Name());
    }
    return text.has_value();
}

void EncodingCommands::File_Began()
{
    messages_.Forget();
    toldOfOdds_.clear();
    DecideLoss();
    if (file_.FoundUtf8() && !file_.IsHandledAnew()) {
        TellOfUtf8();
    }
}

void EncodingCommands::TellOfUtf8()
{
    messages_.Tell({ QStringLiteral("This page is written in UTF-8."),
                     { { "btnReadSo", QStringLiteral("Read It So"), [this] { btnReadSo_Click(); } },
                       { "btnAlways", QStringLiteral("Always"), [this] { btnAlways_Click(); } } } });
}

void EncodingCommands::btnReadSo_Click()
{
    const TextEncoding encoding = file_.FoundUtf8().value_or(TextEncoding::Utf8);
    if (!file_.IsChanged()) {
        if (ReadAgain(encoding)) {
            TellOfOdds(editor_.TextAsLoaded());
        }
        return;
    }
    // What has been edited meanwhile stays, and so does what can be undone.
    file_.SetEncoding(encoding);
    editor_.Replace(MisreadUtf8(editor_.Text()));
}

void EncodingCommands::btnAlways_Click()
{
    settings_.Keep(Setting::readUtf8, true);
    btnReadSo_Click();
    if (!settings_.Value(Setting::newPagesUtf8)) {
        messages_.Tell(
            { QStringLiteral("Pages in UTF-8 are read so from now on. Shall new pages be in UTF-8, too?"),
              { { "btnAlways", QStringLiteral("Always"),
                  [this] { settings_.Keep(Setting::newPagesUtf8, true); } } } });
    }
}

void EncodingCommands::File_Saved(const QString& text)
{
    TellOfLacking(text);
    if (file_.IsHandledAnew()) {
        TellOfOdds(text);
    }
}

void EncodingCommands::TellOfLacking(const QString& text)
{
    const LackingCharacters lacking = LackingIn(text, file_.Encoding());
    isLossUndecided_ = lacking.Count > 0;
    if (isLossUndecided_) {
        messages_.Tell({ LackingText(lacking),
                         { { "btnAsReferences", QStringLiteral("Write as References"),
                             [this] { btnAsReferences_Click(); } },
                           { "btnAsUtf8", QStringLiteral("Save as UTF-8"), [this] { btnAsUtf8_Click(); } } },
                         [this] { DecideLoss(); } });
    }
}

void EncodingCommands::DecideLoss()
{
    isLossUndecided_ = false;
    Q_EMIT LossDecided();
}

void EncodingCommands::btnAsReferences_Click()
{
    DecideLoss();
    editor_.Replace(ReferencesFor(editor_.Text(), file_.Encoding()));
    documents_.SaveDocument();
}

void EncodingCommands::btnAsUtf8_Click()
{
    DecideLoss();
    file_.SetEncoding(TextEncoding::Utf8);
    documents_.SaveDocument();
}

/** Tells, once a document and encoding, when the page itself says that it is in another. */
void EncodingCommands::TellOfOdds(const QString& text)
{
    const TextEncoding encoding = file_.Encoding();
    const QLatin1String said =
        EncodingOfMarkup(EncodeText(QStringView(text).left(declarationLength), encoding));
    const bool isUtf8 = encoding != TextEncoding::Windows1252;
    // Browsers go by the mark where there is one.
    if (said.isEmpty() || encoding == TextEncoding::Utf8WithMark || toldOfOdds_.contains(encoding) ||
        said == (isUtf8 ? utf8Name : windows1252Name)) {
        return;
    }
    toldOfOdds_ << encoding;
    BarMessage message{ QStringLiteral(
                            "The page says that it is in %1, but it is in %2. Change what its meta "
                            "says, or its encoding at the right below.")
                            .arg(said, NameOf(encoding)),
                        {} };
    if (said == utf8Name) {
        message.Answers << MessageAnswer{ "btnAsUtf8", QStringLiteral("Save as UTF-8"),
                                          [this] { btnAsUtf8_Click(); } };
    }
    messages_.Tell(message);
}
