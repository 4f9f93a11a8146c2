// The coefficient export window driven as a user would: the list of the
// library's filters, the two refusals, the save dialog (".csv" always
// appended), the replace question, and the one-line file checked against the
// coefficients stored in the filter file.
#include <QFile>
#include <QFileDialog>
#include <QHeaderView>
#include <QItemSelectionModel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalSpy>
#include <QTableView>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "project/fir_export_table_model.h"
#include "project/fir_export_window.h"
#include "seeded_library.h"

static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

const QString kInvalidCoefficients =
    QStringLiteral("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)");

class FirExportWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(seeded.problems.isEmpty());
        window = new GVRWinFirExport(seeded.library);
        window->setSaveDialogFolder(out.path());
        window->showGVRWinFirExport();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    }
    void TearDown() override
    {
        delete window;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Designs and saves a 25-tap low pass at 8 bits through the filter model.
    void saveEightBitFilter(const QString& name)
    {
        GVRFilterDesignerModel model(seeded.library);
        model.designFilterWithParameters({{KEYFP_UNITS, 0},
                                          {KEYFP_FILTER_TYPE, 0},
                                          {KEYFP_SAMPLING_FREQ, 0},
                                          {KEYFP_CUTOFF_FREQ, 0.3},
                                          {KEYFP_CENTER_FREQ, 0.5},
                                          {KEYFP_FILTER_LENGTH, 25},
                                          {KEYFP_FILTER_WIDTH, 13},
                                          {KEYFP_WINDOW_TYPE, 0},
                                          {KEYFP_BETA_UPSILON, 0}});
        ASSERT_TRUE(model.saveFilterDesignWithFileName(name)) << model.lastFileError().toStdString();
    }

    int rowOf(const QString& fileName) const
    {
        const auto& rows = window->tableModel()->rows();
        for (int i = 0; i < rows.size(); ++i)
            if (rows.at(i).filename == fileName)
                return i;
        return -1;
    }

    void selectRow(int row)
    {
        QTableView* table = window->table();
        const QRect cell = table->visualRect(table->model()->index(row, 0));
        QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
        ASSERT_EQ(table->selectionModel()->selectedRows().value(0).row(), row);
    }

    // Types `name` into the save dialog and presses its Save button.
    QFileDialog* chooseInDialog(const QString& name)
    {
        QFileDialog* dialog = window->saveDialog();
        if (!dialog || !dialog->isVisible())
            return nullptr;
        dialog->selectFile(name);
        // What the dialog's Save button does.
        static_cast<QDialog*>(dialog)->accept();
        return dialog;
    }

    static QByteArray readAll(const QString& path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    SeededLibrary seeded;
    QTemporaryDir out;
    GVRWinFirExport* window = nullptr;
};

TEST_F(FirExportWindow, ListsEveryFilterOfTheLibrary)
{
    const auto& rows = window->tableModel()->rows();
    ASSERT_EQ(rows.size(), 6);
    const int lp = rowOf("lp300fc25.filt");
    ASSERT_GE(lp, 0);
    EXPECT_EQ(rows.at(lp).filter, "Low Pass");
    EXPECT_EQ(rows.at(lp).width, "16-bit");
    const int bp = rowOf("bpNormFcp5Fcutp025.filt");
    ASSERT_GE(bp, 0);
    EXPECT_EQ(rows.at(bp).filter, "Band Pass");
    EXPECT_EQ(rows.at(bp).width, "Double");
    EXPECT_EQ(window->exportButton()->toolTip(), "Export Coefficients of Selected Filter");
    EXPECT_EQ(window->table()->selectionMode(), QAbstractItemView::SingleSelection);
    EXPECT_EQ(window->table()->model()->columnCount(), 4);
}

TEST_F(FirExportWindow, ExportNeedsASelectedRow)
{
    QTest::mouseClick(window->exportButton(), Qt::LeftButton);
    QMessageBox* alert = window->currentAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->informativeText(), "A Row must first be selected");
    EXPECT_EQ(window->saveDialog(), nullptr);
    alert->accept();
}

TEST_F(FirExportWindow, DoubleFilterIsRefused)
{
    selectRow(rowOf("bpNormFcp5Fcutp025.filt"));
    QTest::mouseClick(window->exportButton(), Qt::LeftButton);
    QMessageBox* alert = window->currentAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->informativeText(), kInvalidCoefficients);
    EXPECT_EQ(window->saveDialog(), nullptr);
    alert->accept();
}

TEST_F(FirExportWindow, EightBitFilterGivesOneLineOfIntegers)
{
    // Saved elsewhere: the list gains it by itself.
    saveEightBitFilter("lp8bit");
    const int row = rowOf("lp8bit.filt");
    ASSERT_GE(row, 0);
    EXPECT_EQ(window->tableModel()->rows().at(row).width, "8-bit");
    EXPECT_EQ(window->tableModel()->rows().at(row).length, "25");

    selectRow(row);
    QTest::mouseClick(window->exportButton(), Qt::LeftButton);
    ASSERT_NE(window->saveDialog(), nullptr);
    EXPECT_TRUE(window->saveDialog()->testOption(QFileDialog::DontUseNativeDialog));
    // A name that already ends in .csv gets the extension a second time.
    ASSERT_NE(chooseInDialog(out.filePath("coeffs.csv")), nullptr);
    const QString written = out.filePath("coeffs.csv.csv");
    EXPECT_EQ(window->selectedDotCsvPath(), written);
    const QByteArray text = readAll(written);
    ASSERT_FALSE(text.isEmpty());

    EXPECT_EQ(text.count(','), 24);
    EXPECT_FALSE(text.contains('\n'));
    EXPECT_FALSE(text.contains(' '));
    const auto record = readFilterFile(seeded.library.filterPath("lp8bit"));
    ASSERT_TRUE(record && record->integerCoefficients);
    QStringList expected;
    for (std::int64_t c : *record->integerCoefficients)
        expected << QString::number(c);
    ASSERT_EQ(expected.size(), 25);
    EXPECT_EQ(QString::fromUtf8(text), expected.join(','));
    // 8 bits: every value within the signed 8-bit range, symmetric about the centre tap.
    for (const QString& v : expected) {
        EXPECT_GE(v.toInt(), -128);
        EXPECT_LE(v.toInt(), 127);
    }
    for (int i = 0; i < 12; ++i)
        EXPECT_EQ(expected.at(i), expected.at(24 - i));
}

TEST_F(FirExportWindow, ExistingFileIsReplacedOnlyOnReplace)
{
    const QString target = out.filePath("taps.csv");
    {
        QFile file(target);
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("keep me");
    }
    selectRow(rowOf("lp300fc25.filt"));
    QTest::mouseClick(window->exportButton(), Qt::LeftButton);
    ASSERT_NE(chooseInDialog(out.filePath("taps")), nullptr);
    QMessageBox* alert = window->currentAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->text(), "\"taps.csv\" already exists. Do you want to replace it?");
    EXPECT_EQ(alert->informativeText(), "A Filter file with the same name already exists. Replacing it will "
                                        "delete the original Filter design.");
    QPushButton* cancel = nullptr;
    QPushButton* replace = nullptr;
    for (QAbstractButton* b : alert->buttons()) {
        if (b->text() == "Cancel")
            cancel = qobject_cast<QPushButton*>(b);
        if (b->text() == "Replace")
            replace = qobject_cast<QPushButton*>(b);
    }
    ASSERT_TRUE(cancel && replace);
    QTest::mouseClick(cancel, Qt::LeftButton);
    EXPECT_EQ(readAll(target), "keep me");

    QTest::mouseClick(window->exportButton(), Qt::LeftButton);
    ASSERT_NE(chooseInDialog(out.filePath("taps")), nullptr);
    alert = window->currentAlert();
    ASSERT_NE(alert, nullptr);
    for (QAbstractButton* b : alert->buttons())
        if (b->text() == "Replace")
            QTest::mouseClick(b, Qt::LeftButton);
    const QByteArray text = readAll(target);
    EXPECT_NE(text, "keep me");
    const auto record = readFilterFile(seeded.library.filterPath("lp300fc25"));
    ASSERT_TRUE(record && record->dfFilterLengthN);
    EXPECT_EQ(text.count(','), qsizetype(*record->dfFilterLengthN) - 1);
}

TEST_F(FirExportWindow, SortedListExportsTheRowShown)
{
    QHeaderView* header = window->table()->horizontalHeader();
    // Sort by width: the bit widths by their numbers, then "Double".
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {},
                      QPoint(header->sectionViewportPosition(FirExportTableModel::WidthColumn) + 5, 5));
    const auto& rows = window->tableModel()->rows();
    EXPECT_EQ(rows.last().width, "Double");
    EXPECT_EQ(rows.first().width, "12-bit");
    for (int i = 1; i < rows.size(); ++i)
        EXPECT_LE(QString::compare(rows.at(i - 1).width, rows.at(i).width, Qt::CaseInsensitive), 0);

    const int row = rowOf("bp50fc3fcntr15.filt"); // the one 12-bit sample
    ASSERT_GE(row, 0);
    selectRow(row);
    QTest::mouseClick(window->exportButton(), Qt::LeftButton);
    ASSERT_NE(chooseInDialog(out.filePath("bp")), nullptr);
    EXPECT_EQ(window->selectedDotFiltFileName(), "bp50fc3fcntr15.filt");
    const auto record = readFilterFile(seeded.library.filterPath("bp50fc3fcntr15"));
    ASSERT_TRUE(record && record->integerCoefficients);
    EXPECT_EQ(readAll(out.filePath("bp.csv")).count(','), qsizetype(record->integerCoefficients->size()) - 1);

    // The sort holds when the list is rebuilt.
    seeded.library.announceNewFilterFile();
    EXPECT_EQ(window->tableModel()->rows().last().width, "Double");
}

} // namespace
