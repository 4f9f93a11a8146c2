// The project model's view of the library: records read by name.
#include "library/library_design_source.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "archive/signal_archive.h"
#include "library/design_library.h"

namespace {

GVRFilter smallFilter()
{
    GVRFilter f;
    f.filterType = f.filterWidth = f.unitsType = 0;
    f.windowType = 3;
    f.dfThetaSamplingFreq = 1.0;
    f.dfFilterLengthN = 3.0;
    f.integerCoefficients = std::vector<std::int64_t>{0, 0, 0};
    f.filterCoefficients = f.filterPrecisionCoefficients = std::vector<double>{0.25, 0.5, 0.25};
    return f;
}

GVRSignal cosine()
{
    GVRSignal s{300.0, 0.0, 0,  0,  10.0, {}, {},
                {},    {},  {}, {}, {},   {}, std::vector<double>(kSignalSampleCount)};
    for (std::size_t k = 0; k < kSignalSampleCount; ++k)
        (*s.sampledSignalArray)[k] = double(k % 7) - 3.0;
    return s;
}

class LibraryDesignSourceTest : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(library.ensureFolders().isEmpty()); }

    QTemporaryDir dir;
    DesignLibrary library{dir.path()};
    LibraryDesignSource source{library};
};

TEST_F(LibraryDesignSourceTest, ReadsSavedRecordsByName)
{
    ASSERT_TRUE(writeFilterFile(library.filterPath("lp3"), smallFilter()));
    ASSERT_TRUE(writeSignalFile(library.signalPath("cos"), cosine()));
    EXPECT_EQ(source.filterNames(), QStringList{"lp3"});
    EXPECT_EQ(source.signalNames(), QStringList{"cos"});
    EXPECT_EQ(source.filterRecord("lp3"), smallFilter()) << source.lastError().toStdString();
    EXPECT_EQ(source.signalRecord("cos"), cosine()) << source.lastError().toStdString();
    EXPECT_TRUE(source.lastError().isEmpty());
}

TEST_F(LibraryDesignSourceTest, MissingDamagedOrOutsideFilesAreRefusedWithAReason)
{
    EXPECT_FALSE(source.filterRecord("gone").has_value());
    EXPECT_TRUE(source.lastError().contains("gone.filt")) << source.lastError().toStdString();

    QFile damaged(library.signalPath("junk"));
    ASSERT_TRUE(damaged.open(QIODevice::WriteOnly));
    damaged.write("bplist00 but nothing else of one");
    damaged.close();
    EXPECT_FALSE(source.signalRecord("junk").has_value());
    EXPECT_TRUE(source.lastError().startsWith("“junk.signal” is not an Orvana signal design: "))
        << source.lastError().toStdString();
    // A filter file under a signal name is not a signal.
    ASSERT_TRUE(writeFilterFile(library.signalPath("wrongKind"), smallFilter()));
    EXPECT_FALSE(source.signalRecord("wrongKind").has_value());

    // Names that leave the folder.
    ASSERT_TRUE(writeFilterFile(dir.path() + "/outside.filt", smallFilter()));
    for (const QString& name : {QString("../outside"), QString(), QString("a") + QChar(0) + "b"}) {
        EXPECT_FALSE(source.filterRecord(name).has_value()) << name.toStdString();
        EXPECT_FALSE(source.lastError().isEmpty());
    }
    EXPECT_TRUE(LibraryDesignSource::isPlainName("lp 300 fc.25"));
    EXPECT_FALSE(LibraryDesignSource::isPlainName(".."));
}

} // namespace
