// The export window's Format pop-up: CSV by default, the save dialog offering
// the chosen format's extension, and Double designs let through only to the
// formats that write doubles.
#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include "project/fir_export_table_model.h"
#include "project/fir_export_window.h"
#include "gui/designer_test_support.h"

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
