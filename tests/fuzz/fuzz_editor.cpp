// The source editor against a plain string: documents loaded, parts selected and replaced, and taken back.

#include "FuzzTarget.h"
#include "app/SourceEditor.h"
#include "shared/AnsiCodePage.h"

#include <QApplication>

namespace {

/** A document's bytes as they are saved again: each kind of line end as CR LF. */
QByteArray WithCrLfs(QByteArrayView bytes)
{
    QByteArray result;
    char last = '\0';
    for (const char byte : bytes) {
        if (byte == '\r' || (byte == '\n' && last != '\r')) {
            result += "\r\n";
        } else if (byte != '\n') {
            result += byte;
        }
        last = byte;
    }
    return result;
}

QString EditorText(QByteArrayView bytes)
{
    return AnsiCodePage::Decode(WithCrLfs(bytes));
}

/** The editor, and the same document and selection as plain as can be. */
class Pair
{
public:
    void Load(QByteArrayView bytes);
    void Select(qsizetype start, qsizetype length);
    void Replace(QByteArrayView bytes);
    void TakeBack();
    void CheckSame() const;

private:
    [[nodiscard]] qsizetype Place(qsizetype position) const;

    SourceEditor editor_;
    QString text_;
    QString before_;           ///< the text before the last replacing
    bool isTakenBack_ = false; ///< whether that is a step
    qsizetype start_ = 0;
    qsizetype end_ = 0;
};

/** `position` within the text; between CR and LF it is before both. */
qsizetype Pair::Place(qsizetype position) const
{
    const qsizetype place = std::clamp<qsizetype>(position, 0, text_.size());
    const bool isBetween = place > 0 && place < text_.size() && text_[place] == u'\n';
    return isBetween ? place - 1 : place;
}

void Pair::Load(QByteArrayView bytes)
{
    text_ = EditorText(bytes);
    start_ = 0;
    end_ = 0;
    editor_.LoadText(AnsiCodePage::Decode(bytes));
    Demand(AnsiCodePage::Encode(editor_.Text()) == WithCrLfs(bytes), "a document is saved as it was opened");
    Demand(!editor_.document()->isUndoAvailable(), "loading cannot be taken back");
}

void Pair::Select(qsizetype start, qsizetype length)
{
    const qsizetype first = std::clamp<qsizetype>(start, 0, text_.size());
    const qsizetype last = first + std::clamp<qsizetype>(length, 0, text_.size() - first);
    start_ = Place(first);
    end_ = Place(last);
    editor_.Select(start, length);
}

void Pair::Replace(QByteArrayView bytes)
{
    const QString text = EditorText(bytes);
    before_ = text_;
    isTakenBack_ = !text.isEmpty() || end_ > start_;
    text_.replace(start_, end_ - start_, text);
    start_ += text.size();
    end_ = start_;
    editor_.ReplaceSelection(AnsiCodePage::Decode(bytes));
}

/** Replacing something, or by something, is one step, which can be taken back and done again. */
void Pair::TakeBack()
{
    if (isTakenBack_) {
        editor_.undo();
        Demand(editor_.Text() == before_, "replacing is taken back in one step");
        editor_.redo();
        start_ = editor_.SelStart();
        end_ = start_ + editor_.SelLength();
    }
}

void Pair::CheckSame() const
{
    Demand(editor_.Text() == text_, "the editor holds the text");
    Demand(editor_.TextLength() == text_.size(), "a line end counts as two characters");
    Demand(editor_.SelStart() == start_, "the selection starts where it should");
    Demand(editor_.SelLength() == end_ - start_, "the selection is as long as it should be");
    Demand(
        editor_.SelText() == text_.mid(start_, end_ - start_), "the selected text is that of the document");
}

/** Made for the first input and never unmade: Qt wants its application to outlive every window. */
Pair& ThePair()
{
    static int count = 1;
    static char name[] = "fuzz_editor";
    static char* arguments[] = { name, nullptr };
    static const auto* const application = new QApplication(count, arguments);
    static auto* const pair = new Pair;
    Q_UNUSED(application);
    return *pair;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(BytesOf(data, size));
    Pair& pair = ThePair();
    pair.Load(input.Field());
    pair.CheckSame();
    while (!input.IsEmpty()) {
        const qsizetype start = input.Byte() - 2;
        const qsizetype length = input.Byte() - 2;
        pair.Select(start, length);
        pair.CheckSame();
        pair.Replace(input.Field());
        pair.CheckSame();
        pair.TakeBack();
        pair.CheckSame();
    }
    return 0;
}
