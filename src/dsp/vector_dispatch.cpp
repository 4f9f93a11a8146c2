#include "dsp/vector_dispatch.h"

namespace vector_dispatch {

namespace {

Width cappedAt = Width::Bytes64;

Width detected()
{
#ifdef ORVANA_VECTOR_DISPATCH
    __builtin_cpu_init();
    if (__builtin_cpu_supports("x86-64-v4"))
        return Width::Bytes64;
    if (__builtin_cpu_supports("x86-64-v3"))
        return Width::Bytes32;
#endif
    return Width::Bytes16;
}

} // namespace

Width widest()
{
    static const Width width = detected();
    return width < cappedAt ? width : cappedAt;
}

void capWidth(Width cap)
{
    cappedAt = cap;
}

} // namespace vector_dispatch
