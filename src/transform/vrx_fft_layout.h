// The FFT plan in the caller's block: the size rules that the size query
// reports, and the one layout function that places the header and every
// table. Init carves its pieces with it; psfftinit.cpp checks at compile
// time, for every kind and order, that the layout fits inside the sizes
// reported.
#pragma once

#include "vrx_fft.h"
#include "vrx_layout.h"

namespace n0::fft {

// ------------------------------------------------------------ plan kinds

struct Kind {
    ObjId id;
    int maxOrder;
    bool real;
    bool dbl;
};
inline constexpr Kind kC32fc{ObjId::FftC32fc, 28, false, false};
inline constexpr Kind kR32f{ObjId::FftR32f, 29, true, false};
inline constexpr Kind kC64fc{ObjId::FftC64fc, 27, false, true};
inline constexpr Kind kR64f{ObjId::FftR64f, 28, true, true};

// ------------------------------------------------------------ table sizes

// The schedule of radices for complex order m. Entry 0 is the first pass,
// which reads the input in bit-reversed order and needs no factors; each
// further entry merges blocks of 2^s values by radix 2^t, reading its
// factors from the twiddle table in this order. The first pass is a
// radix-16 one (s = 2) but at 64-bit orders 5, 6 and 8 (measured per
// order).
template <class T> constexpr int radixSchedule(int m, PassStep* ps) {
    int n = 0;
    int s = (sizeof(T) == 4 || m >= 11 || m == 4 || m == 7 || m == 9 || m == 10) ? 2 : 3;
    ps[n++] = {0, s};
    while (s < m) {
        const int r = m - s;
        int t;
        if constexpr (sizeof(T) == 4) {
            if (r == 3) t = 3;
            else if (r >= 5 && s > 2) t = 3;
            else if (s == 4 && (m & 1)) t = 3;
            else t = 2;
        } else {
            if (r == 2 || r == 4 || s == 2) t = 2;
            else if (m < 11) t = 3;
            else if ((m & 1) == 0) t = 2;
            else if (m == 11) t = s < 5 ? 3 : 2;
            else t = (m >= 15 && s == 8) ? 2 : 3;
        }
        ps[n++] = {s, t};
        s += t;
    }
    return n;
}

// Complex factors of the radix engine's twiddle table for order m.
template <class T> constexpr int64_t radixTwiddleCount(int m) {
    PassStep ps[16] = {};
    const int np = radixSchedule<T>(m, ps);
    int64_t n = 0;
    for (int i = 1; i < np; ++i) n += ((int64_t(1) << ps[i].t) - 1) * (int64_t(1) << ps[i].s);
    return n;
}

// Entries of the radix engine's bit-reversal table (a closing 0 included).
constexpr int64_t radixBitRevCount(int m) { return m < 2 ? 0 : (int64_t(1) << (m - 2)) + 1; }

// Entries of the large path's bit-reversal tables: the tile table, then
// the in-tile list with its two closing zeros' room.
template <class T> constexpr int64_t largeBitRevCount(int m) {
    constexpr int k = Limits<T>::kTileOrder;
    return (int64_t(1) << (m - 2 * k)) + (int64_t(1) << (2 * k - 2)) + 1;
}

// Radix of the outer pass at t of a level of block order blk: 4 where
// 2, 4 or 6 rows' bits remain, else 8.
constexpr int outerRadixLog(int blk, int t) { return (blk == t + 2 || blk == t + 4 || blk == t + 6) ? 2 : 3; }

// Complex factors of one column group's outer passes at a level of order
// m, in the order the passes read them: 7c a radix-8 pass, 3c a radix-4
// pass, c the last radix-4 pass (c the width so far).
template <class T> constexpr int64_t stepGroupCount(int m) {
    const int blk = blockOrder<T>(m);
    int64_t n = 0;
    for (int64_t t = 0, c = int64_t(1) << (bufferOrder<T>(m) - blk); t < blk;) {
        const int tl = outerRadixLog(blk, static_cast<int>(t));
        n += blk == t + 2 ? c : ((int64_t(1) << tl) - 1) * c;
        c <<= tl;
        t += tl;
    }
    return n;
}
// The step table of a level of order m: every column group's factors.
template <class T> constexpr int64_t stepCount(int m) {
    return stepGroupCount<T>(m) * (int64_t(1) << (m - bufferOrder<T>(m)));
}

// S and W of the size rules for the large path of complex order m.
template <class T> constexpr void largeSizes(int m, bool top, int64_t& s, int64_t& w) {
    const int64_t e = sizeof(Cx<T>);
    const int blk = blockOrder<T>(m), buf = bufferOrder<T>(m);
    if (m - blk <= Limits<T>::kRadixLast) {
        s = a64(e * (int64_t(1) << (m - blk)) + e);
        w = a64(e * (int64_t(1) << (m - blk)));
    } else {
        largeSizes<T>(m - blk, false, s, w);
    }
    s += e * (int64_t(1) << (m - 1));
    if (w < (e << buf)) w = e << buf;
    if (top) {
        if (sizeof(T) == 4) { s += 4 * (int64_t(1) << (m - 12)) + 4160; if (w < 65536) w = 65536; }
        else { s += 4 * (int64_t(1) << (m - 10)) + 1088; if (w < 32768) w = 32768; }
    }
}
template <class T> constexpr int64_t largeSpecSize(int m) { int64_t s = 0, w = 0; largeSizes<T>(m, true, s, w); return s; }
template <class T> constexpr int64_t largeWorkSize(int m) { int64_t s = 0, w = 0; largeSizes<T>(m, true, s, w); return w; }

// Work bytes of a complex transform of order m (without slack).
template <class T> constexpr int32_t complexWorkSize(int m) {
    if (m <= 6) return 0;
    if (m <= Limits<T>::kRadixLast) return a64(int64_t(sizeof(Cx<T>)) << m);
    return static_cast<int32_t>(largeWorkSize<T>(m));
}

// Room of one recombination table of a real plan in the size rules (Q).
constexpr int64_t recombRoom(const Kind& k, int order) {
    const int64_t N = int64_t(1) << order;
    if (!k.dbl) return order <= 18 ? a64(2 * N) : a64(8 * (int64_t(1) << (order - 12)) + 8192);
    return order <= 16 ? a64(4 * N) : a64(16 * (int64_t(1) << (order - 11)) + 8192);
}
// Values of T in one recombination table: the factors in pairs of k = 1
// .. N/4, or kRecombFine fine pairs and the coarse pairs.
template <class T> constexpr int64_t recombCount(int order) {
    const int64_t q = (int64_t(1) << order) / 4;
    return recombTwoLevel<T>(order) ? 2 * kRecombFine + 2 * (q / kRecombFine) : 2 * q;
}

// ------------------------------------------------------------ size rules

struct PlanSizes {
    int32_t spec, init, work;
};

// The sizes the size query reports, by the rules of the plan format.
constexpr PlanSizes planSizes(const Kind& k, int order) {
    const int64_t N = int64_t(1) << order;
    const int64_t initBig = k.dbl ? a64(2 * N + 8) + 64 : a64(N + 4) + 64;
    const int64_t e = k.dbl ? 16 : 8;
    const int radixLast = k.dbl ? Limits<double>::kRadixLast : Limits<float>::kRadixLast;
    auto lSpec = [&](int m) { return k.dbl ? largeSpecSize<double>(m) : largeSpecSize<float>(m); };
    auto lWork = [&](int m) { return k.dbl ? largeWorkSize<double>(m) : largeWorkSize<float>(m); };
    auto i32 = [](int64_t v) { return static_cast<int32_t>(v); };
    if (!k.real) {
        if (order <= 6) return {208, 0, 0};
        if (order <= radixLast)
            return {i32(a64(e * N + e) + a64(N + 4) + 256), i32(order < 11 ? 0 : initBig), i32(a64(e * N) + 64)};
        return {i32(lSpec(order) + 256), i32(initBig), i32(lWork(order) + 64)};
    }
    const int64_t M = N / 2;
    const int64_t Q = recombRoom(k, order);
    if (order <= 4) return {208, 0, 0};
    if (order <= 7) return {i32(2 * a64((k.dbl ? 4 : 2) * N) + 256), 0, 0};
    if (order - 1 <= radixLast)
        return {i32(a64(e * M + e) + a64(M + 4) + 2 * Q + 256), i32(order < 11 ? 0 : initBig), i32(a64(e * M) + 64)};
    return {i32(lSpec(order - 1) + 2 * Q + 256), i32(initBig), i32(lWork(order - 1) + 64)};
}

// ------------------------------------------------------------ layout

// The pieces of a plan: the header on a 64-byte boundary, the bit-reversal
// table directly behind it, then each table on a 64-byte boundary: the
// twiddle table (radix engine) or, on the large path, the deepest level's
// twiddle table and the step tables from the deepest level up; in a real
// plan the forward and the inverse recombination table. A two-level
// recombination table that would outgrow its room (single precision from
// order 22) serves both directions, its values being the same.
template <class T> struct PlanPieces {
    Plan* hdr = nullptr;
    int32_t* bitRev = nullptr;
    Cx<T>* twiddle = nullptr;
    Cx<T>* step[3] = {nullptr, nullptr, nullptr};
    int levels = 0;         // step tables in use (large path)
    T* recombFwd = nullptr;
    T* recombInv = nullptr;
};

template <class T> constexpr PlanPieces<T> planLayout(Carver& c, const Kind& k, int order) {
    PlanPieces<T> o;
    o.hdr = c.take<Plan>(1);
    if (order <= (k.real ? 4 : 6)) return o;
    const int m = k.real ? order - 1 : order;
    if (!k.real || order >= 8) {
        if (!onLargePath<T>(m, k.real)) {
            o.bitRev = c.take<int32_t>(radixBitRevCount(m), alignof(int32_t));
            o.twiddle = c.take<Cx<T>>(radixTwiddleCount<T>(m));
        } else {
            o.bitRev = c.take<int32_t>(largeBitRevCount<T>(m), alignof(int32_t));
            int ord[3] = {m, 0, 0};
            o.levels = 1;
            while (ord[o.levels - 1] - blockOrder<T>(ord[o.levels - 1]) > Limits<T>::kRadixLast) {
                ord[o.levels] = ord[o.levels - 1] - blockOrder<T>(ord[o.levels - 1]);
                ++o.levels;
            }
            const int deep = ord[o.levels - 1];
            o.twiddle = c.take<Cx<T>>(radixTwiddleCount<T>(deep - blockOrder<T>(deep)));
            for (int l = o.levels - 1; l >= 0; --l) o.step[l] = c.take<Cx<T>>(stepCount<T>(ord[l]));
        }
    }
    if (k.real) {
        const int64_t n = recombCount<T>(order);
        o.recombFwd = c.take<T>(n);
        if (recombTwoLevel<T>(order) && a64(n * int64_t(sizeof(T))) > recombRoom(k, order)) o.recombInv = o.recombFwd;
        else o.recombInv = c.take<T>(n);
    }
    return o;
}

// The init buffer: the sine table of resolution 2^order (orders from 11).
template <class T> constexpr T* initLayout(Carver& c, int order) {
    return order < 11 ? nullptr : c.take<T>((int64_t(1) << order) / 4 + 1);
}

}  // namespace n0::fft
