// A page of the program in a real browser, under a real mouse.

import assert from 'node:assert/strict';
import { pathToFileURL } from 'node:url';
import { areaOf } from './areas.js';

const patience = 5000;

/** Notes what the mouse is over as the page itself is told; a script of the page may take `event` away. */
function noteTarget() {
    document.addEventListener(
        'mousemove',
        (move) => {
            window.underMouse = move.target;
        },
        true,
    );
}

export class Visit {
    /** Opens the page at `path`, lets `act` use it, and fails when the page has had a script error. */
    static async to(browser, path, act) {
        const context = await browser.newContext({ viewport: null });
        try {
            context.setDefaultTimeout(patience);
            const visit = new Visit(context, await context.newPage());
            await visit.open(path);
            await act(visit);
            assert.deepEqual(visit.errors, [], 'the page has had script errors');
        } finally {
            await context.close();
        }
    }

    constructor(context, page) {
        this.context = context;
        this.page = page;
        this.errors = [];
        page.on('pageerror', (error) => this.errors.push(error.message));
        page.on('console', (message) => message.type() === 'error' && this.errors.push(message.text()));
    }

    async open(path) {
        this.url = pathToFileURL(path).href;
        await this.page.addInitScript(noteTarget);
        await this.page.goto(this.url);
        const picture = await this.page.evaluate(() => {
            const image = document.querySelector('img[usemap]');
            const { x, y } = image.getBoundingClientRect();
            return {
                x,
                y,
                width: image.width,
                height: image.height,
                isLoaded: image.naturalWidth === image.width,
            };
        });
        assert.ok(picture.isLoaded, 'the picture is not there, or not in its own size');
        this.picture = picture;
        const tags = await this.page.evaluate(() =>
            [...document.querySelectorAll('map area')].map((area) => ({
                shape: area.getAttribute('shape'),
                coords: area.coords,
                link: area.getAttribute('href'),
                target: area.target,
            })),
        );
        this.areas = tags.map((tag) => ({ ...tag, ...areaOf(tag) }));
        assert.deepEqual(
            this.areas.map((area) => area.shape),
            ['RECT', 'CIRCLE', 'POLYGON'],
        );
    }

    /** Moves the mouse to a place in the picture. */
    async moveTo({ x, y }) {
        assert.ok(
            x > 0 && y > 0 && x < this.picture.width && y < this.picture.height,
            'a point lies beside the picture',
        );
        await this.page.mouse.move(this.picture.x + x, this.picture.y + y);
    }

    async enter(area) {
        await this.moveTo(area.centre);
    }

    /** Moves the mouse to a place in the picture where no area is. */
    async leave() {
        await this.moveTo({ x: 3, y: 3 });
    }

    async clickAt({ x, y }) {
        await this.page.mouse.click(this.picture.x + x, this.picture.y + y);
    }

    /** The number of the area under the mouse, or -1, as the page's events and its styles tell. */
    async areaUnderMouse() {
        const { told, styled } = await this.page.evaluate(() => {
            const areas = [...document.querySelectorAll('map area')];
            return {
                told: areas.indexOf(window.underMouse),
                styled: areas.indexOf(document.querySelector('area:hover')),
            };
        });
        assert.equal(told, styled, 'the page is told of another area than the one that is styled');
        return told;
    }

    evaluate(inPage, argument) {
        return this.page.evaluate(inPage, argument);
    }

    /** Waits until `inPage` is true. */
    async becomes(inPage, argument) {
        await this.page.waitForFunction(inPage, argument);
    }
}
