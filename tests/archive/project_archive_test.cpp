// Project files: nine values round-tripped, names in any script, and the
// file as plistlib sees it.
#include "archive/project_archive.h"

#include <QJsonArray>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "archive/filter_archive.h"
#include "archive_test_support.h"

using namespace archive_test;

TEST(ProjectArchive, RoundTripThroughAFile)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("multirateUser300to450.orvana"));
    const GVRProject project = awkwardProject();
    QString error;
    ASSERT_TRUE(writeProjectFile(path, project, &error)) << error.toStdString();
    const auto back = readProjectFile(path, &error);
    ASSERT_TRUE(back) << error.toStdString();
    EXPECT_EQ(*back, project);

    GVRProject partial;
    partial.blockDiagramNumber = 1;
    partial.filterName = "";  // an empty name is a name, not an absent one
    const auto read = decodeProjectArchive(encodeProjectArchive(partial));
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, partial);
}

TEST(ProjectArchive, PlistlibSeesIntegersAndStrings)
{
    QTemporaryDir dir;
    const QString path = dir.filePath(QStringLiteral("p.orvana"));
    ASSERT_TRUE(writeProjectFile(path, awkwardProject()));
    QString error;
    const QJsonObject view = pythonView(path, &error);
    ASSERT_FALSE(view.isEmpty()) << error.toStdString();
    const QJsonObject record = view["records"][0].toObject();
    EXPECT_EQ(record["classname"].toString(), "GVRProject");
    EXPECT_EQ(record["keys"].toArray(),
              (QJsonArray{"blockDiagramNumber", "signalOneSign", "signalTwoSign", "multirateL", "multirateM",
                          "multirateFilterType", "filterName", "signalOneName", "signalTwoName"}));
    const QJsonObject fields = record["fields"].toObject();
    for (const char* key : {"blockDiagramNumber", "signalOneSign", "signalTwoSign", "multirateL", "multirateM",
                            "multirateFilterType"})
        EXPECT_EQ(fields[key]["type"].toString(), "int") << key;
    EXPECT_EQ(fields["multirateM"]["value"].toString(), "-2");
    EXPECT_EQ(fields["signalTwoName"]["type"].toString(), "str");
    EXPECT_EQ(fields["signalTwoName"]["value"].toString(), QString::fromUtf8("Ωmega 😀"));
}

TEST(ProjectArchive, AFilterIsNotAProject)
{
    QString error;
    EXPECT_FALSE(decodeProjectArchive(encodeFilterArchive(GVRFilter{}), &error));
    EXPECT_EQ(error, "This is not an Orvana project: it holds a “GVRFilter” record where a “GVRProject” belongs.");
}
