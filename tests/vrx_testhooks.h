// Test-only entries of the core library. They exist only in the test build
// of the core (build/lib/testhooks/libvrxcore.so.9.0, never installed); a
// test that includes this header is linked against that build, which the
// library then loads in place of the usual core.
#pragma once

#include <stdint.h>

#include "vrxcore.h"

extern "C" {
// Limits the features that ownGetFeature reports to those of mask (all bits
// set: everything the processor has); returns the previous mask. The mask
// is process-wide: tests set it around single-threaded calls only.
uint64_t vrxSetFeatureMask(uint64_t mask);
}
