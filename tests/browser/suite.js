// Opens the pages that the program has made in a real browser, at two sharpnesses of screen, and checks with
// a real mouse that they do what they promise. What a browser of today no longer does with them is checked
// too: README and help tell users about it, and must learn of it when it changes.
//
// node suite.js PAGES_FOLDER CHROMIUM

import assert from 'node:assert/strict';
import { spawnSync } from 'node:child_process';
import { cpSync, mkdtempSync, readFileSync, rmSync } from 'node:fs';
import { tmpdir } from 'node:os';
import { join } from 'node:path';
import { pathToFileURL } from 'node:url';
import { chromium } from 'playwright-core';
import { check, fail, tellOutcome } from './checks.js';
import { Visit } from './visit.js';

const [folder, executablePath] = process.argv.slice(2);
const pages = [
    'no-script',
    'status-bar',
    'switching-images',
    'switching-images-file-names',
    'text-area',
    'tool-tips',
];
const messages = ['The house', 'The sun<br>at noon', 'A boat, na\u00efve'];

const pathOf = (page) => join(folder, `${page}.htm`);

function launch(scale) {
    const flags = [
        '--headless',
        '--disable-gpu',
        '--disable-quic',
        '--no-first-run',
        '--disable-background-networking',
        '--disable-component-update',
        '--disable-sync',
        '--window-size=1000,800',
        `--force-device-scale-factor=${scale}`,
    ];
    // Chromium's sandbox does not work for root. Every launch has an empty profile of its own.
    return chromium.launch({
        executablePath,
        args: process.getuid() === 0 ? [...flags, '--no-sandbox'] : flags,
    });
}

async function areasAreWhereTheyWereDrawn(visit) {
    for (const own of visit.areas) {
        const inside = own.points.filter(own.contains);
        const outside = own.points.filter((point) => !own.contains(point));
        assert.ok(inside.length >= 6 && outside.length >= 6, 'there are too few points to try');
        for (const point of [own.centre, ...inside, ...outside]) {
            await visit.moveTo(point);
            const expected = visit.areas.findIndex((area) => area.contains(point));
            assert.equal(await visit.areaUnderMouse(), expected, `at ${point.x}, ${point.y} in the picture`);
        }
    }
}

/** A link without a target leads away from the page itself, so it comes last. */
async function linksAndTargetsAreFollowed(visit) {
    await visit.clickAt({ x: 3, y: 3 });
    const [house, sun, boat] = visit.areas;
    assert.deepEqual([house.target, boat.target, sun.target], ['_blank', 'harbour', '']);
    const addressOf = (area) => pathToFileURL(join(folder, area.link)).href;
    for (const [area, windowName] of [
        [house, ''],
        [boat, 'harbour'],
    ]) {
        const opening = visit.context.waitForEvent('page');
        await visit.clickAt(area.centre);
        const opened = await opening;
        await opened.waitForURL(addressOf(area));
        assert.equal(await opened.evaluate(() => window.name), windowName);
    }
    const openPages = visit.context.pages().length;
    assert.equal(openPages, 3);
    assert.equal(visit.page.url(), visit.url);
    await visit.page.bringToFront();
    await visit.clickAt(sun.centre);
    await visit.page.waitForURL(addressOf(sun));
    assert.equal(visit.context.pages().length, openPages);
}

/** The pictures tell themselves apart by their widths. */
async function pictureFollowsTheMouse(visit) {
    const shows = (width) =>
        visit.becomes((wanted) => document.altimg.complete && document.altimg.naturalWidth === wanted, width);
    await shows(60);
    for (const [i, area] of visit.areas.entries()) {
        await visit.enter(area);
        await shows(70 + 10 * i);
        assert.match(
            await visit.evaluate(() => document.altimg.src),
            [/\/rectangle\.jpg$/, /\/circle\.jpg$/, /\/polygon\.jpg$/][i],
        );
        await visit.leave();
        await shows(60);
        assert.match(await visit.evaluate(() => document.altimg.src), /\/default\.jpg$/);
    }
    // From one area straight into the next.
    await visit.enter(visit.areas[0]);
    await visit.enter(visit.areas[2]);
    await shows(90);
}

async function messageFollowsTheMouse(visit) {
    const shown = () => visit.evaluate(() => document.querySelector('textarea').value);
    assert.equal(await shown(), 'Pick an area');
    for (const [i, area] of visit.areas.entries()) {
        await visit.enter(area);
        assert.equal(await shown(), messages[i]);
        await visit.leave();
        assert.equal(await shown(), 'Pick an area');
    }
}

/** The browser takes the text without an error but shows no tool tip; screen readers read the ALT. */
async function statusTextIsTaken(visit) {
    const session = await visit.context.newCDPSession(visit.page);
    const { nodes } = await session.send('Accessibility.getFullAXTree');
    const names = nodes
        .filter((node) => !node.ignored && node.role.value === 'link')
        .map((node) => node.name.value);
    assert.deepEqual(names, messages);
    for (const [i, area] of visit.areas.entries()) {
        await visit.enter(area);
        assert.equal(await visit.evaluate(() => window.status), messages[i]);
        assert.equal(await visit.evaluate((index) => document.querySelectorAll('area')[index].title, i), '');
        await visit.leave();
        assert.equal(await visit.evaluate(() => window.status), '');
    }
}

/** document.all is there, but passes for undefined wherever a script asks for it, so the script does nothing. */
async function toolTipsStayAway(visit) {
    assert.deepEqual(
        await visit.evaluate(() => [
            typeof document.all,
            Boolean(document.all),
            document.all.length > 0,
            typeof document.layers,
        ]),
        ['undefined', false, true, 'undefined'],
    );
    for (const area of visit.areas) {
        await visit.enter(area);
        assert.deepEqual(await visit.evaluate(() => [...document.querySelectorAll('[title]')].length), 0);
        assert.deepEqual(
            await visit.evaluate(() => [
                document.all.tooltip.innerHTML,
                getComputedStyle(document.all.tooltip).visibility,
            ]),
            ['', 'hidden'],
        );
        await visit.leave();
    }
}

async function pageHasNoScript(visit) {
    const before = await visit.page.content();
    for (const area of visit.areas) {
        await visit.enter(area);
    }
    assert.equal(await visit.page.content(), before);
    assert.doesNotMatch(before, /<script|onmouse/i);
}

/** What a strict reader of today has against markup of its time; anything else is a fault of ours. */
const pardoned = [
    /<(img|area)> lacks "alt" attribute$/,
    /<area> attribute "shape" has invalid value "polygon"$/,
    /<textarea> proprietary attribute "(value|scroll|scrollbars)"$/,
    /missing <!DOCTYPE> declaration$/,
];

function markupIsSound(page) {
    const result = spawnSync('tidy', ['-quiet', '-errors', '-win1252', pathOf(page)], { encoding: 'latin1' });
    assert.equal(result.error, undefined);
    const complaints = result.stderr.split('\n').filter((line) => line !== '');
    assert.ok(complaints.length > 0, 'tidy has not read the page');
    assert.deepEqual(
        complaints.filter((line) => !pardoned.some((pardon) => pardon.test(line))),
        [],
    );
    assert.equal(result.status, 1, 'tidy tells of errors, not only of warnings');
}

/** A page that names its pictures without folders goes wherever they go. */
async function pageMovesWithItsPictures(browser) {
    const elsewhere = mkdtempSync(join(tmpdir(), 'cartolen-pages-'));
    try {
        for (const name of [
            'switching-images-file-names.htm',
            'harbour.gif',
            'default.jpg',
            'rectangle.jpg',
            'circle.jpg',
            'polygon.jpg',
        ]) {
            cpSync(join(folder, name), join(elsewhere, name));
        }
        await Visit.to(browser, join(elsewhere, 'switching-images-file-names.htm'), pictureFollowsTheMouse);
        assert.ok(
            !readFileSync(join(elsewhere, 'switching-images-file-names.htm'), 'latin1').includes(folder),
        );
    } finally {
        rmSync(elsewhere, { recursive: true });
    }
}

const checksOf = {
    'no-script': ['nothing but links', pageHasNoScript],
    'status-bar': ['the status text is taken without an error', statusTextIsTaken],
    'switching-images': ['the second picture follows the mouse', pictureFollowsTheMouse],
    'switching-images-file-names': ['the second picture follows the mouse', pictureFollowsTheMouse],
    'text-area': ['the message follows the mouse', messageFollowsTheMouse],
    'tool-tips': ['the script runs without an error, and shows nothing', toolTipsStayAway],
};

async function checkAtScale(scale) {
    const browser = await launch(scale);
    console.log(`Chromium ${browser.version()}, ${scale} device pixel(s) to a CSS pixel`);
    try {
        for (const page of pages) {
            const [what, act] = checksOf[page];
            const visitTo = (name, use) =>
                check(`${page}, ${scale}x: ${name}`, () => Visit.to(browser, pathOf(page), use));
            await visitTo('areas are hit inside and missed outside', async (visit) => {
                assert.equal(await visit.evaluate(() => window.devicePixelRatio), scale);
                await areasAreWhereTheyWereDrawn(visit);
            });
            await visitTo('links and targets are followed', linksAndTargetsAreFollowed);
            await visitTo(what, act);
        }
        await check(`a page of file names moves with its pictures, ${scale}x`, () =>
            pageMovesWithItsPictures(browser),
        );
    } finally {
        await browser.close();
    }
}

try {
    for (const page of pages) {
        await check(`${page}: the markup is sound`, () => markupIsSound(page));
    }
    await Promise.all([1, 2].map(checkAtScale));
} catch (error) {
    fail('the browser', error);
}
tellOutcome('Browser suite');
