// What the pages for today's browsers do under a mouse, under keys and under fingers.

import assert from 'node:assert/strict';
import { createHash } from 'node:crypto';
import { readFileSync, writeFileSync } from 'node:fs';
import { createRequire } from 'node:module';
import { setTimeout as sleep } from 'node:timers/promises';
import { TodayArea } from './todayareas.js';
import { placeOf } from './todayhits.js';
import { becomes, maps, names, pathOf, urlOf } from './todaypages.js';

const require = createRequire(import.meta.url);

/** Longer than a message that has lost the mouse stays. */
const graceAndMore = 500;

export const shownMessages =
    '[...document.querySelectorAll(".imap-out>*")].filter(e=>e.checkVisibility()).map(e=>e.id||"start")';
const startOf = (name) => (/texts|pictures/.test(name) ? ['start'] : []);
const middleOf = (name, index) => new TodayArea(maps[name][index]).middle;

export async function messagesFollowTheMouse(engine, name) {
    await becomes(engine, shownMessages, startOf(name));
    for (const i of maps[name].keys()) {
        await engine.moveTo(...(await placeOf(engine, middleOf(name, i))));
        await becomes(engine, shownMessages, [`Shapes-${i + 1}`]);
    }
    await engine.moveTo(2, 2);
    await becomes(engine, shownMessages, startOf(name));
}

export async function messagesFollowTheKeys(engine, name) {
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-1']);
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-2']);
    await engine.press('Escape');
    await becomes(engine, shownMessages, startOf(name));
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-3']);
}

/** WCAG 1.4.13: the mouse can go from the area to its message. */
export async function messageStaysWhileTheMouseIsInTheFigure(engine, name) {
    await engine.moveTo(...(await placeOf(engine, middleOf(name, 0))));
    await becomes(engine, shownMessages, ['Shapes-1']);
    for (const [point, selector] of [
        [[395, 5], '.imap img'],
        [[5, 5], '.imap-out'],
    ]) {
        await engine.moveTo(...(await placeOf(engine, point, selector)));
        await sleep(graceAndMore);
        assert.deepEqual(await engine.run(shownMessages), ['Shapes-1']);
    }
    await engine.press('Escape');
    await becomes(engine, shownMessages, startOf(name));
}

const tip = '(({x,y,width,height})=>[x,y,width,height])(document.querySelector(":popover-open").getBoundingClientRect())';

/** WCAG 1.4.13: it can be hovered over, stays meanwhile, and goes with Escape. */
export async function tipsCanBeReachedAndDismissed(engine, name) {
    await engine.moveTo(...(await placeOf(engine, middleOf(name, 0))));
    await becomes(engine, shownMessages, ['Shapes-1']);
    const [x, y, width, height] = await engine.run(tip);
    await engine.moveTo(x + width / 2, y + height / 2);
    await sleep(graceAndMore);
    assert.deepEqual(await engine.run(shownMessages), ['Shapes-1']);
    await engine.press('Escape');
    await becomes(engine, shownMessages, []);
}

/** By keys a tip opens where the area ends; the window cuts off none, wherever its area is. */
export async function tipsAreInTheWindow(engine, name) {
    const window = await engine.run('[document.documentElement.clientWidth,innerHeight]');
    const isInside = ([x, y, width, height]) =>
        x >= 0 && y >= 0 && x + width <= window[0] && y + height <= window[1];
    await engine.press('Tab');
    await becomes(engine, shownMessages, ['Shapes-1']);
    const [, top] = await engine.run(tip);
    const bottom = await engine.run('document.activeElement.getBoundingClientRect().bottom');
    assert.ok(Math.abs(top - bottom) < 2, `the tip is at ${top}, and the area ends at ${bottom}`);
    await engine.run('document.activeElement.blur()');
    await becomes(engine, shownMessages, []);
    for (const [i, { coords }] of maps[name].entries()) {
        const [x, y, edge = 0] = coords;
        const points = [middleOf(name, i), i === 1 ? [x + edge - 2, y] : [x + 5, y + 5]];
        for (const point of points) {
            await engine.moveTo(...(await placeOf(engine, point)));
            await becomes(engine, shownMessages, [`Shapes-${i + 1}`]);
            const place = await engine.run(tip);
            assert.ok(isInside(place), `the tip is at ${place} in ${window}`);
            await engine.moveTo(2, 2);
            await becomes(engine, shownMessages, []);
        }
    }
}

/** How wide the outline of each shape is. */
const look =
    '[...document.querySelectorAll(".imap svg :is(rect,circle,polygon)")].map(e=>getComputedStyle(e))' +
    '.map(({stroke,strokeWidth})=>stroke==="none"?0:parseFloat(strokeWidth))';

export async function hoverAndFocusAreSeen(engine, name) {
    await becomes(engine, look, [0, 0, 0]);
    await engine.moveTo(...(await placeOf(engine, middleOf(name, 1))));
    await becomes(engine, look, [0, 2, 0]);
    await engine.moveTo(2, 2);
    await becomes(engine, look, [0, 0, 0]);
    await engine.press('Tab');
    await becomes(engine, look, [4, 0, 0]);
    await engine.press('Tab');
    await becomes(engine, look, [0, 4, 0]);
}

export async function tabGoesThroughTheAreasInOrder(engine, name) {
    for (const { link } of maps[name]) {
        await engine.press('Tab');
        await becomes(engine, 'document.activeElement?.getAttribute("href")??null', link);
    }
}

export async function linksAreFollowed(engine, name) {
    await engine.click(...(await placeOf(engine, middleOf(name, 0))));
    await becomes(engine, 'location.pathname.split("/").pop()', 'red.html');
}

export async function linksAreFollowedByEnter(engine) {
    await engine.press('Tab');
    await engine.press('Enter');
    await becomes(engine, 'location.pathname.split("/").pop()', 'red.html');
}

/** Areas of a map have no place of their own in Firefox; what the page is told is the same in all. */
export async function mapAreasAreHit(engine, name) {
    await engine.run('void addEventListener("mousemove",e=>{window.under=e.target},true)');
    for (const [i, { link }] of maps[name].slice(0, 3).entries()) {
        await engine.moveTo(...(await placeOf(engine, middleOf(name, i), 'img[usemap]')));
        await becomes(engine, 'window.under?.getAttribute("href")??null', link);
        await engine.moveTo(...(await placeOf(engine, [395, 295], 'img[usemap]')));
        await becomes(engine, 'window.under?.getAttribute("href")??null', null);
    }
}

/** Each map of a page with several shows its own messages, and leaves those of the others as they are. */
export async function mapsKeepToTheirOwnMessages(engine) {
    const described = await engine.run(
        '[...document.querySelectorAll(".imap")].map(m=>m.querySelector("svg>[aria-describedby]"))' +
            '.filter(Boolean).map(a=>a.getAttribute("aria-describedby"))',
    );
    assert.equal(described.length, 3);
    const before = await engine.run(shownMessages);
    for (const id of described) {
        const area = `[aria-describedby="${id}"] rect`;
        const others = await engine.run(
            `[...document.querySelectorAll(".imap-out")].filter(o=>!o.querySelector("#${id}")).flatMap(` +
                'o=>[...o.children].filter(e=>e.checkVisibility()).map(e=>e.id||"start"))',
        );
        await engine.moveTo(...(await placeOf(engine, [20, 20], area)));
        await becomes(engine, `${shownMessages}.includes("${id}")`, true);
        assert.deepEqual((await engine.run(shownMessages)).filter((one) => one !== id), others);
        await engine.moveTo(2, 2);
        await becomes(engine, shownMessages, before);
    }
}

/** Shapes that are links stay where they are and can be used when the picture is missing. */
export async function shapesOutliveTheirPicture(engine, name) {
    await engine.run('void(document.querySelector(".imap img").src="missing.png")');
    await becomes(engine, '(i=>[i.complete,i.naturalWidth,i.offsetWidth])(document.querySelector(".imap img"))', [
        true,
        0,
        400,
    ]);
    engine.errors.length = 0; // that it is missing
    await linksAreFollowed(engine, name);
}

export async function scriptLeavesNoNames(engine) {
    const all = 'Object.getOwnPropertyNames(window).sort()';
    await engine.open(urlOf('svg-links-3'));
    const before = await engine.run(all);
    await engine.open(urlOf('svg-tips-3'));
    const added = (await engine.run(all)).filter((name) => !before.includes(name) && !/^\d+$/.test(name));
    assert.deepEqual(added, []);
}

/** Pages whose policy allows the two constants by their hashes, and nothing else. */
export function writePolicyPages() {
    const pages = names.filter((name) => /^svg-[a-z]+-3$/.test(name));
    for (const page of pages) {
        const text = readFileSync(pathOf(page), 'utf8');
        const allowed = (element) => {
            const content = text.match(new RegExp(`<${element} data-imap="1">([^]*?)</${element}>`))?.[1];
            return content ? `'sha256-${createHash('sha256').update(content).digest('base64')}'` : "'none'";
        };
        const sources = `style-src ${allowed('style')}; script-src ${allowed('script')}`;
        const policy = `default-src 'none'; img-src file:; ${sources}`;
        const meta = `<meta http-equiv="Content-Security-Policy" content="${policy}">`;
        writeFileSync(pathOf(`policy-${page}`), text.replace('<meta charset="utf-8">', `$&\n${meta}`));
        maps[`policy-${page}`] = maps[page];
    }
}

export async function axeFindsNothing(engine, pages) {
    const axe = readFileSync(require.resolve('axe-core/axe.min.js'), 'utf8');
    for (const name of pages) {
        await engine.open(urlOf(name));
        await engine.page.evaluate(axe);
        const { violations } = await engine.page.evaluate(() => window.axe.run());
        assert.deepEqual(
            violations.map((violation) => `${violation.id}: ${violation.nodes[0].html}`),
            [],
            name,
        );
    }
}
