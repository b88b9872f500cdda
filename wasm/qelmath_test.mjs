// Calls the ES module from JavaScript as a web page would:
//   node qelmath_test.mjs <build>/wasm/qelmath.mjs
import assert from 'node:assert/strict';
import { pathToFileURL } from 'node:url';

const { loadQELMath } = await import(pathToFileURL(process.argv[2]).href);
const q = await loadQELMath();

// Solver: a column exchange puts the unknowns back in order; the rounded
// result is the native build's to the bit; singular is null.
assert.deepEqual(Array.from(q.solve([0, 1, 1, 0], [3, 7])), [7, 3]);
assert.deepEqual(Array.from(q.solve([2, 1, 1, 3], [3, 5])), [0.7999999999999999, 1.4000000000000001]);
assert.equal(q.solve([1, 2, 2, 4], [1, 2]), null);

// Enclosing circle: the pair (0, 0) (4, 0) holds the third point; the caller's
// array is not reordered.
const pts = [2, 1, 0, 0, 4, 0];
assert.deepEqual(q.enclosingCircle(pts), { x: 2, y: 0, radius: 2 });
assert.deepEqual(pts, [2, 1, 0, 0, 4, 0]);
assert.equal(q.enclosingCircle([]), null);

// Clipper: a square across the rectangle's corner gives one counter-clockwise
// contour; disjoint -1, inside -2.
const square = [0, 0, 10, 0, 10, 10, 0, 10];
const cut = q.clipPolygon([5, 5, 20, 20], square);
assert.equal(cut.code, 1);
const c = cut.contours[0];
assert.equal(c.length, 8);
let twiceArea = 0;
for (let i = 0; i < 4; ++i) {
    const j = (i + 1) % 4;
    twiceArea += c[2 * i] * c[2 * j + 1] - c[2 * j] * c[2 * i + 1];
}
assert.equal(twiceArea, 50);
assert.deepEqual(c.slice().sort((u, v) => u - v), [10, 10, 10, 10, 5, 5, 5, 5].sort((u, v) => u - v));
assert.deepEqual(q.clipPolygon([20, 20, 30, 30], square), { code: -1, contours: [] });
assert.deepEqual(q.clipPolygon([-1, -1, 11, 11], square), { code: -2, contours: [] });

console.log('QELMath ES module: solver, enclosing circle and clipper answer from JavaScript');
