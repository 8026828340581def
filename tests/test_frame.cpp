// The library frame as a user sees it: the shared object's exports and
// dependencies, the stub-and-slot route of every call, the version record,
// the core library and the allocators.
#include <cpuid.h>
#include <dlfcn.h>
#include <elf.h>
#include <limits.h>

#include <fstream>
#include <map>
#include <set>
#include <string>

#include "vrx_test.h"
#include "vrx_testhooks.h"

namespace {

std::vector<std::string> exportList() {
    std::ifstream in(VRX_EXPORTS_LIST);
    std::vector<std::string> names;
    for (std::string line; std::getline(in, line);)
        if (!line.empty()) names.push_back(line);
    return names;
}

// The symbols, dependencies and soname of the library file.
struct ElfView {
    struct Sym { uint64_t value; unsigned char bind, type; uint16_t shndx; };
    std::map<std::string, Sym> dynsym, symtab;
    std::vector<std::string> needed;
    std::string soname;

    explicit ElfView(const char* path) {
        std::ifstream f(path, std::ios::binary);
        std::vector<char> img((std::istreambuf_iterator<char>(f)), std::istreambuf_iterator<char>());
        const char* base = img.data();
        auto eh = reinterpret_cast<const Elf64_Ehdr*>(base);
        auto sh = reinterpret_cast<const Elf64_Shdr*>(base + eh->e_shoff);
        for (int i = 0; i < eh->e_shnum; ++i) {
            if (sh[i].sh_type == SHT_DYNSYM || sh[i].sh_type == SHT_SYMTAB) {
                const char* str = base + sh[sh[i].sh_link].sh_offset;
                auto syms = reinterpret_cast<const Elf64_Sym*>(base + sh[i].sh_offset);
                size_t n = sh[i].sh_size / sizeof(Elf64_Sym);
                auto& table = sh[i].sh_type == SHT_DYNSYM ? dynsym : symtab;
                for (size_t k = 1; k < n; ++k)
                    table[str + syms[k].st_name] = {syms[k].st_value, static_cast<unsigned char>(ELF64_ST_BIND(syms[k].st_info)),
                                                    static_cast<unsigned char>(ELF64_ST_TYPE(syms[k].st_info)), syms[k].st_shndx};
            } else if (sh[i].sh_type == SHT_DYNAMIC) {
                const char* str = base + sh[sh[i].sh_link].sh_offset;
                auto dyn = reinterpret_cast<const Elf64_Dyn*>(base + sh[i].sh_offset);
                for (size_t k = 0; dyn[k].d_tag != DT_NULL; ++k) {
                    if (dyn[k].d_tag == DT_NEEDED) needed.push_back(str + dyn[k].d_un.d_val);
                    if (dyn[k].d_tag == DT_SONAME) soname = str + dyn[k].d_un.d_val;
                }
            }
        }
    }
};

const ElfView& elf() {
    static const ElfView view(VRX_LIB_PATH);
    return view;
}

TEST(SharedObject, ExportsExactlyTheTableFunctions) {
    auto names = exportList();
    ASSERT_GT(names.size(), 80u);
    std::set<std::string> expected(names.begin(), names.end());
    std::set<std::string> defined;
    for (const auto& [name, s] : elf().dynsym) {
        if (s.shndx == SHN_UNDEF) continue;
        defined.insert(name);
        EXPECT_EQ(s.type, STT_FUNC) << name << " is exported but is no function";
        EXPECT_EQ(s.bind, STB_GLOBAL) << name;
    }
    EXPECT_EQ(defined, expected);
}

TEST(SharedObject, NeedsOnlyCoreMathAndC) {
#ifdef VRX_SANITIZED
    GTEST_SKIP() << "the library is built with -fsanitize=" VRX_SANITIZED " and needs its runtime";
#endif
    std::multiset<std::string> needed(elf().needed.begin(), elf().needed.end());
    EXPECT_EQ(needed, (std::multiset<std::string>{"libvrxcore.so.9.0", "libm.so.6", "libc.so.6"}));
    EXPECT_EQ(elf().soname, "libvrxsn0.so.9.0");
}

// Stubs 16 bytes apart in table order, slots 8 bytes apart in the same
// order. At run time each stub loads its slot's address from the GOT and
// jumps through the slot, which holds the local implementation n0_<name>.
TEST(SharedObject, EveryStubReachesItsImplementationInTableOrder) {
    void* h = dlopen(VRX_LIB_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(h, nullptr) << dlerror();
    const auto& base = *static_cast<const uint8_t*>(dlsym(h, "vrxsGetLibVersion"));
    const uintptr_t loadBias = reinterpret_cast<uintptr_t>(&base) - elf().dynsym.at("vrxsGetLibVersion").value;
    const auto names = exportList();
    for (size_t i = 0; i < names.size(); ++i) {
        const std::string& name = names[i];
        const auto stubSym = elf().dynsym.at(name), slotSym = elf().symtab.at(name + "_arraddr");
        const auto impl = elf().symtab.find("n0_" + name);
        ASSERT_NE(impl, elf().symtab.end()) << "no n0_" << name;
        EXPECT_TRUE(impl->second.bind == STB_LOCAL && impl->second.type == STT_FUNC) << name;
        EXPECT_EQ(stubSym.value % 16, 0u) << name;
        if (i > 0) {
            EXPECT_EQ(stubSym.value, elf().dynsym.at(names[i - 1]).value + 16) << name;
            EXPECT_EQ(slotSym.value, elf().symtab.at(names[i - 1] + "_arraddr").value + 8) << name;
        }
        auto stub = static_cast<const uint8_t*>(dlsym(h, name.c_str()));
        ASSERT_NE(stub, nullptr) << name;
        // movq disp32(%rip), %r11 ; jmpq *(%r11)
        ASSERT_EQ(0, memcmp(stub, "\x4C\x8B\x1D", 3)) << name;
        ASSERT_EQ(0, memcmp(stub + 7, "\x41\xFF\x23", 3)) << name;
        int32_t disp;
        memcpy(&disp, stub + 3, 4);
        const uintptr_t slot = *reinterpret_cast<const uintptr_t*>(stub + 7 + disp);
        EXPECT_EQ(slot, loadBias + slotSym.value) << name;
        EXPECT_EQ(*reinterpret_cast<const uintptr_t*>(slot), loadBias + impl->second.value) << name;
    }
    dlclose(h);
}

TEST(Version, RecordHoldsTheReleaseFields) {
    const VrxLibraryVersion* v = vrxsGetLibVersion();
    ASSERT_NE(v, nullptr);
    EXPECT_EQ(v, vrxsGetLibVersion());
    EXPECT_EQ((std::vector<int>{v->major, v->minor, v->majorBuild, v->build}), (std::vector<int>{9, 0, 2, 49912}));
    EXPECT_EQ(0, memcmp(v->targetCpu, "n0\0\0", 4));
    EXPECT_STREQ(v->Name, "vrxSP AVX-512F/CD/ER/PF (n0)");
    EXPECT_STREQ(v->Version, "9.0.2 (r49912)");
    EXPECT_STREQ(v->BuildDate, "Dec 28 2015");
}

// ----------------------------------------------------------- core library

// The core exports its five functions and nothing else: no process-wide
// switch that would change the paths of every other thread (the feature
// mask exists only in the test build of the core this test runs against).
TEST(Core, ExportsOnlyItsFiveFunctions) {
    const ElfView core(VRX_CORE_PATH);
    std::set<std::string> defined;
    for (const auto& [name, s] : core.dynsym)
        if (s.shndx != SHN_UNDEF && s.type == STT_FUNC) defined.insert(name);
    EXPECT_EQ(defined, (std::set<std::string>{"vrxMalloc", "vrxFree", "vrxGetMaxCacheSizeB", "vrxAlignPtr", "ownGetFeature"}));
    EXPECT_EQ(core.soname, "libvrxcore.so.9.0");
    void* h = dlopen(VRX_CORE_PATH, RTLD_NOW | RTLD_LOCAL);
    ASSERT_NE(h, nullptr) << dlerror();
    EXPECT_EQ(dlsym(h, "vrxSetFeatureMask"), nullptr);
    dlclose(h);
}

TEST(Core, AlignPtrRoundsUp) {
    alignas(64) static char block[256];
    EXPECT_EQ(vrxAlignPtr(block, 32), static_cast<void*>(block));
    EXPECT_EQ(vrxAlignPtr(block + 1, 32), static_cast<void*>(block + 32));
    EXPECT_EQ(vrxAlignPtr(block + 31, 32), static_cast<void*>(block + 32));
    EXPECT_EQ(vrxAlignPtr(block + 33, 64), static_cast<void*>(block + 64));
}

TEST(Core, HalfFloatFeatureFollowsTheProcessorAndTheMask) {
    unsigned a, b, c, d;
    __cpuid(1, a, b, c, d);
    const int f16c = (c >> 29) & 1;
    EXPECT_EQ(ownGetFeature(VRX_CPU_F16C), f16c);
    uint64_t old = vrxSetFeatureMask(~VRX_CPU_F16C);
    EXPECT_EQ(ownGetFeature(VRX_CPU_F16C), 0);
    vrxSetFeatureMask(old);
    EXPECT_EQ(ownGetFeature(VRX_CPU_F16C), f16c);
    EXPECT_EQ(ownGetFeature(VRX_CPU_AVX512F | VRX_CPU_AVX512CD), 1) << "the n0 build needs AVX-512F and CD";
}

TEST(Core, CacheSizeIsPlausible) {
    int size = -1;
    if (vrxGetMaxCacheSizeB(&size) == 0) {
        EXPECT_GE(size, 64 * 1024);
        EXPECT_LE(size, 1 << 30);
    }
    EXPECT_NE(vrxGetMaxCacheSizeB(nullptr), 0);
}

// ------------------------------------------------------------- allocation

struct MallocCase {
    const char* name;
    void* (*alloc)(int);
    int elemSize;
};

template <class T, T* (*F)(int)>
void* erase(int n) { return F(n); }

const MallocCase kMallocCases[] = {
    {"core", vrxMalloc, 1},
    {"8u", erase<Vrx8u, vrxsMalloc_8u>, 1},      {"8s", erase<Vrx8s, vrxsMalloc_8s>, 1},
    {"16u", erase<Vrx16u, vrxsMalloc_16u>, 2},   {"16s", erase<Vrx16s, vrxsMalloc_16s>, 2},
    {"8sc", erase<Vrx8sc, vrxsMalloc_8sc>, 2},   {"32u", erase<Vrx32u, vrxsMalloc_32u>, 4},
    {"32s", erase<Vrx32s, vrxsMalloc_32s>, 4},   {"32f", erase<Vrx32f, vrxsMalloc_32f>, 4},
    {"16sc", erase<Vrx16sc, vrxsMalloc_16sc>, 4}, {"64s", erase<Vrx64s, vrxsMalloc_64s>, 8},
    {"64f", erase<Vrx64f, vrxsMalloc_64f>, 8},   {"32sc", erase<Vrx32sc, vrxsMalloc_32sc>, 8},
    {"32fc", erase<Vrx32fc, vrxsMalloc_32fc>, 8}, {"64sc", erase<Vrx64sc, vrxsMalloc_64sc>, 16},
    {"64fc", erase<Vrx64fc, vrxsMalloc_64fc>, 16},
};

// The core and every type align to 64 and refuse non-positive lengths. The limit is
// 2^31-1 bytes: the largest length that fits is accepted (the memory is
// only reserved, not touched), one more is refused.
TEST(Malloc, EveryTypeAlignsAndKeepsTheByteLimit) {
    for (const auto& c : kMallocCases) {
        SCOPED_TRACE(c.name);
        auto release = [&](void* q) { c.alloc == vrxMalloc ? vrxFree(q) : vrxsFree(q); };
        EXPECT_TRUE(c.alloc(0) == nullptr && c.alloc(-1) == nullptr && c.alloc(INT_MIN) == nullptr);
        void* p = c.alloc(100);
        ASSERT_NE(p, nullptr);
        EXPECT_EQ(reinterpret_cast<uintptr_t>(p) % 64, 0u);
        memset(p, 1, 100 * static_cast<size_t>(c.elemSize));
        release(p);
        const int largest = INT_MAX / c.elemSize;
        p = c.alloc(largest);
        EXPECT_NE(p, nullptr);
        release(p);
        if (c.elemSize > 1) { EXPECT_EQ(c.alloc(largest + 1), nullptr); }
    }
    vrxsFree(nullptr);
    vrxFree(nullptr);
}

}  // namespace
