// Voltage and frequency units of the project's signals, and the mV rescale.
#include <gtest/gtest.h>

#include <vector>

#include "dsp/unit_conversion.h"

TEST(UnitConversion, VoltUnits)
{
    using V = std::vector<double>;
    const V a{1.0, -2.0}, b{500.0, 250.0};
    V a2(2), b2(2);
    EXPECT_EQ(voltUnits(a, b, 1, 1, a2, b2), 1); // both mV: unchanged
    EXPECT_EQ(a2, a);
    EXPECT_EQ(b2, b);
    EXPECT_EQ(voltUnits(a, b, 0, 1, a2, b2), 0); // V and mV: mV becomes V
    EXPECT_EQ(a2, a);
    EXPECT_EQ(b2, (V{0.5, 0.25}));
    EXPECT_EQ(voltUnits(b, a, 1, 0, b2, a2), 0);
    EXPECT_EQ(b2, (V{0.5, 0.25}));
    EXPECT_EQ(a2, a);
    V c = b; // in place
    voltUnits(a, c, 0, 1, a2, c);
    EXPECT_EQ(c, (V{0.5, 0.25}));
}

TEST(UnitConversion, FreqUnits)
{
    const struct {
        int code1, code2;
        double max1, max2;
        int sign1, sign2;
        int code;
        double maxFreq;
    } cases[] = {
        {0, 1, 3.0, 35.0, 0, 2, 0, 3.0},   // only x₁
        {0, 1, 3.0, 35.0, 2, 1, 1, 35.0},  // only x₂
        {1, 1, 3.0, 35.0, 0, 0, 1, 35.0},  // both KHz
        {1, 0, 3500.0, 2.0, 0, 1, 0, 3.5}, // KHz and MHz → MHz
        {0, 1, 3.0, 500.0, 1, 0, 0, 3.0},
    };
    for (const auto& c : cases) {
        const auto f = freqUnits(c.code1, c.code2, c.max1, c.max2, c.sign1, c.sign2);
        EXPECT_EQ(f.code, c.code) << c.max1 << " " << c.max2;
        EXPECT_EQ(f.maxFreq, c.maxFreq) << c.max1 << " " << c.max2;
    }
}

TEST(UnitConversion, RescaleToMillivolts)
{
    const std::vector<double> y{0.5, -3.0, 0.25}; // largest sample 0.5, magnitude 3
    std::vector<double> out(3);
    EXPECT_EQ(rescale(y, 0, out), 1);
    EXPECT_EQ(out, (std::vector<double>{500.0, -3000.0, 250.0}));
    EXPECT_EQ(rescale(y, 1, out), 1); // already mV: unchanged
    EXPECT_EQ(out, y);
    out.resize(2);
    EXPECT_EQ(rescale(std::vector<double>{1.0, 0.0}, 0, out), 0);
    EXPECT_EQ(out[0], 1.0);
}
