// Pages that nobody would write, made from ones that somebody would; the same seed makes the same pages.

/** Small pieces that change how what follows is read. */
const pieces = [
    '<', '>', '/', '=', '"', "'", '&', ';', '-', '!', '?', ' ', '\n', '\r', '\r\n', '\f', '\t', '\0', '`', ']', 'x',
    '</', '/>', '<!', '<?', '<!--', '-->', '--!>', '--', '<!-->', '<!--->', '<!-', '<![CDATA[', ']]>', '<!DOCTYPE', '</>',
    '<script>', '</script>', '</script', '<script', '<style>', '</style>', '<title>', '</title>', '<textarea>',
    '</textarea>', '<xmp>', '</xmp>', '<plaintext>', '<iframe>', '</iframe>', '<noscript>', '</noscript>',
    '<svg>', '</svg>', '<svg/>', '<math>', '</math>', '<mi>', '<desc>', '</desc>', '<foreignObject>', '<font color=x>',
    '<p>', '</p>', '<b>', '<map name=m>', '</map>', '<area>', '<template>', '</template>', '<table>', '<td>',
    ' alt=', ' a="', " b='", ' =c', ' a a', '&amp', '&amp;', '&notit;', '&not=', '&#', '&#x', '&#128;', '&#xD800;',
    '&#x110000;', '&#0', '&NotEqualTilde;', '&ngE;', '\u00e4', '\ud83d\ude00', '\ud83d', '\ufffd', '\u212a',
];

/** Numbers from 0 to below 1, always the same for one seed. */
export function randomBy(seed) {
    let state = seed >>> 0;
    return () => {
        state = (state + 0x6d2b79f5) >>> 0;
        let mixed = Math.imul(state ^ (state >>> 15), state | 1);
        mixed ^= mixed + Math.imul(mixed ^ (mixed >>> 7), mixed | 61);
        return ((mixed ^ (mixed >>> 14)) >>> 0) / 0x100000000;
    };
}

const longestWindow = 1200;
const longestCut = 40;
const mostChanges = 8;

/** A piece of one of the pages with a few changes. */
export function mutated(pages, random) {
    const below = (limit) => Math.floor(random() * limit);
    const pick = (list) => list[below(list.length)];
    const stretch = (text, longest) => {
        const start = below(text.length + 1);
        return [start, Math.min(text.length, start + below(longest))];
    };
    const changes = [
        (text, [start]) => text.slice(0, start) + pick(pieces) + text.slice(start),
        (text, [start]) => text.slice(0, start) + pick(pieces) + pick(pieces) + text.slice(start),
        (text, [start, end]) => text.slice(0, start) + text.slice(end),
        (text, [start, end]) => text.slice(0, end) + text.slice(start, end) + text.slice(end),
        (text, [start, end]) => text.slice(0, start) + pick(pieces) + text.slice(end),
        (text, [start]) => {
            const other = pick(pages);
            return text.slice(0, start) + other.slice(...stretch(other, longestCut)) + text.slice(start);
        },
        (text, [start]) => (below(4) === 0 ? text.slice(0, start) : text.slice(0, start) + text.slice(start + 1)),
    ];
    const page = pick(pages);
    const start = below(3) === 0 ? below(page.length) : 0;
    let text = page.slice(start, start + longestWindow);
    for (let left = 1 + below(mostChanges); left > 0; --left) {
        text = pick(changes)(text, stretch(text, longestCut));
    }
    return text;
}
