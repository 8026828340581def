// The public header as a user reads it: the compile-time version agrees with
// the library's version record, and every exported function is documented.
//
// Documentation rule. A comment block is one or more lines from a line that
// starts with "/*" to the line that ends it with "*/". A run is a sequence of
// consecutive VRXAPI(...) lines with no other line (not even a blank one)
// between them. A run is documented when a comment block ends on the line
// directly above its first line: that comment is the run's own comment when
// the run has one line, its group comment otherwise, and it covers every
// line of the run. A one-line banner "/* ---- title */" or "/* ==== title */"
// is a section rule, not documentation. (A comment after a declaration on its
// own line is not possible: the build reads each VRXAPI line whole.)
#include <cstdio>
#include <fstream>
#include <regex>
#include <string>
#include <vector>

#include "vrx_test.h"

namespace {

std::vector<std::string> headerLines() {
    std::ifstream in(VRX_HEADER_PATH);
    std::vector<std::string> lines;
    for (std::string line; std::getline(in, line);) lines.push_back(line);
    return lines;
}

std::string trim(const std::string& s) {
    size_t a = s.find_first_not_of(" \t\r"), b = s.find_last_not_of(" \t\r");
    return a == std::string::npos ? std::string() : s.substr(a, b - a + 1);
}

struct Export {
    std::string name;
    int line;         // 1-based
    bool documented;
};

// Applies the rule above to the header's lines.
std::vector<Export> scan(const std::vector<std::string>& lines) {
    static const std::regex decl(R"(^VRXAPI\(\s*[^,]+,\s*(vrxs\w+)\s*,)");
    static const std::regex banner(R"(^/\*\s*[-=]{4,}.*\*/$)");
    std::vector<Export> out;
    bool runDocumented = false;
    bool prevWasDecl = false;
    for (size_t i = 0; i < lines.size(); ++i) {
        const std::string t = trim(lines[i]);
        std::smatch m;
        if (!std::regex_search(t, m, decl)) {
            prevWasDecl = false;
            continue;
        }
        if (!prevWasDecl) {
            // first line of a run: is there a comment block ending right above?
            runDocumented = false;
            if (i > 0) {
                const std::string above = trim(lines[i - 1]);
                if (above.size() >= 2 && above.compare(above.size() - 2, 2, "*/") == 0) {
                    if (above.rfind("/*", 0) == 0) {
                        // a one-line block
                        runDocumented = !std::regex_match(above, banner);
                    } else if (above.find("/*") == std::string::npos) {
                        // the last line of a longer block: its first line starts
                        // with "/*" and no line between closes another comment
                        for (size_t k = i - 1; k-- > 0;) {
                            const std::string l = trim(lines[k]);
                            if (l.find("*/") != std::string::npos) break;
                            if (l.rfind("/*", 0) == 0) { runDocumented = true; break; }
                        }
                    }
                }
            }
        }
        out.push_back({m[1].str(), static_cast<int>(i + 1), runDocumented});
        prevWasDecl = true;
    }
    return out;
}

TEST(Version, HeaderMacrosMatchTheLibraryRecord) {
    const VrxLibraryVersion* v = vrxsGetLibVersion();
    EXPECT_EQ(v->major, VRXS_VERSION_MAJOR);
    EXPECT_EQ(v->minor, VRXS_VERSION_MINOR);
    EXPECT_EQ(v->majorBuild, VRXS_VERSION_PATCH);
    char text[32];
    std::snprintf(text, sizeof text, "%d.%d.%d ", VRXS_VERSION_MAJOR, VRXS_VERSION_MINOR, VRXS_VERSION_PATCH);
    EXPECT_EQ(std::string(v->Version).rfind(text, 0), 0u) << v->Version;
    // and the build's own version, which names the installed package
    EXPECT_EQ(std::string(text), std::string(VRX_PROJECT_VERSION) + " ");
}

TEST(Version, MacrosAreUsableInThePreprocessor) {
#if VRXS_VERSION_MAJOR < 9 || (VRXS_VERSION_MAJOR == 9 && VRXS_VERSION_MINOR == 0 && VRXS_VERSION_PATCH < 2)
    FAIL() << "version macros below 9.0.2";
#endif
    SUCCEED();
}

// The rule itself, on small headers: what counts and what does not.
TEST(DocComments, RuleAcceptsOwnAndGroupCommentsOnly) {
    struct Case { std::vector<std::string> text; std::vector<bool> documented; };
    const Case cases[] = {
        {{"/* own */", "VRXAPI(int, vrxsA, (void))"}, {true}},
        {{"/* group,", " * two lines */", "VRXAPI(int, vrxsA, (void))", "VRXAPI(int, vrxsB, (void))"}, {true, true}},
        {{"/* group */", "VRXAPI(int, vrxsA, (void))", "", "VRXAPI(int, vrxsB, (void))"}, {true, false}},
        {{"/* ---------------- section */", "VRXAPI(int, vrxsA, (void))"}, {false}},
        {{"/* --- a titled paragraph", "   that documents */", "VRXAPI(int, vrxsA, (void))"}, {true}},
        {{"int x; /* not above */", "", "VRXAPI(int, vrxsA, (void))"}, {false}},
        {{"/* a */", "enum { e }; /* code, not a doc comment */", "VRXAPI(int, vrxsA, (void))"}, {false}},
        {{"/* one */", "VRXAPI(int, vrxsA, (void))", "/* two */", "VRXAPI(int, vrxsB, (void))"}, {true, true}},
    };
    for (const Case& c : cases) {
        const std::vector<Export> got = scan(c.text);
        ASSERT_EQ(got.size(), c.documented.size()) << c.text[0];
        for (size_t i = 0; i < got.size(); ++i)
            EXPECT_EQ(got[i].documented, c.documented[i]) << c.text[0] << " / " << got[i].name;
    }
}

TEST(DocComments, EveryExportHasItsOwnOrItsGroupsComment) {
    const std::vector<Export> exports = scan(headerLines());
    ASSERT_GT(exports.size(), 1000u);
    size_t documented = 0;
    std::string missing;
    for (const Export& e : exports) {
        if (e.documented) ++documented;
        else missing += "  vrxs.h:" + std::to_string(e.line) + " " + e.name + "\n";
    }
    std::printf("doc comment coverage: %zu of %zu exports\n", documented, exports.size());
    EXPECT_EQ(documented, exports.size()) << "exports with neither their own nor their group's comment:\n"
                                          << missing;
}

// The worked example of docs/fft.md: x = 1..8, N = 8, in the three packed
// forms, the round trip, and the expansion to the full spectrum.
TEST(DocsExample, FftOfOneToEightInTheThreePackedForms) {
    int specSize, initSize, workSize;
    ASSERT_EQ(vrxsFFTGetSize_R_32f(3, vrxFftScaleNone, vrxAlgHintAccurate, &specSize, &initSize, &workSize), vrxOk);
    EXPECT_EQ(initSize, 0);
    EXPECT_EQ(workSize, 0);
    std::vector<Vrx8u> spec(specSize);
    VrxsFftPlan_R_32f* plan = nullptr;
    ASSERT_EQ(vrxsFFTInit_R_32f(&plan, 3, vrxFftScaleNone, vrxAlgHintAccurate, spec.data(), nullptr), vrxOk);
    const float x[8] = {1, 2, 3, 4, 5, 6, 7, 8};
    const float c1 = 9.656854f, c3 = 1.656854f;  // 4 cot(pi/8), 4 cot(3 pi/8)
    const std::vector<float> ccs = {36, 0, -4, c1, -4, 4, -4, c3, -4, 0};
    const std::vector<float> pack = {36, -4, c1, -4, 4, -4, c3, -4};
    const std::vector<float> perm = {36, -4, -4, c1, -4, 4, -4, c3};
    struct Form {
        VrxStatus (*fwd)(const Vrx32f*, Vrx32f*, const VrxsFftPlan_R_32f*, Vrx8u*);
        VrxStatus (*inv)(const Vrx32f*, Vrx32f*, const VrxsFftPlan_R_32f*, Vrx8u*);
        const std::vector<float>* want;
    };
    for (const Form& f : {Form{vrxsFFTFwd_RToCCS_32f, vrxsFFTInv_CCSToR_32f, &ccs},
                          Form{vrxsFFTFwd_RToPack_32f, vrxsFFTInv_PackToR_32f, &pack},
                          Form{vrxsFFTFwd_RToPerm_32f, vrxsFFTInv_PermToR_32f, &perm}}) {
        std::vector<float> X(10, 99.0f), back(8);
        ASSERT_EQ(f.fwd(x, X.data(), plan, nullptr), vrxOk);
        for (size_t i = 0; i < f.want->size(); ++i) EXPECT_NEAR(X[i], (*f.want)[i], 2e-5) << i;
        ASSERT_EQ(f.inv(X.data(), back.data(), plan, nullptr), vrxOk);
        for (int i = 0; i < 8; ++i) EXPECT_NEAR(back[i], 8 * x[i], 1e-4) << i;  // N times x, unscaled
    }
    Vrx32fc full[8];
    ASSERT_EQ(vrxsConjCcs_32fc(ccs.data(), full, 8), vrxOk);
    const float im[8] = {0, c1, 4, c3, 0, -c3, -4, -c1};
    for (int k = 0; k < 8; ++k) {
        EXPECT_FLOAT_EQ(full[k].re, k == 0 ? 36.0f : -4.0f) << k;
        EXPECT_FLOAT_EQ(full[k].im, im[k]) << k;
    }
}

}  // namespace
