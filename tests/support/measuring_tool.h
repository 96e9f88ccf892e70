// A Measurement Tool as it speaks in data lines.
#ifndef TESTS_SUPPORT_MEASURING_TOOL_H
#define TESTS_SUPPORT_MEASURING_TOOL_H

#include "matching/abcmatchingdialog.h"

#include <QtCore/QString>

/// Feeds a dialog one frame after the other, 0.25 s apart. Tool 1 is the one that speaks.
struct MeasuringTool
{
    AbcMatchingDialog* dialog;
    double time = 0.0;
    double quality = 1.0;
    int buttons = 0; ///< bit 0 is the measuring flag, bits 1 to 3 are pressed buttons
    double x = 0.0;
    double y = 0.0;
    double z = 0.0;

    explicit MeasuringTool(AbcMatchingDialog* dialog) : dialog(dialog) {}

    int frame(const char* line_type = "6dmt2")
    {
        time += 0.25;
        dialog->set_ascii_data("ts", qPrintable(QString("ts %1").arg(time)));
        return dialog->set_ascii_data(line_type, line().constData());
    }

    QByteArray line() const
    {
        return QString("6dmt2 1 1 [0 %1 4 0][%2 %3 %4][1 0 0 0 1 0 0 0 1][%5][0 0 0 0 0 0]")
            .arg(quality)
            .arg(x)
            .arg(y)
            .arg(z)
            .arg(buttons)
            .toLatin1();
    }

    /// A whole measurement: the flag up for so many frames, then down.
    void measure(double at_x, double at_y, double at_z, int frames = 4)
    {
        x = at_x;
        y = at_y;
        z = at_z;
        buttons = 1;
        for (int i = 0; i < frames; ++i)
            frame();
        buttons = 0;
        frame();
    }
};

#endif
