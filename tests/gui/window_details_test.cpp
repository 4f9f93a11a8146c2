// Details of single windows: the tool tips of the three designer windows
// against one table (the signal parameters' by function); the export window's
// Format pop-up (CSV by default, the save dialog offering the chosen format's
// extension, Double designs let through only to the formats that write
// doubles); and large folders filling the inspectors in worker threads (names
// first, then every row decoded as a small folder shows it, an unreadable
// file kept to its name, and nothing listed before the first paint).
#include <gtest/gtest.h>

#include <unistd.h>

#include <QFileDialog>
#include <QRadioButton>
#include <QTest>
#include <QTemporaryDir>

#include "designer_test_support.h"
#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "filter/inspector_filt_model.h"
#include "project/fir_export_table_model.h"
#include "project/fir_export_window.h"
#include "project/project_window.h"
#include "signal/signal_design_window.h"
#include "signal/signal_inspector_window.h"
#include "signal/inspector_sig_model.h"
#include "widgets/number_field.h"

TEST(ToolTips, EveryControlShowsItsText)
{
    designer_test::SeededLibrary seeded;
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
        {0, 3, "Standard of Deviation of the Additive Gaussian Noise (AGN=0 when σ=0)"},
        {0, 5, ""},
        {2, 3, "Maximum number of distinct sinusoids"},
        {8, 1, "Time at which the amplitude transition occurs"},
        {10, 0, "β=1 for a normalized Sinc function"},
    };
    for (const auto& t : parameterTips) {
        s.yFuncStepper()->setValue(t.function);
        EXPECT_EQ(s.parmField(t.slot)->toolTip(), QString::fromUtf8(t.text)) << t.function << "," << t.slot;
    }
}

TEST(FirExportFormatsWindow, FormatPopUpChoosesTheFileAndItsExtension)
{
    designer_test::SeededLibrary seeded;
    QTemporaryDir out;
    GVRWinFirExport window(seeded.library);
    window.setSaveDialogFolder(out.path());
    window.showGVRWinFirExport();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    EXPECT_EQ(window.formatPopUp()->currentIndex(), 0);
    EXPECT_EQ(window.selectedFormat(), CoefficientFormat::Csv);

    const struct {
        const char* design;
        const char* format;
        const char* written; // empty: refused with the integer-width alert
        const char* found;
    } table[] = {
        {"lp300fc25.filt", "verilog", "lp300fc25.v", "module lp300fc25_rom"},
        {"bpNormFcp5Fcutp025.filt", "python", "bpNormFcp5Fcutp025.py", "COEFFICIENTS = ("},
        {"bpNormFcp5Fcutp025.filt", "vhdl", "", ""},
    };
    for (const auto& row : table) {
        SCOPED_TRACE(row.format);
        const auto& rows = window.tableModel()->rows();
        int index = 0;
        while (index < rows.size() && rows.at(index).filename != QLatin1String(row.design))
            ++index;
        ASSERT_LT(index, rows.size());
        window.table()->selectRow(index);
        window.formatPopUp()->setCurrentIndex(
            window.formatPopUp()->findData(static_cast<int>(*coefficientFormatNamed(row.format))));
        QTest::mouseClick(window.exportButton(), Qt::LeftButton);
        if (!*row.written) {
            ASSERT_NE(window.currentAlert(), nullptr);
            EXPECT_TRUE(window.currentAlert()->informativeText().startsWith("Filter Coefficient Width"));
            window.currentAlert()->close();
            continue;
        }
        QFileDialog* dialog = window.saveDialog();
        ASSERT_TRUE(dialog && dialog->isVisible());
        EXPECT_TRUE(dialog->selectedNameFilter().endsWith(
            QStringLiteral("(*%1)").arg(QFileInfo(row.written).suffix().prepend(u'.'))));
        // The offered name is accepted as it is: the extension is not added twice.
        static_cast<QDialog*>(dialog)->accept();
        QFile file(out.filePath(row.written));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_TRUE(file.readAll().contains(row.found));
    }
}

namespace {

// `count` hard links to `source` in `folder`, named n0000.ext and on.
void link(const QString& source, const QString& folder, const QString& extension, int count)
{
    for (int i = 0; i < count; ++i) {
        const QString to = folder + QStringLiteral("/n%1%2").arg(i, 4, 10, QLatin1Char('0')).arg(extension);
        ASSERT_EQ(::link(QFile::encodeName(source).constData(), QFile::encodeName(to).constData()), 0);
    }
}

} // namespace

TEST(InspectorFill, LargeFoldersFillInWorkerThreads)
{
    TempLibrary temp;
    const QString samples = temp.folder(QStringLiteral("samples"));
    ASSERT_TRUE(makeSampleDesigns(samples).isEmpty());
    DesignLibrary library(temp.root() + QStringLiteral("/library"));
    ASSERT_TRUE(library.ensureFolders().isEmpty());
    const int count = int(kRowsFilledInLine) + 50;
    link(samples + QStringLiteral("/lp300fc25.filt"), library.filterFolder(), QStringLiteral(".filt"), count);
    link(samples + QStringLiteral("/Cos35Fs300.signal"), library.signalFolder(), QStringLiteral(".signal"),
         count);
    QFile broken(library.filterPath(QStringLiteral("zz broken")));
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly));
    broken.write("not a design");
    broken.close();

    GVRWinFiltInspector filters(library);
    GVRWinSigInspector signalRows(library);
    filters.waitForRows();
    signalRows.waitForRows();
    EXPECT_FALSE(filters.rowsLoading());

    // Every row as the small-folder code path makes it; the broken file by name only.
    const GVRInspectFilt expected =
        GVRInspectorFiltModel::rowForFile(samples + QStringLiteral("/lp300fc25.filt"), {});
    ASSERT_EQ(filters.inspectorDataArray().size(), count + 1);
    for (GVRInspectFilt row : filters.inspectorDataArray()) {
        const bool broke = row.filename == QStringLiteral("zz broken");
        row.filename.clear();
        EXPECT_EQ(row, broke ? GVRInspectFilt{} : expected);
    }
    const GVRInspectSig signalRow =
        GVRInspectorSigModel::rowForFile(samples + QStringLiteral("/Cos35Fs300.signal"), {});
    ASSERT_EQ(signalRows.inspectorDataArray().size(), count);
    for (const GVRInspectSig& row : signalRows.inspectorDataArray())
        EXPECT_EQ(row.function, signalRow.function);
}

TEST(InspectorFill, RowsWaitForTheProgramsFirstPaint)
{
    designer_test::SeededLibrary seeded;
    GVRWinFiltInspector filters(seeded.library);
    for (int i = 0; i < 3; ++i)
        QCoreApplication::processEvents();
    EXPECT_TRUE(filters.rowsLoading()); // nothing painted yet
    EXPECT_TRUE(filters.inspectorDataArray().isEmpty());
    filters.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&filters));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !filters.rowsLoading(); }));
    EXPECT_EQ(filters.inspectorDataArray().size(), 6);
}
