/*
 * vrxs.h - public interface of the vrx signal-processing primitives library
 * (libvrxsn0.so.9.0, the AVX-512 build).
 *
 * Every exported function is declared below on one line of the form
 *     VRXAPI(return-type, name, (arguments))
 * The build reads these lines: they are the library's export table, from
 * which the export stubs, their slots and the linker version script are
 * generated. Keep one declaration per line.
 *
 * The header compiles as C89 and later and as C++98 and later.
 *
 * Rules shared by every function (docs/guide.md has them at length):
 * - Statuses: vrxOk (0); an error is negative and nothing was written; a
 *   warning is positive and the whole vector was processed. Every status is
 *   listed with its meaning in docs/statuses.md.
 * - Checks, in this order unless a comment below says otherwise: null
 *   pointers in argument order (vrxErrNullPtr, -8), then a length below 1
 *   (vrxErrBadLength, -6), then the function's own values. The comments
 *   below name the statuses a function returns beyond -8 and -6.
 * - Names: vrxs<Operation>_<types>[_<modifiers>]. One type: all operands;
 *   two: source then destination. C: one operand is a constant; CRev: the
 *   constant stands on the left (val - x, val / x). _I: in place, the
 *   destination is also the (second) source. _Sfs: the exact result times
 *   2^-scaleFactor, rounded to nearest even and saturated; any scale factor
 *   is valid.
 * - In place and overlap: _I forms work in place. Otherwise a destination
 *   must not overlap a source, except where a comment allows it (Move, and
 *   out-of-place forms that say they hand pSrc == pDst to their _I form).
 * - Alignment: no vector needs any; vrxsMalloc_* gives 64-byte alignment,
 *   which is fastest.
 * - Objects (FFT plans, random states): size query, caller's memory, Init,
 *   use; no destroy call, free the memory. A plan is read-only after Init and
 *   may be shared by threads (each with its own work buffer); a state is
 *   written by every call and belongs to one thread at a time. Otherwise
 *   there is no global state: calls on different data may run concurrently.
 * - The floating-point control and status registers are left as found
 *   (flags raised by a computation may stay set); flush-to-zero and
 *   denormals-are-zero are never set.
 */
#ifndef VRXS_H
#define VRXS_H

#include <stdint.h>

#ifdef __cplusplus
extern "C" {
#endif

/* ---------------------------------------------------------------- types */

typedef uint8_t  Vrx8u;
typedef int8_t   Vrx8s;
typedef uint16_t Vrx16u;
typedef int16_t  Vrx16s;
typedef uint32_t Vrx32u;
typedef int32_t  Vrx32s;
typedef uint64_t Vrx64u;
typedef int64_t  Vrx64s;
typedef uint16_t Vrx16f;   /* IEEE binary16 bit pattern; read and written only by Convert */
typedef float    Vrx32f;
typedef double   Vrx64f;

typedef struct { Vrx8s  re; Vrx8s  im; } Vrx8sc;
typedef struct { Vrx16s re; Vrx16s im; } Vrx16sc;
typedef struct { Vrx32s re; Vrx32s im; } Vrx32sc;
typedef struct { Vrx64s re; Vrx64s im; } Vrx64sc;
typedef struct { Vrx32f re; Vrx32f im; } Vrx32fc;
typedef struct { Vrx64f re; Vrx64f im; } Vrx64fc;

/* ------------------------------------------------------------- statuses */

typedef int VrxStatus;

enum {
    /* warnings: the operation ran over the whole vector */
    vrxWarnNanArg          = 9,
    vrxWarnLnNegArg        = 8,
    vrxWarnLnZeroArg       = 7,
    vrxWarnDivByZero       = 6,
    vrxWarnEvenMedianMask  = 5,
    vrxWarnInvZero         = 4,
    vrxWarnSqrtNegArg      = 3,

    vrxOk                  = 0,

    /* errors: nothing was written */
    vrxErrBadArg           = -5,
    vrxErrBadLength        = -6,
    vrxErrRange            = -7,
    vrxErrNullPtr          = -8,
    vrxErrNoMemory         = -9,
    vrxErrDivByZero        = -10,
    vrxErrDataType         = -12,
    vrxErrFftOrder         = -15,
    vrxErrFftFlag          = -16,
    vrxErrBadSpec          = -17,
    vrxErrThreshOrder      = -18,
    vrxErrThreshNeg        = -19,
    vrxErrIirOrder         = -25,
    vrxErrFirLen           = -26,
    vrxErrRelFreq          = -27,
    vrxErrFirMrPhase       = -28,
    vrxErrFirMrFactor      = -29,
    vrxErrSamplePhase      = -30,
    vrxErrSampleFactor     = -31,
    vrxErrShift            = -32,
    vrxErrMaskSize         = -33,
    vrxErrWtOffset         = -35,
    vrxErrJaehneMagn       = -38,
    vrxErrKaiserAlpha      = -39,
    vrxErrTrnglAsym        = -40,
    vrxErrTrnglPhase       = -41,
    vrxErrTrnglFreq        = -42,
    vrxErrTrnglMagn        = -43,
    vrxErrTonePhase        = -44,
    vrxErrToneFreq         = -45,
    vrxErrToneMagn         = -46,
    vrxErrChannels         = -47,
    vrxErrChannelCount     = -53,
    vrxErrIirGenSingular   = -182,  /* matrix inversion of the IIR design failed */
    vrxErrSparseTaps       = -194,
    vrxErrIirGenPivot      = -195,  /* matrix inversion of the IIR design failed */
    vrxErrIirGenOrder      = -206,
    vrxErrIirGenFreq       = -208,
    vrxErrIirGenPassband   = -209,
    vrxErrRounding         = -213,
    vrxErrAlgType          = -228,
    vrxErrIirIirLength     = -234
};

/* --------------------------------------------------- small enumerations */

typedef int VrxRounding;
enum { vrxRndZero = 0, vrxRndNear = 1, vrxRndFinancial = 2 };

/* Any value other than vrxAlgHintFast selects the accurate path. */
typedef int VrxAlgHint;
enum { vrxAlgHintAccurate = 0, vrxAlgHintFast = 1 };

typedef int VrxCmpOp;
enum { vrxCmpLess = 0, vrxCmpGreater = 4 };

/* Low byte: algorithm; second byte (correlation only): normalisation. */
typedef int VrxAlgType;
enum {
    vrxAlgAuto = 0, vrxAlgDirect = 1, vrxAlgFFT = 2, vrxAlgMask = 0xFF,
    vrxNormNone = 0, vrxNormBiased = 0x100, vrxNormUnbiased = 0x200, vrxNormMask = 0xFF00
};

/* Data-type selectors of the buffer-size queries. */
typedef int VrxDataType;
enum {
    vrx8u = 1, vrx16u = 5, vrx16s = 7, vrx32u = 9, vrx32s = 11, vrx32f = 13, vrx32fc = 14, vrx64f = 19, vrx64fc = 20
};

typedef int VrxWinType;
enum { vrxWinBartlett = 0, vrxWinBlackman = 1, vrxWinHamming = 2, vrxWinHann = 3 };

/* FFT normalisation flags, compared by value. */
enum {
    vrxFftScaleFwd = 1, vrxFftScaleInv = 2, vrxFftScaleSqrt = 4, vrxFftScaleNone = 8
};

/* ------------------------------------------------------ version record */

/* The version of this header, at compile time. The library reports its own
 * at run time: vrxsGetLibVersion()->major, ->minor and ->majorBuild are these
 * three numbers for the library the header came with. */
#define VRXS_VERSION_MAJOR 9
#define VRXS_VERSION_MINOR 0
#define VRXS_VERSION_PATCH 2

typedef struct {
    int major;
    int minor;
    int majorBuild;
    int build;
    char targetCpu[4];
    const char* Name;
    const char* Version;
    const char* BuildDate;
} VrxLibraryVersion;

/* ------------------------------------------- persistent objects (opaque) */

typedef struct VrxsFftPlan_C_32fc VrxsFftPlan_C_32fc;
typedef struct VrxsFftPlan_C_32f  VrxsFftPlan_C_32f;
typedef struct VrxsFftPlan_R_32f  VrxsFftPlan_R_32f;
typedef struct VrxsFftPlan_C_64fc VrxsFftPlan_C_64fc;
typedef struct VrxsFftPlan_C_64f  VrxsFftPlan_C_64f;
typedef struct VrxsFftPlan_R_64f  VrxsFftPlan_R_64f;

typedef struct VrxsDftPlan_C_32fc VrxsDftPlan_C_32fc;
typedef struct VrxsDftPlan_C_32f  VrxsDftPlan_C_32f;
typedef struct VrxsDftPlan_R_32f  VrxsDftPlan_R_32f;
typedef struct VrxsDftPlan_C_64fc VrxsDftPlan_C_64fc;
typedef struct VrxsDftPlan_C_64f  VrxsDftPlan_C_64f;
typedef struct VrxsDftPlan_R_64f  VrxsDftPlan_R_64f;

typedef struct VrxsDctPlan_Fwd_32f VrxsDctPlan_Fwd_32f;
typedef struct VrxsDctPlan_Inv_32f VrxsDctPlan_Inv_32f;
typedef struct VrxsDctPlan_Fwd_64f VrxsDctPlan_Fwd_64f;
typedef struct VrxsDctPlan_Inv_64f VrxsDctPlan_Inv_64f;

typedef struct VrxsHilbertPlan VrxsHilbertPlan;

typedef struct VrxsWtFwdState_32f    VrxsWtFwdState_32f;
typedef struct VrxsWtFwdState_8u32f  VrxsWtFwdState_8u32f;
typedef struct VrxsWtFwdState_16u32f VrxsWtFwdState_16u32f;
typedef struct VrxsWtFwdState_16s32f VrxsWtFwdState_16s32f;
typedef struct VrxsWtInvState_32f    VrxsWtInvState_32f;
typedef struct VrxsWtInvState_32f8u  VrxsWtInvState_32f8u;
typedef struct VrxsWtInvState_32f16u VrxsWtInvState_32f16u;
typedef struct VrxsWtInvState_32f16s VrxsWtInvState_32f16s;

typedef struct VrxsRandUniformState VrxsRandUniformState;
typedef struct VrxsRandGaussState   VrxsRandGaussState;

typedef struct VrxsIirState   VrxsIirState;
typedef struct VrxsFirMrState VrxsFirMrState;

typedef struct VrxsFirState_32f  VrxsFirState_32f;
typedef struct VrxsFirState_32fc VrxsFirState_32fc;
typedef struct VrxsFirState_64f  VrxsFirState_64f;
typedef struct VrxsFirState_64fc VrxsFirState_64fc;

typedef struct VrxsFirSparseState_32f  VrxsFirSparseState_32f;
typedef struct VrxsFirSparseState_32fc VrxsFirSparseState_32fc;
typedef struct VrxsIirSparseState_32f  VrxsIirSparseState_32f;
typedef struct VrxsIirSparseState_32fc VrxsIirSparseState_32fc;

typedef struct VrxsIirIirState_32f    VrxsIirIirState_32f;
typedef struct VrxsIirIirState64f_32f VrxsIirIirState64f_32f;
typedef struct VrxsIirIirState_64f    VrxsIirIirState_64f;

typedef struct VrxsFirLmsState_32f VrxsFirLmsState_32f;
typedef struct VrxsFirLmsState_64f VrxsFirLmsState_64f;

typedef struct VrxsResamplePolyphaseState_32f      VrxsResamplePolyphaseState_32f;
typedef struct VrxsResamplePolyphaseFixedState_32f VrxsResamplePolyphaseFixedState_32f;

/* ------------------------------------------------- declaration machinery */

/* Inside the library the same lines declare the local implementations;
 * users of the header see the exported functions. */
#ifndef VRXAPI
#define VRXAPI(ret, name, args) extern ret name args;
#endif

/* ----------------------------------------------------- library frame */

/* The library's version record: one constant object, the same pointer on every call.
 * The only export with no status; VRXS_VERSION_* give the header's version. */
VRXAPI(const VrxLibraryVersion*, vrxsGetLibVersion, (void))

/* vrxsMalloc_<type>: a block of len elements of the type, 64-byte aligned, not
 * initialised; null when len < 1, when the block would pass 2^31-1 bytes or when
 * memory is short. Release it with vrxsFree; no other function frees. */
VRXAPI(Vrx8u*,   vrxsMalloc_8u,   (int len))
VRXAPI(Vrx8s*,   vrxsMalloc_8s,   (int len))
VRXAPI(Vrx16u*,  vrxsMalloc_16u,  (int len))
VRXAPI(Vrx16s*,  vrxsMalloc_16s,  (int len))
VRXAPI(Vrx8sc*,  vrxsMalloc_8sc,  (int len))
VRXAPI(Vrx32u*,  vrxsMalloc_32u,  (int len))
VRXAPI(Vrx32s*,  vrxsMalloc_32s,  (int len))
VRXAPI(Vrx32f*,  vrxsMalloc_32f,  (int len))
VRXAPI(Vrx16sc*, vrxsMalloc_16sc, (int len))
VRXAPI(Vrx64s*,  vrxsMalloc_64s,  (int len))
VRXAPI(Vrx64f*,  vrxsMalloc_64f,  (int len))
VRXAPI(Vrx32sc*, vrxsMalloc_32sc, (int len))
VRXAPI(Vrx32fc*, vrxsMalloc_32fc, (int len))
VRXAPI(Vrx64sc*, vrxsMalloc_64sc, (int len))
VRXAPI(Vrx64fc*, vrxsMalloc_64fc, (int len))
/* Releases a block of vrxsMalloc_*; a null pointer is ignored. */
VRXAPI(void,     vrxsFree,        (void* ptr))

/* block moves; Copy requires non-overlapping vectors, Move allows overlap */
/* Copy: pDst[i] = pSrc[i] for i < len; the two vectors must not overlap (Move may). */
VRXAPI(VrxStatus, vrxsCopy_8u,   (const Vrx8u* pSrc, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_16s,  (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_32s,  (const Vrx32s* pSrc, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_32f,  (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_64s,  (const Vrx64s* pSrc, Vrx64s* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_64f,  (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_32sc, (const Vrx32sc* pSrc, Vrx32sc* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_64sc, (const Vrx64sc* pSrc, Vrx64sc* pDst, int len))
VRXAPI(VrxStatus, vrxsCopy_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))

/* Move: pDst[i] = pSrc[i] for i < len, as if the whole source were read first;
 * the vectors may overlap in any way. */
VRXAPI(VrxStatus, vrxsMove_8u,   (const Vrx8u* pSrc, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_16s,  (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_32s,  (const Vrx32s* pSrc, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_32f,  (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_64s,  (const Vrx64s* pSrc, Vrx64s* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_64f,  (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_32sc, (const Vrx32sc* pSrc, Vrx32sc* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_64sc, (const Vrx64sc* pSrc, Vrx64sc* pDst, int len))
VRXAPI(VrxStatus, vrxsMove_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))

/* Zero: pDst[i] = 0 for i < len (all bits clear, both parts of a complex element). */
VRXAPI(VrxStatus, vrxsZero_8u,   (Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_16s,  (Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_32s,  (Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_32f,  (Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_16sc, (Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_64s,  (Vrx64s* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_64f,  (Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_32sc, (Vrx32sc* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_32fc, (Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_64sc, (Vrx64sc* pDst, int len))
VRXAPI(VrxStatus, vrxsZero_64fc, (Vrx64fc* pDst, int len))

/* Set: pDst[i] = val for i < len. */
VRXAPI(VrxStatus, vrxsSet_8u,   (Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_16s,  (Vrx16s val, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_32s,  (Vrx32s val, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_32f,  (Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_16sc, (Vrx16sc val, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_64s,  (Vrx64s val, Vrx64s* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_64f,  (Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_32sc, (Vrx32sc val, Vrx32sc* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_32fc, (Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_64sc, (Vrx64sc val, Vrx64sc* pDst, int len))
VRXAPI(VrxStatus, vrxsSet_64fc, (Vrx64fc val, Vrx64fc* pDst, int len))

/* bit strings: only the low three bits of an offset count; len is in bits.
 * LE: string bit 0 is the byte's most significant bit; BE: its least. */
VRXAPI(VrxStatus, vrxsCopyLE_1u, (const Vrx8u* pSrc, int srcBitOffset, Vrx8u* pDst, int dstBitOffset, int len))
VRXAPI(VrxStatus, vrxsCopyBE_1u, (const Vrx8u* pSrc, int srcBitOffset, Vrx8u* pDst, int dstBitOffset, int len))

/* reversal: dst[i] = src[len-1-i]; src == dst forwards to the _I form */
VRXAPI(VrxStatus, vrxsFlip_8u,     (const Vrx8u* pSrc, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsFlip_16u,    (const Vrx16u* pSrc, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsFlip_32f,    (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsFlip_64f,    (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsFlip_32fc,   (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsFlip_64fc,   (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsFlip_8u_I,   (Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsFlip_16u_I,  (Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsFlip_32f_I,  (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsFlip_64f_I,  (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsFlip_32fc_I, (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsFlip_64fc_I, (Vrx64fc* pSrcDst, int len))

/* byte reversal of each element; 24u is three bytes a sample, len in samples */
VRXAPI(VrxStatus, vrxsSwapBytes_16u,   (const Vrx16u* pSrc, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_24u,   (const Vrx8u* pSrc, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_32u,   (const Vrx32u* pSrc, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_64u,   (const Vrx64u* pSrc, Vrx64u* pDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_16u_I, (Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_24u_I, (Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_32u_I, (Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSwapBytes_64u_I, (Vrx64u* pSrcDst, int len))

/* ===================================================== element-wise arithmetic */
/* add, subtract, multiply, divide */

/* floating-point vectors and constants; Sub is src2 - src1, SubC element - val, SubCRev val - element;
 * AddC/SubC with val 0 and MulC with val 1 copy, MulC with val 0 clears */
/* AddC: pDst[i] = pSrc[i] + val; _I: pSrcDst[i] += val. */
VRXAPI(VrxStatus, vrxsAddC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
/* Add: pDst[i] = pSrc1[i] + pSrc2[i]; _I: pSrcDst[i] += pSrc[i]. */
VRXAPI(VrxStatus, vrxsAdd_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))
/* MulC: pDst[i] = pSrc[i] * val (a full complex product for complex val); _I in place. */
VRXAPI(VrxStatus, vrxsMulC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
/* Mul: pDst[i] = pSrc1[i] * pSrc2[i], complex products with no conjugate;
 * _I: pSrcDst[i] *= pSrc[i]. */
VRXAPI(VrxStatus, vrxsMul_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))
/* SubCRev: pDst[i] = val - pSrc[i]; _I: pSrcDst[i] = val - pSrcDst[i]. */
VRXAPI(VrxStatus, vrxsSubCRev_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
/* SubC: pDst[i] = pSrc[i] - val; _I: pSrcDst[i] -= val. */
VRXAPI(VrxStatus, vrxsSubC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
/* Sub: pDst[i] = pSrc2[i] - pSrc1[i] (the first source is subtracted);
 * _I: pSrcDst[i] -= pSrc[i]. */
VRXAPI(VrxStatus, vrxsSub_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))

/* mixed forms: real by complex, 16s sources computed in 32f, 32f by a constant into 16s */
/* pDst[i] = pSrc1[i] + pSrc2[i], both converted to single precision first. */
VRXAPI(VrxStatus, vrxsAdd_16s32f, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len))
/* pDst[i] = pSrc[i] * val * 2^-scaleFactor, rounded to nearest even and saturated to 16 bits. */
VRXAPI(VrxStatus, vrxsMulC_32f16s_Sfs, (const Vrx32f* pSrc, Vrx32f val, Vrx16s* pDst, int len, int scaleFactor))
/* pDst[i] = pSrc[i] * val rounded and saturated to 16 bits: a cheaper, less exact
 * product than vrxsMulC_32f16s_Sfs at scale factor 0. */
VRXAPI(VrxStatus, vrxsMulC_Low_32f16s, (const Vrx32f* pSrc, Vrx32f val, Vrx16s* pDst, int len))
/* pDst[i] = pSrc1[i] * pSrc2[i], both converted to single precision first. */
VRXAPI(VrxStatus, vrxsMul_16s32f, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len))
/* pDst[i] = pSrc1[i] * pSrc2[i]: each complex element scaled by the real one;
 * _I: pSrcDst[i] *= pSrc[i]. */
VRXAPI(VrxStatus, vrxsMul_32f32fc, (const Vrx32f* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32f32fc_I, (const Vrx32f* pSrc, Vrx32fc* pSrcDst, int len))
/* pDst[i] = pSrc2[i] - pSrc1[i], both converted to single precision first. */
VRXAPI(VrxStatus, vrxsSub_16s32f, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len))

/* integer vectors, scaled: the exact result times 2^-scaleFactor, rounded to nearest even, saturated;
 * complex Add/Sub test the length first; Mul_32s_Sfs forms its product in binary64 (MulC_32s_Sfs is exact) */
/* Add: (pSrc1[i] + pSrc2[i]) * 2^-scaleFactor; _ISfs: pSrcDst[i] = (pSrc[i] + pSrcDst[i]) scaled. */
VRXAPI(VrxStatus, vrxsAdd_16s_ISfs, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_16s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_16sc_ISfs, (const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_16sc_Sfs, (const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_16u_ISfs, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_16u_Sfs, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_32s_ISfs, (const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_32s_Sfs, (const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_32sc_ISfs, (const Vrx32sc* pSrc, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_32sc_Sfs, (const Vrx32sc* pSrc1, const Vrx32sc* pSrc2, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_64s_ISfs, (const Vrx64s* pSrc, Vrx64s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_64s_Sfs, (const Vrx64s* pSrc1, const Vrx64s* pSrc2, Vrx64s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_8u_ISfs, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAdd_8u_Sfs, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor))
/* Mul: pSrc1[i] * pSrc2[i] * 2^-scaleFactor (complex products unconjugated); 16s32s writes
 * 32 bits; 16u16s takes an unsigned first source. _ISfs: pSrcDst[i] = pSrc[i] * pSrcDst[i]. */
VRXAPI(VrxStatus, vrxsMul_16s_ISfs, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16s32s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16sc_ISfs, (const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16sc_Sfs, (const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16u_ISfs, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16u16s_ISfs, (const Vrx16u* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16u16s_Sfs, (const Vrx16u* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_16u_Sfs, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_32s_ISfs, (const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_32s_Sfs, (const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_32sc_ISfs, (const Vrx32sc* pSrc, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_32sc_Sfs, (const Vrx32sc* pSrc1, const Vrx32sc* pSrc2, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_8u_ISfs, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMul_8u_Sfs, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor))
/* Sub: (pSrc2[i] - pSrc1[i]) * 2^-scaleFactor; _ISfs: pSrcDst[i] = (pSrcDst[i] - pSrc[i]) scaled. */
VRXAPI(VrxStatus, vrxsSub_16s_ISfs, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_16s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_16sc_ISfs, (const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_16sc_Sfs, (const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_16u_ISfs, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_16u_Sfs, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_32s_ISfs, (const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_32s_Sfs, (const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_32sc_ISfs, (const Vrx32sc* pSrc, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_32sc_Sfs, (const Vrx32sc* pSrc1, const Vrx32sc* pSrc2, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_8u_ISfs, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSub_8u_Sfs, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor))

/* integer constants, scaled; complex constants act on each component */
/* AddC: (pSrc[i] + val) * 2^-scaleFactor; _ISfs in place. */
VRXAPI(VrxStatus, vrxsAddC_16s_ISfs, (Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_16s_Sfs, (const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_16sc_ISfs, (Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_16u_ISfs, (Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_16u_Sfs, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_32s_ISfs, (Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_32s_Sfs, (const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_32sc_ISfs, (Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_32sc_Sfs, (const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_8u_ISfs, (Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddC_8u_Sfs, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor))
/* MulC: pSrc[i] * val * 2^-scaleFactor (complex: full complex product); _ISfs in place. */
VRXAPI(VrxStatus, vrxsMulC_16s_ISfs, (Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_16s_Sfs, (const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_16sc_ISfs, (Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_16u_ISfs, (Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_16u_Sfs, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_32s_ISfs, (Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_32s_Sfs, (const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_32sc_ISfs, (Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_32sc_Sfs, (const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_8u_ISfs, (Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_8u_Sfs, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor))
/* SubCRev: (val - pSrc[i]) * 2^-scaleFactor; _ISfs in place. */
VRXAPI(VrxStatus, vrxsSubCRev_16s_ISfs, (Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_16s_Sfs, (const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_16sc_ISfs, (Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_16u_ISfs, (Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_16u_Sfs, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_32s_ISfs, (Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_32s_Sfs, (const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_32sc_ISfs, (Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_32sc_Sfs, (const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_8u_ISfs, (Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubCRev_8u_Sfs, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor))
/* SubC: (pSrc[i] - val) * 2^-scaleFactor; _ISfs in place. */
VRXAPI(VrxStatus, vrxsSubC_16s_ISfs, (Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_16s_Sfs, (const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_16sc_ISfs, (Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_16u_ISfs, (Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_16u_Sfs, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_32s_ISfs, (Vrx32s val, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_32s_Sfs, (const Vrx32s* pSrc, Vrx32s val, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_32sc_ISfs, (Vrx32sc val, Vrx32sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_32sc_Sfs, (const Vrx32sc* pSrc, Vrx32sc val, Vrx32sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_8u_ISfs, (Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSubC_8u_Sfs, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor))

/* unscaled, widening and saturating integer forms */
/* Add: pSrc1[i] + pSrc2[i] saturated to the destination (scale factor 0); 8u16u widens
 * (exact); 16s32s_I adds 16-bit pSrc into 32-bit pSrcDst. _I: pSrcDst[i] += pSrc[i]. */
VRXAPI(VrxStatus, vrxsAdd_16s, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16s32s_I, (const Vrx16s* pSrc, Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_8u16u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx16u* pDst, int len))
/* Mul: pSrc1[i] * pSrc2[i] saturated (scale factor 0); 8u16u widens (exact). */
VRXAPI(VrxStatus, vrxsMul_16s, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_8u16u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx16u* pDst, int len))
/* Sub: pSrc2[i] - pSrc1[i] saturated (scale factor 0); _I: pSrcDst[i] -= pSrc[i]. */
VRXAPI(VrxStatus, vrxsSub_16s, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))

/* 64-bit constants: rounding is a VrxRounding; len is read as unsigned (only 0 is bad) in AddC and MulC_64f64s */
/* AddC: (pSrc[i] + val) * 2^-scaleFactor, rounded as rounding says, saturated to 64 bits. */
VRXAPI(VrxStatus, vrxsAddC_64s_Sfs, (const Vrx64s* pSrc, Vrx64s val, Vrx64s* pDst, int len, int scaleFactor, VrxRounding rounding))
VRXAPI(VrxStatus, vrxsAddC_64u_Sfs, (const Vrx64u* pSrc, Vrx64u val, Vrx64u* pDst, int len, int scaleFactor, VrxRounding rounding))
/* pSrcDst[i] = pSrcDst[i] * val (a double) * 2^-scaleFactor, rounded and saturated to 64 bits. */
VRXAPI(VrxStatus, vrxsMulC_64f64s_ISfs, (Vrx64f val, Vrx64s* pSrcDst, int len, int scaleFactor))
/* pSrcDst[i] = pSrcDst[i] * val * 2^-scaleFactor, exact product, rounded and saturated. */
VRXAPI(VrxStatus, vrxsMulC_64s_ISfs, (Vrx64s val, Vrx64s* pSrcDst, int len, int scaleFactor))

/* division: Div is src2 / src1, DivC element / val, DivCRev val / element; a zero vector divisor
 * is the warning vrxWarnDivByZero, a zero constant the error vrxErrDivByZero */
/* DivCRev: pDst[i] = val / pSrc[i]; a zero element is the warning vrxWarnDivByZero (6). */
VRXAPI(VrxStatus, vrxsDivCRev_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsDivCRev_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDivCRev_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsDivCRev_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
/* DivC: pDst[i] = pSrc[i] / val (integers scaled by 2^-scaleFactor); val 0 is
 * vrxErrDivByZero (-10), nothing written. DivC_16u tests scale and val before the pointers. */
VRXAPI(VrxStatus, vrxsDivC_16s_ISfs, (Vrx16s val, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_16s_Sfs, (const Vrx16s* pSrc, Vrx16s val, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_16sc_ISfs, (Vrx16sc val, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc val, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_16u_ISfs, (Vrx16u val, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_16u_Sfs, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsDivC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDivC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsDivC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDivC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsDivC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDivC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsDivC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDivC_64s_ISfs, (Vrx64s val, Vrx64s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_8u_ISfs, (Vrx8u val, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDivC_8u_Sfs, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len, int scaleFactor))
/* Div: pDst[i] = pSrc2[i] / pSrc1[i]: the FIRST source is the divisor (integers scaled);
 * _I: pSrcDst[i] /= pSrc[i]. A zero divisor: warning 6, every element still written. */
VRXAPI(VrxStatus, vrxsDiv_16s_ISfs, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_16s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_16sc_ISfs, (const Vrx16sc* pSrc, Vrx16sc* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_16sc_Sfs, (const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_16u_ISfs, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_16u_Sfs, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsDiv_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDiv_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsDiv_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDiv_32s_ISfs, (const Vrx32s* pSrc, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_32s16s_ISfs, (const Vrx32s* pSrc, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_32s16s_Sfs, (const Vrx32s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_32s_Sfs, (const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsDiv_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDiv_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsDiv_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDiv_8u_ISfs, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_8u_Sfs, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, int scaleFactor))
/* Div_Round: as Div_*_Sfs with the quotient rounded by rounding: vrxRndZero, vrxRndNear or
 * vrxRndFinancial; any other value is vrxErrRounding (-213). Zero divisor: warning 6. */
VRXAPI(VrxStatus, vrxsDiv_Round_16s_ISfs, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_Round_16s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_Round_16u_ISfs, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_Round_16u_Sfs, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_Round_8u_ISfs, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsDiv_Round_8u_Sfs, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len, VrxRounding rounding, int scaleFactor))
/* ------------------------------------------ end of element-wise arithmetic */


/* ================================================================ vector math */
/* powers, roots, elementary functions, complex forms */

/* --- powers and roots. Sqrt raises vrxWarnSqrtNegArg (3) when an element
   was negative (its result is NaN, or 0 for integers). Integer forms round
   the exact result by the scale factor and saturate. */
/* Sqr: pDst[i] = pSrc[i]^2 (the complex square for complex types); integers scaled. */
VRXAPI(VrxStatus, vrxsSqr_32f,        (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSqr_64f,        (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSqr_32fc,       (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSqr_64fc,       (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSqr_32f_I,      (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqr_64f_I,      (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqr_32fc_I,     (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqr_64fc_I,     (Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqr_16s_Sfs,    (const Vrx16s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqr_16u_Sfs,    (const Vrx16u* pSrc, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqr_16sc_Sfs,   (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqr_16s_ISfs,   (Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqr_16u_ISfs,   (Vrx16u* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqr_16sc_ISfs,  (Vrx16sc* pSrcDst, int len, int scaleFactor))
/* Sqrt: the square root (principal root for complex); a negative real element gives
 * NaN (integers: 0) and the warning vrxWarnSqrtNegArg (3). Integers scaled. */
VRXAPI(VrxStatus, vrxsSqrt_32f,       (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_64f,       (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_32fc,      (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_64fc,      (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_32f_I,     (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_64f_I,     (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_32fc_I,    (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_64fc_I,    (Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSqrt_16s_Sfs,   (const Vrx16s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqrt_16u_Sfs,   (const Vrx16u* pSrc, Vrx16u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqrt_32s16s_Sfs, (const Vrx32s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqrt_16s_ISfs,  (Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsSqrt_16u_ISfs,  (Vrx16u* pSrcDst, int len, int scaleFactor))
/* Cubrt: the cube root; Cubrt_32s16s_Sfs writes the root scaled and saturated to 16 bits. */
VRXAPI(VrxStatus, vrxsCubrt_32f,      (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsCubrt_64f,      (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsCubrt_32s16s_Sfs, (const Vrx32s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
/* absolute value; the most negative integer saturates */
VRXAPI(VrxStatus, vrxsAbs_16s,        (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsAbs_32s,        (const Vrx32s* pSrc, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsAbs_32f,        (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsAbs_64f,        (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsAbs_16s_I,      (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAbs_32s_I,      (Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAbs_32f_I,      (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAbs_64f_I,      (Vrx64f* pSrcDst, int len))
/* pSrcDst += pSrc1 * pSrc2; integer forms scale the exact sum */
VRXAPI(VrxStatus, vrxsAddProduct_32f,  (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddProduct_64f,  (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddProduct_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddProduct_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddProduct_16s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddProduct_32s_Sfs, (const Vrx32s* pSrc1, const Vrx32s* pSrc2, Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsAddProduct_16s32s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32s* pSrcDst, int len, int scaleFactor))

/* --- elementary functions. Exp_32f and Ln_32f are of the LA tier (within
   8 ulp; measured 1.04 and 1.18); the others are within 1 ulp. Ln raises
   vrxWarnLnNegArg (8) when an element was negative, else vrxWarnLnZeroArg
   (7) when one was zero; integer forms write the lowest value for ln 0 and
   0 for a negative element. */
/* Exp: e^pSrc[i]; integer forms write the result times 2^-scaleFactor, rounded and saturated. */
VRXAPI(VrxStatus, vrxsExp_32f,        (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsExp_64f,        (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsExp_32f_I,      (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsExp_64f_I,      (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsExp_16s_Sfs,    (const Vrx16s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsExp_32s_Sfs,    (const Vrx32s* pSrc, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsExp_16s_ISfs,   (Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsExp_32s_ISfs,   (Vrx32s* pSrcDst, int len, int scaleFactor))
/* Ln: natural logarithm; warning 8 (a negative element) or else 7 (a zero element). */
VRXAPI(VrxStatus, vrxsLn_32f,         (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsLn_64f,         (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsLn_32f_I,       (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLn_64f_I,       (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLn_16s_Sfs,     (const Vrx16s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_32s_Sfs,     (const Vrx32s* pSrc, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_16s_ISfs,    (Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_32s_ISfs,    (Vrx32s* pSrcDst, int len, int scaleFactor))
/* Arctan: the arctangent in radians, in [-pi/2, pi/2]. */
VRXAPI(VrxStatus, vrxsArctan_32f,     (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsArctan_64f,     (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsArctan_32f_I,   (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsArctan_64f_I,   (Vrx64f* pSrcDst, int len))
/* sum of logarithms: a zero element gives -inf and warning 7, a negative
   one NaN and warning 8 */
VRXAPI(VrxStatus, vrxsSumLn_32f,      (const Vrx32f* pSrc, int len, Vrx32f* pSum))
VRXAPI(VrxStatus, vrxsSumLn_64f,      (const Vrx64f* pSrc, int len, Vrx64f* pSum))
VRXAPI(VrxStatus, vrxsSumLn_32f64f,   (const Vrx32f* pSrc, int len, Vrx64f* pSum))
VRXAPI(VrxStatus, vrxsSumLn_16s32f,   (const Vrx16s* pSrc, int len, Vrx32f* pSum))

/* --- complex forms. A null pSrcRe or pSrcIm of RealToCplx stands for
   zeros (not both). ConjFlip writes conj(pSrc[len-1-n]) to pDst[n]. */
/* Real: pDstRe[i] = pSrc[i].re. */
VRXAPI(VrxStatus, vrxsReal_16sc,      (const Vrx16sc* pSrc, Vrx16s* pDstRe, int len))
VRXAPI(VrxStatus, vrxsReal_32fc,      (const Vrx32fc* pSrc, Vrx32f* pDstRe, int len))
VRXAPI(VrxStatus, vrxsReal_64fc,      (const Vrx64fc* pSrc, Vrx64f* pDstRe, int len))
/* Imag: pDstIm[i] = pSrc[i].im. */
VRXAPI(VrxStatus, vrxsImag_16sc,      (const Vrx16sc* pSrc, Vrx16s* pDstIm, int len))
VRXAPI(VrxStatus, vrxsImag_32fc,      (const Vrx32fc* pSrc, Vrx32f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsImag_64fc,      (const Vrx64fc* pSrc, Vrx64f* pDstIm, int len))
/* RealToCplx: pDst[i] = (pSrcRe[i], pSrcIm[i]); a null part reads as zeros (both null: -8). */
VRXAPI(VrxStatus, vrxsRealToCplx_16s, (const Vrx16s* pSrcRe, const Vrx16s* pSrcIm, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsRealToCplx_32f, (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsRealToCplx_64f, (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64fc* pDst, int len))
/* CplxToReal: pDstRe[i] = pSrc[i].re, pDstIm[i] = pSrc[i].im. */
VRXAPI(VrxStatus, vrxsCplxToReal_16sc, (const Vrx16sc* pSrc, Vrx16s* pDstRe, Vrx16s* pDstIm, int len))
VRXAPI(VrxStatus, vrxsCplxToReal_32fc, (const Vrx32fc* pSrc, Vrx32f* pDstRe, Vrx32f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsCplxToReal_64fc, (const Vrx64fc* pSrc, Vrx64f* pDstRe, Vrx64f* pDstIm, int len))
/* Conj: pDst[i] = conj(pSrc[i]); _I in place. */
VRXAPI(VrxStatus, vrxsConj_16sc,      (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsConj_32fc,      (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsConj_64fc,      (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsConj_16sc_I,    (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsConj_32fc_I,    (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsConj_64fc_I,    (Vrx64fc* pSrcDst, int len))
/* ConjFlip: pDst[i] = conj(pSrc[len-1-i]). */
VRXAPI(VrxStatus, vrxsConjFlip_16sc,  (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsConjFlip_32fc,  (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsConjFlip_64fc,  (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
/* magnitude, phase (atan2(im, re)) and power spectrum (re^2 + im^2);
   forms with two real sources take the real then the imaginary parts.
   Phase and the double interleaved magnitude are of the LA tier (within
   8 ulp; measured below 2), the other magnitudes within 1 ulp. */
/* Magnitude: sqrt(re^2 + im^2); 16sc_Sfs scales and saturates the magnitude. */
VRXAPI(VrxStatus, vrxsMagnitude_32fc, (const Vrx32fc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_64fc, (const Vrx64fc* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_32f,  (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_64f,  (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_16sc32f, (const Vrx16sc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16s* pDst, int len, int scaleFactor))
/* Phase: atan2(im, re) in radians, in [-pi, pi]; 16sc_Sfs writes the angle * 2^-scaleFactor. */
VRXAPI(VrxStatus, vrxsPhase_32fc,     (const Vrx32fc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_64fc,     (const Vrx64fc* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_32f,      (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_64f,      (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_16sc32f,  (const Vrx16sc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16s* pDst, int len, int scaleFactor))
/* PowerSpectr: re^2 + im^2; 16sc_Sfs scales and saturates. */
VRXAPI(VrxStatus, vrxsPowerSpectr_32fc, (const Vrx32fc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_64fc, (const Vrx64fc* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_32f,  (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_64f,  (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16s* pDst, int len, int scaleFactor))
/* polar and Cartesian coordinates; phases in radians (for 16sc_Sfs the
   phase is pSrcPhase * 2^-phaseScaleFactor and the magnitude
   pSrcMagn * 2^-magnScaleFactor). The phase and the sine and cosine are
   of the LA tier. */
/* CartToPolar: pDstMagn[i] = |x|, pDstPhase[i] = atan2(im, re) of each element x. */
VRXAPI(VrxStatus, vrxsCartToPolar_32fc, (const Vrx32fc* pSrc, Vrx32f* pDstMagn, Vrx32f* pDstPhase, int len))
VRXAPI(VrxStatus, vrxsCartToPolar_64fc, (const Vrx64fc* pSrc, Vrx64f* pDstMagn, Vrx64f* pDstPhase, int len))
VRXAPI(VrxStatus, vrxsCartToPolar_32f,  (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstMagn, Vrx32f* pDstPhase, int len))
VRXAPI(VrxStatus, vrxsCartToPolar_64f,  (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstMagn, Vrx64f* pDstPhase, int len))
/* PolarToCart: pSrcMagn[i] * (cos pSrcPhase[i], sin pSrcPhase[i]). */
VRXAPI(VrxStatus, vrxsPolarToCart_32fc, (const Vrx32f* pSrcMagn, const Vrx32f* pSrcPhase, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsPolarToCart_64fc, (const Vrx64f* pSrcMagn, const Vrx64f* pSrcPhase, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsPolarToCart_32f,  (const Vrx32f* pSrcMagn, const Vrx32f* pSrcPhase, Vrx32f* pDstRe, Vrx32f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsPolarToCart_64f,  (const Vrx64f* pSrcMagn, const Vrx64f* pSrcPhase, Vrx64f* pDstRe, Vrx64f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsPolarToCart_16sc_Sfs, (const Vrx16s* pSrcMagn, const Vrx16s* pSrcPhase, Vrx16sc* pDst, int len, int magnScaleFactor, int phaseScaleFactor))
/* (x - vSub) / vDiv; a zero vDiv is vrxErrDivByZero (-10) */
VRXAPI(VrxStatus, vrxsNormalize_32f,  (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f vSub, Vrx32f vDiv))
VRXAPI(VrxStatus, vrxsNormalize_64f,  (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f vSub, Vrx64f vDiv))
VRXAPI(VrxStatus, vrxsNormalize_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32fc vSub, Vrx32f vDiv))
VRXAPI(VrxStatus, vrxsNormalize_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64fc vSub, Vrx64f vDiv))
VRXAPI(VrxStatus, vrxsNormalize_16s_Sfs, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s vSub, int vDiv, int scaleFactor))
VRXAPI(VrxStatus, vrxsNormalize_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx16sc vSub, int vDiv, int scaleFactor))

/* ------------------------------------------------------ end of vector math */


/* ============================================ logic, shifts and conversion */
/* logic, shifts, conversion, thresholds */

/* bitwise logic; a zero constant forwards to Copy (Or, Xor) or Zero (And) */
/* And: pDst[i] = pSrc1[i] & pSrc2[i]. */
VRXAPI(VrxStatus, vrxsAnd_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsAnd_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsAnd_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
/* AndC: pDst[i] = pSrc[i] & val (_I in place); val 0 forwards to Zero. */
VRXAPI(VrxStatus, vrxsAndC_8u, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_32u, (const Vrx32u* pSrc, Vrx32u val, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_8u_I, (Vrx8u val, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAndC_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAndC_32u_I, (Vrx32u val, Vrx32u* pSrcDst, int len))
/* And_I: pSrcDst[i] &= pSrc[i]. */
VRXAPI(VrxStatus, vrxsAnd_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAnd_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAnd_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))
/* Not: pDst[i] = ~pSrc[i]; _I in place. */
VRXAPI(VrxStatus, vrxsNot_8u, (const Vrx8u* pSrc, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsNot_16u, (const Vrx16u* pSrc, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsNot_32u, (const Vrx32u* pSrc, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsNot_8u_I, (Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsNot_16u_I, (Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsNot_32u_I, (Vrx32u* pSrcDst, int len))
/* Or: pDst[i] = pSrc1[i] | pSrc2[i]. */
VRXAPI(VrxStatus, vrxsOr_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsOr_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsOr_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
/* OrC: pDst[i] = pSrc[i] | val (_I in place); val 0 forwards to Copy. */
VRXAPI(VrxStatus, vrxsOrC_8u, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_32u, (const Vrx32u* pSrc, Vrx32u val, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_8u_I, (Vrx8u val, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOrC_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOrC_32u_I, (Vrx32u val, Vrx32u* pSrcDst, int len))
/* Or_I: pSrcDst[i] |= pSrc[i]. */
VRXAPI(VrxStatus, vrxsOr_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOr_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOr_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))
/* Xor: pDst[i] = pSrc1[i] ^ pSrc2[i]. */
VRXAPI(VrxStatus, vrxsXor_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsXor_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsXor_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
/* XorC: pDst[i] = pSrc[i] ^ val (_I in place); val 0 forwards to Copy. */
VRXAPI(VrxStatus, vrxsXorC_8u, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_32u, (const Vrx32u* pSrc, Vrx32u val, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_8u_I, (Vrx8u val, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXorC_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXorC_32u_I, (Vrx32u val, Vrx32u* pSrcDst, int len))
/* Xor_I: pSrcDst[i] ^= pSrc[i]. */
VRXAPI(VrxStatus, vrxsXor_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXor_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXor_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))

/* shifts by a constant count; a count of the width or more clears (left, unsigned right)
 * or spreads the sign (signed right); a negative count is vrxErrShift */
/* LShiftC: pDst[i] = pSrc[i] << count; bits shifted out are lost, nothing saturates. */
VRXAPI(VrxStatus, vrxsLShiftC_8u, (const Vrx8u* pSrc, int count, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16u, (const Vrx16u* pSrc, int count, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16s, (const Vrx16s* pSrc, int count, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_32s, (const Vrx32s* pSrc, int count, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_8u_I, (int count, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16u_I, (int count, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16s_I, (int count, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_32s_I, (int count, Vrx32s* pSrcDst, int len))
/* RShiftC: pDst[i] = pSrc[i] >> count; arithmetic for 16s and 32s, logical for unsigned. */
VRXAPI(VrxStatus, vrxsRShiftC_8u, (const Vrx8u* pSrc, int count, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16u, (const Vrx16u* pSrc, int count, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16s, (const Vrx16s* pSrc, int count, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_32s, (const Vrx32s* pSrc, int count, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_8u_I, (int count, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16u_I, (int count, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16s_I, (int count, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_32s_I, (int count, Vrx32s* pSrcDst, int len))

/* widening, exact and saturating conversions between integers and floats */
/* pDst[i] = pSrc[i] in the destination type: exact where it fits (8/16-bit to float,
 * 32s and 32f to 64f, sign extension); 32s32f and 64s64f round in the caller's mode;
 * 32s16s saturates; 64f32f clamps to +-FLT_MAX (never infinity), NaN passes. */
VRXAPI(VrxStatus, vrxsConvert_16s32f, (const Vrx16s* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_16s32s, (const Vrx16s* pSrc, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_16u32f, (const Vrx16u* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_32f64f, (const Vrx32f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_32s16s, (const Vrx32s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_32s32f, (const Vrx32s* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_32s64f, (const Vrx32s* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_64f32f, (const Vrx64f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_64s64f, (const Vrx64s* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_8s16s, (const Vrx8s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_8s32f, (const Vrx8s* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_8u32f, (const Vrx8u* pSrc, Vrx32f* pDst, int len))

/* 24-bit packed samples: three bytes a sample, least significant first */
/* 24-bit samples to 32-bit (exact) and back: the _Sfs forms scale by 2^-scaleFactor,
 * round to nearest even and saturate to the 24-bit range (NaN gives the lower bound). */
VRXAPI(VrxStatus, vrxsConvert_24s32f, (const Vrx8u* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_24s32s, (const Vrx8u* pSrc, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_24u32f, (const Vrx8u* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_24u32u, (const Vrx8u* pSrc, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_32f24s_Sfs, (const Vrx32f* pSrc, Vrx8u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32f24u_Sfs, (const Vrx32f* pSrc, Vrx8u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32s24s_Sfs, (const Vrx32s* pSrc, Vrx8u* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32u24u_Sfs, (const Vrx32u* pSrc, Vrx8u* pDst, int len, int scaleFactor))

/* scaled conversions: the result is multiplied by 2^-scaleFactor; float and wide
 * sources to integers round as the rounding argument says (unknown modes as
 * vrxRndFinancial) and saturate; NaN gives the lower bound */
/* Integer sources to floats: converted, then times 2^-scaleFactor. The others: scaled,
 * rounded as rounding says (vrxRndNear, vrxRndZero, any other value vrxRndFinancial, no
 * error; 32s16s_Sfs has no argument and rounds ties to even), saturated. */
VRXAPI(VrxStatus, vrxsConvert_16s32f_Sfs, (const Vrx16s* pSrc, Vrx32f* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_16s64f_Sfs, (const Vrx16s* pSrc, Vrx64f* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_16s8s_Sfs, (const Vrx16s* pSrc, Vrx8s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32f16s_Sfs, (const Vrx32f* pSrc, Vrx16s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32f16u_Sfs, (const Vrx32f* pSrc, Vrx16u* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32f32s_Sfs, (const Vrx32f* pSrc, Vrx32s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32f8s_Sfs, (const Vrx32f* pSrc, Vrx8s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32f8u_Sfs, (const Vrx32f* pSrc, Vrx8u* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32s16s_Sfs, (const Vrx32s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32s32f_Sfs, (const Vrx32s* pSrc, Vrx32f* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_32s64f_Sfs, (const Vrx32s* pSrc, Vrx64f* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_64f16s_Sfs, (const Vrx64f* pSrc, Vrx16s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_64f32s_Sfs, (const Vrx64f* pSrc, Vrx32s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_64f64s_Sfs, (const Vrx64f* pSrc, Vrx64s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_64s32s_Sfs, (const Vrx64s* pSrc, Vrx32s* pDst, int len, VrxRounding rounding, int scaleFactor))

/* half floats; vrxRndFinancial is not supported (vrxErrRounding), vrxRndNear is
 * nearest-even and every other mode rounds toward zero */
/* Half floats: 16f16s_Sfs scales and rounds to 16s, 16f32f is exact, 16s16f and 32f16f
 * round to half precision. rounding 2 (vrxRndFinancial) is vrxErrRounding (-213). */
VRXAPI(VrxStatus, vrxsConvert_16f16s_Sfs, (const Vrx16f* pSrc, Vrx16s* pDst, int len, VrxRounding rounding, int scaleFactor))
VRXAPI(VrxStatus, vrxsConvert_16f32f, (const Vrx16f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsConvert_16s16f, (const Vrx16s* pSrc, Vrx16f* pDst, int len, VrxRounding rounding))
VRXAPI(VrxStatus, vrxsConvert_32f16f, (const Vrx32f* pSrc, Vrx16f* pDst, int len, VrxRounding rounding))

/* thresholds: relOp is vrxCmpLess or vrxCmpGreater */
VRXAPI(VrxStatus, vrxsThreshold_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx16s level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx16s level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f level, VrxCmpOp relOp))
VRXAPI(VrxStatus, vrxsThreshold_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f level, VrxCmpOp relOp))

/* thresholds with the relation fixed; replacement by a value (complex forms
 * compare the squared magnitude); magnitude forms (a negative level is
 * vrxErrThreshNeg); LTValGTVal needs levelLT <= levelGT (vrxErrThreshOrder);
 * the inverse warns vrxWarnInvZero when a zero is inverted at level 0 */
/* Threshold_LT: pDst[i] = max(x, level) (complex: magnitude raised to level, phase kept;
 * a negative level -19). */
VRXAPI(VrxStatus, vrxsThreshold_LT_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LT_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LT_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_LT_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_LT_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LT_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LT_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LT_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f level))

/* Threshold_GT: pDst[i] = min(x, level) (complex: magnitude limited to level, phase kept;
 * a negative level -19). */
VRXAPI(VrxStatus, vrxsThreshold_GT_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GT_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GT_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_GT_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_GT_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GT_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GT_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_GT_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f level))

/* Threshold_LTVal: value where x < level, else x (complex: |x|^2 < level^2; a
 * negative level -19). */
VRXAPI(VrxStatus, vrxsThreshold_LTVal_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx16s level, Vrx16sc value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx16s level, Vrx16sc value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f level, Vrx32fc value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f level, Vrx32fc value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f level, Vrx64fc value))
VRXAPI(VrxStatus, vrxsThreshold_LTVal_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f level, Vrx64fc value))

/* Threshold_GTVal: value where x > level, else x (complex: |x|^2 > level^2; a
 * negative level -19). */
VRXAPI(VrxStatus, vrxsThreshold_GTVal_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx16s level, Vrx16sc value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx16s level, Vrx16sc value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f level, Vrx32fc value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f level, Vrx32fc value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f level, Vrx64fc value))
VRXAPI(VrxStatus, vrxsThreshold_GTVal_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f level, Vrx64fc value))

/* Threshold_LTValGTVal: valueLT where x < levelLT, valueGT where x > levelGT, else x;
 * levelLT > levelGT is vrxErrThreshOrder (-18). */
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s levelLT, Vrx16s valueLT, Vrx16s levelGT, Vrx16s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s levelLT, Vrx16s valueLT, Vrx16s levelGT, Vrx16s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s levelLT, Vrx32s valueLT, Vrx32s levelGT, Vrx32s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s levelLT, Vrx32s valueLT, Vrx32s levelGT, Vrx32s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f levelLT, Vrx32f valueLT, Vrx32f levelGT, Vrx32f valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f levelLT, Vrx32f valueLT, Vrx32f levelGT, Vrx32f valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f levelLT, Vrx64f valueLT, Vrx64f levelGT, Vrx64f valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f levelLT, Vrx64f valueLT, Vrx64f levelGT, Vrx64f valueGT))

/* Threshold_LTAbs: where |x| < level, level with the sign of x (16s: 0 counts as
 * positive); a negative level -19. */
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))

/* Threshold_GTAbs: x limited to [-level, level]; a negative level -19. */
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))

/* Threshold_LTAbsVal: value where |x| < level, else x (a negative level changes nothing). */
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level, Vrx32s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level, Vrx32s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value))

/* Threshold_LTInv: 1/x with |x| first raised to level (sign kept); a negative level -19;
 * level 0 and a zero element give an infinity and the warning vrxWarnInvZero (4). */
VRXAPI(VrxStatus, vrxsThreshold_LTInv_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LTInv_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f level))

/* ----------------------------------------------- end of logic and conversion */


/* ================================================================ transforms */
/* FFT plans, complex and real transforms, packed spectra */

/* Transforms of N = 2^order points. A plan is made once, in memory the caller owns:
 * GetSize gives three byte counts, Init builds the plan, and the plan is then
 * read-only: any number of threads may share it, each with its own pBuf. There is
 * nothing to destroy; free the memory when no call uses the plan any more.
 * order: 0..28 for C_32fc and C_32f, 0..27 for C_64fc and C_64f, 0..29 for R_32f,
 * 0..28 for R_64f (N = 2^order is the number of points, complex or real).
 * flag, one of four values compared as a value, not as bits: vrxFftScaleFwd (forward
 * times 1/N), vrxFftScaleInv (inverse times 1/N), vrxFftScaleSqrt (both times
 * 1/sqrt(N)), vrxFftScaleNone. hint is stored and changes nothing.
 * Layouts, sizes and worked examples: docs/fft.md. */
/* GetSize: *pSpecSize bytes for the plan, *pInitSize for Init's temporary buffer
 * (0 below order 11), *pWorkSize for each transform's pBuf (0 up to order 6 complex,
 * 7 real). Checks: order (as unsigned) above 30 -15, a null pointer -8, flag -16,
 * order above the kind's limit -15. */
VRXAPI(VrxStatus, vrxsFFTGetSize_C_32fc, (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_C_32f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_R_32f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_C_64fc, (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_C_64f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_R_64f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* Init: builds the plan in pSpecMem (*pSpecSize bytes, any alignment) and writes its
 * address, rounded up to 64 bytes, to *ppPlan: pass that pointer, not pSpecMem.
 * pInitBuf (*pInitSize bytes) is used during the call only; it may be null when that
 * size is 0. Checks: ppPlan -8, order -15, pSpecMem -8, flag -16, pInitBuf -8. */
VRXAPI(VrxStatus, vrxsFFTInit_C_32fc, (VrxsFftPlan_C_32fc** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_C_32f,  (VrxsFftPlan_C_32f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_R_32f,  (VrxsFftPlan_R_32f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_C_64fc, (VrxsFftPlan_C_64fc** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_C_64f,  (VrxsFftPlan_C_64f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_R_64f,  (VrxsFftPlan_R_64f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))

/* complex transforms, interleaved data */
/* FFTFwd: X[k] = sum_n x[n] e^(-2 pi i n k / N); FFTInv: x[n] = sum_k X[k] e^(+2 pi i n k / N);
 * then times the plan's scale for that direction. Natural order; _I works in place.
 * pBuf: *pWorkSize bytes, any alignment, one per concurrent call; null only when that
 * size is 0. Checks: plan null -8, plan of another kind -17, data or needed pBuf null -8. */
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32fc,   (const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32fc,   (const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32fc_I, (Vrx32fc* pSrcDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32fc_I, (Vrx32fc* pSrcDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64fc,   (const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64fc,   (const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64fc_I, (Vrx64fc* pSrcDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64fc_I, (Vrx64fc* pSrcDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))

/* complex transforms, separate real and imaginary arrays */
/* The same transforms on separate real and imaginary arrays (plans C_32f, C_64f). */
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32f,   (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32f,   (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32f_I, (Vrx32f* pSrcDstRe, Vrx32f* pSrcDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32f_I, (Vrx32f* pSrcDstRe, Vrx32f* pSrcDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64f,   (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64f,   (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64f_I, (Vrx64f* pSrcDstRe, Vrx64f* pSrcDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64f_I, (Vrx64f* pSrcDstRe, Vrx64f* pSrcDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))

/* real transforms to and from the packed spectra CCS, Pack and Perm */
/* Real transforms (plans R_32f, R_64f): FFTFwd_RTo<form> writes the spectrum of N reals
 * packed as CCS (N + 2 reals), Pack or Perm (N reals each); FFTInv_<form>ToR reads that
 * form and writes N reals. pBuf and statuses as for the complex transforms. */
VRXAPI(VrxStatus, vrxsFFTFwd_RToCCS_32f,    (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPack_32f,   (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPerm_32f,   (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToCCS_32f_I,  (Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPack_32f_I, (Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPerm_32f_I, (Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CCSToR_32f,    (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PackToR_32f,   (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PermToR_32f,   (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CCSToR_32f_I,  (Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PackToR_32f_I, (Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PermToR_32f_I, (Vrx32f* pSrcDst, const VrxsFftPlan_R_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToCCS_64f,    (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPack_64f,   (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPerm_64f,   (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToCCS_64f_I,  (Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPack_64f_I, (Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_RToPerm_64f_I, (Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CCSToR_64f,    (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PackToR_64f,   (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PermToR_64f,   (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CCSToR_64f_I,  (Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PackToR_64f_I, (Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_PermToR_64f_I, (Vrx64f* pSrcDst, const VrxsFftPlan_R_64f* plan, Vrx8u* pBuf))

/* packed spectra: expansion to the full conjugate-symmetric complex vector */
/* ConjCcs, ConjPack, ConjPerm: the full spectrum of lenDst complex values from the packed
 * spectrum of N = lenDst reals, X[N-k] = conj(X[k]); _I expands in place from the packed
 * reals at the start of pSrcDst. pSrc == pDst forwards to _I. */
VRXAPI(VrxStatus, vrxsConjCcs_32fc,    (const Vrx32f* pSrc, Vrx32fc* pDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPack_32fc,   (const Vrx32f* pSrc, Vrx32fc* pDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPerm_32fc,   (const Vrx32f* pSrc, Vrx32fc* pDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjCcs_32fc_I,  (Vrx32fc* pSrcDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPack_32fc_I, (Vrx32fc* pSrcDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPerm_32fc_I, (Vrx32fc* pSrcDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjCcs_64fc,    (const Vrx64f* pSrc, Vrx64fc* pDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPack_64fc,   (const Vrx64f* pSrc, Vrx64fc* pDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPerm_64fc,   (const Vrx64f* pSrc, Vrx64fc* pDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjCcs_64fc_I,  (Vrx64fc* pSrcDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPack_64fc_I, (Vrx64fc* pSrcDst, int lenDst))
VRXAPI(VrxStatus, vrxsConjPerm_64fc_I, (Vrx64fc* pSrcDst, int lenDst))

/* packed spectra: products; MulPackConj multiplies pSrc by the conjugate of pSrcDst */
/* MulPack, MulPerm: products of two spectra of len reals in that packed form, complex
 * pair by pair (real-only positions multiply as reals); _I: pSrcDst = pSrc * pSrcDst.
 * MulPackConj_I: pSrcDst = pSrc * conj(pSrcDst): the destination is the conjugated one. */
VRXAPI(VrxStatus, vrxsMulPack_32f,       (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulPerm_32f,       (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulPack_32f_I,     (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulPerm_32f_I,     (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulPackConj_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulPack_64f,       (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulPerm_64f,       (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulPack_64f_I,     (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulPerm_64f_I,     (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulPackConj_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))

/* ------------------------------------------------------- end of transforms */

/* ------------------------------------ statistics: sums, deviations, norms */

/* Reductions of one vector (Sum, Mean, StdDev, MeanStdDev, Norm) or two
   (NormDiff of pSrc1 - pSrc2, DotProd) to one or two numbers written
   through the result pointers. Checks: null pointers in argument order
   (-8), then the length below 1 (-6; below 2 for StdDev and MeanStdDev).
   The hint selects the Fast path only at vrxAlgHintFast (1); every other
   value is Accurate. Scale factors never fail: sf > 0 divides by 2^sf,
   sf < 0 multiplies; each form's rounding and clamps are given below.
   Accumulator widths and fold orders: docs/statistics.md. */

/* --- Sum. 32f/32fc Fast: blocked single-precision sums folded into double
   every 8192 values (a source off a 4-byte boundary runs Accurate);
   Accurate: every value added in double. The 32f total is rounded to single
   once; 32fc rounds each part once. */
VRXAPI(VrxStatus, vrxsSum_32f,          (const Vrx32f* pSrc, int len, Vrx32f* pSum, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsSum_32fc,         (const Vrx32fc* pSrc, int len, Vrx32fc* pSum, VrxAlgHint hint))
/* double sums, in double */
VRXAPI(VrxStatus, vrxsSum_64f,          (const Vrx64f* pSrc, int len, Vrx64f* pSum))
VRXAPI(VrxStatus, vrxsSum_64fc,         (const Vrx64fc* pSrc, int len, Vrx64fc* pSum))
/* exact sum S; S * 2^-sf bounded to the 32-bit range and converted in the
   caller's rounding mode (2^-sf is 0 for sf >= 1023, +inf for sf <= -1024);
   the 16-bit results saturate that 32-bit value. Parts apart for 16sc. */
VRXAPI(VrxStatus, vrxsSum_16s_Sfs,      (const Vrx16s* pSrc, int len, Vrx16s* pSum, int scaleFactor))
VRXAPI(VrxStatus, vrxsSum_16sc_Sfs,     (const Vrx16sc* pSrc, int len, Vrx16sc* pSum, int scaleFactor))
VRXAPI(VrxStatus, vrxsSum_16s32s_Sfs,   (const Vrx16s* pSrc, int len, Vrx32s* pSum, int scaleFactor))
VRXAPI(VrxStatus, vrxsSum_16sc32sc_Sfs, (const Vrx16sc* pSrc, int len, Vrx32sc* pSum, int scaleFactor))
/* exact 64-bit sum; sf > 0 rounds ties to even with the shift limited to
   63, sf < 0 shifts left by at most 31; saturated */
VRXAPI(VrxStatus, vrxsSum_32s_Sfs,      (const Vrx32s* pSrc, int len, Vrx32s* pSum, int scaleFactor))

/* --- Mean. 32f divides the single-rounded sum by len in double; 32fc
   divides the unrounded double totals; both round to single at the end. */
VRXAPI(VrxStatus, vrxsMean_32f,         (const Vrx32f* pSrc, int len, Vrx32f* pMean, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsMean_32fc,        (const Vrx32fc* pSrc, int len, Vrx32fc* pMean, VrxAlgHint hint))
/* the double sum divided by len */
VRXAPI(VrxStatus, vrxsMean_64f,         (const Vrx64f* pSrc, int len, Vrx64f* pMean))
/* both parts of the double sum times the reciprocal 1/len */
VRXAPI(VrxStatus, vrxsMean_64fc,        (const Vrx64fc* pSrc, int len, Vrx64fc* pMean))
/* (S / len) * 2^-sf: divides first, then scales; bounded to 16 bits and
   converted in the caller's rounding mode */
VRXAPI(VrxStatus, vrxsMean_16s_Sfs,     (const Vrx16s* pSrc, int len, Vrx16s* pMean, int scaleFactor))
/* (S * 2^-sf) / len for each part: scales first, then divides */
VRXAPI(VrxStatus, vrxsMean_16sc_Sfs,    (const Vrx16sc* pSrc, int len, Vrx16sc* pMean, int scaleFactor))
/* q = |S| / len rounded ties to even. sf >= 0: (q + bit sf-1 of q) >> sf,
   the sign put back, low 32 bits stored unsaturated (a truncation except
   at sf 1 and where the low sf bits are all ones). -32 < sf < 0: the
   rounded mean of S << -sf, saturated. sf <= -32: the bound of q's sign. */
VRXAPI(VrxStatus, vrxsMean_32s_Sfs,     (const Vrx32s* pSrc, int len, Vrx32s* pMean, int scaleFactor))

/* --- Standard deviation: the sample deviation (divisor len - 1) as
   sqrt(max(Q len - S S, 0) / (len (len - 1))) from the sum S and the sum
   of squares Q; a NaN numerator gives 0. len >= 2. */
/* Q by fused multiply-add in double (Fast: blocked single precision, as
   for Sum; a source off a 4-byte boundary runs Accurate); numerator and
   denominator rounded to single, then a single division and root */
VRXAPI(VrxStatus, vrxsStdDev_32f,       (const Vrx32f* pSrc, int len, Vrx32f* pStdDev, VrxAlgHint hint))
/* in double, squares formed and added apart */
VRXAPI(VrxStatus, vrxsStdDev_64f,       (const Vrx64f* pSrc, int len, Vrx64f* pStdDev))
/* exact S and Q; the double deviation times 2^-sf capped at 2^31 - 1 and
   converted in the caller's rounding mode; the 16-bit form caps at 32767 */
VRXAPI(VrxStatus, vrxsStdDev_16s_Sfs,   (const Vrx16s* pSrc, int len, Vrx16s* pStdDev, int scaleFactor))
VRXAPI(VrxStatus, vrxsStdDev_16s32s_Sfs, (const Vrx16s* pSrc, int len, Vrx32s* pStdDev, int scaleFactor))
/* mean then deviation. 32f: every hint runs the double routine without
   fused multiply-add and rounds both results to single at the end, so its
   deviation may differ from StdDev_32f in the last bits */
VRXAPI(VrxStatus, vrxsMeanStdDev_32f,   (const Vrx32f* pSrc, int len, Vrx32f* pMean, Vrx32f* pStdDev, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsMeanStdDev_64f,   (const Vrx64f* pSrc, int len, Vrx64f* pMean, Vrx64f* pStdDev))
/* the mean (S / len) 2^-sf bounded to 32 bits, the deviation as for
   StdDev; the 16-bit form saturates both */
VRXAPI(VrxStatus, vrxsMeanStdDev_16s_Sfs, (const Vrx16s* pSrc, int len, Vrx16s* pMean, Vrx16s* pStdDev, int scaleFactor))
VRXAPI(VrxStatus, vrxsMeanStdDev_16s32s_Sfs, (const Vrx16s* pSrc, int len, Vrx32s* pMean, Vrx32s* pStdDev, int scaleFactor))

/* --- Norm and NormDiff (of pSrc1[i] - pSrc2[i]). Inf: the largest
   magnitude; L1: the sum of magnitudes; L2: the root of the sum of squares;
   L2Sqr: that sum. A 16-bit magnitude of -32768 is 32768; a 16-bit
   difference is exact (up to 65535). Float forms accumulate in the element
   precision; the 32fc64f forms in single with the last lane reduction in
   double; the 16-bit forms exactly. Scale rules (A to D, C):
   Rule A (Inf, 32 bits): sf > 31 gives 0, sf > 0 truncates; sf < 0 shifts
     by at most 31 and saturates.
   Rule B (L1, 32 bits): sf 0 stores the low 32 bits unsaturated. Up to
     65536 elements: as Rule A. Beyond: sf > 63 gives 0, sf > 0 truncates
     and saturates; sf < 0 shifts by at most 32 and saturates.
   Rule C (64 bits): sf > 0 shifts right by sf mod 64 (so 64 is no shift);
     sf < 0 shifts by at most 63, giving INT64_MAX once bits would pass 63.
   Rule D (L2, 32 bits): the root divided (sf > 0) or multiplied (sf < 0) by
     the 32-bit integer 1 << (|sf| mod 32) (|sf| 31 gives -2^31, 32 gives
     1), saturated, truncated toward zero. */
VRXAPI(VrxStatus, vrxsNorm_Inf_32f,        (const Vrx32f* pSrc, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_Inf_64f,        (const Vrx64f* pSrc, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_Inf_16s32f,     (const Vrx16s* pSrc, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_Inf_16s32s_Sfs, (const Vrx16s* pSrc, int len, Vrx32s* pNorm, int scaleFactor))
/* complex Inf: the largest re^2 + im^2, one root at the end */
VRXAPI(VrxStatus, vrxsNorm_Inf_32fc32f,    (const Vrx32fc* pSrc, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_Inf_64fc64f,    (const Vrx64fc* pSrc, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_L1_32f,         (const Vrx32f* pSrc, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_L1_64f,         (const Vrx64f* pSrc, int len, Vrx64f* pNorm))
/* exact sum, one conversion to single */
VRXAPI(VrxStatus, vrxsNorm_L1_16s32f,      (const Vrx16s* pSrc, int len, Vrx32f* pNorm))
/* exact sum, Rule B */
VRXAPI(VrxStatus, vrxsNorm_L1_16s32s_Sfs,  (const Vrx16s* pSrc, int len, Vrx32s* pNorm, int scaleFactor))
/* exact sum, Rule C */
VRXAPI(VrxStatus, vrxsNorm_L1_16s64s_Sfs,  (const Vrx16s* pSrc, int len, Vrx64s* pNorm, int scaleFactor))
/* magnitudes by single root, summed in single; lanes reduced in double */
VRXAPI(VrxStatus, vrxsNorm_L1_32fc64f,     (const Vrx32fc* pSrc, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_L1_64fc64f,     (const Vrx64fc* pSrc, int len, Vrx64f* pNorm))
/* sum of squares in single (double), then the root of vrxsSqrt_32f (_64f) */
VRXAPI(VrxStatus, vrxsNorm_L2_32f,         (const Vrx32f* pSrc, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_L2_64f,         (const Vrx64f* pSrc, int len, Vrx64f* pNorm))
/* exact sum of squares, double root, rounded to single */
VRXAPI(VrxStatus, vrxsNorm_L2_16s32f,      (const Vrx16s* pSrc, int len, Vrx32f* pNorm))
/* exact sum of squares, double root, Rule D (truncating) */
VRXAPI(VrxStatus, vrxsNorm_L2_16s32s_Sfs,  (const Vrx16s* pSrc, int len, Vrx32s* pNorm, int scaleFactor))
/* squares by fused multiply-add in single, lanes reduced in double, root in double */
VRXAPI(VrxStatus, vrxsNorm_L2_32fc64f,     (const Vrx32fc* pSrc, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNorm_L2_64fc64f,     (const Vrx64fc* pSrc, int len, Vrx64f* pNorm))
/* exact 64-bit sum of squares, Rule C */
VRXAPI(VrxStatus, vrxsNorm_L2Sqr_16s64s_Sfs, (const Vrx16s* pSrc, int len, Vrx64s* pNorm, int scaleFactor))
/* NormDiff: the same forms and rules over pSrc1 - pSrc2 */
VRXAPI(VrxStatus, vrxsNormDiff_Inf_32f,        (const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_Inf_64f,        (const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_Inf_16s32f,     (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_Inf_16s32s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pNorm, int scaleFactor))
VRXAPI(VrxStatus, vrxsNormDiff_Inf_32fc32f,    (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_Inf_64fc64f,    (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L1_32f,         (const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L1_64f,         (const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L1_16s32f,      (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L1_16s32s_Sfs,  (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pNorm, int scaleFactor))
VRXAPI(VrxStatus, vrxsNormDiff_L1_16s64s_Sfs,  (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx64s* pNorm, int scaleFactor))
VRXAPI(VrxStatus, vrxsNormDiff_L1_32fc64f,     (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L1_64fc64f,     (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L2_32f,         (const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L2_64f,         (const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L2_16s32f,      (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L2_16s32s_Sfs,  (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pNorm, int scaleFactor))
VRXAPI(VrxStatus, vrxsNormDiff_L2_32fc64f,     (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L2_64fc64f,     (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64f* pNorm))
VRXAPI(VrxStatus, vrxsNormDiff_L2Sqr_16s64s_Sfs, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx64s* pNorm, int scaleFactor))

/* --- DotProd: sum of pSrc1[i] * pSrc2[i]; no operand is conjugated. */
/* single precision, fused multiply-add */
VRXAPI(VrxStatus, vrxsDotProd_32f,         (const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx32f* pDp))
/* single precision; totals P = sum re(a) b and Q = sum im(a) b combined
   once at the end: (P.re - Q.im, P.im + Q.re) */
VRXAPI(VrxStatus, vrxsDotProd_32fc,        (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx32fc* pDp))
/* real pSrc1 times complex pSrc2, single precision */
VRXAPI(VrxStatus, vrxsDotProd_32f32fc,     (const Vrx32f* pSrc1, const Vrx32fc* pSrc2, int len, Vrx32fc* pDp))
/* every value widened to double; products and sums rounded apart */
VRXAPI(VrxStatus, vrxsDotProd_32f64f,      (const Vrx32f* pSrc1, const Vrx32f* pSrc2, int len, Vrx64f* pDp))
VRXAPI(VrxStatus, vrxsDotProd_32fc64fc,    (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64fc* pDp))
VRXAPI(VrxStatus, vrxsDotProd_32f32fc64fc, (const Vrx32f* pSrc1, const Vrx32fc* pSrc2, int len, Vrx64fc* pDp))
/* double, fused multiply-add */
VRXAPI(VrxStatus, vrxsDotProd_64f,         (const Vrx64f* pSrc1, const Vrx64f* pSrc2, int len, Vrx64f* pDp))
/* double */
VRXAPI(VrxStatus, vrxsDotProd_64fc,        (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64fc* pDp))
VRXAPI(VrxStatus, vrxsDotProd_64f64fc,     (const Vrx64f* pSrc1, const Vrx64fc* pSrc2, int len, Vrx64fc* pDp))
/* exact */
VRXAPI(VrxStatus, vrxsDotProd_16s64s,      (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx64s* pDp))
VRXAPI(VrxStatus, vrxsDotProd_16sc64sc,    (const Vrx16sc* pSrc1, const Vrx16sc* pSrc2, int len, Vrx64sc* pDp))
VRXAPI(VrxStatus, vrxsDotProd_16s16sc64sc, (const Vrx16s* pSrc1, const Vrx16sc* pSrc2, int len, Vrx64sc* pDp))
/* exact, one conversion to single */
VRXAPI(VrxStatus, vrxsDotProd_16s32f,      (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32f* pDp))
/* exact, then Rule E: sf > 0 rounds ties to even with the shift limited to
   31, sf < 0 shifts by at most 31; saturated */
VRXAPI(VrxStatus, vrxsDotProd_16s32s_Sfs,  (const Vrx16s* pSrc1, const Vrx16s* pSrc2, int len, Vrx32s* pDp, int scaleFactor))
/* in double (large products rounded), then Rule F: sf limited to -31..93,
   times 2^-sf, saturated, rounded to nearest even; the whole call runs in
   round-to-nearest and restores the caller's mode */
VRXAPI(VrxStatus, vrxsDotProd_16s32s32s_Sfs, (const Vrx16s* pSrc1, const Vrx32s* pSrc2, int len, Vrx32s* pDp, int scaleFactor))
VRXAPI(VrxStatus, vrxsDotProd_32s_Sfs,     (const Vrx32s* pSrc1, const Vrx32s* pSrc2, int len, Vrx32s* pDp, int scaleFactor))

/* ---------------------------------- end of sums, deviations and norms */

/* -------------------------------- statistics: extrema, counts and search */

/* Zero-crossing measures of vrxsZeroCrossing_*. */
enum { vrxZcProduct = 0, vrxZcSignBit = 1, vrxZcSignDiff = 2 };

/* Extremes of a vector. Floating-point forms keep max(running, x) lane by
 * lane, where an unordered compare yields x: a NaN replaces what its lane
 * held before, so the result for data with NaN is not defined (no status). */
VRXAPI(VrxStatus, vrxsMin_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMin))
VRXAPI(VrxStatus, vrxsMin_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMin))
VRXAPI(VrxStatus, vrxsMin_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMin))
VRXAPI(VrxStatus, vrxsMin_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMin))
VRXAPI(VrxStatus, vrxsMax_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMax))
VRXAPI(VrxStatus, vrxsMax_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMax))
VRXAPI(VrxStatus, vrxsMax_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMax))
VRXAPI(VrxStatus, vrxsMax_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMax))

/* Smallest and largest magnitude. The magnitude of an integer saturates:
 * -32768 counts as 32767 and -2^31 as 2^31-1, so the result fits the type. */
VRXAPI(VrxStatus, vrxsMinAbs_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMinAbs))
VRXAPI(VrxStatus, vrxsMinAbs_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMinAbs))
VRXAPI(VrxStatus, vrxsMinAbs_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMinAbs))
VRXAPI(VrxStatus, vrxsMinAbs_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMinAbs))
VRXAPI(VrxStatus, vrxsMaxAbs_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMaxAbs))
VRXAPI(VrxStatus, vrxsMaxAbs_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMaxAbs))
VRXAPI(VrxStatus, vrxsMaxAbs_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMaxAbs))
VRXAPI(VrxStatus, vrxsMaxAbs_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMaxAbs))

/* Extreme value and the index of its first occurrence. pIndx is optional
 * (null: the value only, no error). NaN elements never win a strict compare;
 * a NaN first element is returned with index 0. vrxsMinIndx_32f and
 * vrxsMaxIndx_32f keep their lane indices in single precision from length 34
 * on a 4-byte aligned source: the index is exact up to 2^24 only. A source
 * that is not 4-byte aligned is scanned element by element. */
VRXAPI(VrxStatus, vrxsMinIndx_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMin, int* pIndx))
VRXAPI(VrxStatus, vrxsMinIndx_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMin, int* pIndx))
VRXAPI(VrxStatus, vrxsMinIndx_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMin, int* pIndx))
VRXAPI(VrxStatus, vrxsMinIndx_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMin, int* pIndx))
VRXAPI(VrxStatus, vrxsMaxIndx_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMax, int* pIndx))
VRXAPI(VrxStatus, vrxsMaxIndx_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMax, int* pIndx))
VRXAPI(VrxStatus, vrxsMaxIndx_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMax, int* pIndx))
VRXAPI(VrxStatus, vrxsMaxIndx_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMax, int* pIndx))

/* Smallest or largest saturated magnitude and its first index; each element
 * is saturated before the compare, so -32768 ties with 32767 and the first
 * wins. pIndx is optional. */
VRXAPI(VrxStatus, vrxsMinAbsIndx_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMinAbs, int* pIndx))
VRXAPI(VrxStatus, vrxsMinAbsIndx_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMinAbs, int* pIndx))
VRXAPI(VrxStatus, vrxsMaxAbsIndx_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMaxAbs, int* pIndx))
VRXAPI(VrxStatus, vrxsMaxAbsIndx_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMaxAbs, int* pIndx))

/* Minimum and maximum in one pass (NaN as for vrxsMin_*). */
VRXAPI(VrxStatus, vrxsMinMax_8u, (const Vrx8u* pSrc, int len, Vrx8u* pMin, Vrx8u* pMax))
VRXAPI(VrxStatus, vrxsMinMax_16u, (const Vrx16u* pSrc, int len, Vrx16u* pMin, Vrx16u* pMax))
VRXAPI(VrxStatus, vrxsMinMax_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMin, Vrx16s* pMax))
VRXAPI(VrxStatus, vrxsMinMax_32u, (const Vrx32u* pSrc, int len, Vrx32u* pMin, Vrx32u* pMax))
VRXAPI(VrxStatus, vrxsMinMax_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMin, Vrx32s* pMax))
VRXAPI(VrxStatus, vrxsMinMax_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMin, Vrx32f* pMax))
VRXAPI(VrxStatus, vrxsMinMax_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMin, Vrx64f* pMax))

/* Minimum and maximum with the first index of each; all four result
 * pointers are required. The values come from one pass, the indices from a
 * scan for the first equal element: an index stays 0 when nothing compares
 * equal (a NaN result). */
VRXAPI(VrxStatus, vrxsMinMaxIndx_8u, (const Vrx8u* pSrc, int len, Vrx8u* pMin, int* pMinIndx, Vrx8u* pMax, int* pMaxIndx))
VRXAPI(VrxStatus, vrxsMinMaxIndx_16u, (const Vrx16u* pSrc, int len, Vrx16u* pMin, int* pMinIndx, Vrx16u* pMax, int* pMaxIndx))
VRXAPI(VrxStatus, vrxsMinMaxIndx_16s, (const Vrx16s* pSrc, int len, Vrx16s* pMin, int* pMinIndx, Vrx16s* pMax, int* pMaxIndx))
VRXAPI(VrxStatus, vrxsMinMaxIndx_32u, (const Vrx32u* pSrc, int len, Vrx32u* pMin, int* pMinIndx, Vrx32u* pMax, int* pMaxIndx))
VRXAPI(VrxStatus, vrxsMinMaxIndx_32s, (const Vrx32s* pSrc, int len, Vrx32s* pMin, int* pMinIndx, Vrx32s* pMax, int* pMaxIndx))
VRXAPI(VrxStatus, vrxsMinMaxIndx_32f, (const Vrx32f* pSrc, int len, Vrx32f* pMin, int* pMinIndx, Vrx32f* pMax, int* pMaxIndx))
VRXAPI(VrxStatus, vrxsMinMaxIndx_64f, (const Vrx64f* pSrc, int len, Vrx64f* pMin, int* pMinIndx, Vrx64f* pMax, int* pMaxIndx))

/* Element-wise minimum: pDst[i] = min(pSrc1[i], pSrc2[i]); when either
 * element is NaN the result is the element of pSrc2. The _I forms write
 * min(pSrc[i], pSrcDst[i]) over pSrcDst, the second source. */
VRXAPI(VrxStatus, vrxsMinEvery_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_32s_I, (const Vrx32s* pSrc, Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMinEvery_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))

/* Element-wise maximum, the counterpart of vrxsMinEvery_* (NaN: pSrc2). */
VRXAPI(VrxStatus, vrxsMaxEvery_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_32s_I, (const Vrx32s* pSrc, Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMaxEvery_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))

/* Order of a vector: the bit position, counted from 1, of the top bit of
 * its largest magnitude (0 for all zeros); -32768 counts as 32768 (16) and
 * -2^31 as 2^31 (32). Checks the length (-6) BEFORE the pointers (-8). */
VRXAPI(VrxStatus, vrxsMaxOrder_16s, (const Vrx16s* pSrc, int len, int* pOrder))
VRXAPI(VrxStatus, vrxsMaxOrder_32s, (const Vrx32s* pSrc, int len, int* pOrder))
/* Floating-point order: biased exponent of the largest finite magnitude
 * minus 126 (1.0 gives 1, 0.5 gives 0; 0 for all zeros; subnormals -126).
 * Infinities and NaNs count as 0 and give vrxWarnNanArg (9), the order still
 * written. Checks the length before the pointers. The MXCSR invalid flag is
 * read after a first pass: when set (by this call or left set by the caller)
 * a second, filtering pass runs and the flag is cleared on return. */
VRXAPI(VrxStatus, vrxsMaxOrder_32f, (const Vrx32f* pSrc, int len, int* pOrder))
/* As vrxsMaxOrder_32f, biased exponent minus 1022. */
VRXAPI(VrxStatus, vrxsMaxOrder_64f, (const Vrx64f* pSrc, int len, int* pOrder))

/* Number of elements x with lowerBound < x < upperBound (both bounds
 * exclusive; lowerBound >= upperBound counts 0). */
VRXAPI(VrxStatus, vrxsCountInRange_32s, (const Vrx32s* pSrc, int len, int* pCount, Vrx32s lowerBound, Vrx32s upperBound))

/* Zero crossings over the neighbour pairs (x[i], x[i+1]), written as a
 * float. zcType vrxZcProduct: pairs whose single-precision product is below
 * 0; vrxZcSignBit: pairs whose sign bits differ (-0 is negative);
 * vrxZcSignDiff: half the sum of |sign(x[i+1]) - sign(x[i])|, so a step to
 * or from zero is worth 0.5. Length 1 gives 0. Only len == 0 is rejected
 * (-6; a negative length is not tested), then an unknown zcType gives
 * vrxErrRange (-7). */
VRXAPI(VrxStatus, vrxsZeroCrossing_32f, (const Vrx32f* pSrc, int len, Vrx32f* pValZC, int zcType))
/* As vrxsZeroCrossing_32f on 16-bit data: the product is exact, 0 counts as
 * positive, and vrxZcSignDiff is the integer floor of half the sum. */
VRXAPI(VrxStatus, vrxsZeroCrossing_16s32f, (const Vrx16s* pSrc, int len, Vrx32f* pValZC, int zcType))

/* Nearest entry of an ascending table to inpVal: its value and index; a tie
 * goes to the lower index. tblLen below 1 gives -6. */
VRXAPI(VrxStatus, vrxsFindNearestOne_16u, (Vrx16u inpVal, Vrx16u* pOutVal, int* pOutIndx, const Vrx16u* pTable, int tblLen))
/* vrxsFindNearestOne_16u for each of len values; -6 when len or tblLen is
 * below 1 (all four pointers are checked first). */
VRXAPI(VrxStatus, vrxsFindNearest_16u, (const Vrx16u* pVals, Vrx16u* pOutVals, int* pOutIndx, int len, const Vrx16u* pTable, int tblLen))

/* Running sum over a window of winSize elements in single precision:
 * pDst[i] = x[i] + ... + x[i+winSize-1] for i < len, formed as one sum that
 * is updated by the exact integer difference x[i+winSize] - x[i] converted
 * to float, never recomputed. The source must hold len + winSize elements.
 * winSize below 1 gives vrxErrMaskSize (-33), tested after the length. */
VRXAPI(VrxStatus, vrxsSumWindow_8u32f, (const Vrx8u* pSrc, Vrx32f* pDst, int len, int winSize))
VRXAPI(VrxStatus, vrxsSumWindow_16s32f, (const Vrx16s* pSrc, Vrx32f* pDst, int len, int winSize))

/* ------------------------------------- end of extrema, counts and search */

/* -------------------------------------------------------------- sorting */

/* Sorting of 8u, 16u, 16s, 32u, 32s, 32f and 64f vectors, ascending or
 * descending. Floats are ordered by the IEEE total order:
 *     -NaN < -inf < ... < -0 < +0 < ... < +inf < +NaN
 * (NaNs by sign and payload), so every form gives the same bits. The index
 * forms write to pDstIndx the source position of each element of the sorted
 * order (pDstIndx[i] = j: the i-th element sorted is pSrc[j]); they are
 * stable in both directions: equal elements keep their source order.
 * None allocates; no memory outside the vectors and the buffer is touched. */

/* vrxsSortAscend_*_I, vrxsSortDescend_*_I: sorts pSrcDst in place, with no
 * buffer. The 16-bit forms use 256 KiB of stack. */
VRXAPI(VrxStatus, vrxsSortAscend_8u_I,  (Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_8u_I, (Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortAscend_16u_I,  (Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_16u_I, (Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortAscend_16s_I,  (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_16s_I, (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortAscend_32u_I,  (Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_32u_I, (Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortAscend_32s_I,  (Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_32s_I, (Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortAscend_32f_I,  (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_32f_I, (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortAscend_64f_I,  (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSortDescend_64f_I, (Vrx64f* pSrcDst, int len))

/* vrxsSortIndexAscend_*_I, vrxsSortIndexDescend_*_I: sorts pSrcDst in place
 * and writes the stable permutation (len ints) to pDstIndx; no buffer. The
 * 16-bit forms use 256 KiB of stack. */
VRXAPI(VrxStatus, vrxsSortIndexAscend_8u_I,  (Vrx8u* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_8u_I, (Vrx8u* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexAscend_16u_I,  (Vrx16u* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_16u_I, (Vrx16u* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexAscend_16s_I,  (Vrx16s* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_16s_I, (Vrx16s* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexAscend_32u_I,  (Vrx32u* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_32u_I, (Vrx32u* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexAscend_32s_I,  (Vrx32s* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_32s_I, (Vrx32s* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexAscend_32f_I,  (Vrx32f* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_32f_I, (Vrx32f* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexAscend_64f_I,  (Vrx64f* pSrcDst, int* pDstIndx, int len))
VRXAPI(VrxStatus, vrxsSortIndexDescend_64f_I, (Vrx64f* pSrcDst, int* pDstIndx, int len))

/* Buffer sizes in bytes of the radix forms for len elements of dataType
 * (vrx8u, vrx16u, vrx16s, vrx32u, vrx32s, vrx32f or vrx64f); r(x) rounds x
 * up to a multiple of 64:
 *                       SortRadix*                SortRadixIndex*
 *   8u                  1024                      1024
 *   16u, 16s            262144                    262144
 *   32u, 32s, 32f       r(4 len) + 32768          2 r(4 len) + 32768
 *   64f                 r(8 len) + 32768          r(8 len) + r(4 len) + 32768
 * Checks: pBufferSize null -8, then len < 1 -6, then any other dataType
 * (vrx32fc and vrx64fc too) -12; a size above INT_MAX gives -6. */
VRXAPI(VrxStatus, vrxsSortRadixGetBufferSize,      (int len, VrxDataType dataType, int* pBufferSize))
VRXAPI(VrxStatus, vrxsSortRadixIndexGetBufferSize, (int len, VrxDataType dataType, int* pBufferSize))

/* vrxsSortRadixAscend_*_I, vrxsSortRadixDescend_*_I: sorts pSrcDst in place
 * using pBuffer, of the size from vrxsSortRadixGetBufferSize (no alignment
 * needed); the result equals that of vrxsSortAscend_*_I / vrxsSortDescend_*_I. */
VRXAPI(VrxStatus, vrxsSortRadixAscend_8u_I,  (Vrx8u* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_8u_I, (Vrx8u* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixAscend_16u_I,  (Vrx16u* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_16u_I, (Vrx16u* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixAscend_16s_I,  (Vrx16s* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_16s_I, (Vrx16s* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixAscend_32u_I,  (Vrx32u* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_32u_I, (Vrx32u* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixAscend_32s_I,  (Vrx32s* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_32s_I, (Vrx32s* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixAscend_32f_I,  (Vrx32f* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_32f_I, (Vrx32f* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixAscend_64f_I,  (Vrx64f* pSrcDst, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixDescend_64f_I, (Vrx64f* pSrcDst, int len, Vrx8u* pBuffer))

/* vrxsSortRadixIndexAscend_*, vrxsSortRadixIndexDescend_*: writes the stable
 * sorting permutation of pSrc (len ints) to pDstIndx, leaving pSrc untouched;
 * pBuffer has the size from vrxsSortRadixIndexGetBufferSize. */
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_8u,  (const Vrx8u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_8u, (const Vrx8u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_16u,  (const Vrx16u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_16u, (const Vrx16u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_16s,  (const Vrx16s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_16s, (const Vrx16s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_32u,  (const Vrx32u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_32u, (const Vrx32u* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_32s,  (const Vrx32s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_32s, (const Vrx32s* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_32f,  (const Vrx32f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_32f, (const Vrx32f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexAscend_64f,  (const Vrx64f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsSortRadixIndexDescend_64f, (const Vrx64f* pSrc, int* pDstIndx, int len, Vrx8u* pBuffer))


/* ------------------------------------------------------- end of sorting */

/* ------------------------------------------------- windows, tones, ramps */
/*
 * Window functions vrxsWin<Family>_<type>[_I]: the source multiplied by the
 * window element by element (a source of ones gives the bare window); both
 * parts of a complex element take the same weight; _I works in place.
 * Integer forms hold the weights in single precision, convert the product
 * back in the current rounding mode (nearest-even by default) and saturate.
 * Checks: a null pointer -8, then a length below the family's minimum -6,
 * then the family's own status.
 */

/* Bartlett (triangular) window: w[n] = 2n/(N-1) up to the middle, mirrored;
 * the end elements are written as 0 and an odd middle element is copied. The
 * weights are a running sum of the step 2/(N-1) in the precision of the data.
 * len >= 3 (else -6); length 3 gives 0, src[1], 0. The out-of-place 32f, 32fc
 * and 64f forms hand the call to their _I form when pSrc == pDst. */
VRXAPI(VrxStatus, vrxsWinBartlett_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_16s_I, (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_16sc_I, (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_32f_I, (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_32fc_I, (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_64f_I, (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBartlett_64fc_I, (Vrx64fc* pSrcDst, int len))

/* Blackman window of parameter alpha:
 *   w[n] = (alpha+1)/2 - 0.5 cos(n theta) - (alpha/2) cos(2n theta), theta = 2pi/(N-1),
 * evaluated as (alpha+0.5) - y + (-4 alpha) y^2 with y = 0.5 cos(n theta) run by
 * recurrence from one cosine. len >= 3 (else -6); length 3 gives 0, src[1], 0.
 * The out-of-place 32f and 32fc forms run the recurrence over all N steps, so
 * element m takes the weight of step max(m, N-1-m) and an odd middle element
 * is weighted too; when pSrc == pDst they hand the call to their _I form,
 * which stops at the middle and leaves an odd middle element as it is. */
VRXAPI(VrxStatus, vrxsWinBlackman_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_16s_I, (Vrx16s* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f alpha))
VRXAPI(VrxStatus, vrxsWinBlackman_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f alpha))

/* vrxsWinBlackman_* of the same type with alpha = -0.16. len >= 3. */
VRXAPI(VrxStatus, vrxsWinBlackmanStd_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_16s_I, (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_16sc_I, (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_32f_I, (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_32fc_I, (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_64f_I, (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanStd_64fc_I, (Vrx64fc* pSrcDst, int len))

/* vrxsWinBlackman_* of the same type with alpha = -(0.5 / cos(pi/(N-1)))^2
 * (rounded to single precision for the 32f, 32fc and 16-bit forms). len >= 4 (else -6). */
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_16s_I, (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_16sc_I, (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_32f_I, (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_32fc_I, (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_64f_I, (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinBlackmanOpt_64fc_I, (Vrx64fc* pSrcDst, int len))

/* Hann window: w[n] = 0.5 - 0.5 cos(2pi n/(N-1)), from one cosine seed and a
 * recurrence run from both ends; an odd middle element is copied. len >= 3
 * (else -6); length 3 gives 0, src[1], 0. */
VRXAPI(VrxStatus, vrxsWinHann_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_16s_I, (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_16sc_I, (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_32f_I, (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_32fc_I, (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_64f_I, (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHann_64fc_I, (Vrx64fc* pSrcDst, int len))

/* Hamming window: w[n] = 0.54 - 0.46 cos(2pi n/(N-1)), as Hann; an odd middle
 * element is copied. len >= 3 (else -6); no length-3 short cut. */
VRXAPI(VrxStatus, vrxsWinHamming_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_16s_I, (Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_16sc_I, (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_32f_I, (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_32fc_I, (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_64f_I, (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsWinHamming_64fc_I, (Vrx64fc* pSrcDst, int len))

/* Kaiser window: w[n] = I0(|alpha| sqrt(n(N-1-n))) / I0(|alpha|(N-1)/2). alpha is
 * the usual shape parameter beta divided by (N-1)/2; its sign is ignored.
 * len >= 1 (else -6), then -39 (vrxErrKaiserAlpha) when |alpha|(N-1)/2 > 38;
 * length 1 copies the element. */
VRXAPI(VrxStatus, vrxsWinKaiser_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_16s_I, (Vrx16s* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_16sc_I, (Vrx16sc* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_32fc_I, (Vrx32fc* pSrcDst, int len, Vrx32f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, Vrx64f alpha))
VRXAPI(VrxStatus, vrxsWinKaiser_64fc_I, (Vrx64fc* pSrcDst, int len, Vrx64f alpha))

/*
 * Tone: pDst[n] = magn cos(2pi rFreq n + phase); complex forms put
 * magn sin(2pi rFreq n + phase) in the imaginary part. rFreq in cycles per
 * sample: 0 <= rFreq < 0.5 for real forms, < 1.0 for complex forms. *pPhase
 * (radians, 0 <= phase < 2pi) is read, and the phase of the sample after the
 * last one, reduced to [0, 2pi), is written back before generating, so
 * consecutive calls continue one signal. hint vrxAlgHintFast reseeds a
 * single-precision recurrence every 1024 samples (2048 for 64f); any other
 * value runs one double recurrence over the whole vector. 16-bit forms
 * truncate the double values toward zero and round the single ones.
 * Checks, in this order (it differs from the common one): pPhase null -8,
 * magn <= 0 -46, rFreq out of range -45, phase out of range -44, pDst null
 * -8, len < 1 -6. On any failure nothing is written and *pPhase is kept.
 */
VRXAPI(VrxStatus, vrxsTone_16s, (Vrx16s* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsTone_16sc, (Vrx16sc* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsTone_32f, (Vrx32f* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsTone_32fc, (Vrx32fc* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f* pPhase, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsTone_64f, (Vrx64f* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f* pPhase, VrxAlgHint hint))
VRXAPI(VrxStatus, vrxsTone_64fc, (Vrx64fc* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f* pPhase, VrxAlgHint hint))

/*
 * Triangle: a triangle wave of amplitude magn that starts at +magn at phase
 * 0, falls to -magn at phase pi + asym and rises back to +magn at 2pi;
 * -pi <= asym < pi. Frequency and phase as for Tone; the phase written back
 * is floored into [0, 2pi). Complex forms take the imaginary part from the
 * same wave at phase + (3pi + asym)/2. 16-bit forms truncate toward zero.
 * Checks, in this order: pPhase null -8, magn <= 0 -43, rFreq out of range
 * -42, asym out of range -40, phase out of range -41, pDst null -8, len < 1
 * -6. On any failure nothing is written and *pPhase is kept.
 */
VRXAPI(VrxStatus, vrxsTriangle_16s, (Vrx16s* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase))
VRXAPI(VrxStatus, vrxsTriangle_16sc, (Vrx16sc* pDst, int len, Vrx16s magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase))
VRXAPI(VrxStatus, vrxsTriangle_32f, (Vrx32f* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase))
VRXAPI(VrxStatus, vrxsTriangle_32fc, (Vrx32fc* pDst, int len, Vrx32f magn, Vrx32f rFreq, Vrx32f asym, Vrx32f* pPhase))
VRXAPI(VrxStatus, vrxsTriangle_64f, (Vrx64f* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f asym, Vrx64f* pPhase))
VRXAPI(VrxStatus, vrxsTriangle_64fc, (Vrx64fc* pDst, int len, Vrx64f magn, Vrx64f rFreq, Vrx64f asym, Vrx64f* pPhase))

/*
 * Jaehne test signal: pDst[n] = magn sin(pi n^2 / (2 len)), n = 0..len-1
 * (n^2 is reduced modulo 4 len exactly first). Integer forms round to
 * nearest, ties to even, and saturate, so the unsigned forms keep only the
 * positive lobes. Checks: -8, -6, then magn < 0 -38 (vrxErrJaehneMagn).
 */
VRXAPI(VrxStatus, vrxsVectorJaehne_8u, (Vrx8u* pDst, int len, Vrx8u magn))
VRXAPI(VrxStatus, vrxsVectorJaehne_16u, (Vrx16u* pDst, int len, Vrx16u magn))
VRXAPI(VrxStatus, vrxsVectorJaehne_16s, (Vrx16s* pDst, int len, Vrx16s magn))
VRXAPI(VrxStatus, vrxsVectorJaehne_32s, (Vrx32s* pDst, int len, Vrx32s magn))
VRXAPI(VrxStatus, vrxsVectorJaehne_32f, (Vrx32f* pDst, int len, Vrx32f magn))
VRXAPI(VrxStatus, vrxsVectorJaehne_64f, (Vrx64f* pDst, int len, Vrx64f magn))

/*
 * Ramp: pDst[n] = offset + slope n, formed in double by one fused
 * multiply-add; integer forms round to nearest, ties to even, and saturate,
 * 32f rounds to single precision. Checks: -8, -6.
 */
VRXAPI(VrxStatus, vrxsVectorSlope_8u, (Vrx8u* pDst, int len, Vrx64f offset, Vrx64f slope))
VRXAPI(VrxStatus, vrxsVectorSlope_16u, (Vrx16u* pDst, int len, Vrx64f offset, Vrx64f slope))
VRXAPI(VrxStatus, vrxsVectorSlope_16s, (Vrx16s* pDst, int len, Vrx64f offset, Vrx64f slope))
VRXAPI(VrxStatus, vrxsVectorSlope_32u, (Vrx32u* pDst, int len, Vrx64f offset, Vrx64f slope))
VRXAPI(VrxStatus, vrxsVectorSlope_32s, (Vrx32s* pDst, int len, Vrx64f offset, Vrx64f slope))
VRXAPI(VrxStatus, vrxsVectorSlope_32f, (Vrx32f* pDst, int len, Vrx64f offset, Vrx64f slope))
VRXAPI(VrxStatus, vrxsVectorSlope_64f, (Vrx64f* pDst, int len, Vrx64f offset, Vrx64f slope))

/*
 * Random numbers. A state holds one 32-bit source: a subtract-with-borrow
 * generator (modulo 2^32 - 18) added to a congruential one
 * (X = X * 69069 + 0x3C6EF373), both in wrapping arithmetic. The state
 * lives at the caller's pointer, at any alignment, sized by GetSize and
 * filled by Init; a given seed gives the same sequence always, and Init with
 * the same seed restarts it. A state is written by every call: use one state
 * per thread (or lock around it). There is no free.
 *
 * GetSize: *pSize = 56, 56, 56, 64 bytes (Uniform 8u, 16s, 32f, 64f) and
 * 64, 64, 72, 80 (Gauss). Checks: pSize null -8.
 */
VRXAPI(VrxStatus, vrxsRandUniformGetSize_8u, (int* pSize))
VRXAPI(VrxStatus, vrxsRandUniformGetSize_16s, (int* pSize))
VRXAPI(VrxStatus, vrxsRandUniformGetSize_32f, (int* pSize))
VRXAPI(VrxStatus, vrxsRandUniformGetSize_64f, (int* pSize))
VRXAPI(VrxStatus, vrxsRandGaussGetSize_8u, (int* pSize))
VRXAPI(VrxStatus, vrxsRandGaussGetSize_16s, (int* pSize))
VRXAPI(VrxStatus, vrxsRandGaussGetSize_32f, (int* pSize))
VRXAPI(VrxStatus, vrxsRandGaussGetSize_64f, (int* pSize))

/* Uniform Init: numbers in [low, high) (half open; rounding may reach high
 * in the 32f and integer forms). low > high is accepted (negative scale).
 * Checks: pState null -8; nothing else is checked. */
VRXAPI(VrxStatus, vrxsRandUniformInit_8u, (VrxsRandUniformState* pState, Vrx8u low, Vrx8u high, Vrx32u seed))
VRXAPI(VrxStatus, vrxsRandUniformInit_16s, (VrxsRandUniformState* pState, Vrx16s low, Vrx16s high, Vrx32u seed))
VRXAPI(VrxStatus, vrxsRandUniformInit_32f, (VrxsRandUniformState* pState, Vrx32f low, Vrx32f high, Vrx32u seed))
VRXAPI(VrxStatus, vrxsRandUniformInit_64f, (VrxsRandUniformState* pState, Vrx64f low, Vrx64f high, Vrx32u seed))

/* Uniform: pDst[n] = u * (high - low) 2^-32 + (low + high)/2 by one fused
 * multiply-add in double, u the next raw number as a signed 32-bit value.
 * 32f rounds to single precision; 8u and 16s convert in the caller's
 * rounding mode and keep the low bits (no saturation).
 * Checks: pDst or pState null -8, len < 1 -6, a state of another family or
 * type -17 (vrxErrBadSpec). On failure the state is unchanged. */
VRXAPI(VrxStatus, vrxsRandUniform_8u, (Vrx8u* pDst, int len, VrxsRandUniformState* pState))
VRXAPI(VrxStatus, vrxsRandUniform_16s, (Vrx16s* pDst, int len, VrxsRandUniformState* pState))
VRXAPI(VrxStatus, vrxsRandUniform_32f, (Vrx32f* pDst, int len, VrxsRandUniformState* pState))
VRXAPI(VrxStatus, vrxsRandUniform_64f, (Vrx64f* pDst, int len, VrxsRandUniformState* pState))

/* Gauss Init: normal numbers of the given mean and standard deviation (the
 * sign of stdDev is not checked). Checks: pState null -8. */
VRXAPI(VrxStatus, vrxsRandGaussInit_8u, (VrxsRandGaussState* pState, Vrx8u mean, Vrx8u stdDev, Vrx32u seed))
VRXAPI(VrxStatus, vrxsRandGaussInit_16s, (VrxsRandGaussState* pState, Vrx16s mean, Vrx16s stdDev, Vrx32u seed))
VRXAPI(VrxStatus, vrxsRandGaussInit_32f, (VrxsRandGaussState* pState, Vrx32f mean, Vrx32f stdDev, Vrx32u seed))
VRXAPI(VrxStatus, vrxsRandGaussInit_64f, (VrxsRandGaussState* pState, Vrx64f mean, Vrx64f stdDev, Vrx32u seed))

/* Gauss: polar method on pairs of raw numbers p, q (times 2^-31), both drawn
 * on every attempt, s = q^2 + p^2 (rejected when s >= 1 or s == 0),
 * f = sqrt(-2 ln(s) / s); outputs mean + (p stdDev) f, then
 * mean + (q stdDev) f, by fused multiply-add in double. An odd element left
 * at the end keeps its pair's second deviate for the next call, which
 * starts with mean + stdDev (f q); so calls of odd lengths continue one
 * sequence (the held deviate may differ from the unsplit one in the last
 * bit of a 64f value). 8u and 16s clamp to the type's range, then convert
 * in the caller's rounding mode. Checks as for Uniform (-8, -6, -17). */
VRXAPI(VrxStatus, vrxsRandGauss_8u, (Vrx8u* pDst, int len, VrxsRandGaussState* pState))
VRXAPI(VrxStatus, vrxsRandGauss_16s, (Vrx16s* pDst, int len, VrxsRandGaussState* pState))
VRXAPI(VrxStatus, vrxsRandGauss_32f, (Vrx32f* pDst, int len, VrxsRandGaussState* pState))
VRXAPI(VrxStatus, vrxsRandGauss_64f, (Vrx64f* pDst, int len, VrxsRandGaussState* pState))

/* ------------------------------------------ end of windows, tones, ramps */

/* ----------------------------------------------------------- FIR design */

/*
 * Window-method design of linear-phase FIR filters in double. Frequencies
 * are relative to the sampling rate (0.5 is Nyquist) and must lie strictly
 * between 0 and 0.5. The ideal response is sampled at the taps before the
 * centre (and the centre for odd tapsLen) from tones of vrxsTone_64f, then
 * windowed over all tapsLen taps: winType vrxWinBartlett, vrxWinBlackman
 * (the optimal Blackman, vrxsWinBlackmanOpt), vrxWinHamming, vrxWinHann;
 * any other value applies no window and is no error. If doNormal != 0 the
 * taps are divided by the gain at a reference frequency: 0 for Lowpass and
 * Bandstop, Nyquist for Highpass (the alternating sum that starts with
 * -pTaps[0] and runs through the centre, so a normalised odd-length
 * Highpass with an even half, N = 5, 9, 13, ..., has gain -1 at Nyquist),
 * the centre (low + high)/2 for Bandpass, by one more tone. Last the first half is mirrored
 * onto the second: symmetric, except the even-length Highpass, which is
 * antisymmetric (pTaps[N-1-i] = -pTaps[i]).
 * pBuffer: vrxsFIRGenGetBufferSize bytes, any alignment (aligned up to 16
 * on use); nothing in it survives the call.
 * Checks, in this order: pTaps or pBuffer null -8; tapsLen < 5, a frequency
 * not in (0, 0.5) or rLowFreq >= rHighFreq -6 (vrxErrBadLength, also for the
 * frequencies). Nothing is written on failure.
 */
VRXAPI(VrxStatus, vrxsFIRGenLowpass_64f, (Vrx64f rFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsFIRGenHighpass_64f, (Vrx64f rFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsFIRGenBandpass_64f, (Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsFIRGenBandstop_64f, (Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f* pTaps, int tapsLen, VrxWinType winType, int doNormal, Vrx8u* pBuffer))

/* Work-buffer size of the design functions: *pBufferSize =
 * (((tapsLen >> 1) * 16 + 46) & ~31) + 16 bytes, two half-length tones.
 * Checks: pBufferSize null -8, tapsLen < 5 -6. */
VRXAPI(VrxStatus, vrxsFIRGenGetBufferSize, (int tapsLen, int* pBufferSize))


/* ------------------------------------------- convolution and correlation */
/*
 * One-shot linear convolution and correlation of whole vectors. algType:
 * low byte vrxAlgAuto (0), vrxAlgDirect (1) or vrxAlgFFT (2), anything above
 * 2 is -228 (vrxErrAlgType); the correlations read a normalisation from the
 * second byte: vrxNormNone, vrxNormBiased (0x100), vrxNormUnbiased (0x200).
 * The direct paths accumulate by fused multiply-add in the element
 * precision. The FFT paths build their plan (inverse scaled by 1/F) in the
 * caller's work buffer on every call; pBuffer takes the size that the
 * matching GetBufferSize query reports for the same lengths and algType
 * (64 bytes on the direct path), any alignment. A negative status of the
 * FFT engine ends the call with that status, pDst then incomplete.
 */

/* pDst[n] = sum_k pSrc1[k] pSrc2[n-k], n = 0 .. src1Len+src2Len-2. The longer
 * vector is the signal (pSrc1 on a tie), the shorter the kernel, of length S.
 * Auto takes the FFT when src1Len+src2Len-1 >= 512 and S >= 64: one
 * transform when the signal is shorter than 3S, else overlap-save with
 * blocks of 2^(ceil(log2 2S)+1). The second byte of algType is ignored.
 * Checks: pointers -8, src1Len then src2Len < 1 -6, low byte > 2 -228. */
VRXAPI(VrxStatus, vrxsConvolve_32f, (const Vrx32f* pSrc1, int src1Len, const Vrx32f* pSrc2, int src2Len, Vrx32f* pDst, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsConvolve_64f, (const Vrx64f* pSrc1, int src1Len, const Vrx64f* pSrc2, int src2Len, Vrx64f* pDst, VrxAlgType algType, Vrx8u* pBuffer))

/* Work size of vrxsConvolve_*: 64 on the direct path, else
 * A(spec) + A(init) + A(work) + 64 + A(2 F e) with the FFT plan's three sizes,
 * F the transform length, e the element size, A rounding up to 64.
 * dataType 13 (32f) or 19 (64f); only the low byte of algType is read.
 * Checks: pBufferSize -8, lengths -6, low byte > 2 -228, then dataType -12
 * (size set to 0); a failing FFT size query zeroes the size and is returned. */
VRXAPI(VrxStatus, vrxsConvolveGetBufferSize, (int src1Len, int src2Len, int dataType, VrxAlgType algType, int* pBufferSize))

/* pDst[n] = sum over k = 0 .. src1Len-1 of pSrc1[k] pSrc2[n-k], n < dstLen,
 * where pSrc2 may be read behind its start: its usable indices run from
 * -bias to src2Len-bias-1 and terms outside them are left out. No work
 * buffer. Checks: pointers -8, src1Len, src2Len or dstLen < 1 -6. */
VRXAPI(VrxStatus, vrxsConvBiased_32f, (const Vrx32f* pSrc1, int src1Len, const Vrx32f* pSrc2, int src2Len, Vrx32f* pDst, int dstLen, int bias))

/* Autocorrelation r[n] = sum_{i=0}^{srcLen-1-n} conj(x[i]) x[i+n] for n < m =
 * min(srcLen, dstLen); pDst[srcLen .. dstLen-1] is zeroed. Direct on Auto
 * while m < 1200 (32f, 64f) or 128 (32fc, 64fc); the FFT has length
 * 2^ceil(log2 2 srcLen). Biased multiplies the first m outputs by 1/srcLen,
 * Unbiased divides r[n] by srcLen-n; the zero tail is never normalised.
 * Checks: pointers -8, srcLen, dstLen < 1 -6, low byte > 2 -228; a second
 * byte other than 0, 1, 2 returns -228 after the unnormalised result has
 * been written. */
VRXAPI(VrxStatus, vrxsAutoCorrNorm_32f, (const Vrx32f* pSrc, int srcLen, Vrx32f* pDst, int dstLen, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsAutoCorrNorm_32fc, (const Vrx32fc* pSrc, int srcLen, Vrx32fc* pDst, int dstLen, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsAutoCorrNorm_64f, (const Vrx64f* pSrc, int srcLen, Vrx64f* pDst, int dstLen, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsAutoCorrNorm_64fc, (const Vrx64fc* pSrc, int srcLen, Vrx64fc* pDst, int dstLen, VrxAlgType algType, Vrx8u* pBuffer))

/* Work size of vrxsAutoCorrNorm_*: 64 on the direct path, else
 * A(spec) + A(init) + A(work) + 64 + A(F c), c = 4, 8, 16, 32 for dataType
 * 13 (32f), 19 (64f), 14 (32fc), 20 (64fc). Checks: pBufferSize -8,
 * lengths -6, either byte of algType out of range -228 at once, dataType
 * -12 (size set to 0). */
VRXAPI(VrxStatus, vrxsAutoCorrNormGetBufferSize, (int srcLen, int dstLen, int dataType, VrxAlgType algType, int* pBufferSize))

/* Cross-correlation R[lag] = sum_i conj(a[i]) b[i+lag] over the indices
 * where both exist, a = pSrc1, b = pSrc2; pDst[n] = R[lowLag+n], n < dstLen.
 * Lags outside 1-src1Len .. src2Len-1 are zeroed first, and when none
 * remain the call returns vrxOk. With mn, mx the smaller and larger length
 * and D the remaining count, Auto takes the FFT when trunc(mn D / mx) in
 * single precision reaches 384 (32f), 512 (64f), 256 (32fc), 512 (64fc):
 * one transform when mx < 3 mn, else overlap-save over the longer vector.
 * Biased multiplies by 1/mn, Unbiased divides each lag by its count of
 * products. Checks as vrxsAutoCorrNorm_*, with three lengths. */
VRXAPI(VrxStatus, vrxsCrossCorrNorm_32f, (const Vrx32f* pSrc1, int src1Len, const Vrx32f* pSrc2, int src2Len, Vrx32f* pDst, int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsCrossCorrNorm_32fc, (const Vrx32fc* pSrc1, int src1Len, const Vrx32fc* pSrc2, int src2Len, Vrx32fc* pDst, int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsCrossCorrNorm_64f, (const Vrx64f* pSrc1, int src1Len, const Vrx64f* pSrc2, int src2Len, Vrx64f* pDst, int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer))
VRXAPI(VrxStatus, vrxsCrossCorrNorm_64fc, (const Vrx64fc* pSrc1, int src1Len, const Vrx64fc* pSrc2, int src2Len, Vrx64fc* pDst, int dstLen, int lowLag, VrxAlgType algType, Vrx8u* pBuffer))

/* Work size of vrxsCrossCorrNorm_*: 64 on the direct path (also when no lag
 * lies in the overlap), else A(spec) + A(init) + A(work) + 64 + A(2 F e), e
 * the element size. Checks as vrxsAutoCorrNormGetBufferSize. */
VRXAPI(VrxStatus, vrxsCrossCorrNormGetBufferSize, (int src1Len, int src2Len, int dstLen, int lowLag, int dataType, VrxAlgType algType, int* pBufferSize))


/* ------------------------------------ end of convolution and correlation */

/* ------------------ single-rate and multi-rate FIR, SampleUp, SampleDown */

/* Single-rate FIR: dst[n] = sum over k < tapsLen of taps[k] * x[n-k], taps[0]
 * meeting the newest sample; x before the call comes from the delay line.
 * Delay lines hold tapsLen-1 samples, oldest first; a null pDlySrc means
 * zeros, a null pDlyDst is not written. The state is read-only in runs.
 *
 * Sizes in bytes of the state and of the run's work buffer for tapsLen taps
 * of tapsType (vrx32f, vrx32fc, vrx64f, vrx64fc). Checks: tapsLen < 1 -6,
 * then another tapsType -12 (vrxErrDataType), then a null result -8. */
VRXAPI(VrxStatus, vrxsFIRSRGetSize, (int tapsLen, VrxDataType tapsType, int* pSpecSize, int* pBufSize))
/* Prepares the state in pSpec (aligned to 64 bytes inside the block) from
 * the taps in natural order. algType vrxAlgAuto (both paths, chosen per
 * call), vrxAlgDirect or vrxAlgFFT. Checks: tapsLen < 1 -6, then null -8,
 * then algType outside 0..2 -228 (vrxErrAlgType). */
VRXAPI(VrxStatus, vrxsFIRSRInit_32f,  (const Vrx32f* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_32f* pSpec))
/* The same for complex taps. */
VRXAPI(VrxStatus, vrxsFIRSRInit_32fc, (const Vrx32fc* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_32fc* pSpec))
/* The same for double taps. */
VRXAPI(VrxStatus, vrxsFIRSRInit_64f,  (const Vrx64f* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_64f* pSpec))
/* The same for double complex taps. */
VRXAPI(VrxStatus, vrxsFIRSRInit_64fc, (const Vrx64fc* pTaps, int tapsLen, VrxAlgType algType, VrxsFirState_64fc* pSpec))
/* Filters numIters samples of pSrc into pDst (pDst may be pSrc or pDlySrc).
 * pBuf: vrxsFIRSRGetSize's buffer. With pDlySrc == pDlyDst the line is
 * updated in place; when both are null and pDst differs from pSrc the
 * history is what pBuf holds (pass a zeroed line for zeros). FFT path for
 * vrxAlgFFT, or Auto with tapsLen >= 52 and numIters >= 256.
 * Checks: pSpec, pSrc, pDst, pBuf null -8, then numIters < 1 -6. */
VRXAPI(VrxStatus, vrxsFIRSR_32f,  (const Vrx32f* pSrc, Vrx32f* pDst, int numIters, const VrxsFirState_32f* pSpec, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf))
/* Complex form; Auto takes the FFT path from 18 taps and 128 samples. */
VRXAPI(VrxStatus, vrxsFIRSR_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int numIters, const VrxsFirState_32fc* pSpec, const Vrx32fc* pDlySrc, Vrx32fc* pDlyDst, Vrx8u* pBuf))
/* Double form; Auto takes the FFT path from 34 taps and 512 samples. */
VRXAPI(VrxStatus, vrxsFIRSR_64f,  (const Vrx64f* pSrc, Vrx64f* pDst, int numIters, const VrxsFirState_64f* pSpec, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf))
/* Double complex form; Auto takes the FFT path from 21 taps and 256 samples. */
VRXAPI(VrxStatus, vrxsFIRSR_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int numIters, const VrxsFirState_64fc* pSpec, const Vrx64fc* pDlySrc, Vrx64fc* pDlyDst, Vrx8u* pBuf))
/* 16-bit samples and lines on a 32f state, always direct, in float; outputs
 * rounded to nearest (ties to even) and saturated. A null pDlySrc is zeros. */
VRXAPI(VrxStatus, vrxsFIRSR_16s,  (const Vrx16s* pSrc, Vrx16s* pDst, int numIters, const VrxsFirState_32f* pSpec, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf))
/* Complex 16-bit samples on a 32fc state, as vrxsFIRSR_16s. */
VRXAPI(VrxStatus, vrxsFIRSR_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int numIters, const VrxsFirState_32fc* pSpec, const Vrx16sc* pDlySrc, Vrx16sc* pDlyDst, Vrx8u* pBuf))

/* Multi-rate FIR: the input stretched by upFactor U (u[k*U + upPhase] = x[k],
 * zeros between), convolved with the taps, every downFactor D-th sample kept
 * from downPhase. One call reads numIters*D samples and writes numIters*U.
 * Delay lines hold (tapsLen+U-1)/U input samples, oldest first (tapsLen
 * samples when U = D = 1: the history is elements 1..tapsLen-1, see below).
 *
 * State and buffer sizes. Checks: tapsLen < 1 -26 (vrxErrFirLen), unknown
 * tapsType -12, a factor < 1 -29 (vrxErrFirMrFactor); the result pointers
 * are checked (-8) only for U = D = 1, where the sizes are vrxsFIRSRGetSize's. */
VRXAPI(VrxStatus, vrxsFIRMRGetSize, (int tapsLen, int upFactor, int downFactor, VrxDataType tapsType, int* pSpecSize, int* pBufSize))
/* Prepares the state. Checks: tapsLen < 1 -26, a negative factor -29, a
 * phase negative or not below its factor -28 (vrxErrFirMrPhase; a factor of
 * 0 ends here), then pTaps, pSpec null -8; -9 (vrxErrNoMemory) when a
 * position of the phase tables would pass 2147483646. */
VRXAPI(VrxStatus, vrxsFIRMRInit_32f,  (const Vrx32f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec))
/* The same for complex taps. */
VRXAPI(VrxStatus, vrxsFIRMRInit_32fc, (const Vrx32fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec))
/* The same for double taps. */
VRXAPI(VrxStatus, vrxsFIRMRInit_64f,  (const Vrx64f* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec))
/* The same for double complex taps. */
VRXAPI(VrxStatus, vrxsFIRMRInit_64fc, (const Vrx64fc* pTaps, int tapsLen, int upFactor, int upPhase, int downFactor, int downPhase, VrxsFirMrState* pSpec))
/* Runs numIters blocks of pSrc into pDst (pDst may be pSrc, then sized for
 * the longer of input and output). With U = D = 1 the single-rate filter runs
 * on elements 1.. of pDlySrc and pDlyDst is then shifted up by one (element 0
 * stale; not shifted when pDlySrc is null). Checks: pSpec, pSrc, pDst, pBuf
 * null -8, numIters < 1 -6, a state of another form -17. */
VRXAPI(VrxStatus, vrxsFIRMR_32f,  (const Vrx32f* pSrc, Vrx32f* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf))
/* Complex form on a 32fc state. */
VRXAPI(VrxStatus, vrxsFIRMR_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx32fc* pDlySrc, Vrx32fc* pDlyDst, Vrx8u* pBuf))
/* Double form on a 64f state. */
VRXAPI(VrxStatus, vrxsFIRMR_64f,  (const Vrx64f* pSrc, Vrx64f* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf))
/* Double complex form on a 64fc state. */
VRXAPI(VrxStatus, vrxsFIRMR_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx64fc* pDlySrc, Vrx64fc* pDlyDst, Vrx8u* pBuf))
/* 16-bit samples on a 32f state, in float; outputs rounded to nearest and
 * saturated. */
VRXAPI(VrxStatus, vrxsFIRMR_16s,  (const Vrx16s* pSrc, Vrx16s* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf))
/* Complex 16-bit samples on a 32fc state, as vrxsFIRMR_16s. */
VRXAPI(VrxStatus, vrxsFIRMR_16sc, (const Vrx16sc* pSrc, Vrx16sc* pDst, int numIters, const VrxsFirMrState* pSpec, const Vrx16sc* pDlySrc, Vrx16sc* pDlyDst, Vrx8u* pBuf))

/* SampleUp: dst[i*factor + phase] = src[i], zeros elsewhere, *pDstLen =
 * srcLen*factor; *pPhase is read, not changed. SampleDown: dst[k] =
 * src[phase + k*factor] while inside src; *pDstLen the count, *pPhase the
 * phase of the next piece (phase + count*factor - srcLen). A phase at or
 * beyond srcLen writes no sample: *pDstLen 0, *pPhase falls by srcLen.
 * Checks: null -8, srcLen < 1 -6, factor < 1 -31 (vrxErrSampleFactor),
 * *pPhase negative or not below factor -30 (vrxErrSamplePhase); on failure
 * neither *pDstLen nor *pPhase is written. */
VRXAPI(VrxStatus, vrxsSampleUp_16s,  (const Vrx16s* pSrc, int srcLen, Vrx16s* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleUp of complex 16-bit samples. */
VRXAPI(VrxStatus, vrxsSampleUp_16sc, (const Vrx16sc* pSrc, int srcLen, Vrx16sc* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleUp of floats. */
VRXAPI(VrxStatus, vrxsSampleUp_32f,  (const Vrx32f* pSrc, int srcLen, Vrx32f* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleUp of complex floats. */
VRXAPI(VrxStatus, vrxsSampleUp_32fc, (const Vrx32fc* pSrc, int srcLen, Vrx32fc* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleUp of doubles. */
VRXAPI(VrxStatus, vrxsSampleUp_64f,  (const Vrx64f* pSrc, int srcLen, Vrx64f* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleUp of complex doubles. */
VRXAPI(VrxStatus, vrxsSampleUp_64fc, (const Vrx64fc* pSrc, int srcLen, Vrx64fc* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleDown of 16-bit samples. */
VRXAPI(VrxStatus, vrxsSampleDown_16s,  (const Vrx16s* pSrc, int srcLen, Vrx16s* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleDown of complex 16-bit samples. */
VRXAPI(VrxStatus, vrxsSampleDown_16sc, (const Vrx16sc* pSrc, int srcLen, Vrx16sc* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleDown of floats. */
VRXAPI(VrxStatus, vrxsSampleDown_32f,  (const Vrx32f* pSrc, int srcLen, Vrx32f* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleDown of complex floats. */
VRXAPI(VrxStatus, vrxsSampleDown_32fc, (const Vrx32fc* pSrc, int srcLen, Vrx32fc* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleDown of doubles. */
VRXAPI(VrxStatus, vrxsSampleDown_64f,  (const Vrx64f* pSrc, int srcLen, Vrx64f* pDst, int* pDstLen, int factor, int* pPhase))
/* SampleDown of complex doubles. */
VRXAPI(VrxStatus, vrxsSampleDown_64fc, (const Vrx64fc* pSrc, int srcLen, Vrx64fc* pDst, int* pDstLen, int factor, int* pPhase))

/* ----------------------------------------------- end of FIR and sampling */

/* ----------------------------------------------------------- IIR filters */

/*
 * IIR filters, in two structures: one arbitrary-order section (AR, order N,
 * taps b[0..N] then a[0..N], 2N+2 values) and a cascade of biquads (BQ,
 * numBq sections of b0, b1, b2, a0, a1, a2). The recursion
 * a0*y[n] = sum b[k]*x[n-k] - sum a[k]*y[n-k] runs in direct form II
 * transposed, except for the direct form I states. 26 kinds of
 * VrxsIirState, each with its identity word, are named by their suffix:
 * [arithmetic]_[BiQuad_][samples]. The state lives in the caller's block of
 * the reported size, starting at its first 32-byte boundary (*ppState).
 * Integer samples are filtered exactly converted in the arithmetic type; only
 * the output is scaled by 2^-scaleFactor (|scaleFactor| taken modulo 128),
 * saturated and rounded to nearest even, whatever the caller's rounding mode.
 * GetStateSize: pBufferSize null -8, order or numBq < 1 -25.
 * Init: ppState, pTaps or pBuf null -8, order or numBq < 1 -25, then a zero
 * a0 (BQ: or b0) -10. pDlyLine may be null (zeros). A state is written by
 * every run: one thread at a time.
 */
/* State sizes. */
/* bytes of the AR state (0x49493031, 32f samples, float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_32f, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493032, 32f samples, float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_BiQuad_32f, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493033, 32fc samples, complex float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_32fc, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493034, 32fc samples, complex float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_BiQuad_32fc, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493035, 16s samples, float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize32f_16s, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493036, 16s samples, float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize32f_BiQuad_16s, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493037, 16sc samples, complex float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize32fc_16sc, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493038, 16sc samples, complex float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize32fc_BiQuad_16sc, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493133, 64f samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_64f, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493134, 64f samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_BiQuad_64f, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493135, 64fc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_64fc, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493136, 64fc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_BiQuad_64fc, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493137, 32f samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_32f, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493138, 32f samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_BiQuad_32f, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493139, 32fc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64fc_32fc, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493230, 32fc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64fc_BiQuad_32fc, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493231, 32s samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_32s, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493232, 32s samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_BiQuad_32s, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493233, 32sc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64fc_32sc, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493234, 32sc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64fc_BiQuad_32sc, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493235, 16s samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_16s, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493236, 16s samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_BiQuad_16s, (int numBq, int* pBufferSize))
/* bytes of the AR state (0x49493237, 16sc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64fc_16sc, (int order, int* pBufferSize))
/* bytes of the BQ state (0x49493238, 16sc samples, complex double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64fc_BiQuad_16sc, (int numBq, int* pBufferSize))
/* bytes of the BQ state (0x49493239, 32f samples, float taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize_BiQuad_DF1_32f, (int numBq, int* pBufferSize))
/* bytes of the BQ state (0x49493330, 32s samples, double taps and line) */
VRXAPI(VrxStatus, vrxsIIRGetStateSize64f_BiQuad_DF1_32s, (int numBq, int* pBufferSize))

/* Init. */
/* 0x49493031 order-N filter on 32f samples, float arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit_32f, (VrxsIirState** ppState, const Vrx32f* pTaps, int order, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* 0x49493032 cascade of numBq biquads on 32f samples, float arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit_BiQuad_32f, (VrxsIirState** ppState, const Vrx32f* pTaps, int numBq, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* 0x49493033 order-N filter on 32fc samples, complex float arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit_32fc, (VrxsIirState** ppState, const Vrx32fc* pTaps, int order, const Vrx32fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493034 cascade of numBq biquads on 32fc samples, complex float arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit_BiQuad_32fc, (VrxsIirState** ppState, const Vrx32fc* pTaps, int numBq, const Vrx32fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493035 order-N filter on 16s samples, float arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit32f_16s, (VrxsIirState** ppState, const Vrx32f* pTaps, int order, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* 0x49493036 cascade of numBq biquads on 16s samples, float arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit32f_BiQuad_16s, (VrxsIirState** ppState, const Vrx32f* pTaps, int numBq, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* 0x49493037 order-N filter on 16sc samples, complex float arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit32fc_16sc, (VrxsIirState** ppState, const Vrx32fc* pTaps, int order, const Vrx32fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493038 cascade of numBq biquads on 16sc samples, complex float arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit32fc_BiQuad_16sc, (VrxsIirState** ppState, const Vrx32fc* pTaps, int numBq, const Vrx32fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493133 order-N filter on 64f samples, double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit_64f, (VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493134 cascade of numBq biquads on 64f samples, double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit_BiQuad_64f, (VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493135 order-N filter on 64fc samples, complex double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit_64fc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493136 cascade of numBq biquads on 64fc samples, complex double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit_BiQuad_64fc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493137 order-N filter on 32f samples, double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit64f_32f, (VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493138 cascade of numBq biquads on 32f samples, double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit64f_BiQuad_32f, (VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493139 order-N filter on 32fc samples, complex double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit64fc_32fc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493230 cascade of numBq biquads on 32fc samples, complex double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit64fc_BiQuad_32fc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493231 order-N filter on 32s samples, double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit64f_32s, (VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493232 cascade of numBq biquads on 32s samples, double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit64f_BiQuad_32s, (VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493233 order-N filter on 32sc samples, complex double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit64fc_32sc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493234 cascade of numBq biquads on 32sc samples, complex double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit64fc_BiQuad_32sc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493235 order-N filter on 16s samples, double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit64f_16s, (VrxsIirState** ppState, const Vrx64f* pTaps, int order, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493236 cascade of numBq biquads on 16s samples, double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit64f_BiQuad_16s, (VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* 0x49493237 order-N filter on 16sc samples, complex double arithmetic; a0 = 0: -10 (state laid out, no taps) */
VRXAPI(VrxStatus, vrxsIIRInit64fc_16sc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int order, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493238 cascade of numBq biquads on 16sc samples, complex double arithmetic; a0 or b0 = 0 in a section: -10 (earlier sections written) */
VRXAPI(VrxStatus, vrxsIIRInit64fc_BiQuad_16sc, (VrxsIirState** ppState, const Vrx64fc* pTaps, int numBq, const Vrx64fc* pDlyLine, Vrx8u* pBuf))
/* 0x49493239 direct form I cascade of numBq biquads on 32f samples, float arithmetic; a0 = 0: -10, a0 = 1 keeps the taps bit-exact, b0 = 0 accepted */
VRXAPI(VrxStatus, vrxsIIRInit_BiQuad_DF1_32f, (VrxsIirState** ppState, const Vrx32f* pTaps, int numBq, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* 0x49493330 cascade of numBq biquads with a direct form I line on 32s samples, double arithmetic; pDlyLine 4*numBq 32s values (x2, x1, y2, y1); a0 or b0 = 0: -10 */
VRXAPI(VrxStatus, vrxsIIRInit64f_BiQuad_DF1_32s, (VrxsIirState** ppState, const Vrx64f* pTaps, int numBq, const Vrx32s* pDlyLine, Vrx8u* pBuf))


/* Runs: filter len samples through the state, which must carry one of the
 * words named; another word is -17 (after the pointers -8 and len < 1 -6). */
/* 32f samples pSrc to pDst through a state 0x49493031, 0x49493032 or the direct form I 0x49493239 */
VRXAPI(VrxStatus, vrxsIIR_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirState* pState))
/* in place form of vrxsIIR_32f */
VRXAPI(VrxStatus, vrxsIIR_32f_I, (Vrx32f* pSrcDst, int len, VrxsIirState* pState))
/* 32fc samples pSrc to pDst through a state 0x49493033 or 0x49493034 */
VRXAPI(VrxStatus, vrxsIIR_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsIirState* pState))
/* in place form of vrxsIIR_32fc */
VRXAPI(VrxStatus, vrxsIIR_32fc_I, (Vrx32fc* pSrcDst, int len, VrxsIirState* pState))
/* 16s samples through a state 0x49493035 or 0x49493036 (float arithmetic); output scaled by 2^-scaleFactor */
VRXAPI(VrxStatus, vrxsIIR32f_16s_Sfs, (const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor))
/* in place form of vrxsIIR32f_16s_Sfs */
VRXAPI(VrxStatus, vrxsIIR32f_16s_ISfs, (Vrx16s* pSrcDst, int len, VrxsIirState* pState, int scaleFactor))
/* 16sc samples through a state 0x49493037 or 0x49493038 (complex float arithmetic); output scaled by 2^-scaleFactor */
VRXAPI(VrxStatus, vrxsIIR32fc_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor))
/* in place form of vrxsIIR32fc_16sc_Sfs */
VRXAPI(VrxStatus, vrxsIIR32fc_16sc_ISfs, (Vrx16sc* pSrcDst, int len, VrxsIirState* pState, int scaleFactor))
/* 64f samples pSrc to pDst through a state 0x49493133 or 0x49493134 */
VRXAPI(VrxStatus, vrxsIIR_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, VrxsIirState* pState))
/* in place form of vrxsIIR_64f */
VRXAPI(VrxStatus, vrxsIIR_64f_I, (Vrx64f* pSrcDst, int len, VrxsIirState* pState))
/* 64fc samples pSrc to pDst through a state 0x49493135 or 0x49493136 */
VRXAPI(VrxStatus, vrxsIIR_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, int len, VrxsIirState* pState))
/* in place form of vrxsIIR_64fc */
VRXAPI(VrxStatus, vrxsIIR_64fc_I, (Vrx64fc* pSrcDst, int len, VrxsIirState* pState))
/* 32f samples pSrc to pDst through a state 0x49493137 or 0x49493138 (double arithmetic) */
VRXAPI(VrxStatus, vrxsIIR64f_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirState* pState))
/* in place form of vrxsIIR64f_32f */
VRXAPI(VrxStatus, vrxsIIR64f_32f_I, (Vrx32f* pSrcDst, int len, VrxsIirState* pState))
/* 32fc samples pSrc to pDst through a state 0x49493139 or 0x49493230 (complex double arithmetic) */
VRXAPI(VrxStatus, vrxsIIR64fc_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsIirState* pState))
/* in place form of vrxsIIR64fc_32fc */
VRXAPI(VrxStatus, vrxsIIR64fc_32fc_I, (Vrx32fc* pSrcDst, int len, VrxsIirState* pState))
/* 32s samples through a state 0x49493231, 0x49493232 or 0x49493330 (double arithmetic); output scaled by 2^-scaleFactor */
VRXAPI(VrxStatus, vrxsIIR64f_32s_Sfs, (const Vrx32s* pSrc, Vrx32s* pDst, int len, VrxsIirState* pState, int scaleFactor))
/* in place form of vrxsIIR64f_32s_Sfs */
VRXAPI(VrxStatus, vrxsIIR64f_32s_ISfs, (Vrx32s* pSrcDst, int len, VrxsIirState* pState, int scaleFactor))
/* 32sc samples through a state 0x49493233 or 0x49493234 (complex double arithmetic); output scaled by 2^-scaleFactor */
VRXAPI(VrxStatus, vrxsIIR64fc_32sc_Sfs, (const Vrx32sc* pSrc, Vrx32sc* pDst, int len, VrxsIirState* pState, int scaleFactor))
/* in place form of vrxsIIR64fc_32sc_Sfs */
VRXAPI(VrxStatus, vrxsIIR64fc_32sc_ISfs, (Vrx32sc* pSrcDst, int len, VrxsIirState* pState, int scaleFactor))
/* 16s samples through a state 0x49493235 or 0x49493236 (double arithmetic); output scaled by 2^-scaleFactor */
VRXAPI(VrxStatus, vrxsIIR64f_16s_Sfs, (const Vrx16s* pSrc, Vrx16s* pDst, int len, VrxsIirState* pState, int scaleFactor))
/* in place form of vrxsIIR64f_16s_Sfs */
VRXAPI(VrxStatus, vrxsIIR64f_16s_ISfs, (Vrx16s* pSrcDst, int len, VrxsIirState* pState, int scaleFactor))
/* 16sc samples through a state 0x49493237 or 0x49493238 (complex double arithmetic); output scaled by 2^-scaleFactor */
VRXAPI(VrxStatus, vrxsIIR64fc_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16sc* pDst, int len, VrxsIirState* pState, int scaleFactor))
/* in place form of vrxsIIR64fc_16sc_Sfs */
VRXAPI(VrxStatus, vrxsIIR64fc_16sc_ISfs, (Vrx16sc* pSrcDst, int len, VrxsIirState* pState, int scaleFactor))

/* Multi-channel runs: channel k filters ppSrc[k] into ppDst[k] with ppState[k],
 * one channel after the other. Checks: ppState, ppSrc, ppDst null -8, len < 1 -6,
 * nChannels < 1 (-53 for the float pair, -47 for the 32s pair), ppState[0] null -8,
 * its word not accepted -17; then per channel a null pointer -8 or a word other than
 * ppState[0]'s -17, with the channels before it already filtered. */
/* 32f channels; biquad states only (0x49493032 or 0x49493239) */
VRXAPI(VrxStatus, vrxsIIR_32f_P, (const Vrx32f** ppSrc, Vrx32f** ppDst, int len, int nChannels, VrxsIirState** ppState))
/* in place form of vrxsIIR_32f_P */
VRXAPI(VrxStatus, vrxsIIR_32f_IP, (Vrx32f** ppSrcDst, int len, int nChannels, VrxsIirState** ppState))
/* 32s channels through 0x49493231, 0x49493232 or 0x49493330 states; nChannels < 1 -47 */
VRXAPI(VrxStatus, vrxsIIR64f_32s_PSfs, (const Vrx32s** ppSrc, Vrx32s** ppDst, int len, int nChannels, VrxsIirState** ppState, int scaleFactor))
/* in place form of vrxsIIR64f_32s_PSfs */
VRXAPI(VrxStatus, vrxsIIR64f_32s_IPSfs, (Vrx32s** ppSrcDst, int len, int nChannels, VrxsIirState** ppState, int scaleFactor))

/* Delay lines: Get copies the line out of the state, oldest contribution first
 * (N values for AR, d0, d1 per section for BQ, x2, x1, y2, y1 per section for the
 * direct form I states); Set copies it in, a null pDlyLine giving zeros. Integer
 * sample kinds keep the line in the arithmetic type, unscaled. Get: either pointer
 * null -8; Set: pState null -8; both -17 for a state not of their pair. */
/* line of a state 0x49493031, 0x49493032, 0x49493239 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine_32f, (const VrxsIirState* pState, Vrx32f* pDlyLine))
/* line of a state 0x49493031, 0x49493032, 0x49493239 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine_32f, (VrxsIirState* pState, const Vrx32f* pDlyLine))
/* line of a state 0x49493033, 0x49493034 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine_32fc, (const VrxsIirState* pState, Vrx32fc* pDlyLine))
/* line of a state 0x49493033, 0x49493034 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine_32fc, (VrxsIirState* pState, const Vrx32fc* pDlyLine))
/* line of a state 0x49493035, 0x49493036 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine32f_16s, (const VrxsIirState* pState, Vrx32f* pDlyLine))
/* line of a state 0x49493035, 0x49493036 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine32f_16s, (VrxsIirState* pState, const Vrx32f* pDlyLine))
/* line of a state 0x49493037, 0x49493038 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine32fc_16sc, (const VrxsIirState* pState, Vrx32fc* pDlyLine))
/* line of a state 0x49493037, 0x49493038 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine32fc_16sc, (VrxsIirState* pState, const Vrx32fc* pDlyLine))
/* line of a state 0x49493133, 0x49493134 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine_64f, (const VrxsIirState* pState, Vrx64f* pDlyLine))
/* line of a state 0x49493133, 0x49493134 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine_64f, (VrxsIirState* pState, const Vrx64f* pDlyLine))
/* line of a state 0x49493135, 0x49493136 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine_64fc, (const VrxsIirState* pState, Vrx64fc* pDlyLine))
/* line of a state 0x49493135, 0x49493136 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine_64fc, (VrxsIirState* pState, const Vrx64fc* pDlyLine))
/* line of a state 0x49493137, 0x49493138 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64f_32f, (const VrxsIirState* pState, Vrx64f* pDlyLine))
/* line of a state 0x49493137, 0x49493138 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64f_32f, (VrxsIirState* pState, const Vrx64f* pDlyLine))
/* line of a state 0x49493139, 0x49493230 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64fc_32fc, (const VrxsIirState* pState, Vrx64fc* pDlyLine))
/* line of a state 0x49493139, 0x49493230 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64fc_32fc, (VrxsIirState* pState, const Vrx64fc* pDlyLine))
/* line of a state 0x49493231, 0x49493232 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64f_32s, (const VrxsIirState* pState, Vrx64f* pDlyLine))
/* line of a state 0x49493231, 0x49493232 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64f_32s, (VrxsIirState* pState, const Vrx64f* pDlyLine))
/* line of a state 0x49493233, 0x49493234 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64fc_32sc, (const VrxsIirState* pState, Vrx64fc* pDlyLine))
/* line of a state 0x49493233, 0x49493234 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64fc_32sc, (VrxsIirState* pState, const Vrx64fc* pDlyLine))
/* line of a state 0x49493235, 0x49493236 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64f_16s, (const VrxsIirState* pState, Vrx64f* pDlyLine))
/* line of a state 0x49493235, 0x49493236 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64f_16s, (VrxsIirState* pState, const Vrx64f* pDlyLine))
/* line of a state 0x49493237, 0x49493238 out to pDlyLine */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64fc_16sc, (const VrxsIirState* pState, Vrx64fc* pDlyLine))
/* line of a state 0x49493237, 0x49493238 from pDlyLine (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64fc_16sc, (VrxsIirState* pState, const Vrx64fc* pDlyLine))
/* the 0x49493330 line as 4*numBq 32s, rounded to nearest even and saturated */
VRXAPI(VrxStatus, vrxsIIRGetDlyLine64f_DF1_32s, (const VrxsIirState* pState, Vrx32s* pDlyLine))
/* the 0x49493330 line from 4*numBq 32s (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSetDlyLine64f_DF1_32s, (VrxsIirState* pState, const Vrx32s* pDlyLine))


/* ---------------------------------------------------- end of IIR filters */

/* ----------------------------------------- DFT of any length and Hilbert */

/* DFT of any length N. A plan picks one path at Init from N alone: straight-line
 * kernels up to 16, the FFT for powers of two, a prime-factor engine, direct
 * summation, or a convolution through a longer DFT. Flags and packed real forms
 * (CCS, Pack, Perm; odd N: Pack equals Perm) are those of the FFT. Every call takes
 * the caller's pSpecMem and rounds it up to 64 bytes itself. Size query and Init
 * check: null -8, length below 1 -6, flag not 1/2/4/8 -16; a power of two passes
 * the FFT's statuses (e.g. -15 above its order limit); N above 134217727 (32-bit)
 * or 67108863 (64-bit), or a length no path takes, -6; Init then needs pInitBuf
 * (-8) unless N <= 16 or N is a power of two. A failed Init leaves the identity
 * word set. Transforms: null plan -8, wrong plan -17, null data or a null pBuf
 * when the plan needs one -8; the convolution path passes its inner statuses.
 * pSrc may equal pDst. */

/* sizes in bytes of the plan, the init buffer and the work buffer of a
 * complex DFT plan (interleaved data) of the given length and flag */
VRXAPI(VrxStatus, vrxsDFTGetSize_C_32fc, (int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* sizes of a complex DFT plan for split (re, im) arrays */
VRXAPI(VrxStatus, vrxsDFTGetSize_C_32f, (int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* sizes of a real DFT plan */
VRXAPI(VrxStatus, vrxsDFTGetSize_R_32f, (int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* sizes of a 64-bit complex DFT plan (interleaved data) */
VRXAPI(VrxStatus, vrxsDFTGetSize_C_64fc, (int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* sizes of a 64-bit complex DFT plan for split arrays */
VRXAPI(VrxStatus, vrxsDFTGetSize_C_64f, (int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* sizes of a 64-bit real DFT plan */
VRXAPI(VrxStatus, vrxsDFTGetSize_R_64f, (int length, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))

/* builds a complex DFT plan (interleaved data) in pSpecMem; pInitBuf is
 * scratch of the reported init size, free again after the call */
VRXAPI(VrxStatus, vrxsDFTInit_C_32fc, (int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* builds a complex DFT plan for split arrays in pSpecMem */
VRXAPI(VrxStatus, vrxsDFTInit_C_32f, (int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* builds a real DFT plan in pSpecMem */
VRXAPI(VrxStatus, vrxsDFTInit_R_32f, (int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* builds a 64-bit complex DFT plan (interleaved data) in pSpecMem */
VRXAPI(VrxStatus, vrxsDFTInit_C_64fc, (int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* builds a 64-bit complex DFT plan for split arrays in pSpecMem */
VRXAPI(VrxStatus, vrxsDFTInit_C_64f, (int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* builds a 64-bit real DFT plan in pSpecMem */
VRXAPI(VrxStatus, vrxsDFTInit_R_64f, (int length, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))

/* forward complex DFT, X[k] = sum x[n] exp(-2*pi*i*n*k/N); plan is the pSpecMem of Init */
VRXAPI(VrxStatus, vrxsDFTFwd_CToC_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsDftPlan_C_32fc* plan, Vrx8u* pBuf))
/* inverse complex DFT, x[n] = sum X[k] exp(+2*pi*i*n*k/N), scaled by the plan's flag */
VRXAPI(VrxStatus, vrxsDFTInv_CToC_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsDftPlan_C_32fc* plan, Vrx8u* pBuf))
/* forward complex DFT of split arrays */
VRXAPI(VrxStatus, vrxsDFTFwd_CToC_32f, (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsDftPlan_C_32f* plan, Vrx8u* pBuf))
/* inverse complex DFT of split arrays */
VRXAPI(VrxStatus, vrxsDFTInv_CToC_32f, (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsDftPlan_C_32f* plan, Vrx8u* pBuf))
/* forward 64-bit complex DFT */
VRXAPI(VrxStatus, vrxsDFTFwd_CToC_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsDftPlan_C_64fc* plan, Vrx8u* pBuf))
/* inverse 64-bit complex DFT */
VRXAPI(VrxStatus, vrxsDFTInv_CToC_64fc, (const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsDftPlan_C_64fc* plan, Vrx8u* pBuf))
/* forward 64-bit complex DFT of split arrays */
VRXAPI(VrxStatus, vrxsDFTFwd_CToC_64f, (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsDftPlan_C_64f* plan, Vrx8u* pBuf))
/* inverse 64-bit complex DFT of split arrays */
VRXAPI(VrxStatus, vrxsDFTInv_CToC_64f, (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsDftPlan_C_64f* plan, Vrx8u* pBuf))

/* forward real DFT of N reals into CCS (N+2 reals for even N, N+1 for odd N) */
VRXAPI(VrxStatus, vrxsDFTFwd_RToCCS_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf))
/* forward real DFT into Pack (N reals) */
VRXAPI(VrxStatus, vrxsDFTFwd_RToPack_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf))
/* forward real DFT into Perm (N reals) */
VRXAPI(VrxStatus, vrxsDFTFwd_RToPerm_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf))
/* inverse real DFT of a CCS spectrum into N reals */
VRXAPI(VrxStatus, vrxsDFTInv_CCSToR_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf))
/* inverse real DFT of a Pack spectrum into N reals */
VRXAPI(VrxStatus, vrxsDFTInv_PackToR_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf))
/* inverse real DFT of a Perm spectrum into N reals */
VRXAPI(VrxStatus, vrxsDFTInv_PermToR_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDftPlan_R_32f* plan, Vrx8u* pBuf))
/* 64-bit forward real DFT into CCS */
VRXAPI(VrxStatus, vrxsDFTFwd_RToCCS_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf))
/* 64-bit forward real DFT into Pack */
VRXAPI(VrxStatus, vrxsDFTFwd_RToPack_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf))
/* 64-bit forward real DFT into Perm */
VRXAPI(VrxStatus, vrxsDFTFwd_RToPerm_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf))
/* 64-bit inverse real DFT of a CCS spectrum */
VRXAPI(VrxStatus, vrxsDFTInv_CCSToR_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf))
/* 64-bit inverse real DFT of a Pack spectrum */
VRXAPI(VrxStatus, vrxsDFTInv_PackToR_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf))
/* 64-bit inverse real DFT of a Perm spectrum */
VRXAPI(VrxStatus, vrxsDFTInv_PermToR_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDftPlan_R_64f* plan, Vrx8u* pBuf))

/* Hilbert transform: the analytic signal of N reals (real part the input,
 * imaginary part its Hilbert transform). Sizes: plan and a buffer that both
 * Init and the transform use. */
VRXAPI(VrxStatus, vrxsHilbertGetSize_32f32fc, (int length, VrxAlgHint hint, int* pSpecSize, int* pBufSize))
/* builds the Hilbert plan in pSpec with pBuf as scratch; -8 for a null pointer,
 * then -6 for length below 1; the inner DFT statuses pass */
VRXAPI(VrxStatus, vrxsHilbertInit_32f32fc, (int length, VrxAlgHint hint, VrxsHilbertPlan* pSpec, Vrx8u* pBuf))
/* analytic signal of pSrc (N reals) into pDst (N complex); all four pointers are
 * required (-8), a plan of another kind gives -17, inner DFT statuses pass */
VRXAPI(VrxStatus, vrxsHilbert_32f32fc, (const Vrx32f* pSrc, Vrx32fc* pDst, const VrxsHilbertPlan* plan, Vrx8u* pBuf))

/* ------------------------------------------------ end of DFT and Hilbert */

/* ------------------------------------------------------ DCT and Goertzel */

/* Orthonormal DCT: forward y[k] = c_k sum x[n] cos((2n+1) k pi/(2N)), c_0 = 1/sqrt(N),
 * c_k = sqrt(2/N); the inverse is its transpose. Lengths up to 8 that are powers of two run
 * kernels, larger powers of two a real FFT, other lengths up to 35 (32f) or 45 (64f) direct
 * sums, the rest a chirp convolution through a complex FFT. Sizes in bytes; the plan aligns
 * itself in pSpecMem; the work buffer is rounded up to 64 bytes by each call. */

/* sizes of a forward plan of the given length (-6 outside every path; the chirp path ends
 * at 33554431 (32f) or 16777215 (64f) here, below the Init limit) */
VRXAPI(VrxStatus, vrxsDCTFwdGetSize_32f, (int length, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* sizes of an inverse plan: the same as the forward plan's */
VRXAPI(VrxStatus, vrxsDCTInvGetSize_32f, (int length, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* double-precision forward plan sizes */
VRXAPI(VrxStatus, vrxsDCTFwdGetSize_64f, (int length, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* double-precision inverse plan sizes: those of the forward plan */
VRXAPI(VrxStatus, vrxsDCTInvGetSize_64f, (int length, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
/* builds a forward plan in pSpecMem and stores its address in *ppPlan; the length is tested
 * first (-6), then ppPlan and pSpecMem (-8), then pInitBuf when the init size is positive
 * (-8); statuses of the inner FFT plan pass through */
VRXAPI(VrxStatus, vrxsDCTFwdInit_32f, (VrxsDctPlan_Fwd_32f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* builds an inverse plan; checks as for the forward plan */
VRXAPI(VrxStatus, vrxsDCTInvInit_32f, (VrxsDctPlan_Inv_32f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* double-precision forward plan; checks as for the 32f form */
VRXAPI(VrxStatus, vrxsDCTFwdInit_64f, (VrxsDctPlan_Fwd_64f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* double-precision inverse plan; checks as for the 32f form */
VRXAPI(VrxStatus, vrxsDCTInvInit_64f, (VrxsDctPlan_Inv_64f** ppPlan, int length, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
/* forward DCT of pSrc into pDst (may be the same): plan, pSrc or pDst null -8, then a plan
 * of another kind -17, then pBuf null when the plan needs work -8 */
VRXAPI(VrxStatus, vrxsDCTFwd_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDctPlan_Fwd_32f* plan, Vrx8u* pBuf))
/* forward DCT in place; checks as for vrxsDCTFwd_32f */
VRXAPI(VrxStatus, vrxsDCTFwd_32f_I, (Vrx32f* pSrcDst, const VrxsDctPlan_Fwd_32f* plan, Vrx8u* pBuf))
/* inverse DCT of pSrc into pDst; checks as for vrxsDCTFwd_32f */
VRXAPI(VrxStatus, vrxsDCTInv_32f, (const Vrx32f* pSrc, Vrx32f* pDst, const VrxsDctPlan_Inv_32f* plan, Vrx8u* pBuf))
/* inverse DCT in place */
VRXAPI(VrxStatus, vrxsDCTInv_32f_I, (Vrx32f* pSrcDst, const VrxsDctPlan_Inv_32f* plan, Vrx8u* pBuf))
/* double-precision forward DCT; checks as for vrxsDCTFwd_32f */
VRXAPI(VrxStatus, vrxsDCTFwd_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDctPlan_Fwd_64f* plan, Vrx8u* pBuf))
/* double-precision forward DCT in place */
VRXAPI(VrxStatus, vrxsDCTFwd_64f_I, (Vrx64f* pSrcDst, const VrxsDctPlan_Fwd_64f* plan, Vrx8u* pBuf))
/* double-precision inverse DCT */
VRXAPI(VrxStatus, vrxsDCTInv_64f, (const Vrx64f* pSrc, Vrx64f* pDst, const VrxsDctPlan_Inv_64f* plan, Vrx8u* pBuf))
/* double-precision inverse DCT in place */
VRXAPI(VrxStatus, vrxsDCTInv_64f_I, (Vrx64f* pSrcDst, const VrxsDctPlan_Inv_64f* plan, Vrx8u* pBuf))

/* Goertzel: the spectral value at rFreq (a fraction of the sample rate, 0 <= rFreq < 1, else
 * -27) as exp(i theta len) sum x[n] exp(-i theta n), theta = 2 pi rFreq: e^{i theta} w1 - w2,
 * the phase one step past the last sample. *pVal is written only on success. */

/* real 32-bit input; c and s rounded to float, four samples a step */
VRXAPI(VrxStatus, vrxsGoertz_32f, (const Vrx32f* pSrc, int len, Vrx32fc* pVal, Vrx32f rFreq))
/* complex 32-bit input */
VRXAPI(VrxStatus, vrxsGoertz_32fc, (const Vrx32fc* pSrc, int len, Vrx32fc* pVal, Vrx32f rFreq))
/* real 64-bit input, recurrence in double */
VRXAPI(VrxStatus, vrxsGoertz_64f, (const Vrx64f* pSrc, int len, Vrx64fc* pVal, Vrx64f rFreq))
/* complex 64-bit input */
VRXAPI(VrxStatus, vrxsGoertz_64fc, (const Vrx64fc* pSrc, int len, Vrx64fc* pVal, Vrx64f rFreq))
/* real 16-bit input: the float result times 2^-scaleFactor, saturated, rounded to nearest
 * whatever the caller's rounding mode */
VRXAPI(VrxStatus, vrxsGoertz_16s_Sfs, (const Vrx16s* pSrc, int len, Vrx16sc* pVal, Vrx32f rFreq, int scaleFactor))
/* complex 16-bit input; scaled as vrxsGoertz_16s_Sfs */
VRXAPI(VrxStatus, vrxsGoertz_16sc_Sfs, (const Vrx16sc* pSrc, int len, Vrx16sc* pVal, Vrx32f rFreq, int scaleFactor))


/* ----------------------------------------------- end of DCT and Goertzel */

/* ---------------------------------------------------- wavelet transforms */

/* Streaming two-band wavelet transforms with the caller's filters.
   Forward band, taps h[0..taps), offset o >= 0:  y[n] = sum_k h[k] x[2n - o - k];
   offset -1 takes the odd phase, y[n] = sum_k h[k] x[2n + 1 - k]. The low band
   and the high band run over the same source, each with its own taps and offset.
   Inverse band, taps g: the band u is delayed by offset/2 samples (C division)
   and out[2n] = sum_j g[2j] u[n - j], out[2n + 1] = sum_j g[2j + 1] u[n - j];
   the two bands are added (low first). Odd-offset rule of the inverse: offset
   -1 delays the output by one sample (out[2n] takes the odd taps over
   u[n - 1 - j], out[2n + 1] the even taps over u[n - j]); odd offsets >= 1
   act as offset - 1. So with synthesis taps that reconstruct for offsets 0/0,
   forward offset -1 with inverse offset -1 reconstructs at the same delay.
   Delay lines (Get/Set, oldest sample first, as 32f values):
     forward band: taps - 1 + offset samples (offset -1 counting as 0);
     inverse band: ceil(taps/2) - 1 + offset/2 band samples, and floor(taps/2)
     for offset -1.
   State size: per band, forward
     b = a16(kernel) + a16(8 taps) + a16(4 taps) + 64 + a16(8 offset) (offset > 0)
   with the forward kernel size 4 taps + 32; inverse, h = floor((taps+1)/2),
   g = offset/2,
     b = a16(8h) + a16(4h) + kernel + 64 + a16(4 taps) + 16 (even taps only)
         + (a16(8g) + 16 when g != 0) + 48
   with the inverse kernel size a16(4 floor(taps/2)); the state is
   (0 for selector 13, else 4096) + a64(b_low + b_high + 48) + 64 bytes, where
   a16, a64 round up to 16 and 64. Selectors: 13 32f, 1 8u, 5 16u, 7 16s.
   A state is written by every run: one thread at a time. */

/* state size for the forward transform of source type srcType; *pSize is
   0 after any failure. -12 unknown selector, -6 a length below 1 (or a size
   beyond int), -35 an offset below -1 */
VRXAPI(VrxStatus, vrxsWTFwdGetSize, (int srcType, int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize))
/* state size for the inverse transform of result type dstType; as WTFwdGetSize */
VRXAPI(VrxStatus, vrxsWTInvGetSize, (int dstType, int lenLow, int offsLow, int lenHigh, int offsHigh, int* pSize))

/* forward state in the caller's block: copies the taps, zeroes every line.
   The identity word is written before the -6 and -35 checks and stays on them */
VRXAPI(VrxStatus, vrxsWTFwdInit_32f,    (VrxsWtFwdState_32f* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* forward state with an 8u source; as WTFwdInit_32f */
VRXAPI(VrxStatus, vrxsWTFwdInit_8u32f,  (VrxsWtFwdState_8u32f* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* forward state with a 16u source; as WTFwdInit_32f */
VRXAPI(VrxStatus, vrxsWTFwdInit_16u32f, (VrxsWtFwdState_16u32f* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* forward state with a 16s source; as WTFwdInit_32f */
VRXAPI(VrxStatus, vrxsWTFwdInit_16s32f, (VrxsWtFwdState_16s32f* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* inverse state in the caller's block: taps split into even and odd sets,
   every line zero; identity word written before the -6 and -35 checks */
VRXAPI(VrxStatus, vrxsWTInvInit_32f,    (VrxsWtInvState_32f* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* inverse state with an 8u result; as WTInvInit_32f */
VRXAPI(VrxStatus, vrxsWTInvInit_32f8u,  (VrxsWtInvState_32f8u* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* inverse state with a 16u result; as WTInvInit_32f */
VRXAPI(VrxStatus, vrxsWTInvInit_32f16u, (VrxsWtInvState_32f16u* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))
/* inverse state with a 16s result; as WTInvInit_32f */
VRXAPI(VrxStatus, vrxsWTInvInit_32f16s, (VrxsWtInvState_32f16s* pState, const Vrx32f* pTapsLow, int lenLow, int offsLow, const Vrx32f* pTapsHigh, int lenHigh, int offsHigh))

/* forward transform of 2 dstLen samples into dstLen low and dstLen high
   values; blocks of any size give the bits of one call. Checks: pointers -8,
   the state -17, then dstLen -6 */
VRXAPI(VrxStatus, vrxsWTFwd_32f,    (const Vrx32f* pSrc, Vrx32f* pDstLow, Vrx32f* pDstHigh, int dstLen, VrxsWtFwdState_32f* pState))
/* forward transform of 8u samples, converted to 32f 1024 at a time; as WTFwd_32f */
VRXAPI(VrxStatus, vrxsWTFwd_8u32f,  (const Vrx8u* pSrc, Vrx32f* pDstLow, Vrx32f* pDstHigh, int dstLen, VrxsWtFwdState_8u32f* pState))
/* forward transform of 16u samples; as WTFwd_8u32f */
VRXAPI(VrxStatus, vrxsWTFwd_16u32f, (const Vrx16u* pSrc, Vrx32f* pDstLow, Vrx32f* pDstHigh, int dstLen, VrxsWtFwdState_16u32f* pState))
/* forward transform of 16s samples; as WTFwd_8u32f */
VRXAPI(VrxStatus, vrxsWTFwd_16s32f, (const Vrx16s* pSrc, Vrx32f* pDstLow, Vrx32f* pDstHigh, int dstLen, VrxsWtFwdState_16s32f* pState))
/* inverse transform of srcLen low and srcLen high values into 2 srcLen
   samples. Checks: pointers -8, the state -17, then srcLen -6 */
VRXAPI(VrxStatus, vrxsWTInv_32f,    (const Vrx32f* pSrcLow, const Vrx32f* pSrcHigh, int srcLen, Vrx32f* pDst, VrxsWtInvState_32f* pState))
/* inverse transform into 8u: the 32f result rounded to nearest (ties even)
   and saturated, 1024 samples at a time; as WTInv_32f */
VRXAPI(VrxStatus, vrxsWTInv_32f8u,  (const Vrx32f* pSrcLow, const Vrx32f* pSrcHigh, int srcLen, Vrx8u* pDst, VrxsWtInvState_32f8u* pState))
/* inverse transform into 16u; as WTInv_32f8u */
VRXAPI(VrxStatus, vrxsWTInv_32f16u, (const Vrx32f* pSrcLow, const Vrx32f* pSrcHigh, int srcLen, Vrx16u* pDst, VrxsWtInvState_32f16u* pState))
/* inverse transform into 16s; as WTInv_32f8u */
VRXAPI(VrxStatus, vrxsWTInv_32f16s, (const Vrx32f* pSrcLow, const Vrx32f* pSrcHigh, int srcLen, Vrx16s* pDst, VrxsWtInvState_32f16s* pState))

/* Delay lines. Set writes each band's line (length above), oldest first, and
   restarts the rings; a null line means zeros. Get reads them back in the same
   order and needs both lines. Checks: pointers -8 (pState only for Set),
   then the state -17 */
/* sets the forward 32f lines */
VRXAPI(VrxStatus, vrxsWTFwdSetDlyLine_32f,    (VrxsWtFwdState_32f* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* sets the forward 8u32f lines */
VRXAPI(VrxStatus, vrxsWTFwdSetDlyLine_8u32f,  (VrxsWtFwdState_8u32f* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* sets the forward 16u32f lines */
VRXAPI(VrxStatus, vrxsWTFwdSetDlyLine_16u32f, (VrxsWtFwdState_16u32f* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* sets the forward 16s32f lines */
VRXAPI(VrxStatus, vrxsWTFwdSetDlyLine_16s32f, (VrxsWtFwdState_16s32f* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* reads the forward 32f lines */
VRXAPI(VrxStatus, vrxsWTFwdGetDlyLine_32f,    (const VrxsWtFwdState_32f* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* reads the forward 8u32f lines */
VRXAPI(VrxStatus, vrxsWTFwdGetDlyLine_8u32f,  (const VrxsWtFwdState_8u32f* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* reads the forward 16u32f lines */
VRXAPI(VrxStatus, vrxsWTFwdGetDlyLine_16u32f, (const VrxsWtFwdState_16u32f* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* reads the forward 16s32f lines */
VRXAPI(VrxStatus, vrxsWTFwdGetDlyLine_16s32f, (const VrxsWtFwdState_16s32f* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* sets the inverse 32f lines */
VRXAPI(VrxStatus, vrxsWTInvSetDlyLine_32f,    (VrxsWtInvState_32f* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* sets the inverse 32f8u lines */
VRXAPI(VrxStatus, vrxsWTInvSetDlyLine_32f8u,  (VrxsWtInvState_32f8u* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* sets the inverse 32f16u lines */
VRXAPI(VrxStatus, vrxsWTInvSetDlyLine_32f16u, (VrxsWtInvState_32f16u* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* sets the inverse 32f16s lines */
VRXAPI(VrxStatus, vrxsWTInvSetDlyLine_32f16s, (VrxsWtInvState_32f16s* pState, const Vrx32f* pDlyLow, const Vrx32f* pDlyHigh))
/* reads the inverse 32f lines */
VRXAPI(VrxStatus, vrxsWTInvGetDlyLine_32f,    (const VrxsWtInvState_32f* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* reads the inverse 32f8u lines */
VRXAPI(VrxStatus, vrxsWTInvGetDlyLine_32f8u,  (const VrxsWtInvState_32f8u* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* reads the inverse 32f16u lines */
VRXAPI(VrxStatus, vrxsWTInvGetDlyLine_32f16u, (const VrxsWtInvState_32f16u* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))
/* reads the inverse 32f16s lines */
VRXAPI(VrxStatus, vrxsWTInvGetDlyLine_32f16s, (const VrxsWtInvState_32f16s* pState, Vrx32f* pDlyLow, Vrx32f* pDlyHigh))

/* One-step Haar: high[i] = (x[2i+1] - x[2i]) * 0.5, low[i] = high[i] + x[2i];
   an odd len gives low[len/2] = x[len-1] and no high value. len counts the
   source samples */
VRXAPI(VrxStatus, vrxsWTHaarFwd_32f, (const Vrx32f* pSrc, int len, Vrx32f* pDstLow, Vrx32f* pDstHigh))
/* Haar forward in double precision; as WTHaarFwd_32f */
VRXAPI(VrxStatus, vrxsWTHaarFwd_64f, (const Vrx64f* pSrc, int len, Vrx64f* pDstLow, Vrx64f* pDstHigh))
/* Haar forward on 16s: low = (x[2i] + x[2i+1]) * 2^-(sf+1), high =
   (x[2i+1] - x[2i]) * 2^-(sf+1), ties to even, saturated (sf -1: plain sums);
   an odd len gives low = 2 x[len-1] scaled alike */
VRXAPI(VrxStatus, vrxsWTHaarFwd_16s_Sfs, (const Vrx16s* pSrc, int len, Vrx16s* pDstLow, Vrx16s* pDstHigh, int scaleFactor))
/* Haar inverse: x[2i] = low[i] - high[i], x[2i+1] = low[i] + high[i]; an odd
   len gives x[len-1] = low[len/2]. len counts the result samples */
VRXAPI(VrxStatus, vrxsWTHaarInv_32f, (const Vrx32f* pSrcLow, const Vrx32f* pSrcHigh, Vrx32f* pDst, int len))
/* Haar inverse in double precision; as WTHaarInv_32f */
VRXAPI(VrxStatus, vrxsWTHaarInv_64f, (const Vrx64f* pSrcLow, const Vrx64f* pSrcHigh, Vrx64f* pDst, int len))
/* Haar inverse on 16s: low - high and low + high (odd len: low) times 2^-sf,
   ties to even, saturated */
VRXAPI(VrxStatus, vrxsWTHaarInv_16s_Sfs, (const Vrx16s* pSrcLow, const Vrx16s* pSrcHigh, Vrx16s* pDst, int len, int scaleFactor))

/* --------------------------------------------- end of wavelet transforms */

/* -------------------------------------------- sparse FIR and IIR filters */

/* Sparse FIR: y[n] = sum over k of taps[k] * x[n - pos[k]], only the nonzero
   taps stored. Positions (Vrx32s) start at 0 or above and rise strictly;
   order = the last position = the delay-line length (the last order inputs,
   oldest first; a null line means zeros). Each output is an FMA chain over
   the taps in position order from +0, in single precision, so a signal gives
   the same bits however it is cut into calls. The state aligns itself inside
   pBuf; a run writes it, so it belongs to one thread at a time.
   Statuses: nzTapsLen below 1 -26 (vrxErrFirLen); a negative or not strictly
   rising position, or order < nzTapsLen - 1, -194 (vrxErrSparseTaps); a state
   beyond the int range -9. Init writes nothing, *ppState included, on failure.
   Run: pSrc, pDst, pState -8, len -6, then the state's word -17; pSrc == pDst
   (in place) is allowed, other overlaps are not. */
/* state size in bytes for nzTapsLen real taps up to position order */
VRXAPI(VrxStatus, vrxsFIRSparseGetStateSize_32f, (int nzTapsLen, int order, int* pSize))
/* state size in bytes for nzTapsLen complex taps up to position order */
VRXAPI(VrxStatus, vrxsFIRSparseGetStateSize_32fc, (int nzTapsLen, int order, int* pSize))
/* builds the state in pBuf from the taps, their positions and the line (null: zeros) */
VRXAPI(VrxStatus, vrxsFIRSparseInit_32f, (VrxsFirSparseState_32f** ppState, const Vrx32f* pNZTaps, const Vrx32s* pNZTapPos, int nzTapsLen, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* complex form of FIRSparseInit_32f */
VRXAPI(VrxStatus, vrxsFIRSparseInit_32fc, (VrxsFirSparseState_32fc** ppState, const Vrx32fc* pNZTaps, const Vrx32s* pNZTapPos, int nzTapsLen, const Vrx32fc* pDlyLine, Vrx8u* pBuf))
/* filters len samples of pSrc into pDst, history from the state */
VRXAPI(VrxStatus, vrxsFIRSparse_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsFirSparseState_32f* pState))
/* complex form of FIRSparse_32f */
VRXAPI(VrxStatus, vrxsFIRSparse_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsFirSparseState_32fc* pState))
/* copies the line (order samples, oldest first) out; pState, pDlyLine -8, then -17 */
VRXAPI(VrxStatus, vrxsFIRSparseGetDlyLine_32f, (const VrxsFirSparseState_32f* pState, Vrx32f* pDlyLine))
/* complex form of FIRSparseGetDlyLine_32f */
VRXAPI(VrxStatus, vrxsFIRSparseGetDlyLine_32fc, (const VrxsFirSparseState_32fc* pState, Vrx32fc* pDlyLine))
/* sets the line (order samples, oldest first; null: zeros); pState -8, then -17 */
VRXAPI(VrxStatus, vrxsFIRSparseSetDlyLine_32f, (VrxsFirSparseState_32f* pState, const Vrx32f* pDlyLine))
/* complex form of FIRSparseSetDlyLine_32f */
VRXAPI(VrxStatus, vrxsFIRSparseSetDlyLine_32fc, (VrxsFirSparseState_32fc* pState, const Vrx32fc* pDlyLine))

/* Sparse IIR: y[n] = sum b[k] * x[n - p[k]] - sum a[j] * y[n - q[j]].
   pNZTaps and pNZTapPos hold the feed-forward set (nzTapsLen1 entries,
   positions from 0), then the feedback set (nzTapsLen2 entries, positions
   from 1), each strictly rising. order1 = last feed-forward position, order2
   = last feedback position; the line is order1 inputs then order2 outputs,
   each oldest first (null: zeros). Per output: the feed-forward FMA chain
   from +0, then one fused a[j] * y subtraction per feedback tap, in position
   order, single precision. Statuses: a count below 1, a feedback position
   below 1, positions not strictly rising in either set, order1 <
   nzTapsLen1 - 1 or order2 < nzTapsLen2 (size query) -194; a state beyond
   the int range -9. Run checks and in-place use as FIRSparse. */
/* state size in bytes for the two tap counts and orders */
VRXAPI(VrxStatus, vrxsIIRSparseGetStateSize_32f, (int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pSize))
/* complex form of IIRSparseGetStateSize_32f */
VRXAPI(VrxStatus, vrxsIIRSparseGetStateSize_32fc, (int nzTapsLen1, int nzTapsLen2, int order1, int order2, int* pSize))
/* builds the state in pBuf: taps and positions feed-forward then feedback, line (null: zeros) */
VRXAPI(VrxStatus, vrxsIIRSparseInit_32f, (VrxsIirSparseState_32f** ppState, const Vrx32f* pNZTaps, const Vrx32s* pNZTapPos, int nzTapsLen1, int nzTapsLen2, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* complex form of IIRSparseInit_32f */
VRXAPI(VrxStatus, vrxsIIRSparseInit_32fc, (VrxsIirSparseState_32fc** ppState, const Vrx32fc* pNZTaps, const Vrx32s* pNZTapPos, int nzTapsLen1, int nzTapsLen2, const Vrx32fc* pDlyLine, Vrx8u* pBuf))
/* filters len samples of pSrc into pDst, history from the state */
VRXAPI(VrxStatus, vrxsIIRSparse_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirSparseState_32f* pState))
/* complex form of IIRSparse_32f */
VRXAPI(VrxStatus, vrxsIIRSparse_32fc, (const Vrx32fc* pSrc, Vrx32fc* pDst, int len, VrxsIirSparseState_32fc* pState))
/* copies the line (order1 inputs, then order2 outputs) out; pState, pDlyLine -8, then -17 */
VRXAPI(VrxStatus, vrxsIIRSparseGetDlyLine_32f, (const VrxsIirSparseState_32f* pState, Vrx32f* pDlyLine))
/* complex form of IIRSparseGetDlyLine_32f */
VRXAPI(VrxStatus, vrxsIIRSparseGetDlyLine_32fc, (const VrxsIirSparseState_32fc* pState, Vrx32fc* pDlyLine))
/* sets the line (order1 inputs, then order2 outputs; null: zeros); pState -8, then -17 */
VRXAPI(VrxStatus, vrxsIIRSparseSetDlyLine_32f, (VrxsIirSparseState_32f* pState, const Vrx32f* pDlyLine))
/* complex form of IIRSparseSetDlyLine_32f */
VRXAPI(VrxStatus, vrxsIIRSparseSetDlyLine_32fc, (VrxsIirSparseState_32fc* pState, const Vrx32fc* pDlyLine))

/* ------------------------------------------------- end of sparse filters */

/* ----------------------------------------- IIR design and zero-phase IIR */

/*
 * IIR design: Butterworth (vrxIirGenButterworth) or Chebyshev type I
 * (vrxIirGenChebyshev1) filters by the bilinear transform with prewarped
 * edges, as a transfer function in the AR tap layout b[0..N], a[0..N] with
 * a[0] = 1 (2N+2 values), ready for vrxsIIRInit_64f. Frequencies are
 * fractions of the sampling rate, strictly between 0 and 0.5; rRipple is the
 * Chebyshev pass-band ripple in dB, in (0, 30], ignored by Butterworth.
 * The design runs in long double with the x87 unit at 64-bit precision and
 * its exceptions masked; the caller's x87 control word and MXCSR control
 * bits are as they were on return.
 * Checks, in this order: pTaps null -8; order outside 1..12 -206; a
 * frequency outside (0, 0.5), or rLowFreq >= rHighFreq, -208; type not of
 * the enumeration -5; Chebyshev ripple outside (0, 30] -209. -182 and -195
 * are never returned (there is no linear solve). Nothing is written on failure.
 */
typedef int VrxIirGenType;
enum { vrxIirGenButterworth = 0, vrxIirGenChebyshev1 = 1 };
/* low-pass of order N, cut-off rFreq: writes 2N+2 values */
VRXAPI(VrxStatus, vrxsIIRGenLowpass_64f, (Vrx64f rFreq, Vrx64f rRipple, int order, Vrx64f* pTaps, VrxIirGenType type))
/* high-pass of order N, cut-off rFreq: writes 2N+2 values */
VRXAPI(VrxStatus, vrxsIIRGenHighpass_64f, (Vrx64f rFreq, Vrx64f rRipple, int order, Vrx64f* pTaps, VrxIirGenType type))
/* band-pass from the order-N prototype, pass band rLowFreq..rHighFreq: design
 * order 2N, writes 4N+2 values */
VRXAPI(VrxStatus, vrxsIIRGenBandpass_64f, (Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f rRipple, int order, Vrx64f* pTaps, VrxIirGenType type))
/* band-stop from the order-N prototype, stop band rLowFreq..rHighFreq: design
 * order 2N, writes 4N+2 values */
VRXAPI(VrxStatus, vrxsIIRGenBandstop_64f, (Vrx64f rLowFreq, Vrx64f rHighFreq, Vrx64f rRipple, int order, Vrx64f* pTaps, VrxIirGenType type))

/*
 * Zero-phase IIR filtering: the AR filter of order N (taps b[0..N] then
 * a[0..N], 2N+2 values in the arithmetic type, a[0] != 0) run forward, then
 * backward over the result, on the signal extended at both ends by
 * E = min(3N, len-1) samples of odd reflection (2x[0] - x[E-i] before,
 * 2x[len-1] - x[len-2-i] after); each pass starts from the steady-state
 * line of a unit step scaled by the pass's first sample; the E samples of
 * each end are dropped. Three kinds: _32f (float samples and arithmetic,
 * word ID01), 64f_32f (float samples, double taps and arithmetic, ID02),
 * _64f (double, ID03). The state holds the taps, the steady-state line,
 * both extensions and two blocks of 1024 work elements; nothing is taken
 * from the heap, and the forward pass's output lives in the destination
 * (in 64f_32f: rounded to float between the passes). A state is written by
 * every run: one thread at a time.
 * GetStateSize: pSize null -8, order < 1 -25.
 * Init: ppState, pTaps or pBuf null -8, order < 1 -25, a[0] = 0 -10 (nothing
 * written). The state starts at the first 64-byte boundary of pBuf.
 * Run: pointers -8, len < 1 -6, a state of another kind -17, then
 * len < 3N -234.
 */
/* bytes of the ID01 state (float) for order N */
VRXAPI(VrxStatus, vrxsIIRIIRGetStateSize_32f, (int order, int* pSize))
/* bytes of the ID02 state (double arithmetic, float samples) for order N */
VRXAPI(VrxStatus, vrxsIIRIIRGetStateSize64f_32f, (int order, int* pSize))
/* bytes of the ID03 state (double) for order N */
VRXAPI(VrxStatus, vrxsIIRIIRGetStateSize_64f, (int order, int* pSize))
/* Init of the ID01 state from float taps (b[0..N], a[0..N]) */
VRXAPI(VrxStatus, vrxsIIRIIRInit_32f, (VrxsIirIirState_32f** ppState, const Vrx32f* pTaps, int order, Vrx8u* pBuf))
/* Init of the ID02 state from double taps (b[0..N], a[0..N]) */
VRXAPI(VrxStatus, vrxsIIRIIRInit64f_32f, (VrxsIirIirState64f_32f** ppState, const Vrx64f* pTaps, int order, Vrx8u* pBuf))
/* Init of the ID03 state from double taps (b[0..N], a[0..N]) */
VRXAPI(VrxStatus, vrxsIIRIIRInit_64f, (VrxsIirIirState_64f** ppState, const Vrx64f* pTaps, int order, Vrx8u* pBuf))
/* zero-phase filtering of pSrc into pDst (float); len >= 3N, else -234 */
VRXAPI(VrxStatus, vrxsIIRIIR_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirIirState_32f* pState))
/* zero-phase filtering of pSrc into pDst, float samples, double arithmetic; len >= 3N, else -234 */
VRXAPI(VrxStatus, vrxsIIRIIR64f_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, VrxsIirIirState64f_32f* pState))
/* zero-phase filtering of pSrc into pDst (double); len >= 3N, else -234 */
VRXAPI(VrxStatus, vrxsIIRIIR_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, VrxsIirIirState_64f* pState))
/* in-place zero-phase filtering (float); len >= 3N, else -234 */
VRXAPI(VrxStatus, vrxsIIRIIR_32f_I, (Vrx32f* pSrcDst, int len, VrxsIirIirState_32f* pState))
/* in-place zero-phase filtering, float samples, double arithmetic; len >= 3N, else -234 */
VRXAPI(VrxStatus, vrxsIIRIIR64f_32f_I, (Vrx32f* pSrcDst, int len, VrxsIirIirState64f_32f* pState))
/* in-place zero-phase filtering (double); len >= 3N, else -234 */
VRXAPI(VrxStatus, vrxsIIRIIR_64f_I, (Vrx64f* pSrcDst, int len, VrxsIirIirState_64f* pState))


/* ---------------------------------- end of IIR design and zero-phase IIR */

/* ---------------------------------------------------- adaptive FIR (LMS) */

/* Adaptive FIR filter, least mean squares, on 32f (identity word 0x464C3031)
 * and 64f (0x464C3032) data. Per sample: y = sum over k < tapsLen of
 * h[k] * x[n-k] is written to pDst; e = ref[n] - y; me = mu * e is formed
 * once; then h[k] = fma(me, x[n-k], h[k]) for every k (one rounding per
 * tap). The dot product accumulates in chunks of 16 (32f) or 8 (64f) taps,
 * chunk c into partial sum c mod 4, each lane by fused multiply-add from +0,
 * and folds the partial sums in use in a fixed tree (see docs/lms.md).
 * The delay line holds tapsLen-1 samples, oldest first; a null line means
 * zeros. The state lives in the caller's block of the reported size, from
 * its first 64-byte boundary, and is written by every run: one thread at a
 * time. Checks: pointers -8, lengths -6, then tapsLen below 1 or above
 * 2^26 -26 (vrxErrFirLen), then the state's identity word -17. */
/* Bytes of the state for tapsLen taps. */
VRXAPI(VrxStatus, vrxsFIRLMSGetStateSize_32f, (int tapsLen, int* pSize))
/* Bytes of the 64f state for tapsLen taps. */
VRXAPI(VrxStatus, vrxsFIRLMSGetStateSize_64f, (int tapsLen, int* pSize))
/* Builds the state in pBuf from tapsLen taps h[0..tapsLen-1] (h[0] meets the
 * newest sample; null: zeros) and a line of tapsLen-1 samples (null: zeros). */
VRXAPI(VrxStatus, vrxsFIRLMSInit_32f, (VrxsFirLmsState_32f** ppState, const Vrx32f* pTaps, int tapsLen, const Vrx32f* pDlyLine, Vrx8u* pBuf))
/* The same for 64f. */
VRXAPI(VrxStatus, vrxsFIRLMSInit_64f, (VrxsFirLmsState_64f** ppState, const Vrx64f* pTaps, int tapsLen, const Vrx64f* pDlyLine, Vrx8u* pBuf))
/* Filters len samples of pSrc against the desired signal pRef with step
 * size mu, adapting the taps per sample; the filter outputs (before each
 * update) go to pDst, which may be pSrc or pRef. */
VRXAPI(VrxStatus, vrxsFIRLMS_32f, (const Vrx32f* pSrc, const Vrx32f* pRef, Vrx32f* pDst, int len, Vrx32f mu, VrxsFirLmsState_32f* pState))
/* The same for 64f. */
VRXAPI(VrxStatus, vrxsFIRLMS_64f, (const Vrx64f* pSrc, const Vrx64f* pRef, Vrx64f* pDst, int len, Vrx64f mu, VrxsFirLmsState_64f* pState))
/* Copies the current taps out, h[0] (newest sample's tap) first. */
VRXAPI(VrxStatus, vrxsFIRLMSGetTaps_32f, (const VrxsFirLmsState_32f* pState, Vrx32f* pOutTaps))
/* The same for 64f. */
VRXAPI(VrxStatus, vrxsFIRLMSGetTaps_64f, (const VrxsFirLmsState_64f* pState, Vrx64f* pOutTaps))
/* Replaces the taps, h[0] first; the delay line is kept. */
VRXAPI(VrxStatus, vrxsFIRLMSSetTaps_32f, (VrxsFirLmsState_32f* pState, const Vrx32f* pInTaps))
/* The same for 64f. */
VRXAPI(VrxStatus, vrxsFIRLMSSetTaps_64f, (VrxsFirLmsState_64f* pState, const Vrx64f* pInTaps))
/* Copies out the line: the last tapsLen-1 input samples, oldest first. */
VRXAPI(VrxStatus, vrxsFIRLMSGetDlyLine_32f, (const VrxsFirLmsState_32f* pState, Vrx32f* pDlyLine))
/* The same for 64f. */
VRXAPI(VrxStatus, vrxsFIRLMSGetDlyLine_64f, (const VrxsFirLmsState_64f* pState, Vrx64f* pDlyLine))
/* Replaces the line (tapsLen-1 samples, oldest first; null: zeros); the taps are kept. */
VRXAPI(VrxStatus, vrxsFIRLMSSetDlyLine_32f, (VrxsFirLmsState_32f* pState, const Vrx32f* pDlyLine))
/* The same for 64f. */
VRXAPI(VrxStatus, vrxsFIRLMSSetDlyLine_64f, (VrxsFirLmsState_64f* pState, const Vrx64f* pDlyLine))

/* --------------------------------------------------- end of adaptive FIR */

/* --------------------------------------------------------- median filter */
/* Median filter: out[n] is the median of the last m inputs x[n-m+1..n],
   the m-1 before the first sample taken from pDlySrc (time order, oldest
   first; null means zeros). pDlyDst (optional, may equal pDlySrc) receives
   the last m-1 inputs after the call. Values are ordered -inf < ... < -0 < +0
   < ... < +inf < NaN (every NaN, either sign, above +inf); the output is
   always one of the inputs, bit for bit. An even mask m runs as m-1 (delay
   lines of m-2 samples) and returns vrxWarnEvenMedianMask (5) at the end.
   Checks: pSrc, pDst, pBuf (-8; the delay lines are optional), len (-6),
   maskSize below 1 or above 2^26 (-33). pBuf holds the work window: size from
   vrxsFilterMedianGetBufferSize. */
/* bytes of the work buffer for maskSize and dataType (vrx8u, vrx16u, vrx16s,
   vrx32f, vrx64f, else -12); -33 for a mask below 1 or above 2^26 (tested
   before the type), 5 for an even mask (size of the mask one less) */
VRXAPI(VrxStatus, vrxsFilterMedianGetBufferSize, (int maskSize, VrxDataType dataType, int* pSize))
/* median of 8u samples, see above */
VRXAPI(VrxStatus, vrxsFilterMedian_8u, (const Vrx8u* pSrc, Vrx8u* pDst, int len, int maskSize, const Vrx8u* pDlySrc, Vrx8u* pDlyDst, Vrx8u* pBuf))
/* in place on 8u: the result replaces the source */
VRXAPI(VrxStatus, vrxsFilterMedian_8u_I, (Vrx8u* pSrcDst, int len, int maskSize, const Vrx8u* pDlySrc, Vrx8u* pDlyDst, Vrx8u* pBuf))
/* median of 16u samples */
VRXAPI(VrxStatus, vrxsFilterMedian_16u, (const Vrx16u* pSrc, Vrx16u* pDst, int len, int maskSize, const Vrx16u* pDlySrc, Vrx16u* pDlyDst, Vrx8u* pBuf))
/* in place on 16u */
VRXAPI(VrxStatus, vrxsFilterMedian_16u_I, (Vrx16u* pSrcDst, int len, int maskSize, const Vrx16u* pDlySrc, Vrx16u* pDlyDst, Vrx8u* pBuf))
/* median of 16s samples */
VRXAPI(VrxStatus, vrxsFilterMedian_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, int maskSize, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf))
/* in place on 16s */
VRXAPI(VrxStatus, vrxsFilterMedian_16s_I, (Vrx16s* pSrcDst, int len, int maskSize, const Vrx16s* pDlySrc, Vrx16s* pDlyDst, Vrx8u* pBuf))
/* median of 32f samples (NaN above +inf, -0 below +0) */
VRXAPI(VrxStatus, vrxsFilterMedian_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, int maskSize, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf))
/* in place on 32f */
VRXAPI(VrxStatus, vrxsFilterMedian_32f_I, (Vrx32f* pSrcDst, int len, int maskSize, const Vrx32f* pDlySrc, Vrx32f* pDlyDst, Vrx8u* pBuf))
/* median of 64f samples (NaN above +inf, -0 below +0) */
VRXAPI(VrxStatus, vrxsFilterMedian_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, int maskSize, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf))
/* in place on 64f */
VRXAPI(VrxStatus, vrxsFilterMedian_64f_I, (Vrx64f* pSrcDst, int len, int maskSize, const Vrx64f* pDlySrc, Vrx64f* pDlyDst, Vrx8u* pBuf))

/* -------------------------------------------------- end of median filter */

/* -------------------------------------------------- polyphase resampling */

/* Polyphase resampling of real signals by a Kaiser-windowed sinc prototype:
 * halfLen zero crossings each side, cut-off rollf (of the lower Nyquist
 * rate, in (0, 1]), Kaiser shape beta (>= 0, at most 1000). A state holds the
 * input history and the time, so a signal fed in pieces gives the outputs of
 * one call; a run writes its state (one thread at a time). pSrc and pDst must
 * not overlap. Checks: pointers -8 in argument order, then len < 1 -6, then
 * the state's identity word -17, then the values: -5 (vrxErrBadArg) for a
 * parameter out of range or sizes that pass INT_MAX. Nothing is written on
 * failure. Prototype and phase tables are computed in long double under a
 * 64-bit x87 word (restored on return).
 *
 * Fixed ratio up/down (reduced by their gcd to U/D, M = max(U, D)): the
 * prototype has filterLen = 2*halfLen*M + 1 taps h = U * (the lowpass at
 * rollf/M of the Nyquist rate, Kaiser-windowed, summed to 1); outputs are
 * those of zero-stuffing by U, filtering by h and keeping every D-th sample,
 * each written as soon as its newest input has arrived: after n inputs in
 * all, ceil(n*U/D) outputs. Sizes of the state and the prototype; halfLen,
 * up or down < 1 -5. */
VRXAPI(VrxStatus, vrxsResamplePolyphaseFixedGetSize_32f, (int up, int down, int halfLen, int* pSize, int* pFilterLen))
/* Builds the fixed-ratio state in pBuf (aligned inside it; *ppState is set).
 * -5 for up, down, halfLen < 1, rollf outside (0, 1], beta outside [0, 1000]. */
VRXAPI(VrxStatus, vrxsResamplePolyphaseFixedInit_32f, (int up, int down, int halfLen, Vrx32f rollf, Vrx32f beta, VrxsResamplePolyphaseFixedState_32f** ppState, Vrx8u* pBuf))
/* Resamples len inputs; *pOutLen receives the outputs written, at most
 * ceil(len*U/D) (U/D the reduced ratio). */
VRXAPI(VrxStatus, vrxsResamplePolyphaseFixed_32f, (const Vrx32f* pSrc, int len, Vrx32f* pDst, int* pOutLen, VrxsResamplePolyphaseFixedState_32f* pState))
/* Copies the filterLen prototype taps, in prototype order (h[0] meets the
 * newest stuffed sample), to pTaps. */
VRXAPI(VrxStatus, vrxsResamplePolyphaseGetFixedFilter_32f, (const VrxsResamplePolyphaseFixedState_32f* pState, Vrx32f* pTaps))
/* Replaces the filterLen prototype taps (prototype order, gain included);
 * history and time stay. */
VRXAPI(VrxStatus, vrxsResamplePolyphaseSetFixedFilter_32f, (VrxsResamplePolyphaseFixedState_32f* pState, const Vrx32f* pTaps))
/* Arbitrary factor: a table of nPhases phases per input sample of the
 * prototype p(t) = rollf*sinc(rollf*t)*kaiser(t/halfLen) for |t| < halfLen
 * (zero from halfLen on), read with linear interpolation between
 * neighbouring phases. Output j sits at input time tj = j*s (s = 1/factor
 * rounded up to a multiple of 2^-32, the inputs at 0, 1, 2, ... over all
 * calls) and is written once input floor(tj) has arrived: y = sum over k <= tj of x[k]*g(tj - k - w), w the half width.
 * Factor >= 1: g = p, w = halfLen; below 1 the kernel is widened:
 * g(t) = factor*p(factor*t), w = halfLen/factor. Size of the state; halfLen,
 * nPhases < 1 -5. */
VRXAPI(VrxStatus, vrxsResamplePolyphaseGetSize_32f, (int halfLen, int nPhases, int* pSize))
/* Builds the arbitrary-factor state in pBuf (aligned; *ppState is set). -5 for
 * halfLen, nPhases < 1, rollf outside (0, 1], beta outside [0, 1000]. */
VRXAPI(VrxStatus, vrxsResamplePolyphaseInit_32f, (int halfLen, int nPhases, Vrx32f rollf, Vrx32f beta, VrxsResamplePolyphaseState_32f** ppState, Vrx8u* pBuf))
/* Resamples len inputs by factor = output rate / input rate, in [1/64, 65536];
 * *pOutLen receives the outputs written, at most ceil(len*factor) + 1. -5 for
 * a factor outside that range or not finite, or len*factor + 2 > INT_MAX. The
 * factor may change between calls: the next output instant carries over (from
 * 1/4 up to 1 a changed factor rebuilds the widened phase rows). */
VRXAPI(VrxStatus, vrxsResamplePolyphase_32f, (const Vrx32f* pSrc, int len, Vrx32f* pDst, Vrx64f factor, int* pOutLen, VrxsResamplePolyphaseState_32f* pState))

/* ------------------------------------------- end of polyphase resampling */

#undef VRXAPI

#ifdef __cplusplus
}
#endif

#endif /* VRXS_H */
