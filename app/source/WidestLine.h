#pragma once

class QTextDocument;

/**
 * Spares the layout of a plain text document its search for the widest line. When that line gets shorter, it
 * looks through all the others for the next widest: a pause at every such key in a large document. Lines wrap
 * at the window's edge, so none is wider than the window; here the layout comes to believe that a line just
 * behind the last is as wide as that, and follows this line's number as others come and go before it. For a
 * text that was just loaded and has nothing to undo; the view must then take the layout's width anew.
 */
void KeepWidestLine(QTextDocument& document);
