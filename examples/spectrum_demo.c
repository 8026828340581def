/* spectrum_demo: a first real use of the library.
 *
 * Builds one second of a signal sampled at 8 kHz with three tones and some
 * noise, takes a Hann-windowed real FFT of its first 4096 samples through the
 * library, writes the magnitude spectrum in dB as an SVG plot and prints the
 * peaks it finds.
 *
 *   spectrum_demo [out.svg]    (default: spectrum.svg beside this program)
 *
 * It prints where it wrote the plot.
 */
#define _XOPEN_SOURCE 700 /* readlink, realpath */
#include <limits.h>
#include <math.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>
#include <unistd.h>

#include "vrxs.h"

enum { ORDER = 12, N = 1 << ORDER };
static const double kRate = 8000.0;
static const double kPi = 3.14159265358979323846;

/* A small deterministic noise source: uniform in [-1, 1). */
static double noise(unsigned long long* s) {
    *s = *s * 6364136223846793005ull + 1442695040888963407ull;
    return (double)(*s >> 11) * (1.0 / 4503599627370496.0) - 1.0;
}

static int fail(const char* what, VrxStatus st) {
    fprintf(stderr, "spectrum_demo: %s failed with status %d\n", what, st);
    return 1;
}

/* The spectrum as a polyline over a frequency axis in kHz and a dB axis. */
static int writeSvg(const char* path, const double* db, int bins, const int* peaks, const double* peakHz, int nPeaks) {
    FILE* f = fopen(path, "w");
    if (!f) return 0;
    const double W = 900, H = 440, L = 72, R = 20, T = 56, B = 50;
    const double dbTop = 0, dbBottom = -120;
    const double pw = W - L - R, ph = H - T - B;
    fprintf(f, "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"%.0f\" height=\"%.0f\" font-family=\"sans-serif\" font-size=\"12\">\n", W, H);
    fprintf(f, "<rect width=\"100%%\" height=\"100%%\" fill=\"white\"/>\n");
    fprintf(f, "<text x=\"%.0f\" y=\"24\" font-size=\"14\">Magnitude spectrum, %d-point real FFT, Hann window, %.0f Hz sampling</text>\n", L, N, kRate);
    for (int d = 0; d >= -120; d -= 20) {
        double y = T + (dbTop - d) / (dbTop - dbBottom) * ph;
        fprintf(f, "<line x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\" stroke=\"#ddd\"/>\n", L, y, L + pw, y);
        fprintf(f, "<text x=\"%.1f\" y=\"%.1f\" text-anchor=\"end\">%d</text>\n", L - 6, y + 4, d);
    }
    for (int k = 0; k <= 4; ++k) {
        double x = L + k / 4.0 * pw;
        fprintf(f, "<line x1=\"%.1f\" y1=\"%.1f\" x2=\"%.1f\" y2=\"%.1f\" stroke=\"#ddd\"/>\n", x, T, x, T + ph);
        fprintf(f, "<text x=\"%.1f\" y=\"%.1f\" text-anchor=\"middle\">%d kHz</text>\n", x, T + ph + 18, k);
    }
    fprintf(f, "<text x=\"%.1f\" y=\"%.1f\" text-anchor=\"middle\">frequency</text>\n", L + pw / 2, H - 8);
    fprintf(f, "<text transform=\"rotate(-90)\" x=\"%.1f\" y=\"20\" text-anchor=\"middle\">dB relative to a full-scale sine</text>\n",
            -(T + ph / 2));
    fprintf(f, "<polyline fill=\"none\" stroke=\"#1f5fbf\" stroke-width=\"1\" points=\"");
    for (int k = 0; k < bins; ++k) {
        double v = db[k] < dbBottom ? dbBottom : db[k];
        fprintf(f, "%.1f,%.1f ", L + (double)k / (bins - 1) * pw, T + (dbTop - v) / (dbTop - dbBottom) * ph);
    }
    fprintf(f, "\"/>\n");
    for (int i = 0; i < nPeaks; ++i) {
        int k = peaks[i];
        double x = L + (double)k / (bins - 1) * pw, y = T + (dbTop - db[k]) / (dbTop - dbBottom) * ph;
        fprintf(f, "<circle cx=\"%.1f\" cy=\"%.1f\" r=\"4\" fill=\"none\" stroke=\"#c03\"/>\n", x, y);
        fprintf(f, "<text x=\"%.1f\" y=\"%.1f\" fill=\"#c03\">%.0f Hz</text>\n", x + 6, y - 6, peakHz[i]);
    }
    fprintf(f, "<rect x=\"%.0f\" y=\"%.0f\" width=\"%.0f\" height=\"%.0f\" fill=\"none\" stroke=\"#444\"/>\n", L, T, pw, ph);
    fprintf(f, "</svg>\n");
    return fclose(f) == 0;
}

/* spectrum.svg in the directory of this program, found through /proc. */
static const char* besideProgram(char* buf, size_t size) {
    ssize_t n = readlink("/proc/self/exe", buf, size - 1);
    if (n <= 0) return "spectrum.svg";
    buf[n] = 0;
    char* slash = strrchr(buf, '/');
    if (!slash || (size_t)(slash - buf) + sizeof "/spectrum.svg" > size) return "spectrum.svg";
    strcpy(slash, "/spectrum.svg");
    return buf;
}

int main(int argc, char** argv) {
    char defaultPath[PATH_MAX];
    const char* out = argc > 1 ? argv[1] : besideProgram(defaultPath, sizeof defaultPath);
    const double tones[3][2] = {{440.0, 1.0}, {1250.0, 0.5}, {3000.0, 0.125}};

    /* the plan: sizes from the library, memory from the caller */
    int specSize, initSize, workSize;
    VrxStatus st = vrxsFFTGetSize_R_32f(ORDER, vrxFftScaleNone, vrxAlgHintAccurate, &specSize, &initSize, &workSize);
    if (st != vrxOk) return fail("vrxsFFTGetSize_R_32f", st);
    Vrx8u* spec = vrxsMalloc_8u(specSize);
    Vrx8u* init = initSize > 0 ? vrxsMalloc_8u(initSize) : NULL;
    Vrx8u* work = workSize > 0 ? vrxsMalloc_8u(workSize) : NULL;
    Vrx32f* x = vrxsMalloc_32f(N);
    Vrx32f* X = vrxsMalloc_32f(N + 2);
    double* db = malloc(sizeof(double) * (N / 2 + 1));
    if (!spec || (initSize > 0 && !init) || (workSize > 0 && !work) || !x || !X || !db) return fail("allocation", 0);
    VrxsFftPlan_R_32f* plan = NULL;
    st = vrxsFFTInit_R_32f(&plan, ORDER, vrxFftScaleNone, vrxAlgHintAccurate, spec, init);
    if (st != vrxOk) return fail("vrxsFFTInit_R_32f", st);

    /* the signal, windowed */
    unsigned long long seed = 2015;
    double wsum = 0;
    for (int n = 0; n < N; ++n) {
        double t = n / kRate, v = 0.01 * noise(&seed);
        for (int i = 0; i < 3; ++i) v += tones[i][1] * sin(2 * kPi * tones[i][0] * t);
        double w = 0.5 - 0.5 * cos(2 * kPi * n / N);
        wsum += w;
        x[n] = (Vrx32f)(v * w);
    }

    /* the transform: N reals to N/2 + 1 complex values in CCS form */
    st = vrxsFFTFwd_RToCCS_32f(x, X, plan, work);
    if (st != vrxOk) return fail("vrxsFFTFwd_RToCCS_32f", st);

    /* magnitude in dB relative to a full-scale sine */
    for (int k = 0; k <= N / 2; ++k) {
        double re = X[2 * k], im = X[2 * k + 1];
        double mag = sqrt(re * re + im * im) * 2.0 / wsum;
        db[k] = 20.0 * log10(mag > 1e-12 ? mag : 1e-12);
    }

    /* peaks: local maxima 40 dB above the floor, refined by a parabola */
    int peaks[16], nPeaks = 0;
    double peakHz[16];
    printf("%d-point real FFT of %.0f Hz data; peaks found:\n", N, kRate);
    printf("  %10s  %8s\n", "frequency", "level");
    for (int k = 3; k < N / 2 - 3 && nPeaks < 16; ++k) {
        int top = db[k] > -60.0;
        for (int d = -3; top && d <= 3; ++d) top = d == 0 || db[k] > db[k + d];
        if (!top) continue;
        double a = db[k - 1], b = db[k], c = db[k + 1];
        double p = 0.5 * (a - c) / (a - 2 * b + c);
        peakHz[nPeaks] = (k + p) * kRate / N;
        printf("  %7.1f Hz  %5.1f dB\n", peakHz[nPeaks], b - 0.25 * (a - c) * p);
        peaks[nPeaks++] = k;
    }
    if (!writeSvg(out, db, N / 2 + 1, peaks, peakHz, nPeaks)) {
        fprintf(stderr, "spectrum_demo: cannot write %s\n", out);
        return 1;
    }
    char where[PATH_MAX];
    printf("spectrum written to %s\n", realpath(out, where) ? where : out);

    vrxsFree(spec); vrxsFree(init); vrxsFree(work); vrxsFree(x); vrxsFree(X);
    free(db);
    return nPeaks == 3 ? 0 : 1;
}
