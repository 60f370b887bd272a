#pragma once

class QMimeData;
class SourceEditor;

/** The selected text of `editor` for the clipboard: the text alone, all of it. The caller owns it. */
[[nodiscard]] QMimeData* SelectedData(const SourceEditor& editor);

/** Puts the selected text of `editor`, be it empty, on the clipboard in place of what is there. */
void CopyText(SourceEditor& editor);
void CutText(SourceEditor& editor);

/** Replaces the selection with the clipboard's text, which is empty where that holds none. */
void PasteText(SourceEditor& editor);
