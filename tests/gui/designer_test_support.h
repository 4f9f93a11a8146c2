// Driving the designer windows as a user would: choosing from pop-up lists
// through their popups, typing into fields, answering sheets and alerts, and
// saving screenshots for a person to look at.
#pragma once

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QImage>
#include <QLineEdit>
#include <QMessageBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTableView>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include "widgets/open_sheet.h"
#include "widgets/save_sheet.h"

namespace designer_test {

// The design name a window's title shows: "lp300fc25 — Filter Designer[*]"
// gives "lp300fc25".
inline QString shownName(const QWidget& window)
{
    QString title = window.windowTitle();
    title.remove(QStringLiteral("[*]"));
    const int dash = title.lastIndexOf(QStringLiteral(" — "));
    return dash >= 0 ? title.left(dash) : title;
}

// Makes `window` the active window, as a click on it would. The offscreen
// platform leaves a closed popup active.
inline void activate(QWidget* window)
{
    window->activateWindow();
    QApplication::processEvents();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window));
    EXPECT_EQ(QApplication::activeWindow(), window);
}

// Opens the list's popup, moves to item `index` with the arrow keys and
// presses Return, as a keyboard user would. (Mouse clicks on an offscreen
// popup are at times taken for the click that opened it.)
inline void choose(QComboBox* popUp, int index)
{
    ASSERT_NE(popUp, nullptr);
    ASSERT_TRUE(index >= 0 && index < popUp->count()) << "no item " << index;
    popUp->showPopup();
    QAbstractItemView* view = popUp->view();
    ASSERT_TRUE(view->isVisible());
    const int from = view->currentIndex().isValid() ? view->currentIndex().row() : 0;
    for (int row = from; row < index; ++row)
        QTest::keyClick(view, Qt::Key_Down);
    for (int row = from; row > index; --row)
        QTest::keyClick(view, Qt::Key_Up);
    EXPECT_EQ(view->currentIndex().row(), index);
    QTest::keyClick(view, Qt::Key_Return);
    QApplication::processEvents();
    EXPECT_FALSE(view->isVisible()) << popUp->objectName().toStdString() << " item " << index;
    EXPECT_EQ(popUp->currentIndex(), index);
    if (popUp->window()->isVisible())
        activate(popUp->window());
}

inline void choose(QComboBox* popUp, const QString& title)
{
    ASSERT_NE(popUp, nullptr);
    const int index = popUp->findText(title);
    ASSERT_GE(index, 0) << "no item " << title.toStdString();
    choose(popUp, index);
}

// Replaces the field's text by typing `text` (the field's validator applies).
inline void type(QLineEdit* field, const QString& text)
{
    ASSERT_NE(field, nullptr);
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Backspace);
    QTest::keyClicks(field, text);
}

inline void typeInto(QSpinBox* box, const QString& text)
{
    ASSERT_NE(box, nullptr);
    box->setFocus();
    box->selectAll();
    QTest::keyClicks(box, text);
}

// The modal widget on top, which must be of the kind expected.
template <class T> T* topModal()
{
    QApplication::processEvents();
    QWidget* modal = QApplication::activeModalWidget();
    T* typed = qobject_cast<T*>(modal);
    EXPECT_NE(typed, nullptr) << "top modal widget: " << (modal ? modal->metaObject()->className() : "none");
    return typed;
}

inline void clickButton(QMessageBox* box, const QString& text)
{
    ASSERT_NE(box, nullptr);
    for (QAbstractButton* b : box->buttons())
        if (b->text() == text) {
            QTest::mouseClick(b, Qt::LeftButton);
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            return;
        }
    ADD_FAILURE() << "no button " << text.toStdString();
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
    int row = -1;
    for (int i = 0; i < sheet->files().size(); ++i)
        if (sheet->files().at(i).fileName() == fileName)
            row = i;
    ASSERT_GE(row, 0) << "no row " << fileName.toStdString();
    QTableView* table = sheet->table();
    const QRect cell = table->visualRect(table->model()->index(row, 0));
    QTest::mouseClick(table->viewport(), Qt::LeftButton, {}, cell.center());
    QTest::mouseClick(sheet->openButton(), Qt::LeftButton);
    QApplication::processEvents();
}

// The widget as painted now.
inline QImage snapshot(QWidget* widget)
{
    return widget->grab().toImage();
}

// Saves a screenshot of `widget` under the test artifacts folder.
inline void saveScreenshot(QWidget* widget, const QString& fileName)
{
    const QString folder = QStringLiteral(ORVANA_TEST_ARTIFACTS);
    QDir().mkpath(folder);
    EXPECT_TRUE(widget->grab().save(QDir(folder).filePath(fileName))) << fileName.toStdString();
}

} // namespace designer_test
