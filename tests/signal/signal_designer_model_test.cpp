// Signal designer model: every validation message, the optimal-rate notice,
// the result arrays and their headers, fresh noise, and bad input.
#include <cmath>
#include <limits>
#include <vector>

#include "dsp/signal_generators.h"
#include "recording_signal_view.h"

namespace {

class SignalModel : public SignalFixture {
protected:
    // The note after designing, or "DESIGNED: <note>" when a design ran.
    QString outcome(double index, double fs, std::array<double, 6> p)
    {
        const int before = view.plots;
        design(index, fs, p);
        return view.plots > before ? QStringLiteral("DESIGNED: ") + view.note : view.note;
    }
};

const double kNaN = std::numeric_limits<double>::quiet_NaN();
const double kInf = std::numeric_limits<double>::infinity();

} // namespace

// Each rule of each function, only the first failing rule shown, the bounds
// that pass, the optimal-rate notice, and non-numbers named after the rule
// they would slip through (unused slots ignored).
TEST_F(SignalModel, ValidationMessagesAndNotices)
{
    const char* const optimal = "DESIGNED: OPTIMAL RATE: f samp ≥ 10 fₐ";
    const struct {
        int index;
        double fs;
        std::array<double, 6> p;
        const char* note;
    } cases[] = {
        {0, 0, {1, 10, 0, 0, 0, 0}, "VALID RANGE: f samp > 0"},
        {3, 300, {0, 10, 0, 0, 0, 0}, "VALID RANGE: |A| > 0"},
        {0, 300, {1, 0, 0, 0, 0, 0}, "VALID RANGE: fₐ > 0"},
        {0, 300, {1, 150, 0, 0, 0, 0}, "VALID RANGE: fₐ <  150.000"},
        {0, 300, {1, 10, 0, -1, 0, 0}, "VALID RANGE: σ ≥ 0"},
        {1, 300, {1, 10, -1, 20, 0, 0}, "VALID RANGE: |A| > 0"},
        {4, 300, {1, 10, 1, -20, 0, 0}, "VALID RANGE: fₐ > 0"},
        {4, 300, {1, 10, 1, 160, 0, 0}, "VALID RANGE: fₐ <  150.000"},
        {1, 300, {1, 10, 1, 20, -0.5, 0}, "VALID RANGE: σ ≥ 0"},
        {2, 300, {1, 10, 0, 15, 0, 0}, "VALID RANGE: M * fₐ <  150.000"},
        {5, 300, {1, 10, 0, 3, -1, 0}, "VALID RANGE: σ ≥ 0"},
        {6, 300, {0, 1, 0, 0, 0, 0}, "VALID RANGE: σ > 0"},
        {7, 300, {1, 100, 0, 20, 0, 0}, "VALID RANGE: |A| > 0"},
        {7, 300, {1, 100, 1, 50, 0, 0}, "VALID RANGE: fₐ₁ + fₐ₂ <  150.000"},
        {7, 300, {1, 100, 1, 0, 0, 0}, "VALID RANGE: fₐ > 0"},
        {8, 1, {1, 16384.5, 0, 0, 0, 0}, "VALID RANGE: 0 < τ ≤  16384.000"},
        {8, 1, {1, 0, 0, 0, 0, 0}, "VALID RANGE: 0 < τ ≤  16384.000"},
        {8, 1, {1, -1, 0, 0, 0, 0}, "VALID RANGE: 0 < τ ≤  16384.000"},
        {8, 1, {1, 5, -1, 0, 0, 0}, "VALID RANGE: σ ≥ 0"},
        {9, 300, {0, 0, 0, 0, 0, 0}, "VALID RANGE: |β| > 0"},
        {10, 300, {1, -1, 0, 0, 0, 0}, "VALID RANGE: σ ≥ 0"},
        {0, -1, {0, 200, 0, -1, 0, 0}, "VALID RANGE: f samp > 0"},
        {2, 300, {1, 200, 0, 15, -1, 0}, "VALID RANGE: fₐ <  150.000"},
        {0, 300, {1, 149.9, 0, 0, 0, 0}, optimal},
        {4, 300, {0, 10, 1, 20, 0, 0}, "DESIGNED: "},
        {2, 300, {1, 10, 0, 14.9, 0, 0}, optimal},
        {8, 1, {1, 16384, 0, 0, 0, 0}, "DESIGNED: "}, // r = 16384 ≥ 10
        {1, 300, {1, 10, 1, 20, 0, 0}, "DESIGNED: "},
        {3, 300, {1, 10, 0, 0.1, 0, 0}, "DESIGNED: "},
        {5, 300, {1, 10, -7, -3, 0, -2}, optimal}, // σ = 0 passes; phase, μ and M are free
        {6, 300, {0.5, -2, 0, 0, 0, 0}, "DESIGNED: "},
        {9, 300, {-1, 0, 0, 0, 0, 0}, "DESIGNED: "},
        {0, 300, {1, 35, 0, 0, 0, 0}, optimal},
        {0, 300, {1, 30, 0, 0, 0, 0}, "DESIGNED: "}, // r = 10
        {7, 300, {1, 10, 1, 25, 0, 0}, optimal},
        {8, 300, {1, 0.02, 0, 0, 0, 0}, optimal},
        {10, 300, {3, 0, 0, 0, 0, 0}, "DESIGNED: "},
        {2, 300, {1, 10, 0, 0, 0, 0}, "DESIGNED: "}, // max_freq 0: r infinite
        {0, kNaN, {1, 10, 0, 0, 0, 0}, "VALID RANGE: f samp is not a number"},
        {0, kInf, {1, 10, 0, 0, 0, 0}, "VALID RANGE: f samp is not finite"},
        {0, -kInf, {1, 10, 0, 0, 0, 0}, "VALID RANGE: f samp > 0"},
        {0, 300, {kNaN, 10, 0, 0, 0, 0}, "VALID RANGE: A is not a number"},
        {0, 300, {1, 10, kInf, 0, 0, 0}, "VALID RANGE: ϕ is not finite"},
        {3, 300, {1, 10, 0, 0, kNaN, 0}, "VALID RANGE: μ is not a number"},
        {1, 300, {1, 10, kNaN, 20, 0, 0}, "VALID RANGE: A₂ is not a number"},
        {2, 300, {1, 10, 0, kNaN, 0, 0}, "VALID RANGE: M is not a number"},
        {2, 300, {1, 10, 0, -kInf, 0, 0}, "VALID RANGE: M is not finite"},
        {6, 300, {kInf, 0, 0, 0, 0, 0}, "VALID RANGE: σ is not finite"},
        {7, 300, {1, kNaN, 1, 20, 0, 0}, "VALID RANGE: fₐ₁ is not a number"},
        {8, 300, {1, kNaN, 0, 0, 0, 0}, "VALID RANGE: τ is not a number"},
        {9, 300, {kNaN, 0, 0, 0, 0, 0}, "VALID RANGE: β is not a number"},
        {10, 300, {1, 0, kInf, 0, 0, 0}, "VALID RANGE: μ is not finite"},
        {0, 300, {1, 10, 0, 0, 0, kNaN}, "DESIGNED: "},
        {9, 300, {1, 0, 0, kNaN, kInf, kNaN}, "DESIGNED: "},
        // Finite values whose samples overflow.
        {1, 300, {1e308, 10, 1e308, 20, 0, 0}, "VALID RANGE: parameters give non-finite samples"},
        {1, 300, {1, 10, 1, 20, 1e308, 0}, "VALID RANGE: parameters give non-finite samples"},
        {8, 300, {1, 1e-320, 0, 0, 0, 0}, "VALID RANGE: parameters give non-finite samples"},
        {9, 1e-310, {1, 0, 0, 0, 0, 0}, "VALID RANGE: parameters give non-finite samples"},
    };
    for (const auto& c : cases) {
        const int before = view.plots;
        EXPECT_EQ(outcome(c.index, c.fs, c.p), QString::fromUtf8(c.note)) << c.index << " " << c.note;
        EXPECT_FALSE(std::isnan(model.max_freq()));
        // A design fills both arrays whole.
        if (view.plots > before) {
            EXPECT_EQ(model.yStepIndex(), c.index);
            EXPECT_TRUE(model.timeDomainArray().size() == 16392u && model.freqDomainArray().size() == 8200u);
        }
    }
}

// Cosine on bin 2048 (37.5 of fs 300): the spectrum array holds 0.5 there
// and in its header; the time array holds the samples behind the header.
TEST_F(SignalModel, ArraysAndHeaders)
{
    design(0, 300, {1, 37.5, 0, 0, 0, 0}, 1, 0);
    ASSERT_TRUE(model.validResultsFlag());
    const auto& t = model.timeDomainArray();
    const auto& f = model.freqDomainArray();
    ASSERT_EQ(t.size(), 16392u);
    ASSERT_EQ(f.size(), 8200u);
    EXPECT_EQ(view.time, t);
    EXPECT_EQ(view.freq, f);
    // fs, max frequency, volts, KHz, largest and smallest sample, two zeros.
    EXPECT_EQ(std::vector<double>(t.begin(), t.begin() + 4), (std::vector<double>{300.0, 37.5, 0.0, 1.0}));
    EXPECT_NEAR(t[4], 1.0, 1e-15);
    EXPECT_NEAR(t[5], -1.0, 1e-15);
    EXPECT_TRUE(t[6] == 0.0 && t[7] == 0.0);
    EXPECT_NEAR(f[8 + 2048], 0.5, 1e-12);
    EXPECT_NEAR(f[4], 0.5, 1e-12);
    EXPECT_TRUE(f[2] == 0.0 && f[3] == 1.0);
    std::vector<double> clean(16384);
    cosineSig(1, 37.5, 0, 300, clean);
    EXPECT_EQ(std::vector<double>(t.begin() + 8, t.end()), clean);
    EXPECT_TRUE(model.max_amplitude() == t[4] && model.min_amplitude() == t[5] && model.max_freq() == 37.5);

    design(8, 7, {1, 16384.0 / 7, 0, 0, 0, 0}); // rectangle over the whole record
    EXPECT_DOUBLE_EQ(model.freqDomainArray()[8], 1.0);
    EXPECT_LT(model.freqDomainArray()[9], 1e-15);

    design(6, 300, {0.001, 2, 0, 0, 0, 0}, 0, 1); // noise around 2 mV
    EXPECT_NEAR(model.freqDomainArray()[8], 2.0, 1e-4);
    EXPECT_EQ(model.freqDomainArray()[2], 1.0);
    EXPECT_EQ(model.freqDomainArray()[1], 3.0);
    // Each design draws fresh noise.
    const auto first = model.timeDomainArray();
    design(6, 300, {0.001, 2, 0, 0, 0, 0}, 0, 1);
    EXPECT_NE(model.timeDomainArray(), first);
}

// The entries are stored before any check and stay; the previous results stay too.
TEST_F(SignalModel, RefusedDesignKeepsPreviousResults)
{
    design(0, 300, {1, 30, 0, 0, 0, 0});
    const auto previous = model.timeDomainArray();
    design(3, 400, {2, 250, 1, 2, 3, 4}, 1, 1);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: fₐ <  200.000"));
    EXPECT_TRUE(model.validResultsFlag());
    EXPECT_EQ(model.timeDomainArray(), previous);
    EXPECT_TRUE(model.samplingFreq() == 400 && model.yStepIndex() == 3 && model.parm2() == 250);
    EXPECT_TRUE(model.parm6() == 4 && model.freqUnits() == 1 && model.voltUnits() == 1);
    EXPECT_EQ(model.max_freq(), 30);
    // So does a refusal after the samples are made.
    EXPECT_EQ(outcome(1, 300, {1e308, 10, 1e308, 20, 0, 0}),
              "VALID RANGE: parameters give non-finite samples");
    EXPECT_EQ(model.timeDomainArray(), previous);
    EXPECT_EQ(model.max_freq(), 30);
}

TEST_F(SignalModel, MalformedDictionariesAreIgnoredOrRefused)
{
    auto d = GVRSignalDesignerModel::parameterDictionary(0, 0, 300, 0, {1, 10, 0, 0, 0, 0});
    d.remove(KEYSP_PARM6);
    model.designSignalWithParameters(d);
    EXPECT_EQ(view.notes, 0);
    EXPECT_EQ(model.samplingFreq(), 300); // stored all the same
    d.insert(QStringLiteral("KEYSP_OTHER"), 1.0);
    model.designSignalWithParameters(d);
    EXPECT_EQ(view.notes, 0);
    EXPECT_FALSE(model.validResultsFlag());

    // Function index outside 0..10: the note is cleared and nothing else.
    view.note = QStringLiteral("old");
    for (const double index : {11.0, -1.0, kNaN})
        EXPECT_EQ(outcome(index, 300, {1, 10, 0, 0, 0, 0}), QString()) << index;
    EXPECT_FALSE(model.validResultsFlag());

    d = GVRSignalDesignerModel::parameterDictionary(0, 0, 300, 0, {1, 10, 0, 0, 0, 0});
    d.insert(KEYSP_PARM1, QStringLiteral("one"));
    model.designSignalWithParameters(d);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: A is not a number"));
    design(0, 300, {1, 10, 0, 0, 0, 0}, 2, 0);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: frequency unit 0 (MHz) or 1 (KHz)"));
    design(0, 300, {1, 10, 0, 0, 0, 0}, 0, -1);
    EXPECT_EQ(view.note, QStringLiteral("VALID RANGE: voltage unit 0 (V) or 1 (mV)"));
    EXPECT_EQ(view.plots, 0);
}
