// New, Open, Save and Save As of a designer, driven through the sheets and
// alerts as a user would: clicks and typing on the visible widgets, with a
// recording fake in place of the designer's model.
#include <optional>

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QTableView>
#include <QTest>

#include <gtest/gtest.h>

#include "widgets/design_file_commands.h"
#include "widgets/open_sheet.h"
#include "widgets/save_sheet.h"
#include "support/temp_library.h"

// Readable failure messages.
static void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace {

// The designer as the commands see it: records each call and writes a file
// for each save, as the models do.
struct FakeDesigner {
    QStringList calls;
    bool openAnswer = true;
    bool saveAnswer = true;
    DesignFileCommands* commands = nullptr;

    DesignFileHooks hooks()
    {
        DesignFileHooks h;
        h.bringToFront = [this] { calls << "front"; };
        h.clearForNew = [this] { calls << "clear"; };
        h.openDesign = [this](const QString& name) {
            calls << "open:" + name;
            return openAnswer;
        };
        h.saveDesign = [this](const QString& name) {
            calls << "save:" + name;
            if (!saveAnswer)
                return false;
            QFile file(commands->pathForName(name));
            return file.open(QIODevice::WriteOnly) && file.write("saved") == 5;
        };
        h.redesign = [this] { calls << "redesign"; };
        return h;
    }
};

class DesignFileSheets : public ::testing::Test {
protected:
    void SetUp() override
    {
        makeCommands(DesignFileKind::filter([this] { return folder; }));
    }

    void makeCommands(DesignFileKind kind)
    {
        delete commands;
        commands = new DesignFileCommands(&window, std::move(kind), designer.hooks());
        designer.commands = commands;
        window.resize(500, 400);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    void TearDown() override
    {
        delete commands;
        // Alerts delete themselves once closed.
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    void writeFile(const QString& name)
    {
        QFile file(QDir(folder).filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write("old");
    }

    QByteArray contents(const QString& name) const
    {
        QFile file(QDir(folder).filePath(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    // The modal widget on top, which must be the kind expected.
    template <class T> T* topModal()
    {
        QWidget* modal = QApplication::activeModalWidget();
        T* typed = qobject_cast<T*>(modal);
        EXPECT_NE(typed, nullptr) << "top modal widget: "
                                  << (modal ? modal->metaObject()->className() : "none");
        if (typed) {
            EXPECT_TRUE(typed->isVisible());
            EXPECT_EQ(typed->windowModality(), Qt::WindowModal);
            EXPECT_EQ(typed->parentWidget(), &window);
        }
        return typed;
    }

    QMessageBox* topAlert()
    {
        QMessageBox* box = topModal<QMessageBox>();
        if (box) {
            EXPECT_EQ(box, commands->currentAlert());
            EXPECT_EQ(box->icon(), QMessageBox::Warning);
        }
        return box;
    }

    static QStringList buttonTexts(QMessageBox* box)
    {
        QStringList texts;
        for (QAbstractButton* b : box->buttons())
            texts << b->text();
        texts.sort();
        return texts;
    }

    static void clickButton(QMessageBox* box, const QString& text)
    {
        for (QAbstractButton* b : box->buttons())
            if (b->text() == text) {
                QTest::mouseClick(b, Qt::LeftButton);
                QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
                return;
            }
        ADD_FAILURE() << "no button " << text.toStdString();
    }

    // Save As (or Save) through the save sheet with `name` typed.
    void saveThroughSheet(const QString& name, bool saveAs = true)
    {
        saveAs ? commands->saveAsMenuItem() : commands->saveMenuItem();
        GVRSaveSheet* sheet = topModal<GVRSaveSheet>();
        ASSERT_NE(sheet, nullptr);
        EXPECT_EQ(sheet->nameField()->text(), "");
        QTest::keyClicks(sheet->nameField(), name);
        QTest::mouseClick(sheet->saveButton(), Qt::LeftButton);
        EXPECT_FALSE(sheet->isVisible());
    }

    TempLibrary lib;
    QString folder = lib.folder("filter");
    QWidget window;
    FakeDesigner designer;
    DesignFileCommands* commands = nullptr;
};

TEST_F(DesignFileSheets, OpeningARowNamesTheDesignAndRedesigns)
{
    writeFile("lp300fc25.filt");
    writeFile("hp.filt");
    writeFile("tone.signal");
    EXPECT_EQ(window.windowTitle(), "(Untitled)");

    commands->openMenuItem();
    GVROpenSheet* sheet = topModal<GVROpenSheet>();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(designer.calls, QStringList({"front"}));
    QTableView* table = sheet->table();
    ASSERT_EQ(table->model()->rowCount(), 2);
    EXPECT_EQ(sheet->selectedRow(), 0);

    int row = -1;
    for (int r = 0; r < 2; ++r)
        if (table->model()->index(r, 0).data().toString() == "lp300fc25.filt")
            row = r;
    ASSERT_GE(row, 0);
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {},
                      table->visualRect(table->model()->index(row, 1)).center());
    QTest::mouseClick(sheet->openButton(), Qt::LeftButton);

    EXPECT_FALSE(sheet->isVisible());
    EXPECT_EQ(designer.calls, QStringList({"front", "front", "open:lp300fc25", "redesign"}));
    EXPECT_EQ(window.windowTitle(), "lp300fc25");
    EXPECT_EQ(commands->currentName(), "lp300fc25");

    // Later saves use that name.
    designer.calls.clear();
    commands->saveMenuItem();
    QMessageBox* box = topAlert();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "\"lp300fc25\" already exists. Do you want to overwrite its original contents?");
    clickButton(box, "Overwrite");
    EXPECT_EQ(designer.calls, QStringList({"save:lp300fc25"}));
    EXPECT_EQ(contents("lp300fc25.filt"), "saved");
}

TEST_F(DesignFileSheets, ProjectRefusesAFileWithAnAlert)
{
    folder = lib.folder("projectOne");
    makeCommands(DesignFileKind::project([this] { return folder; }));
    saveThroughSheet("first");
    writeFile("bad.orvana");
    designer.calls.clear();
    designer.openAnswer = false;

    commands->openMenuItem();
    GVROpenSheet* sheet = topModal<GVROpenSheet>();
    ASSERT_NE(sheet, nullptr);
    for (int r = 0; r < sheet->table()->model()->rowCount(); ++r)
        if (sheet->table()->model()->index(r, 0).data().toString() == "bad.orvana")
            sheet->selectRow(r);
    QTest::mouseClick(sheet->openButton(), Qt::LeftButton);
    EXPECT_FALSE(sheet->isVisible());

    QMessageBox* box = topAlert();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->informativeText(),
              "This Project File Contains Erroneous Information and Cannot be Opened");
    EXPECT_EQ(buttonTexts(box), QStringList({"OK"}));
    clickButton(box, "OK");
    EXPECT_EQ(designer.calls, QStringList({"front", "front", "open:bad"}));
    // The name is taken, the title is not.
    EXPECT_EQ(window.windowTitle(), "first");
    EXPECT_EQ(commands->currentName(), "bad");

    // The folder is asked each time: a project of the other type saves elsewhere.
    const QString other = lib.folder("projectTwo");
    folder = other;
    EXPECT_EQ(commands->pathForName("m"), QDir(other).filePath("m.orvana"));
    designer.openAnswer = true;
    commands->openMenuItem();
    EXPECT_TRUE(commands->openSheetFileArray().isEmpty());
    commands->openSheetCancel();
}

// The alert texts of each designer, seen on the alerts themselves.
struct KindTexts {
    const char* label;
    DesignFileKind (*make)(std::function<QString()>);
    const char* extension;
    const char* replaceText;
    const char* overwriteText;
};

void PrintTo(const KindTexts& texts, std::ostream* out)
{
    *out << texts.label;
}

class DesignFileKindTexts : public DesignFileSheets, public ::testing::WithParamInterface<KindTexts> {};

TEST_P(DesignFileKindTexts, ReplaceAndOverwriteAlertsCarryTheDesignersWords)
{
    const KindTexts& t = GetParam();
    makeCommands(t.make([this] { return folder; }));
    EXPECT_EQ(commands->kind().extension, t.extension);
    writeFile(QString("taken") + t.extension);

    saveThroughSheet("taken");
    QMessageBox* box = topAlert();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "\"taken\" already exists. Do you want to replace it?");
    EXPECT_EQ(box->informativeText(), t.replaceText);
    clickButton(box, "Replace");
    EXPECT_EQ(window.windowTitle(), "taken");

    commands->saveMenuItem();
    box = topAlert();
    ASSERT_NE(box, nullptr);
    EXPECT_EQ(box->text(), "\"taken\" already exists. Do you want to overwrite its original contents?");
    EXPECT_EQ(box->informativeText(), t.overwriteText);
    clickButton(box, "Cancel");
    EXPECT_EQ(designer.calls.count(QString("save:taken")), 1);
}

INSTANTIATE_TEST_SUITE_P(
    AllDesigners, DesignFileKindTexts,
    ::testing::Values(
        KindTexts{
            "Filter", &DesignFileKind::filter, ".filt",
            "A Filter file with the same name already exists. Replacing it will delete the original Filter "
            "design.",
            "This Filter design has already been saved. Overwriting it will change the original Filter "
            "design."},
        KindTexts{
            "Signal", &DesignFileKind::signal, ".signal",
            "A Signal file with the same name already exists. Replacing it will delete the original Signal "
            "design.",
            "This Signal design has already been saved. Overwriting it will change the original Signal "
            "design."},
        KindTexts{
            "Project", &DesignFileKind::project, ".orvana",
            "A Model file with the same name already exists. Replacing it will delete the original Model "
            "design.",
            "This Model design has already been saved. Overwriting it will change the original Model "
            "design."}),
    [](const ::testing::TestParamInfo<KindTexts>& info) { return std::string(info.param.label); });

} // namespace
