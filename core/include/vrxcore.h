/*
 * vrxcore.h - the companion core library of vrxs (libvrxcore.so.9.0):
 * aligned memory, processor features and cache size.
 * Compiles as C99 and as C++.
 */
#ifndef VRXCORE_H
#define VRXCORE_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* Processor feature bits of ownGetFeature. */
#define VRX_CPU_SSE2       0x00000001ull
#define VRX_CPU_SSE3       0x00000002ull
#define VRX_CPU_SSSE3      0x00000004ull
#define VRX_CPU_SSE41      0x00000008ull
#define VRX_CPU_SSE42      0x00000010ull
#define VRX_CPU_MOVBE      0x00000020ull
#define VRX_CPU_POPCNT     0x00000040ull
#define VRX_CPU_AVX        0x00000080ull  /* instructions present and enabled by the OS */
#define VRX_CPU_AES        0x00000100ull
#define VRX_CPU_CLMUL      0x00000200ull
#define VRX_CPU_RDRAND     0x00000400ull
#define VRX_CPU_FMA        0x00000800ull
#define VRX_CPU_BMI1       0x00001000ull
#define VRX_CPU_BMI2       0x00002000ull
#define VRX_CPU_F16C       0x00004000ull  /* half <-> single conversion instructions */
#define VRX_CPU_AVX2       0x00008000ull
#define VRX_CPU_LZCNT      0x00010000ull
#define VRX_CPU_ADX        0x00020000ull
#define VRX_CPU_AVX512F    0x00040000ull  /* present and enabled by the OS */
#define VRX_CPU_AVX512CD   0x00080000ull
#define VRX_CPU_AVX512ER   0x00100000ull
#define VRX_CPU_AVX512PF   0x00200000ull
#define VRX_CPU_AVX512BW   0x00400000ull
#define VRX_CPU_AVX512DQ   0x00800000ull
#define VRX_CPU_AVX512VL   0x01000000ull

/* Allocates len bytes aligned to 64 bytes; null when len < 1 or on failure. */
void* vrxMalloc(int len);
/* Releases a block of vrxMalloc; a null pointer is ignored. */
void vrxFree(void* ptr);
/* Writes the size in bytes of the largest processor cache and returns 0;
 * any other return means no size is known and *pSize was not written. */
int vrxGetMaxCacheSizeB(int* pSize);
/* Rounds ptr up to the next multiple of align (a power of two). */
void* vrxAlignPtr(void* ptr, int align);
/* Nonzero when the processor has every feature of mask. */
int ownGetFeature(uint64_t mask);

#ifdef __cplusplus
}
#endif

#endif /* VRXCORE_H */
