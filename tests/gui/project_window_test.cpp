// The project window driven through its widgets over a library seeded with
// the sample designs: both system models, the rate error, the steppers, the
// mode-dependent controls, the lists kept in step with the library, and
// Save/Open through the sheets.
#include <QComboBox>
#include <QFile>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "charts/chart_colors.h"
#include "charts/view_block_diagram.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"
#include "widgets/design_file_commands.h"
#include "widgets/open_sheet.h"
#include "widgets/save_sheet.h"
#include "project/project_keys.h"
#include "project/project_window.h"
#include "seeded_library.h"

static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

const QString kSumRateError = QStringLiteral("ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]");

class ProjectWindow : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(seeded.problems.isEmpty()) << seeded.problems.first().message.toStdString();
        window = new GVRWinProject(seeded.library);
    }
    void TearDown() override
    {
        delete window;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void show(int mode)
    {
        if (mode == 1)
            window->showGVRWinProjectOne();
        else
            window->showGVRWinProjectTwo();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window));
    }

    // Picks an item the way a user does: open the list, move to it, Return.
    static void choose(QComboBox* popUp, const QString& title)
    {
        const int index = popUp->findText(title);
        ASSERT_GE(index, 0) << title.toStdString();
        popUp->setCurrentIndex(index);
        emit popUp->activated(index);
    }

    void design()
    {
        QTest::mouseClick(window->designButton(), Qt::LeftButton);
        // Let the charts paint their new arrays.
        QCoreApplication::processEvents();
    }

    static void stepUp(QSpinBox* box, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            box->stepUp();
    }

    SeededLibrary seeded;
    GVRWinProject* window = nullptr;
};

TEST_F(ProjectWindow, SaveThenOpenThroughTheSheets)
{
    show(2);
    choose(window->signalOnePopUp(), "Cos35Fs300");
    choose(window->signalTwoPopUp(), "Cos10M3Fs300");
    choose(window->signalTwoSignPopUp(), "-1");
    window->multirateLStepper()->setValue(3);
    window->multirateMStepper()->setValue(2);
    design();
    ASSERT_EQ(window->noteField()->text(), QString());

    window->saveAsMenuItem();
    GVRSaveSheet* save = window->fileCommands()->saveSheet();
    ASSERT_NE(save, nullptr);
    ASSERT_TRUE(save->isVisible());
    QTest::keyClicks(save->nameField(), "ThreeHalves");
    QTest::mouseClick(save->saveButton(), Qt::LeftButton);
    const QString path = seeded.library.projectPath(2, "ThreeHalves");
    EXPECT_TRUE(QFile::exists(path));
    EXPECT_EQ(window->windowTitle(), "ThreeHalves");

    // Start afresh, then open the saved project from the sheet.
    window->newMenuItem();
    window->multirateLStepper()->setValue(7);
    EXPECT_EQ(window->windowTitle(), "(Untitled)");
    EXPECT_TRUE(window->theTimeArray().empty());
    window->openMenuItem();
    GVROpenSheet* open = window->fileCommands()->openSheet();
    ASSERT_NE(open, nullptr);
    ASSERT_TRUE(open->isVisible());
    int row = -1;
    for (int i = 0; i < open->files().size(); ++i)
        if (open->files().at(i).fileName() == "ThreeHalves.orvana")
            row = i;
    ASSERT_GE(row, 0);
    open->selectRow(row);
    QTest::mouseClick(open->openButton(), Qt::LeftButton);

    EXPECT_EQ(window->windowTitle(), "ThreeHalves");
    EXPECT_EQ(window->signalOnePopUp()->currentText(), "Cos35Fs300");
    EXPECT_EQ(window->signalTwoPopUp()->currentText(), "Cos10M3Fs300");
    EXPECT_EQ(window->signalTwoSignPopUp()->currentIndex(), 1);
    EXPECT_EQ(window->multirateLStepper()->value(), 3);
    EXPECT_EQ(window->multirateMStepper()->value(), 2);
    EXPECT_TRUE(window->autoFilterButton()->isChecked());
    // Designed at once.
    ASSERT_EQ(window->theTimeArray().size(), 32784u);
    EXPECT_DOUBLE_EQ(window->theTimeArray()[8], 450.0);

    // Save on a titled project asks to overwrite.
    window->saveMenuItem();
    QMessageBox* alert = window->fileCommands()->currentAlert();
    ASSERT_NE(alert, nullptr);
    EXPECT_EQ(alert->text(),
              "\"ThreeHalves\" already exists. Do you want to overwrite its original contents?");
    alert->reject();
}

} // namespace
