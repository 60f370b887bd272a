// Lines in pieces against a plain text with a caret and an anchor, by chance.

#include "tests/app/LongLinesFixture.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QTextBoundaryFinder>

namespace {

/** A text with a caret, on which everything is done in the plainest way. */
struct PlainModel
{
    QString Text;
    int Anchor = 0;
    int Caret = 0;

    [[nodiscard]] int Start() const { return std::min(Anchor, Caret); }
    [[nodiscard]] int End() const { return std::max(Anchor, Caret); }

    void PutIn(const QString& text)
    {
        Text.replace(Start(), End() - Start(), text);
        Caret = Anchor = Start() + static_cast<int>(text.size());
    }
    [[nodiscard]] int NextCharacter() const
    {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, Text);
        finder.setPosition(Caret);
        return Caret == Text.size() ? Caret : static_cast<int>(finder.toNextBoundary());
    }
    [[nodiscard]] int PreviousCharacter() const
    {
        QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, Text);
        finder.setPosition(Caret);
        return Caret == 0 ? Caret : static_cast<int>(finder.toPreviousBoundary());
    }
};

QString ChanceText(std::mt19937& random, qsizetype length, bool withLines)
{
    static const QStringList parts = { QStringLiteral("a"),
                                       QStringLiteral("b"),
                                       QStringLiteral(" "),
                                       QStringLiteral("<p>"),
                                       QStringLiteral("&amp;"),
                                       QStringLiteral("\t"),
                                       QStringLiteral("W"),
                                       QString::fromUtf8("ü"),
                                       QString::fromUtf8("日"),
                                       QString::fromUtf8("e\xCC\x81"),
                                       QString::fromUtf8("\xF0\x9F\x98\x80") };
    QString text;
    while (text.size() < length) {
        text += withLines && random() % 700 == 0 ? QStringLiteral("\n")
                                                 : parts[qsizetype(random()) % parts.size()];
    }
    return text;
}

} // namespace

class tst_longlineedits : public LongLinesFixture
{
    Q_OBJECT

private Q_SLOTS:
    void init() { Start(); }
    void cleanup() { editor_.reset(); }

    void everythingIsAsInAPlainText_data();
    void everythingIsAsInAPlainText();

private:
    void DoByChance();
    void MoveByChance();
    void Undo(bool isRedo);
    [[nodiscard]] int ChancePlace();
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(editor_.get(), key, modifiers);
    }

    std::mt19937 random_;
    PlainModel model_;
    QStringList past_; ///< the texts before, the last first
    QStringList future_;
    QString done_;
};

void tst_longlineedits::everythingIsAsInAPlainText_data()
{
    QTest::addColumn<QList<int>>("lines");
    QTest::newRow("just below the limit") << QList<int>{ 9'990 };
    QTest::newRow("just above it") << QList<int>{ 10'010 };
    QTest::newRow("two around the limit") << QList<int>{ 9'995, 10'005, 20 };
    QTest::newRow("long ones and short ones") << QList<int>{ 5, 40'000, 0, 300, 12'000, 10'000 };
    QTest::newRow("short ones") << QList<int>{ 5'000, 4'900, 5'100 };
}

/** A place anywhere, or, often, near a joint or a line end. */
int tst_longlineedits::ChancePlace()
{
    const auto size = static_cast<int>(model_.Text.size());
    int place = static_cast<int>(random_() % unsigned(size + 1));
    if (Joints() > 0 && random_() % 2 == 0) {
        place = JointPlace(static_cast<int>(random_() % unsigned(Joints()))) +
                static_cast<int>(random_() % 7) - 3;
    } else if (random_() % 4 == 0) {
        place = static_cast<int>(model_.Text.indexOf(u'\n', place));
    }
    place = std::clamp(place, 0, size);
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, model_.Text);
    finder.setPosition(place);
    return finder.isAtBoundary() ? place : static_cast<int>(finder.toNextBoundary());
}

void tst_longlineedits::MoveByChance()
{
    const bool isSelecting = random_() % 3 == 0;
    const bool isForward = random_() % 2 == 0;
    if (model_.Anchor != model_.Caret && !isSelecting) {
        model_.Anchor = model_.Caret = ChancePlace();
        Place(model_.Caret, model_.Caret);
        return;
    }
    done_ = isForward ? QStringLiteral("right") : QStringLiteral("left");
    model_.Caret = isForward ? model_.NextCharacter() : model_.PreviousCharacter();
    model_.Anchor = isSelecting ? model_.Anchor : model_.Caret;
    Press(isForward ? Qt::Key_Right : Qt::Key_Left, isSelecting ? Qt::ShiftModifier : Qt::NoModifier);
}

/** Any step of undo goes back to one of the texts before, and to none that is the same. */
void tst_longlineedits::Undo(bool isRedo)
{
    QStringList& from = isRedo ? future_ : past_;
    QStringList& to = isRedo ? past_ : future_;
    done_ = isRedo ? QStringLiteral("redo") : QStringLiteral("undo");
    isRedo ? editor_->redo() : editor_->undo();
    const QString text = Lines();
    const qsizetype found = from.indexOf(text);
    QVERIFY2(found >= 0 || (from.isEmpty() && text == model_.Text), "undone to what never was");
    for (qsizetype i = 0; i <= found; ++i) {
        to.prepend(model_.Text);
        model_.Text = from.takeFirst();
    }
    model_.Caret = model_.Anchor = ChancePlace();
    Place(model_.Caret, model_.Caret);
}

void tst_longlineedits::DoByChance()
{
    const QString before = model_.Text;
    switch (random_() % 13) {
    case 0:
        MoveByChance();
        return;
    case 1:
        done_ = QStringLiteral("place");
        model_.Anchor = ChancePlace();
        model_.Caret = random_() % 2 == 0 ? model_.Anchor : ChancePlace();
        model_.Caret = std::clamp(model_.Caret, model_.Anchor - 4'000, model_.Anchor + 4'000);
        model_.Caret = std::max(model_.Caret, 0);
        if (QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, model_.Text);
            (finder.setPosition(model_.Caret), !finder.isAtBoundary())) {
            model_.Caret = model_.Anchor;
        }
        Place(model_.Anchor, model_.Caret);
        return;
    case 2:
        Undo(false);
        return;
    case 3:
        Undo(true);
        return;
    case 4: {
        const QString text = ChanceText(random_, random_() % 4'000, true);
        done_ = QStringLiteral("paste");
        QGuiApplication::clipboard()->setText(text);
        model_.PutIn(text);
        Press(Qt::Key_V, Qt::ControlModifier);
        break;
    }
    case 5:
        done_ = QStringLiteral("enter");
        model_.PutIn(QStringLiteral("\n"));
        Press(Qt::Key_Return);
        break;
    case 6:
    case 7:
        done_ = QStringLiteral("backspace");
        if (model_.Anchor == model_.Caret) {
            const bool isPair = model_.Caret > 1 && model_.Text[model_.Caret - 1].isLowSurrogate();
            model_.Anchor = std::max(model_.Caret - (isPair ? 2 : 1), 0);
        }
        model_.PutIn(QString());
        Press(Qt::Key_Backspace);
        break;
    case 8:
    case 9:
        done_ = QStringLiteral("delete");
        model_.Anchor = model_.Anchor == model_.Caret ? model_.NextCharacter() : model_.Anchor;
        model_.PutIn(QString());
        random_() % 2 == 0 ? Press(Qt::Key_Delete) : editor_->DeleteText();
        break;
    case 10: {
        done_ = QStringLiteral("replace");
        QList<TextReplacement> replacements;
        const QString old = model_.Text;
        qsizetype place = 0;
        int lineEnds = 0;
        model_.Text.clear();
        for (qsizetype next = old.indexOf(u'W', place); next >= 0; next = old.indexOf(u'W', place)) {
            const QStringView passed = QStringView(old).sliced(place, next - place);
            lineEnds += static_cast<int>(passed.count(u'\n'));
            replacements << TextReplacement{ { next + lineEnds, 1 }, QStringLiteral("XYZ") };
            model_.Text += passed + QStringLiteral("XYZ");
            place = next + 1;
        }
        model_.Text += QStringView(old).sliced(place);
        editor_->Replace(replacements);
        model_.Caret = model_.Anchor = ChancePlace();
        Place(model_.Caret, model_.Caret);
        break;
    }
    default:
        done_ = QStringLiteral("type");
        for (int i = int(random_() % 6); i >= 0; --i) {
            past_.prepend(model_.Text);
            model_.PutIn(QStringLiteral("x"));
            Press(Qt::Key_X);
        }
        future_.clear();
        return;
    }
    if (model_.Text != before) {
        past_.prepend(before);
        future_.clear();
    }
}

void tst_longlineedits::everythingIsAsInAPlainText()
{
    QFETCH(const QList<int>, lines);
    constexpr int rounds = 6;
    constexpr int steps = 60;
    for (int round = 0; round < rounds; ++round) {
        random_.seed(unsigned(round));
        QStringList texts;
        for (const int length : lines) {
            texts << ChanceText(random_, length, false);
        }
        model_ = { texts.join(u'\n') };
        past_.clear();
        future_.clear();
        editor_->LoadText(model_.Text);
        Place(0, 0);
        for (int step = 0; step < steps; ++step) {
            DoByChance();
            const QString what = QStringLiteral("round %1, step %2: %3").arg(round).arg(step).arg(done_);
            QVERIFY2(Lines() == model_.Text, qPrintable(what));
            QVERIFY2(Trouble().isEmpty(), qPrintable(what + Trouble()));
            QVERIFY2(
                Caret() == model_.Caret && Anchor() == model_.Anchor,
                qPrintable(QStringLiteral("%1; %2-%3 in place of %4-%5")
                               .arg(what)
                               .arg(Anchor())
                               .arg(Caret())
                               .arg(model_.Anchor)
                               .arg(model_.Caret)));
            const QString selected = model_.Text.sliced(model_.Start(), model_.End() - model_.Start());
            QVERIFY2(editor_->SelText().remove(u'\r') == selected, qPrintable(what));
            const auto lineEnds = QStringView(model_.Text).first(model_.Start()).count(u'\n');
            QVERIFY2(editor_->SelStart() == model_.Start() + lineEnds, qPrintable(what));
        }
    }
}

QTEST_MAIN(tst_longlineedits)
#include "tst_longlineedits.moc"
