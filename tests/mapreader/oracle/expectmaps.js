// Writes which maps parse5 finds in pages: those of two folders, then so many made from them by chance. For the
// program that compares them; see comparemaps.cpp for the form.

import { parse } from 'parse5';
import fs from 'node:fs';
import path from 'node:path';
import { Output } from './output.js';
import { mutated, randomBy } from './mutation.js';

const [folder, otherFolder, count, seed] = process.argv.slice(2);

const htmlNamespace = 'http://www.w3.org/1999/xhtml';
const shapes = ['rect', 'circle', 'poly', 'default'];
const shapeWords = new Map([
    ['circ', 'circle'],
    ['circle', 'circle'],
    ['default', 'default'],
    ['poly', 'poly'],
    ['polygon', 'poly'],
    ['rect', 'rect'],
    ['rectangle', 'rect'],
]);

/** An attribute's value, or undefined. */
const valueOf = (node, name) => node.attrs.find((attribute) => attribute.name === name)?.value;

/** All elements of HTML below a node, in tree order; what a template holds is not in the tree. No recursion: some pages are deep. */
function elementsBelow(root) {
    const found = [];
    const left = [...root.childNodes].reverse();
    while (left.length > 0) {
        const node = left.pop();
        if (node.tagName && node.namespaceURI === htmlNamespace) {
            found.push(node);
        }
        for (const child of [...(node.childNodes ?? [])].reverse()) {
            left.push(child);
        }
    }
    return found;
}

/** The place of an element's start tag. */
function tagOf(node) {
    const location = node.sourceCodeLocation;
    return location.startTag ?? location;
}

/** One number, by the rules of the HTML standard for floating-point numbers; undefined where it calls that an error. */
function numberOf(text) {
    const match = /^-?(?:\d+(?:\.\d*)?|\.\d+)(?:[eE][-+]?\d+)?/.exec(text);
    const number = match ? Number(match[0]) : NaN;
    return Number.isFinite(number) ? number : undefined;
}

/** The rules for lists of floating-point numbers, step by step. */
function numbersOf(list) {
    const separators = /[\t\n\f\r ,;]/;
    const numbers = [];
    let at = 0;
    const pass = (isPassed) => {
        const start = at;
        while (at < list.length && isPassed(list[at])) {
            ++at;
        }
        return list.slice(start, at);
    };
    pass((character) => separators.test(character));
    while (at < list.length) {
        pass((character) => !separators.test(character) && !/[0-9.-]/.test(character));
        numbers.push(numberOf(pass((character) => !separators.test(character))) ?? 0);
        pass((character) => separators.test(character));
    }
    return numbers;
}

function shapeOf(area) {
    const word = valueOf(area, 'shape')?.replace(/[A-Z]/g, (letter) => letter.toLowerCase());
    return shapeWords.get(word) ?? 'rect';
}

/** The map that `usemap` refers to: the rules for hash-name references. */
function mapFor(usemap, maps) {
    const hash = usemap.indexOf('#');
    const name = usemap.slice(hash + 1);
    return hash < 0 || name === ''
        ? undefined
        : maps.find((map) => valueOf(map, 'id') === name || valueOf(map, 'name') === name);
}

const inSourceOrder = (nodes) => [...nodes].sort((one, other) => tagOf(one).startOffset - tagOf(other).startOffset);

function writePlace(output, { startOffset, endOffset }) {
    output.number(startOffset);
    output.number(endOffset);
}

function writeAttributes(output, node) {
    output.number(node.attrs.length);
    node.attrs.forEach(({ name, value }) => {
        output.text(name);
        output.text(value);
    });
}

function writeArea(output, area) {
    writePlace(output, tagOf(area));
    writeAttributes(output, area);
    output.byte(shapes.indexOf(shapeOf(area)));
    const numbers = numbersOf(valueOf(area, 'coords') ?? '');
    output.number(numbers.length);
    // As texts, which come back as the same numbers.
    numbers.forEach((number) => output.text(String(number)));
}

function writePage(output, name, text) {
    const elements = elementsBelow(parse(text, { sourceCodeLocationInfo: true, scriptingEnabled: false }));
    const of = (tagName) => elements.filter((node) => node.tagName === tagName);
    const maps = of('map');
    output.text(name);
    output.text(text);
    output.number(maps.length);
    for (const map of inSourceOrder(maps)) {
        writePlace(output, tagOf(map));
        writeAttributes(output, map);
        const areas = inSourceOrder(elementsBelow(map).filter((node) => node.tagName === 'area'));
        output.number(areas.length);
        areas.forEach((area) => output.number(tagOf(area).startOffset));
    }
    const areas = inSourceOrder(of('area'));
    output.number(areas.length);
    areas.forEach((area) => writeArea(output, area));
    const pictures = inSourceOrder(of('img').filter((node) => valueOf(node, 'usemap') !== undefined));
    output.number(pictures.length);
    for (const picture of pictures) {
        const map = mapFor(valueOf(picture, 'usemap'), maps);
        writePlace(output, tagOf(picture));
        writeAttributes(output, picture);
        output.number(map ? tagOf(map).startOffset : -1);
    }
    const bases = of('base').filter((node) => valueOf(node, 'href') !== undefined);
    output.number(bases.length > 0 ? tagOf(bases[0]).startOffset : -1);
    output.text(bases.length > 0 ? valueOf(bases[0], 'href') : '');
    output.flushIfLarge();
}

const output = new Output();
const files = [folder, otherFolder].flatMap((one) => fs.readdirSync(one).sort().map((name) => path.join(one, name)));
const pages = files.map((file) => fs.readFileSync(file).toString('utf8'));
output.number(files.length + Number(count));
files.forEach((file, index) => writePage(output, path.basename(file), pages[index]));
const random = randomBy(Number(seed));
for (let index = 0; index < Number(count); ++index) {
    writePage(output, `made page ${index}`, mutated(pages, random));
}
output.flush();
