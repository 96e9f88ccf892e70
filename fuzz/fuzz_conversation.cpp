// Any bytes as the data lines that an open matching dialog gets, several frames and measurements
// long: nothing crashes or grows without bound, and the counts it tells stay coherent.
#include "fuzz/support/require.h"
#include "matching/abcmatchingdialog.h"
#include "tests/support/fake_controller.h"

#include <QApplication>
#include <QTableWidget>

#include <cstdint>
#include <sstream>
#include <string>

/// A dialog with a calibrated tool and four reference points, as it stands after its opening.
struct OpenDialog
{
    OpenDialog() : versions(backend(1, 20)), dialog(&controller, &versions, nullptr)
    {
        controller.values["measurementtool measurement_duration b01"] = "0.05";
        QMetaObject::invokeMethod(&dialog, "reject", Qt::QueuedConnection);
        dialog.update_and_exec();
        auto* table = dialog.findChild<QTableWidget*>("tableWidget_referencePoints");
        const char* const points[4][3] = {
            {"0", "0", "0"}, {"500", "0", "0"}, {"0", "300", "0"}, {"0", "0", "200"}};
        for (int row = 0; row < 4; ++row) {
            dialog.on_pushButton_addRefPoint_clicked();
            for (int column = 0; column < 3; ++column)
                table->item(row, column)->setText(points[row][column]);
        }
        require(dialog.getRPCount() == 4);
    }

    /// Ends a measurement under way. False if the last input has left measured points.
    bool forget()
    {
        controller.log.clear();
        for (const char* line : {"fr 0", "ts 0", "6df2 0 0", "6df 0",
                                 "6dmt2 1 1 [0 -1.000 4 1.50][0 0 0][1 0 0 0 1 0 0 0 1][0]"
                                 "[0 0 0 0 0 0]",
                                 "6dmt2 0 0"})
            dialog.set_ascii_data("6dmt2 ", line);
        return dialog.getMPCount() == 0;
    }

    FakeController controller;
    BackendVersions versions;
    AbcMatchingDialog dialog;
};

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    new QApplication(*argc, *argv);
    return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // One dialog serves many inputs: to make one takes longer than to read a hundred lines. The
    // last one stays, since it cannot go after the application.
    static OpenDialog* open = nullptr;
    if (!open || !open->forget()) {
        delete open;
        open = new OpenDialog;
    }
    std::istringstream lines(std::string(reinterpret_cast<const char*>(data), size));
    for (std::string line; std::getline(lines, line);) {
        const std::string type = line.substr(0, line.find(' ')) + ' ';
        const int result = open->dialog.set_ascii_data(type.c_str(), line.c_str());
        require(result == 0 || result == -2);
        require(open->dialog.getTPCount() == 0
                || open->dialog.getTPCount() == open->dialog.getMPCount());
    }
    require(open->dialog.getRPCount() == 4 && open->dialog.getMPCount() <= 1000);
    return 0;
}
