// A matching dialog with a controller behind it, and a person in front of it.
#ifndef TESTS_MATCHING_MATCHINGFIXTURE_H
#define TESTS_MATCHING_MATCHINGFIXTURE_H

#include "tests/support/dialog_driver.h"
#include "tests/support/fake_controller.h"
#include "tests/support/fatal_logger.h"
#include "tests/support/measuring_tool.h"

#include <QtTest>
#include <QtWidgets>

#include <memory>

/// Base of the tests of the dialog; call `start` before and `stop` after each test.
struct MatchingFixture
{
    std::unique_ptr<FakeController> controller;
    BackendVersions versions = backend(1, 20);
    std::unique_ptr<AbcMatchingDialog> dialog;
    std::unique_ptr<MeasuringTool> tool;

    void start(FakeController* own_controller = new FakeController)
    {
        install_fatal_logger();
        dialog.reset();
        controller.reset(own_controller);
        dialog.reset(new AbcMatchingDialog(own_controller, &versions, nullptr));
        tool.reset(new MeasuringTool(dialog.get()));
    }

    void stop()
    {
        close_all_dialogs();
        dialog.reset();
    }

    /// What the controller answers to a query about tools; an empty reply is a failure.
    void answer(const QString& query, const QString& reply)
    {
        controller->values.erase("measurementtool " + query.toStdString());
        if (!reply.isEmpty())
            controller->values["measurementtool " + query.toStdString()] = reply.toStdString();
    }

    /// Opens the dialog, runs the step in it, closes it if it is still there.
    void exec(std::function<void()> step = [] {})
    {
        when_open<AbcMatchingDialog>([this, step](AbcMatchingDialog*) {
            step();
            if (dialog)
                dialog->close();
        });
        dialog->update_and_exec();
    }

    template <typename T>
    T* child(const char* name)
    {
        T* found = dialog->findChild<T*>(name);
        if (!found)
            qFatal("no widget %s", name);
        return found;
    }

    QTableWidget* references() { return child<QTableWidget>("tableWidget_referencePoints"); }
    QTableWidget* measurements() { return child<QTableWidget>("tableWidget_measuredPoints"); }
    QPushButton* button(const char* name) { return child<QPushButton>(name); }
    QString report() { return child<QTextEdit>("w_trafoText")->toPlainText(); }

    void add_reference(bsVector point)
    {
        button("pushButton_addRefPoint")->click();
        for (int column = 0; column < 3; ++column)
            references()
                ->item(references()->rowCount() - 1, column)
                ->setText(QString::number(point[column]));
    }

    /// Both as a reference and by the tool.
    void add_point(const bsVector& point)
    {
        add_reference(point);
        tool->measure(point.x, point.y, point.z);
    }

    /// Opens the editor of a cell and replaces its text.
    QLineEdit* edit(int row, int column, const QString& text)
    {
        references()->setCurrentCell(row, column);
        references()->editItem(references()->item(row, column));
        QLineEdit* editor = references()->findChild<QLineEdit*>();
        editor->setText(text);
        return editor;
    }

    /// Names this file in the next file box.
    static void choose(const QString& path)
    {
        when_open<QFileDialog>([path](QFileDialog* box) {
            box->findChild<QLineEdit*>("fileNameEdit")->setText(path);
            static_cast<QDialog*>(box)->accept();
        });
    }
};

#endif
