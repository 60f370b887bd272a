// Whether the pages for today's browsers have faults that a checker finds. It is a program of its own, since the
// checkers would keep today.js from watching its browsers.
//
// node todayvalid.js PAGES_FOLDER short|all

import assert from 'node:assert/strict';
import { spawn } from 'node:child_process';
import { createRequire } from 'node:module';
import { join } from 'node:path';
import { text } from 'node:stream/consumers';
import { check, tellOutcome } from './checks.js';
import { checked, isOld, names, pathOf } from './todaypages.js';

const require = createRequire(import.meta.url);

const oldPages = names.filter(isOld);

/** What the Nu checker has against any of the pages; asked once, for the sake of its starting. */
async function askNu() {
    const jar = join(require.resolve('vnu-jar/package.json'), '..', 'build', 'dist', 'vnu.jar');
    const pages = ['new', 'old', ...checked, ...oldPages];
    const quickStart = ['-XX:TieredStopAtLevel=1', '-XX:+UseSerialGC', '-Xss4m'];
    const nu = spawn('java', [...quickStart, '-jar', jar, '--format', 'json', ...pages.map(pathOf)]);
    const answer = await text(nu.stderr);
    assert.match(answer, /^\{/, 'the Nu checker has not run');
    const pageOf = ({ url }) => url.split('/').pop().replace('.html', '');
    return JSON.parse(answer).messages.map((finding) => ({ ...finding, page: pageOf(finding) }));
}

let nuAnswer;

async function nuFindings(isMeant) {
    nuAnswer ??= askNu();
    return (await nuAnswer).filter(({ page }) => isMeant(page));
}

async function validateFindings(page) {
    const { HtmlValidate } = await import('html-validate');
    const validator = new HtmlValidate({ root: true, extends: ['html-validate:recommended'] });
    const report = await validator.validateFile(pathOf(page));
    return report.results.flatMap((result) => result.messages);
}

async function nuFindsNothing() {
    assert.deepEqual(await nuFindings((page) => page === 'new' || checked.includes(page)), []);
}

async function htmlValidateFindsNothing() {
    for (const name of ['new', ...checked]) {
        assert.deepEqual(await validateFindings(name), [], name);
    }
}

/** A page that was never valid has no other faults with a map in it than without. */
async function oldPagesGetNoNewFaults() {
    assert.ok(oldPages.length > 0);
    const known = (await nuFindings((page) => page === 'old')).map(({ message }) => message);
    assert.ok(known.length > 0, 'the page was valid');
    const found = await nuFindings(isOld);
    assert.ok(found.length >= known.length, 'the pages have not been read');
    assert.deepEqual(found.filter(({ message }) => !known.includes(message)), []);
    const knownRules = (await validateFindings('old')).map(({ ruleId }) => ruleId);
    for (const name of oldPages) {
        const rules = (await validateFindings(name)).map(({ ruleId }) => ruleId);
        assert.deepEqual(rules, knownRules, name);
    }
}

await check('the Nu checker finds nothing', nuFindsNothing);
await check('html-validate finds nothing', htmlValidateFindsNothing);
await check('old pages get no new faults', oldPagesGetNoNewFaults);
tellOutcome("Validity of pages for today's browsers");
