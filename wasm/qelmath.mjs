// QELMath in WebAssembly: the polygon clipper, the smallest enclosing circle
// and the real linear solver on plain JavaScript arrays, with the results to
// the same bits as on every other platform.
//
//   import { loadQELMath } from './qelmath.mjs';
//   const q = await loadQELMath();
//   q.clipPolygon([x1, y1, x2, y2], [x0, y0, x1, y1, ...])
//       -> { code, contours: [[x, y, x, y, ...], ...] }  (code: contour count, or -1, -2, -3)
//   q.enclosingCircle([x0, y0, x1, y1, ...]) -> { x, y, radius }, or null for no points
//   q.solve(a /* n*n, row by row */, b /* n */) -> Float64Array x, or null when singular
//
// Arguments are copied into the module's memory and never changed.
import createQELMathCore from './qelmath_core.mjs';

export async function loadQELMath() {
    const core = await createQELMathCore();

    // The heap views are re-read after every call: a call may grow the
    // memory, which replaces them.
    function withBlock(bytes, use) {
        const ptr = core._malloc(Math.max(bytes, 8));
        if (ptr === 0) throw new RangeError('QELMath: out of memory');
        try {
            return use(ptr);
        } finally {
            core._free(ptr);
        }
    }
    const putDoubles = (ptr, values) => core.HEAPF64.set(values, ptr / 8);
    const getDoubles = (ptr, count) => Float64Array.from(core.HEAPF64.subarray(ptr / 8, ptr / 8 + count));

    function clipPolygon(rect, points) {
        const n = Math.floor(points.length / 2);
        return withBlock(8 * n + 8, (ptr) => {
            const outs = ptr + 8 * n;  // two result pointers
            core.HEAP32.set(Int32Array.from(points.slice(0, 2 * n)), ptr / 4);
            const code = core._qel_clip(rect[0], rect[1], rect[2], rect[3], ptr, n, outs, outs + 4);
            const contours = [];
            if (code > 0) {
                const pts = core.HEAPU32[outs / 4];
                const counts = core.HEAPU32[outs / 4 + 1];
                let at = pts / 4;
                for (let c = 0; c < code; ++c) {
                    const m = core.HEAP32[counts / 4 + c];
                    contours.push(Array.from(core.HEAP32.subarray(at, at + 2 * m)));
                    at += 2 * m;
                }
                core._qel_release(pts);
                core._qel_release(counts);
            }
            return { code, contours };
        });
    }

    function enclosingCircle(points) {
        const n = Math.floor(points.length / 2);
        if (n <= 0) return null;
        return withBlock(16 * n + 24, (ptr) => {
            putDoubles(ptr, points.slice(0, 2 * n));
            const circle = ptr + 16 * n;
            core._qel_enclosing_circle(ptr, n, circle);
            const [x, y, radius] = getDoubles(circle, 3);
            return { x, y, radius };
        });
    }

    function solve(a, b) {
        const n = b.length;
        if (a.length !== n * n) throw new RangeError('QELMath: a must hold n*n numbers');
        return withBlock(8 * n * n + 8 * n, (ptr) => {
            putDoubles(ptr, a);
            putDoubles(ptr + 8 * n * n, b);
            const ok = core._qel_solve(ptr, ptr + 8 * n * n, n);
            return ok === 1 ? getDoubles(ptr + 8 * n * n, n) : null;
        });
    }

    return { clipPolygon, enclosingCircle, solve };
}
