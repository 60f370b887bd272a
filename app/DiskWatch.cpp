#include "app/DiskWatch.h"

#include "app/DocumentCommands.h"
#include "app/MessageBar.h"
#include "app/SourceEditor.h"
#include "app/rules/DocumentFile.h"
#include "app/rules/TextDifference.h"
#include "app/source/LongLines.h"

#include <QEvent>
#include <QFileInfo>
#include <QFileSystemWatcher>
#include <QTextBlock>

namespace {

constexpr std::chrono::milliseconds settlingTime(200);
#ifdef Q_OS_WIN
/** The system would keep the file's folder from being renamed or removed. */
constexpr bool mayFollow = false;
#else
constexpr bool mayFollow = true;
#endif
/** The button that all messages about a changed file have. */
constexpr const char* readAgainName = "btnReadAgain";

} // namespace

DiskWatch::DiskWatch(
    QWidget* window, SourceEditor& editor, DocumentFile& file, DocumentCommands& documents,
    MessageBar& messages)
    : QObject(window)
    , editor_(editor)
    , file_(file)
    , documents_(documents)
    , messages_(messages)
{
    settling_.setSingleShot(true);
    settling_.setInterval(settlingTime);
    window->installEventFilter(this);
    connect(&file_, &DocumentFile::Began, this, &DiskWatch::File_Began);
    connect(&file_, &DocumentFile::TakenUp, this, &DiskWatch::File_TakenUp);
    connect(&file_, &DocumentFile::Saved, this, &DiskWatch::File_Began);
    connect(&settling_, &QTimer::timeout, this, &DiskWatch::Look);
}

DiskWatch::~DiskWatch() = default;

bool DiskWatch::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::WindowActivate) {
        Look();
    }
    return QObject::eventFilter(watched, event);
}

DiskWatch::Stamp DiskWatch::StampOfFile() const
{
    const QFileInfo file(file_.Name());
    const bool isFile = !file_.IsNeverSaved() && file.isFile();
    return isFile ? Stamp{ true, file.size(), file.lastModified() } : Stamp();
}

/** It is another document, or the file is as it was written here. */
void DiskWatch::File_Began()
{
    messages_.Withdraw(readAgainName);
    told_.reset();
    stamp_ = StampOfFile();
    Follow();
}

/** Nobody has looked at the file since the document was lost. */
void DiskWatch::File_TakenUp()
{
    stamp_ = Stamp();
    settling_.start(); // its text comes first
}

/**
 * Lets the system tell of changes. What it follows is what had the name once, so it begins anew with whatever
 * has the name now.
 */
void DiskWatch::Follow()
{
    watcher_.reset();
    if (stamp_.IsFile && mayFollow) {
        watcher_ = std::make_unique<QFileSystemWatcher>(QStringList{ file_.Name() });
        connect(watcher_.get(), &QFileSystemWatcher::fileChanged, &settling_, qOverload<>(&QTimer::start));
    }
}

void DiskWatch::Look()
{
    const Stamp now = StampOfFile();
    if (now == stamp_) {
        return;
    }
    stamp_ = now;
    Follow();
    const std::optional<FileContent> content = now.IsFile ? file_.ReadFile() : std::nullopt;
    if (!content || content->Hash == told_) {
        return;
    }
    messages_.Withdraw(readAgainName);
    told_.reset();
    if (content->Hash != file_.ContentHash()) {
        told_ = content->Hash;
        Tell(content->Text);
    }
}

/** The text of a file as it would stand here. */
QString DiskWatch::TextHere(const QString& fileText) const
{
    return editor_.InEditor(fileText).replace(u'\n', QStringLiteral("\r\n"));
}

void DiskWatch::Tell(const QString& text)
{
    constexpr qsizetype lineEndLength = 2;
    QString there = TextHere(text);
    if (file_.IsLineEndAppended() && there.endsWith(u'\n')) {
        there.chop(lineEndLength); // saving puts it there, it does not stand here
    }
    const QString difference = Describe(CompareLines(editor_.Text(), there));
    messages_.Tell(
        { .Text = QStringLiteral("Another program has changed this page. Compared with the text here: ") +
                  difference,
          .Answers = { { readAgainName, QStringLiteral("Read Again"), [this] { btnReadAgain_Click(); } },
                       { "btnKeepMine", QStringLiteral("Keep Mine"), [this] { file_.MarkChanged(); } } } });
}

void DiskWatch::btnReadAgain_Click()
{
    const std::optional<FileContent> content = file_.ReadFile();
    if (!content) {
        messages_.Tell({ QStringLiteral("Can't open file: ") + file_.Name(), {} });
        return;
    }
    stamp_ = StampOfFile();
    if (file_.IsChanged()) {
        // What was written here can be undone to.
        const std::optional<TextReplacement> change = ReplacementFor(editor_.Text(), TextHere(content->Text));
        editor_.Replace(change ? QList<TextReplacement>{ *change } : QList<TextReplacement>());
    } else {
        const int line = LineNumberOf(editor_.textCursor().block());
        documents_.ShowText(content->Text);
        QTextCursor caret = editor_.textCursor();
        caret.setPosition(BlockOfLine(*editor_.document(), line).position());
        editor_.setTextCursor(caret);
    }
    const bool isSame = !file_.IsHandledAnew() || editor_.TextAsLoaded() == content->Text;
    file_.TakeFile(*content, isSame);
}
