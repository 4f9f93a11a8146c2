// Choosing the library root: option, then environment, then the default.
#include "library/library_location.h"

#include <QDir>
#include <QStandardPaths>

#include <gtest/gtest.h>

namespace {

// Sets ORVANA_LIBRARY for one test and puts the old value back.
class ScopedEnvironment {
public:
    explicit ScopedEnvironment(const QByteArray& value)
        : had_(qEnvironmentVariableIsSet(kLibraryEnvironmentVariable)), old_(qgetenv(kLibraryEnvironmentVariable))
    {
        qputenv(kLibraryEnvironmentVariable, value);
    }
    ~ScopedEnvironment()
    {
        if (had_)
            qputenv(kLibraryEnvironmentVariable, old_);
        else
            qunsetenv(kLibraryEnvironmentVariable);
    }

private:
    bool had_;
    QByteArray old_;
};

TEST(LibraryLocation, DefaultIsOrvanaInTheGenericDataFolder)
{
    const QString base = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    EXPECT_EQ(defaultLibraryRoot(), QDir::cleanPath(base + "/Orvana"));
    ScopedEnvironment unset("");
    EXPECT_EQ(resolveLibraryRoot(), defaultLibraryRoot());
    EXPECT_EQ(resolveLibraryRoot("   "), defaultLibraryRoot());
}

TEST(LibraryLocation, OptionBeatsEnvironmentBeatsDefault)
{
    ScopedEnvironment environment("/tmp/from-environment/");
    EXPECT_EQ(resolveLibraryRoot(), "/tmp/from-environment");
    EXPECT_EQ(resolveLibraryRoot("/tmp/from-option"), "/tmp/from-option");
}

TEST(LibraryLocation, TildeAndRelativePathsBecomeAbsolute)
{
    ScopedEnvironment unset("");
    EXPECT_EQ(resolveLibraryRoot("~/lib"), QDir::homePath() + "/lib");
    EXPECT_EQ(resolveLibraryRoot("~"), QDir::cleanPath(QDir::homePath()));
    EXPECT_EQ(resolveLibraryRoot("rel/../lib"), QDir::cleanPath(QDir::currentPath() + "/lib"));
}

}  // namespace
