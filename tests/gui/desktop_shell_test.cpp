// The shell as a desktop program: design files opened by path (the command
// line, Open Recent), the recent list, windows that remember their place, and
// the open sheet's rename, duplicate and move to trash, which the inspectors
// follow at once.
#include <QAbstractItemModel>
#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFile>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QSettings>
#include <QTableView>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "filter/filter_design_window.h"
#include "filter/filter_inspector_window.h"
#include "project/project_window.h"
#include "seeded_library.h"
#include "shell/orvana_shell.h"
#include "shell/recent_files.h"
#include "shell/window_places.h"
#include "signal/signal_design_window.h"
#include "designer_test_support.h"
#include "widgets/design_file_commands.h"
#include "widgets/open_sheet.h"
#include "widgets/window_parts.h"

using designer_test::shownName;

namespace {

class DesktopShell : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(seeded.problems.isEmpty());
        shell = std::make_unique<OrvanaShell>(seeded.library, &settings);
    }
    void TearDown() override
    {
        shell.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    QStringList inspectorNames() const
    {
        QAbstractItemModel* model = shell->filtInspector()->table()->model();
        QStringList names;
        for (int row = 0; row < model->rowCount(); ++row)
            names << model->index(row, 0).data().toString();
        return names;
    }

    SeededLibrary seeded;
    QTemporaryDir dir;
    QSettings settings{dir.filePath("prefs.ini"), QSettings::IniFormat};
    std::unique_ptr<OrvanaShell> shell;
};

TEST_F(DesktopShell, DesignFilesOpenByPathInTheirDesigners)
{
    const QString outside = dir.filePath("mine.filt");
    ASSERT_TRUE(QFile::copy(seeded.library.filterPath("bp50fc3fcntr15"), outside));
    const QString broken = dir.filePath("broken.signal");
    QFile(broken).open(QIODevice::WriteOnly);
    const QString project = seeded.library.projectPath(2, "multirateUser300to450");

    EXPECT_EQ(shell->openDesignFiles({outside, broken, dir.filePath("notes.txt"), project}), 2);
    // The outside filter was copied into the library once, and the inspector lists it.
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("mine")));
    EXPECT_EQ(shownName(*shell->filterDesign()), "mine");
    EXPECT_TRUE(inspectorNames().contains("mine"));
    EXPECT_EQ(shownName(*shell->project()), "multirateUser300to450");
    EXPECT_NE(shell->openFileAlert(), nullptr);
    EXPECT_TRUE(shell->openDesignFile(outside));
    EXPECT_FALSE(QFile::exists(seeded.library.filterPath("mine 2")));

    // Both are recent, newest first; Open Recent brings them back.
    const QStringList recent = shell->recentFiles()->paths();
    ASSERT_EQ(recent.size(), 2);
    EXPECT_TRUE(recent.first().endsWith("/filter/mine.filt"));
    EXPECT_TRUE(recent.at(1).endsWith("/projectTwo/multirateUser300to450.orvana"));
}

TEST(RecentFilesList, KeepsTheLastTenOnceEachNewestFirst)
{
    QTemporaryDir dir;
    QSettings settings{dir.filePath("recent.ini"), QSettings::IniFormat};
    RecentFiles recent(&settings);
    for (int i = 0; i < 12; ++i)
        recent.add(QStringLiteral("/lib/filter/f%1.filt").arg(i));
    recent.add("/lib/filter/f5.filt");
    const QStringList paths = RecentFiles(&settings).paths();
    ASSERT_EQ(paths.size(), RecentFiles::kMaximum);
    EXPECT_EQ(paths.first(), "/lib/filter/f5.filt");
    EXPECT_EQ(paths.at(1), "/lib/filter/f11.filt");
    EXPECT_EQ(paths.count("/lib/filter/f5.filt"), 1);
    EXPECT_FALSE(paths.contains("/lib/filter/f1.filt"));
}

TEST(WindowPlacement, ClampsToTheScreenPresent)
{
    const QRect screen(0, 0, 1280, 800);
    const struct {
        QRect kept, expected;
    } cases[] = {
        {{100, 100, 600, 400}, {100, 100, 600, 400}},  // fits: unchanged
        {{2000, 900, 600, 400}, {680, 400, 600, 400}}, // on a screen now gone
        {{-300, -50, 600, 400}, {0, 0, 600, 400}},     // partly off the left and top
        {{10, 10, 2000, 1200}, {0, 0, 1280, 800}},     // larger than the screen
    };
    for (const auto& c : cases)
        EXPECT_EQ(clampToScreen(c.kept, screen), c.expected) << c.kept.x() << "," << c.kept.y();
}

TEST_F(DesktopShell, WindowsReopenWhereTheyWere)
{
    GVRWinFiltInspector* window = shell->filtInspector();
    window->show();
    const QPoint place(37, 23);
    const QSize size(420, 310);
    window->move(place);
    window->resize(size);
    shell.reset();
    shell = std::make_unique<OrvanaShell>(seeded.library, &settings);
    EXPECT_EQ(shell->filtInspector()->pos(), place);
    EXPECT_EQ(shell->filtInspector()->size(), size);
}

TEST_F(DesktopShell, OpenSheetRenamesDuplicatesAndTrashes)
{
    GVRWinFilterDesign* window = shell->filterDesign();
    DesignFileCommands* commands = window->fileCommands();
    commands->openDesignNamed("lp300fc25");
    window->openMenuItem();
    GVROpenSheet* sheet = commands->openSheet();
    ASSERT_NE(sheet, nullptr);
    auto select = [sheet](const QString& name) {
        for (int row = 0; row < sheet->files().size(); ++row)
            if (sheet->files().at(row).fileName() == name + ".filt")
                sheet->selectRow(row);
    };

    // Rename: the sheet asks, the file moves, the title and inspector follow.
    select("lp300fc25");
    sheet->renameButton()->click();
    auto* ask = sheet->findChild<QInputDialog*>("renameDesignDialog");
    ASSERT_NE(ask, nullptr);
    ask->setTextValue("lowpass300");
    ask->accept();
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("lowpass300")));
    EXPECT_FALSE(QFile::exists(seeded.library.filterPath("lp300fc25")));
    EXPECT_EQ(shownName(*window), "lowpass300");
    EXPECT_TRUE(inspectorNames().contains("lowpass300"));
    EXPECT_FALSE(inspectorNames().contains("lp300fc25"));
    // A taken name is refused and nothing moves.
    EXPECT_FALSE(commands->renameDesign("lowpass300", "lp20fc2cheby4").isEmpty());
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("lowpass300")));

    sheet->duplicateButton()->click();
    EXPECT_TRUE(QFile::exists(seeded.library.filterPath("lowpass300 copy")));
    EXPECT_TRUE(inspectorNames().contains("lowpass300 copy"));

    // Move to Trash asks first; Cancel keeps the file.
    select("lowpass300");
    for (bool confirm : {false, true}) {
        sheet->deleteButton()->click();
        auto* box = qobject_cast<QMessageBox*>(commands->currentAlert());
        ASSERT_NE(box, nullptr);
        for (QAbstractButton* button : box->buttons())
            if ((box->buttonRole(button) == QMessageBox::DestructiveRole) == confirm)
                button->click();
        EXPECT_EQ(QFile::exists(seeded.library.filterPath("lowpass300")), !confirm);
    }
    EXPECT_FALSE(inspectorNames().contains("lowpass300"));
    EXPECT_EQ(shownName(*window), DesignFileCommands::untitledTitle());
}

} // namespace
