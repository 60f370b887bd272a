// Whether the areas of a page are where the editor has them.

import assert from 'node:assert/strict';
import { TodayArea } from './todayareas.js';
import { hits, isShort, maps } from './todaypages.js';

export const pictureSize = [400, 300];

/**
 * Closer to an edge than a pixel of the picture, browsers and editor may differ. Where the picture is shown small,
 * hundredths of a pixel of the screen count, by which circles are drawn as curves; and Firefox answers for whole
 * pixels of the screen, so that shapes which begin between two may be one off.
 */
const nearEdge = 1;
const screenPart = ({ name }) => (name === 'Firefox' ? 1 : 0.05);

/** Of so many points one is tried. */
const oneOf = isShort ? 4 : 1;
const leastPoints = 7000 / oneOf;

/** In the page: the number of the area that is at each point, found by what its shape says of itself. */
function areasAt(points, areas, [width, height]) {
    const numbers = (shape) => {
        const of = (...attributes) => attributes.map((name) => Number(shape.getAttribute(name)));
        if (shape.localName === 'rect') {
            const [x, y, w, h] = of('x', 'y', 'width', 'height');
            return [x, y, x + w, y + h];
        }
        return shape.localName === 'circle'
            ? of('cx', 'cy', 'r')
            : shape.getAttribute('points').split(/[ ,]/).map(Number);
    };
    const sorted = (list) => (list.length === 4 ? [...list].sort((a, b) => a - b) : list).join();
    const known = areas.map(sorted);
    const picture = document.querySelector('.imap img,img[usemap]');
    const elements = [...document.querySelectorAll('area')];
    const isShape = (found) => found?.matches('rect,circle,polygon');
    return points.map(([x, y]) => {
        const box = picture.getBoundingClientRect();
        const left = box.left + (x * box.width) / width;
        const top = box.top + (y * box.height) / height;
        scrollTo(left + scrollX - innerWidth / 2, top + scrollY - innerHeight / 2);
        const now = picture.getBoundingClientRect();
        const found = document.elementFromPoint(now.left + (x * now.width) / width, now.top + (y * now.height) / height);
        return isShape(found) ? known.indexOf(sorted(numbers(found))) : elements.indexOf(found);
    });
}

/** The pixels of a page that are further than `margin` from an edge, with the area that the editor has there. */
function pointsOf(name, areas, margin) {
    const numbers = hits[name];
    const points = [];
    for (let i = 0; i < numbers.length; i += 3 * oneOf) {
        const [x, y, expected] = numbers.slice(i, i + 3);
        if (!areas.some((area) => area.isNearEdge(x, y, margin))) {
            points.push([x, y, expected]);
        }
    }
    return points;
}

export async function areasAreWhereTheyWereDrawn(engine, name) {
    const areas = maps[name].map((area) => new TodayArea(area));
    const shown = await engine.run(
        '(({width,height})=>[width,height])(document.querySelector(".imap img,img[usemap]").getBoundingClientRect())',
    );
    const scale = Math.min(...shown.map((length, i) => length / pictureSize[i]));
    const points = pointsOf(name, areas, nearEdge + screenPart(engine) / (scale * engine.zoom));
    const [places, numbers] = [points.map(([x, y]) => [x, y]), areas.map((area) => area.coords)];
    const found = await engine.run(
        `(${areasAt})(${JSON.stringify(places)},${JSON.stringify(numbers)},${JSON.stringify(pictureSize)})`,
    );
    const wrong = points.map((point, i) => [...point, found[i]]).filter(([, , expected, hit]) => expected !== hit);
    assert.ok(points.length >= leastPoints, `there are only ${points.length} points`);
    assert.ok(points.some(([, , expected]) => expected >= 0));
    assert.deepEqual(wrong.slice(0, 5), [], `${wrong.length} of ${points.length} points are wrong`);
}

/** The place of a point of the picture in the window. */
export async function placeOf(engine, [x, y], selector = '.imap img') {
    const box = await engine.run(
        `(()=>{const e=document.querySelector(${JSON.stringify(selector)});e.scrollIntoView({block:"center"});` +
            'const r=e.getBoundingClientRect();return [r.x,r.y,r.width,r.height]})()',
    );
    const shown = /img/.test(selector) ? pictureSize : [box[2], box[3]];
    return [box[0] + (x * box[2]) / shown[0], box[1] + (y * box[3]) / shown[1]];
}

