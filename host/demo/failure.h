// Why the demonstration stops. Steps throw it, and the stepper catches it before it reaches Qt.
#ifndef HOST_DEMO_FAILURE_H
#define HOST_DEMO_FAILURE_H

#include <QString>

#include <stdexcept>

struct DemoFailure : std::runtime_error
{
    explicit DemoFailure(const QString& text) : std::runtime_error(text.toStdString()) {}
};

#endif
