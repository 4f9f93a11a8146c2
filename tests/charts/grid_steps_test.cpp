// Grid-step choice: what comes back when nothing fits, and a sweep of spans
// checked against a float32 reference in numpy.
#include "charts/grid_steps.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/reference_python.h"

// The sweep below covers the tables; here what no sweep reaches.
TEST(GridSteps, NothingFitsGivesNothingOrThePreset)
{
    for (const float span :
         {300001.0f, std::numeric_limits<float>::quiet_NaN(), std::numeric_limits<float>::infinity()})
        EXPECT_FALSE(chooseGridStep(span, gridsteps::kGeneral, 15)) << span;
    EXPECT_FALSE(chooseGridStep(-900.0f, gridsteps::kDecibel, 10));
    const GridStep preset = chooseGridStep(-900.0f, gridsteps::kDecibel, 10, GridStep{1.0f, 1});
    EXPECT_TRUE(preset.step == 1.0f && preset.count == 1);
    // A zero span fits the first step with no divisions; callers widen it.
    const auto zero = chooseGridStep(0.0f, gridsteps::kDecibel, 10);
    EXPECT_TRUE(zero && zero->step == 10.0f && zero->count == 0);
    // Worked by hand: the sign of the span does not matter.
    const auto db = chooseGridStep(-97.3f, gridsteps::kDecibel, 10);
    EXPECT_TRUE(db && db->step == 10.0f && db->count == 10);
}

TEST(GridSteps, SweepAgreesWithFloat32Reference)
{
    struct Axis {
        const char* name;
        std::span<const float> table;
        int count;
    };
    const Axis axes[] = {{"frequency", gridsteps::kFrequency, 10}, {"general", gridsteps::kGeneral, 3},
                         {"general", gridsteps::kGeneral, 6},      {"general", gridsteps::kGeneral, 15},
                         {"decibel", gridsteps::kDecibel, 10},     {"phase", gridsteps::kPhase, 10}};
    std::mt19937 random(7);
    std::uniform_real_distribution<float> exponent(-3.0f, 5.5f);
    QByteArray input;
    std::vector<std::pair<float, const Axis*>> cases;
    for (const Axis& axis : axes) {
        for (int i = 0; i < 300; ++i) {
            float span = std::pow(10.0f, exponent(random));
            // Exact multiples of steps are where rounding decides.
            if (i % 3 == 0)
                span = axis.table[std::size_t(i) % axis.table.size()] * float(1 + i % 17);
            if (i % 2 == 1)
                span = -span;
            cases.emplace_back(span, &axis);
            input += QByteArray::number(double(span), 'g', 9) + ' ' + axis.name + ' ' +
                     QByteArray::number(axis.count) + '\n';
        }
    }
    QString error;
    const auto output =
        reference::runPython(QStringLiteral("../charts/grid_steps_reference.py"), {}, input, &error);
    if (!output)
        GTEST_SKIP() << "numpy reference unavailable: " << error.toStdString();
    const QList<QByteArray> lines = output->trimmed().split('\n');
    ASSERT_EQ(lines.size(), qsizetype(cases.size()));
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const auto [span, axis] = cases[i];
        const auto got = chooseGridStep(span, axis->table, axis->count);
        const QByteArray expected = lines[qsizetype(i)].trimmed();
        SCOPED_TRACE(testing::Message() << axis->name << " N " << axis->count << " span " << span);
        ASSERT_EQ(got.has_value(), expected != "none");
        if (!got)
            continue;
        const QList<QByteArray> words = expected.split(' ');
        EXPECT_FLOAT_EQ(got->step, words[0].toFloat());
        EXPECT_EQ(got->count, words[1].toInt());
    }
}
