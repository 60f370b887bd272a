// Counts what holds and what does not, and says so a line each.

let passed = 0;
let failed = 0;

/** `what` did not hold; `error` tells how. */
export function fail(what, error) {
    ++failed;
    console.log(`FAILED  ${what}\n${error.stack}`);
}

/** `what` holds when `act` ends without an error. */
export async function check(what, act) {
    try {
        await act();
        ++passed;
        console.log(`ok      ${what}`);
    } catch (error) {
        fail(what, error);
    }
}

/** Sums up what `part` has found; the program ends in failure unless all of it has passed. */
export function tellOutcome(part) {
    console.log(`${part}: ${passed} passed, ${failed} failed`);
    process.exitCode = failed === 0 && passed > 0 ? 0 : 1;
}
