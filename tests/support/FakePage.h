#pragma once

#include "shared/PageDocument.h"

/** A part of a document that is gone. */
class GoneRange : public AnchoredRange
{
public:
    [[nodiscard]] bool IsThere() const override { return false; }
    [[nodiscard]] TextSpan Place() const override { return {}; }
};

/** A document that is no more than its text, for tests of windows that change one. */
class FakePage : public PageDocument
{
public:
    int InsertAtCaret(const QString& text) override
    {
        Replace({ { selection, text } });
        return 1;
    }
    [[nodiscard]] QString FileName() const override { return fileName; }
    [[nodiscard]] std::optional<TextEncoding> ChosenEncoding() const override { return chosenEncoding; }
    [[nodiscard]] QString Text() const override { return text_; }
    [[nodiscard]] TextSpan Selection() const override { return selection; }
    void Select(const TextSpan& place) override { selection = place; }
    [[nodiscard]] std::unique_ptr<AnchoredRange> Anchor(const TextSpan&) override
    {
        return std::make_unique<GoneRange>();
    }
    void Replace(const QList<TextReplacement>& replacements) override
    {
        for (auto change = replacements.rbegin(); change != replacements.rend(); ++change) {
            text_.replace(change->Place.Start, change->Place.Length, change->Text);
        }
        ++replaced;
    }

    void SetText(const QString& text)
    {
        text_ = text;
        selection = { text.size(), 0 };
    }

    QString fileName;
    std::optional<TextEncoding> chosenEncoding;
    TextSpan selection;
    int replaced = 0; ///< how often the document was changed

private:
    QString text_;
};
