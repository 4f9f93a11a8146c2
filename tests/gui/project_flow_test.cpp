// The project window driven through its widgets over a library seeded with
// the sample designs: one flow through both system models (design, the rate
// refusal, save, switching models, a broken file, New and reopen), checking
// title, note line, controls, charts and the saved file at every step; then
// the lists kept in step with the library.
#include <QFile>
#include <QRadioButton>

#include <gtest/gtest.h>

#include "archive/project_archive.h"
#include "charts/chart_colors.h"
#include "charts/view_block_diagram.h"
#include "charts/view_proj_freq.h"
#include "charts/view_proj_time.h"
#include "designer_test_support.h"
#include "project/project_window.h"
#include "widgets/design_file_commands.h"

using namespace designer_test;

namespace {

const QString kSum = QStringLiteral(" — Sum & Filter Model");
const QString kMultirate = QStringLiteral(" — Multirate Model");
const char* const kNothingToSave = "There is no project design to save: design the project first.";

class ProjectFlow : public ::testing::Test {
protected:
    void SetUp() override { ASSERT_TRUE(seeded.problems.isEmpty()); }
    void TearDown() override
    {
        delete window;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    // Picks an item as the list reports a user's choice.
    static void pick(QComboBox* popUp, const QString& item)
    {
        const int index = popUp->findText(item);
        ASSERT_GE(index, 0) << item.toStdString();
        popUp->setCurrentIndex(index);
        emit popUp->activated(index);
    }
    void design()
    {
        QTest::mouseClick(window->designButton(), Qt::LeftButton);
        QCoreApplication::processEvents(); // the charts paint their new arrays
    }
    // Answers the question an edited project asks before it is replaced.
    void dontSave() { answer("Don't Save", {}, window->fileCommands()->currentAlert()); }
    void saveAs(const QString& name) { window->saveAsMenuItem(), answerSaveSheet(name); }
    void open(const QString& fileName) { window->openMenuItem(), answerOpenSheet(fileName); }
    GVRProject saved(int diagram, const QString& name) const
    {
        return readProjectFile(seeded.library.projectPath(diagram, name)).value_or(GVRProject{});
    }
    // The charts show a design, drawn in their colours.
    bool designed() const
    {
        return window->theTimeArray().size() == 32784u && window->theFreqArray().size() == 16400u &&
               countPixels(window->viewProjTime()->grab().toImage(), chartcolors::timeGraph()) > 50 &&
               countPixels(window->viewProjFreq()->grab().toImage(), chartcolors::magSpectrum()) > 20;
    }
    // The two signals and the second sign chosen.
    void expectChoices(const QString& one, const QString& two, int sign2) const
    {
        EXPECT_EQ(window->signalOnePopUp()->currentText(), one);
        EXPECT_EQ(window->signalTwoPopUp()->currentText(), two);
        EXPECT_EQ(window->signalTwoSignPopUp()->currentIndex(), sign2);
    }

    SeededLibrary seeded;
    GVRWinProject* window = new GVRWinProject(seeded.library);
};

TEST_F(ProjectFlow, TitleControlsChartsAndSavedFileAgree)
{
    std::vector<double> shown; // the first design's time array
    auto choose3 = [&](const char* one, const char* two, const char* filter) {
        pick(window->signalOnePopUp(), one);
        pick(window->signalTwoPopUp(), two);
        pick(window->filterPopUp(), filter);
    };
    auto sumModel = [](const char* name) { return QString::fromUtf8(name) + kSum; };
    auto multirate = [](const char* name) { return QString::fromUtf8(name) + kMultirate; };
    // clang-format off
    const std::vector<Step> steps = {
        {"Sum & Filter of two samples", [&] {
             window->showGVRWinProjectOne();
             choose3("Cos10M3Fs300", "Cos35Fs300", "lp300fc25");
             design(); },
         sumModel("(Untitled)"), "", true, [&] {
             EXPECT_FALSE(window->multirateLStepper()->isVisible());
             EXPECT_EQ(window->viewBlockDiagram()->blockDiagramIndex(), 1);
             EXPECT_DOUBLE_EQ(window->theTimeArray()[8], 300.0); // the rate is kept
             shown = window->theTimeArray(); }},
        {"the graph choice flips both charts to the output", [&] { pick(window->graphPopUp(), "Output: y[n]"); },
         sumModel("(Untitled)"), "", true, [&] {
             EXPECT_FALSE(window->viewProjTime()->showsInput());
             EXPECT_FALSE(window->viewProjFreq()->showsInput()); }},
        {"Save As writes the choices into the first model's folder", [&] { saveAs("sumA"); }, sumModel("sumA"), "", true,
         [&] { EXPECT_EQ(saved(1, "sumA"), (GVRProject{1, 0, 0, 1, 1, 1, "lp300fc25", "Cos10M3Fs300", "Cos35Fs300"})); }},
        {"rates that differ are refused and the charts stay", [&] { pick(window->signalOnePopUp(), "Cos1MHz"); design(); },
         sumModel("sumA"), "ERROR - Both x₁[n] and x₂[n] must have same fs as H[n]", true,
         [&] { EXPECT_EQ(window->theTimeArray(), shown); }},
        {"after the refusal Save As says why and writes nothing", [&] { window->saveAsMenuItem(); }, sumModel("sumA"),
         kNothingToSave, true, [&] { EXPECT_FALSE(window->fileCommands()->saveSheet()->isVisible()); }},
        {"a signal left out is not checked", [&] { pick(window->signalOneSignPopUp(), "0"); design(); },
         sumModel("sumA"), "", true},
        {"switching to Multirate asks first, then starts afresh", [&] { window->showGVRWinProjectTwo(); dontSave(); },
         multirate("(Untitled)"), "", false, [&] {
             EXPECT_EQ(window->graphPopUp()->currentText(), "Input: x[n]");
             EXPECT_EQ(window->graphPopUp()->itemText(1), "Output: y[k]");
             EXPECT_TRUE(window->viewProjTime()->showsInput());
             EXPECT_TRUE(window->multirateLStepper()->isVisible());
             EXPECT_TRUE(window->autoFilterButton()->isChecked());
             EXPECT_FALSE(window->filterPopUp()->isVisible());
             EXPECT_EQ(window->projectDirectory(), seeded.library.projectTwoFolder()); }},
        {"Save with nothing designed says why", [&] { window->saveMenuItem(); }, multirate("(Untitled)"),
         kNothingToSave, false},
        {"Multirate ×3 ÷2 with the automatic filter", [&] {
             pick(window->signalOnePopUp(), "Cos35Fs300");
             pick(window->signalTwoPopUp(), "Cos10M3Fs300");
             pick(window->signalTwoSignPopUp(), "-1");
             window->multirateLStepper()->setFocus();
             QTest::keyClick(window->multirateLStepper(), Qt::Key_Up);
             QTest::keyClick(window->multirateLStepper(), Qt::Key_Up);
             QTest::keyClick(window->multirateMStepper(), Qt::Key_Up);
             design();
             pick(window->graphPopUp(), "Output: y[k]"); },
         multirate("(Untitled)"), "", true, [&] { EXPECT_DOUBLE_EQ(window->theTimeArray()[8], 450.0); }},
        {"Save As writes the Multirate model into its own folder", [&] { saveAs("ThreeHalves"); }, multirate("ThreeHalves"),
         "", true, [&] {
             const GVRProject p = saved(2, "ThreeHalves");
             EXPECT_EQ(std::tuple(p.blockDiagramNumber, p.multirateL, p.multirateM, p.signalTwoSign, p.multirateFilterType),
                       std::tuple(2, 3, 2, 1, 1)); }},
        {"a broken file gets the alert and leaves title and design", [&] {
             writeFile(seeded.library.projectPath(2, "broken"), "not a project");
             open("broken.orvana");
             QMessageBox* alert = window->fileCommands()->currentAlert();
             ASSERT_NE(alert, nullptr);
             EXPECT_EQ(alert->informativeText(), "This Project File Contains Erroneous Information and Cannot be Opened");
             alert->accept(); },
         multirate("ThreeHalves"), "", true},
        {"New puts back steppers and graph; the model stays", [&] { window->newMenuItem(); },
         multirate("(Untitled)"), "", false, [&] {
             EXPECT_EQ(window->multirateLStepper()->value(), 1);
             EXPECT_EQ(window->multirateMStepper()->value(), 1);
             EXPECT_EQ(window->zoomStepper()->text(), "x16");
             EXPECT_EQ(window->graphPopUp()->currentText(), "Input: x[n]");
             EXPECT_TRUE(window->viewProjTime()->showsInput()); }},
        {"reopen designs the saved project at once", [&] { open("ThreeHalves.orvana"); }, multirate("ThreeHalves"), "",
         true, [&] {
             expectChoices("Cos35Fs300", "Cos10M3Fs300", 1);
             EXPECT_EQ(window->multirateLStepper()->value(), 3);
             EXPECT_EQ(window->multirateMStepper()->value(), 2);
             EXPECT_DOUBLE_EQ(window->theTimeArray()[8], 450.0); }},
        {"factors beyond the steppers are limited and the note says so", [&] {
             GVRProject p = saved(2, "ThreeHalves");
             p.multirateL = 11;
             p.multirateM = 12;
             ASSERT_TRUE(writeProjectFile(seeded.library.projectPath(2, "elevenTwelfths"), p));
             open("elevenTwelfths.orvana"); },
         multirate("elevenTwelfths"), "L = 11 in the file was limited to 10; M = 12 in the file was limited to 10", true,
         [&] { EXPECT_EQ(window->multirateLStepper()->value(), 10); }},
        {"back to Sum & Filter: Save As writes what the window shows", [&] {
             window->showGVRWinProjectOne();
             choose3("Cos35Fs300", "Cos35Fs300", "lp300fc25");
             design();
             saveAs("back"); },
         sumModel("back"), "", true, [&] {
             EXPECT_EQ(saved(1, "back").blockDiagramNumber, 1);
             EXPECT_FALSE(QFile::exists(seeded.library.projectPath(2, "back"))); }},
        {"the sample Multirate project with the user's filter", [&] {
             window->showGVRWinProjectTwo();
             open("multirateUser300to450.orvana"); },
         multirate("multirateUser300to450"), "", true, [&] {
             EXPECT_EQ(window->filterPopUp()->currentText(), "lpNormfcp333");
             EXPECT_TRUE(window->userFilterButton()->isChecked());
             EXPECT_TRUE(window->filterPopUp()->isVisible());
             EXPECT_DOUBLE_EQ(window->theTimeArray()[8], 450.0); }},
    };
    // clang-format on
    runFlow(
        *window, window->noteField(), [&] { return designed(); }, steps);
}

TEST_F(ProjectFlow, ListsFollowTheLibraryAndKeepTheChoices)
{
    window->showGVRWinProjectOne();
    pick(window->signalOnePopUp(), "Mixer25MHz5MHz");
    pick(window->signalTwoPopUp(), "Cos35Fs300");
    pick(window->signalTwoSignPopUp(), "-1");
    pick(window->filterPopUp(), "lp20fc2cheby4");
    ASSERT_TRUE(
        QFile::copy(seeded.library.filterPath("lp300fc25"), seeded.library.filterPath("AAANewFilter")));
    seeded.library.announceNewFilterFile();
    EXPECT_GE(window->filterPopUp()->findText("AAANewFilter"), 0);
    expectChoices("Mixer25MHz5MHz", "Cos35Fs300", 1);
    EXPECT_EQ(window->filterPopUp()->currentText(), "lp20fc2cheby4");

    // A design that disappeared falls back to the first name.
    QFile::remove(seeded.library.filterPath("lp20fc2cheby4"));
    seeded.library.announceNewFilterFile();
    EXPECT_EQ(window->filterPopUp()->findText("lp20fc2cheby4"), -1);
    EXPECT_EQ(window->filterPopUp()->currentIndex(), 0);
}

} // namespace
