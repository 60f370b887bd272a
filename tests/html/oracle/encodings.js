// Writes what html-encoding-sniffer finds the beginnings of pages to declare: those of a folder, and so many made by
// chance. For the program that compares it; see compareencodings.cpp.

import sniff from 'html-encoding-sniffer';
import fs from 'node:fs';
import path from 'node:path';
import { Output } from './output.js';
import { randomBy } from './mutation.js';

const [folder, count, seed] = process.argv.slice(2);

/** Small pieces that declarations are made of, or hidden by. */
const pieces = [
    '<meta charset=utf-8>', '<meta charset="latin1">', "<META CHARSET='euc-kr' >", '<meta charset=x>', '<meta charset=>',
    '<meta http-equiv=content-type content="text/html; charset=windows-1250">', '<meta content="charset=utf-8">',
    '<meta content=\'charset = "utf-8"\' http-equiv="Content-Type">', '<meta charset=utf-16le>', '<meta charset>',
    '<meta charset=x-user-defined>', '<meta/charset=koi8-r/>', '<metacharset=utf-8>', '<!-- ', ' -->', '<!-->', '<!--->',
    '<title>', '</title>', '<a b="', '">', '<!doctype html>', '<? x ?>', '</ x>', '<', '>', '"', "'", '=', ' ', '/', 'x',
    '\n', '\r\n', '\t', '\f', 'charset', 'content', '=utf-8', ';', 'http-equiv', '\u00ef\u00bb\u00bf', '\u00ff\u00fe',
    '\u00fe\u00ff', '\u00e4', '<meta ', ' charset=us-ascii', ' charset=utf-8', '<meta name=a content=b>',
    'x'.repeat(400),
];
const mostPieces = 10;
/** It takes a tag for whole that the page ends in, unlike the standard. This ends all tags and comments. */
const ending = ' " \' > -->';
/** It lets a content count behind a charset that is none, unlike the standard. */
const ambiguous = /<meta[^>]*charset[^>]*content/i;
/** It breaks off at a content that ends in "charset=". */
const breaking = /charset\s*=?\s*["'>]/i;
const undeclared = '';

function write(output, name, bytes) {
    output.text(name);
    output.bytes(bytes);
    // What it says of a page without a declaration must not look like one.
    output.text(sniff(bytes, { defaultEncoding: undeclared }));
    output.flushIfLarge();
}

const output = new Output();
// It does not look at XML declarations.
const names = fs.readdirSync(folder).filter((name) => name !== 'xml-declaration.html').sort();
output.number(names.length + Number(count));
names.forEach((name) => write(output, name, fs.readFileSync(path.join(folder, name))));
const random = randomBy(Number(seed));
const pick = () => pieces[Math.floor(random() * pieces.length)];
const made = () => Array.from({ length: 1 + Math.floor(random() * mostPieces) }, pick).join('') + ending;
for (let index = 0; index < Number(count); ++index) {
    let beginning = made();
    while (ambiguous.test(beginning) || breaking.test(beginning)) {
        beginning = made();
    }
    write(output, `made beginning ${index}`, Buffer.from(beginning, 'latin1'));
}
output.flush();
