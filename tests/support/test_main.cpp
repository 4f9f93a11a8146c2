// Test entry point: a QApplication on the offscreen platform (unless a test
// run asks for a real one), and settings kept away from the user's own.
#include <QApplication>
#include <QStandardPaths>

#include <gtest/gtest.h>

int main(int argc, char** argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Redirects QSettings and QStandardPaths to test locations.
    QStandardPaths::setTestModeEnabled(true);
    QApplication app(argc, argv);
    QApplication::setOrganizationName(QStringLiteral("OrvanaTests"));
    QApplication::setApplicationName(QStringLiteral("OrvanaTests"));
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
