// Where the edges of an area lie, worked out from the editor's own list.

const [rectangleShape, circleShape] = [0, 1];

export class TodayArea {
    constructor({ shape, coords, link, message }) {
        Object.assign(this, { shape, coords, link, message });
        this.sides = shape === circleShape ? [] : sidesOf(this.corners());
    }

    corners() {
        const [left, top, right, bottom] = this.coords;
        const numbers =
            this.shape === rectangleShape ? [left, top, right, top, right, bottom, left, bottom] : this.coords;
        return Array.from({ length: numbers.length / 2 }, (_, i) => [numbers[2 * i], numbers[2 * i + 1]]);
    }

    /** Whether an edge is no further than `margin` pixels of the picture away. */
    isNearEdge(x, y, margin) {
        if (this.shape === circleShape) {
            const fromCentre = Math.hypot(x - this.coords[0], y - this.coords[1]);
            return Math.abs(fromCentre - this.coords[2]) <= margin;
        }
        return this.sides.some((side) => distance(x, y, side) <= margin);
    }

    /** A point well inside. */
    get middle() {
        const [x, y, right, bottom] = this.coords;
        if (this.shape === circleShape) {
            return [x, y];
        }
        if (this.shape === rectangleShape) {
            return [(x + right) / 2, (y + bottom) / 2];
        }
        const corners = this.corners();
        const mean = (i) => corners.reduce((sum, corner) => sum + corner[i], 0) / corners.length;
        return [mean(0), mean(1)];
    }
}

function sidesOf(corners) {
    return corners.map((corner, i) => [corner, corners[(i + 1) % corners.length]]);
}

function distance(x, y, [a, b]) {
    const squared = (b[0] - a[0]) ** 2 + (b[1] - a[1]) ** 2;
    const part = squared && ((x - a[0]) * (b[0] - a[0]) + (y - a[1]) * (b[1] - a[1])) / squared;
    const on = Math.max(0, Math.min(1, part));
    return Math.hypot(x - a[0] - on * (b[0] - a[0]), y - a[1] - on * (b[1] - a[1]));
}
