// The argument contract of every exported function, driven by the export
// table: the build turns each VRXAPI line of vrxs.h into a row of
// vrxs_signatures.h (name, parameter names, argument list), and this test
// calls every function
//
//   - with each pointer argument null in turn, every length argument 0 and
//     then -1: the status must be vrxErrNullPtr (-8), since null comes
//     before length;
//   - with every pointer valid and each length argument 0 and then -1 in
//     turn, the other lengths valid: the status must be vrxErrBadLength (-6).
//
// Pointers point into separate 64-byte-aligned buffers filled with a
// sentinel byte, large enough for any valid length used here and for any
// plan or state header; after each call every buffer must still hold only
// the sentinel (a failed call writes nothing, inputs are never written).
//
// What is a length. An argument is a length when it is passed by value as
// plain `int` and its name is `len`, begins with `len` followed by a capital
// (`lenDst`) or ends in `Len` (`srcLen`, `dstLen`, `tapsLen`). Other scalars
// (`count`, `order`, `scaleFactor`, levels, constants, selectors) get a
// neutral value that the function accepts: 1 for plain integers and
// floating types, {1, 0} for complex constants, and the first named member
// for the selectors (vrxCmpLess, vrxAlgAuto, vrxWinBartlett, vrx32f,
// vrxRndNear). Valid lengths are kGoodLen.
//
// Functions whose documented order differs are rows of kExceptions below,
// each with the reason taken from the function's documented contract.
// A function added to vrxs.h is covered with no work here.
#include <fnmatch.h>
#include <signal.h>
#include <stdio.h>
#include <unistd.h>

#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "vrx_test.h"

namespace {

constexpr int kGoodLen = 8;
constexpr int kBadLens[] = {0, -1};
constexpr size_t kArgBytes = 16384;   // per pointer argument
constexpr size_t kMaxArgs = 24;
constexpr uint8_t kSentinel = 0xC3;

// ------------------------------------------------------------ exceptions
enum class Deviation {
    NotCalled,      // no status to check: the call is not made
    NullResult,     // returns a pointer: a bad length gives null, no status
    LengthFirst,    // the length is tested before the pointers: null cases run with valid lengths
    OptionalPtr,    // the named pointer may be null: no null case for it
    UnsignedLength, // the length is read as unsigned: only 0 is a bad length, -1 is not passed
    ObjectFirst,    // the named plan/state is checked first (null -8, then its identity word -17):
                    // a null data pointer beside a sentinel-filled object gives -17
    ValuesFirst,    // the named pointer is checked first, then the function's own values (one of
                    // them read through that pointer), then the other pointers and the length:
                    // with neutral values only the named pointer's null case is reachable
    LengthStatus,   // a bad length is reported with the status written in arg instead of -6
    NeutralRefused, // the function's own values are tested before the pointers and refuse the
                    // neutral ones: no null-pointer case is reachable
    WrittenOnError, // the named pointer is written on a failed call (a zero size, an identity word)
    StateBeforeLength, // pointers (-8), then the named state's check (-17), then the lengths:
                       // a bad length beside a sentinel-filled state gives -17
    AfterObject,    // the named pointer is tested after the object's identity word: its null
                    // case beside a sentinel-filled object gives -17
};

struct Exception {
    const char* pattern;  // fnmatch pattern of export names
    Deviation what;
    const char* arg;      // OptionalPtr, ObjectFirst: the parameter name
    const char* reason;
};

// One row per documented deviation from "pointers (-8), then lengths (-6)".
const Exception kExceptions[] = {
    {"vrxsFree", Deviation::NotCalled, nullptr,
     "returns nothing; a null pointer is handed to vrxFree as it is"},
    {"vrxsMalloc_*", Deviation::NullResult, nullptr,
     "returns the pointer, null for a length below one; no status"},
    {"vrxsMaxOrder_*", Deviation::LengthFirst, nullptr,
     "documented to test the length before the pointers"},
    {"vrxs[AS][du][db]_[13][62]sc_*Sfs", Deviation::LengthFirst, nullptr,
     "complex integer Add/Sub test len, then run the real function over 2 len scalars"},
    {"vrxs[AS][du][db]_[36][24]fc*", Deviation::LengthFirst, nullptr,
     "complex float Add/Sub test len, double it and call the real function; _I forwards to them"},
    {"vrxsAddC_64[su]_Sfs", Deviation::UnsignedLength, nullptr,
     "length read as unsigned: only 0 is -6, a negative int is a very long vector"},
    {"vrxsMulC_64s_ISfs", Deviation::UnsignedLength, nullptr, "length read as unsigned: only 0 is -6"},
    {"vrxsMulC_64f64s_ISfs", Deviation::UnsignedLength, nullptr,
     "length read as unsigned: only 0 is -6 (forwards to vrxsMulC_64s_ISfs)"},
    {"vrxsMagnitude_64fc", Deviation::LengthFirst, nullptr,
     "hands on the status of its tier entry, which tests the count first"},
    {"vrxsRealToCplx_*", Deviation::OptionalPtr, "pSrcRe", "a null real part stands for zeros"},
    {"vrxsRealToCplx_*", Deviation::OptionalPtr, "pSrcIm", "a null imaginary part stands for zeros"},
    {"vrxsFFTInit_*", Deviation::OptionalPtr, "pInitBuf", "ignored below order 11 (the neutral order is 1)"},
    {"vrxsFFT[FI][wn][dv]_*", Deviation::ObjectFirst, "plan",
     "the plan is tested first: null -8, then its identity word -17, then the data pointers"},
    {"vrxsM[ai][xn]Indx_*", Deviation::OptionalPtr, "pIndx", "the index pointer is optional"},
    {"vrxsM[ai][xn]AbsIndx_*", Deviation::OptionalPtr, "pIndx", "the index pointer is optional"},
    {"vrxsZeroCrossing_*", Deviation::UnsignedLength, nullptr,
     "only a zero length is refused; a negative length counts nothing and is no error"},
    {"vrxsTone_*", Deviation::ValuesFirst, "pPhase",
     "phase pointer, then magnitude, frequency and the phase it points to, then destination and length"},
    {"vrxsTriangle_*", Deviation::ValuesFirst, "pPhase",
     "phase pointer, then magnitude, frequency, asymmetry and phase, then destination and length"},
    // convolution and correlation
    // FIR and sampling
    {"vrxsFIRSRGetSize", Deviation::LengthFirst, nullptr,
     "tapsLen is tested first (-6), then the type (-12), then the result pointers"},
    {"vrxsFIRSRInit_*", Deviation::LengthFirst, nullptr, "tapsLen is tested before the pointers"},
    {"vrxsFIR[SM]R_*", Deviation::OptionalPtr, "pDlySrc", "a null delay line coming in means zeros"},
    {"vrxsFIR[SM]R_*", Deviation::OptionalPtr, "pDlyDst", "a null delay line going out is not written"},
    {"vrxsFIRMRGetSize", Deviation::LengthFirst, nullptr,
     "tapsLen, type and factors are tested first; the result pointers only on the factor-1 path"},
    {"vrxsFIRMRGetSize", Deviation::LengthStatus, "-26", "a tap count below one is vrxErrFirLen"},
    {"vrxsFIRMRInit_*", Deviation::LengthStatus, "-26", "a tap count below one is vrxErrFirLen"},
    {"vrxsFIRMRInit_*", Deviation::NeutralRefused, nullptr,
     "factors and phases are tested before the pointers; a phase of 1 is not below a factor of 1 (-28)"},
    // IIR filters
    {"vrxsIIRInit*", Deviation::OptionalPtr, "pDlyLine", "a null delay line at Init stands for zeros"},
    {"vrxsIIRSetDlyLine*", Deviation::OptionalPtr, "pDlyLine", "a null delay line at Set stands for zeros"},
    // DFT and Hilbert
    {"vrxsDFTInit_*", Deviation::OptionalPtr, "pInitBuf",
     "ignored up to length 16 and for powers of two (the FFT decides); the neutral length is 1"},
    {"vrxsDFT[FI][wn][dv]_*", Deviation::ObjectFirst, "plan",
     "the plan is tested first: null -8, then its identity word -17, then the data pointers"},
    // DCT and Goertzel
    {"vrxsDCT[FI][wn][dv]Init_*", Deviation::OptionalPtr, "pInitBuf",
     "needed only when the init size is positive; the neutral length 1 has none"},
    {"vrxsDCT[FI][wn][dv]_*", Deviation::AfterObject, "pBuf",
     "plan, source and destination -8, then the plan's identity word -17, then the work buffer -8"},
    // wavelet transforms
    {"vrxsWT*GetSize", Deviation::WrittenOnError, "pSize", "the size is set to 0 before the checks that follow the null test"},
    {"vrxsWT*Init_*", Deviation::WrittenOnError, "pState", "the identity word is written before the length and offset checks"},
    {"vrxsWT[FI][wn][dv]_*", Deviation::StateBeforeLength, "pState", "the state is checked (-17) before the length (-6)"},
    {"vrxsWT*SetDlyLine_*", Deviation::OptionalPtr, "pDlyLow", "a null line stands for zeros"},
    {"vrxsWT*SetDlyLine_*", Deviation::OptionalPtr, "pDlyHigh", "a null line stands for zeros"},
    // sparse filters
    {"vrxsFIRSparseGetStateSize_*", Deviation::LengthStatus, "-26", "a tap count below one is vrxErrFirLen"},
    {"vrxsFIRSparseInit_*", Deviation::LengthStatus, "-26", "a tap count below one is vrxErrFirLen"},
    {"vrxs[FI]IRSparseInit_*", Deviation::OptionalPtr, "pDlyLine", "a null delay line at Init stands for zeros"},
    {"vrxs[FI]IRSparseSetDlyLine_*", Deviation::OptionalPtr, "pDlyLine", "a null delay line at Set stands for zeros"},
    // IIR design and zero-phase IIR
    // adaptive FIR
    {"vrxsFIRLMSGetStateSize_*", Deviation::LengthStatus, "-26", "a tap count below one is vrxErrFirLen"},
    {"vrxsFIRLMSInit_*", Deviation::LengthStatus, "-26", "a tap count below one is vrxErrFirLen"},
    {"vrxsFIRLMSInit_*", Deviation::OptionalPtr, "pTaps", "null taps at Init are zeros"},
    {"vrxsFIRLMSInit_*", Deviation::OptionalPtr, "pDlyLine", "a null delay line at Init stands for zeros"},
    {"vrxsFIRLMSSetDlyLine_*", Deviation::OptionalPtr, "pDlyLine", "a null delay line at Set stands for zeros"},
    // median filter
    {"vrxsFilterMedian_*", Deviation::OptionalPtr, "pDlySrc", "a null delay line coming in means zeros"},
    {"vrxsFilterMedian_*", Deviation::OptionalPtr, "pDlyDst", "a null delay line going out is not written"},
    // polyphase resampling
    {"vrxsResamplePolyphase*GetSize_32f", Deviation::LengthStatus, "-5",
     "halfLen is a filter parameter: below one it is vrxErrBadArg, after the result pointers"},
    {"vrxsResamplePolyphase*Init_32f", Deviation::LengthStatus, "-5",
     "halfLen is a filter parameter: below one it is vrxErrBadArg, after the pointers"},
};

// ------------------------------------------------------------- the table
enum class Kind { Pointer, Length, Scalar };

struct Param {
    std::string type, name;
    Kind kind;
};

struct Args;  // the values of one call

using Thunk = long (*)(const Args&);

struct Export {
    const char* name;
    std::vector<Param> params;
    Thunk call;
    bool returnsPointer;
};

std::string trim(const std::string& s) {
    size_t b = s.find_first_not_of(" \t"), e = s.find_last_not_of(" \t");
    return b == std::string::npos ? std::string() : s.substr(b, e - b + 1);
}

bool isLengthName(const std::string& n) {
    if (n == "len") return true;
    if (n.size() > 3 && n.compare(0, 3, "len") == 0 && n[3] >= 'A' && n[3] <= 'Z') return true;
    return n.size() > 3 && n.compare(n.size() - 3, 3, "Len") == 0;
}

std::vector<Param> parseParams(const std::string& names, const std::string& text) {
    std::vector<Param> out;
    if (names.empty()) return out;
    size_t pos = 0;
    while (pos <= text.size()) {
        size_t comma = text.find(',', pos);
        std::string arg = trim(text.substr(pos, comma == std::string::npos ? std::string::npos : comma - pos));
        size_t cut = arg.find_last_of(" *&");
        Param p{trim(arg.substr(0, cut + 1)), arg.substr(cut + 1), Kind::Scalar};
        if (p.type.find('*') != std::string::npos) p.kind = Kind::Pointer;
        else if (p.type == "int" && isLengthName(p.name)) p.kind = Kind::Length;
        out.push_back(p);
        if (comma == std::string::npos) break;
        pos = comma + 1;
    }
    return out;
}

// The values of one call: which pointer is null, which length is bad.
struct Args {
    const Export* fn;
    uint8_t* buf[kMaxArgs];
    int nullArg = -1;      // index of the null pointer, or -1
    int lenArg = -1;       // index of the bad length, or -1 for all lengths
    int lenValue = kGoodLen;
    int otherLens = kGoodLen;
};

template <class T>
T neutral(const std::string& type) {
    if constexpr (std::is_class_v<T>) {
        T v{};
        if constexpr (requires { v.re; }) v.re = 1;
        return v;
    } else if constexpr (std::is_floating_point_v<T>) {
        return T(1);
    } else {
        if (type == "VrxCmpOp") return T(vrxCmpLess);
        if (type == "VrxAlgType") return T(vrxAlgAuto);
        if (type == "VrxWinType") return T(vrxWinBartlett);
        if (type == "VrxDataType") return T(vrx32f);
        if (type == "VrxRounding") return T(vrxRndNear);
        return T(1);
    }
}

template <class T, size_t I>
T argAt(const Args& a) {
    const Param& p = a.fn->params[I];
    if constexpr (std::is_pointer_v<T>) {
        return static_cast<int>(I) == a.nullArg ? nullptr : reinterpret_cast<T>(a.buf[I]);
    } else {
        if constexpr (std::is_same_v<T, int>) {
            if (p.kind == Kind::Length) return static_cast<int>(I) == a.lenArg ? a.lenValue : a.otherLens;
        }
        return neutral<T>(p.type);
    }
}

template <class R>
long result(R r) {
    if constexpr (std::is_pointer_v<R>) return r == nullptr ? 0 : 1;
    else return static_cast<long>(r);
}

template <auto F>
struct Call;
template <class R, class... A, R (*F)(A...)>
struct Call<F> {
    static constexpr size_t arity = sizeof...(A);
    static constexpr bool pointer[sizeof...(A) + 1] = {std::is_pointer_v<A>..., false};
    static long run(const Args& a) { return go(a, std::index_sequence_for<A...>{}); }
    template <size_t... I>
    static long go(const Args& a, std::index_sequence<I...>) {
        if constexpr (std::is_void_v<R>) {
            F(argAt<A, I>(a)...);
            return 0;
        } else {
            return result(F(argAt<A, I>(a)...));
        }
    }
    static constexpr bool returnsPointer = std::is_pointer_v<R>;
};

// One row: the parameters read from the header text must agree with the
// function's type (count, and which are pointers).
void addRow(std::vector<Export>& t, const char* fn, const char* names, const char* text, Thunk run,
            bool returnsPointer, size_t arity, const bool* pointer) {
    Export e{fn, parseParams(names, text), run, returnsPointer};
    EXPECT_EQ(e.params.size(), arity) << fn << ": argument list not parsed";
    for (size_t i = 0; i < e.params.size() && i < arity; ++i)
        EXPECT_EQ(e.params[i].kind == Kind::Pointer, pointer[i]) << fn << ": argument " << e.params[i].name << " misread";
    t.push_back(std::move(e));
}

std::vector<Export> buildTable() {
    std::vector<Export> t;
#define VRX_EXPORT(fn_, names_, text_) \
    addRow(t, #fn_, names_, text_, &Call<&fn_>::run, Call<&fn_>::returnsPointer, Call<&fn_>::arity, Call<&fn_>::pointer);
#include "vrxs_signatures.h"
#undef VRX_EXPORT
    return t;
}

// --------------------------------------------------------- the buffers
struct Arena {
    uint8_t* base;
    Arena() {
        base = static_cast<uint8_t*>(aligned_alloc(64, kArgBytes * kMaxArgs));
        memset(base, kSentinel, kArgBytes * kMaxArgs);
    }
    ~Arena() { free(base); }
    uint8_t* at(size_t i) { return base + i * kArgBytes; }
    // The index of the first buffer that is not all sentinel (then refilled), or -1.
    int touched(size_t n) {
        int first = -1;
        for (size_t i = 0; i < n; ++i) {
            const uint8_t* p = at(i);
            for (size_t k = 0; k < kArgBytes; ++k) {
                if (p[k] != kSentinel) {
                    if (first < 0) first = static_cast<int>(i);
                    memset(at(i), kSentinel, kArgBytes);
                    break;
                }
            }
        }
        return first;
    }
};

// A crash names the call that caused it.
char gCurrent[512];
void onCrash(int sig) {
    const char head[] = "\ncrashed in contract call: ";
    ssize_t r = write(2, head, sizeof head - 1);
    r = write(2, gCurrent, strlen(gCurrent));
    r = write(2, "\n", 1);
    (void)r;
    signal(sig, SIG_DFL);
    raise(sig);
}

struct Counts {
    size_t functions = 0, covered = 0, calls = 0, exceptions = 0;
};

std::string describe(const Export& e, const Args& a) {
    std::string s = std::string(e.name) + "(";
    for (size_t i = 0; i < e.params.size(); ++i) {
        if (i) s += ", ";
        const Param& p = e.params[i];
        s += p.name + "=";
        if (p.kind == Kind::Pointer) s += static_cast<int>(i) == a.nullArg ? "NULL" : "buf";
        else if (p.kind == Kind::Length) s += std::to_string(static_cast<int>(i) == a.lenArg ? a.lenValue : a.otherLens);
        else s += "neutral";
    }
    return s + ")";
}

TEST(Contract, EveryExportChecksPointersThenLengths) {
    std::vector<Export> table = buildTable();
    Arena arena;
    Counts n;
    signal(SIGSEGV, onCrash);
    signal(SIGBUS, onCrash);
    vt::MxcsrScope mx;

    for (const Export& e : table) {
        ++n.functions;
        ASSERT_LE(e.params.size(), kMaxArgs) << e.name;
        bool notCalled = false, nullResult = false, lengthFirst = false, unsignedLen = false;
        std::string valuesFirst;
        long lengthStatus = vrxErrBadLength;
        bool neutralRefused = false;
        std::string object, written, stateFirst, afterObject;
        std::vector<std::string> optional;
        bool matched = false;
        for (const Exception& x : kExceptions) {
            if (fnmatch(x.pattern, e.name, 0) != 0) continue;
            matched = true;
            switch (x.what) {
                case Deviation::NotCalled: notCalled = true; break;
                case Deviation::NullResult: nullResult = true; break;
                case Deviation::LengthFirst: lengthFirst = true; break;
                case Deviation::OptionalPtr: optional.push_back(x.arg); break;
                case Deviation::UnsignedLength: unsignedLen = true; break;
                case Deviation::ObjectFirst: object = x.arg; break;
                case Deviation::ValuesFirst: valuesFirst = x.arg; break;
                case Deviation::LengthStatus: lengthStatus = atol(x.arg); break;
                case Deviation::NeutralRefused: neutralRefused = true; break;
                case Deviation::WrittenOnError: written = x.arg; break;
                case Deviation::StateBeforeLength: stateFirst = x.arg; break;
                case Deviation::AfterObject: afterObject = x.arg; break;
            }
        }
        n.exceptions += matched;
        if (notCalled) continue;
        if (e.returnsPointer && !nullResult && !e.params.empty()) {
            ADD_FAILURE() << e.name << ": returns a pointer but has no exception row";
            continue;
        }

        Args a;
        a.fn = &e;
        for (size_t i = 0; i < kMaxArgs; ++i) a.buf[i] = arena.at(i);
        size_t before = n.calls;

        auto check = [&](const char* what, long expected) {
            snprintf(gCurrent, sizeof gCurrent, "%s", describe(e, a).c_str());
            long got = e.call(a);
            ++n.calls;
            if (nullResult) {
                EXPECT_EQ(got, 0) << e.name << " [" << what << "] " << describe(e, a)
                                  << ": expected a null result";
            } else {
                EXPECT_EQ(got, expected) << e.name << " [" << what << "] " << describe(e, a)
                                         << ": expected status " << expected << ", got " << got;
            }
            for (size_t w = 0; w < e.params.size(); ++w)
                if (e.params[w].name == written) memset(arena.at(w), kSentinel, kArgBytes);
            int t = arena.touched(e.params.size());
            EXPECT_LT(t, 0) << e.name << " [" << what << "] " << describe(e, a) << ": wrote into argument "
                            << (t >= 0 ? e.params[t].name : std::string());
        };

        bool hasLength = false;
        for (const Param& p : e.params) hasLength |= p.kind == Kind::Length;
        // Null pointers, one at a time, with bad lengths: -8 comes first.
        for (size_t i = 0; i < e.params.size(); ++i) {
            const Param& p = e.params[i];
            if (p.kind != Kind::Pointer || nullResult || neutralRefused) continue;
            bool opt = false;
            for (const std::string& o : optional) opt |= (o == p.name);
            if (opt) continue;
            if (!valuesFirst.empty() && p.name != valuesFirst) continue;
            long expected = (object.empty() || p.name == object) ? vrxErrNullPtr : vrxErrBadSpec;
            if (p.name == afterObject) expected = vrxErrBadSpec;
            a.nullArg = static_cast<int>(i);
            a.lenArg = -1;
            if (lengthFirst || !hasLength) {
                a.otherLens = kGoodLen;
                check("null pointer", expected);
            } else {
                for (int bad : kBadLens) {
                    if (unsignedLen && bad < 0) continue;
                    a.otherLens = bad;
                    check("null pointer", expected);
                }
            }
        }
        // Bad lengths, one at a time, with valid pointers: -6.
        a.nullArg = -1;
        a.otherLens = kGoodLen;
        for (size_t i = 0; i < e.params.size(); ++i) {
            if (e.params[i].kind != Kind::Length || !valuesFirst.empty()) continue;
            a.lenArg = static_cast<int>(i);
            for (int bad : kBadLens) {
                if (unsignedLen && bad < 0) continue;
                a.lenValue = bad;
                check("bad length", stateFirst.empty() ? lengthStatus : vrxErrBadSpec);
            }
        }
        n.covered += n.calls > before;
    }
    printf("contract: %zu exports, %zu covered, %zu calls, %zu matched an exception row\n", n.functions,
           n.covered, n.calls, n.exceptions);
    EXPECT_EQ(n.functions, table.size());
}

// A row that matches no export is reported, not failed: rows for families
// that other branches bring (vrxsMaxOrder_*) stand here before them.
TEST(Contract, ExceptionRowsInUse) {
    std::vector<Export> table = buildTable();
    for (const Exception& x : kExceptions) {
        bool used = false;
        for (const Export& e : table) used |= fnmatch(x.pattern, e.name, 0) == 0;
        if (!used) printf("note: exception row %s (%s) matches no export yet\n", x.pattern, x.reason);
    }
}

}  // namespace
