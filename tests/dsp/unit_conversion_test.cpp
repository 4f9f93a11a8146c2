// Voltage and frequency units of the project's signals, and the mV rescale.
#include <gtest/gtest.h>

#include <vector>

#include "dsp/unit_conversion.h"

TEST(UnitConversion, VoltUnits)
{
    const std::vector<double> a{1.0, -2.0};
    const std::vector<double> b{500.0, 250.0};
    std::vector<double> a2(2), b2(2);
    EXPECT_EQ(voltUnits(a, b, 1, 1, a2, b2), 1);
    EXPECT_EQ(a2, a);
    EXPECT_EQ(b2, b);
    EXPECT_EQ(voltUnits(a, b, 0, 1, a2, b2), 0);
    EXPECT_EQ(a2, a);
    EXPECT_EQ(b2, (std::vector<double>{0.5, 0.25}));
    EXPECT_EQ(voltUnits(b, a, 1, 0, b2, a2), 0);
    EXPECT_EQ(b2, (std::vector<double>{0.5, 0.25}));
    EXPECT_EQ(a2, a);
    // In place.
    std::vector<double> c = b;
    voltUnits(a, c, 0, 1, a2, c);
    EXPECT_EQ(c, (std::vector<double>{0.5, 0.25}));
}

TEST(UnitConversion, FreqUnits)
{
    auto f = freqUnits(0, 1, 3.0, 35.0, 0, 2); // only x₁
    EXPECT_EQ(f.code, 0);
    EXPECT_EQ(f.maxFreq, 3.0);
    f = freqUnits(0, 1, 3.0, 35.0, 2, 1); // only x₂
    EXPECT_EQ(f.code, 1);
    EXPECT_EQ(f.maxFreq, 35.0);
    f = freqUnits(1, 1, 3.0, 35.0, 0, 0);
    EXPECT_EQ(f.code, 1);
    EXPECT_EQ(f.maxFreq, 35.0);
    f = freqUnits(1, 0, 3500.0, 2.0, 0, 1); // KHz and MHz → MHz
    EXPECT_EQ(f.code, 0);
    EXPECT_EQ(f.maxFreq, 3.5);
    f = freqUnits(0, 1, 3.0, 500.0, 1, 0);
    EXPECT_EQ(f.code, 0);
    EXPECT_EQ(f.maxFreq, 3.0);
}

TEST(UnitConversion, RescaleToMillivolts)
{
    const std::vector<double> y{0.5, -3.0, 0.25}; // largest sample 0.5, magnitude 3
    std::vector<double> out(3);
    EXPECT_EQ(rescale(y, 0, out), 1);
    EXPECT_EQ(out, (std::vector<double>{500.0, -3000.0, 250.0}));
    EXPECT_EQ(rescale(y, 1, out), 1); // already mV: unchanged
    EXPECT_EQ(out, y);
    const std::vector<double> big{1.0, 0.0};
    out.resize(big.size());
    EXPECT_EQ(rescale(big, 0, out), 0);
    EXPECT_EQ(out[0], 1.0);
}
