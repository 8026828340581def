// Objects in caller memory: plans and states (FFT, DFT, DCT, Hilbert,
// wavelet, FIR, multi-rate FIR, IIR, random generators).
//
// Every object is laid out by one layout function, which both its size
// query and its Init run, so that a reported size cannot drift from the
// memory that Init uses:
//
//     size query:  Carver c;             layout(c, parameters);
//                  size = c.size() + Carver::kSlack;
//     Init:        Carver c(pSpecMem);    pieces = layout(c, parameters);
//                  then fill the pieces, header first.
//
// The FFT plan's planLayout (src/transform/vrx_fft_layout.h) is one.
// A Carver without a base only measures (every piece it hands out is
// null); with a base it hands out aligned pieces of the caller's block.
// Where a size formula is part of an object's contract, the size query
// keeps the formula and the layout is checked to fit inside it (the FFT:
// layoutFits in src/transform/psfftinit.cpp).
//
// Identity words of all objects are in ObjId; a run function checks its
// object with open(), which gives -8 for null and -17 for a wrong word.
#pragma once

#include "vrx_base.h"

namespace n0 {

// -------------------------------------------------------- identity words
// The first 32-bit word of every object that carries one.
enum class ObjId : int32_t {
    // FFT plans
    FftC32fc = 4, FftC32f = 5, FftR32f = 6, FftC64fc = 7, FftC64f = 8, FftR64f = 9,
    // DFT plans
    DftC32fc = 13, DftC32f = 14, DftR32f = 15, DftC64fc = 16, DftC64f = 17, DftR64f = 18,
    // DCT plans
    DctFwd32f = 21, DctInv32f = 22, DctFwd64f = 23, DctInv64f = 24,
    // random generators
    RandUniform8u = 35, RandUniform16s = 36, RandUniform32f = 37, RandUniform64f = 38,
    RandGauss8u = 39, RandGauss16s = 40, RandGauss32f = 41, RandGauss64f = 42,
    // wavelet states: forward (source type to 32f), inverse (32f to result type)
    WtFwd32f = 43, WtFwd8u32f = 44, WtFwd16u32f = 46, WtFwd16s32f = 47,
    WtInv32f = 52, WtInv32f8u = 53, WtInv32f16u = 55, WtInv32f16s = 56,
    // Hilbert plan
    Hilbert = 1129136453,
    // multi-rate FIR: the prepared core inside the state
    FirMrCore32f = 0x46493033, FirMrCore32fc = 0x46493034, FirMrCore64f = 0x46493135, FirMrCore64fc = 0x46493136,
    // the single-rate object kept by the multi-rate path (64f form)
    FirSr64f = 0x46493133,
    // IIR states: letters I, I and two decimal digits of the kind
    IirAR32f = 0x49493031, IirBQ32f = 0x49493032, IirAR32fc = 0x49493033, IirBQ32fc = 0x49493034,
    IirAR32f16s = 0x49493035, IirBQ32f16s = 0x49493036, IirAR32fc16sc = 0x49493037, IirBQ32fc16sc = 0x49493038,
    IirAR64f = 0x49493133, IirBQ64f = 0x49493134, IirAR64fc = 0x49493135, IirBQ64fc = 0x49493136,
    IirAR64f32f = 0x49493137, IirBQ64f32f = 0x49493138, IirAR64fc32fc = 0x49493139, IirBQ64fc32fc = 0x49493230,
    IirAR64f32s = 0x49493231, IirBQ64f32s = 0x49493232, IirAR64fc32sc = 0x49493233, IirBQ64fc32sc = 0x49493234,
    IirAR64f16s = 0x49493235, IirBQ64f16s = 0x49493236, IirAR64fc16sc = 0x49493237, IirBQ64fc16sc = 0x49493238,
    IirBQDF1_32f = 0x49493239, IirBQDF1_64f32s = 0x49493330,
    // sparse filters: FS01/FS02 (FIR 32f/32fc), IS01/IS02 (IIR 32f/32fc)
    FirSparse32f = 0x46533031, FirSparse32fc = 0x46533032,
    IirSparse32f = 0x49533031, IirSparse32fc = 0x49533032,
    // zero-phase IIR: ID01 (32f), ID02 (64f taps on 32f), ID03 (64f)
    IirIir32f = 0x49443031, IirIir64f32f = 0x49443032, IirIir64f = 0x49443033,
    // adaptive FIR: FL01 (32f), FL02 (64f)
    FirLms32f = 0x464C3031, FirLms64f = 0x464C3032,
    // polyphase resampling: RP01 (arbitrary factor), RP02 (fixed ratio)
    ResamplePoly32f = 0x52503031, ResamplePolyFixed32f = 0x52503032,
    // later families add their words here; the single-rate FIR state has none
};

VRX_INLINE constexpr int32_t idWord(ObjId id) { return static_cast<int32_t>(id); }

// The identity word at the head of an object, which may sit at any byte
// (states are documented to), so it is read by bytes.
VRX_INLINE int32_t idAt(const void* obj) {
    int32_t w;
    __builtin_memcpy(&w, obj, sizeof w);
    return w;
}

// The object p as an Obj when it carries the word want: null gives
// vrxErrNullPtr (-8), another word vrxErrBadSpec (-17), and *out is
// written only on success. Obj starts with its 32-bit identity word.
template <class Obj>
VRX_INLINE VrxStatus open(const void* p, ObjId want, const Obj** out) {
    if (!p) return vrxErrNullPtr;
    if (idAt(p) != idWord(want)) return vrxErrBadSpec;
    *out = static_cast<const Obj*>(p);
    return vrxOk;
}
// The same for states that a run writes.
template <class Obj>
VRX_INLINE VrxStatus open(void* p, ObjId want, Obj** out) {
    if (!p) return vrxErrNullPtr;
    if (idAt(p) != idWord(want)) return vrxErrBadSpec;
    *out = static_cast<Obj*>(p);
    return vrxOk;
}

// ---------------------------------------------------------------- carving
// Hands out pieces of one block in order, each on its own alignment. In
// measure mode (no base) the pieces are null and only the bytes add up,
// counted from an aligned start; size() + kSlack then covers any start of
// the caller's block. Usable in constant expressions in measure mode.
class Carver {
public:
    static constexpr int64_t kAlign = 64;
    static constexpr int64_t kSlack = kAlign - 1;  // room to align the first piece

    constexpr Carver() : base_(0), at_(0), carving_(false) {}
    explicit Carver(void* base) : base_(addr(base)), at_(addr(base)), carving_(base != nullptr) {}

    // count elements of T on an align-byte boundary (a power of two).
    template <class T>
    constexpr T* take(int64_t count, int64_t align = kAlign) {
        at_ = (at_ + static_cast<uintptr_t>(align - 1)) & ~static_cast<uintptr_t>(align - 1);
        const uintptr_t p = at_;
        at_ += static_cast<uintptr_t>(count * static_cast<int64_t>(sizeof(T)));
        if (!carving_) return nullptr;
        return reinterpret_cast<T*>(p);
    }
    // Moves to the next align-byte boundary.
    constexpr void alignTo(int64_t align = kAlign) {
        at_ = (at_ + static_cast<uintptr_t>(align - 1)) & ~static_cast<uintptr_t>(align - 1);
    }
    constexpr bool carving() const { return carving_; }
    // Bytes from the base to the end of the last piece.
    constexpr int64_t size() const { return static_cast<int64_t>(at_ - base_); }

private:
    uintptr_t base_;
    uintptr_t at_;
    bool carving_;
};

}  // namespace n0
