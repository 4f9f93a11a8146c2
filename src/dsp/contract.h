// Array-size contracts of the numerical routines. Each public function says
// above its signature what sizes it takes; a call that breaks that is a
// programming error, not bad input. The test build (Debug, no NDEBUG) stops
// there with the condition and its place, so no caller goes on with stale
// output; a release build leaves the routine without writing anything, so a
// wrong size can never write past an array.
#pragma once

#include <cstdio>
#include <cstdlib>

namespace dsp_contract {

[[noreturn]] inline void broken(const char* condition, const char* file, int line)
{
    std::fprintf(stderr, "%s:%d: array-size contract broken: %s\n", file, line, condition);
    std::abort();
}

} // namespace dsp_contract

// True when cond holds; written `if (!DSP_EXPECTS(cond)) return …;`.
#ifdef NDEBUG
#define DSP_EXPECTS(cond) static_cast<bool>(cond)
#else
#define DSP_EXPECTS(cond)                                                                                    \
    (static_cast<bool>(cond) || (::dsp_contract::broken(#cond, __FILE__, __LINE__), false))
#endif
