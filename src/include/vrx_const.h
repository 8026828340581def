// A run-time count choosing a kernel instantiated for each count in a
// range: withConst<Lo, Hi>(v, f) calls f(std::integral_constant<int, v>{})
// when Lo <= v <= Hi and returns whether it did.
#pragma once

#include <type_traits>
#include <utility>

#include "vrx_base.h"

namespace n0 {

template <int Lo, int Hi, class Fn>
VRX_INLINE bool withConst(int v, Fn&& f) {
    return [&]<int... K>(std::integer_sequence<int, K...>) {
        return ((v == Lo + K ? (f(std::integral_constant<int, Lo + K>{}), true) : false) || ...);
    }(std::make_integer_sequence<int, Hi - Lo + 1>{});
}

}  // namespace n0
