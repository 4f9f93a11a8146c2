// Runs a vector kernel at the widest width the processor offers. A kernel is a
// class with `template <std::size_t Bytes> static R run(Args...)`, marked
// always_inline, so that each width is compiled inside a function built for its
// own instruction set (AVX-512, AVX2/FMA, or the baseline SSE2) and the loader
// of one binary serves every x86-64 machine.
#pragma once

#include <cstddef>
#include <utility>

namespace vector_dispatch {

// Vector registers wide enough for a kernel's 64-, 32- or 16-byte variant.
enum class Width { Bytes16, Bytes32, Bytes64 };

// The widest width this processor runs (found once), or the cap when that is narrower.
Width widest();

// Caps the width used from now on, so tests run every variant on one machine.
void capWidth(Width cap);

#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__)
#define ORVANA_VECTOR_DISPATCH 1

template <class Kernel, class... Args>
[[gnu::target("arch=x86-64-v4,prefer-vector-width=512")]] auto runAvx512(Args&&... args)
{
    return Kernel::template run<64>(std::forward<Args>(args)...);
}

template <class Kernel, class... Args> [[gnu::target("arch=x86-64-v3")]] auto runAvx2(Args&&... args)
{
    return Kernel::template run<32>(std::forward<Args>(args)...);
}
#endif

template <class Kernel, class... Args> auto run(Args&&... args)
{
#ifdef ORVANA_VECTOR_DISPATCH
    switch (widest()) {
    case Width::Bytes64:
        return runAvx512<Kernel>(std::forward<Args>(args)...);
    case Width::Bytes32:
        return runAvx2<Kernel>(std::forward<Args>(args)...);
    case Width::Bytes16:
        break;
    }
#endif
    return Kernel::template run<16>(std::forward<Args>(args)...);
}

} // namespace vector_dispatch
