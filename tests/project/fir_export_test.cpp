// The coefficient export: the listed rows and the one-line CSV of a saved
// filter, written whole or not at all.
#include <QFile>

#include "archive/atomic_write.h"
#include "filter/recording_filter_view.h"
#include "project/fir_export_model.h"

namespace {

class FirExport : public FilterFixture {
protected:
    void save(const char* name, double type, double length, double width)
    {
        design({.type = type, .cutoff = 0.1, .length = length, .width = width, .window = 2});
        ASSERT_TRUE(model.saveFilterDesignWithFileName(QLatin1String(name))) << view.note.toStdString();
    }
    static QByteArray contents(const QString& path)
    {
        QFile f(path);
        return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
    }
};

} // namespace

TEST_F(FirExport, EightBitFilterGivesOneLineOfIntegers)
{
    save("lp8", 0, 25, 13); // 13 = 8-bit
    const QString csv = temp.root() + QStringLiteral("/coefficients.csv");
    QString error;
    ASSERT_TRUE(GVRFirExportModel(library).openFilterFileAndSaveCoefficientsToFile("lp8.filt", csv, &error))
        << error.toStdString();
    const QByteArray text = contents(csv);
    EXPECT_FALSE(text.contains('\n') || text.contains(' ') || text.contains('+'));
    std::vector<std::int64_t> read;
    for (const QByteArray& item : text.split(',')) {
        bool ok = false;
        read.push_back(item.toLongLong(&ok));
        EXPECT_TRUE(ok) << item.toStdString();
    }
    EXPECT_EQ(read, model.integerCoefficients());
    EXPECT_EQ(*std::max_element(read.begin(), read.end()), 127); // eight bits: full scale
    EXPECT_EQ(GVRFirExportModel::coefficientText({12, -40, 0, -40, 12}), QByteArray("12,-40,0,-40,12"));
    EXPECT_EQ(GVRFirExportModel::coefficientText({}), QByteArray());
}

TEST_F(FirExport, DoubleWidthAndUnreadableFilesWriteNothing)
{
    save("dbl", 0, 25, 0);
    const QString csv = temp.root() + QStringLiteral("/out.csv");
    ASSERT_TRUE(writeFileAtomically(csv, QByteArray("keep me")));
    GVRFirExportModel exporter(library);
    QString error;
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("dbl.filt", csv, &error));
    EXPECT_EQ(error,
              QStringLiteral("Filter Coefficient Width must be an Integer Value\n(Not Floating Point)"));
    EXPECT_EQ(error, GVRFirExportModel::integerWidthAlert());

    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("junk")), QByteArray("junk")));
    error.clear();
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("junk.filt", csv, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("absent.filt", csv));
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile("../x.filt", csv));
    EXPECT_EQ(contents(csv), QByteArray("keep me"));

    // A folder that does not exist: the failure is reported.
    save("int", 0, 25, 5);
    error.clear();
    EXPECT_FALSE(exporter.openFilterFileAndSaveCoefficientsToFile(
        "int.filt", temp.root() + "/no/such/folder/out.csv", &error));
    EXPECT_FALSE(error.isEmpty());
}

// Rows in folder order with name, type, length and width only; an unreadable file shows its name.
TEST_F(FirExport, RowsCarryTheFileNameTypeLengthAndWidth)
{
    save("a", 1, 61, 9);
    save("b", 2, 27, 0);
    ASSERT_TRUE(writeFileAtomically(library.filterPath(QStringLiteral("c")), QByteArray("junk")));
    QStringList cells;
    for (const GVRInspectFilt& row : GVRFirExportModel(library).getFirExportFileArray()) {
        for (const QString& key : GVRInspectFilt::keys())
            if (!row.value(key).isEmpty())
                cells << key + '=' + row.value(key);
    }
    EXPECT_EQ(cells, (QStringList{"filename=a.filt", "filter=Band Pass", "width=12-bit", "length=61",
                                  "filename=b.filt", "filter=High Pass", "width=Double", "length=27",
                                  "filename=c.filt"}));
}
