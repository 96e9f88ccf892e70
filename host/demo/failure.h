// What the demonstration throws, from its own steps to its own stepper, never through Qt.
#ifndef HOST_DEMO_FAILURE_H
#define HOST_DEMO_FAILURE_H

#include <QString>

#include <stdexcept>

struct DemoFailure : std::runtime_error
{
    explicit DemoFailure(const QString& text) : std::runtime_error(text.toStdString()) {}
};

#endif
