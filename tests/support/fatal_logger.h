// Ends a test program at the first Qt warning that the test has not announced.
#ifndef TESTS_SUPPORT_FATAL_LOGGER_H
#define TESTS_SUPPORT_FATAL_LOGGER_H

/// Installs the message handler: any warning or critical message aborts the program, "no such
/// slot" from connect-by-name above all. Call it from initTestCase().
void install_fatal_logger();

/// While one lives, warnings that contain its text are counted instead of ending the program.
/// The text must outlive the object; objects do not nest.
class ExpectedWarning
{
public:
    explicit ExpectedWarning(const char* text);
    ~ExpectedWarning();

    /// Number of announced warnings seen so far.
    int count() const;

private:
    ExpectedWarning(const ExpectedWarning&);
    ExpectedWarning& operator=(const ExpectedWarning&);
};

#endif
