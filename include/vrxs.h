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
 * The header compiles as C99 and as C++.
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

/* ------------------------------------------------- declaration machinery */

/* Inside the library the same lines declare the local implementations;
 * users of the header see the exported functions. */
#ifndef VRXAPI
#define VRXAPI(ret, name, args) extern ret name args;
#endif

/* ----------------------------------------------------- library frame */

VRXAPI(const VrxLibraryVersion*, vrxsGetLibVersion, (void))

/* aligned allocation: 64-byte aligned, null for len < 1 or above 2^31-1 bytes */
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
VRXAPI(void,     vrxsFree,        (void* ptr))

/* block moves; Copy requires non-overlapping vectors, Move allows overlap */
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
VRXAPI(VrxStatus, vrxsAddC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAddC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubCRev_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32fc, (const Vrx32fc* pSrc, Vrx32fc val, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_32fc_I, (Vrx32fc val, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64f, (const Vrx64f* pSrc, Vrx64f val, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64f_I, (Vrx64f val, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64fc, (const Vrx64fc* pSrc, Vrx64fc val, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSubC_64fc_I, (Vrx64fc val, Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_32f, (const Vrx32f* pSrc1, const Vrx32f* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_32f_I, (const Vrx32f* pSrc, Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_32fc, (const Vrx32fc* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_32fc_I, (const Vrx32fc* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_64f, (const Vrx64f* pSrc1, const Vrx64f* pSrc2, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_64f_I, (const Vrx64f* pSrc, Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_64fc, (const Vrx64fc* pSrc1, const Vrx64fc* pSrc2, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_64fc_I, (const Vrx64fc* pSrc, Vrx64fc* pSrcDst, int len))

/* mixed forms: real by complex, 16s sources computed in 32f, 32f by a constant into 16s */
VRXAPI(VrxStatus, vrxsAdd_16s32f, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMulC_32f16s_Sfs, (const Vrx32f* pSrc, Vrx32f val, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_Low_32f16s, (const Vrx32f* pSrc, Vrx32f val, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_16s32f, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32f32fc, (const Vrx32f* pSrc1, const Vrx32fc* pSrc2, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_32f32fc_I, (const Vrx32f* pSrc, Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsSub_16s32f, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx32f* pDst, int len))

/* integer vectors, scaled: the exact result times 2^-scaleFactor, rounded to nearest even, saturated;
 * complex Add/Sub test the length first; Mul_32s_Sfs forms its product in binary64 (MulC_32s_Sfs is exact) */
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
VRXAPI(VrxStatus, vrxsAdd_16s, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16s32s_I, (const Vrx16s* pSrc, Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsAdd_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAdd_8u16u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_16s, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsMul_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsMul_8u16u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_16s, (const Vrx16s* pSrc1, const Vrx16s* pSrc2, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsSub_16s_I, (const Vrx16s* pSrc, Vrx16s* pSrcDst, int len))

/* 64-bit constants: rounding is a VrxRounding; len is read as unsigned (only 0 is bad) in AddC and MulC_64f64s */
VRXAPI(VrxStatus, vrxsAddC_64s_Sfs, (const Vrx64s* pSrc, Vrx64s val, Vrx64s* pDst, int len, int scaleFactor, VrxRounding rounding))
VRXAPI(VrxStatus, vrxsAddC_64u_Sfs, (const Vrx64u* pSrc, Vrx64u val, Vrx64u* pDst, int len, int scaleFactor, VrxRounding rounding))
VRXAPI(VrxStatus, vrxsMulC_64f64s_ISfs, (Vrx64f val, Vrx64s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsMulC_64s_ISfs, (Vrx64s val, Vrx64s* pSrcDst, int len, int scaleFactor))

/* division: Div is src2 / src1, DivC element / val, DivCRev val / element; a zero vector divisor
 * is the warning vrxWarnDivByZero, a zero constant the error vrxErrDivByZero */
VRXAPI(VrxStatus, vrxsDivCRev_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsDivCRev_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsDivCRev_32f, (const Vrx32f* pSrc, Vrx32f val, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsDivCRev_32f_I, (Vrx32f val, Vrx32f* pSrcDst, int len))
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
VRXAPI(VrxStatus, vrxsExp_32f,        (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsExp_64f,        (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsExp_32f_I,      (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsExp_64f_I,      (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsExp_16s_Sfs,    (const Vrx16s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsExp_32s_Sfs,    (const Vrx32s* pSrc, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsExp_16s_ISfs,   (Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsExp_32s_ISfs,   (Vrx32s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_32f,         (const Vrx32f* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsLn_64f,         (const Vrx64f* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsLn_32f_I,       (Vrx32f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLn_64f_I,       (Vrx64f* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLn_16s_Sfs,     (const Vrx16s* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_32s_Sfs,     (const Vrx32s* pSrc, Vrx32s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_16s_ISfs,    (Vrx16s* pSrcDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsLn_32s_ISfs,    (Vrx32s* pSrcDst, int len, int scaleFactor))
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
VRXAPI(VrxStatus, vrxsReal_16sc,      (const Vrx16sc* pSrc, Vrx16s* pDstRe, int len))
VRXAPI(VrxStatus, vrxsReal_32fc,      (const Vrx32fc* pSrc, Vrx32f* pDstRe, int len))
VRXAPI(VrxStatus, vrxsReal_64fc,      (const Vrx64fc* pSrc, Vrx64f* pDstRe, int len))
VRXAPI(VrxStatus, vrxsImag_16sc,      (const Vrx16sc* pSrc, Vrx16s* pDstIm, int len))
VRXAPI(VrxStatus, vrxsImag_32fc,      (const Vrx32fc* pSrc, Vrx32f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsImag_64fc,      (const Vrx64fc* pSrc, Vrx64f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsRealToCplx_16s, (const Vrx16s* pSrcRe, const Vrx16s* pSrcIm, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsRealToCplx_32f, (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsRealToCplx_64f, (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsCplxToReal_16sc, (const Vrx16sc* pSrc, Vrx16s* pDstRe, Vrx16s* pDstIm, int len))
VRXAPI(VrxStatus, vrxsCplxToReal_32fc, (const Vrx32fc* pSrc, Vrx32f* pDstRe, Vrx32f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsCplxToReal_64fc, (const Vrx64fc* pSrc, Vrx64f* pDstRe, Vrx64f* pDstIm, int len))
VRXAPI(VrxStatus, vrxsConj_16sc,      (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsConj_32fc,      (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsConj_64fc,      (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
VRXAPI(VrxStatus, vrxsConj_16sc_I,    (Vrx16sc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsConj_32fc_I,    (Vrx32fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsConj_64fc_I,    (Vrx64fc* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsConjFlip_16sc,  (const Vrx16sc* pSrc, Vrx16sc* pDst, int len))
VRXAPI(VrxStatus, vrxsConjFlip_32fc,  (const Vrx32fc* pSrc, Vrx32fc* pDst, int len))
VRXAPI(VrxStatus, vrxsConjFlip_64fc,  (const Vrx64fc* pSrc, Vrx64fc* pDst, int len))
/* magnitude, phase (atan2(im, re)) and power spectrum (re^2 + im^2);
   forms with two real sources take the real then the imaginary parts.
   Phase and the double interleaved magnitude are of the LA tier (within
   8 ulp; measured below 2), the other magnitudes within 1 ulp. */
VRXAPI(VrxStatus, vrxsMagnitude_32fc, (const Vrx32fc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_64fc, (const Vrx64fc* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_32f,  (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_64f,  (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_16sc32f, (const Vrx16sc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsMagnitude_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsPhase_32fc,     (const Vrx32fc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_64fc,     (const Vrx64fc* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_32f,      (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_64f,      (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_16sc32f,  (const Vrx16sc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPhase_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16s* pDst, int len, int scaleFactor))
VRXAPI(VrxStatus, vrxsPowerSpectr_32fc, (const Vrx32fc* pSrc, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_64fc, (const Vrx64fc* pSrc, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_32f,  (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_64f,  (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDst, int len))
VRXAPI(VrxStatus, vrxsPowerSpectr_16sc_Sfs, (const Vrx16sc* pSrc, Vrx16s* pDst, int len, int scaleFactor))
/* polar and Cartesian coordinates; phases in radians (for 16sc_Sfs the
   phase is pSrcPhase * 2^-phaseScaleFactor and the magnitude
   pSrcMagn * 2^-magnScaleFactor). The phase and the sine and cosine are
   of the LA tier. */
VRXAPI(VrxStatus, vrxsCartToPolar_32fc, (const Vrx32fc* pSrc, Vrx32f* pDstMagn, Vrx32f* pDstPhase, int len))
VRXAPI(VrxStatus, vrxsCartToPolar_64fc, (const Vrx64fc* pSrc, Vrx64f* pDstMagn, Vrx64f* pDstPhase, int len))
VRXAPI(VrxStatus, vrxsCartToPolar_32f,  (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstMagn, Vrx32f* pDstPhase, int len))
VRXAPI(VrxStatus, vrxsCartToPolar_64f,  (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstMagn, Vrx64f* pDstPhase, int len))
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
VRXAPI(VrxStatus, vrxsAnd_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsAnd_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsAnd_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_8u, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_32u, (const Vrx32u* pSrc, Vrx32u val, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsAndC_8u_I, (Vrx8u val, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAndC_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAndC_32u_I, (Vrx32u val, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAnd_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAnd_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsAnd_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsNot_8u, (const Vrx8u* pSrc, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsNot_16u, (const Vrx16u* pSrc, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsNot_32u, (const Vrx32u* pSrc, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsNot_8u_I, (Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsNot_16u_I, (Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsNot_32u_I, (Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOr_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsOr_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsOr_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_8u, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_32u, (const Vrx32u* pSrc, Vrx32u val, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsOrC_8u_I, (Vrx8u val, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOrC_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOrC_32u_I, (Vrx32u val, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOr_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOr_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsOr_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXor_8u, (const Vrx8u* pSrc1, const Vrx8u* pSrc2, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsXor_16u, (const Vrx16u* pSrc1, const Vrx16u* pSrc2, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsXor_32u, (const Vrx32u* pSrc1, const Vrx32u* pSrc2, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_8u, (const Vrx8u* pSrc, Vrx8u val, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_16u, (const Vrx16u* pSrc, Vrx16u val, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_32u, (const Vrx32u* pSrc, Vrx32u val, Vrx32u* pDst, int len))
VRXAPI(VrxStatus, vrxsXorC_8u_I, (Vrx8u val, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXorC_16u_I, (Vrx16u val, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXorC_32u_I, (Vrx32u val, Vrx32u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXor_8u_I, (const Vrx8u* pSrc, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXor_16u_I, (const Vrx16u* pSrc, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsXor_32u_I, (const Vrx32u* pSrc, Vrx32u* pSrcDst, int len))

/* shifts by a constant count; a count of the width or more clears (left, unsigned right)
 * or spreads the sign (signed right); a negative count is vrxErrShift */
VRXAPI(VrxStatus, vrxsLShiftC_8u, (const Vrx8u* pSrc, int count, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16u, (const Vrx16u* pSrc, int count, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16s, (const Vrx16s* pSrc, int count, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_32s, (const Vrx32s* pSrc, int count, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_8u_I, (int count, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16u_I, (int count, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_16s_I, (int count, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsLShiftC_32s_I, (int count, Vrx32s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_8u, (const Vrx8u* pSrc, int count, Vrx8u* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16u, (const Vrx16u* pSrc, int count, Vrx16u* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16s, (const Vrx16s* pSrc, int count, Vrx16s* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_32s, (const Vrx32s* pSrc, int count, Vrx32s* pDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_8u_I, (int count, Vrx8u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16u_I, (int count, Vrx16u* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_16s_I, (int count, Vrx16s* pSrcDst, int len))
VRXAPI(VrxStatus, vrxsRShiftC_32s_I, (int count, Vrx32s* pSrcDst, int len))

/* widening, exact and saturating conversions between integers and floats */
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

VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s levelLT, Vrx16s valueLT, Vrx16s levelGT, Vrx16s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s levelLT, Vrx16s valueLT, Vrx16s levelGT, Vrx16s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s levelLT, Vrx32s valueLT, Vrx32s levelGT, Vrx32s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s levelLT, Vrx32s valueLT, Vrx32s levelGT, Vrx32s valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f levelLT, Vrx32f valueLT, Vrx32f levelGT, Vrx32f valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f levelLT, Vrx32f valueLT, Vrx32f levelGT, Vrx32f valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f levelLT, Vrx64f valueLT, Vrx64f levelGT, Vrx64f valueGT))
VRXAPI(VrxStatus, vrxsThreshold_LTValGTVal_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f levelLT, Vrx64f valueLT, Vrx64f levelGT, Vrx64f valueGT))

VRXAPI(VrxStatus, vrxsThreshold_LTAbs_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_LTAbs_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))

VRXAPI(VrxStatus, vrxsThreshold_GTAbs_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level))
VRXAPI(VrxStatus, vrxsThreshold_GTAbs_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level))

VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_16s, (const Vrx16s* pSrc, Vrx16s* pDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_16s_I, (Vrx16s* pSrcDst, int len, Vrx16s level, Vrx16s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32s, (const Vrx32s* pSrc, Vrx32s* pDst, int len, Vrx32s level, Vrx32s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32s_I, (Vrx32s* pSrcDst, int len, Vrx32s level, Vrx32s value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32f, (const Vrx32f* pSrc, Vrx32f* pDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_32f_I, (Vrx32f* pSrcDst, int len, Vrx32f level, Vrx32f value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_64f, (const Vrx64f* pSrc, Vrx64f* pDst, int len, Vrx64f level, Vrx64f value))
VRXAPI(VrxStatus, vrxsThreshold_LTAbsVal_64f_I, (Vrx64f* pSrcDst, int len, Vrx64f level, Vrx64f value))

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

/* plans: sizes in bytes, then the plan built in the caller's memory */
VRXAPI(VrxStatus, vrxsFFTGetSize_C_32fc, (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_C_32f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_R_32f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_C_64fc, (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_C_64f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTGetSize_R_64f,  (int order, int flag, VrxAlgHint hint, int* pSpecSize, int* pInitSize, int* pWorkSize))
VRXAPI(VrxStatus, vrxsFFTInit_C_32fc, (VrxsFftPlan_C_32fc** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_C_32f,  (VrxsFftPlan_C_32f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_R_32f,  (VrxsFftPlan_R_32f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_C_64fc, (VrxsFftPlan_C_64fc** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_C_64f,  (VrxsFftPlan_C_64f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))
VRXAPI(VrxStatus, vrxsFFTInit_R_64f,  (VrxsFftPlan_R_64f** ppPlan, int order, int flag, VrxAlgHint hint, Vrx8u* pSpecMem, Vrx8u* pInitBuf))

/* complex transforms, interleaved data */
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32fc,   (const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32fc,   (const Vrx32fc* pSrc, Vrx32fc* pDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32fc_I, (Vrx32fc* pSrcDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32fc_I, (Vrx32fc* pSrcDst, const VrxsFftPlan_C_32fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64fc,   (const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64fc,   (const Vrx64fc* pSrc, Vrx64fc* pDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64fc_I, (Vrx64fc* pSrcDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64fc_I, (Vrx64fc* pSrcDst, const VrxsFftPlan_C_64fc* plan, Vrx8u* pBuf))

/* complex transforms, separate real and imaginary arrays */
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32f,   (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32f,   (const Vrx32f* pSrcRe, const Vrx32f* pSrcIm, Vrx32f* pDstRe, Vrx32f* pDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_32f_I, (Vrx32f* pSrcDstRe, Vrx32f* pSrcDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_32f_I, (Vrx32f* pSrcDstRe, Vrx32f* pSrcDstIm, const VrxsFftPlan_C_32f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64f,   (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64f,   (const Vrx64f* pSrcRe, const Vrx64f* pSrcIm, Vrx64f* pDstRe, Vrx64f* pDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTFwd_CToC_64f_I, (Vrx64f* pSrcDstRe, Vrx64f* pSrcDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))
VRXAPI(VrxStatus, vrxsFFTInv_CToC_64f_I, (Vrx64f* pSrcDstRe, Vrx64f* pSrcDstIm, const VrxsFftPlan_C_64f* plan, Vrx8u* pBuf))

/* real transforms to and from the packed spectra CCS, Pack and Perm */
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

/* ---------------------------------- end of sums, deviations and norms */

/* -------------------------------- statistics: extrema, counts and search */

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


#undef VRXAPI

#ifdef __cplusplus
}
#endif

#endif /* VRXS_H */
