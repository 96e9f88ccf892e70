// Switches the controller's tracking on and off.
#ifndef CONTROLLER_TRACKINGCONTROL_H
#define CONTROLLER_TRACKINGCONTROL_H

class IOManager;

/// Asks for tracking, whether it runs or not. Returns 0, or 1 after the user has been told that it
/// failed.
int start_tracking(IOManager* io_manager);

/// Stops tracking if the controller says that it is measuring, whoever started it. Returns 0, or 1
/// after the user has been told which of the two calls failed.
int stop_tracking(IOManager* io_manager);

#endif
