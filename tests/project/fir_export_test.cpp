// The coefficient export: the listed rows and the one-line CSV of a saved
// filter, written whole or not at all.
#include <gtest/gtest.h>

#include <algorithm>

#include <QFile>
#include <QFileInfo>

#include "archive/atomic_write.h"
#include "filter/filter_designer_model.h"
#include "filter/filter_keys.h"
#include "project/fir_export_model.h"
#include "library/design_library.h"
#include "support/temp_library.h"

namespace {

class FirExport : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.ensureFolders().isEmpty());
    }
    void save(const QString& name, int type, int length, int width)
    {
        model.designFilterWithParameters({{KEYFP_UNITS, 0},
                                          {KEYFP_FILTER_TYPE, type},
                                          {KEYFP_SAMPLING_FREQ, 0.0},
                                          {KEYFP_CUTOFF_FREQ, 0.1},
                                          {KEYFP_CENTER_FREQ, 0.5},
                                          {KEYFP_FILTER_LENGTH, length},
                                          {KEYFP_FILTER_WIDTH, width},
                                          {KEYFP_WINDOW_TYPE, 2},
                                          {KEYFP_BETA_UPSILON, 0.0}});
        ASSERT_TRUE(model.saveFilterDesignWithFileName(name)) << model.lastFileError().toStdString();
    }
    static QByteArray contents(const QString& path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }

    TempLibrary temp;
    DesignLibrary library{temp.root()};
    GVRFilterDesignerModel model{library};
};

} // namespace

TEST_F(FirExport, EightBitFilterGivesOneLineOfIntegers)
{
    save(QStringLiteral("lp8"), 0, 25, 13); // 13 = 8-bit
    const std::vector<std::int64_t> expected = model.integerCoefficients();
    const QString csv = temp.root() + QStringLiteral("/coefficients.csv");
    QString error;
    ASSERT_TRUE(GVRFirExportModel(library).openFilterFileAndSaveCoefficientsToFile(QStringLiteral("lp8.filt"),
                                                                                   csv, &error))
        << error.toStdString();
    const QByteArray text = contents(csv);
    EXPECT_EQ(text.count(','), 24);
    EXPECT_FALSE(text.contains('\n'));
    EXPECT_FALSE(text.contains(' '));
    const QList<QByteArray> items = text.split(',');
    ASSERT_EQ(items.size(), 25);
    for (std::size_t i = 0; i < 25; ++i) {
        bool ok = false;
        EXPECT_EQ(items[static_cast<qsizetype>(i)].toLongLong(&ok), expected[i]) << i;
        EXPECT_TRUE(ok);
        EXPECT_FALSE(items[static_cast<qsizetype>(i)].startsWith('+'));
    }
    // Eight bits: the largest tap is the full scale 127.
    EXPECT_EQ(*std::max_element(expected.begin(), expected.end()), 127);
}

TEST_F(FirExport, TextOfNegativeAndZeroCoefficients)
{
    EXPECT_EQ(GVRFirExportModel::coefficientText({12, -40, 127, -40, 12}), QByteArray("12,-40,127,-40,12"));
    EXPECT_EQ(GVRFirExportModel::coefficientText({0}), QByteArray("0"));
    EXPECT_EQ(GVRFirExportModel::coefficientText({}), QByteArray());
}

TEST_F(FirExport, DoubleWidthAndUnreadableFilesWriteNothing)
{
    save(QStringLiteral("dbl"), 0, 25, 0);
    const QString csv = temp.root() + QStringLiteral("/out.csv");
    ASSERT_TRUE(writeFileAtomically(csv, QByteArray("keep me")));
    GVRFirExportModel exporter(library);
    QString error;
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(QStringLiteral("dbl.filt"), csv, &error));
    EXPECT_EQ(error,
              QStringLiteral("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)"));
    EXPECT_EQ(error, GVRFirExportModel::integerWidthAlert());

    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("junk")), QByteArray("junk")));
    error.clear();
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(QStringLiteral("junk.filt"), csv, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(QStringLiteral("absent.filt"), csv));
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(QStringLiteral("../x.filt"), csv));
    EXPECT_EQ(contents(csv), QByteArray("keep me"));

    // A folder that does not exist: the failure is reported.
    save(QStringLiteral("int"), 0, 25, 5);
    error.clear();
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(
        QStringLiteral("int.filt"), temp.root() + QStringLiteral("/no/such/folder/out.csv"), &error));
    EXPECT_FALSE(error.isEmpty());
}

TEST_F(FirExport, RowsCarryTheFileNameTypeLengthAndWidth)
{
    save(QStringLiteral("a"), 1, 61, 9);
    save(QStringLiteral("b"), 2, 27, 0);
    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("c")), QByteArray("junk")));
    const QList<GVRInspectFilt> rows = GVRFirExportModel(library).getFirExportFileArray();
    ASSERT_EQ(rows.size(), 3);
    QStringList names;
    for (const DesignFileEntry& e : library.files(DesignLibrary::Folder::Filter))
        names << e.fileName;
    for (int i = 0; i < rows.size(); ++i) {
        const GVRInspectFilt& row = rows[i];
        EXPECT_EQ(row.filename, names[i]);
        EXPECT_TRUE(row.fs.isEmpty() && row.fcutoff.isEmpty() && row.window.isEmpty());
        if (row.filename == QLatin1String("a.filt")) {
            EXPECT_EQ(row.filter, QStringLiteral("Band Pass"));
            EXPECT_EQ(row.length, QStringLiteral("61"));
            EXPECT_EQ(row.width, QStringLiteral("12-bit"));
        } else if (row.filename == QLatin1String("b.filt")) {
            EXPECT_EQ(row.filter, QStringLiteral("High Pass"));
            EXPECT_EQ(row.length, QStringLiteral("27"));
            EXPECT_EQ(row.width, QStringLiteral("Double"));
        } else {
            EXPECT_EQ(row.filename, QStringLiteral("c.filt"));
            EXPECT_TRUE(row.filter.isEmpty() && row.length.isEmpty() && row.width.isEmpty());
        }
    }
}
