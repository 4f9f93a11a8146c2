// Choosing the library root: option, then environment, then the default.
#include "library/library_location.h"

#include <QDir>
#include <QScopeGuard>
#include <QStandardPaths>

#include <gtest/gtest.h>

TEST(LibraryLocation, OptionBeatsEnvironmentBeatsDefault)
{
    const bool had = qEnvironmentVariableIsSet(kLibraryEnvironmentVariable);
    const QByteArray old = qgetenv(kLibraryEnvironmentVariable);
    const auto restore = qScopeGuard(
        [&] { had ? qputenv(kLibraryEnvironmentVariable, old) : qunsetenv(kLibraryEnvironmentVariable); });
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    EXPECT_EQ(defaultLibraryRoot(), QDir::cleanPath(base + "/Orvana"));
    qputenv(kLibraryEnvironmentVariable, "");
    EXPECT_EQ(resolveLibraryRoot(), defaultLibraryRoot());
    EXPECT_EQ(resolveLibraryRoot("   "), defaultLibraryRoot());
    // A tilde and relative paths become absolute.
    EXPECT_EQ(resolveLibraryRoot("~/lib"), QDir::homePath() + "/lib");
    EXPECT_EQ(resolveLibraryRoot("~"), QDir::cleanPath(QDir::homePath()));
    EXPECT_EQ(resolveLibraryRoot("rel/../lib"), QDir::cleanPath(QDir::currentPath() + "/lib"));

    qputenv(kLibraryEnvironmentVariable, "/tmp/from-environment/");
    EXPECT_EQ(resolveLibraryRoot(), "/tmp/from-environment");
    EXPECT_EQ(resolveLibraryRoot("/tmp/from-option"), "/tmp/from-option");
}
