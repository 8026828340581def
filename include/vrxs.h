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

/* ------------------------------------ end of convolution and correlation */

/* ------------------ single-rate and multi-rate FIR, SampleUp, SampleDown */

/* ----------------------------------------------- end of FIR and sampling */

/* ----------------------------------------------------------- IIR filters */

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

/* ----------------------------------------------- end of DCT and Goertzel */

/* ---------------------------------------------------- wavelet transforms */

/* --------------------------------------------- end of wavelet transforms */

#undef VRXAPI

#ifdef __cplusplus
}
#endif

#endif /* VRXS_H */
