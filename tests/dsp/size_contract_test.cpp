// The numerical core stops the test build on an array of the wrong size
// instead of returning with stale output (one row per kind of routine).
#include "dsp/fir_synthesis.h"
#include "dsp/frequency_response.h"
#include "dsp/real_fft.h"

#include <gtest/gtest.h>

#include <functional>
#include <vector>

#ifndef NDEBUG
TEST(SizeContract, WrongSizesStopTheTestBuild)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    std::vector<double> v5(5, 1.0), v9(9), v24(24), v25(25, 1.0), v4095(4095);
    const std::function<void()> calls[] = {
        [&] { fftFilter(v5, v4095, {}); },
        [&] { inverseDFT(v25, v24); },
        [&] { RealFft(8).executePadded(v9); },
    };
    for (std::size_t i = 0; i < std::size(calls); ++i)
        EXPECT_DEATH(calls[i](), "array-size contract broken") << "call " << i;
}
#endif
