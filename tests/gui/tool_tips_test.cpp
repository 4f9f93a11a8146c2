// The tool tips of the three designer windows against one table, the signal
// parameters' by function.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QRadioButton>
#include <QSpinBox>

#include "designer_test_support.h"
#include "filter/filter_design_window.h"
#include "project/project_window.h"
#include "seeded_library.h"
#include "signal/signal_design_window.h"
#include "widgets/number_field.h"

TEST(ToolTips, EveryControlShowsItsText)
{
    SeededLibrary seeded;
    GVRWinFilterDesign f(seeded.library);
    GVRWinSignalDesign s(seeded.library);
    GVRWinProject p(seeded.library);
    const char* const signalTip = "Select a Signal from the Signal Designer";
    const char* const zoomTip = "Magnification of Time Domain Signal";
    const std::pair<QWidget*, const char*> tips[] = {
        {f.unitsPopUp(), "Range of Normalized is 0:1 where unity represents one-half the Sampling Frequency"},
        {f.filterTypePopUp(), ""},
        {f.bitWidthPopUp(), "Fixed-Point required for export of FIR coefficients"},
        {f.windowTypePopUp(), "Select a Windowing Function to optimize the Filter design"},
        {f.chartTypePopUp(), "Filter's Magnitude or (Unwrapped) Phase Response"},
        {f.thetaSamplingField(), "Input the system's Sampling Frequency"},
        {f.thetaCutoffField(), "Input the Filter's Cutoff Frequency"},
        {f.thetaCenterField(), "Input the Center Frequency for the Bandpass Filter"},
        {f.filterLengthStepper(), "Length of Filter (25 to 255 taps in odd increments)"},
        {f.betaUpsilonField(), "Select a small fractional value (less than 10) to optimize response"},
        {s.freqUnitsPopUp(), "Select the Units for the Sampling Frequency and other frequency parameters"},
        {s.voltUnitsPopUp(), "Select the Units for all voltage parameters"},
        {s.freqSampField(), "Input the system's Sampling Frequency"},
        {s.zoomStepper(), zoomTip},
        {s.yFuncStepper(), "Select a Signal Function"},
        {p.signalOnePopUp(), signalTip},
        {p.signalTwoPopUp(), signalTip},
        {p.signalOneSignPopUp(), "Multiplier for x₁[n]"},
        {p.signalTwoSignPopUp(), "Multiplier for x₂[n]"},
        {p.filterPopUp(), "Select a Filter from the Filter Designer"},
        {p.graphPopUp(), "Select either System Input or Output Response"},
        {p.autoFilterButton(), "Option to automatically generate Filter H[m]"},
        {p.multirateLStepper(), "Interpolate x[n] by L"},
        {p.multirateMStepper(), "Decimate x[n] by M"},
        {p.zoomStepper(), zoomTip},
    };
    for (const auto& [widget, text] : tips)
        EXPECT_EQ(widget->toolTip(), QString::fromUtf8(text)) << widget->objectName().toStdString();

    const struct {
        int function, slot;
        const char* text;
    } parameterTips[] = {
        {0, 0, "Amplitude of sinusoid"},
        {0, 1, "Analog Frequency of sinusoid"},
        {0, 2, "Phase offset of sinusoid"},
        {0, 3, "Standard of Deviation of the Additive Gaussian Noise (AGN=0 when σ=0)"},
        {0, 4, "Mean of the Additive Gaussian Noise"},
        {0, 5, ""},
        {2, 3, "Maximum number of distinct sinusoids"},
        {8, 0, "Amplitude of rectangle"},
        {8, 1, "Time at which the amplitude transition occurs"},
        {10, 0, "β=1 for a normalized Sinc function"},
    };
    for (const auto& t : parameterTips) {
        s.yFuncStepper()->setValue(t.function);
        EXPECT_EQ(s.parmField(t.slot)->toolTip(), QString::fromUtf8(t.text)) << t.function << "," << t.slot;
    }
}
