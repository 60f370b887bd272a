#pragma once

#include "shared/PageDocument.h"

class DocumentFile;
class SourceEditor;

/** The document in the editor, as other windows see it. */
class EditedPage : public PageDocument
{
public:
    EditedPage(SourceEditor& editor, const DocumentFile& file);

    int InsertAtCaret(const QString& text) override;
    [[nodiscard]] QString FileName() const override;
    [[nodiscard]] std::optional<TextEncoding> ChosenEncoding() const override;
    [[nodiscard]] QString Text() const override;
    [[nodiscard]] QString TextIn(const TextSpan& place) const override;
    [[nodiscard]] int LineOf(qsizetype position) const override;
    [[nodiscard]] TextSpan Selection() const override;
    void Select(const TextSpan& place) override;
    [[nodiscard]] std::unique_ptr<AnchoredRange> Anchor(const TextSpan& place) override;
    void Replace(const QList<TextReplacement>& replacements) override;

private:
    SourceEditor& editor_;
    const DocumentFile& file_;
};
