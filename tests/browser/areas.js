// Where the areas of a map lie, worked out from the numbers in the page alone, without asking the browser.

const nearEdge = 2.5; // pixels between an edge and a point that must be on one side of it

/** An area of the page from what its tag says. */
export function areaOf({ shape, coords }) {
    const numbers = coords.split(', ').map(Number);
    switch (shape) {
        case 'RECT':
            return rectangle(numbers);
        case 'CIRCLE':
            return circle(numbers);
        case 'POLYGON':
            return polygon(numbers);
        default:
            throw new Error(`there is an area of shape ${shape}`);
    }
}

function rectangle([left, top, right, bottom]) {
    const contains = ({ x, y }) => x >= left && x < right && y >= top && y < bottom;
    const edges = sidesOf([
        { x: left, y: top },
        { x: right, y: top },
        { x: right, y: bottom },
        { x: left, y: bottom },
    ]);
    const corners = [
        [left, -1],
        [right, 1],
    ].flatMap(([x, dx]) =>
        [
            [top, -1],
            [bottom, 1],
        ].flatMap(([y, dy]) => [-nearEdge, nearEdge].map((off) => ({ x: x + dx * off, y: y + dy * off }))),
    );
    return {
        contains,
        centre: { x: (left + right) / 2, y: (top + bottom) / 2 },
        points: [...alongSides(edges), ...corners],
    };
}

function circle([x, y, radius]) {
    const contains = (point) => Math.hypot(point.x - x, point.y - y) < radius;
    const points = [];
    for (let step = 0; step < 12; ++step) {
        const angle = (step * Math.PI) / 6;
        for (const distance of [radius - nearEdge, radius + nearEdge]) {
            points.push({ x: x + distance * Math.cos(angle), y: y + distance * Math.sin(angle) });
        }
    }
    return { contains, centre: { x, y }, points };
}

function polygon(numbers) {
    const corners = [];
    for (let i = 0; i < numbers.length; i += 2) {
        corners.push({ x: numbers[i], y: numbers[i + 1] });
    }
    const sides = sidesOf(corners);
    const contains = ({ x, y }) =>
        sides.filter(([a, b]) => a.y > y !== b.y > y && x < a.x + ((y - a.y) * (b.x - a.x)) / (b.y - a.y))
            .length %
            2 ===
        1;
    const points = alongSides(sides).filter((point) =>
        sides.every((side) => distance(point, side) > nearEdge - 0.5),
    );
    return { contains, centre: points.find(contains), points };
}

function sidesOf(corners) {
    return corners.map((corner, i) => [corner, corners[(i + 1) % corners.length]]);
}

/** Points on either side of every side, at three places each. */
function alongSides(sides) {
    return sides.flatMap(([a, b]) => {
        const length = Math.hypot(b.x - a.x, b.y - a.y);
        const across = { x: ((b.y - a.y) / length) * nearEdge, y: ((a.x - b.x) / length) * nearEdge };
        return [0.15, 0.5, 0.85].flatMap((part) =>
            [-1, 1].map((side) => ({
                x: a.x + (b.x - a.x) * part + across.x * side,
                y: a.y + (b.y - a.y) * part + across.y * side,
            })),
        );
    });
}

function distance(point, [a, b]) {
    const squared = (b.x - a.x) ** 2 + (b.y - a.y) ** 2;
    const part = Math.max(
        0,
        Math.min(1, ((point.x - a.x) * (b.x - a.x) + (point.y - a.y) * (b.y - a.y)) / squared),
    );
    return Math.hypot(point.x - a.x - part * (b.x - a.x), point.y - a.y - part * (b.y - a.y));
}
