// Grid-step choice: the cases the charts rely on, worked by hand, and a sweep
// of spans checked against a float32 reference in numpy.
#include "charts/grid_steps.h"

#include <cmath>
#include <limits>
#include <random>

#include <gtest/gtest.h>

#include "support/reference_python.h"

namespace {

void expectStep(std::optional<GridStep> got, float step, int count)
{
    ASSERT_TRUE(got.has_value());
    EXPECT_FLOAT_EQ(got->step, step);
    EXPECT_EQ(got->count, count);
}

} // namespace

TEST(GridSteps, WorkedExamples)
{
    // General table: amplitude (N 3), spectrum magnitude (N 6), time/frequency spans (N 15).
    expectStep(chooseGridStep(0.7f, gridsteps::kGeneral, 3), 0.25f, 3);
    expectStep(chooseGridStep(0.7f, gridsteps::kGeneral, 15), 0.05f, 14);
    expectStep(chooseGridStep(2.5f, gridsteps::kGeneral, 3), 1.0f, 3);
    expectStep(chooseGridStep(1.2f, gridsteps::kGeneral, 3), 0.5f, 3);
    expectStep(chooseGridStep(0.5f, gridsteps::kGeneral, 6), 0.1f, 5);
    expectStep(chooseGridStep(0.03f, gridsteps::kGeneral, 6), 0.01f, 3);
    expectStep(chooseGridStep(1.024f, gridsteps::kGeneral, 15), 0.1f, 11);
    expectStep(chooseGridStep(163.84f, gridsteps::kGeneral, 15), 20.0f, 9);
    expectStep(chooseGridStep(16384.0f / 48.0f / 256.0f, gridsteps::kGeneral, 15), 0.1f, 14);
    expectStep(chooseGridStep(10.0f, gridsteps::kGeneral, 15), 1.0f, 10);
    expectStep(chooseGridStep(5.0f, gridsteps::kGeneral, 15), 0.5f, 10);
    // dB axis of the filter chart (N 10): the sign of the span does not matter.
    expectStep(chooseGridStep(-97.3f, gridsteps::kDecibel, 10), 10.0f, 10);
    expectStep(chooseGridStep(-120.0f, gridsteps::kDecibel, 10), 20.0f, 6);
    expectStep(chooseGridStep(30.0f, gridsteps::kDecibel, 10), 10.0f, 3);
    // Phase axis and frequency axis of the filter chart.
    expectStep(chooseGridStep(-401.2f, gridsteps::kPhase, 10), 50.0f, 9);
    expectStep(chooseGridStep(1.0f, gridsteps::kFrequency, 10), 0.1f, 10);
    expectStep(chooseGridStep(24.0f, gridsteps::kFrequency, 10), 5.0f, 5);
}

TEST(GridSteps, NothingFitsGivesNothingOrThePreset)
{
    EXPECT_FALSE(chooseGridStep(300001.0f, gridsteps::kGeneral, 15).has_value());
    EXPECT_FALSE(chooseGridStep(-900.0f, gridsteps::kDecibel, 10).has_value());
    EXPECT_FALSE(
        chooseGridStep(std::numeric_limits<float>::quiet_NaN(), gridsteps::kGeneral, 15).has_value());
    EXPECT_FALSE(chooseGridStep(std::numeric_limits<float>::infinity(), gridsteps::kGeneral, 15).has_value());
    const GridStep preset = chooseGridStep(-900.0f, gridsteps::kDecibel, 10, GridStep{1.0f, 1});
    EXPECT_EQ(preset.step, 1.0f);
    EXPECT_EQ(preset.count, 1);
    // A zero span fits the first step with no divisions; callers widen it.
    expectStep(chooseGridStep(0.0f, gridsteps::kDecibel, 10), 10.0f, 0);
}

TEST(GridSteps, TablesHoldTheirValuesInOrder)
{
    EXPECT_EQ(gridsteps::kFrequency.size(), 19u);
    EXPECT_EQ(gridsteps::kGeneral.size(), 21u);
    EXPECT_EQ(gridsteps::kDecibel.size(), 8u);
    EXPECT_EQ(gridsteps::kPhase.size(), 12u);
    for (std::span<const float> table :
         {std::span<const float>(gridsteps::kFrequency), std::span<const float>(gridsteps::kGeneral),
          std::span<const float>(gridsteps::kDecibel), std::span<const float>(gridsteps::kPhase)}) {
        for (std::size_t i = 1; i < table.size(); ++i)
            EXPECT_LT(table[i - 1], table[i]);
    }
    EXPECT_EQ(gridsteps::kFrequency.back(), 20000.0f);
    EXPECT_EQ(gridsteps::kGeneral.front(), 0.01f);
    EXPECT_EQ(gridsteps::kPhase.back(), 500.0f);
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
        if (expected == "none") {
            EXPECT_FALSE(got.has_value());
            continue;
        }
        ASSERT_TRUE(got.has_value());
        const QList<QByteArray> words = expected.split(' ');
        EXPECT_FLOAT_EQ(got->step, words[0].toFloat());
        EXPECT_EQ(got->count, words[1].toInt());
    }
}
