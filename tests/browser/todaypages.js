// The pages for today's browsers that the suite opens, and what is known of each.
//
// Its arguments are those of today.js.

import assert from 'node:assert/strict';
import { readFileSync, readdirSync } from 'node:fs';
import { join } from 'node:path';
import { setTimeout as sleep } from 'node:timers/promises';
import { pathToFileURL } from 'node:url';

const [folder, extent] = process.argv.slice(2);

/** Whether only what is told apart at all is to be tried, and not every page, width, scaling and zoom. */
export const isShort = extent === 'short';

export const pathOf = (name) => join(folder, `${name}.html`);
export const urlOf = (name) => pathToFileURL(pathOf(name)).href;
const read = (name) => JSON.parse(readFileSync(join(folder, name), 'utf8'));

/** The areas of a page, as the editor's list has them. */
export const maps = read('maps.json');

/** Numbers of a page in threes: a pixel of its picture, and the area that the editor has there, or -1. */
export const hits = read('hits.json');

/** The names of the pages with maps. */
export const names = readdirSync(folder)
    .filter((name) => /^(svg|map|several).*\.html$/.test(name))
    .map((name) => name.replace('.html', ''));

export const isOld = (name) => name.endsWith('-in-old');
const isLarge = (name) => /-(hostile-\d+|40|500)$/.test(name);
const isTelling = (name) => /-hostile-(0|4|9|17|25|26)$/.test(name);

/** The pages to be checked for faults. */
export const checked = names.filter((name) => !isOld(name) && (!isShort || !isLarge(name) || isTelling(name)));

/** Those of them that axe goes through, and those that it looks at in other colours and widths, too. */
export const shown = checked.filter((name) => !isShort || /^several|-(1|3|special|odd|hostile-26)$/.test(name));
export const shownOtherwise = shown.filter((name) => (isShort ? name.endsWith('-3') : !/hostile/.test(name)));

/** Longer than a tip or message stays when the mouse has gone. */
const patience = 10000;

/** Waits until `source`, run in the page, gives what is expected. */
export async function becomes(engine, source, expected) {
    let value;
    for (const start = Date.now(); Date.now() - start < patience; ) {
        // While a page gives way to the next there is none to ask.
        value = await engine.run(source).catch((error) => error.message);
        if (JSON.stringify(value) === JSON.stringify(expected)) {
            return;
        }
        await sleep(30);
    }
    assert.deepEqual(value, expected, source);
}
