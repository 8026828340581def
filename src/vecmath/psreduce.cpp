// Reduction of large arguments by pi/2 with the long table of 2/pi
// (Payne-Hanek), and the empty error hooks of the rare-case routines.
#include "vm_common.h"

#include <bit>

extern "C" {
void N0(own_vrxs_dError)(const char*, int, const double*, const double*, double*) {}
void N0(own_vrxs_sError)(const char*, int, const float*, const float*, float*) {}
void N0(own_vrxs_zError)(const char*, int, const double*, const double*, double*) {}
void N0(own_vrxs_cError)(const char*, int, const float*, const float*, float*) {}
}

namespace {

// The bits of 2/pi after the binary point, 64 a word.
alignas(64) const uint64_t kTwoOverPiBits[21] = {
    0xA2F9836E4E441529ULL,
    0xFC2757D1F534DDC0ULL,
    0xDB6295993C439041ULL,
    0xFE5163ABDEBBC561ULL,
    0xB7246E3A424DD2E0ULL,
    0x06492EEA09D1921CULL,
    0xFE1DEB1CB129A73EULL,
    0xE88235F52EBB4484ULL,
    0xE99C7026B45F7E41ULL,
    0x3991D639835339F4ULL,
    0x9C845F8BBDF9283BULL,
    0x1FF897FFDE05980FULL,
    0xEF2F118B5A0A6D1FULL,
    0x6D367ECF27CB09B7ULL,
    0x4F463F669E5FEA2DULL,
    0x7527BAC7EBE5F17BULL,
    0x3D0739F78A5292EAULL,
    0x6BFB5FB11F8D5D08ULL,
    0x56033046FC7B6BABULL,
    0xF0CFBC209AF4361DULL,
    0xA9E391615EE61B08ULL,
};

using u128 = unsigned __int128;
using i128 = __int128;

}  // namespace

// x = m * 2^e with m a 53-bit integer. Only the bits of 2/pi from index
// e-2 on matter modulo 4; a window of 192 of them times m gives the two
// quadrant bits and about 130 bits of fraction.
int N0(ownsReducePio2Large)(double x, double* rh, double* rl) {
    uint64_t bits = std::bit_cast<uint64_t>(x);
    bool neg = bits >> 63;
    int ex = static_cast<int>((bits >> 52) & 0x7FF);
    uint64_t m = (bits & 0x000FFFFFFFFFFFFFull) | (ex ? 0x0010000000000000ull : 0);
    int e = (ex ? ex : 1) - 1075;
    int i0 = e - 2 > 0 ? e - 2 : 0;
    int w = i0 >> 6, s = i0 & 63;
    uint64_t W[3];
    for (int k = 0; k < 3; ++k)
        W[k] = (kTwoOverPiBits[w + k] << s) | (s ? kTwoOverPiBits[w + k + 1] >> (64 - s) : 0);
    uint64_t p[4];
    u128 t = static_cast<u128>(m) * W[2];
    p[0] = static_cast<uint64_t>(t);
    t = static_cast<u128>(m) * W[1] + (t >> 64);
    p[1] = static_cast<uint64_t>(t);
    t = static_cast<u128>(m) * W[0] + (t >> 64);
    p[2] = static_cast<uint64_t>(t);
    p[3] = static_cast<uint64_t>(t >> 64);
    // value = P * 2^-sh; take bits [sh-126, sh+2) of P
    int sh = 192 + i0 - e;
    int k = sh - 126;
    int idx = k >> 6, b = k & 63;
    uint64_t lo64 = b ? (p[idx] >> b) | (p[idx + 1] << (64 - b)) : p[idx];
    uint64_t hi64 = b ? (p[idx + 1] >> b) | (idx + 2 < 4 ? p[idx + 2] << (64 - b) : 0) : p[idx + 1];
    u128 chunk = (static_cast<u128>(hi64) << 64) | lo64;
    int q = static_cast<int>(chunk >> 126);
    i128 f = static_cast<i128>(chunk & ((static_cast<u128>(1) << 126) - 1));
    if (f >> 125) {
        q += 1;
        f -= static_cast<i128>(static_cast<u128>(1) << 126);
    }
    double hi = static_cast<double>(f);
    double lo = static_cast<double>(f - static_cast<i128>(hi));
    hi *= 0x1p-126;
    lo *= 0x1p-126;
    constexpr double kPio2H = 0x1.921fb54442d18p+0, kPio2L = 0x1.1a62633145c07p-54;
    double ph = hi * kPio2H;
    double pl = __builtin_fma(hi, kPio2H, -ph) + (hi * kPio2L + lo * kPio2H);
    double sh2 = ph + pl;
    pl = pl - (sh2 - ph);
    if (neg) {
        *rh = -sh2;
        *rl = -pl;
        return (-q) & 3;
    }
    *rh = sh2;
    *rl = pl;
    return q & 3;
}
