// Writes how parse5 reads pages: those of a folder, then so many made from them by chance. For the program that
// compares them; see compare.cpp for the form.

import { Parser, TokenizerMode } from 'parse5';
import fs from 'node:fs';
import path from 'node:path';
import { Output } from './output.js';
import { mutated, randomBy } from './mutation.js';

const [folder, count, seed] = process.argv.slice(2);

const kinds = { text: 0, startTag: 1, endTag: 2, comment: 3, doctype: 4 };

/** The parse errors inside tags that the tokens tell of, and how far in front of its position each has its cause. */
const errorsInTags = new Map([
    ['unexpected-solidus-in-tag', 1],
    ['missing-whitespace-between-attributes', 0],
    ['unexpected-character-in-attribute-name', 0],
    ['unexpected-equals-sign-before-attribute-name', 0],
    ['unexpected-character-in-unquoted-attribute-value', 0],
    ['missing-attribute-value', 0],
]);

/** A parser that notes the tokens, and what its tree makes of the text behind each tag. */
class NotingParser extends Parser {
    static read(text) {
        const errors = [];
        const parser = new NotingParser({
            sourceCodeLocationInfo: true,
            // What is in `noscript` is markup here.
            scriptingEnabled: false,
            onParseError: (error) => errors.push(error),
        });
        parser.tokens = [];
        parser.errors = errors;
        parser.tokenizer.write(text, true);
        return parser.tokens;
    }

    onStartTag(token) {
        const noted = this.isNew(token) && this.noteTag(kinds.startTag, token);
        super.onStartTag(token);
        this.noteState(noted);
    }

    onEndTag(token) {
        const noted = this.isNew(token) && this.noteTag(kinds.endTag, token);
        super.onEndTag(token);
        this.noteState(noted);
    }

    onComment(token) {
        if (this.isNew(token)) {
            this.note(kinds.comment, token).data = token.data;
        }
        super.onComment(token);
    }

    onDoctype(token) {
        if (this.isNew(token)) {
            this.note(kinds.doctype, token);
        }
        super.onDoctype(token);
    }

    onCharacter(token) {
        this.noteText(token, token.chars);
        super.onCharacter(token);
    }

    onNullCharacter(token) {
        this.noteText(token, token.chars.replaceAll('\0', '\ufffd'));
        super.onNullCharacter(token);
    }

    onWhitespaceCharacter(token) {
        this.noteText(token, token.chars);
        super.onWhitespaceCharacter(token);
    }

    /** The tree may look at a token twice. */
    isNew(token) {
        const isNew = token !== this.lastToken;
        this.lastToken = token;
        return isNew;
    }

    note(kind, token) {
        const { startOffset, endOffset } = token.location;
        const noted = { kind, start: startOffset, end: endOffset };
        this.tokens.push(noted);
        return noted;
    }

    noteText(token, chars) {
        if (!this.isNew(token)) {
            return;
        }
        const last = this.tokens.at(-1);
        const noted = last?.kind === kinds.text ? last : this.note(kinds.text, token);
        noted.data = (noted.data ?? '') + chars;
        noted.end = token.location.endOffset;
    }

    noteTag(kind, token) {
        const noted = this.note(kind, token);
        // The tree changes names; these are the ones of the source.
        noted.name = token.tagName;
        noted.isSelfClosing = token.selfClosing;
        noted.attributes = token.attrs.map(({ name, value }) => {
            const { startOffset, endOffset } = token.location.attrs[name];
            return { name, value, start: startOffset, end: endOffset };
        });
        const inside = this.errors.filter(({ startOffset }) => startOffset >= noted.start && startOffset < noted.end);
        noted.duplicates = inside.filter(({ code }) => code === 'duplicate-attribute').length;
        noted.errors = inside
            .filter(({ code }) => errorsInTags.has(code))
            .map(({ code, startOffset }) => startOffset - errorsInTags.get(code));
        this.errors.length = 0;
        return noted;
    }

    noteState(noted) {
        if (noted) {
            // An end tag leaves nothing but markup behind, whatever the state is while the tree looks at it.
            noted.mode = noted.kind === kinds.startTag ? this.tokenizer.state : TokenizerMode.DATA;
            noted.isForeign = this.tokenizer.inForeignNode;
        }
    }
}

function writeToken(output, token) {
    output.byte(token.kind);
    output.number(token.start);
    output.number(token.end);
    output.text(token.data ?? '');
    if (token.kind !== kinds.startTag && token.kind !== kinds.endTag) {
        return;
    }
    output.text(token.name);
    output.byte(token.isSelfClosing ? 1 : 0);
    output.byte(token.mode);
    output.byte(token.isForeign ? 1 : 0);
    output.number(token.attributes.length);
    for (const { name, value, start, end } of token.attributes) {
        output.text(name);
        output.text(value);
        output.number(start);
        output.number(end);
    }
    output.number(token.duplicates);
    output.number(token.errors.length);
    token.errors.forEach((error) => output.number(error));
}

function writePage(output, name, text) {
    const tokens = NotingParser.read(text);
    output.text(name);
    output.text(text);
    output.number(tokens.length);
    tokens.forEach((token) => writeToken(output, token));
    output.flushIfLarge();
}

const output = new Output();
const names = fs.readdirSync(folder).sort();
const pages = names.map((name) => fs.readFileSync(path.join(folder, name)).toString('utf8'));
output.number(names.length + Number(count));
names.forEach((name, index) => writePage(output, name, pages[index]));
const random = randomBy(Number(seed));
for (let index = 0; index < Number(count); ++index) {
    writePage(output, `made page ${index}`, mutated(pages, random));
}
output.flush();
