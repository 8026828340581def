// The core library: aligned allocation, processor features, cache size.
#include "vrxcore.h"

#include <cpuid.h>
#include <stdlib.h>
#include <unistd.h>

#define VRX_EXPORT __attribute__((visibility("default")))

namespace {

constexpr int kAlign = 64;
constexpr int kRefusalStatus = 70;  // the exit status of a refused processor

#ifdef VRX_CORE_TEST_HOOKS
uint64_t g_featureMask = ~0ull;  // features a test allowed
#endif
uint64_t g_features = 0;         // what the processor has, read at load
int g_cacheStatus = -1;          // the largest cache, read at load: CPUID
int g_cacheSize = 0;             // is slow under a hypervisor

bool xgetbvHas(uint64_t bits) {
    unsigned lo, hi;
    __asm__ volatile("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
    uint64_t xcr0 = (static_cast<uint64_t>(hi) << 32) | lo;
    return (xcr0 & bits) == bits;
}

uint64_t detectFeatures() {
    unsigned a, b, c, d;
    uint64_t f = 0;
    unsigned maxLeaf = __get_cpuid_max(0, nullptr);
    if (maxLeaf < 1) return 0;
    __cpuid(1, a, b, c, d);
    if (d & (1u << 26)) f |= VRX_CPU_SSE2;
    if (c & (1u << 0))  f |= VRX_CPU_SSE3;
    if (c & (1u << 9))  f |= VRX_CPU_SSSE3;
    if (c & (1u << 19)) f |= VRX_CPU_SSE41;
    if (c & (1u << 20)) f |= VRX_CPU_SSE42;
    if (c & (1u << 22)) f |= VRX_CPU_MOVBE;
    if (c & (1u << 23)) f |= VRX_CPU_POPCNT;
    if (c & (1u << 25)) f |= VRX_CPU_AES;
    if (c & (1u << 1))  f |= VRX_CPU_CLMUL;
    if (c & (1u << 30)) f |= VRX_CPU_RDRAND;
    const bool osxsave = (c & (1u << 27)) != 0;
    const bool ymm = osxsave && xgetbvHas(0x6);      // XMM and YMM state
    const bool zmm = osxsave && xgetbvHas(0xE6);     // plus opmask and ZMM state
    if (ymm && (c & (1u << 28))) f |= VRX_CPU_AVX;
    if (ymm && (c & (1u << 12))) f |= VRX_CPU_FMA;
    if (ymm && (c & (1u << 29))) f |= VRX_CPU_F16C;
    if (maxLeaf >= 7) {
        __cpuid_count(7, 0, a, b, c, d);
        if (b & (1u << 3)) f |= VRX_CPU_BMI1;
        if (b & (1u << 8)) f |= VRX_CPU_BMI2;
        if (b & (1u << 19)) f |= VRX_CPU_ADX;
        if (ymm && (b & (1u << 5))) f |= VRX_CPU_AVX2;
        if (zmm) {
            if (b & (1u << 16)) f |= VRX_CPU_AVX512F;
            if (b & (1u << 28)) f |= VRX_CPU_AVX512CD;
            if (b & (1u << 27)) f |= VRX_CPU_AVX512ER;
            if (b & (1u << 26)) f |= VRX_CPU_AVX512PF;
            if (b & (1u << 30)) f |= VRX_CPU_AVX512BW;
            if (b & (1u << 17)) f |= VRX_CPU_AVX512DQ;
            if (b & (1u << 31)) f |= VRX_CPU_AVX512VL;
        }
    }
    if (__get_cpuid_max(0x80000000u, nullptr) >= 0x80000001u) {
        __cpuid(0x80000001u, a, b, c, d);
        if (c & (1u << 5)) f |= VRX_CPU_LZCNT;
    }
    return f;
}

// Largest cache by the deterministic cache-parameter leaves (4 on one
// vendor, 0x8000001D on the other; both share the register layout).
long long cacheByLeaf(unsigned leaf) {
    long long best = 0;
    for (unsigned sub = 0; sub < 16; ++sub) {
        unsigned a, b, c, d;
        __cpuid_count(leaf, sub, a, b, c, d);
        unsigned type = a & 0x1F;
        if (type == 0) break;
        if (type == 2) continue;  // instruction cache
        long long ways = ((b >> 22) & 0x3FF) + 1;
        long long parts = ((b >> 12) & 0x3FF) + 1;
        long long line = (b & 0xFFF) + 1;
        long long sets = static_cast<long long>(c) + 1;
        long long size = ways * parts * line * sets;
        if (size > best) best = size;
    }
    return best;
}

int detectCacheSize(int* pSize) {
    long long size = 0;
    unsigned maxLeaf = __get_cpuid_max(0, nullptr);
    if (maxLeaf >= 4) size = cacheByLeaf(4);
    if (size == 0 && __get_cpuid_max(0x80000000u, nullptr) >= 0x8000001Du) size = cacheByLeaf(0x8000001Du);
    if (size == 0) {
        long s = sysconf(_SC_LEVEL3_CACHE_SIZE);
        if (s <= 0) s = sysconf(_SC_LEVEL2_CACHE_SIZE);
        size = s > 0 ? s : 0;
    }
    if (size <= 0 || size > 0x7FFFFFFF) return -1;
    *pSize = static_cast<int>(size);
    return 0;
}

// libvrxsn0 is the AVX-512F/CD build and has no other path: on a processor
// without those features its first kernel would die of an illegal
// instruction, far from the cause. This library is loaded first, so it
// refuses here, before any kernel can run: one line on stderr naming the
// library, what is missing and what to do, then the exit status above.
void refuseWithout(uint64_t needed) {
    const uint64_t missing = needed & ~g_features;
    if (missing == 0) return;
    char line[320];
    size_t n = 0;
    auto put = [&](const char* s) {
        while (*s && n < sizeof line - 1) line[n++] = *s++;
    };
    put("vrxs: libvrxsn0.so.9.0 is built for processors with AVX-512F and AVX-512CD, and this one lacks ");
    if (missing & VRX_CPU_AVX512F) put("AVX-512F");
    if ((missing & VRX_CPU_AVX512F) && (missing & VRX_CPU_AVX512CD)) put(" and ");
    if (missing & VRX_CPU_AVX512CD) put("AVX-512CD");
    put(" (or the operating system has not enabled them); run the program on a machine whose"
        " /proc/cpuinfo lists avx512f and avx512cd.\n");
    ssize_t r = write(2, line, n);
    (void)r;
    _exit(kRefusalStatus);
}

__attribute__((constructor)) void readProcessor() {
    g_features = detectFeatures();
    refuseWithout(VRX_CPU_AVX512F | VRX_CPU_AVX512CD);
    g_cacheStatus = detectCacheSize(&g_cacheSize);
}

}  // namespace

extern "C" {

VRX_EXPORT void* vrxMalloc(int len) {
    if (len < 1) return nullptr;
    void* p = nullptr;
    if (posix_memalign(&p, kAlign, static_cast<size_t>(len)) != 0) return nullptr;
    return p;
}

VRX_EXPORT void vrxFree(void* ptr) { free(ptr); }

VRX_EXPORT int vrxGetMaxCacheSizeB(int* pSize) {
    if (!pSize) return -8;
    if (g_cacheStatus != 0) return g_cacheStatus;
    *pSize = g_cacheSize;
    return 0;
}

VRX_EXPORT void* vrxAlignPtr(void* ptr, int align) {
    uintptr_t a = static_cast<uintptr_t>(align > 0 ? align : 1);
    uintptr_t p = reinterpret_cast<uintptr_t>(ptr);
    return reinterpret_cast<void*>((p + a - 1) & ~(a - 1));
}

VRX_EXPORT int ownGetFeature(uint64_t mask) {
#ifdef VRX_CORE_TEST_HOOKS
    uint64_t have = g_features & __atomic_load_n(&g_featureMask, __ATOMIC_RELAXED);
#else
    uint64_t have = g_features;
#endif
    return (have & mask) == mask ? 1 : 0;
}

#ifdef VRX_CORE_TEST_HOOKS
// Only in the test build of the core (build/lib/testhooks, never
// installed): switches features off so that one test process can run the
// paths meant for lesser processors beside the usual ones. The mask is
// process-wide, which is why the core a program links does not have it.
VRX_EXPORT uint64_t vrxSetFeatureMask(uint64_t mask) {
    return __atomic_exchange_n(&g_featureMask, mask, __ATOMIC_RELAXED);
}
#endif

}  // extern "C"
