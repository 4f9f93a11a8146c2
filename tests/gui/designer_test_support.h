// Driving the designer windows as a user would: choosing from pop-up lists
// through their popups, typing into fields, answering sheets and alerts; and
// the flow runner, a table of such steps each followed by what the window
// must show.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include "library/design_library.h"
#include "shell/sample_designs.h"
#include "support/temp_library.h"
#include "widgets/open_sheet.h"
#include "widgets/save_sheet.h"

inline void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}

namespace designer_test {

// The title without the edited mark: "lp300fc25 — Filter Designer".
inline QString title(const QWidget& window)
{
    return window.windowTitle().remove(QStringLiteral("[*]"));
}

// The design name a window's title shows: "lp300fc25 — Filter Designer[*]" gives "lp300fc25".
inline QString shownName(const QWidget& window)
{
    return title(window).section(QStringLiteral(" — "), 0, 0);
}

// Makes `window` the active window, as a click on it would. The offscreen
// platform leaves a closed popup active.
inline void activate(QWidget* window)
{
    window->activateWindow();
    QApplication::processEvents();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
}

// Opens the list's popup, moves to item `index` with the arrow keys and
// presses Return, as a keyboard user would. (Mouse clicks on an offscreen
// popup are at times taken for the click that opened it.)
inline void choose(QComboBox* popUp, int index)
{
    ASSERT_TRUE(index >= 0 && index < popUp->count()) << "no item " << index;
    popUp->showPopup();
    QAbstractItemView* view = popUp->view();
    ASSERT_TRUE(view->isVisible());
    const int from = view->currentIndex().isValid() ? view->currentIndex().row() : 0;
    for (int row = from; row != index; row += row < index ? 1 : -1)
        QTest::keyClick(view, row < index ? Qt::Key_Down : Qt::Key_Up);
    QTest::keyClick(view, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_FALSE(view->isVisible()) << popUp->objectName().toStdString() << " item " << index;
    EXPECT_EQ(popUp->currentIndex(), index);
    if (popUp->window()->isVisible())
        activate(popUp->window());
}

inline void choose(QComboBox* popUp, const QString& item)
{
    choose(popUp, popUp->findText(item));
}

// Replaces the text of a line edit or spin box by typing `text` (the field's validator applies).
template <class Field> void type(Field* field, const QString& text)
{
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClicks(field, text);
}

// The modal widget on top, which must be of the kind expected.
template <class T> T* topModal()
{
    QApplication::processEvents();
    QWidget* modal = QApplication::activeModalWidget();
    EXPECT_NE(qobject_cast<T*>(modal), nullptr)
        << "top modal widget: " << (modal ? modal->metaObject()->className() : "none");
    return qobject_cast<T*>(modal);
}

// Clicks `button` in the alert on top (or in `box`), checking its text when given.
inline void answer(const QString& button, const QString& text = {}, QMessageBox* box = nullptr)
{
    box = box ? box : topModal<QMessageBox>();
    ASSERT_NE(box, nullptr);
    if (!text.isEmpty()) {
        EXPECT_EQ(box->text(), text);
    }
    for (QAbstractButton* b : box->buttons())
        if (b->text() == button) {
            QTest::mouseClick(b, Qt::LeftButton);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return;
        }
    ADD_FAILURE() << "no button " << button.toStdString();
}

// Types `name` in the save sheet on top and clicks Save.
inline void answerSaveSheet(const QString& name)
{
    GVRSaveSheet* sheet = topModal<GVRSaveSheet>();
    ASSERT_NE(sheet, nullptr);
    EXPECT_EQ(sheet->nameField()->text(), QString());
    QTest::keyClicks(sheet->nameField(), name);
    QTest::mouseClick(sheet->saveButton(), Qt::LeftButton);
    QApplication::processEvents();
}

// Clicks the row whose file name is `fileName` in the open sheet on top, then Open.
inline void answerOpenSheet(const QString& fileName)
{
    GVROpenSheet* sheet = topModal<GVROpenSheet>();
    ASSERT_NE(sheet, nullptr);
    int row = 0;
    while (row < sheet->files().size() && sheet->files().at(row).fileName() != fileName)
        ++row;
    ASSERT_LT(row, sheet->files().size()) << "no row " << fileName.toStdString();
    QTableView* table = sheet->table();
    const QRect cell = table->visualRect(table->model()->index(row, 0));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseClick(sheet->openButton(), Qt::LeftButton);
    QApplication::processEvents();
}

inline QByteArray readBytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

inline void writeFile(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly)) << path.toStdString();
    file.write(bytes);
}

// The record of a saved design file, read by the archive reader.
template <class R> R saved(std::optional<R> (*read)(const QString&, QString*), const QString& path)
{
    QString error;
    const std::optional<R> record = read(path, &error);
    EXPECT_TRUE(record) << error.toStdString();
    return record.value_or(R{});
}

// A temporary design library holding the thirteen sample designs.
struct SeededLibrary {
    TempLibrary temp;
    DesignLibrary library{temp.root()};
    QList<LibraryProblem> problems = prepareLibrary(library);
};

// A designer window of type W over a fresh temporary library, shown.
template <class W> class DesignerTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(library.ensureFolders().isEmpty());
        window->show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    }
    void TearDown() override
    {
        window.reset();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    TempLibrary temp;
    DesignLibrary library{temp.root()};
    std::unique_ptr<W> window = std::make_unique<W>(library);
};

// Pixels of `image` close to `colour` (each channel within 3 of it).
inline int countPixels(const QImage& image, const QColor& colour)
{
    const QImage rgb = image.convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < rgb.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(rgb.constScanLine(y));
        for (int x = 0; x < rgb.width(); ++x)
            count += std::abs(qRed(line[x]) - colour.red()) <= 3 &&
                     std::abs(qGreen(line[x]) - colour.green()) <= 3 &&
                     std::abs(qBlue(line[x]) - colour.blue()) <= 3;
    }
    return count;
}

// One step of a window's flow: what the user does, then what the window must
// show: its title (without the edited mark), the note line (null: not
// checked), whether the charts hold a design, and further checks of fields
// and saved files.
struct Step {
    const char* what;
    std::function<void()> act;
    QString title;
    const char* note;
    bool designed;
    std::function<void()> check = {};
};

// Runs the steps in order, stopping at the first fatal failure.
inline void runFlow(const QWidget& window, QLabel* noteLine, const std::function<bool()>& designed,
                    const std::vector<Step>& steps)
{
    for (const Step& step : steps) {
        SCOPED_TRACE(step.what);
        step.act();
        QApplication::processEvents();
        EXPECT_EQ(title(window), step.title);
        if (step.note) {
            EXPECT_EQ(noteLine->text(), QString::fromUtf8(step.note));
        }
        EXPECT_EQ(designed(), step.designed);
        if (step.check)
            step.check();
        if (::testing::Test::HasFatalFailure())
            return;
    }
}

} // namespace designer_test
